#include <gesso/framework/Direction.h>
#include <gesso/framework/Saturate.h>
#include <gesso/framework/Wrapped.h>

namespace gesso {

bool IsMirrored(HWND hwnd)
{
    return (GetWindowLongW(hwnd, GWL_EXSTYLE) & WS_EX_LAYOUTRTL) != 0;
}

bool IsMirrored(HDC hdc)
{
    const DWORD dwLayout = GetLayout(hdc);
    return dwLayout != GDI_ERROR && (dwLayout & LAYOUT_RTL);
}

POINT ClientPixelAt(HWND hwnd, POINT ptScreen)
{
    ScreenToClient(hwnd, &ptScreen);
    ptScreen.x -= IsMirrored(hwnd) ? 1 : 0;
    return ptScreen;
}

RECT MirroredIn(const RECT& rcWindow, const RECT& rc)
{
    const int64_t nSum = int64_t{rcWindow.left} + rcWindow.right;
    return {Saturated(nSum - rc.right), rc.top, Saturated(nSum - rc.left), rc.bottom};
}

RECT ClientAsAsked(HWND hwnd, BOOL fValidRects, const RECT& rcWindow, const RECT& rcClient)
{
    const HWND hwndParent = fValidRects ? GetAncestor(hwnd, GA_PARENT) : nullptr;
    const bool fAskedMirrored = hwndParent && IsMirrored(hwndParent);
    return IsMirrored(hwnd) == fAskedMirrored ? rcClient : MirroredIn(rcWindow, rcClient);
}

void TakeLayout(HDC hdc, HDC hdcLike)
{
    if (IsMirrored(hdcLike)) {
        SetLayout(hdc, LAYOUT_RTL);
    }
}

void ShiftOrigin(HDC hdc, POINT pt)
{
    POINT ptFormer{};
    const bool fMirrored = IsMirrored(hdc) && LPtoDP(hdc, &ptFormer, 1);
    OffsetWindowOrgEx(hdc, pt.x, pt.y, nullptr);
    POINT ptNow = pt;
    if (fMirrored && LPtoDP(hdc, &ptNow, 1) && ptNow.x != ptFormer.x) {
        OffsetWindowOrgEx(hdc, Wrapped(-2 * int64_t{pt.x}), 0, nullptr);
    }
}

UINT KeyInLayout(HWND hwnd, UINT uKey)
{
    if ((uKey != VK_LEFT && uKey != VK_RIGHT) || !IsMirrored(hwnd)) {
        return uKey;
    }
    return uKey == VK_LEFT ? VK_RIGHT : VK_LEFT;
}

UprightScope::UprightScope(HDC hdc, int x, int cx) : m_hdc(hdc), m_x(x)
{
    if (!gesso::IsMirrored(hdc)) {
        return;
    }
    // The first pixel from the right, on the surface, and as it counts from the left.
    POINT ptFirst{};
    LPtoDP(hdc, &ptFirst, 1);
    m_nSaved = SaveDC(hdc);
    SetLayout(hdc, 0);
    DPtoLP(hdc, &ptFirst, 1);
    m_nSum = Wrapped(int64_t{ptFirst.x} + 1);
    m_x = Wrapped(int64_t{m_nSum} - x - cx);
}

UprightScope::~UprightScope()
{
    if (m_nSaved) {
        RestoreDC(m_hdc, m_nSaved);
    }
}

RECT UprightScope::Placed(const RECT& rc) const
{
    return m_nSaved ? RECT{Wrapped(int64_t{m_nSum} - rc.right), rc.top, Wrapped(int64_t{m_nSum} - rc.left),
                           rc.bottom}
                    : rc;
}

} // namespace gesso
