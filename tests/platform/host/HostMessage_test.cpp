// SPDX-License-Identifier: MIT
// Parts and numbers of a message are put where each language wants them.
#include "HostMessage.h"
#include "HostWords.h"
#include "Languages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace {

size_t count(const std::string& text, const std::string& what) {
    size_t found = 0;
    for (size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) {
        found++;
    }
    return found;
}

}  // namespace

TEST(HostMessage, theProgramsOwnReasonsAreTranslatedAndNothingElse) {
    EXPECT_EQ("a.pdf ist keine Tondatei: Ihr Format ist unbekannt",
              (HostMessage{"notASound", {"a.pdf", "its format is unknown"}}.text("de")));
    EXPECT_EQ("Save is no sound file: Device busy",
              (HostMessage{"notASound", {"Save", "Device busy"}}.text("en")));
    EXPECT_EQ("Save ist keine Tondatei: Device busy",
              (HostMessage{"notASound", {"Save", "Device busy"}}.text("de")));
}

TEST(HostMessage, reasonsOfTheSystemAreInTheLanguageOfTheProgram) {
    for (const int error : {EACCES, ENOENT, ENOSPC, EDQUOT, EFBIG, EIO, EROFS, EBUSY, ENAMETOOLONG,
                            ECONNREFUSED, ENOTDIR, EISDIR, EMFILE, ENOMEM}) {
        const HostMessage other{"notASound", {"a.wav", std::strerror(error)}};
        EXPECT_NE(std::string::npos, other.text("en").find(std::strerror(error)));
        for (const char* language : {"de", "es", "fr", "it"}) {
            EXPECT_EQ(std::string::npos, other.text(language).find(std::strerror(error)))
                << language << ": " << other.text(language);
        }
    }
    EXPECT_EQ("a.wav ist keine Tondatei: Der Datenträger ist voll",
              (HostMessage{"notASound", {"a.wav", std::strerror(ENOSPC)}}.text("de")));
}

TEST(HostMessage, partsStandWhereTheLanguageWantsThem) {
    const HostMessage message{"notASound", {"a.txt", "it is a letter"}};
    EXPECT_EQ("a.txt is no sound file: it is a letter", message.text("en"));
    EXPECT_EQ("a.txt ist keine Tondatei: it is a letter", message.text("de"));
}

TEST(HostMessage, aPartIsNotLookedIntoForParts) {
    const HostMessage message{"notASound", {"{2}.wav", "{1}"}};
    EXPECT_EQ("{2}.wav is no sound file: {1}", message.text("en"));
}

TEST(HostMessage, numbersAreWrittenAsTheLanguageWritesThem) {
    HostMessage message{"diskFull", {}};
    message.tenths = {64, 90};
    EXPECT_EQ("Disk full: 6.4 of 9 seconds kept.", message.text("en"));
    EXPECT_EQ("Speicher voll: 6,4 von 9 Sekunden bleiben erhalten.", message.text("de"));
    EXPECT_EQ("Disco lleno: se conservan 6,4 de 9 segundos.", message.text("es"));
    EXPECT_EQ("Disque plein\u00A0: 6,4 secondes conservées sur 9.", message.text("fr"));
    EXPECT_EQ("Disco pieno: conservati 6,4 secondi su 9.", message.text("it"));
    EXPECT_EQ("0.1", HostMessage::number(1, "en"));
    EXPECT_EQ("0", HostMessage::number(0, "de"));
    EXPECT_EQ("21,3", HostMessage::number(213, "de"));
}

TEST(HostMessage, withoutPartsTheWordsStayAsTheyAre) {
    EXPECT_EQ("There is nothing to save yet. Record something first.",
              (HostMessage{"nothingToSave", {}}.text("en")));
    EXPECT_EQ("{1} holds no sound.", (HostMessage{"emptySound", {}}.text("en")));
    EXPECT_EQ("", (HostMessage{"no such row", {"a"}}.text("en")));
}

TEST(HostMessage, everyLanguageNamesTheSameParts) {
    for (const HostWords::Row& row : HostWords::rows()) {
        for (const char* part : {"{1}", "{2}", "{3}", "{a}", "{b}", "{c}"}) {
            const size_t first = count(row.texts[0], part);
            EXPECT_GE(1U, first) << row.name;
            EXPECT_TRUE(std::all_of(row.texts.begin(), row.texts.end(), [&](const char* text) {
                return count(text, part) == first;
            })) << row.name;
        }
    }
}
