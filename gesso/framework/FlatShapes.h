// What the parts that the library draws by itself are made of: filled rectangles, and nothing else.
#pragma once

#include <gesso/framework/Colors.h>

namespace gesso {

void FillColor(HDC hdc, const RECT& rc, COLORREF cr);
// Inside the rectangle, so many pixels wide; of more than its half it is filled.
void FrameColor(HDC hdc, const RECT& rc, COLORREF cr, int nWidth);
// The same of dashes.
void DashFrameColor(HDC hdc, const RECT& rc, COLORREF cr, int nWidth);

struct BoxLook
{
    COLORREF crFace;
    COLORREF crEdge;
    int nEdge = 1; // its width
};

enum class BoxSign
{
    None,
    Tick,
    Dash,
    Dot
};

// A box with round corners of a radius in half pixels, whose edges go over into what is around it: the shade
// given, or for CLR_DEFAULT what the context shows at its corners, where that can be told, else the panel's.
// A radius of its whole side makes a disc of it.
void DrawRoundBox(HDC hdc, const RECT& rc, const BoxLook& look, int nRadius2, COLORREF crAround,
                  BoxSign sign = BoxSign::None, COLORREF crSign = 0);
// The same in the shades given alone, none between them.
void DrawPlainDisc(HDC hdc, const RECT& rc, const BoxLook& look);

enum class Pointing
{
    Up,
    Down,
    Left,
    Right
};

// How large a sign is, from its middle to its ends, and how wide a thin line is beside it.
struct SignSize
{
    int nReach;
    int nLine = 1;
};

// In the middle of the rectangle.
void DrawChevron(HDC hdc, const RECT& rc, Pointing pointing, SignSize size, COLORREF cr);
void DrawTriangle(HDC hdc, const RECT& rc, Pointing pointing, int nReach, COLORREF cr);
void DrawArrow(HDC hdc, const RECT& rc, Pointing pointing, SignSize size, COLORREF cr);
// As large as a box of the rectangle's size takes it: a tick or a dash.
void DrawBoxSign(HDC hdc, const RECT& rc, BoxSign sign, COLORREF cr);

// A rectangle less so many pixels on each side.
RECT Deflated(const RECT& rc, int cx, int cy);
// A square of at most a side, in the middle of a rectangle.
RECT SquareIn(const RECT& rc, int nSide);

} // namespace gesso
