// What a list says of itself to those who do not see it, and what can be done with it.
#include "../../access/ClientObject.h"
#include "../../list/ListFixture.h"
#include "../../support/WithBehavior.h"

#include <gesso/access/AccessibleThing.h>
#include <gesso/containers/Index.h>

#include <string>
#include <vector>

namespace {

using namespace test;
using gesso::AccessibleNode;
using gesso::AccessibleThing;
using gesso::AccessibleTree;
using gesso::Behavior;
using gesso::Role;

constexpr int ITEM_CHANGED = -101;
constexpr int COLUMN_CLICKED = -108;

class GListAccess : public ListFixture, public testing::WithParamInterface<Behavior>
{
protected:
    GListAccess() : m_behavior(GetParam()) {}

    // Three columns, of which the last one shows images, and files by their names and sizes.
    void MakeFiles(UINT listStyle = GLS_DETAILS)
    {
        MakeList(listStyle);
        AddColumn(L"Name");
        AddColumn(L"Size");
        AddColumn(L"Mark", LCT_IMAGE);
        AddFile(L"Readme.txt", L"1 KB");
        AddFile(L"A & B", L"");
        AddFile(L"Zoo", L"2 KB");
    }
    void AddFile(LPCWSTR pszName, LPCWSTR pszSize, UINT group = 0)
    {
        const UINT item = list.InsertItem(END, group, nullptr, 0, pszName, 0);
        list.SetSubItem(item, 1, 0, pszSize, 0);
        list.SetSubItem(item, 2, 0, L"unseen", 0);
    }
    void AddMany(UINT count)
    {
        for (UINT n = 0; n < count; ++n) {
            AddItem(("more" + std::to_string(n)).c_str());
        }
    }
    AccessibleNode Item(LPCWSTR pszName) const
    {
        return gesso::FindAccessible(list, Role::ListItem, pszName);
    }
    AccessibleThing Thing() const { return *gesso::FindThing(list); }
    static bool IsModern() { return GetParam() == Behavior::Modern; }

    WithBehavior m_behavior;
};

INSTANTIATE_TEST_SUITE_P(Both, GListAccess, testing::Values(Behavior::Classic, Behavior::Modern));

POINT MiddleOf(const RECT& rc)
{
    return {(rc.left + rc.right) / 2, (rc.top + rc.bottom) / 2};
}

TEST_P(GListAccess, ItemsAreNamedByTheFirstColumnAndDescribedByTheOthers)
{
    MakeFiles();
    EXPECT_EQ(AccessibleTree(list),
              "list \"\" [focusable, multi selectable]\n"
              "  list item \"Readme.txt\" description \"Size: 1 KB\" [focusable, selectable]\n"
              "  list item \"A & B\" [focusable, selectable]\n"
              "  list item \"Zoo\" description \"Size: 2 KB\" [focusable, selectable]\n");
    list.SetFirstSelectedItemIndex(1);
    list.SetCursorItem(1);
    SetFocus(list);
    EXPECT_EQ(AccessibleTree(list),
              "list \"\" [focused, focusable, multi selectable]\n"
              "  list item \"Readme.txt\" description \"Size: 1 KB\" [focusable, selectable]\n"
              "  list item \"A & B\" [selected, focused, focusable, selectable]\n"
              "  list item \"Zoo\" description \"Size: 2 KB\" [focusable, selectable]\n");
    SetFocus(host);
    EnableWindow(list, FALSE);
    list.RemoveItem(0);
    list.RemoveItem(0);
    EXPECT_EQ(AccessibleTree(list),
              "list \"\" [unavailable, multi selectable]\n"
              "  list item \"Zoo\" description \"Size: 2 KB\" [unavailable, selectable]\n");
}

TEST_P(GListAccess, TheHeaderStandsBehindTheItemsAndSortsByAPress)
{
    MakeFiles(GLS_DETAILS | GLS_HEADER);
    list.Sort(0, true);
    EXPECT_EQ(AccessibleTree(list),
              "list \"\" [focusable, multi selectable]\n"
              "  list item \"A & B\" [focusable, selectable]\n"
              "  list item \"Readme.txt\" description \"Size: 1 KB\" [focusable, selectable]\n"
              "  list item \"Zoo\" description \"Size: 2 KB\" [focusable, selectable]\n"
              "  column header \"Name\" description \"ascending\" []\n"
              "  column header \"Size\" []\n"
              "  column header \"Mark\" []\n");
    host.Take();
    const AccessibleNode header = gesso::FindAccessible(list, Role::ColumnHeader, L"Name");
    EXPECT_TRUE(header.Press());
    const std::vector<int> codes = host.TakeCodes();
    EXPECT_EQ(codes, IsModern() ? (std::vector{FOCUS_SET, COLUMN_CLICKED}) : std::vector{FOCUS_SET});
    EXPECT_EQ(list.Texts(), "Zoo Readme.txt A & B");
    wchar_t szDirection[20]{};
    header.GetDescription(szDirection, 20);
    EXPECT_EQ(Narrow(szDirection), "descending");
    list.SetListStyle(GLS_DETAILS);
    EXPECT_FALSE(gesso::FindAccessible(list, Role::ColumnHeader, L"Name"));
    EXPECT_EQ(header.role(), Role::None);
}

TEST_P(GListAccess, GroupsHoldTheirItems)
{
    MakeList();
    AddColumn(L"Name");
    AddGroup(7, "Near");
    AddGroup(8, "None");
    AddGroup(9, "Far");
    AddItem("one", 9);
    AddItem("two", 7);
    AddItem("three", 9);
    list.Sort(0, true);
    list.SetSelected(1, 1);
    EXPECT_EQ(AccessibleTree(list), "list \"\" [focusable, multi selectable]\n"
                                    "  list item \"two\" [focusable, selectable]\n"
                                    "  list item \"one\" [selected, focusable, selectable]\n"
                                    "  list item \"three\" [focusable, selectable]\n"
                                    "  grouping \"Near\" []\n"
                                    "    list item \"two\" [focusable, selectable]\n"
                                    "  grouping \"None\" []\n"
                                    "  grouping \"Far\" []\n"
                                    "    list item \"one\" [selected, focusable, selectable]\n"
                                    "    list item \"three\" [focusable, selectable]\n");
    // An item is the same one in both places.
    EXPECT_TRUE(Item(L"three"));
    const AccessibleThing last = Thing().Child(5);
    EXPECT_EQ(last.NextSelected(gesso::NO_INDEX), 0U);
    EXPECT_EQ(last.NextSelected(0), gesso::NO_INDEX);
    EXPECT_EQ(last.IndexOf(Thing().Child(2).Id()), 1U);
    EXPECT_EQ(last.IndexOf(Thing().Child(0).Id()), gesso::NO_INDEX);
    EXPECT_EQ(Thing().IndexOf(last.Id()), 5U);
}

TEST_P(GListAccess, WhatIsThereIsHitWhereItSaysThatItIs)
{
    MakeFiles(GLS_DETAILS | GLS_HEADER);
    AddGroup(0, "All");
    AddMany(30);
    list.Calculate();
    const AccessibleThing whole = Thing();
    for (const int pos : {0, 30}) {
        list.SetScrollPos(SB_VERT, pos, TRUE);
        RECT rcRows{};
        GetClientRect(list, &rcRows);
        MapWindowPoints(list, nullptr, reinterpret_cast<POINT*>(&rcRows), 2);
        rcRows.top = whole.Child(whole.Count() - 1).Rect().bottom; // of the header
        UINT shown = 0;
        for (UINT n = 0; n < whole.Count(); ++n) {
            const AccessibleThing thing = whole.Child(n);
            if (!(thing.State() & STATE_SYSTEM_INVISIBLE)) {
                RECT rc = thing.Rect();
                if (thing.GetRole() != Role::ColumnHeader) {
                    IntersectRect(&rc, &rc, &rcRows);
                }
                EXPECT_TRUE(whole.IdAt(MiddleOf(rc)) == thing.Id()) << "child " << n << " at " << pos;
                ++shown;
            }
        }
        EXPECT_GT(shown, 5U);
        EXPECT_LT(shown, whole.Count());
    }
    EXPECT_EQ(ClientObject(MiddleOf(Item(L"A & B").GetRect())).Name(), "A & B");
}

TEST_P(GListAccess, WhatIsOutOfViewSaysSoAndComesIntoView)
{
    MakeFiles(GLS_DETAILS | GLS_HEADER);
    AddMany(50);
    const AccessibleNode last = Item(L"more49");
    constexpr UINT OUT_OF_VIEW = STATE_SYSTEM_INVISIBLE | STATE_SYSTEM_OFFSCREEN;
    EXPECT_EQ(last.GetState() & OUT_OF_VIEW, OUT_OF_VIEW);
    RECT rcWindow{};
    GetWindowRect(list, &rcWindow);
    EXPECT_GT(last.GetRect().top, rcWindow.bottom);
    EXPECT_TRUE(last.ScrollIntoView());
    EXPECT_EQ(last.GetState() & OUT_OF_VIEW, 0U);
    EXPECT_EQ(Item(L"Readme.txt").GetState() & OUT_OF_VIEW, OUT_OF_VIEW);
    EXPECT_EQ(list.Selected(), "");
    EXPECT_TRUE(Item(L"Readme.txt").Select());
    EXPECT_EQ(Item(L"Readme.txt").GetState() & OUT_OF_VIEW, 0U);
}

TEST_P(GListAccess, ASelectionIsAClick)
{
    MakeFiles();
    host.Take();
    EXPECT_TRUE(Item(L"Zoo").Select());
    const std::vector<Notified> told = host.Take();
    ASSERT_FALSE(told.empty());
    EXPECT_EQ(told.front().code, FOCUS_SET);
    EXPECT_EQ(told.back().code, CLICKED);
    EXPECT_EQ(told.back().record.iItem, 2);
    EXPECT_EQ(told.size(), IsModern() ? 3U : 2U);
    EXPECT_EQ(told[1].code, IsModern() ? ITEM_CHANGED : CLICKED);
    EXPECT_EQ(list.Selected(), "2");
    EXPECT_EQ(GetFocus(), list.GetHwnd());

    const AccessibleThing whole = Thing();
    EXPECT_TRUE(whole.Child(0).Choose(gesso::AccessibleChoice::Add));
    EXPECT_EQ(list.Selected(), "0 2");
    EXPECT_TRUE(whole.Child(2).Choose(gesso::AccessibleChoice::Remove));
    EXPECT_EQ(list.Selected(), "0");
    EXPECT_TRUE(whole.Child(0).Choose(gesso::AccessibleChoice::Only));
    EXPECT_TRUE(whole.Child(1).Choose(gesso::AccessibleChoice::Extend));
    EXPECT_EQ(list.Selected(), "0 1");
    EXPECT_EQ(whole.NextSelected(gesso::NO_INDEX), 0U);
    EXPECT_EQ(whole.NextSelected(0), 1U);
    EXPECT_EQ(whole.NextSelected(1), gesso::NO_INDEX);
    EXPECT_TRUE(whole.Child(2).Focus());
    EXPECT_EQ(list.Selected(), "0 1");
    EXPECT_EQ(list.GetCursorItem(), 2U);
    EXPECT_TRUE(whole.FocusId() == whole.Child(2).Id());

    EnableWindow(list, FALSE);
    EXPECT_FALSE(Item(L"Zoo").Select());
    EXPECT_EQ(list.Selected(), "0 1");
}

TEST_P(GListAccess, ABoxIsCheckedByAClickThatTheHostAnswers)
{
    MakeFiles(GLS_DETAILS | GLS_CHECKBOXES);
    host.onNotify = [this](const Notified& notified) {
        if (notified.code == CLICKED && notified.record.iSubItem == 0) {
            const auto item = static_cast<UINT>(notified.record.iItem);
            list.SetItemState(item, 0, list.GetItemState(item, 0) ^ LSIS_CHECKED, LSIS_CHECKED);
        }
    };
    const AccessibleThing zoo = Thing().Child(2);
    EXPECT_EQ(zoo.Action(), gesso::AccessibleAction::Check);
    EXPECT_TRUE(Item(L"Zoo").Press());
    EXPECT_EQ(zoo.Action(), gesso::AccessibleAction::Uncheck);
    EXPECT_TRUE(Item(L"Zoo").GetState() & STATE_SYSTEM_CHECKED);
    // A selection does not touch the box.
    EXPECT_TRUE(Item(L"Zoo").Select());
    EXPECT_TRUE(Item(L"Zoo").GetState() & STATE_SYSTEM_CHECKED);
    EXPECT_TRUE(Item(L"Zoo").Press());
    EXPECT_FALSE(Item(L"Zoo").GetState() & STATE_SYSTEM_CHECKED);
    host.onNotify = nullptr;
}

TEST_P(GListAccess, TheListMayGoInWhatAnActionTells)
{
    MakeFiles();
    host.onNotify = [this](const Notified& notified) {
        if (notified.code == FOCUS_SET) {
            list.Destroy();
        }
    };
    const AccessibleNode zoo = Item(L"Zoo");
    EXPECT_FALSE(zoo.Select());
    EXPECT_EQ(zoo.role(), Role::None);
    EXPECT_FALSE(zoo.Press());
    host.onNotify = nullptr;
}

struct Question
{
    UINT item, column, what;
};
std::vector<Question> s_questions;

void Answer(GList*, UINT item, UINT column, UINT what, void* answer)
{
    s_questions.push_back({item, column, what});
    if (what == LGET_TEXT) {
        *static_cast<LPCWSTR*>(answer) = column == 0 ? L"row" : L"more";
    } else if (what == LGET_STATE) {
        *static_cast<UINT*>(answer) = LSIS_CHECKED;
    }
}

TEST_P(GListAccess, OfAHundredMillionItemsOneIsAskedFor)
{
    constexpr UINT COUNT = 100'000'000;
    MakeList(GLS_DETAILS | GLS_CHECKBOXES);
    for (const LPCWSTR pszName : {L"A", L"B"}) {
        list.InsertColumn(END, 0, DT_SINGLELINE, 100, 20, pszName, 0, LCT_TEXT, nullptr, nullptr, nullptr,
                          Answer);
    }
    AddGroup(1, "First");
    AddGroup(2, "Second");
    list.SetVirtualItems(COUNT);
    list.SetGroupItemCount(0, 10);
    list.SetGroupItemCount(1, COUNT - 10);
    s_questions.clear();
    const AccessibleThing whole = Thing();
    EXPECT_EQ(whole.Count(), COUNT + 2);
    const AccessibleThing last = whole.Child(COUNT - 1);
    EXPECT_EQ(last.Rect().bottom > last.Rect().top, true);
    EXPECT_TRUE(s_questions.empty());
    EXPECT_EQ(gesso::ToUtf8(last.Name()), "row");
    EXPECT_EQ(gesso::ToUtf8(last.Description()), "B: more");
    EXPECT_EQ(last.State() & (STATE_SYSTEM_CHECKED | STATE_SYSTEM_OFFSCREEN),
              static_cast<UINT>(STATE_SYSTEM_CHECKED | STATE_SYSTEM_OFFSCREEN));
    for (const Question& question : s_questions) {
        EXPECT_EQ(question.item, COUNT - 1);
    }
    EXPECT_EQ(s_questions.size(), 3U);

    const AccessibleThing second = whole.Child(COUNT + 1);
    EXPECT_EQ(gesso::ToUtf8(second.Name()), "Second");
    EXPECT_EQ(second.Count(), COUNT - 10);
    EXPECT_TRUE(second.Child(0).Id() == whole.Child(10).Id());
    EXPECT_EQ(second.IndexOf(last.Id()), COUNT - 11);
    EXPECT_TRUE(last.Choose(gesso::AccessibleChoice::Only));
    EXPECT_EQ(second.NextSelected(gesso::NO_INDEX), COUNT - 11);
    EXPECT_EQ(whole.NextSelected(gesso::NO_INDEX), COUNT - 1);
    EXPECT_EQ(last.State() & STATE_SYSTEM_OFFSCREEN, 0U);
    EXPECT_TRUE(whole.IdAt(MiddleOf(last.Rect())) == last.Id());
    list.LeaveVirtual();
    EXPECT_EQ(last.Check(), E_INVALIDARG);
}

} // namespace
