#include <gesso/containers/Misuse.h>
#include <gesso/framework/DpiApi.h>
#include <gesso/framework/Library.h>
#include <gesso/framework/LibraryWindows.h>
#include <gesso/framework/MakeOnce.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/OffscreenSurface.h>
#include <gesso/framework/PictureCache.h>
#include <gesso/framework/Saturate.h>
#include <gesso/framework/SystemAppearance.h>
#include <gesso/framework/WindowDpi.h>

#include <algorithm>
#include <atomic>
#include <cstring>
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

// 0 for a window that is not the library's.
UINT KnownDpi(HWND hwnd)
{
    return KnownWindow(hwnd).uDpi;
}

void SetKnownDpi(HWND hwnd, UINT uDpi)
{
    LibraryWindow window = KnownWindow(hwnd);
    window.uDpi = uDpi;
    SetKnownWindow(window);
    ++s_uChanges;
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

// A message of the library's own: all measures may be others, and with a wParam the dots an inch are. 0 until
// one is sent.
constinit std::atomic<UINT> s_uRescale = 0;

// Without memory there are none: they follow when they hear of the next change.
std::vector<LibraryWindow> WindowsNow()
try {
    return LibraryWindows();
} catch (const std::bad_alloc&) {
    return {};
}

void Rescale(HWND hwnd, bool fOtherDpi)
{
    if (!s_uRescale) {
        s_uRescale = RegisterWindowMessageW(L"gesso.rescale");
    }
    if (s_uRescale) {
        SendNotifyMessageW(hwnd, s_uRescale, fOtherDpi, 0);
    }
}

// --- The default fonts of other heights, and fonts like a host's

struct SharedFont
{
    LOGFONTW font;
    bool fDefault; // or like a host's
    HFONT hFont;
};
constinit SRWLOCK s_fontLock = SRWLOCK_INIT;
constinit std::vector<SharedFont>* s_pFonts = nullptr; // null for none
constinit std::atomic<bool> s_fFontsReleased = false;  // ever

// Whether a font was one of these and has gone since with the library's last window, while an object without
// a window still has it. One that a host has deleted looks the same.
bool IsGone(HFONT hFont)
{
    return s_fFontsReleased && !GetObjectType(hFont);
}

// False for what is no font.
bool Describe(HFONT hFont, LOGFONTW* pFont)
{
    *pFont = {};
    return GetObjectW(hFont, sizeof(*pFont), pFont) > 0;
}

int HeightOf(HFONT hFont)
{
    LOGFONTW font{};
    return Describe(hFont, &font) ? font.lfHeight : 0;
}

bool IsSame(const LOGFONTW& a, const LOGFONTW& b)
{
    return std::memcmp(&a, &b, sizeof(a)) == 0;
}

// Under the lock; null for none.
const SharedFont* FindShared(HFONT hFont)
{
    if (!s_pFonts) {
        return nullptr;
    }
    const auto at = std::ranges::find(*s_pFonts, hFont, &SharedFont::hFont);
    return at != s_pFonts->end() ? &*at : nullptr;
}

HFONT ShareFont(HFONT hFont, int nHeight, bool fDefault)
try {
    LOGFONTW font{};
    if (!Describe(hFont, &font)) {
        return nullptr;
    }
    font.lfHeight = nHeight;
    const ScopedLock lock(s_fontLock);
    if (!s_pFonts) {
        s_pFonts = new std::vector<SharedFont>;
    }
    const auto at = std::ranges::find_if(*s_pFonts, [&](const SharedFont& shared) {
        return shared.fDefault == fDefault && IsSame(shared.font, font);
    });
    if (at != s_pFonts->end()) {
        return at->hFont;
    }
    s_pFonts->reserve(s_pFonts->size() + 1);
    const HFONT hMade = CreateFontIndirectW(&font);
    if (hMade) {
        s_pFonts->push_back({font, fDefault, hMade});
    }
    return hMade;
} catch (const std::bad_alloc&) {
    return nullptr;
}

// --- Images

// Before a window's dots an inch are others: what its images were given for.
void KeepImageDpi(HWND hwnd, UINT uFormer)
{
    LibraryWindow window = KnownWindow(hwnd);
    if (!window.uImageDpi) {
        window.uImageDpi = uFormer;
        SetKnownWindow(window);
    }
}

// --- Changes

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

// After another scaling was set, of a window with the dots that it was drawn for before: whether it has
// others now.
bool TakesScalingSet(HWND hwnd, UINT uFormer)
{
    SetKnownDpi(hwnd, GetScaling() == Scaling::PerMonitor ? PlatformDpiOf(hwnd) : 0);
    if (DpiOf(hwnd) == uFormer) {
        return false;
    }
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
    std::vector<LibraryWindow> windows = WindowsNow();
    for (LibraryWindow& window : windows) {
        window.uDpi = DpiOf(window.hwnd);
    }
    const bool fOther = s_scaling.exchange(scaling) != scaling;
    ForgetMargins();
    s_uSystemDpi = scaling == Scaling::None ? BASE_DPI : PlatformDpi();
    const int nPercent = scaling == Scaling::None ? FULL_TEXT : ReadTextPercent();
    const bool fOtherText = s_nTextPercent.exchange(nPercent) != nPercent;
    ++s_uChanges;
    HearOfTextSize(scaling != Scaling::None);
    for (const LibraryWindow& window : windows) {
        const bool fOtherDpi = fOther && TakesScalingSet(window.hwnd, window.uDpi);
        if (fOther || fOtherText) {
            Rescale(window.hwnd, fOtherDpi);
        }
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
    constexpr int64_t HALF = BASE_DPI / 2;
    const int64_t nDots = int64_t{nPixels} * DpiOf(hwnd);
    return Saturated((nDots + (nDots < 0 ? -HALF : HALF)) / int64_t{BASE_DPI});
}

// --- The library's windows

bool KeepWindow(HWND hwnd)
{
    const UINT uDpi = GetScaling() == Scaling::PerMonitor ? DpiAround(hwnd) : 0;
    ++s_uChanges;
    return AddLibraryWindow(hwnd, uDpi);
}

void ForgetWindow(HWND hwnd)
{
    RemoveLibraryWindow(hwnd);
    ++s_uChanges;
    if (!HasLibraryWindows()) {
        ReleaseSharedFonts();
        OffscreenSurface::ReleaseSpare();
        ReleasePictures();
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
    if (s_nTextPercent.exchange(nPercent) == nPercent) {
        return;
    }
    for (const LibraryWindow& window : WindowsNow()) {
        Rescale(window.hwnd, false);
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
    const HFONT hFont = ShareFont(hFirst, nHeight, true);
    return hFont ? hFont : hFirst;
}

bool IsDefaultFont(HFONT hFont)
{
    if (!hFont || hFont == g_hDefaultFont) {
        return hFont != nullptr;
    }
    const ScopedLock lock(s_fontLock);
    const SharedFont* pShared = FindShared(hFont);
    return pShared ? pShared->fDefault : IsGone(hFont);
}

HFONT FontInHeight(HFONT hFont, int nHeight)
{
    return ShareFont(hFont, nHeight, false);
}

bool IsSharedFont(HFONT hFont)
{
    if (hFont == g_hDefaultFont) {
        return GetScaling() != Scaling::None;
    }
    const ScopedLock lock(s_fontLock);
    return FindShared(hFont) != nullptr;
}

// A window is kept before it asks for its font, so that none is released that a window has asked for. One
// that a context holds goes when the context lets go of it.
void ReleaseSharedFonts()
{
    const ScopedLock lock(s_fontLock);
    if (!s_pFonts || HasLibraryWindows()) {
        return;
    }
    for (const SharedFont& shared : *s_pFonts) {
        DeleteObject(shared.hFont);
    }
    delete std::exchange(s_pFonts, nullptr);
    s_fFontsReleased = true;
}

// --- Messages

bool IsScalingMessage(UINT uMsg)
{
    return uMsg == WM_DPICHANGED || uMsg == WM_DPICHANGED_AFTERPARENT || uMsg == WM_SETTINGCHANGE ||
           (uMsg && uMsg == s_uRescale);
}

ScalingChange TakeScaling(HWND hwnd, UINT uMsg, WPARAM wParam)
{
    switch (uMsg) {
    case WM_DPICHANGED:
    case WM_DPICHANGED_AFTERPARENT:
        return GetScaling() == Scaling::PerMonitor && TakesNewDpi(hwnd, wParam) ? ScalingChange::Dpi
                                                                                : ScalingChange::None;
    // All windows hear of it by a message of their own.
    case WM_SETTINGCHANGE: FollowTextSize(); return ScalingChange::None;
    default: return wParam ? ScalingChange::Dpi : ScalingChange::Text;
    }
}

// --- Images

int ImageFactor(HWND hwnd)
{
    if (GetScaling() == Scaling::None) {
        return 1;
    }
    const UINT uGiven = KnownWindow(hwnd).uImageDpi;
    return uGiven ? std::max(static_cast<int>(DpiOf(hwnd) / uGiven), 1) : 1;
}

void TakeNewImages(HWND hwnd)
{
    LibraryWindow window = KnownWindow(hwnd);
    if (window.uImageDpi) {
        window.uImageDpi = DpiOf(hwnd);
        SetKnownWindow(window);
    }
}

} // namespace gesso
