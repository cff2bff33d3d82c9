// SPDX-License-Identifier: MIT
// The tool applies the effects as the application does, to sounds in all kinds of files.
#include "FxCatalogue.h"
#include "TestFolders.h"
#include "TestHost.h"
#include "ToolRunner.h"
#include "WpMicPostProc.h"
#include "WpRobot.h"

#include <gtest/gtest.h>

#include <cctype>
#include <cmath>
#include <sndfile.h>

using audio::Samples;
using shell::run;
using shell::ToolRunner;

namespace {

class MurmeloFx : public testing::Test {
protected:
    /// The path of a new file.
    std::string file(const std::string& name, const std::string& bytes) const {
        folders.write(name, bytes);
        return folders.path(name);
    }

    std::string path(const std::string& name) const { return folders.path(name); }

    /// Runs the tool on a file, which must succeed without output; returns the samples of
    /// "out.wav".
    Samples apply(std::vector<std::string> options, const std::string& input) const {
        folders.remove("out.wav");
        options.push_back(input);
        options.push_back(path("out.wav"));
        const shell::Result result = run(options);
        EXPECT_EQ(0, result.status) << result.err;
        EXPECT_EQ("", result.out);
        EXPECT_EQ("", result.err);
        return shell::samplesOf(folders.read("out.wav"));
    }

    /// What the application does with a recording, with its clock at seed.
    static Samples expected(int32_t effect, bool clean, const Samples& recording, int32_t seed) {
        TestHost host;
        host.nowMs = seed;
        WpRobot::followClock();
        WpMicPostProc cleaner;
        const std::unique_ptr<WavProc> processor(FxCatalogue::newProcessor(effect));
        return audio::run(*processor, clean ? audio::run(cleaner, recording) : recording);
    }

    TestFolders folders;
};

/// Root of the mean square of samples first..last.
double rms(const Samples& samples, size_t first, size_t last) {
    double sum = 0.0;
    for (size_t i = first; i <= last; i++) {
        sum += static_cast<double>(samples[i]) * samples[i];
    }
    return std::sqrt(sum / static_cast<double>(last - first + 1));
}

Samples interleave(const Samples& left, const Samples& right) {
    Samples frames;
    for (size_t i = 0; i < left.size(); i++) {
        frames.push_back(left[i]);
        frames.push_back(right[i]);
    }
    return frames;
}

}  // namespace

TEST_F(MurmeloFx, everyEffectByNameGivesWhatItsProcessorGives) {
    const Samples speech = audio::speechOf(20);
    const std::string input = file("in.wav", shell::wavBytes(8000, speech));
    for (int32_t effect = 0; effect < FxCatalogue::kCount; effect++) {
        const std::string name = FxCatalogue::toolName(effect);
        EXPECT_EQ(expected(effect, false, speech, 7),
                  apply({name, "--no-clean", "--seed", "7"}, input))
            << name;
    }
}

TEST_F(MurmeloFx, withoutAnOptionTheSoundIsCleanedUpFirst) {
    const Samples speech = audio::speechOf(5);
    const std::string input = file("in.wav", shell::wavBytes(8000, speech));
    for (int32_t effect = 0; effect < FxCatalogue::kCount; effect++) {
        const std::string name = FxCatalogue::toolName(effect);
        const Samples output = apply({name, "--seed", "7"}, input);
        EXPECT_EQ(expected(effect, true, speech, 7), output) << name;
        EXPECT_EQ(output, apply({name, "--no-clean", "--clean", "--seed", "7"}, input)) << name;
    }
}

TEST_F(MurmeloFx, aSeedRepeatsTheNoiseAndAnotherOneDoesNot) {
    const std::string input = file("in.wav", shell::wavBytes(8000, audio::speechOf(3)));
    const Samples once = apply({"robot", "--seed", "1"}, input);
    EXPECT_EQ(once, apply({"robot", "--seed", "1"}, input));
    EXPECT_NE(once, apply({"robot", "--seed", "2"}, input));
    // The clock has 32 bits: a number beyond the signed ones is a negative one.
    EXPECT_EQ(apply({"robot", "--seed", "-1"}, input),
              apply({"robot", "--seed", "4294967295"}, input));
}

TEST_F(MurmeloFx, withoutASeedTheNoiseFollowsTheClock) {
    const std::string input = file("in.wav", shell::wavBytes(8000, audio::speechOf(3)));
    const Samples once = apply({"robot"}, input);
    Samples again = once;
    for (int32_t i = 0; i < 100 && again == once; i++) {  // until the clock has moved on
        again = apply({"robot"}, input);
    }
    EXPECT_NE(once, again);
}

TEST_F(MurmeloFx, aCanonical8kHzFilePassesBitForBit) {
    Samples samples = audio::noise(25000, 32767);
    samples[0] = -32768;
    samples[1] = 32767;
    const std::string bytes = shell::wavBytes(8000, samples);
    apply({"none", "--no-clean"}, file("in.wav", bytes));
    EXPECT_EQ(bytes, folders.read("out.wav"));
}

TEST_F(MurmeloFx, aCanonical16kHzFileBecomesTheFlooredMeansOfItsPairs) {
    const std::string input = file("in.wav", shell::wavBytes(16000, {-1, 0, 7, 8, 32767}));
    EXPECT_EQ((Samples{-1, 7}), apply({"none", "--no-clean"}, input));
}

TEST_F(MurmeloFx, otherFilesOf16kHzBecomeTheSameMeans) {
    const Samples samples = audio::noise(16001, 32767);
    shell::writeSound(path("in.flac"), SF_FORMAT_FLAC | SF_FORMAT_PCM_16, 16000, 1, samples);
    const Samples viaWav =
        apply({"none", "--no-clean"}, file("in.wav", shell::wavBytes(16000, samples)));
    ASSERT_EQ(8000U, viaWav.size());
    EXPECT_EQ(viaWav, apply({"none", "--no-clean"}, path("in.flac")));
}

TEST_F(MurmeloFx, aFileThatIsShorterThanItsHeaderSaysEndsWithTheFile) {
    std::string bytes = shell::wavBytes(8000, audio::noise(100, 1000));
    bytes.resize(shell::kHeaderBytes + 2 * 60);
    EXPECT_EQ(60U, apply({"none"}, file("in.wav", bytes)).size());
}

TEST_F(MurmeloFx, aHeaderThatDoesNotKnowItsLengthTakesTheWholeFile) {
    const Samples samples = audio::noise(100, 1000);
    std::string bytes = shell::wavBytes(8000, samples);
    bytes.replace(40, 4, 4, '\xFF');  // as a program writes it into a pipe
    EXPECT_EQ(samples, apply({"none", "--no-clean"}, file("in.wav", bytes)));
}

TEST_F(MurmeloFx, eightBitsAtEightKilohertzAreScaledToSixteen) {
    const Samples samples = {0, 16384, -16384, -32768, 127 * 256};
    shell::writeSound(path("in.wav"), SF_FORMAT_WAV | SF_FORMAT_PCM_U8, 8000, 1, samples);
    // One byte for each sample, and a pad.
    ASSERT_EQ(shell::kHeaderBytes + 5 + 1, folders.read("in.wav").size());
    EXPECT_EQ(samples, apply({"none", "--no-clean"}, path("in.wav")));
}

TEST_F(MurmeloFx, stereoAt44100HzIsMixedDownAndKeepsItsTone) {
    constexpr int32_t kFrames = 88200;
    const Samples left = shell::sine(44100, 1000.0, 0.5, kFrames);
    const Samples right = shell::sine(44100, 1000.0, 0.25, kFrames);
    shell::writeSound(path("in.wav"), SF_FORMAT_WAV | SF_FORMAT_PCM_24, 44100, 2,
                      interleave(left, right));
    const Samples output = apply({"none", "--no-clean"}, path("in.wav"));
    EXPECT_NEAR(16000.0, static_cast<double>(output.size()), 1.0);
    const Samples ideal = shell::sine(8000, 1000.0, 0.375, 16000);
    Samples error;
    for (size_t i = 0; i < 15999; i++) {
        error.push_back(output[i] - ideal[i]);
    }
    EXPECT_LT(rms(error, 500, 15000), 8.0);  // 60 dB below the tone; the ends are cut hard
}

TEST_F(MurmeloFx, toneAboveTheNewBandDisappears) {
    shell::writeSound(path("in.wav"), SF_FORMAT_WAV | SF_FORMAT_PCM_16, 48000, 1,
                      shell::sine(48000, 6000.0, 0.9, 48000));
    const Samples output = apply({"none", "--no-clean"}, path("in.wav"));
    ASSERT_EQ(8000U, output.size());
    EXPECT_LT(rms(output, 500, 7500), 3.0);  // 80 dB below full scale
}

TEST_F(MurmeloFx, slowRatesAreBroughtUp) {
    shell::writeSound(path("in.wav"), SF_FORMAT_WAV | SF_FORMAT_PCM_16, 6000, 1,
                      shell::sine(6000, 440.0, 0.5, 12000));
    const Samples output = apply({"none", "--no-clean"}, path("in.wav"));
    EXPECT_NEAR(16000.0, static_cast<double>(output.size()), 1.0);
    EXPECT_NEAR(440.0, audio::medianPitchHz(output), 1.0);
}

TEST_F(MurmeloFx, floatsBeyondFullScaleAreClampedAndNotANumberIsSilence) {
    shell::writeFloats(path("in.wav"), {2.0F, -2.0F, std::nanf(""), INFINITY, 0.25F});
    EXPECT_EQ((Samples{32767, -32768, 0, 32767, 8192}),
              apply({"none", "--no-clean"}, path("in.wav")));
}

TEST_F(MurmeloFx, aDamagedFloatReachesNoFurtherThanTheConvertersFilter) {
    for (const float damaged : {std::nanf(""), INFINITY, -INFINITY}) {
        std::vector<float> values(44100, 0.25F);
        values[22050] = damaged;
        shell::writeFloats(path("in.wav"), values, 44100);
        const Samples output = apply({"none", "--no-clean"}, path("in.wav"));
        ASSERT_EQ(8000U, output.size());
        for (const size_t at : {1000U, 3800U, 4200U, 7000U}) {
            EXPECT_NEAR(8192, output[at], 8) << damaged << " at " << at;
        }
        if (std::isnan(damaged)) {  // one silent sample is a faint click, not a gap
            EXPECT_NEAR(8192, output[3970], 200);
            EXPECT_NEAR(8192, output[4030], 200);
        }
    }
}

TEST_F(MurmeloFx, sixChannelsBecomeTheirMean) {
    shell::writeSound(path("in.wav"), SF_FORMAT_WAV | SF_FORMAT_PCM_16, 8000, 6,
                      {6000, 3000, -600, 0, 0, 0});
    EXPECT_EQ((Samples{1400}), apply({"none", "--no-clean"}, path("in.wav")));
}

TEST_F(MurmeloFx, anEffectGoesByLargeLettersAndByItsNumberToo) {
    const std::string input = file("in.wav", shell::wavBytes(8000, audio::speechOf(3)));
    for (int32_t effect = 0; effect < FxCatalogue::kCount; effect++) {
        const std::string name = FxCatalogue::toolName(effect);
        std::string large = name;
        large[0] = static_cast<char>(std::toupper(large[0]));
        const Samples byName = apply({name, "--seed", "7"}, input);
        EXPECT_EQ(byName, apply({large, "--seed", "7"}, input)) << large;
        EXPECT_EQ(byName, apply({std::to_string(effect), "--seed", "7"}, input)) << effect;
    }
    EXPECT_EQ(apply({"robot", "--seed", "7"}, input), apply({"ROBOT", "--seed", "7"}, input));
}

TEST_F(MurmeloFx, flacOutHoldsTheVerySamplesOfTheWav) {
    const std::string input = file("in.wav", shell::wavBytes(8000, audio::speechOf(3)));
    const Samples wav = apply({"high"}, input);
    for (const char* name : {"out.flac", "OUT.FLAC"}) {
        ASSERT_EQ(0, run({"high", input, path(name)}).status);
        const shell::ReadSound sound = shell::readSound(path(name));
        EXPECT_EQ(SF_FORMAT_FLAC, sound.format & SF_FORMAT_TYPEMASK);
        EXPECT_EQ(8000, sound.rateHz);
        EXPECT_EQ(1, sound.channels);
        EXPECT_EQ(wav, sound.samples);
    }
}

TEST_F(MurmeloFx, oggOutSoundsLikeTheWav) {
    const std::string input = file("in.wav", shell::wavBytes(8000, audio::glide(24000, 200, 200)));
    for (const char* name : {"out.ogg", "out.oga"}) {
        ASSERT_EQ(0, run({"none", "--no-clean", input, path(name)}).status);
        const shell::ReadSound sound = shell::readSound(path(name));
        EXPECT_EQ(SF_FORMAT_OGG, sound.format & SF_FORMAT_TYPEMASK);
        EXPECT_EQ(8000, sound.rateHz);
        ASSERT_EQ(24000U, sound.samples.size());
        EXPECT_NEAR(200.0, audio::medianPitchHz(sound.samples), 1.0);
    }
}

TEST_F(MurmeloFx, opusAndMp3OutSoundLikeTheWav) {
    const std::string input = file("in.wav", shell::wavBytes(8000, audio::glide(24000, 200, 200)));
    const std::pair<const char*, int> kinds[] = {
        {"out.opus", SF_FORMAT_OGG | SF_FORMAT_OPUS},
        {"OUT.MP3", SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III},
    };
    for (const auto& [name, format] : kinds) {
        const shell::Result result = run({"none", "--no-clean", input, path(name)});
        ASSERT_EQ(0, result.status) << result.err;
        EXPECT_EQ("", result.out + result.err);
        const shell::ReadSound sound = shell::readSound(path(name));
        EXPECT_EQ(format, sound.format & (SF_FORMAT_TYPEMASK | SF_FORMAT_SUBMASK)) << name;
        EXPECT_EQ(8000, sound.rateHz);
        EXPECT_EQ(1, sound.channels);
        ASSERT_EQ(24000U, sound.samples.size()) << name;
        EXPECT_NEAR(200.0, audio::medianPitchHz(sound.samples), 1.0) << name;
    }
    EXPECT_EQ("OggS", run({"none", "--format", "opus", input, "-"}).out.substr(0, 4));
    const std::string mp3 = run({"none", "--no-clean", "--format", "MP3", input, "-"}).out;
    EXPECT_TRUE(folders.read("OUT.MP3") == mp3);  // no other text comes with the sound
}

TEST_F(MurmeloFx, oggAndFlacComeInAsWell) {
    const Samples tone = shell::sine(44100, 220.0, 0.5, 44100);
    shell::writeSound(path("in.ogg"), SF_FORMAT_OGG | SF_FORMAT_VORBIS, 44100, 1, tone);
    shell::writeSound(path("in.flac"), SF_FORMAT_FLAC | SF_FORMAT_PCM_16, 44100, 1, tone);
    for (const char* name : {"in.ogg", "in.flac"}) {
        const Samples output = apply({"low", "--no-clean"}, path(name));
        EXPECT_NEAR(220.0 * 0.75, audio::medianPitchHz(output), 5.0) << name;
    }
}

TEST_F(MurmeloFx, theFormatOptionDecidesWhereTheNameDoesNot) {
    const std::string input = file("in.wav", shell::wavBytes(8000, audio::noise(8000, 9000)));
    ASSERT_EQ(0, run({"none", "--format", "flac", input, path("take.1")}).status);
    EXPECT_EQ("fLaC", folders.read("take.1").substr(0, 4));
    EXPECT_EQ("OggS", run({"none", "--format", "ogg", input, "-"}).out.substr(0, 4));
    // A name without an extension tells nothing, and capitals mean the same.
    ASSERT_EQ(0, run({"none", "--format", "FLAC", input, path("take")}).status);
    EXPECT_EQ("fLaC", folders.read("take").substr(0, 4));
    EXPECT_NE(0, run({"none", "--format", "flac", input, path("take.wav")}).status);
    EXPECT_EQ(0, run({"none", input, path("take")}).status);
    EXPECT_EQ("RIFF", folders.read("take").substr(0, 4));
}

TEST_F(MurmeloFx, dashesReadAndWriteThroughPipes) {
    const Samples speech = audio::speechOf(20);
    const std::string wav = shell::wavBytes(8000, speech);
    const shell::Result result = ToolRunner().input(wav).run({"backwards", "--no-clean", "-", "-"});
    EXPECT_EQ(0, result.status) << result.err;
    EXPECT_EQ(Samples(speech.rbegin(), speech.rend()), shell::samplesOf(result.out));

    const std::string chain =
        MURMELO_FX " backwards --no-clean - - | " MURMELO_FX " backwards --no-clean - - | cat";
    const shell::Result twice = ToolRunner().program("/bin/sh").input(wav).run({"-c", chain});
    EXPECT_EQ(0, twice.status) << twice.err;
    EXPECT_EQ(wav, twice.out);
    EXPECT_EQ(0, ToolRunner().input(wav).run({"low", "--out-dir", path("d"), "-"}).status);
    EXPECT_TRUE(folders.has("d/stdin.wav"));
}

TEST_F(MurmeloFx, flacComesThroughAPipeAsWell) {
    shell::writeSound(path("in.flac"), SF_FORMAT_FLAC | SF_FORMAT_PCM_16, 44100, 1,
                      shell::sine(44100, 220.0, 0.5, 44100));
    const Samples fromFile = apply({"high"}, path("in.flac"));
    const shell::Result result =
        ToolRunner().input(folders.read("in.flac")).run({"high", "-", "-"});
    EXPECT_EQ(fromFile, shell::samplesOf(result.out)) << result.err;
}

TEST_F(MurmeloFx, severalInputsGiveWhatEachGivesAlone) {
    const std::string a = file("a.wav", shell::wavBytes(8000, audio::speechOf(3)));
    const std::string b = file("b.wav", shell::wavBytes(8000, audio::glide(16000, 120, 180)));
    const shell::Result result =
        run({"flip", "--seed", "5", "--out-dir", path("new/folder"), a, b});
    EXPECT_EQ(0, result.status) << result.err;
    EXPECT_EQ(apply({"flip", "--seed", "5"}, a),
              shell::samplesOf(folders.read("new/folder/a.wav")));
    EXPECT_EQ(apply({"flip", "--seed", "5"}, b),
              shell::samplesOf(folders.read("new/folder/b.wav")));
}

TEST_F(MurmeloFx, measureTellsLengthLevelAndPitch) {
    file("tone.wav", shell::wavBytes(8000, shell::sine(8000, 200.0, 0.5, 16000)));
    const std::string silence = file("silence.wav", shell::wavBytes(8000, Samples(4000)));
    const shell::Result result = run({"--measure", path("tone.wav"), silence, path("gone.wav")});
    // Half of full scale is 6.02 dB below it, the mean of a sine another 3.01.
    EXPECT_EQ(path("tone.wav") + ": 2.000 s, peak -6.0 dBFS, RMS -9.0 dBFS, pitch 200.0 Hz\n" +
                  silence + ": 0.500 s, peak -inf dBFS, RMS -inf dBFS, no pitch\n",
              result.out);
    EXPECT_EQ(1, result.status);
    EXPECT_NE(std::string::npos, result.err.find(path("gone.wav")));
}

TEST_F(MurmeloFx, effectsOnAVoiceMeasureAsTheirNamesSay) {
    const std::string input = file("in.wav", shell::wavBytes(8000, audio::glide(160000, 140, 160)));
    const double before = audio::medianPitchHz(apply({"none"}, input));
    EXPECT_NEAR(150.0, before, 150.0 * 0.03);
    EXPECT_NEAR(150.0 * 1.8, audio::medianPitchHz(apply({"high"}, input)), 150.0 * 1.8 * 0.03);
    EXPECT_NEAR(150.0 * 0.75, audio::medianPitchHz(apply({"low"}, input)), 150.0 * 0.75 * 0.03);
    EXPECT_NEAR(150.0, audio::medianPitchHz(apply({"fast"}, input)), 150.0 * 0.03);
    EXPECT_NEAR(8000.0 / 90.0, audio::medianPitchHz(apply({"robot"}, input)), 1.0);
    EXPECT_NEAR(80000.0, static_cast<double>(apply({"fast"}, input).size()), 200.0);
    EXPECT_NEAR(320000.0, static_cast<double>(apply({"drunk"}, input).size()), 300.0);
}
