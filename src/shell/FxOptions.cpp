// SPDX-License-Identifier: MIT
#include "FxOptions.h"

#include "EffectName.h"
#include "FxCatalogue.h"
#include "InputFile.h"
#include "OutputFile.h"
#include "SoundFormats.h"

#include <algorithm>
#include <CLI/CLI.hpp>
#include <filesystem>
#include <limits>
#include <sstream>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

constexpr size_t kHelpColumns = 79;

constexpr const char* kFooter = R"(
"-" is standard input or standard output.

Exit status: 0 all done, 1 some input failed (the others were done), 2 mistake
on the command line.

Examples:
  murmelo-fx robot voice.wav robot.wav
  murmelo-fx drunk --out-dir drunk *.flac
  arecord -f S16_LE -r 16000 -d 5 | murmelo-fx high - - | aplay)";

/// Breaks a text between words into lines for the help.
std::string inLines(const std::string& text) {
    std::istringstream words(text);
    std::string lines;
    std::string line;
    for (std::string word; words >> word; line += word) {
        if (!line.empty() && line.size() + 1 + word.size() > kHelpColumns) {
            lines += line + "\n";
            line.clear();
        }
        line += line.empty() ? "" : " ";
    }
    return lines + line;
}

std::string footer() {
    std::string names;
    for (int32_t effect = 0; effect < FxCatalogue::kCount; effect++) {
        names += (effect == 0 ? "" : ", ") + std::string(FxCatalogue::toolName(effect));
    }
    return inLines("EFFECT is one of: " + names +
                   "; or its number in that order, from 0 (none) and 1 (robot) to " +
                   std::to_string(FxCatalogue::kCount - 1) + ".") +
           "\n" +
           inLines("INPUT is a sound file of nearly any kind; OUTPUT ends in " +
                   SoundFormats::inWords(".", "or") + ".") +
           kFooter;
}

/// Writes the usage lines itself, because the meaning of an argument depends on the options beside
/// it.
class UsageFormatter : public CLI::Formatter {
public:
    std::string make_usage(const CLI::App* /*app*/, std::string /*name*/) const override {
        return "Usage: murmelo-fx [OPTIONS] EFFECT INPUT OUTPUT\n"
               "       murmelo-fx [OPTIONS] EFFECT --out-dir DIR INPUT...\n"
               "       murmelo-fx --measure INPUT...\n"
               "       murmelo-fx --list\n";
    }

    /// The usage lines and the footer say what the arguments are.
    std::string make_positionals(const CLI::App* /*app*/) const override { return ""; }

    std::string make_option_name(const CLI::Option* option, bool isPositional) const override {
        const std::string name = CLI::Formatter::make_option_name(option, isPositional);
        return name.substr(0, name.find('{'));  // without the value that a flag sets
    }
};

std::string inQuotes(const std::string& text) {
    return "\"" + text + "\"";
}

/// The name of an input without folder and extension; standard input has none of its own.
std::string stemOf(const std::string& input) {
    return input == InputFile::kStandard ? "stdin" : fs::path(input).stem().string();
}

std::string noEffect(const std::string& text) {
    const std::string nearest = EffectName::nearest(text);
    return inQuotes(text) + " is not an effect; " +
           (nearest.empty() ? "murmelo-fx --list names them"
                            : "did you mean " + inQuotes(nearest) + "?");
}

std::string cannotWrite(SoundWriter::Kind kind) {
    return (SoundWriter::isLibraryThere() ? "the libsndfile of this machine cannot write "
                                          : "without libsndfile, which is missing, there is no ") +
           std::string(SoundFormats::ending(kind));
}

bool isSameFile(const std::string& a, const std::string& b) {
    std::error_code error;
    return fs::equivalent(a, b, error) && !error;
}

}  // namespace

Problem FxOptions::parse(int argc, char** argv) {
    bool list = false;
    bool measure = false;
    int64_t seedNumber = 0;
    std::string kindName;
    CLI::App app("Applies the voice effects of Murmelo to sound files.");
    app.formatter(std::make_shared<UsageFormatter>());
    app.footer(footer());
    app.set_version_flag("--version", "murmelo-fx " MURMELO_VERSION);
    app.add_flag("--list", list, "Name the effects");
    app.add_flag("--measure", measure, "Print length, level and pitch of each input");
    app.add_flag("--clean,!--no-clean", clean,
                 "Clean the recording up first, as the application does (default)");
    CLI::Option* seedOption =
        app.add_option("--seed", seedNumber, "Repeatable noise for robot and flip")
            ->type_name("N")
            ->check(CLI::Range(int64_t{std::numeric_limits<int32_t>::min()},
                               int64_t{std::numeric_limits<uint32_t>::max()})
                        .description(""));
    app.add_option("--out-dir", outFolder, "Folder for the outputs of several inputs")
        ->type_name("DIR");
    app.add_option("--format", kindName,
                   SoundFormats::inWords("", "or") + ", where no output name tells")
        ->type_name("KIND");
    app.add_flag("--long", longSounds, "Allow sounds longer than 60 s");
    app.add_option("arguments", arguments);
    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& answer) {
        app.exit(answer);
        return Problem::none();
    } catch (const CLI::ParseError& error) {
        return error.what();
    }
    if (*seedOption) {
        seed = static_cast<int32_t>(static_cast<uint32_t>(seedNumber));
    }
    return setTask(list, measure, kindName);
}

Problem FxOptions::setTask(bool list, bool measure, const std::string& kindName) {
    if (list) {
        task = Task::kList;
        return arguments.empty() ? Problem::none() : "--list takes no files";
    }
    if (!kindName.empty()) {
        kind = SoundFormats::ofEnding(kindName);
        if (!kind) {
            return inQuotes(kindName) +
                   " is not a format for the output: " + SoundFormats::inWords("", "and") + " are";
        }
        if (!SoundWriter::isPossible(*kind)) {
            return cannotWrite(*kind);
        }
    }
    if (arguments.empty()) {
        return measure ? "no input is named" : "no effect is named";
    }
    if (!measure) {
        effect = EffectName::find(arguments.front());
        if (effect < 0) {
            return noEffect(arguments.front());
        }
        arguments.erase(arguments.begin());
    }
    if (std::count(arguments.begin(), arguments.end(), InputFile::kStandard) > 1 &&
        (measure || !outFolder.empty())) {
        return "standard input can be read only once";
    }
    task = measure ? Task::kMeasure : Task::kApply;
    if (measure) {
        for (const std::string& input : arguments) {
            jobs.push_back({input, "", SoundWriter::Kind::kWav});
        }
        return Problem::none();
    }
    return outFolder.empty() ? addSingleJob() : addFolderJobs();
}

Problem FxOptions::addSingleJob() {
    if (arguments.size() != 2) {
        return arguments.size() < 2 ? "an input and an output are needed, or --out-dir and inputs"
                                    : "several inputs need --out-dir";
    }
    const std::string& output = arguments[1];
    if (output.empty()) {
        return "the output has no name";
    }
    if (output == OutputFile::kStandard) {
        if (isatty(STDOUT_FILENO) == 1) {
            return "standard output is a terminal, which cannot show a sound";
        }
        jobs.push_back({arguments[0], output, kind.value_or(SoundWriter::Kind::kWav)});
        return Problem::none();
    }
    const std::optional<SoundWriter::Kind> kindOfName = SoundFormats::ofPath(output);
    if (!kindOfName && !kind) {
        return "the output " + inQuotes(output) + " must end in " +
               SoundFormats::inWords(".", "or") + ", or have no extension";
    }
    const bool nameTells = fs::path(output).has_extension();
    if (nameTells && kindOfName && kind && *kind != *kindOfName) {
        return "the output " + inQuotes(output) + " does not end as --format says";
    }
    const SoundWriter::Kind wanted = kind ? *kind : *kindOfName;
    if (!SoundWriter::isPossible(wanted)) {
        return cannotWrite(wanted);
    }
    jobs.push_back({arguments[0], output, wanted});
    return Problem::none();
}

Problem FxOptions::addFolderJobs() {
    if (arguments.empty()) {
        return "no input is named";
    }
    const SoundWriter::Kind kindOfAll = kind.value_or(SoundWriter::Kind::kWav);
    std::vector<std::string> names;
    for (const std::string& input : arguments) {
        const std::string name = stemOf(input) + "." + SoundFormats::ending(kindOfAll);
        const std::string output = (fs::path(outFolder) / name).string();
        if (std::find(names.begin(), names.end(), name) != names.end()) {
            return "two inputs would be written to " + inQuotes(output);
        }
        if (input != InputFile::kStandard && isSameFile(input, output)) {
            return inQuotes(input) + " would be replaced by its own output";
        }
        names.push_back(name);
        jobs.push_back({input, output, kindOfAll});
    }
    return Problem::none();
}
