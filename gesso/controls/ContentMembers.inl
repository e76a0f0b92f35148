// The members that every control with a text and an image has alike: GLabel, GButton, GCheckBox, GRadioButton
// and GCommandButton. Included where the class is named `Control`.

#include <gesso/controls/Image.h>
#include <gesso/controls/StyleMembers.inl>
#include <gesso/framework/ThemeFont.h>

void Control::SetFont(HFONT hFont)
{
    m_hFont = hFont;
}

HFONT Control::GetFont() const
{
    return gesso::HandOut(m_hFont);
}

int Control::SetText(LPCWSTR pszText)
{
    m_pszText.Reset(gesso::CopyText(pszText));
    Invalidate(0);
    return 1;
}

int Control::GetTextLength() const
{
    return gesso::TextLength(m_pszText);
}

int Control::GetText(LPWSTR pszBuffer, int* pnLength) const
{
    return gesso::ReadText(m_pszText, pszBuffer, pnLength);
}

HICON Control::SetIcon(HICON hIcon)
{
    const HANDLE hFormer = gesso::ReplaceImage(gesso::ImageKind::Icon, hIcon, m_hImage, m_cxImage, m_cyImage);
    Invalidate(0);
    return static_cast<HICON>(hFormer);
}

HICON Control::GetIcon() const
{
    return static_cast<HICON>(m_hImage);
}

HBITMAP Control::SetBitmap(HBITMAP hBitmap)
{
    const HANDLE hFormer =
        gesso::ReplaceImage(gesso::ImageKind::Bitmap, hBitmap, m_hImage, m_cxImage, m_cyImage);
    Invalidate(0);
    return static_cast<HBITMAP>(hFormer);
}

HBITMAP Control::GetBitmap() const
{
    return static_cast<HBITMAP>(m_hImage);
}

LRESULT Control::OnStyleChanged()
{
    return gesso::Frame::OnStyleChanged(*this);
}

LRESULT Control::OnSetFont(HFONT hFont, UINT uRedraw)
{
    return gesso::Frame::OnSetFont(*this, m_hFont, hFont, uRedraw);
}

LRESULT Control::OnGetFont() const
{
    return reinterpret_cast<LRESULT>(gesso::HandOut(m_hFont));
}

LRESULT Control::OnSetText(LPCWSTR pszText)
{
    return SetText(pszText);
}

LRESULT Control::OnGetText(UINT nCapacity, LPWSTR pszBuffer) const
{
    return gesso::ReplyGetText(*this, m_pszText, nCapacity, pszBuffer);
}

LRESULT Control::OnGetTextLength() const
{
    return GetTextLength();
}
