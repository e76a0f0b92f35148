// What a program selects and sets in a device context.
#include "../core/Faults.h"
#include "../core/TableLock.h"
#include "Context.h"

#include <algorithm>
#include <utility>

using namespace gesso::headless;

namespace {

// Exchanges one field of the context; `failure` for a stale handle.
template <typename VALUE> VALUE Exchange(HDC hdc, VALUE ContextState::*field, VALUE value, VALUE failure)
{
    Context* context = FindContext(hdc);
    return context ? std::exchange(context->state.*field, value) : failure;
}

BOOL ExchangePoint(HDC hdc, POINT ContextState::*field, POINT value, LPPOINT former)
{
    Context* context = FindContext(hdc);
    if (!context) {
        return FALSE;
    }
    const POINT old = std::exchange(context->state.*field, value);
    if (former) {
        *former = old;
    }
    return TRUE;
}

POINT Moved(HDC hdc, POINT ContextState::*field, int dx, int dy)
{
    const auto* context = Find<Context>(hdc);
    const POINT from = context ? context->state.*field : POINT{};
    return Sum(from, {dx, dy});
}

template <typename VALUE> VALUE Get(HDC hdc, VALUE ContextState::*field, VALUE failure)
{
    const Context* context = FindContext(hdc);
    return context ? context->state.*field : failure;
}

// A bitmap goes into one memory context at a time.
HGDIOBJ PutBitmap(Context& context, HBITMAP bitmap)
{
    const bool elsewhere = bitmap != context.state.bitmap && bitmap != DefaultBitmap() && IsSelected(bitmap);
    if (!context.IsMemory() || elsewhere) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    return std::exchange(context.state.bitmap, bitmap);
}

template <typename HANDLE_TYPE>
HGDIOBJ Put(HANDLE_TYPE ContextState::*field, Context& context, HGDIOBJ handle)
{
    const HGDIOBJ former = std::exchange(context.state.*field, static_cast<HANDLE_TYPE>(handle));
    RemoveReleased();
    return former;
}

HGDIOBJ SelectRegion(HDC hdc, HGDIOBJ region)
{
    const CallsBy platform(Caller::Platform);
    return reinterpret_cast<HGDIOBJ>(static_cast<uintptr_t>(SelectClipRgn(hdc, static_cast<HRGN>(region))));
}

} // namespace

HGDIOBJ WINAPI SelectObject(HDC hdc, HGDIOBJ handle)
{
    const TableLock lock;
    if (FaultFires("SelectObject")) {
        return nullptr;
    }
    Context* context = FindContext(hdc);
    const Object* object = FindObject(handle);
    if (!context || !object || IsDoomed(handle)) {
        SetLastError(ERROR_INVALID_HANDLE);
        return nullptr;
    }
    switch (object->kind) {
    case Kind::Pen: return Put(&ContextState::pen, *context, handle);
    case Kind::Brush: return Put(&ContextState::brush, *context, handle);
    case Kind::Font: return Put(&ContextState::font, *context, handle);
    case Kind::Bitmap: return PutBitmap(*context, static_cast<HBITMAP>(handle));
    case Kind::Region: return SelectRegion(hdc, handle);
    default: SetLastError(ERROR_INVALID_HANDLE); return nullptr;
    }
}

HGDIOBJ WINAPI GetCurrentObject(HDC hdc, UINT type)
{
    const Context* context = FaultFires("GetCurrentObject") ? nullptr : FindContext(hdc);
    switch (context ? type : 0) {
    case OBJ_PEN: return context->state.pen;
    case OBJ_BRUSH: return context->state.brush;
    case OBJ_FONT: return context->state.font;
    case OBJ_BITMAP: return context->state.bitmap;
    default: return nullptr;
    }
}

COLORREF WINAPI SetTextColor(HDC hdc, COLORREF color)
{
    if (FaultFires("SetTextColor")) {
        return COLORREF{CLR_INVALID};
    }
    return Exchange(hdc, &ContextState::textColor, color, COLORREF{CLR_INVALID});
}

COLORREF WINAPI GetTextColor(HDC hdc)
{
    if (FaultFires("GetTextColor")) {
        return COLORREF{CLR_INVALID};
    }
    return Get(hdc, &ContextState::textColor, COLORREF{CLR_INVALID});
}

COLORREF WINAPI SetBkColor(HDC hdc, COLORREF color)
{
    return Exchange(hdc, &ContextState::backColor, color, COLORREF{CLR_INVALID});
}

COLORREF WINAPI SetDCBrushColor(HDC hdc, COLORREF color)
{
    if (FaultFires("SetDCBrushColor")) {
        return COLORREF{CLR_INVALID};
    }
    return Exchange(hdc, &ContextState::brushColor, color, COLORREF{CLR_INVALID});
}

INT WINAPI SetBkMode(HDC hdc, INT mode)
{
    if (FaultFires("SetBkMode")) {
        return 0;
    }
    return mode == OPAQUE || mode == TRANSPARENT ? Exchange(hdc, &ContextState::backMode, mode, 0) : 0;
}

UINT WINAPI SetTextAlign(HDC hdc, UINT align)
{
    return Exchange(hdc, &ContextState::textAlign, align, UINT{GDI_ERROR});
}

UINT WINAPI GetTextAlign(HDC hdc)
{
    if (FaultFires("GetTextAlign")) {
        return UINT{GDI_ERROR};
    }
    return Get(hdc, &ContextState::textAlign, UINT{GDI_ERROR});
}

INT WINAPI GetBkMode(HDC hdc)
{
    return Get(hdc, &ContextState::backMode, 0);
}

BOOL WINAPI SetWindowOrgEx(HDC hdc, INT x, INT y, LPPOINT former)
{
    if (FaultFires("SetWindowOrgEx")) {
        return FALSE;
    }
    return ExchangePoint(hdc, &ContextState::windowOrigin, {x, y}, former);
}

BOOL WINAPI OffsetWindowOrgEx(HDC hdc, INT dx, INT dy, LPPOINT former)
{
    if (FaultFires("OffsetWindowOrgEx")) {
        return FALSE;
    }
    return ExchangePoint(hdc, &ContextState::windowOrigin, Moved(hdc, &ContextState::windowOrigin, dx, dy),
                         former);
}

BOOL WINAPI SetViewportOrgEx(HDC hdc, INT x, INT y, LPPOINT former)
{
    if (FaultFires("SetViewportOrgEx")) {
        return FALSE;
    }
    return ExchangePoint(hdc, &ContextState::viewportOrigin, {x, y}, former);
}

BOOL WINAPI OffsetViewportOrgEx(HDC hdc, INT dx, INT dy, LPPOINT former)
{
    if (FaultFires("OffsetViewportOrgEx")) {
        return FALSE;
    }
    return ExchangePoint(hdc, &ContextState::viewportOrigin,
                         Moved(hdc, &ContextState::viewportOrigin, dx, dy), former);
}

BOOL WINAPI GetViewportOrgEx(HDC hdc, LPPOINT origin)
{
    *origin = Get(hdc, &ContextState::viewportOrigin, POINT{});
    return Find<Context>(hdc) != nullptr;
}

BOOL WINAPI LPtoDP(HDC hdc, LPPOINT points, INT count)
{
    const Context* context = FaultFires("LPtoDP") ? nullptr : FindContext(hdc);
    if (!context) {
        return FALSE;
    }
    std::transform(points, points + count, points,
                   [context](POINT p) { return context->OnSurface(context->ToDevice(p)); });
    return TRUE;
}

BOOL WINAPI DPtoLP(HDC hdc, LPPOINT points, INT count)
{
    const Context* context = FaultFires("DPtoLP") ? nullptr : FindContext(hdc);
    if (!context) {
        return FALSE;
    }
    std::transform(points, points + count, points,
                   [context](POINT p) { return context->ToLogical(context->OnSurface(p)); });
    return TRUE;
}

DWORD WINAPI GetLayout(HDC hdc)
{
    if (FaultFires("GetLayout")) {
        return DWORD{GDI_ERROR};
    }
    return Get(hdc, &ContextState::layout, DWORD{GDI_ERROR});
}

DWORD WINAPI SetLayout(HDC hdc, DWORD layout)
{
    if (FaultFires("SetLayout")) {
        return DWORD{GDI_ERROR};
    }
    Context* context = FindContext(hdc);
    const DWORD former = Get(hdc, &ContextState::layout, DWORD{GDI_ERROR});
    if (context) {
        context->SetLayout(layout);
    }
    return former;
}

INT WINAPI GetMapMode(HDC hdc)
{
    if (FaultFires("GetMapMode")) {
        return 0;
    }
    const Context* context = FindContext(hdc);
    return !context ? 0 : context->IsMirrored() ? MM_ANISOTROPIC : MM_TEXT;
}

INT WINAPI GetGraphicsMode(HDC hdc)
{
    if (FaultFires("GetGraphicsMode")) {
        return 0;
    }
    return FindContext(hdc) ? GM_COMPATIBLE : 0;
}

INT WINAPI GetDeviceCaps(HDC, INT index)
{
    if (FaultFires("GetDeviceCaps")) {
        return 0;
    }
    switch (index) {
    case LOGPIXELSX:
    case LOGPIXELSY: return static_cast<INT>(GetDpiForSystem());
    case HORZRES: return GetSystemMetrics(SM_CXSCREEN);
    case VERTRES: return GetSystemMetrics(SM_CYSCREEN);
    case BITSPIXEL: return 32;
    case PLANES: return 1;
    case NUMCOLORS: return -1;
    case TECHNOLOGY: return DT_RASDISPLAY;
    case RASTERCAPS: return RC_BITBLT | RC_BITMAP64 | RC_DI_BITMAP | RC_STRETCHBLT;
    default: return 0;
    }
}
