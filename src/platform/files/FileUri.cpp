// SPDX-License-Identifier: MIT
#include "FileUri.h"

#include <array>
#include <cctype>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <unistd.h>

namespace {

constexpr const char* kScheme = "file:";
constexpr const char* kHexDigits = "0123456789ABCDEF";

int32_t hexValue(char digit) {
    if (digit >= '0' && digit <= '9') {
        return digit - '0';
    }
    const int lower = std::tolower(static_cast<unsigned char>(digit));
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

/// Decodes %XX. False if two digits are missing, or for %00, which would end the text.
bool decode(const std::string& text, std::string& decoded) {
    for (size_t i = 0; i < text.size(); i++) {
        if (text[i] != '%') {
            decoded += text[i];
            continue;
        }
        const int32_t high = i + 2 < text.size() ? hexValue(text[i + 1]) : -1;
        const int32_t low = high >= 0 ? hexValue(text[i + 2]) : -1;
        if (low < 0 || high * 16 + low == 0) {
            return false;
        }
        decoded += static_cast<char>(high * 16 + low);
        i += 2;
    }
    return true;
}

bool isThisComputer(const std::string& host) {
    std::array<char, 256> name{};
    return host.empty() || host == "localhost" ||
           (::gethostname(name.data(), name.size() - 1) == 0 && host == name.data());
}

bool needsNoCode(char letter) {
    const auto code = static_cast<unsigned char>(letter);
    return code < 128 && (std::isalnum(code) != 0 ||
                          std::string("-._~/!$&'()*+,;=:@").find(letter) != std::string::npos);
}

}  // namespace

Problem FileUri::toPath(const std::string& nameOrUri, std::string& path) {
    const std::string scheme = kScheme;
    if (nameOrUri.compare(0, scheme.size(), scheme) != 0 ||
        nameOrUri.compare(scheme.size(), 1, "/") != 0) {
        path = nameOrUri;
        return Problem::none();
    }
    std::string rest = nameOrUri.substr(scheme.size());
    if (rest.compare(0, 2, "//") == 0) {
        const size_t slash = rest.find('/', 2);
        const std::string host = rest.substr(2, slash == std::string::npos ? slash : slash - 2);
        if (!isThisComputer(host)) {
            return "it lies on another computer";
        }
        rest = slash == std::string::npos ? "" : rest.substr(slash);
    }
    std::string decoded;
    if (rest.empty() || !decode(rest, decoded)) {
        return "it is not the address of a file";
    }
    path = decoded;
    return Problem::none();
}

std::string FileUri::fromPath(const std::string& path) {
    std::string uri = std::string(kScheme) + "//";
    for (const char letter : path) {
        if (needsNoCode(letter)) {
            uri += letter;
        } else {
            const auto code = static_cast<unsigned char>(letter);
            uri += '%';
            uri += kHexDigits[code / 16];
            uri += kHexDigits[code % 16];
        }
    }
    return uri;
}

std::string FileUri::nameIn(const std::string& path) {
    const std::string name = std::filesystem::path(path).filename().string();
    return name.empty() ? path : name;
}
