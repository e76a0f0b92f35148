#include <gesso/framework/Direction.h>
#include <gesso/framework/ScaledImage.h>
#include <gesso/framework/Scaling.h>

#include <algorithm>

namespace gesso {
namespace {

IImageList& ListOf(HIMAGELIST hImages)
{
    return *reinterpret_cast<IImageList*>(hImages);
}

void DrawAsItIs(HDC hdc, HIMAGELIST hImages, int nImage, POINT pt)
{
    IMAGELISTDRAWPARAMS params{};
    params.cbSize = sizeof(params);
    params.himl = hImages;
    params.i = nImage;
    params.hdcDst = hdc;
    params.x = pt.x;
    params.y = pt.y;
    params.rgbBk = CLR_NONE;
    params.fStyle = ILD_NORMAL;
    ListOf(hImages).Draw(&params);
}

} // namespace

void DrawImageTimes(HDC hdc, HIMAGELIST hImages, int nImage, POINT pt, int nTimes)
{
    int cx = 0, cy = 0;
    HICON hIcon = nullptr;
    if (nTimes <= 1) {
        return DrawAsItIs(hdc, hImages, nImage, pt);
    }
    if (FAILED(ListOf(hImages).GetIconSize(&cx, &cy)) ||
        FAILED(ListOf(hImages).GetIcon(nImage, ILD_NORMAL, &hIcon)) || !hIcon)
    {
        return;
    }
    DrawIconEx(hdc, pt.x, pt.y, hIcon, cx * nTimes, cy * nTimes, 0, nullptr, DI_NORMAL);
    DestroyIcon(hIcon);
}

bool DrawImageInPlace(HDC hdc, HIMAGELIST hImages, int nImage, POINT pt, int nSide)
{
    int cx = 0, cy = 0;
    if (GetScaling() == Scaling::None || !hImages || nImage < 0 ||
        FAILED(ListOf(hImages).GetIconSize(&cx, &cy)) || cx <= 0 || cy <= 0 || cx > nSide || cy > nSide)
    {
        return false;
    }
    const int nTimes = std::min(nSide / cx, nSide / cy);
    DrawImageTimes(hdc, hImages, nImage, {pt.x + (nSide - cx * nTimes) / 2, pt.y + (nSide - cy * nTimes) / 2},
                   nTimes);
    return true;
}

int WidthInPlace(HDC hdc, HIMAGELIST hImages, int nSide)
{
    int cx = 0, cy = 0;
    const bool fMeasured = IsMirrored(hdc) && hImages && SUCCEEDED(ListOf(hImages).GetIconSize(&cx, &cy));
    return fMeasured && cx > 0 ? std::min(cx, nSide) : nSide;
}

} // namespace gesso
