#include <gesso/controls/GButton.h>
#include <gesso/controls/GLabel.h>
#include <gesso/framework/ControlTable.h>

namespace gesso {
namespace {

template <class CONTROL> GWnd* Make()
{
    return new CONTROL;
}

// Still to come at their places in the order: GCheckBox, GComboBox, GCommandButton and GEdit between GButton
// and GLabel; GList, GProgressBar, GNavigationButton, GRadioButton and GTree behind it.
constexpr RegisterClassFunction STARTUP_CLASSES[] = {
    &GButton::IsolationAwareRegisterClassW,
    &GLabel::IsolationAwareRegisterClassW,
};

constexpr MakeControlFunction CONTROL_KINDS[] = {
    &Make<GLabel>, &Make<GButton>,
    nullptr, // GCheckBox
    nullptr, // GRadioButton
    nullptr, // GCommandButton
    nullptr, // GComboBox
    nullptr, // GProgressBar
    nullptr, // GSeparator
    nullptr, // GList
    nullptr, // GTree
};

} // namespace

std::span<const RegisterClassFunction> StartupClasses()
{
    return STARTUP_CLASSES;
}

std::span<const MakeControlFunction> ControlKinds()
{
    return CONTROL_KINDS;
}

} // namespace gesso
