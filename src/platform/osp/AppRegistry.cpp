// The settings file: "key=value" lines, replaced atomically, read tolerantly.
#include "Host.h"
#include "OspApp.h"
#include "ReplacedFile.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <system_error>

namespace fs = std::filesystem;

namespace Osp::App {

namespace {

constexpr const char* kFileName = "settings";
constexpr const char* kDamagedName = "settings.damaged";
constexpr size_t kLargestFileBytes = size_t{64} * 1024;  // a few short lines; more is not ours

bool isKey(const std::string& text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), [](unsigned char c) {
        return std::isalnum(c) != 0 || c == '_' || c == '.';
    });
}

bool isValue(const std::string& text) {
    return std::all_of(text.begin(), text.end(),
                       [](unsigned char c) { return c >= 0x20 && c != 0x7F; });
}

/// False if a line is neither empty, nor a comment, nor key=value.
bool parse(const std::string& text, std::map<std::string, std::string>& values) {
    size_t start = 0;
    while (start < text.size()) {
        const size_t end = std::min(text.find('\n', start), text.size());
        std::string line = text.substr(start, end - start);
        if (!line.empty() && line.back() == '\r') {
            line.pop_back();  // edited on another system
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

/// Opens an ordinary file; null for everything else: a pipe would wait for its other end.
std::FILE* openToRead(const std::string& path) {
    std::error_code error;
    const int fd = fs::is_regular_file(path, error)
                       ? ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)
                       : -1;
    return fd >= 0 ? ::fdopen(fd, "rb") : nullptr;
}

/// False if the file exists but cannot be taken.
bool readFile(const std::string& path, std::map<std::string, std::string>& values) {
    std::FILE* file = openToRead(path);
    if (file == nullptr) {
        std::error_code error;
        return !fs::exists(path, error);
    }
    std::string text(kLargestFileBytes + 1, '\0');
    text.resize(std::fread(text.data(), 1, text.size(), file));
    const bool readable = std::ferror(file) == 0;
    std::fclose(file);
    return readable && text.size() <= kLargestFileBytes && parse(text, values);
}

}  // namespace

void AppRegistry::Open(const std::string& configFolder) {
    folder = configFolder;
    values.clear();
    if (folder.empty()) {
        return;
    }
    const std::string path = folder + "/" + kFileName;
    if (!readFile(path, values)) {
        values.clear();
        std::error_code ignored;
        fs::rename(path, folder + "/" + kDamagedName, ignored);
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

/// The value holds for this run even when it cannot be kept.
result AppRegistry::write(const std::string& key, const std::string& value) {
    if (!isKey(key) || !isValue(value)) {
        return E_FAILURE;
    }
    values[key] = value;
    return folder.empty() || saveFile() ? E_SUCCESS : E_FAILURE;
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
    return ReplacedFile::write(folder + "/" + kFileName, text);
}

}  // namespace Osp::App
