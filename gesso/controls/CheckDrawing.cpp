#include <gesso/controls/ButtonLook.h>
#include <gesso/controls/CheckDrawing.h>
#include <gesso/controls/ContentLayout.h>
#include <gesso/controls/Image.h>
#include <gesso/framework/DrawScope.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Metrics.h>

#include <algorithm>

namespace gesso {
namespace {

constexpr int STATES_PER_CHECK = 4;

struct Picture
{
    ImageKind kind = ImageKind::None;
    SIZE size{};
    ImageSide side = ImageSide::Left;
    POINT pt{};
};

// Takes the box and its gap off the content.
RECT CutBox(RECT* prcContent, SIZE size, int nGap, DWORD dwStyle)
{
    RECT rcBox{};
    if (dwStyle & GCS_BOXRIGHT) {
        rcBox.right = prcContent->right;
        rcBox.left = rcBox.right - size.cx;
        prcContent->right = rcBox.left - nGap;
    } else {
        rcBox.left = prcContent->left;
        rcBox.right = rcBox.left + size.cx;
        prcContent->left = rcBox.right + nGap;
    }
    const int nSlack = prcContent->bottom - size.cy - prcContent->top;
    rcBox.top = prcContent->top + Shift(nSlack, dwStyle, GS_VCENTER, GS_BOTTOM);
    rcBox.bottom = rcBox.top + size.cy;
    return rcBox;
}

// The image is measured at each paint: the host may have changed what stands behind the handle.
Picture PictureOf(const CheckContent& content)
{
    Picture picture;
    const ImageKind kind = ImageKindOf(content.dwStyle);
    if (content.hImage && MeasureImage(kind, content.hImage, &picture.size)) {
        picture.kind = kind;
        picture.side = content.dwStyle & GCS_IMAGERIGHT ? ImageSide::Right : ImageSide::Left;
    }
    return picture;
}

// Around the text and the image's height, not around the box.
RECT FocusRect(const RECT& rcText, const Picture& picture, int nMargin)
{
    RECT rc = rcText;
    if (picture.kind != ImageKind::None) {
        rc.top = std::min(rc.top, picture.pt.y);
        rc.bottom = std::max(rc.bottom, picture.pt.y + picture.size.cy);
        if (picture.side == ImageSide::Right) {
            rc.right = picture.pt.x + picture.size.cx;
        }
    }
    InflateRect(&rc, nMargin, nMargin);
    return rc;
}

// Draws the content beside the box, and returns what the focus rectangle is to surround.
RECT DrawContent(HDC hdc, const CheckContent& content, const ThemePart& part, const RECT& rcContent)
{
    const DWORD dwStyle = content.dwStyle;
    const UINT uFormat = dwStyle & GS_MULTILINE ? DT_WORDBREAK : DT_SINGLELINE;
    const int nGap = Pixels(content.hwnd, Metrics::IMAGE_GAP);
    Picture picture = PictureOf(content);
    const bool fPicture = picture.kind != ImageKind::None;
    RECT rcText = fPicture ? RoomBesideImage(rcContent, picture.side, picture.size, nGap) : rcContent;
    rcText = part.TextExtent(content.pszText, uFormat, rcText);
    AlignText(&rcText, rcContent, dwStyle);
    if (fPicture) {
        picture.pt = PlaceImage(&rcText, picture.side, picture.size, nGap, dwStyle);
        DrawImage(hdc, picture.kind, content.hImage, picture.pt.x, picture.pt.y, picture.size.cx,
                  picture.size.cy, dwStyle);
    }
    part.DrawString(content.pszText, uFormat | PrefixFormat(content.dwState), rcText);
    return FocusRect(rcText, picture, Pixels(content.hwnd, Metrics::CHECK_FOCUS_MARGIN));
}

} // namespace

void DrawCheck(HDC hdc, RECT rc, const CheckContent& content, int nPart, PlainPart plain)
{
    const int nState =
        PressState(content.dwState, content.dwStyle) + STATES_PER_CHECK * CheckOf(content.dwState);
    const ThemePart part(content.hTheme, hdc, nPart, nState, plain);
    const TransparentScope mode(hdc);
    const SelectScope font(hdc, content.hFont);

    rc = part.ContentOf(rc);
    const int nGap = Pixels(content.hwnd, Metrics::CHECK_BOX_GAP);
    part.DrawBackground(CutBox(&rc, part.Size(&rc), nGap, content.dwStyle));
    const RECT rcFocus = DrawContent(hdc, content, part, rc);
    if (ShowsFocus(content.hwnd, content.dwState)) {
        DrawFocusRect(hdc, &rcFocus);
    }
}

} // namespace gesso
