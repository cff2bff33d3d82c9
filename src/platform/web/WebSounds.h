// SPDX-License-Identifier: MIT
// Words about the sounds of the page: their names, the lines of their list, and why a file is none.
#pragma once

#include <cstdint>
#include <string>

class WebSounds {
public:
    /// Under this path lies the raw last take.
    static constexpr const char* kTakePath = "take";

    /// The name under which a sound leaves the page: "murmelo-robot-00003.wav".
    /// @param path  of the file that the program has written, "/home/Murmelo/rec_00003.wav"; a take
    /// has no number
    /// @param effectWord  null: none is known
    static std::string fileName(const std::string& path, const char* effectWord);

    /// What the list says of a sound: "murmelo-robot-00003.wav (Robot, 1.2 s)".
    /// @param name  of the file
    /// @param effectName  in that language; empty: it is not told
    /// @param fileBytes  of the WAV file
    static std::string line(const std::string& path,
                            const std::string& name,
                            const std::string& effectName,
                            int32_t fileBytes,
                            const std::string& language);

    /// Why a file that the browser would have to decode is refused, as a name of HostWords; empty:
    /// it is not. Decoded it takes many times its size.
    /// @param seconds  of its sound; not finite if the browser cannot tell
    static const char* refusal(double fileBytes, double seconds);
};
