// SPDX-License-Identifier: MIT
// What the user wants when tapping the strip or pressing one of its keys. The host fulfils it.
#pragma once

#include <cstdint>
#include <string>

struct StripWish {
    enum class Kind {
        kNone,
        kSave,
        kExport,
        kOpen,
        kMicrophones,    // show the list (StripModel::showMicrophones)
        kUseMicrophone,  // index in the list, or kSystemsChoice
        kSounds,         // show the folder or the list of the saved sounds
        kHelp,           // show the help (StripModel::showHelp)
        kEffect,         // index: 0 to 7
        kBringBack,      // make the last take the take again
        kForget,         // delete the last take
        kShowFile,       // path: show its folder
        kHostsOwn,       // index: a number that the host has given
        kClose,          // the strip has closed a message or its sheet; the host does nothing
    };

    static constexpr int32_t kSystemsChoice = -1;

    static StripWish of(Kind kind, int32_t index = 0) {
        StripWish wish;
        wish.kind = kind;
        wish.index = index;
        return wish;
    }

    /// True if there is something to do.
    explicit operator bool() const { return kind != Kind::kNone; }

    bool operator==(const StripWish& other) const {
        return kind == other.kind && index == other.index && path == other.path;
    }

    Kind kind = Kind::kNone;
    int32_t index = 0;
    std::string path;
};

/// Keys that the strip handles.
enum class StripKey : char {
    kEffect1 = '1',
    kEffect2,
    kEffect3,
    kEffect4,
    kEffect5,
    kEffect6,
    kEffect7,
    kEffect8,
    kSave = 's',
    kOpen = 'o',
    kMicrophones = 'm',
    kHelp = '?',
    kAction = 'a',  // what the message offers
    kBringBack = 'z',
    kClose = '\x1B',
};
