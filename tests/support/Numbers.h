// Rectangles, points and sizes as text, to be compared and printed as a whole.
#pragma once

#include <platform/platform.h>

#include <string>

namespace test {

inline std::string Numbers(LONG nFirst, LONG nSecond)
{
    return std::to_string(nFirst) + "," + std::to_string(nSecond);
}
inline std::string Numbers(const POINT& pt)
{
    return Numbers(pt.x, pt.y);
}
inline std::string Numbers(const SIZE& size)
{
    return Numbers(size.cx, size.cy);
}
inline std::string Numbers(const RECT& rc)
{
    return Numbers(rc.left, rc.top) + "," + Numbers(rc.right, rc.bottom);
}

// A window's place in another, or on the screen.
inline RECT PlaceIn(HWND hwndOther, HWND hwnd)
{
    RECT rc{};
    GetWindowRect(hwnd, &rc);
    MapWindowPoints(nullptr, hwndOther, reinterpret_cast<POINT*>(&rc), 2);
    return rc;
}

inline SIZE ClientSize(HWND hwnd)
{
    RECT rc{};
    GetClientRect(hwnd, &rc);
    return {rc.right, rc.bottom};
}

} // namespace test
