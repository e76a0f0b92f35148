#include <gesso/controls/ButtonLook.h>
#include <gesso/controls/ButtonMessages.h>
#include <gesso/controls/ContentLayout.h>
#include <gesso/controls/GButton.h>
#include <gesso/controls/Image.h>
#include <gesso/framework/DrawScope.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/Press.h>
#include <gesso/framework/Quirks.h>
#include <gesso/framework/ThemePart.h>
#include <gesso/framework/WindowClass.h>

using gesso::Frame;
using gesso::ImageKind;
using gesso::ImageSide;

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

HWND GButton::Create(int x, int y, int cx, int cy, HWND hwndParent, int nId, LPCWSTR pszText, DWORD dwExStyle,
                     DWORD dwStyle)
{
    if (!gesso::HoldText(m_pszText, pszText)) {
        return nullptr;
    }
    return Frame::CreateTagged(*this, IsolationAwareRegisterClassW(), {x, y, cx, cy, hwndParent}, nId,
                               dwExStyle, dwStyle);
}

void GButton::Init(void* pCreateData)
{
    m_pszText.Reset(gesso::CopyCreationText(pCreateData));
}

int GButton::Destroy()
{
    return DestroyWindow(m_hWnd);
}

DWORD GButton::SetStyle(DWORD dwStyle)
{
    return Frame::SetStyle(*this, dwStyle);
}

DWORD GButton::GetStyle() const
{
    return Frame::Style(*this);
}

void GButton::SetFont(HFONT hFont)
{
    m_hFont = hFont;
}

HFONT GButton::GetFont() const
{
    return m_hFont;
}

int GButton::SetText(LPCWSTR pszText)
{
    return gesso::ReplaceText(*this, m_pszText, pszText);
}

int GButton::GetTextLength() const
{
    return gesso::TextLength(m_pszText);
}

int GButton::GetText(LPWSTR pszBuffer, int* pnLength) const
{
    return gesso::ReadText(m_pszText, pszBuffer, pnLength);
}

HICON GButton::SetIcon(HICON hIcon)
{
    return gesso::ReplaceIcon(*this, hIcon, {m_hImage, m_cxImage, m_cyImage});
}

HICON GButton::GetIcon() const
{
    return static_cast<HICON>(m_hImage);
}

HBITMAP GButton::SetBitmap(HBITMAP hBitmap)
{
    return gesso::ReplaceBitmap(*this, hBitmap, {m_hImage, m_cxImage, m_cyImage});
}

HBITMAP GButton::GetBitmap() const
{
    return static_cast<HBITMAP>(m_hImage);
}

// --- Drawing

void GButton::Draw(HDC hdc)
{
    RECT rcClient{};
    const DWORD dwStyle = Frame::Style(*this);
    if (!Frame::DrawParentBackground(*this, hdc, &rcClient)) {
        return;
    }
    gesso::ThemePart part(m_hTheme, hdc, BP_PUSHBUTTON, gesso::PressStateOfDefault(m_dwState, dwStyle),
                          gesso::PlainPart::PushButton);
    part.In(m_hWnd).AsDefault(dwStyle & GBS_DEFAULT);
    part.DrawBackground(rcClient);
    const RECT rcContent = part.ContentOf(rcClient);

    const gesso::SelectScope font(hdc, m_hFont);
    const LPCWSTR pszText = gesso::TextOrEmpty(m_pszText);
    const ImageKind kind = m_hImage ? gesso::ImageKindOf(dwStyle) : ImageKind::None;
    const ImageSide side = ImageSideOf(dwStyle);
    const SIZE image = gesso::TimesIn(m_hWnd, {m_cxImage, m_cyImage});
    const int nGap = gesso::Pixels(m_hWnd, gesso::Metrics::IMAGE_GAP);
    const UINT uFormat = dwStyle & GS_MULTILINE ? DT_WORDBREAK : DT_SINGLELINE;

    const RECT rcRoom =
        kind == ImageKind::None ? rcContent : gesso::RoomBesideImage(rcContent, side, image, nGap);
    RECT rcText = part.TextExtent(pszText, uFormat, rcRoom);
    const bool fBesideItsPlace = Has(*this, gesso::Quirk::ImageBesideItsPlace);
    gesso::AlignText(&rcText, fBesideItsPlace ? rcContent : rcRoom, dwStyle);
    if (kind != ImageKind::None) {
        const POINT pt = fBesideItsPlace ? gesso::PlaceImage(&rcText, side, image, nGap, dwStyle)
                                         : gesso::ImageBeside(rcText, rcContent, side, image, nGap, dwStyle);
        gesso::DrawImageIn(m_hWnd, hdc, kind, m_hImage, pt, image, dwStyle);
    }
    part.DrawString(pszText, uFormat | gesso::PrefixFormat(m_dwState), rcText);
    if (gesso::ShowsFocus(m_hWnd, m_dwState)) {
        part.DrawFocus(rcContent);
    }
}

// --- Messages

LRESULT GButton::OnCreate(const CREATESTRUCTW*)
{
    return gesso::OnButtonCreate(*this, m_hTheme, m_hFont);
}

LRESULT GButton::OnDestroy()
{
    return gesso::OnButtonDestroy(*this, m_hTheme, m_pszText);
}

LRESULT GButton::OnThemeChanged()
{
    return Frame::OnThemeChanged(*this, m_hTheme, gesso::BUTTON_THEME);
}

LRESULT GButton::OnEnable(BOOL fEnable)
{
    return Frame::OnEnable(*this, fEnable);
}

LRESULT GButton::OnSetFocus(HWND)
{
    return Frame::OnSetFocus(*this);
}

LRESULT GButton::OnKillFocus(HWND)
{
    return Frame::OnKillFocus(*this);
}

LRESULT GButton::OnKeyDown(UINT uKey, LPARAM)
{
    return gesso::OnButtonKeyDown(*this, uKey);
}

LRESULT GButton::OnKeyUp(UINT uKey, LPARAM)
{
    return gesso::OnButtonKeyUp(*this, uKey);
}

LRESULT GButton::OnLButtonDown(WPARAM, POINTS)
{
    return gesso::OnButtonDown(*this);
}

LRESULT GButton::OnLButtonUp(WPARAM, POINTS pt)
{
    return gesso::OnButtonUp(*this, pt);
}

LRESULT GButton::OnMouseMove(WPARAM, POINTS pt)
{
    return gesso::OnButtonMove(*this, pt);
}

LRESULT GButton::OnMouseLeave()
{
    return Frame::OnMouseLeave(*this);
}

LRESULT GButton::OnCaptureChanged(HWND hwndNew)
{
    return Frame::OnCaptureChanged(*this, hwndNew);
}

int GButton::HitTest(POINTS pt) const
{
    return gesso::HitTestClient(m_hWnd, pt);
}

LRESULT GButton::OnStyleChanged()
{
    return Frame::OnStyleChanged(*this);
}

LRESULT GButton::OnSetFont(HFONT hFont, UINT uRedraw)
{
    return Frame::OnSetFont(*this, m_hFont, hFont, uRedraw);
}

LRESULT GButton::OnGetFont() const
{
    return reinterpret_cast<LRESULT>(m_hFont);
}

LRESULT GButton::OnSetText(LPCWSTR pszText)
{
    return SetText(pszText);
}

LRESULT GButton::OnGetText(UINT nCapacity, LPWSTR pszBuffer) const
{
    return gesso::ReplyGetText(*this, m_pszText, nCapacity, pszBuffer);
}

LRESULT GButton::OnGetTextLength() const
{
    return GetTextLength();
}

LRESULT GButton::OnGetDlgCode() const
{
    return gesso::CodeOfDefaultButton(*this);
}

LRESULT GButton::OnSetStyle(WPARAM wStyle, UINT uRedraw)
{
    return gesso::OnSetDefaultButton(*this, wStyle, uRedraw);
}

LRESULT CALLBACK GButton::WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    return Frame::Route<GButton>(hwnd, uMsg, wParam, lParam);
}

LRESULT GButton::OnMessage(UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    switch (uMsg) {
    case BM_SETSTYLE: return OnSetStyle(wParam, LOWORD(lParam));
    default: return gesso::ButtonMessages::Answer(*this, uMsg, wParam, lParam);
    }
}
