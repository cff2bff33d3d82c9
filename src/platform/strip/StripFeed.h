// SPDX-License-Identifier: MIT
// Tells the model what the program shows, what its microphone hears and what it has saved.
#pragma once

#include "DueTime.h"
#include "Host.h"
#include "LevelMeter.h"
#include "StripModel.h"

#include <cstdint>
#include <string>

class StripFeed {
public:
    /// How often the level is looked at while recording: 15 times a second reads as smooth.
    static constexpr int64_t kLevelMs = 66;

    /// After so long without a sample the microphone is called mute.
    static constexpr int64_t kMuteMs = 1000;

    /// @param model  not owned
    explicit StripFeed(StripModel& model)
        : model(model) {}

    /// Null: the program has ended.
    void setDoors(HostDoors* offered);

    /// Whose level is shown; null: none. Not owned.
    void setMicrophone(HostMicrophone* newest) { microphone = newest; }

    /// Where saved sounds lie. Without it the host itself tells what was saved.
    /// @param path   the real one, without a trailing "/"
    /// @param shown  as the user knows it ("~/Music/Murmelo")
    void setSoundFolder(std::string path, std::string shown);

    /// There is a take of an earlier recording to be brought back.
    void setLastTake(bool isThere);

    /// Asks the microphone for its name: another one was chosen.
    void nameMicrophone();

    const std::string& soundFolder() const { return folder; }

    const std::string& shownSoundFolder() const { return shownFolder; }

    /// Looks at the program and ends messages.
    void look(int64_t nowMs);

    /// When to look again although the program does nothing; DueTime::kNever: not before it does.
    int64_t dueMs() const;

private:
    void lookAtScreen(int64_t nowMs);
    void lookAtLevel(int64_t nowMs);
    void endRecording(const std::string& screen, int64_t nowMs);
    void tellSaved(int64_t nowMs);
    void tellTakeGone(int64_t nowMs);

    StripModel& model;
    HostDoors* doors = nullptr;
    HostMicrophone* microphone = nullptr;
    std::string microphoneName;  // empty: "the microphone"
    std::string screen;
    std::string folder;
    std::string shownFolder;
    std::string language;
    int32_t savedBefore = 0;
    bool hasLastTake = false;
    bool hadTake = false;  // when a take could be used last

    bool recording = false;
    int64_t nextLevelMs = DueTime::kNever;
    int32_t heardSamples = 0;
    int64_t lastHeardMs = 0;
};
