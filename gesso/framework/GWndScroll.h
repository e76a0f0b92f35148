// GWndScroll: the base of every control with scroll bars of its own.
//
// The bars are laid out, hit-tested, tracked and painted here, in the non-client area and through the visual
// style's "SCROLLBAR" class; the platform's own bars are not used, though the window carries WS_HSCROLL and
// WS_VSCROLL. What the user does with a bar is sent to the control's own window as WM_HSCROLL or WM_VSCROLL
// with the platform's SB_ codes and the window itself as lParam; the derived class answers by SetScrollPos or
// SetScrollInfo. Every change is mirrored to the platform, so that its GetScrollInfo answers too.
//
// There is no window procedure here: each derived class's WindowProc hands the non-client messages to the
// On... members. Bars are named SB_HORZ (0) and SB_VERT (1); both start hidden.
#pragma once

#include <gesso/framework/GWnd.h>
#include <gesso/framework/ThemeHandle.h>

// State bits above the common ones.
constexpr DWORD GWS_NCPRESSED = 0x0200;  // a press in a bar holds the capture
constexpr DWORD GWS_NCTRACKING = 0x1000; // a TrackMouseEvent request for the non-client area is outstanding

// Flags of a bar.
constexpr UINT GSB_DISABLE_FIRST = 0x01;     // left or up arrow inactive
constexpr UINT GSB_DISABLE_LAST = 0x02;      // right or down arrow inactive
constexpr UINT GSB_DISABLE_PAGEFIRST = 0x04; // the track before the thumb inactive
constexpr UINT GSB_DISABLE_PAGELAST = 0x08;  // the track behind the thumb inactive
constexpr UINT GSB_DISABLE_THUMB = 0x10;     // the thumb inactive
constexpr UINT GSB_DISABLED = 0x40;          // the whole bar disabled
constexpr UINT GSB_HIDDEN = 0x80;            // not shown, and taking no room
constexpr UINT GSB_FLIPPED = 0x100;          // horizontal bar on top, vertical bar on the left

// Window style bits of a derived control that choose the flipped places.
constexpr DWORD GSS_FLIPHORZ = 0x8000;
constexpr DWORD GSS_FLIPVERT = 0x4000;

// Parts of a bar, as hit tests answer them; 0 is none, or an inactive part.
constexpr WORD SBH_UP = 0x2000;
constexpr WORD SBH_DOWN = 0x1000;
constexpr WORD SBH_ABOVE = 0x0200;
constexpr WORD SBH_BELOW = 0x0100;
constexpr WORD SBH_VTHUMB = 0x0010;
constexpr WORD SBH_LEFT = 0x8000;
constexpr WORD SBH_RIGHT = 0x4000;
constexpr WORD SBH_BEFORE = 0x0800;
constexpr WORD SBH_BEHIND = 0x0400;
constexpr WORD SBH_HTHUMB = 0x0020;
constexpr WORD SBH_VERTICAL = SBH_UP | SBH_DOWN | SBH_ABOVE | SBH_BELOW | SBH_VTHUMB;
constexpr WORD SBH_HORIZONTAL = SBH_LEFT | SBH_RIGHT | SBH_BEFORE | SBH_BEHIND | SBH_HTHUMB;

struct ScrollBarHitTestInfo
{
    POINTS pt;
    WORD wHit;
};

namespace gesso {
struct BarTraits;
const AccessibleSide* BarSideOf(const GWnd& wnd);
template <class BAR> struct ScrollRepeat;
} // namespace gesso

class GESSO_API GWndScroll : public GWnd
{
public:
    ~GWndScroll() override;

    // Updates range, page and position by psi->fMask, limiting page and position to the range, and shows the
    // bar. With bRedraw, repaints the bar, or the whole window where the bar's flags changed. Returns the
    // position, or 0, doing nothing, for a bar that is none or a record of another size.
    virtual int SetScrollInfo(int nBar, const SCROLLINFO* psi, int bRedraw);
    // Flags (GSB_) of a bar, stored as they are, with no repaint. Returns the former flags, or -1 for no such
    // bar.
    virtual UINT SetScrollBarStyle(int nBar, UINT uStyle);
    virtual UINT GetScrollBarStyle(int nBar) const;
    // Limits the position to the range and stores it. Returns it, or 0x80000000 for no such bar.
    virtual int SetScrollPos(int nBar, int nPos, int bRedraw);
    // Copies the whole record, its fMask included, whatever psi->fMask asks for. Returns 0, writing nothing,
    // for no such bar or a record of another size.
    virtual int GetScrollInfo(int nBar, SCROLLINFO* psi) const;
    virtual int GetScrollPos(int nBar) const;
    // Shows or hides a bar, giving its room back. Returns 0 for no such bar.
    virtual int ShowScrollBar(int nBar, int bShow);
    // Replaces the low seven flags by uFlags, of which ESB_DISABLE_LEFT, ESB_DISABLE_RIGHT and
    // ESB_DISABLE_BOTH are the first two; repaints the bar. Returns 0 for no such bar.
    virtual int EnableScrollBar(int nBar, UINT uFlags);

    // The client rectangle, with the room that hidden bars would take added.
    void GetClientRectNoScroll(RECT* prc) const;

    // Paints the bars that the window style and the flags show, in window coordinates.
    void DrawHScrollBar(HDC hdc);
    void DrawVScrollBar(HDC hdc);
    void DrawScrollBar(HDC hdc, DWORD dwStyle);
    // Repaints one bar on the screen at once: SB_HORZ, SB_VERT or SB_BOTH.
    void DrawScrollBar(int nWhich);

protected:
    GWndScroll();
    GWndScroll(const GWndScroll&) = default;
    GWndScroll& operator=(const GWndScroll&) = default;

    void SetScrollInfo(int nBar, const SCROLLINFO* psi);
    void SetScrollInfo(const SCROLLINFO* psiH, const SCROLLINFO* psiV, int bRedraw);

    LRESULT OnNcCreate(const CREATESTRUCTW* pcs);
    LRESULT OnNcDestroy();
    LRESULT OnNcCalcSize(BOOL fValidRects, NCCALCSIZE_PARAMS* pParams);
    LRESULT OnNcHitTest(POINTS ptScreen) const;
    LRESULT OnWindowPosChanged(const WINDOWPOS* pPos);
    // Points are in screen coordinates, also where the derived class passes on a client message of the
    // capture.
    LRESULT OnNcLButtonDown(UINT uHit, POINTS ptScreen);
    LRESULT OnNcLButtonDblClk(UINT uHit, POINTS ptScreen);
    LRESULT OnNcLButtonUp(UINT uHit, POINTS ptScreen);
    LRESULT OnNcMouseMove(UINT uHit, POINTS ptScreen);
    LRESULT OnNcMouseLeave();

    // Takes the room of the bars that show off *prcClient, and places both bars. Both rectangles are in one
    // system.
    void NcCalcSizeScroll(const RECT* prcWindow, RECT* prcClient);
    // Writes and returns the part at pInfo->pt.
    WORD ScrollBarHitTest(ScrollBarHitTestInfo* pInfo) const;
    // Starts the repeat of a held arrow or track.
    void ScrollBarSetTimer();
    static void CALLBACK ScrollBarTimerCallback(HWND hwnd, UINT uMsg, UINT_PTR uId, DWORD dwTime);

    gesso::ThemeHandle m_hThemeScroll;
    RECT m_rcHScroll{};
    RECT m_rcVScroll{};
    SCROLLINFO m_siH{};
    SCROLLINFO m_siV{};
    DWORD m_dwHStyle = 0;
    DWORD m_dwVStyle = 0;
    ScrollBarHitTestInfo m_hitDown{};
    int m_nTrackStart = 0;
    ScrollBarHitTestInfo m_hitNow{};

    // Of the bar that began to repeat last, on whichever thread: each thread repeats one bar at a time.
    static DWORD s_dwScrollRepeatDelay; // milliseconds before repeating starts
    static DWORD s_dwScrollRepeatSpeed; // milliseconds between repeats
    static ULONGLONG s_ullTimerTime;    // in 100 nanoseconds: no repeat before
    static UINT_PTR s_dwTimer;
    static GWndScroll* s_pScrollingWindow;

private:
    friend class gesso::Frame;
    // What the bars say of themselves to those who do not see them.
    class BarAccess;
    friend const gesso::AccessibleSide* gesso::BarSideOf(const GWnd& wnd);

    struct Bar
    {
        SCROLLINFO& si;
        DWORD& dwFlags;
    };
    Bar BarOf(int nBar);
    const RECT& RectOf(int nBar) const;
    int BarOfHit(WORD wHit) const;
    bool Shows(const gesso::BarTraits& traits, DWORD dwFlags) const;
    void ChangePos(int nBar, int nPos);
    void LimitPage(int nBar, UINT nPage);
    void Update(int nBar, const SCROLLINFO& siNew);
    void OpenBarTheme();
    void DrawBar(HDC hdc, int nBar);
    void DrawBarNow(HDC hdcWindow, int nBar);
    void DrawBarOfHit(WORD wHit);
    void Redraw(bool fFlagsChanged, int nBar);
    WORD HitTestBar(int nBar, DWORD dwFlags, POINT pt) const;
    POINTS BarPoint(POINTS ptScreen) const;
    void DragThumb(POINTS pt);
    void SendScroll(UINT uMessage, WORD wCode, WORD wPos = 0);
    static gesso::ScrollRepeat<GWndScroll> Repeat();
};
