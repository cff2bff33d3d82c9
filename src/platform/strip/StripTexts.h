// What the strip says, in the program's languages. Words that it shares with the page's buttons
// stand in HostWords.
#pragma once

#include "Languages.h"

#include <array>
#include <initializer_list>
#include <string>

enum class StripText {
    // Words of buttons, and what the line says while the mouse points at them
    kMicro,
    kSaveHint,
    kOpenHint,
    kMicroHint,
    kSoundsHint,
    kHelpHint,
    // Actions of messages
    kShow,
    kChoose,
    // The microphone
    kNoSoundFrom,
    kHeardNothingFrom,
    kHeardNothing,
    kSystemsChoice,
    kMore,
    kChooseMicrophone,
    kMicrophoneUsed,
    kMicrophoneMissing,
    kDeviceLost,
    kDeviceFound,
    // Messages
    kSaved,
    kPicture,
    kFirstSeconds,
    kNoSound,
    kDiskFull,
    kDropHere,
    kCannotShow,
    // Help
    kHelpKeys,
    kHelpMoreKeys,
    kHelpPlace,
    kHelpPrivate,
    kCount,
};

class StripTexts {
public:
    /// The text in that language ("de"); English in one that is not known. UTF-8.
    static const char* text(StripText id, const std::string& language);

    /// The text with %1 and %2 replaced by the parts.
    static std::string
    sentence(StripText id, const std::string& language, std::initializer_list<std::string> parts);
};
