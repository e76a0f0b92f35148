#include <gesso/controls/GCheckBox.h>

using Control = GCheckBox;
#include <gesso/controls/CheckMembers.inl>

constinit ATOM GCheckBox::s_aClass = 0;

ATOM GCheckBox::IsolationAwareRegisterClassW()
{
    return gesso::RegisterControlClass(s_aClass, L"GCheckBox", WindowProc, gesso::CLASS_CONTROL);
}

void GCheckBox::Draw(HDC hdc)
{
    RECT rc{};
    const DWORD dwStyle = gesso::Frame::Style(*this);
    if (gesso::Frame::DrawParentBackground(*this, hdc, &rc)) {
        gesso::DrawCheck(
            hdc, rc, {m_hWnd, dwStyle, m_dwState, m_hTheme, m_hFont, gesso::TextOrEmpty(m_pszText), m_hImage},
            BP_CHECKBOX, gesso::PlainPart::CheckBox);
    }
}

LRESULT GCheckBox::OnGetDlgCode() const
{
    return DLGC_BUTTON;
}
