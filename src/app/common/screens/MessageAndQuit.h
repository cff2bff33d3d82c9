// SPDX-License-Identifier: MIT
// The screen for a fatal error: a message, and one key that ends the program.
#pragma once

#include "Screen.h"

#include <memory>

class MessageAndQuit : public Screen {
public:
    static constexpr int32_t kHeapLow = 1;
    static constexpr int32_t kStorageLow = 2;
    static constexpr int32_t kFileError = 3;
    static constexpr int32_t kNotSupported = 4;
    static constexpr int32_t kNoMemCard = 5;
    static constexpr int32_t kNoAudio = 6;

    /// Texts are those of the current language; any other kind says "Error".
    explicit MessageAndQuit(int32_t kind);

    /// Makes one and enters it at once; the calling screen is no longer the current one. It is kept
    /// until the program ends.
    static void enter(int32_t kind);

    /// The same, but paints the plain picture first: other windows would shine through the box.
    static void enterOnPicture(int32_t kind);

    /// The one that was entered last; null before the first.
    static State* current() { return entered.get(); }

    void onEnter() override;

    void onEvent(Event* event) override;

    static void static_ctor();
    static void static_dtor();

    int32_t heading;  // string id, Res::Null for none
    int32_t body;     // string id, Res::Null for none

private:
    static int32_t joined(int32_t firstId, int32_t secondId);

    static std::unique_ptr<MessageAndQuit> entered;
};
