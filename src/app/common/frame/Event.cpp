// SPDX-License-Identifier: MIT
#include "Event.h"

#include "OspBase.h"

using Osp::Base::String;

void Event::dynamic_ctor() {
    type = nullptr;
    subType = nullptr;
    payload = nullptr;
    time = 0;
    prev = nullptr;
    next = nullptr;
}

void Event::dynamic_dtor() {
    type = nullptr;
    subType = nullptr;
    payload = nullptr;
}

Event::Event(String* type, String* subType, GnoObject* payload, int32_t time) {
    dynamic_ctor();
    this->type = type;
    this->subType = subType;
    this->payload = payload;
    this->time = time;
}

Event::~Event() {
    dynamic_dtor();
}

void Event::insertBeforeMe(Event* event) {
    event->next = this;
    event->prev = prev;
    prev = event;
    if (event->prev != nullptr) {
        event->prev->next = event;
    }
}

void Event::insertAfterMe(Event* event) {
    event->prev = this;
    event->next = next;
    next = event;
}

void Event::detachMe() {
    if (prev != nullptr) {
        prev->next = next;
    }
    if (next != nullptr) {
        next->prev = prev;
    }
    prev = nullptr;
    next = nullptr;
}

String* Event::toString() {
    auto* text = new String("Event ");
    text->Append(type != nullptr ? *type : String("none"));
    if (subType != nullptr) {
        text->Append("/");
        text->Append(*subType);
    }
    text->Append(" at ");
    text->Append(time);
    return text;
}
