#include <gesso/controls/ContentLayout.h>
#include <gesso/framework/Saturate.h>

namespace gesso {
namespace {

bool IsBeside(ImageSide side)
{
    return side == ImageSide::Left || side == ImageSide::Right;
}

// Where something of a given extent starts when it is aligned with the text from nearEdge to farEdge.
int AlignTo(int64_t nearEdge, int64_t farEdge, int nExtent, DWORD dwStyle, DWORD dwCenter, DWORD dwFar)
{
    if (dwStyle & dwCenter) {
        return Saturated((nearEdge + farEdge - nExtent) >> 1);
    }
    return Saturated(dwStyle & dwFar ? farEdge - nExtent : nearEdge);
}

// As OffsetRect, up to the ends of the numbers.
void Shift(RECT* prc, int64_t dx, int64_t dy)
{
    *prc = Shifted(*prc, dx, dy);
}

} // namespace

int AlignmentOffset(int nSlack, DWORD dwStyle, DWORD dwCenter, DWORD dwFar)
{
    if (dwStyle & dwCenter) {
        return nSlack >> 1;
    }
    return dwStyle & dwFar ? nSlack : 0;
}

RECT RoomBesideImage(const RECT& rcContent, ImageSide side, SIZE image, int nGap)
{
    RECT rc = rcContent;
    switch (side) {
    case ImageSide::Left: rc.left = Saturated(int64_t{rc.left} + nGap + image.cx); break;
    case ImageSide::Right: rc.right = Saturated(int64_t{rc.right} - image.cx - nGap); break;
    case ImageSide::Top: rc.top = Saturated(int64_t{rc.top} + nGap + image.cy); break;
    case ImageSide::Bottom: rc.bottom = Saturated(int64_t{rc.bottom} - image.cy - nGap); break;
    }
    return rc;
}

void AlignText(RECT* prcText, const RECT& rcContent, DWORD dwStyle)
{
    const int nSlackX = Saturated(int64_t{rcContent.right} - prcText->right);
    const int nSlackY = Saturated(int64_t{rcContent.bottom} - prcText->bottom);
    Shift(prcText, AlignmentOffset(nSlackX, dwStyle, GS_CENTER, GS_RIGHT),
          AlignmentOffset(nSlackY, dwStyle, GS_VCENTER, GS_BOTTOM));
}

POINT ImageBeside(const RECT& rcText, const RECT& rcContent, ImageSide side, SIZE image, int nGap,
                  DWORD dwStyle)
{
    const int x = AlignTo(rcContent.left, rcContent.right, image.cx, dwStyle, GS_CENTER, GS_RIGHT);
    const int y = AlignTo(rcContent.top, rcContent.bottom, image.cy, dwStyle, GS_VCENTER, GS_BOTTOM);
    switch (side) {
    case ImageSide::Left: return {Saturated(int64_t{rcText.left} - nGap - image.cx), y};
    case ImageSide::Right: return {Saturated(int64_t{rcText.right} + nGap), y};
    case ImageSide::Top: return {x, Saturated(int64_t{rcText.top} - nGap - image.cy)};
    case ImageSide::Bottom: break;
    }
    return {x, Saturated(int64_t{rcText.bottom} + nGap)};
}

POINT PlaceImage(RECT* prcText, ImageSide side, SIZE image, int nGap, DWORD dwStyle)
{
    if (!IsBeside(side)) {
        return {AlignTo(prcText->left, prcText->right, image.cx, dwStyle, GS_CENTER, GS_RIGHT),
                Saturated(int64_t{prcText->top} - image.cy - nGap)};
    }
    const int y = AlignTo(prcText->top, prcText->bottom, image.cy, dwStyle, GS_VCENTER, GS_BOTTOM);
    const int64_t nShift = (int64_t{image.cx} + nGap) >> 1;
    Shift(prcText, side == ImageSide::Left ? nShift : -nShift, 0);
    return {Saturated(int64_t{prcText->left} - (int64_t{y} + image.cy) - nGap), y};
}

} // namespace gesso
