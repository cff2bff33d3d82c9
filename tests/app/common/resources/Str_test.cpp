// SPDX-License-Identifier: MIT
// Every text exists in every language, has its place in the order and all its letters in the fonts,
// and fits its place.
#include "ArrFunc.h"
#include "BitMapFont.h"
#include "Bounds.h"
#include "OspBase.h"
#include "PaTextArea.h"
#include "Res.h"
#include "Str.h"
#include "StrEU.h"
#include "StrFit.h"
#include "StrTexts.h"
#include "TestHost.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <malloc.h>
#include <set>
#include <utility>

namespace {

using Osp::Base::String;

/// The texts as the program registers them, over the shipped fonts.
class StrTest : public testing::Test {
public:
    StrTest() {
        host.mapShipped();
        Res::static_ctor();
        firstId = Res::nextId;
        Str::static_ctor();
        rows = StrTexts::rows(count);
        medium = Res::addFont("/Res/bmf15.bmf");
        small = Res::addFont("/Res/bmf13.bmf");
    }

    ~StrTest() override {
        Str::static_dtor();
        Res::static_dtor();
    }

    static std::string textIn(int32_t language, int32_t id) {
        Res::setCurrLangIndex(language);
        return Res::getStr(id)->ToUtf8();
    }

    static void expectTexts(int32_t id, const std::vector<std::string>& expected) {
        for (int32_t language = 0; language < Res::kLanguages; language++) {
            EXPECT_EQ(expected[static_cast<size_t>(language)], textIn(language, id));
        }
    }

    /// Rows of a text in the width of a message.
    static int32_t rowsOf(const std::string& text, int32_t font) {
        PaTextArea area;
        area.set(Res::addStr(new String(text.c_str())), font, 0xFFFFFFFF, Bounds::kCentre, 0, 0,
                 180, 200);
        area.getTextHeight();
        return area.getNumRows();
    }

    /// True if blanks that do not break join several words, and not only a word and a "?".
    static bool isGlued(const std::string& word) {
        const size_t blank = word.find("\u00a0");
        return blank != std::string::npos &&
               std::isalpha(static_cast<unsigned char>(word[blank + 2])) != 0;
    }

    /// True if the last word of a paragraph has a row of its own.
    static bool hasALonelyWord(const std::string& text, int32_t font) {
        for (size_t start = 0; start < text.size();) {
            const size_t end = std::min(text.find('\n', start), text.size());
            const std::string paragraph = text.substr(start, end - start);
            const size_t space = paragraph.rfind(' ');
            if (space != std::string::npos && !isGlued(paragraph.substr(space)) &&
                rowsOf(paragraph.substr(0, space), font) < rowsOf(paragraph, font)) {
                return true;
            }
            start = end + 1;
        }
        return false;
    }

    TestHost host;
    int32_t firstId = 0;
    int32_t count = 0;
    const StrTexts* rows = nullptr;
    int32_t medium = 0;
    int32_t small = 0;
};

struct English {
    int32_t* id;
    const char* text;
};

// In the order of registration.
const English kEnglish[] = {
    {&Str::str_APP_NAME, "Murmelo"},
    {&Str::str_ROTATE_SCREEN,
     " This application cannot run in landscape mode. Please switch back to portrait "
     "mode."},
    {&Str::str_DLG_TITLE_ERROR, "Error"},
    {&Str::str_DLG_TITLE_HELP, "Help"},
    {&Str::str_DLG_TITLE_INFO, "Info"},
    {&Str::str_DLG_TITLE_LOW_MEM, "Memory low"},
    {&Str::str_DLG_TITLE_NO_MEM_CARD, "No memory card "},
    {&Str::str_ERROR_APPLICATION_WILL_QUIT_TXT, "The application will end."},
    {&Str::str_ERROR_AUDIO_NO_ACCESS_TXT, "Can not get access to the audio device."},
    {&Str::str_ERROR_DEV_NOT_SUPPORTED_TXT, "This device is not supported."},
    {&Str::str_ERROR_FILE_IO_TXT, "An unexpected file read or write error has occured."},
    {&Str::str_ERROR_HEAP_TOO_LOW_TXT,
     "Memory is too low. Try closing any other running applications and restart."},
    {&Str::str_FX_BACKWARDS, "Backwards"},
    {&Str::str_FX_DRUNK, "Drunk"},
    {&Str::str_FX_FAST_TALKER, "Fast talker"},
    {&Str::str_FX_HIGH_PITCH, "High pitch"},
    {&Str::str_FX_INTONATION_FLIP, "Intonation flip"},
    {&Str::str_FX_LOW_PITCH, "Low Pitch"},
    {&Str::str_FX_NO_EFFECT, "No effect"},
    {&Str::str_FX_RAPPER, "Rapper"},
    {&Str::str_FX_ROBOT, "Robot"},
    {&Str::str_HELP_TXT,
     "Select Record to record your voice. Select effect by pressing navigation key "
     "left or right.\n\nStart a new recording from the Options menu."},
    {&Str::str_LBL_CREATED_NUM, "Created:"},
    {&Str::str_LBL_LENGTH_NUM, "Length:"},
    {&Str::str_LBL_LOCATION_NUM, "Location:"},
    {&Str::str_LBL_PLAYING, "Playing"},
    {&Str::str_LBL_RECORDING, "Recording"},
    {&Str::str_LBL_SIZE_NUM, "Size:"},
    {&Str::str_LBL_SOUND_SAVED_AS, "Sound saved as:"},
    {&Str::str_LBL_SOUND_SAVED_MEM_CARD, "Sound saved on memory card."},
    {&Str::str_LBL_SOUND_SAVED_PHONE, "Sound saved on phone memory."},
    {&Str::str_LOW_MEM_TXT,
     "Please free up memory by deleting unnecessary files and closing running "
     "applications."},
    {&Str::str_MI_HELP, "Help"},
    {&Str::str_MI_LANGUAGE, "Language"},
    {&Str::str_MI_SAVE, "Save"},
    {&Str::str_MI_SETTINGS, "Settings"},
    {&Str::str_MI_SETTINGS_SAVE_TO, "Save to"},
    {&Str::str_PLEASE_WAIT, "Please wait"},
    {&Str::str_SETTINGS_MEMORY_CARD, "Memory card"},
    {&Str::str_SETTINGS_PHONE, "Phone memory"},
    {&Str::str_SK_BACK, "Back"},
    {&Str::str_SK_CANCEL, "Cancel"},
    {&Str::str_SK_INFO, "Info"},
    {&Str::str_SK_MENU, "Menu"},
    {&Str::str_SK_NO, "No"},
    {&Str::str_SK_OK, "Ok"},
    {&Str::str_SK_OPTIONS, "Options"},
    {&Str::str_SK_PAUSE, "Pause"},
    {&Str::str_SK_PLAY, "Play"},
    {&Str::str_SK_QUIT, "Quit"},
    {&Str::str_SK_RECORD, "Record"},
    {&Str::str_SK_SELECT, "Select"},
    {&Str::str_SK_STOP, "Stop"},
    {&Str::str_SK_YES, "Yes"},
    {&Str::str_START_RECORDING, "Press Record to start recording your voice."},
    {&Str::str_SILENT_DEVICE,
     "Your device is currently on silent mode. Do you want to use sounds anyway?"},
};

}  // namespace

TEST_F(StrTest, languageNamesComeFirstAndReadTheSameInEveryLanguage) {
    const char* names[] = {"English", "Deutsch", "Español", "Français", "Italiano"};
    ASSERT_EQ(5, length(Str::str_LangNameIds));
    for (int32_t i = 0; i < 5; i++) {
        EXPECT_EQ(firstId + i, Str::str_LangNameIds[i]);
        expectTexts(Str::str_LangNameIds[i], std::vector<std::string>(5, names[i]));
    }
}

TEST_F(StrTest, idsFollowOneAnotherInTheTablesOrder) {
    ASSERT_EQ(std::size(kEnglish), static_cast<size_t>(count));
    for (int32_t i = 0; i < count; i++) {
        EXPECT_EQ(kEnglish[i].id, rows[i].id) << rows[i].name;
        EXPECT_EQ(firstId + 5 + i, *kEnglish[i].id) << rows[i].name;
    }
    EXPECT_EQ(56, count);
}

TEST_F(StrTest, englishTextsAreTheStatedOnes) {
    for (const English& row : kEnglish) {
        EXPECT_EQ(row.text, textIn(0, *row.id));
    }
}

TEST_F(StrTest, everyIdHasFiveTexts) {
    for (int32_t i = 0; i < count; i++) {
        ASSERT_EQ(5, length(Res::getStrArray(*rows[i].id))) << rows[i].name;
        for (int32_t language = 0; language < Res::kLanguages; language++) {
            EXPECT_NE("", textIn(language, *rows[i].id)) << rows[i].name << " " << language;
        }
    }
}

TEST_F(StrTest, namesInTheTableAreThoseOfTheEnglishOrder) {
    for (int32_t i = 3; i < count - 1; i++) {
        // Only the last one, SILENT_DEVICE, is not in alphabetical order.
        EXPECT_LT(std::string(rows[i - 1].name), std::string(rows[i].name));
    }
}

TEST_F(StrTest, telltaleTextsAreTheStatedOnes) {
    expectTexts(Str::str_APP_NAME, {"Murmelo", "Murmelo", "Murmelo", "Murmelo", "Murmelo"});
    expectTexts(Str::str_SK_RECORD, {"Record", "Aufnahme", "Grabar", "Enregistrer", "Registra"});
    expectTexts(Str::str_SK_BACK, {"Back", "Zurück", "Atrás", "Retour", "Indietro"});
    expectTexts(Str::str_SK_QUIT, {"Quit", "Beenden", "Salir", "Quitter", "Esci"});
    expectTexts(Str::str_SK_OK, {"Ok", "OK", "OK", "OK", "OK"});
    expectTexts(Str::str_PLEASE_WAIT,
                {"Please wait", "Bitte warten", "Espera", "Veuillez patienter", "Attendi..."});
    expectTexts(Str::str_FX_NO_EFFECT,
                {"No effect", "Kein Effekt", "Sin efecto", "Aucun effet", "Nessun effetto"});
    expectTexts(Str::str_FX_LOW_PITCH,
                {"Low Pitch", "Ruhig", "Tono grave", "Voix grave", "Tono basso"});
    expectTexts(Str::str_FX_RAPPER, {"Rapper", "Rapper", "Rapero", "Rappeur", "Rapper"});
    expectTexts(Str::str_DLG_TITLE_NO_MEM_CARD,
                {"No memory card ", "Keine Speicherkarte", "No hay tarj. memor.",
                 "Aucune carte mém.", "Nessuna mem. card"});
}

TEST_F(StrTest, theMiddleKeyOfTheLanguageChoiceReadsAsStated) {
    expectTexts(Str::str_SK_SELECT, {"Select", "Wählen", "Seleccion.", "Sélect.", "Seleziona"});
}

TEST_F(StrTest, onlyTheDeliberateBlanksStandAtTheEdgesOfTexts) {
    for (int32_t i = 0; i < count; i++) {
        for (int32_t language = 0; language < Res::kLanguages; language++) {
            const std::string text = textIn(language, *rows[i].id);
            const bool english = language == 0;
            EXPECT_EQ(english && rows[i].id == &Str::str_ROTATE_SCREEN, text.front() == ' ');
            EXPECT_EQ(english && rows[i].id == &Str::str_DLG_TITLE_NO_MEM_CARD, text.back() == ' ');
            EXPECT_EQ(std::string::npos, text.find("  ")) << text;
        }
    }
}

TEST_F(StrTest, helpNamesTheKeysAsTheyAreLabelled) {
    for (int32_t language = 0; language < Res::kLanguages; language++) {
        const std::string help = textIn(language, Str::str_HELP_TXT);
        EXPECT_NE(std::string::npos, help.find(textIn(language, Str::str_SK_RECORD))) << help;
        EXPECT_NE(std::string::npos, help.find(textIn(language, Str::str_SK_OPTIONS))) << help;
        EXPECT_NE(std::string::npos, help.find("\n\n")) << help;
        const std::string start = textIn(language, Str::str_START_RECORDING);
        EXPECT_NE(std::string::npos, start.find(textIn(language, Str::str_SK_RECORD))) << start;
    }
}

TEST_F(StrTest, aStartAndItsEndLeaveNoMemoryTaken) {
    // Enough rounds that lost memory is more than the few freed blocks that the heap keeps and
    // still counts as taken.
    constexpr int32_t kStarts = 1000;
    const auto startAndEnd = [](int32_t times) {
        for (int32_t i = 0; i < times; i++) {
            Str::static_dtor();
            Res::static_dtor();
            Res::static_ctor();
            Str::static_ctor();
        }
    };
    startAndEnd(kStarts);
    const size_t before = mallinfo2().uordblks;
    startAndEnd(kStarts);
    // The smallest array of a start takes 32 bytes. (The sanitizer's heap counts nothing here; it
    // looks for leaks itself.)
    EXPECT_LT(mallinfo2().uordblks, before + kStarts * 16);
}

TEST_F(StrTest, noTwoEffectsAreCalledTheSame) {
    for (int32_t language = 0; language < Res::kLanguages; language++) {
        std::set<std::string> names;
        for (int32_t id = Str::str_FX_BACKWARDS; id <= Str::str_FX_ROBOT; id++) {
            EXPECT_TRUE(names.insert(textIn(language, id)).second) << textIn(language, id);
        }
    }
}

TEST_F(StrTest, everyCharacterOfEveryTextIsInBothFonts) {
    for (const int32_t fontId : {medium, small, Res::FntDef}) {
        BitMapFont* font = Res::getFont(fontId);
        ASSERT_NE(nullptr, font);
        for (int32_t id = firstId; id < firstId + 5 + count; id++) {
            String** texts = Res::getStrArray(id);
            for (int32_t t = 0; t < length(texts); t++) {
                for (int32_t i = 0; i < texts[t]->GetLength(); i++) {
                    EXPECT_TRUE(font->hasCodePoint((*texts[t])[i])) << texts[t]->ToUtf8();
                }
            }
        }
    }
}

TEST_F(StrTest, everyTextFitsItsPlaceInEveryLanguage) {
    std::set<std::string> places;
    for (const StrFit& fit : StrFit::measureAll(medium, small)) {
        places.insert(fit.place);
        EXPECT_GT(fit.usedPx, 0) << fit.name;
        EXPECT_LE(fit.usedPx, fit.limitPx)
            << fit.name << ", " << fit.place << ", language " << fit.language;
    }
    for (const char* place : {"middle soft key", "side soft key", "menu row", "effect name",
                              "message", "last message", "help", "widest word"}) {
        EXPECT_EQ(1U, places.count(place)) << place;
    }
}

TEST_F(StrTest, noLastWordStandsAloneInARow) {
    const std::vector<std::pair<int32_t, int32_t>> shown = {
        {Str::str_HELP_TXT, small},
        {Str::str_START_RECORDING, medium},
        {Str::str_SILENT_DEVICE, medium},
        {Str::str_LBL_SOUND_SAVED_PHONE, medium},
        {Str::str_LBL_SOUND_SAVED_MEM_CARD, medium},
        {Str::str_ERROR_APPLICATION_WILL_QUIT_TXT, small},
        {Str::str_ERROR_AUDIO_NO_ACCESS_TXT, medium},
        {Str::str_ERROR_DEV_NOT_SUPPORTED_TXT, small},
        {Str::str_ERROR_FILE_IO_TXT, small},
        {Str::str_ERROR_HEAP_TOO_LOW_TXT, small},
        {Str::str_LOW_MEM_TXT, small},
    };
    for (int32_t language = 1; language < Res::kLanguages; language++) {  // English is as it is
        for (const auto& [id, font] : shown) {
            const std::string text = textIn(language, id);
            EXPECT_FALSE(hasALonelyWord(text, font)) << text;
        }
    }
}

TEST_F(StrTest, apostrophesAreTypographic) {
    for (int32_t i = 0; i < count; i++) {
        for (int32_t language = 0; language < Res::kLanguages; language++) {
            const std::string text = textIn(language, *rows[i].id);
            EXPECT_EQ(std::string::npos, text.find('\'')) << text;
        }
    }
}

TEST_F(StrTest, measuringKeepsTheLanguage) {
    Res::setCurrLangIndex(3);
    StrFit::measureAll(medium, small);
    EXPECT_EQ(3, Res::getCurrLangIndex());
}

TEST_F(StrTest, theEuropeanEditionIsEmpty) {
    EXPECT_EQ(nullptr, StrEU::str_LangNameIds);
    EXPECT_EQ(0, StrEU::str_APP_NAME);
    EXPECT_EQ(0, StrEU::str_SILENT_DEVICE);
}
