// SPDX-License-Identifier: MIT
// The page's sounds have their names and lines, and unusable files are refused.
#include "WavHeader.h"
#include "WebSounds.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

constexpr const char* kPath = "/home/Murmelo/rec_00003.wav";

}  // namespace

TEST(WebSounds, leaveThePageUnderANameWithTheirEffect) {
    EXPECT_EQ("murmelo-robot-00003.wav", WebSounds::fileName(kPath, "robot"));
    EXPECT_EQ("murmelo-00003.wav", WebSounds::fileName(kPath, nullptr));
    EXPECT_EQ("murmelo-none.wav", WebSounds::fileName(WebSounds::kTakePath, "none"));
}

TEST(WebSounds, areListedWithEffectAndLengthInTheProgramsLanguage) {
    EXPECT_EQ("name.wav (Robot, 1.5 s)",
              WebSounds::line(kPath, "name.wav", "Robot", WavHeader::kBytes + 24000, "en"));
    EXPECT_EQ("name.wav (Roboter, 1,5 s)",
              WebSounds::line(kPath, "name.wav", "Roboter", WavHeader::kBytes + 24000, "de"));
    EXPECT_EQ("name.wav (0.0 s)", WebSounds::line(kPath, "name.wav", "", WavHeader::kBytes, "en"));
    EXPECT_EQ("name.wav (20.0 s)",
              WebSounds::line(kPath, "name.wav", "", WavHeader::kBytes + 319999, "en"));
}

TEST(WebSounds, listTheTakeByItsWordAndItsTwoBytesAtSixteenKilohertz) {
    EXPECT_EQ("Last recording (1.5 s)", WebSounds::line(WebSounds::kTakePath, "name.wav", "Robot",
                                                        WavHeader::kBytes + 48000, "en"));
    EXPECT_EQ("Letzte Aufnahme (20,0 s)", WebSounds::line(WebSounds::kTakePath, "name.wav", "",
                                                          WavHeader::kBytes + 640000, "de"));
}

TEST(WebSounds, refuseWhatWouldNotFitIntoTheMemoryOfAPhone) {
    EXPECT_STREQ("", WebSounds::refusal(1000, 20));
    EXPECT_STREQ("", WebSounds::refusal(64 << 20, 300));
    EXPECT_STREQ("fileTooLarge", WebSounds::refusal((64 << 20) + 1, 20));
    EXPECT_STREQ("fileTooLong", WebSounds::refusal(1000, 300.1));
}

TEST(WebSounds, refuseALargeFileWhoseLengthTheBrowserCannotTell) {
    for (const double unknown : {std::nan(""), HUGE_VAL}) {
        EXPECT_STREQ("", WebSounds::refusal(1 << 20, unknown));
        EXPECT_STREQ("fileTooLong", WebSounds::refusal((1 << 20) + 1, unknown));
    }
}
