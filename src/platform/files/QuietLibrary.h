// Keeps the libraries that decode and encode sounds from talking: some print a line of their own to
// standard error for every damaged frame.
#pragma once

#include <array>

/// While one of these lives, whatever the process prints to standard output and standard error
/// comes to nothing. Both are what they were before when it ends. Should the library abort the
/// process meanwhile, its own message is lost, and one sentence says whose end that was.
class QuietLibrary {
public:
    QuietLibrary();
    QuietLibrary(const QuietLibrary&) = delete;
    QuietLibrary& operator=(const QuietLibrary&) = delete;
    ~QuietLibrary();

private:
    /// One of the two, turned away. Where there is no /dev/null the library is heard.
    struct Turned {
        int from = -1;
        int kept = -1;  // a second name for where it led; -1 if it was closed
        bool isTurned = false;
    };

    static void flush();
    static void turn(Turned& stream, int from);
    static void turnBack(const Turned& stream);

    std::array<Turned, 2> streams;
    bool isOutermost = false;
};
