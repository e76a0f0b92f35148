#include <gesso/controls/ButtonMessages.h>
#include <gesso/controls/CheckDrawing.h>
#include <gesso/controls/GRadioButton.h>
#include <gesso/controls/Image.h>
#include <gesso/controls/RadioGroup.h>
#include <gesso/framework/Behavior.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Lifeline.h>
#include <gesso/framework/Press.h>
#include <gesso/framework/Quirks.h>
#include <gesso/framework/WindowClass.h>

using gesso::Frame;
using gesso::Quirk;

constinit ATOM GRadioButton::s_aClass = 0;

ATOM GRadioButton::IsolationAwareRegisterClassW()
{
    return gesso::RegisterControlClass(s_aClass, L"GRadioButton", WindowProc, gesso::CLASS_CONTROL);
}

HWND GRadioButton::Create(int x, int y, int cx, int cy, HWND hwndParent, int nId, LPCWSTR pszText,
                          DWORD dwExStyle, DWORD dwStyle)
{
    if (!gesso::HoldText(m_pszText, pszText)) {
        return nullptr;
    }
    return Frame::CreateTagged(*this, IsolationAwareRegisterClassW(), {x, y, cx, cy, hwndParent}, nId,
                               dwExStyle, dwStyle);
}

void GRadioButton::Init(void* pCreateData)
{
    m_pszText.Reset(gesso::CopyCreationText(pCreateData));
}

int GRadioButton::Destroy()
{
    return DestroyWindow(m_hWnd);
}

DWORD GRadioButton::SetStyle(DWORD dwStyle)
{
    return Frame::SetStyle(*this, dwStyle);
}

DWORD GRadioButton::GetStyle() const
{
    return Frame::Style(*this);
}

void GRadioButton::SetFont(HFONT hFont)
{
    m_hFont = hFont;
}

HFONT GRadioButton::GetFont() const
{
    return m_hFont;
}

int GRadioButton::SetText(LPCWSTR pszText)
{
    return gesso::ReplaceText(*this, m_pszText, pszText);
}

int GRadioButton::GetTextLength() const
{
    return gesso::TextLength(m_pszText);
}

int GRadioButton::GetText(LPWSTR pszBuffer, int* pnLength) const
{
    return gesso::ReadText(m_pszText, pszBuffer, pnLength);
}

HICON GRadioButton::SetIcon(HICON hIcon)
{
    return gesso::ReplaceIcon(*this, hIcon, {m_hImage, m_cxImage, m_cyImage});
}

HICON GRadioButton::GetIcon() const
{
    return static_cast<HICON>(m_hImage);
}

HBITMAP GRadioButton::SetBitmap(HBITMAP hBitmap)
{
    return gesso::ReplaceBitmap(*this, hBitmap, {m_hImage, m_cxImage, m_cyImage});
}

HBITMAP GRadioButton::GetBitmap() const
{
    return static_cast<HBITMAP>(m_hImage);
}

void GRadioButton::SetCheck(int nCheck)
{
    const gesso::Watch watch(*this);
    const HWND hwnd = m_hWnd;
    const bool fChanges = gesso::WithCheck(m_dwState, nCheck) != m_dwState;
    ChangeCheck(nCheck);
    if (watch) { // others of the group may hear of it, and those who watch them
        Invalidate(0);
    }
    if (watch && fChanges) {
        gesso::TellAccess(hwnd, EVENT_OBJECT_STATECHANGE);
    }
}

int GRadioButton::GetCheck() const
{
    return gesso::CheckOf(m_dwState);
}

// Every change of the check value goes through here.
void GRadioButton::ChangeCheck(int nCheck)
{
    Frame::SetState(*this, gesso::WithCheck(m_dwState, nCheck));
    if (IsOfGroup()) {
        gesso::MoveTabStop(m_hWnd, nCheck == BST_CHECKED);
    }
}

bool GRadioButton::IsOfGroup() const
{
    return m_hWnd && (Frame::Style(*this) & GBS_AUTO) && !Has(*this, Quirk::MarkIsTheHosts);
}

void GRadioButton::Click(GWnd& wnd)
{
    auto& radio = static_cast<GRadioButton&>(wnd);
    const gesso::Watch watch(radio);
    if (radio.IsOfGroup()) {
        radio.SetCheck(BST_CHECKED);
        if (watch) {
            gesso::UncheckOthers(radio.m_hWnd);
        }
    }
    if (watch) {
        Frame::SendClick(wnd);
    }
}

// --- Drawing

void GRadioButton::Draw(HDC hdc)
{
    RECT rc{};
    const DWORD dwStyle = Frame::Style(*this);
    if (Frame::DrawParentBackground(*this, hdc, &rc)) {
        gesso::DrawCheck(hdc, rc,
                         {m_hWnd, dwStyle, m_dwState, m_hTheme, m_hFont, gesso::TextOrEmpty(m_pszText),
                          m_hImage, Has(*this, Quirk::ImageBesideItsPlace)},
                         BP_RADIOBUTTON, gesso::PlainPart::RadioButton);
    }
}

// --- Messages

LRESULT GRadioButton::OnCreate(const CREATESTRUCTW*)
{
    gesso::OnButtonCreate(*this, m_hTheme, m_hFont);
    if (IsOfGroup()) {
        gesso::JoinGroup(m_hWnd);
    }
    return 0;
}

LRESULT GRadioButton::OnDestroy()
{
    return gesso::OnButtonDestroy(*this, m_hTheme, m_pszText);
}

LRESULT GRadioButton::OnThemeChanged()
{
    return Frame::OnThemeChanged(*this, m_hTheme, gesso::BUTTON_THEME);
}

LRESULT GRadioButton::OnEnable(BOOL fEnable)
{
    return Frame::OnEnable(*this, fEnable);
}

LRESULT GRadioButton::OnSetFocus(HWND)
{
    return Frame::OnSetFocus(*this);
}

LRESULT GRadioButton::OnKillFocus(HWND)
{
    return Frame::OnKillFocus(*this, Click);
}

LRESULT GRadioButton::OnKeyDown(UINT uKey, LPARAM)
{
    return gesso::OnButtonKeyDown(*this, uKey);
}

LRESULT GRadioButton::OnKeyUp(UINT uKey, LPARAM)
{
    return gesso::OnButtonKeyUp(*this, uKey, Click);
}

LRESULT GRadioButton::OnLButtonDown(WPARAM, POINTS)
{
    return gesso::OnButtonDown(*this);
}

LRESULT GRadioButton::OnLButtonUp(WPARAM, POINTS pt)
{
    return gesso::OnButtonUp(*this, pt, true, Click);
}

LRESULT GRadioButton::OnMouseMove(WPARAM, POINTS pt)
{
    return gesso::OnButtonMove(*this, pt);
}

LRESULT GRadioButton::OnMouseLeave()
{
    return Frame::OnMouseLeave(*this);
}

LRESULT GRadioButton::OnCaptureChanged(HWND hwndNew)
{
    return Frame::OnCaptureChanged(*this, hwndNew);
}

int GRadioButton::HitTest(POINTS pt) const
{
    return gesso::HitTestClient(m_hWnd, pt);
}

LRESULT GRadioButton::OnStyleChanged()
{
    return Frame::OnStyleChanged(*this);
}

LRESULT GRadioButton::OnSetFont(HFONT hFont, UINT uRedraw)
{
    return Frame::OnSetFont(*this, m_hFont, hFont, uRedraw);
}

LRESULT GRadioButton::OnGetFont() const
{
    return reinterpret_cast<LRESULT>(m_hFont);
}

LRESULT GRadioButton::OnSetText(LPCWSTR pszText)
{
    return SetText(pszText);
}

LRESULT GRadioButton::OnGetText(UINT nCapacity, LPWSTR pszBuffer) const
{
    return gesso::ReplyGetText(*this, m_pszText, nCapacity, pszBuffer);
}

LRESULT GRadioButton::OnGetTextLength() const
{
    return GetTextLength();
}

LRESULT GRadioButton::OnGetDlgCode() const
{
    return DLGC_BUTTON | DLGC_RADIOBUTTON;
}

LRESULT GRadioButton::OnGetCheck() const
{
    return GetCheck();
}

LRESULT GRadioButton::OnSetCheck(int nCheck)
{
    SetCheck(nCheck);
    return 0;
}

LRESULT CALLBACK GRadioButton::WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    return Frame::Route<GRadioButton>(hwnd, uMsg, wParam, lParam);
}

LRESULT GRadioButton::OnMessage(UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    switch (uMsg) {
    case WM_GETDLGCODE: return OnGetDlgCode() | (IsOfGroup() ? gesso::CodeOfArrows(lParam) : 0);
    case WM_KEYDOWN:
        return IsOfGroup() && gesso::GoInGroup(m_hWnd, wParam) ? 0
                                                               : OnKeyDown(static_cast<UINT>(wParam), lParam);
    case BM_GETCHECK: return OnGetCheck();
    case BM_SETCHECK: return OnSetCheck(static_cast<int>(wParam));
    default: return gesso::ButtonMessages::Answer(*this, uMsg, wParam, lParam);
    }
}
