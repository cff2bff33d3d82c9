// SPDX-License-Identifier: MIT
// murmelo-sheet: puts pictures side by side on one sheet, or compares them with a sheet made
// before.
#include <algorithm>
#include <CLI/CLI.hpp>
#include <cstdint>
#include <iostream>
#include <png.h>
#include <string>
#include <vector>

namespace {

struct Picture {
    uint32_t width = 0;
    uint32_t height = 0;
    std::vector<uint8_t> rgb;
};

bool read(const std::string& path, Picture& picture) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    if (png_image_begin_read_from_file(&image, path.c_str()) == 0) {
        return false;
    }
    image.format = PNG_FORMAT_RGB;
    picture.width = image.width;
    picture.height = image.height;
    picture.rgb.resize(PNG_IMAGE_SIZE(image));
    return png_image_finish_read(&image, nullptr, picture.rgb.data(), 0, nullptr) != 0;
}

bool write(const std::string& path, const Picture& picture) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = picture.width;
    image.height = picture.height;
    image.format = PNG_FORMAT_RGB;
    return png_image_write_to_file(&image, path.c_str(), 0, picture.rgb.data(), 0, nullptr) != 0;
}

uint8_t* pixelRow(Picture& picture, uint32_t x, uint32_t y) {
    return picture.rgb.data() + (size_t{y} * picture.width + x) * 3;
}

/// Cuts the canvas, which is shown doubled, out of a picture of the display: drops the upper `top`
/// rows, and every second row and column of the rest.
Picture halved(Picture& display, uint32_t top) {
    Picture canvas;
    canvas.width = display.width / 2;
    canvas.height = (display.height - std::min(top, display.height)) / 2;
    canvas.rgb.resize(size_t{canvas.width} * canvas.height * 3);
    for (uint32_t y = 0; y < canvas.height; y++) {
        for (uint32_t x = 0; x < canvas.width; x++) {
            const uint8_t* pixel = pixelRow(display, 2 * x, top + 2 * y);
            std::copy(pixel, pixel + 3, pixelRow(canvas, x, y));
        }
    }
    return canvas;
}

/// Makes the sheet. All cells have the size of the first picture; larger pictures are cut.
Picture sheetOf(std::vector<Picture>& pictures, uint32_t columns) {
    const uint32_t cellWidth = pictures[0].width;
    const uint32_t cellHeight = pictures[0].height;
    const auto count = static_cast<uint32_t>(pictures.size());
    Picture sheet;
    sheet.width = cellWidth * std::min(columns, count);
    sheet.height = cellHeight * ((count + columns - 1) / columns);
    sheet.rgb.assign(size_t{sheet.width} * sheet.height * 3, 0xFF);
    for (uint32_t i = 0; i < count; i++) {
        const uint32_t width = std::min(cellWidth, pictures[i].width);
        for (uint32_t y = 0; y < std::min(cellHeight, pictures[i].height); y++) {
            const uint8_t* row = pixelRow(pictures[i], 0, y);
            uint8_t* target =
                pixelRow(sheet, i % columns * cellWidth, i / columns * cellHeight + y);
            std::copy(row, row + size_t{width} * 3, target);
        }
    }
    return sheet;
}

bool sameCell(Picture& a, Picture& b, uint32_t x, uint32_t y, uint32_t width, uint32_t height) {
    for (uint32_t row = y; row < y + height; row++) {
        const uint8_t* left = pixelRow(a, x, row);
        if (!std::equal(left, left + size_t{width} * 3, pixelRow(b, x, row))) {
            return false;
        }
    }
    return true;
}

/// Prints the name of every picture that differs. @returns true if all are the same
bool compare(Picture& sheet,
             Picture& golden,
             const Picture& cell,
             const std::vector<std::string>& names) {
    if (sheet.width != golden.width || sheet.height != golden.height) {
        std::cerr << "murmelo-sheet: the sheets differ in size\n";
        return false;
    }
    const uint32_t columns = sheet.width / cell.width;
    bool same = true;
    for (uint32_t i = 0; i < names.size(); i++) {
        const uint32_t x = i % columns * cell.width;
        const uint32_t y = i / columns * cell.height;
        if (!sameCell(sheet, golden, x, y, cell.width, cell.height)) {
            std::cerr << "murmelo-sheet: " << names[i] << " differs\n";
            same = false;
        }
    }
    return same;
}

}  // namespace

// NOLINTNEXTLINE(bugprone-exception-escape): only without memory, and then the program may end
int main(int argc, char** argv) {
    CLI::App options("Puts pictures of one size side by side on a sheet.");
    uint32_t columns = 4;
    uint32_t top = 0;
    bool halve = false;
    std::string golden;
    std::string out;
    std::vector<std::string> inputs;
    options.add_option("--columns", columns, "Pictures in a row")->check(CLI::Range(1, 100));
    options.add_flag("--halve", halve, "Take every second row and column, from row --top on");
    options.add_option("--top", top, "Rows to leave out above");
    options.add_option("--compare", golden,
                       "Sheet that the new one must equal; the new one is written if it does not");
    options.add_option("out", out, "Sheet to write")->required();
    options.add_option("pictures", inputs, "PNG files")->required();
    CLI11_PARSE(options, argc, argv);

    std::vector<Picture> pictures(inputs.size());
    for (size_t i = 0; i < inputs.size(); i++) {
        if (!read(inputs[i], pictures[i])) {
            std::cerr << "murmelo-sheet: \"" << inputs[i] << "\" cannot be read\n";
            return 2;
        }
        if (halve) {
            pictures[i] = halved(pictures[i], top);
        }
    }
    Picture sheet = sheetOf(pictures, columns);
    Picture expected;
    if (!golden.empty() && read(golden, expected) &&
        compare(sheet, expected, pictures[0], inputs)) {
        return 0;
    }
    if (!write(out, sheet)) {
        std::cerr << "murmelo-sheet: \"" << out << "\" cannot be written\n";
        return 2;
    }
    return golden.empty() ? 0 : 1;
}
