// The drawing operations of shapes, fills and blits. Nothing is painted: each is recorded with its arguments.
#include "../core/Faults.h"
#include "../core/TableLock.h"
#include "DeviceContext.h"
#include "FontMetrics.h"
#include "Record.h"

#include <utility>

using namespace gesso::headless;

namespace {

// A brush handle may also be a system colour's index and one.
HBRUSH ResolveBrush(HBRUSH brush)
{
    const auto value = reinterpret_cast<uintptr_t>(brush);
    return value != 0 && value <= COLOR_MENUBAR + 1 ? GetSysColorBrush(static_cast<INT>(value) - 1) : brush;
}

// CLR_INVALID of a brush that is not solid.
COLORREF SolidColor(HDC hdc, HBRUSH handle)
{
    const auto* context = Find<Context>(hdc);
    const auto* brush = Find<Brush>(handle);
    if (!context || !brush) {
        return CLR_INVALID;
    }
    if (handle == GetStockObject(DC_BRUSH)) {
        return context->state.brushColor;
    }
    return brush->systemColor >= 0          ? GetSysColor(brush->systemColor)
           : brush->log.lbStyle == BS_SOLID ? brush->log.lbColor
                                            : COLORREF{CLR_INVALID};
}

// Whether a rectangle covers all of a memory context's bitmap, with nothing clipped away.
bool CoversBitmap(const Context& context, const RECT& rect)
{
    const RECT area = context.ToDevice(rect);
    const RECT bounds = context.Bounds();
    return context.IsMemory() && !context.state.clip && area.left <= bounds.left && area.top <= bounds.top &&
           area.right >= bounds.right && area.bottom >= bounds.bottom;
}

// Of a solid brush what a bitmap with pixels has then.
void FillPixels(HDC hdc, const RECT& rect, HBRUSH brush)
{
    const COLORREF color = SolidColor(hdc, brush);
    if (color != CLR_INVALID) {
        SetPixels(hdc, rect, RGB(GetBValue(color), GetGValue(color), GetRValue(color)));
    }
}

BOOL RecordFill(HDC hdc, Operation operation, const RECT* rect, HBRUSH brush)
{
    if (FaultFires(operation) || !FindContext(hdc)) {
        return FALSE;
    }
    Line(hdc, operation.Name()).Put(*rect).Put(ResolveBrush(brush));
    return TRUE;
}

std::string_view RopName(DWORD rop)
{
    switch (rop) {
    case SRCCOPY: return "SRCCOPY";
    case SRCPAINT: return "SRCPAINT";
    case SRCAND: return "SRCAND";
    case SRCINVERT: return "SRCINVERT";
    case PATCOPY: return "PATCOPY";
    case PATINVERT: return "PATINVERT";
    case DSTINVERT: return "DSTINVERT";
    case BLACKNESS: return "BLACKNESS";
    case WHITENESS: return "WHITENESS";
    default: return "rop";
    }
}

// The width of an edge is one pixel for each of its inner and outer part.
int EdgeWidth(UINT edge)
{
    return ((edge & BDR_OUTER) != 0 ? 1 : 0) + ((edge & BDR_INNER) != 0 ? 1 : 0);
}

void InsetByEdge(RECT& rect, UINT edge, UINT flags)
{
    const int width = flags & (BF_MONO | BF_FLAT) ? 1 : EdgeWidth(edge);
    rect.left = Wrapped(int64_t{rect.left} + (flags & BF_LEFT ? width : 0));
    rect.top = Wrapped(int64_t{rect.top} + (flags & BF_TOP ? width : 0));
    rect.right = Wrapped(int64_t{rect.right} - (flags & BF_RIGHT ? width : 0));
    rect.bottom = Wrapped(int64_t{rect.bottom} - (flags & BF_BOTTOM ? width : 0));
}

} // namespace

int WINAPI FillRect(HDC hdc, const RECT* rect, HBRUSH brush)
{
    if (!RecordFill(hdc, "FillRect", rect, brush)) {
        return FALSE;
    }
    FillPixels(hdc, *rect, ResolveBrush(brush));
    return TRUE;
}

int WINAPI FrameRect(HDC hdc, const RECT* rect, HBRUSH brush)
{
    return RecordFill(hdc, "FrameRect", rect, brush);
}

BOOL WINAPI InvertRect(HDC hdc, const RECT* rect)
{
    if (!FindContext(hdc)) {
        return FALSE;
    }
    Line(hdc, "InvertRect").Put(*rect);
    return TRUE;
}

BOOL WINAPI DrawFocusRect(HDC hdc, const RECT* rect)
{
    if (FaultFires("DrawFocusRect") || !FindContext(hdc)) {
        return FALSE;
    }
    Line(hdc, "DrawFocusRect").Put(*rect);
    return TRUE;
}

BOOL WINAPI DrawEdge(HDC hdc, LPRECT rect, UINT edge, UINT flags)
{
    if (FaultFires("DrawEdge") || !FindContext(hdc)) {
        return FALSE;
    }
    Line(hdc, "DrawEdge").Put(*rect).Hex(edge).Hex(flags);
    if (flags & BF_ADJUST) {
        InsetByEdge(*rect, edge, flags);
    }
    return TRUE;
}

BOOL WINAPI DrawFrameControl(HDC hdc, LPRECT rect, UINT type, UINT state)
{
    if (FaultFires("DrawFrameControl")) {
        return FALSE;
    }
    if (!FindContext(hdc)) {
        return FALSE;
    }
    Line(hdc, "DrawFrameControl").Put(*rect).Hex(type).Hex(state);
    return TRUE;
}

BOOL WINAPI Rectangle(HDC hdc, INT left, INT top, INT right, INT bottom)
{
    if (!FindContext(hdc)) {
        return FALSE;
    }
    Line(hdc, "Rectangle").Put(RECT{left, top, right, bottom}).SelectedPen().SelectedBrush();
    return TRUE;
}

BOOL WINAPI MoveToEx(HDC hdc, INT x, INT y, LPPOINT former)
{
    if (FaultFires("MoveToEx")) {
        return FALSE;
    }
    Context* context = FindContext(hdc);
    if (!context) {
        return FALSE;
    }
    const POINT old = std::exchange(context->state.position, POINT{x, y});
    if (former) {
        *former = old;
    }
    return TRUE;
}

BOOL WINAPI LineTo(HDC hdc, INT x, INT y)
{
    if (FaultFires("LineTo")) {
        return FALSE;
    }
    Context* context = FindContext(hdc);
    if (!context) {
        return FALSE;
    }
    const POINT from = std::exchange(context->state.position, POINT{x, y});
    Line(hdc, "LineTo").Put(from).Put(POINT{x, y}).SelectedPen();
    return TRUE;
}

BOOL WINAPI PatBlt(HDC hdc, INT x, INT y, INT cx, INT cy, DWORD rop)
{
    const TableLock lock;
    if (FaultFires("PatBlt")) {
        return FALSE;
    }
    Context* context = FindContext(hdc);
    if (!context) {
        return FALSE;
    }
    auto* lines = DrawingOf(*context);
    if (rop == BLACKNESS && lines && CoversBitmap(*context, Spanned(x, y, cx, cy))) {
        lines->clear(); // black as a new bitmap is, whatever it showed
        return TRUE;
    }
    Line(hdc, "PatBlt").Size(x, y, cx, cy).SelectedBrush().Word(RopName(rop));
    return TRUE;
}

BOOL WINAPI BitBlt(HDC hdc, INT x, INT y, INT cx, INT cy, HDC from, INT fromX, INT fromY, DWORD rop)
{
    if (FaultFires("BitBlt") || !FindContext(hdc) || !FindContext(from)) {
        return FALSE;
    }
    JoinDrawing(hdc, from);
    Line(hdc, "BitBlt").Size(x, y, cx, cy).Word("from").Put(POINT{fromX, fromY}).Word(RopName(rop));
    return TRUE;
}

// What is drawn into the source joins the target, where it shows as much as the opacity lets it. Pixels of
// the source that have an opacity of their own go where the target has pixels, in their own size.
BOOL WINAPI GdiAlphaBlend(HDC hdc, INT x, INT y, INT cx, INT cy, HDC from, INT fromX, INT fromY, INT fromCx,
                          INT fromCy, BLENDFUNCTION blend)
{
    if (FaultFires("GdiAlphaBlend") || !FindContext(hdc) || !FindContext(from)) {
        return FALSE;
    }
    JoinDrawing(hdc, from);
    Line(hdc, "GdiAlphaBlend")
        .Size(x, y, cx, cy)
        .Word("from")
        .Size(fromX, fromY, fromCx, fromCy)
        .Number(blend.SourceConstantAlpha);
    const Context* source = FindContext(from);
    const auto* bitmap = Find<Bitmap>(source->state.bitmap);
    const RECT bounds = source->Bounds();
    const RECT part = Spanned(fromX, fromY, fromCx, fromCy);
    RECT inside;
    const bool whole = IntersectRect(&inside, &bounds, &part) && EqualRect(&inside, &part);
    if (blend.AlphaFormat == AC_SRC_ALPHA && whole && bitmap && !bitmap->pixels.empty() && cx == fromCx &&
        cy == fromCy)
    {
        const auto* pixels = reinterpret_cast<const DWORD*>(bitmap->pixels.data());
        BlendPixels(hdc, Spanned(x, y, cx, cy), pixels + ptrdiff_t{fromY} * bitmap->width + fromX,
                    bitmap->width, false);
    }
    return TRUE;
}

// Of pixels of 32 bits, top down and all rows of them; the first one tells the record which picture it was.
INT WINAPI SetDIBitsToDevice(HDC hdc, INT x, INT y, DWORD cx, DWORD cy, INT fromX, INT fromY, UINT,
                             UINT lines, LPCVOID bits, const BITMAPINFO* info, UINT)
{
    if (FaultFires("SetDIBitsToDevice") || !FindContext(hdc)) {
        return 0;
    }
    const int stride = info->bmiHeader.biWidth;
    const DWORD* pixels = static_cast<const DWORD*>(bits) + ptrdiff_t{fromY} * stride + fromX;
    const RECT rect = Spanned(x, y, static_cast<int>(cx), static_cast<int>(cy));
    Line(hdc, "SetDIBitsToDevice").Put(rect).Hex(*pixels & 0xFFFFFF);
    BlendPixels(hdc, rect, pixels, stride, true);
    return static_cast<INT>(lines);
}

BOOL WINAPI GdiFlush()
{
    if (FaultFires("GdiFlush")) {
        return FALSE;
    }
    return TRUE;
}

BOOL WINAPI TextOutW(HDC hdc, INT x, INT y, LPCWSTR text, INT count)
{
    if (FaultFires("TextOutW")) {
        return FALSE;
    }
    if (!FindContext(hdc)) {
        return FALSE;
    }
    Line(hdc, "TextOutW").Text(text, count).Put(POINT{x, y}).TextState();
    return TRUE;
}
