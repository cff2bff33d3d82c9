// SPDX-License-Identifier: MIT
// Scripts are read into commands, and a mistake is reported with its line.
#include "Script.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

const std::vector<std::string> kScreens = {"Options", "Play", "Save"};

std::string mistakeIn(const std::string& text) {
    std::vector<ScriptCommand> commands;
    return Script::parse(text, kScreens, commands).sentence();
}

}  // namespace

TEST(Script, readsCommandsAndPassesOverCommentsAndEmptyLines) {
    std::vector<ScriptCommand> commands;
    EXPECT_EQ("", Script::parse("# start\n\n  tap 10 -20 # here\nuntil Options\nuntil Play 500\n",
                                kScreens, commands));
    ASSERT_EQ(3U, commands.size());
    EXPECT_STREQ("tap", commands[0].verb->name);
    EXPECT_EQ(3, commands[0].line);
    EXPECT_EQ((std::vector<int64_t>{10, -20}), commands[0].numbers);
    EXPECT_EQ("Options", commands[1].text);
    EXPECT_TRUE(commands[1].numbers.empty());
    EXPECT_EQ((std::vector<int64_t>{500}), commands[2].numbers);
}

TEST(Script, tellsLongerNamesFromShorterOnes) {
    std::vector<ScriptCommand> commands;
    EXPECT_EQ("", Script::parse("expect no file a.wav\nexpect file b.wav\nexpect ended", kScreens,
                                commands));
    EXPECT_STREQ("expect no file", commands[0].verb->name);
    EXPECT_STREQ("expect file", commands[1].verb->name);
    EXPECT_STREQ("expect ended", commands[2].verb->name);
}

TEST(Script, namesTheLineOfAMistake) {
    EXPECT_EQ("line 2: there is no command \"jump\"", mistakeIn("wait 5\njump\n"));
    EXPECT_EQ("line 1: \"x\" is not a number", mistakeIn("wait x"));
    EXPECT_EQ("line 1: \"12a\" is not a number", mistakeIn("tap 12a 3"));
    EXPECT_EQ("line 1: \"99999999999\" is not a number", mistakeIn("wait 99999999999"));
    EXPECT_EQ("line 1: \"tap\" needs X Y", mistakeIn("tap 5"));
    EXPECT_EQ("line 1: \"6\" is too much", mistakeIn("wait 5 6"));
    EXPECT_EQ("line 1: \"swipe\" needs left or right", mistakeIn("swipe up"));
    EXPECT_EQ("line 1: \"lose\" needs microphone or speaker", mistakeIn("lose voice"));
    EXPECT_EQ("line 1: the calls of an operation count from 1", mistakeIn("fail File.Write 0"));
    EXPECT_EQ("line 1: a time must be at least 0", mistakeIn("wait -5"));
    for (const char* line : {"shot a.gif", "shot-canvas png", "watch Play a.png.txt"}) {
        EXPECT_EQ("line 1: the name of a picture must end in .png", mistakeIn(line));
    }
}

TEST(Script, theMistakeOfAWrongWordNamesTheChoices) {
    EXPECT_EQ("line 1: \"key\" needs left, middle or right", mistakeIn("key up"));
    for (const char* line : {"expect", "expect nothing", "expect no screen"}) {
        EXPECT_EQ("line 1: \"expect\" needs screen, file, no file, effect or ended",
                  mistakeIn(line));
    }
    for (const char* line : {"until Nowhere", "watch Nowhere a.png", "expect screen Nowhere"}) {
        EXPECT_EQ("line 1: there is no screen \"Nowhere\", only Options, Play or Save",
                  mistakeIn(line));
    }
    const std::string noOperation = mistakeIn("fail File.Nonsense 3");
    EXPECT_EQ(0U, noOperation.find("line 1: there is no operation \"File.Nonsense\", only "
                                   "AppRegistry.Write, AudioIn.AddBuffer, "));
    EXPECT_NE(std::string::npos, noOperation.find("File.Write, "));
    EXPECT_NE(std::string::npos, noOperation.find(" or SettingInfo.GetValue"));
}

TEST(Script, theFormOfACommandShowsItsArguments) {
    std::vector<std::string> forms;
    for (const ScriptVerb& verb : ScriptVerb::all()) {
        forms.push_back(verb.form());
    }
    for (const char* form : {"save", "tap X Y", "swipe left|right", "until SCREEN [MS]",
                             "fail OPERATION N", "expect no file NAME"}) {
        EXPECT_EQ(1, std::count(forms.begin(), forms.end(), form)) << form;
    }
}

TEST(Script, everyVerbIsReadByItsNameAlone) {
    for (const ScriptVerb& verb : ScriptVerb::all()) {
        EXPECT_EQ(std::string::npos, mistakeIn(verb.name).find("there is no command")) << verb.name;
    }
}
