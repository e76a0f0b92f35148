#include <gesso/controls/ButtonMessages.h>
#include <gesso/controls/CheckDrawing.h>
#include <gesso/controls/GCheckBox.h>
#include <gesso/controls/Image.h>
#include <gesso/framework/Behavior.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Lifeline.h>
#include <gesso/framework/Press.h>
#include <gesso/framework/Quirks.h>
#include <gesso/framework/WindowClass.h>

using gesso::Frame;
using gesso::Quirk;

constinit ATOM GCheckBox::s_aClass = 0;

ATOM GCheckBox::IsolationAwareRegisterClassW()
{
    return gesso::RegisterControlClass(s_aClass, L"GCheckBox", WindowProc, gesso::CLASS_CONTROL);
}

HWND GCheckBox::Create(int x, int y, int cx, int cy, HWND hwndParent, int nId, LPCWSTR pszText,
                       DWORD dwExStyle, DWORD dwStyle)
{
    if (!gesso::HoldText(m_pszText, pszText)) {
        return nullptr;
    }
    return Frame::CreateTagged(*this, IsolationAwareRegisterClassW(), {x, y, cx, cy, hwndParent}, nId,
                               dwExStyle, dwStyle);
}

void GCheckBox::Init(void* pCreateData)
{
    m_pszText.Reset(gesso::CopyCreationText(pCreateData));
}

int GCheckBox::Destroy()
{
    return DestroyWindow(m_hWnd);
}

DWORD GCheckBox::SetStyle(DWORD dwStyle)
{
    return Frame::SetStyle(*this, dwStyle);
}

DWORD GCheckBox::GetStyle() const
{
    return Frame::Style(*this);
}

void GCheckBox::SetFont(HFONT hFont)
{
    m_hFont = hFont;
}

HFONT GCheckBox::GetFont() const
{
    return m_hFont;
}

int GCheckBox::SetText(LPCWSTR pszText)
{
    return gesso::ReplaceText(*this, m_pszText, pszText);
}

int GCheckBox::GetTextLength() const
{
    return gesso::TextLength(m_pszText);
}

int GCheckBox::GetText(LPWSTR pszBuffer, int* pnLength) const
{
    return gesso::ReadText(m_pszText, pszBuffer, pnLength);
}

HICON GCheckBox::SetIcon(HICON hIcon)
{
    return gesso::ReplaceIcon(*this, hIcon, {m_hImage, m_cxImage, m_cyImage});
}

HICON GCheckBox::GetIcon() const
{
    return static_cast<HICON>(m_hImage);
}

HBITMAP GCheckBox::SetBitmap(HBITMAP hBitmap)
{
    return gesso::ReplaceBitmap(*this, hBitmap, {m_hImage, m_cxImage, m_cyImage});
}

HBITMAP GCheckBox::GetBitmap() const
{
    return static_cast<HBITMAP>(m_hImage);
}

void GCheckBox::SetCheck(int nCheck)
{
    const HWND hwnd = m_hWnd;
    const bool fChanges = gesso::WithCheck(m_dwState, nCheck) != m_dwState;
    ChangeCheck(nCheck);
    Invalidate(0);
    if (fChanges) {
        gesso::TellAccess(hwnd, EVENT_OBJECT_STATECHANGE);
    }
}

int GCheckBox::GetCheck() const
{
    return gesso::CheckOf(m_dwState);
}

// Every change of the check value goes through here.
void GCheckBox::ChangeCheck(int nCheck)
{
    Frame::SetState(*this, gesso::WithCheck(m_dwState, nCheck));
}

int GCheckBox::NextCheck() const
{
    const int nCheck = GetCheck();
    if (nCheck == BST_CHECKED && (GetStyle() & GBS_3STATE)) {
        return BST_INDETERMINATE;
    }
    return nCheck == BST_UNCHECKED ? BST_CHECKED : BST_UNCHECKED;
}

void GCheckBox::Click(GWnd& wnd)
{
    auto& box = static_cast<GCheckBox&>(wnd);
    const gesso::Watch watch(box);
    if ((Frame::Style(box) & GBS_AUTO) && !Has(box, Quirk::MarkIsTheHosts)) {
        box.SetCheck(box.NextCheck());
    }
    if (watch) {
        Frame::SendClick(wnd);
    }
}

// --- Drawing

void GCheckBox::Draw(HDC hdc)
{
    RECT rc{};
    const DWORD dwStyle = Frame::Style(*this);
    if (Frame::DrawParentBackground(*this, hdc, &rc)) {
        gesso::DrawCheck(hdc, rc,
                         {m_hWnd, dwStyle, m_dwState, m_hTheme, m_hFont, gesso::TextOrEmpty(m_pszText),
                          m_hImage, Has(*this, Quirk::ImageBesideItsPlace)},
                         BP_CHECKBOX, gesso::PlainPart::CheckBox);
    }
}

// --- Messages

LRESULT GCheckBox::OnCreate(const CREATESTRUCTW*)
{
    return gesso::OnButtonCreate(*this, m_hTheme, m_hFont);
}

LRESULT GCheckBox::OnDestroy()
{
    return gesso::OnButtonDestroy(*this, m_hTheme, m_pszText);
}

LRESULT GCheckBox::OnThemeChanged()
{
    return Frame::OnThemeChanged(*this, m_hTheme, gesso::BUTTON_THEME);
}

LRESULT GCheckBox::OnEnable(BOOL fEnable)
{
    return Frame::OnEnable(*this, fEnable);
}

LRESULT GCheckBox::OnSetFocus(HWND)
{
    return Frame::OnSetFocus(*this);
}

LRESULT GCheckBox::OnKillFocus(HWND)
{
    return Frame::OnKillFocus(*this, Click);
}

LRESULT GCheckBox::OnKeyDown(UINT uKey, LPARAM)
{
    return gesso::OnButtonKeyDown(*this, uKey);
}

LRESULT GCheckBox::OnKeyUp(UINT uKey, LPARAM)
{
    return gesso::OnButtonKeyUp(*this, uKey, Click);
}

LRESULT GCheckBox::OnLButtonDown(WPARAM, POINTS)
{
    return gesso::OnButtonDown(*this);
}

LRESULT GCheckBox::OnLButtonUp(WPARAM, POINTS pt)
{
    return gesso::OnButtonUp(*this, pt, true, Click);
}

LRESULT GCheckBox::OnMouseMove(WPARAM, POINTS pt)
{
    return gesso::OnButtonMove(*this, pt);
}

LRESULT GCheckBox::OnMouseLeave()
{
    return Frame::OnMouseLeave(*this);
}

LRESULT GCheckBox::OnCaptureChanged(HWND hwndNew)
{
    return Frame::OnCaptureChanged(*this, hwndNew);
}

int GCheckBox::HitTest(POINTS pt) const
{
    return gesso::HitTestClient(m_hWnd, pt);
}

LRESULT GCheckBox::OnStyleChanged()
{
    return Frame::OnStyleChanged(*this);
}

LRESULT GCheckBox::OnSetFont(HFONT hFont, UINT uRedraw)
{
    return Frame::OnSetFont(*this, m_hFont, hFont, uRedraw);
}

LRESULT GCheckBox::OnGetFont() const
{
    return reinterpret_cast<LRESULT>(m_hFont);
}

LRESULT GCheckBox::OnSetText(LPCWSTR pszText)
{
    return SetText(pszText);
}

LRESULT GCheckBox::OnGetText(UINT nCapacity, LPWSTR pszBuffer) const
{
    return gesso::ReplyGetText(*this, m_pszText, nCapacity, pszBuffer);
}

LRESULT GCheckBox::OnGetTextLength() const
{
    return GetTextLength();
}

LRESULT GCheckBox::OnGetDlgCode() const
{
    return DLGC_BUTTON;
}

LRESULT GCheckBox::OnGetCheck() const
{
    return GetCheck();
}

LRESULT GCheckBox::OnSetCheck(int nCheck)
{
    SetCheck(nCheck);
    return 0;
}

LRESULT CALLBACK GCheckBox::WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    return Frame::Route<GCheckBox>(hwnd, uMsg, wParam, lParam);
}

LRESULT GCheckBox::OnMessage(UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    switch (uMsg) {
    case BM_GETCHECK: return OnGetCheck();
    case BM_SETCHECK: return OnSetCheck(static_cast<int>(wParam));
    default: return gesso::ButtonMessages::Answer(*this, uMsg, wParam, lParam);
    }
}
