// SPDX-License-Identifier: MIT
#include "ScriptHand.h"

#include <map>

using Touch = HostListener::Touch;

namespace {

constexpr int32_t kSoftKeysMiddleY = HostFrame::kSoftKeysTopPx + HostFrame::kSoftKeysHeightPx / 2;
constexpr int32_t kThirdPx = HostFrame::kWidthPx / 3;  // width of a soft key
constexpr int32_t kMiddleX = HostFrame::kWidthPx / 2;
constexpr int32_t kMiddleY = (HostFrame::kCanvasTopPx + HostFrame::kHeightPx) / 2;
constexpr int32_t kSwipeStepPx = 20 * HostFrame::kCanvasFactor;
constexpr int32_t kSwipeSteps = 6;

}  // namespace

void ScriptHand::touch(Touch kind, int32_t x, int32_t y) {
    callbacks.emplace_back([kind, x, y](HostListener& listener) { listener.onTouch(kind, x, y); });
}

void ScriptHand::tap(int32_t x, int32_t y) {
    touch(Touch::kPress, x, y);
    touch(Touch::kRelease, x, y);
}

void ScriptHand::swipe(const std::string& direction) {
    const int32_t step = direction == "left" ? -kSwipeStepPx : kSwipeStepPx;
    int32_t x = kMiddleX - step * kSwipeSteps / 2;
    touch(Touch::kPress, x, kMiddleY);
    for (int32_t i = 0; i < kSwipeSteps; i++) {
        x += step;
        touch(Touch::kMove, x, kMiddleY);
    }
    touch(Touch::kRelease, x, kMiddleY);
}

void ScriptHand::softKey(const std::string& third) {
    const int32_t index = third == "left" ? 0 : (third == "middle" ? 1 : 2);
    tap(index * kThirdPx + kThirdPx / 2, kSoftKeysMiddleY);
}

HostKey ScriptHand::keyOf(const std::string& name) {
    static const std::map<std::string, HostKey> kKeys = {
        {"up", HostKey::kUp},       {"down", HostKey::kDown},     {"left", HostKey::kLeft},
        {"right", HostKey::kRight}, {"middle", HostKey::kMiddle},
    };
    return kKeys.at(name);
}
