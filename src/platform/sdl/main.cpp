// SPDX-License-Identifier: MIT
// murmelo: the application in a window.
#include "FileUri.h"
#include "FxCatalogue.h"
#include "OspMain.h"
#include "Problem.h"
#include "ProgramFolders.h"
#include "SafeFile.h"
#include "SdlHost.h"
#include "StartErrors.h"
#include "StartSocket.h"
#include "UsageError.h"

#include <SDL.h>

#include <algorithm>
#include <chrono>
#include <CLI/CLI.hpp>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#ifdef __GLIBC__
#include <malloc.h>
#endif
#include <optional>
#include <unistd.h>
#include <utility>

namespace {

// How long to try to reach the program that holds the home, or to wait for its end. One that has
// just started may not listen yet; one that is ending listens no more, and may wait some seconds
// for a slow disk and a stuck sound device.
constexpr std::chrono::seconds kHandOverTime{20};
constexpr uint32_t kAgainMs = 20;

#ifdef __GLIBC__
constexpr int kLargestFromHeapBytes = 8 << 20;
constexpr int kKeptFreeBytes = 4 << 20;
#endif

constexpr int kUsage = 2;  // exit status after a mistake on the command line

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

/// A problem if no device has that name. An empty name is the system's default and never a problem.
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

/// A problem if the file is missing or not readable. Its samples are read later, once the window is
/// open.
Problem checkSound(const std::string& nameOrUri) {
    std::string path;
    if (const Problem problem = FileUri::toPath(nameOrUri, path)) {
        return "the sound \"" + nameOrUri + "\" cannot be read: " + problem.sentence();
    }
    if (const Problem kind = SafeFile::whyNotOrdinary(path)) {
        return "the sound \"" + path + "\" cannot be read: it " + kind.sentence();
    }
    if (::access(path.c_str(), R_OK) != 0) {
        return "the sound \"" + path + "\" cannot be read: " + SafeFile::lastError();
    }
    return Problem::none();
}

/// The file's full path, for a program that runs in another folder. What is no path stays as it is.
std::string fullName(const std::string& nameOrUri) {
    std::string path;
    if (nameOrUri.empty() || FileUri::toPath(nameOrUri, path)) {
        return nameOrUri;
    }
    std::error_code error;
    const std::filesystem::path full = std::filesystem::absolute(path, error);
    return error ? path : full.string();
}

/// Reads or checks the sound files that the command line names, and checks its devices.
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

/// Hands the file, or the wish for the last take, over to the program that holds the home. If that
/// program ends meanwhile, waits for its end and takes the locks instead.
/// @param problem  why the locks were not taken; none if they are now
/// @returns true if it was handed over: its window comes to the front
bool handOver(const SdlOptions& options, FolderLocks& locks, Problem& problem) {
    const std::string& home = options.folders.home;
    const std::string wish = options.last ? StartSocket::kLastTake : fullName(options.take);
    const auto end = std::chrono::steady_clock::now() + kHandOverTime;
    while (problem && locks.isHomeHeldByAnother()) {
        if (StartSocket::handOver(home, wish)) {
            return true;
        }
        if (std::chrono::steady_clock::now() >= end || StartSocket::pathFor(home).empty()) {
            return false;
        }
        SDL_Delay(kAgainMs);
        problem = locks.take(options.folders);
    }
    return false;
}

/// @param locks  of the folders; given up at the end of the program
int run(int argc,
        char** argv,
        SdlOptions options,
        const StartErrors& errors,
        std::optional<FolderLocks>& locks) {
    int result = EXIT_SUCCESS;
    SdlHost host(std::move(options));
    if (const Problem problem = host.open()) {
        return errors.tell(problem.sentence());
    }
    Host::install(&host);
    if (const Problem problem = ProgramFolders::whySoundsCannotBeKept(host.folders())) {
        host.tell({"soundsNotKept", {host.folders().sounds()}}, problem.sentence());
    }
    result = OspMain(argc, argv);
    Host::install(nullptr);
    if (host.isStuck()) {
        locks.reset();
        std::_Exit(result);  // all sounds are on disk; only a stuck device, disk or dialog is left
    }
    return result == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}

bool hasWord(int argc, char** argv, const std::string& word) {
    return std::find(argv, argv + argc, word) != argv + argc;
}

/// Prints the help, the version, or the mistake on the command line. @returns the exit status
int told(const CLI::App& parser, const CLI::ParseError& error, bool isFromDesktop) {
    if (parser.exit(error) == 0) {
        return EXIT_SUCCESS;
    }
    if (isFromDesktop) {
        StartErrors::showBox(error.what());
    }
    return kUsage;
}

/// Keeps freed memory for later use instead of returning it to the system: up to the first picture,
/// getting new pages would cost more time than the work in them.
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
    StartErrors errors;
    CLI::App parser("Murmelo records your voice and changes it.");
    parser.set_version_flag("--version", "murmelo " MURMELO_VERSION);
    parser.add_option("--home", home, "Folder of your sounds")->type_name("DIR");
    parser.add_option("--config", config, "Folder of the settings")->type_name("DIR");
    parser
        .add_option("--microphone", options.microphone, "A device, or a sound file instead of one")
        ->type_name("NAME|FILE.wav");
    parser.add_option("--speaker", options.speaker, "A device")->type_name("NAME");
    parser.add_flag("--list-devices", listsDevices, "Print the names of microphones and speakers");
    parser.add_flag("--silent", options.silent,
                    "Ask before anything is played, as a phone in silent mode does");
    CLI::Option* file =
        parser.add_option("FILE", options.take, "A sound file to begin with: it becomes the take");
    parser.add_flag("--last", options.last, "Begin with the take recorded last")->excludes(file);
    parser.add_flag("--fullscreen", options.fullScreen, "Fill the screen; F11 leaves it");
    parser.add_flag("--speak", options.speaks, "Read aloud what the window shows");
    parser.add_flag("--from-desktop", fromDesktop,
                    "Also show start errors in a dialog box, for starts without a terminal");
    parser.failure_message([](const CLI::App* /*app*/, const CLI::Error& error) {
        return usageError("murmelo", error.what());
    });
    try {
        parser.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return told(parser, error, hasWord(argc, argv, "--from-desktop"));
    }
    if (listsDevices) {
        return listDevices();
    }
    if (fromDesktop) {
        errors.setFromDesktop();
    }

    if (const Problem problem = prepareSound(options)) {
        return errors.tell(problem.sentence());
    }
    if (const Problem problem = ProgramFolders::find(home, config, options.folders)) {
        return errors.tell(problem.sentence());
    }
    options.effectWord = [](int32_t effect) {
        const char* word = FxCatalogue::toolName(effect);
        return std::string(word != nullptr ? word : "");
    };
    std::optional<FolderLocks> locks(std::in_place);
    Problem problem = locks->take(options.folders);
    if (handOver(options, *locks, problem)) {
        return EXIT_SUCCESS;
    }
    if (problem) {
        return errors.tell(problem.sentence());
    }
    return run(argc, argv, std::move(options), errors, locks);
}
