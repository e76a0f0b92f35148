#include <gallery/PageWindow.h>

namespace gallery {
namespace {

constexpr LPCWSTR CLASS_NAME = L"GessoGalleryPage";

void RegisterPageClass(WNDPROC pfnWindowProc)
{
    WNDCLASSW wc{};
    wc.lpfnWndProc = pfnWindowProc;
    wc.hInstance = GetModuleHandleW(nullptr);
    wc.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    wc.lpszClassName = CLASS_NAME;
    RegisterClassW(&wc); // harmless where it is registered already
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
    m_hwnd = CreateWindowExW(WS_EX_CONTROLPARENT, CLASS_NAME, L"", WS_CHILD | WS_CLIPCHILDREN, rc.left,
                             rc.top, rc.right - rc.left, rc.bottom - rc.top, hwndParent, nullptr,
                             GetModuleHandleW(nullptr), nullptr);
    SetWindowLongPtrW(m_hwnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    m_canvas = std::make_unique<Canvas>(m_hwnd);
    m_page->Build(*m_canvas);
    ShowWindow(m_hwnd, SW_SHOW);
}

PageWindow::~PageWindow()
{
    // The controls' objects outlive their windows; what they report while going is not for the page any more.
    SetWindowLongPtrW(m_hwnd, GWLP_USERDATA, 0);
    DestroyWindow(m_hwnd);
}

HWND PageWindow::DefaultButton() const
{
    HWND hwnd = nullptr;
    EnumChildWindows(m_hwnd, &FindDefaultButton, reinterpret_cast<LPARAM>(&hwnd));
    return hwnd;
}

LRESULT CALLBACK PageWindow::WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    auto* pPage = reinterpret_cast<PageWindow*>(GetWindowLongPtrW(hwnd, GWLP_USERDATA));
    return pPage ? pPage->OnMessage(uMsg, wParam, lParam) : DefWindowProcW(hwnd, uMsg, wParam, lParam);
}

LRESULT PageWindow::OnMessage(UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    switch (uMsg) {
    case WM_COMMAND: return OnCommand(wParam, lParam);
    case WM_NOTIFY: return OnNotify(lParam);
    case WM_VSCROLL: return OnScroll(wParam, lParam);
    case WM_TIMER: return OnTimer();
    case WM_ERASEBKGND: return OnEraseBackground(reinterpret_cast<HDC>(wParam));
    default: return DefWindowProcW(m_hwnd, uMsg, wParam, lParam);
    }
}

LRESULT PageWindow::OnCommand(WPARAM wParam, LPARAM lParam)
{
    const auto hwndFrom = reinterpret_cast<HWND>(lParam);
    m_report(DescribeCommand(LOWORD(wParam), HIWORD(wParam), hwndFrom));
    return m_page->OnCommand(LOWORD(wParam), HIWORD(wParam), hwndFrom);
}

LRESULT PageWindow::OnNotify(LPARAM lParam)
{
    const NMHDR& header = *reinterpret_cast<const NMHDR*>(lParam);
    m_report(DescribeNotify(header));
    return m_page->OnNotify(header);
}

LRESULT PageWindow::OnScroll(WPARAM wParam, LPARAM lParam)
{
    const auto hwndFrom = reinterpret_cast<HWND>(lParam);
    m_report(DescribeScroll(LOWORD(wParam), HIWORD(wParam), hwndFrom));
    m_page->OnScroll(LOWORD(wParam), HIWORD(wParam), hwndFrom);
    return 0;
}

LRESULT PageWindow::OnTimer()
{
    m_page->OnTimer();
    return 0;
}

LRESULT PageWindow::OnEraseBackground(HDC hdc) const
{
    RECT rc{};
    GetClientRect(m_hwnd, &rc);
    FillRect(hdc, &rc, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    m_canvas->PaintFrames(hdc);
    return 1;
}

} // namespace gallery
