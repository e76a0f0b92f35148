// The palette: every colour that the library draws in by itself, named by its role, and the one way to the
// system's own colours. What the visual style gives is asked of ThemePart instead.
#pragma once

#include <gesso/api.h>

namespace gesso {

enum class Color
{
    LayoutOverlay,     // the outlines that a debug build shows over a control
    FieldText,         // of edit fields and combo boxes
    FieldDisabledText, // of an edit field that is disabled
    FieldSelection,    // behind selected text in both, whose own colour stays

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
};

COLORREF ColorOf(Color color);

// One of the system's own, by its COLOR_ index; the brush is the system's and is not deleted.
COLORREF SystemColor(int nIndex);
HBRUSH SystemBrush(int nIndex);

// What the dialogs' backgrounds are filled with; the platform's own white, and not deleted.
HBRUSH DialogBrush();

} // namespace gesso
