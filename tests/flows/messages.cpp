// SPDX-License-Identifier: MIT
// screen-messages FOLDER: takes pictures of the fatal messages that no journey can cause, as
// FOLDER/KIND_LANGUAGE.png.
#include "AppImage.h"
#include "G.h"
#include "MessageAndQuit.h"
#include "Orm.h"
#include "PngEncoder.h"
#include "Res.h"
#include "ScreensTest.h"

#include <fstream>
#include <iostream>

namespace {

class Messages : public ScreensTest {
public:
    bool writeAll(const std::string& folder) {
        constexpr int32_t kOther = 7;
        for (int32_t lang = 0; lang < Res::kLanguages; lang++) {
            Res::setCurrLangIndex(lang);
            for (const int32_t kind :
                 {MessageAndQuit::kHeapLow, MessageAndQuit::kNoMemCard, kOther}) {
                enter(G::statePlay);
                MessageAndQuit::enter(kind);
                if (!write(folder + "/" + std::to_string(kind) + "_" + std::to_string(lang) +
                           ".png")) {
                    return false;
                }
            }
        }
        return true;
    }

private:
    void TestBody() override {}

    static bool write(const std::string& path) {
        const AppImage* canvas = Orm::getScreen();
        PngEncoder encoder;
        std::ofstream file(path, std::ios::binary);
        if (encoder.setImageData(canvas->pixels, canvas->w, canvas->h)) {
            const signed char* png = encoder.encode();
            file.write(reinterpret_cast<const char*>(png), encoder.getLength());
        }
        return encoder.getLength() > 0 && file.flush();
    }
};

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2 || !Messages().writeAll(argv[1])) {
        std::cerr << "screen-messages: wants a folder that it can write to\n";
        return 1;
    }
    return 0;
}
