#include <gesso/containers/Misuse.h>
#include <gesso/framework/DpiApi.h>
#include <gesso/framework/Library.h>
#include <gesso/framework/MakeOnce.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/WindowDpi.h>

#include <algorithm>
#include <atomic>
#include <memory>
#include <new>
#include <utility>
#include <vector>

namespace gesso {
namespace {

constexpr UINT BASE_DPI = USER_DEFAULT_SCREEN_DPI;
// Of what a message may tell: beyond these a window could show nothing.
constexpr UINT LEAST_DPI = BASE_DPI / 2;
constexpr UINT MOST_DPI = BASE_DPI * 50;
constexpr int FULL_TEXT = 100; // percent
constexpr int LARGEST_TEXT = 225;

constinit std::atomic<Scaling> s_scaling = Scaling::None;
constinit std::atomic<UINT> s_uSystemDpi = BASE_DPI;
constinit std::atomic<int> s_nTextPercent = FULL_TEXT;
// Which changes of any window's dots an inch what a thread knows comes from.
constinit std::atomic<unsigned> s_uChanges = 1;

// --- The library's windows

struct KnownWindow
{
    HWND hwnd;
    UINT uDpi; // 0 until it is known
};

struct DefaultFont
{
    int nHeight;
    HFONT hFont;
};

// What the process has of both; there while any is. In order of the handles.
constinit SRWLOCK s_lock = SRWLOCK_INIT;
constinit std::vector<KnownWindow>* s_pWindows = nullptr;
constinit std::vector<DefaultFont>* s_pFonts = nullptr;

// Under the lock.
KnownWindow* Find(HWND hwnd)
{
    if (!s_pWindows) {
        return nullptr;
    }
    const auto at = std::ranges::lower_bound(*s_pWindows, hwnd, {}, &KnownWindow::hwnd);
    return at != s_pWindows->end() && at->hwnd == hwnd ? &*at : nullptr;
}

// 0 for a window that is not the library's.
UINT KnownDpi(HWND hwnd)
{
    const ScopedLock lock(s_lock);
    const KnownWindow* pKnown = Find(hwnd);
    return pKnown ? pKnown->uDpi : 0;
}

// The former ones; 0 where the window is not the library's.
UINT SetKnownDpi(HWND hwnd, UINT uDpi)
{
    const ScopedLock lock(s_lock);
    KnownWindow* pKnown = Find(hwnd);
    ++s_uChanges;
    return pKnown ? std::exchange(pKnown->uDpi, uDpi) : 0;
}

// What a window is drawn for that has been told of nothing.
UINT DpiAround(HWND hwnd)
{
    for (HWND hwndOuter = hwnd; hwndOuter; hwndOuter = GetAncestor(hwndOuter, GA_PARENT)) {
        if (const UINT uDpi = hwndOuter == hwnd ? 0 : KnownDpi(hwndOuter)) {
            return uDpi;
        }
    }
    return IsWindow(hwnd) ? PlatformDpiOf(hwnd) : s_uSystemDpi.load();
}

// The last of the library's windows that a thread asked for: painting asks for one many times.
struct LastAsked
{
    HWND hwnd;
    UINT uDpi;
    unsigned uChanges;
};
constinit thread_local LastAsked s_last{};

UINT DpiOfMonitor(HWND hwnd)
{
    const unsigned uChanges = s_uChanges;
    if (hwnd && s_last.hwnd == hwnd && s_last.uChanges == uChanges) {
        return s_last.uDpi;
    }
    if (const UINT uDpi = KnownDpi(hwnd)) {
        s_last = {hwnd, uDpi, uChanges};
        return uDpi;
    }
    return DpiAround(hwnd);
}

int ReadTextPercent()
{
    DWORD dwPercent = 0;
    DWORD cb = sizeof(dwPercent);
    const LSTATUS lStatus = RegGetValueW(HKEY_CURRENT_USER, L"Software\\Microsoft\\Accessibility",
                                         L"TextScaleFactor", RRF_RT_REG_DWORD, nullptr, &dwPercent, &cb);
    const bool fSound = lStatus == ERROR_SUCCESS && dwPercent >= FULL_TEXT && dwPercent <= LARGEST_TEXT;
    return fSound ? static_cast<int>(dwPercent) : FULL_TEXT;
}

// A message of the library's own: all measures may be others. 0 until one is sent.
constinit std::atomic<UINT> s_uRescale = 0;

// Without memory there are none: they follow when they hear of the next change.
std::vector<KnownWindow> LibraryWindows()
try {
    const ScopedLock lock(s_lock);
    return s_pWindows ? *s_pWindows : std::vector<KnownWindow>();
} catch (const std::bad_alloc&) {
    return {};
}

void Rescale(const std::vector<KnownWindow>& windows)
{
    if (!s_uRescale) {
        s_uRescale = RegisterWindowMessageW(L"gesso.rescale");
    }
    for (const KnownWindow& known : windows) {
        if (s_uRescale && IsWindow(known.hwnd)) {
            SendNotifyMessageW(known.hwnd, s_uRescale, 0, 0);
        }
    }
}

int HeightOf(HFONT hFont)
{
    LOGFONTW font{};
    return GetObjectW(hFont, sizeof(font), &font) > 0 ? font.lfHeight : 0;
}

// A font like the default one in another height; under the lock.
HFONT MakeDefaultFont(int nHeight)
try {
    LOGFONTW font{};
    if (GetObjectW(g_hDefaultFont, sizeof(font), &font) <= 0) {
        return nullptr;
    }
    if (!s_pFonts) {
        s_pFonts = new std::vector<DefaultFont>;
    }
    s_pFonts->reserve(s_pFonts->size() + 1);
    font.lfHeight = nHeight;
    const HFONT hFont = CreateFontIndirectW(&font);
    if (hFont) {
        s_pFonts->push_back({nHeight, hFont});
    }
    return hFont;
} catch (const std::bad_alloc&) {
    return nullptr;
}

constexpr LPCWSTR IMAGE_DPI = L"gesso.imagedpi";

// Before the window's dots an inch are others: what its images were given for.
void KeepImageDpi(HWND hwnd, UINT uFormer)
{
    if (!GetPropW(hwnd, IMAGE_DPI)) {
        SetPropW(hwnd, IMAGE_DPI, reinterpret_cast<HANDLE>(static_cast<ULONG_PTR>(uFormer)));
    }
}

// After another scaling was set; the windows come with what they were drawn for before.
void RenewDpi(const std::vector<KnownWindow>& windows)
{
    for (const KnownWindow& former : windows) {
        SetKnownDpi(former.hwnd, GetScaling() == Scaling::PerMonitor ? PlatformDpiOf(former.hwnd) : 0);
        if (DpiOf(former.hwnd) != former.uDpi) {
            KeepImageDpi(former.hwnd, former.uDpi);
        }
    }
}

// Of WM_DPICHANGED and its like under PerMonitor.
bool TakesNewDpi(HWND hwnd, WPARAM wParam)
{
    const UINT uTold = LOWORD(wParam);
    const UINT uDpi = uTold ? std::clamp(uTold, LEAST_DPI, MOST_DPI) : DpiAround(hwnd);
    const UINT uFormer = DpiOfMonitor(hwnd);
    if (uDpi == uFormer) {
        return false;
    }
    SetKnownDpi(hwnd, uDpi);
    KeepImageDpi(hwnd, uFormer);
    return true;
}

} // namespace

// --- For hosts

void SetScaling(Scaling scaling)
{
    if (scaling != Scaling::None && scaling != Scaling::System && scaling != Scaling::PerMonitor) {
        return Misuse("SetScaling: no such scaling");
    }
    std::vector<KnownWindow> windows = LibraryWindows();
    for (KnownWindow& known : windows) {
        known.uDpi = DpiOf(known.hwnd);
    }
    const Scaling former = s_scaling.exchange(scaling);
    s_uSystemDpi = scaling == Scaling::None ? BASE_DPI : PlatformDpi();
    const int nPercent = scaling == Scaling::None ? FULL_TEXT : ReadTextPercent();
    const bool fOtherText = s_nTextPercent.exchange(nPercent) != nPercent;
    ++s_uChanges;
    if (scaling != former) {
        RenewDpi(windows);
    }
    if (scaling != former || fOtherText) {
        Rescale(windows);
    }
}

Scaling GetScaling()
{
    return s_scaling;
}

UINT DpiOf(HWND hwnd)
{
    switch (s_scaling) {
    case Scaling::None: return BASE_DPI;
    case Scaling::System: return s_uSystemDpi;
    default: return DpiOfMonitor(hwnd);
    }
}

int Scale(HWND hwnd, int nPixels)
{
    return MulDiv(nPixels, static_cast<int>(DpiOf(hwnd)), BASE_DPI);
}

// --- The library's windows

bool KeepWindow(HWND hwnd)
try {
    const UINT uDpi = GetScaling() == Scaling::PerMonitor ? DpiAround(hwnd) : 0;
    const ScopedLock lock(s_lock);
    if (!s_pWindows) {
        s_pWindows = new std::vector<KnownWindow>;
    }
    const auto at = std::ranges::lower_bound(*s_pWindows, hwnd, {}, &KnownWindow::hwnd);
    if (at == s_pWindows->end() || at->hwnd != hwnd) {
        s_pWindows->insert(at, {hwnd, uDpi});
    } else {
        at->uDpi = uDpi;
    }
    ++s_uChanges;
    return true;
} catch (const std::bad_alloc&) {
    return false;
}

void ForgetWindow(HWND hwnd)
{
    const ScopedLock lock(s_lock);
    ++s_uChanges;
    if (const KnownWindow* pKnown = Find(hwnd)) {
        s_pWindows->erase(s_pWindows->begin() + (pKnown - s_pWindows->data()));
        if (s_pWindows->empty()) {
            delete std::exchange(s_pWindows, nullptr);
        }
    }
}

void TakeDpi(HWND hwnd, HWND hwndOwner)
{
    if (GetScaling() == Scaling::PerMonitor) {
        SetKnownDpi(hwnd, DpiOf(hwndOwner));
    }
}

// --- Texts

int TextPercent()
{
    return s_nTextPercent;
}

void FollowTextSize()
{
    const int nPercent = GetScaling() == Scaling::None ? FULL_TEXT : ReadTextPercent();
    if (s_nTextPercent.exchange(nPercent) != nPercent) {
        Rescale(LibraryWindows());
    }
}

HFONT DefaultFontOf(HWND hwnd)
{
    const HFONT hFirst = g_hDefaultFont;
    if (GetScaling() == Scaling::None || !hFirst) {
        return hFirst;
    }
    const int nHeight = FontHeight(hwnd, Metrics::DEFAULT_FONT_POINTS);
    if (nHeight == HeightOf(hFirst)) {
        return hFirst;
    }
    const ScopedLock lock(s_lock);
    if (s_pFonts) {
        const auto at = std::ranges::find(*s_pFonts, nHeight, &DefaultFont::nHeight);
        if (at != s_pFonts->end()) {
            return at->hFont;
        }
    }
    const HFONT hFont = MakeDefaultFont(nHeight);
    return hFont ? hFont : hFirst;
}

bool IsDefaultFont(HFONT hFont)
{
    if (!hFont || hFont == g_hDefaultFont) {
        return hFont != nullptr;
    }
    const ScopedLock lock(s_lock);
    return s_pFonts && std::ranges::find(*s_pFonts, hFont, &DefaultFont::hFont) != s_pFonts->end();
}

// --- Messages

bool IsScalingMessage(UINT uMsg)
{
    return uMsg == WM_DPICHANGED || uMsg == WM_DPICHANGED_AFTERPARENT || uMsg == WM_SETTINGCHANGE ||
           (uMsg && uMsg == s_uRescale);
}

bool TakesScaling(HWND hwnd, UINT uMsg, WPARAM wParam)
{
    switch (uMsg) {
    case WM_DPICHANGED:
    case WM_DPICHANGED_AFTERPARENT: return GetScaling() == Scaling::PerMonitor && TakesNewDpi(hwnd, wParam);
    case WM_SETTINGCHANGE: FollowTextSize(); return false; // all windows hear of it by a message of their own
    default: return true;
    }
}

// --- Images

int ImageFactor(HWND hwnd)
{
    if (GetScaling() == Scaling::None) {
        return 1;
    }
    const auto uGiven = static_cast<UINT>(reinterpret_cast<ULONG_PTR>(GetPropW(hwnd, IMAGE_DPI)));
    return uGiven ? std::max(static_cast<int>(DpiOf(hwnd) / uGiven), 1) : 1;
}

void ForgetImageDpi(HWND hwnd)
{
    if (GetScaling() != Scaling::None) {
        RemovePropW(hwnd, IMAGE_DPI);
    }
}

} // namespace gesso
