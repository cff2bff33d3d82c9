// SPDX-License-Identifier: MIT
#include "PixProps.h"

#include "Arithmetic.h"
#include "HexText.h"
#include "OspBase.h"

#include <algorithm>

using Osp::Base::String;

namespace {

constexpr int32_t kUnchanged = 256;
constexpr uint32_t kWhite = 512;          // lightness; more would be no whiter
constexpr int32_t kTextCharacters = 100;  // of toString

}  // namespace

PixProps* PixProps::firstRecycled = nullptr;

void PixProps::static_dtor() {
    delete firstRecycled;
    firstRecycled = nullptr;
}

PixProps::PixProps(int32_t lightness, int32_t saturation, int32_t opacity)
    : lightness(lightness)
    , saturation(saturation)
    , opacity(opacity) {}

PixProps* PixProps::alloc() {
    return alloc(kUnchanged, kUnchanged, kUnchanged);
}

PixProps* PixProps::alloc(int32_t lightness, int32_t saturation, int32_t opacity) {
    PixProps* props = firstRecycled;
    if (props == nullptr) {
        return new PixProps(lightness, saturation, opacity);
    }
    firstRecycled = props->nextRecycled;
    props->set(lightness, saturation, opacity);
    return props;
}

PixProps* PixProps::alloc(PixProps* props) {
    return alloc(props->lightness, props->saturation, props->opacity);
}

PixProps* PixProps::alloc(PixProps* own, PixProps* inherited) {
    PixProps* props = alloc();
    props->set(own, inherited);
    return props;
}

void PixProps::free() {
    set(static_cast<int32_t>(kWhite), 0, kUnchanged);
    nextRecycled = firstRecycled;
    firstRecycled = this;
}

void PixProps::setDefault() {
    set(kUnchanged, kUnchanged, kUnchanged);
}

bool PixProps::isDefault() {
    return lightness == kUnchanged && saturation == kUnchanged && opacity == kUnchanged;
}

void PixProps::set(int32_t lightness, int32_t saturation, int32_t opacity) {
    this->lightness = lightness;
    this->saturation = saturation;
    this->opacity = opacity;
}

void PixProps::set(PixProps* props) {
    set(props->lightness, props->saturation, props->opacity);
}

void PixProps::scale(PixProps* props) {
    if (props == nullptr) {
        return;
    }
    const auto product = static_cast<uint32_t>(wrapMul(lightness, props->lightness) >> 8);
    lightness = static_cast<int32_t>(std::min(product, kWhite));
    saturation = wrapMul(saturation, props->saturation) >> 8;
    opacity = wrapMul(opacity, props->opacity) >> 8;
}

void PixProps::set(PixProps* own, PixProps* inherited) {
    if (own == nullptr && inherited == nullptr) {
        setDefault();
        return;
    }
    set(own != nullptr ? own : inherited);
    if (own != nullptr) {
        scale(inherited);
    }
}

String* PixProps::toString() {
    String text("PixProps 0x");
    text.Append(hexText(static_cast<uint64_t>(reinterpret_cast<uintptr_t>(this))));
    text.Append(": lightness = ");
    text.Append(lightness);
    text.Append(", saturation = ");
    text.Append(saturation);
    text.Append(", opacity = ");
    text.Append(opacity);
    return new String(text.SubString(0, kTextCharacters));
}
