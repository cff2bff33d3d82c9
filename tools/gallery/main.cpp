// SPDX-License-Identifier: MIT
// murmelo-gallery OUT.png: shows everything under "/Res/" on one sheet.
//
// That is every picture at its place over the background, every character of every font, the texts
// of all languages as the screen shows them, and how well each of them fits.
#include "Gallery.h"
#include "GalleryHost.h"
#include "Res.h"
#include "Sheet.h"
#include "Str.h"

#include <CLI/CLI.hpp>
#include <iostream>

namespace {

constexpr int32_t kMaxScale = 4;

struct Options {
    std::string out;
    std::string data = MURMELO_DATA;
    std::string candidates;
    int32_t scale = 1;
};

void describe(CLI::App& app, Options& options) {
    app.add_option("out", options.out, "sheet to write")->required();
    app.add_option("--data", options.data, "folder of \"Res\" and \"framework\"");
    app.add_option("--candidates", options.candidates,
                   "only compare fonts: a folder of pairs NAME_15.bmf, NAME_13.bmf");
    app.add_option("--scale", options.scale, "pixels of the sheet for each of the screen")
        ->check(CLI::Range(1, kMaxScale));
}

}  // namespace

// NOLINTNEXTLINE(bugprone-exception-escape): only without memory, and then the program may end
int main(int argc, char** argv) {
    CLI::App app("Shows everything that lies under \"/Res/\" on one sheet.", "murmelo-gallery");
    Options options;
    describe(app, options);
    CLI11_PARSE(app, argc, argv);
    const GalleryHost host(options.data, options.candidates);
    Res::static_ctor();
    Str::static_ctor();
    const bool written =
        options.candidates.empty()
            ? Gallery::showAll(options.data, options.out, options.scale)
            : Gallery::compareFonts(options.candidates, options.out, options.scale);
    Str::static_dtor();
    Res::static_dtor();
    if (!written) {
        std::cerr << "murmelo-gallery: cannot write " << options.out << "\n";
        return 1;
    }
    return 0;
}
