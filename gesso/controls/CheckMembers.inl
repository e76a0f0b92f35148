// The members that GCheckBox and GRadioButton have alike: what ButtonMembers.inl and TextButtonMembers.inl
// bring, the check value and the drawing. Included where the class is named `Control`, and where PART and
// PLAIN_PART are the box, of the style and without one.

#include <gesso/controls/ButtonMembers.inl>
#include <gesso/controls/CheckDrawing.h>
#include <gesso/controls/TextButtonMembers.inl>
#include <gesso/framework/WindowClass.h>

void Control::Draw(HDC hdc)
{
    RECT rc{};
    const DWORD dwStyle = gesso::Frame::Style(*this);
    if (gesso::Frame::DrawParentBackground(*this, hdc, &rc)) {
        gesso::DrawCheck(
            hdc, rc, {m_hWnd, dwStyle, m_dwState, m_hTheme, m_hFont, gesso::TextOrEmpty(m_pszText), m_hImage},
            PART, PLAIN_PART);
    }
}

void Control::SetCheck(int nCheck)
{
    m_dwState = gesso::WithCheck(m_dwState, nCheck);
    Invalidate(0);
}

int Control::GetCheck() const
{
    return gesso::CheckOf(m_dwState);
}

LRESULT Control::OnGetCheck() const
{
    return GetCheck();
}

LRESULT Control::OnSetCheck(int nCheck)
{
    SetCheck(nCheck);
    return 0;
}

LRESULT CALLBACK Control::WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    auto* pControl = gesso::Frame::ObjectOf<Control>(hwnd);
    if (!pControl) {
        return uMsg == WM_CREATE ? gesso::Frame::Attach<Control>(hwnd, lParam)
                                 : DefWindowProcW(hwnd, uMsg, wParam, lParam);
    }
    switch (uMsg) {
    case BM_GETCHECK: return pControl->OnGetCheck();
    case BM_SETCHECK: return pControl->OnSetCheck(static_cast<int>(wParam));
    default: return pControl->OnButtonMessage(uMsg, wParam, lParam);
    }
}
