// SPDX-License-Identifier: MIT
// Variables of the environment that this program sets for itself and its libraries. Programs that
// it starts get the user's own values.
#pragma once

#include <string>
#include <vector>

class OwnEnvironment {
public:
    /// Sets a variable for this program alone. On the event thread, before other threads are
    /// started.
    static void set(const std::string& name, const std::string& value);

    /// The environment as the user has set it, each as "NAME=value".
    static std::vector<std::string> ofUser();
};
