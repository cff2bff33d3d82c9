// SPDX-License-Identifier: MIT
// The tables of texts that HostWords joins, one for each subject.
//
// As in the program's own texts, Spanish and Italian say "tu", German and French "Sie" and "vous".
// Use the words of the program's own menus and soft keys for save, stop and play. A "sound" is one
// that the program has saved; a "sound file" is any other file with sound; a "recording" comes from
// the microphone. A text that ends in a path or a reason has no full stop.
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

    /// Texts that only the desktop program shows. The page leaves them out, to be downloaded
    /// sooner.
    static std::span<const HostWords::Row> ofDesktop();
    static std::span<const HostWords::Row> ofReasons();
};
