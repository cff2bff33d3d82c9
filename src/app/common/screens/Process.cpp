// SPDX-License-Identifier: MIT
#include "Process.h"

#include "Event.h"
#include "G.h"
#include "MessageAndQuit.h"
#include "Murmelo.h"
#include "Orm.h"
#include "OspBase.h"
#include "Progress.h"
#include "SkBar.h"
#include "Str.h"
#include "WavFile.h"
#include "WavProc.h"

using Osp::Base::String;

Process::Process(int32_t* samples, WavProc* processor, String* path, State* next, State* back)
    : samples(samples)
    , processor(processor)
    , next(next)
    , back(back)
    , path(path) {}

Process::~Process() = default;

void Process::enter(int32_t* samples, WavProc* processor, String* path, State* next, State* back) {
    delete G::stateProcess;
    G::stateProcess = new Process(samples, processor, path, next, back);
    State::setState(G::stateProcess, true, true);
}

void Process::onEnter() {
    Progress::paintInit(Str::str_PLEASE_WAIT);
    SkBar::clear();
    Orm::flush();
    schedUpdate();
}

void Process::onExit() {
    samples.reset();
    processor = nullptr;
    next = nullptr;
    path.reset();
}

void Process::schedUpdate() {
    Orm::schedEvent(Orm::EV_T_UPDATE, nullptr, nullptr, 0);
}

void Process::onEvent(Event* event) {
    if (event->type == Orm::EV_T_UPDATE) {
        update();  // does not change the soft-key bar
        return;
    }
    SkBar::update(event, true);
    if (event->type == Orm::EV_T_SYS_PAUSE) {
        processor->cleanUp();
        State::setState(back, true, true);
    }
}

void Process::update() {
    if (processor->getLastProgress() == WavProc::kIdle) {
        processor->init(samples, WavFile::kRateHz);
        schedUpdate();
        return;
    }
    if (processor->getLastProgress() >= WavProc::kFinished) {
        return;
    }
    const int32_t progress = processor->process();
    Progress::paintProgress(progress);
    Progress::flushProgress();
    if (progress == WavProc::kFinished) {
        finish();
    } else {
        schedUpdate();
    }
}

void Process::finish() {
    samples.reset();  // frees the take before the result is saved
    samples.reset(processor->getResult());
    if (!Murmelo::save8KhzWav(samples, path.get())) {
        samples.reset();
        MessageAndQuit::enterOnPicture(MessageAndQuit::kStorageLow);
        return;
    }
    if (*path == G::resultPath()) {
        G::setLastPlayedFx(G::getCurrFx());
    }
    samples.reset();
    State::setState(next, true, true);
}
