// SPDX-License-Identifier: MIT
// An error in words for the user, or no error. It converts to true if there is one:
//
//     if (const Problem problem = locks.take(folders)) {
//         return reportError(problem.sentence());
//     }
#pragma once

#include <ostream>
#include <string>
#include <utility>

class [[nodiscard]] Problem {
public:
    /// No problem.
    static Problem none() { return {}; }

    /// No problem.
    Problem() = default;

    /// @param sentence  without a full stop; empty: no problem
    // NOLINTNEXTLINE(google-explicit-constructor): an operation returns the sentence itself
    Problem(std::string sentence)
        : text(std::move(sentence)) {}

    // NOLINTNEXTLINE(google-explicit-constructor): an operation returns the sentence itself
    Problem(const char* sentence)
        : text(sentence) {}

    /// True if there is a problem.
    explicit operator bool() const { return !text.empty(); }

    /// What the problem is; empty if there is none.
    const std::string& sentence() const { return text; }

    friend bool operator==(const Problem& problem, const std::string& sentence) {
        return problem.text == sentence;
    }

    friend bool operator==(const Problem& a, const Problem& b) { return a.text == b.text; }

    friend std::ostream& operator<<(std::ostream& stream, const Problem& problem) {
        return stream << problem.text;
    }

private:
    std::string text;
};
