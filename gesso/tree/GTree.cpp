// How a tree comes to life and goes, its sizes, and its messages.

#include <gesso/edit/LabelEdit.h>
#include <gesso/framework/DrawScope.h>
#include <gesso/framework/ExplorerStyle.h>
#include <gesso/framework/Lifeline.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/Saturate.h>
#include <gesso/framework/ThemeFont.h>
#include <gesso/framework/WindowClass.h>
#include <gesso/tree/GTree.h>
#include <gesso/tree/RowGeometry.h>
#include <gesso/tree/TreeCells.h>
#include <gesso/tree/TreeInput.h>
#include <gesso/tree/TreeRules.h>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <utility>

using gesso::Frame;
using gesso::Has;
using gesso::Pixels;
using gesso::Quirk;
using gesso::TreeActions;
using gesso::TreeInput;
namespace Metrics = gesso::Metrics;

namespace {

// Whether a bar has a range and page already, so that setting them again would change nothing. The platform
// limits a page otherwise than the bar does, so that the one that both were given must be the same.
bool IsSet(const SCROLLINFO& si, DWORD dwFlags, const SCROLLINFO& siNew, UINT nPageGiven)
{
    const int nPage = std::min(static_cast<int>(siNew.nPage), siNew.nMax);
    return si.nMin == 0 && si.nMax == siNew.nMax && static_cast<int>(si.nPage) == nPage &&
           siNew.nPage == nPageGiven && !(dwFlags & (GSB_HIDDEN | GSB_DISABLED));
}

} // namespace

constinit ATOM GTree::s_aClass = 0;

// Fixed behaviour: the places of the fields; derived classes have them in their own code.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Winvalid-offsetof"
struct GTree::Layout
{
    static_assert(offsetof(GTree, m_uTreeStyle) == 184);
    static_assert(offsetof(GTree, m_hTheme) == 192);
    static_assert(offsetof(GTree, m_hThemeButton) == 248);
    static_assert(offsetof(GTree, m_hFont) == 264);
    static_assert(offsetof(GTree, m_nItemHeight) == 272);
    static_assert(offsetof(GTree, m_hImageList) == 280);
    static_assert(offsetof(GTree, m_pRoot) == 288);
    static_assert(offsetof(GTree, m_pSelected) == 296);
    static_assert(offsetof(GTree, m_aVisible) == 304);
    static_assert(offsetof(GTree, m_nSelected) == 352);
    static_assert(offsetof(GTree, m_nContentWidth) == 356);
    static_assert(offsetof(GTree, m_hitDown) == 360);
    static_assert(offsetof(GTree, m_hitMove) == 372);
    static_assert(offsetof(GTree, m_ftLastChar) == 384);
    static_assert(offsetof(GTree, m_szSearch) == 392);
    static_assert(sizeof(GTree) == 440);
    static_assert(offsetof(gesso::RowChunk<TreeItem>, aItems) == 24);
};
#pragma GCC diagnostic pop

GTree::GTree() : m_nItemHeight(static_cast<UINT>(Pixels(nullptr, Metrics::TREE_ITEM_HEIGHT)))
{
    m_pRoot = View().OpenRoot();
}

GTree::GTree(const GTree& other) = default;
GTree& GTree::operator=(const GTree& other) = default;
GTree::~GTree() = default;

ATOM GTree::IsolationAwareRegisterClassW()
{
    return gesso::RegisterControlClass(s_aClass, L"GTree", WindowProc, gesso::CLASS_SCROLLING);
}

HWND GTree::Create(int x, int y, int cx, int cy, HWND hwndParent, int nId, DWORD dwExStyle, DWORD dwStyle)
{
    return Frame::CreateTagged(*this, IsolationAwareRegisterClassW(), {x, y, cx, cy, hwndParent}, nId,
                               dwExStyle, dwStyle);
}

int GTree::Destroy()
{
    return DestroyWindow(m_hWnd);
}

// --- Style, font and images

DWORD GTree::SetStyle(DWORD dwStyle)
{
    return Frame::SetStyle(*this, dwStyle);
}

DWORD GTree::GetStyle() const
{
    return Frame::Style(*this);
}

HFONT GTree::GetFont() const
{
    return m_hFont;
}

UINT GTree::GetItemHeight() const
{
    return m_nItemHeight;
}

void GTree::SetItemHeight(UINT nHeight)
{
    TreeActions::SetItemHeight(*this, nHeight);
}

HIMAGELIST GTree::GetImageList() const
{
    return m_hImageList;
}

void GTree::SetImageList(HIMAGELIST hImageList)
{
    m_hImageList = hImageList;
}

// --- Tree style and font

UINT GTree::SetTreeStyle(UINT uStyle)
{
    return std::exchange(m_uTreeStyle, uStyle);
}

UINT GTree::GetTreeStyle() const
{
    return m_uTreeStyle;
}

void GTree::SetFont(HFONT hFont)
{
    TakeFont(hFont);
    m_uTreeStyle |= GTS_OWNFONT;
}

// Fixed behaviour: a host's font is deleted as well once SetTreeStyle has cleared GTS_OWNFONT; hosts that
// hand a font over so would leak it.
void GTree::TakeFont(HFONT hFont)
{
    if (m_hFont != hFont) {
        gesso::LabelEdit::ReplaceFont(m_aVisible.Inside().edit.hwnd, m_hFont, hFont);
        ReleaseFont();
    }
    m_hFont = hFont;
    Items().ForgetWidths();
}

void GTree::ReleaseFont()
{
    if (m_uTreeStyle & GTS_OWNFONT) {
        return;
    }
    if (m_hFont && m_hFont != m_hMadeFont) {
        gesso::DeleteThemeFont(m_hFont);
    }
    m_hMadeFont.Reset();
    m_hFont = nullptr;
}

void GTree::MakeFont()
{
    gesso::ThemeHandle theme;
    theme.Open(m_hWnd, L"TEXTSTYLE");
    const HFONT hFont = gesso::MakeThemeFont(m_hWnd, theme, TEXT_BODYTEXT, TMT_FONT, 100);
    TakeFont(hFont);
    m_hMadeFont.Reset(hFont);
}

// What the host gave stays as it is.
void GTree::TakeMeasures()
{
    if (!m_aVisible.Inside().fHeightGiven) {
        m_nItemHeight = static_cast<UINT>(Pixels(m_hWnd, Metrics::TREE_ITEM_HEIGHT));
    }
}

// The first row in view stays there.
void GTree::OnScaling()
{
    const gesso::Lifeline life(*this);
    const UINT row = RowAt(0);
    TakeMeasures();
    if (!(m_uTreeStyle & GTS_OWNFONT)) {
        MakeFont();
    } else if (gesso::IsDefaultFont(m_hFont)) {
        TakeFont(gesso::DefaultFontOf(m_hWnd));
    }
    MeasureRows();
    if (UpdateScrollbars() && life) {
        TreeInput::ScrollTo(*this, SB_VERT, PlaceOf(row).nTop);
    }
}

LRESULT GTree::OnSetFont(HFONT hFont, UINT uRedraw)
{
    SetFont(hFont);
    if (uRedraw) {
        Invalidate(0);
    }
    return 0;
}

// --- Sizes

bool GTree::RowsChanged()
{
    MeasureRows();
    if (!UpdateScrollbars()) {
        return false;
    }
    View().FindSelectedRow();
    TreeActions::RedrawAll(*this);
    return true;
}

// Measures texts in the tree's font, in a context that is made for the first of them. A text is measured
// once; it is measured again when it, or the font, has changed.
class GTree::TextMeasure
{
public:
    explicit TextMeasure(const GTree& tree) : m_tree(tree) {}

    int WidthOf(TreeItem& item)
    {
        int& nWidth = item.place.nTextWidth;
        if (nWidth == gesso::NOT_MEASURED) {
            nWidth = item.strName.GetLength() > 0 ? Measure(item) : 0;
        }
        return nWidth;
    }

private:
    int Measure(const TreeItem& item)
    {
        const HWND hwnd = m_tree.m_hWnd;
        if (!m_hdc) {
            m_hdc.emplace(IsWindow(hwnd) ? hwnd : nullptr);
            m_font.emplace(*m_hdc, m_tree.m_hFont);
        }
        RECT rc{0, 0, Pixels(hwnd, Metrics::TREE_TEXT_ROOM), static_cast<LONG>(m_tree.m_nItemHeight)};
        DrawTextW(*m_hdc, item.strName, -1, &rc, gesso::TREE_LABEL_FORMAT | DT_CALCRECT);
        return static_cast<int>(rc.right - rc.left);
    }

    const GTree& m_tree;
    std::optional<gesso::WindowContext> m_hdc;
    std::optional<gesso::SelectScope> m_font;
};

int GTree::TextWidth(TreeItem& item) const
{
    return TextMeasure(*this).WidthOf(item);
}

void GTree::MeasureRows()
{
    TextMeasure measure(*this);
    const gesso::TreeMeasures cells = gesso::PaintedMeasures(m_hWnd);
    const int nWidest = m_aVisible.Inside().rows.Widest([&](TreeItem& item) {
        return (item.nLevel + 1) * cells.nLevelStep + measure.WidthOf(item); // the root's level is -1
    });
    const int nLabel = gesso::LayOutCells(cells, -1, m_uTreeStyle).nLabel;
    m_nContentWidth = m_aVisible.GetLength() > 0 ? static_cast<UINT>(nWidest + nLabel) : 0;
}

// False where the object is gone: a bar that comes or goes repaints the frame, in whose corner the parent
// draws.
bool GTree::UpdateScrollbars()
{
    const gesso::Lifeline life(*this);
    if (m_hWnd) {
        RECT rc{};
        GetClientRectNoScroll(&rc);
        if (!Has(*this, Quirk::TreePagesForgetBars)) {
            rc.right = RoomWithBar(SB_VERT);
            rc.bottom = RoomWithBar(SB_HORZ);
        }
        CalcScrollbars(rc.right, rc.bottom);
    }
    return life;
}

// Fixed behaviour: what fits leaves its own page shorter by the other bar, and what does not is left alone;
// hosts that ask for the page would get another one, and bars would come and go at other sizes.
void GTree::CalcScrollbars(int cx, int cy)
{
    const auto info = [this](int nMax, int nRoom, int nBarMetric) {
        const int nPage = nMax < nRoom ? nRoom - gesso::SystemMetric(m_hWnd, nBarMetric) : nRoom;
        return SCROLLINFO{
            sizeof(SCROLLINFO), SIF_RANGE | SIF_PAGE, 0, nMax, static_cast<UINT>(std::max(nPage, 0)), 0, 0};
    };
    const int nLast = gesso::EvenRows{m_nItemHeight}.LastPixel(m_aVisible.GetLength());
    SCROLLINFO siH = info(static_cast<int>(m_nContentWidth) - 1, cx, SM_CXVSCROLL);
    SCROLLINFO siV = info(nLast, cy, SM_CYHSCROLL);
    if (!Has(*this, Quirk::TreePagesForgetBars)) {
        CalcTruePages(cx, cy, siH, siV);
    }
    const gesso::Lifeline life(*this);
    if (!IsSet(m_siH, m_dwHStyle, siH, std::exchange(m_nPageH, siH.nPage))) {
        SetScrollInfo(SB_HORZ, &siH);
    }
    if (life && !IsSet(m_siV, m_dwVStyle, siV, std::exchange(m_nPageV, siV.nPage))) {
        SetScrollInfo(SB_VERT, &siV);
    }
}

// What the client area would be across without the vertical bar, or down without the horizontal one.
int GTree::RoomWithBar(int nBar) const
{
    RECT rc{};
    GetClientRect(m_hWnd, &rc);
    const bool fVert = nBar == SB_VERT;
    const bool fStyle = Frame::Style(*this) & (fVert ? WS_VSCROLL : WS_HSCROLL);
    const bool fShown = fStyle && !((fVert ? m_dwVStyle : m_dwHStyle) & GSB_HIDDEN);
    const int nBarSize = gesso::SystemMetric(m_hWnd, fVert ? SM_CXVSCROLL : SM_CYHSCROLL);
    return gesso::Saturated(int64_t{fVert ? rc.right : rc.bottom} + (fShown ? nBarSize : 0));
}

// Each bar that is needed takes its room off the other one's page.
void GTree::CalcTruePages(int cx, int cy, SCROLLINFO& siH, SCROLLINFO& siV) const
{
    const int cxBar = gesso::SystemMetric(m_hWnd, SM_CXVSCROLL);
    const int cyBar = gesso::SystemMetric(m_hWnd, SM_CYHSCROLL);
    bool fVert = siV.nMax >= cy;
    const bool fHorz = siH.nMax >= cx - (fVert ? cxBar : 0);
    fVert = fVert || (fHorz && siV.nMax >= cy - cyBar);
    siH.nPage = static_cast<UINT>(std::max(cx - (fVert ? cxBar : 0), 0));
    siV.nPage = static_cast<UINT>(std::max(cy - (fHorz ? cyBar : 0), 0));
}

LRESULT GTree::OnNcCalcSize(BOOL fValidRects, NCCALCSIZE_PARAMS* pParams)
{
    const RECT rcWindow = pParams->rgrc[0];
    RECT& rc = pParams->rgrc[0];
    if ((Frame::Style(*this) & WS_BORDER) || (GetWindowLongW(m_hWnd, GWL_EXSTYLE) & WS_EX_CLIENTEDGE)) {
        const int nBorder = m_hTheme.Items().BorderSize();
        InflateRect(&rc, -nBorder, -nBorder);
    }
    // A bar that comes or goes sends this message again from within, with the size that the window had
    // before.
    if (!std::exchange(m_fSizing, true)) {
        const gesso::Lifeline life(*this);
        CalcScrollbars(gesso::Saturated(int64_t{rc.right} - rc.left),
                       gesso::Saturated(int64_t{rc.bottom} - rc.top));
        if (!life) {
            return 0;
        }
        m_fSizing = false;
    }
    if (!Has(*this, Quirk::BarHitsBeside)) {
        NcCalcSizeScroll(&rcWindow, &rc);
        return 0;
    }
    // Without the border: the bars lie as far up and to the left as it is wide.
    return GWndScroll::OnNcCalcSize(fValidRects, pParams);
}

// --- Messages

LRESULT GTree::OnCreate(const CREATESTRUCTW*)
{
    m_hThemeButton.Open(m_hWnd, L"BUTTON");
    if (gesso::GetScaling() != gesso::Scaling::None) {
        TakeMeasures();
    }
    const bool fHosts = m_hFont && (m_uTreeStyle & GTS_OWNFONT) && !Has(*this, Quirk::FontEndsWithWindow);
    if (!fHosts) {
        MakeFont();
    }
    return 0;
}

LRESULT GTree::OnDestroy()
{
    ForgetEdit();
    m_hThemeButton.Reset();
    ReleaseFont();
    // With GTS_OWNFONT too: the font was made while the bit was set, or was given to SetFont.
    if (m_hFont == m_hMadeFont) {
        m_hFont = nullptr;
    }
    m_hMadeFont.Reset();
    return 0;
}

LRESULT GTree::OnThemeChanged()
{
    if (gesso::MendExplorerStyle(m_hWnd)) {
        return 0;
    }
    m_hTheme.Open(m_hWnd);
    m_hThemeButton.Open(m_hWnd, L"BUTTON");
    if (!(m_uTreeStyle & GTS_OWNFONT)) {
        MakeFont();
    }
    Invalidate(0);
    return 0;
}

LRESULT GTree::OnPrintClient(HDC hdc, LPARAM lParam)
{
    return Frame::OnPrintWhole(*this, hdc, lParam);
}

LRESULT GTree::OnEnable(BOOL fEnable)
{
    if (!fEnable) {
        Frame::ClearState(*this, GWS_HOT | GWS_PRESSED);
    }
    return Frame::OnEnable(*this, true);
}

// Tab and Escape are left to the dialog.
LRESULT GTree::OnGetDlgCode(const MSG* pMessage) const
{
    constexpr LRESULT CODE = DLGC_WANTARROWS | DLGC_WANTCHARS;
    if (!Has(*this, Quirk::TreeEnterClicks)) {
        return CODE; // Enter too
    }
    const bool fLeft = pMessage && pMessage->message == WM_KEYDOWN &&
                       (pMessage->wParam == VK_TAB || pMessage->wParam == VK_ESCAPE);
    return CODE | (fLeft ? 0 : DLGC_WANTALLKEYS);
}

LRESULT GTree::OnSetFocus(HWND)
{
    if (m_nSelected >= m_aVisible.GetLength() && Has(*this, Quirk::TreeSelectsByNumber)) {
        View().ChangeSelection(nullptr, 0);
    }
    return TreeActions::OnSetFocus(*this);
}

LRESULT GTree::OnNcCreate(const CREATESTRUCTW* pcs)
{
    return TreeInput::OnNcCreate(*this, pcs);
}

LRESULT GTree::OnNcDestroy()
{
    return TreeInput::OnNcDestroy(*this);
}

LRESULT GTree::OnNcPaint(WPARAM wRegion)
{
    return Frame::OnNcPaint(*this, wRegion);
}

LRESULT GTree::OnGetFont() const
{
    return reinterpret_cast<LRESULT>(m_hFont);
}

LRESULT GTree::OnKillFocus(HWND)
{
    return Frame::OnKillFocus(*this);
}

LRESULT GTree::OnCaptureChanged(HWND hwndNew)
{
    return Frame::OnCaptureChanged(*this, hwndNew);
}

LRESULT GTree::OnTreeMessage(UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    return TreeInput::OnMessage(*this, uMsg, wParam, lParam);
}

LRESULT CALLBACK GTree::WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    return Frame::Route<GTree>(hwnd, uMsg, wParam, lParam);
}

LRESULT GTree::OnMessage(UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    const auto uKey = static_cast<UINT>(wParam);
    switch (uMsg) {
    case WM_PAINT: return OnPaint();
    case WM_PRINTCLIENT: return OnPrintClient(reinterpret_cast<HDC>(wParam), lParam);
    case WM_GETDLGCODE: return OnGetDlgCode(reinterpret_cast<const MSG*>(lParam));
    case WM_KEYDOWN: return OnKeyDown(uKey, LOWORD(lParam), HIWORD(lParam));
    case WM_CHAR: return OnChar(uKey, LOWORD(lParam), HIWORD(lParam));
    case WM_HSCROLL: return OnHScroll(LOWORD(wParam), HIWORD(wParam), reinterpret_cast<HWND>(lParam));
    case WM_CONTEXTMENU:
    case WM_KEYUP:
    case WM_DEADCHAR:
    case WM_MOUSEHWHEEL: return 0;
    default: return OnTreeMessage(uMsg, wParam, lParam);
    }
}
