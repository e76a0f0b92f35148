#include "TreeModern.h"

#include <tests/support/AllowMisuse.h>

#include <map>
#include <random>

namespace {

using namespace test;

// Rows of 20 pixels, of which 5 show: a with a1, a2 and a21 below that, b, and c to l.
class GTreeModernTest : public ModernTreeTest<GTree>
{
protected:
    void SetUp() override
    {
        Make(WS_VSCROLL | WS_HSCROLL);
        a = Add(nullptr, "a");
        a1 = Add(a, "a1");
        a2 = Add(a, "a2");
        a21 = Add(a2, "a21");
        b = Add(nullptr, "b");
        for (char c = 'c'; c <= 'l'; ++c) {
            Add(nullptr, std::string(1, c));
        }
        SetFocus(tree);
        host.Take();
    }
    void OpenAll()
    {
        tree.Expand(a2);
        host.Take();
    }

    // What should show: every item below open ones alone, from the top down.
    std::string Open(void* parent) const
    {
        std::string names;
        void* const end = reinterpret_cast<void*>(-1);
        for (void* p = nullptr; (p = tree.GetItemNextChild(parent, p)) != end;) {
            names += " " + Narrow(tree.GetItemName(p));
            names += tree.GetItemState(p) & TIS_EXPANDED ? Open(p) : "";
        }
        return names;
    }

    void *a, *a1, *a2, *a21, *b;
};

TEST_F(GTreeModernTest, TheParentHearsOnceOfEachChangeOfTheSelection)
{
    EXPECT_EQ(tree.GetSelectedItem(), nullptr) << "the first focus selects nothing";
    tree.SetSelectedItem(b);
    tree.SetSelectedItem(b);
    EXPECT_TRUE(TakeRepaint(tree));
    EXPECT_EQ(Told(), Lines{"-451 b"});
    Click(60, 5);
    EXPECT_EQ(Told(), (Lines{"-451 a", "-2 a"}));
    Click(60, 5);
    EXPECT_EQ(Told(), Lines{"-2 a"});
    Key(VK_DOWN);
    Key(VK_HOME);
    Key(VK_HOME);
    Send(WM_CHAR, 'b');
    EXPECT_EQ(Told(), (Lines{"-451 b", "-451 a", "-451 b"}));
    tree.Add(nullptr, "front", 0, tree.GetRootItem());
    EXPECT_EQ(tree.GetSelectedItem(), b) << "it follows its item";
    EXPECT_EQ(tree.m_nSelected, 2u);
    tree.SetSelectedItem(nullptr);
    EXPECT_EQ(Told(), Lines{"-451 none"});
}

TEST_F(GTreeModernTest, RowsThatComeWhileNothingIsPaintedAreRequestedOnceAtItsEnd)
{
    Send(WM_SETREDRAW, FALSE);
    UpdateWindow(tree);
    Add(nullptr, "m");
    tree.Expand(a);
    EXPECT_FALSE(GetUpdateRect(tree, nullptr, FALSE))
        << "a request for each row would cost more than the row";
    Send(WM_SETREDRAW, TRUE);
    EXPECT_TRUE(TakeRepaint(tree));
    UpdateWindow(tree);
    Add(nullptr, "n");
    EXPECT_TRUE(TakeRepaint(tree));
}

TEST_F(GTreeModernTest, WhatCollapsesOverTheSelectionIsSelected)
{
    OpenAll();
    tree.SetSelectedItem(a21);
    tree.Collapse(a);
    EXPECT_EQ(tree.GetSelectedItem(), a);
    EXPECT_EQ(Told(), (Lines{"-451 a21", "-454 a", "-451 a", "-455 a"}));
    tree.Expand(a);
    EXPECT_EQ(tree.Selected(), "a");
    // The selected item itself, or one beside it, is no reason.
    tree.SetSelectedItem(a2);
    host.Take();
    tree.Collapse(a2);
    EXPECT_EQ(Told(), (Lines{"-454 a2", "-455 a2"}));
}

TEST_F(GTreeModernTest, EachItemOfARemovedBranchIsToldBeforeItGoes)
{
    OpenAll();
    tree.SetSelectedItem(a21);
    host.Take();
    int readable = 0;
    host.onNotify = [&](const Notified& n) {
        if (n.code == ITEM_GOES) {
            readable += Narrow(tree.GetItemName(n.record.pItem)) == NameAt(n);
            tree.RemoveItem(n.record.pItem); // goes already
        }
    };
    tree.RemoveItem(a);
    host.onNotify = nullptr;
    EXPECT_EQ(readable, 4);
    EXPECT_EQ(Told(), (Lines{"-458 a", "-458 a1", "-458 a2", "-458 a21", "-451 none"}));
    EXPECT_EQ(tree.Rows(), "b c d e f g h i j k l") << "its row is gone at once";
    tree.SetSelectedItem(b);
    host.Take();
    tree.RemoveAllItems();
    const Lines told = Told();
    EXPECT_EQ(told.size(), 12u);
    EXPECT_EQ(told.back(), "-451 none");
    EXPECT_TRUE(tree.Check());
}

// Whatever the parent does meanwhile, each item is told once.
TEST_F(GTreeModernTest, TheParentMayChangeTheTreeWhileAnItemGoes)
{
    const AllowMisuse allow;
    OpenAll();
    int told = 0;
    const auto whenGoes = [&](void* hItem, std::function<void()> act) {
        host.onNotify = [this, &told, hItem, act](const Notified& n) {
            told += n.code == ITEM_GOES;
            if (n.code == ITEM_GOES && n.record.pItem == hItem) {
                act();
            }
        };
    };
    whenGoes(a2, [&] {
        EXPECT_EQ(tree.InsertItem(a2, nullptr, L"late", 0, 0, nullptr), nullptr);
        tree.SetItemParent(a21, nullptr);
        tree.SetItemParent(a21, tree.GetRootItem());
        tree.SetItemParent(b, a21);
        tree.SortChildren(a);
        tree.RemoveItem(a); // all of it goes within
    });
    tree.RemoveItem(a2);
    EXPECT_EQ(told, 4);
    EXPECT_EQ(tree.Rows(), "b c d e f g h i j k l");
    EXPECT_TRUE(tree.Check());
    told = 0;
    whenGoes(b, [&] {
        tree.RemoveAllItems();
        tree.Add(nullptr, "new");
    });
    tree.RemoveItem(b);
    EXPECT_EQ(told, 11);
    EXPECT_EQ(tree.Rows(), "new");
    EXPECT_TRUE(tree.Check());
}

TEST_F(GTreeModernTest, ARightClickSelectsAndTellsBeforeTheContextMenu)
{
    {
        const Interception menu(host, WM_CONTEXTMENU, [] {});
        RightClick(60, 30);
        EXPECT_TRUE(menu.Happened());
    }
    EXPECT_EQ(Told(), (Lines{"-451 b", "-5 b"}));
    tree.SetSelectedItem(b);
    HoldKeys({VK_SHIFT});
    RightClick(7, 30);
    EXPECT_EQ(host.TakeLines(), Lines{"-5 row 1 action 0 at 7,30 keys 4"});
    HoldKeys({});
    host.answer = 1;
    const Interception menu(host, WM_CONTEXTMENU, [] {});
    RightClick(60, 5);
    Mouse(WM_RBUTTONDBLCLK, 60, 5);
    EXPECT_EQ(Told(), (Lines{"-451 a", "-5 a", "-6 a"}));
    tree.RemoveAllItems();
    host.Take();
    RightClick(60, 5);
    EXPECT_EQ(Told(), Lines{"-5 none"});
    EXPECT_FALSE(menu.Happened()) << "the parent keeps it from coming";
}

TEST_F(GTreeModernTest, BoxesAreTickedBeforeTheClickIsTold)
{
    tree.SetTreeStyle(GTS_CHECKBOXES);
    std::vector<UINT> states;
    host.onNotify = [&](const Notified& n) {
        if (n.code == CLICKED) {
            states.push_back(tree.GetItemState(n.record.pItem));
        }
    };
    Click(30, 5); // the box
    Click(60, 5); // the label
    Key(VK_SPACE);
    Mouse(WM_LBUTTONDBLCLK, 30, 5);
    Mouse(WM_LBUTTONUP, 30, 5);
    Mouse(WM_LBUTTONDOWN, 60, 5);
    Mouse(WM_LBUTTONUP, 30, 5);
    tree.SetTreeStyle(0);
    Key(VK_SPACE);
    EXPECT_EQ(states,
              (std::vector<UINT>{TIS_CHECKED, TIS_CHECKED, 0, TIS_CHECKED, TIS_CHECKED, TIS_CHECKED}));
}

TEST_F(GTreeModernTest, EnterAndEscapeAreTheDialogsOrTold)
{
    tree.SetSelectedItem(b);
    host.Take();
    Key(VK_RETURN);
    EXPECT_EQ(host.TakeLines(), Lines{"-4 row 1 action 0 at -1,-1 keys 0"});
    SendMessageW(tree, WM_KEYDOWN, VK_RETURN, LPARAM{KF_REPEAT} << 16 | 1);
    EXPECT_EQ(host.TakeLines(), Lines{}) << "held";
    for (const WPARAM key : {VK_RETURN, VK_ESCAPE}) {
        MSG msg{tree, WM_KEYDOWN, key, 1, 0, {0, 0}};
        EXPECT_TRUE(IsDialogMessageW(host, &msg));
        EXPECT_EQ(host.TakeClicks(), 1) << key;
    }
    EXPECT_TRUE(Told().empty());
}

TEST_F(GTreeModernTest, KeysSelectItems)
{
    for (const auto& [key, selected] : {std::pair{VK_LEFT, "(none)"},
                                        {VK_DOWN, "a"},
                                        {VK_END, "l"},
                                        {VK_HOME, "a"},
                                        {VK_NEXT, "e"},
                                        {VK_NEXT, "j"},
                                        {VK_PRIOR, "f"},
                                        {VK_PRIOR, "a"},
                                        {VK_PRIOR, "a"},
                                        {VK_RIGHT, "a"},
                                        {VK_RIGHT, "a1"},
                                        {VK_LEFT, "a"},
                                        {VK_LEFT, "a"}})
    {
        Key(static_cast<UINT>(key));
        EXPECT_EQ(tree.Selected(), selected) << key;
        EXPECT_EQ(tree.m_pSelected, tree.GetSelectedItem()) << key;
    }
    tree.MoveWindow(0, 0, TREE_CX, 900);
    Key(VK_END);
    Key(VK_PRIOR);
    EXPECT_EQ(tree.m_pSelected, a);
}

TEST_F(GTreeModernTest, TypedWordsLeadToItemsInAnyScript)
{
    void* word = tree.InsertItem(nullptr, nullptr, L"\u00c4rger b", 0, 0, nullptr);
    for (const WPARAM c : std::initializer_list<WPARAM>{0xE4, 'R', 'G', 'E', 'R'}) {
        Send(WM_CHAR, c);
    }
    EXPECT_EQ(tree.GetSelectedItem(), word);
    host.Take();
    Key(VK_SPACE);
    Send(WM_CHAR, ' ');
    Send(WM_CHAR, 'b');
    EXPECT_EQ(tree.GetSelectedItem(), word);
    EXPECT_TRUE(host.Take().empty()) << "the blank is the word's";
    Key(VK_HOME);
    Send(WM_CHAR, 'b');
    EXPECT_EQ(tree.GetSelectedItem(), b) << "another key ends the word";
}

TEST_F(GTreeModernTest, PointsHitWhatIsPaintedThere)
{
    OpenAll();
    tree.SetItemName(a21, WideText(std::string(60, 'w')));
    ASSERT_TRUE(tree.GetStyle() & WS_HSCROLL) << "the range follows a name";
    for (const UINT style : {0u, GTS_CHECKBOXES, GTS_IMAGES, GTS_CHECKBOXES | GTS_IMAGES}) {
        tree.SetTreeStyle(style);
        for (const int x : {0, 25}) {
            tree.SetScrollPos(SB_HORZ, x, 0);
            for (void* item : {a, a1, a2, a21}) {
                RECT rcRow{}, rc{};
                ASSERT_TRUE(tree.GetItemRect(item, false, &rcRow) && tree.GetItemRect(item, true, &rc));
                const int y = rcRow.top + 1;
                const int left = std::max<int>(rc.left, 0);
                EXPECT_EQ(tree.HitAt(left, y).nPart, THT_LABEL);
                EXPECT_EQ(tree.ItemFromPoint({left, y}), item);
                if (rc.left > 0) {
                    EXPECT_NE(tree.HitAt(rc.left - 1, y).nPart, THT_LABEL);
                }
                EXPECT_EQ(rcRow.bottom - rcRow.top, 20);
                EXPECT_GT(rc.right, rc.left);
            }
        }
    }
    RECT rc{1, 2, 3, 4};
    tree.Collapse(a);
    EXPECT_FALSE(tree.GetItemRect(a1, true, &rc)) << "no row";
    EXPECT_EQ(rc.left, 1);
    EXPECT_EQ(tree.ItemFromPoint({5, -1}), nullptr);
    EXPECT_EQ(tree.ItemFromPoint({-1, 5}), nullptr);
    const AllowMisuse allow;
    EXPECT_FALSE(tree.GetItemRect(nullptr, true, &rc));
    EXPECT_FALSE(tree.GetItemRect(a, true, nullptr));
    EXPECT_FALSE(tree.GetItemRect(&rc, true, &rc));
}

TEST_F(GTreeModernTest, AnItemIsOpenedAndBroughtIntoViewWhereverItIs)
{
    tree.Expand(a2);
    EXPECT_EQ(Told(), (Lines{"-454 a", "-455 a", "-454 a2", "-455 a2"})) << "from the top down";
    EXPECT_EQ(tree.Rows(), "a a1 a2 a21 b c d e f g h i j k l");
    tree.SetItemName(a1, WideText(std::string(60, 'w'))); // both bars
    void* last = tree.At(14);
    RECT rc{}, rcClient{};
    GetClientRect(tree, &rcClient);
    for (void* item : {last, a1, last, b, a}) {
        tree.EnsureVisible(item);
        ASSERT_TRUE(tree.GetItemRect(item, false, &rc));
        EXPECT_GE(rc.top, 0);
        EXPECT_LE(rc.bottom, rcClient.bottom);
    }
    SCROLLINFO si{sizeof(si), SIF_PAGE, 0, 0, 7, 0, 0};
    MoveWindow(tree, 0, 0, 10, 60, FALSE);
    tree.GetScrollInfo(SB_HORZ, &si);
    EXPECT_EQ(si.nPage, 0U) << "narrower than its bar";
    MoveWindow(tree, 0, 0, rcClient.right, rcClient.bottom, FALSE);
    tree.Collapse(a);
    tree.EnsureVisible(a21);
    EXPECT_TRUE(tree.GetItemRect(a21, false, &rc));
    // The parent may refuse to let the way open.
    tree.Collapse(a);
    host.onNotify = [&](const Notified& n) {
        if (n.code == EXPANDED) {
            tree.RemoveItem(a2);
        }
    };
    tree.Expand(a21);
    host.onNotify = nullptr;
    EXPECT_EQ(tree.Rows().substr(0, 3), "a w");
}

// Any operations leave the rows as the items say, and the selection on its item.
TEST_F(GTreeModernTest, RowsAreWhatIsOpenAfterAnyOperation)
{
    std::mt19937 random(7);
    const auto below = [&](size_t n) { return static_cast<UINT>(random() % n); };
    std::vector<void*> items{a, a1, a2, a21, b};
    host.onNotify = [&](const Notified& n) {
        if (n.code == ITEM_GOES) {
            std::erase(items, n.record.pItem);
        }
    };
    for (int step = 0; step < 3000 && !HasFailure(); ++step) {
        void* item = items.empty() ? tree.GetRootItem() : items[below(items.size())];
        void* other = items.empty() ? tree.GetRootItem() : items[below(items.size())];
        const AllowMisuse allow; // the root and moves below oneself
        switch (below(9)) {
        case 0:
        case 1:
        case 2:
            items.push_back(tree.Add(item, std::string(1, static_cast<char>('a' + below(26))),
                                     below(3) ? 0 : TIS_EXPANDED, other));
            break;
        case 3: tree.RemoveItem(below(3) ? item : nullptr); break;
        case 4: tree.Expand(item); break;
        case 5: tree.SetItemParent(item, below(4) ? other : tree.GetRootItem()); break;
        case 6: tree.SortChildren(below(4) ? item : tree.GetRootItem()); break;
        case 7: tree.SetItemState(item, below(2) ? TIS_EXPANDED : 0, TIS_EXPANDED); break;
        default: tree.SetSelectedItem(item); break;
        }
        EXPECT_EQ(" " + tree.Rows(), Open(nullptr)) << step;
        EXPECT_EQ(tree.m_nSelected, tree.FindVisibleIndex(tree.m_pSelected)) << step;
        EXPECT_TRUE(tree.Check()) << step;
    }
    host.onNotify = nullptr;
}

TEST_F(GTreeModernTest, AMovedItemHasItsNewParentAndLevel)
{
    tree.SetItemParent(a2, b);
    EXPECT_EQ(tree.GetItemParent(a2), b);
    EXPECT_EQ(tree.GetItemLevel(a2), 1);
    EXPECT_EQ(tree.GetItemLevel(a21), 2);
    tree.SetItemParent(a2, tree.GetRootItem());
    EXPECT_EQ(tree.GetItemLevel(a21), 1);
    EXPECT_EQ(tree.Rows(), "a b c d e f g h i j k l a2");
    EXPECT_TRUE(TakeRepaint(tree));
    tree.SetItemState(a, TIS_CHECKED, TIS_CHECKED);
    EXPECT_TRUE(TakeRepaint(tree));
    tree.SetItemImage(a, 1);
    EXPECT_TRUE(TakeRepaint(tree));
}

TEST_F(GTreeModernTest, NewItemsStandInTheOrderOfTheShell)
{
    tree.RemoveAllItems();
    for (const char* name : {"file 10", "b", "File 9", "file 2", "A", "file 02", "c"}) {
        EXPECT_NE(tree.InsertSorted(nullptr, WideText(name), 0, 0, nullptr), nullptr);
    }
    EXPECT_EQ(tree.Children(nullptr), "A b c file 2 file 02 File 9 file 10");
    EXPECT_EQ(tree.Rows(), "A b c file 2 file 02 File 9 file 10");
    void* below = tree.InsertSorted(tree.At(0), nullptr, 3, TIS_CHECKED, &below);
    EXPECT_EQ(tree.GetItemParent(below), tree.At(0));
    EXPECT_EQ(tree.GetItemImage(below), 3u);
    EXPECT_EQ(tree.GetItemState(below), TIS_CHECKED);
    EXPECT_EQ(tree.GetItemCustomData(below), &below);
    const AllowMisuse allow;
    EXPECT_EQ(tree.InsertSorted(&below, L"x", 0, 0, nullptr), nullptr);
}

TEST_F(GTreeModernTest, ASecondWindowStartsAfresh)
{
    tree.SetSelectedItem(b);
    Mouse(WM_MOUSEMOVE, 60, 30);
    tree.SetFont(g_hDefaultFont);
    DestroyWindow(tree);
    Make();
    EXPECT_EQ(tree.GetFont(), g_hDefaultFont) << "what the host has set stays";
    EXPECT_EQ(tree.GetSelectedItem(), nullptr);
    EXPECT_EQ(tree.m_hitMove.nItem, NONE);
    host.Take();
    tree.SetSelectedItem(b);
    EXPECT_EQ(Told(), Lines{"-451 b"});
}

TEST_F(GTreeModernTest, TheParentMayDestroyTheTreeInEachNotification)
{
    using Act = std::function<void(GTree&, void* hFirst, void* hBelow)>;
    const auto mouse = [](std::initializer_list<UINT> messages) {
        return [messages = std::vector<UINT>(messages)](const GTree& doomed, void*, void*) {
            for (const UINT uMsg : messages) {
                SendMessageW(doomed.GetHwnd(), uMsg, 0, MAKELPARAM(60, 5));
            }
        };
    };
    const auto key = [](UINT uMsg, WPARAM vk) {
        return [=](const GTree& doomed, void*, void*) { SendMessageW(doomed.GetHwnd(), uMsg, vk, 1); };
    };
    const std::pair<int, Act> cases[] = {
        {SELECTION_CHANGED, mouse({WM_LBUTTONDOWN, WM_LBUTTONUP})},
        {SELECTION_CHANGED, mouse({WM_RBUTTONDOWN})},
        {SELECTION_CHANGED, mouse({WM_RBUTTONUP})},
        {SELECTION_CHANGED, mouse({WM_RBUTTONDBLCLK})},
        {SELECTION_CHANGED, key(WM_KEYDOWN, VK_DOWN)},
        {SELECTION_CHANGED, key(WM_CHAR, 'f')},
        {SELECTION_CHANGED, [](GTree& doomed, void* hFirst, void*) { doomed.SetSelectedItem(hFirst); }},
        {RIGHT_CLICKED, mouse({WM_RBUTTONUP})},
        {RIGHT_DOUBLE_CLICKED, mouse({WM_RBUTTONDBLCLK})},
        {RETURNED, key(WM_KEYDOWN, VK_RETURN)},
        {ITEM_GOES, [](GTree& doomed, void* hFirst, void*) { doomed.RemoveItem(hFirst); }},
        {ITEM_GOES, [](GTree& doomed, void*, void*) { doomed.RemoveAllItems(); }},
        {EXPANDING, [](GTree& doomed, void*, void* hBelow) { doomed.Expand(hBelow); }},
        {EXPANDED, [](GTree& doomed, void*, void* hBelow) { doomed.EnsureVisible(hBelow); }},
    };
    for (const bool fObjectToo : {false, true}) {
        for (const auto& [code, act] : cases) {
            auto* doomed = new GTree;
            const HWND hwnd = doomed->Create(0, 0, 100, 100, host, TREE_ID, 0, WS_CHILD | WS_VISIBLE);
            void* hFirst = doomed->InsertItem(nullptr, nullptr, L"first", 0, 0, nullptr);
            void* hBelow = doomed->InsertItem(hFirst, nullptr, L"below", 0, 0, nullptr);
            doomed->InsertItem(hBelow, nullptr, L"deep", 0, 0, nullptr);
            if (fObjectToo) {
                gesso::OwnByWindow(doomed);
            }
            host.onNotify = [&, code = code](const Notified& n) {
                if (n.code == code) {
                    DestroyWindow(hwnd);
                }
            };
            act(*doomed, hFirst, hBelow);
            EXPECT_FALSE(IsWindow(hwnd)) << code;
            host.onNotify = nullptr;
            if (!fObjectToo) {
                delete doomed;
            }
        }
    }
}

// The way down through a collapse is told as well.
TEST_F(GTreeModernTest, TheParentMayDestroyTheTreeAsItsSelectionIsHidden)
{
    OpenAll();
    tree.SetSelectedItem(a21);
    host.onNotify = [&](const Notified& n) {
        if (n.code == SELECTION_CHANGED) {
            DestroyWindow(tree);
        }
    };
    host.Take();
    tree.Collapse(a);
    EXPECT_EQ(Told(), (Lines{"-454 a", "-451 a"}));
    host.onNotify = nullptr;
}

TEST_F(GTreeModernTest, ThumbsLeadBeyondSixteenBits)
{
    tree.SetItemHeight(10000);
    tree.m_siV.nTrackPos = 70000;
    Send(WM_VSCROLL, MAKEWPARAM(SB_THUMBTRACK, LOWORD(70000)));
    EXPECT_EQ(tree.m_siV.nPos, 70000);
    Send(WM_VSCROLL, MAKEWPARAM(SB_THUMBTRACK, 5));
    EXPECT_EQ(tree.m_siV.nPos, 5) << "of a message that the bar has not sent";
}

} // namespace
