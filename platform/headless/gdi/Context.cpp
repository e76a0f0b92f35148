#include "Context.h"

#include "../core/Accounting.h"
#include "../core/Faults.h"
#include "../core/TableLock.h"
#include "DeviceContext.h"

#include <algorithm>
#include <set>

namespace gesso::headless {
namespace {

std::vector<HDC>& Contexts()
{
    static std::vector<HDC> s_contexts;
    return s_contexts;
}

// What the program has deleted while a context held it.
std::set<HGDIOBJ>& Doomed()
{
    static std::set<HGDIOBJ> s_doomed;
    return s_doomed;
}

HDC AddContext(std::unique_ptr<Context> context)
{
    const TableLock lock;
    const auto hdc = static_cast<HDC>(AddObject(std::move(context)));
    Contexts().push_back(hdc);
    return hdc;
}

void RemoveContext(HDC hdc)
{
    const TableLock lock;
    std::erase(Contexts(), hdc);
    RemoveObject(hdc);
    RemoveReleased();
}

// The rectangle with its corner at another place.
RECT Moved(const RECT& r, const POINT& corner)
{
    return {corner.x, corner.y, Saturated(int64_t{corner.x} + r.right - r.left),
            Saturated(int64_t{corner.y} + r.bottom - r.top)};
}

// A pixel that is multiplied by its opacity, over another one.
DWORD Blended(DWORD over, DWORD below)
{
    const DWORD shows = 255 - (over >> 24);
    DWORD result = 0;
    for (int shift = 0; shift < 32; shift += 8) {
        const DWORD sum = (over >> shift & 0xFF) + ((below >> shift & 0xFF) * shows + 127) / 255;
        result |= std::min<DWORD>(sum, 255) << shift;
    }
    return result;
}

bool Holds(const ContextState& state, HGDIOBJ object)
{
    return state.pen == object || state.brush == object || state.font == object || state.bitmap == object;
}

} // namespace

ContextState::ContextState()
    : pen(static_cast<HPEN>(GetStockObject(BLACK_PEN))),
      brush(static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH))),
      font(static_cast<HFONT>(GetStockObject(SYSTEM_FONT)))
{}

// In a mirrored context the window's origin counts the other way.
POINT Context::WindowOrigin() const
{
    return {IsMirrored() ? Saturated(-int64_t{state.windowOrigin.x}) : state.windowOrigin.x,
            state.windowOrigin.y};
}

POINT Context::ToDevice(POINT p) const
{
    return Sum(Difference(p, WindowOrigin()), state.viewportOrigin);
}

POINT Context::ToLogical(POINT p) const
{
    return Difference(Sum(p, WindowOrigin()), state.viewportOrigin);
}

RECT Context::ToDevice(const RECT& r) const
{
    return Moved(r, ToDevice(Corner(r)));
}

RECT Context::ToLogical(const RECT& r) const
{
    return Moved(r, ToLogical(Corner(r)));
}

void Context::SetLayout(DWORD layout)
{
    const bool former = IsMirrored();
    state.layout = layout;
    if (former != IsMirrored() && state.clip) {
        state.clip->Mirror(Bounds().right);
    }
}

POINT Context::OnSurface(POINT device) const
{
    return IsMirrored() ? Mirrored(int64_t{Bounds().right} - 1, device) : device;
}

RECT Context::OnSurface(const RECT& device) const
{
    return IsMirrored() ? Mirrored(Bounds().right, device) : device;
}

RECT Context::Bounds() const
{
    const auto* bitmap = Find<Bitmap>(state.bitmap);
    return bitmap ? RECT{0, 0, bitmap->width, bitmap->height} : RECT{0, 0, size.cx, size.cy};
}

Area Context::Reach() const
{
    Area reach(Bounds());
    if (visible) {
        Area shown = *visible;
        if (mirroredWindow != IsMirrored()) {
            shown.Mirror(Bounds().right);
        }
        reach.Intersect(shown);
    }
    if (state.clip) {
        reach.Intersect(*state.clip);
    }
    return reach;
}

Context* FindContext(HDC hdc)
{
    auto* context = Find<Context>(hdc);
    if (!context) {
        SetLastError(ERROR_INVALID_HANDLE);
    }
    return context;
}

bool IsSelected(HGDIOBJ object)
{
    const TableLock lock;
    return std::any_of(Contexts().begin(), Contexts().end(), [object](HDC hdc) {
        const auto* context = Find<Context>(hdc);
        return Holds(context->state, object) ||
               std::any_of(context->saved.begin(), context->saved.end(),
                           [object](const ContextState& state) { return Holds(state, object); });
    });
}

bool RemoveOnceReleased(HGDIOBJ object)
{
    const TableLock lock;
    if (!IsSelected(object)) {
        return RemoveObject(object);
    }
    return Doomed().insert(object).second;
}

bool IsDoomed(HGDIOBJ object)
{
    const TableLock lock;
    return Doomed().contains(object);
}

void RemoveReleased()
{
    const TableLock lock;
    std::erase_if(Doomed(), [](HGDIOBJ object) { return !IsSelected(object) && RemoveObject(object); });
}

HDC CreateWindowContext(HWND hwnd, SIZE size, bool wholeWindow, DWORD layout)
{
    auto context = std::make_unique<Context>();
    context->window = hwnd;
    context->wholeWindow = wholeWindow;
    context->size = size;
    context->state.layout = layout;
    context->mirroredWindow = context->IsMirrored();
    return AddContext(std::move(context));
}

void DeleteWindowContext(HDC hdc)
{
    RemoveContext(hdc);
}

HWND WindowOfContext(HDC hdc)
{
    const auto* context = Find<Context>(hdc);
    return context ? context->window : nullptr;
}

void SetVisibleArea(HDC hdc, const Area& area)
{
    if (auto* context = FindContext(hdc)) {
        context->visible = area;
    }
}

void SetPixels(HDC hdc, const RECT& rect, DWORD value)
{
    const Context* context = FindContext(hdc);
    auto* bitmap = context ? Find<Bitmap>(context->state.bitmap) : nullptr;
    if (!bitmap || bitmap->pixels.empty() || bitmap->bits != 32) {
        return;
    }
    RECT inside;
    const RECT bounds = context->Bounds();
    const RECT device = context->OnSurface(context->ToDevice(rect));
    IntersectRect(&inside, &bounds, &device);
    auto* pixels = reinterpret_cast<DWORD*>(bitmap->pixels.data());
    for (LONG y = inside.top; y < inside.bottom; ++y) {
        std::fill_n(pixels + ptrdiff_t{y} * bitmap->width + inside.left, inside.right - inside.left, value);
    }
}

void BlendPixels(HDC hdc, const RECT& rect, const DWORD* from, int stride, bool opaque)
{
    const Context* context = FindContext(hdc);
    auto* bitmap = context ? Find<Bitmap>(context->state.bitmap) : nullptr;
    if (!bitmap || bitmap->pixels.empty() || bitmap->bits != 32) {
        return;
    }
    auto* pixels = reinterpret_cast<DWORD*>(bitmap->pixels.data());
    const RECT bounds = context->Bounds();
    for (LONG y = rect.top; y < rect.bottom; ++y) {
        for (LONG x = rect.left; x < rect.right; ++x) {
            const POINT at = context->OnSurface(context->ToDevice(POINT{x, y}));
            if (PtInRect(&bounds, at)) {
                DWORD& to = pixels[ptrdiff_t{at.y} * bitmap->width + at.x];
                const DWORD pixel = from[ptrdiff_t{y - rect.top} * stride + x - rect.left];
                to = opaque ? pixel : Blended(pixel, to);
            }
        }
    }
}

} // namespace gesso::headless

using namespace gesso::headless;

// Of a bitmap that has pixels of 32 bits; nothing else can tell.
COLORREF WINAPI GetPixel(HDC hdc, INT x, INT y)
{
    const Context* context = FaultFires("GetPixel") ? nullptr : FindContext(hdc);
    const auto* bitmap = context ? Find<Bitmap>(context->state.bitmap) : nullptr;
    if (!bitmap || bitmap->pixels.empty() || bitmap->bits != 32) {
        return CLR_INVALID;
    }
    const POINT pt = context->OnSurface(context->ToDevice(POINT{x, y}));
    const RECT bounds = context->Bounds();
    if (!PtInRect(&bounds, pt)) {
        return CLR_INVALID;
    }
    const auto* pixels = reinterpret_cast<const DWORD*>(bitmap->pixels.data());
    const DWORD value = pixels[ptrdiff_t{pt.y} * bitmap->width + pt.x];
    return RGB(GetBValue(value), GetGValue(value), GetRValue(value));
}

HDC WINAPI CreateCompatibleDC(HDC)
{
    if (FaultFires("CreateCompatibleDC")) {
        return nullptr;
    }
    auto context = std::make_unique<Context>();
    context->state.bitmap = DefaultBitmap();
    return AddContext(std::move(context));
}

BOOL WINAPI DeleteDC(HDC hdc)
{
    if (FaultFires("DeleteDC")) {
        return FALSE;
    }
    const Context* context = FindContext(hdc);
    if (!context || !context->IsMemory()) {
        return FALSE; // a window's context is released, not deleted
    }
    RemoveContext(hdc);
    return TRUE;
}

INT WINAPI SaveDC(HDC hdc)
{
    if (FaultFires("SaveDC")) {
        return 0;
    }
    const TableLock lock;
    Context* context = FindContext(hdc);
    if (!context) {
        return 0;
    }
    context->saved.push_back(context->state);
    return static_cast<INT>(context->saved.size());
}

BOOL WINAPI RestoreDC(HDC hdc, INT level)
{
    if (FaultFires("RestoreDC")) {
        return FALSE;
    }
    const TableLock lock;
    Context* context = FindContext(hdc);
    const INT depth = context ? static_cast<INT>(context->saved.size()) : 0;
    const INT index = level < 0 ? depth + level : level - 1;
    if (level == 0 || index < 0 || index >= depth) {
        return FALSE;
    }
    context->state = context->saved[static_cast<size_t>(index)];
    context->saved.erase(context->saved.begin() + index, context->saved.end());
    RemoveReleased();
    return TRUE;
}
