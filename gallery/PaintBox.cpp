#include <gallery/Fonts.h>
#include <gallery/PaintBox.h>
#include <gallery/Shades.h>

#include <utility>

namespace gallery {
namespace {

constexpr LPCWSTR CLASS_NAME = L"GessoGalleryPaintBox";

void RegisterBoxClass(WNDPROC pfnWindowProc)
{
    WNDCLASSW wc{};
    wc.lpfnWndProc = pfnWindowProc;
    wc.hInstance = GetModuleHandleW(nullptr);
    wc.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    wc.lpszClassName = CLASS_NAME;
    RegisterClassW(&wc); // harmless where it is registered already
}

} // namespace

PaintBox::PaintBox(HWND hwndParent, const RECT& rc, Painter painter) : m_painter(std::move(painter))
{
    RegisterBoxClass(&WindowProc);
    m_hwnd = CreateWindowExW(0, CLASS_NAME, L"", WS_CHILD | WS_VISIBLE, rc.left, rc.top, rc.right - rc.left,
                             rc.bottom - rc.top, hwndParent, nullptr, GetModuleHandleW(nullptr), nullptr);
    SetWindowLongPtrW(m_hwnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

PaintBox::~PaintBox()
{
    if (m_hwnd) {
        SetWindowLongPtrW(m_hwnd, GWLP_USERDATA, 0);
        DestroyWindow(m_hwnd);
    }
}

SIZE PaintBox::Size() const
{
    RECT rc{};
    GetClientRect(m_hwnd, &rc);
    return {rc.right, rc.bottom};
}

LRESULT CALLBACK PaintBox::WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    auto* pBox = reinterpret_cast<PaintBox*>(GetWindowLongPtrW(hwnd, GWLP_USERDATA));
    return pBox ? pBox->OnMessage(uMsg, wParam, lParam) : DefWindowProcW(hwnd, uMsg, wParam, lParam);
}

LRESULT PaintBox::OnMessage(UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    switch (uMsg) {
    case WM_PAINT: return OnPaint();
    case WM_ERASEBKGND: return TRUE;
    case WM_NCDESTROY: {
        const HWND hwnd = std::exchange(m_hwnd, nullptr);
        SetWindowLongPtrW(hwnd, GWLP_USERDATA, 0);
        return DefWindowProcW(hwnd, uMsg, wParam, lParam);
    }
    default: return DefWindowProcW(m_hwnd, uMsg, wParam, lParam);
    }
}

LRESULT PaintBox::OnPaint()
{
    PAINTSTRUCT ps;
    const HDC hdcWindow = BeginPaint(m_hwnd, &ps);
    const SIZE size = Size();
    const RECT rc = {0, 0, size.cx, size.cy};
    const HDC hdc = CreateCompatibleDC(hdcWindow);
    const HBITMAP hbm = CreateCompatibleBitmap(hdcWindow, size.cx, size.cy);
    const HGDIOBJ hFormerBitmap = SelectObject(hdc, hbm);
    SetLayout(hdc, GetLayout(hdcWindow));
    const HGDIOBJ hFormerFont = SelectObject(hdc, BodyFont());
    FillRect(hdc, &rc, PageBrush());
    SetBkMode(hdc, TRANSPARENT);
    SetTextColor(hdc, ColorOf(Shade::Text));
    Draw(hdc, rc);
    BitBlt(hdcWindow, 0, 0, size.cx, size.cy, hdc, 0, 0, SRCCOPY);
    SelectObject(hdc, hFormerFont);
    SelectObject(hdc, hFormerBitmap);
    DeleteObject(hbm);
    DeleteDC(hdc);
    EndPaint(m_hwnd, &ps);
    return 0;
}

} // namespace gallery
