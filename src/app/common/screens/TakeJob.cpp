// SPDX-License-Identifier: MIT
#include "TakeJob.h"

#include "Array.h"
#include "FileOps.h"
#include "FileOutputStream.h"
#include "G.h"
#include "Main.h"
#include "MessageAndQuit.h"
#include "Murmelo.h"
#include "OspBase.h"
#include "Process.h"
#include "Recording.h"
#include "SkBar.h"
#include "WavFile.h"
#include "WavProps.h"

#include <algorithm>
#include <cstddef>

using Osp::Base::String;

namespace {

constexpr int32_t kMaxSamples = WavFile::kRecordedRateHz / 1000 * Recording::kTakeMaxMs;

}  // namespace

void TakeJob::enter() {
    int32_t* samples = Murmelo::loadLastRec8Khz();
    if (samples == nullptr) {
        return;  // the message is shown already
    }
    Main::paintBgAndFx();
    SkBar::clear();
    Process::enter(samples, G::fxMicPostProc, new String(G::takePath()), G::statePlay,
                   G::stateOptions);
}

void TakeJob::use(const int16_t* samples, int32_t count) {
    bringBack(samples, std::min(count, kMaxSamples));
}

void TakeJob::bringBack(const int16_t* samples, int32_t count) {
    G::deleteRecordedAndProcessed();
    G::setLastPlayedFx(-1);
    if (FileOps::exists(G::resultPath())) {
        // The same message as when a recording cannot remove the old result.
        MessageAndQuit::enterOnPicture(MessageAndQuit::kFileError);
        return;
    }
    if (!write(samples, count)) {
        FileOps::deleteFile(G::takePath());
        MessageAndQuit::enterOnPicture(MessageAndQuit::kStorageLow);
        return;
    }
    enter();
}

bool TakeJob::write(const int16_t* samples, int32_t count) {
    FileOutputStream stream(G::takePath());
    WavProps props(count, WavFile::kRecordedRateHz);
    const Array<signed char> header(props.toByteArray());
    stream.write(header);
    const Array<signed char> bytes(newArray<signed char>(2 * count));
    for (int32_t i = 0; i < count; i++) {
        signed char* sample = bytes.get() + ptrdiff_t{2} * i;
        sample[0] = static_cast<signed char>(samples[i] & 0xFF);
        sample[1] = static_cast<signed char>(samples[i] >> 8);
    }
    stream.write(bytes);
    stream.flush();
    return !stream.hasFailed();
}
