// Pens, brushes, fonts and bitmaps: making them, asking about them, deleting them.
#include "../core/Faults.h"
#include "../core/TableLock.h"
#include "Context.h"

#include <algorithm>

#include <array>
#include <new>

using namespace gesso::headless;

namespace {

// A font of the system's, by cell height and character width.
LOGFONTW SystemFont(const wchar_t* face, LONG height, LONG width, LONG weight)
{
    LOGFONTW font{};
    font.lfHeight = height;
    font.lfWidth = width;
    font.lfWeight = weight;
    wcscpy(font.lfFaceName, face);
    return font;
}

HGDIOBJ MakeStockObject(int index)
{
    switch (index) {
    case WHITE_BRUSH: return MakeStock<HBRUSH, Brush>(LOGBRUSH{BS_SOLID, RGB(255, 255, 255), 0});
    case LTGRAY_BRUSH: return MakeStock<HBRUSH, Brush>(LOGBRUSH{BS_SOLID, RGB(192, 192, 192), 0});
    case GRAY_BRUSH: return MakeStock<HBRUSH, Brush>(LOGBRUSH{BS_SOLID, RGB(128, 128, 128), 0});
    case DKGRAY_BRUSH: return MakeStock<HBRUSH, Brush>(LOGBRUSH{BS_SOLID, RGB(64, 64, 64), 0});
    case BLACK_BRUSH: return MakeStock<HBRUSH, Brush>(LOGBRUSH{BS_SOLID, RGB(0, 0, 0), 0});
    case NULL_BRUSH: return MakeStock<HBRUSH, Brush>(LOGBRUSH{BS_NULL, 0, 0});
    case DC_BRUSH: return MakeStock<HBRUSH, Brush>(LOGBRUSH{BS_SOLID, RGB(255, 255, 255), 0});
    case WHITE_PEN: return MakeStock<HPEN, Pen>(LOGPEN{PS_SOLID, {0, 0}, RGB(255, 255, 255)});
    case BLACK_PEN: return MakeStock<HPEN, Pen>(LOGPEN{PS_SOLID, {0, 0}, RGB(0, 0, 0)});
    case NULL_PEN: return MakeStock<HPEN, Pen>(LOGPEN{PS_NULL, {0, 0}, 0});
    case DC_PEN: return MakeStock<HPEN, Pen>(LOGPEN{PS_SOLID, {0, 0}, RGB(0, 0, 0)});
    case SYSTEM_FONT:
    case DEVICE_DEFAULT_FONT: return MakeStock<HFONT, Font>(SystemFont(L"System", 16, 7, FW_BOLD));
    case OEM_FIXED_FONT:
    case ANSI_FIXED_FONT:
    case SYSTEM_FIXED_FONT: return MakeStock<HFONT, Font>(SystemFont(L"Courier", 15, 8, FW_NORMAL));
    case ANSI_VAR_FONT:
    case DEFAULT_GUI_FONT: return MakeStock<HFONT, Font>(SystemFont(L"MS Shell Dlg", -11, 0, FW_NORMAL));
    default: return nullptr;
    }
}

// Copies a record out as GetObject does: null asks for its size, too small a buffer gets nothing.
template <typename RECORD> int Deliver(const RECORD& record, int size, void* buffer)
{
    constexpr int RECORD_SIZE = static_cast<int>(sizeof(RECORD));
    if (!buffer) {
        return RECORD_SIZE;
    }
    if (size < RECORD_SIZE) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    memcpy(buffer, &record, sizeof(RECORD));
    return RECORD_SIZE;
}

// A font may be asked for with a shorter record, as hosts with older ones do.
int DeliverFont(const LOGFONTW& font, int size, void* buffer)
{
    const int part = std::min(size, static_cast<int>(sizeof(font)));
    if (!buffer) {
        return sizeof(font);
    }
    memcpy(buffer, &font, static_cast<size_t>(part));
    return part;
}

int StrideOf(const Bitmap& bitmap)
{
    constexpr int WORD_BITS = 16;
    return (bitmap.width * bitmap.bits + WORD_BITS - 1) / WORD_BITS * 2;
}

BITMAP RecordOf(Bitmap& bitmap)
{
    BITMAP record{};
    record.bmWidth = bitmap.width;
    record.bmHeight = bitmap.height;
    record.bmWidthBytes = StrideOf(bitmap);
    record.bmPlanes = 1;
    record.bmBitsPixel = static_cast<WORD>(bitmap.bits);
    record.bmBits = bitmap.pixels.empty() ? nullptr : bitmap.pixels.data();
    return record;
}

int DeliverBitmap(Bitmap& bitmap, int size, void* buffer)
{
    if (bitmap.pixels.empty() || size < static_cast<int>(sizeof(DIBSECTION))) {
        return Deliver(RecordOf(bitmap), size, buffer);
    }
    DIBSECTION section{};
    section.dsBm = RecordOf(bitmap);
    section.dsBmih.biSize = sizeof(BITMAPINFOHEADER);
    section.dsBmih.biWidth = bitmap.width;
    section.dsBmih.biHeight = bitmap.height;
    section.dsBmih.biPlanes = 1;
    section.dsBmih.biBitCount = static_cast<WORD>(bitmap.bits);
    return Deliver(section, size, buffer);
}

DWORD TypeOf(const Object& object)
{
    switch (object.kind) {
    case Kind::Pen: return OBJ_PEN;
    case Kind::Brush: return OBJ_BRUSH;
    case Kind::Font: return OBJ_FONT;
    case Kind::Bitmap: return OBJ_BITMAP;
    case Kind::Region: return OBJ_REGION;
    case Kind::DeviceContext: return static_cast<const Context&>(object).IsMemory() ? OBJ_MEMDC : OBJ_DC;
    default: return 0;
    }
}

HBITMAP MakeBitmap(int width, int height, int bits)
{
    // A bitmap without extent is the 1 by 1 one of a new memory context.
    return width == 0 || height == 0 ? DefaultBitmap()
                                     : MakeObject<HBITMAP, Bitmap>(width, abs(height), bits);
}

} // namespace

HGDIOBJ WINAPI GetStockObject(INT index)
{
    const TableLock lock;
    static std::array<HGDIOBJ, DC_PEN + 1> s_objects{};
    if (index < 0 || index > DC_PEN) {
        return nullptr;
    }
    HGDIOBJ& object = s_objects[static_cast<size_t>(index)];
    if (!object) {
        object = MakeStockObject(index);
    }
    return object;
}

HPEN WINAPI CreatePen(INT style, INT width, COLORREF color)
{
    return FaultFires("CreatePen")
               ? nullptr
               : MakeObject<HPEN, Pen>(LOGPEN{static_cast<UINT>(style), {width, 0}, color});
}

HBRUSH WINAPI CreateSolidBrush(COLORREF color)
{
    return FaultFires("CreateSolidBrush") ? nullptr : MakeObject<HBRUSH, Brush>(LOGBRUSH{BS_SOLID, color, 0});
}

HFONT WINAPI CreateFontIndirectW(const LOGFONTW* font)
{
    return !font || FaultFires("CreateFontIndirectW") ? nullptr : MakeObject<HFONT, Font>(*font);
}

HFONT WINAPI CreateFontW(INT height, INT width, INT escapement, INT orientation, INT weight, DWORD italic,
                         DWORD underline, DWORD strikeOut, DWORD charSet, DWORD outPrecision,
                         DWORD clipPrecision, DWORD quality, DWORD pitch, LPCWSTR face)
{
    if (FaultFires("CreateFontW")) {
        return nullptr;
    }
    LOGFONTW font{};
    font.lfHeight = height;
    font.lfWidth = width;
    font.lfEscapement = escapement;
    font.lfOrientation = orientation;
    font.lfWeight = weight;
    font.lfItalic = static_cast<BYTE>(italic);
    font.lfUnderline = static_cast<BYTE>(underline);
    font.lfStrikeOut = static_cast<BYTE>(strikeOut);
    font.lfCharSet = static_cast<BYTE>(charSet);
    font.lfOutPrecision = static_cast<BYTE>(outPrecision);
    font.lfClipPrecision = static_cast<BYTE>(clipPrecision);
    font.lfQuality = static_cast<BYTE>(quality);
    font.lfPitchAndFamily = static_cast<BYTE>(pitch);
    wcsncpy(font.lfFaceName, face ? face : L"", LF_FACESIZE - 1);
    return MakeObject<HFONT, Font>(font);
}

HBITMAP WINAPI CreateBitmap(INT width, INT height, UINT planes, UINT bits, LPCVOID)
{
    return FaultFires("CreateBitmap") ? nullptr : MakeBitmap(width, height, static_cast<int>(planes * bits));
}

HANDLE WINAPI CopyImage(HANDLE handle, UINT type, INT cx, INT cy, UINT)
{
    if (FaultFires("CopyImage")) {
        return nullptr;
    }
    if (type == IMAGE_ICON) {
        const auto* icon = Find<Icon>(static_cast<HICON>(handle));
        return icon ? MakeObject<HICON, Icon>(cx ? cx : icon->width, cy ? cy : icon->height, icon->name)
                    : nullptr;
    }
    const auto* bitmap = Find<Bitmap>(static_cast<HBITMAP>(handle));
    if (!bitmap) {
        return nullptr;
    }
    return MakeBitmap(cx ? cx : bitmap->width, cy ? cy : bitmap->height, 32);
}

HBITMAP WINAPI CreateCompatibleBitmap(HDC hdc, INT width, INT height)
{
    constexpr int SCREEN_BITS = 32;
    if (FaultFires("CreateCompatibleBitmap")) {
        return nullptr;
    }
    const Context* context = FindContext(hdc);
    if (!context) {
        return nullptr;
    }
    // A new memory context is compatible with nothing but its own two colours.
    const auto* selected = Find<Bitmap>(context->state.bitmap);
    return MakeBitmap(width, height, selected ? selected->bits : SCREEN_BITS);
}

HBITMAP WINAPI CreateDIBSection(HDC, const BITMAPINFO* info, UINT, void** bits, HANDLE, DWORD)
{
    if (FaultFires("CreateDIBSection")) {
        return nullptr;
    }
    const BITMAPINFOHEADER& header = info->bmiHeader;
    if (header.biWidth <= 0 || header.biHeight == 0) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    auto bitmap = std::make_unique<Bitmap>(header.biWidth, abs(header.biHeight), header.biBitCount);
    constexpr int ALIGNMENT = 32;
    const int64_t stride = (int64_t{bitmap->width} * bitmap->bits + ALIGNMENT - 1) / ALIGNMENT * 4;
    try {
        bitmap->pixels.resize(static_cast<size_t>(stride) * static_cast<size_t>(bitmap->height));
    } catch (const std::bad_alloc&) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return nullptr;
    }
    if (bits) {
        *bits = bitmap->pixels.data();
    }
    return static_cast<HBITMAP>(AddObject(std::move(bitmap)));
}

INT WINAPI GetObjectW(HANDLE handle, INT size, LPVOID buffer)
{
    if (FaultFires("GetObjectW")) {
        return 0;
    }
    Object* object = FindObject(handle);
    switch (object ? object->kind : Kind::Count) {
    case Kind::Pen: return Deliver(static_cast<Pen*>(object)->log, size, buffer);
    case Kind::Brush: return Deliver(static_cast<Brush*>(object)->log, size, buffer);
    case Kind::Font: return DeliverFont(static_cast<Font*>(object)->log, size, buffer);
    case Kind::Bitmap: return DeliverBitmap(*static_cast<Bitmap*>(object), size, buffer);
    default: SetLastError(ERROR_INVALID_HANDLE); return 0;
    }
}

DWORD WINAPI GetObjectType(HGDIOBJ handle)
{
    if (FaultFires("GetObjectType")) {
        return 0;
    }
    const Object* object = FindObject(handle);
    const DWORD type = object ? TypeOf(*object) : 0;
    if (type == 0) {
        SetLastError(ERROR_INVALID_HANDLE);
    }
    return type;
}

BOOL WINAPI DeleteObject(HGDIOBJ handle)
{
    if (FaultFires("DeleteObject")) {
        return FALSE;
    }
    const CallsBy platform(Caller::Platform);
    const Object* object = FindObject(handle);
    if (!object || object->kind == Kind::Icon) {
        SetLastError(ERROR_INVALID_HANDLE);
        return FALSE;
    }
    if (object->kind == Kind::DeviceContext) {
        return DeleteDC(static_cast<HDC>(handle));
    }
    // The platform's own objects may be handed in, and stay, as does a bitmap that a context holds.
    return object->stock ||
           (!(object->kind == Kind::Bitmap && IsSelected(handle)) && RemoveOnceReleased(handle));
}
