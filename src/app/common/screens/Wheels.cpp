// SPDX-License-Identifier: MIT
#include "Wheels.h"

#include "Bounds.h"
#include "G.h"
#include "Main.h"
#include "PaImage.h"

namespace {

constexpr int32_t kPhases = 6;

}  // namespace

void Wheels::paint(int32_t frame) {
    Main::paintBg(G::piWheels15, nullptr);
    PaImage* const phases[kPhases] = {nullptr,       G::piWheels15, G::piWheels30,
                                      G::piWheels45, G::piWheels60, G::piWheels75};
    PaImage* wheels = phases[frame % kPhases];
    if (wheels != nullptr) {
        wheels->paintOn(G::scr, 0, 0, G::scrB, nullptr);
    }
}
