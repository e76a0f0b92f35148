#include <gesso/controls/GRadioButton.h>

using Control = GRadioButton;
#include <gesso/controls/CheckMembers.inl>

constinit ATOM GRadioButton::s_aClass = 0;

ATOM GRadioButton::IsolationAwareRegisterClassW()
{
    return gesso::RegisterControlClass(s_aClass, L"GRadioButton", WindowProc, gesso::CLASS_CONTROL);
}

void GRadioButton::Draw(HDC hdc)
{
    RECT rc{};
    const DWORD dwStyle = gesso::Frame::Style(*this);
    if (gesso::Frame::DrawParentBackground(*this, hdc, &rc)) {
        gesso::DrawCheck(
            hdc, rc, {m_hWnd, dwStyle, m_dwState, m_hTheme, m_hFont, gesso::TextOrEmpty(m_pszText), m_hImage},
            BP_RADIOBUTTON, gesso::PlainPart::RadioButton);
    }
}

LRESULT GRadioButton::OnGetDlgCode() const
{
    return DLGC_BUTTON | DLGC_RADIOBUTTON;
}
