#include "ScriptHand.h"

#include <map>
#include <string>

using Touch = HostListener::Touch;

namespace {

constexpr int32_t kSoftKeysMiddleY = HostFrame::kSoftKeysTopPx + HostFrame::kSoftKeysHeightPx / 2;
constexpr int32_t kThirdPx = HostFrame::kWidthPx / 3;  // width of a soft key
constexpr int32_t kMiddleX = HostFrame::kWidthPx / 2;
constexpr int32_t kMiddleY = (HostFrame::kCanvasTopPx + HostFrame::kHeightPx) / 2;
constexpr int32_t kSwipeStepPx = 20 * HostFrame::kCanvasFactor;
constexpr int32_t kSwipeSteps = 6;

class Finger {
public:
    explicit Finger(std::deque<ScriptHand::Callback>& callbacks)
        : callbacks(callbacks) {}

    /// A place on the display.
    void touch(Touch kind, int32_t x, int32_t y) {
        callbacks.emplace_back(
            [kind, x, y](HostListener& listener) { listener.onTouch(kind, x, y); });
    }

    void tap(int32_t x, int32_t y) {
        touch(Touch::kPress, x, y);
        touch(Touch::kRelease, x, y);
    }

    void softKey(int32_t third) { tap(third * kThirdPx + kThirdPx / 2, kSoftKeysMiddleY); }

    void swipe(bool left) {
        const int32_t step = left ? -kSwipeStepPx : kSwipeStepPx;
        int32_t x = kMiddleX - step * kSwipeSteps / 2;
        touch(Touch::kPress, x, kMiddleY);
        for (int32_t i = 0; i < kSwipeSteps; i++) {
            x += step;
            touch(Touch::kMove, x, kMiddleY);
        }
        touch(Touch::kRelease, x, kMiddleY);
    }

private:
    std::deque<ScriptHand::Callback>& callbacks;
};

int32_t number(const ScriptCommand& command, size_t at) {
    return static_cast<int32_t>(command.numbers[at]);  // the script's reader keeps to 32 bits
}

}  // namespace

void ScriptHand::append(const ScriptCommand& command, std::deque<Callback>& callbacks) {
    Finger finger(callbacks);
    switch (command.verb) {
    case ScriptVerb::kTap:
        finger.tap(number(command, 0), number(command, 1));
        break;
    case ScriptVerb::kPress:
        finger.touch(Touch::kPress, number(command, 0), number(command, 1));
        break;
    case ScriptVerb::kMove:
        finger.touch(Touch::kMove, number(command, 0), number(command, 1));
        break;
    case ScriptVerb::kRelease:
        finger.touch(Touch::kRelease, number(command, 0), number(command, 1));
        break;
    case ScriptVerb::kSwipe:
        finger.swipe(command.text == "left");
        break;
    default:
        finger.softKey(command.text == "left" ? 0 : (command.text == "middle" ? 1 : 2));
        break;
    }
}

HostKey ScriptHand::keyOf(const ScriptCommand& command) {
    static const std::map<std::string, HostKey> kKeys = {
        {"up", HostKey::kUp},       {"down", HostKey::kDown},     {"left", HostKey::kLeft},
        {"right", HostKey::kRight}, {"middle", HostKey::kMiddle},
    };
    return kKeys.at(command.text);
}
