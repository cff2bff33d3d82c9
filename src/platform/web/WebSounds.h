// SPDX-License-Identifier: MIT
// Texts about the sounds of the page: their file names, the lines of their list, and why a file is
// refused.
#pragma once

#include <cstdint>
#include <string>

class WebSounds {
public:
    /// Path that stands for the last take, before any effect.
    static constexpr const char* kTakePath = "take";

    /// The name under which a sound leaves the page: "murmelo-robot-00003.wav".
    /// @param path  of the file that the program has written, "/home/Murmelo/rec_00003.wav", or
    /// kTakePath, which has no number
    /// @param effectWord  null: none is known
    static std::string fileName(const std::string& path, const char* effectWord);

    /// The list's line for a sound: "murmelo-robot-00003.wav (Robot, 1.2 s)".
    /// @param name  of the file
    /// @param effectName  in that language; empty: the line has none
    /// @param fileBytes  of the WAV file
    static std::string line(const std::string& path,
                            const std::string& name,
                            const std::string& effectName,
                            int32_t fileBytes,
                            const std::string& language);

    /// Why a file that the browser would have to decode is refused, as a name of HostWords; empty:
    /// it is accepted. There is a limit because a decoded sound takes many times the size of its
    /// file.
    /// @param seconds  length of its sound in seconds; not finite if the browser does not know it
    static const char* refusal(double fileBytes, double seconds);
};
