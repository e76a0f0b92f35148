#include <gesso/controls/GRadioButton.h>
#include <gesso/framework/ThemePart.h>

namespace {

constexpr int PART = BP_RADIOBUTTON;
constexpr auto PLAIN_PART = gesso::PlainPart::RadioButton;

} // namespace

using Control = GRadioButton;
#include <gesso/controls/CheckMembers.inl>

constinit ATOM GRadioButton::s_aClass = 0;

ATOM GRadioButton::IsolationAwareRegisterClassW()
{
    return gesso::RegisterControlClass(s_aClass, L"GRadioButton", WindowProc, gesso::CLASS_CONTROL);
}

LRESULT GRadioButton::OnGetDlgCode() const
{
    return DLGC_BUTTON | DLGC_RADIOBUTTON;
}
