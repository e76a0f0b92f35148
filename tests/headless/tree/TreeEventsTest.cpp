// What assistive technology hears of trees, navigation bars and ribbons.
#include "../../ribbon/RibbonTestSupport.h"
#include "../../support/WithBehavior.h"
#include "../../tree/CountedTree.h"

#include <platform/headless/headless.h>

#include <functional>

namespace {

using namespace test;
using gesso::Behavior;
using gesso::headless::EventName;

// What a control tells in an action: "FOCUS 2".
Lines EventsOf(HWND hwnd, const std::function<void()>& act)
{
    gesso::headless::StartEvents();
    act();
    Lines lines;
    for (const auto& event : gesso::headless::StopEvents()) {
        if (event.hwnd == hwnd && event.object == OBJID_CLIENT) {
            const std::string name = EventName(event.event);
            const std::string prefix = "EVENT_OBJECT_";
            lines.push_back((name.starts_with(prefix) ? name.substr(prefix.size()) : name) + " " +
                            std::to_string(event.child));
        }
    }
    return lines;
}

// Rows of 20 pixels: a, whose children a1 and a2 are closed, and b.
class GTreeEvents : public TreeTest<GTree>, public testing::WithParamInterface<Behavior>
{
protected:
    GTreeEvents() : m_behavior(GetParam())
    {
        Make(WS_VSCROLL | WS_HSCROLL);
        a = tree.Add(nullptr, "a");
        a1 = tree.Add(a, "a1");
        a2 = tree.Add(a, "a2");
        b = tree.Add(nullptr, "b");
    }
    Lines Events(const std::function<void()>& act) const { return EventsOf(tree, act); }
    static bool IsModern() { return GetParam() == Behavior::Modern; }

    WithBehavior m_behavior;
    void* a;
    void* a1;
    void* a2;
    void* b;
};

INSTANTIATE_TEST_SUITE_P(Both, GTreeEvents, testing::Values(Behavior::Classic, Behavior::Modern));

TEST_P(GTreeEvents, ExpansionIsAStateOfTheRow)
{
    EXPECT_EQ(Events([&] { tree.Expand(a); }), Lines{"STATECHANGE 1"});
    EXPECT_EQ(Events([&] { tree.Expand(a); }), Lines{});
    EXPECT_EQ(Events([&] { tree.Collapse(a); }), Lines{"STATECHANGE 1"});
    EXPECT_EQ(Events([&] { tree.SetItemState(b, TIS_HASCHILDREN, 0); }), Lines{"STATECHANGE 2"});
    EXPECT_EQ(Events([&] { tree.SetItemState(b, TIS_HASCHILDREN, 0); }), Lines{});
}

TEST_P(GTreeEvents, TheSelectionIsToldOnceAndWithItTheFocus)
{
    EXPECT_EQ(Events([&] { tree.SetSelectedItem(b); }), Lines{"SELECTION 2"});
    EXPECT_EQ(Events([&] { tree.SetSelectedItem(b); }), Lines{});
    EXPECT_EQ(Events([&] { SetFocus(tree); }), (Lines{"FOCUS 0", "FOCUS 2"}))
        << "the first one is the platform's";
    EXPECT_EQ(Events([&] { Key(VK_UP); }), (Lines{"FOCUS 1", "SELECTION 1"}));
    EXPECT_EQ(Events([&] { Click(100, 25); }), (Lines{"FOCUS 2", "SELECTION 2"}));
    EXPECT_EQ(Events([&] { tree.SetSelectedItem(nullptr); }), (Lines{"FOCUS 0", "SELECTIONREMOVE 2"}));
}

TEST_P(GTreeEvents, ItemsThatComeAndGoAreToldOneByOneAndManyTogether)
{
    void* c = nullptr;
    EXPECT_EQ(Events([&] { c = tree.Add(nullptr, "c"); }), Lines{"CREATE 3"});
    EXPECT_EQ(Events([&] { tree.Add(c, "c1"); }), Lines{"STATECHANGE 3"}) << "it can be expanded now";
    EXPECT_EQ(Events([&] { tree.Add(c, "c2"); }), Lines{});
    EXPECT_EQ(Events([&] { tree.SetItemName(c, L"d"); }), Lines{"NAMECHANGE 3"});
    EXPECT_EQ(Events([&] { tree.SetItemName(c, L"d"); }), Lines{});
    tree.Expand(c);
    EXPECT_EQ(Events([&] { tree.SortChildren(c); }), Lines{"REORDER 0"});
    EXPECT_EQ(Events([&] { tree.RemoveItem(c); }), Lines{"REORDER 0"});
    tree.SetSelectedItem(a);
    EXPECT_EQ(Events([&] { tree.RemoveAllItems(); }), Lines{"REORDER 0"}) << "and nothing else";
    EXPECT_EQ(Events([&] { tree.RemoveAllItems(); }), Lines{});
    EXPECT_EQ(Events([&] { tree.SetChildCount(nullptr, 1000); }), Lines{"REORDER 0"});
}

TEST_P(GTreeEvents, OfOneThatIsRemovedTheRowGoesInModern)
{
    EXPECT_EQ(Events([&] { tree.RemoveItem(b); }), IsModern() ? Lines{"DESTROY 2"} : Lines{});
}

TEST_P(GTreeEvents, ScrollingIsToldOnce)
{
    for (int i = 0; i < 20; ++i) {
        tree.Add(nullptr, "more");
    }
    const Lines scrolled = Events([&] { Send(WM_VSCROLL, SB_LINEDOWN); });
    ASSERT_EQ(scrolled.size(), 1u);
    EXPECT_TRUE(scrolled[0].ends_with(" 0"));
    EXPECT_EQ(Events([&] { Send(WM_VSCROLL, SB_ENDSCROLL); }), Lines{});
}

// A listener that ends the tree at the first event.
HWND s_hwndVictim = nullptr;

void CALLBACK EndTree(HWINEVENTHOOK, DWORD, HWND hwnd, LONG nObject, LONG, DWORD, DWORD)
{
    if (hwnd == s_hwndVictim && nObject == OBJID_CLIENT && hwnd) {
        s_hwndVictim = nullptr;
        DestroyWindow(hwnd);
    }
}

TEST_P(GTreeEvents, AListenerMayEndTheTreeInEachOfThem)
{
    const HWINEVENTHOOK hook = SetWinEventHook(EVENT_MIN, EVENT_MAX, GetModuleHandleW(nullptr), EndTree,
                                               GetCurrentProcessId(), 0, WINEVENT_INCONTEXT);
    ASSERT_TRUE(hook);
    const std::function<void()> acts[] = {
        [&] { tree.Expand(a); },
        [&] { tree.SetSelectedItem(b); },
        [&] { SetFocus(tree); },
        [&] { Key(VK_DOWN); },
        [&] { Click(100, 25); },
        [&] { tree.Add(nullptr, "more"); },
        [&] { tree.SetItemName(b, L"other"); },
        [&] { tree.SetChildCount(b, 100); },
        [&] { tree.RemoveItem(a1); },
        [&] { tree.RemoveAllItems(); },
    };
    for (const auto& act : acts) {
        DestroyWindow(tree);
        tree.RemoveAllItems();
        Make(WS_VSCROLL | WS_HSCROLL);
        a = tree.Add(nullptr, "a");
        a1 = tree.Add(a, "a1");
        b = tree.Add(nullptr, "b");
        SetFocus(host);
        s_hwndVictim = tree;
        act();
        s_hwndVictim = nullptr;
    }
    UnhookWinEvent(hook);
}

TEST(GNavigationBarEvents, NumbersCountNoSpacers)
{
    Modern modern;
    NotifyHost host;
    Probe<GNavigationBar> bar;
    bar.Create(0, 0, TREE_CX, 200, host, TREE_ID, 0, WS_CHILD | WS_VISIBLE | WS_VSCROLL);
    void* root = bar.GetRootItem();
    void* header = bar.Add(root, "h", NBIK_HEADER);
    void* space = bar.Add(root, "_", NBIK_SPACER, header);
    void* mail = nullptr;
    EXPECT_EQ(EventsOf(bar, [&] { mail = bar.Add(root, "mail", NBIK_ITEM, space); }), Lines{"CREATE 2"});
    EXPECT_EQ(EventsOf(bar, [&] { bar.SetSelectedItem(mail); }), Lines{"SELECTION 2"});
    EXPECT_EQ(EventsOf(bar, [&] { bar.RemoveItem(space); }), Lines{}) << "nobody knew of it";
    EXPECT_EQ(EventsOf(bar, [&] { bar.RemoveItem(header); }), Lines{"DESTROY 1"});
    DestroyWindow(bar);
}

TEST(GRibbonEvents, TabsAndThePage)
{
    Modern modern;
    Host host;
    GRibbon ribbon;
    const HWND hwnd = ribbon::CreateRibbon(ribbon, host);
    EXPECT_EQ(EventsOf(hwnd, [&] { ribbon.AddPage(nullptr, 1, L"Home"); }), Lines{"REORDER 0"});
    EXPECT_EQ(EventsOf(hwnd, [&] { ribbon.AddPage(nullptr, 2, L"View"); }), Lines{"CREATE 2"});
    GRibbonPage& home = *ribbon.GetPage(1);
    EXPECT_EQ(EventsOf(hwnd, [&] { home.InsertGroup(0, 1, L"Group", 0); }), Lines{"REORDER 3"});
    EXPECT_EQ(EventsOf(hwnd, [&] { ribbon::InsertCheckBox(home, 1, 5, false, L"Ruler"); }),
              Lines{"REORDER 3"});
    SetFocus(hwnd);
    EXPECT_EQ(EventsOf(hwnd, [&] { SendMessageW(hwnd, WM_KEYDOWN, VK_DOWN, 1); }), Lines{"FOCUS 3"});
    EXPECT_EQ(EventsOf(hwnd, [&] { SendMessageW(hwnd, WM_KEYDOWN, VK_SPACE, 1); }), Lines{"STATECHANGE 3"});
    EXPECT_EQ(EventsOf(hwnd, [&] { SendMessageW(hwnd, WM_KEYDOWN, VK_UP, 1); }), Lines{"FOCUS 1"});
    EXPECT_EQ(EventsOf(hwnd, [&] { SendMessageW(hwnd, WM_KEYDOWN, VK_RIGHT, 1); }),
              (Lines{"FOCUS 2", "SELECTION 2", "REORDER 0"}));
    EXPECT_EQ(EventsOf(hwnd, [&] { ribbon.SetActive(1); }), Lines{});
    EXPECT_EQ(EventsOf(hwnd, [&] { ribbon.SetStatus(0, 0); }), Lines{"DESTROY 1"});
    EXPECT_EQ(EventsOf(hwnd, [&] { ribbon.RenamePage(ribbon.GetPage(2), L"Look"); }),
              (Lines{"NAMECHANGE 1", "NAMECHANGE 2"}));
    ribbon.Destroy();
}

} // namespace
