// SPDX-License-Identifier: MIT
// The soft-key bar along the bottom of the screen: keeps three labels, and knows which key is
// touched or pressed.
#pragma once

#include <cstdint>
#include <memory>

class Event;
class PaStretcher;
class PaTextArea;

namespace Osp::Base {
class String;
}

class SkBar {
public:
    // Rows 288 to 319: tall enough for a thumb on the doubled display.
    static constexpr int32_t kHeightPx = 32;

    /// Called once, after fonts and pictures are registered.
    static void init();

    /// Sets three labels (string ids, Res::Null for none); no key counts as held down then.
    static void setStr(int32_t lsk, int32_t msk, int32_t rsk);

    /// Removes the labels and paints the bar, while the screen accepts no keys.
    static void clear();

    /// Called when a question is raised over the screen: keeps the labels and the message painters,
    /// and replaces the painters with new ones. Does nothing if something is kept already.
    static void save();

    /// Puts back what save() kept; nothing if it kept nothing.
    static void restore();

    /// @param withBg  true: paints the background picture first; without it the glass becomes
    /// darker each time
    static void paint(bool withBg);

    /// Returns the label's id of the soft key that the event chooses, or Res::Null.
    /// @param repaint  paints and flushes the bar afterwards, for every event
    static int32_t update(Event* event, bool repaint);

    /// True if the bar is on the screen: from paint() until a whole picture covers it. With no
    /// label it is an empty strip.
    static bool isVisible() { return visible; }

    /// Sub-name of the soft key at that point of the screen, even if it has no label; null outside
    /// the bar. Each key has a third of the bar.
    static Osp::Base::String* keyAt(int32_t x, int32_t y);

    /// Middle of the soft key of that sub-name.
    static int32_t middleXOf(const Osp::Base::String* key);

    static int32_t middleY() { return y1 + kHeightPx / 2; }

    static void static_ctor();
    static void static_dtor();

    static bool visible;
    static int32_t strLsk;
    static int32_t strMsk;
    static int32_t strRsk;
    static int32_t s_strLsk;
    static int32_t s_strMsk;
    static int32_t s_strRsk;
    static std::unique_ptr<PaTextArea> s_paTxt;
    static std::unique_ptr<PaTextArea> s_paTxt2;
    static std::unique_ptr<PaStretcher> s_psWndBg;
    static bool s_messageVisible;
    static int32_t fntSides;
    static int32_t fntCenter;
    static int32_t margx;
    static int32_t margy;
    static int32_t yOfsSides;
    static int32_t yOfsCenter;
    static uint32_t argb;
    static uint32_t argbPressed;
    static Osp::Base::String* pressed;  // the sub-name of the key held down, or null
    static int32_t x1;                  // edges of the bar, inclusive
    static int32_t y1;
    static int32_t x2;
    static int32_t y2;

private:
    static int32_t choose(Event* event);
    static int32_t choose(Osp::Base::String* key);
    static int32_t labelOf(const Osp::Base::String* key);
    static int32_t thirdPx();
};
