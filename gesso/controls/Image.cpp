#include <gesso/controls/FaintImage.h>
#include <gesso/controls/Image.h>
#include <gesso/framework/Colors.h>
#include <gesso/framework/Direction.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Saturate.h>

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

HANDLE Replace(GWnd& wnd, ImageKind kind, HANDLE hNew, const ImageFields& fields)
{
    const HANDLE hFormer = fields.hImage;
    fields.hImage = hNew;
    SIZE size{};
    if (MeasureImage(kind, hNew, &size)) {
        fields.cxImage = size.cx;
        fields.cyImage = size.cy;
    }
    TakeNewImages(Frame::Handle(wnd));
    wnd.Invalidate(0);
    return hFormer;
}

struct ImagePlace
{
    int x, y, cx, cy;
    int cxShown; // by the image itself, from x on
};

// Never mirrored.
void DrawImageState(HDC hdc, const ImagePlace& place, HANDLE hImage, UINT uFlags)
{
    const UprightScope upright(hdc, place.x, place.cxShown);
    DrawStateW(hdc, nullptr, nullptr, reinterpret_cast<LPARAM>(hImage), 0, upright.Left(), place.y, place.cx,
               place.cy, uFlags);
}

// An image whose place is counted from the left upper corner of what shows of it.
class ImageAtPlace final : public ImageDrawing
{
public:
    ImageAtPlace(const ImagePlace& place, HANDLE hImage, UINT uKind)
        : m_place(place), m_hImage(hImage), m_uKind(uKind)
    {}
    void DrawInto(HDC hdc) const override { DrawImageState(hdc, m_place, m_hImage, m_uKind | DSS_NORMAL); }

private:
    ImagePlace m_place;
    HANDLE m_hImage;
    UINT m_uKind;
};

// What shows of the image. The platform's own grey is made of the system's colours, and loses what is as
// light or as dark as they are.
void DrawFaint(HDC hdc, const ImagePlace& place, HANDLE hImage, UINT uKind)
{
    const UprightScope upright(hdc, place.x, place.cxShown);
    const RECT rcImage{upright.Left(), place.y, Saturated(int64_t{upright.Left()} + place.cxShown),
                       Saturated(int64_t{place.y} + place.cy)};
    RECT rcClip{}, rc{};
    if (GetClipBox(hdc, &rcClip) == ERROR || !IntersectRect(&rc, &rcImage, &rcClip)) {
        return;
    }
    const ImagePlace shown{static_cast<int>(rcImage.left - rc.left), static_cast<int>(rcImage.top - rc.top),
                           place.cx, place.cy, place.cxShown};
    DrawFaintly(hdc, rc, ImageAtPlace(shown, hImage, uKind), ColorOf(ColorRole::DisabledText));
}

void DrawImageAt(HDC hdc, ImageKind kind, HANDLE hImage, const ImagePlace& place, DWORD dwStyle)
{
    const bool fDisabled = dwStyle & WS_DISABLED;
    const UINT uKind = kind == ImageKind::Icon ? DST_ICON : DST_BITMAP;
    if (fDisabled && IsDrawnFlat()) {
        DrawFaint(hdc, place, hImage, uKind);
        return;
    }
    DrawImageState(hdc, place, hImage, uKind | (fDisabled ? DSS_DISABLED : DSS_NORMAL));
}

// Of another size.
HANDLE CopyImageAs(ImageKind kind, HANDLE hImage, SIZE size)
{
    return CopyImage(hImage, kind == ImageKind::Icon ? UINT{IMAGE_ICON} : UINT{IMAGE_BITMAP}, size.cx,
                     size.cy, 0);
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
    DrawImageAt(hdc, kind, hImage, {x, y, cx, cy, cx}, dwStyle);
}

void DrawImageIn(HWND hwnd, HDC hdc, ImageKind kind, HANDLE hImage, POINT pt, SIZE size, DWORD dwStyle)
{
    // The platform draws an image as large as it is, whatever size it is asked for.
    const bool fTimes = ImageFactor(hwnd) > 1;
    SIZE shown = size;
    if ((fTimes || IsMirrored(hdc)) && MeasureImage(kind, hImage, &shown)) {
        shown = TimesIn(hwnd, shown);
    }
    const HANDLE hCopy = fTimes ? CopyImageAs(kind, hImage, shown) : nullptr;
    const auto x = static_cast<int>(pt.x);
    const auto y = static_cast<int>(pt.y);
    DrawImageAt(hdc, kind, hCopy ? hCopy : hImage,
                {x, y, static_cast<int>(size.cx), static_cast<int>(size.cy), static_cast<int>(shown.cx)},
                dwStyle);
    if (hCopy) {
        kind == ImageKind::Icon ? DestroyIcon(static_cast<HICON>(hCopy)) : DeleteObject(hCopy);
    }
}

SIZE TimesIn(HWND hwnd, SIZE size)
{
    const int nTimes = ImageFactor(hwnd);
    return {Saturated(int64_t{size.cx} * nTimes), Saturated(int64_t{size.cy} * nTimes)};
}

HICON ReplaceIcon(GWnd& wnd, HICON hIcon, const ImageFields& fields)
{
    return static_cast<HICON>(Replace(wnd, ImageKind::Icon, hIcon, fields));
}

HBITMAP ReplaceBitmap(GWnd& wnd, HBITMAP hBitmap, const ImageFields& fields)
{
    return static_cast<HBITMAP>(Replace(wnd, ImageKind::Bitmap, hBitmap, fields));
}

} // namespace gesso
