// SPDX-License-Identifier: MIT
// Whole-number arithmetic and trigonometry: angles in degrees, sines and cosines scaled by 10000.
#pragma once

#include <cstdint>

class Math {
public:
    /// abs of the smallest number is that number again.
    static int32_t abs(int32_t value);

    static int32_t min(int32_t a, int32_t b) { return a < b ? a : b; }

    static int32_t max(int32_t a, int32_t b) { return a > b ? a : b; }

    static double sqrt(double value);

    static int32_t cos(int32_t degrees);
    static int32_t sin(int32_t degrees);

    /// Deliberate: quotients of sine and cosine as whole numbers, not scaled (tg(45) is 1); 0 if
    /// the divisor is 0.
    static int32_t tg(int32_t degrees);
    static int32_t ctg(int32_t degrees);

    /// The angle 0 .. 180 whose cosine is nearest to the value.
    static int32_t arccos(int32_t cosine);

    /// The angle -90 .. 90.
    static int32_t arcsin(int32_t sine);

    /// Index of the key in the sorted part array[lo..hi]; -1 if it is not there.
    static int32_t
    search(const int32_t* array, int32_t lo, int32_t hi, int32_t key, bool ascending);

    /// Index of the key, or of the nearer of the two elements that it lies between (the lower index
    /// when both are equally near).
    static int32_t
    search2(const int32_t* array, int32_t lo, int32_t hi, int32_t key, bool ascending);

    /// Frees the cosine table; the next call that needs it makes it again.
    static void dispose();

private:
    static void initCosTable();
    static int32_t quotient(int32_t dividend, int32_t divisor);
    static int32_t acuteArccos(int32_t cosine);

    static int32_t* cosTable;  // counted array: cosines of 0 .. 90 degrees
};
