// SPDX-License-Identifier: MIT
#include "GEngine.h"

#include "AudioDev.h"
#include "G.h"
#include "GameInterface.h"
#include "Host.h"
#include "Orm.h"

using Osp::App::AppRegistry;
using Osp::App::RequestId;
using Osp::Base::Collection::IList;

namespace {

constexpr RequestId kFrame = 1;

}  // namespace

Osp::Base::String GEngine::appVersion;
AppRegistry*& GEngine::pAppRegistry = G::appRegistry;  // kept there, where the frame can use it

Osp::App::Application* GEngine::CreateInstance() {
    return new GEngine();
}

GEngine::GEngine()
    : pGameInterface(nullptr)
    , terminated(false)
    , suspended(false)
    , pCanvas(nullptr) {
    pGameInterface = new GameInterface();
}

GEngine::~GEngine() {
    delete pGameInterface;  // already null after a normal end
    delete pCanvas;
}

bool GEngine::OnAppInitializing(AppRegistry& /*appRegistry*/) {
    appVersion = GetAppVersion();
    pAppRegistry = GetAppRegistry();
    pGameInterface->AppInit();
    GetAppFrame()->AddTouchEventListener(*this);
    GetAppFrame()->AddKeyEventListener(*this);
    return true;
}

bool GEngine::OnAppTerminating(AppRegistry& /*appRegistry*/, bool /*forcedTermination*/) {
    pGameInterface->AppQuit();
    delete pGameInterface;
    pGameInterface = nullptr;
    delete pCanvas;
    pCanvas = nullptr;
    terminated = true;
    pAppRegistry = nullptr;
    return true;
}

void GEngine::OnForeground() {
    GetAppFrame()->SetOrientation(Osp::Ui::ORIENTATION_PORTRAIT);
    delete pCanvas;
    pCanvas = GetAppFrame()->GetCanvasN();
    if (!terminated && !suspended) {
        SendUserEvent(kFrame, nullptr);
    } else if (suspended) {
        pGameInterface->AppResume();
        SendUserEvent(kFrame, nullptr);
    }
    suspended = false;
}

void GEngine::OnBackground() {
    suspended = true;
    pGameInterface->AppPause();
}

void GEngine::OnScreenOff() {
    suspended = true;
    pGameInterface->AppPause();
}

void GEngine::OnScreenOn() {
    suspended = false;
    pGameInterface->AppResume();
}

void GEngine::OnUserEventReceivedN(RequestId /*requestId*/, IList* /*arguments*/) {
    if (suspended || pCanvas == nullptr) {
        return;  // queues no event: OnForeground() starts the loop again
    }
    if (!terminated) {
        pCanvas->SetClipBounds({0, 0, HostFrame::kWidthPx, HostFrame::kHeightPx});
        pGameInterface->AppPaint(pCanvas);
        const result shown = pCanvas->Show();
        Osp::Base::Runtime::Thread::Yield();
        if (shown != E_SUCCESS) {
            GetErrorMessage(shown);
        }
    }
    if (GameInterface::Active) {
        SendUserEvent(kFrame, nullptr);
    } else {
        Terminate();
    }
}

int64_t GEngine::TimeUntilDue() {
    const int64_t ms = Orm::msUntilDue();
    return ms < 0 ? kNothingDue : ms;
}

void GEngine::OnTouchPressed(const Control& /*source*/,
                             const Point& /*position*/,
                             const TouchEventInfo& info) {
    const Point at = info.GetCurrentPosition();
    pGameInterface->OnPointerPressed(at.x, at.y);
}

void GEngine::OnTouchReleased(const Control& /*source*/,
                              const Point& /*position*/,
                              const TouchEventInfo& info) {
    const Point at = info.GetCurrentPosition();
    pGameInterface->OnPointerReleased(at.x, at.y);
}

void GEngine::OnTouchMoved(const Control& /*source*/,
                           const Point& /*position*/,
                           const TouchEventInfo& info) {
    const Point at = info.GetCurrentPosition();
    pGameInterface->OnPointerMove(at.x, at.y);
}

void GEngine::OnKeyPressed(const Control& /*source*/, Osp::Ui::KeyCode keyCode) {
    if (keyCode == Osp::Ui::KEY_SIDE_UP) {
        AudioDev::changeVolume(1);
    } else if (keyCode == Osp::Ui::KEY_SIDE_DOWN) {
        AudioDev::changeVolume(-1);
    }
}
