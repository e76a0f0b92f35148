// GScrollbar: a vertical scroll bar that stands as a window of its own, drawn through the visual style's
// "SCROLLBAR" class along the right edge of its client area.
//
// A host
// 1. makes a GScrollbar, calls Create with WS_CHILD | WS_VISIBLE, and InitScrollBar before the first paint;
// 2. tells it by ScrSetTotalHeight how high what is scrolled is; what is visible of it is the bar's height;
// 3. answers WM_VSCROLL: the bar never moves by itself. The host moves the content, calls SetScrollPos with
//    where it is now, and Invalidate;
// 4. calls UninitScrollBar when the window goes.
// Where the class is named in a dialog template, the object comes from GWnd::FromHwnd; it outlives its
// window, and the host deletes it.
//
// Sends to its parent WM_VSCROLL with the bar's window as lParam: SB_LINEUP, SB_LINEDOWN, SB_PAGEUP and
// SB_PAGEDOWN for presses, at once and, while held, every 100 milliseconds after the first 500; SB_THUMBTRACK
// with the position in the high word while the thumb is dragged, of which the low 16 bits arrive; SB_LINEDOWN
// when a new size leaves the position beyond the end. Answers WM_PRINTCLIENT. The bar takes no keys.
#pragma once

#include <gesso/framework/GWndScroll.h>

namespace gesso {
struct BarStops;
}

constexpr DWORD GWS_SBPRESSED = 0x100; // a press in the bar holds the capture

class GESSO_API GScrollbar : public GWnd
{
public:
    // A point in client coordinates and the part that is there: SBH_UP, SBH_DOWN, SBH_ABOVE, SBH_BELOW or
    // SBH_VTHUMB, or 0.
    using HitTestInfo = ScrollBarHitTestInfo;

    GScrollbar() = default;
    GScrollbar(const GScrollbar&) = default;
    GScrollbar& operator=(const GScrollbar&) = default;
    ~GScrollbar() override;

    // Makes the window; position and size in pixels in the parent's client area. The style is used as it is:
    // WS_CHILD is the caller's to give. Returns the window, or null where it could not be made.
    virtual HWND Create(int x, int y, int cx, int cy, HWND hwndParent, int nId, DWORD dwExStyle,
                        DWORD dwStyle);
    // DestroyWindow. Returns 0 without a window.
    virtual int Destroy();
    // In pixels, from 0 to the total less the page.
    virtual UINT GetScrollPos() const;
    // Limited to that range; what is negative as a signed number becomes 0. No repaint; sends nothing.
    virtual void SetScrollPos(UINT nPos);

    // Opens the theme and sets the position to 0; until ScrSetTotalHeight or the next change of size the page
    // is as high as the total, and there is nothing to scroll.
    void InitScrollBar(UINT nTotal);
    // Closes the theme.
    void UninitScrollBar();
    // The height of what is scrolled, in pixels; the page becomes the height of the client area. No repaint.
    void ScrSetTotalHeight(UINT nTotal);
    UINT ScrGetPageSize() const;
    // Back to position 0. No repaint.
    void ResetScroll();
    // Non-zero if the page is below the total.
    int IsScrollable() const;

    // Draws the bar at the origin of a context.
    void Draw(HDC hdc);

    static ATOM IsolationAwareRegisterClassW();
    static LRESULT CALLBACK WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam);
    static ATOM s_aClass;

protected:
    LRESULT OnCreate(const CREATESTRUCTW* pcs);
    LRESULT OnSize();
    LRESULT OnSetFocus(HWND hwndFormer);
    LRESULT OnKillFocus(HWND hwndNew);
    LRESULT OnLButtonDown(WPARAM wKeys, POINTS pt);
    LRESULT OnLButtonUp(WPARAM wKeys, POINTS pt);
    LRESULT OnMouseMove(WPARAM wKeys, POINTS pt);
    LRESULT OnMouseLeave();
    // Writes and returns the part at pInfo->pt.
    WORD HitTest(HitTestInfo* pInfo) const;
    static void CALLBACK TimerCallback(HWND hwnd, UINT uMsg, UINT_PTR uId, DWORD dwTime);

    gesso::ThemeHandle m_hTheme;
    int m_nTrack = 0; // the length that the thumb moves in, in pixels
    int m_nThumb = 0; // the thumb's length, in pixels
    UINT m_nTotal = 0;
    UINT m_nPage = 0;
    // These three are stored; of the second it is read whether it is 0, as it is while there is no style.
    int m_nInit20 = 0;
    int m_nInit45 = 0;
    int m_nFiveSixths = 0;
    UINT m_nPos = 0;
    int m_nDragY = 0; // where a drag of the thumb began
    UINT m_nDragPos = 0;
    HitTestInfo m_hitDown{}; // the last press; no part while none is held
    HitTestInfo m_hitNow{};  // the pointer; no part while it is elsewhere

    // Of the bar that began to repeat last, on whichever thread: each thread repeats one bar at a time.
    static ULONGLONG s_ullTimerTime; // of the press, in 100 nanoseconds
    static UINT_PTR s_dwTimer;
    static GScrollbar* s_pScrollingWindow;

private:
    friend class gesso::Frame;
    LRESULT OnMessage(UINT uMsg, WPARAM wParam, LPARAM lParam);
    // What it says of itself to those who do not see it.
    class Access;
    static const gesso::AccessibleSide& Describes();
    int PaintedThumbOffset() const;
    int HitThumbOffset() const;
    gesso::BarStops StopsAt(int nThumbOffset) const;
    UINT LastPos() const;
    static gesso::ScrollRepeat<GScrollbar> Repeat();
    void ChangePos(UINT nPos);
    void ForgetInput();
    void SendPress() const;
    void SendScroll(WORD wCode, WORD wPos = 0) const;
    void Drag(int y);
    LRESULT InvalidateParent();
    LRESULT OnThemeChanged();
    LRESULT OnNcDestroy(WPARAM wParam, LPARAM lParam);
};
