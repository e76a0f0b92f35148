// What the value menus say of themselves to those who do not see them, and what can be done with them.
#include "../support/Keys.h"
#include "../support/User.h"
#include "ClientObject.h"

#include <gesso/ribbon/GRightClickMenu.h>

#include <gtest/gtest.h>

namespace {

using namespace test;
using gesso::AccessibleTree;
using gesso::Role;

constexpr UINT NONE = 0xFFFFFFFF;

// Shows a menu of four rows and a half and fills the object that its window runs on.
struct ValueMenu : GRightClickMenu
{
    HWND Show(HWND hwndOwner)
    {
        const HWND hwnd = Create(100, 100, 120, 90, hwndOwner, 0);
        auto& shown = static_cast<GRightClickMenu&>(*FromHwnd(hwnd));
        shown.*& ValueMenu::m_hwndOwner = hwndOwner;
        for (const LPCWSTR psz : {L"First", L"S&econd", L"Third", L"Fourth", L"Fifth", L"Sixth"}) {
            shown.AddValue(psz);
        }
        return hwnd;
    }
};

TEST(GRightClickMenuAccess, RowsAreItems)
{
    Host host;
    ValueMenu menu;
    const HWND hwnd = menu.Show(host);
    SendMessageW(hwnd, WM_MOUSEMOVE, 0, MAKELPARAM(5, 25));
    EXPECT_EQ(AccessibleTree(hwnd), "menu popup \"\" []\n"
                                    "  menu item \"First\" []\n"
                                    "  menu item \"Second\" [hot]\n"
                                    "  menu item \"Third\" []\n"
                                    "  menu item \"Fourth\" []\n"
                                    "  menu item \"Fifth\" []\n"
                                    "  menu item \"Sixth\" [invisible, offscreen]\n");
    EXPECT_EQ(NameInMiddle(gesso::FindAccessible(hwnd, Role::MenuItem, L"Third")), "Third");
    DestroyWindow(hwnd);
}

TEST(GRightClickMenuAccess, APressTellsTheOwnerAndEndsTheMenu)
{
    Host host;
    ValueMenu menu;
    const HWND hwnd = menu.Show(host);
    const auto item = gesso::FindAccessible(hwnd, Role::MenuItem, L"Third");
    host.TakeReports();
    EXPECT_FALSE(item.Expand());
    EXPECT_TRUE(item.Press());
    const Reports reports = host.TakeReports();
    ASSERT_FALSE(reports.empty());
    EXPECT_TRUE(reports[0].starts_with("click 0 code 2")) << reports[0];
    EXPECT_FALSE(IsWindow(hwnd));
    EXPECT_EQ(item.role(), Role::None);
    EXPECT_FALSE(item.Press());
}

BOOL CALLBACK TakeMenu(HWND hwnd, LPARAM lResult)
{
    wchar_t szClass[32]{};
    GetClassNameW(hwnd, szClass, 32);
    const bool fMenu = Narrow(szClass) == "GRightClickMenu";
    if (fMenu) {
        *reinterpret_cast<HWND*>(lResult) = hwnd;
    }
    return !fMenu;
}

// The choice, with what is done while the menu is there.
template <class ACT> UINT Track(HWND hwndOwner, UINT uChecked, const ACT& act)
{
    constexpr LPCWSTR VALUES[] = {L"Open", L"Re&name", L"Delete"};
    user::WhenIdle([act] {
        HWND hwnd = nullptr;
        EnumThreadWindows(GetCurrentThreadId(), TakeMenu, reinterpret_cast<LPARAM>(&hwnd));
        act(hwnd);
    });
    return GRightClickMenu::Track(hwndOwner, 300, 200, VALUES, 3, uChecked);
}

TEST(GRightClickMenuAccess, ATrackedMenuSaysWhatIsMarkedAndEndsByAPress)
{
    Host host;
    std::string before, after;
    const UINT nChoice = Track(host, 2, [&](HWND hwnd) {
        before = AccessibleTree(hwnd);
        user::TypeKey(VK_UP);
        user::WhenIdle([&, hwnd] {
            after = AccessibleTree(hwnd);
            EXPECT_EQ(NameInMiddle(gesso::FindAccessible(hwnd, Role::MenuItem, L"Delete")), "Delete");
            EXPECT_TRUE(gesso::FindAccessible(hwnd, Role::MenuItem, L"Open").Press());
        });
    });
    EXPECT_EQ(nChoice, 0u);
    EXPECT_EQ(before, "menu popup \"\" []\n"
                      "  menu item \"Open\" [focusable]\n"
                      "  menu item \"Re&name\" [focusable]\n"
                      "  menu item \"Delete\" [focused, checked, hot, focusable]\n");
    EXPECT_EQ(after, "menu popup \"\" []\n"
                     "  menu item \"Open\" [focusable]\n"
                     "  menu item \"Re&name\" [focused, hot, focusable]\n"
                     "  menu item \"Delete\" [checked, focusable]\n");
    HoldKeys({});
}

TEST(GRightClickMenuAccess, ATrackedMenuMayEndBeforeItIsPressed)
{
    Host host;
    const UINT nChoice = Track(host, NONE, [](HWND hwnd) {
        const auto item = gesso::FindAccessible(hwnd, Role::MenuItem, L"Delete");
        DestroyWindow(hwnd);
        EXPECT_FALSE(item.Press());
    });
    EXPECT_EQ(nChoice, NONE);
}

} // namespace
