// SPDX-License-Identifier: MIT
// A problem is a sentence, and converts to true if there is one.
#include "Problem.h"

#include <gtest/gtest.h>

TEST(Problem, aSentenceIsAProblemAndIsKept) {
    const Problem problem = std::string("the disk is full");
    EXPECT_TRUE(problem);
    EXPECT_EQ("the disk is full", problem.sentence());
}

TEST(Problem, nothingIsWrongWithoutASentence) {
    EXPECT_FALSE(Problem::none());
    EXPECT_FALSE(Problem(""));
    EXPECT_EQ("", Problem::none().sentence());
}

TEST(Problem, isEqualToItsSentence) {
    EXPECT_EQ("the disk is full", Problem("the disk is full"));
    EXPECT_NE("", Problem("the disk is full"));
    EXPECT_EQ(Problem::none(), Problem());
}
