#include <gesso/controls/GButton.h>
#include <gesso/controls/GCheckBox.h>
#include <gesso/controls/GCommandButton.h>
#include <gesso/controls/GLabel.h>
#include <gesso/controls/GNavigationButton.h>
#include <gesso/controls/GProgressBar.h>
#include <gesso/controls/GRadioButton.h>
#include <gesso/controls/GSeparator.h>
#include <gesso/edit/GComboBox.h>
#include <gesso/edit/GEdit.h>
#include <gesso/framework/ControlTable.h>
#include <gesso/list/GList.h>
#include <gesso/tree/GTree.h>

namespace gesso {
namespace {

// Null without memory: what is thrown ends in the library.
template <class CONTROL> GWnd* Make()
try {
    return new CONTROL;
} catch (const std::bad_alloc&) {
    return nullptr;
}

constexpr RegisterClassFunction STARTUP_CLASSES[] = {
    &GButton::IsolationAwareRegisterClassW,
    &GCheckBox::IsolationAwareRegisterClassW,
    &GComboBox::IsolationAwareRegisterClassW,
    &GCommandButton::IsolationAwareRegisterClassW,
    &GEdit::IsolationAwareRegisterClassW,
    &GLabel::IsolationAwareRegisterClassW,
    &GList::IsolationAwareRegisterClassW,
    &GProgressBar::IsolationAwareRegisterClassW,
    &GNavigationButton::IsolationAwareRegisterClassW,
    &GRadioButton::IsolationAwareRegisterClassW,
    &GTree::IsolationAwareRegisterClassW,
};

constexpr MakeControlFunction CONTROL_KINDS[] = {
    &Make<GLabel>,    &Make<GButton>,      &Make<GCheckBox>,  &Make<GRadioButton>, &Make<GCommandButton>,
    &Make<GComboBox>, &Make<GProgressBar>, &Make<GSeparator>, &Make<GList>,        &Make<GTree>,
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
