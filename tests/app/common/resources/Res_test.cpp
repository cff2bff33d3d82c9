// SPDX-License-Identifier: MIT
// The registry gives each resource a number, and returns it for that number only.
#include "ArrFunc.h"
#include "Res.h"
#include "ResNull.h"
#include "ResObject.h"
#include "TestRegistry.h"

namespace {

using ResTest = TestRegistry;
using Osp::Base::String;

String** newTexts(const std::vector<const char*>& utf8) {
    auto** texts = newArray<String*>(static_cast<int32_t>(utf8.size()));
    for (size_t i = 0; i < utf8.size(); i++) {
        texts[i] = new String(utf8[i]);
    }
    return texts;
}

std::string textOf(int32_t id) {
    const String* text = Res::getStr(id);
    return text == nullptr ? "null" : text->ToUtf8();
}

}  // namespace

TEST_F(ResTest, beginsWithItsBuiltInEntriesInTheirOrder) {
    EXPECT_EQ(0, Res::Null);
    EXPECT_EQ(1, Res::FntDef);
    const int32_t ids[] = {Res::Str_Ok,      Res::Str_Cancel, Res::Str_Continue, Res::Str_Abort,
                           Res::Str_Back,    Res::Str_Select, Res::Str_Yes,      Res::Str_No,
                           Res::Str_Options, Res::Str_More};
    const char* texts[] = {"Ok",     "Cancel", "Continue", "Abort",   "Back",
                           "Select", "Yes",    "No",       "Options", "More"};
    for (int32_t i = 0; i < 10; i++) {
        EXPECT_EQ(2 + i, ids[i]);
        EXPECT_EQ(texts[i], textOf(ids[i]));
    }
    EXPECT_EQ(12, Res::nextId);
}

TEST_F(ResTest, builtInWordsReadTheSameInEveryLanguage) {
    for (int32_t language = 0; language < Res::kLanguages; language++) {
        Res::setCurrLangIndex(language);
        EXPECT_EQ("Back", textOf(Res::Str_Back)) << language;
    }
}

TEST_F(ResTest, theHundredthResourceGrowsTheRegistryAndKeepsEveryId) {
    while (Res::nextId < 99) {
        const int32_t id = Res::addStr(std::to_string(Res::nextId).c_str());
        EXPECT_EQ(Res::nextId - 1, id);
    }
    EXPECT_EQ(100, length(Res::resources));
    EXPECT_EQ(99, Res::addStr("99"));
    EXPECT_EQ(120, length(Res::resources));
    for (int32_t id = 12; id < 100; id++) {
        EXPECT_EQ(std::to_string(id), textOf(id));
    }
    EXPECT_EQ("More", textOf(Res::Str_More));
}

TEST_F(ResTest, growsAgainJustBeforeItIsFull) {
    while (Res::nextId < 119) {
        Res::addStr("x");
    }
    EXPECT_EQ(120, length(Res::resources));
    Res::addStr("y");
    EXPECT_EQ(140, length(Res::resources));
    EXPECT_EQ("y", textOf(119));
}

TEST_F(ResTest, unknownIdsHaveNothing) {
    for (const int32_t id : {-1, Res::nextId, 99, 100, 1000000}) {
        EXPECT_EQ(nullptr, Res::getRes(id));
        EXPECT_EQ(nullptr, Res::getStr(id));
        EXPECT_EQ(nullptr, Res::getStrArray(id));
        EXPECT_EQ(nullptr, Res::getImage(id));
        EXPECT_EQ(nullptr, Res::getFont(id));
        EXPECT_EQ(nullptr, Res::getList(id));
        EXPECT_EQ(-1, Res::getType(id));
        Res::free(id);
    }
}

TEST_F(ResTest, afterItsEndThereIsNothingButNoCrash) {
    const int32_t id = Res::addStr("x");
    Res::static_dtor();
    EXPECT_EQ(nullptr, Res::getStr(id));
    EXPECT_EQ(nullptr, Res::getImage(Res::Null));
    Res::freeAll();
    Res::static_ctor();
}

TEST_F(ResTest, fiveTextsFollowTheLanguage) {
    const int32_t id = Res::addStr(newTexts({"a", "b", "c", "d", "e"}));
    EXPECT_EQ("a", textOf(id));
    for (int32_t language = 0; language < Res::kLanguages; language++) {
        Res::setCurrLangIndex(language);
        EXPECT_EQ(language, Res::getCurrLangIndex());
        EXPECT_EQ(std::string(1, static_cast<char>('a' + language)), textOf(id));
    }
}

TEST_F(ResTest, aLanguageThatIsNoneHasOnlyNeutralTexts) {
    const int32_t five = Res::addStr(newTexts({"a", "b", "c", "d", "e"}));
    const int32_t one = Res::addStr("one");
    for (const int32_t language : {-1, 5, INT32_MAX}) {
        Res::setCurrLangIndex(language);
        EXPECT_EQ("null", textOf(five));
        EXPECT_EQ("one", textOf(one));
    }
}

TEST_F(ResTest, languageNamesAreNeutralTextsOfTheirOwn) {
    String** names = newTexts({"x", "y", "z"});
    int32_t* ids = Res::addLanguageNames(names);
    deleteArrFunc(names);
    ASSERT_EQ(3, length(ids));
    Res::setCurrLangIndex(2);
    EXPECT_EQ("x", textOf(ids[0]));
    EXPECT_EQ("y", textOf(ids[1]));
    EXPECT_EQ("z", textOf(ids[2]));
    EXPECT_EQ(ids[0] + 2, ids[2]);
    deleteArrFunc(ids);
}

TEST_F(ResTest, bytesBecomeATextUpToTheirEndOrFirstZero) {
    auto* bytes = newArray<signed char>(5);
    std::copy_n("ab\xC3\xA9x", 5, bytes);
    EXPECT_EQ("ab\xC3\xA9x", textOf(Res::addStr(bytes)));
    bytes[2] = 0;
    EXPECT_EQ("ab", textOf(Res::addStr(bytes)));
    deleteArrFunc(bytes);
}

TEST_F(ResTest, nothingHasNothingToGive) {
    ResNull nothing;
    EXPECT_EQ(nullptr, nothing.get());
}

TEST_F(ResTest, kindsAreToldApart) {
    Bounds object;
    const int32_t text = Res::addStr("x");
    const int32_t image = Res::addImage(2, 2);
    const int32_t font = Res::addFont("/Res/none.bmf");
    const int32_t wrapped = Res::addRes(&object);
    const std::vector<int32_t> ids = {Res::Null, text, image, font, wrapped};
    for (size_t type = 0; type < ids.size(); type++) {
        EXPECT_EQ(static_cast<int32_t>(type), Res::getType(ids[type]));
        EXPECT_EQ(type == 1, Res::isString(ids[type]));
        EXPECT_EQ(type == 2, Res::isImage(ids[type]));
        EXPECT_EQ(type == 3, Res::isFont(ids[type]));
        EXPECT_EQ(type == 4, Res::isObject(ids[type]));
    }
}

TEST_F(ResTest, resourcesOfAnotherKindAreNotWhatTheyAreTakenFor) {
    Bounds object;
    const int32_t wrapped = Res::addRes(&object);
    const int32_t image = Res::addImage(2, 2);
    EXPECT_EQ(nullptr, Res::getStr(image));
    EXPECT_EQ(nullptr, Res::getStr(wrapped));
    EXPECT_EQ(nullptr, Res::getImage(wrapped));
    EXPECT_EQ(nullptr, Res::getFont(image));
    EXPECT_EQ(nullptr, Res::getStr(Res::Null));
}

TEST_F(ResTest, wrappedObjectsComeBackAndStayTheirMakers) {
    auto object = std::make_unique<Bounds>(1, 2, 3, 4);
    const int32_t id = Res::addRes(object.get());
    EXPECT_EQ(static_cast<GnoObject*>(object.get()), Res::getList(id));
    Res::freeAll();
    EXPECT_EQ(static_cast<GnoObject*>(object.get()), Res::getList(id));
}

TEST_F(ResTest, replacedTextsKeepTheirId) {
    const int32_t id = Res::addStr("old");
    Res::replaceStr(id, new String("new"));
    EXPECT_EQ("new", textOf(id));
    Res::replaceStr(id, newTexts({"a", "b", "c", "d", "e"}));
    Res::setCurrLangIndex(3);
    EXPECT_EQ("d", textOf(id));
    Res::replaceStr(id, new String("neutral"));
    EXPECT_EQ("neutral", textOf(id));
    EXPECT_EQ(1, length(Res::getStrArray(id)));
}

TEST_F(ResTest, replacingWhatIsNoTextChangesNothing) {
    const int32_t image = Res::addImage(2, 2);
    Res::replaceStr(image, new String("x"));
    Res::replaceStr(image, newTexts({"a", "b"}));
    Res::replaceStr(1000, new String("x"));
    EXPECT_TRUE(Res::isImage(image));
}

TEST_F(ResTest, textsSurviveFreeAll) {
    const int32_t id = Res::addStr("kept");
    Res::freeAll();
    EXPECT_EQ("kept", textOf(id));
}

TEST_F(ResTest, fontsAreReadOnFirstUseAndAgainAfterFree) {
    const int32_t id = Res::addFont("/Res/blocks.bmf");
    EXPECT_EQ(nullptr, Res::getFont(id));  // there is no file yet
    writeFont("blocks.bmf");
    BitMapFont* font = Res::getFont(id);
    ASSERT_NE(nullptr, font);
    EXPECT_EQ(12, font->getLineHeight());
    folders.remove("Res/blocks.bmf");
    EXPECT_EQ(font, Res::getFont(id));
    Res::free(id);
    EXPECT_EQ(nullptr, Res::getFont(id));
}

TEST_F(ResTest, theFrameworksFontIsAFileOfTheFramework) {
    EXPECT_EQ(nullptr, Res::getFont(Res::FntDef));
    writeFont("blocks.bmf");
    folders.write("framework/image/font/default.bmf", folders.read("Res/blocks.bmf"));
    ASSERT_NE(nullptr, Res::getFont(Res::FntDef));
    EXPECT_EQ(12, Res::getFont(Res::FntDef)->getLineHeight());
}
