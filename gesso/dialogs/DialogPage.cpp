#include <gesso/dialogs/DialogPage.h>
#include <gesso/framework/DpiApi.h>
#include <gesso/framework/WindowDpi.h>

namespace gesso {
namespace {

// The property of a page that tells what it is laid out for, and what the platform laid it out for.
constexpr LPCWSTR PAGE_MARK = L"gesso.page";

struct PageDots
{
    UINT uNow, uFirst;
};

PageDots DotsOf(HWND hwndPage)
{
    const auto nMark = static_cast<DWORD>(reinterpret_cast<UINT_PTR>(GetPropW(hwndPage, PAGE_MARK)));
    const UINT uPlatform = nMark ? 0 : PlatformDpiOf(hwndPage);
    return nMark ? PageDots{LOWORD(nMark), HIWORD(nMark)} : PageDots{uPlatform, uPlatform};
}

bool SetDots(HWND hwndPage, PageDots dots)
{
    const UINT_PTR nMark = static_cast<DWORD>(MAKELONG(dots.uNow, dots.uFirst));
    return SetPropW(hwndPage, PAGE_MARK, reinterpret_cast<HANDLE>(nMark));
}

struct PageChange
{
    HWND hwndPage;
    int nDpi, nFormerDpi;
    HFONT hFont, hFormerFont; // the template's; null for none

    LONG Of(LONG nLength) const { return MulDiv(nLength, nDpi, nFormerDpi); }
};

HFONT FontOfWindow(HWND hwnd)
{
    return reinterpret_cast<HFONT>(SendMessageW(hwnd, WM_GETFONT, 0, 0));
}

// The template's font for so many dots. The platform has made it for the first.
HFONT FontOfPage(HWND hwndPage, UINT uDpi, UINT uFirst)
{
    LOGFONTW font{};
    const HFONT hFont = FontOfWindow(hwndPage);
    if (!hFont || uDpi == uFirst || GetObjectW(hFont, sizeof(font), &font) <= 0) {
        return hFont;
    }
    return FontInHeight(hFont, MulDiv(font.lfHeight, static_cast<int>(uDpi), static_cast<int>(uFirst)));
}

// In its parent's client area, as that counts.
RECT PlaceOf(HWND hwnd, HWND hwndParent)
{
    RECT rc{};
    GetWindowRect(hwnd, &rc);
    MapWindowPoints(nullptr, hwndParent, reinterpret_cast<POINT*>(&rc), 2);
    return rc;
}

BOOL CALLBACK ScaleControl(HWND hwnd, LPARAM lParam)
{
    const auto& change = *reinterpret_cast<const PageChange*>(lParam);
    if (GetAncestor(hwnd, GA_PARENT) == change.hwndPage) {
        const RECT rc = PlaceOf(hwnd, change.hwndPage);
        const LONG x = change.Of(rc.left), y = change.Of(rc.top);
        SetWindowPos(hwnd, nullptr, x, y, change.Of(rc.right) - x, change.Of(rc.bottom) - y,
                     SWP_NOZORDER | SWP_NOACTIVATE);
    }
    if (change.hFont && FontOfWindow(hwnd) == change.hFormerFont) {
        SendMessageW(hwnd, WM_SETFONT, reinterpret_cast<WPARAM>(change.hFont), TRUE);
    }
    return IsWindow(change.hwndPage);
}

} // namespace

void KeepPage(HWND hwndPage)
{
    if (hwndPage && GetScaling() != Scaling::None) {
        LeaveLayoutToProgram(hwndPage);
        SetDots(hwndPage, DotsOf(hwndPage));
    }
}

UINT PageDpi(HWND hwndPage)
{
    return DotsOf(hwndPage).uNow;
}

// The controls come first: a page that lays them out by itself does so as it hears of its size.
void FitPage(HWND hwndPage)
{
    const auto [uFormer, uFirst] = DotsOf(hwndPage);
    const HWND hDlg = GetAncestor(hwndPage, GA_PARENT);
    const UINT uDpi = GetScaling() == Scaling::None ? uFirst : DpiOf(hDlg);
    if (!IsWindow(hwndPage) || uDpi == uFormer || !SetDots(hwndPage, {uDpi, uFirst})) {
        return;
    }
    PageChange change{hwndPage, static_cast<int>(uDpi), static_cast<int>(uFormer),
                      FontOfPage(hwndPage, uDpi, uFirst), FontOfPage(hwndPage, uFormer, uFirst)};
    EnumChildWindows(hwndPage, ScaleControl, reinterpret_cast<LPARAM>(&change));
    const RECT rc = PlaceOf(hwndPage, hDlg);
    SetWindowPos(hwndPage, nullptr, 0, 0, change.Of(rc.right - rc.left), change.Of(rc.bottom - rc.top),
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

} // namespace gesso
