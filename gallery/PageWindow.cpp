#include <gallery/PageWindow.h>
#include <gallery/Scale.h>

#include <windowsx.h>

namespace gallery {
namespace {

constexpr LPCWSTR CLASS_NAME = L"GessoGalleryPage";
constexpr int LINE = 24; // that the wheel and the bars' arrows scroll by

void RegisterPageClass(WNDPROC pfnWindowProc)
{
    WNDCLASSW wc{};
    wc.lpfnWndProc = pfnWindowProc;
    wc.hInstance = GetModuleHandleW(nullptr);
    wc.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    wc.lpszClassName = CLASS_NAME;
    RegisterClassW(&wc); // harmless where it is registered already
}

// The position within a bar's range.
LONG Limited(HWND hwnd, int nBar, LONG nPos)
{
    SCROLLINFO info{sizeof(info), SIF_RANGE | SIF_PAGE, 0, 0, 0, 0, 0};
    GetScrollInfo(hwnd, nBar, &info);
    return std::max<LONG>(0, std::min<LONG>(nPos, info.nMax + 1 - static_cast<LONG>(info.nPage)));
}

// Where a bar's message takes it.
LONG ScrolledBy(HWND hwnd, int nBar, WPARAM wParam)
{
    SCROLLINFO info{sizeof(info), SIF_ALL, 0, 0, 0, 0, 0};
    GetScrollInfo(hwnd, nBar, &info);
    switch (LOWORD(wParam)) {
    case SB_LINEUP: return info.nPos - LINE;
    case SB_LINEDOWN: return info.nPos + LINE;
    case SB_PAGEUP: return info.nPos - static_cast<int>(info.nPage);
    case SB_PAGEDOWN: return info.nPos + static_cast<int>(info.nPage);
    case SB_THUMBTRACK: return info.nTrackPos;
    default: return info.nPos;
    }
}

// What lists and trees send for each item, be they 100,000. A separator's drag has the same number.
bool TellsOfOneThatGoes(const NMHDR& header)
{
    return (header.code == static_cast<UINT>(LVN_DELETEITEM) && ClassOf(header.hwndFrom) == L"GList") ||
           header.code == TVN_DELETEITEMW;
}

BOOL CALLBACK FindDefaultButton(HWND hwnd, LPARAM lParam)
{
    if (!(SendMessageW(hwnd, WM_GETDLGCODE, 0, 0) & DLGC_DEFPUSHBUTTON) || !IsWindowEnabled(hwnd)) {
        return TRUE;
    }
    *reinterpret_cast<HWND*>(lParam) = hwnd;
    return FALSE;
}

} // namespace

PageWindow::PageWindow(HWND hwndParent, const RECT& rc, std::unique_ptr<Page> page, ReportLine report)
    : m_page(std::move(page)), m_report(std::move(report))
{
    RegisterPageClass(&WindowProc);
    m_hwnd = CreateWindowExW(WS_EX_CONTROLPARENT, CLASS_NAME, L"",
                             WS_CHILD | WS_CLIPCHILDREN | WS_HSCROLL | WS_VSCROLL, rc.left, rc.top,
                             rc.right - rc.left, rc.bottom - rc.top, hwndParent, nullptr,
                             GetModuleHandleW(nullptr), nullptr);
    SetWindowLongPtrW(m_hwnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    m_canvas = std::make_unique<Canvas>(m_hwnd);
    m_page->Build(*m_canvas);
    m_canvas->Finish();
    EnumChildWindows(m_hwnd, &FindDefaultButton, reinterpret_cast<LPARAM>(&m_hwndDefault));
    Arrange();
    ShowWindow(m_hwnd, SW_SHOW);
}

PageWindow::~PageWindow()
{
    // The controls' objects outlive their windows; what they report while going is not for the page any more.
    SetWindowLongPtrW(m_hwnd, GWLP_USERDATA, 0);
    DestroyWindow(m_hwnd);
}

LRESULT CALLBACK PageWindow::WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    auto* pPage = reinterpret_cast<PageWindow*>(GetWindowLongPtrW(hwnd, GWLP_USERDATA));
    return pPage ? pPage->OnMessage(uMsg, wParam, lParam) : DefWindowProcW(hwnd, uMsg, wParam, lParam);
}

LRESULT PageWindow::OnMessage(UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    switch (uMsg) {
    case DM_GETDEFID: return OnGetDefaultId();
    case WM_COMMAND: return OnCommand(wParam, lParam);
    case WM_NOTIFY: return OnNotify(lParam);
    case WM_CONTEXTMENU:
        return OnContextMenu(reinterpret_cast<HWND>(wParam), {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)});
    case WM_HSCROLL:
    case WM_VSCROLL: return OnScroll(uMsg, wParam, lParam);
    case WM_MOUSEWHEEL: return OnWheel(static_cast<short>(HIWORD(wParam)));
    case WM_SIZE: return OnSize();
    case WM_TIMER: return OnTimer();
    case WM_CTLCOLOREDIT: return OnColorEdit(reinterpret_cast<HDC>(wParam), lParam);
    case WM_ERASEBKGND: return OnEraseBackground(reinterpret_cast<HDC>(wParam));
    default: return DefWindowProcW(m_hwnd, uMsg, wParam, lParam);
    }
}

// The dialog manager moves the mark of the default button along with the focus, and takes it back by this.
LRESULT PageWindow::OnGetDefaultId() const
{
    return m_hwndDefault ? MAKELONG(GetDlgCtrlID(m_hwndDefault), DC_HASDEFID) : 0;
}

LRESULT PageWindow::OnCommand(WPARAM wParam, LPARAM lParam)
{
    // What Enter and Esc come as where no button is meant.
    if (!lParam && (wParam == IDOK || wParam == IDCANCEL)) {
        return 0;
    }
    const auto hwndFrom = reinterpret_cast<HWND>(lParam);
    m_report(DescribeCommand(LOWORD(wParam), HIWORD(wParam), hwndFrom));
    return m_page->OnCommand(LOWORD(wParam), HIWORD(wParam), hwndFrom);
}

LRESULT PageWindow::OnNotify(LPARAM lParam)
{
    const NMHDR& header = *reinterpret_cast<const NMHDR*>(lParam);
    if (TellsOfOneThatGoes(header)) {
        return 0;
    }
    // Questions come in the midst of a paint.
    if (header.code != TVN_GETDISPINFOW) {
        m_report(DescribeNotify(header));
    }
    if (header.code == static_cast<UINT>(NM_SETFOCUS)) {
        BringIntoView(header.hwndFrom);
    }
    return m_page->OnNotify(header);
}

LRESULT PageWindow::OnContextMenu(HWND hwndFrom, POINT ptScreen)
{
    m_report(DescribeContextMenu(hwndFrom, ptScreen));
    m_page->OnContextMenu(hwndFrom, ptScreen);
    return 0;
}

LRESULT PageWindow::OnScroll(UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    if (!lParam) {
        POINT pt = m_ptScrolled;
        (uMsg == WM_HSCROLL ? pt.x : pt.y) =
            ScrolledBy(m_hwnd, uMsg == WM_HSCROLL ? SB_HORZ : SB_VERT, wParam);
        ScrollTo(pt);
        return 0;
    }
    const auto hwndFrom = reinterpret_cast<HWND>(lParam);
    m_report(DescribeScroll(LOWORD(wParam), HIWORD(wParam), hwndFrom));
    m_page->OnScroll(LOWORD(wParam), HIWORD(wParam), hwndFrom);
    return 0;
}

LRESULT PageWindow::OnWheel(short nDelta)
{
    ScrollTo({m_ptScrolled.x, m_ptScrolled.y - nDelta * 3 * LINE / WHEEL_DELTA});
    return 0;
}

LRESULT PageWindow::OnSize()
{
    if (!m_fArranging) {
        Arrange();
    }
    return 0;
}

void PageWindow::Place(const RECT& rc)
{
    MoveWindow(m_hwnd, rc.left, rc.top, rc.right - rc.left, rc.bottom - rc.top, TRUE);
}

// Gives the page its room, and itself the scroll bars that it takes.
void PageWindow::Arrange()
{
    m_fArranging = true; // a bar that comes or goes changes the client area
    ScrollTo({0, 0});
    RECT rc{};
    GetWindowRect(m_hwnd, &rc);
    const int cxBar = GetSystemMetrics(SM_CXVSCROLL);
    const int cyBar = GetSystemMetrics(SM_CYHSCROLL);
    SIZE room{rc.right - rc.left, rc.bottom - rc.top};
    const SIZE least = NeededIn(room);
    const bool fVertical = least.cy > room.cy - (least.cx > room.cx ? cyBar : 0);
    room.cx -= fVertical ? cxBar : 0;
    room.cy -= least.cx > room.cx ? cyBar : 0;
    SetRange(SB_HORZ, least.cx, room.cx);
    SetRange(SB_VERT, least.cy, room.cy);
    m_page->OnSize({Unscaled(std::max(room.cx, least.cx)), Unscaled(std::max(room.cy, least.cy))});
    m_fArranging = false;
    InvalidateRect(m_hwnd, nullptr, TRUE);
}

// Two columns are stacked rather than scrolled across.
SIZE PageWindow::NeededIn(SIZE room)
{
    SIZE least = m_page->LeastSize();
    const bool fStacked = least.cx == TWO_COLUMNS.cx && room.cx < Scaled(least.cx);
    m_canvas->Stack(fStacked);
    if (fStacked) {
        least = {LEFT_BLOCK + BLOCK_WIDTH + MARGIN, m_canvas->Extent().cy + MARGIN};
    }
    return {Scaled(least.cx), Scaled(least.cy)};
}

void PageWindow::SetRange(int nBar, int nLeast, int nRoom) const
{
    const SCROLLINFO info{sizeof(info),
                          SIF_RANGE | SIF_PAGE | SIF_POS,
                          0,
                          nLeast - 1,
                          static_cast<UINT>(std::max(nRoom, 0)),
                          0,
                          0};
    SetScrollInfo(m_hwnd, nBar, &info, TRUE);
}

void PageWindow::ScrollTo(POINT pt)
{
    pt = {Limited(m_hwnd, SB_HORZ, pt.x), Limited(m_hwnd, SB_VERT, pt.y)};
    ScrollWindow(m_hwnd, m_ptScrolled.x - pt.x, m_ptScrolled.y - pt.y, nullptr, nullptr);
    m_ptScrolled = pt;
    SetScrollPos(m_hwnd, SB_HORZ, pt.x, TRUE);
    SetScrollPos(m_hwnd, SB_VERT, pt.y, TRUE);
}

// The control that the user has tabbed to.
void PageWindow::BringIntoView(HWND hwnd)
{
    RECT rc{}, rcClient{};
    GetWindowRect(hwnd, &rc);
    MapWindowPoints(nullptr, m_hwnd, reinterpret_cast<POINT*>(&rc), 2);
    GetClientRect(m_hwnd, &rcClient);
    const auto offset = [](int nFrom, int nTo, int nRoom) {
        return nFrom < 0 ? nFrom : std::max(0, std::min(nFrom, nTo - nRoom));
    };
    const int dx = offset(rc.left - LINE, rc.right + LINE, rcClient.right);
    const int dy = offset(rc.top - LINE, rc.bottom + LINE, rcClient.bottom);
    if (dx != 0 || dy != 0) {
        ScrollTo({m_ptScrolled.x + dx, m_ptScrolled.y + dy});
    }
}

void PageWindow::Recolor()
{
    m_canvas->Recolor();
    m_page->OnSchemeChange();
    RedrawWindow(m_hwnd, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

LRESULT PageWindow::OnTimer()
{
    m_page->OnTimer();
    return 0;
}

// The platform's own field, which knows of no scheme.
LRESULT PageWindow::OnColorEdit(HDC hdc, LPARAM lParam) const
{
    if (gesso::ActiveColorScheme() == gesso::ColorScheme::Light) {
        return DefWindowProcW(m_hwnd, WM_CTLCOLOREDIT, reinterpret_cast<WPARAM>(hdc), lParam);
    }
    const COLORREF crGround = gesso::ColorOf(gesso::ColorRole::Window);
    SetTextColor(hdc, gesso::ColorOf(gesso::ColorRole::WindowText));
    SetBkColor(hdc, crGround);
    SetDCBrushColor(hdc, crGround);
    return reinterpret_cast<LRESULT>(GetStockObject(DC_BRUSH));
}

LRESULT PageWindow::OnEraseBackground(HDC hdc) const
{
    FillClient(m_hwnd, hdc, Shade::Page);
    POINT ptFormer{};
    OffsetViewportOrgEx(hdc, -m_ptScrolled.x, -m_ptScrolled.y, &ptFormer);
    m_canvas->PaintFrames(hdc);
    SetViewportOrgEx(hdc, ptFormer.x, ptFormer.y, nullptr);
    return 1;
}

} // namespace gallery
