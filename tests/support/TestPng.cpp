// SPDX-License-Identifier: MIT
// PNG files for tests: made and read by libpng, or put together by hand.
#include "TestPng.h"

#include <zlib.h>

#include <algorithm>
#include <csetjmp>
#include <png.h>
#include <random>

namespace {

constexpr int32_t kPaletteType = 3;

void append(png_structp png, png_bytep data, png_size_t length) {
    auto* file = static_cast<Bytes*>(png_get_io_ptr(png));
    file->insert(file->end(), data, data + length);
}

struct Source {
    const Bytes* file;
    size_t position;
};

void take(png_structp png, png_bytep target, png_size_t length) {
    auto* source = static_cast<Source*>(png_get_io_ptr(png));
    if (length > source->file->size() - source->position) {
        png_error(png, "end of file");
    }
    std::copy_n(source->file->begin() + static_cast<int64_t>(source->position), length, target);
    source->position += length;
}

void giveUp(png_structp png, png_const_charp /*message*/) {
    longjmp(png_jmpbuf(png), 1);
}

int32_t channels(int32_t colorType) {
    switch (colorType) {
    case 2:
        return 3;
    case 4:
        return 2;
    case 6:
        return 4;
    default:
        return 1;
    }
}

void setPalette(png_structp png, png_infop info, const TestPngSpec& spec, std::mt19937& random) {
    std::vector<png_color> palette(size_t{1} << spec.depth);
    for (png_color& entry : palette) {
        entry = {static_cast<png_byte>(random()), static_cast<png_byte>(random()),
                 static_cast<png_byte>(random())};
    }
    png_set_PLTE(png, info, palette.data(), static_cast<int>(palette.size()));
    if (spec.transparentEntries > 0) {
        Bytes alpha(static_cast<size_t>(spec.transparentEntries));
        std::generate(alpha.begin(), alpha.end(),
                      [&random] { return static_cast<png_byte>(random()); });
        png_set_tRNS(png, info, alpha.data(), spec.transparentEntries, nullptr);
    }
}

/// Noise on a slope, so that each filter predicts some samples well and others badly.
std::vector<Bytes> makeRows(const TestPngSpec& spec, std::mt19937& random) {
    const int32_t bits = spec.w * channels(spec.colorType) * spec.depth;
    std::vector<Bytes> rows(static_cast<size_t>(spec.h), Bytes(static_cast<size_t>(bits + 7) / 8));
    for (size_t y = 0; y < rows.size(); y++) {
        for (size_t x = 0; x < rows[y].size(); x++) {
            const auto noise = static_cast<uint32_t>(random());
            rows[y][x] = static_cast<unsigned char>(noise % 4 == 0 ? noise >> 8 : 3 * x + 5 * y);
        }
    }
    return rows;
}

void writeAll(png_structp png, png_infop info, const TestPngSpec& spec) {
    constexpr int kFilters[] = {PNG_FILTER_NONE, PNG_FILTER_SUB, PNG_FILTER_UP, PNG_FILTER_AVG,
                                PNG_FILTER_PAETH};
    std::mt19937 random(spec.seed);
    png_set_IHDR(png, info, static_cast<png_uint_32>(spec.w), static_cast<png_uint_32>(spec.h),
                 spec.depth, spec.colorType,
                 spec.interlaced ? PNG_INTERLACE_ADAM7 : PNG_INTERLACE_NONE,
                 PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    if (spec.colorType == kPaletteType) {
        setPalette(png, info, spec, random);
    }
    if (spec.filter >= 0) {
        png_set_filter(png, PNG_FILTER_TYPE_BASE, kFilters[spec.filter]);
    }
    png_set_compression_buffer_size(png, static_cast<size_t>(spec.idatBytes));
    std::vector<Bytes> rows = makeRows(spec, random);
    std::vector<png_bytep> pointers;
    pointers.reserve(rows.size());
    for (Bytes& row : rows) {
        pointers.push_back(row.data());
    }
    png_write_info(png, info);
    png_write_image(png, pointers.data());
    png_write_end(png, info);
}

void readAll(png_structp png, png_infop info, TestPicture& picture, Bytes& rgba) {
    png_read_info(png, info);
    picture.w = static_cast<int32_t>(png_get_image_width(png, info));
    picture.h = static_cast<int32_t>(png_get_image_height(png, info));
    png_set_strip_16(png);
    png_set_expand(png);
    png_set_gray_to_rgb(png);
    png_set_add_alpha(png, 0xFF, PNG_FILLER_AFTER);
    const int passes = png_set_interlace_handling(png);
    png_read_update_info(png, info);
    const auto rowBytes = static_cast<size_t>(picture.w) * 4;
    rgba.resize(rowBytes * static_cast<size_t>(picture.h));
    for (int pass = 0; pass < passes; pass++) {
        for (size_t y = 0; y < static_cast<size_t>(picture.h); y++) {
            png_read_row(png, rgba.data() + y * rowBytes, nullptr);
        }
    }
    png_read_end(png, info);
}

void append32(Bytes& bytes, uint32_t value) {
    for (int32_t shift = 24; shift >= 0; shift -= 8) {
        bytes.push_back(static_cast<unsigned char>(value >> shift));
    }
}

}  // namespace

Bytes TestPng::write(const TestPngSpec& spec) {
    Bytes file;
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, giveUp, nullptr);
    png_infop info = png_create_info_struct(png);
    if (setjmp(png_jmpbuf(png)) == 0) {
        png_set_write_fn(png, &file, append, nullptr);
        writeAll(png, info, spec);
    } else {
        file.clear();
    }
    png_destroy_write_struct(&png, &info);
    return file;
}

TestPicture TestPng::read(const Bytes& file) {
    TestPicture picture;
    Bytes rgba;
    Source source = {&file, 0};
    png_structp png = png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, giveUp, giveUp);
    png_infop info = png_create_info_struct(png);
    if (setjmp(png_jmpbuf(png)) == 0) {
        png_set_read_fn(png, &source, take);
        readAll(png, info, picture, rgba);
    } else {
        rgba.clear();
        picture = {};
    }
    png_destroy_read_struct(&png, &info, nullptr);
    for (size_t i = 0; i < rgba.size(); i += 4) {
        picture.argb.push_back(uint32_t{rgba[i + 3]} << 24 | uint32_t{rgba[i]} << 16 |
                               uint32_t{rgba[i + 1]} << 8 | rgba[i + 2]);
    }
    return picture;
}

Bytes TestPng::signature() {
    return {0x89, 'P', 'N', 'G', 0x0D, 0x0A, 0x1A, 0x0A};
}

Bytes TestPng::chunk(const std::string& type, const Bytes& data) {
    Bytes bytes;
    append32(bytes, static_cast<uint32_t>(data.size()));
    for (const char letter : type) {
        bytes.push_back(static_cast<unsigned char>(letter));
    }
    bytes.insert(bytes.end(), data.begin(), data.end());
    append32(bytes, 0);
    return bytes;
}

Bytes TestPng::header(int32_t w, int32_t h, int32_t depth, int32_t colorType) {
    Bytes data;
    append32(data, static_cast<uint32_t>(w));
    append32(data, static_cast<uint32_t>(h));
    data.push_back(static_cast<unsigned char>(depth));
    data.push_back(static_cast<unsigned char>(colorType));
    data.insert(data.end(), {0, 0, 0});
    return chunk("IHDR", data);
}

Bytes TestPng::compressed(const Bytes& data) {
    uLongf length = compressBound(static_cast<uLong>(data.size()));
    Bytes bytes(length);
    compress(bytes.data(), &length, data.data(), static_cast<uLong>(data.size()));
    bytes.resize(length);
    return bytes;
}

Bytes TestPng::file(int32_t w, int32_t h, int32_t depth, int32_t colorType, const Bytes& rows) {
    return signature() + header(w, h, depth, colorType) + chunk("IDAT", compressed(rows)) +
           chunk("IEND", {});
}

Bytes operator+(const Bytes& a, const Bytes& b) {
    Bytes sum(a);
    sum.insert(sum.end(), b.begin(), b.end());
    return sum;
}
