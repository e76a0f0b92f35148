// How each part looks where the library draws it by itself: in Dark from the palette, flat, with the accent
// for what is chosen; in Contrast in the user's colours, each with a border, and each state with a shape of
// its own.
#pragma once

#include <gesso/framework/Colors.h>
#include <gesso/framework/ThemePart.h>

namespace gesso {

struct FlatPart
{
    PlainPart plain;
    int nPart, nState;     // as the visual style counts them
    int nLine = 1;         // how many pixels wide a thin line is in its window
    bool fDefault = false; // of a dialog, in a state beside PBS_DEFAULTED
};

void DrawFlatPart(HDC hdc, const FlatPart& part, const RECT& rc);
// What the part's text is drawn in.
COLORREF FlatTextColor(const FlatPart& part);
// Whether nothing behind it shows.
bool IsFlatOpaque(const FlatPart& part);

// Around what has the focus in a window: the platform's dotted rectangle in Light, else a line, twice as wide
// in Contrast. Its colour is that of the text that stands in it; without one, that of what stands on a panel
// or a button.
void DrawFocusFrame(HWND hwnd, HDC hdc, const RECT& rc, COLORREF crText);
void DrawFocusFrame(HWND hwnd, HDC hdc, const RECT& rc);
// In Contrast, around what is disabled and has no edge of its own.
void DrawDisabledEdge(HWND hwnd, HDC hdc, const RECT& rc);

// --- By family, for DrawFlatPart alone

void DrawFlatButton(HDC hdc, const FlatPart& part, const RECT& rc);
void DrawFlatCheck(HDC hdc, const FlatPart& part, const RECT& rc);
void DrawFlatBar(HDC hdc, const FlatPart& part, const RECT& rc);
// A box with a border that tells by its width how far it is pressed, as Contrast has them, and by a second
// line whether it is the default one.
void DrawContrastBox(HDC hdc, const RECT& rc, COLORREF crFace, int nState, int nLine, bool fDefault = false);

} // namespace gesso
