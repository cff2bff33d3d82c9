// SPDX-License-Identifier: MIT
// A fatal message says what went wrong in every language, and only "Ok" ends the program.
#include "AppImage.h"
#include "Bounds.h"
#include "G.h"
#include "GameInterface.h"
#include "ImageOps.h"
#include "Message.h"
#include "MessageAndQuit.h"
#include "Orm.h"
#include "OrmCanvas.h"
#include "PaStretcher.h"
#include "PaTextArea.h"
#include "Res.h"
#include "ScreensTest.h"
#include "SkBar.h"
#include "State.h"
#include "Str.h"

namespace {

constexpr const char* kEnd = "The application will end.";

class MessageAndQuitTest : public ScreensTest {
protected:
    MessageAndQuitTest() { State::setState(G::statePlay, true, true); }

    /// Heading and body of a kind.
    static Names texts(int32_t kind) {
        const MessageAndQuit message(kind);
        return {text(message.heading), text(message.body)};
    }
};

}  // namespace

TEST_F(MessageAndQuitTest, everyKindHasItsTexts) {
    EXPECT_EQ((Names{"Memory low", std::string("Memory is too low. Try closing any other running "
                                               "applications and restart.\n") +
                                       kEnd}),
              texts(1));
    EXPECT_EQ(
        (Names{"Memory low", std::string("Please free up memory by deleting unnecessary files and "
                                         "closing running applications.\n") +
                                 kEnd}),
        texts(2));
    EXPECT_EQ(
        (Names{"-", std::string("An unexpected file read or write error has occured.\n") + kEnd}),
        texts(3));
    EXPECT_EQ((Names{"-", std::string("This device is not supported.\n") + kEnd}), texts(4));
    EXPECT_EQ((Names{"No memory card ", kEnd}), texts(5));
    EXPECT_EQ((Names{"Can not get access to the audio device.", kEnd}), texts(6));
    for (const int32_t other : {0, 7, -1}) {
        EXPECT_EQ((Names{"-", "Error"}), texts(other));
    }
}

TEST_F(MessageAndQuitTest, textsAreThoseOfTheCurrentLanguage) {
    Res::setCurrLangIndex(1);
    EXPECT_EQ("Keine Speicherkarte", texts(5)[0]);
    const std::string body = texts(3)[1];
    EXPECT_EQ(text(Str::str_ERROR_FILE_IO_TXT) + "\n" +
                  text(Str::str_ERROR_APPLICATION_WILL_QUIT_TXT),
              body);
    EXPECT_NE(std::string::npos, body.find('\n'));
}

TEST_F(MessageAndQuitTest, theJoinedBodyIsANewTextOfTheRegistry) {
    const int32_t before = Res::nextId;
    const MessageAndQuit joined(2);
    EXPECT_EQ(before, joined.body);
    EXPECT_EQ(before + 1, Res::nextId);
    const MessageAndQuit plain(6);
    EXPECT_EQ(Str::str_ERROR_APPLICATION_WILL_QUIT_TXT, plain.body);
    EXPECT_EQ(before + 1, Res::nextId);
}

TEST_F(MessageAndQuitTest, headingAndBodyStandInTheirFontsOverTheDarkenedScreen) {
    G::scr->set(0xFF80C0FF);
    AppImage expected(G::scr);
    ImageOps::blend(&expected, 0x80000000, 0, 0, 240, 288, G::scrB, nullptr);
    MessageAndQuit::enter(2);
    EXPECT_EQ("MessageAndQuit", screen());
    EXPECT_EQ((Names{"-", "Ok", "-"}), labels());
    EXPECT_EQ(Str::str_DLG_TITLE_LOW_MEM, Message::paTxt->getText());
    EXPECT_EQ(G::fntMedium, Message::paTxt->getFont());
    EXPECT_EQ(G::fntSmall, Message::paTxt2->getFont());
    EXPECT_EQ(Pixels(240 * 10, expected.get(0, 0)), picture(0, 0, 240, 10));
    EXPECT_NE(0xFF80C0FFU, expected.get(0, 287));
    EXPECT_EQ(expected.get(0, 287), G::scr->get(0, 287));
}

TEST_F(MessageAndQuitTest, withoutAHeadingTheBodyStandsAloneInTheSmallFont) {
    MessageAndQuit::enter(4);
    EXPECT_EQ(G::fntSmall, Message::paTxt->getFont());
    EXPECT_EQ(static_cast<MessageAndQuit*>(State::currState)->body, Message::paTxt->getText());
    EXPECT_EQ(Res::Null, Message::paTxt2->getText());
}

TEST_F(MessageAndQuitTest, everyKindFitsTheScreenInEveryLanguage) {
    for (int32_t lang = 0; lang < 5; lang++) {
        Res::setCurrLangIndex(lang);
        for (int32_t kind = 1; kind <= 7; kind++) {
            MessageAndQuit::enter(kind);
            Bounds box;
            G::psWndBg->getBounds(&box);
            EXPECT_GE(box.y, 0) << lang << kind;
            EXPECT_LE(box.y + box.h, SkBar::y1) << lang << kind;
            Bounds head;
            Message::paTxt->getBounds(&head);
            EXPECT_TRUE(Bounds::contains(&box, &head)) << lang << kind;
            if (Message::paTxt2->getText() != Res::Null) {
                Bounds body;
                Message::paTxt2->getBounds(&body);
                EXPECT_TRUE(Bounds::contains(&box, &body)) << lang << kind;
            }
        }
    }
}

TEST_F(MessageAndQuitTest, onlyOkEndsTheProgram) {
    MessageAndQuit::enter(3);
    for (const int32_t code : {-1, -2, -3, -4, -6, -7}) {
        key(code);
    }
    touch(kLeft);
    touch(kRight);
    touch(120, 150);
    deliver(Orm::EV_T_SYS_PAUSE);
    deliver(Orm::EV_T_SYS_RESUME);
    deliver(Orm::EV_T_SYS_DISPOSE);
    EXPECT_TRUE(GameInterface::Active);
    EXPECT_FALSE(Orm::isDisposed);
    touch(kMiddle);
    EXPECT_FALSE(GameInterface::Active);
    EXPECT_TRUE(Orm::isDisposed);
}

TEST_F(MessageAndQuitTest, theMiddleKeyEndsTheProgramToo) {
    MessageAndQuit::enter(99);
    key(OrmCanvas::kKeyMiddle);
    EXPECT_FALSE(GameInterface::Active);
}

TEST_F(MessageAndQuitTest, keysAndFramesOfTheScreenBeforeAreForgotten) {
    Orm::schedEvent(Orm::EV_T_KEY_PRESS, Orm::EV_ST_KEY_MSK, nullptr, 0);
    Orm::schedEvent(Orm::EV_T_UPDATE, nullptr, nullptr, 0);
    MessageAndQuit::enter(3);
    EXPECT_TRUE(pending().empty());
}

TEST_F(MessageAndQuitTest, hearsTheSevenNamesOfEveryScreen) {
    MessageAndQuit::enter(3);
    EXPECT_EQ(G::eventTypesAllStd,
              static_cast<MessageAndQuit*>(State::currState)->getSubscriptions());
}
