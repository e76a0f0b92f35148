// The order in which start-up registers the classes, which hosts that watch it know.

#include <gesso/framework/ControlTable.h>
#include <gesso/gesso.h>

#include <gtest/gtest.h>

#include <algorithm>

namespace {

template <class... CONTROLS>
constexpr gesso::RegisterClassFunction ORDER[] = {&CONTROLS::IsolationAwareRegisterClassW...};

TEST(ControlTable, ClassesStandInTheOrderOfRegistration)
{
    constexpr auto& STATED = ORDER<GButton, GCheckBox, GComboBox, GCommandButton, GEdit, GLabel, GList,
                                   GProgressBar, GNavigationButton, GRadioButton, GTree>;
    EXPECT_TRUE(std::ranges::equal(gesso::StartupClasses(), STATED));
}

} // namespace
