#include <gallery/Shades.h>

namespace gallery {
namespace {

using gesso::ColorRole;

struct Pair
{
    COLORREF crLight;
    ColorRole role;
};

Pair ShadesOf(Shade shade)
{
    switch (shade) {
    case Shade::Page: return {RGB(255, 255, 255), ColorRole::Panel};
    case Shade::Side: return {RGB(243, 245, 248), ColorRole::Panel};
    case Shade::Frame: return {RGB(214, 218, 224), ColorRole::Line};
    case Shade::Box: return {RGB(222, 235, 250), ColorRole::HotRow};
    case Shade::Edge: return {RGB(0, 92, 175), ColorRole::Link};
    case Shade::Caption: return {RGB(104, 110, 120), ColorRole::Hint};
    case Shade::Title: return {RGB(0, 51, 153), ColorRole::Link};
    case Shade::Answer: return {RGB(0, 92, 64), ColorRole::Link};
    case Shade::Warning: return {RGB(192, 32, 32), ColorRole::Link};
    case Shade::Measure: return {RGB(196, 64, 32), ColorRole::Link};
    default: return {RGB(0, 0, 0), ColorRole::PanelText};
    }
}

} // namespace

COLORREF ColorOf(Shade shade)
{
    const Pair pair = ShadesOf(shade);
    return gesso::ActiveColorScheme() == gesso::ColorScheme::Light ? pair.crLight : ColorOf(pair.role);
}

HBRUSH PageBrush()
{
    static HBRUSH s_hbr = nullptr;
    static COLORREF s_cr = CLR_INVALID;
    if (const COLORREF cr = ColorOf(Shade::Page); cr != s_cr) {
        DeleteObject(s_hbr);
        s_hbr = CreateSolidBrush(cr);
        s_cr = cr;
    }
    return s_hbr;
}

void FillClient(HWND hwnd, HDC hdc, Shade shade)
{
    RECT rc{};
    GetClientRect(hwnd, &rc);
    const HBRUSH hbr = CreateSolidBrush(ColorOf(shade));
    FillRect(hdc, &rc, hbr);
    DeleteObject(hbr);
}

} // namespace gallery
