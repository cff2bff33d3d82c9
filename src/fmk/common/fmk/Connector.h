// SPDX-License-Identifier: MIT
// Would open connections; there are none here, so every call returns null.
#pragma once

#include <cstdint>

namespace Osp::Base {
class String;
}
class DataInputStream;
class DataOutputStream;
class GnoObject;
class InputStream;
class OutputStream;

class Connector {
public:
    static GnoObject* open(Osp::Base::String* /*name*/) { return nullptr; }

    static GnoObject* open(Osp::Base::String* /*name*/, int32_t /*mode*/) { return nullptr; }

    static GnoObject* open(Osp::Base::String* /*name*/, int32_t /*mode*/, bool /*timeouts*/) {
        return nullptr;
    }

    static InputStream* openInputStream(Osp::Base::String* /*name*/) { return nullptr; }

    static OutputStream* openOutputStream(Osp::Base::String* /*name*/) { return nullptr; }

    static DataInputStream* openDataInputStream(Osp::Base::String* /*name*/) { return nullptr; }

    static DataOutputStream* openDataOutputStream(Osp::Base::String* /*name*/) { return nullptr; }
};
