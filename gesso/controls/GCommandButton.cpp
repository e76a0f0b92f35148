#include <gesso/controls/ButtonLook.h>
#include <gesso/controls/GCommandButton.h>
#include <gesso/controls/Image.h>
#include <gesso/framework/DrawScope.h>
#include <gesso/framework/ThemePart.h>
#include <gesso/framework/WindowClass.h>

using gesso::Frame;
using gesso::ImageKind;
using gesso::PlainPart;
using gesso::ThemePart;

using Control = GCommandButton;
#include <gesso/controls/DefaultMembers.inl>

constinit ATOM GCommandButton::s_aClass = 0;

namespace {

constexpr LPCWSTR THEME_CLASS = L"BUTTON";
constexpr WORD SHIELD_ICON = 32518; // IDI_SHIELD, whose macro depends on how the narrow names are mapped
constexpr int GLYPH_GAP = 5;        // between the glyph and the text
constexpr int TITLE_PERCENT = 133;  // of the default font, where the style has no font
constexpr int NOTE_PERCENT = 100;

// The note behind the title; null where there is none. In a dialog template the skipped first word is the
// data's size in bytes, with or without that word itself: data that ends with the title has no note to read.
LPCWSTR NoteIn(const void* pCreateData)
{
    const auto* pData = static_cast<const WORD*>(pCreateData);
    const auto* pszTitle = static_cast<LPCWSTR>(pCreateData) + 1;
    const LPCWSTR pszNote = pszTitle + wcslen(pszTitle) + 1;
    const size_t nTitleBytes = static_cast<size_t>(pszNote - pszTitle) * sizeof(wchar_t);
    const bool fEnds = *pData == nTitleBytes || *pData == nTitleBytes + sizeof(WORD);
    return fEnds || !*pszNote ? nullptr : pszNote;
}

void DrawShield(HDC hdc, POINT pt, SIZE size, DWORD dwStyle)
{
    const HANDLE hIcon = LoadImageW(nullptr, MAKEINTRESOURCEW(SHIELD_ICON), IMAGE_ICON, size.cx, size.cy, 0);
    if (hIcon) {
        gesso::DrawImage(hdc, ImageKind::Icon, hIcon, pt.x, pt.y, size.cx, size.cy, dwStyle);
        DestroyIcon(static_cast<HICON>(hIcon));
    }
}

} // namespace

ATOM GCommandButton::IsolationAwareRegisterClassW()
{
    return gesso::RegisterControlClass(s_aClass, L"GCommandButton", WindowProc, gesso::CLASS_CONTROL);
}

HWND GCommandButton::Create(int x, int y, int cx, int cy, HWND hwndParent, int nId, LPCWSTR pszText,
                            LPCWSTR pszNote, DWORD dwExStyle, DWORD dwStyle)
{
    m_pszText.Reset(gesso::CopyText(pszText));
    m_pszNote.Reset(gesso::CopyTextOrNone(pszNote));
    return Frame::CreateTagged(*this, IsolationAwareRegisterClassW(), {x, y, cx, cy, hwndParent}, nId,
                               dwExStyle, dwStyle);
}

void GCommandButton::Init(void* pCreateData)
{
    m_pszText.Reset(gesso::CopyCreationText(pCreateData));
    m_pszNote.Reset(gesso::CopyTextOrNone(pCreateData ? NoteIn(pCreateData) : nullptr));
}

void GCommandButton::SetNoteFont(HFONT hFont)
{
    m_hNoteFont = hFont;
}

HFONT GCommandButton::GetNoteFont() const
{
    return m_hNoteFont.HandOut();
}

int GCommandButton::SetNote(LPCWSTR pszNote)
{
    m_pszNote.Reset(gesso::CopyTextOrNone(pszNote));
    Invalidate(0);
    return 1;
}

int GCommandButton::GetNoteLength() const
{
    return gesso::TextLength(m_pszNote);
}

int GCommandButton::GetNote(LPWSTR pszBuffer, int* pnLength) const
{
    return gesso::ReadText(m_pszNote, pszBuffer, pnLength);
}

void GCommandButton::Draw(HDC hdc)
{
    RECT rc{};
    const DWORD dwStyle = Frame::Style(*this);
    if (!Frame::DrawParentBackground(*this, hdc, &rc)) {
        return;
    }
    const int nState = gesso::PressStateOfDefault(m_dwState, dwStyle);
    const ThemePart part(m_hTheme, hdc, BP_COMMANDLINK, nState, PlainPart::CommandLink);
    part.DrawBackground(rc);
    const RECT rcContent = part.ContentOf(rc);
    // The glyph's size makes the text's column, whatever stands in its place.
    const int cxGlyph = DrawGlyph(hdc, nState, {rcContent.left, rcContent.top}, dwStyle);
    RECT rcText = rcContent;
    rcText.left += cxGlyph + GLYPH_GAP;
    DrawTexts(hdc, part, rcText, dwStyle);
    if (gesso::ShowsFocus(m_hWnd, m_dwState)) {
        DrawFocusRect(hdc, &rcContent);
    }
}

// A shield is drawn beneath the glyph or the image, not instead of it: hosts know the looks.
int GCommandButton::DrawGlyph(HDC hdc, int nState, POINT pt, DWORD dwStyle) const
{
    const ThemePart glyph(m_hTheme, hdc, BP_COMMANDLINKGLYPH, nState, PlainPart::CommandLinkGlyph);
    const SIZE size = glyph.Size(nullptr);
    if (dwStyle & GCBS_SHIELD) {
        DrawShield(hdc, pt, size, dwStyle);
    }
    const ImageKind kind = gesso::ImageKindOf(dwStyle);
    SIZE image{};
    if (kind == ImageKind::None) {
        glyph.DrawBackground({pt.x, pt.y, pt.x + size.cx, pt.y + size.cy});
    } else if (gesso::MeasureImage(kind, m_hImage, &image)) {
        gesso::DrawImage(hdc, kind, m_hImage, pt.x, pt.y, image.cx, image.cy, dwStyle);
    }
    return size.cx;
}

void GCommandButton::DrawTexts(HDC hdc, const ThemePart& part, const RECT& rcRoom, DWORD dwStyle) const
{
    const UINT uFormat = dwStyle & GS_MULTILINE ? DT_WORDBREAK : DT_SINGLELINE;
    const LPCWSTR pszTitle = gesso::TextOrEmpty(m_pszText);
    RECT rcTitle{};
    {
        const gesso::SelectScope font(hdc, m_hFont);
        rcTitle = part.TextExtent(pszTitle, uFormat, rcRoom);
        part.DrawString(pszTitle, uFormat | gesso::PrefixFormat(m_dwState), rcTitle);
    }
    if (m_pszNote) {
        RECT rcNote{rcRoom.left, rcTitle.bottom, rcRoom.right, rcRoom.bottom};
        const gesso::SelectScope font(hdc, m_hNoteFont);
        const gesso::TextColorScope color(hdc, part.TextColor());
        const gesso::TransparentScope mode(hdc);
        // The note hides its prefixes in every case.
        DrawTextW(hdc, m_pszNote, gesso::TextLength(m_pszNote), &rcNote, DT_WORDBREAK | DT_HIDEPREFIX);
    }
}

void GCommandButton::OpenTheme()
{
    m_hTheme.Reset(OpenThemeData(m_hWnd, THEME_CLASS));
    m_hFont.Reset(gesso::MakeThemeFont(m_hTheme, BP_COMMANDLINK, TMT_FONT, TITLE_PERCENT));
    m_hNoteFont.Reset(gesso::MakeThemeFont(m_hTheme, BP_COMMANDLINK, TMT_BODYFONT, NOTE_PERCENT));
}

// Also the fonts that the host gave go: hosts rely on it.
void GCommandButton::CloseTheme()
{
    m_hFont.Delete();
    m_hNoteFont.Delete();
    m_hTheme.Reset();
}

LRESULT GCommandButton::OnCreate(const CREATESTRUCTW*)
{
    m_dwState = Frame::FIRST_STATE;
    OpenTheme();
    return 0;
}

LRESULT GCommandButton::OnDestroy()
{
    CloseTheme();
    m_pszText.Reset();
    m_pszNote.Reset();
    return Frame::Detach(*this);
}

LRESULT GCommandButton::OnThemeChanged()
{
    CloseTheme();
    OpenTheme();
    Invalidate(0);
    return 0;
}
