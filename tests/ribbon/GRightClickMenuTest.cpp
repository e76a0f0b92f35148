#include "../support/Interception.h"
#include "RibbonTestSupport.h"

#include <gesso/ribbon/GRightClickMenu.h>

#include <gtest/gtest.h>

using namespace test::ribbon;

namespace {

// Shows a menu and fills the object that its window runs on.
struct ValueMenu : GRightClickMenu
{
    HWND Show(HWND hwndOwner, std::initializer_list<LPCWSTR> values)
    {
        const HWND hwnd = Create(100, 100, 120, 90, hwndOwner, 0);
        Shown().*& ValueMenu::m_hwndOwner = hwndOwner;
        Shown().*& ValueMenu::m_hFont = g_hDefaultFont;
        for (const LPCWSTR psz : values) {
            Shown().AddValue(psz);
        }
        return hwnd;
    }

    GRightClickMenu& Shown() { return static_cast<GRightClickMenu&>(*FromHwnd(m_hWnd)); }
    int HotRow() { return Shown().*&ValueMenu::m_nHot; }
    HWND Owner() { return Shown().*&ValueMenu::m_hwndOwner; }
    void Dismiss() { (Shown().*&ValueMenu::Kill)(); }
};

} // namespace

TEST(GRightClickMenu, ItsWindowRunsOnAnObjectOfItsOwn)
{
    Host host;
    GRightClickMenu menu;
    menu.AddValue(L"Not shown");
    const HWND hwnd = menu.Create(100, 100, 120, 90, host, 0);
    ASSERT_TRUE(hwnd);
    EXPECT_EQ(menu.GetHwnd(), hwnd);
    EXPECT_EQ(GetWindowLongW(hwnd, GWL_STYLE) & ~LONG{WS_CLIPSIBLINGS},
              static_cast<LONG>(WS_POPUP | WS_VISIBLE | WS_BORDER));
    auto* pShown = static_cast<GRightClickMenu*>(GWnd::FromHwnd(hwnd));
    EXPECT_NE(pShown, &menu);
    EXPECT_EQ(pShown->GetValueCount(), 0u);
    EXPECT_TRUE(menu.Destroy());
    EXPECT_FALSE(IsWindow(hwnd));
    // The id stands in the place of a platform menu, and this one is none.
    EXPECT_EQ(menu.Create(100, 100, 120, 90, host, 5), nullptr);
    EXPECT_EQ(menu.GetHwnd(), nullptr);
}

TEST(GRightClickMenu, AWindowGoesOnWithoutTheObjectThatIsGivenAnother)
{
    GRightClickMenu::IsolationAwareRegisterClassW();
    const HWND first = CreateWindowExW(0, L"GRightClickMenu", nullptr, WS_POPUP | WS_VISIBLE, 0, 0, 50, 40,
                                       nullptr, nullptr, nullptr, nullptr);
    auto* pMenu = static_cast<GRightClickMenu*>(GWnd::FromHwnd(first));
    const HWND second = pMenu->Create(0, 0, 50, 40, nullptr, 0);
    DispatchAll();
    EXPECT_FALSE(GetUpdateRect(first, nullptr, FALSE));
    DestroyWindow(first);
    EXPECT_EQ(pMenu->GetHwnd(), second) << "whose window is gone, not the object";
    pMenu->Delete(pMenu);
    DestroyWindow(second);
}

TEST(GRightClickMenu, ValuesAreCopiedAndRowsThatAreNotThereAreEmpty)
{
    const AllowMisuse allowed;
    GRightClickMenu menu;
    wchar_t text[] = L"One";
    menu.AddValue(text);
    text[0] = L'X';
    menu.AddValue(nullptr);
    menu.AddValue(L"Three");
    menu.SetValue(2, L"Drei");
    menu.SetValue(3, L"Vier");
    EXPECT_EQ(menu.GetValueCount(), 3u);
    GRightClickMenu copy(menu);
    menu.SetValue(0, L"Changed");
    EXPECT_EQ(Narrow(copy.GetValue(0)), "One");
    EXPECT_EQ(Narrow(copy.GetValue(1)), "");
    EXPECT_EQ(Narrow(copy.GetValue(2)), "Drei");
    EXPECT_EQ(Narrow(copy.GetValue(3)), "");
}

TEST(GRightClickMenu, TheRowUnderTheMouseIsHotAndOnlyAnotherOneRepaints)
{
    Host host;
    ValueMenu menu;
    const HWND hwnd = menu.Show(host, {L"One", L"Two"});
    const std::tuple<int, int, bool> moves[] = {{0, 0, true},   {19, 0, false},  {20, 1, true},
                                                {39, 1, false}, {85, 4, true},   {-19, 0, true},
                                                {5, 0, false},  {-20, -1, true}, {-60, -3, true}};
    EXPECT_EQ(menu.HotRow(), -1);
    for (const auto& [y, nRow, fRepaints] : moves) {
        TakeRepaint(hwnd);
        Move(hwnd, 3, y);
        EXPECT_EQ(menu.HotRow(), nRow) << y;
        EXPECT_EQ(TakeRepaint(hwnd), fRepaints) << y;
    }
    EXPECT_EQ(SendMessageW(hwnd, WM_MOUSEMOVE, 0, 0), 0);
    DestroyWindow(hwnd);
}

TEST(GRightClickMenu, AReleaseTellsTheRowEndsTheMenuAndShowsTheOwner)
{
    Host host;
    for (const auto& [y, report] : {std::pair{5, "click 0"}, {25, "click 0 code 1"}, {70, "click 0 code 3"}})
    {
        ValueMenu menu;
        const HWND hwnd = menu.Show(host, {L"One", L"Two"});
        ShowWindow(host, SW_HIDE);
        Release(hwnd, 5, y);
        EXPECT_EQ(host.TakeReports(), Reports{report});
        EXPECT_FALSE(IsWindow(hwnd));
        EXPECT_TRUE(IsWindowVisible(host));
    }
    ValueMenu empty;
    Release(empty.Show(host, {}), 5, 5);
    EXPECT_EQ(host.TakeReports(), Reports{"click 0"}) << "also without values";
}

TEST(GRightClickMenu, KillEndsItWithoutAChoice)
{
    Host host;
    ValueMenu menu;
    const HWND hwnd = menu.Show(host, {L"One"});
    ShowWindow(host, SW_HIDE);
    menu.Dismiss();
    EXPECT_FALSE(IsWindow(hwnd));
    EXPECT_TRUE(IsWindowVisible(host));
    EXPECT_EQ(host.TakeReports(), Reports{});
}

TEST(GRightClickMenu, TheOwnerMayDeleteItsObjectWhileTheWindowIsMade)
{
    Host host;
    auto* pMenu = new GRightClickMenu;
    const test::Interception inactive(host, WM_ACTIVATE, [pMenu] { delete pMenu; });
    const HWND hwnd = pMenu->Create(100, 100, 120, 90, host, 0);
    EXPECT_TRUE(inactive.Happened());
    EXPECT_TRUE(DestroyWindow(hwnd));
}

TEST(GRightClickMenu, TheOwnerMayDestroyTheMenuOrItsObjectInTheCommand)
{
    Host host;
    for (const bool fObjectAlone : {false, true}) {
        ValueMenu menu;
        const HWND hwnd = menu.Show(host, {L"One"});
        GWnd* pShown = &menu.Shown();
        host.onReport = [&](const std::string&) {
            fObjectAlone ? pShown->Delete(pShown) : static_cast<void>(DestroyWindow(hwnd));
        };
        Release(hwnd, 5, 5);
        EXPECT_FALSE(IsWindow(hwnd)) << fObjectAlone;
        EXPECT_TRUE(IsWindowVisible(host));
    }
}
