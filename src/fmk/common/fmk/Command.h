// SPDX-License-Identifier: MIT
// A labelled command of a screen. Nothing dispatches commands: all input arrives as events.
#pragma once

#include "GnoObject.h"

class Command : public GnoObject {
public:
    /// @param label  not owned
    Command(Osp::Base::String* label, int32_t type, int32_t priority)
        : Command(label, nullptr, type, priority) {}

    Command(Osp::Base::String* label, Osp::Base::String* longLabel, int32_t type, int32_t priority)
        : label(label)
        , longLabel(longLabel) {
        initialize(type, priority);
    }

    void initialize(int32_t type, int32_t priority) {
        commandType = type;
        this->priority = priority;
    }

    void setLabel(Osp::Base::String* label, Osp::Base::String* longLabel) {
        this->label = label;
        this->longLabel = longLabel;
    }

    void setInternalID(int32_t id) { internalId = id; }

    Osp::Base::String* getLabel() const { return label; }

    Osp::Base::String* getLongLabel() const { return longLabel; }

    int32_t getCommandType() const { return commandType; }

    int32_t getPriority() const { return priority; }

    int32_t getID() const { return id; }

    int32_t getInternalID() const { return internalId; }

private:
    Osp::Base::String* label;
    Osp::Base::String* longLabel;
    int32_t commandType = 0;
    int32_t priority = 0;
    int32_t id = 0;
    int32_t internalId = 0;
};
