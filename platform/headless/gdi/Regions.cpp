// Regions, and the clipping of device contexts by them.
#include "../core/Faults.h"
#include "Context.h"

#include <algorithm>

using namespace gesso::headless;

namespace {

uint64_t Extent(const RECT& r)
{
    const auto cx = static_cast<uint64_t>(int64_t{r.right} - r.left);
    return cx * static_cast<uint64_t>(int64_t{r.bottom} - r.top);
}

// NULLREGION, SIMPLEREGION or COMPLEXREGION: an area is simple if it fills its bounds, in however many
// pieces.
INT Complexity(const Area& area)
{
    if (area.IsEmpty()) {
        return NULLREGION;
    }
    uint64_t filled = 0;
    for (const RECT& rect : area.Rects()) {
        filled += Extent(rect);
    }
    return filled == Extent(area.Bounds()) ? SIMPLEREGION : COMPLEXREGION;
}

// The corners of a region may be given in any order.
RECT Ordered(INT left, INT top, INT right, INT bottom)
{
    return {std::min(left, right), std::min(top, bottom), std::max(left, right), std::max(top, bottom)};
}

Region* FindRegion(HRGN handle)
{
    auto* region = Find<Region>(handle);
    if (!region) {
        SetLastError(ERROR_INVALID_HANDLE);
    }
    return region;
}

Area Combined(Area a, const Area& b, INT mode)
{
    switch (mode) {
    case RGN_AND: a.Intersect(b); break;
    case RGN_OR: a.Add(b); break;
    case RGN_DIFF: a.Subtract(b); break;
    case RGN_XOR: {
        Area both = a;
        both.Intersect(b);
        a.Add(b);
        a.Subtract(both);
        break;
    }
    default: break; // RGN_COPY
    }
    return a;
}

// The clip region to change: without one, everything that the context draws into.
Area ClipOf(const Context& context)
{
    return context.state.clip.value_or(Area(context.Bounds()));
}

INT SetClip(Context& context, const Area& clip)
{
    context.state.clip = clip;
    return Complexity(context.Reach());
}

} // namespace

HRGN WINAPI CreateRectRgn(INT left, INT top, INT right, INT bottom)
{
    return FaultFires("CreateRectRgn") ? nullptr
                                       : MakeObject<HRGN, Region>(Area(Ordered(left, top, right, bottom)));
}

BOOL WINAPI SetRectRgn(HRGN handle, INT left, INT top, INT right, INT bottom)
{
    Region* region = FindRegion(handle);
    if (!region) {
        return FALSE;
    }
    region->area = Area(Ordered(left, top, right, bottom));
    return TRUE;
}

INT WINAPI CombineRgn(HRGN target, HRGN first, HRGN second, INT mode)
{
    if (FaultFires("CombineRgn")) {
        return ERROR;
    }
    Region* to = FindRegion(target);
    const Region* a = FindRegion(first);
    const Region* b = mode == RGN_COPY ? a : FindRegion(second);
    if (!to || !a || !b) {
        return ERROR;
    }
    to->area = Combined(a->area, b->area, mode);
    return Complexity(to->area);
}

INT WINAPI OffsetRgn(HRGN handle, INT dx, INT dy)
{
    if (FaultFires("OffsetRgn")) {
        return ERROR;
    }
    Region* region = FindRegion(handle);
    if (!region) {
        return ERROR;
    }
    region->area.Offset(dx, dy);
    return Complexity(region->area);
}

BOOL WINAPI PtInRegion(HRGN handle, INT x, INT y)
{
    const Region* region = FindRegion(handle);
    return region && region->area.Contains({x, y});
}

INT WINAPI GetRgnBox(HRGN handle, LPRECT box)
{
    const Region* region = FindRegion(handle);
    if (!region) {
        return ERROR;
    }
    *box = region->area.Bounds();
    return Complexity(region->area);
}

BOOL WINAPI EqualRgn(HRGN first, HRGN second)
{
    const Region* a = FindRegion(first);
    const Region* b = FindRegion(second);
    return a && b && Combined(a->area, b->area, RGN_XOR).IsEmpty();
}

INT WINAPI SelectClipRgn(HDC hdc, HRGN handle)
{
    if (FaultFires("SelectClipRgn")) {
        return ERROR;
    }
    return ExtSelectClipRgn(hdc, handle, RGN_COPY);
}

INT WINAPI ExtSelectClipRgn(HDC hdc, HRGN handle, INT mode)
{
    Context* context = FindContext(hdc);
    if (!context) {
        return ERROR;
    }
    if (!handle && mode == RGN_COPY) {
        context->state.clip.reset();
        return Complexity(context->Reach());
    }
    const Region* region = FindRegion(handle);
    if (!region) {
        return ERROR;
    }
    const Area clip = mode == RGN_COPY ? region->area : Combined(ClipOf(*context), region->area, mode);
    return SetClip(*context, clip);
}

INT WINAPI IntersectClipRect(HDC hdc, INT left, INT top, INT right, INT bottom)
{
    if (FaultFires("IntersectClipRect")) {
        return ERROR;
    }
    Context* context = FindContext(hdc);
    if (!context) {
        return ERROR;
    }
    Area clip = ClipOf(*context);
    clip.Intersect(context->ToDevice(Ordered(left, top, right, bottom)));
    return SetClip(*context, clip);
}

INT WINAPI ExcludeClipRect(HDC hdc, INT left, INT top, INT right, INT bottom)
{
    if (FaultFires("ExcludeClipRect")) {
        return ERROR;
    }
    Context* context = FindContext(hdc);
    if (!context) {
        return ERROR;
    }
    Area clip = ClipOf(*context);
    clip.Subtract(context->ToDevice(Ordered(left, top, right, bottom)));
    return SetClip(*context, clip);
}

INT WINAPI GetClipBox(HDC hdc, LPRECT box)
{
    if (FaultFires("GetClipBox")) {
        return ERROR;
    }
    const Context* context = FindContext(hdc);
    if (!context) {
        return ERROR;
    }
    const Area reach = context->Reach();
    *box = context->ToLogical(reach.Bounds());
    return Complexity(reach);
}

BOOL WINAPI PtVisible(HDC hdc, INT x, INT y)
{
    const Context* context = FindContext(hdc);
    return context && context->Reach().Contains(context->ToDevice(POINT{x, y}));
}
