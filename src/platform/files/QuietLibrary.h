// SPDX-License-Identifier: MIT
// Hides what the libraries that decode and encode sounds print: some print a line to standard error
// for every damaged frame.
#pragma once

#include <string>

/// While one of these lives, on any thread, whatever the process prints to standard output and
/// standard error comes to nothing, but for what print() writes. Both are what they were before
/// when the last one ends. Should the library abort the process meanwhile, its own message is lost,
/// and one sentence says whose end that was.
class QuietLibrary {
public:
    QuietLibrary();
    QuietLibrary(const QuietLibrary&) = delete;
    QuietLibrary& operator=(const QuietLibrary&) = delete;
    ~QuietLibrary();

    /// Writes to where the stream leads when no library is kept from talking.
    /// @param stream  STDOUT_FILENO or STDERR_FILENO
    static void print(int stream, const std::string& text);

private:
    static void flush();
};
