// SPDX-License-Identifier: MIT
// strip-states FOLDER LANGUAGE: takes pictures of the strip in each of its states, as
// FOLDER/STATE.png, and of its sheets over the picture, as FOLDER/over-STATE.png.
#include "FxCatalogue.h"
#include "Host.h"
#include "HostMessage.h"
#include "HostWords.h"
#include "Languages.h"
#include "PngFile.h"
#include "StripModel.h"
#include "StripPainter.h"
#include "StrTexts.h"
#include "TestHost.h"

#include <algorithm>
#include <functional>
#include <iostream>
#include <string>
#include <strings.h>
#include <utility>
#include <vector>

namespace {

constexpr const char* kMicrophone = "Headset H390 Mono";
constexpr const char* kFull = "No space left on device";
constexpr const char* kRefused = "Connection refused";
constexpr const char* kSound = "~/Music/Murmelo/rec_00003.wav";

/// The effect's name as the program shows it: the text that is its shown name in English.
std::string effectName(int32_t effect, const std::string& language) {
    const std::string shown = FxCatalogue::at(effect).shownName;
    int32_t count = 0;
    const StrTexts* rows = StrTexts::rows(count);
    const StrTexts* found = std::find_if(rows, rows + count, [&](const StrTexts& row) {
        return strcasecmp(row.texts.utf8[0], shown.c_str()) == 0;
    });
    for (size_t at = 0; found != rows + count && at < Languages::kCount; at++) {
        if (language == Languages::kAll[at].code) {
            return found->texts.utf8[at];
        }
    }
    return "";
}

class States {
public:
    States(std::string folder, std::string language)
        : folder(std::move(folder))
        , language(std::move(language)) {}

    bool writeAll() {
        write("play", "Play", [](StripModel&) {});
        for (int32_t head = 0; head < StripModel::kEffects; head++) {
            write("head-" + std::to_string(head), "Play",
                  [head](StripModel& model) { model.point(head * 30 + 10, 30); });
        }
        write("record", "Record", [](StripModel&) {});
        write("recording", "Recording",
              [](StripModel& model) { record(model, -9, -24, 17, false); });
        write("clipped", "Recording", [](StripModel& model) { record(model, 0, -7, 8, false); });
        write("mute", "Recording", [](StripModel& model) { record(model, -60, -60, 19, true); });
        write("mute-unnamed", "Recording", [](StripModel& model) {
            model.setMicrophoneName("");
            record(model, -60, -60, 19, true);
        });
        write("unheard", "Recording", [this](StripModel& model) {
            record(model, -60, -60, 12, true);
            model.setWhyUnheard(HostMessage{"noMicrophone", {kRefused}}.text(language));
        });
        writeMessages();
        writeFailures();
        writeHints();
        writeOver();
        return isOk;
    }

private:
    using Set = std::function<void(StripModel&)>;

    static void record(StripModel& model, int32_t peakDb, int32_t meanDb, int32_t left, bool mute) {
        LevelMeter::Reading reading;
        reading.peakDb = peakDb;
        reading.meanDb = meanDb;
        reading.isClipped = peakDb == 0;
        model.setRecording(reading, left, mute);
    }

    void writeMessages() {
        const auto show = StripWish::Kind::kShowFile;
        const auto choose = StripWish::Kind::kMicrophones;
        const auto bringBack = StripWish::Kind::kBringBack;
        tell("saved", {"saved", {kSound}}, show);
        tell("picture", {"picture", {"~/Music/Murmelo/screen_00000.png"}}, show);
        tell("heard-nothing-from", {"heardNothingFrom", {kMicrophone}}, choose);
        tell("heard-nothing", {"heardNothing", {}}, choose);
        tell("nothing-to-save", {"nothingToSave", {}});
        tell("not-now", {"notNow", {}});
        tell("first-seconds", {"firstSeconds", {"Interview.flac"}});
        tell("first-seconds-only", {"firstSecondsOnly", {}});
        tell("no-sound", {"notASound", {"letter.pdf", "unknown format"}});
        tell("drop-here", {"dropHere", {}});
        tell("only-first-file", {"onlyFirstFile", {"Interview.flac"}});
        tell("dialog-open", {"dialogOpen", {}});
        tell("speaker-unusable", {"speakerUnusable", {"Headset H390 Stereo"}});
        tell("cannot-show", {"cannotShow", {"~/Music/Murmelo"}});
        tell("exported-nowhere", {"exportedNowhere", {kSound}}, show);
        tell("microphone-gone", {"microphoneGone", {}});
        tell("microphone-heard", {"microphoneHeard", {}});
        tell("microphone-used", {"microphoneUsed", {kMicrophone}});
        tell("microphone-away", {"microphoneAway", {kMicrophone}}, choose);
        tell("microphone-left", {"microphoneLeft", {kMicrophone}}, choose);
        tell("microphone-back", {"microphoneBack", {kMicrophone}});
        tell("microphone-unusable", {"microphoneUnusable", {kMicrophone, "Device busy"}}, choose);
        tell("choice-not-kept", {"choiceNotKept", {"No space left on device"}});
        tell("exported", {"exported", {"~/Music/Interview.flac"}}, show);
        tell("offer-dropped", {"offerDropped", {"Interview.flac"}});
        tell("no-speaker", {"noSpeaker", {}});
        tell("settings-unreadable", {"settingsUnreadable", {}});
        tell("too-short", {"tooShort", {}});
        tell("little-room", {"littleRoom", {}});
        tell("cut-short", {"cutShort", {}});
        tell("cut-for", {"cutFor", {"Input/output error"}});
        tell("disk-full", {"diskFull", {}, {64, 90}});
        tell("seconds-kept", {"secondsKept", {"Input/output error"}, {64, 90}});
        tell("deleted", {"deleted", {"rec_00003.wav"}}, StripWish::Kind::kHostsOwn);
        tell("take-gone", {"takeGone", {}}, bringBack);
        tell("take-not-back", {"takeNotBack", {}});
        tell("take-replaced", {"takeReplaced", {"Interview.flac"}}, bringBack);
        tell("take-is-back", {"takeIsBack", {}});
        tell("take-forgotten", {"takeForgotten", {}});
    }

    void writeFailures() {
        const auto choose = StripWish::Kind::kMicrophones;
        tell("not-kept", {"notKept", {"Read-only file system"}});
        tell("no-room-for-copy", {"noRoomForCopy", {}});
        tell("no-last-take", {"noLastTake", {}});
        tell("not-back", {"notBack", {"Input/output error"}});
        tell("not-forgotten", {"notForgotten", {"Read-only file system"}});
        tell("not-exported", {"notExported", {"~/Music/Interview.flac", kFull}});
        tell("saved-unreadable", {"savedUnreadable", {kSound, "No such file or directory"}});
        tell("no-sound-elsewhere",
             {"notASound", {"Interview.flac", "it lies on another computer"}});
        tell("no-sound-format", {"notASound", {"letter.pdf", "its format is unknown"}});
        tell("not-exported-ending",
             {"notExported",
              {"~/Music/Interview.txt", "its name must end in .wav, .flac, .ogg, .opus or .mp3"}});
        tell("not-spoken", {"notSpoken", {kRefused}});
        tell("no-microphone", {"noMicrophone", {kRefused}}, choose);
        tell("file-is-microphone", {"fileIsMicrophone", {"Interview.flac"}});
        tell("systems-microphone", {"systemsMicrophone", {}});
        tell("sounds-not-kept", {"soundsNotKept", {"~/Music/Murmelo"}});
    }

    void writeHints() {
        for (int32_t key = 0; key < 5; key++) {
            write("hint-" + std::to_string(key), "Play",
                  [key](StripModel& model) { model.point(key * 48 + 20, 60); });
        }
    }

    void writeOver() {
        write("over-microphones", "Record", [](StripModel& model) {
            model.setMicrophones({kMicrophone, "Built-in Audio Analogue Stereo",
                                  "A microphone whose name is much longer than its row"},
                                 0);
            model.showMicrophones();
        });
        write("over-absent", "Record", [this](StripModel& model) {
            model.setMicrophones({"Built-in Audio Analogue Stereo",
                                  HostMessage{"notConnected", {kMicrophone}}.text(language)},
                                 1, 1);
            model.showMicrophones();
        });
        write("over-many", "Record", [](StripModel& model) {
            model.setMicrophones(std::vector<std::string>(12, kMicrophone),
                                 StripWish::kSystemsChoice);
            model.showMicrophones();
        });
        write("over-unnamed", "Record", [](StripModel& model) { model.showMicrophones(); });
        write("over-focus", "Record", [](StripModel& model) {
            model.setMicrophones({kMicrophone, "Built-in Audio Analogue Stereo"}, 0);
            model.showMicrophones();
            model.navigate(HostKey::kDown);
        });
        write("over-help", "Play", [this](StripModel& model) { help(model, true); });
        write("over-help-focus", "Play", [this](StripModel& model) {
            help(model, true);
            model.navigate(HostKey::kUp);
        });
        write("over-help-grey", "Record", [this](StripModel& model) { help(model, false); });
    }

    void help(StripModel& model, bool hasLastTake) {
        model.showHelp({HostWords::text("helpRecordKeys", language),
                        HostWords::text("helpMoreKeys", language),
                        HostWords::text("helpFileKeys", language),
                        HostMessage{"helpFolder", {"~/Music/Murmelo"}}.text(language),
                        HostWords::text("helpStaysHere", language)});
        model.setOffersMore(true);
        model.setLastTake(hasLastTake);
    }

    void tell(const std::string& name,
              const HostMessage& message,
              StripWish::Kind kind = StripWish::Kind::kNone) {
        StripWish action;
        action.kind = kind;
        const char* word = "show";
        if (kind == StripWish::Kind::kMicrophones) {
            word = "choose";
        } else if (kind == StripWish::Kind::kBringBack) {
            word = "bringBack";
        } else if (kind == StripWish::Kind::kHostsOwn) {
            word = "undo";
        }
        write(name, "Play", [this, message, action, word](StripModel& model) {
            model.tell(message.text(language), action, HostWords::text(word, language), 0);
        });
    }

    void write(const std::string& name, const std::string& screen, const Set& set) {
        StripModel model;
        model.setTextWidth([this](const std::string& utf8) { return painter.textWidth(utf8); });
        ScreenTexts texts;
        texts.language = language;
        texts.screen = screen;
        model.setScreen(texts, 2, screen == "Play");
        model.setCanOpen(screen == "Play");
        std::vector<std::string> names;
        for (int32_t effect = 0; effect < FxCatalogue::kCount; effect++) {
            names.push_back(effectName(effect, language));
        }
        model.setEffectNames(names);
        model.setMicrophoneName(kMicrophone);
        set(model);
        const bool isOver = model.sheet() != StripModel::Sheet::kNone;
        const int32_t height = isOver ? StripModel::kSheetHeightPx : StripModel::kHeightPx;
        std::vector<uint16_t> pixels(static_cast<size_t>(StripModel::kWidthPx * height));
        if (isOver) {
            painter.paintSheet(model, pixels.data(), StripModel::kWidthPx * 2);
        } else {
            painter.paint(model, pixels.data(), StripModel::kWidthPx * 2);
        }
        isOk = PngFile::writeRgb565(folder + "/" + name + ".png", pixels.data(),
                                    StripModel::kWidthPx, height) &&
               isOk;
    }

    std::string folder;
    std::string language;
    StripPainter painter;
    bool isOk = true;
};

}  // namespace

int main(int argc, char** argv) {
    TestHost host;
    host.mapShipped();
    if (argc != 3 || !States(argv[1], argv[2]).writeAll()) {
        std::cerr << "strip-states: wants a folder that it can write to, and a language\n";
        return 1;
    }
    return 0;
}
