#include <gesso/controls/GScrollbar.h>
#include <gesso/framework/BufferedPaint.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/Ownership.h>
#include <gesso/framework/Press.h>
#include <gesso/framework/Quirks.h>
#include <gesso/framework/ScrollBarLook.h>
#include <gesso/framework/ScrollRepeat.h>
#include <gesso/framework/WindowClass.h>
#include <gesso/framework/Wrapped.h>

#include <algorithm>
#include <climits>
#include <utility>

using gesso::Frame;

constinit ATOM GScrollbar::s_aClass = 0;
constinit ULONGLONG GScrollbar::s_ullTimerTime = 0;
constinit UINT_PTR GScrollbar::s_dwTimer = 0;
constinit GScrollbar* GScrollbar::s_pScrollingWindow = nullptr;

namespace {

constexpr LPCWSTR STYLE_CLASS = L"SCROLLBAR";

// This bar follows neither the system's metrics nor the keyboard's repeat settings.
constexpr UINT REPEAT_MILLISECONDS = 100;
constexpr ULONGLONG DELAY_TICKS = 500 * gesso::TICKS_PER_MILLISECOND;

int Truncate(double n)
{
    return static_cast<int>(std::clamp(n, double{INT_MIN}, double{INT_MAX}));
}

constexpr const gesso::BarTraits& TRAITS = gesso::BARS[SB_VERT];

int ButtonExtent(HWND hwnd)
{
    return gesso::Pixels(hwnd, gesso::Metrics::SCROLLBAR_BUTTON);
}

int ClientHeight(HWND hwnd)
{
    RECT rc{};
    GetClientRect(hwnd, &rc);
    return rc.bottom;
}

} // namespace

ATOM GScrollbar::IsolationAwareRegisterClassW()
{
    return gesso::RegisterControlClass(s_aClass, L"GScrollbar", WindowProc, gesso::CLASS_CONTROL);
}

GScrollbar::~GScrollbar()
{
    ForgetInput();
}

HWND GScrollbar::Create(int x, int y, int cx, int cy, HWND hwndParent, int nId, DWORD dwExStyle,
                        DWORD dwStyle)
{
    return Frame::CreateTagged(*this, IsolationAwareRegisterClassW(), {x, y, cx, cy, hwndParent}, nId,
                               dwExStyle, dwStyle);
}

int GScrollbar::Destroy()
{
    return DestroyWindow(m_hWnd);
}

void GScrollbar::InitScrollBar(UINT nTotal)
{
    m_hTheme.Open(m_hWnd, STYLE_CLASS);
    m_nTotal = nTotal;
    m_nPage = nTotal;
    ResetScroll();
}

void GScrollbar::UninitScrollBar()
{
    m_hTheme.Reset();
    m_nInit45 = 0;
}

void GScrollbar::ScrSetTotalHeight(UINT nTotal)
{
    const int nHeight = ClientHeight(m_hWnd);
    m_nTotal = nTotal;
    m_nPage = static_cast<UINT>(nHeight);
    m_nFiveSixths = static_cast<int>(LONGLONG{5} * nHeight / 6);
    m_nTrack = nHeight - 2 * ButtonExtent(m_hWnd);
    // Before there is a total the track is whole.
    const int nSmallest = gesso::Pixels(m_hWnd, gesso::Metrics::SCROLLBAR_SMALLEST_THUMB);
    m_nThumb = nTotal ? Truncate(static_cast<double>(nHeight) / nTotal * m_nTrack) : nSmallest;
    gesso::EnlargeThumb(nSmallest, &m_nTrack, &m_nThumb);
}

UINT GScrollbar::ScrGetPageSize() const
{
    return m_nPage;
}

void GScrollbar::ResetScroll()
{
    ChangePos(0);
    m_nInit20 = 20;
    m_nInit45 = 45;
}

int GScrollbar::IsScrollable() const
{
    return m_nPage < m_nTotal;
}

UINT GScrollbar::LastPos() const
{
    return m_nTotal > m_nPage ? m_nTotal - m_nPage : 0;
}

// Every change of the position goes through here.
void GScrollbar::ChangePos(UINT nPos)
{
    m_nPos = nPos;
}

UINT GScrollbar::GetScrollPos() const
{
    return m_nPos;
}

void GScrollbar::SetScrollPos(UINT nPos)
{
    ChangePos(static_cast<int>(nPos) < 0 ? 0 : std::min(nPos, LastPos()));
    // The thumb has moved under the pointer.
    const DWORD dwPos = GetMessagePos();
    POINT pt{GET_X_LPARAM(dwPos), GET_Y_LPARAM(dwPos)};
    ScreenToClient(m_hWnd, &pt);
    m_hitNow.pt = {static_cast<SHORT>(pt.x), static_cast<SHORT>(pt.y)};
    HitTest(&m_hitNow);
}

// How far the thumb stands from the up button. With nothing to scroll neither divides.
// Fixed behaviour: painting and hit-testing divide and multiply in different orders, so that at some
// positions they are a pixel apart. In one order, either the picture or what a press at the thumb's edge does
// would change.

int GScrollbar::PaintedThumbOffset() const
{
    return m_nTotal ? Truncate(static_cast<double>(m_nPos) / m_nTotal * m_nTrack) : 0;
}

int GScrollbar::HitThumbOffset() const
{
    return m_nTotal ? Truncate(static_cast<double>(m_nTrack) / m_nTotal * m_nPos) : 0;
}

gesso::BarStops GScrollbar::StopsAt(int nThumbOffset) const
{
    const int nButton = ButtonExtent(m_hWnd);
    return {ClientHeight(m_hWnd), nButton, gesso::Wrapped(int64_t{nButton} + nThumbOffset), m_nThumb};
}

// The whole width of the client area counts, and its edges belong to it.
WORD GScrollbar::HitTest(HitTestInfo* pInfo) const
{
    pInfo->wHit = gesso::HitTestClient(m_hWnd, pInfo->pt)
                      ? gesso::PartAt(TRAITS, StopsAt(HitThumbOffset()), pInfo->pt.y)
                      : WORD{0};
    return pInfo->wHit;
}

void GScrollbar::Draw(HDC hdc)
{
    RECT rc{};
    GetClientRect(m_hWnd, &rc);
    rc.left = rc.right - ButtonExtent(m_hWnd);
    gesso::DrawBarParts(m_hWnd, hdc, m_hTheme, TRAITS,
                        gesso::LayOutBar(TRAITS, rc, StopsAt(PaintedThumbOffset())),
                        gesso::StatesOf(TRAITS, {m_hitDown.wHit, m_hitNow.wHit}, 0, false));
}

void GScrollbar::SendScroll(WORD wCode, WORD wPos) const
{
    SendMessageW(GetParent(), WM_VSCROLL, MAKEWPARAM(wCode, wPos), reinterpret_cast<LPARAM>(m_hWnd));
}

void GScrollbar::SendPress() const
{
    const WORD wCode = gesso::RuleOf(TRAITS, m_hitDown.wHit).wScrollCode;
    if (wCode != gesso::NO_SCROLL_CODE) {
        SendScroll(wCode);
    }
}

gesso::ScrollRepeat<GScrollbar> GScrollbar::Repeat()
{
    static constinit thread_local gesso::RepeatState<GScrollbar> s_own;
    return {s_own, s_pScrollingWindow, s_dwTimer, s_ullTimerTime};
}

void CALLBACK GScrollbar::TimerCallback(HWND, UINT, UINT_PTR, DWORD)
{
    // A message of the timer that was waiting when the bar went comes all the same.
    const gesso::RepeatState<GScrollbar>& repeat = Repeat().own;
    const GScrollbar* pBar = repeat.pBar;
    const bool fOnPart = pBar && (pBar->m_hitDown.wHit & pBar->m_hitNow.wHit);
    if (fOnPart && repeat.time < gesso::SystemTicks() - DELAY_TICKS) {
        pBar->SendPress();
    }
}

// What belongs to a window: its press, its pointer and its timer.
void GScrollbar::ForgetInput()
{
    Frame::SetState(*this, 0);
    m_hitDown.wHit = 0;
    m_hitNow.wHit = 0;
    Repeat().Forget(*this);
}

void GScrollbar::Drag(int y)
{
    // A bar too low for a track has nowhere to drag to.
    const double nMoved = m_nTrack ? static_cast<double>(m_nTotal) / m_nTrack * (y - m_nDragY) : 0;
    const LONGLONG nPos = LONGLONG{Truncate(nMoved)} + m_nDragPos;
    SendScroll(SB_THUMBTRACK, LOWORD(std::clamp<LONGLONG>(nPos, 0, LastPos())));
}

LRESULT GScrollbar::OnCreate(const CREATESTRUCTW* pcs)
{
    ForgetInput();
    m_nTrack = pcs->cy - 2 * ButtonExtent(m_hWnd);
    return 0;
}

// In Classic the object outlives its window also where the window made it: the theme is the host's to close,
// and hosts do that when the window is gone.
LRESULT GScrollbar::OnNcDestroy(WPARAM wParam, LPARAM lParam)
{
    const HWND hwnd = m_hWnd;
    ForgetInput();
    if (Has(*this, gesso::Quirk::BarOutlivesWindow) && !gesso::IsGivenToWindow(hwnd)) {
        Frame::Abandon(*this);
    } else {
        Frame::Detach(*this);
    }
    return Frame::Default(hwnd, WM_NCDESTROY, wParam, lParam);
}

LRESULT GScrollbar::OnSize()
{
    ScrSetTotalHeight(m_nTotal);
    if (m_nPos > LastPos()) {
        SendScroll(SB_LINEDOWN);
    }
    return 0;
}

// A bar that was not initialized has no style, nor has one that is initialized no more.
LRESULT GScrollbar::OnThemeChanged()
{
    return m_nInit45 ? Frame::OnThemeChanged(*this, m_hTheme, STYLE_CLASS) : 0;
}

LRESULT GScrollbar::InvalidateParent()
{
    // To the platform a null window means all windows.
    if (const HWND hwndParent = GetParent()) {
        InvalidateRect(hwndParent, nullptr, FALSE);
    }
    return 0;
}

LRESULT GScrollbar::OnSetFocus(HWND)
{
    return InvalidateParent();
}

LRESULT GScrollbar::OnKillFocus(HWND)
{
    return InvalidateParent();
}

LRESULT GScrollbar::OnLButtonDown(WPARAM, POINTS pt)
{
    const HWND hwnd = m_hWnd;
    // Tells the window that had it, whose parent may destroy this one.
    SetCapture(hwnd);
    if (!Frame::IsAlive(hwnd, this)) {
        return 0;
    }
    Frame::AddState(*this, GWS_SBPRESSED);
    Invalidate(0);
    m_hitDown.pt = pt;
    switch (HitTest(&m_hitDown)) {
    case 0: break;
    case SBH_VTHUMB:
        m_nDragPos = m_nPos;
        m_nDragY = pt.y;
        break;
    default:
        Repeat().Start(*this, REPEAT_MILLISECONDS, gesso::SystemTicks(), TimerCallback);
        SendPress();
        break;
    }
    return 0;
}

LRESULT GScrollbar::OnLButtonUp(WPARAM, POINTS)
{
    const HWND hwnd = m_hWnd;
    if (m_dwState & GWS_SBPRESSED) {
        ReleaseCapture();
        if (!Frame::IsAlive(hwnd, this)) {
            return 0;
        }
        Frame::ClearState(*this, GWS_SBPRESSED);
    }
    Repeat().Stop();
    if (std::exchange(m_hitDown.wHit, WORD{0})) {
        Invalidate(0);
    }
    return 0;
}

LRESULT GScrollbar::OnMouseMove(WPARAM, POINTS pt)
{
    Frame::TrackLeave(*this);
    const WORD wFormer = m_hitNow.wHit;
    m_hitNow.pt = pt;
    if (HitTest(&m_hitNow) != wFormer) {
        Invalidate(0);
    }
    if (m_hitDown.wHit == SBH_VTHUMB) {
        Drag(pt.y);
    }
    return 0;
}

LRESULT GScrollbar::OnMouseLeave()
{
    Frame::ClearState(*this, GWS_TRACKING);
    m_hitNow.wHit = 0;
    Invalidate(0);
    return 0;
}

LRESULT CALLBACK GScrollbar::WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    return Frame::Route<GScrollbar>(hwnd, uMsg, wParam, lParam);
}

LRESULT GScrollbar::OnMessage(UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    switch (uMsg) {
    case WM_NCDESTROY: return OnNcDestroy(wParam, lParam);
    case WM_SIZE: return OnSize();
    case WM_SETFOCUS: return OnSetFocus(reinterpret_cast<HWND>(wParam));
    case WM_KILLFOCUS: return OnKillFocus(reinterpret_cast<HWND>(wParam));
    case WM_LBUTTONDOWN: return OnLButtonDown(wParam, gesso::PointOf(lParam));
    case WM_LBUTTONUP: return OnLButtonUp(wParam, gesso::PointOf(lParam));
    case WM_MOUSEMOVE: return OnMouseMove(wParam, gesso::PointOf(lParam));
    case WM_MOUSELEAVE: return OnMouseLeave();
    case WM_PAINT: return gesso::PaintControl(*this, m_hWnd);
    case WM_PRINTCLIENT: return Frame::OnPrintClient(*this, reinterpret_cast<HDC>(wParam), lParam);
    case WM_ERASEBKGND: return 1;
    case WM_THEMECHANGED: return OnThemeChanged();
    default: return Frame::Default(*this, uMsg, wParam, lParam);
    }
}
