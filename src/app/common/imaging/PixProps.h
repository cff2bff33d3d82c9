// SPDX-License-Identifier: MIT
// Three modifiers that painters carry and blends apply to each pixel, pooled. 256 is "unchanged".
#pragma once

#include "ClassLife.h"

#include <cstdint>

namespace Osp::Base {
class String;
}

class PixProps : public ClassLife {
public:
    /// Deletes the pool's first instance; the others stay allocated until the process ends.
    static void static_dtor();

    /// All three 256.
    PixProps() = default;
    PixProps(int32_t lightness, int32_t saturation, int32_t opacity);
    PixProps(const PixProps&) = delete;
    PixProps& operator=(const PixProps&) = delete;

    /// From the pool, or new when it is empty. The caller gives it back with free().
    static PixProps* alloc();
    static PixProps* alloc(int32_t lightness, int32_t saturation, int32_t opacity);
    static PixProps* alloc(PixProps* props);

    /// A pooled copy of own, scaled by inherited; either may be null.
    static PixProps* alloc(PixProps* own, PixProps* inherited);

    virtual ~PixProps() = default;

    /// Gives the instance back to the pool; it must not be used afterwards. The fields become 512,
    /// 0, 256: a painter that still uses it by mistake paints white, so that the mistake is seen.
    virtual void free();
    virtual void setDefault();
    virtual bool isDefault();
    virtual void set(int32_t lightness, int32_t saturation, int32_t opacity);
    virtual void set(PixProps* props);

    /// Multiplies by other modifiers; null changes nothing.
    /// Deliberate: only the lightness is limited to 512 (a negative one becomes 512 too, since it
    /// is compared as unsigned); saturation and opacity are not limited.
    virtual void scale(PixProps* props);

    /// own scaled by inherited. A null one changes nothing; both null give the defaults.
    virtual void set(PixProps* own, PixProps* inherited);

    /// A new string; the caller deletes it.
    virtual Osp::Base::String* toString();

    int32_t lightness = 256;   // 0 black, 512 white
    int32_t saturation = 256;  // 0 grey
    int32_t opacity = 256;     // 0 transparent

private:
    static PixProps* firstRecycled;

    PixProps* nextRecycled = nullptr;
};
