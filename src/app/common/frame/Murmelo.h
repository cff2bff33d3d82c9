// SPDX-License-Identifier: MIT
// The application object: chooses the first screen, removes temporary sounds at the end.
#pragma once

#include "Array.h"
#include "OrmMidlet.h"

#include <cstdint>
#include <memory>

namespace Osp::Base {
class String;
}

namespace Osp::Graphics {
class Color;
}

class Murmelo : public OrmMidlet {
public:
    /// The first run asks for the language, every later one begins with the splash picture.
    void onInit() override;
    void onShutDown() override;

    /// Deletes the take and the processed take in the working folder; does nothing before that
    /// folder is named.
    static void deleteTempFiles();

    /// Always true: the phone's own storage is the only one in use.
    static bool checkEnoughSpace() { return true; }

    static bool checkMemCardRemoved() { return true; }

    /// Loads a WAV file of 8 or 16 kHz. Returns a new counted array of 8 kHz samples, which the
    /// caller frees; null if there is no such sound.
    static int32_t* loadWavTo8Khz(Osp::Base::String& uri);

    /// Writes samples as an 8 kHz WAV file and replaces a file of that path. False if not every
    /// byte could be written; no file is left then.
    static bool save8KhzWav(const int32_t* samples, Osp::Base::String* path);

    /// Loads the last recording. If it cannot be read, shows the fatal message and returns null.
    static int32_t* loadLastRec8Khz();

    /// Colour of the display around the picture, from now on.
    static void setBkgColor(uint32_t argb);

    static void static_ctor();
    static void static_dtor();

    static constexpr uint32_t kFirstRunArgb = 0xFF202020;
    // A shade darker once the language is known.
    static constexpr uint32_t kLaterRunArgb = 0xFF101010;

    static Array<signed char> TempHdrBuf;  // of 44: header of the file being read or written
    static Array<signed char> TempSmpBuf;  // of 20480: samples on their way to or from a file
    static std::unique_ptr<Osp::Base::String> msg;
    static std::unique_ptr<Osp::Graphics::Color> pBkgColor;
};
