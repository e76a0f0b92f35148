#include <gesso/containers/Misuse.h>
#include <gesso/framework/LiveControls.h>
#include <gesso/framework/MakeOnce.h>
#include <gesso/framework/Palette.h>
#include <gesso/framework/SystemAppearance.h>

#include <atomic>

namespace gesso {
namespace {

// Changed under the lock: what is active is what the last one who asked was told of what was set last. No
// message is sent under it.
constinit SRWLOCK s_lock = SRWLOCK_INIT;
constinit std::atomic<ColorScheme> s_set = ColorScheme::Light;
constinit std::atomic<ColorScheme> s_active = ColorScheme::Light;

// Under the lock. Whether another one is active now.
bool Decide()
{
    const ColorScheme set = s_set;
    const ColorScheme active = set == ColorScheme::System ? SchemeOfSystem() : set;
    return s_active.exchange(active) != active;
}

bool SetAndDecide(ColorScheme scheme)
{
    const ScopedLock lock(s_lock);
    s_set = scheme;
    return Decide();
}

bool DecideAnew()
{
    const ScopedLock lock(s_lock);
    return s_set == ColorScheme::System && Decide();
}

// Whether it is another one than before, of the scheme that is active.
bool KeepShade(ColorRole role, COLORREF cr)
{
    const ScopedLock lock(s_lock);
    const ColorScheme active = s_active;
    if (OwnShade(active, role) == cr) {
        return false;
    }
    SetOwnShade(active, role, cr);
    return true;
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
    const bool fOther = SetAndDecide(scheme);
    FollowSystem();
    if (fOther) {
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
    if (KeepShade(role, cr)) {
        RepaintControls();
    }
}

void RenewScheme()
{
    if (DecideAnew()) {
        RepaintControls();
    }
}

void TakeSystemColors()
{
    if (DecideAnew() || s_active == ColorScheme::Contrast) {
        RepaintControls();
    }
}

void TakeSystemColorsFor(HWND hwnd)
{
    if (DecideAnew()) {
        RepaintControls();
    } else if (s_active == ColorScheme::Contrast) {
        RedrawWindow(hwnd, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME);
    }
}

} // namespace gesso
