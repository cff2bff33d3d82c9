// SPDX-License-Identifier: MIT
#include "ScriptVerb.h"

#include "ScriptRun.h"

#include <algorithm>

namespace {

using Kind = ScriptArgument::Kind;
using Sort = ScriptVerb::Sort;

constexpr ScriptArgument kX{Kind::kNumber, "X"};
constexpr ScriptArgument kY{Kind::kNumber, "Y"};
constexpr ScriptArgument kMs{Kind::kTimeMs, "MS"};
constexpr ScriptArgument kLongestMs{Kind::kTimeMs, "MS", true};
constexpr ScriptArgument kScreen{Kind::kScreen, "SCREEN"};
constexpr ScriptArgument kFile{Kind::kWord, "FILE"};
constexpr ScriptArgument kWavFile{Kind::kWord, "FILE.wav"};
constexpr ScriptArgument kPngFile{Kind::kPngFile, "FILE.png"};
constexpr ScriptArgument kName{Kind::kWord, "NAME"};
constexpr ScriptArgument kOnOff{Kind::kChoice, "on|off"};

constexpr ScriptVerb kVerbs[] = {
    {"tap",
     {kX, kY},
     Sort::kAction,
     &ScriptRun::tap,
     "sets the finger down and lifts it, in pixels of the 480 x 800 display or outside it"},
    {"press", {kX, kY}, Sort::kAction, &ScriptRun::press, "sets the finger down"},
    {"move", {kX, kY}, Sort::kAction, &ScriptRun::move, "moves the finger"},
    {"release", {kX, kY}, Sort::kAction, &ScriptRun::release, "lifts the finger"},
    {"swipe",
     {{{Kind::kChoice, "left|right"}}},
     Sort::kAction,
     &ScriptRun::swipe,
     "drags the finger through the middle; to the left is the next effect"},
    {"key",
     {{{Kind::kChoice, "left|middle|right"}}},
     Sort::kAction,
     &ScriptRun::key,
     "taps that third of the soft-key bar"},
    {"navigate",
     {{{Kind::kChoice, "up|down|left|right|middle"}}},
     Sort::kAction,
     &ScriptRun::navigate,
     "presses a key of a keyboard, as the arrows and Return in the window"},
    {"wait", {kMs}, Sort::kAction, &ScriptRun::wait, "lets time pass"},
    {"still",
     {kMs},
     Sort::kAction,
     &ScriptRun::still,
     "lets time pass, and fails if anything is due"},
    {"until",
     {kScreen, kLongestMs},
     Sort::kAction,
     &ScriptRun::until,
     "runs until that screen is current, for at most 60000 ms or the time given"},
    {"mic",
     {kFile},
     Sort::kFact,
     &ScriptRun::mic,
     "takes the voice from a sound file, from its beginning at each recording"},
    {"speaker", {kWavFile}, Sort::kFact, &ScriptRun::speaker, "writes what is played into a file"},
    {"silent", {kOnOff}, Sort::kFact, &ScriptRun::silent, "sets the phone's silent mode"},
    {"storage",
     {{{Kind::kNumber, "PHONE"}, {Kind::kNumber, "CARD"}}},
     Sort::kFact,
     &ScriptRun::storage,
     "sets the free bytes; -1 is unknown"},
    {"background", {}, Sort::kAction, &ScriptRun::background, "puts another program in front"},
    {"foreground", {}, Sort::kAction, &ScriptRun::foreground, "puts the program in front again"},
    {"screen", {kOnOff}, Sort::kAction, &ScriptRun::screen, "switches the display on or off"},
    {"volume",
     {{{Kind::kChoice, "up|down"}}},
     Sort::kAction,
     &ScriptRun::volume,
     "presses a volume key"},
    {"fail",
     {{{Kind::kOperation, "OPERATION"}, {Kind::kCount, "N"}}},
     Sort::kFact,
     &ScriptRun::failCall,
     "makes the N-th next call of an operation fail"},
    {"lose",
     {{{Kind::kChoice, "microphone|speaker"}}},
     Sort::kAction,
     &ScriptRun::lose,
     "removes the device that records or plays; fails if it is not in use"},
    {"shot", {kPngFile}, Sort::kAction, &ScriptRun::shot, "writes a picture of the display"},
    {"shot-canvas",
     {kPngFile},
     Sort::kAction,
     &ScriptRun::shotCanvas,
     "writes a picture of the 240 x 320 canvas"},
    {"watch",
     {kScreen, kPngFile},
     Sort::kAction,
     &ScriptRun::watch,
     "writes the canvas as it is when that screen next comes, even for one frame"},
    {"save", {}, Sort::kAction, &ScriptRun::save, "saves the sound, as Ctrl+S in the window"},
    {"take",
     {kFile},
     Sort::kAction,
     &ScriptRun::take,
     "makes the first 20 seconds of a sound file the take"},
    {"last",
     {},
     Sort::kAction,
     &ScriptRun::last,
     "brings back the take recorded last, as Ctrl+Z in the window; needs --state"},
    {"forget",
     {},
     Sort::kAction,
     &ScriptRun::forget,
     "deletes the copy of the last take; needs --state"},
    {"remove",
     {kName},
     Sort::kAction,
     &ScriptRun::remove,
     "removes a file of the sound folder without the program's knowledge"},
    {"expect screen",
     {kScreen},
     Sort::kExpectation,
     &ScriptRun::expectScreen,
     "fails unless that screen is current"},
    {"expect file",
     {kName},
     Sort::kExpectation,
     &ScriptRun::expectFile,
     "fails unless the sound folder has that file"},
    {"expect no file",
     {kName},
     Sort::kExpectation,
     &ScriptRun::expectNoFile,
     "fails if the sound folder has that file"},
    {"expect effect",
     {{{Kind::kNumber, "N"}}},
     Sort::kExpectation,
     &ScriptRun::expectEffect,
     "fails unless that effect is chosen; the first is 0"},
    {"expect ended",
     {},
     Sort::kExpectation,
     &ScriptRun::expectEnded,
     "fails unless the program has ended"},
};

static_assert(std::all_of(std::begin(kVerbs),
                          std::end(kVerbs),
                          [](const ScriptVerb& verb) { return *verb.meaning != '\0'; }),
              "every command needs a meaning");

}  // namespace

std::span<const ScriptVerb> ScriptVerb::all() {
    return kVerbs;
}

std::string ScriptVerb::form() const {
    std::string form = name;
    for (const ScriptArgument& argument : arguments) {
        if (argument.kind != ScriptArgument::Kind::kNone) {
            const std::string text = argument.text;
            form += argument.isOptional ? " [" + text + "]" : " " + text;
        }
    }
    return form;
}
