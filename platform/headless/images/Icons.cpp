// Icons, cursors, and the loading of images.
#include "../core/Faults.h"
#include "../core/TableLock.h"
#include "../core/Text.h"
#include "../gdi/Record.h"

#include <map>

using namespace gesso::headless;

namespace {

const LPCWSTR GROUP_ICON_TYPE = MAKEINTRESOURCEW(14);
const LPCWSTR GROUP_CURSOR_TYPE = MAKEINTRESOURCEW(12);
const LPCWSTR BITMAP_TYPE = MAKEINTRESOURCEW(2);

std::string NameOf(LPCWSTR name)
{
    return IS_INTRESOURCE(name) ? std::to_string(reinterpret_cast<uintptr_t>(name)) : ToUtf8(View(name));
}

// The system's own icons and cursors; a module's are resources.
bool IsSystemImage(LPCWSTR name)
{
    constexpr uintptr_t FIRST = 32512;
    constexpr uintptr_t LAST = 32663;
    const auto id = reinterpret_cast<uintptr_t>(name);
    return id >= FIRST && id <= LAST;
}

bool HasImage(HINSTANCE module, LPCWSTR name, LPCWSTR type)
{
    const CallsBy platform(Caller::Platform);
    if (!module && IsSystemImage(name)) {
        return true;
    }
    return module && FindResourceW(module, name, type);
}

// The one handle of a shared image: the same for every load.
HICON SharedImage(HINSTANCE module, LPCWSTR name, LPCWSTR type, int cx, int cy)
{
    const TableLock lock;
    using Key = std::pair<HINSTANCE, std::string>;
    static std::map<Key, HICON> s_shared;
    if (!HasImage(module, name, type)) {
        SetLastError(ERROR_RESOURCE_NAME_NOT_FOUND);
        return nullptr;
    }
    HICON& icon = s_shared[{module, NameOf(type) + ":" + NameOf(name)}];
    if (!icon) {
        icon = static_cast<HICON>(AddStock(std::make_unique<Icon>(cx, cy, NameOf(name))));
    }
    return icon;
}

HICON LoadOwnIcon(HINSTANCE module, LPCWSTR name, LPCWSTR type, int cx, int cy)
{
    if (!HasImage(module, name, type)) {
        SetLastError(ERROR_RESOURCE_NAME_NOT_FOUND);
        return nullptr;
    }
    return MakeObject<HICON, Icon>(cx, cy, NameOf(name));
}

HBITMAP LoadBitmapResource(HINSTANCE module, LPCWSTR name)
{
    const CallsBy platform(Caller::Platform);
    const HRSRC resource = FindResourceW(module, name, BITMAP_TYPE);
    if (!resource || SizeofResource(module, resource) < sizeof(BITMAPINFOHEADER)) {
        return nullptr;
    }
    BITMAPINFOHEADER header;
    memcpy(&header, LockResource(LoadResource(module, resource)), sizeof(header));
    return MakeObject<HBITMAP, Bitmap>(header.biWidth, abs(header.biHeight), header.biBitCount);
}

std::string SizeName(int cx, int cy)
{
    return std::to_string(cx) + "x" + std::to_string(cy);
}

// What DrawStateW draws: an icon or a bitmap, by its size if none was asked for.
SIZE StateImageSize(LPARAM data, UINT type)
{
    const auto handle = reinterpret_cast<HANDLE>(data);
    const auto* icon = Find<Icon>(handle);
    const auto* bitmap = Find<Bitmap>(handle);
    if (type == DST_ICON && icon) {
        return {icon->width, icon->height};
    }
    return type == DST_BITMAP && bitmap ? SIZE{bitmap->width, bitmap->height} : SIZE{};
}

void PutStateImage(Line& line, LPARAM data, WPARAM length, UINT type)
{
    const auto handle = reinterpret_cast<HANDLE>(data);
    const auto* icon = Find<Icon>(handle);
    const auto* bitmap = Find<Bitmap>(handle);
    if (type == DST_ICON) {
        line.Word("icon=" + (icon ? icon->name : std::string("?")));
    } else if (type == DST_BITMAP) {
        line.Word("bitmap=" + (bitmap ? SizeName(bitmap->width, bitmap->height) : std::string("?")));
    } else if (type == DST_TEXT || type == DST_PREFIXTEXT) {
        line.Text(reinterpret_cast<LPCWSTR>(data), length == 0 ? -1 : static_cast<int>(length));
    }
}

} // namespace

HICON WINAPI LoadIconW(HINSTANCE module, LPCWSTR name)
{
    if (FaultFires("LoadIconW")) {
        return nullptr;
    }
    return SharedImage(module, name, GROUP_ICON_TYPE, GetSystemMetrics(SM_CXICON),
                       GetSystemMetrics(SM_CYICON));
}

HCURSOR WINAPI LoadCursorW(HINSTANCE module, LPCWSTR name)
{
    if (FaultFires("LoadCursorW")) {
        return nullptr;
    }
    return SharedImage(module, name, GROUP_CURSOR_TYPE, GetSystemMetrics(SM_CXCURSOR),
                       GetSystemMetrics(SM_CYCURSOR));
}

HANDLE WINAPI LoadImageW(HINSTANCE module, LPCWSTR name, UINT type, INT cx, INT cy, UINT flags)
{
    if (FaultFires("LoadImageW")) {
        return nullptr;
    }
    if (type == IMAGE_BITMAP) {
        return LoadBitmapResource(module, name);
    }
    const bool icon = type == IMAGE_ICON;
    const int width = cx != 0 ? cx : GetSystemMetrics(icon ? SM_CXICON : SM_CXCURSOR);
    const int height = cy != 0 ? cy : GetSystemMetrics(icon ? SM_CYICON : SM_CYCURSOR);
    const LPCWSTR group = icon ? GROUP_ICON_TYPE : GROUP_CURSOR_TYPE;
    return flags & LR_SHARED ? SharedImage(module, name, group, width, height)
                             : LoadOwnIcon(module, name, group, width, height);
}

HRESULT WINAPI LoadIconWithScaleDown(HINSTANCE module, const WCHAR* name, int cx, int cy, HICON* icon)
{
    *icon = nullptr;
    if (FaultFires("LoadIconWithScaleDown")) {
        return FaultResult();
    }
    *icon = LoadOwnIcon(module, name, GROUP_ICON_TYPE, cx, cy);
    return *icon ? S_OK : HRESULT_FROM_WIN32(GetLastError());
}

HICON WINAPI CreateIconIndirect(PICONINFO info)
{
    const auto* color = Find<Bitmap>(info->hbmColor);
    const auto* mask = Find<Bitmap>(info->hbmMask);
    if (FaultFires("CreateIconIndirect") || !mask) {
        return nullptr;
    }
    // Without colours the mask holds both halves, one above the other.
    const int width = color ? color->width : mask->width;
    const int height = color ? color->height : mask->height / 2;
    return MakeObject<HICON, Icon>(width, height, SizeName(width, height));
}

HICON WINAPI CreateIcon(HINSTANCE, INT width, INT height, BYTE, BYTE, LPCVOID, LPCVOID)
{
    return FaultFires("CreateIcon") ? nullptr
                                    : MakeObject<HICON, Icon>(width, height, SizeName(width, height));
}

BOOL WINAPI DestroyIcon(HICON handle)
{
    if (FaultFires("DestroyIcon")) {
        return FALSE;
    }
    const auto* icon = Find<Icon>(handle);
    if (!icon) {
        SetLastError(ERROR_INVALID_CURSOR_HANDLE);
        return FALSE;
    }
    return icon->stock || RemoveObject(handle);
}

BOOL WINAPI GetIconInfo(HICON handle, PICONINFO info)
{
    if (FaultFires("GetIconInfo")) {
        return FALSE;
    }
    const auto* icon = Find<Icon>(handle);
    if (!icon) {
        SetLastError(ERROR_INVALID_CURSOR_HANDLE);
        return FALSE;
    }
    // The caller owns both bitmaps.
    *info = {TRUE, static_cast<DWORD>(icon->width / 2), static_cast<DWORD>(icon->height / 2), nullptr,
             nullptr};
    info->hbmColor = MakeObject<HBITMAP, Bitmap>(icon->width, icon->height, 32);
    info->hbmMask = MakeObject<HBITMAP, Bitmap>(icon->width, icon->height, 1);
    return TRUE;
}

BOOL WINAPI DrawIconEx(HDC hdc, INT x, INT y, HICON handle, INT cx, INT cy, UINT, HBRUSH, UINT flags)
{
    const auto* icon = Find<Icon>(handle);
    if (FaultFires("DrawIconEx") || !icon || !FindContext(hdc)) {
        return FALSE;
    }
    const int width = cx != 0 ? cx : icon->width;
    const int height = cy != 0 ? cy : icon->height;
    Line(hdc, "DrawIconEx").Word("icon=" + icon->name).Size(x, y, width, height).Hex(flags);
    return TRUE;
}

BOOL WINAPI DrawIcon(HDC hdc, INT x, INT y, HICON icon)
{
    if (FaultFires("DrawIcon")) {
        return FALSE;
    }
    const CallsBy platform(Caller::Platform);
    return DrawIconEx(hdc, x, y, icon, GetSystemMetrics(SM_CXICON), GetSystemMetrics(SM_CYICON), 0, nullptr,
                      DI_NORMAL | DI_COMPAT | DI_DEFAULTSIZE);
}

BOOL WINAPI DrawStateW(HDC hdc, HBRUSH, DRAWSTATEPROC, LPARAM data, WPARAM length, INT x, INT y, INT cx,
                       INT cy, UINT flags)
{
    constexpr UINT TYPE_MASK = 0xF;
    if (FaultFires("DrawStateW") || !FindContext(hdc)) {
        return FALSE;
    }
    const UINT type = flags & TYPE_MASK;
    const SIZE own = StateImageSize(data, type);
    Line line(hdc, "DrawStateW");
    PutStateImage(line, data, length, type);
    line.Size(x, y, cx != 0 ? cx : own.cx, cy != 0 ? cy : own.cy).Hex(flags);
    return TRUE;
}
