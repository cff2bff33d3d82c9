// SPDX-License-Identifier: MIT
// The operations of the platform that a test can tell to fail, each named once.
#pragma once

#include <array>
#include <cstdlib>
#include <string_view>

class HostOperation {
public:
    /// The names of all operations, in alphabetical order.
    static constexpr std::array kNames = {
        "AppRegistry.Write", "AudioIn.AddBuffer",   "AudioIn.Construct",    "AudioIn.Prepare",
        "AudioIn.Reset",     "AudioIn.Start",       "AudioIn.Stop",         "AudioIn.Unprepare",
        "Canvas.Show",       "Directory.Construct", "Directory.Create",     "Directory.Read",
        "File.Construct",    "File.Copy",           "File.Flush",           "File.MoveAside",
        "File.Read",         "File.Remove",         "File.Rename",          "File.RenameToFree",
        "File.Seek",         "File.SyncFolder",     "File.Write",           "Player.Close",
        "Player.Construct",  "Player.OpenFile",     "Player.Pause",         "Player.Play",
        "Player.SetVolume",  "Player.Stop",         "RuntimeInfo.GetValue", "SettingInfo.GetValue",
    };

    static constexpr bool isKnown(std::string_view name) {
        for (const char* known : kNames) {
            if (name == known) {
                return true;
            }
        }
        return false;
    }

    /// @param name  a literal; if it is not in the table, the call does not compile
    // NOLINTNEXTLINE(google-explicit-constructor): allows hostFails("File.Write")
    consteval HostOperation(const char* name)
        : text(name) {
        if (!isKnown(name)) {
            std::abort();  // not a constant expression, so it does not compile
        }
    }

    constexpr const char* name() const { return text; }

private:
    const char* text;
};
