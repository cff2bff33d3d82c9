// SPDX-License-Identifier: MIT
// A page without a browser: its clock is moved by the test, and it notes the program's calls.
#pragma once

#include "PlainWav.h"
#include "WebPage.h"

#include <string>
#include <utility>
#include <vector>

class FakePage : public WebPage {
public:
    double nowMs() override { return clockMs; }

    double realNowMs() override { return realMs += realStepMs; }

    double freeBytes() override { return 1 << 30; }

    void askMicrophone(int32_t ticket) override {
        askedTicket = ticket;
        notes.emplace_back("ask");
    }

    void startMicrophone() override { notes.emplace_back("start"); }

    void stopMicrophone() override { notes.emplace_back("stop"); }

    void releaseMicrophone() override { notes.emplace_back("release"); }

    void playClip(int32_t ticket, const std::vector<uint8_t>& file) override {
        clipTicket = ticket;
        clip = file;
        notes.emplace_back("play");
    }

    void pauseClip() override { notes.emplace_back("pause clip"); }

    void resumeClip() override { notes.emplace_back("resume clip"); }

    void stopClip() override { notes.emplace_back("stop clip"); }

    void setVolume(int32_t newVolume) override { volume = newVolume; }

    void keepFile(const std::string& path, int32_t effect) override {
        keptFiles.push_back(path + " " + std::to_string(effect));
    }

    void keepTake(const std::vector<uint8_t>& file) override {
        keptTake = PlainWav::readTake(file.data(), file.size());
        takesKept++;
    }

    void frameWaits() override { frames++; }

    void pickFile() override { notes.emplace_back("pick a file"); }

    void showSounds() override { notes.emplace_back("show the sounds"); }

    void listMicrophones() override { notes.emplace_back("list microphones"); }

    void act(int32_t number) override { notes.push_back("act " + std::to_string(number)); }

    std::vector<std::string> takeNotes() { return std::exchange(notes, {}); }

    double clockMs = 0;
    double realMs = 0;
    double realStepMs = 0;  // how much the real clock advances at each call
    int32_t askedTicket = 0;
    int32_t clipTicket = 0;
    int32_t volume = -1;
    int32_t frames = 0;
    int32_t takesKept = 0;
    std::vector<uint8_t> clip;
    std::vector<int16_t> keptTake;
    std::vector<std::string> keptFiles;
    std::vector<std::string> notes;
};
