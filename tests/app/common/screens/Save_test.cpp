// SPDX-License-Identifier: MIT
// A result is saved under a new number, and no failure loses a saved sound.
#include "AppImage.h"
#include "Bounds.h"
#include "G.h"
#include "Header.h"
#include "Main.h"
#include "Message.h"
#include "Orm.h"
#include "OrmCanvas.h"
#include "OspBase.h"
#include "PaTextArea.h"
#include "Save.h"
#include "ScreensTest.h"
#include "State.h"
#include "Str.h"
#include "TestSounds.h"

namespace {

class SaveTest : public ScreensTest {
protected:
    SaveTest() {
        makeSoundFolder();
        putTake({10, 10, 20, 20, 30, 30, 40, 40});
        State::setState(G::stateOptions, true, true);
    }

    void haveResult() {
        folders.write(kResult, TestSounds::wav({1, 2, 3}, 8000));
        G::setLastPlayedFx(G::getCurrFx());
    }

    std::string saved(const std::string& name) const {
        return folders.read("home/Murmelo/" + name);
    }
};

}  // namespace

TEST_F(SaveTest, copiesTheResultToTheFirstNumberAndSaysWhere) {
    haveResult();
    enter(G::stateSave);
    EXPECT_EQ("Save", screen());
    EXPECT_EQ(TestSounds::wav({1, 2, 3}, 8000), saved("rec_00000.wav"));
    EXPECT_EQ((Names{"-", "Ok", "-"}), labels());
    EXPECT_EQ(Str::str_LBL_SOUND_SAVED_PHONE, Message::paTxt->getText());
    EXPECT_EQ(G::fntMedium, Message::paTxt->getFont());
    EXPECT_EQ(Save::uriStrId, Message::paTxt2->getText());
    EXPECT_EQ(G::fntSmall, Message::paTxt2->getFont());
    EXPECT_EQ("/Home/Murmelo/rec_00000.wav", text(Save::uriStrId));
    EXPECT_FALSE(Header::fxName);
    EXPECT_TRUE(hasResult());
}

TEST_F(SaveTest, theMessageHasAnEmptyHeaderAlsoAfterTheChoiceOfTheEffect) {
    for (const bool fresh : {true, false}) {
        haveResult();
        G::setLastPlayedFx(fresh ? G::getCurrFx() : -1);
        enter(G::statePlay);
        ASSERT_TRUE(Header::arrows && Header::fxName);
        enter(G::stateSave);
        ASSERT_EQ("Save", screen());
        const Pixels shown = picture(0, 0, 240, Header::bounds->h);
        Main::paintBgAndFx();
        EXPECT_TRUE(shown == picture(0, 0, 240, Header::bounds->h)) << fresh;
    }
}

TEST_F(SaveTest, thePathStaysInOneRow) {
    folders.write("home/Murmelo/rec_88887.wav", "an earlier sound");
    haveResult();
    enter(G::stateSave);
    EXPECT_EQ("/Home/Murmelo/rec_88888.wav", text(Save::uriStrId));
    EXPECT_EQ(1, Message::paTxt2->getNumRows());
}

TEST_F(SaveTest, theTextIsEmptyBeforeTheFirstSave) {
    EXPECT_EQ("", text(Save::uriStrId));
    const auto* save = static_cast<Save*>(G::stateSave);
    EXPECT_EQ(nullptr, save->getSavedName());
    EXPECT_EQ(0, save->getSavedCount());
}

TEST_F(SaveTest, savingTwiceGivesTwoNumbersAndProcessesNothing) {
    haveResult();
    folders.remove(kTake);
    enter(G::stateSave);
    touch(kMiddle);
    EXPECT_EQ("Options", screen());
    enter(G::stateSave);
    EXPECT_EQ("/Home/Murmelo/rec_00001.wav", text(Save::uriStrId));
    EXPECT_EQ(saved("rec_00000.wav"), saved("rec_00001.wav"));
    EXPECT_EQ(2, static_cast<Save*>(G::stateSave)->getSavedCount());
    EXPECT_EQ("rec_00001.wav", static_cast<Save*>(G::stateSave)->getSavedName()->ToUtf8());
}

TEST_F(SaveTest, aStaleResultIsMadeAgainFirst) {
    haveResult();
    G::setCurrFx(2);
    enter(G::stateSave);
    EXPECT_EQ("Save", screen());
    EXPECT_EQ(2, G::getLastPlayedFx());
    EXPECT_EQ(TestSounds::wav({40, 30, 20, 10}, 8000), saved("rec_00000.wav"));
    EXPECT_FALSE(folders.has("home/Murmelo/rec_00001.wav"));
}

TEST_F(SaveTest, theWorkOnAStaleResultHasAnEmptyHeader) {
    haveResult();
    G::setLastPlayedFx(-1);
    enter(G::statePlay);
    State::setState(G::stateSave, true, true);
    ASSERT_EQ("Process", screen());
    EXPECT_FALSE(Header::arrows);
    EXPECT_FALSE(Header::fxName);
}

TEST_F(SaveTest, withoutAResultOneIsMadeFirst) {
    enter(G::stateSave);
    EXPECT_EQ("Save", screen());
    EXPECT_EQ(0, G::getLastPlayedFx());
    EXPECT_TRUE(hasResult());
    EXPECT_FALSE(saved("rec_00000.wav").empty());
}

TEST_F(SaveTest, aPauseWhileAStaleResultIsMadeLeadsToTheMenu) {
    State::setState(G::stateSave, true, true);
    ASSERT_EQ("Process", screen());
    Orm::canvas->run();
    Orm::setPaused(true);
    EXPECT_EQ("Options", screen());
    EXPECT_FALSE(folders.has("home/Murmelo/rec_00000.wav"));
}

TEST_F(SaveTest, withoutATakeAStaleResultIsFatal) {
    folders.remove(kTake);
    enter(G::stateSave);
    EXPECT_EQ(kFileError, fatalBody());
}

TEST_F(SaveTest, aResultThatIsGoneIsFatal) {
    haveResult();
    folders.remove(kResult);
    enter(G::stateSave);
    EXPECT_EQ(kFileError, fatalBody());
    EXPECT_FALSE(folders.has("home/Murmelo/rec_00000.wav"));
    EXPECT_EQ(0, static_cast<Save*>(G::stateSave)->getSavedCount());
}

TEST_F(SaveTest, aCopyThatFailsIsFatalAndLeavesNoFile) {
    haveResult();
    host.failNth("File.Copy", 1);
    enter(G::stateSave);
    EXPECT_EQ(kFileError, fatalBody());
    EXPECT_FALSE(folders.has("home/Murmelo/rec_00000.wav"));
}

TEST_F(SaveTest, aFolderThatCannotBeListedIsFatal) {
    haveResult();
    host.failNth("Directory.Read", 1);
    enter(G::stateSave);
    EXPECT_EQ(kFileError, fatalBody());
}

TEST_F(SaveTest, theLastNumberIsUsedAgainAndAgainAndWhatHadItIsMovedAside) {
    folders.write("home/Murmelo/rec_99999.wav", "old");
    haveResult();
    enter(G::stateSave);
    EXPECT_EQ(TestSounds::wav({1, 2, 3}, 8000), saved("rec_99999.wav"));
    EXPECT_EQ("old", saved("rec_99999.wav.aside-1"));
    folders.write(kResult, TestSounds::wav({4}, 8000));
    enter(G::stateSave);
    EXPECT_EQ(TestSounds::wav({4}, 8000), saved("rec_99999.wav"));
    EXPECT_EQ("old", saved("rec_99999.wav.aside-1"));
    EXPECT_EQ(TestSounds::wav({1, 2, 3}, 8000), saved("rec_99999.wav.aside-2"));
    EXPECT_EQ("/Home/Murmelo/rec_99999.wav", text(Save::uriStrId));
}

TEST_F(SaveTest, aCopyToTheLastNumberIsTriedOnce) {
    folders.write("home/Murmelo/rec_99999.wav", "old");
    haveResult();
    int32_t tries = 0;
    host.onCall("File.Copy", [this, &tries] {
        tries++;
        host.failNth("File.Copy", 1);
    });
    enter(G::stateSave);
    EXPECT_EQ(kFileError, fatalBody());
    EXPECT_EQ(1, tries);
    EXPECT_EQ("old", saved("rec_99999.wav"));
    EXPECT_FALSE(folders.has("home/Murmelo/rec_99999.wav.aside-1"));
}

TEST_F(SaveTest, aCopyThatFailsForItselfIsNotTriedUnderAnotherName) {
    haveResult();
    int32_t tries = 0;
    host.onCall("File.Copy", [this, &tries] {
        tries++;
        folders.write("home/Murmelo/rec_00000.wav", "foreign");
        host.failNth("File.Copy", 1);
    });
    enter(G::stateSave);
    EXPECT_EQ(kFileError, fatalBody());
    EXPECT_EQ(1, tries);
    EXPECT_EQ("foreign", saved("rec_00000.wav"));
    EXPECT_FALSE(folders.has("home/Murmelo/rec_00001.wav"));
}

TEST_F(SaveTest, aSoundWhoseNameMayBeLostIsNotCalledSaved) {
    haveResult();
    host.failNth("File.SyncFolder", 1);
    enter(G::stateSave);
    EXPECT_EQ(kFileError, fatalBody());
    EXPECT_EQ(TestSounds::wav({1, 2, 3}, 8000), saved("rec_00000.wav"));
    EXPECT_EQ(0, static_cast<Save*>(G::stateSave)->getSavedCount());
}

TEST_F(SaveTest, theHighestNumberCounts) {
    folders.write("home/Murmelo/rec_00007.wav", "x");
    folders.write("home/Murmelo/rec_00012.wav", "x");
    folders.write("home/Murmelo/rec_0099x.wav", "x");
    haveResult();
    enter(G::stateSave);
    EXPECT_EQ("/Home/Murmelo/rec_00013.wav", text(Save::uriStrId));
}

TEST_F(SaveTest, aNameThatIsTakenBetweenItsChoiceAndTheCopyIsLeftAlone) {
    haveResult();
    host.onCall("File.Copy", [this] { folders.write("home/Murmelo/rec_00000.wav", "foreign"); });
    enter(G::stateSave);
    EXPECT_EQ("Save", screen());
    EXPECT_EQ("foreign", saved("rec_00000.wav"));
    EXPECT_EQ(TestSounds::wav({1, 2, 3}, 8000), saved("rec_00001.wav"));
    EXPECT_EQ("/Home/Murmelo/rec_00001.wav", text(Save::uriStrId));
    EXPECT_EQ(1, static_cast<Save*>(G::stateSave)->getSavedCount());
}

TEST_F(SaveTest, namesThatAreTakenAgainAndAgainEndInAMessage) {
    haveResult();
    int32_t taken = 0;
    host.onCall("File.Copy", [this, &taken] {
        const std::string number = std::to_string(taken++);
        folders.write("home/Murmelo/rec_" + std::string(5 - number.size(), '0') + number + ".wav",
                      "foreign");
    });
    enter(G::stateSave);
    EXPECT_EQ(kFileError, fatalBody());
    EXPECT_EQ(10, taken);
    EXPECT_EQ("foreign", saved("rec_00000.wav"));
    EXPECT_EQ("foreign", saved("rec_00009.wav"));
    EXPECT_EQ(0, static_cast<Save*>(G::stateSave)->getSavedCount());
}

TEST_F(SaveTest, keysPressedMeanwhileAreForgotten) {
    haveResult();
    Orm::schedEvent(Orm::EV_T_KEY_PRESS, Orm::EV_ST_KEY_MSK, nullptr, 0);
    Orm::schedEvent(Orm::EV_T_KEY_RELEASE, Orm::EV_ST_KEY_MSK, nullptr, 0);
    State::setState(G::stateSave, false, false);
    EXPECT_TRUE(pending().empty());
}

TEST_F(SaveTest, onlyOkLeadsOn) {
    haveResult();
    enter(G::stateSave);
    for (const int32_t code : {-1, -2, -3, -4, -6, -7}) {
        key(code);
    }
    touch(kLeft);
    touch(kRight);
    deliver(Orm::EV_T_SYS_PAUSE);
    deliver(Orm::EV_T_SYS_RESUME);
    deliver(Orm::EV_T_SYS_DISPOSE);
    EXPECT_EQ("Save", screen());
    key(OrmCanvas::kKeyMiddle);
    EXPECT_EQ("Options", screen());
    EXPECT_EQ("Back", labels()[2]);
}

TEST_F(SaveTest, hearsTheSevenNamesOfEveryScreen) {
    EXPECT_EQ(G::eventTypesAllStd, G::stateSave->getSubscriptions());
}
