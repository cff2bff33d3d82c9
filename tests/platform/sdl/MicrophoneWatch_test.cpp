// SPDX-License-Identifier: MIT
// The user is told once when the microphone is gone, and once when it is back.
#include "MicrophoneWatch.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace {

class MicrophoneWatchTest : public testing::Test {
protected:
    /// The messages since the last call.
    std::string told() { return std::exchange(words, ""); }

    std::string words;
    MicrophoneWatch watch{[this](const HostMessage& message) { words += message.text("en"); }};
};

}  // namespace

TEST_F(MicrophoneWatchTest, goneAndBackIsToldOnceEach) {
    watch.isThere("Headset");
    watch.listed({"Built-in", "Headset"});
    EXPECT_EQ("", told());
    watch.listed({"Built-in"});
    EXPECT_EQ("“Headset” is gone.", told());
    watch.listed({"Built-in", "Webcam"});
    EXPECT_EQ("", told());
    watch.listed({"Built-in", "Webcam", "Headset"});
    EXPECT_EQ("“Headset” is back.", told());
    watch.listed({"Headset"});
    EXPECT_EQ("", told());
}

TEST_F(MicrophoneWatchTest, whatARecordingLostIsBackAsWell) {
    watch.isThere("Headset");
    watch.isGone("Headset");
    watch.listed({});
    EXPECT_EQ("", told());
    watch.listed({"Headset"});
    EXPECT_EQ("“Headset” is back.", told());
}

TEST_F(MicrophoneWatchTest, theListOfAServerThatHasEndedBringsNothingBack) {
    watch.isThere("Headset");
    watch.isGone("Headset");
    watch.listed({"Headset"});
    watch.listedWhileRecording({"Headset"});
    EXPECT_EQ("", told());
    watch.isThere("Headset");
    EXPECT_EQ("“Headset” is back.", told());
}

TEST_F(MicrophoneWatchTest, theNextRecordingFindsItBack) {
    watch.isGone("Headset");
    watch.isThere("Headset");
    EXPECT_EQ("“Headset” is back.", told());
    watch.isThere("Headset");
    EXPECT_EQ("", told());
}

TEST_F(MicrophoneWatchTest, aRecordingTellsByItselfWhatItLoses) {
    watch.isThere("Headset");
    watch.listedWhileRecording({});
    EXPECT_EQ("", told());
    watch.isGone("Headset");
    watch.listedWhileRecording({});
    watch.listedWhileRecording({"Headset"});
    EXPECT_EQ("“Headset” is back.", told());
}

TEST_F(MicrophoneWatchTest, onlyTheNewestIsWatched) {
    watch.isThere("Headset");
    watch.isThere("Webcam");
    watch.listed({"Webcam"});
    EXPECT_EQ("", told());
    watch.isGone("Webcam");
    watch.isThere("Headset");  // another one is not back
    EXPECT_EQ("", told());
}

TEST_F(MicrophoneWatchTest, withoutANameNothingIsTold) {
    watch.listed({""});
    watch.isThere("");
    watch.isGone("");
    watch.listed({});
    watch.isThere("Headset");
    watch.forget();
    watch.listed({});
    EXPECT_EQ("", told());
}
