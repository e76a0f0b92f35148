#include <gesso/framework/DpiApi.h>
#include <gesso/framework/DrawScope.h>

#include <atomic>

namespace gesso {
namespace {

constexpr LPCWSTR USER = L"user32.dll";
constexpr LPCWSTR THEMES = L"uxtheme.dll";

// An operation of a module that the program has loaded in any case. Only a success is remembered.
template <class FUNCTION> struct Lookup
{
    LPCWSTR pszModule;
    const char* pszName;
    std::atomic<FUNCTION> known = nullptr;

    FUNCTION Get()
    {
        FUNCTION pfn = known;
        if (!pfn) {
            const HMODULE hModule = GetModuleHandleW(pszModule);
            const FARPROC pfnFound = hModule ? GetProcAddress(hModule, pszName) : nullptr;
            pfn = reinterpret_cast<FUNCTION>(reinterpret_cast<void*>(pfnFound));
            known = pfn;
        }
        return pfn;
    }
};

constinit Lookup<UINT(WINAPI*)()> s_dpiForSystem{USER, "GetDpiForSystem"};
constinit Lookup<UINT(WINAPI*)(HWND)> s_dpiForWindow{USER, "GetDpiForWindow"};
constinit Lookup<int(WINAPI*)(int, UINT)> s_metricForDpi{USER, "GetSystemMetricsForDpi"};
constinit Lookup<BOOL(WINAPI*)(UINT, UINT, PVOID, UINT, UINT)> s_parametersForDpi{
    USER, "SystemParametersInfoForDpi"};
constinit Lookup<BOOL(WINAPI*)(HWND, int, int)> s_dialogBehavior{USER, "SetDialogDpiChangeBehavior"};
constinit Lookup<HTHEME(WINAPI*)(HWND, LPCWSTR, UINT)> s_openThemeForDpi{THEMES, "OpenThemeDataForDpi"};

UINT DeviceDpi()
{
    const WindowContext screen(nullptr);
    const int nDpi = GetDeviceCaps(screen, LOGPIXELSY);
    return nDpi > 0 ? static_cast<UINT>(nDpi) : UINT{USER_DEFAULT_SCREEN_DPI};
}

// Of a class that the library draws nothing of: where a class has one handle, opening it for other dots
// changes what is drawn with it. Null where the style does not have it.
int MarginOfTips(UINT uDpi)
{
    MARGINS margins{};
    if (const HTHEME hTheme = OpenPlatformTheme(nullptr, L"TOOLTIP", uDpi)) {
        GetThemeMargins(hTheme, nullptr, TTP_STANDARD, TTSS_NORMAL, TMT_CONTENTMARGINS, nullptr, &margins);
        CloseThemeData(hTheme);
    }
    return margins.cxLeftWidth;
}

enum class Told
{
    Nothing,
    Yes,
    No
};
constinit std::atomic<Told> s_marginsScale = Told::Nothing;

} // namespace

UINT PlatformDpi()
{
    const auto pfn = s_dpiForSystem.Get();
    const UINT uDpi = pfn ? pfn() : 0;
    return uDpi ? uDpi : DeviceDpi();
}

UINT PlatformDpiOf(HWND hwnd)
{
    const auto pfn = s_dpiForWindow.Get();
    const UINT uDpi = pfn && hwnd ? pfn(hwnd) : 0;
    return uDpi ? uDpi : PlatformDpi();
}

int PlatformMetric(int nIndex, UINT uDpi)
{
    if (const auto pfn = s_metricForDpi.Get()) {
        return pfn(nIndex, uDpi);
    }
    const int nMetric = GetSystemMetrics(nIndex);
    const bool fScreen = nIndex == SM_CXSCREEN || nIndex == SM_CYSCREEN;
    return fScreen ? nMetric : MulDiv(nMetric, static_cast<int>(uDpi), static_cast<int>(PlatformDpi()));
}

bool PlatformCaptionFont(UINT uDpi, LOGFONTW* pFont)
{
    const auto pfn = s_parametersForDpi.Get();
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof(metrics);
    if (!pfn || !pfn(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0, uDpi)) {
        return false;
    }
    *pFont = metrics.lfCaptionFont;
    return true;
}

void LeaveLayoutToProgram(HWND hDlg)
{
    constexpr int DISABLE_ALL = 1; // DDC_DISABLE_ALL
    if (const auto pfn = s_dialogBehavior.Get()) {
        pfn(hDlg, DISABLE_ALL, DISABLE_ALL);
    }
}

HTHEME OpenPlatformTheme(HWND hwnd, LPCWSTR pszClass, UINT uDpi)
{
    const auto pfn = s_openThemeForDpi.Get();
    return pfn ? pfn(hwnd, pszClass, uDpi) : OpenThemeData(hwnd, pszClass);
}

bool DoMarginsScale()
{
    if (s_marginsScale == Told::Nothing) {
        const int nMargin = MarginOfTips(USER_DEFAULT_SCREEN_DPI);
        const bool fSame = nMargin > 0 && MarginOfTips(2 * USER_DEFAULT_SCREEN_DPI) == nMargin;
        s_marginsScale = fSame ? Told::No : Told::Yes;
    }
    return s_marginsScale == Told::Yes;
}

void ForgetMargins()
{
    s_marginsScale = Told::Nothing;
}

} // namespace gesso
