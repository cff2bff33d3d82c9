// SPDX-License-Identifier: MIT
// murmelo-headless: the application driven by a script, on a virtual clock.
#include "EndSignal.h"
#include "HeadlessHost.h"
#include "HostOperation.h"
#include "OspMain.h"
#include "Problem.h"
#include "ProgramFolders.h"
#include "RunVerdict.h"
#include "ScreenTable.h"
#include "Script.h"
#include "UsageError.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <CLI/CLI.hpp>
#include <cstdlib>
#include <fcntl.h>
#include <iomanip>
#include <iostream>
#include <string>
#include <system_error>
#include <unistd.h>
#include <vector>

namespace {

constexpr size_t kReadBytes = 4096;

int reportError(const std::string& message, int status) {
    std::cerr << "murmelo-headless: " << message << "\n";
    return status;
}

/// Reads a file, a pipe or standard input ("-") to its end.
Problem readAll(const std::string& path, std::string& text) {
    const int file = path == "-" ? ::dup(STDIN_FILENO) : ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    std::array<char, kReadBytes> bytes{};
    ssize_t count = file < 0 ? -1 : 1;
    while (count > 0 || (count < 0 && errno == EINTR)) {
        count = ::read(file, bytes.data(), bytes.size());
        text.append(bytes.data(), static_cast<size_t>(std::max<ssize_t>(count, 0)));
    }
    const std::error_code error(count < 0 ? errno : 0, std::generic_category());
    if (file >= 0) {
        ::close(file);
    }
    return error ? Problem(error.message()) : Problem::none();
}

std::vector<std::string> screenNames() {
    int32_t count = 0;
    const ScreenTable::Row* rows = ScreenTable::rows(count);
    std::vector<std::string> names;
    std::transform(rows, rows + count, std::back_inserter(names),
                   [](const ScreenTable::Row& row) { return row.name; });
    return names;
}

template <class Names>
void listNames(const char* title, const Names& names) {
    std::cout << title << "\n";
    for (const auto& name : names) {
        std::cout << "  " << name << "\n";
    }
}

/// Prints everything that a script can contain.
int list() {
    size_t width = 0;
    for (const ScriptVerb& verb : ScriptVerb::all()) {
        width = std::max(width, verb.form().size());
    }
    std::cout << "Commands:\n" << std::left;
    for (const ScriptVerb& verb : ScriptVerb::all()) {
        std::cout << "  " << std::setw(static_cast<int>(width)) << verb.form() << "  "
                  << verb.meaning << "\n";
    }
    listNames("Operations that can be told to fail:", HostOperation::kNames);
    listNames("Screens:", screenNames());
    return RunVerdict::kOk;
}

Problem readScript(const std::string& path, std::vector<ScriptCommand>& commands) {
    std::string text;
    if (const Problem problem = readAll(path, text)) {
        return "the script \"" + path + "\" cannot be read: " + problem.sentence();
    }
    if (const Problem mistake = Script::parse(text, screenNames(), commands)) {
        return path + ": " + mistake.sentence();
    }
    return Problem::none();
}

}  // namespace

// NOLINTNEXTLINE(bugprone-exception-escape): out of memory ends the program, here as anywhere
int main(int argc, char** argv) {
    std::string home;
    std::string config;
    std::string state;
    std::string scriptPath;
    int64_t clockStartMs = 0;
    bool silent = false;
    bool showsStrip = false;
    bool lists = false;
    CLI::App options("Runs Murmelo by a script, without a window and on a virtual clock.");
    options.set_version_flag("--version", "murmelo-headless " MURMELO_VERSION);
    options.add_option("--home", home, "Folder of the user's sounds")->type_name("DIR");
    options.add_option("--config", config, "Folder of the settings")->type_name("DIR");
    options.add_option("--state", state, "Folder where the last take is kept; without it none is")
        ->type_name("DIR");
    options.add_option("--clock-start", clockStartMs, "Where the clock begins")->type_name("MS");
    options.add_flag("--silent", silent,
                     "The phone is in silent mode and asks before anything is played");
    options.add_flag("--strip", showsStrip,
                     "Show the host's own row in the band above the picture; touches reach it");
    CLI::Option* script =
        options.add_option("script", scriptPath, "The script; - is standard input")->required();
    options.add_flag_callback(
        "--list",
        [&lists, script] {
            lists = true;
            script->required(false);
        },
        "Name what a script can hold: commands, operations that can fail, screens");
    options.failure_message([](const CLI::App* /*app*/, const CLI::Error& error) {
        return usageError("murmelo-headless", error.what());
    });
    try {
        options.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return options.exit(error) == 0 ? RunVerdict::kOk : RunVerdict::kUsage;
    }

    if (lists) {
        return list();
    }

    std::vector<ScriptCommand> commands;
    if (const Problem problem = readScript(scriptPath, commands)) {
        return reportError(problem.sentence(), RunVerdict::kUsage);
    }

    HostFolders folders;
    FolderLocks locks;
    if (const Problem problem = ProgramFolders::find(home, config, folders)) {
        return reportError(problem.sentence(), RunVerdict::kFailed);
    }
    if (const Problem problem = locks.take(folders)) {
        return reportError(problem.sentence(), RunVerdict::kFailed);
    }
    folders.state = state;  // empty by default: a run writes nothing into the user's own folder

    HeadlessHost host(folders, commands, clockStartMs, silent);
    if (showsStrip) {
        host.showStrip();
    }
    Host::install(&host);
    if (std::getenv("MURMELO_CHECK_FRAMES") != nullptr) {
        host.checkFrames();
    }
    if (const Problem problem = ProgramFolders::whySoundsCannotBeKept(folders)) {
        host.tell({"soundsNotKept", {folders.sounds()}}, problem.sentence());
    }
    const EndSignal endSignal;
    const int result = OspMain(argc, argv);
    Host::install(nullptr);
    const int32_t status = host.finish();
    if (status != RunVerdict::kOk) {
        return reportError(scriptPath + ": " + host.error(), status);
    }
    return result == 0 ? RunVerdict::kOk : RunVerdict::kFailed;
}
