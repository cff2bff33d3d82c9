// SPDX-License-Identifier: MIT
// The page's calls into the program, all in one place. Each is named as the page calls it, without
// the leading underscore; web/types/murmelo.d.ts lists them for the page.
//
// The page passes data in a block of memory that the program owns, the room: murmeloRoom() returns
// its address, which is valid until the next call of murmeloRoom().
#include "FxCatalogue.h"
#include "HostWords.h"
#include "OspProgram.h"
#include "PageCalls.h"
#include "PlainWav.h"
#include "WebHost.h"
#include "WebSounds.h"
#include "WebTexts.h"
#include "WindowLayout.h"

#include <emscripten.h>

#include <array>
#include <cmath>
#include <memory>
#include <string>
#include <vector>

namespace {

constexpr size_t kSmallRoomBytes = 65536;

PageCalls page;
std::unique_ptr<WebHost> host;
std::vector<uint8_t> room;
std::string answer;    // the last text handed to the page
std::string fileName;  // of the file that is taken in; empty: it has none
WebTexts texts;
std::array<int32_t, 8> places;  // of strip and picture: left, top, width and height of each

HostFolders folders() {
    HostFolders mapped;
    mapped.res = "/Res";
    mapped.home = "/home";
    mapped.framework = "/framework";
    mapped.config = "/config";
    return mapped;
}

const char* answered(std::string text) {
    answer = std::move(text);
    return answer.c_str();
}

ScreenTexts textsNow() {
    return host->doorsInUse() != nullptr ? host->doorsInUse()->texts() : ScreenTexts();
}

/// The lines of a text, at least one.
std::vector<std::string> lines(const std::string& text) {
    std::vector<std::string> found;
    size_t begin = 0;
    for (size_t end = text.find('\n'); end != std::string::npos; end = text.find('\n', begin)) {
        found.push_back(text.substr(begin, end - begin));
        begin = end + 1;
    }
    found.push_back(text.substr(begin));
    return found;
}

/// Turns a coordinate of the canvas into one of the display.
int32_t displayX(double x) {
    return static_cast<int32_t>(std::floor(x * HostFrame::kCanvasFactor));
}

int32_t displayY(double y) {
    return static_cast<int32_t>(std::floor(y * HostFrame::kCanvasFactor)) + HostFrame::kCanvasTopPx;
}

/// Frees the room. The heap is small: an effect needs the memory that a large file took.
void freeRoom() {
    room = std::vector<uint8_t>();  // assigning {} would keep the memory
}

/// @param isCut  there is more of the file
int32_t use(std::vector<int16_t> samples, bool isCut) {
    freeRoom();
    const bool isSound = !samples.empty();
    if (isSound && isCut) {
        host->use(std::move(samples), fileName.empty() ? HostMessage{"firstSecondsOnly", {}}
                                                       : HostMessage{"firstSeconds", {fileName}});
    } else if (isSound) {
        host->use(std::move(samples));
    }
    return isSound ? 1 : 0;
}

int32_t wordCount() {
    return static_cast<int32_t>(room.size() / sizeof(float));
}

}  // namespace

extern "C" {

/// Starts the program. 0 if it cannot be started.
/// @param fingersOnly  1: the user has no keys and no mouse
EMSCRIPTEN_KEEPALIVE int32_t murmeloBegin(int32_t fingersOnly) {
    host = std::make_unique<WebHost>(page, folders());
    host->fingersOnly(fingersOnly != 0);
    return host->begin(std::make_unique<OspProgram>()) ? 1 : 0;
}

/// See WebHost::turn().
EMSCRIPTEN_KEEPALIVE double murmeloTurn() {
    return host->turn();
}

/// @param kind  0 press, 1 move, 2 release; x and y in pixels of the canvas: the strip is above it
EMSCRIPTEN_KEEPALIVE void
murmeloTouch(int32_t kind, int32_t isFinger, int32_t id, double x, double y, double timeMs) {
    host->touch(static_cast<HostListener::Touch>(kind), isFinger != 0, id, displayX(x), displayY(y),
                static_cast<uint32_t>(static_cast<int64_t>(timeMs)));
}

/// The mouse points here, with no button pressed.
EMSCRIPTEN_KEEPALIVE void murmeloPoint(double x, double y) {
    host->point(displayX(x), displayY(y));
}

/// Where strip and picture lie in a window of that size: left, top, width and height of each.
EMSCRIPTEN_KEEPALIVE const int32_t* murmeloLayout(int32_t width, int32_t height) {
    const WindowLayout layout(width, height);
    const PicturePlace& strip = layout.strip();
    const PicturePlace& picture = layout.picture();
    places = {strip.x,   strip.y,   strip.width,   strip.height,
              picture.x, picture.y, picture.width, picture.height};
    return places.data();
}

EMSCRIPTEN_KEEPALIVE void murmeloTouchCancelled(int32_t isFinger, int32_t id) {
    host->touchCancelled(isFinger != 0, id);
}

/// @param name  see WebHost::keyNamed(). @returns 1 if the program or the strip uses it
EMSCRIPTEN_KEEPALIVE int32_t murmeloKey(const char* name) {
    return host->keyNamed(name) ? 1 : 0;
}

/// 1: the page cannot set a clip's volume, so its samples are scaled.
EMSCRIPTEN_KEEPALIVE void murmeloVolumeStays(int32_t stays) {
    host->volumeStays(stays != 0);
}

EMSCRIPTEN_KEEPALIVE void murmeloRemindToAllow() {
    host->remindToAllow();
}

/// @param answer  the name of the exception (empty: the microphone was granted), and in a second
/// line the name of the microphone
EMSCRIPTEN_KEEPALIVE void
murmeloMicrophoneAnswered(int32_t ticket, const char* answer, double rateHz) {
    const std::vector<std::string> parts = lines(answer);
    host->microphoneAnswered(ticket, parts.front(), static_cast<int32_t>(rateHz), parts.back());
}

/// The name of the microphone that the user has chosen; empty: the browser's choice.
EMSCRIPTEN_KEEPALIVE const char* murmeloMicrophone() {
    return answered(host->strip().chosenMicrophone());
}

/// The room holds the names of all microphones, one in each line; it is empty if none is known.
EMSCRIPTEN_KEEPALIVE void murmeloMicrophones() {
    const std::string names(room.begin(), room.end());
    host->strip().listMicrophones(names.empty() ? std::vector<std::string>() : lines(names));
}

/// Shows a message in the strip. @param message its text; a second line, if there is one, is the
/// word of its action. @param act see WebPage::act()
EMSCRIPTEN_KEEPALIVE void murmeloTell(const char* message, int32_t act) {
    const std::vector<std::string> parts = lines(message);
    host->strip().tell(parts.front(), parts.size() > 1 ? parts.back() : "", act);
}

EMSCRIPTEN_KEEPALIVE void murmeloMicrophoneLost() {
    host->microphoneLost();
}

EMSCRIPTEN_KEEPALIVE void murmeloClipEnded(int32_t ticket) {
    host->clipEnded(ticket);
}

EMSCRIPTEN_KEEPALIVE void murmeloClipFailed(int32_t ticket) {
    host->clipFailed(ticket);
}

EMSCRIPTEN_KEEPALIVE void murmeloLeave() {
    host->leave();
}

EMSCRIPTEN_KEEPALIVE void murmeloComeBack() {
    host->comeBack();
}

/// Makes the room that many bytes large and returns its address, aligned to 8.
EMSCRIPTEN_KEEPALIVE uint8_t* murmeloRoom(int32_t bytes) {
    if (room.capacity() > kSmallRoomBytes) {
        freeRoom();
    }
    room.resize(static_cast<size_t>(bytes));
    return room.data();
}

/// The room is filled with samples of the microphone, as floats. 1 if a turn is due.
EMSCRIPTEN_KEEPALIVE int32_t murmeloHeard(int32_t rateHz) {
    return host->heard(reinterpret_cast<const float*>(room.data()), wordCount(), rateHz) ? 1 : 0;
}

/// The name of the file that is taken in next; empty: it has none.
EMSCRIPTEN_KEEPALIVE void murmeloNameFile(const char* name) {
    fileName = name;
}

/// The room holds a sound as floats, one channel. 1: it becomes the take. 0: it holds no samples,
/// or the rate is out of range.
/// @param seconds  of all of the sound
EMSCRIPTEN_KEEPALIVE int32_t murmeloUseFloats(int32_t rateHz, double seconds) {
    return use(PlainWav::toTake(reinterpret_cast<const float*>(room.data()), wordCount(), rateHz),
               seconds > PlainWav::kLongestSeconds);
}

/// The room holds a file of that many bytes, or its beginning. 1: it is a plain WAV file of which
/// the room holds everything that a take can, and becomes the take. 0: it is not.
EMSCRIPTEN_KEEPALIVE int32_t murmeloUseFile(double fileBytes) {
    bool isCut = false;
    std::vector<int16_t> samples = fileBytes > static_cast<double>(room.size())
                                       ? PlainWav::readBeginning(room.data(), room.size(), &isCut)
                                       : PlainWav::read(room.data(), room.size(), &isCut);
    return use(std::move(samples), isCut);
}

/// The room holds the last take's file from an earlier visit.
/// @param bringsBack  1: it becomes the take now. 0: it is kept, to be brought back later
EMSCRIPTEN_KEEPALIVE void murmeloRememberTake(int32_t bringsBack) {
    std::vector<int16_t> take = PlainWav::readTake(room.data(), room.size());
    if (bringsBack != 0) {
        host->use(std::move(take), {"takeIsBack", {}});
    } else {
        host->rememberTake(std::move(take));
    }
}

/// Forgets the last take.
EMSCRIPTEN_KEEPALIVE void murmeloForgetTake() {
    host->rememberTake({});
}

/// Works out the changed rows. @returns first row | last row << 16; -1 if none has changed
EMSCRIPTEN_KEEPALIVE int32_t murmeloPaint() {
    const WebPicture::Rows rows = host->paint();
    return rows.last < rows.first ? -1 : rows.first | rows.last << 16;
}

/// The 240 x 400 pixels of the strip and the picture below it, four bytes each; always at the same
/// address.
EMSCRIPTEN_KEEPALIVE const uint8_t* murmeloPixels() {
    return host->picture().bytes();
}

/// The texts of screen and strip as JSON; null if they have not changed since the last call.
EMSCRIPTEN_KEEPALIVE const char* murmeloTextsIfNew() {
    return texts.ifNew(textsNow(), WebTexts::stripJson(host->strip().strip().model()));
}

/// All words of the page around the picture, as one JSON object, in that language ("de").
EMSCRIPTEN_KEEPALIVE const char* murmeloWords(const char* language) {
    std::string json;
    for (const HostWords::Row& row : HostWords::rows()) {
        json += (json.empty() ? "" : ",") + WebTexts::quoted(row.name) + ":" +
                WebTexts::quoted(HostWords::text(row, language));
    }
    return answered("{" + json + "}");
}

/// See WebSounds::fileName().
EMSCRIPTEN_KEEPALIVE const char* murmeloFileName(const char* path, int32_t effect) {
    return answered(WebSounds::fileName(path, FxCatalogue::toolName(effect)));
}

/// See WebSounds::line().
EMSCRIPTEN_KEEPALIVE const char*
murmeloSoundLine(const char* path, int32_t effect, int32_t fileBytes) {
    HostDoors* const doors = host->doorsInUse();
    if (doors == nullptr) {
        return "";
    }
    return answered(WebSounds::line(path, WebSounds::fileName(path, FxCatalogue::toolName(effect)),
                                    doors->effectName(effect), fileBytes, doors->texts().language));
}

/// See WebSounds::refusal().
EMSCRIPTEN_KEEPALIVE const char* murmeloRefusal(double fileBytes, double seconds) {
    return WebSounds::refusal(fileBytes, seconds);
}

}  // extern "C"
