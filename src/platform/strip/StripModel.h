// SPDX-License-Identifier: MIT
// The host's own row above the picture, and the sheet that it can lay over the picture: what can be
// done, what is said, how loud it is, in which language. Knows neither drawing nor a clock.
//
// Positions are pixels of the program: the strip has 240 x 80 of them. The sheet (the list of
// microphones, the help) lies over the 240 x 320 picture below it, from y 80 on.
#pragma once

#include "LevelMeter.h"
#include "ScreenTexts.h"
#include "StripMessages.h"
#include "StripWish.h"
#include "TextRows.h"

#include <cstdint>
#include <string>
#include <vector>

enum class HostKey;

/// Something that can be tapped.
struct StripButton {
    /// Where it belongs to.
    enum class Part {
        kMessage,  // the action of the message
        kHeads,
        kKeys,   // the five buttons that are always there
        kSheet,  // what lies over the picture
    };

    Part part = Part::kSheet;
    StripWish wish;     // what a tap on it means
    std::string name;   // a word in the program's language; UTF-8
    ScreenPlace place;  // in the strip; on the sheet y is 80 and more
    bool isEnabled = true;
    bool isLit = false;  // the current effect, or the microphone in use

    /// True if a tap is a wish all the same: the host says why nothing can be saved or opened.
    bool canBeWished() const;

    /// True if it means the same and stands at the same place, however it looks now.
    bool isSameAs(const StripButton& other) const;

    bool operator==(const StripButton& other) const;
};

class StripModel {
public:
    static constexpr int32_t kWidthPx = 240;
    static constexpr int32_t kHeightPx = 80;
    static constexpr int32_t kSheetHeightPx = 320;
    static constexpr int32_t kEffects = 8;

    /// What lies over the picture.
    enum class Sheet { kNone, kMicrophones, kHelp };

    StripModel();

    /// How wide texts are; until then every byte counts 7 pixels.
    void setTextWidth(TextRows::Width width);

    /// @param currentEffect  0 to 7
    /// @param offersSave     there is a take, and now it can be saved
    void setScreen(const ScreenTexts& texts, int32_t currentEffect, bool offersSave);

    /// @param offersOpen  a sound file can become the take now
    void setCanOpen(bool offersOpen);

    /// Names of the effects in the program's language, for the heads.
    void setEffectNames(const std::vector<std::string>& names);

    /// @param names    as the sound server shows them
    /// @param current  place in names; StripWish::kSystemsChoice
    void setMicrophones(const std::vector<std::string>& names, int32_t current);

    /// Of the microphone that records; empty: not known.
    void setMicrophoneName(const std::string& name);

    /// While a recording goes on.
    /// @param isMute  no samples have come for a second
    void setRecording(const LevelMeter::Reading& newest, int32_t secondsLeft, bool isMute);

    /// A take of an earlier run or screen can be brought back.
    void setLastTake(bool isThere);

    /// The host exports sounds, and brings back and forgets the last take: the help has buttons for
    /// that.
    void setOffersMore(bool isOffered);

    bool isMoreOffered() const { return offersMore; }

    /// A message in the line, for some seconds; one that has just come is shown for a moment before
    /// the next takes its place.
    /// @param text        in the program's language, UTF-8
    /// @param action      what a tap on the word does; kNone: there is no word
    /// @param actionWord  short
    void tell(std::string text, StripWish action, std::string actionWord, int64_t nowMs);

    /// A path that fits beside the words of a message, or on the help: too long ones lose their
    /// middle. Anything else stays as it is.
    std::string pathForMessage(const std::string& path) const;
    std::string pathForHelp(const std::string& path) const;

    /// Opens the list of the microphones that are known.
    void showMicrophones();

    /// Opens the help.
    /// @param text  its paragraphs, in the program's language
    void showHelp(std::vector<std::string> text);

    /// A tap. Closes what is to be closed by it and returns what the host has to do.
    StripWish tap(int32_t x, int32_t y);

    /// The button that a tap here would choose; without a wish: none.
    StripButton buttonAt(int32_t x, int32_t y) const;

    /// True if a touch here is the strip's, and not the picture's.
    bool covers(int32_t x, int32_t y) const;

    /// The mouse points here: the line tells the name of what a tap would do.
    void point(int32_t x, int32_t y);

    /// A key; kNone if the strip has no use for it now.
    StripWish key(StripKey key);

    /// A key of the phone while the sheet lies over its picture: arrows move the focus, the middle
    /// key chooses, the others do nothing. Returns what the host has to do.
    StripWish navigate(HostKey key);

    /// The button of the sheet that has the focus, once a key has moved it; without a wish: none.
    StripButton shownFocus() const;

    /// What the sheet says in words: its title, its text, its buttons and the focus among them.
    ScreenTexts sheetTexts() const;

    /// True if a message or the sheet is there to be closed.
    bool canClose() const { return openSheet != Sheet::kNone || messages.shown() != nullptr; }

    /// Messages end. True if something changed.
    bool tick(int64_t nowMs);

    /// When tick() has something to do; -1 never.
    int64_t dueMs() const { return messages.dueMs(); }

    /// Changes whenever the picture of strip or sheet would.
    uint32_t version() const { return changes; }

    /// All that can be tapped now, disabled buttons too: places, names, and what is lit.
    std::vector<StripButton> buttons() const;

    // What the painter asks.

    /// Rows of text from the top of the strip; more than one covers the heads. Empty ones are left
    /// out.
    const std::vector<std::string>& lines() const { return shownLines; }

    /// True if the lines are a message or a warning and not only a name.
    bool isTelling() const { return telling; }

    /// Word and place of the message's action; no word: there is none.
    StripButton action() const;

    bool showsHeads() const;
    bool showsLevel() const;

    const LevelMeter::Reading& level() const { return reading; }

    /// Of the recording; -1 if none goes on.
    int32_t secondsLeft() const { return showsLevel() ? seconds : -1; }

    Sheet sheet() const { return openSheet; }

    std::string sheetTitle() const;

    /// The help's paragraphs in rows that fit; an empty row lies between two paragraphs.
    const std::vector<std::string>& sheetRows() const { return rows; }

    /// Code of the program's language ("de").
    /// Of the program; empty before there is one.
    const std::string& screenName() const { return screen; }

    const std::string& language() const { return code; }

private:
    static constexpr int32_t kNoFocus = -1;  // no key has moved it

    template <typename T>
    void assign(T& field, const T& value) {
        if (!(field == value)) {
            field = value;
            lookAgain();
        }
    }

    void lookAgain();

    bool isRecordingScreen() const;
    StripWish chosen(const StripButton& button);
    std::string lineWithoutMessage() const;
    int32_t firstLinePx() const;

    std::string word(const char* row) const;

    void addHeads(std::vector<StripButton>& all) const;
    void addKeys(std::vector<StripButton>& all) const;
    void addSheet(std::vector<StripButton>& all) const;
    std::vector<StripButton> sheetButtons() const;
    int32_t focusAmong(const std::vector<StripButton>& all) const;
    void addChoices(std::vector<StripButton>& all) const;
    void addMore(std::vector<StripButton>& all) const;
    const char* hintOf(const StripWish& wish) const;

    TextRows::Width widthOf;
    std::string code;    // of the language
    std::string screen;  // its name
    bool questioned = false;
    int32_t effect = 0;
    bool canSave = false;
    bool canOpen = false;
    bool hasLastTake = false;
    bool offersMore = false;
    std::vector<std::string> effectNames;
    std::vector<std::string> microphones;
    int32_t microphone = StripWish::kSystemsChoice;
    std::string microphoneName;

    LevelMeter::Reading reading;
    int32_t seconds = 0;
    bool mute = false;

    StripMessages messages;
    std::string hint;  // of what the mouse points at
    std::vector<std::string> shownLines;
    bool telling = false;

    Sheet openSheet = Sheet::kNone;
    int32_t firstChoice = 0;   // of the list
    int32_t focus = kNoFocus;  // among the buttons of the sheet that can be chosen
    std::vector<std::string> paragraphs;
    std::vector<std::string> rows;

    uint32_t changes = 1;
};
