// SPDX-License-Identifier: MIT
// The phone's application model: life cycle, the queue of user events, and the settings kept
// between runs.
//
// The queue never has more than one user event. It becomes due when TimeUntilDue() of the
// application has passed, and at once after every callback of the platform; until then the host
// sleeps.
#pragma once

#include "OspBase.h"
#include "OspSystem.h"
#include "OspUi.h"

#include <cstdint>
#include <map>
#include <string>

namespace Osp::App {

using RequestId = int32_t;

/// Settings in one small file: a text for each text key. When a call returns success, its change is
/// on the disk.
class AppRegistry {
public:
    /// Reads the settings. A damaged file is renamed to "settings.damaged" (or to
    /// "settings.aside-1" and so on if that name is taken), and the registry starts empty. It also
    /// starts empty if the file cannot be read; then the host tells the user, and this run does not
    /// write the file.
    /// @param folder  real folder, made when something is first written; empty: nothing is kept
    void Open(const std::string& folder);

    /// E_KEY_NOT_FOUND if there is no such key; E_FAILURE, value untouched, if its text is not an
    /// integer.
    result Get(const Osp::Base::String& key, int& value) const;

    /// Changes an existing key, or E_KEY_NOT_FOUND.
    result Set(const Osp::Base::String& key, const Osp::Base::String& value);

    /// Adds a new key, or E_KEY_ALREADY_EXIST.
    result Add(const Osp::Base::String& key, const Osp::Base::String& value);

private:
    result write(const std::string& key, const std::string& value);
    bool saveFile() const;

    std::string folder;
    bool keeps = false;  // changes go into the file
    std::map<std::string, std::string> values;
};

class EventLoop;

class Application : public Osp::Base::Object {
public:
    using Factory = Application* (*)();

    static constexpr int64_t kNothingDue = -1;

    /// Makes the application, runs it until it ends by itself or the host ends it, and deletes it.
    /// If the application is also an IScreenEventListener, it is told about the screen without
    /// registering.
    static result Execute(Factory factory, const Osp::Base::Collection::IList* arguments);

    virtual bool OnAppInitializing(AppRegistry& appRegistry) = 0;
    virtual bool OnAppTerminating(AppRegistry& appRegistry, bool forcedTermination) = 0;
    virtual void OnForeground() = 0;
    virtual void OnBackground() = 0;
    virtual void OnLowMemory() = 0;
    virtual void OnBatteryLevelChanged(Osp::System::BatteryLevel batteryLevel) = 0;
    virtual void OnUserEventReceivedN(RequestId requestId,
                                      Osp::Base::Collection::IList* arguments) = 0;

    /// Milliseconds until the application has something to do (0: now), or kNothingDue. The loop
    /// calls it while a user event is queued, to know how long that event may wait.
    virtual int64_t TimeUntilDue() = 0;

    Osp::Base::String GetAppVersion() const;
    AppRegistry* GetAppRegistry() const;
    Osp::Ui::Controls::Frame* GetAppFrame() const;

    /// Queues a user event, unless one is queued already.
    result SendUserEvent(RequestId requestId, const Osp::Base::Collection::IList* arguments);

    /// Ends the loop after the current callback.
    result Terminate();

private:
    friend class EventLoop;
    EventLoop* loop = nullptr;  // while Execute runs
};

}  // namespace Osp::App
