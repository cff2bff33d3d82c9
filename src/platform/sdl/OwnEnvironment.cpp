// SPDX-License-Identifier: MIT
#include "OwnEnvironment.h"

#include <cstdlib>
#include <map>
#include <optional>
#include <unistd.h>

namespace {

/// The user's value of each variable that this program has set; no value: the user had not set it.
std::map<std::string, std::optional<std::string>>& before() {
    static std::map<std::string, std::optional<std::string>> variables;
    return variables;
}

}  // namespace

void OwnEnvironment::set(const std::string& name, const std::string& value) {
    const char* users = std::getenv(name.c_str());
    before().try_emplace(name, users != nullptr ? std::optional<std::string>(users) : std::nullopt);
    ::setenv(name.c_str(), value.c_str(), 1);
}

std::vector<std::string> OwnEnvironment::ofUser() {
    std::vector<std::string> variables;
    for (char** variable = environ; variable != nullptr && *variable != nullptr; variable++) {
        const std::string text = *variable;
        if (before().count(text.substr(0, text.find('='))) == 0) {
            variables.push_back(text);
        }
    }
    for (const auto& [name, value] : before()) {
        if (value.has_value()) {
            variables.push_back(name + "=" + *value);
        }
    }
    return variables;
}
