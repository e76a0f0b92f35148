#include <gesso/controls/Image.h>

namespace gesso {
namespace {

bool MeasureObject(HBITMAP hBitmap, SIZE* pSize)
{
    BITMAP bitmap{};
    if (GetObjectW(hBitmap, sizeof(bitmap), &bitmap) <= 0) {
        return false;
    }
    *pSize = {bitmap.bmWidth, bitmap.bmHeight};
    return true;
}

} // namespace

ImageKind ImageKindOf(DWORD dwStyle)
{
    if (dwStyle & GS_ICON) {
        return ImageKind::Icon;
    }
    return dwStyle & GS_BITMAP ? ImageKind::Bitmap : ImageKind::None;
}

bool MeasureIcon(HICON hIcon, SIZE* pSize)
{
    ICONINFO info{};
    if (!GetIconInfo(hIcon, &info)) {
        return false;
    }
    const bool fMeasured = MeasureObject(info.hbmColor ? info.hbmColor : info.hbmMask, pSize);
    // The two bitmaps are copies made for us.
    if (info.hbmColor) {
        DeleteObject(info.hbmColor);
    }
    DeleteObject(info.hbmMask);
    return fMeasured;
}

bool MeasureBitmap(HBITMAP hBitmap, SIZE* pSize)
{
    return hBitmap && MeasureObject(hBitmap, pSize);
}

bool MeasureImage(ImageKind kind, HANDLE hImage, SIZE* pSize)
{
    switch (kind) {
    case ImageKind::Icon: return MeasureIcon(static_cast<HICON>(hImage), pSize);
    case ImageKind::Bitmap: return MeasureBitmap(static_cast<HBITMAP>(hImage), pSize);
    default: return false;
    }
}

void DrawImage(HDC hdc, ImageKind kind, HANDLE hImage, int x, int y, int cx, int cy, DWORD dwStyle)
{
    const UINT uKind = kind == ImageKind::Icon ? DST_ICON : DST_BITMAP;
    const UINT uState = dwStyle & WS_DISABLED ? DSS_DISABLED : DSS_NORMAL;
    DrawStateW(hdc, nullptr, nullptr, reinterpret_cast<LPARAM>(hImage), 0, x, y, cx, cy, uKind | uState);
}

HANDLE ReplaceImage(ImageKind kind, HANDLE hNew, HANDLE& hImage, int& cxImage, int& cyImage)
{
    const HANDLE hFormer = hImage;
    hImage = hNew;
    SIZE size{};
    if (MeasureImage(kind, hNew, &size)) {
        cxImage = size.cx;
        cyImage = size.cy;
    }
    return hFormer;
}

} // namespace gesso
