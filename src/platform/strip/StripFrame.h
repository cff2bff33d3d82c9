// SPDX-License-Identifier: MIT
// The phone's display with the strip in its upper band, and with the sheet over the picture while
// one is open.
//
// A host that has a strip shows this frame in place of the phone's own.
#pragma once

#include "Host.h"
#include "StripModel.h"
#include "StripPainter.h"

#include <cstdint>
#include <memory>
#include <vector>

class StripFrame : public HostFrame {
public:
    /// @param model  not owned
    explicit StripFrame(StripModel& model)
        : model(model) {}

    /// The program has started: reads pictures and fonts, and tells the model how wide texts are.
    void begin();

    /// The program has ended.
    void end();

    /// Sets the phone's frame; null: there is none.
    void setDisplay(HostFrame* frame) { display = frame; }

    /// True if there is a frame of the phone.
    bool isThere() const { return display != nullptr; }

    /// True if the strip or its sheet has changed since the last takeChanges().
    bool isNew() const { return painter != nullptr && model.version() != lookedAt; }

    void composeRows(uint16_t* pixels, int32_t strideBytes, const Rows& rows) override;
    Rows takeChanges() override;

private:
    void paint();
    void copyRow(uint16_t* to, int32_t y) const;

    StripModel& model;
    std::unique_ptr<StripPainter> painter;  // null before begin() and after end()
    HostFrame* display = nullptr;
    std::vector<uint16_t> picture;  // 240 x 400; below row 80 only while a sheet is open
    uint32_t painted = 0;           // version of the model; 0: none
    uint32_t lookedAt = 0;
    bool paintedSheet = false;
    bool seenSheet = false;
    std::vector<uint16_t> seen;  // the picture at the last takeChanges()
};
