// SPDX-License-Identifier: MIT
#include "Math.h"

#include "Arithmetic.h"
#include "ArrFunc.h"
#include "OspBase.h"

#include <array>
#include <cmath>
#include <limits>
#include <numbers>

namespace {

constexpr int32_t kScale = 10000;
constexpr int32_t kQuarterDeg = 90;
constexpr int32_t kTableEntries = kQuarterDeg + 1;

struct OddEntry {
    int32_t degrees;
    int32_t cosine;
};

// Deliberate: these six entries differ by one from the rounded cosine. Everything that turns by
// such an angle was tuned with them.
constexpr std::array<OddEntry, 6> kOddEntries = {
    {{7, 9926}, {31, 8571}, {35, 8191}, {39, 7772}, {77, 2249}, {89, 174}}};

/// Two neighbours around the key, or the key itself twice.
struct Range {
    int32_t lo;
    int32_t hi;
};

Range narrow(const int32_t* array, int32_t lo, int32_t hi, int32_t key, bool ascending) {
    while (hi - lo > 1) {
        const int32_t middle = lo + (hi - lo) / 2;
        if (array[middle] == key) {
            return {middle, middle};
        }
        if ((array[middle] < key) == ascending) {
            lo = middle;
        } else {
            hi = middle;
        }
    }
    return {lo, hi};
}

int64_t distance(int32_t a, int32_t b) {
    return std::abs(int64_t{a} - int64_t{b});
}

}  // namespace

int32_t* Math::cosTable = nullptr;

int32_t Math::abs(int32_t value) {
    return value < 0 ? wrapSub(0, value) : value;
}

double Math::sqrt(double value) {
    return Osp::Base::Utility::Math::Sqrt(value);
}

int32_t Math::cos(int32_t degrees) {
    initCosTable();
    const int32_t rest = degrees % 360;
    const int32_t turned = rest < 0 ? rest + 360 : rest;
    if (turned < 90) {
        return cosTable[turned];
    }
    if (turned < 180) {
        return -cosTable[180 - turned];
    }
    return turned < 270 ? -cosTable[turned - 180] : cosTable[360 - turned];
}

int32_t Math::sin(int32_t degrees) {
    return cos(wrapSub(kQuarterDeg, degrees));
}

int32_t Math::tg(int32_t degrees) {
    return quotient(sin(degrees), cos(degrees));
}

int32_t Math::ctg(int32_t degrees) {
    return quotient(cos(degrees), sin(degrees));
}

int32_t Math::arccos(int32_t cosine) {
    if (cosine >= 0) {
        return acuteArccos(cosine);
    }
    // The smallest number cannot be negated; any value far outside the range has the same result.
    const int32_t positive = cosine == std::numeric_limits<int32_t>::min() ? kScale : -cosine;
    return 180 - acuteArccos(positive);
}

int32_t Math::arcsin(int32_t sine) {
    return kQuarterDeg - arccos(sine);
}

int32_t Math::search(const int32_t* array, int32_t lo, int32_t hi, int32_t key, bool ascending) {
    if (lo > hi) {
        return -1;
    }
    const Range range = narrow(array, lo, hi, key, ascending);
    if (array[range.lo] == key) {
        return range.lo;
    }
    return array[range.hi] == key ? range.hi : -1;
}

int32_t Math::search2(const int32_t* array, int32_t lo, int32_t hi, int32_t key, bool ascending) {
    if (lo > hi) {
        return lo;
    }
    const Range range = narrow(array, lo, hi, key, ascending);
    const bool upperIsNearer = distance(array[range.hi], key) < distance(array[range.lo], key);
    return upperIsNearer ? range.hi : range.lo;
}

void Math::dispose() {
    deleteArrFunc(cosTable);
    cosTable = nullptr;
}

void Math::initCosTable() {
    if (cosTable != nullptr) {
        return;
    }
    cosTable = newArray<int32_t>(kTableEntries);
    for (int32_t i = 0; i < kTableEntries; i++) {
        const double cosine = std::cos(i * std::numbers::pi / 180);
        cosTable[i] = static_cast<int32_t>(std::lround(kScale * cosine));
    }
    for (const OddEntry& odd : kOddEntries) {
        cosTable[odd.degrees] = odd.cosine;
    }
}

int32_t Math::quotient(int32_t dividend, int32_t divisor) {
    if (divisor == 0) {
        return 0;  // no result is correct here, but it must not crash
    }
    return divisor == -1 ? -dividend : dividend / divisor;
}

int32_t Math::acuteArccos(int32_t cosine) {
    initCosTable();
    return search2(cosTable, 0, length(cosTable) - 1, cosine, false);
}
