// SPDX-License-Identifier: MIT
#include "EffectJob.h"

#include "Fx.h"
#include "G.h"
#include "Murmelo.h"
#include "OspBase.h"
#include "Process.h"

using Osp::Base::String;

void EffectJob::enter(State* next, State* back) {
    int32_t* samples = Murmelo::loadLastRec8Khz();
    if (samples == nullptr) {
        return;
    }
    auto* result = new String(G::resultPath());
    Process::enter(samples, G::fxs[G::getCurrFx()]->processor, result, next, back);
}
