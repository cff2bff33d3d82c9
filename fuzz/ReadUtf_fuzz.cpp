// SPDX-License-Identifier: MIT
// Fuzzes texts in a stream, one after another: every text that is read must be the same after it
// was written and read again.
#include "ArrFunc.h"
#include "ByteArrayInputStream.h"
#include "ByteArrayOutputStream.h"
#include "DataInputStream.h"
#include "DataOutputStream.h"
#include "OspBase.h"

#include <cstdlib>
#include <memory>

using Osp::Base::String;

namespace {

constexpr size_t kMaxInputBytes = 1 << 20;

void checkRoundTrip(String* text) {
    ByteArrayOutputStream bytes;
    DataOutputStream out(&bytes);
    out.writeUTF(text);
    ByteArrayInputStream again(bytes.toByteArray());
    DataInputStream in(&again);
    const std::unique_ptr<String> copy(in.readUTF());
    // Only the low 8 bits were kept, so that no character takes more bytes than before.
    if (copy == nullptr || *copy != *text) {
        std::abort();
    }
    again.disposeBufferData();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size > kMaxInputBytes) {
        return 0;
    }
    auto* bytes = newArray<signed char>(static_cast<int32_t>(size));
    if (size > 0) {
        std::memcpy(bytes, data, size);
    }
    ByteArrayInputStream stream(bytes);
    DataInputStream in(&stream);
    while (in.available() > 0) {
        const std::unique_ptr<String> text(in.readUTF());
        if (text != nullptr) {
            checkRoundTrip(text.get());
        }
    }
    stream.disposeBufferData();
    return 0;
}
