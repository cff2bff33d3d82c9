// SPDX-License-Identifier: MIT
#include "StrFit.h"

#include "BitMapFont.h"
#include "OspBase.h"
#include "PaTextArea.h"
#include "Res.h"
#include "Str.h"
#include "StrTexts.h"

#include <algorithm>
#include <string_view>

using Osp::Base::String;

namespace {

constexpr int32_t kScreenPx = 240;
constexpr int32_t kMarginPx = 8;
constexpr int32_t kSoftKeyPx = kScreenPx / 3 - kMarginPx;
constexpr int32_t kMenuRowPx = 200;
constexpr int32_t kArrowPx = 22;
constexpr int32_t kNamePx = kScreenPx - 2 * (kMarginPx + kArrowPx + 4);
constexpr int32_t kMessagePx = 180;
constexpr int32_t kHelpHeightPx = 200;
constexpr std::string_view kEffect = "FX_";  // the beginning of the ids' names

// The middle of a message is at row 136, so that it may be twice as high. Its box is 60 px higher
// than one text, and 70 px higher than two.
constexpr int32_t kAroundRowPx = 136;
constexpr int32_t kOneTextPx = 2 * kAroundRowPx - 60;
constexpr int32_t kTwoTextsPx = 2 * kAroundRowPx - 70;

/// Measures all texts of one language.
class Tape {
public:
    Tape(int32_t medium, int32_t small, int32_t language, std::vector<StrFit>& found)
        : medium(medium)
        , small(small)
        , language(language)
        , found(found) {}

    void softKeys() {
        for (const int32_t id : {Str::str_SK_OK, Str::str_SK_PLAY, Str::str_SK_RECORD,
                                 Str::str_SK_SELECT, Str::str_SK_STOP}) {
            width("middle soft key", id, medium, kSoftKeyPx);
        }
        for (const int32_t id :
             {Str::str_SK_BACK, Str::str_SK_CANCEL, Str::str_SK_INFO, Str::str_SK_MENU,
              Str::str_SK_NO, Str::str_SK_OK, Str::str_SK_OPTIONS, Str::str_SK_PAUSE,
              Str::str_SK_QUIT, Str::str_SK_YES}) {
            width("side soft key", id, small, kSoftKeyPx);
        }
    }

    void menus() {
        for (const int32_t id :
             {Str::str_SK_RECORD, Str::str_MI_HELP, Str::str_MI_LANGUAGE, Str::str_MI_SAVE,
              Str::str_MI_SETTINGS, Str::str_MI_SETTINGS_SAVE_TO, Str::str_SETTINGS_MEMORY_CARD,
              Str::str_SETTINGS_PHONE}) {
            width("menu row", id, medium, kMenuRowPx);
        }
        for (int32_t i = 0; i < Res::kLanguages; i++) {
            width("menu row", Str::str_LangNameIds[i], medium, kMenuRowPx);
        }
    }

    void effects() {
        int32_t count = 0;
        const StrTexts* rows = StrTexts::rows(count);
        for (int32_t i = 0; i < count; i++) {
            if (std::string_view(rows[i].name).substr(0, kEffect.size()) == kEffect) {
                width("effect name", *rows[i].id, medium, kNamePx);
            }
        }
    }

    void messages() {
        for (const int32_t id : {Str::str_PLEASE_WAIT, Str::str_START_RECORDING,
                                 Str::str_SILENT_DEVICE, Str::str_ROTATE_SCREEN}) {
            message("message", {{id, medium}}, kOneTextPx);
        }
        for (const int32_t id : {Str::str_LBL_RECORDING, Str::str_LBL_PLAYING}) {
            width("caption", id, medium, kMessagePx);
        }
        message("message", {{Str::str_DLG_TITLE_ERROR, small}}, kOneTextPx);
        message("help", {{Str::str_HELP_TXT, small}}, kHelpHeightPx);
        for (const int32_t id :
             {Str::str_LBL_SOUND_SAVED_PHONE, Str::str_LBL_SOUND_SAVED_MEM_CARD}) {
            message("message with a path", {{id, medium}, {Str::str_APP_NAME, small}},
                    kTwoTextsPx - 2 * Res::getFont(small)->getLineHeight());
        }
    }

    void lastMessages() {
        const Text quit = {Str::str_ERROR_APPLICATION_WILL_QUIT_TXT, small};
        const Text lowMem = {Str::str_DLG_TITLE_LOW_MEM, medium};
        message("last message", {lowMem, {Str::str_ERROR_HEAP_TOO_LOW_TXT, small}, quit},
                kTwoTextsPx);
        message("last message", {lowMem, {Str::str_LOW_MEM_TXT, small}, quit}, kTwoTextsPx);
        message("last message", {{Str::str_ERROR_FILE_IO_TXT, small}, quit}, kOneTextPx);
        message("last message", {{Str::str_ERROR_DEV_NOT_SUPPORTED_TXT, small}, quit}, kOneTextPx);
        message("last message", {{Str::str_DLG_TITLE_NO_MEM_CARD, medium}, quit}, kTwoTextsPx);
        message("last message", {{Str::str_ERROR_AUDIO_NO_ACCESS_TXT, medium}, quit}, kTwoTextsPx);
    }

private:
    struct Text {
        int32_t id;
        int32_t font;
    };

    static std::string nameOf(int32_t id) {
        int32_t count = 0;
        const StrTexts* rows = StrTexts::rows(count);
        const StrTexts* row =
            std::find_if(rows, rows + count, [id](const StrTexts& r) { return *r.id == id; });
        return row == rows + count ? "language name" : row->name;
    }

    void width(const char* place, int32_t id, int32_t font, int32_t limitPx) {
        found.push_back({nameOf(id), place, language,
                         Res::getFont(font)->getStringWidth(Res::getStr(id)), limitPx});
    }

    /// Measures texts that stand one below the other; the result has the name of the longest one.
    void message(const char* place, const std::vector<Text>& texts, int32_t limitPx) {
        int32_t heightPx = 0;
        int32_t widestPx = 0;
        int32_t longest = texts[0].id;
        for (const Text& text : texts) {
            PaTextArea area;
            area.set(text.id, text.font, 0xFFFFFFFF, 0, 0, 0, kMessagePx, 0);
            heightPx += area.getTextHeight();
            widestPx = std::max(widestPx, widestWord(text));
            if (Res::getStr(text.id)->GetLength() > Res::getStr(longest)->GetLength()) {
                longest = text.id;
            }
        }
        found.push_back({nameOf(longest), place, language, heightPx, limitPx});
        found.push_back({nameOf(longest), "widest word", language, widestPx, kMessagePx});
    }

    static int32_t widestWord(const Text& text) {
        const String all = *Res::getStr(text.id) + " ";
        BitMapFont* font = Res::getFont(text.font);
        int32_t widestPx = 0;
        String word;
        for (int32_t i = 0; i < all.GetLength(); i++) {
            if (all[i] == u' ' || all[i] == u'\n') {
                widestPx = std::max(widestPx, font->getStringWidth(&word));
                word = String();
            } else {
                word.Append(all[i]);
            }
        }
        return widestPx;
    }

    int32_t medium;
    int32_t small;
    int32_t language;
    std::vector<StrFit>& found;
};

}  // namespace

std::vector<StrFit> StrFit::measureAll(int32_t medium, int32_t small) {
    std::vector<StrFit> found;
    const int32_t before = Res::getCurrLangIndex();
    for (int32_t language = 0; language < Res::kLanguages; language++) {
        Res::setCurrLangIndex(language);
        Tape tape(medium, small, language, found);
        tape.softKeys();
        tape.menus();
        tape.effects();
        tape.messages();
        tape.lastMessages();
    }
    Res::setCurrLangIndex(before);
    return found;
}
