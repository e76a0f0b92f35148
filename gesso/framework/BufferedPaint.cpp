#include <gesso/framework/BufferedPaint.h>

namespace gesso {

BufferedPaint::BufferedPaint(HWND hwnd) : m_hWnd(hwnd)
{
    BeginPaint(m_hWnd, &m_paint);
    GetClientRect(m_hWnd, &m_rcClient);
    m_surface.emplace(m_paint.hdc, SIZE{m_rcClient.right, m_rcClient.bottom});
}

BufferedPaint::~BufferedPaint()
{
    BitBlt(m_paint.hdc, 0, 0, m_rcClient.right, m_rcClient.bottom, m_surface->Context(), 0, 0, SRCCOPY);
    EndPaint(m_hWnd, &m_paint);
}

} // namespace gesso
