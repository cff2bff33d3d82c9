// SPDX-License-Identifier: MIT
// The whole program for a host that owns its loop, instead of one call of OspMain(). The host must
// be installed before it is made.
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
