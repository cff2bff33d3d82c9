// SPDX-License-Identifier: MIT
// Reads a picture file from a stream.
#pragma once

#include <cstdint>

class AppImage;
class InputStream;

class ImageReader {
public:
    /// Decodes the rest of the stream as a PNG. The pixels are straight ARGB. The caller owns the
    /// new image and the stream. Null if it is not a picture that can be decoded.
    static AppImage* read(InputStream* in);

    /// The size that the picture would have, without decoding it; 0 x 0 if read() would return
    /// null.
    static void readSize(InputStream* in, int32_t& w, int32_t& h);
};
