// SPDX-License-Identifier: MIT
// The start registers every picture, font, effect and screen, and keeps folder and language.
#include "AppImage.h"
#include "ArrFunc.h"
#include "BitMapFont.h"
#include "Bounds.h"
#include "FileInputStream.h"
#include "FileOps.h"
#include "Fx.h"
#include "FxCatalogue.h"
#include "G.h"
#include "GEngine.h"
#include "Menu.h"
#include "MIDlet.h"
#include "Orm.h"
#include "OspBase.h"
#include "PaImage.h"
#include "PaStretcher.h"
#include "Res.h"
#include "ScreensTest.h"
#include "State.h"

#include <algorithm>
#include <cctype>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

using Osp::Base::String;

namespace {

class GTest : public ScreensTest {
protected:
    static Names namesOf(String** types) {
        Names names;
        for (int32_t i = 0; i < length(types); i++) {
            names.push_back(types[i]->ToUtf8());
        }
        return names;
    }

    static void expectPlaced(PaImage* painter, int32_t x, int32_t y, int32_t w, int32_t h) {
        EXPECT_EQ(x, painter->getX());
        EXPECT_EQ(y, painter->getY());
        EXPECT_EQ(w, painter->getWidth());
        EXPECT_EQ(h, painter->getHeight());
    }

    static std::vector<uint32_t> pixelsOf(const AppImage& image) {
        return {image.pixels.get(), image.pixels + length(image.pixels)};
    }

    static std::vector<uint32_t> premultipliedFile(const std::string& name) {
        String path(name.c_str());
        const std::unique_ptr<InputStream> in(MIDlet::getResourceAsStream(&path));
        const std::unique_ptr<AppImage> image(Orm::loadImage(in.get()));
        image->premult();
        return pixelsOf(*image);
    }
};

}  // namespace

TEST_F(GTest, beginsWithTheFirstEffectNonePlayedAndNoFolder) {
    EXPECT_EQ(nullptr, G::uriWavFolder);
    EXPECT_EQ(nullptr, G::uriPartWavRecorded);
    EXPECT_EQ(nullptr, G::uriPartWavProcessed);
    EXPECT_EQ(nullptr, G::getMrmFolderUri());
    EXPECT_EQ(0, G::getCurrFx());
    EXPECT_EQ(-1, G::getLastPlayedFx());
    EXPECT_EQ(nullptr, G::stateProcess);
    EXPECT_EQ(nullptr, State::currState);
}

TEST_F(GTest, subscriptionsAreTheSharedNameObjectsInTheirOrder) {
    const Names seven = {"SysPause",   "SysResume",      "SysDispose", "KeyPress",
                         "KeyRelease", "PointerRelease", "Update"};
    EXPECT_EQ(seven, namesOf(G::eventTypesAllStd));
    EXPECT_EQ(Orm::EV_T_SYS_PAUSE, G::eventTypesAllStd[0]);
    EXPECT_EQ(Orm::EV_T_UPDATE, G::eventTypesAllStd[6]);
    Names recording = seven;
    recording.emplace_back("TimeOut");
    EXPECT_EQ(recording, namesOf(G::eventTypesRecording));
    EXPECT_EQ(G::EV_T_TIME_OUT, G::eventTypesRecording[7]);
    Names playing = seven;
    playing.emplace_back("EndOfMedia");
    EXPECT_EQ(playing, namesOf(G::eventTypesPlaying));
    EXPECT_EQ(G::EV_T_END_OF_MEDIA, G::eventTypesPlaying[7]);
}

TEST_F(GTest, theScreenIsTheCanvassPicture) {
    EXPECT_EQ(Orm::getScreen(), G::scr);
    EXPECT_EQ(0, G::scrB->x);
    EXPECT_EQ(0, G::scrB->y);
    EXPECT_EQ(240, G::scrB->w);
    EXPECT_EQ(320, G::scrB->h);
}

TEST_F(GTest, picturesStandWhereTheirNamesSay) {
    expectPlaced(G::piBg, 0, 0, 240, 320);
    expectPlaced(G::piMicLedFlash, 0, 192, 83, 86);
    expectPlaced(G::piMicOverlay, 13, 151, 49, 42);
    expectPlaced(G::piWheelsOverlay, 175, 179, 57, 14);
    expectPlaced(G::piButtonsPlay, 154, 212, 35, 23);
    expectPlaced(G::piButtonsRec, 155, 213, 51, 27);
    expectPlaced(G::piButtonsStop, 195, 226, 29, 21);
    for (PaImage* wheels :
         {G::piWheels15, G::piWheels30, G::piWheels45, G::piWheels60, G::piWheels75}) {
        expectPlaced(wheels, 176, 179, 64, 32);
    }
    for (PaImage* arrow : {G::piArrowLeftWhite, G::piArrowRightWhite, G::piArrowRightBlack}) {
        EXPECT_GT(arrow->getWidth(), 0);
        EXPECT_GT(arrow->getHeight(), 0);
    }
}

TEST_F(GTest, everyPictureIsTheFileOfItsName) {
    const std::vector<std::pair<PaImage*, std::string>> named = {
        {G::piBg, "background_0_0_240_320"},
        {G::piMicLedFlash, "mic_led_0_192_83_86"},
        {G::piMicOverlay, "mic_overlay_13_151_49_42"},
        {G::piWheelsOverlay, "wheels_overlay_175_179_57_14"},
        {G::piButtonsPlay, "play_154_212_35_23"},
        {G::piButtonsRec, "record_155_213_51_27"},
        {G::piButtonsStop, "stop_195_226_29_21"},
        {G::piArrowLeftWhite, "arrow_left_white"},
        {G::piArrowRightWhite, "arrow_right_white"},
        {G::piArrowRightBlack, "arrow_right_black"},
        {G::piWheels15, "wheels_15_176_179_64_32"},
        {G::piWheels30, "wheels_30_176_179_64_32"},
        {G::piWheels45, "wheels_45_176_179_64_32"},
        {G::piWheels60, "wheels_60_176_179_64_32"},
        {G::piWheels75, "wheels_75_176_179_64_32"},
    };
    std::set<std::vector<uint32_t>> different;
    for (const auto& [picture, file] : named) {
        const std::vector<uint32_t> pixels = pixelsOf(*Res::getImage(picture->getImage()));
        EXPECT_EQ(premultipliedFile("/Res/" + file + ".png"), pixels) << file;
        EXPECT_EQ(picture == G::piBg, Res::getImage(picture->getImage())->opaque) << file;
        different.insert(pixels);
    }
    EXPECT_EQ(named.size(), different.size());
}

TEST_F(GTest, framesAreSplitWhereTheirNamesSay) {
    EXPECT_EQ(5, G::psFocusBar->getStretchColumn());
    EXPECT_EQ(5, G::psFocusBar->getStretchRow());
    EXPECT_EQ(0, G::psSkBg->getStretchColumn());
    EXPECT_EQ(15, G::psSkBg->getStretchRow());
    EXPECT_EQ(16, G::psWndBg->getStretchColumn());
    EXPECT_EQ(16, G::psWndBg->getStretchRow());
}

TEST_F(GTest, fontsAreRegisteredOneAfterTheOtherAndHaveGlyphs) {
    EXPECT_EQ(G::fntMedium + 1, G::fntSmall);
    for (const int32_t font : {G::fntMedium, G::fntSmall}) {
        ASSERT_TRUE(Res::isFont(font));
        EXPECT_TRUE(Res::getFont(font)->hasCodePoint('A'));
        EXPECT_TRUE(Res::getFont(font)->hasCodePoint(0xE9));
    }
    EXPECT_EQ(G::fntMedium, Menu::fntId);
}

TEST_F(GTest, hasEightEffects) {
    EXPECT_EQ(FxCatalogue::kCount, length(G::fxs));
    EXPECT_EQ(8, length(G::fxs));
}

TEST_F(GTest, everyEffectHasItsNameAndItsPicture) {
    ASSERT_EQ(FxCatalogue::kCount, length(G::fxs));
    Res::setCurrLangIndex(0);
    for (int32_t i = 0; i < FxCatalogue::kCount; i++) {
        ASSERT_NE(nullptr, Res::getStr(G::fxs[i]->name)) << i;
        std::string name = Res::getStr(G::fxs[i]->name)->ToUtf8();
        std::transform(name.begin(), name.end(), name.begin(), [](unsigned char letter) {
            return static_cast<char>(std::tolower(letter));
        });
        EXPECT_EQ(FxCatalogue::at(i).shownName, name);
        EXPECT_GT(G::fxs[i]->image->getWidth(), 0) << name;
    }
}

TEST_F(GTest, everyScreenExistsFromTheStart) {
    for (const State* state : {G::stateSplash, G::stateFirstLang, G::stateOptions, G::stateRecord,
                               G::stateRecording, G::statePlay, G::statePlaying, G::stateSave}) {
        EXPECT_NE(nullptr, state);
    }
    EXPECT_NE(nullptr, G::fxMicPostProc);
}

TEST_F(GTest, nothingIsLeftAtTheEnd) {
    makeSoundFolder();
    end();
    EXPECT_EQ(nullptr, G::fxs);
    EXPECT_EQ(nullptr, G::piBg);
    EXPECT_EQ(nullptr, G::psWndBg);
    EXPECT_EQ(nullptr, G::stateSplash);
    EXPECT_EQ(nullptr, G::fxMicPostProc);
    EXPECT_EQ(nullptr, G::uriWavFolder);
    EXPECT_EQ(nullptr, G::getMrmFolderUri());
    EXPECT_EQ(nullptr, G::eventTypesAllStd);
    EXPECT_EQ(nullptr, State::currState);
}

TEST_F(GTest, namesTheFolderAndTheTwoTemporaryFiles) {
    G::setDirTones();
    EXPECT_EQ("/Home/Murmelo/", G::uriWavFolder->ToUtf8());
    EXPECT_EQ("MrmLastRec.wav", G::uriPartWavRecorded->ToUtf8());
    EXPECT_EQ("MrmLastProc.wav", G::uriPartWavProcessed->ToUtf8());
    EXPECT_EQ(nullptr, G::getMrmFolderUri());
}

TEST_F(GTest, theFolderIsCopiedAndTheCopyBeforeStaysWhole) {
    String first("/Home/Murmelo/");
    G::setMrmFolderUri(&first);
    const std::unique_ptr<String> kept(G::getMrmFolderUri());
    EXPECT_NE(&first, kept.get());
    first = String("/changed/");
    EXPECT_EQ("/Home/Murmelo/", G::getMrmFolderUri()->ToUtf8());
    String second("/Home/Other/");
    G::setMrmFolderUri(&second);
    EXPECT_EQ("/Home/Other/", G::getMrmFolderUri()->ToUtf8());
    EXPECT_EQ("/Home/Murmelo/", kept->ToUtf8());
}

TEST_F(GTest, aFolderBelowTheCardsRootIsOnTheCard) {
    String folder = *FileOps::URI_MEM_CARD_ROOT + String("Murmelo/");
    G::setMrmFolderUri(&folder);
    EXPECT_TRUE(G::usesMemCard());
    String home = String("/Home") + *FileOps::URI_MEM_CARD_ROOT;
    G::setMrmFolderUri(&home);
    EXPECT_FALSE(G::usesMemCard());
}

TEST_F(GTest, deletesTheTemporaryFilesInTheUsersFolder) {
    makeSoundFolder();
    putTake({1});
    folders.write(kResult, "x");
    folders.write("home/Murmelo/rec_00000.wav", "x");
    G::deleteRecordedAndProcessed();
    EXPECT_FALSE(hasTake());
    EXPECT_FALSE(hasResult());
    EXPECT_TRUE(folders.has("home/Murmelo/rec_00000.wav"));
    G::deleteRecordedAndProcessed();
}

TEST_F(GTest, deletesNothingBeforeTheFolderIsKnown) {
    G::setDirTones();
    putTake({1});
    G::deleteRecordedAndProcessed();
    EXPECT_TRUE(hasTake());
}

TEST_F(GTest, noLanguageIsSavedAtFirst) {
    EXPECT_EQ(-1, G::getSavedLang());
}

TEST_F(GTest, aSavedLanguageIsAddedAndThenChanged) {
    for (const int32_t lang : {2, 4, 0}) {
        Res::setCurrLangIndex(lang);
        G::saveCurrentLang();
        EXPECT_EQ(lang, G::getSavedLang());
        EXPECT_NE(std::string::npos,
                  folders.read("config/settings").find("lang=" + std::to_string(lang)));
    }
}

TEST_F(GTest, aSavedLanguageIsThereInTheNextRun) {
    Res::setCurrLangIndex(3);
    G::saveCurrentLang();
    Osp::App::AppRegistry later;
    later.Open(folders.path("config"));
    GEngine::pAppRegistry = &later;
    EXPECT_EQ(3, G::getSavedLang());
    GEngine::pAppRegistry = &registry;
}

TEST_F(GTest, aSavedTextThatIsNoLanguageCountsAsNone) {
    for (const char* value : {"5", "-2", "English", "999999999999"}) {
        Osp::App::AppRegistry other;
        other.Open("");
        other.Add("lang", value);
        GEngine::pAppRegistry = &other;
        EXPECT_EQ(-1, G::getSavedLang()) << value;
        GEngine::pAppRegistry = &registry;
    }
}
