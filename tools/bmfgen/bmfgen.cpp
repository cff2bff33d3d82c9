// SPDX-License-Identifier: MIT
// murmelo-bmfgen FONT.ttf SIZE OUT.bmf: makes a bitmap font file from an outline font.

#include "ArrFunc.h"
#include "BitMapFont.h"
#include "ByteArrayOutputStream.h"
#include "FontMaker.h"

#include <CLI/CLI.hpp>
#include <fstream>
#include <iostream>
#include <map>

namespace {

struct Options {
    std::string fontPath;
    double sizePx = 0;
    std::string outPath;
    std::string name;
    FontMaker::Hinting hinting = FontMaker::Hinting::kNative;
};

void describe(CLI::App& app, Options& options) {
    const std::map<std::string, FontMaker::Hinting> hintings = {
        {"native", FontMaker::Hinting::kNative},
        {"auto", FontMaker::Hinting::kAuto},
        {"light", FontMaker::Hinting::kLight},
        {"none", FontMaker::Hinting::kNone}};
    app.add_option("font", options.fontPath, "outline font")->required();
    app.add_option("size", options.sizePx, "pixels per em")->required();
    app.add_option("out", options.outPath, "bitmap font to write")->required();
    app.add_option("--name", options.name, "name in the file (the font's family if left out)");
    app.add_option("--hinting", options.hinting, "native, auto, light or none")
        ->transform(CLI::CheckedTransformer(hintings, CLI::ignore_case));
}

bool writeFile(BitMapFont& font, const std::string& path) {
    ByteArrayOutputStream out;
    if (!font.writeTo(&out)) {
        return false;
    }
    signed char* bytes = out.toByteArray();
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes), length(bytes));
    file.close();
    deleteArrFunc(bytes);
    return !file.fail();
}

}  // namespace

// NOLINTNEXTLINE(bugprone-exception-escape): only without memory, and then the program may end
int main(int argc, char** argv) {
    CLI::App app("Makes a bitmap font file from an outline font.", "murmelo-bmfgen");
    Options options;
    describe(app, options);
    CLI11_PARSE(app, argc, argv);
    FontMaker maker;
    const std::unique_ptr<BitMapFont> font =
        maker.make(options.fontPath, options.sizePx, options.name, options.hinting);
    if (font == nullptr) {
        std::cerr << "murmelo-bmfgen: " << maker.error() << "\n";
        return 1;
    }
    if (!writeFile(*font, options.outPath)) {
        std::cerr << "murmelo-bmfgen: cannot write " << options.outPath << "\n";
        return 1;
    }
    return 0;
}
