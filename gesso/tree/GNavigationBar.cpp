// How a navigation bar comes to life and goes, its sizes, and its messages.

#include <gesso/framework/ExplorerStyle.h>
#include <gesso/framework/FirstFont.h>
#include <gesso/framework/Lifeline.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/WindowClass.h>
#include <gesso/tree/GNavigationBar.h>
#include <gesso/tree/NavigationRows.h>
#include <gesso/tree/RowGeometry.h>
#include <gesso/tree/TreeInput.h>
#include <gesso/tree/TreeRules.h>

#include <algorithm>
#include <cstddef>

using gesso::Frame;
using gesso::Has;
using gesso::Pixels;
using gesso::Quirk;
using gesso::TreeActions;
using gesso::TreeInput;
namespace Metrics = gesso::Metrics;

constinit ATOM GNavigationBar::s_aClass = 0;

// Fixed behaviour: the places of the fields; derived classes have them in their own code.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Winvalid-offsetof"
struct GNavigationBar::Layout
{
    static_assert(offsetof(GNavigationBar, m_hTheme) == 184);
    static_assert(offsetof(GNavigationBar, m_hHeaderFont) == 240);
    static_assert(offsetof(GNavigationBar, m_hFont) == 256);
    static_assert(offsetof(GNavigationBar, m_nItemHeight) == 264);
    static_assert(offsetof(GNavigationBar, m_hImageList) == 272);
    static_assert(offsetof(GNavigationBar, m_pRoot) == 280);
    static_assert(offsetof(GNavigationBar, m_pSelected) == 288);
    static_assert(offsetof(GNavigationBar, m_aVisible) == 296);
    static_assert(offsetof(GNavigationBar, m_nSelected) == 344);
    static_assert(offsetof(GNavigationBar, m_hitDown) == 348);
    static_assert(offsetof(GNavigationBar, m_hitMove) == 360);
    static_assert(sizeof(GNavigationBar) == 376);
};
#pragma GCC diagnostic pop

GNavigationBar::GNavigationBar()
    : m_nItemHeight(static_cast<UINT>(Pixels(nullptr, Metrics::NAVIGATION_ITEM_HEIGHT)))
{
    m_pRoot = View().OpenRoot();
}

GNavigationBar::GNavigationBar(const GNavigationBar& other) = default;
GNavigationBar& GNavigationBar::operator=(const GNavigationBar& other) = default;
GNavigationBar::~GNavigationBar() = default;

ATOM GNavigationBar::IsolationAwareRegisterClassW()
{
    return gesso::RegisterControlClass(s_aClass, L"GNavigationBar", WindowProc, gesso::CLASS_SCROLLING);
}

HWND GNavigationBar::Create(int x, int y, int cx, int cy, HWND hwndParent, int nId, DWORD dwExStyle,
                            DWORD dwStyle)
{
    return Frame::CreateTagged(*this, IsolationAwareRegisterClassW(), {x, y, cx, cy, hwndParent}, nId,
                               dwExStyle, dwStyle);
}

int GNavigationBar::Destroy()
{
    return DestroyWindow(m_hWnd);
}

// --- Style, font and images

DWORD GNavigationBar::SetStyle(DWORD dwStyle)
{
    return Frame::SetStyle(*this, dwStyle);
}

DWORD GNavigationBar::GetStyle() const
{
    return Frame::Style(*this);
}

HFONT GNavigationBar::GetFont() const
{
    return m_hFont;
}

UINT GNavigationBar::GetItemHeight() const
{
    return m_nItemHeight;
}

void GNavigationBar::SetItemHeight(UINT nHeight)
{
    TreeActions::SetItemHeight(*this, nHeight);
}

HIMAGELIST GNavigationBar::GetImageList() const
{
    return m_hImageList;
}

void GNavigationBar::SetImageList(HIMAGELIST hImageList)
{
    m_hImageList = hImageList;
}

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
    return TreeActions::RedrawWithBars(*this);
}

// False where the object is gone: a bar that comes or goes repaints the frame, in whose corner the parent
// draws.
bool GNavigationBar::UpdateScrollbars()
{
    const gesso::Lifeline life(*this);
    if (m_hWnd) {
        CalcScrollbars(PageHeight());
    }
    return life;
}

void GNavigationBar::CalcScrollbars(int nPage)
{
    const SCROLLINFO si{sizeof(SCROLLINFO),
                        SIF_RANGE | SIF_PAGE,
                        0,
                        LastPixel(),
                        static_cast<UINT>(std::max(nPage, 0)),
                        0,
                        0};
    SetScrollInfo(SB_VERT, &si, 0);
}

int GNavigationBar::LastPixel() const
{
    return Has(*this, Quirk::PaneRangeIsEven)
               ? gesso::EvenRows{m_nItemHeight}.LastPixel(m_aVisible.GetLength())
               : Rows().LastPixel();
}

gesso::RowPlace GNavigationBar::PlaceOf(UINT row) const
{
    return Has(*this, Quirk::PaneRangeIsEven) ? gesso::EvenRows{m_nItemHeight}.PlaceOf(row)
                                              : Rows().PlaceOf(row);
}

// The room that the rows are shown in.
int GNavigationBar::PageHeight() const
{
    RECT rc{};
    GetClientRect(m_hWnd, &rc);
    const bool fHiddenToo = Has(*this, Quirk::PaneRangeIsEven) && (m_dwHStyle & GSB_HIDDEN);
    return rc.bottom + (fHiddenToo ? gesso::SystemMetric(m_hWnd, SM_CYHSCROLL) : 0);
}

void GNavigationBar::EnsureVisible(UINT row)
{
    if (static_cast<int>(m_siV.nPage) < m_siV.nMax && TreeInput::ScrollRowIntoView(*this, row, true, true)) {
        Invalidate(0);
    }
}

// --- Messages

LRESULT GNavigationBar::OnCreate(const CREATESTRUCTW*)
{
    MakeHeaderFont();
    gesso::TakeFirstFont(*this, m_hFont);
    if (gesso::GetScaling() != gesso::Scaling::None) {
        TakeMeasures();
    }
    return 0;
}

// What the host gave stays as it is.
void GNavigationBar::TakeMeasures()
{
    if (!m_aVisible.Inside().fHeightGiven) {
        m_nItemHeight = static_cast<UINT>(Pixels(m_hWnd, Metrics::NAVIGATION_ITEM_HEIGHT));
    }
}

// The first row in view stays there.
void GNavigationBar::OnScaling()
{
    const gesso::Lifeline life(*this);
    const UINT row = Rows().Reaching(m_siV.nPos).row;
    TakeMeasures();
    MakeHeaderFont();
    if (gesso::IsDefaultFont(m_hFont)) {
        m_hFont = gesso::DefaultFontOf(m_hWnd);
    }
    const bool fShown = m_aVisible.GetLength() > 0 && UpdateScrollbars() && life;
    if (fShown && row < m_aVisible.GetLength()) {
        TreeInput::ScrollTo(*this, SB_VERT, Rows().PlaceOf(row).nTop);
    }
}

void GNavigationBar::MakeHeaderFont()
{
    m_hHeaderFont.Reset(CreateFontW(-Pixels(m_hWnd, Metrics::NAVIGATION_HEADER_FONT), 0, 0, 0,
                                    Metrics::NAVIGATION_HEADER_WEIGHT, 0, 0, 0, 0, 0, 0, 0, 0, L"Segoe UI"));
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
    if (gesso::MendExplorerStyle(m_hWnd)) {
        return 0;
    }
    m_hTheme.Open(m_hWnd);
    if (!m_hHeaderFont) {
        MakeHeaderFont();
    }
    Invalidate(0);
    return 0;
}

LRESULT GNavigationBar::OnEnable(BOOL fEnable)
{
    return Frame::OnEnable(*this, fEnable);
}

LRESULT GNavigationBar::OnSetFocus(HWND)
{
    return TreeActions::OnSetFocus(*this);
}

LRESULT GNavigationBar::OnGetDlgCode() const
{
    return DLGC_WANTARROWS;
}

LRESULT GNavigationBar::OnNcCreate(const CREATESTRUCTW* pcs)
{
    return TreeInput::OnNcCreate(*this, pcs);
}

LRESULT GNavigationBar::OnNcDestroy()
{
    return TreeInput::OnNcDestroy(*this);
}

LRESULT GNavigationBar::OnNcPaint(WPARAM wRegion)
{
    return Frame::OnNcPaint(*this, wRegion);
}

LRESULT GNavigationBar::OnGetFont() const
{
    return reinterpret_cast<LRESULT>(m_hFont);
}

LRESULT GNavigationBar::OnKillFocus(HWND)
{
    return Frame::OnKillFocus(*this);
}

LRESULT GNavigationBar::OnCaptureChanged(HWND hwndNew)
{
    return Frame::OnCaptureChanged(*this, hwndNew);
}

LRESULT GNavigationBar::OnTreeMessage(UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    return TreeInput::OnMessage(*this, uMsg, wParam, lParam);
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
    case WM_GETDLGCODE: return OnGetDlgCode() | KeysWanted(reinterpret_cast<const MSG*>(lParam));
    case WM_KEYDOWN: return OnKeyDown(static_cast<UINT>(wParam), lParam);
    case WM_CHAR: return OnTyped(wParam, lParam);
    case WM_KEYUP: return OnKeyUp(static_cast<UINT>(wParam), lParam);
    default: return OnTreeMessage(uMsg, wParam, lParam);
    }
}
