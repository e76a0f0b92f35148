// What a ribbon says of itself to those who do not see it, and what can be done with it.
#include "../ribbon/RibbonTestSupport.h"
#include "../support/WithBehavior.h"
#include "ClientObject.h"

#include <gtest/gtest.h>

namespace {

using namespace test::ribbon;
using gesso::AccessibleNode;
using gesso::AccessibleTree;
using gesso::Behavior;
using gesso::Role;

constexpr UINT CUT = 11, PASTE = 12, HIDDEN = 13, RULER = 14;

// Home with a button and a check box, and a group whose room is the host's; View hosts a label.
class GRibbonAccess : public testing::TestWithParam<Behavior>
{
protected:
    GRibbonAccess() : m_behavior(GetParam())
    {
        hwnd = CreateRibbon(ribbon, host);
        ribbon.AddPage(nullptr, 1, L"&Home");
        ribbon.AddPage(nullptr, 2, L"View");
        GRibbonPage& home = *ribbon.GetPage(1);
        home.InsertGroup(0, 1, L"Clip&board", 0);
        home.InsertGroup(1, 2, L"Fixed", 60);
        InsertButton(home, 1, CUT, RIS_LARGE, L"Cu&t");
        InsertCheckBox(home, 1, RULER, true, L"Ruler");
        InsertButton(home, 2, HIDDEN, RIS_LARGE, L"Hidden");
        GRibbonPage& view = *ribbon.GetPage(2);
        view.InsertGroup(0, 3, L"Zoom", 100);
        label.Create(400, 40, 60, 20, hwnd, 5, L"Percent", 0, WS_CHILD | WS_VISIBLE);
        view.AddWindow(3, label.GetHwnd());
        host.TakeReports();
    }
    AccessibleNode Find(Role role, LPCWSTR pszName) const
    {
        return gesso::FindAccessible(hwnd, role, pszName);
    }
    static bool IsModern() { return GetParam() == Behavior::Modern; }
    // In Classic a ribbon takes no focus.
    static std::string Focusable() { return IsModern() ? "focusable" : ""; }
    static std::string AndFocusable() { return IsModern() ? ", focusable" : ""; }
    Reports TakeCommands()
    {
        Reports reports = host.TakeReports();
        std::erase_if(reports, [](const std::string& report) { return !report.starts_with("click"); });
        return reports;
    }

    WithBehavior m_behavior;
    Host host;
    OpenRibbon ribbon;
    GLabel label;
    HWND hwnd = nullptr;
};

INSTANTIATE_TEST_SUITE_P(Both, GRibbonAccess, testing::Values(Behavior::Classic, Behavior::Modern));

TEST_P(GRibbonAccess, TheTabsAndThePageThatShowsAreThere)
{
    const std::string selectable = IsModern() ? "focusable, selectable" : "selectable";
    EXPECT_EQ(AccessibleTree(hwnd), "page tab list \"\" [" + Focusable() +
                                        "]\n"
                                        "  page tab \"Home\" [selected, " +
                                        selectable +
                                        "]\n"
                                        "  page tab \"View\" [" +
                                        selectable +
                                        "]\n"
                                        "  property page \"Home\" []\n"
                                        "    grouping \"Clipboard\" []\n"
                                        "      push button \"Cut\" [" +
                                        Focusable() +
                                        "]\n"
                                        "      check button \"Ruler\" [checked" +
                                        AndFocusable() +
                                        "]\n"
                                        "    grouping \"Fixed\" []\n" +
                                        (IsModern() ? "  static text \"Percent\" [read only, invisible]\n"
                                                    : "  static text \"Percent\" [read only]\n"));
    ribbon.SetStatus(0, 0);
    EXPECT_EQ(AccessibleTree(hwnd), "page tab list \"\" [" + Focusable() +
                                        "]\n"
                                        "  page tab \"View\" [selected, " +
                                        selectable +
                                        "]\n"
                                        "  property page \"View\" []\n"
                                        "    grouping \"Zoom\" []\n"
                                        "  static text \"Percent\" [read only]\n");
}

TEST_P(GRibbonAccess, EachIsWhereItIsHit)
{
    EXPECT_EQ(NameInMiddle(Find(Role::PageTab, L"View")), "View");
    EXPECT_EQ(NameInMiddle(Find(Role::PushButton, L"Cut")), "Cut");
    EXPECT_EQ(NameInMiddle(Find(Role::CheckButton, L"Ruler")), "Ruler");
    EXPECT_EQ(NameInMiddle(Find(Role::Grouping, L"Fixed")), "Fixed") << "whose button is not drawn";
    EXPECT_EQ(NameInMiddle(Find(Role::PropertyPage, L"Home")), "Home") << "behind the groups";
}

TEST_P(GRibbonAccess, ATabIsSelectedAndThePageBeforeItIsGone)
{
    const AccessibleNode cut = Find(Role::PushButton, L"Cut");
    const AccessibleNode view = Find(Role::PageTab, L"View");
    EXPECT_TRUE(view.Press());
    EXPECT_EQ(ribbon.m_nActive, 1u);
    EXPECT_TRUE(view.GetState() & STATE_SYSTEM_SELECTED);
    EXPECT_EQ(cut.role(), Role::None);
    EXPECT_FALSE(cut.Press());
    EXPECT_TRUE(Find(Role::PageTab, L"Home").Select());
    EXPECT_EQ(ribbon.m_nActive, 0u);
    EXPECT_TRUE(cut);
    EXPECT_EQ(NameOf(cut), "Cut");
}

TEST_P(GRibbonAccess, ItemsArePressedAsByAClick)
{
    EXPECT_TRUE(Find(Role::PushButton, L"Cut").Press());
    EXPECT_EQ(TakeCommands(), Reports{"click 11"});
    const AccessibleNode ruler = Find(Role::CheckButton, L"Ruler");
    EXPECT_TRUE(ruler.Press());
    EXPECT_EQ(TakeCommands().size(), 1u);
    EXPECT_FALSE(ruler.GetState() & STATE_SYSTEM_CHECKED);
    EXPECT_TRUE(ruler.Press());
    EXPECT_TRUE(ruler.GetState() & STATE_SYSTEM_CHECKED);
    EnableWindow(hwnd, FALSE);
    host.TakeReports();
    EXPECT_FALSE(ruler.Press());
    EXPECT_EQ(TakeCommands(), Reports{});
}

TEST_P(GRibbonAccess, TheParentMayEndTheRibbonInACommand)
{
    const AccessibleNode cut = Find(Role::PushButton, L"Cut");
    host.onReport = [this](const std::string& report) {
        if (report.starts_with("click")) {
            ribbon.Destroy();
        }
    };
    EXPECT_TRUE(cut.Press());
    EXPECT_EQ(cut.role(), Role::None);
    host.onReport = nullptr;
}

TEST_P(GRibbonAccess, TheKeyboardIsOnATabOrAnItem)
{
    if (!IsModern()) {
        return; // no keys
    }
    SetFocus(hwnd);
    EXPECT_TRUE(Find(Role::PageTab, L"Home").GetState() & STATE_SYSTEM_FOCUSED);
    EXPECT_FALSE(Find(Role::PageTab, L"View").GetState() & STATE_SYSTEM_FOCUSED);
    SendMessageW(hwnd, WM_KEYDOWN, VK_DOWN, 1);
    EXPECT_TRUE(Find(Role::PushButton, L"Cut").GetState() & STATE_SYSTEM_FOCUSED);
    EXPECT_FALSE(Find(Role::PageTab, L"Home").GetState() & STATE_SYSTEM_FOCUSED);
}

} // namespace
