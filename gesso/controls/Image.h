// The image that labels and buttons show: a host's icon or bitmap, measured and drawn the same way by all of
// them.
#pragma once

#include <gesso/controls/ControlStyles.h>
#include <gesso/framework/GWnd.h>

namespace gesso {

enum class ImageKind
{
    None,
    Icon,
    Bitmap,
};

// By GS_ICON and GS_BITMAP of a window style; an icon where both are set.
ImageKind ImageKindOf(DWORD dwStyle);

// Writes the image's size in pixels; false, leaving *pSize as it is, where the handle cannot be measured.
bool MeasureIcon(HICON hIcon, SIZE* pSize);
bool MeasureBitmap(HBITMAP hBitmap, SIZE* pSize);
bool MeasureImage(ImageKind kind, HANDLE hImage, SIZE* pSize);

// DrawStateW at a place and with a size that the control works out; greyed for a disabled window.
void DrawImage(HDC hdc, ImageKind kind, HANDLE hImage, int x, int y, int cx, int cy, DWORD dwStyle);

// The same in a control's window, where an image that its host gave for fewer dots an inch is drawn some
// whole times as large: TimesIn is its size there.
void DrawImageIn(HWND hwnd, HDC hdc, ImageKind kind, HANDLE hImage, POINT pt, SIZE size, DWORD dwStyle);
SIZE TimesIn(HWND hwnd, SIZE size);

// Where a control holds its image.
struct ImageFields
{
    HANDLE& hImage;
    int& cxImage;
    int& cyImage;
};

// SetIcon and SetBitmap of all controls: store the host's handle and, where it can be measured, its size in
// pixels, and repaint. Return the former handle.
HICON ReplaceIcon(GWnd& wnd, HICON hIcon, const ImageFields& fields);
HBITMAP ReplaceBitmap(GWnd& wnd, HBITMAP hBitmap, const ImageFields& fields);

} // namespace gesso
