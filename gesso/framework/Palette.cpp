#include <gesso/framework/Palette.h>

#include <array>
#include <atomic>

namespace gesso {
namespace {

// A role's shade in Dark, and the system's colour that it is in the other two.
struct RoleShades
{
    COLORREF crDark;
    int nContrast, nLight;
};

constexpr COLORREF TEXT = RGB(0xFF, 0xFF, 0xFF);

// In the order of the roles.
constexpr std::array<RoleShades, ROLE_COUNT> SHADES{{
    {RGB(0x2B, 0x2B, 0x2B), COLOR_WINDOW, COLOR_WINDOW},               // Window
    {TEXT, COLOR_WINDOWTEXT, COLOR_WINDOWTEXT},                        // WindowText
    {RGB(0x20, 0x20, 0x20), COLOR_BTNFACE, COLOR_BTNFACE},             // Panel
    {TEXT, COLOR_BTNTEXT, COLOR_BTNTEXT},                              // PanelText
    {RGB(0x90, 0x90, 0x90), COLOR_GRAYTEXT, COLOR_GRAYTEXT},           // DisabledText
    {RGB(0x26, 0x4F, 0x6B), COLOR_HIGHLIGHT, COLOR_HIGHLIGHT},         // Selection
    {TEXT, COLOR_HIGHLIGHTTEXT, COLOR_HIGHLIGHTTEXT},                  // SelectionText
    {RGB(0x45, 0x45, 0x45), COLOR_BTNFACE, COLOR_BTNFACE},             // InactiveSelection
    {TEXT, COLOR_BTNTEXT, COLOR_BTNTEXT},                              // InactiveSelectionText
    {RGB(0x38, 0x38, 0x38), COLOR_WINDOW, COLOR_WINDOW},               // HotRow
    {RGB(0x45, 0x45, 0x45), COLOR_WINDOWTEXT, COLOR_3DLIGHT},          // Line
    {RGB(0x8A, 0x8A, 0x8A), COLOR_WINDOWTEXT, COLOR_BTNSHADOW},        // Border
    {RGB(0x4C, 0xC2, 0xFF), COLOR_HIGHLIGHT, COLOR_HIGHLIGHT},         // Accent
    {RGB(0x00, 0x00, 0x00), COLOR_HIGHLIGHTTEXT, COLOR_HIGHLIGHTTEXT}, // AccentText
    {RGB(0x99, 0xEB, 0xFF), COLOR_HOTLIGHT, COLOR_HOTLIGHT},           // Link
    {RGB(0x2B, 0x2B, 0x2B), COLOR_BTNFACE, COLOR_BTNFACE},             // Header
    {RGB(0xD6, 0xD6, 0xD6), COLOR_BTNTEXT, COLOR_BTNTEXT},             // HeaderText
    {RGB(0xB8, 0xB8, 0xB8), COLOR_WINDOWTEXT, COLOR_GRAYTEXT},         // Hint
}};

// Zero for none: the shade and a bit that no shade has.
constexpr COLORREF SET = 0x01000000;
constinit std::array<std::array<std::atomic<COLORREF>, ROLE_COUNT>, SCHEME_COUNT> s_own{};

std::atomic<COLORREF>& Own(ColorScheme active, ColorRole role)
{
    return s_own[static_cast<size_t>(active)][static_cast<size_t>(role)];
}

} // namespace

COLORREF ShadeOf(ColorScheme active, ColorRole role)
{
    const RoleShades& shades = SHADES[static_cast<size_t>(role)];
    switch (active) {
    case ColorScheme::Dark: return shades.crDark;
    case ColorScheme::Contrast: return GetSysColor(shades.nContrast);
    default: return GetSysColor(shades.nLight);
    }
}

COLORREF OwnShade(ColorScheme active, ColorRole role)
{
    const COLORREF cr = Own(active, role);
    return cr ? cr & ~SET : CLR_DEFAULT;
}

void SetOwnShade(ColorScheme active, ColorRole role, COLORREF cr)
{
    Own(active, role) = cr == CLR_DEFAULT ? 0 : cr | SET;
}

} // namespace gesso
