// SPDX-License-Identifier: MIT
#include "PageCalls.h"

#include <emscripten.h>

// Samples and texts are copied out of the heap within the call, because the program may free or
// overwrite them after it.
// clang-format off
EM_JS(double, pageNow, (), { return Module.page.core.now(); })
EM_JS(double, pageRealNow, (), { return performance.now(); })
EM_JS(double, pageFreeBytes, (), { return Module.page.freeBytes; })
EM_JS(void, pageAskMicrophone, (int32_t ticket), { Module.page.microphone.ask(ticket); })
EM_JS(void, pageStartMicrophone, (), { Module.page.microphone.start(); })
EM_JS(void, pageStopMicrophone, (), { Module.page.microphone.stop(); })
EM_JS(void, pageReleaseMicrophone, (), { Module.page.microphone.release(); })
EM_JS(void, pagePlayClip, (int32_t ticket, const uint8_t* file, size_t bytes), {
    Module.page.speaker.play(ticket, HEAPU8.slice(file, file + bytes));
})
EM_JS(void, pagePauseClip, (), { Module.page.speaker.pause(); })
EM_JS(void, pageResumeClip, (), { Module.page.speaker.resume(); })
EM_JS(void, pageStopClip, (), { Module.page.speaker.stop(); })
EM_JS(void, pageSetVolume, (int32_t volume), { Module.page.speaker.setVolume(volume); })
EM_JS(void, pageKeepFile, (const char* path, int32_t effect), {
    Module.page.sounds.keepFile(UTF8ToString(path), effect);
})
EM_JS(void, pageKeepTake, (const uint8_t* file, size_t bytes), {
    Module.page.sounds.keepTake(HEAPU8.slice(file, file + bytes));
})
EM_JS(void, pageFrameWaits, (), { Module.page.core.frameWaits(); })
EM_JS(void, pagePickFile, (), { document.getElementById('file').click(); })
EM_JS(void, pageShowSounds, (), { Module.page.openSounds(); })
EM_JS(void, pageListMicrophones, (), { Module.page.microphone.list(); })
EM_JS(void, pageAct, (int32_t number), { Module.page.acts[number](); })
// When Emscripten's rename() replaces a file, it leaves the replaced file in its table of names.
// That file would be found again once the new one is deleted.
EM_JS(void, pageMendRename, (), {
    const rename = FS.rename;
    FS.rename = (from, to) => {
        const replaced = FS.analyzePath(to).object;
        rename(from, to);
        if (replaced && FS.analyzePath(to).object !== replaced) {
            FS.hashRemoveNode(replaced);
        }
    };
})

// clang-format on

PageCalls::PageCalls() {
    pageMendRename();
}

double PageCalls::nowMs() {
    return pageNow();
}

double PageCalls::realNowMs() {
    return pageRealNow();
}

double PageCalls::freeBytes() {
    return pageFreeBytes();
}

void PageCalls::askMicrophone(int32_t ticket) {
    pageAskMicrophone(ticket);
}

void PageCalls::startMicrophone() {
    pageStartMicrophone();
}

void PageCalls::stopMicrophone() {
    pageStopMicrophone();
}

void PageCalls::releaseMicrophone() {
    pageReleaseMicrophone();
}

void PageCalls::playClip(int32_t ticket, const std::vector<uint8_t>& file) {
    pagePlayClip(ticket, file.data(), file.size());
}

void PageCalls::pauseClip() {
    pagePauseClip();
}

void PageCalls::resumeClip() {
    pageResumeClip();
}

void PageCalls::stopClip() {
    pageStopClip();
}

void PageCalls::setVolume(int32_t volume) {
    pageSetVolume(volume);
}

void PageCalls::keepFile(const std::string& path, int32_t effect) {
    pageKeepFile(path.c_str(), effect);
}

void PageCalls::keepTake(const std::vector<uint8_t>& file) {
    pageKeepTake(file.data(), file.size());
}

void PageCalls::frameWaits() {
    pageFrameWaits();
}

void PageCalls::pickFile() {
    pagePickFile();
}

void PageCalls::showSounds() {
    pageShowSounds();
}

void PageCalls::listMicrophones() {
    pageListMicrophones();
}

void PageCalls::act(int32_t number) {
    pageAct(number);
}
