// A stand-alone scroll bar with what it keeps in the open.
#pragma once

#include <gesso/controls/GScrollbar.h>

namespace test {

constexpr int BAR_WIDTH = 17;
constexpr int BAR_HEIGHT = 234; // a track of 200 between the two buttons

class ProbeScrollbar : public GScrollbar
{
public:
    int Track() const { return m_nTrack; }
    int Thumb() const { return m_nThumb; }
    WORD HitNow() const { return m_hitNow.wHit; }
    DWORD State() const { return m_dwState; }
    WORD HitAt(int y, int x = 5) const
    {
        HitTestInfo info{{static_cast<SHORT>(x), static_cast<SHORT>(y)}, 0};
        return HitTest(&info);
    }
    void SetHits(WORD wDown, WORD wNow)
    {
        m_hitDown.wHit = wDown;
        m_hitNow.wHit = wNow;
    }
    static void LateTimer() { TimerCallback(nullptr, WM_TIMER, 0, 0); }
};

} // namespace test
