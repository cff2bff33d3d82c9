// SPDX-License-Identifier: MIT
#include "Rnd.h"

void Rnd::init(int32_t a, int32_t b, int32_t c) {
    x = a;
    y = b;
    z = c;
    w = kSeedW;
    carry = 0;
}

double Rnd::nextDouble() {
    const int32_t high = nextInt() >> 5;
    const int32_t low = nextInt() >> 6;
    return (high * 0x1p26 + low) * 0x1p-53;
}

int32_t Rnd::nextLong() {
    nextInt();
    return nextInt();
}
