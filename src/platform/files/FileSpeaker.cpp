// SPDX-License-Identifier: MIT
#include "FileSpeaker.h"

#include "SoundFile.h"

#include <algorithm>
#include <utility>

namespace {

constexpr int64_t kMsPerSecond = 1000;

}  // namespace

FileSpeaker::FileSpeaker(Clock nowMs)
    : nowMs(std::move(nowMs)) {}

Problem FileSpeaker::openFile(const std::string& newPath) {
    Problem problem = finishFile();
    path = newPath;
    collected.clear();
    if (problem) {
        return problem;
    }
    return SoundFile::write(path, kRateHz, collected);  // empty; a bad path fails at once
}

Problem FileSpeaker::finishFile() {
    hearUntilNow();
    keepHeard();
    return path.empty() ? Problem::none() : SoundFile::write(path, kRateHz, collected);
}

int64_t FileSpeaker::dueMs() const {
    if (clip == nullptr || paused) {
        return DueTime::kNever;
    }
    const int64_t samples = static_cast<int64_t>(clip->samples.size()) - startPosition;
    return startMs + (samples * kMsPerSecond + clip->rateHz - 1) / clip->rateHz;
}

bool FileSpeaker::deliver() {
    const int64_t due = dueMs();
    if (due == DueTime::kNever || due > nowMs()) {
        return false;
    }
    HostSpeakerListener* const ending = listener;
    stop();
    ending->onClipEnd();
    return true;
}

bool FileSpeaker::lose() {
    HostSpeakerListener* const losing = listener;
    if (losing == nullptr) {
        return false;
    }
    stop();
    losing->onDeviceLost();
    return true;
}

bool FileSpeaker::play(std::shared_ptr<const HostClip> newClip, HostSpeakerListener& newListener) {
    if (clip != nullptr) {
        return false;
    }
    clip = std::move(newClip);
    listener = &newListener;
    position = 0;
    resume();
    return true;
}

void FileSpeaker::setVolume(int32_t newVolume) {
    hearUntilNow();
    volume = newVolume;
}

void FileSpeaker::pause() {
    hearUntilNow();
    paused = true;
}

void FileSpeaker::resume() {
    startMs = nowMs();
    startPosition = position;
    paused = false;
}

void FileSpeaker::stop() {
    hearUntilNow();
    keepHeard();
    clip.reset();
    listener = nullptr;
}

/// Advances the clip to the present time. The samples in between get the volume that was set until
/// now.
void FileSpeaker::hearUntilNow() {
    if (clip == nullptr || paused) {
        return;
    }
    const auto size = static_cast<int64_t>(clip->samples.size());
    const int64_t passed = (nowMs() - startMs) * clip->rateHz / kMsPerSecond;
    const int64_t until = std::min(size, startPosition + passed);
    for (; position < until; position++) {
        const int32_t sample = clip->samples[static_cast<size_t>(position)];
        heard.push_back(static_cast<int16_t>(sample * volume / kFullVolume));
    }
}

void FileSpeaker::keepHeard() {
    if (clip == nullptr || heard.empty()) {
        return;
    }
    const std::vector<int16_t> converted = SoundFile::resample(heard, clip->rateHz, kRateHz);
    if (!path.empty()) {
        collected.insert(collected.end(), converted.begin(), converted.end());
    }
    heard.clear();
}
