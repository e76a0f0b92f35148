// The palette: every colour that the library draws in by itself, named by its role, and the one way to the
// system's own colours. What the visual style gives is asked of ThemePart instead.
#pragma once

#include <gesso/framework/Appearance.h>

namespace gesso {

enum class Color
{
    LayoutOverlay,     // the outlines that a debug build shows over a control
    FieldText,         // of edit fields and combo boxes
    FieldDisabledText, // of an edit field that is disabled
    FieldSelection,    // behind selected text in both, whose own colour stays
    FieldSelectedText, // but for the schemes that the library draws by itself
    FieldCue,          // what an empty field shows

    // Trees
    TreeBackground,       // of trees and navigation bars
    NavigationHeaderText, // of the headers between a bar's rows
    NavigationLine,       // of its separators

    // Ribbon
    RibbonActiveLine, // the outline of the active tab, and the base line
    RibbonActiveFill, // the active tab
    RibbonHotLine,    // the outline of the tab under the pointer
    RibbonHotFill,    // that tab
    RibbonPageLine,   // between groups
    RibbonGroupTitle,
    RibbonItemText,  // where the style has no colour for it
    RibbonAfterPage, // what a page leaves in its context
    ValueMenuFill,
    ValueMenuHotFill, // the row under the pointer
    ValueMenuHotText,

    // Dialogs
    CertText,       // of the body
    CertSecureText, // of the header; Left and Right are the ends of its gradient
    CertSecureLeft,
    CertSecureRight,
    CertUntrustedText,
    CertUntrustedLeft,
    CertUntrustedRight,
    CertInvalidText,
    CertInvalidLeft,
    CertInvalidRight,

    ListText,        // of a list's items, headers and groups
    ListTileCaption, // before the value in a tile

    // What the library draws by itself in Dark and Contrast, and the style in Light
    ButtonFace,
    ButtonHotFace,
    ButtonPressedFace,
    ButtonDisabledFace,
    ButtonEdge,
    ButtonDisabledEdge,
    FaceCue, // in place of a text on a button's face
    ButtonPressedText,
    BoxFace, // of a check box without a mark
    BoxHotFace,
    BoxPressedFace,
    BoxEdge,
    BoxDisabledEdge,
    MarkFace, // of one with a mark
    MarkHotFace,
    MarkPressedFace,
    MarkDisabledFace,
    Mark,
    MarkDisabled,
    FieldFace,
    FieldDisabledFace,
    FieldEdge,
    FieldHotEdge,
    FieldFocusEdge,
    FieldDisabledEdge,
    RowHotSelection, // of what is selected and under the pointer
    PaneEdge,        // around lists, trees and open lists
    BarTrack,        // of a scroll bar
    BarThumb,
    BarHotThumb,
    BarPressedThumb,
    BarArrow,
    BarHotArrow,
    ProgressTrack,
    ProgressFill,
    ProgressDisabledFill,
    DialogPane,
    DialogFooter,
    PanelLine, // on a panel, and on a list's header
    HeaderLine,
    HeaderHotFace,
    HeaderPressedFace,
    FocusFrame,
};

inline constexpr int COLOR_COUNT = static_cast<int>(Color::FocusFrame) + 1;

COLORREF ColorOf(Color color);
// What the colour is in Light, with nothing of the host's.
COLORREF LightColorOf(Color color);

// Whether the library draws every part by itself: in any scheme but Light.
inline bool IsDrawnFlat()
{
    return ActiveColorScheme() != ColorScheme::Light;
}
// Whether it does so in the user's colours alone.
inline bool IsContrast()
{
    return ActiveColorScheme() == ColorScheme::Contrast;
}

// Whether Light is drawn in the system's colours altogether: without a visual style, where they are others
// than black texts on white. With the usual ones the library's own shades go with them.
bool IsDrawnInSystemColors();
// Whether each text takes the shade of its role, in whatever state it is.
inline bool AreTextsByRole()
{
    return IsDrawnFlat() || IsDrawnInSystemColors();
}

// Whether what plays a role is drawn in the role's shade: but for Light, where neither the host has set one
// for it nor the system's colours hold.
bool IsDrawnAs(ColorRole role);

// What a control draws in for a colour that its host may have set: that one, but for one that was never set
// outside of Light, and in Contrast. In Light one that was never set takes the host's shade for the role.
COLORREF HostColor(COLORREF crHost, bool fSet, Color color);
COLORREF HostColor(COLORREF crHost, bool fSet, ColorRole role);

// One of the system's own, by its COLOR_ index: in Dark what stands for it, else the host's shade for that
// where there is one.
COLORREF SystemColor(int nIndex);

// Brushes to draw with in a context, or to answer who asks for one with the context. Not deleted: they are
// the system's, or the context's own, whose colour is set.
HBRUSH SystemBrush(HDC hdc, int nIndex);
// What the dialogs' backgrounds are filled with: in Light the platform's own white, or the system's colour.
HBRUSH DialogBrush(HDC hdc);

} // namespace gesso
