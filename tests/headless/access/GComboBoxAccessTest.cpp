// What a combo box says of itself to those who do not see it, and what can be done with it.
#include "../../support/Host.h"
#include "../../support/User.h"
#include "../../support/WithBehavior.h"

#include <gesso/access/AccessibleThing.h>
#include <gesso/access/Find.h>

#include <gtest/gtest.h>

namespace {

using namespace test;
using gesso::AccessibleNode;
using gesso::AccessibleThing;
using gesso::AccessibleTree;
using gesso::Behavior;
using gesso::Role;

constexpr DWORD SHOWN = WS_CHILD | WS_VISIBLE;
constexpr UINT NONE = static_cast<UINT>(-1);

class GComboBoxAccess : public testing::TestWithParam<Behavior>
{
protected:
    GComboBoxAccess() : m_behavior(GetParam())
    {
        SetFocus(host);
        label.Create(0, 0, 80, 20, host, 1, L"&Name:", 0, SHOWN);
    }
    ~GComboBoxAccess() override { combo.Destroy(); }

    void Make(DWORD dwKind)
    {
        ASSERT_TRUE(combo.Create(10, 30, 120, 24, host, 5, SHOWN | dwKind, 0));
        for (const LPCWSTR psz : {L"Ada", L"Bob"}) {
            combo.InsertItem(NONE, 0, psz, 0, nullptr);
        }
        combo.SetSelected(0);
        host.TakeReports();
    }
    AccessibleNode Find(Role role, LPCWSTR pszName = nullptr) const
    {
        return gesso::FindAccessible(combo, role, pszName);
    }
    static bool IsModern() { return GetParam() == Behavior::Modern; }
    // By the behaviour.
    static Reports Told(const Reports& classic, const Reports& modern)
    {
        return IsModern() ? modern : classic;
    }

    WithBehavior m_behavior;
    Host host;
    GLabel label;
    GComboBox combo;
};

INSTANTIATE_TEST_SUITE_P(Both, GComboBoxAccess, testing::Values(Behavior::Classic, Behavior::Modern));

TEST_P(GComboBoxAccess, ThePartsAreFieldButtonAndList)
{
    Make(GCBS_DROPDOWN);
    EXPECT_EQ(AccessibleTree(combo), "combo box \"Name\" = \"Ada\" [collapsed, focusable]\n"
                                     "  text \"Name\" = \"Ada\" [focusable]\n"
                                     "  push button \"Open\" []\n"
                                     "  list \"Name\" [invisible]\n"
                                     "    list item \"Ada\" [selected, invisible, focusable, selectable]\n"
                                     "    list item \"Bob\" [invisible, focusable, selectable]\n");
    const AccessibleThing whole = *gesso::FindThing(combo);
    for (UINT n = 0; n < 2; ++n) {
        const RECT rc = whole.Child(n).Rect();
        EXPECT_TRUE(whole.IdAt({(rc.left + rc.right) / 2, (rc.top + rc.bottom) / 2}) == whole.Child(n).Id());
    }
    EXPECT_TRUE(whole.FocusId() == whole.Child(0).Id());
    EXPECT_EQ(whole.Child(2).NextSelected(NONE), 0U);
    EXPECT_EQ(whole.Child(2).NextSelected(0), NONE);
    EnableWindow(combo, FALSE);
    combo.RemoveAllItems();
    combo.SetText(L"");
    EXPECT_EQ(AccessibleTree(combo), "combo box \"Name\" [unavailable, collapsed]\n"
                                     "  text \"Name\" [unavailable]\n"
                                     "  push button \"Open\" [unavailable]\n"
                                     "  list \"Name\" [unavailable, invisible]\n");
}

TEST_P(GComboBoxAccess, AKindHasThePartsThatItShows)
{
    Make(GCBS_DROPDOWNLIST);
    EXPECT_EQ(AccessibleTree(combo), "combo box \"Name\" = \"Ada\" [collapsed, focusable]\n"
                                     "  push button \"Open\" []\n"
                                     "  list \"Name\" [invisible]\n"
                                     "    list item \"Ada\" [selected, invisible, focusable, selectable]\n"
                                     "    list item \"Bob\" [invisible, focusable, selectable]\n");
    EXPECT_FALSE(Find(Role::ComboBox).SetValue(L"Eve"));
    combo.Destroy();
    combo.RemoveAllItems();
    Make(GCBS_PLAIN);
    EXPECT_EQ(AccessibleTree(combo), "combo box \"Name\" = \"Ada\" [focusable]\n");
    EXPECT_FALSE(Find(Role::ComboBox).Expand());
    EXPECT_FALSE(Find(Role::ComboBox).Press());
}

TEST_P(GComboBoxAccess, AnItemIsChosenAsByTheKeys)
{
    Make(GCBS_DROPDOWNLIST);
    SetFocus(combo);
    host.TakeReports();
    EXPECT_TRUE(Find(Role::ListItem, L"Bob").Select());
    EXPECT_EQ(host.TakeReports(), Told({"click 5 code 1"}, {"click 5 code 9", "click 5 code 1"}));
    EXPECT_EQ(combo.GetSelected(), 1U);
    EXPECT_TRUE(Find(Role::ListItem, L"Bob").Select());
    EXPECT_EQ(host.TakeReports(), Reports());
    EnableWindow(combo, FALSE);
    EXPECT_FALSE(Find(Role::ListItem, L"Ada").Select());
    EXPECT_EQ(combo.GetSelected(), 1U);
}

TEST_P(GComboBoxAccess, AValueIsTypedIntoTheField)
{
    Make(GCBS_DROPDOWN);
    const Reports edited = Told({"click 5 code 768"}, {"click 5 code 6", "click 5 code 5"});
    EXPECT_TRUE(Find(Role::Text).SetValue(L"Eve"));
    EXPECT_EQ(host.TakeReports(), edited);
    EXPECT_EQ(TextOf(combo), "Eve");
    EXPECT_TRUE(Find(Role::ComboBox).SetValue(L""));
    EXPECT_EQ(host.TakeReports(), edited);
    EXPECT_EQ(TextOf(combo), "");
}

// In Classic the press comes from the queue, and the list has a loop of its own.
TEST_P(GComboBoxAccess, TheListOpensAndCloses)
{
    Make(GCBS_DROPDOWN);
    const AccessibleNode whole = Find(Role::ComboBox);
    std::string opened;
    const auto look = [&] {
        opened = AccessibleTree(combo);
        EXPECT_TRUE(whole.Expand()); // it is
        EXPECT_TRUE(Find(Role::PushButton, L"Close").Press());
    };
    if (!IsModern()) {
        user::WhenIdle(look);
    }
    EXPECT_TRUE(whole.Expand());
    if (IsModern()) {
        look();
    }
    user::Pump();
    EXPECT_EQ(opened, "combo box \"Name\" = \"Ada\" [focused, expanded, focusable]\n"
                      "  text \"Name\" = \"Ada\" [focused, focusable]\n"
                      "  push button \"Close\" [pressed]\n"
                      "  list \"Name\" []\n"
                      "    list item \"Ada\" [selected, focused, focusable, selectable]\n"
                      "    list item \"Bob\" [focusable, selectable]\n");
    EXPECT_TRUE(whole.GetState() & STATE_SYSTEM_COLLAPSED);
    EXPECT_EQ(combo.GetSelected(), 0U);
}

TEST_P(GComboBoxAccess, TheOpenListsWindowSaysTheSame)
{
    if (!IsModern()) {
        return; // its list cannot be asked for by a message
    }
    Make(GCBS_DROPDOWNLIST);
    EXPECT_TRUE(Find(Role::ComboBox).Press());
    COMBOBOXINFO info{};
    info.cbSize = sizeof(info);
    SendMessageW(combo, CB_GETCOMBOBOXINFO, 0, reinterpret_cast<LPARAM>(&info));
    EXPECT_EQ(AccessibleTree(info.hwndList),
              "list \"Name\" []\n"
              "  list item \"Ada\" [selected, focused, focusable, selectable]\n"
              "  list item \"Bob\" [focusable, selectable]\n");
    const AccessibleThing list = *gesso::FindThing(info.hwndList);
    const RECT rc = list.Child(1).Rect();
    EXPECT_TRUE(list.IdAt({(rc.left + rc.right) / 2, (rc.top + rc.bottom) / 2}) == list.Child(1).Id());
    const RECT rcSame = Find(Role::ListItem, L"Bob").GetRect();
    EXPECT_TRUE(EqualRect(&rc, &rcSame));
    host.TakeReports();
    EXPECT_TRUE(gesso::FindAccessible(info.hwndList, Role::ListItem, L"Bob").Select());
    EXPECT_EQ(host.TakeReports(), (Reports{"click 5 code 9", "click 5 code 8", "click 5 code 1"}));
    EXPECT_EQ(combo.GetSelected(), 1U);
    EXPECT_EQ(list.Check(), CO_E_OBJNOTCONNECTED);
}

} // namespace
