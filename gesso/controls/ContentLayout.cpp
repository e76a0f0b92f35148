#include <gesso/controls/ContentLayout.h>

namespace gesso {
namespace {

bool IsBeside(ImageSide side)
{
    return side == ImageSide::Left || side == ImageSide::Right;
}

// Where something of a given extent starts when it is aligned with the text from nearEdge to farEdge.
int AlignTo(int nearEdge, int farEdge, int nExtent, DWORD dwStyle, DWORD dwCenter, DWORD dwFar)
{
    if (dwStyle & dwCenter) {
        return (nearEdge + farEdge - nExtent) >> 1;
    }
    return dwStyle & dwFar ? farEdge - nExtent : nearEdge;
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
    case ImageSide::Left: rc.left += nGap + image.cx; break;
    case ImageSide::Right: rc.right -= image.cx + nGap; break;
    case ImageSide::Top: rc.top += nGap + image.cy; break;
    case ImageSide::Bottom: rc.bottom -= image.cy + nGap; break;
    }
    return rc;
}

void AlignText(RECT* prcText, const RECT& rcContent, DWORD dwStyle)
{
    OffsetRect(prcText, AlignmentOffset(rcContent.right - prcText->right, dwStyle, GS_CENTER, GS_RIGHT),
               AlignmentOffset(rcContent.bottom - prcText->bottom, dwStyle, GS_VCENTER, GS_BOTTOM));
}

POINT ImageBeside(const RECT& rcText, const RECT& rcContent, ImageSide side, SIZE image, int nGap,
                  DWORD dwStyle)
{
    const int x = AlignTo(rcContent.left, rcContent.right, image.cx, dwStyle, GS_CENTER, GS_RIGHT);
    const int y = AlignTo(rcContent.top, rcContent.bottom, image.cy, dwStyle, GS_VCENTER, GS_BOTTOM);
    switch (side) {
    case ImageSide::Left: return {rcText.left - nGap - image.cx, y};
    case ImageSide::Right: return {rcText.right + nGap, y};
    case ImageSide::Top: return {x, rcText.top - nGap - image.cy};
    case ImageSide::Bottom: break;
    }
    return {x, rcText.bottom + nGap};
}

POINT PlaceImage(RECT* prcText, ImageSide side, SIZE image, int nGap, DWORD dwStyle)
{
    if (!IsBeside(side)) {
        return {AlignTo(prcText->left, prcText->right, image.cx, dwStyle, GS_CENTER, GS_RIGHT),
                prcText->top - image.cy - nGap};
    }
    const int y = AlignTo(prcText->top, prcText->bottom, image.cy, dwStyle, GS_VCENTER, GS_BOTTOM);
    const int nShift = (image.cx + nGap) >> 1;
    OffsetRect(prcText, side == ImageSide::Left ? nShift : -nShift, 0);
    return {prcText->left - (y + image.cy) - nGap, y};
}

} // namespace gesso
