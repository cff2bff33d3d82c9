// SPDX-License-Identifier: MIT
// Base of the painters without parts: keeps the rectangle and the modifiers.
#pragma once

#include "Painter.h"

#include <memory>

class AbstractPainter : public Painter {
public:
    /// An empty rectangle at (0, 0), default modifiers.
    AbstractPainter();
    ~AbstractPainter() override;

    int32_t getX() const;
    int32_t getY() const;
    int32_t getWidth() const;
    int32_t getHeight() const;

    void getBounds(Bounds* target) override;
    void setBounds(Bounds* source) override;

    PixProps* getPixProps() override { return props.get(); }

    void setPixProps(PixProps* source) override;

    void refresh() override {}

protected:
    const std::unique_ptr<Bounds> bounds;
    const std::unique_ptr<PixProps> props;
};
