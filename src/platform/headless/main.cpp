// murmelo-headless: the application driven by a script, on a virtual clock.
#include "EndSignal.h"
#include "HeadlessHost.h"
#include "OspMain.h"
#include "ProgramFolders.h"
#include "Script.h"

#include <CLI/CLI.hpp>
#include <fstream>
#include <iostream>
#include <iterator>

namespace {

int complain(const std::string& message, int status) {
    std::cerr << "murmelo-headless: " << message << "\n";
    return status;
}

bool readAll(const std::string& path, std::string& text) {
    std::ifstream file;
    if (path != "-") {
        file.open(path, std::ios::binary);
        if (!file) {
            return false;
        }
    }
    std::istream& in = path == "-" ? std::cin : file;
    text.assign(std::istreambuf_iterator<char>(in), {});
    return true;
}

}  // namespace

// NOLINTNEXTLINE(bugprone-exception-escape): out of memory ends the program, here as anywhere
int main(int argc, char** argv) {
    std::string home;
    std::string config;
    std::string scriptPath;
    int64_t clockStartMs = 0;
    bool silent = false;
    CLI::App options("Runs Murmelo by a script, without a window and on a virtual clock.");
    options.set_version_flag("--version", "murmelo-headless " MURMELO_VERSION);
    options.add_option("--home", home, "Folder of the user's sounds")->type_name("DIR");
    options.add_option("--config", config, "Folder of the settings")->type_name("DIR");
    options.add_option("--clock-start", clockStartMs, "Where the clock begins")->type_name("MS");
    options.add_flag("--silent", silent,
                     "The phone is in silent mode and asks before anything is played");
    options.add_option("script", scriptPath, "The script; - is standard input")->required();
    try {
        options.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return options.exit(error) == 0 ? HeadlessHost::kOk : HeadlessHost::kUsage;
    }

    std::string text;
    if (!readAll(scriptPath, text)) {
        return complain("the script \"" + scriptPath + "\" cannot be read", HeadlessHost::kUsage);
    }
    std::vector<ScriptCommand> script;
    const std::string mistake = Script::parse(text, script);
    if (!mistake.empty()) {
        return complain(scriptPath + ": " + mistake, HeadlessHost::kUsage);
    }

    HostFolders folders;
    HomeLock lock;
    std::string wrong = ProgramFolders::find(home, config, folders);
    if (wrong.empty()) {
        wrong = lock.take(folders.home);
    }
    if (!wrong.empty()) {
        return complain(wrong, HeadlessHost::kFailed);
    }

    HeadlessHost host(folders, script, clockStartMs, silent);
    Host::install(&host);
    const EndSignal endSignal;
    const int result = OspMain(argc, argv);
    Host::install(nullptr);
    const int32_t status = host.finish();
    if (status != HeadlessHost::kOk) {
        return complain(scriptPath + ": " + host.complaint(), status);
    }
    return result == 0 ? HeadlessHost::kOk : HeadlessHost::kFailed;
}
