// The arithmetic that buttons, check boxes and radio buttons share: aligning a text in its room, and placing
// an image beside it.
#pragma once

#include <gesso/controls/ControlStyles.h>

namespace gesso {

enum class ImageSide
{
    Left,
    Right,
    Top,
    Bottom,
};

// The offset that aligns something in its room, of which it leaves nSlack free: half of it by the bit for
// centre, all of it by that for the far end.
int AlignmentOffset(int nSlack, DWORD dwStyle, DWORD dwCenter, DWORD dwFar);

// What remains of the content for the text beside an image, with a gap between them.
RECT RoomBesideImage(const RECT& rcContent, ImageSide side, SIZE image, int nGap);

// Moves a measured text to its place in the content, by GS_CENTER, GS_RIGHT, GS_VCENTER and GS_BOTTOM.
void AlignText(RECT* prcText, const RECT& rcContent, DWORD dwStyle);

// The place of an image beside a text that was aligned in its room; across the two it is aligned in the
// content.
POINT ImageBeside(const RECT& rcText, const RECT& rcContent, ImageSide side, SIZE image, int nGap,
                  DWORD dwStyle);

// The image's place, and the text's shift that goes with it for an image to the left or right.
//
// Fixed behaviour: beside the text, x is worked out from the image's vertical place and height, always to the
// left of the text; and an image below the text is placed above it like one on top. Buttons that were laid
// out for these places would show their image elsewhere.
POINT PlaceImage(RECT* prcText, ImageSide side, SIZE image, int nGap, DWORD dwStyle);

} // namespace gesso
