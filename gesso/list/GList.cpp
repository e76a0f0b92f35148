// How a list comes to life and goes, and its messages.

#include <gesso/framework/Frame.h>
#include <gesso/framework/Module.h>
#include <gesso/framework/WindowClass.h>
#include <gesso/list/GList.h>

#include <utility>

using gesso::Frame;

constinit ATOM GList::s_aClass = 0;
constinit HCURSOR GList::s_hColumnSizing = nullptr;

namespace {

constexpr UINT NONE = static_cast<UINT>(-1);
constexpr WORD SIZING_CURSOR = 140;

constexpr GList::HitTestInfo NO_HIT{{0, 0}, NONE, NONE, 0xFFFF, 0xFFFF};

HFONT MakeFont(int nHeight, int nWeight)
{
    return CreateFontW(nHeight, 0, 0, 0, nWeight, 0, 0, 0, 0, 0, 0, 0, 0, L"Segoe UI");
}

// Takes a font as the list's own in the place of another.
void TakeFont(HFONT& hField, HFONT hFont)
{
    const HFONT hFormer = std::exchange(hField, hFont);
    if (hFormer && hFormer != hFont) {
        DeleteObject(hFormer);
    }
}

} // namespace

GList::GList() : hitPress(NO_HIT), hitHot(NO_HIT)
{
    items.AllocExtra(0, 64);
    if (!s_hColumnSizing) {
        s_hColumnSizing = LoadCursorW(g_hModule, MAKEINTRESOURCEW(SIZING_CURSOR));
    }
}

// Of what the window has not released already, the object releases what it made itself.
GList::~GList()
{
    if (!m_owner) {
        return;
    }
    if (editWindows) {
        GList::EndEdit();
    }
    ReleaseItems();
    ReleaseColumns();
    ReleaseGroups();
    ReleaseFrames();
    ReleaseFonts();
}

ATOM GList::IsolationAwareRegisterClassW()
{
    return gesso::RegisterControlClass(s_aClass, L"GList", WindowProc, gesso::CLASS_SCROLLING);
}

HWND GList::Create(int x, int y, int cx, int cy, HWND hwndParent, int nId, UINT style, DWORD dwExStyle,
                   DWORD dwStyle)
{
    listStyle = style;
    return Frame::CreateTagged(*this, IsolationAwareRegisterClassW(), {x, y, cx, cy, hwndParent}, nId,
                               dwExStyle, dwStyle);
}

int GList::Destroy()
{
    return DestroyWindow(m_hWnd);
}

DWORD GList::SetStyle(DWORD dwStyle)
{
    return Frame::SetStyle(*this, dwStyle);
}

DWORD GList::GetStyle() const
{
    return Frame::Style(*this);
}

void GList::Init(void*) {}

void GList::CalculateGroup(UINT) {}

void GList::CalculateItem(UINT) {}

// --- Images and fonts

void GList::SetImageList(HIMAGELIST hImageList)
{
    imageList = hImageList;
}

HIMAGELIST GList::GetImageList() const
{
    return imageList;
}

void GList::SetLabelTitleFont(HFONT hFont)
{
    TakeFont(fontLabelTitle, hFont);
    RefreshLayout();
}

void GList::SetLabelHeaderFont(HFONT hFont)
{
    TakeFont(fontLabelHeader, hFont);
    RefreshLayout();
}

// A font that the host has lent by OnSetFont stays the host's.
void GList::SetLabelTextFont(HFONT hFont)
{
    if (listStyle & GLS_OWNFONT) {
        listStyle &= ~GLS_OWNFONT;
        fontLabelText = nullptr;
    }
    TakeFont(fontLabelText, hFont);
    RefreshLayout();
}

void GList::SetGroupTitleFont(HFONT hFont)
{
    TakeFont(fontGroupTitle, hFont);
    RefreshLayout();
}

HFONT GList::GetLabelTitleFont() const
{
    return fontLabelTitle;
}

HFONT GList::GetLabelHeaderFont() const
{
    return fontLabelHeader;
}

HFONT GList::GetLabelTextFont() const
{
    return fontLabelText;
}

HFONT GList::GetGroupTitleFont() const
{
    return fontGroupTitle;
}

void GList::ReleaseFonts()
{
    if (listStyle & GLS_OWNFONT) {
        fontLabelText = nullptr;
    }
    TakeFont(fontLabelTitle, nullptr);
    TakeFont(fontLabelHeader, nullptr);
    TakeFont(fontLabelText, nullptr);
    TakeFont(fontGroupTitle, nullptr);
}

LRESULT GList::OnGetFont() const
{
    return reinterpret_cast<LRESULT>(fontLabelText);
}

LRESULT GList::OnSetFont(HFONT hFont, UINT uRedraw)
{
    if (!(listStyle & GLS_OWNFONT)) {
        TakeFont(fontLabelText, nullptr);
    }
    listStyle |= GLS_OWNFONT;
    return Frame::OnSetFont(*this, fontLabelText, hFont, uRedraw);
}

// --- The header

UINT GList::GetHeaderHeight() const
{
    return headerHeight;
}

void GList::SetHeaderHeight(UINT height)
{
    headerHeight = height;
    RefreshLayout();
}

UINT GList::GetHeaderItemSpacing() const
{
    return headerItemSpacing;
}

void GList::SetHeaderItemSpacing(UINT spacing)
{
    headerItemSpacing = spacing;
    RefreshLayout();
}

// --- Attachment and detachment

LRESULT GList::OnNcCreate(const CREATESTRUCTW* pcs)
{
    SetWindowTheme(m_hWnd, L"explorer", nullptr);
    GWndScroll::OnNcCreate(pcs);
    m_dwState = Frame::FIRST_STATE;
    themeList.Open(m_hWnd, L"LISTVIEW");
    return 1;
}

LRESULT GList::OnCreate(const CREATESTRUCTW*)
{
    OpenCellThemes();
    TakeFont(fontLabelTitle, MakeFont(-13, 0));
    TakeFont(fontLabelHeader, MakeFont(-12, 0));
    TakeFont(fontLabelText, MakeFont(-12, FW_NORMAL));
    TakeFont(fontGroupTitle, MakeFont(-13, FW_BOLD));
    return 0;
}

void GList::OpenCellThemes()
{
    themeHeader.Reset(OpenThemeData(m_hWnd, L"HEADER"));
    themeButton.Reset(OpenThemeData(m_hWnd, L"BUTTON"));
}

// The groups stay: they go with the object.
LRESULT GList::OnDestroy()
{
    RemoveAllItems();
    RemoveAllColumns();
    themeHeader.Reset();
    themeButton.Reset();
    ReleaseFonts();
    return 0;
}

LRESULT GList::OnNcDestroy()
{
    if (editWindows) {
        EndEdit();
    }
    GWndScroll::OnNcDestroy();
    themeList.Close();
    return Frame::Detach(*this);
}

LRESULT GList::OnThemeChanged()
{
    m_hThemeScroll.Reset(OpenThemeData(m_hWnd, L"SCROLLBAR"));
    themeList.Open(m_hWnd, L"LISTVIEW");
    OpenCellThemes();
    Invalidate(0);
    return 0;
}

// --- Focus and state

LRESULT GList::OnEnable(BOOL fEnable)
{
    if (!fEnable) {
        m_dwState &= ~(GWS_HOT | GWS_PRESSED | GWS_LISTDRAG);
    }
    Invalidate(0);
    return 0;
}

LRESULT GList::OnSetFocus(HWND)
{
    if (lastItem == NONE && items.GetLength() > 0) {
        lastItem = 0;
        SelectRange(0, 0);
    }
    return Frame::OnSetFocus(*this);
}

LRESULT GList::OnKillFocus(HWND)
{
    const HWND hwnd = m_hWnd;
    Invalidate(0);
    if (editWindows && !IsFocusInside()) {
        Frame::SendNotify(*this, static_cast<UINT>(LVN_FIRST));
    }
    if (Frame::IsAlive(hwnd, this)) {
        Frame::SendNotify(*this, static_cast<UINT>(NM_KILLFOCUS));
    }
    return 0;
}

// Tab is left to the dialog.
LRESULT GList::OnGetDlgCode(const MSG* pMessage) const
{
    const bool fTab = pMessage && pMessage->message == WM_KEYDOWN && pMessage->wParam == VK_TAB;
    return DLGC_WANTCHARS | DLGC_WANTARROWS | (fTab ? 0 : DLGC_WANTALLKEYS);
}

LRESULT CALLBACK GList::WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    auto* pList = Frame::ObjectOf<GList>(hwnd);
    if (!pList) {
        return uMsg == WM_NCCREATE ? Frame::Attach<GList>(hwnd, lParam)
                                   : DefWindowProcW(hwnd, uMsg, wParam, lParam);
    }
    GList& list = *pList;
    const auto uHit = static_cast<UINT>(wParam);
    const POINTS pt = gesso::PointOf(lParam);
    switch (uMsg) {
    case WM_CREATE: return list.OnCreate(reinterpret_cast<const CREATESTRUCTW*>(lParam));
    case WM_DESTROY: return list.OnDestroy();
    case WM_NCDESTROY: return list.OnNcDestroy();
    case WM_NCCALCSIZE: return list.OnNcCalcSize(wParam != 0, reinterpret_cast<NCCALCSIZE_PARAMS*>(lParam));
    case WM_NCHITTEST: return list.OnNcHitTest(pt);
    case WM_NCPAINT: return list.OnNcPaint(wParam);
    case WM_NCMOUSEMOVE: return list.OnNcMouseMove(uHit, pt);
    case WM_NCMOUSELEAVE: return list.OnNcMouseLeave();
    case WM_NCLBUTTONDOWN: return list.OnNcLButtonDown(uHit, pt);
    case WM_NCLBUTTONDBLCLK: return list.OnNcLButtonDblClk(uHit, pt);
    case WM_NCLBUTTONUP: return list.OnNcLButtonUp(uHit, pt);
    case WM_PAINT: return list.OnPaint();
    case WM_PRINTCLIENT: return list.OnPrintClient(reinterpret_cast<HDC>(wParam), lParam);
    case WM_ERASEBKGND: return 1;
    case WM_THEMECHANGED: return list.OnThemeChanged();
    case WM_STYLECHANGED: return Frame::OnStyleChanged(list);
    case WM_UPDATEUISTATE: return Frame::OnUpdateUIState(list, wParam, lParam);
    case WM_ENABLE: return list.OnEnable(wParam != 0);
    case WM_SETFOCUS: return list.OnSetFocus(reinterpret_cast<HWND>(wParam));
    case WM_KILLFOCUS: return list.OnKillFocus(reinterpret_cast<HWND>(wParam));
    case WM_GETDLGCODE: return list.OnGetDlgCode(reinterpret_cast<const MSG*>(lParam));
    case WM_KEYDOWN: return list.OnKeyDown(static_cast<UINT>(wParam), lParam, HIWORD(lParam));
    case WM_KEYUP: return list.OnKeyUp(static_cast<UINT>(wParam));
    case WM_CHAR:
    case WM_DEADCHAR: return list.OnChar(static_cast<UINT>(wParam));
    case WM_MOUSEMOVE: return list.OnMouseMove(wParam, pt);
    case WM_MOUSELEAVE: return list.OnMouseLeave();
    case WM_LBUTTONDOWN: return list.OnLButtonDown(wParam, pt);
    case WM_LBUTTONUP: return list.OnLButtonUp(wParam, pt);
    case WM_LBUTTONDBLCLK: return list.OnLButtonDblClk(wParam, pt);
    case WM_CAPTURECHANGED: return list.OnCaptureChanged(reinterpret_cast<HWND>(lParam));
    case WM_SETCURSOR: return list.OnSetCursor(reinterpret_cast<HWND>(wParam), lParam);
    case WM_MOUSEWHEEL: return list.OnMouseWheel(LOWORD(wParam), GET_WHEEL_DELTA_WPARAM(wParam), pt);
    case WM_VSCROLL: return list.OnVScroll(LOWORD(wParam), HIWORD(wParam), reinterpret_cast<HWND>(lParam));
    case WM_HSCROLL: return list.OnHScroll(LOWORD(wParam), HIWORD(wParam), reinterpret_cast<HWND>(lParam));
    case WM_NOTIFY: return list.OnNotify(static_cast<UINT>(wParam), reinterpret_cast<const NMHDR*>(lParam));
    case WM_MOUSEHWHEEL:
    case WM_CONTEXTMENU: return 0;
    default: return DefWindowProcW(hwnd, uMsg, wParam, lParam);
    }
}
