// SPDX-License-Identifier: MIT
// Hides what the libraries that decode and encode sounds print: some print a line to standard error
// for every damaged frame.
#pragma once

#include <string>

/// While at least one object exists, on any thread, everything that the process writes to standard
/// output and standard error is dropped, except what print() writes. Both streams are restored when
/// the last object is destroyed. If the library aborts the process meanwhile, its own message is
/// lost; one sentence then tells that the library has ended the program.
class QuietLibrary {
public:
    QuietLibrary();
    QuietLibrary(const QuietLibrary&) = delete;
    QuietLibrary& operator=(const QuietLibrary&) = delete;
    ~QuietLibrary();

    /// Writes to a stream even while it is hidden.
    /// @param stream  STDOUT_FILENO or STDERR_FILENO
    static void print(int stream, const std::string& text);

private:
    static void flush();
};
