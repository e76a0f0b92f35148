// The order in which start-up registers the classes, which hosts that watch it know.

#include <gesso/framework/ControlTable.h>
#include <gesso/gesso.h>

#include <gtest/gtest.h>

#include <algorithm>

namespace {

TEST(ControlTable, ClassesStandInTheOrderOfRegistration)
{
    const gesso::RegisterClassFunction order[] = {
        &GButton::IsolationAwareRegisterClassW,
        &GCheckBox::IsolationAwareRegisterClassW,
        &GComboBox::IsolationAwareRegisterClassW,
        &GCommandButton::IsolationAwareRegisterClassW,
        &GLabel::IsolationAwareRegisterClassW,
        &GProgressBar::IsolationAwareRegisterClassW,
        &GNavigationButton::IsolationAwareRegisterClassW,
        &GRadioButton::IsolationAwareRegisterClassW,
    };
    // Other families' classes may stand between these.
    auto at = gesso::StartupClasses().begin();
    for (const gesso::RegisterClassFunction pfn : order) {
        at = std::find(at, gesso::StartupClasses().end(), pfn);
        ASSERT_TRUE(at != gesso::StartupClasses().end()) << &pfn - order;
    }
}

} // namespace
