// SPDX-License-Identifier: MIT
// The tables that HostWords is made of, one for each subject.
//
// As in the program's own texts, Spanish and Italian say "tu", German and French "Sie" and "vous".
// The words of the program lead: save, stop and play are what its menu and its soft keys call them.
// A sound is one that the program has saved, a sound file is any other one; a recording is what the
// microphone heard. What ends in a path or a reason has no full stop.
//
// Deliberate: the French "Sauver" is short for "Sauvegarder", which is too wide for its key.
#pragma once

#include "HostWords.h"

#include <span>

class HostWordTables {
public:
    static std::span<const HostWords::Row> ofKeys();
    static std::span<const HostWords::Row> ofRecording();
    static std::span<const HostWords::Row> ofFiles();
};
