#include <gesso/framework/Direction.h>
#include <gesso/framework/NonClientPaint.h>
#include <gesso/framework/Saturate.h>

namespace gesso {
namespace {

struct WindowAreas
{
    POINT ptOrigin; // of the window, on the screen
    RECT rcWindow;  // from 0, 0
    RECT rcClient;  // in the window, as it counts
};

WindowAreas AreasOf(HWND hwnd)
{
    WindowAreas areas{};
    GetWindowRect(hwnd, &areas.rcWindow);
    GetClientRect(hwnd, &areas.rcClient);
    MapWindowPoints(hwnd, nullptr, reinterpret_cast<POINT*>(&areas.rcClient), 2);
    areas.ptOrigin = {areas.rcWindow.left, areas.rcWindow.top};
    const int64_t dx = -int64_t{areas.ptOrigin.x};
    const int64_t dy = -int64_t{areas.ptOrigin.y};
    areas.rcClient = Shifted(areas.rcClient, dx, dy);
    areas.rcWindow = Shifted(areas.rcWindow, dx, dy);
    if (IsMirrored(hwnd)) {
        areas.rcClient = MirroredIn(areas.rcWindow, areas.rcClient);
    }
    return areas;
}

void Exclude(HDC hdc, const RECT& rc)
{
    ExcludeClipRect(hdc, rc.left, rc.top, rc.right, rc.bottom);
}

// The region comes in screen coordinates and stays the platform's. A mirrored context would count it from the
// other side.
void ClipToRegion(HDC hdcWindow, HRGN hRegion, POINT ptOrigin)
{
    const bool fMirrored = IsMirrored(hdcWindow);
    if (fMirrored) {
        SetLayout(hdcWindow, 0);
    }
    const HRGN hCopy = CreateRectRgn(0, 0, 0, 0);
    CombineRgn(hCopy, hRegion, nullptr, RGN_COPY);
    OffsetRgn(hCopy, Saturated(-int64_t{ptOrigin.x}), Saturated(-int64_t{ptOrigin.y}));
    SelectClipRgn(hdcWindow, hCopy);
    DeleteObject(hCopy);
    if (fMirrored) {
        SetLayout(hdcWindow, LAYOUT_RTL);
    }
}

} // namespace

NonClientPaint::NonClientPaint(HWND hwnd, WPARAM wRegion)
    : m_context(hwnd), m_rcWindow(AreasOf(hwnd).rcWindow),
      m_surface(m_context, {m_rcWindow.right, m_rcWindow.bottom})
{
    const WindowAreas areas = AreasOf(hwnd);
    if (wRegion > 1) {
        ClipToRegion(m_context, reinterpret_cast<HRGN>(wRegion), areas.ptOrigin);
    }
    Exclude(m_context, areas.rcClient);
}

NonClientPaint::~NonClientPaint()
{
    BitBlt(m_context, 0, 0, m_rcWindow.right, m_rcWindow.bottom, m_surface.Context(), 0, 0, SRCCOPY);
}

NonClientPrint::NonClientPrint(HWND hwnd, HDC hdc) : m_hdc(hdc), m_nSaved(SaveDC(hdc))
{
    const WindowAreas areas = AreasOf(hwnd);
    m_rcWindow = areas.rcWindow;
    ShiftOrigin(hdc, {areas.rcClient.left, areas.rcClient.top});
    Exclude(hdc, areas.rcClient);
}

NonClientPrint::~NonClientPrint()
{
    RestoreDC(m_hdc, m_nSaved);
}

} // namespace gesso
