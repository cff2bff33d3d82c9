// SPDX-License-Identifier: MIT
// The host's own row above the picture, and the sheet that can cover the picture: which buttons
// there are, which message is shown, how loud the recording is. Does not draw, and has no clock.
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
    /// The part of the strip that it belongs to.
    enum class Part {
        kMessage,  // the action of the message
        kHeads,
        kKeys,   // the five buttons that are always there
        kSheet,  // what lies over the picture
    };

    Part part = Part::kSheet;
    StripWish wish;     // the wish that a tap on it makes
    std::string name;   // a word in the program's language; UTF-8
    ScreenPlace place;  // in pixels of the strip; on the sheet y is at least 80
    bool isEnabled = true;
    bool isLit = false;  // the current effect, or the microphone in use

    /// True if a tap makes a wish. It does on disabled buttons to save or open too: then the host
    /// tells why it is not possible.
    bool canBeWished() const;

    /// True if it has the same wish and place, and on the sheet the same name: a list may have
    /// changed. Its look may differ.
    bool isSameAs(const StripButton& other) const;

    bool operator==(const StripButton& other) const;
};

class StripModel {
public:
    static constexpr int32_t kWidthPx = 240;
    static constexpr int32_t kHeightPx = 80;
    static constexpr int32_t kSheetHeightPx = 320;
    static constexpr int32_t kEffects = 8;
    static constexpr int32_t kNoMicrophone = -2;

    /// The sheet that covers the picture.
    enum class Sheet { kNone, kMicrophones, kHelp };

    StripModel();

    /// Sets the function that measures texts. Until then every byte counts 7 pixels.
    void setTextWidth(TextRows::Width width);

    /// Closes the sheet if the program shows something by itself: a recording, work on a take, its
    /// last message, a question.
    /// @param currentEffect  0 to 7
    /// @param offersSave  true: there is a take, and it can be saved now
    void setScreen(const ScreenTexts& texts, int32_t currentEffect, bool offersSave);

    /// @param offersOpen  true: a sound file can become the take now
    void setCanOpen(bool offersOpen);

    /// Names of the effects in the program's language, for the heads.
    void setEffectNames(const std::vector<std::string>& names);

    /// @param names    as the sound server shows them
    /// @param current  index in names, or StripWish::kSystemsChoice
    /// @param absent   index of one that is listed but cannot be chosen; kNoMicrophone: none
    void setMicrophones(const std::vector<std::string>& names,
                        int32_t current,
                        int32_t absent = kNoMicrophone);

    /// Sets the name of the microphone that records; empty: not known.
    void setMicrophoneName(const std::string& name);

    /// Sets the level and the time that is left, while a recording goes on.
    /// @param isMute  true: no samples have come for a second
    void setRecording(const LevelMeter::Reading& newest, int32_t secondsLeft, bool isMute);

    /// Sets why nothing is heard in the current recording, in the program's language; empty: not
    /// known. It stands in the line while no message is shown.
    void setWhyUnheard(const std::string& text);

    /// @param isThere  true: an earlier take can be brought back
    void setLastTake(bool isThere);

    /// @param isOffered  true: the host can export sounds, and bring back or forget the last take;
    /// the help then has buttons for that
    void setOffersMore(bool isOffered);

    bool isMoreOffered() const { return offersMore; }

    /// Shows a message in the line for some seconds; if another is shown, after that one has had
    /// its shortest time.
    /// @param text        in the program's language, UTF-8
    /// @param action  the wish that a tap on the word makes; kNone: there is no word
    /// @param actionWord  short
    void tell(std::string text, StripWish action, std::string actionWord, int64_t nowMs);

    /// The path, shortened in its middle if it does not fit into a message, or into a row of the
    /// help. Other texts are returned unchanged.
    std::string pathForMessage(const std::string& path) const;
    std::string pathForHelp(const std::string& path) const;

    /// Opens the list of the microphones that are known.
    void showMicrophones();

    /// Opens the help.
    /// @param text  its paragraphs, in the program's language
    void showHelp(std::vector<std::string> text);

    /// Closes the sheet, so that the user sees the picture.
    void closeSheet();

    /// Handles a tap: closes the sheet or the message if the tap means that, and returns the wish
    /// that the host has to fulfil.
    StripWish tap(int32_t x, int32_t y);

    /// The button that a tap here would choose; one without a wish if there is none.
    StripButton buttonAt(int32_t x, int32_t y) const;

    /// True if a touch here is the strip's, and not the picture's.
    bool covers(int32_t x, int32_t y) const;

    /// The mouse points here: the line shows what a tap would do.
    void point(int32_t x, int32_t y);

    /// Handles a key and returns its wish; kNone if the key means nothing now.
    StripWish key(StripKey key);

    /// Handles a key of the phone while the sheet covers the picture: arrows move the focus, the
    /// middle key chooses, the others do nothing. Returns the wish that the host has to fulfil.
    StripWish navigate(HostKey key);

    /// The button of the sheet that has the focus; one without a wish until a key has moved the
    /// focus.
    StripButton shownFocus() const;

    /// The sheet as texts: its title, its text, its buttons, and which one has the focus.
    ScreenTexts sheetTexts() const;

    /// True if there is a message or a sheet to close.
    bool canClose() const { return openSheet != Sheet::kNone || messages.shown() != nullptr; }

    /// Ends a message whose time is over. True if something changed.
    bool tick(int64_t nowMs);

    /// When to call tick() next; DueTime::kNever if there is no message.
    int64_t dueMs() const { return messages.dueMs(); }

    /// A number that changes whenever the picture of strip or sheet changes.
    uint32_t version() const { return changes; }

    /// All buttons that are shown now, disabled ones too.
    std::vector<StripButton> buttons() const;

    // For the painter.

    /// Rows of text from the top of the strip; none if there is no text. More than one covers the
    /// heads.
    const std::vector<std::string>& lines() const { return shownLines; }

    /// True if the lines are a message or a warning. False if they are only a name.
    bool isTelling() const { return telling; }

    /// Word, place and wish of the message's action; without a wish if there is none. Another
    /// microphone is not offered while none can be chosen.
    StripButton action() const;

    bool showsHeads() const;
    bool showsLevel() const;

    const LevelMeter::Reading& level() const { return reading; }

    /// Seconds that are left of a recording; -1 if there is none.
    int32_t secondsLeft() const { return showsLevel() ? seconds : -1; }

    Sheet sheet() const { return openSheet; }

    std::string sheetTitle() const;

    /// The help's paragraphs in rows that fit; an empty row lies between two paragraphs.
    const std::vector<std::string>& sheetRows() const { return rows; }

    /// Name of the program's screen; empty before the first one.
    const std::string& screenName() const { return screen; }

    /// Code of the program's language ("de").
    const std::string& language() const { return code; }

private:
    static constexpr int32_t kNoFocus = -1;  // no key has moved the focus

    template <typename T>
    void assign(T& field, const T& value) {
        if (!(field == value)) {
            field = value;
            lookAgain();
        }
    }

    void lookAgain();

    bool isRecordingScreen() const;
    bool canChooseMicrophone() const;
    bool hasAction() const;
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
    std::string code;    // of the program's language ("de")
    std::string screen;  // name of the program's screen
    bool questioned = false;
    int32_t effect = 0;
    bool canSave = false;
    bool canOpen = false;
    bool hasLastTake = false;
    bool offersMore = false;
    std::vector<std::string> effectNames;
    std::vector<std::string> microphones;
    int32_t microphone = StripWish::kSystemsChoice;
    int32_t absentMicrophone = kNoMicrophone;
    std::string microphoneName;

    LevelMeter::Reading reading;
    int32_t seconds = 0;
    bool mute = false;
    std::string whyUnheard;

    StripMessages messages;
    std::string hint;  // text for the button under the mouse; empty: none
    std::vector<std::string> shownLines;
    bool telling = false;

    Sheet openSheet = Sheet::kNone;
    int32_t firstChoice = 0;   // first row that the list shows
    int32_t focus = kNoFocus;  // index among the buttons of the sheet that can be chosen
    std::vector<std::string> paragraphs;
    std::vector<std::string> rows;

    uint32_t changes = 1;
};
