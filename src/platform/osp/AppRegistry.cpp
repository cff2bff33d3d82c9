// SPDX-License-Identifier: MIT
// The settings file, with lines "key=value". Writing replaces it as a whole; a damaged one is set
// aside.
#include "Host.h"
#include "OspApp.h"
#include "Problem.h"
#include "ReplacedFile.h"
#include "SafeFile.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <charconv>
#include <cstdio>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>

namespace Osp::App {

namespace {

constexpr const char* kFileName = "settings";
constexpr const char* kDamaged = ".damaged";             // added to the name
constexpr size_t kLargestFileBytes = size_t{64} * 1024;  // ours has a few short lines

/// Renames a damaged settings file, so that the user can look at it; if it is reached by a symbolic
/// link, the link stays. The first one becomes NAME.damaged, later ones NAME.aside-N: none is
/// overwritten, because each may be the user's only copy.
/// @returns why that failed
Problem setAside(const std::string& path) {
    const std::string target = SafeFile::realTarget(path);
    const bool moved = SafeFile::renameToFree(target, target + kDamaged) ||
                       (errno == EEXIST && SafeFile::moveAside(target));
    return moved ? Problem::none() : Problem(SafeFile::lastError());
}

bool isKey(const std::string& text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), [](unsigned char c) {
        return std::isalnum(c) != 0 || c == '_' || c == '.';
    });
}

bool isValue(const std::string& text) {
    return std::all_of(text.begin(), text.end(),
                       [](unsigned char c) { return c >= 0x20 && c != 0x7F; });
}

/// Reads the settings. False if a line is not empty, a comment, or key=value.
bool parse(const std::string& text, std::map<std::string, std::string>& values) {
    size_t start = 0;
    while (start < text.size()) {
        const size_t end = std::min(text.find('\n', start), text.size());
        std::string line = text.substr(start, end - start);
        if (!line.empty() && line.back() == '\r') {
            line.pop_back();  // written by an editor of another system
        }
        start = end + 1;
        if (line.empty() || line[0] == '#') {
            continue;
        }
        const size_t equals = line.find('=');
        if (equals == std::string::npos) {
            return false;
        }
        const std::string key = line.substr(0, equals);
        const std::string value = line.substr(equals + 1);
        if (!isKey(key) || !isValue(value)) {
            return false;
        }
        values[key] = value;
    }
    return true;
}

/// Opens an ordinary file. Null on failure, with the reason in problem; a missing file gives null
/// without a problem.
std::FILE* openToRead(const std::string& path, Problem& problem) {
    // Opening a pipe would wait for its writer.
    if (const Problem kind = SafeFile::whyNotOrdinary(path)) {
        problem = "it " + kind.sentence();
        return nullptr;
    }
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    std::FILE* file = fd >= 0 ? ::fdopen(fd, "rb") : nullptr;
    if (file != nullptr) {
        return file;
    }
    if (errno != ENOENT && errno != ENOTDIR) {
        problem = SafeFile::lastError();
    }
    if (fd >= 0) {
        ::close(fd);
    }
    return nullptr;
}

/// The text of a file, at most kLargestFileBytes + 1 bytes; problem gets the reason if it cannot be
/// read.
std::string readFile(const std::string& path, Problem& problem) {
    std::FILE* file = openToRead(path, problem);
    if (file == nullptr) {
        return "";
    }
    std::string text(kLargestFileBytes + 1, '\0');
    text.resize(std::fread(text.data(), 1, text.size(), file));
    if (std::ferror(file) != 0) {
        problem = SafeFile::lastError();
    }
    std::fclose(file);
    return text;
}

}  // namespace

void AppRegistry::Open(const std::string& configFolder) {
    folder = configFolder;
    keeps = !folder.empty();
    values.clear();
    if (!keeps) {
        return;
    }
    const std::string path = folder + "/" + kFileName;
    Problem problem;
    const std::string text = readFile(path, problem);
    if (!problem && (text.size() > kLargestFileBytes || !parse(text, values))) {
        values.clear();
        problem = setAside(path);
    }
    if (problem) {
        // The file may be intact and only unreadable now: this run must not overwrite it.
        keeps = false;
        Host::current().tell({"settingsUnreadable", {}},
                             "the settings \"" + path +
                                 "\" cannot be read and stay as they are: " + problem.sentence());
    }
}

result AppRegistry::Get(const Osp::Base::String& key, int& value) const {
    const auto found = values.find(key.ToUtf8());
    if (found == values.end()) {
        return E_KEY_NOT_FOUND;
    }
    const std::string& text = found->second;
    int parsed = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), parsed);
    if (error != std::errc() || end != text.data() + text.size()) {
        return E_FAILURE;
    }
    value = parsed;
    return E_SUCCESS;
}

result AppRegistry::Set(const Osp::Base::String& key, const Osp::Base::String& value) {
    const std::string name = key.ToUtf8();
    return values.count(name) == 0 ? E_KEY_NOT_FOUND : write(name, value.ToUtf8());
}

result AppRegistry::Add(const Osp::Base::String& key, const Osp::Base::String& value) {
    const std::string name = key.ToUtf8();
    return values.count(name) != 0 ? E_KEY_ALREADY_EXIST : write(name, value.ToUtf8());
}

/// The value is used in this run even if it cannot be written to the file.
result AppRegistry::write(const std::string& key, const std::string& value) {
    if (!isKey(key) || !isValue(value)) {
        return E_FAILURE;
    }
    values[key] = value;
    return !keeps || saveFile() ? E_SUCCESS : E_FAILURE;
}

bool AppRegistry::saveFile() const {
    if (hostFails("AppRegistry.Write")) {
        return false;
    }
    std::string text;
    for (const auto& [key, value] : values) {
        text += key;
        text += '=';
        text += value;
        text += '\n';
    }
    const std::string path = folder + "/" + kFileName;
    if (!ReplacedFile::write(path, text)) {
        return false;
    }
    Host::current().kept(path);
    return true;
}

}  // namespace Osp::App
