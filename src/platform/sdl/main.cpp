// SPDX-License-Identifier: MIT
// murmelo: the application in a window.
#include "FileUri.h"
#include "FxCatalogue.h"
#include "OspMain.h"
#include "Problem.h"
#include "ProgramFolders.h"
#include "SafeFile.h"
#include "SdlHost.h"
#include "StartSocket.h"

#include <SDL.h>

#include <algorithm>
#include <CLI/CLI.hpp>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#ifdef __GLIBC__
#include <malloc.h>
#endif
#include <unistd.h>

namespace {

// A program that has only just begun may not listen yet. It does after some milliseconds, or on a
// machine that has much to do after this.
constexpr uint32_t kHandOverMs = 2000;
constexpr uint32_t kAgainMs = 20;

#ifdef __GLIBC__
constexpr int kLargestFromHeapBytes = 8 << 20;
constexpr int kKeptFreeBytes = 4 << 20;
#endif

constexpr int kUsage = 2;  // a mistake on the command line, as the other programs answer it

/// What is wrong before there is a window: on standard error, and where no terminal was seen when
/// the program was started, in a box of its own.
class Complaints {
public:
    void setFromDesktop() { inBox = true; }

    int tell(const std::string& message) const {
        SdlHost::print(message);
        if (inBox) {
            SDL_ShowSimpleMessageBox(SDL_MESSAGEBOX_ERROR, "Murmelo", message.c_str(), nullptr);
        }
        return EXIT_FAILURE;
    }

private:
    bool inBox = false;
};

void list(const char* title, const std::vector<std::string>& names) {
    std::cout << title << "\n";
    for (const std::string& name : names) {
        std::cout << "  " << name << "\n";
    }
    if (names.empty()) {
        std::cout << "  (none)\n";
    }
}

int listDevices() {
    SdlAudio audio;
    list("Microphones:", audio.names(SdlAudio::Kind::kMicrophone));
    list("Speakers:", audio.names(SdlAudio::Kind::kSpeaker));
    return EXIT_SUCCESS;
}

/// A name without a device is a problem. An empty name is the system's choice.
Problem checkDevice(SdlAudio::Kind kind, const char* what, const std::string& name) {
    if (name.empty()) {
        return Problem::none();
    }
    SdlAudio audio;
    const std::vector<std::string> names = audio.names(kind);
    if (std::find(names.begin(), names.end(), name) != names.end()) {
        return Problem::none();
    }
    return std::string("there is no ") + what + " \"" + name + "\"; --list-devices tells the names";
}

bool isSoundFile(const std::string& microphone) {
    std::error_code error;
    return std::filesystem::path(microphone).extension() == ".wav" ||
           std::filesystem::is_regular_file(microphone, error);
}

/// Whether there is such a file. It is read when the window stands.
Problem checkSound(const std::string& nameOrUri) {
    std::string path;
    if (Problem problem = FileUri::toPath(nameOrUri, path)) {
        return problem;
    }
    if (const Problem kind = SafeFile::whyNotOrdinary(path)) {
        return "the sound \"" + path + "\" cannot be read: it " + kind.sentence();
    }
    if (::access(path.c_str(), R_OK) != 0) {
        return "the sound \"" + path + "\" cannot be read: " + SafeFile::lastError();
    }
    return Problem::none();
}

/// The file's name for a program that runs in another folder: an address stays as it is.
std::string fullName(const std::string& nameOrUri) {
    std::string path;
    if (nameOrUri.empty() || FileUri::toPath(nameOrUri, path)) {
        return nameOrUri;
    }
    std::error_code error;
    const std::filesystem::path full = std::filesystem::absolute(path, error);
    return error ? path : full.string();
}

/// Looks at the sound files that the command line names, and for its devices.
Problem prepareSound(SdlOptions& options) {
    if (!options.microphone.empty() && isSoundFile(options.microphone)) {
        options.hearsFile = true;
        if (Problem problem = checkSound(options.microphone)) {
            return problem;
        }
    }
    if (!options.take.empty()) {
        if (Problem problem = checkSound(options.take)) {
            return problem;
        }
    }
    if (!options.hearsFile) {
        Problem problem =
            checkDevice(SdlAudio::Kind::kMicrophone, "microphone", options.microphone);
        if (problem) {
            return problem;
        }
    }
    return checkDevice(SdlAudio::Kind::kSpeaker, "speaker", options.speaker);
}

/// Hands the file over to the program that holds the home. If that one has ended meanwhile, the
/// locks are taken.
/// @param problem  why the locks were not taken; none if they are now
/// @returns true if it was handed over: its window comes to the front
bool handOver(const SdlOptions& options, FolderLocks& locks, Problem& problem) {
    const std::string& home = options.folders.home;
    for (uint32_t ms = 0; problem && locks.isHomeHeldByAnother(); ms += kAgainMs) {
        if (StartSocket::handOver(home, fullName(options.take))) {
            return true;
        }
        if (ms >= kHandOverMs || StartSocket::pathFor(home).empty()) {
            return false;
        }
        SDL_Delay(kAgainMs);
        problem = locks.take(options.folders);
    }
    return false;
}

int run(int argc, char** argv, SdlOptions options, const Complaints& complaints) {
    int result = EXIT_SUCCESS;
    SdlHost host(std::move(options));
    if (const Problem problem = host.open()) {
        return complaints.tell(problem.sentence());
    }
    Host::install(&host);
    if (const Problem problem = ProgramFolders::whySoundsCannotBeKept(host.folders())) {
        host.tell({"soundsNotKept", {host.folders().sounds()}}, problem.sentence());
    }
    result = OspMain(argc, argv);
    Host::install(nullptr);
    if (host.isStuck()) {
        std::_Exit(result);  // everything of the user's is on disk; only a sound device is left
    }
    return result == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

/// Lets freed memory be used again in place of being handed back: fresh pages cost more time than
/// what is done with them up to the first picture.
void keepFreedMemory() {
#ifdef __GLIBC__
    mallopt(M_MMAP_THRESHOLD, kLargestFromHeapBytes);
    mallopt(M_TRIM_THRESHOLD, kKeptFreeBytes);
#endif
}

}  // namespace

// NOLINTNEXTLINE(bugprone-exception-escape): out of memory ends the program, here as anywhere
int main(int argc, char** argv) {
    keepFreedMemory();
    std::string home;
    std::string config;
    SdlOptions options;
    bool listsDevices = false;
    bool fromDesktop = false;
    Complaints complaints;
    CLI::App parser("Murmelo records your voice and changes it.");
    parser.set_version_flag("--version", "murmelo " MURMELO_VERSION);
    parser.add_option("--home", home, "Folder of your sounds")->type_name("DIR");
    parser.add_option("--config", config, "Folder of the settings")->type_name("DIR");
    parser
        .add_option("--microphone", options.microphone, "A device, or a sound file instead of one")
        ->type_name("NAME|FILE.wav");
    parser.add_option("--speaker", options.speaker, "A device")->type_name("NAME");
    parser.add_flag("--list-devices", listsDevices, "Tell the names of microphones and speakers");
    parser.add_flag("--silent", options.silent,
                    "Ask before anything is played, as a phone in silent mode does");
    CLI::Option* file =
        parser.add_option("FILE", options.take, "A sound file to begin with: it becomes the take");
    parser.add_flag("--last", options.last, "Begin with the take recorded last")->excludes(file);
    parser.add_flag("--fullscreen", options.fullScreen, "Fill the screen; F11 leaves it");
    parser.add_flag("--speak", options.speaks, "Read aloud what the window shows");
    parser.add_flag("--from-desktop", fromDesktop,
                    "Show what is wrong in a box: there is no terminal");
    try {
        parser.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return parser.exit(error) == 0 ? EXIT_SUCCESS : kUsage;
    }
    if (listsDevices) {
        return listDevices();
    }
    if (fromDesktop) {
        complaints.setFromDesktop();
    }

    if (const Problem problem = prepareSound(options)) {
        return complaints.tell(problem.sentence());
    }
    if (const Problem problem = ProgramFolders::find(home, config, options.folders)) {
        return complaints.tell(problem.sentence());
    }
    options.effectWord = [](int32_t effect) {
        const char* word = FxCatalogue::toolName(effect);
        return std::string(word != nullptr ? word : "");
    };
    FolderLocks locks;
    Problem problem = locks.take(options.folders);
    if (handOver(options, locks, problem)) {
        return EXIT_SUCCESS;
    }
    if (problem) {
        return complaints.tell(problem.sentence());
    }
    return run(argc, argv, std::move(options), complaints);
}
