#include <gesso/framework/BufferedPaint.h>

namespace gesso {

BufferedPaint::BufferedPaint(HWND hwnd, Area area) : m_hWnd(hwnd)
{
    BeginPaint(m_hWnd, &m_paint);
    RECT rcClient{};
    GetClientRect(m_hWnd, &rcClient);
    m_surface.emplace(m_paint.hdc, SIZE{rcClient.right, rcClient.bottom});
    m_rcDrawn = area == Area::Whole ? rcClient : m_paint.rcPaint;
    if (!EqualRect(&m_rcDrawn, &rcClient)) {
        IntersectClipRect(Context(), m_rcDrawn.left, m_rcDrawn.top, m_rcDrawn.right, m_rcDrawn.bottom);
    }
}

BufferedPaint::~BufferedPaint()
{
    BitBlt(m_paint.hdc, m_rcDrawn.left, m_rcDrawn.top, m_rcDrawn.right - m_rcDrawn.left,
           m_rcDrawn.bottom - m_rcDrawn.top, Context(), m_rcDrawn.left, m_rcDrawn.top, SRCCOPY);
    EndPaint(m_hWnd, &m_paint);
}

} // namespace gesso
