// All controls, in one list: what every test of them goes through. A class that the headers declare and that
// is missing here does not build.
#pragma once

#include "DeclaredWindows.h"

#include "../controls/MakeControl.h"

#include <gesso/edit/GComboBoxList.h>
#include <gesso/framework/GWindow2.h>
#include <gesso/gesso.h>
#include <gesso/ribbon/GRightClickMenu.h>

#include <gtest/gtest.h>

#include <type_traits>

namespace test {

template <class... CLASSES> struct ClassList
{
    using Types = testing::Types<CLASSES...>;
    template <class CLASS> static constexpr bool Has() { return (std::is_same_v<CLASS, CLASSES> || ...); }
};

using AllControls = ClassList<GLabel, GButton, GCheckBox, GRadioButton, GCommandButton, GNavigationButton,
                              GProgressBar, GSeparator, GScrollbar, GEdit, GComboBox, GList, GTree,
                              GNavigationBar, GRibbon, GRightClickMenu>;

// Windows that are no controls: bases of hosts' classes, dialogs, and what only another control makes.
using NoControls =
    ClassList<GWindow2, GWndScroll, GDialog, GTaskDialog, GWizard, GWndCertFailure, GComboBoxList>;

template <class... DECLARED> constexpr bool AreListed(ClassList<DECLARED...>)
{
    return ((AllControls::Has<DECLARED>() != NoControls::Has<DECLARED>()) && ...);
}
static_assert(AreListed(DeclaredWindows<ClassList>()), "a class of a window is missing in AllControls");

template <class... LISTS> struct Joined;
template <class... ALL> struct Joined<ClassList<ALL...>>
{
    using Types = testing::Types<ALL...>;
};
template <class... SOME, class... MORE, class... REST>
struct Joined<ClassList<SOME...>, ClassList<MORE...>, REST...> : Joined<ClassList<SOME..., MORE...>, REST...>
{};

template <class DROPPED, class ONE>
using NoneOrOne = std::conditional_t<DROPPED::template Has<ONE>(), ClassList<>, ClassList<ONE>>;
template <class DROPPED, class... ALL> auto Without(ClassList<ALL...>) -> Joined<NoneOrOne<DROPPED, ALL>...>;

// All but some, for a suite.
template <class... DROPPED>
using AllControlsBut = typename decltype(Without<ClassList<DROPPED...>>(AllControls()))::Types;

// Makes a control of any class, as large as it needs to show something.
template <class CONTROL> HWND MakeAnyControl(CONTROL& control, HWND hwndParent)
{
    if constexpr (requires { control.GetPage(1); }) {
        const HWND hwnd = control.Create(10, 10, 100, 118, hwndParent, nullptr);
        control.AddPage(nullptr, 1, L"Page");
        control.GetPage(1)->InsertGroup(0, 1, L"Group", 0);
        return hwnd;
    } else if constexpr (requires { control.GetValueCount(); }) {
        control.AddValue(L"Value");
        return control.Create(10, 10, 100, 30, hwndParent, 0);
    } else {
        return MakeControl(control, hwndParent);
    }
}

} // namespace test
