// SPDX-License-Identifier: MIT
#include "WavProc.h"

#include "Arithmetic.h"
#include "ArrFunc.h"
#include "Kernels.h"
#include "SampleKeep.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

namespace {

constexpr int32_t kOneQ10 = 1024;
constexpr int32_t kHalfQ10 = 512;

/// Interpolates between two neighbours, rounded; wraps like all sample arithmetic.
inline int32_t interpolate(int32_t left, int32_t right, int32_t fractionQ10) {
    const int32_t weighted =
        wrapAdd(wrapMul(left, kOneQ10 - fractionQ10), wrapMul(right, fractionQ10));
    return wrapAdd(weighted, kHalfQ10) >> 10;
}

/// The caller makes sure that all of src that is read lies in its array, and that count * stepQ10
/// fits 32 bits.
MURMELO_KERNEL void
stretch(const int32_t* src, int32_t stepQ10, int32_t* __restrict dst, int32_t count) {
    const int32_t* next = src + 1;
    for (int32_t k = 0; k < count; k++) {
        const int32_t posQ10 = k * stepQ10;
        const int32_t i = posQ10 >> 10;
        dst[k] = interpolate(src[i], next[i], posQ10 & (kOneQ10 - 1));
    }
}

/// Like stretch, for a target of which only the samples first..last lie in its array; src is 0
/// outside its own.
void stretchAtTheEdge(const int32_t* src,
                      int64_t from,
                      int64_t stepQ10,
                      int32_t* dst,
                      int64_t dstFrom,
                      int64_t first,
                      int64_t last) {
    const auto sampleAt = [src](int64_t i) { return i >= 0 && i < length(src) ? src[i] : 0; };
    for (int64_t k = first; k <= last; k++) {
        const int64_t posQ10 = k * stepQ10;
        const int64_t i = from + (posQ10 >> 10);
        dst[dstFrom + k] =
            interpolate(sampleAt(i), sampleAt(i + 1), static_cast<int32_t>(posQ10 & (kOneQ10 - 1)));
    }
}

/// Samples begin to end - 1 of a fade over fade samples; src[0] and dst[0] are sample begin.
MURMELO_KERNEL void crossFade(const int32_t* src,
                              int32_t* __restrict dst,
                              int32_t fade,
                              int32_t gainQ15,
                              int32_t begin,
                              int32_t end) {
    for (int32_t k = 0; k < end - begin; k++) {
        const int32_t i = begin + k;
        // 16-bit samples fit: 32768 / fade * fade * 32768 < 2^31.
        const int32_t mix = wrapAdd(wrapMul(src[k], i), wrapMul(dst[k], fade - i));
        dst[k] = wrapMul(gainQ15, mix) >> 15;
    }
}

}  // namespace

void WavProc::static_dtor() {
    SampleKeep::clear();
}

WavProc::~WavProc() {
    SampleKeep::giveBack(source);
}

void WavProc::init(const int32_t* samples, int32_t srate) {
    dropRun();
    start(SampleKeep::takeCopy(samples), srate);
}

void WavProc::initWithOwn(Array<int32_t> samples, int32_t srate) {
    dropRun();
    start(samples != nullptr ? samples.release() : newArray<int32_t>(0), srate);
}

/// Drops the current run, if there is one.
void WavProc::dropRun() {
    SampleKeep::giveBack(source);
    source = nullptr;
    result.reset();
    laterCount = kNoResult;
}

/// @param samples  owned from now on
void WavProc::start(int32_t* samples, int32_t srate) {
    lastProgress = 0;
    source = samples;
    srateHz = srate;
    doInit();
}

int32_t WavProc::process() {
    if (static_cast<uint32_t>(lastProgress) >= static_cast<uint32_t>(kFinished)) {
        exc("Call to process() in illegal state!");
    }
    const int32_t progress = doProcess();
    if (progress < lastProgress || progress > kFinished) {
        exc("Illegal progress returned!");
    }
    // An error in this call has ended the run: -1 stays, so that the driver starts it again.
    if (lastProgress != kIdle) {
        lastProgress = progress;
    }
    return lastProgress;
}

int32_t* WavProc::getResult() {
    if (laterCount != kNoResult) {
        newResult(laterCount);
    }
    // cleanUp() would delete the result: the caller gets the array itself, not a copy.
    int32_t* fetched = result.release();
    cleanUp();
    return fetched;
}

void WavProc::cleanUp() {
    lastProgress = kIdle;
    doCleanup();
    dropRun();
}

void WavProc::exc(const char* /*message*/) {
    cleanUp();
}

void WavProc::exc(Osp::Base::String* /*message*/) {
    cleanUp();
}

void WavProc::newResult(int32_t count) {
    result.reset(newArray<int32_t>(count));
}

void WavProc::newResultLater(int32_t count) {
    laterCount = count;
}

void WavProc::fillResult() {
    result.reset(newArrayToFill<int32_t>(laterCount));
    laterCount = kNoResult;
}

void WavProc::addCrossFaded(
    const int32_t* src, int32_t srcOff, int32_t* dst, int32_t dstOff, int32_t fade, int32_t total) {
    const int32_t gainQ15 = fade == 0 ? 0 : 32768 / fade;
    const int32_t begin = std::max({0, -srcOff, -dstOff});
    const int32_t end = std::min(length(src) - srcOff, length(dst) - dstOff);
    if (begin >= end) {
        return;
    }
    const int32_t fadeEnd = std::min(fade + 1, end);
    crossFade(src + srcOff + begin, dst + dstOff + begin, fade, gainQ15, begin, fadeEnd);
    const int32_t copyBegin = std::max(fade + 1, begin);
    const int32_t copyEnd = std::min(total, end);
    if (copyBegin < copyEnd) {
        std::copy_n(src + srcOff + copyBegin, copyEnd - copyBegin, dst + dstOff + copyBegin);
    }
}

void WavProc::copyStretched(
    const int32_t* src, int32_t from, int32_t to, int32_t* dst, int32_t dstFrom, int32_t dstTo) {
    // Target samples are counted from dstFrom; first..last of them lie in the array.
    const int64_t distance = int64_t{dstTo} - dstFrom;
    const int64_t first = std::max<int64_t>(0, -int64_t{dstFrom});
    const int64_t last = std::min(distance, int64_t{length(dst)} - 1 - dstFrom);
    if (first > last) {
        return;
    }
    // A single target sample has no distance to divide by; it takes src[from] as it is.
    const int64_t stepQ10 = distance == 0 ? 0 : (int64_t{to} - from) * kOneQ10 / distance;
    const int64_t lastPosQ10 = last * stepQ10;
    const int64_t lowest = from + std::min<int64_t>(0, lastPosQ10 >> 10);
    const int64_t highest = from + std::max<int64_t>(0, lastPosQ10 >> 10) + 1;
    const bool inside = first == 0 && lowest >= 0 && highest < length(src) &&
                        std::abs(lastPosQ10) < std::numeric_limits<int32_t>::max();
    if (inside) {
        stretch(src + from, static_cast<int32_t>(stepQ10), dst + dstFrom,
                static_cast<int32_t>(last + 1));
    } else {
        stretchAtTheEdge(src, from, stepQ10, dst, dstFrom, first, last);
    }
}
