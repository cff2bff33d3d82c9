// SPDX-License-Identifier: MIT
// The application as the phone sees it: receives the life cycle, touches and keys, and makes one
// frame for each user event.
#pragma once

#include "OspApp.h"
#include "OspSystem.h"
#include "OspUi.h"

class GameInterface;

class GEngine : public Osp::App::Application,
                public Osp::System::IScreenEventListener,
                public Osp::Ui::ITouchEventListener,
                public Osp::Ui::IKeyEventListener {
public:
    using Control = Osp::Ui::Control;
    using Point = Osp::Graphics::Point;
    using TouchEventInfo = Osp::Ui::TouchEventInfo;

    static Osp::App::Application* CreateInstance();

    GEngine();
    GEngine(const GEngine&) = delete;
    GEngine& operator=(const GEngine&) = delete;
    ~GEngine() override;

    bool OnAppInitializing(Osp::App::AppRegistry& appRegistry) override;
    bool OnAppTerminating(Osp::App::AppRegistry& appRegistry, bool forcedTermination) override;

    /// Makes a new canvas and starts the loop of user events, also after a pause.
    void OnForeground() override;
    void OnBackground() override;

    void OnLowMemory() override {}

    void OnBatteryLevelChanged(Osp::System::BatteryLevel /*batteryLevel*/) override {}

    /// Makes one frame; both arguments are ignored.
    void OnUserEventReceivedN(Osp::App::RequestId requestId,
                              Osp::Base::Collection::IList* arguments) override;
    int64_t TimeUntilDue() override;

    /// Resumes the program, but makes no frames; OnForeground() does.
    void OnScreenOn() override;
    void OnScreenOff() override;

    void OnTouchPressed(const Control& source,
                        const Point& position,
                        const TouchEventInfo& info) override;
    void OnTouchReleased(const Control& source,
                         const Point& position,
                         const TouchEventInfo& info) override;
    void
    OnTouchMoved(const Control& source, const Point& position, const TouchEventInfo& info) override;

    void OnTouchLongPressed(const Control&, const Point&, const TouchEventInfo&) override {}

    void OnTouchDoublePressed(const Control&, const Point&, const TouchEventInfo&) override {}

    void OnTouchFocusIn(const Control&, const Point&, const TouchEventInfo&) override {}

    void OnTouchFocusOut(const Control&, const Point&, const TouchEventInfo&) override {}

    /// Handles the two volume keys; every other key of the phone is ignored.
    void OnKeyPressed(const Control& source, Osp::Ui::KeyCode keyCode) override;

    void OnKeyReleased(const Control&, Osp::Ui::KeyCode) override {}

    void OnKeyLongPressed(const Control&, Osp::Ui::KeyCode) override {}

    int32_t Run() { return 0; }

    static Osp::Base::String appVersion;
    static Osp::App::AppRegistry*& pAppRegistry;  // null after termination

private:
    GameInterface* pGameInterface;  // owned
    bool terminated;
    bool suspended;                  // in the background, or the screen is off
    Osp::Graphics::Canvas* pCanvas;  // owned; null until the first foreground
};
