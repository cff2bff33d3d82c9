// SPDX-License-Identifier: MIT
// The phone's touches and keys, and the frame that receives them.
#pragma once

#include "OspBase.h"
#include "OspGraphics.h"

#include <cstdint>

namespace Osp::Ui {

/// The two keys of the phone that reach an application.
enum KeyCode { KEY_SIDE_UP = 1, KEY_SIDE_DOWN = 2 };

enum Orientation { ORIENTATION_NONE = 0, ORIENTATION_PORTRAIT = 1 };

/// The source of an event.
class Control : public Osp::Base::Object {};

class TouchEventInfo {
public:
    explicit TouchEventInfo(const Osp::Graphics::Point& position)
        : position(position) {}

    /// In pixels of the 480 x 800 display.
    Osp::Graphics::Point GetCurrentPosition() const { return position; }

private:
    Osp::Graphics::Point position;
};

class ITouchEventListener {
public:
    virtual ~ITouchEventListener() = default;

    virtual void OnTouchPressed(const Control& source,
                                const Osp::Graphics::Point& position,
                                const TouchEventInfo& info) = 0;
    virtual void OnTouchReleased(const Control& source,
                                 const Osp::Graphics::Point& position,
                                 const TouchEventInfo& info) = 0;
    virtual void OnTouchMoved(const Control& source,
                              const Osp::Graphics::Point& position,
                              const TouchEventInfo& info) = 0;
    virtual void OnTouchLongPressed(const Control& source,
                                    const Osp::Graphics::Point& position,
                                    const TouchEventInfo& info) = 0;
    virtual void OnTouchDoublePressed(const Control& source,
                                      const Osp::Graphics::Point& position,
                                      const TouchEventInfo& info) = 0;
    virtual void OnTouchFocusIn(const Control& source,
                                const Osp::Graphics::Point& position,
                                const TouchEventInfo& info) = 0;
    virtual void OnTouchFocusOut(const Control& source,
                                 const Osp::Graphics::Point& position,
                                 const TouchEventInfo& info) = 0;
};

class IKeyEventListener {
public:
    virtual ~IKeyEventListener() = default;

    virtual void OnKeyPressed(const Control& source, KeyCode keyCode) = 0;
    virtual void OnKeyReleased(const Control& source, KeyCode keyCode) = 0;
    virtual void OnKeyLongPressed(const Control& source, KeyCode keyCode) = 0;
};

namespace Controls {

/// The application's one full-screen frame.
class Frame : public Control {
public:
    /// Only portrait exists; anything else fails.
    result SetOrientation(Orientation orientation);

    /// One listener of each kind; not owned.
    void AddTouchEventListener(ITouchEventListener& listener) { touchListener = &listener; }

    void AddKeyEventListener(IKeyEventListener& listener) { keyListener = &listener; }

    /// A new canvas over the whole display; the caller deletes it.
    Osp::Graphics::Canvas* GetCanvasN() const { return new Osp::Graphics::Canvas(); }

    ITouchEventListener* GetTouchEventListener() const { return touchListener; }

    IKeyEventListener* GetKeyEventListener() const { return keyListener; }

private:
    ITouchEventListener* touchListener = nullptr;
    IKeyEventListener* keyListener = nullptr;
};

}  // namespace Controls

}  // namespace Osp::Ui
