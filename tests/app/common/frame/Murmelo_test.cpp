// SPDX-License-Identifier: MIT
// The application starts with the saved language, loads and saves sounds, and cleans up at its end.
#include "AppImage.h"
#include "ArrFunc.h"
#include "G.h"
#include "MessageAndQuit.h"
#include "Murmelo.h"
#include "OspBase.h"
#include "OspGraphics.h"
#include "Res.h"
#include "ScreensTest.h"
#include "State.h"
#include "TestSounds.h"
#include "WavHeader.h"

using Osp::Base::String;

namespace {

class MurmeloTest : public ScreensTest {
protected:
    MurmeloTest() { makeSoundFolder(); }

    using Samples = std::vector<int32_t>;

    /// The samples as a vector; the array is freed.
    static Samples taken(int32_t* samples) {
        Samples result(samples, samples + length(samples));
        deleteArrFunc(samples);
        return result;
    }

    Samples load(const std::string& wav) const {
        folders.write("home/Murmelo/a.wav", wav);
        String path("/Home/Murmelo/a.wav");
        int32_t* samples = Murmelo::loadWavTo8Khz(path);
        EXPECT_NE(nullptr, samples);
        return taken(samples);
    }

    int32_t* loadOrNull(const std::string& wav) const {
        folders.write("home/Murmelo/a.wav", wav);
        String path("/Home/Murmelo/a.wav");
        return Murmelo::loadWavTo8Khz(path);
    }

    static bool save(const Samples& samples) {
        auto* array = newArray<int32_t>(static_cast<int32_t>(samples.size()));
        std::copy(samples.begin(), samples.end(), array);
        String path("/Home/Murmelo/b.wav");
        const bool saved = Murmelo::save8KhzWav(array, &path);
        deleteArrFunc(array);
        return saved;
    }

    std::string saved() const { return folders.read("home/Murmelo/b.wav"); }
};

}  // namespace

TEST_F(MurmeloTest, hasItsBuffersAndTheFirstRunsColour) {
    EXPECT_EQ(WavHeader::kBytes, length(Murmelo::TempHdrBuf));
    EXPECT_EQ(20480, length(Murmelo::TempSmpBuf));
    EXPECT_TRUE(Murmelo::msg->IsEmpty());
    EXPECT_EQ(0xFF202020U, Murmelo::pBkgColor->GetRGB32());
    EXPECT_TRUE(Murmelo::checkEnoughSpace());
    EXPECT_TRUE(Murmelo::checkMemCardRemoved());
}

TEST_F(MurmeloTest, theFirstRunAsksForTheLanguageOnAnEmptyScreen) {
    Murmelo::setBkgColor(0xFF123456);
    G::scr->set(0xFF00FF00);
    midlet->onInit();
    EXPECT_EQ("FirstLang", screen());
    EXPECT_EQ(0xFF202020U, Murmelo::pBkgColor->GetRGB32());
    EXPECT_EQ(0xFF202020U, G::scr->get(0, 0));
}

TEST_F(MurmeloTest, aLaterRunGoesOnInTheSavedLanguageWithADarkerBorder) {
    registry.Add("lang", "2");
    midlet->onInit();
    EXPECT_EQ("Splash", screen());
    EXPECT_EQ(2, Res::getCurrLangIndex());
    EXPECT_EQ(0xFF101010U, Murmelo::pBkgColor->GetRGB32());
}

TEST_F(MurmeloTest, everySavedLanguageIsTaken) {
    registry.Add("lang", "0");
    for (const char* lang : {"0", "1", "2", "3", "4"}) {
        registry.Set("lang", lang);
        midlet->onInit();
        EXPECT_EQ("Splash", screen());
        EXPECT_EQ(lang, std::to_string(Res::getCurrLangIndex()));
    }
}

TEST_F(MurmeloTest, shuttingDownDeletesTheTemporaryFilesOnly) {
    putTake({1});
    folders.write(kResult, "x");
    folders.write("home/Murmelo/rec_00000.wav", "x");
    midlet->onShutDown();
    EXPECT_FALSE(hasTake());
    EXPECT_FALSE(hasResult());
    EXPECT_TRUE(folders.has("home/Murmelo/rec_00000.wav"));
}

TEST_F(MurmeloTest, loadsEightThousandHertzAsTheyAre) {
    EXPECT_EQ((Samples{1, -2, 32767, -32768}), load(TestSounds::wav({1, -2, 32767, -32768}, 8000)));
}

TEST_F(MurmeloTest, halvesSixteenThousandHertzByMeansRoundedDown) {
    EXPECT_EQ((Samples{-1, 3}), load(TestSounds::wav({-1, 0, 3, 4, 99}, 16000)));
}

TEST_F(MurmeloTest, readsALongSoundThroughItsSmallBuffer) {
    const TestSounds::Samples noise = TestSounds::noise(25001);
    EXPECT_EQ(Samples(noise.begin(), noise.end()), load(TestSounds::wav(noise, 8000)));
    Samples means;
    for (size_t i = 0; i + 1 < noise.size(); i += 2) {
        const int32_t sum = noise[i] + noise[i + 1];
        means.push_back(sum >= 0 ? sum / 2 : -((1 - sum) / 2));
    }
    EXPECT_EQ(means, load(TestSounds::wav(noise, 16000)));
}

TEST_F(MurmeloTest, aLongerFormatChunkIsOnlyAdvice) {
    EXPECT_EQ((Samples{5, 6}),
              load(TestSounds::changed(TestSounds::wav({5, 6}, 8000), 16, "\x12")));
}

TEST_F(MurmeloTest, otherRatesAndMissingFilesAreNoSound) {
    EXPECT_EQ(nullptr, loadOrNull(TestSounds::wav({5, 6}, 11025)));
    EXPECT_EQ(nullptr, loadOrNull(TestSounds::wav({5, 6}, 44100)));
    EXPECT_EQ(nullptr, loadOrNull("short"));
    String missing("/Home/Murmelo/missing.wav");
    EXPECT_EQ(nullptr, Murmelo::loadWavTo8Khz(missing));
}

TEST_F(MurmeloTest, aHeaderThatPromisesTooMuchEndsWithTheFile) {
    EXPECT_EQ((Samples{5, 6}), load(TestSounds::header(1000, 8000) + TestSounds::bytes({5, 6})));
}

TEST_F(MurmeloTest, savesHeaderAndLowSixteenBits) {
    EXPECT_TRUE(save({1, -2, 40000, -40000}));
    EXPECT_EQ(TestSounds::wav({1, -2, -25536, 25536}, 8000), saved());
}

TEST_F(MurmeloTest, savesALongSoundThroughItsSmallBuffer) {
    const TestSounds::Samples noise = TestSounds::noise(25001);
    EXPECT_TRUE(save(Samples(noise.begin(), noise.end())));
    EXPECT_EQ(TestSounds::wav(noise, 8000), saved());
}

TEST_F(MurmeloTest, savingReplacesALongerFile) {
    folders.write("home/Murmelo/b.wav", std::string(5000, 'x'));
    EXPECT_TRUE(save({7}));
    EXPECT_EQ(TestSounds::wav({7}, 8000), saved());
}

TEST_F(MurmeloTest, aSoundWithoutSamplesIsAHeader) {
    EXPECT_TRUE(save({}));
    EXPECT_EQ(TestSounds::wav({}, 8000), saved());
    EXPECT_EQ(Samples{}, load(saved()));
}

TEST_F(MurmeloTest, aFileThatCannotBeWrittenIsNotSavedAndNotLeft) {
    for (const char* operation : {"File.Construct", "File.Write", "File.Flush"}) {
        host.failNth(operation, 1);
        EXPECT_FALSE(save({1, 2, 3})) << operation;
        EXPECT_EQ("", saved()) << operation;
    }
    host.failNth("File.Write", 2);
    EXPECT_FALSE(save({1, 2, 3}));
    EXPECT_FALSE(folders.has("home/Murmelo/b.wav"));
}

TEST_F(MurmeloTest, loadsTheLastRecordingFromTheUsersFolder) {
    putTake({4, 6});
    EXPECT_EQ(Samples{5}, taken(Murmelo::loadLastRec8Khz()));
    EXPECT_EQ("none", screen());
}

TEST_F(MurmeloTest, withoutARecordingTheMessageStandsBeforeTheAnswer) {
    EXPECT_EQ(nullptr, Murmelo::loadLastRec8Khz());
    ASSERT_EQ("MessageAndQuit", screen());
    EXPECT_EQ(kFileError, text(static_cast<MessageAndQuit*>(State::currState)->body));
}
