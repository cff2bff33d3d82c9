// SPDX-License-Identifier: MIT
// A speaker that plays into a sound file at the pace of the given clock: the clips are written one
// after the other.
#pragma once

#include "DueTime.h"
#include "HostSound.h"
#include "Problem.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

class FileSpeaker : public HostSpeaker {
public:
    using Clock = std::function<int64_t()>;

    static constexpr int32_t kRateHz = 8000;  // of the file: the rate of every clip of the program
    /// @param nowMs  the host's clock
    explicit FileSpeaker(Clock nowMs);

    /// Finishes the current file, if there is one, and begins the next.
    /// @returns why either failed
    Problem openFile(const std::string& path);

    /// Writes the sound so far to the file.
    Problem finishFile();

    /// When the clip ends; DueTime::kNever if none plays.
    int64_t dueMs() const;

    /// Ends the clip if dueMs() has come. True if it did.
    bool deliver();

    /// Simulates the loss of the device and calls the listener. False if no clip plays.
    bool lose();

    bool play(std::shared_ptr<const HostClip> newClip, HostSpeakerListener& newListener) override;
    void setVolume(int32_t newVolume) override;
    void pause() override;
    void resume() override;
    void stop() override;

private:
    void hearUntilNow();
    void keepHeard();

    Clock nowMs;
    std::string path;                // empty: nothing is written
    std::vector<int16_t> collected;  // at kRateHz
    std::shared_ptr<const HostClip> clip;
    HostSpeakerListener* listener = nullptr;
    std::vector<int16_t> heard;  // the clip's samples so far, at its own rate
    int64_t position = 0;        // of the next sample to be heard
    int64_t startMs = 0;         // when the clip was started or resumed,
    int64_t startPosition = 0;   // and where
    int32_t volume = kFullVolume;
    bool paused = false;
};
