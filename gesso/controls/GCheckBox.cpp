#include <gesso/controls/GCheckBox.h>
#include <gesso/framework/ThemePart.h>

namespace {

constexpr int PART = BP_CHECKBOX;
constexpr auto PLAIN_PART = gesso::PlainPart::CheckBox;

} // namespace

using Control = GCheckBox;
#include <gesso/controls/CheckMembers.inl>

constinit ATOM GCheckBox::s_aClass = 0;

ATOM GCheckBox::IsolationAwareRegisterClassW()
{
    return gesso::RegisterControlClass(s_aClass, L"GCheckBox", WindowProc, gesso::CLASS_CONTROL);
}

LRESULT GCheckBox::OnGetDlgCode() const
{
    return DLGC_BUTTON;
}
