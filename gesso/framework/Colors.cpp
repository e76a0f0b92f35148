#include <gesso/framework/Colors.h>
#include <gesso/framework/Palette.h>

#include <algorithm>
#include <iterator>

namespace gesso {
namespace {

constexpr COLORREF BY_ROLE = CLR_DEFAULT;
constexpr auto NO_ROLE = static_cast<ColorRole>(ROLE_COUNT);

// What a colour is in Light and in Dark, and the role whose shade a host may have set: in Dark what has a
// shade of its own keeps its distance from the role's. In Contrast there are the roles alone, of what the
// colour stands on; in Light none of what only the style draws there.
struct Shade
{
    Color color;
    COLORREF crLight, crDark;
    ColorRole role;
    ColorRole contrast = role;
};

constexpr COLORREF Grey(int n)
{
    return RGB(n, n, n);
}

constexpr COLORREF BLACK = Grey(0);
constexpr COLORREF WHITE = Grey(0xFF);

constexpr Shade SHADES[] = {
    {Color::LayoutOverlay, RGB(0xFF, 0x00, 0xFF), RGB(0xFF, 0x00, 0xFF), NO_ROLE, ColorRole::Accent},
    {Color::FieldText, BLACK, BY_ROLE, ColorRole::WindowText},
    {Color::FieldDisabledText, Grey(0x6D), BY_ROLE, ColorRole::DisabledText},
    {Color::FieldSelection, RGB(0xAD, 0xD6, 0xFF), BY_ROLE, ColorRole::Selection},
    {Color::FieldSelectedText, BLACK, BY_ROLE, ColorRole::SelectionText},
    {Color::FieldCue, Grey(0x6D), BY_ROLE, ColorRole::Hint, ColorRole::DisabledText},

    {Color::TreeBackground, WHITE, BY_ROLE, ColorRole::Window},
    {Color::NavigationHeaderText, Grey(0x5C), BY_ROLE, ColorRole::Hint},
    {Color::NavigationLine, Grey(0xE5), BY_ROLE, ColorRole::Line},

    {Color::RibbonActiveLine, Grey(0xDB), BY_ROLE, ColorRole::Line, ColorRole::PanelText},
    {Color::RibbonActiveFill, Grey(0xF6), Grey(0x33), ColorRole::Panel},
    {Color::RibbonHotLine, Grey(0xEB), BY_ROLE, ColorRole::Line, ColorRole::PanelText},
    {Color::RibbonHotFill, Grey(0xFD), Grey(0x2A), ColorRole::Panel},
    {Color::RibbonPageLine, Grey(0xE4), BY_ROLE, ColorRole::Line, ColorRole::PanelText},
    {Color::RibbonGroupTitle, Grey(0x76), BY_ROLE, ColorRole::Hint, ColorRole::PanelText},
    {Color::RibbonItemText, BLACK, BY_ROLE, ColorRole::PanelText},
    {Color::RibbonAfterPage, BLACK, BY_ROLE, ColorRole::PanelText},
    {Color::ValueMenuFill, WHITE, BY_ROLE, ColorRole::Window},
    {Color::ValueMenuHotFill, RGB(0xFF, 0xC8, 0x8C), BY_ROLE, ColorRole::Selection},
    {Color::ValueMenuHotText, BLACK, BY_ROLE, ColorRole::SelectionText},

    {Color::CertText, BLACK, BY_ROLE, ColorRole::PanelText},
    {Color::CertSecureText, WHITE, WHITE, NO_ROLE, ColorRole::SelectionText},
    {Color::CertSecureLeft, RGB(0x00, 0x38, 0x6D), RGB(0x0B, 0x4A, 0x6F), NO_ROLE, ColorRole::Selection},
    {Color::CertSecureRight, RGB(0x10, 0x75, 0x99), RGB(0x0B, 0x4A, 0x6F), NO_ROLE, ColorRole::Selection},
    {Color::CertUntrustedText, BLACK, BLACK, NO_ROLE, ColorRole::SelectionText},
    {Color::CertUntrustedLeft, RGB(0xF2, 0xB1, 0x00), RGB(0xE0, 0xA8, 0x1C), NO_ROLE, ColorRole::Selection},
    {Color::CertUntrustedRight, RGB(0xFE, 0xCD, 0x48), RGB(0xE0, 0xA8, 0x1C), NO_ROLE, ColorRole::Selection},
    {Color::CertInvalidText, WHITE, WHITE, NO_ROLE, ColorRole::SelectionText},
    {Color::CertInvalidLeft, RGB(0xAE, 0x00, 0x00), RGB(0x9C, 0x1F, 0x24), NO_ROLE, ColorRole::Selection},
    {Color::CertInvalidRight, RGB(0xE2, 0x00, 0x00), RGB(0x9C, 0x1F, 0x24), NO_ROLE, ColorRole::Selection},

    {Color::ListText, BLACK, BY_ROLE, ColorRole::WindowText},
    {Color::ListTileCaption, Grey(0x76), BY_ROLE, ColorRole::Hint},

    {Color::ButtonFace, CLR_INVALID, Grey(0x38), ColorRole::Panel},
    {Color::ButtonHotFace, CLR_INVALID, Grey(0x43), ColorRole::Panel},
    {Color::ButtonPressedFace, CLR_INVALID, Grey(0x30), ColorRole::Panel},
    {Color::ButtonDisabledFace, CLR_INVALID, Grey(0x2E), ColorRole::Panel},
    {Color::ButtonEdge, CLR_INVALID, Grey(0x50), ColorRole::Line, ColorRole::PanelText},
    {Color::ButtonDisabledEdge, CLR_INVALID, Grey(0x3C), ColorRole::Line, ColorRole::DisabledText},
    {Color::FaceCue, CLR_INVALID, BY_ROLE, ColorRole::Hint, ColorRole::DisabledText},
    {Color::ButtonPressedText, CLR_INVALID, Grey(0xCC), ColorRole::PanelText},
    {Color::BoxFace, CLR_INVALID, Grey(0x26), ColorRole::Window},
    {Color::BoxHotFace, CLR_INVALID, Grey(0x38), ColorRole::Window},
    {Color::BoxPressedFace, CLR_INVALID, Grey(0x44), ColorRole::Window},
    {Color::BoxEdge, CLR_INVALID, Grey(0x9E), ColorRole::Border, ColorRole::WindowText},
    {Color::BoxDisabledEdge, CLR_INVALID, BY_ROLE, ColorRole::DisabledText},
    {Color::MarkFace, CLR_INVALID, BY_ROLE, ColorRole::Accent},
    {Color::MarkHotFace, CLR_INVALID, RGB(0x47, 0xB1, 0xE8), ColorRole::Accent},
    {Color::MarkPressedFace, CLR_INVALID, RGB(0x42, 0xA1, 0xD2), ColorRole::Accent},
    {Color::MarkDisabledFace, CLR_INVALID, Grey(0x46), ColorRole::Line, ColorRole::Window},
    {Color::Mark, CLR_INVALID, BY_ROLE, ColorRole::AccentText},
    {Color::MarkDisabled, CLR_INVALID, Grey(0xA8), ColorRole::DisabledText},
    {Color::FieldFace, CLR_INVALID, BY_ROLE, ColorRole::Window},
    {Color::FieldDisabledFace, CLR_INVALID, Grey(0x28), ColorRole::Window},
    {Color::FieldEdge, CLR_INVALID, BY_ROLE, ColorRole::Border},
    {Color::FieldHotEdge, CLR_INVALID, Grey(0xB4), ColorRole::Border},
    {Color::FieldFocusEdge, CLR_INVALID, BY_ROLE, ColorRole::Accent, ColorRole::Border},
    {Color::FieldDisabledEdge, CLR_INVALID, Grey(0x7E), ColorRole::Border, ColorRole::DisabledText},
    {Color::RowHotSelection, CLR_INVALID, RGB(0x2E, 0x60, 0x82), ColorRole::Selection},
    {Color::PaneEdge, CLR_INVALID, Grey(0x48), ColorRole::Line, ColorRole::Border},
    {Color::BarTrack, CLR_INVALID, Grey(0x25), ColorRole::Panel},
    {Color::BarThumb, CLR_INVALID, Grey(0x78), ColorRole::Border, ColorRole::PanelText},
    {Color::BarHotThumb, CLR_INVALID, Grey(0x96), ColorRole::Border, ColorRole::PanelText},
    {Color::BarPressedThumb, CLR_INVALID, Grey(0xB0), ColorRole::Border, ColorRole::PanelText},
    {Color::BarArrow, CLR_INVALID, Grey(0xA0), ColorRole::Hint, ColorRole::PanelText},
    {Color::BarHotArrow, CLR_INVALID, Grey(0xE0), ColorRole::Hint, ColorRole::PanelText},
    {Color::ProgressTrack, CLR_INVALID, Grey(0x3A), ColorRole::Window},
    {Color::ProgressFill, CLR_INVALID, BY_ROLE, ColorRole::Accent, ColorRole::WindowText},
    {Color::ProgressDisabledFill, CLR_INVALID, BY_ROLE, ColorRole::DisabledText},
    {Color::DialogPane, CLR_INVALID, Grey(0x2B), ColorRole::Panel},
    {Color::DialogFooter, CLR_INVALID, Grey(0x20), ColorRole::Panel},
    {Color::PanelLine, CLR_INVALID, BY_ROLE, ColorRole::Line, ColorRole::PanelText},
    {Color::HeaderLine, CLR_INVALID, BY_ROLE, ColorRole::Line, ColorRole::HeaderText},
    {Color::HeaderHotFace, CLR_INVALID, Grey(0x38), ColorRole::Header},
    {Color::HeaderPressedFace, CLR_INVALID, Grey(0x42), ColorRole::Header},
    {Color::FocusFrame, CLR_INVALID, WHITE, ColorRole::PanelText},
};

constexpr bool IsInOrder()
{
    for (int i = 0; i < COLOR_COUNT; ++i) {
        if (SHADES[i].color != static_cast<Color>(i)) {
            return false;
        }
    }
    return std::size(SHADES) == COLOR_COUNT;
}
static_assert(IsInOrder());

// What stands for the system's colours in Dark.
ColorRole RoleOfSystem(int nIndex)
{
    switch (nIndex) {
    case COLOR_WINDOW: return ColorRole::Window;
    case COLOR_WINDOWTEXT: return ColorRole::WindowText;
    case COLOR_GRAYTEXT: return ColorRole::DisabledText;
    case COLOR_HIGHLIGHT: return ColorRole::Selection;
    case COLOR_HIGHLIGHTTEXT: return ColorRole::SelectionText;
    case COLOR_BTNTEXT: return ColorRole::PanelText;
    case COLOR_3DLIGHT: return ColorRole::Line;
    default: return ColorRole::Panel;
    }
}

COLORREF OwnOf(ColorScheme active, ColorRole role)
{
    return role == NO_ROLE ? CLR_DEFAULT : OwnShade(active, role);
}

// As much lighter or darker than the host's shade as one is than the role's.
COLORREF Beside(COLORREF crHost, COLORREF cr, COLORREF crRole)
{
    const auto channel = [](int nHost, int n, int nRole) { return std::clamp(nHost + n - nRole, 0, 0xFF); };
    return RGB(channel(GetRValue(crHost), GetRValue(cr), GetRValue(crRole)),
               channel(GetGValue(crHost), GetGValue(cr), GetGValue(crRole)),
               channel(GetBValue(crHost), GetBValue(cr), GetBValue(crRole)));
}

COLORREF InDark(const Shade& shade)
{
    if (shade.crDark == BY_ROLE) {
        return ColorOf(shade.role);
    }
    const COLORREF crOwn = OwnOf(ColorScheme::Dark, shade.role);
    return crOwn == CLR_DEFAULT ? shade.crDark
                                : Beside(crOwn, shade.crDark, ShadeOf(ColorScheme::Dark, shade.role));
}

const Shade& ShadeOf(Color color)
{
    return SHADES[static_cast<int>(color)];
}

// One that was never set is the scheme's; in Light it is the host's shade for what it is, or as it stands.
bool IsKept(bool fSet, COLORREF crOwnInLight)
{
    switch (ActiveColorScheme()) {
    case ColorScheme::Dark: return fSet;
    case ColorScheme::Contrast: return false;
    default: return fSet || (crOwnInLight == CLR_DEFAULT && !IsDrawnInSystemColors());
    }
}

COLORREF InLight(const Shade& shade)
{
    const COLORREF crOwn = OwnOf(ColorScheme::Light, shade.role);
    if (crOwn != CLR_DEFAULT) {
        return crOwn;
    }
    return shade.role != NO_ROLE && IsDrawnInSystemColors() ? ShadeOf(ColorScheme::Light, shade.role)
                                                            : shade.crLight;
}

// The context's own brush, in a colour: nothing to be deleted while somebody draws with it.
HBRUSH BrushIn(HDC hdc, COLORREF cr)
{
    return SetDCBrushColor(hdc, cr) == CLR_INVALID ? GetSysColorBrush(COLOR_BTNFACE)
                                                   : static_cast<HBRUSH>(GetStockObject(DC_BRUSH));
}

} // namespace

COLORREF ColorOf(ColorRole role)
{
    if (static_cast<size_t>(role) >= ROLE_COUNT) {
        return CLR_INVALID;
    }
    const ColorScheme active = ActiveColorScheme();
    const COLORREF crOwn = OwnShade(active, role);
    return crOwn != CLR_DEFAULT ? crOwn : ShadeOf(active, role);
}

COLORREF ColorOf(Color color)
{
    const Shade& shade = ShadeOf(color);
    switch (ActiveColorScheme()) {
    case ColorScheme::Dark: return InDark(shade);
    case ColorScheme::Contrast: return ColorOf(shade.contrast);
    default: return InLight(shade);
    }
}

COLORREF LightColorOf(Color color)
{
    return ShadeOf(color).crLight;
}

bool IsDrawnInSystemColors()
{
    const bool fUsual = GetSysColor(COLOR_WINDOW) == WHITE && GetSysColor(COLOR_WINDOWTEXT) == BLACK &&
                        GetSysColor(COLOR_BTNTEXT) == BLACK;
    return !fUsual && !IsDrawnFlat() && !IsAppThemed();
}

bool IsDrawnAs(ColorRole role)
{
    return AreTextsByRole() || OwnShade(ColorScheme::Light, role) != CLR_DEFAULT;
}

COLORREF HostColor(COLORREF crHost, bool fSet, ColorRole role)
{
    return IsKept(fSet, OwnShade(ColorScheme::Light, role)) ? crHost : ColorOf(role);
}

COLORREF HostColor(COLORREF crHost, bool fSet, Color color)
{
    return IsKept(fSet, OwnOf(ColorScheme::Light, ShadeOf(color).role)) ? crHost : ColorOf(color);
}

COLORREF SystemColor(int nIndex)
{
    const ColorScheme active = ActiveColorScheme();
    const ColorRole role = RoleOfSystem(nIndex);
    const bool fPanel = role == ColorRole::Panel && nIndex != COLOR_BTNFACE; // in Dark alone
    if (active == ColorScheme::Dark || (!fPanel && OwnShade(active, role) != CLR_DEFAULT)) {
        return ColorOf(role);
    }
    return GetSysColor(nIndex);
}

HBRUSH SystemBrush(HDC hdc, int nIndex)
{
    const COLORREF cr = SystemColor(nIndex);
    return cr == GetSysColor(nIndex) ? GetSysColorBrush(nIndex) : BrushIn(hdc, cr);
}

HBRUSH DialogBrush(HDC hdc)
{
    if (IsDrawnFlat()) {
        return BrushIn(hdc, ColorOf(Color::DialogPane));
    }
    return IsDrawnInSystemColors() ? SystemBrush(hdc, COLOR_WINDOW)
                                   : static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH));
}

} // namespace gesso
