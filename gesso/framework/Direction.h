// Windows that are laid out from right to left (WS_EX_LAYOUTRTL): they count from their right edge, and so do
// their contexts, so that what is drawn and hit by client coordinates is mirrored without a word. What is
// left to do is here: memory contexts do not take a window's layout by themselves, what comes in the screen's
// coordinates counts from the left, and pictures and lines of text are to stay as they are.
//
// The platform turns texts upright again, each call of its own. It mirrors images: of icons, of image lists,
// of bitmaps where their layout differs. Its parts of the visual style are mirrored, ticks included.
#pragma once

#include <gesso/api.h>

namespace gesso {

bool IsMirrored(HWND hwnd);
bool IsMirrored(HDC hdc);

// The pixel of a window's client area that shows at a point of the screen. In a mirrored window
// ScreenToClient gives the edge at its right, which a rectangle of pixels ends with.
POINT ClientPixelAt(HWND hwnd, POINT ptScreen);

// A rectangle of a window, counted from its other side.
RECT MirroredIn(const RECT& rcWindow, const RECT& rc);

// What WM_NCCALCSIZE is to be answered with, of a client area that was found as the window counts: the
// message counts as the parent does, and in its first form, without fValidRects, as the screen does.
RECT ClientAsAsked(HWND hwnd, BOOL fValidRects, const RECT& rcWindow, const RECT& rcClient);

// Gives a memory context the layout of another context; one of the usual layout stays as it is. To be called
// once its bitmap is selected, in which it is mirrored.
void TakeLayout(HDC hdc, HDC hdcLike);

// Has a context count so that a place comes where 0, 0 was. In a mirrored one the platform's window origin
// may count the other way.
void ShiftOrigin(HDC hdc, POINT pt);

// Left and Right change their meaning in a mirrored window, as in the platform's controls; another key stays.
UINT KeyInLayout(HWND hwnd, UINT uKey);

// Draws something of a width as it is, at its place in a mirrored context: as long as this lives, the context
// counts from the left, and Left() is where the thing begins. In a context of the usual layout it does
// nothing.
class UprightScope
{
public:
    UprightScope(HDC hdc, int x, int cx);
    ~UprightScope();
    UprightScope(const UprightScope&) = delete;
    UprightScope& operator=(const UprightScope&) = delete;

    // Whether the context counts otherwise than meanwhile.
    bool IsMirrored() const { return m_nSaved != 0; }
    int Left() const { return m_x; }
    // A place in the context, as it counts meanwhile.
    RECT Placed(const RECT& rc) const;

private:
    HDC m_hdc;
    int m_nSaved = 0;
    int m_nSum = 0; // of a mirrored x and the one that counts meanwhile
    int m_x;
};

} // namespace gesso
