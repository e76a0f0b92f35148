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
        &GEdit::IsolationAwareRegisterClassW,
        &GLabel::IsolationAwareRegisterClassW,
        &GList::IsolationAwareRegisterClassW,
        &GProgressBar::IsolationAwareRegisterClassW,
        &GNavigationButton::IsolationAwareRegisterClassW,
        &GRadioButton::IsolationAwareRegisterClassW,
        &GTree::IsolationAwareRegisterClassW,
    };
    EXPECT_TRUE(std::ranges::equal(gesso::StartupClasses(), order));
}

} // namespace
