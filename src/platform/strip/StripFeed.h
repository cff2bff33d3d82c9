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
    /// How often the level is updated while recording: 15 times a second looks smooth.
    static constexpr int64_t kLevelMs = 66;

    /// How long no sample must come before the strip says that the microphone is mute.
    static constexpr int64_t kMuteMs = 1000;

    /// @param model  not owned
    explicit StripFeed(StripModel& model)
        : model(model) {}

    /// The program has started; null: it has ended.
    void setDoors(HostDoors* offered);

    /// The microphone whose level is shown; null: none. Not owned.
    void setMicrophone(HostMicrophone* newest) { microphone = newest; }

    /// The folder of saved sounds. If it is not set, the strip does not tell what was saved.
    /// @param path   the real one, without a trailing "/"
    /// @param shown  as the user knows it ("~/Music/Murmelo")
    void setSoundFolder(std::string path, std::string shown);

    /// @param isThere     true: there is a take that can be brought back
    /// @param isPrograms  true: it is the one that the program has, or had before it deleted it;
    ///                    only then it is offered when the program deletes its take
    void setLastTake(bool isThere, bool isPrograms = true);

    /// Reads the microphone's name again; call it when another one was chosen.
    void nameMicrophone();

    const std::string& soundFolder() const { return folder; }

    const std::string& shownSoundFolder() const { return shownFolder; }

    /// Updates the model from the program, and ends messages whose time is over.
    void look(int64_t nowMs);

    /// When to call look() although the program does nothing; DueTime::kNever: not before it does
    /// something.
    int64_t dueMs() const;

private:
    void lookAtScreen(int64_t nowMs);
    void lookAtLevel(int64_t nowMs);
    std::string whyUnheard();
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
    int32_t takenBefore = 0;
    bool offersLastTake = false;  // true: the last take is the program's own
    bool hadTake = false;         // true: there was a take at the last look

    bool recording = false;
    int64_t nextLevelMs = DueTime::kNever;
    int32_t heardSamples = 0;
    int64_t lastHeardMs = 0;
};
