// SPDX-License-Identifier: MIT
// Standard output and standard error are hidden for a while and then restored.
#include "QuietLibrary.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <thread>
#include <unistd.h>

namespace {

void talk(const char* words) {
    std::printf("%s", words);
    std::fprintf(stderr, "%s", words);
    std::cout << words;
    std::cerr << words;
    std::fflush(stdout);
    const size_t count = std::char_traits<char>::length(words);
    EXPECT_EQ(static_cast<ssize_t>(count), write(STDOUT_FILENO, words, count));
    EXPECT_EQ(static_cast<ssize_t>(count), write(STDERR_FILENO, words, count));
}

class QuietLibraryTest : public testing::Test {
protected:
    QuietLibraryTest() {
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
    }
};

}  // namespace

TEST_F(QuietLibraryTest, whatIsPrintedMeanwhileComesToNothing) {
    talk("a");
    std::printf("b");  // still in the buffer when it begins
    {
        const QuietLibrary quiet;
        talk("lost");
        const QuietLibrary inner;
        talk("lost");
        std::printf("lost");  // still in the buffer when it ends
    }
    talk("c");
    EXPECT_EQ("aaabccc", testing::internal::GetCapturedStdout());
    EXPECT_EQ("aaaccc", testing::internal::GetCapturedStderr());
}

TEST_F(QuietLibraryTest, aClosedStandardOutputStaysClosed) {
    const int kept = dup(STDOUT_FILENO);
    ASSERT_EQ(0, close(STDOUT_FILENO));
    {
        const QuietLibrary quiet;
        EXPECT_EQ(4, write(STDOUT_FILENO, "lost", 4));
    }
    EXPECT_EQ(-1, write(STDOUT_FILENO, "lost", 4));
    ASSERT_EQ(STDOUT_FILENO, dup2(kept, STDOUT_FILENO));
    close(kept);
    EXPECT_EQ("", testing::internal::GetCapturedStdout());
    EXPECT_EQ("", testing::internal::GetCapturedStderr());
}

TEST(QuietLibraryDeathTest, aLibraryThatEndsTheProgramIsTold) {
    EXPECT_EXIT(
        {
            const QuietLibrary quiet;
            const QuietLibrary inner;
            std::abort();
        },
        testing::KilledBySignal(SIGABRT),
        "^[^:]*: the library that reads and writes sounds has ended the program\n$");
}

TEST(QuietLibraryDeathTest, anEndBeforeOrAfterItSaysNothingOfTheLibrary) {
    EXPECT_EXIT(
        {
            { const QuietLibrary quiet; }
            std::abort();
        },
        testing::KilledBySignal(SIGABRT), "^$");
}

TEST_F(QuietLibraryTest, whatTheProgramItselfPrintsMeanwhileArrives) {
    std::thread library;
    {
        const QuietLibrary quiet;
        library = std::thread([] {
            const QuietLibrary other;
            talk("lost");
        });
        QuietLibrary::print(STDOUT_FILENO, "out");
        QuietLibrary::print(STDERR_FILENO, "err");
        library.join();
        QuietLibrary::print(STDOUT_FILENO, " more");
    }
    QuietLibrary::print(STDERR_FILENO, " again");
    EXPECT_EQ("out more", testing::internal::GetCapturedStdout());
    EXPECT_EQ("err again", testing::internal::GetCapturedStderr());
}
