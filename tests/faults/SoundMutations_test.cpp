// SPDX-License-Identifier: MIT
// Gives damaged sound files to everything that reads them: the loader of a take, every effect, and
// the player of a result. Ten thousand files, each changed in a few places by a seed.
#include "AudioDev.h"
#include "AudioSupport.h"
#include "FxCatalogue.h"
#include "G.h"
#include "Murmelo.h"
#include "Orm.h"
#include "OspBase.h"
#include "ScreensTest.h"
#include "TestSounds.h"
#include "WpMicPostProc.h"

#include <fstream>
#include <iterator>
#include <random>

using Osp::Base::String;

namespace {

constexpr int32_t kFilesEach = 1250;
constexpr int32_t kLongestWindow = 250;  // the shortest take fills one
constexpr uint32_t kNasty[] = {
    0,          1,          2,          43,         44,         0x7F,       0x80,       0xFF,
    0x7FFF,     0x8000,     0xFFFF,     0x10000,    0x00FFFFFF, 0x01000000, 0x7FFFFFFE, 0x7FFFFFFF,
    0x80000000, 0x80000001, 0xFFFFFFFE, 0xFFFFFFFF, 8000,       16000,      44100};

class Mutator {
public:
    explicit Mutator(uint32_t seed)
        : random(seed) {}

    /// A short take or result with one to four changes.
    std::string next(const TestSounds::Samples& voice) {
        const size_t count = below(1500);
        const uint32_t rateHz = below(2) == 0 ? 8000 : 16000;
        file = TestSounds::wav(TestSounds::part(voice, below(voice.size() - count), count), rateHz);
        for (size_t changes = 1 + below(4); changes > 0; changes--) {
            change();
        }
        return file;
    }

private:
    size_t below(size_t limit) { return limit == 0 ? 0 : random() % limit; }

    char byte() { return static_cast<char>(random() & 0xFF); }

    void putWord(size_t at, uint32_t value, int32_t bytes) {
        if (at + static_cast<size_t>(bytes) <= file.size()) {
            file = TestSounds::changed(file, at, TestSounds::little(value, bytes));
        }
    }

    std::string noise(size_t count) {
        std::string bytes;
        for (size_t i = 0; i < count; i++) {
            bytes += byte();
        }
        return bytes;
    }

    void change() {
        switch (below(10)) {
        case 0:
            file.resize(below(2) == 0 ? below(file.size() + 1)
                                      : std::min(file.size(), below(2 * TestSounds::kHeaderBytes)));
            break;
        case 1:
            changeHeader();
            break;
        case 2:
            changeSize();
            break;
        case 3:
            for (size_t i = below(50); i > 0 && !file.empty(); i--) {
                file[below(file.size())] = byte();
            }
            break;
        case 4:
            file += noise(below(3000));
            break;
        case 5:
            file.insert(below(file.size() + 1), noise(1 + 2 * below(8)));
            break;
        case 6:
            file.erase(below(file.size() + 1), 1 + below(30));
            break;
        case 7:
            for (size_t i = TestSounds::kHeaderBytes; i < file.size(); i++) {
                file[i] = (i / 2) % 97 < 48 ? '\x7F' : '\x80';  // as loud as possible
            }
            break;
        case 8:
            file = noise(below(2500));
            break;
        default:
            file.insert(std::min(file.size(), TestSounds::kHeaderBytes),
                        file.substr(0, TestSounds::kHeaderBytes));
            break;
        }
    }

    void changeHeader() {
        constexpr size_t kPlaces[] = {0, 8, 12, 16, 20, 22, 24, 28, 32, 34, 36};
        const size_t at = kPlaces[below(std::size(kPlaces))];
        if (below(3) == 0) {
            putWord(at, static_cast<uint32_t>(random()), 4);
        } else {
            putWord(at, kNasty[below(std::size(kNasty))], at >= 20 && at < 24 ? 2 : 4);
        }
    }

    /// Changes the length in the header: by a little, by much, or to nonsense.
    void changeSize() {
        const auto real = static_cast<uint32_t>(file.size());
        const uint32_t sizes[] = {real - 1,
                                  real - 43,
                                  real,
                                  2 * real,
                                  real / 2,
                                  kNasty[below(std::size(kNasty))],
                                  static_cast<uint32_t>(random())};
        putWord(below(4) == 0 ? 4 : 40, sizes[below(std::size(sizes))], 4);
    }

    std::mt19937 random;
    std::string file;
};

uint32_t wordOf(const std::string& file, size_t at) {
    uint32_t value = 0;
    for (size_t i = 4; i > 0; i--) {
        value = value << 8 | static_cast<uint8_t>(file[at + i - 1]);
    }
    return value;
}

int32_t sampleOf(const std::string& file, size_t index) {
    const size_t at = TestSounds::kHeaderBytes + 2 * index;
    return static_cast<int16_t>(static_cast<uint8_t>(file[at]) | static_cast<uint8_t>(file[at + 1])
                                                                     << 8);
}

/// The slow model of the loader: the file's samples at 8 kHz. False if the file is refused.
bool expected(const std::string& file, audio::Samples& samples) {
    samples.clear();
    if (file.size() < TestSounds::kHeaderBytes ||
        (wordOf(file, 24) != 8000 && wordOf(file, 24) != 16000)) {
        return false;
    }
    const bool halved = wordOf(file, 24) == 16000;
    const int64_t told = static_cast<int32_t>(wordOf(file, 40)) >> 1;
    const int64_t there = static_cast<int64_t>((file.size() - TestSounds::kHeaderBytes) / 2);
    const int64_t count = std::max<int64_t>(std::min(told, there), 0) / (halved ? 2 : 1);
    for (size_t i = 0; i < static_cast<size_t>(count); i++) {
        samples.push_back(halved ? (sampleOf(file, 2 * i) + sampleOf(file, 2 * i + 1)) >> 1
                                 : sampleOf(file, i));
    }
    return true;
}

/// A thousand and a quarter of the files for each seed.
class SoundMutations : public ScreensTest, public testing::WithParamInterface<uint32_t> {
protected:
    SoundMutations() {
        makeSoundFolder();
        std::ifstream in(MURMELO_SOURCE_DIR "/res/sample/hello.wav", std::ios::binary);
        voice = TestSounds::samplesOf(std::string(std::istreambuf_iterator<char>(in), {}));
        for (int32_t i = 0; i < FxCatalogue::kCount; i++) {
            processors.emplace_back(FxCatalogue::newProcessor(i));
        }
        processors.emplace_back(new WpMicPostProc());
    }

    /// Runs one processor to its end, in no more slices than there can be.
    static void process(WavProc& processor, const int32_t* samples) {
        processor.init(samples, 8000);
        int32_t progress = 0;
        for (int32_t i = 0; i < 64 + 4 * length(samples) && progress < WavProc::kFinished; i++) {
            const int32_t next = processor.process();
            ASSERT_LE(progress, next);
            progress = next;
        }
        ASSERT_EQ(WavProc::kFinished, progress);
        const audio::Array<int32_t> result(processor.getResult());
        ASSERT_NE(nullptr, result);
        ASSERT_LE(length(result.get()), 2 * (length(samples) + kLongestWindow));
        for (int32_t i = 0; i < length(result.get()); i++) {
            ASSERT_TRUE(result[i] >= -32768 && result[i] <= 32767);
        }
    }

    /// Loads the file as the screens do, and compares with the slow model.
    void load(const std::string& file) {
        folders.write(kTake, file);
        String path("/Home/Murmelo/MrmLastRec.wav");
        const audio::Array<int32_t> samples(Murmelo::loadWavTo8Khz(path));
        audio::Samples wanted;
        ASSERT_EQ(expected(file, wanted), samples != nullptr);
        if (samples == nullptr) {
            return;
        }
        loaded++;
        ASSERT_EQ(wanted, audio::toVector(samples.get()));
        for (const std::unique_ptr<WavProc>& processor : processors) {
            ASSERT_NO_FATAL_FAILURE(process(*processor, samples.get()));
        }
    }

    /// Plays the file, if it is accepted, and stops it; the device must be ready after that.
    void play(const std::string& file) {
        folders.write(kResult, file);
        String path("/Home/Murmelo/MrmLastProc.wav");
        if (AudioDev::startPlay(&path, G::EV_T_END_OF_MEDIA)) {
            played++;
            host.pass(20);
            EXPECT_TRUE(AudioDev::stopPlay());
        }
        ASSERT_EQ(AudioDev::kReady, AudioDev::state);
        Orm::unschedule(G::EV_T_END_OF_MEDIA, nullptr);
    }

    TestSounds::Samples voice;
    std::vector<std::unique_ptr<WavProc>> processors;
    int32_t loaded = 0;
    int32_t played = 0;
};

}  // namespace

TEST_P(SoundMutations, everyDamagedFileIsRefusedOrRunsThroughEveryEffect) {
    Mutator mutator(GetParam());
    for (int32_t i = 0; i < kFilesEach; i++) {
        const std::string file = mutator.next(voice);
        SCOPED_TRACE("file " + std::to_string(i));
        ASSERT_NO_FATAL_FAILURE(load(file));
        ASSERT_NO_FATAL_FAILURE(play(file));
    }
    // Some files must be refused and some accepted: else the changes would test nothing.
    EXPECT_LT(kFilesEach / 4, loaded);
    EXPECT_GT(kFilesEach - kFilesEach / 20, loaded);
    EXPECT_LT(kFilesEach / 20, played);
    EXPECT_GT(kFilesEach / 2, played);
}

INSTANTIATE_TEST_SUITE_P(Seeds, SoundMutations, testing::Range(1U, 9U));
