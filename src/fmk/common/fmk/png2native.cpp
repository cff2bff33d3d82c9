// SPDX-License-Identifier: MIT
#include "png2native.h"

#include "ArrFunc.h"
#include "Inflate.h"
#include "Rgb565.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace {

constexpr unsigned char kSignature[8] = {0x89, 'P', 'N', 'G', 0x0D, 0x0A, 0x1A, 0x0A};
constexpr int32_t kRgb = 2;
constexpr int32_t kPalette = 3;
constexpr int32_t kRgba = 6;
constexpr int32_t kDeepest = 16;  // bits of a sample
constexpr size_t kPaletteEntries = 256;

struct Chunk {
    const unsigned char* data;
    int64_t length;
};

uint32_t bigEndian32(const unsigned char* bytes) {
    return uint32_t{bytes[0]} << 24 | uint32_t{bytes[1]} << 16 | uint32_t{bytes[2]} << 8 | bytes[3];
}

constexpr uint32_t fourLetters(const char (&name)[5]) {
    return static_cast<uint32_t>(name[0]) << 24 | static_cast<uint32_t>(name[1]) << 16 |
           static_cast<uint32_t>(name[2]) << 8 | static_cast<uint32_t>(name[3]);
}

/// What the chunks of a file contain, before any image data is decoded.
struct Picture {
    int32_t width = 0;
    int32_t height = 0;
    int32_t depth = 0;
    int32_t colorType = 0;
    Chunk palette = {nullptr, 0};
    Chunk transparency = {nullptr, 0};
    std::vector<unsigned char> compressed;

    int32_t bytesPerPixel() const {
        const int32_t sampleBytes = std::max(1, depth / 8);
        return colorType == kRgb ? 3 * sampleBytes
                                 : (colorType == kRgba ? 4 * sampleBytes : sampleBytes);
    }
};

void readHeader(Picture& picture, const unsigned char* data) {
    picture.width = static_cast<int32_t>(bigEndian32(data));
    picture.height = static_cast<int32_t>(bigEndian32(data + 4));
    picture.depth = data[8];
    picture.colorType = data[9];
    // Deliberate: the interlace byte is ignored; the passes are read as if they were rows.
}

enum class Wanted { kSize, kPicture };

/// Reads one chunk; false at the end of the picture. A chunk that the end of the file cuts short is
/// used only if it holds image data.
bool readChunk(Picture& picture, uint32_t type, Chunk chunk, bool complete, Wanted wanted) {
    if (type == fourLetters("IDAT") && wanted == Wanted::kPicture) {
        picture.compressed.insert(picture.compressed.end(), chunk.data, chunk.data + chunk.length);
    }
    if (!complete) {
        return false;
    }
    if (type == fourLetters("IHDR") && chunk.length == 13) {
        readHeader(picture, chunk.data);
    } else if (type == fourLetters("PLTE") && chunk.length % 3 == 0) {
        picture.palette = chunk;
    } else if (type == fourLetters("tRNS")) {
        picture.transparency = chunk;
    }
    return type != fourLetters("IEND");
}

void readChunks(Picture& picture, const unsigned char* data, int64_t length, Wanted wanted) {
    constexpr int64_t kFrameBytes = 8;  // length and type, before the content
    constexpr int64_t kCrcBytes = 4;    // never checked
    int64_t position = sizeof kSignature;
    while (length - position >= kFrameBytes) {
        const int64_t announced = bigEndian32(data + position);
        const uint32_t type = bigEndian32(data + position + 4);
        position += kFrameBytes;
        const Chunk chunk = {data + position, std::min(announced, length - position)};
        if (!readChunk(picture, type, chunk, chunk.length == announced, wanted)) {
            return;
        }
        position += announced + kCrcBytes;
    }
}

/// The decoded bytes; zero from where the stream is damaged or ends early.
std::vector<unsigned char> inflateRows(const Picture& picture, int64_t bytes) {
    std::vector<unsigned char> rows(static_cast<size_t>(bytes));
    Inflate::unpack(picture.compressed.data(), picture.compressed.size(), rows.data(), rows.size());
    return rows;
}

/// The nearest of left, above and corner to left + above - corner; ties go to the left one, then
/// to the one above.
int32_t paeth(int32_t left, int32_t above, int32_t corner) {
    const int32_t toLeft = std::abs(above - corner);
    const int32_t toAbove = std::abs(left - corner);
    const int32_t toCorner = std::abs(left + above - 2 * corner);
    const int32_t nearest = toAbove <= toCorner ? above : corner;
    return toLeft <= toAbove && toLeft <= toCorner ? left : nearest;
}

/// Adds to each byte what the filter predicts from its neighbours.
/// @tparam kBpp  distance to the left neighbour in bytes
template <int32_t kBpp, typename Predict>
void unfilterWith(unsigned char* row, const unsigned char* above, int64_t n, Predict predict) {
    for (int64_t i = 0; i < std::min<int64_t>(kBpp, n); i++) {
        row[i] = static_cast<unsigned char>(row[i] + predict(0, above[i], 0));
    }
    for (int64_t i = kBpp; i < n; i++) {
        row[i] =
            static_cast<unsigned char>(row[i] + predict(row[i - kBpp], above[i], above[i - kBpp]));
    }
}

/// @param row    n bytes after the filter byte
/// @param above  the row before, zero for the first
template <int32_t kBpp>
void unfilterRow(int32_t filter, unsigned char* row, const unsigned char* above, int64_t n) {
    switch (filter) {
    case 1:
        unfilterWith<kBpp>(row, above, n, [](int32_t left, int32_t, int32_t) { return left; });
        break;
    case 2:
        for (int64_t i = 0; i < n; i++) {
            row[i] = static_cast<unsigned char>(row[i] + above[i]);
        }
        break;
    case 3:
        unfilterWith<kBpp>(row, above, n,
                           [](int32_t left, int32_t up, int32_t) { return (left + up) >> 1; });
        break;
    case 4:
        unfilterWith<kBpp>(row, above, n, paeth);
        break;
    default:
        break;  // 0, and bytes that name no filter
    }
}

using UnfilterRow = void (*)(int32_t, unsigned char*, const unsigned char*, int64_t);

UnfilterRow unfilterFor(int32_t bytesPerPixel) {
    switch (bytesPerPixel) {
    case 2:
        return unfilterRow<2>;
    case 3:
        return unfilterRow<3>;
    case 4:
        return unfilterRow<4>;
    case 6:
        return unfilterRow<6>;
    case 8:
        return unfilterRow<8>;
    default:
        return unfilterRow<1>;
    }
}

void unfilter(std::vector<unsigned char>& rows, int64_t rowBytes, const Picture& picture) {
    const std::vector<unsigned char> zero(static_cast<size_t>(rowBytes));
    const UnfilterRow unfilterOne = unfilterFor(picture.bytesPerPixel());
    const unsigned char* above = zero.data() + 1;
    for (int64_t y = 0; y < picture.height; y++) {
        unsigned char* row = rows.data() + y * rowBytes;
        unfilterOne(row[0], row + 1, above, rowBytes - 1);
        above = row + 1;
    }
}

/// The colours of a palette; entries that the file does not have are opaque black.
struct PaletteTable {
    explicit PaletteTable(const Picture& picture) {
        alpha.fill(255);
        const Chunk colors = picture.palette;
        for (size_t i = 0; i < kPaletteEntries && 3 * static_cast<int64_t>(i) < colors.length;
             i++) {
            pixel[i] =
                Rgb565::fromRgb(uint32_t{colors.data[3 * i]} << 16 |
                                uint32_t{colors.data[3 * i + 1]} << 8 | colors.data[3 * i + 2]);
            if (static_cast<int64_t>(i) < picture.transparency.length) {
                alpha[i] = picture.transparency.data[i];
            }
        }
    }

    std::array<uint16_t, kPaletteEntries> pixel = {};
    std::array<uint8_t, kPaletteEntries> alpha = {};
};

bool hasTransparentEntry(const Chunk& transparency) {
    return std::any_of(transparency.data, transparency.data + transparency.length,
                       [](unsigned char alpha) { return alpha < 255; });
}

/// Fills pixels, and the alpha plane if there is one, from unfiltered rows.
class Converter {
public:
    Converter(const Picture& picture, uint16_t* pixels, uint8_t* alpha)
        : picture(picture)
        , pixels(pixels)
        , alpha(alpha)
        , palette(picture) {}

    void convertRow(const unsigned char* row, int64_t y) {
        const int64_t start = y * picture.width;
        const bool wholeBytes = picture.depth == 8 || picture.depth == 16;
        if (picture.colorType == kPalette) {
            convertPalette(row, pixels + start, alpha == nullptr ? nullptr : alpha + start);
        } else if (picture.colorType == kRgb && wholeBytes) {
            convertRgb(row, pixels + start);
        } else if (picture.colorType == kRgba && wholeBytes) {
            convertRgba(row, pixels + start, alpha + start);
        }
        // Deliberate: a grey sample spreads to 0x010101 at most, which RGB565 cuts to black, and
        // black is what the pixels are already.
    }

private:
    void convertPalette(const unsigned char* row, uint16_t* pixel, uint8_t* a) const {
        const int32_t depth = picture.depth;
        if (depth != 1 && depth != 2 && depth != 4 && depth != 8) {
            return;
        }
        const uint32_t mask = (1U << depth) - 1;
        for (int32_t x = 0; x < picture.width; x++) {
            const int32_t bit = x * depth;
            const uint32_t index = (uint32_t{row[bit >> 3]} >> (8 - depth - (bit & 7))) & mask;
            pixel[x] = palette.pixel[index];
            if (a != nullptr) {
                a[x] = palette.alpha[index];
            }
        }
    }

    /// The high byte of each sample is the first one.
    void convertRgb(const unsigned char* row, uint16_t* pixel) const {
        const int64_t sampleBytes = picture.depth / 8;
        for (int32_t x = 0; x < picture.width; x++, row += 3 * sampleBytes) {
            pixel[x] = Rgb565::fromRgb(uint32_t{row[0]} << 16 | uint32_t{row[sampleBytes]} << 8 |
                                       row[2 * sampleBytes]);
        }
    }

    void convertRgba(const unsigned char* row, uint16_t* pixel, uint8_t* a) const {
        const int64_t sampleBytes = picture.depth / 8;
        for (int32_t x = 0; x < picture.width; x++, row += 4 * sampleBytes) {
            pixel[x] = Rgb565::fromRgb(uint32_t{row[0]} << 16 | uint32_t{row[sampleBytes]} << 8 |
                                       row[2 * sampleBytes]);
            a[x] = row[3 * sampleBytes];
        }
    }

    const Picture& picture;
    uint16_t* pixels;
    uint8_t* alpha;
    PaletteTable palette;
};

void decodeRows(const Picture& picture, uint16_t* pixels, uint8_t* alpha) {
    const int64_t rowBytes = pngRowBytes(picture.colorType, picture.width, picture.depth);
    if (rowBytes == 0 || picture.depth > kDeepest) {
        return;
    }
    std::vector<unsigned char> rows = inflateRows(picture, rowBytes * picture.height);
    unfilter(rows, rowBytes, picture);
    Converter converter(picture, pixels, alpha);
    for (int64_t y = 0; y < picture.height; y++) {
        converter.convertRow(rows.data() + y * rowBytes + 1, y);
    }
}

/// False if the data is no PNG file, or the picture too large.
bool readPicture(Picture& picture, const unsigned char* data, int32_t length, Wanted wanted) {
    if (length < 9 || std::memcmp(data, kSignature, sizeof kSignature) != 0) {
        return false;
    }
    readChunks(picture, data, length, wanted);
    return picture.width >= 0 && picture.height >= 0 &&
           int64_t{picture.width} * picture.height <= kPngMaxPixels;
}

}  // namespace

bool pngSize(const unsigned char* data, int32_t length, int32_t* width, int32_t* height) {
    Picture picture;
    const bool isPicture = readPicture(picture, data, length, Wanted::kSize);
    *width = isPicture ? picture.width : 0;
    *height = isPicture ? picture.height : 0;
    return isPicture;
}

int32_t png2native(const unsigned char* data,
                   int32_t length,
                   uint16_t** pixels,
                   uint8_t** alpha,
                   int32_t* width,
                   int32_t* height,
                   bool* hasAlpha) {
    *pixels = nullptr;
    *alpha = nullptr;
    *width = 0;
    *height = 0;
    *hasAlpha = false;
    Picture picture;
    if (!readPicture(picture, data, length, Wanted::kPicture)) {
        return -1;
    }
    const int64_t count = int64_t{picture.width} * picture.height;
    *width = picture.width;
    *height = picture.height;
    *hasAlpha = picture.colorType == kRgba ||
                (picture.colorType != kRgb && hasTransparentEntry(picture.transparency));
    *pixels = newArray<uint16_t>(static_cast<int32_t>(count));
    if (*hasAlpha) {
        *alpha = newArray<uint8_t>(static_cast<int32_t>(count));
        std::memset(*alpha, 255, static_cast<size_t>(count));
    }
    if (count > 0) {
        decodeRows(picture, *pixels, *alpha);
    }
    return 0;
}
