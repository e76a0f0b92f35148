#include <gallery/GdiPlus.h>
#include <gallery/Glyphs.h>

#include <map>
#include <tuple>
#include <type_traits>

namespace gallery {
namespace {

using Gdiplus::Color;
using Gdiplus::Graphics;
using Gdiplus::PointF;
using Gdiplus::REAL;

Color DiscColor(Glyph glyph)
{
    switch (glyph) {
    case Glyph::Check: return {0x2E, 0x8B, 0x57};
    case Glyph::Add:
    case Glyph::Up: return {0x1F, 0x6F, 0xC4};
    default: return {0x5B, 0x67, 0x78};
    }
}

// The strokes of a glyph in a unit square.
void DrawStrokes(Graphics& graphics, Glyph glyph, REAL size)
{
    const auto at = [size](REAL x, REAL y) { return PointF(x * size, y * size); };
    Gdiplus::Pen pen(Color(255, 255, 255), size * 0.11f);
    pen.SetStartCap(Gdiplus::LineCapRound);
    pen.SetEndCap(Gdiplus::LineCapRound);
    const auto line = [&](PointF from, PointF to) { graphics.DrawLine(&pen, from, to); };
    switch (glyph) {
    case Glyph::Check:
        line(at(0.28f, 0.53f), at(0.43f, 0.68f));
        line(at(0.43f, 0.68f), at(0.72f, 0.35f));
        break;
    case Glyph::Add:
        line(at(0.5f, 0.27f), at(0.5f, 0.73f));
        line(at(0.27f, 0.5f), at(0.73f, 0.5f));
        break;
    case Glyph::Info:
        line(at(0.5f, 0.46f), at(0.5f, 0.74f));
        line(at(0.5f, 0.27f), at(0.5f, 0.28f));
        break;
    case Glyph::Up:
        line(at(0.5f, 0.28f), at(0.5f, 0.74f));
        line(at(0.5f, 0.28f), at(0.29f, 0.49f));
        line(at(0.5f, 0.28f), at(0.71f, 0.49f));
        break;
    }
}

// A black-and-white bitmap of one ground colour, drawn on by draw(hdc).
template <class DRAW> HBITMAP MonoBitmap(int cx, int cy, DWORD dwGround, DRAW draw)
{
    const HBITMAP hbm = CreateBitmap(cx, cy, 1, 1, nullptr);
    const HDC hdc = CreateCompatibleDC(nullptr);
    const HGDIOBJ hFormer = SelectObject(hdc, hbm);
    PatBlt(hdc, 0, 0, cx, cy, dwGround);
    draw(hdc);
    SelectObject(hdc, hFormer);
    DeleteDC(hdc);
    return hbm;
}

HICON DrawIcon(Glyph glyph, int nSize)
{
    Gdiplus::Bitmap bitmap(nSize, nSize, PixelFormat32bppARGB);
    Graphics graphics(&bitmap);
    graphics.SetSmoothingMode(Gdiplus::SmoothingModeAntiAlias);
    const Gdiplus::SolidBrush disc(DiscColor(glyph));
    const auto size = static_cast<REAL>(nSize - 1);
    graphics.FillEllipse(&disc, 0.0f, 0.0f, size, size);
    DrawStrokes(graphics, glyph, size);
    HICON hIcon = nullptr;
    bitmap.GetHICON(&hIcon);
    return hIcon;
}

HBITMAP DrawLandscape(int cx, int cy)
{
    Gdiplus::Bitmap bitmap(cx, cy, PixelFormat32bppRGB);
    Graphics graphics(&bitmap);
    graphics.SetSmoothingMode(Gdiplus::SmoothingModeAntiAlias);
    const auto w = static_cast<REAL>(cx);
    const auto h = static_cast<REAL>(cy);
    const Gdiplus::SolidBrush sky(Color(0x9F, 0xD0, 0xF5));
    const Gdiplus::SolidBrush sun(Color(0xFF, 0xD2, 0x4A));
    const Gdiplus::SolidBrush farHill(Color(0x6F, 0xA8, 0x5B));
    const Gdiplus::SolidBrush nearHill(Color(0x4B, 0x86, 0x43));
    graphics.FillRectangle(&sky, 0.0f, 0.0f, w, h);
    graphics.FillEllipse(&sun, w * 0.66f, h * 0.14f, h * 0.3f, h * 0.3f);
    graphics.FillEllipse(&farHill, w * 0.3f, h * 0.5f, w, h);
    graphics.FillEllipse(&nearHill, -w * 0.35f, h * 0.58f, w, h);
    HBITMAP hbm = nullptr;
    bitmap.GetHBITMAP(Color(0, 0, 0), &hbm);
    return hbm;
}

HICON DrawSketchIcon(int nSize)
{
    const int nBar = nSize / 8;
    const int nMiddle = nSize / 2;
    ICONINFO info{TRUE, 0, 0, nullptr, nullptr};
    info.hbmMask = MonoBitmap(nSize, nSize, WHITENESS, [&](HDC hdc) {
        SelectObject(hdc, GetStockObject(BLACK_BRUSH));
        Ellipse(hdc, 0, 0, nSize, nSize);
    });
    info.hbmColor = MonoBitmap(nSize, nSize, BLACKNESS, [&](HDC hdc) {
        PatBlt(hdc, nMiddle - nBar / 2, nSize / 4 - nBar / 2, nBar, nBar, WHITENESS);
        PatBlt(hdc, nMiddle - nBar / 2, nSize / 4 + nBar, nBar, nMiddle - nBar, WHITENESS);
    });
    const HICON hIcon = CreateIconIndirect(&info);
    DeleteObject(info.hbmMask);
    DeleteObject(info.hbmColor);
    return hIcon;
}

HBITMAP DrawSketch(int cx, int cy)
{
    return MonoBitmap(cx, cy, WHITENESS, [&](HDC hdc) {
        SelectObject(hdc, GetStockObject(NULL_BRUSH));
        Rectangle(hdc, 0, 0, cx, cy);
        Ellipse(hdc, cx * 2 / 3, cy / 7, cx * 2 / 3 + cy / 3, cy / 7 + cy / 3);
        Arc(hdc, cx * 3 / 10, cy / 2, cx * 13 / 10, cy * 3 / 2, cx, cy, cx * 3 / 10, cy);
        Arc(hdc, -cx / 3, cy * 6 / 10, cx * 2 / 3, cy * 16 / 10, cx * 2 / 3, cy, 0, cy);
    });
}

// What was made before with the same arguments.
template <class HANDLE, class... ARGUMENTS>
HANDLE Kept(HANDLE (*pfnMake)(ARGUMENTS...), std::type_identity_t<ARGUMENTS>... arguments)
{
    static std::map<std::tuple<HANDLE (*)(ARGUMENTS...), ARGUMENTS...>, HANDLE> s_made;
    HANDLE& handle = s_made[{pfnMake, arguments...}];
    if (!handle) {
        handle = pfnMake(arguments...);
    }
    return handle;
}

} // namespace

HICON IconOf(Glyph glyph, int nSize)
{
    return Kept(&DrawIcon, glyph, nSize);
}

HBITMAP LandscapeBitmap(int cx, int cy)
{
    return Kept(&DrawLandscape, cx, cy);
}

HICON SketchIcon(int nSize)
{
    return Kept(&DrawSketchIcon, nSize);
}

HBITMAP SketchBitmap(int cx, int cy)
{
    return Kept(&DrawSketch, cx, cy);
}

} // namespace gallery
