// SPDX-License-Identifier: MIT
// The numbers in the name of a picture are found, also where a name is odd.
#include "ArrFunc.h"
#include "OspBase.h"
#include "StrUtils.h"
#include "VectorUtils.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace {

struct Parsed {
    int32_t count;
    std::vector<int32_t> numbers;
};

Parsed parse(const char* text, int32_t room = 8) {
    Osp::Base::String string(text);
    auto* numbers = newArray<int32_t>(room);
    const int32_t count = StrUtils::parseInts(&string, numbers);
    Parsed parsed{count, {numbers, numbers + std::min(count, room)}};
    deleteArrFunc(numbers);
    return parsed;
}

}  // namespace

TEST(StrUtils, findsTheNumbersOfAPlacedPicture) {
    EXPECT_EQ((std::vector<int32_t>{3, 10, 20, 240, 57}),
              parse("/Res/wheel3_x10y20w240h57.png").numbers);
}

TEST(StrUtils, theCharacterThatEndsANumberMayStartTheNext) {
    EXPECT_EQ((std::vector<int32_t>{5, 5}), parse("x5y5").numbers);
    EXPECT_EQ((std::vector<int32_t>{5, -24}), parse("5-6").numbers);
}

TEST(StrUtils, aHyphenCountsAsADigitOfMinusThree) {
    EXPECT_EQ((std::vector<int32_t>{-25}), parse("-5").numbers);
    EXPECT_EQ((std::vector<int32_t>{-3, -3, -23}), parse("a-b--7").numbers);
}

TEST(StrUtils, textsWithoutNumbersHaveNone) {
    EXPECT_EQ(0, parse("").count);
    EXPECT_EQ(0, parse("/Res/background.png").count);
}

TEST(StrUtils, aNumberMayEndTheText) {
    EXPECT_EQ((std::vector<int32_t>{0, 42}), parse("00b0042").numbers);
}

TEST(StrUtils, moreNumbersThanRoomAreCountedButNotStored) {
    const Parsed parsed = parse("1 2 3 4", 2);
    EXPECT_EQ(4, parsed.count);
    EXPECT_EQ((std::vector<int32_t>{1, 2}), parsed.numbers);
}

TEST(StrUtils, numbersBeyond32BitsWrap) {
    EXPECT_EQ((std::vector<int32_t>{INT32_MIN}), parse("2147483648").numbers);
}

TEST(StrUtils, neitherItsStartNorItsEndChangesWhatItFinds) {
    const std::vector<int32_t> expected{10, 20};
    StrUtils::static_ctor();
    EXPECT_EQ(expected, parse("x10y20").numbers);
    StrUtils::static_dtor();
    EXPECT_EQ(expected, parse("x10y20").numbers);
}

TEST(VectorUtils, holdsNothingThatItsStartWouldHaveToMake) {
    EXPECT_TRUE(std::is_empty_v<VectorUtils>);
    VectorUtils::static_ctor();
    VectorUtils::static_dtor();
    EXPECT_EQ((std::vector<int32_t>{10, 20}), parse("x10y20").numbers);
}
