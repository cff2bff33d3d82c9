// SPDX-License-Identifier: MIT
// The page as WebHost sees it: passes each call to the part of the object `Module.page` that
// carries it out.
#pragma once

#include "WebPage.h"

class PageCalls : public WebPage {
public:
    /// Also corrects an error in rename() of Emscripten's file system.
    PageCalls();

    double nowMs() override;
    double realNowMs() override;
    double freeBytes() override;
    void askMicrophone(int32_t ticket) override;
    void startMicrophone() override;
    void stopMicrophone() override;
    void releaseMicrophone() override;
    void playClip(int32_t ticket, const std::vector<uint8_t>& file) override;
    void pauseClip() override;
    void resumeClip() override;
    void stopClip() override;
    void setVolume(int32_t volume) override;
    void keepFile(const std::string& path, int32_t effect) override;
    void keepTake(const std::vector<uint8_t>& file) override;
    void frameWaits() override;
    void pickFile() override;
    void showSounds() override;
    void listMicrophones() override;
    void act(int32_t number) override;
};
