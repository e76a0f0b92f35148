#include <gallery/Report.h>
#include <gallery/Scale.h>

namespace gallery {
namespace {

int s_nDots = USER_DEFAULT_SCREEN_DPI;

BOOL CALLBACK TellOne(HWND hwnd, LPARAM)
{
    const auto wDots = static_cast<WORD>(s_nDots);
    SendMessageW(hwnd, WM_DPICHANGED_AFTERPARENT, MAKEWPARAM(wDots, wDots), 0);
    return TRUE;
}

} // namespace

int Dots()
{
    return s_nDots;
}

void SetDots(int nDots)
{
    s_nDots = nDots;
}

int Scaled(int nLength)
{
    return MulDiv(nLength, s_nDots, USER_DEFAULT_SCREEN_DPI);
}

int Unscaled(int nPixels)
{
    return MulDiv(nPixels, USER_DEFAULT_SCREEN_DPI, s_nDots);
}

RECT Scaled(const RECT& rc)
{
    return {Scaled(rc.left), Scaled(rc.top), Scaled(rc.right), Scaled(rc.bottom)};
}

void ScaleChildren(HWND hwndParent)
{
    if (s_nDots == USER_DEFAULT_SCREEN_DPI) {
        return;
    }
    for (HWND hwnd = GetWindow(hwndParent, GW_CHILD); hwnd; hwnd = GetWindow(hwnd, GW_HWNDNEXT)) {
        RECT rc{};
        GetWindowRect(hwnd, &rc);
        MapWindowPoints(nullptr, hwndParent, reinterpret_cast<POINT*>(&rc), 2);
        rc = Scaled(rc);
        SetWindowPos(hwnd, nullptr, rc.left, rc.top, rc.right - rc.left, rc.bottom - rc.top,
                     SWP_NOZORDER | SWP_NOACTIVATE);
        if (ClassOf(hwnd) == L"#32770") {
            ScaleChildren(hwnd); // a template's control
        }
    }
}

void TellDots(HWND hwndParent)
{
    if (gesso::GetScaling() != gesso::Scaling::None) {
        EnumChildWindows(hwndParent, &TellOne, 0);
    }
}

} // namespace gallery
