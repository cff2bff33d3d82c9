// SPDX-License-Identifier: MIT
// Variables of the environment that this program sets for itself and its libraries. Programs that
// it starts get those of the user.
#pragma once

#include <string>
#include <vector>

class OwnEnvironment {
public:
    /// Sets a variable for this program alone. On the event thread, before there are others.
    static void set(const std::string& name, const std::string& value);

    /// The environment as the user has set it, each as "NAME=value".
    static std::vector<std::string> ofUser();
};
