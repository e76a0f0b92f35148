#include <gesso/controls/ButtonLook.h>
#include <gesso/controls/ContentLayout.h>
#include <gesso/controls/GButton.h>
#include <gesso/controls/Image.h>
#include <gesso/framework/DrawScope.h>
#include <gesso/framework/ThemePart.h>
#include <gesso/framework/WindowClass.h>

using gesso::Frame;
using gesso::ImageKind;
using gesso::ImageSide;

using Control = GButton;
#include <gesso/controls/DefaultMembers.inl>
#include <gesso/controls/TextButtonMembers.inl>

constinit ATOM GButton::s_aClass = 0;

namespace {

ImageSide ImageSideOf(DWORD dwStyle)
{
    switch (dwStyle & GBS_IMAGEBOTTOM) {
    case GBS_IMAGERIGHT: return ImageSide::Right;
    case GBS_IMAGETOP: return ImageSide::Top;
    case GBS_IMAGEBOTTOM: return ImageSide::Bottom;
    default: return ImageSide::Left;
    }
}

} // namespace

ATOM GButton::IsolationAwareRegisterClassW()
{
    return gesso::RegisterControlClass(s_aClass, L"GButton", WindowProc, gesso::CLASS_CONTROL);
}

void GButton::Draw(HDC hdc)
{
    RECT rcClient{};
    const DWORD dwStyle = Frame::Style(*this);
    if (!Frame::DrawParentBackground(*this, hdc, &rcClient)) {
        return;
    }
    const gesso::ThemePart part(m_hTheme, hdc, BP_PUSHBUTTON, gesso::PressStateOfDefault(m_dwState, dwStyle),
                                gesso::PlainPart::PushButton);
    part.DrawBackground(rcClient);
    const RECT rcContent = part.ContentOf(rcClient);

    const gesso::SelectScope font(hdc, m_hFont);
    const LPCWSTR pszText = gesso::TextOrEmpty(m_pszText);
    const ImageKind kind = m_hImage ? gesso::ImageKindOf(dwStyle) : ImageKind::None;
    const ImageSide side = ImageSideOf(dwStyle);
    const SIZE image{m_cxImage, m_cyImage};
    const UINT uFormat = dwStyle & GS_MULTILINE ? DT_WORDBREAK : DT_SINGLELINE;

    RECT rcText = kind == ImageKind::None ? rcContent : gesso::RoomBesideImage(rcContent, side, image);
    rcText = part.TextExtent(pszText, uFormat, rcText);
    gesso::AlignText(&rcText, rcContent, dwStyle);
    if (kind != ImageKind::None) {
        const POINT pt = gesso::PlaceImage(&rcText, side, image, dwStyle);
        gesso::DrawImage(hdc, kind, m_hImage, pt.x, pt.y, image.cx, image.cy, dwStyle);
    }
    part.DrawString(pszText, uFormat | gesso::PrefixFormat(m_dwState), rcText);
    if (gesso::ShowsFocus(m_hWnd, m_dwState)) {
        DrawFocusRect(hdc, &rcContent);
    }
}
