// SPDX-License-Identifier: MIT
// On every kind of error the tool prints a clear sentence, has the right status, and loses no file.
#include "FxCatalogue.h"
#include "TestFolders.h"
#include "ToolRunner.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <sndfile.h>
#include <sstream>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using audio::Samples;
using shell::run;
using shell::ToolRunner;

namespace fs = std::filesystem;

namespace {

constexpr int32_t kMinuteSamples = 480000;

class MurmeloFxFiles : public testing::Test {
protected:
    void SetUp() override {
        good = file("good.wav", shell::wavBytes(8000, audio::noise(8000, 9000)));
    }

    std::string file(const std::string& name, const std::string& bytes) const {
        folders.write(name, bytes);
        return folders.path(name);
    }

    std::string path(const std::string& name) const { return folders.path(name); }

    /// A canonical file of count silent samples, which takes no room on the disk.
    std::string silence(const std::string& name, int64_t count) const {
        std::string header = shell::wavBytes(8000, {});
        const auto bytes = static_cast<uint32_t>(2 * count);
        std::memcpy(&header[40], &bytes, sizeof bytes);  // little-endian, as every machine we test
        file(name, header);
        fs::resize_file(path(name), shell::kHeaderBytes + static_cast<uintmax_t>(2 * count));
        return path(name);
    }

    /// Checks that the run fails with status 1 and one line that has the file's name and these
    /// words.
    static void
    expectFailure(const shell::Result& result, const std::string& name, const std::string& words) {
        EXPECT_EQ(1, result.status);
        EXPECT_EQ("", result.out);
        EXPECT_EQ(0U, result.err.find("murmelo-fx: " + name + ": ")) << result.err;
        EXPECT_NE(std::string::npos, result.err.find(words)) << result.err;
        EXPECT_EQ(result.err.size() - 1, result.err.find('\n')) << result.err;
    }

    /// The number of files in a folder, hidden ones included.
    static int32_t filesIn(const std::string& folder) {
        int32_t count = 0;
        for ([[maybe_unused]] const auto& entry : fs::directory_iterator(folder)) {
            count++;
        }
        return count;
    }

    /// A copy of the tool that a user without rights can start.
    std::string toolForNobody() const {
        fs::permissions(path(""), fs::perms::owner_all | fs::perms::group_read |
                                      fs::perms::group_exec | fs::perms::others_read |
                                      fs::perms::others_exec);
        fs::copy_file(MURMELO_FX, path("tool"), fs::copy_options::overwrite_existing);
        return path("tool");
    }

    TestFolders folders;
    std::string good;
};

/// A full disk of 64 KiB, if this user may mount one.
class SmallDisk {
public:
    explicit SmallDisk(const std::string& folder)
        : folder(folder) {
        fs::create_directories(folder);
        mounted = mount("tmpfs", folder.c_str(), "tmpfs", 0, "size=64k") == 0;
    }

    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

    ~SmallDisk() {
        if (mounted) {
            umount(folder.c_str());
        }
    }

    bool isMounted() const { return mounted; }

private:
    std::string folder;
    bool mounted = false;
};

/// Limits the size of files, as a full disk does.
void limitFiles(rlim_t bytes) {
    const struct rlimit limit = {bytes, bytes};
    if (setrlimit(RLIMIT_FSIZE, &limit) != 0) {
        _exit(125);
    }
}

/// A bare container may come without /dev/pts.
bool hasTerminals() {
    const int terminal = posix_openpt(O_RDWR | O_NOCTTY);
    if (terminal < 0) {
        return false;
    }
    close(terminal);
    return true;
}

}  // namespace

TEST_F(MurmeloFxFiles, listNamesTheCatalogueInItsOrder) {
    const shell::Result result = run({"--list"});
    EXPECT_EQ(0, result.status);
    size_t at = 0;
    for (int32_t effect = 0; effect < FxCatalogue::kCount; effect++) {
        const std::string name = FxCatalogue::toolName(effect);
        EXPECT_EQ(name + " ", result.out.substr(at, name.size() + 1));
        at = result.out.find('\n', at) + 1;
    }
    EXPECT_EQ(result.out.size(), at);
}

TEST_F(MurmeloFxFiles, helpAndVersionGoToStandardOutput) {
    EXPECT_EQ(0, run({"--help"}).status);
    const std::string help = run({"--help"}).out;
    EXPECT_NE(std::string::npos, help.find("EFFECT INPUT OUTPUT"));
    EXPECT_NE(std::string::npos, help.find("\n\nEFFECT is one of")) << help;
    EXPECT_EQ(std::string::npos, help.find("\n\n\n")) << "several empty lines: " << help;
    EXPECT_EQ(0, run({"--version"}).status);
    EXPECT_EQ("murmelo-fx " MURMELO_VERSION "\n", run({"--version"}).out);
}

TEST_F(MurmeloFxFiles, mistakesOnTheCommandLineEndWithStatus2AndDoNothing) {
    const std::string out = path("out.wav");
    const std::string folder = path("made");
    const std::vector<std::vector<std::string>> mistakes = {
        {},
        {"robot"},
        {"robot", good},
        {"robotic", good, out},
        {"8", good, out},
        {"-1", good, out},
        {"01", good, out},
        {"robot", good, out, out},
        {"robot", "--bogus", good, out},
        {"robot", "--seed", "ten", good, out},
        {"robot", "--seed", "4294967296", good, out},
        {"robot", "--seed"},
        {"robot", good, path("out.aac")},
        {"robot", good, ""},
        {"robot", "--format", "aac", good, out},
        {"robot", "--out-dir", folder},
        {"robot", "--out-dir", folder, "-", "-"},
        {"robot", "--out-dir", folder, good, path("x/good.flac")},
        {"robot", "--out-dir", path(""), good},
        {"--measure"},
        {"--measure", "-", "-"},
        {"--list", good},
    };
    for (const auto& mistake : mistakes) {
        const shell::Result result = run(mistake);
        EXPECT_EQ(2, result.status) << testing::PrintToString(mistake);
        EXPECT_EQ("", result.out);
        EXPECT_EQ(0U, result.err.find("murmelo-fx: ")) << result.err;
        EXPECT_EQ(result.err.size() - 1, result.err.find('\n')) << result.err;
    }
    EXPECT_EQ(1, filesIn(path("")));
}

TEST_F(MurmeloFxFiles, anUnknownEffectIsAnsweredWithTheNearestOne) {
    const std::pair<const char*, const char*> texts[] = {
        {"robotic", "robot"}, {"rob", "robot"},       {"Rboot", "robot"},
        {"hihg", "high"},     {"high pitch", "high"}, {"Low-Pitch", "low"},
        {"drunken", "drunk"}, {"drnk", "drunk"},      {"backward", "backwards"},
        {"nome", "none"},     {"No Effect", "none"},  {"fast talker", "fast"},
        {"flop", "flip"},     {"intonation", "flip"},
    };
    for (const auto& [text, meant] : texts) {
        const shell::Result result = run({text, good, path("out.wav")});
        EXPECT_EQ(2, result.status);
        EXPECT_EQ(std::string("murmelo-fx: \"") + text + "\" is not an effect; did you mean \"" +
                      meant + "\"? (see murmelo-fx --help)\n",
                  result.err);
    }
    for (const std::string& text :
         {std::string("chipmunk"), std::string("8"), std::string(), std::string(100000, 'r')}) {
        const shell::Result result = run({text, good, path("out.wav")});
        EXPECT_EQ(2, result.status);
        EXPECT_EQ("murmelo-fx: \"" + text +
                      "\" is not an effect; murmelo-fx --list names them (see murmelo-fx --help)\n",
                  result.err);
    }
}

TEST_F(MurmeloFxFiles, aSoundWithoutSamplesSaysSo) {
    const std::string empty = file("empty.wav", shell::wavBytes(8000, {}));
    const std::string single = file("single.wav", shell::wavBytes(16000, {5}));  // half a pair
    shell::writeSound(path("empty.aiff"), SF_FORMAT_AIFF | SF_FORMAT_PCM_16, 44100, 2, {});
    const std::string out = file("out.wav", "precious");
    for (const std::string& input : {empty, single, path("empty.aiff")}) {
        expectFailure(run({"robot", input, out}), input,
                      "is empty: it has less than one sample at 8 kHz");
        expectFailure(run({"high", input, "-"}), input,
                      "is empty: it has less than one sample at 8 kHz");
        expectFailure(run({"--measure", input}), input,
                      "is empty: it has less than one sample at 8 kHz");
        EXPECT_EQ("precious", folders.read("out.wav"));
    }
    const shell::Result piped =
        ToolRunner().input(folders.read("empty.wav")).run({"drunk", "-", "-"});
    expectFailure(piped, "standard input", "is empty: it has less than one sample at 8 kHz");
}

TEST_F(MurmeloFxFiles, noLibraryTalksWhereASoundIsDamaged) {
    const Samples tone = shell::sine(44100, 220.0, 0.5, 44100);
    const std::pair<const char*, int> kinds[] = {
        {"in.mp3", SF_FORMAT_MPEG | SF_FORMAT_MPEG_LAYER_III},
        {"in.ogg", SF_FORMAT_OGG | SF_FORMAT_VORBIS},
        {"in.flac", SF_FORMAT_FLAC | SF_FORMAT_PCM_16},
    };
    int32_t read = 0;
    for (const auto& [name, format] : kinds) {
        shell::writeSound(path(name), format, 44100, 1, tone);
        const std::string whole = folders.read(name);
        for (uint32_t seed = 1; seed <= 12; seed++) {
            std::string bytes = whole;
            std::mt19937 random(seed);
            for (uint32_t i = 0; i < 5 * seed; i++) {
                bytes[random() % bytes.size()] = static_cast<char>(random() & 0xFF);
            }
            if (seed % 3 == 0) {
                bytes.resize(bytes.size() / 2);
            }
            const std::string input = file(std::string("damaged-") + name, bytes);
            const shell::Result result = run({"none", input, "-"});
            if (result.status != 0) {
                expectFailure(result, input, "");
                continue;
            }
            read++;
            EXPECT_EQ("", result.err) << name << " " << seed;
            EXPECT_FALSE(shell::samplesOf(result.out).empty());  // the header says its length
        }
    }
    EXPECT_LT(5, read);  // what a damaged frame leaves is still a sound
}

TEST_F(MurmeloFxFiles, aLibraryWithoutAKindOfOutputIsToldBeforeAnythingIsDone) {
    const auto without = [](const std::vector<std::string>& arguments) {
        return ToolRunner()
            .before([] {
                setenv("LD_PRELOAD", MURMELO_OLD_SNDFILE, 1);
                setenv("ASAN_OPTIONS", "verify_asan_link_order=0",
                       1);  // a sanitizer must be loaded first
            })
            .run(arguments);
    };
    const std::string words = "murmelo-fx: the libsndfile of this machine cannot write ";
    for (const std::string kind : {"mp3", "opus"}) {
        const std::string out = path("out." + kind);
        for (const shell::Result& result :
             {without({"robot", good, out}), without({"robot", "--format", kind, good, "-"}),
              without({"robot", "--format", kind, "--out-dir", path("made"), good})}) {
            EXPECT_EQ(2, result.status);
            EXPECT_EQ("", result.out);
            EXPECT_EQ(words + kind + " (see murmelo-fx --help)\n", result.err);
        }
    }
    EXPECT_EQ(1, filesIn(path("")));
    EXPECT_EQ(0, without({"robot", good, path("out.ogg")}).status);
}

namespace {

/// Runs the tool, or another program, on a machine that lacks the libraries whose names begin so.
shell::Result runWithout(const char* missing,
                         const std::vector<std::string>& arguments,
                         const char* program = MURMELO_FX) {
    return ToolRunner()
        .program(program)
        .before([missing] {
            setenv("LD_PRELOAD", MURMELO_NO_LIBRARIES, 1);
            setenv("MURMELO_MISSING", missing, 1);
            setenv("ASAN_OPTIONS", "verify_asan_link_order=0", 1);
        })
        .run(arguments);
}

}  // namespace

TEST_F(MurmeloFxFiles, plainWavNeedsNoSoundLibrary) {
    for (const int32_t rateHz : {8000, 16000}) {
        const std::string input =
            file("plain.wav", shell::wavBytes(rateHz, audio::noise(5000, 9000)));
        const std::vector<std::string> arguments = {"high", input, "-"};
        const shell::Result result = runWithout("libs", arguments);
        EXPECT_EQ(0, result.status) << result.err;
        EXPECT_EQ(run(arguments).out, result.out);
    }
}

TEST_F(MurmeloFxFiles, withoutTheSoundLibraryOtherKindsAreRefusedByItsName) {
    shell::writeSound(path("in.flac"), SF_FORMAT_FLAC | SF_FORMAT_PCM_16, 8000, 1,
                      audio::noise(5000, 9000));
    expectFailure(runWithout("libsndfile", {"high", path("in.flac"), path("out.wav")}),
                  path("in.flac"), "needs libsndfile, which is missing");
    const shell::Result result = runWithout("libsndfile", {"high", good, path("out.ogg")});
    EXPECT_EQ(2, result.status);
    EXPECT_EQ("murmelo-fx: without libsndfile, which is missing, there is no ogg (see murmelo-fx "
              "--help)\n",
              result.err);
    EXPECT_EQ(2, filesIn(path("")));
}

TEST_F(MurmeloFxFiles, withoutTheResamplerOtherRatesAreRefusedByItsName) {
    const std::string input = file("in.wav", shell::wavBytes(44100, audio::noise(5000, 9000)));
    expectFailure(runWithout("libsoxr", {"high", input, path("out.wav")}), input,
                  "libsoxr, which converts it, is missing");
    EXPECT_EQ(2, filesIn(path("")));
}

TEST_F(MurmeloFxFiles, theOtherProgramsNameTheMissingResamplerToo) {
    const std::string sound = file("in.wav", shell::wavBytes(44100, audio::noise(5000, 9000)));
    const std::string script =
        file("take.txt", "until FirstLang\nkey middle\nuntil Options\ntake " + sound + "\n");
    fs::create_directory(path("home"));
    fs::create_directory(path("config"));
    const shell::Result result = runWithout(
        "libsoxr", {script, "--home", path("home"), "--config", path("config")}, MURMELO_HEADLESS);
    EXPECT_EQ(2, result.status);
    const std::string reason =
        "cannot be brought to 16000 Hz: libsoxr, which converts it, is missing";
    EXPECT_NE(std::string::npos, result.err.find(reason)) << result.err;
}

TEST_F(MurmeloFxFiles, theToolItselfLoadsNoSoundLibrary) {
    const shell::Result result =
        ToolRunner().before([] { setenv("LD_TRACE_LOADED_OBJECTS", "1", 1); }).run({"--version"});
    EXPECT_NE(std::string::npos, result.out.find("libc.so")) << result.out;
    EXPECT_EQ(std::string::npos, result.out.find("libsndfile")) << result.out;
    EXPECT_EQ(std::string::npos, result.out.find("libsoxr")) << result.out;
}

TEST_F(MurmeloFxFiles, oneBadInputFailsAloneAndTheOthersAreDone) {
    const std::string bad = file("bad.wav", "no sound\n");
    const std::string last = file("last.wav", shell::wavBytes(8000, audio::noise(500, 500)));
    const shell::Result result = run({"low", "--out-dir", path("out"), good, bad, last});
    expectFailure(result, bad, "is not a sound file");
    EXPECT_TRUE(folders.has("out/good.wav"));
    EXPECT_TRUE(folders.has("out/last.wav"));
    EXPECT_EQ(2, filesIn(path("out")));
}

TEST_F(MurmeloFxFiles, inputsThatAreNoSoundsAreToldApart) {
    const std::string out = path("out.wav");
    expectFailure(run({"low", path("gone.wav"), out}), path("gone.wav"), "No such file");
    expectFailure(run({"low", path(""), out}), path(""), "Is a directory");
    const std::string text = file("text.wav", "just a few words in a file\n");
    expectFailure(run({"low", text, out}), text, "is not a sound file");
    const std::string nothing = file("nothing.wav", "");
    expectFailure(run({"low", nothing, out}), nothing, "is not a sound file");
    expectFailure(run({"low", "-", out}), "standard input", "is not a sound file");
    EXPECT_FALSE(folders.has("out.wav"));
    EXPECT_EQ(3, filesIn(path("")));
}

namespace {

/// What the C library uses of this processor.
/// @param tunables  value of GLIBC_TUNABLES
std::string usedWith(const char* tunables) {
    const std::string all = ToolRunner()
                                .program("/lib64/ld-linux-x86-64.so.2")
                                .before([tunables] { setenv("GLIBC_TUNABLES", tunables, 1); })
                                .run({"--list-diagnostics"})
                                .out;
    std::istringstream lines(all);
    std::string used;
    for (std::string line; std::getline(lines, line);) {
        if (line.find(".active[") != std::string::npos) {
            used += line + "\n";
        }
    }
    return used;
}

bool hasAvx2() {
    std::ifstream file("/proc/cpuinfo");
    const std::string all(std::istreambuf_iterator<char>(file), {});
    return all.find(" avx2 ") != std::string::npos;
}

}  // namespace

TEST_F(MurmeloFxFiles, anotherRateGivesTheSameSamplesOnEveryProcessor) {
    constexpr const char* kPlain = "glibc.cpu.hwcaps=-AVX,-AVX2,-FMA,-FMA4";
    if (hasAvx2()) {
        EXPECT_NE(usedWith(""), usedWith(kPlain)) << kPlain << " turns nothing off";
    }
    for (const int32_t rateHz : {11025, 22050, 44100, 44101, 48000}) {
        const std::string input =
            file("rate.wav", shell::wavBytes(rateHz, audio::noise(rateHz, 32767)));
        const std::vector<std::string> arguments = {"none", "--no-clean", input, "-"};
        const shell::Result here = run(arguments);
        EXPECT_EQ(8000U, shell::samplesOf(here.out).size());
        for (const auto& [name, value] :
             {std::pair("SOXR_USE_SIMD", "0"), std::pair("SOXR_USE_SIMD64", "0"),
              std::pair("GLIBC_TUNABLES", kPlain)}) {
            const auto lacking = [&name = name, &value = value] { setenv(name, value, 1); };
            EXPECT_EQ(here.out, ToolRunner().before(lacking).run(arguments).out)
                << rateHz << " Hz, " << name;
        }
    }
}

TEST_F(MurmeloFxFiles, aSampleRateFarOffIsRefused) {
    std::string bytes = shell::wavBytes(8000, audio::noise(100, 100));
    bytes.replace(24, 4, std::string("\x01\0\0\0\x02\0\0\0", 4));
    const std::string input = file("slow.wav", bytes);
    expectFailure(run({"low", input, path("out.wav")}), input, "sample rate");
}

TEST_F(MurmeloFxFiles, aDamagedFileIsRefused) {
    shell::writeSound(path("whole.flac"), SF_FORMAT_FLAC | SF_FORMAT_PCM_16, 8000, 1,
                      audio::noise(100000, 30000));
    const std::string whole = folders.read("whole.flac");
    std::string scratched = whole;
    std::fill_n(scratched.begin() + static_cast<std::ptrdiff_t>(whole.size() / 2), 30000, '\x55');
    for (const std::string& bytes : {scratched, whole.substr(0, whole.size() / 2)}) {
        const std::string input = file("damaged.flac", bytes);
        expectFailure(run({"low", input, path("out.wav")}), input, "is damaged");
        EXPECT_FALSE(folders.has("out.wav"));
    }
}

TEST_F(MurmeloFxFiles, unreadableInputSaysSo) {
    fs::permissions(good, fs::perms::none);
    const std::string tool = toolForNobody();
    const shell::Result result =
        ToolRunner().program(tool).before(shell::becomeNobody).run({"low", good, "-"});
    expectFailure(result, good, "Permission denied");
}

TEST_F(MurmeloFxFiles, aFolderThatCannotBeWrittenSaysSo) {
    folders.makeFolder("locked");
    fs::permissions(path("locked"), fs::perms::owner_read | fs::perms::owner_exec |
                                        fs::perms::others_read | fs::perms::others_exec);
    const std::string out = path("locked/out.wav");
    const std::string tool = toolForNobody();
    const shell::Result result =
        ToolRunner().program(tool).before(shell::becomeNobody).run({"low", good, out});
    expectFailure(result, out, "Permission denied");
    expectFailure(run({"low", good, path("gone/out.wav")}), path("gone/out.wav"), "No such file");
    folders.makeFolder("folder");
    expectFailure(run({"low", good, path("folder")}), path("folder"), "Is a directory");
}

TEST_F(MurmeloFxFiles, aProtectedTargetIsNotReplaced) {
    folders.makeFolder("open");
    fs::permissions(path("open"), fs::perms::all);
    const std::string out = file("open/out.wav", "precious");
    fs::permissions(out, fs::perms::owner_read | fs::perms::others_read);
    const std::string tool = toolForNobody();
    const shell::Result result =
        ToolRunner().program(tool).before(shell::becomeNobody).run({"low", good, out});
    expectFailure(result, out, "Permission denied");
    EXPECT_EQ("precious", folders.read("open/out.wav"));
    EXPECT_EQ(1, filesIn(path("open")));
}

TEST_F(MurmeloFxFiles, theOldTargetStaysWhereTheInputFails) {
    const std::string out = file("out/out.wav", "precious");
    const std::string bad = file("bad.wav", "no sound");
    EXPECT_EQ(1, run({"low", bad, out}).status);
    EXPECT_EQ("precious", folders.read("out/out.wav"));
    EXPECT_EQ(1, filesIn(path("out")));
}

TEST_F(MurmeloFxFiles, theOldTargetStaysWhereTheDiskTakesNoMore) {
    for (const char* name : {"out/out.wav", "out/out.flac", "out/out.ogg"}) {
        const std::string out = file(name, "precious");
        for (const rlim_t bytes : {0UL, 20UL, 1000UL}) {  // before, within and after a header
            const shell::Result result = ToolRunner()
                                             .before([bytes] { limitFiles(bytes); })
                                             .outputTo("/dev/null")
                                             .run({"low", good, out});
            EXPECT_EQ(1, result.status) << name << " " << bytes;
            EXPECT_EQ("precious", folders.read(name));
        }
    }
    EXPECT_EQ(3, filesIn(path("out")));
}

TEST_F(MurmeloFxFiles, aFullDiskIsToldAndTheOldTargetStays) {
    const SmallDisk disk(path("disk"));
    if (!disk.isMounted()) {
        GTEST_SKIP() << "this user may not mount a small disk; the limit on files is tested anyway";
    }
    const std::string big = file("big.wav", shell::wavBytes(8000, audio::noise(60000, 9000)));
    for (const char* name : {"out.wav", "out.flac"}) {
        const std::string out = path("disk/") + name;
        folders.write(std::string("disk/") + name, "precious");
        expectFailure(run({"low", big, out}), out, "No space left on device");
        EXPECT_EQ("precious", folders.read(std::string("disk/") + name));
    }
    EXPECT_EQ(2, filesIn(path("disk")));
    EXPECT_EQ(0, run({"low", good, path("disk/out.wav")}).status);  // there is room for this one
}

TEST_F(MurmeloFxFiles, aFullDeviceIsTold) {
    expectFailure(run({"low", good, "/dev/full"}), "/dev/full", "No space left on device");
    const shell::Result result = ToolRunner().outputTo("/dev/full").run({"low", good, "-"});
    expectFailure(result, "standard output", "No space left on device");
    EXPECT_EQ(1, ToolRunner().outputTo("/dev/full").run({"--list"}).status);
    EXPECT_EQ(1, ToolRunner().outputTo("/dev/full").run({"--measure", good}).status);
    EXPECT_EQ(1, ToolRunner().outputTo("/dev/full").run({"--help"}).status);
    EXPECT_EQ(0, run({"low", good, "/dev/null"}).status);
}

TEST_F(MurmeloFxFiles, anInputMayBeItsOwnOutput) {
    const Samples samples = audio::noise(8000, 9000);
    const shell::Result result = run({"backwards", "--no-clean", good, good});
    EXPECT_EQ(0, result.status) << result.err;
    EXPECT_EQ(Samples(samples.rbegin(), samples.rend()),
              shell::samplesOf(folders.read("good.wav")));
    EXPECT_EQ(1, filesIn(path("")));
}

TEST_F(MurmeloFxFiles, aLinkStaysALinkAndItsTargetIsReplaced) {
    file("real/out.wav", "old");
    fs::create_symlink("real/out.wav", path("link.wav"));
    EXPECT_EQ(0, run({"none", "--no-clean", good, path("link.wav")}).status);
    EXPECT_TRUE(fs::is_symlink(path("link.wav")));
    EXPECT_EQ(folders.read("good.wav"), folders.read("real/out.wav"));
}

TEST_F(MurmeloFxFiles, newFilesObeyTheMaskAndReplacedOnesKeepTheirMode) {
    const auto mode = [this](const char* name) {
        struct stat facts = {};
        EXPECT_EQ(0, stat(path(name).c_str(), &facts));
        return facts.st_mode & 07777;
    };
    const auto masked = [this](const char* name) {
        return ToolRunner().before([] { umask(027); }).run({"low", good, path(name)}).status;
    };
    EXPECT_EQ(0, masked("new.wav"));
    EXPECT_EQ(0640U, mode("new.wav"));
    fs::permissions(path("new.wav"), static_cast<fs::perms>(0604));
    EXPECT_EQ(0, masked("new.wav"));
    EXPECT_EQ(0604U, mode("new.wav"));
}

TEST_F(MurmeloFxFiles, aLinkToNothingYetStaysALink) {
    folders.makeFolder("sub");
    fs::create_symlink("sub/target.wav", path("link.wav"));
    EXPECT_EQ(0, run({"low", good, path("link.wav")}).status);
    EXPECT_TRUE(fs::is_symlink(path("link.wav")));
    EXPECT_FALSE(shell::samplesOf(folders.read("sub/target.wav")).empty());
    EXPECT_EQ(1, filesIn(path("sub")));
    folders.remove("sub");
    expectFailure(run({"low", good, path("link.wav")}), path("link.wav"), "No such file");
    EXPECT_TRUE(fs::is_symlink(path("link.wav")));
}

TEST_F(MurmeloFxFiles, linksThatGoInACircleStay) {
    fs::create_symlink("b.wav", path("a.wav"));
    fs::create_symlink("a.wav", path("b.wav"));
    expectFailure(run({"low", good, path("a.wav")}), path("a.wav"), "symbolic links");
    EXPECT_TRUE(fs::is_symlink(path("a.wav")));
    EXPECT_TRUE(fs::is_symlink(path("b.wav")));
}

TEST_F(MurmeloFxFiles, anInterruptLeavesNothingBehind) {
    const std::string out = file("out/out.wav", "precious");
    // The tool waits for a pipe that the shell holds open, until the signal has come.
    const std::string folder = path("out");
    const std::string script = "mkfifo pipe; exec 3<>pipe; " MURMELO_FX " low pipe " + out +
                               " & until ls -A " + folder +
                               " | grep -q murmelo; do sleep 0.01; done; kill -TERM $!; "
                               "wait $!; echo $?";
    const shell::Result result =
        ToolRunner().program("/bin/bash").run({"-c", "cd " + path("") + "; " + script});
    EXPECT_EQ("143\n", result.out) << result.err;
    EXPECT_EQ("precious", folders.read("out/out.wav"));
    EXPECT_EQ(1, filesIn(path("out")));
}

TEST_F(MurmeloFxFiles, aMinuteIsTakenAndOneSampleMoreIsNot) {
    const std::string out = path("out.wav");
    EXPECT_EQ(0, run({"none", silence("minute.wav", kMinuteSamples), out}).status);
    const std::string longer = silence("longer.wav", kMinuteSamples + 1);
    folders.remove("out.wav");
    expectFailure(run({"none", longer, out}), longer, "longer than 60 s");
    EXPECT_FALSE(folders.has("out.wav"));
    EXPECT_EQ(0, run({"none", "--long", longer, out}).status);
    EXPECT_EQ(shell::kHeaderBytes + 2 * (kMinuteSamples + 1), fs::file_size(out));
}

TEST_F(MurmeloFxFiles, otherKindsOfFilesAreRefusedWhenTheMinuteIsOver) {
    shell::writeSound(path("long.flac"), SF_FORMAT_FLAC | SF_FORMAT_PCM_16, 11025, 1,
                      Samples(11025 * 61));
    expectFailure(run({"none", path("long.flac"), path("out.wav")}), path("long.flac"),
                  "longer than 60 s");
    EXPECT_EQ(0, run({"none", "--long", path("long.flac"), path("out.wav")}).status);
}

TEST_F(MurmeloFxFiles, longSoundsEndWhereAnEffectLosesItsPlace) {
    const struct {
        const char* effect;
        int64_t samples;
        const char* words;
    } limits[] = {
        {"high", 1 << 21, "262 s"},   {"low", 1 << 21, "262 s"},
        {"fast", 1 << 21, "262 s"},   {"drunk", 1 << 20, "131 s"},
        {"none", 0xFFFFFF, "2097 s"}, {"robot", 0xFFFFFF, "2097 s"},
        {"flip", 0xFFFFFF, "2097 s"}, {"backwards", 0xFFFFFF, "2097 s"},
    };

    for (const auto& limit : limits) {
        const std::string input = silence("long.wav", limit.samples + 1);
        expectFailure(run({limit.effect, "--long", input, path("out.wav")}), input, limit.words);
    }
}

TEST_F(MurmeloFxFiles, theLongestSoundStillHasItsEnd) {
    // Silence, and a tone in the last two seconds, which must be changed and at the end of the
    // output.
    const Samples tone = audio::glide(16000, 150, 150);
    const std::string toneBytes = shell::wavBytes(8000, tone).substr(shell::kHeaderBytes);
    for (const auto& [effect, count] : {std::pair("high", 1 << 21), std::pair("drunk", 1 << 20)}) {
        const std::string input = silence("long.wav", count - 16000);
        std::string bytes = folders.read("long.wav") + toneBytes;
        const auto dataBytes = static_cast<uint32_t>(2 * count);
        std::memcpy(&bytes[40], &dataBytes, sizeof dataBytes);
        file("long.wav", bytes);
        const shell::Result result = run({effect, "--long", "--no-clean", input, path("out.wav")});
        ASSERT_EQ(0, result.status) << result.err;
        const Samples output = shell::samplesOf(folders.read("out.wav"));
        const Samples end(output.end() - 12000, output.end() - 400);
        const double ratio = audio::medianPitchHz(end) / 150.0;
        EXPECT_GT(ratio, effect == std::string("high") ? 1.75 : 0.85) << effect;
        EXPECT_LT(ratio, effect == std::string("high") ? 1.85 : 1.06) << effect;
    }
}

TEST_F(MurmeloFxFiles, progressIsShownOnATerminalOnly) {
    if (!hasTerminals()) {
        GTEST_SKIP() << "this machine has no pseudo-terminals: is /dev/pts mounted?";
    }
    EXPECT_EQ("", run({"low", good, path("out.wav")}).err);
    const std::string command = MURMELO_FX " low " + good + " " + path("out.wav");
    // script(1) gives the command a terminal and copies what appears there.
    const shell::Result result =
        ToolRunner().program("/usr/bin/script").run({"-qefc", command, "/dev/null"});
    EXPECT_EQ(0, result.status) << result.err;
    EXPECT_NE(std::string::npos, result.out.find("good.wav: clean-up  19 %")) << result.out;
    // The line is erased at the end.
    EXPECT_EQ(result.out.size() - 4, result.out.rfind("\r\033[K")) << result.out;
}

TEST_F(MurmeloFxFiles, progressIsTakenAwayOnceBeforeTheFacts) {
    if (!hasTerminals()) {
        GTEST_SKIP() << "this machine has no pseudo-terminals: is /dev/pts mounted?";
    }
    const std::string sound = path("good.flac");
    shell::writeSound(sound, SF_FORMAT_FLAC | SF_FORMAT_PCM_16, 8000, 1, audio::noise(8000, 9000));
    const std::string command = MURMELO_FX " --measure " + sound;
    const shell::Result result =
        ToolRunner().program("/usr/bin/script").run({"-qefc", command, "/dev/null"});
    EXPECT_EQ(0, result.status) << result.err;
    const size_t taken = result.out.find("\r\033[K");
    ASSERT_NE(std::string::npos, taken) << result.out;
    EXPECT_EQ(taken, result.out.rfind("\r\033[K")) << result.out;
    EXPECT_EQ(taken + 4, result.out.find(sound + ": 1.000 s")) << result.out;
    EXPECT_EQ('\n', result.out.back());
}

TEST_F(MurmeloFxFiles, soundIsNotWrittenToATerminal) {
    if (!hasTerminals()) {
        GTEST_SKIP() << "this machine has no pseudo-terminals: is /dev/pts mounted?";
    }
    const std::string command = MURMELO_FX " low " + good + " -";
    const shell::Result result =
        ToolRunner().program("/usr/bin/script").run({"-qefc", command, "/dev/null"});
    EXPECT_EQ(2, result.status);
    EXPECT_NE(std::string::npos, result.out.find("terminal")) << result.out;
}

TEST_F(MurmeloFxFiles, namesThatLookLikeOptionsStandAfterTwoDashes) {
    folders.write("-odd.wav", folders.read("good.wav"));
    const shell::Result result = ToolRunner()
                                     .before([this] {
                                         if (chdir(path("").c_str()) != 0) {
                                             _exit(125);
                                         }
                                     })
                                     .run({"low", "--", "-odd.wav", "-out.wav"});
    EXPECT_EQ(0, result.status) << result.err;
    EXPECT_TRUE(folders.has("-out.wav"));
}
