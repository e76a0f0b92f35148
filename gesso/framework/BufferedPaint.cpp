#include <gesso/framework/BufferedPaint.h>

namespace gesso {
namespace {

PAINTSTRUCT Begin(HWND hwnd)
{
    PAINTSTRUCT paint{};
    BeginPaint(hwnd, &paint);
    return paint;
}

RECT ClientOf(HWND hwnd)
{
    RECT rc{};
    GetClientRect(hwnd, &rc);
    return rc;
}

} // namespace

BufferedPaint::BufferedPaint(HWND hwnd)
    : m_hWnd(hwnd), m_paint(Begin(hwnd)), m_rcClient(ClientOf(hwnd)),
      m_surface(m_paint.hdc, {m_rcClient.right, m_rcClient.bottom}), m_overlay(hwnd, m_surface.Context())
{}

BufferedPaint::~BufferedPaint()
{
    m_overlay.Show();
    BitBlt(m_paint.hdc, 0, 0, m_rcClient.right, m_rcClient.bottom, m_surface.Context(), 0, 0, SRCCOPY);
    EndPaint(m_hWnd, &m_paint);
}

} // namespace gesso
