// What assistive technology hears of lists.
#include "../../list/ListFixture.h"
#include "../../support/WithBehavior.h"

#include <platform/headless/headless.h>

#include <functional>

namespace {

using namespace test;
using gesso::Behavior;
using gesso::headless::EventName;

using Lines = std::vector<std::string>;

class GListEvents : public ListFixture, public testing::WithParamInterface<Behavior>
{
protected:
    GListEvents() : m_behavior(GetParam()) {}

    // Items a, b and c.
    void MakeThree(UINT listStyle = GLS_DETAILS)
    {
        MakeList(listStyle);
        AddColumn(L"Name");
        for (const char* text : {"a", "b", "c"}) {
            AddItem(text);
        }
    }
    // What the list tells in an action: "FOCUS 2".
    Lines Events(const std::function<void()>& act) const
    {
        gesso::headless::StartEvents();
        act();
        Lines lines;
        for (const auto& event : gesso::headless::StopEvents()) {
            if (event.hwnd == list.GetHwnd() && event.object == OBJID_CLIENT) {
                const std::string name = EventName(event.event);
                const std::string prefix = "EVENT_OBJECT_";
                lines.push_back((name.starts_with(prefix) ? name.substr(prefix.size()) : name) + " " +
                                std::to_string(event.child));
            }
        }
        return lines;
    }
    static bool IsModern() { return GetParam() == Behavior::Modern; }

    WithBehavior m_behavior;
};

INSTANTIATE_TEST_SUITE_P(Both, GListEvents, testing::Values(Behavior::Classic, Behavior::Modern));

TEST_P(GListEvents, TheSelectionIsToldByItsItems)
{
    MakeThree();
    EXPECT_EQ(Events([&] { list.SetSelected(1, 1); }), Lines{"SELECTION 2"});
    EXPECT_EQ(Events([&] { list.SetSelected(1, 1); }), Lines{});
    EXPECT_EQ(Events([&] { list.SetSelected(2, 1); }), Lines{"SELECTIONADD 3"});
    EXPECT_EQ(Events([&] { list.SetSelected(1, 0); }), Lines{"SELECTIONREMOVE 2"});
    EXPECT_EQ(Events([&] { list.ClearSelection(); }), Lines{"SELECTIONREMOVE 3"});
    EXPECT_EQ(Events([&] { list.ClearSelection(); }), Lines{});
    AddItems(30);
    EXPECT_EQ(Events([&] { Key('A', KEYMOD_CTRL); }), Lines{"SELECTIONWITHIN 0"});
    EXPECT_EQ(Events([&] { list.SetFirstSelectedItemIndex(0); }), Lines{"SELECTIONWITHIN 0"});
}

TEST_P(GListEvents, TheFocusIsToldWithItsItem)
{
    MakeThree();
    EXPECT_EQ(Events([&] { list.SetCursorItem(2); }), Lines{}) << "without the focus";
    EXPECT_EQ(Events([&] { SetFocus(list); }), (Lines{"FOCUS 0", "FOCUS 3"}))
        << "the first is the platform's";
    EXPECT_EQ(Events([&] { Key(VK_UP); }), (Lines{"FOCUS 2", "SELECTION 2"}));
    EXPECT_EQ(Events([&] { ClickItem(0); }), (Lines{"FOCUS 1", "SELECTION 1"}));
    EXPECT_EQ(Events([&] { list.SetCursorItem(1); }), Lines{"FOCUS 2"});
    EXPECT_EQ(Events([&] { list.SetCursorItem(1); }), Lines{});
    // The next item takes the place of one that goes.
    EXPECT_EQ(Events([&] { list.RemoveItem(1); }), (Lines{"DESTROY 2", "FOCUS 2"}));
    EXPECT_EQ(Events([&] { EnableWindow(list, FALSE); }), Lines{"STATECHANGE 0"});
}

TEST_P(GListEvents, ItemsThatComeAndGoAreToldOneByOneAndManyTogether)
{
    MakeThree(GLS_DETAILS | GLS_CHECKBOXES);
    EXPECT_EQ(Events([&] { AddItem("d"); }), Lines{"CREATE 4"});
    EXPECT_EQ(Events([&] { list.SetItemText(3, 0, L"e"); }), Lines{"NAMECHANGE 4"});
    EXPECT_EQ(Events([&] { list.SetItemText(3, 0, L"e"); }), Lines{});
    EXPECT_EQ(Events([&] { list.SetItemState(1, 0, LSIS_CHECKED, LSIS_CHECKED); }), Lines{"STATECHANGE 2"});
    EXPECT_EQ(Events([&] { list.SetItemState(1, 0, LSIS_CHECKED, LSIS_CHECKED); }), Lines{});
    EXPECT_EQ(Events([&] { list.RemoveItem(3); }), Lines{"DESTROY 4"});
    list.SetSelected(1, 1);
    EXPECT_EQ(Events([&] { list.Sort(0, false); }), Lines{"REORDER 0"});
    EXPECT_EQ(Events([&] { list.RemoveAllItems(); }), Lines{"REORDER 0"}) << "and nothing else";
    EXPECT_EQ(Events([&] { list.RemoveAllItems(); }), Lines{});
    EXPECT_EQ(Events([&] {
                  list.BulkInsertOn();
                  AddItems(100);
                  list.BulkInsertOff();
              }),
              Lines{"REORDER 0"});
    EXPECT_EQ(Events([&] { list.EnsureVisible(99); }), Lines{"CONTENTSCROLLED 0"});
    EXPECT_EQ(Events([&] { list.EnsureVisible(99); }), Lines{});
}

TEST_P(GListEvents, TheHostsItemsAreToldAsItTellsOfThem)
{
    MakeList();
    AddColumn(L"Name");
    EXPECT_EQ(Events([&] { list.SetVirtualItems(1000); }), Lines{"REORDER 0"});
    EXPECT_EQ(Events([&] { list.ItemsInserted(5, 1); }), Lines{"CREATE 6"});
    EXPECT_EQ(Events([&] { list.ItemsRemoved(5, 1); }), Lines{"DESTROY 6"});
    EXPECT_EQ(Events([&] { list.ItemsInserted(900, 2); }), Lines{"REORDER 0"});
    EXPECT_EQ(Events([&] { list.ItemsChanged(3, 3); }), Lines{"NAMECHANGE 4"});
    EXPECT_EQ(Events([&] { list.ItemsChanged(0, END); }), Lines{"REORDER 0"});
    EXPECT_EQ(Events([&] { list.SetSelected(7, 1); }), Lines{"SELECTION 8"});
    EXPECT_EQ(Events([&] { Key('A', KEYMOD_CTRL); }), Lines{"SELECTIONWITHIN 0"});
}

} // namespace
