// The whole program for a host whose time belongs to somebody else, as a browser's: begun, stepped
// and ended by the host in place of one call of OspMain().
#pragma once

#include "EventLoop.h"

#include <memory>

class OspProgram {
public:
    /// Makes the application. The host is installed already.
    OspProgram();

    /// Deletes the application; end() was called if begin() has returned true.
    ~OspProgram();
    OspProgram(const OspProgram&) = delete;
    OspProgram& operator=(const OspProgram&) = delete;

    /// Initialises the application and brings it to the foreground.
    /// @returns false if it cannot be initialised: then neither step() nor end() is called
    bool begin() { return loop.begin(); }

    /// One turn of the loop; the host's pump() is asked once.
    /// @returns false once the application has ended
    bool step() { return loop.step(); }

    /// Lets the application clean up.
    void end() { loop.end(); }

private:
    std::unique_ptr<Osp::App::Application> application;
    Osp::App::EventLoop loop;
};
