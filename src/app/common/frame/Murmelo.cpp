// SPDX-License-Identifier: MIT
#include "Murmelo.h"

#include "AppImage.h"
#include "FileInputStream.h"
#include "FileOps.h"
#include "FileOutputStream.h"
#include "FrameNeeds.h"
#include "G.h"
#include "Orm.h"
#include "OspBase.h"
#include "OspGraphics.h"
#include "State.h"
#include "WavFile.h"
#include "WavProps.h"

using Osp::Base::String;
using Osp::Graphics::Color;

namespace {

constexpr int32_t kSampleBufferBytes = 20480;

}  // namespace

Array<signed char> Murmelo::TempHdrBuf;
Array<signed char> Murmelo::TempSmpBuf;
std::unique_ptr<String> Murmelo::msg;
std::unique_ptr<Color> Murmelo::pBkgColor;

void Murmelo::static_ctor() {
    TempHdrBuf.reset(newArray<signed char>(WavProps::kHeaderBytes));
    TempSmpBuf.reset(newArray<signed char>(kSampleBufferBytes));
    msg = std::make_unique<String>();
    setBkgColor(kFirstRunArgb);
}

void Murmelo::static_dtor() {
    TempHdrBuf.reset();
    TempSmpBuf.reset();
    msg.reset();
    pBkgColor.reset();
}

void Murmelo::setBkgColor(uint32_t argb) {
    pBkgColor = std::make_unique<Color>(argb);
}

void Murmelo::onInit() {
    Orm::getScreen()->set(kFirstRunArgb);
    Orm::flush();
    const int32_t lang = G::getSavedLang();
    if (lang != -1) {
        setBkgColor(kLaterRunArgb);
        FrameNeeds::installed->setLanguage(lang);
        State::setState(G::stateSplash, true, true);
    } else {
        setBkgColor(kFirstRunArgb);
        State::setState(G::stateFirstLang, true, true);
    }
}

void Murmelo::onShutDown() {
    deleteTempFiles();
}

void Murmelo::deleteTempFiles() {
    if (G::uriWavFolder == nullptr) {
        return;
    }
    FileOps::deleteFile(G::uriWavFolder, G::uriPartWavRecorded);
    FileOps::deleteFile(G::uriWavFolder, G::uriPartWavProcessed);
}

int32_t* Murmelo::loadWavTo8Khz(String& uri) {
    if (!checkMemCardRemoved()) {
        return nullptr;
    }
    const std::unique_ptr<InputStream> stream(MIDlet::getResourceAsStream(uri));
    int32_t* samples = WavFile::loadTo8Khz(stream.get(), TempHdrBuf, TempSmpBuf);
    stream->close();
    return samples;
}

bool Murmelo::save8KhzWav(const int32_t* samples, String* path) {
    if (!checkMemCardRemoved() || !checkEnoughSpace()) {
        return false;
    }
    bool saved = false;
    {
        FileOutputStream stream(*path);
        saved = WavFile::save8Khz(&stream, samples, TempHdrBuf, TempSmpBuf);
        stream.close();
    }
    if (!saved) {
        FileOps::deleteFile(*path);
    }
    return saved;
}

int32_t* Murmelo::loadLastRec8Khz() {
    String path = G::takePath();
    int32_t* samples = loadWavTo8Khz(path);
    if (samples == nullptr) {
        FrameNeeds::installed->enterFileError();  // else the screen would stay without keys
    }
    return samples;
}
