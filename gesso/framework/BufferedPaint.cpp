#include <gesso/framework/BufferedPaint.h>

namespace gesso {

BufferedPaint::BufferedPaint(HWND hwnd) : m_hWnd(hwnd)
{
    BeginPaint(m_hWnd, &m_paint);
    GetClientRect(m_hWnd, &m_rcClient);
    m_hdc = CreateCompatibleDC(m_paint.hdc);
    m_hFormerBitmap =
        SelectObject(m_hdc, CreateCompatibleBitmap(m_paint.hdc, m_rcClient.right, m_rcClient.bottom));
}

HBITMAP BufferedPaint::KeepBitmap()
{
    m_fKeep = true;
    return static_cast<HBITMAP>(GetCurrentObject(m_hdc, OBJ_BITMAP));
}

BufferedPaint::~BufferedPaint()
{
    BitBlt(m_paint.hdc, 0, 0, m_rcClient.right, m_rcClient.bottom, m_hdc, 0, 0, SRCCOPY);
    const HGDIOBJ hBitmap = SelectObject(m_hdc, m_hFormerBitmap);
    if (!m_fKeep) {
        DeleteObject(hBitmap);
    }
    DeleteDC(m_hdc);
    EndPaint(m_hWnd, &m_paint);
}

} // namespace gesso
