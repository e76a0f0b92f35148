// How a navigation bar comes to life and goes, its sizes, and its messages.

#include <gesso/framework/Library.h>
#include <gesso/framework/Lifeline.h>
#include <gesso/framework/Metrics.h>
#include <gesso/tree/GNavigationBar.h>

#include <algorithm>

using Control = GNavigationBar;
#include <gesso/tree/TreeMembers.inl>

using gesso::Frame;
namespace Metrics = gesso::Metrics;

constinit ATOM GNavigationBar::s_aClass = 0;

GNavigationBar::GNavigationBar()
    : m_nItemHeight(static_cast<UINT>(gesso::Pixels(nullptr, Metrics::NAVIGATION_ITEM_HEIGHT))),
      m_pRoot(m_tree.Root()), m_aVisible(m_tree.Store())
{
    m_pRoot->uState = NBIS_EXPANDED;
}

GNavigationBar::~GNavigationBar() = default;

void GNavigationBar::SetFont(HFONT hFont)
{
    m_hFont = hFont;
}

LRESULT GNavigationBar::OnSetFont(HFONT hFont, UINT uRedraw)
{
    return Frame::OnSetFont(*this, m_hFont, hFont, uRedraw);
}

// --- Sizes

bool GNavigationBar::RowsChanged()
{
    if (!UpdateScrollbars()) {
        return false;
    }
    RedrawAll();
    return true;
}

// False where the object is gone: a bar that comes or goes repaints the frame, in whose corner the parent
// draws.
bool GNavigationBar::UpdateScrollbars()
{
    const gesso::Lifeline life(*this);
    if (m_hWnd) {
        RECT rc{};
        GetClientRect(m_hWnd, &rc);
        CalcScrollbars(rc.bottom + (m_dwHStyle & GSB_HIDDEN ? gesso::SystemMetric(m_hWnd, SM_CYHSCROLL) : 0));
    }
    return life;
}

void GNavigationBar::CalcScrollbars(int nPage)
{
    const int64_t nHeight = int64_t{m_aVisible.GetLength()} * m_nItemHeight;
    const SCROLLINFO si{sizeof(SCROLLINFO),
                        SIF_RANGE | SIF_PAGE,
                        0,
                        static_cast<int>(std::min<int64_t>(nHeight, INT_MAX)) - 1,
                        static_cast<UINT>(std::max(nPage, 0)),
                        0,
                        0};
    SetScrollInfo(SB_VERT, &si, 0);
}

void GNavigationBar::EnsureVisible(UINT row)
{
    if (static_cast<int>(m_siV.nPage) < m_siV.nMax && ScrollRowIntoView(row, true, true)) {
        Invalidate(0);
    }
}

// --- Messages

LRESULT GNavigationBar::OnCreate(const CREATESTRUCTW*)
{
    m_hHeaderFont.Reset(CreateFontW(-gesso::Pixels(m_hWnd, Metrics::NAVIGATION_HEADER_FONT), 0, 0, 0,
                                    Metrics::NAVIGATION_HEADER_WEIGHT, 0, 0, 0, 0, 0, 0, 0, 0, L"Segoe UI"));
    m_hFont = g_hDefaultFont;
    return 0;
}

LRESULT GNavigationBar::OnDestroy()
{
    m_hHeaderFont.Reset();
    return 0;
}

// Without rows the bar stays hidden, as it was made.
LRESULT GNavigationBar::OnSize()
{
    if (m_aVisible.GetLength() > 0) {
        UpdateScrollbars();
    }
    return 0;
}

LRESULT GNavigationBar::OnThemeChanged()
{
    m_hTheme.Open(m_hWnd);
    Invalidate(0);
    return 0;
}

LRESULT GNavigationBar::OnEnable(BOOL fEnable)
{
    return Frame::OnEnable(*this, fEnable);
}

LRESULT GNavigationBar::OnSetFocus(HWND)
{
    return Frame::OnSetFocus(*this);
}

LRESULT GNavigationBar::OnKeyDown(UINT uKey, LPARAM)
{
    return gesso::OnButtonKeyDown(*this, uKey);
}

LRESULT GNavigationBar::OnKeyUp(UINT uKey, LPARAM)
{
    return gesso::OnButtonKeyUp(*this, uKey);
}

LRESULT GNavigationBar::OnGetDlgCode() const
{
    return DLGC_WANTARROWS;
}

LRESULT CALLBACK GNavigationBar::WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    return Frame::Route<GNavigationBar>(hwnd, uMsg, wParam, lParam);
}

LRESULT GNavigationBar::OnMessage(UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    switch (uMsg) {
    case WM_SIZE: return OnSize();
    case WM_PRINTCLIENT: return Frame::OnPrintClient(*this, reinterpret_cast<HDC>(wParam), lParam);
    case WM_GETDLGCODE: return OnGetDlgCode();
    case WM_KEYDOWN: return OnKeyDown(static_cast<UINT>(wParam), lParam);
    case WM_KEYUP: return OnKeyUp(static_cast<UINT>(wParam), lParam);
    default: return OnTreeMessage(uMsg, wParam, lParam);
    }
}
