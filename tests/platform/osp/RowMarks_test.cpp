// SPDX-License-Identifier: MIT
// Rows are marked, listed as runs, and cleared.
#include "RowMarks.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

using Osp::Graphics::RowMarks;

namespace {

std::vector<int32_t> marked(const RowMarks& marks) {
    std::vector<int32_t> rows;
    for (RowMarks::Run run = marks.next(0); run.count > 0;
         run = marks.next(run.first + run.count)) {
        for (int32_t i = 0; i < run.count; i++) {
            rows.push_back(run.first + i);
        }
    }
    return rows;
}

}  // namespace

TEST(RowMarks, atFirstNothingIsMarked) {
    const RowMarks marks(5);
    EXPECT_TRUE(marks.none());
    EXPECT_EQ(0, marks.next(0).count);
    EXPECT_TRUE(RowMarks(0).none());
}

TEST(RowMarks, neighboursAreOneRun) {
    RowMarks marks(10);
    marks.mark(4, 2);
    marks.mark(1, 3);
    marks.mark(8, 1);
    EXPECT_FALSE(marks.none());
    EXPECT_EQ(1, marks.next(0).first);
    EXPECT_EQ(5, marks.next(0).count);
    EXPECT_EQ(2, marks.next(2).first);  // in the middle of it: the rest
    EXPECT_EQ(4, marks.next(2).count);
    EXPECT_EQ(8, marks.next(6).first);
    EXPECT_EQ(1, marks.next(6).count);
    EXPECT_EQ(0, marks.next(9).count);
    EXPECT_EQ(0, marks.next(100).count);
}

TEST(RowMarks, whatLiesOutsideIsLeftOut) {
    RowMarks marks(4);
    marks.mark(-5, 5);
    marks.mark(4, 1);
    marks.mark(2, 0);
    marks.mark(2, -1);
    EXPECT_TRUE(marks.none());
    marks.mark(-1, 2);
    marks.mark(3, 0x7FFFFFFF);
    EXPECT_EQ((std::vector<int32_t>{0, 3}), marked(marks));
}

TEST(RowMarks, clearingForgetsAllOfThem) {
    RowMarks marks(4);
    marks.markAll();
    EXPECT_EQ((std::vector<int32_t>{0, 1, 2, 3}), marked(marks));
    marks.clear();
    EXPECT_TRUE(marks.none());
    marks.mark(3, 1);
    EXPECT_EQ((std::vector<int32_t>{3}), marked(marks));
}

TEST(RowMarks, remembersWhatAListOfRowsRemembers) {
    std::mt19937 random(1);
    const auto below = [&random](uint32_t n) { return static_cast<int32_t>(random() % n); };
    RowMarks marks(40);
    std::vector<bool> rows(40);
    for (int32_t i = 0; i < 2000; i++) {
        if (random() % 8 == 0) {
            marks.clear();
            rows.assign(40, false);
        }
        const int32_t first = below(50);
        const int32_t count = below(12);
        marks.mark(first, count);
        std::vector<int32_t> expected;
        for (int32_t row = 0; row < 40; row++) {
            rows[static_cast<size_t>(row)] =
                rows[static_cast<size_t>(row)] || (row >= first && row < first + count);
            if (rows[static_cast<size_t>(row)]) {
                expected.push_back(row);
            }
        }
        ASSERT_EQ(expected, marked(marks));
        ASSERT_EQ(expected.empty(), marks.none());
    }
}
