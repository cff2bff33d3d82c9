// SPDX-License-Identifier: MIT
// The phone's display with the strip in its upper band, and the sheet over the picture while there
// is one.
//
// A host that shows it looks at this frame instead of the phone's own.
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

    /// The phone's frame; null: it is gone, or there is none yet.
    void setDisplay(HostFrame* frame) { display = frame; }

    /// True if there is something to look at.
    bool isThere() const { return display != nullptr; }

    /// True if the strip or its sheet has changed since they were last looked at.
    bool isNew() const { return painter != nullptr && model.version() != lookedAt; }

    void composeRows(uint16_t* pixels, int32_t strideBytes, const Rows& rows) override;
    Rows takeChanges() override;

private:
    void paint();
    void copyRow(uint16_t* to, int32_t y) const;

    StripModel& model;
    std::unique_ptr<StripPainter> painter;  // between begin() and end()
    HostFrame* display = nullptr;
    std::vector<uint16_t> picture;  // 240 x 400, the lower part only of a sheet
    uint32_t painted = 0;           // version of the model; 0: none
    uint32_t lookedAt = 0;
    bool paintedSheet = false;
    bool seenSheet = false;
    std::vector<uint16_t> seen;  // what takeChanges() saw last
};
