// SPDX-License-Identifier: MIT
// Drives the whole application for the tests of the screens.
#include "ScreensTest.h"

#include "AppImage.h"
#include "Arithmetic.h"
#include "Assembly.h"
#include "Event.h"
#include "FileOps.h"
#include "G.h"
#include "GameInterface.h"
#include "GEngine.h"
#include "Main.h"
#include "MessageAndQuit.h"
#include "Murmelo.h"
#include "Orm.h"
#include "OrmCanvas.h"
#include "Res.h"
#include "SkBar.h"
#include "State.h"
#include "System.h"
#include "TestSounds.h"

#include <cstdlib>
#include <cxxabi.h>
#include <typeinfo>

ScreensTest::ScreensTest() {
    host.mapHome(folders);
    host.mapShipped();
    host.mappedFolders.config = folders.path("config");
    registry.Open(host.mappedFolders.config);
    GEngine::pAppRegistry = &registry;
    GameInterface::Active = true;
    Assembly::install();
    midlet = std::make_unique<Murmelo>();
}

ScreensTest::~ScreensTest() {
    midlet.reset();
    GEngine::pAppRegistry = nullptr;
    GameInterface::Active = true;
}

void ScreensTest::makeSoundFolder() {
    G::setDirTones();
    G::setMrmFolderUri(G::uriWavFolder);
    FileOps::mkdir(*G::getMrmFolderUri());
}

void ScreensTest::end() {
    midlet.reset();
}

void ScreensTest::enter(State* screen) {
    State::setState(screen, true, true);
    tick();
}

void ScreensTest::tick() {
    while (!Orm::isDisposed && Orm::msUntilDue() == 0) {
        Orm::canvas->run();
    }
}

void ScreensTest::pass(int64_t ms) {
    const int64_t endMs = host.nowMs + ms;
    tick();
    while (host.nowMs < endMs) {
        host.pass(1);
        tick();
    }
}

void ScreensTest::touch(int32_t x, int32_t y) {
    Orm::canvas->pointerPressed(x, y);
    Orm::canvas->pointerReleased(x, y);
    tick();
}

void ScreensTest::touch(SoftKey key) {
    touch(40 + 80 * key, 304);
}

void ScreensTest::key(int32_t code) {
    Orm::canvas->keyPressed(code);
    Orm::canvas->keyReleased(code);
    tick();
}

void ScreensTest::deliver(Osp::Base::String* type, Osp::Base::String* subType) {
    Event event(type, subType, nullptr, 0);
    State::currState->onEvent(&event);
}

std::string ScreensTest::screen() {
    if (State::currState == nullptr) {
        return "none";
    }
    int status = 0;
    char* name = abi::__cxa_demangle(typeid(*State::currState).name(), nullptr, nullptr, &status);
    std::string text = name;
    std::free(name);
    return text;
}

std::string ScreensTest::fatalBody() {
    return screen() == "MessageAndQuit" ? text(static_cast<MessageAndQuit*>(State::currState)->body)
                                        : "none";
}

std::string ScreensTest::fatalText() {
    if (screen() != "MessageAndQuit") {
        return "none";
    }
    const auto* message = static_cast<MessageAndQuit*>(State::currState);
    return text(message->heading != Res::Null ? message->heading : message->body);
}

ScreensTest::Names ScreensTest::pending() const {
    Names names;
    for (const Event* event = Orm::firstEvent; event != nullptr; event = event->next) {
        std::string name = event->type->ToUtf8();
        if (event->subType != nullptr) {
            name += "/" + event->subType->ToUtf8();
        }
        names.push_back(name + "@" +
                        std::to_string(wrapSub(event->time, System::currentTimeMillis())));
    }
    return names;
}

ScreensTest::Names ScreensTest::labels() {
    return {text(SkBar::strLsk), text(SkBar::strMsk), text(SkBar::strRsk)};
}

std::string ScreensTest::text(int32_t strId) {
    const Osp::Base::String* found = strId != Res::Null ? Res::getStr(strId) : nullptr;
    return found != nullptr ? found->ToUtf8() : "-";
}

ScreensTest::Pixels ScreensTest::picture() {
    return picture(0, 0, G::scr->w, G::scr->h);
}

ScreensTest::Pixels ScreensTest::picture(int32_t x, int32_t y, int32_t w, int32_t h) {
    Pixels pixels;
    for (int32_t row = y; row < y + h; row++) {
        for (int32_t column = x; column < x + w; column++) {
            pixels.push_back(G::scr->get(column, row));
        }
    }
    return pixels;
}

ScreensTest::Pixels ScreensTest::fatalPicture(int32_t kind) {
    Main::paintBgAndFx();
    MessageAndQuit::enter(kind);
    return picture(0, 0, G::scr->w, SkBar::y1);
}

void ScreensTest::putTake(const std::vector<int16_t>& samples) const {
    folders.write(kTake, TestSounds::wav(samples, 16000));
}

bool ScreensTest::hasTake() const {
    return folders.has(kTake);
}

bool ScreensTest::hasResult() const {
    return folders.has(kResult);
}

void ScreensTest::record(const std::vector<int16_t>& voice, int64_t ms) {
    host.ears.setVoice(voice);
    enter(G::stateRecord);
    enter(G::stateRecording);
    pass(ms);
    touch(kMiddle);
}
