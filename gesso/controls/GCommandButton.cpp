#include <gesso/controls/ButtonLook.h>
#include <gesso/controls/ButtonMessages.h>
#include <gesso/controls/GCommandButton.h>
#include <gesso/controls/Image.h>
#include <gesso/framework/DrawScope.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/Press.h>
#include <gesso/framework/ThemePart.h>
#include <gesso/framework/WindowClass.h>

using gesso::Frame;
using gesso::ImageKind;
using gesso::PlainPart;
using gesso::ThemePart;

constinit ATOM GCommandButton::s_aClass = 0;

namespace {

constexpr WORD SHIELD_ICON = 32518; // IDI_SHIELD, whose macro depends on how the narrow names are mapped
constexpr int NOTE_PERCENT = 100;   // of the default font, where the style has no font

// With scaling a host's font stays where the style is opened anew: other dots do that too, and a dialog's
// template gives one font to all of its controls.
class GivenFont
{
public:
    explicit GivenFont(gesso::ThemeFont& font) : m_font(font), m_hFont(IsKept(font) ? HFONT{font} : nullptr)
    {
        if (m_hFont) {
            font.Borrow(nullptr);
        }
    }
    ~GivenFont()
    {
        if (m_hFont) {
            m_font = m_hFont;
        }
    }
    GivenFont(const GivenFont&) = delete;
    GivenFont& operator=(const GivenFont&) = delete;

private:
    static bool IsKept(const gesso::ThemeFont& font)
    {
        return gesso::GetScaling() != gesso::Scaling::None && font.IsGiven();
    }

    gesso::ThemeFont& m_font;
    HFONT m_hFont; // null for none that is kept
};

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
    gesso::ControlText text;
    if (!gesso::HoldText(text, pszText) || !gesso::HoldTextOrNone(m_pszNote, pszNote)) {
        return nullptr;
    }
    m_pszText = text;
    return Frame::CreateTagged(*this, IsolationAwareRegisterClassW(), {x, y, cx, cy, hwndParent}, nId,
                               dwExStyle, dwStyle);
}

void GCommandButton::Init(void* pCreateData)
{
    m_pszText.Reset(gesso::CopyCreationText(pCreateData));
    const LPCWSTR pszNote = pCreateData ? NoteIn(pCreateData) : nullptr;
    m_pszNote.Reset(pszNote ? gesso::CopyText(pszNote) : nullptr);
}

int GCommandButton::Destroy()
{
    return DestroyWindow(m_hWnd);
}

DWORD GCommandButton::SetStyle(DWORD dwStyle)
{
    return Frame::SetStyle(*this, dwStyle);
}

DWORD GCommandButton::GetStyle() const
{
    return Frame::Style(*this);
}

void GCommandButton::SetFont(HFONT hFont)
{
    m_hFont = hFont;
}

HFONT GCommandButton::GetFont() const
{
    return m_hFont.HandOut();
}

int GCommandButton::SetText(LPCWSTR pszText)
{
    return gesso::ReplaceText(*this, m_pszText, pszText);
}

int GCommandButton::GetTextLength() const
{
    return gesso::TextLength(m_pszText);
}

int GCommandButton::GetText(LPWSTR pszBuffer, int* pnLength) const
{
    return gesso::ReadText(m_pszText, pszBuffer, pnLength);
}

HICON GCommandButton::SetIcon(HICON hIcon)
{
    return gesso::ReplaceIcon(*this, hIcon, {m_hImage, m_cxImage, m_cyImage});
}

HICON GCommandButton::GetIcon() const
{
    return static_cast<HICON>(m_hImage);
}

HBITMAP GCommandButton::SetBitmap(HBITMAP hBitmap)
{
    return gesso::ReplaceBitmap(*this, hBitmap, {m_hImage, m_cxImage, m_cyImage});
}

HBITMAP GCommandButton::GetBitmap() const
{
    return static_cast<HBITMAP>(m_hImage);
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
    if (!gesso::HoldTextOrNone(m_pszNote, pszNote)) {
        return 0;
    }
    const HWND hwnd = m_hWnd;
    Invalidate(0);
    gesso::TellAccess(hwnd, EVENT_OBJECT_DESCRIPTIONCHANGE);
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

// --- Drawing

void GCommandButton::Draw(HDC hdc)
{
    RECT rc{};
    const DWORD dwStyle = Frame::Style(*this);
    if (!Frame::DrawParentBackground(*this, hdc, &rc)) {
        return;
    }
    const int nState = gesso::PressStateOfDefault(m_dwState, dwStyle);
    ThemePart part(m_hTheme, hdc, BP_COMMANDLINK, nState, PlainPart::CommandLink);
    part.In(m_hWnd).AsDefault(dwStyle & GBS_DEFAULT).WithFont(m_hFont);
    part.DrawBackground(rc);
    const RECT rcContent = part.ContentOf(rc);
    // The glyph's size makes the text's column, whatever stands in its place.
    const int cxGlyph = DrawGlyph(hdc, nState, {rcContent.left, rcContent.top}, dwStyle);
    RECT rcText = rcContent;
    rcText.left += cxGlyph + gesso::Pixels(m_hWnd, gesso::Metrics::COMMAND_GLYPH_GAP);
    DrawTexts(hdc, part, rcText, dwStyle);
    if (gesso::ShowsFocus(m_hWnd, m_dwState)) {
        part.DrawFocus(rcContent);
    }
}

// Fixed behaviour: a shield is drawn beneath the glyph or the image, not instead of it. Where a host shows
// both, one of them would be missing.
int GCommandButton::DrawGlyph(HDC hdc, int nState, POINT pt, DWORD dwStyle) const
{
    ThemePart glyph(m_hTheme, hdc, BP_COMMANDLINKGLYPH, nState, PlainPart::CommandLinkGlyph);
    glyph.In(m_hWnd);
    const SIZE size = glyph.Size(m_hWnd, nullptr);
    if (dwStyle & GCBS_SHIELD) {
        DrawShield(hdc, pt, size, dwStyle);
    }
    const ImageKind kind = gesso::ImageKindOf(dwStyle);
    SIZE image{};
    if (kind == ImageKind::None) {
        glyph.DrawBackground({pt.x, pt.y, pt.x + size.cx, pt.y + size.cy});
    } else if (gesso::MeasureImage(kind, m_hImage, &image)) {
        gesso::DrawImageIn(m_hWnd, hdc, kind, m_hImage, pt, gesso::TimesIn(m_hWnd, image), dwStyle);
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

// --- Messages

void GCommandButton::OpenTheme()
{
    m_hTheme.Open(m_hWnd, gesso::BUTTON_THEME);
    m_hFont.Reset(gesso::MakeThemeFont(m_hWnd, m_hTheme, BP_COMMANDLINK, TMT_FONT, gesso::TITLE_PERCENT));
    m_hNoteFont.Reset(gesso::MakeThemeFont(m_hWnd, m_hTheme, BP_COMMANDLINK, TMT_BODYFONT, NOTE_PERCENT));
}

// Fixed behaviour: also the fonts that the host gave go. They would leak in a host that hands them over.
void GCommandButton::CloseTheme()
{
    m_hFont.Delete();
    m_hNoteFont.Delete();
    m_hTheme.Reset();
}

LRESULT GCommandButton::OnCreate(const CREATESTRUCTW*)
{
    Frame::SetState(*this, Frame::FirstState(*this));
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
    {
        const GivenFont title(m_hFont), note(m_hNoteFont);
        CloseTheme();
        OpenTheme();
    }
    Invalidate(0);
    return 0;
}

LRESULT GCommandButton::OnEnable(BOOL fEnable)
{
    return Frame::OnEnable(*this, fEnable);
}

LRESULT GCommandButton::OnSetFocus(HWND)
{
    return Frame::OnSetFocus(*this);
}

LRESULT GCommandButton::OnKillFocus(HWND)
{
    return Frame::OnKillFocus(*this);
}

LRESULT GCommandButton::OnKeyDown(UINT uKey, LPARAM)
{
    return gesso::OnButtonKeyDown(*this, uKey);
}

LRESULT GCommandButton::OnKeyUp(UINT uKey, LPARAM)
{
    return gesso::OnButtonKeyUp(*this, uKey);
}

LRESULT GCommandButton::OnLButtonDown(WPARAM, POINTS)
{
    return gesso::OnButtonDown(*this);
}

LRESULT GCommandButton::OnLButtonUp(WPARAM, POINTS pt)
{
    return gesso::OnButtonUp(*this, pt);
}

LRESULT GCommandButton::OnMouseMove(WPARAM, POINTS pt)
{
    return gesso::OnButtonMove(*this, pt);
}

LRESULT GCommandButton::OnMouseLeave()
{
    return Frame::OnMouseLeave(*this);
}

LRESULT GCommandButton::OnCaptureChanged(HWND hwndNew)
{
    return Frame::OnCaptureChanged(*this, hwndNew);
}

int GCommandButton::HitTest(POINTS pt) const
{
    return gesso::HitTestClient(m_hWnd, pt);
}

LRESULT GCommandButton::OnStyleChanged()
{
    return Frame::OnStyleChanged(*this);
}

LRESULT GCommandButton::OnSetFont(HFONT hFont, UINT uRedraw)
{
    return Frame::OnSetFont(*this, m_hFont, hFont, uRedraw);
}

LRESULT GCommandButton::OnGetFont() const
{
    return reinterpret_cast<LRESULT>(m_hFont.HandOut());
}

LRESULT GCommandButton::OnSetText(LPCWSTR pszText)
{
    return SetText(pszText);
}

LRESULT GCommandButton::OnGetText(UINT nCapacity, LPWSTR pszBuffer) const
{
    return gesso::ReplyGetText(*this, m_pszText, nCapacity, pszBuffer);
}

LRESULT GCommandButton::OnGetTextLength() const
{
    return GetTextLength();
}

LRESULT GCommandButton::OnGetDlgCode() const
{
    return gesso::CodeOfDefaultButton(*this);
}

LRESULT GCommandButton::OnSetStyle(WPARAM wStyle, UINT uRedraw)
{
    return gesso::OnSetDefaultButton(*this, wStyle, uRedraw);
}

LRESULT CALLBACK GCommandButton::WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    return Frame::Route<GCommandButton>(hwnd, uMsg, wParam, lParam);
}

LRESULT GCommandButton::OnMessage(UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    switch (uMsg) {
    case BM_SETSTYLE: return OnSetStyle(wParam, LOWORD(lParam));
    default: return gesso::ButtonMessages::Answer(*this, uMsg, wParam, lParam);
    }
}
