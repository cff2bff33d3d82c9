// SPDX-License-Identifier: MIT
// Reads a picture file from a stream.
#pragma once

#include <cstdint>

class AppImage;
class InputStream;

class ImageReader {
public:
    /// Decodes all that the stream still has as a PNG. The pixels are straight ARGB. The caller
    /// owns the image; the stream stays the caller's. Null if it is no picture that can be decoded.
    static AppImage* read(InputStream* in);

    /// The size that the picture would have, without decoding it; 0 x 0 where read() gives null.
    static void readSize(InputStream* in, int32_t& w, int32_t& h);
};
