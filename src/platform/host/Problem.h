// SPDX-License-Identifier: MIT
// What is wrong, in words for the user. True when something is wrong:
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
    /// Nothing is wrong.
    static Problem none() { return {}; }

    /// Nothing is wrong.
    Problem() = default;

    /// @param sentence  without a full stop; empty: nothing is wrong
    // NOLINTNEXTLINE(google-explicit-constructor): an operation returns the sentence itself
    Problem(std::string sentence)
        : text(std::move(sentence)) {}

    // NOLINTNEXTLINE(google-explicit-constructor): an operation returns the sentence itself
    Problem(const char* sentence)
        : text(sentence) {}

    /// True if something is wrong.
    explicit operator bool() const { return !text.empty(); }

    /// What is wrong; empty if nothing is.
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
