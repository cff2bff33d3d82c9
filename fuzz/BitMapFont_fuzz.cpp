// SPDX-License-Identifier: MIT
// Fuzzes font files: every font that is read can be measured and drawn, and is the same after it
// was written and read again.
#include "AppImage.h"
#include "ArrFunc.h"
#include "BitMapFont.h"
#include "ByteArrayInputStream.h"
#include "ByteArrayOutputStream.h"

#include <cstdlib>
#include <cstring>
#include <memory>

using Osp::Base::String;

namespace {

constexpr size_t kMaxInputBytes = 1 << 18;

std::unique_ptr<BitMapFont> readFont(signed char* bytes) {
    ByteArrayInputStream in(bytes);
    return std::unique_ptr<BitMapFont>(BitMapFont::createFrom(&in));
}

signed char* written(BitMapFont& font) {
    ByteArrayOutputStream out;
    font.writeTo(&out);
    return out.toByteArray();
}

void draw(BitMapFont& font) {
    AppImage image(40, 24, 0xFF102030);
    String text(u"Aj \u00E9\u20ACz");
    font.drawString(&text, &image, 3, 2, 0x80402010);
    font.drawString(&text, &image, 3, 2, 5, 5, 20, 10, 0xFFFFFFFF);
    font.getCharStartX(&text, font.getStringWidth(&text));
    font.setLineHeight(font.getMaxHeight());
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
    const std::unique_ptr<BitMapFont> font = readFont(bytes);
    signed char* first = written(*font);
    const std::unique_ptr<BitMapFont> again = readFont(first);
    signed char* second = written(*again);
    if (length(first) != length(second) ||
        std::memcmp(first, second, static_cast<size_t>(length(first))) != 0) {
        std::abort();
    }
    draw(*font);
    for (signed char* array : {bytes, first, second}) {
        deleteArrFunc(array);
    }
    return 0;
}
