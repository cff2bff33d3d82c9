// SPDX-License-Identifier: MIT
#include "GranularSynth.h"

#include "Arithmetic.h"
#include "ArrFunc.h"
#include "SampleKeep.h"
#include "WavProc.h"

#include <algorithm>
#include <cassert>

GranularSynth::GranularSynth(
    const int32_t* source, int32_t step, int32_t fade, int32_t search, Source ownership)
    : numGrains(length(source) / step)
    , step(step)
    , fade(fade)
    , search(search)
    , temp(newArray<int32_t>(kTempSamples))
    , ownSource(ownership == Source::kCopied ? SampleKeep::takeCopy(source) : nullptr)
    , source(ownSource != nullptr ? ownSource : source)
    , grainSearch(search, fade) {
    assert(step > 0 && fade >= 0 && search >= 0 && fade + search <= kTempSamples);
    srcPosQ10.reset(newArray<int32_t>(numGrains));
    dstPosQ10.reset(newArray<int32_t>(numGrains));
    stretchesQ10.reset(newArray<int32_t>(numGrains));
    periods.reset(newArray<int32_t>(numGrains));
    correlations.reset(newArray<int32_t>(numGrains));
    meanAmps.reset(newArray<int32_t>(numGrains));
    for (int32_t g = 0; g < numGrains; g++) {
        srcPosQ10[g] = wrapMul(g * step, POS_ONE);
        dstPosQ10[g] = srcPosQ10[g];
        stretchesQ10[g] = STR_ONE;
        periods[g] = -1;
    }
}

GranularSynth::~GranularSynth() {
    SampleKeep::giveBack(ownSource);
}

int32_t GranularSynth::getDstLength() {
    // Without a grain the output is silence, as long as one search and one fade.
    const int32_t lastPos = numGrains > 0 ? getDstPos(numGrains - 1, false) : 0;
    return std::max(search + fade + lastPos, 0);
}

void GranularSynth::addDstPos(int32_t from, int32_t to, int32_t delta, bool fixedPoint) {
    const int32_t deltaQ10 = fixedPoint ? delta : wrapMul(delta, POS_ONE);
    for (int32_t g = std::max(from, 0); g <= std::min(to, numGrains - 1); g++) {
        dstPosQ10[g] = wrapAdd(dstPosQ10[g], deltaQ10);
    }
}

int32_t GranularSynth::getDstPos(int32_t grain, bool fixedPoint) {
    return fixedPoint ? dstPosQ10[grain] : dstPosQ10[grain] >> POS_SH;
}

void GranularSynth::scaleDstPos(float factor) {
    for (int32_t g = 0; g < numGrains; g++) {
        dstPosQ10[g] = toInt32(dstPosQ10[g] * static_cast<double>(factor) + 0.5);
    }
}

void GranularSynth::pasteGrain(int32_t grain, int32_t* dst) {
    if (grain < 0 || grain >= numGrains - 1) {
        return;
    }
    const int32_t dstPos = dstPosQ10[grain] >> POS_SH;
    const int32_t nextDstPos = dstPosQ10[grain + 1] >> POS_SH;
    const int32_t srcPos = srcPosQ10[grain] >> POS_SH;
    if (nextDstPos <= dstPos) {
        exc("Dst pos overlapping.");
    }
    int32_t samples = search + fade + nextDstPos - dstPos;
    auto srcSamples = static_cast<int32_t>((int64_t{stretchesQ10[grain]} * samples) >> STR_SH);
    if (int64_t{srcPos} + srcSamples >= length(source)) {
        srcSamples = length(source) - 1 - srcPos;  // the interpolation needs one more
    }
    if (dstPos - search + samples > length(dst)) {
        samples = length(dst) + search - dstPos;
    }
    if (samples > kTempSamples) {
        exc("(Stretched) src grain too large for temp buf. length =");
    }
    resampleGrain(srcPos, srcSamples, samples);
    const int32_t offset = grain == 0 ? 0 : findOffset(dst, dstPos);
    WavProc::addCrossFaded(temp, offset, dst, dstPos, fade, samples - search);
}

// Resamples source[from, from + count) to `samples` samples in temp; what does not fit is dropped.
void GranularSynth::resampleGrain(int32_t from, int32_t count, int32_t samples) {
    // A position after 262 s has wrapped to a negative one: copyStretched() reads silence there.
    if (count != samples || from < 0) {
        WavProc::copyStretched(source, from, from + count - 1, temp, 0, samples - 1);
        return;
    }
    const int32_t fitting = std::min(count, kTempSamples);
    if (fitting > 0) {
        std::copy_n(source + from, fitting, temp.get());
    }
}

int32_t GranularSynth::findOffset(const int32_t* dst, int32_t dstPos) {
    const int32_t before = std::max(-dstPos, 0);
    const int32_t window = std::min(fade, length(dst) - dstPos) - before;
    if (window == fade) {
        return grainSearch.bestOffset(temp, dst + dstPos);
    }
    // If a grain was moved over the edge of the output, only the part inside is compared.
    return window <= 0 ? 0
                       : GrainSearch::bestOffsetInFull(temp + before, dst + dstPos + before, search,
                                                       window);
}
