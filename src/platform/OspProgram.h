// SPDX-License-Identifier: MIT
// The whole program for a host that cannot call OspMain(), because it must return to its own loop
// (a browser). The host must be installed before this is made.
#pragma once

#include "EventLoop.h"
#include "HostProgram.h"

#include <memory>

class OspProgram : public HostProgram {
public:
    OspProgram();
    OspProgram(const OspProgram&) = delete;
    OspProgram& operator=(const OspProgram&) = delete;
    ~OspProgram() override;

    bool begin() override { return loop.begin(); }

    bool step() override { return loop.step(); }

    void end() override { loop.end(); }

private:
    std::unique_ptr<Osp::App::Application> application;
    Osp::App::EventLoop loop;
};
