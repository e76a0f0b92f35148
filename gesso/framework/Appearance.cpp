#include <gesso/containers/Misuse.h>
#include <gesso/framework/LiveControls.h>
#include <gesso/framework/Palette.h>
#include <gesso/framework/SystemAppearance.h>

#include <atomic>

namespace gesso {
namespace {

constinit std::atomic<ColorScheme> s_set = ColorScheme::Light;
constinit std::atomic<ColorScheme> s_active = ColorScheme::Light;

// Whether another one is active now.
bool Activate(ColorScheme active)
{
    return s_active.exchange(active) != active;
}

bool IsShade(COLORREF cr)
{
    return cr == CLR_DEFAULT || !HIBYTE(HIWORD(cr));
}

} // namespace

void SetColorScheme(ColorScheme scheme)
{
    if (scheme < ColorScheme::Light || scheme > ColorScheme::System) {
        Misuse("SetColorScheme: no such scheme");
        return;
    }
    s_set = scheme;
    const bool fFollows = scheme == ColorScheme::System;
    FollowSystem(fFollows);
    if (Activate(fFollows ? SchemeOfSystem() : scheme)) {
        RepaintControls();
    }
}

ColorScheme GetColorScheme()
{
    return s_set;
}

ColorScheme ActiveColorScheme()
{
    return s_active.load(std::memory_order_relaxed);
}

void SetColor(ColorRole role, COLORREF cr)
{
    if (static_cast<size_t>(role) >= ROLE_COUNT || !IsShade(cr)) {
        Misuse("SetColor: no such role, or no shade");
        return;
    }
    if (OwnShade(ActiveColorScheme(), role) != cr) {
        SetOwnShade(ActiveColorScheme(), role, cr);
        RepaintControls();
    }
}

void TakeSystemColors()
{
    const bool fOther = s_set == ColorScheme::System && Activate(SchemeOfSystem());
    if (fOther || s_active == ColorScheme::Contrast) {
        RepaintControls();
    }
}

void TakeSystemColorsFor(HWND hwnd)
{
    if (s_set == ColorScheme::System && Activate(SchemeOfSystem())) {
        RepaintControls();
    } else if (s_active == ColorScheme::Contrast) {
        RedrawWindow(hwnd, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME);
    }
}

} // namespace gesso
