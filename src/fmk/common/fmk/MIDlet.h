// SPDX-License-Identifier: MIT
// The application as the runtime sees it: started, paused and ended from outside.
#pragma once

#include "GnoObject.h"

class FileInputStream;

class MIDlet : public GnoObject {
public:
    /// @param unconditional  false only asks whether the application would end
    virtual void destroyApp(bool unconditional) = 0;
    virtual void pauseApp() = 0;
    virtual void startApp() = 0;

    /// Null: there are no properties.
    Osp::Base::String* getAppProperty(const char* /*key*/) { return nullptr; }

    /// Always false: this platform supports no such request.
    bool platformRequest(const char* /*url*/) { return false; }

    void notifyDestroyed() {}

    /// A new stream that reads a file, be it a resource or a recording; the caller deletes it. If
    /// the file cannot be opened, the stream is at its end.
    static FileInputStream* getResourceAsStream(Osp::Base::String& path);
    static FileInputStream* getResourceAsStream(Osp::Base::String* path);
    static FileInputStream* getResourceAsStream(const char* path);
};
