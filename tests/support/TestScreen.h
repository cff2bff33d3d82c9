// SPDX-License-Identifier: MIT
// A screen that records the events it receives.
#pragma once

#include "ArrFunc.h"
#include "Event.h"
#include "Orm.h"
#include "OspBase.h"
#include "Payload.h"
#include "State.h"
#include "Vector.h"

#include <functional>
#include <initializer_list>
#include <string>
#include <vector>

class TestScreen : public State {
public:
    TestScreen() = default;

    TestScreen(std::initializer_list<Osp::Base::String*> names) {
        subscriptions = newArray<Osp::Base::String*>(static_cast<int32_t>(names.size()));
        int32_t i = 0;
        for (Osp::Base::String* name : names) {
            subscriptions[i++] = name;
        }
    }

    ~TestScreen() override { deleteArrFunc(subscriptions); }

    void onEnter() override {
        heard.emplace_back("enter");
        registeredAtEnter = Orm::listeners->contains(this);
    }

    void onExit() override {
        heard.emplace_back("exit");
        registeredAtExit = Orm::listeners->contains(this);
    }

    void onEvent(Event* event) override {
        std::string text = event->type->ToUtf8();
        if (event->subType != nullptr) {
            text += "/" + event->subType->ToUtf8();
        }
        heard.push_back(text);
        lastWord = payloadToWord(event->payload);
        if (handler) {
            handler(event);
        }
    }

    Osp::Base::String** getSubscriptions() override { return subscriptions; }

    std::vector<std::string> heard;
    int32_t lastWord = 0;
    bool registeredAtEnter = false;
    bool registeredAtExit = true;
    std::function<void(Event*)> handler;

private:
    Osp::Base::String** subscriptions = nullptr;
};
