// strip-states FOLDER LANGUAGE: pictures of the strip in each of its states, as FOLDER/STATE.png,
// and of what it lays over the picture, as FOLDER/over-STATE.png.
#include "HostWords.h"
#include "PngFile.h"
#include "StripModel.h"
#include "StripPainter.h"
#include "StripTexts.h"
#include "TestHost.h"

#include <functional>
#include <iostream>
#include <string>
#include <utility>
#include <vector>

namespace {

constexpr const char* kMicrophone = "Headset H390 Mono";
constexpr const char* kSound = "~/Music/Murmelo/rec_00003.wav";

class States {
public:
    States(std::string folder, std::string language)
        : folder(std::move(folder))
        , language(std::move(language)) {}

    bool writeAll() {
        write("play", "Play", [](StripModel&) {});
        write("pointed", "Play", [](StripModel& model) { model.point(5 * 30 + 10, 30); });
        write("record", "Record", [](StripModel&) {});
        write("recording", "Recording",
              [](StripModel& model) { record(model, -9, -24, 17, false); });
        write("clipped", "Recording", [](StripModel& model) { record(model, 0, -7, 8, false); });
        write("mute", "Recording", [](StripModel& model) { record(model, -60, -60, 19, true); });
        write("mute-unnamed", "Recording", [](StripModel& model) {
            model.setMicrophoneName("");
            record(model, -60, -60, 19, true);
        });
        writeMessages();
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

    std::string say(StripText id, std::initializer_list<std::string> parts) const {
        return StripTexts::sentence(id, language, parts);
    }

    void writeMessages() {
        tell("saved", say(StripText::kSaved, {kSound}), StripWish::Kind::kShowFile,
             StripText::kShow);
        tell("picture", say(StripText::kPicture, {"~/Music/Murmelo/screen_00000.png"}),
             StripWish::Kind::kShowFile, StripText::kShow);
        tell("heard-nothing-from", say(StripText::kHeardNothingFrom, {kMicrophone}),
             StripWish::Kind::kMicrophones, StripText::kChoose);
        tell("heard-nothing", say(StripText::kHeardNothing, {}), StripWish::Kind::kMicrophones,
             StripText::kChoose);
        tell("nothing-to-save", HostWords::text("nothingToSave", language));
        tell("first-seconds", say(StripText::kFirstSeconds, {"Interview.flac"}));
        tell("no-sound", say(StripText::kNoSound, {"letter.pdf", "unknown format"}));
        tell("disk-full", say(StripText::kDiskFull, {"6.4", "9"}));
        tell("drop-here", say(StripText::kDropHere, {}));
        tell("cannot-show", say(StripText::kCannotShow, {"~/Music/Murmelo"}));
        tell("device-lost", say(StripText::kDeviceLost, {kMicrophone}));
        tell("device-found", say(StripText::kDeviceFound, {kMicrophone}));
        tell("microphone-used", say(StripText::kMicrophoneUsed, {kMicrophone}));
        tell("microphone-missing", say(StripText::kMicrophoneMissing, {kMicrophone}));
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
        write("over-many", "Record", [](StripModel& model) {
            model.setMicrophones(std::vector<std::string>(12, kMicrophone),
                                 StripWish::kSystemsChoice);
            model.showMicrophones();
        });
        write("over-help", "Play", [this](StripModel& model) {
            model.showHelp({StripTexts::text(StripText::kHelpKeys, language),
                            StripTexts::text(StripText::kHelpMoreKeys, language),
                            say(StripText::kHelpPlace, {"~/Music/Murmelo"}),
                            StripTexts::text(StripText::kHelpPrivate, language)});
        });
    }

    void tell(const std::string& name,
              const std::string& text,
              StripWish::Kind kind = StripWish::Kind::kNone,
              StripText word = StripText::kShow) {
        StripWish action;
        action.kind = kind;
        write(name, "Play", [this, text, action, word](StripModel& model) {
            model.tell(text, action, StripTexts::text(word, language), 0);
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
        model.setEffectNames(std::vector<std::string>(8, "Quick talker"));
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
