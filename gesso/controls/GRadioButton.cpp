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
    gesso::DrawCheck(hdc, {m_hWnd, m_dwState, m_hTheme, m_hFont, gesso::TextOrEmpty(m_pszText), m_hImage},
                     BP_RADIOBUTTON, gesso::PlainPart::RadioButton);
}

LRESULT GRadioButton::OnGetDlgCode() const
{
    return DLGC_BUTTON | DLGC_RADIOBUTTON;
}
