// SPDX-License-Identifier: MIT
// The interface to the outside world: clock, window, device facts and folders. The classes that
// replace the phone call it.
//
// To write a back end: one class derives Host, its main() installs the object with
// Host::install() and calls OspMain(). Every method is called on the event thread, and the back end
// makes every callback on that same thread, within pump(). A back end may have threads of its own;
// it keeps their messages until pump().
#pragma once

#include "HostMessage.h"
#include "HostOperation.h"
#include "HostSound.h"
#include "ScreenTexts.h"

#include <bitset>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// The callbacks by which a host tells the phone what has happened, one for each kind of event.
class HostListener {
public:
    enum class Touch { kPress, kMove, kRelease };

    virtual ~HostListener() = default;

    /// One finger, in pixels of the 480 x 800 display.
    virtual void onTouch(Touch touch, int32_t x, int32_t y) = 0;
    virtual void onVolumeKey(bool up) = 0;
    virtual void onForeground() = 0;
    virtual void onBackground() = 0;
    virtual void onScreenOff() = 0;
    virtual void onScreenOn() = 0;

    /// The phone ends the application: the application cleans up, and OspMain() returns.
    virtual void onTerminate() = 0;
};

/// The newest picture of the display. Its pixels are worked out only when a host reads them.
class HostFrame {
public:
    static constexpr int32_t kWidthPx = 480;
    static constexpr int32_t kHeightPx = 800;

    // The program's canvas is shown doubled, from row kCanvasTopPx to the lower edge; the last rows
    // are the soft-key bar.
    static constexpr int32_t kCanvasFactor = 2;
    static constexpr int32_t kCanvasTopPx = 160;
    static constexpr int32_t kSoftKeysHeightPx = 64;
    static constexpr int32_t kSoftKeysTopPx = kHeightPx - kSoftKeysHeightPx;

    /// One pixel as 0x00RRGGBB. The high bits of each colour are repeated as its low bits, so that
    /// white stays white.
    static constexpr uint32_t toRgb32(uint16_t rgb565) {
        const uint32_t red = rgb565 >> 11;
        const uint32_t green = (rgb565 >> 5) & 0x3F;
        const uint32_t blue = rgb565 & 0x1F;
        return ((red << 3 | red >> 2) << 16) | ((green << 2 | green >> 4) << 8) |
               (blue << 3 | blue >> 2);
    }

    /// A set of rows of the display; bit 0 is the top row.
    using Rows = std::bitset<static_cast<size_t>(kHeightPx)>;

    virtual ~HostFrame() = default;

    /// Writes the pixels of those rows as RGB565.
    /// @param pixels  address of the display's first row, even if that row is not in the set
    /// @param strideBytes  from row to row; a multiple of 4. At least 960, but 480 if only every
    ///                     second row is asked for: the rows then follow one another
    virtual void composeRows(uint16_t* pixels, int32_t strideBytes, const Rows& rows) = 0;

    /// Writes all 480 x 800 pixels.
    void compose(uint16_t* pixels, int32_t strideBytes) {
        composeRows(pixels, strideBytes, Rows().set());
    }

    /// The rows in which a pixel may have changed since the last call; all rows at the first call.
    virtual Rows takeChanges() = 0;
};

/// Keys for hosts without a touch screen; the values are the canvas's key codes.
enum class HostKey : int32_t {
    kUp = -1,
    kDown = -2,
    kLeft = -3,
    kRight = -4,
    kMiddle = -5,
    kLeftSoft = -6,
    kRightSoft = -7,
};

/// What the application offers to a back end besides the phone's own callbacks. A back end calls
/// these only within pump(), and counts a call that has an effect as a delivered callback.
class HostDoors {
public:
    virtual ~HostDoors() = default;

    /// Class name of the current screen; empty if there is none.
    virtual std::string screenName() = 0;

    /// Index of the chosen effect.
    virtual int32_t currentEffect() = 0;

    /// The name of an effect as the screens show it, in the program's language, as UTF-8. Empty
    /// outside the catalogue.
    virtual std::string effectName(int32_t /*effect*/) { return ""; }

    /// Presses and releases a key. False if the program does not use it now.
    virtual bool navigate(HostKey key) = 0;

    /// Presses the soft key "Stop" of a recording. False, and nothing happens, unless it is
    /// offered.
    virtual bool stopRecording() = 0;

    /// Saves the take with the current effect under the next free number. False, and nothing
    /// happens, unless the main menu or the choice of the effect is on the screen and there is a
    /// take.
    virtual bool saveSound() = 0;

    /// True if saveSound() would save.
    virtual bool canSave() { return false; }

    /// Makes this sound the take, as if it had just been recorded: 16 kHz mono, at most its first
    /// 20 seconds. False, and nothing happens, unless the main menu or the choice of the effect is
    /// on the screen, or without a sample.
    virtual bool useSound(const int16_t* samples, int32_t count) = 0;

    /// The same with a take that was recorded before, but without cutting it: a recording that
    /// ended some frames late is longer than 20 seconds, and must give the same files again.
    virtual bool useTake(const int16_t* samples, int32_t count) { return useSound(samples, count); }

    /// Counts the sounds that have become the take by useSound() and useTake() in this run.
    virtual int32_t takenCount() { return 0; }

    /// True if useSound() would work now.
    virtual bool canUseSound() { return false; }

    /// Shows that effect, as the arrows show the next one. False, and nothing happens, unless the
    /// choice of the effect is on the screen and there is such an effect.
    virtual bool showEffect(int32_t /*index*/) { return false; }

    /// Counts the sounds that were saved in this run; a change means that savedName() is new and on
    /// disk.
    virtual int32_t savedCount() = 0;

    /// Name in the sound folder of the file saved last.
    virtual std::string savedName() = 0;

    /// The 240 x 320 canvas as the bytes of a PNG file.
    virtual std::vector<uint8_t> canvasPng() = 0;

    /// The 240 x 320 pixels that the display has to show now, as RGB565, each of them worked out
    /// from what was painted. Slow; for tests. Empty if nothing is to be shown.
    virtual std::vector<uint16_t> canvasPixels() { return {}; }

    /// The texts of the current picture.
    virtual ScreenTexts texts() = 0;
};

/// The real folders for the phone's root folders, without a trailing "/". Empty: that root is not
/// mapped.
struct HostFolders {
    std::string res;          // "/Res/", read-only
    std::string home;         // "/Home/"
    std::string soundFolder;  // "/Home/Murmelo/", if it lies elsewhere; empty: below home
    std::string framework;    // the framework's own files (its default font), read-only
    std::string config;       // settings
    std::string state;        // where the last take is kept; empty: none is kept

    /// Where the program keeps the sounds.
    std::string sounds() const { return soundFolder.empty() ? home + "/Murmelo" : soundFolder; }
};

class Host {
public:
    virtual ~Host() = default;

    /// The back end in use; there is exactly one while OspMain() runs.
    static Host& current();

    /// Installs a back end (not owned); null removes it.
    static void install(Host* host);

    /// Milliseconds since the program started; never goes back.
    virtual int64_t uptimeMs() = 0;

    /// Milliseconds of the device's own clock; it never goes back.
    virtual int64_t ticksMs() = 0;

    /// Called when the application waits in a loop and yields (Thread::Yield). The host must not
    /// deliver a callback here.
    virtual void yielded() = 0;

    virtual const HostFolders& folders() = 0;

    /// Facts about the device. Free bytes: -1 if unknown.
    virtual bool isSilent() { return false; }

    virtual int64_t freePhoneBytes() = 0;

    virtual int64_t freeCardBytes() { return -1; }

    /// Waits until something happens or timeoutMs have passed (0: looks and returns, -1: waits for
    /// ever), then delivers at most one callback. Returns whether it delivered one.
    virtual bool pump(HostListener& listener, int64_t timeoutMs) = 0;

    /// A frame was finished (Canvas::Show). Must not wait: the host shows the frame at the
    /// display's next refresh. Null: the frame was deleted, and the last picture stays.
    virtual void frameShown(HostFrame* frame) = 0;

    /// The device's microphone and speaker; null if it has none. Each call returns the same object.
    virtual HostMicrophone* microphone() { return nullptr; }

    virtual HostSpeaker* speaker() { return nullptr; }

    /// The application has started and offers its doors (not owned); null: it has ended.
    virtual void setDoors(HostDoors* /*doors*/) {}

    /// Called when a file of the user's (a saved sound, or the settings) is written completely. A
    /// host without a real disk stores it now.
    /// @param path  the real one
    virtual void kept(const std::string& /*path*/) {}

    /// Tells the user something that the program does not show on a screen. A host with a terminal
    /// prints the sentence; one with a strip shows the message in the program's language.
    /// @param sentence  without a full stop, and without the program's name before it
    virtual void tell(const HostMessage& /*message*/, const std::string& /*sentence*/) {}

    /// True if this call of the named platform operation (HostOperation) is to fail. Only tests
    /// make it return true.
    virtual bool fails(const char* /*operation*/) { return false; }
};

/// True if the installed back end wants this call of the platform operation to fail.
inline bool hostFails(HostOperation operation) {
    return Host::current().fails(operation.name());
}
