#include <gesso/controls/ButtonLook.h>
#include <gesso/controls/CheckDrawing.h>
#include <gesso/controls/ContentLayout.h>
#include <gesso/controls/Image.h>
#include <gesso/framework/DrawScope.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/Saturate.h>

#include <algorithm>

namespace gesso {
namespace {

constexpr int STATES_PER_CHECK = 4;

struct PlacedImage
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
        rcBox.left = Saturated(int64_t{rcBox.right} - size.cx);
        prcContent->right = Saturated(int64_t{rcBox.left} - nGap);
    } else {
        rcBox.left = prcContent->left;
        rcBox.right = Saturated(int64_t{rcBox.left} + size.cx);
        prcContent->left = Saturated(int64_t{rcBox.right} + nGap);
    }
    const int nSlack = Saturated(int64_t{prcContent->bottom} - size.cy - prcContent->top);
    rcBox.top = Saturated(int64_t{prcContent->top} + AlignmentOffset(nSlack, dwStyle, GS_VCENTER, GS_BOTTOM));
    rcBox.bottom = Saturated(int64_t{rcBox.top} + size.cy);
    return rcBox;
}

// The image is measured at each paint: the host may have changed what stands behind the handle.
PlacedImage ImageOf(const CheckContent& content)
{
    PlacedImage image;
    const ImageKind kind = ImageKindOf(content.dwStyle);
    if (content.hImage && MeasureImage(kind, content.hImage, &image.size)) {
        image.kind = kind;
        image.size = TimesIn(content.hwnd, image.size);
        image.side = content.dwStyle & GCS_IMAGERIGHT ? ImageSide::Right : ImageSide::Left;
    }
    return image;
}

// Around the text and the image's height, not around the box.
RECT FocusRect(const RECT& rcText, const PlacedImage& image, int nMargin)
{
    RECT rc = rcText;
    if (image.kind != ImageKind::None) {
        rc.top = std::min(rc.top, image.pt.y);
        rc.bottom = std::max(rc.bottom, image.pt.y + image.size.cy);
        if (image.side == ImageSide::Right) {
            rc.right = image.pt.x + image.size.cx;
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
    PlacedImage image = ImageOf(content);
    const bool fImage = image.kind != ImageKind::None;
    const RECT rcRoom = fImage ? RoomBesideImage(rcContent, image.side, image.size, nGap) : rcContent;
    RECT rcText = part.TextExtent(content.pszText, uFormat, rcRoom);
    AlignText(&rcText, content.fImageBesideItsPlace ? rcContent : rcRoom, dwStyle);
    if (fImage) {
        image.pt = content.fImageBesideItsPlace
                       ? PlaceImage(&rcText, image.side, image.size, nGap, dwStyle)
                       : ImageBeside(rcText, rcContent, image.side, image.size, nGap, dwStyle);
        DrawImageIn(content.hwnd, hdc, image.kind, content.hImage, image.pt, image.size, dwStyle);
    }
    part.DrawString(content.pszText, uFormat | PrefixFormat(content.dwState), rcText);
    return FocusRect(rcText, image, Pixels(content.hwnd, Metrics::CHECK_FOCUS_MARGIN));
}

} // namespace

void DrawCheck(HDC hdc, RECT rc, const CheckContent& content, int nPart, PlainPart plain)
{
    const int nState =
        PressState(content.dwState, content.dwStyle) + STATES_PER_CHECK * CheckOf(content.dwState);
    ThemePart part(content.hTheme, hdc, nPart, nState, plain);
    part.In(content.hwnd);
    const TransparentScope mode(hdc);
    const SelectScope font(hdc, content.hFont);

    rc = part.ContentOf(rc);
    const int nGap = Pixels(content.hwnd, Metrics::CHECK_BOX_GAP);
    part.DrawBackground(CutBox(&rc, part.Size(content.hwnd, &rc), nGap, content.dwStyle));
    const RECT rcFocus = DrawContent(hdc, content, part, rc);
    if (ShowsFocus(content.hwnd, content.dwState)) {
        part.DrawFocus(rcFocus);
    }
}

} // namespace gesso
