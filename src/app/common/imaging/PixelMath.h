// SPDX-License-Identifier: MIT
// Arithmetic on one ARGB word, two channels at a time: red and blue share one word, alpha and
// green another, each with 8 bits of room above it.
//
// Every product is truncated by its own >> 8. Nothing saturates; colours that are not
// premultiplied may carry from one channel into the next, the same way everywhere. Plain
// functions without branches, so that the compiler can work on many pixels at once.
#pragma once

#include <cstdint>

constexpr uint32_t kPairMask = 0x00FF00FF;
constexpr uint32_t kUpperPairMask = 0xFF00FF00;
constexpr uint32_t kAlphaMask = 0xFF000000;

constexpr uint32_t redBlueOf(uint32_t argb) {
    return argb & kPairMask;
}

constexpr uint32_t alphaGreenOf(uint32_t argb) {
    return (argb >> 8) & kPairMask;
}

constexpr uint32_t greyOf(uint32_t level) {
    return level << 16 | level << 8 | level;
}

/// The factor (256 is 1) by which the pixel below remains visible.
constexpr uint32_t remainder256(uint32_t argb) {
    return 256 - (argb >> 24);
}

/// Premultiplied source-over, k256 being remainder256(s).
constexpr uint32_t overPixelKeeping(uint32_t d, uint32_t s, uint32_t k256) {
    const uint32_t rb = (redBlueOf(s) + ((redBlueOf(d) * k256) >> 8)) & kPairMask;
    const uint32_t ag = ((s & kUpperPairMask) + alphaGreenOf(d) * k256) & kUpperPairMask;
    return rb | ag;
}

constexpr uint32_t overPixel(uint32_t d, uint32_t s) {
    return overPixelKeeping(d, s, remainder256(s));
}

/// The weighted sum of two pixels given as pairs.
constexpr uint32_t
weighPixel(uint32_t rbA, uint32_t agA, uint32_t rbB, uint32_t agB, uint32_t a256, uint32_t b256) {
    return ((agA * a256 + agB * b256) & kUpperPairMask) |
           (((rbA * a256 + rbB * b256) & kUpperPairMask) >> 8);
}

/// Source-over with an extra opacity of 1..255, both pairs of the source being multiplied by it.
constexpr uint32_t overPixelScaled(uint32_t d, uint32_t rbScaled, uint32_t agScaled) {
    const uint32_t alphaTimesOpacity = agScaled >> 16;
    const uint32_t k256 = (0x10000 - alphaTimesOpacity) >> 8;
    return weighPixel(redBlueOf(d), alphaGreenOf(d), rbScaled, agScaled, k256, 1);
}

constexpr uint32_t overPixel(uint32_t d, uint32_t s, uint32_t opacity256) {
    return overPixelScaled(d, redBlueOf(s) * opacity256, alphaGreenOf(s) * opacity256);
}

/// Source-over on d of a colour whose channel pairs the caller has prepared.
constexpr uint32_t overPixelColour(uint32_t d, uint32_t agUpper, uint32_t rbUpper, uint32_t k256) {
    const uint32_t ag = (agUpper + k256 * alphaGreenOf(d)) & kUpperPairMask;
    const uint32_t rb = ((rbUpper + k256 * redBlueOf(d)) >> 8) & kPairMask;
    return ag | rb;
}

/// c0 at t256 = 0, c1 at 256.
constexpr uint32_t lerpPixel(uint32_t c0, uint32_t c1, uint32_t t256) {
    const uint32_t u256 = 256 - t256;
    const uint32_t rb = ((redBlueOf(c1) * t256 + redBlueOf(c0) * u256) >> 8) & kPairMask;
    const uint32_t ag = (alphaGreenOf(c1) * t256 + alphaGreenOf(c0) * u256) & kUpperPairMask;
    return rb | ag;
}

/// All four channels times factor256 / 256.
constexpr uint32_t scalePixel(uint32_t argb, uint32_t factor256) {
    const uint32_t rb = ((redBlueOf(argb) * factor256) >> 8) & kPairMask;
    const uint32_t ag = (alphaGreenOf(argb) * factor256) & kUpperPairMask;
    return rb | ag;
}

/// Lightness as one lerp: from black (white mask 0) or premultiplied white (white mask 0xFFFFFF) of
/// the same alpha at t256 = 0 to the colour itself at 256.
constexpr uint32_t lightPixel(uint32_t argb, uint32_t whiteMask, uint32_t t256) {
    const uint32_t end = (argb & kAlphaMask) | (greyOf(argb >> 24) & whiteMask);
    return lerpPixel(end, argb, t256);
}

/// Grey at 0, the colour itself at 256. The weights are those of the eye for a picture in video
/// colours, in 256ths: green 183, red 55, blue 18.
constexpr uint32_t saturatePixel(uint32_t argb, uint32_t t256) {
    const uint32_t grey =
        (183 * (argb >> 8 & 255) + 55 * (argb >> 16 & 255) + 18 * (argb & 255)) >> 8;
    return lerpPixel((argb & kAlphaMask) | greyOf(grey), argb, t256);
}

/// Each colour channel times (alpha + 1) / 256.
constexpr uint32_t premultPixel(uint32_t argb) {
    const uint32_t a = argb >> 24;
    const uint32_t rb = (redBlueOf(argb) * (a + 1) >> 8) & kPairMask;
    const uint32_t g = ((argb >> 8 & 255) * (a + 1)) & 0xFF00;
    return (argb & kAlphaMask) | rb | g;
}
