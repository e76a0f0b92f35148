// Children that the host has only counted: what it is asked for and when, and what works with them as with
// others.

#include "../support/AllowMisuse.h"
#include "../support/WithBehavior.h"
#include "CountedTree.h"

namespace {

using namespace test;
using Indexes = std::vector<int>;

void* const NO_MORE = reinterpret_cast<void*>(-1);

TEST_F(GTreeCountedTest, AFolderOfAMillionAsksForWhatShowsAndOnlyOnce)
{
    MakeTree();
    void* folder = AddFolder(MANY);
    EXPECT_EQ(Asked(), Indexes{}) << "before it shows";
    EXPECT_EQ(tree.m_aVisible.GetLength(), MANY + 1);
    EXPECT_EQ(tree.GetItemChildCount(folder), MANY);
    EXPECT_EQ(AskedByPaint(), (Indexes{0, 1, 2, 3}));
    EXPECT_EQ(m_parents, std::vector<void*>(4, folder));
    EXPECT_EQ(AskedByPaint(), Indexes{});

    Key(VK_END);
    EXPECT_EQ(tree.m_nSelected, MANY);
    EXPECT_EQ(tree.Selected(), "c999999");
    AskedByPaint();
    EXPECT_EQ(AskedByPaint(), Indexes{});
    EXPECT_EQ(RowsFrom(MANY - 3, 9), "c999996 c999997 c999998 c999999");
    EXPECT_EQ(Asked(), Indexes{}) << "they have shown";
    tree.Collapse(folder);
    EXPECT_EQ(tree.m_aVisible.GetLength(), 1u);
    tree.Expand(folder);
    EXPECT_EQ(tree.m_aVisible.GetLength(), MANY + 1);
    EXPECT_TRUE(tree.Check());
}

TEST_F(GTreeCountedTest, TheRootsChildrenHaveNoParentThere)
{
    MakeTree();
    tree.Add(nullptr, "own");
    tree.SetChildCount(nullptr, 50);
    EXPECT_EQ(AskedByPaint(), (Indexes{0, 1, 2, 3, 4}));
    EXPECT_EQ(m_parents[0], nullptr);
    EXPECT_EQ(tree.GetItemChildCount(tree.GetRootItem()), 50u) << "the host's own child is replaced";
    tree.SetRootVisible(true);
    EXPECT_EQ(tree.At(0), tree.GetRootItem());
    EXPECT_EQ(RowsFrom(1, 2), "c0 c1");
    tree.SetChildCount(tree.GetRootItem(), 3);
    EXPECT_EQ(RowsFrom(1, 9), "c0 c1 c2");
    tree.RemoveAllItems();
    EXPECT_EQ(tree.GetItemChildCount(tree.GetRootItem()), 0u);
    EXPECT_TRUE(tree.Add(nullptr, "own")) << "the count has gone";
    EXPECT_TRUE(tree.Check());
}

TEST_F(GTreeCountedTest, AChildThatNeverShowedIsMadeAndAskedFor)
{
    MakeTree();
    void* folder = AddFolder(MANY, false);
    void* child = tree.GetChildAt(folder, 777'777);
    EXPECT_EQ(Asked(), Indexes{777'777});
    EXPECT_EQ(tree.GetChildAt(folder, 777'777), child);
    EXPECT_EQ(NameOf(child), "c777777");
    EXPECT_EQ(tree.GetItemImage(child), 1u);
    EXPECT_EQ(tree.GetItemParent(child), folder);
    EXPECT_EQ(tree.GetItemLevel(child), 1);
    void* next = tree.GetItemNextChild(folder, child);
    EXPECT_EQ(NameOf(next), "c777778");
    EXPECT_EQ(tree.GetItemNextChild(folder, tree.GetChildAt(folder, MANY - 1)), NO_MORE);
    EXPECT_EQ(tree.FindVisibleIndex(static_cast<TreeItem*>(child)), NONE);
    EXPECT_EQ(tree.GetChildAt(nullptr, 0), folder) << "one that the host has inserted";

    tree.Expand(folder);
    EXPECT_EQ(tree.FindVisibleIndex(static_cast<TreeItem*>(child)), 777'778u);
    tree.SetSelectedItem(child);
    tree.EnsureVisible(child);
    RECT rc{};
    ASSERT_TRUE(tree.GetItemRect(child, false, &rc));
    EXPECT_EQ(tree.ItemFromPoint({40, rc.top + 5}), child);
    const AllowMisuse allowed;
    EXPECT_EQ(tree.GetChildAt(folder, MANY), nullptr);
    EXPECT_EQ(tree.GetChildAt(child, 0), nullptr);
    EXPECT_EQ(tree.GetChildAt(&rc, 0), nullptr);
}

TEST_F(GTreeCountedTest, BranchesOpenAndCloseWithinAFolder)
{
    MakeTree();
    childCount = 2;
    void* folder = AddFolder(100'000);
    void* below = tree.Add(nullptr, "below");
    void* child = tree.GetChildAt(folder, 500);
    EXPECT_EQ(tree.GetItemChildCount(child), 2u);
    tree.Expand(child);
    tree.Expand(tree.GetChildAt(folder, 501));
    tree.Expand(tree.GetChildAt(child, 1));
    EXPECT_EQ(RowsFrom(500, 10), "c499 c500 c0 c1 c0 c1 c501 c0 c1 c502");
    EXPECT_EQ(tree.FindVisibleIndex(static_cast<TreeItem*>(below)), 100'007u);
    EXPECT_TRUE(tree.Check());

    tree.SetSelectedItem(tree.GetChildAt(tree.GetChildAt(child, 1), 0));
    EXPECT_EQ(tree.m_nSelected, 504u);
    Key(VK_LEFT); // out to the parent
    EXPECT_EQ(tree.m_nSelected, 503u);
    tree.Collapse(child);
    EXPECT_EQ(RowsFrom(500, 4), "c499 c500 c501 c0");
    tree.Collapse(folder);
    EXPECT_EQ(tree.Rows(), "folder below");
    tree.Expand(folder);
    EXPECT_EQ(RowsFrom(500, 5), "c499 c500 c501 c0 c1") << "what was open below is open again";
    EXPECT_TRUE(tree.Check());
    tree.RemoveItem(below);
    tree.RemoveItem(folder);
    EXPECT_TRUE(tree.Check());
}

TEST_F(GTreeCountedTest, TheyAreNotTheHostsToInsertRemoveMoveOrSort)
{
    const AllowMisuse allowed;
    MakeTree();
    void* folder = AddFolder(10);
    void* own = tree.Add(nullptr, "own");
    void* child = tree.GetChildAt(folder, 4);
    EXPECT_EQ(tree.Add(folder, "new"), nullptr);
    EXPECT_EQ(tree.InsertSorted(folder, L"new", 0, 0, nullptr), nullptr);
    tree.RemoveItem(child);
    tree.SortChildren(folder);
    tree.SetItemParent(own, folder);
    tree.SetItemParent(child, own);
    EXPECT_EQ(tree.GetItemChildCount(folder), 10u);
    EXPECT_EQ(tree.GetItemParent(child), folder);
    EXPECT_EQ(tree.GetItemParent(own), tree.GetRootItem());
    EXPECT_EQ(RowsFrom(4, 2), "c3 c4");
    // What is below one of them is.
    void* grandchild = tree.Add(child, "x", 0);
    tree.Expand(child);
    EXPECT_EQ(RowsFrom(4, 4), "c3 c4 x c5");
    tree.Add(child, "y", 0);
    EXPECT_EQ(RowsFrom(4, 5), "c3 c4 x y c5");
    tree.SetItemParent(own, child);
    tree.RemoveItem(grandchild);
    EXPECT_EQ(tree.GetItemChildCount(child), 2u);
    EXPECT_TRUE(tree.Check());
}

TEST_F(GTreeCountedTest, ANewCountReplacesTheChildrenAlsoOfAnOpenFolder)
{
    MakeTree();
    void* folder = tree.Add(nullptr, "folder", TIS_EXPANDED);
    void* own = tree.Add(folder, "own");
    tree.Add(own, "deeper");
    tree.Expand(own);
    tree.Add(nullptr, "below");
    tree.SetSelectedItem(own);
    tree.SetChildCount(folder, 2);
    EXPECT_EQ(RowsFrom(0, 9), "folder c0 c1 below");
    EXPECT_EQ(tree.m_pSelected, nullptr);
    EXPECT_EQ(tree.m_nSelected, NONE);
    tree.SetSelectedItem(tree.At(3));
    tree.SetChildCount(folder, 5);
    EXPECT_EQ(RowsFrom(0, 9), "folder c0 c1 c2 c3 c4 below");
    EXPECT_EQ(tree.m_nSelected, 6u);
    tree.SetChildCount(folder, 0);
    EXPECT_EQ(tree.Rows(), "folder below");
    EXPECT_TRUE(tree.Add(folder, "own again"));
    EXPECT_EQ(tree.Rows(), "folder own again below");
    tree.SetChildCount(folder, NONE);
    EXPECT_EQ(tree.GetItemChildCount(folder), 100'000'000u);
    EXPECT_EQ(NameOf(tree.At(100'000'000)), "c99999999");
    EXPECT_TRUE(tree.Check());
    const AllowMisuse allowed;
    tree.SetChildCount(&folder, 5);
}

TEST_F(GTreeCountedTest, AWrongAnswerLosesNothing)
{
    MakeTree();
    void* folder = AddFolder(MANY);
    answers = false;
    EXPECT_EQ(AskedByPaint(), (Indexes{0, 1, 2, 3}));
    EXPECT_EQ(NameOf(tree.At(1)), "");
    // A host that changes the count in its answer, and asks for what it is asked for.
    answers = true;
    Indexes counts{400, 3, 0};
    onAsked = [&](const Notified& n) {
        if (!counts.empty()) {
            const auto count = static_cast<UINT>(counts.back());
            counts.pop_back();
            tree.SetChildCount(n.record.pItem, count);
        }
        if (tree.GetItemChildCount(folder) > 0) {
            NameOf(tree.GetChildAt(folder, 0));
        }
    };
    tree.SetChildCount(folder, 9);
    for (int i = 0; i < 5; ++i) {
        AskedByPaint();
        EXPECT_TRUE(tree.Check());
        if (counts.size() == 2) {
            tree.SetChildCount(folder, 9);
        }
    }
    EXPECT_EQ(counts, Indexes{});
    EXPECT_EQ(RowsFrom(0, 3), "folder c0 c1");
    onAsked = [&](const Notified&) { tree.RemoveAllItems(); };
    EXPECT_EQ(tree.GetChildAt(folder, 200), nullptr);
    EXPECT_EQ(tree.Rows(), "");
    onAsked = nullptr;
    EXPECT_TRUE(tree.Check());
}

TEST_F(GTreeCountedTest, AnAnswersChildrenGiveWayToThoseThatTheHostHasInserted)
{
    MakeTree();
    childCount = 7;
    onAsked = [&](const Notified& n) {
        onAsked = nullptr;
        tree.Add(tree.GetChildAt(n.record.pItem, static_cast<UINT>(n.record.iItem)), "own");
    };
    void* folder = AddFolder(10);
    AskedByPaint();
    EXPECT_EQ(tree.GetItemChildCount(tree.GetChildAt(folder, 0)), 1u);
    EXPECT_EQ(tree.GetItemChildCount(tree.GetChildAt(folder, 1)), 7u);
}

TEST_F(GTreeCountedTest, TypingLooksAtWhatHasShown)
{
    for (const gesso::Behavior behavior : {gesso::Behavior::Classic, gesso::Behavior::Modern}) {
        const WithBehavior inIt(behavior);
        Probe<GTree> other;
        other.Create(0, 0, TREE_CX, TREE_CY, host, TREE_ID, 0, WS_CHILD | WS_VISIBLE);
        other.SetChildCount(nullptr, MANY);
        UpdateWindow(other);
        const auto type = [&](const char* psz) {
            for (; *psz; ++psz) {
                SendMessageW(other, WM_CHAR, static_cast<WPARAM>(*psz), 1);
            }
        };
        m_parents.clear();
        type("c3");
        EXPECT_EQ(other.m_nSelected, 3u);
        void* distant = other.GetChildAt(nullptr, 500'000);
        type("00"); // the word is c300 now
        EXPECT_EQ(other.m_nSelected, 3u) << "none of a million that have not shown";
        other.SetItemName(distant, L"Zebra");
        SendMessageW(other, WM_KEYDOWN, VK_DOWN, 1);
        SendMessageW(other, WM_KEYDOWN, VK_UP, 1); // ends the word
        type("z");
        EXPECT_EQ(other.m_nSelected, 500'000u);
        DestroyWindow(other);
    }
}

TEST_F(GTreeCountedTest, RenamingAndTickingAreAsOfOthers)
{
    const Modern modern;
    Probe<GTree> other;
    other.Create(0, 0, TREE_CX, TREE_CY, host, TREE_ID, 0, WS_CHILD | WS_VISIBLE);
    other.SetTreeStyle(GTS_CHECKBOXES);
    other.SetChildCount(nullptr, MANY);
    void* child = other.GetChildAt(nullptr, 900'000);
    host.answer = 0;
    EXPECT_TRUE(other.EditLabel(child)) << "it is brought into view";
    const HWND hwndField = GetWindow(other, GW_CHILD);
    host.answer = 1;
    SetWindowTextW(hwndField, L"mine");
    SendMessageW(hwndField, WM_KEYDOWN, VK_RETURN, 0);
    host.answer = 0;
    EXPECT_EQ(Narrow(other.GetItemName(child)), "mine");
    RECT rc{};
    ASSERT_TRUE(other.GetItemRect(child, false, &rc));
    SendMessageW(other, WM_LBUTTONDOWN, 0, MAKELPARAM(30, rc.top + 5));
    SendMessageW(other, WM_LBUTTONUP, 0, MAKELPARAM(30, rc.top + 5));
    EXPECT_EQ(other.GetItemState(child), TIS_CHECKED);
    EXPECT_EQ(other.GetSelectedItem(), child);
    DestroyWindow(other);
}

TEST_F(GTreeCountedTest, ACopyHasRowsOfItsOwnThatSurviveTheItems)
{
    MakeTree();
    childCount = 3;
    void* folder = AddFolder(1000);
    tree.Expand(tree.GetChildAt(folder, 10));
    Probe<GTree> copy(tree);
    EXPECT_EQ(copy.m_aVisible.GetLength(), tree.m_aVisible.GetLength());
    EXPECT_EQ(copy.At(12), tree.At(12));
    tree.SetChildCount(folder, 5);
    EXPECT_EQ(tree.m_aVisible.GetLength(), 6u);
    EXPECT_EQ(copy.m_aVisible.GetLength(), 1004u);
    EXPECT_EQ(copy.At(700), nullptr) << "no such child any more";
    copy.SetSelectedItem(folder);
    copy.Collapse(folder);
    EXPECT_EQ(copy.m_aVisible.GetLength(), 1u);
    copy.SetSelectedItem(nullptr);
    tree.RemoveItem(folder);
    EXPECT_TRUE(tree.Check());
    EXPECT_TRUE(copy.Check());
}

TEST_F(GTreeCountedTest, RowsThatAreTooManyForTheirNumbersStayClosed)
{
    MakeTree();
    UINT nOpen = 0;
    for (int i = 0; i < 50; ++i) {
        nOpen += (tree.GetItemState(AddFolder(NONE)) & TIS_EXPANDED) != 0;
    }
    EXPECT_EQ(nOpen, 42u); // of a hundred million each
    EXPECT_TRUE(tree.Check());
    Key(VK_END);
    AskedByPaint();
}

TEST_F(GTreeCountedTest, InModernThoseThatWereMadeAreToldToGo)
{
    const Modern modern;
    Probe<GTree> other;
    other.Create(0, 0, TREE_CX, TREE_CY, host, TREE_ID, 0, WS_CHILD | WS_VISIBLE);
    void* folder = other.Add(nullptr, "folder");
    other.SetChildCount(folder, MANY);
    other.SetSelectedItem(other.GetChildAt(folder, 5));
    other.GetChildAt(folder, 70);
    host.Take();
    other.SetChildCount(folder, 3);
    EXPECT_EQ(host.TakeCodes(), (Indexes{-458, -458, -451})) << "two go, and with one the selection";
    EXPECT_EQ(other.GetItemChildCount(folder), 3u);
    other.GetChildAt(folder, 1);
    host.Take();
    other.RemoveItem(folder);
    EXPECT_EQ(host.TakeCodes(), (Indexes{-458, -458}));
    EXPECT_EQ(other.m_aVisible.GetLength(), 0u);
    EXPECT_TRUE(other.Check());
    DestroyWindow(other);
}

// A paint that asks for another one would never come to an end.
TEST_F(GTreeCountedTest, AHostThatCountsAnewInEachAnswerIsPaintedAndDone)
{
    MakeTree();
    void* folder = AddFolder(10);
    for (const bool paints : {false, true}) {
        onAsked = [&](const Notified& n) {
            tree.SetChildCount(n.record.pItem, 10);
            if (paints) {
                UpdateWindow(tree);
            }
        };
        EXPECT_LE(AskedByPaint().size(), 8u);
        EXPECT_FALSE(GetUpdateRect(tree, nullptr, FALSE));
    }
    Indexes counts;
    onAsked = [&](const Notified&) {
        if (counts.empty()) {
            counts.push_back(20);
            tree.SetChildCount(folder, 20);
        }
    };
    AskedByPaint();
    onAsked = nullptr;
    EXPECT_EQ(AskedByPaint(), Indexes{}) << "what was changed once has been asked for in the same paint";
    EXPECT_TRUE(tree.Check());
}

TEST_F(GTreeCountedTest, ARowThatIsPaintedBeforeItsAnswerIsPaintedAgain)
{
    MakeTree();
    AddFolder(10);
    onAsked = [&](const Notified&) {
        InvalidateRect(tree, nullptr, FALSE);
        UpdateWindow(tree);
    };
    NameOf(tree.At(1));
    EXPECT_TRUE(GetUpdateRect(tree, nullptr, FALSE));
}

TEST_F(GTreeCountedTest, AnAnswerThatTakesTheHeightOrTheWindowAwayEndsTheAsking)
{
    MakeTree();
    AddFolder(MANY);
    onAsked = [&](const Notified&) { tree.SetItemHeight(0); };
    EXPECT_LE(AskedByPaint().size(), 10u);
    tree.SetItemHeight(20);
    tree.SetChildCount(tree.GetChildAt(nullptr, 0), 30);
    onAsked = [&](const Notified&) { DestroyWindow(tree); };
    AskedByPaint();
    EXPECT_FALSE(IsWindow(tree));
    onAsked = nullptr;
    MakeTree();
    EXPECT_EQ(RowsFrom(1, 2), "c0 c1") << "the same rows, in another window";
    EXPECT_TRUE(tree.Check());
}

TEST_F(GTreeCountedTest, AThumbLeadsToAnyOfAMillion)
{
    MakeTree();
    AddFolder(MANY);
    tree.m_siV.nTrackPos = 15'000'000;
    Send(WM_VSCROLL, MAKEWPARAM(SB_THUMBTRACK, LOWORD(15'000'000)));
    EXPECT_EQ(tree.m_siV.nPos, 15'000'000);
    EXPECT_EQ(AskedByPaint(), (Indexes{749'999, 750'000, 750'001, 750'002, 750'003}));
}

TEST_F(GTreeCountedTest, TheRangeAcrossGrowsWithWhatShows)
{
    const Modern modern;
    answers = false;
    const WideText wide(std::string(100, 'w'));
    onAsked = [&](const Notified& n) { n.record.pDispInfo->text = n.record.iItem % 50 == 49 ? wide : L"x"; };
    Probe<GTree> other;
    other.Create(0, 0, TREE_CX, TREE_CY, host, TREE_ID, 0, WS_CHILD | WS_VISIBLE | WS_HSCROLL | WS_VSCROLL);
    const auto countAnew = [&] {
        other.SetScrollPos(SB_VERT, 0, 0);
        other.SetChildCount(nullptr, 100);
        UpdateWindow(other);
    };
    countAnew();
    const int former = other.m_siH.nMax;
    RECT rc{}, rcClient{};
    ASSERT_TRUE(other.GetItemRect(other.GetChildAt(nullptr, 49), true, &rc));
    SendMessageW(other, WM_KEYDOWN, VK_END, 1);
    UpdateWindow(other);
    EXPECT_GT(other.m_siH.nMax, former);
    GetClientRect(other, &rcClient);
    ASSERT_TRUE(other.GetItemRect(other.At(99), false, &rc));
    EXPECT_EQ(rc.bottom, rcClient.bottom) << "the bar that came does not cover the selected row";
    countAnew();
    ASSERT_EQ(other.m_siH.nMax, former);
    other.GetItemRect(other.GetChildAt(nullptr, 49), true, &rc);
    SendMessageW(other, WM_VSCROLL, SB_PAGEDOWN, 0);
    other.EnsureVisible(other.At(49));
    UpdateWindow(other);
    EXPECT_GT(other.m_siH.nMax, former) << "measured before it showed";
    countAnew();
    ASSERT_EQ(other.m_siH.nMax, former);
    other.EditLabel(other.GetChildAt(nullptr, 49));
    EXPECT_GT(other.m_siH.nMax, former) << "edited before it showed";
    DestroyWindow(other);
}

TEST_F(GTreeCountedTest, WhileABranchGoesNothingOfItIsMade)
{
    const Modern modern;
    Probe<GTree> other;
    other.Create(0, 0, TREE_CX, TREE_CY, host, TREE_ID, 0, WS_CHILD | WS_VISIBLE);
    void* folder = other.Add(nullptr, "folder");
    other.SetChildCount(folder, 1000);
    void* child = other.GetChildAt(folder, 5);
    void* last = other.GetChildAt(folder, 70);
    Asked();
    host.onNotify = [&](const Notified& n) {
        Hear(n);
        if (n.code == -458) {
            EXPECT_EQ(other.GetItemNextChild(folder, child), last);
            EXPECT_EQ(other.GetItemNextChild(folder, last), NO_MORE);
            EXPECT_EQ(other.GetChildAt(folder, 6), nullptr);
        }
    };
    host.Take();
    other.RemoveItem(folder);
    EXPECT_EQ(host.TakeCodes(), (Indexes{-458, -458, -458}));
    EXPECT_EQ(Asked(), Indexes{});
    DestroyWindow(other);
}

TEST_F(GTreeCountedTest, AnItemIsAskedForBeforeItsChildrenAreInsertedSortedOrShown)
{
    MakeTree();
    AddFolder(100);
    childCount = 7;
    {
        const AllowMisuse allowed;
        EXPECT_EQ(tree.Add(tree.At(50), "own"), nullptr);
        EXPECT_EQ(tree.InsertSorted(tree.At(51), L"own", 0, 0, nullptr), nullptr);
        tree.SetItemParent(tree.Add(nullptr, "top"), tree.At(52));
        tree.SortChildren(tree.At(53));
    }
    EXPECT_EQ(Asked(), (Indexes{49, 50, 51, 52}));
    EXPECT_EQ(tree.GetItemChildCount(tree.At(52)), 7u);
    // An answer in which rows move.
    void* child = tree.At(10);
    onAsked = [&](const Notified&) {
        onAsked = nullptr;
        tree.Add(nullptr, "front", 0, tree.GetRootItem());
    };
    tree.Expand(child);
    EXPECT_EQ(RowsFrom(11, 2), "c9 c0");
    EXPECT_TRUE(tree.Check());
}

TEST_F(GTreeCountedTest, AStrayPointerAsksForNothing)
{
    MakeTree();
    AddFolder(MANY);
    AskedByPaint();
    Mouse(WM_LBUTTONDOWN, 60, 30);
    for (const int y : {-5000, -1, TREE_CY + 1, 5000}) {
        Mouse(WM_MOUSEMOVE, 60, y);
    }
    Mouse(WM_LBUTTONUP, 60, 5000);
    EXPECT_EQ(Asked(), Indexes{});
}

TEST_F(GTreeCountedTest, ACopyKnowsThatItsSelectedItemHasGone)
{
    const Modern modern;
    Probe<GTree> other;
    other.Create(0, 0, TREE_CX, TREE_CY, host, TREE_ID, 0, WS_CHILD | WS_VISIBLE);
    void* folder = other.Add(nullptr, "folder");
    other.SetChildCount(folder, 100);
    other.Expand(folder);
    Probe<GTree> copy(other);
    copy.SetSelectedItem(other.GetChildAt(folder, 50));
    other.SetChildCount(folder, 5);
    EXPECT_EQ(copy.GetSelectedItem(), nullptr);
    copy.Collapse(folder);
    EXPECT_EQ(copy.m_aVisible.GetLength(), 1u);
    DestroyWindow(other);
}

TEST_F(GTreeCountedTest, FoldersOfAMillionWithinEachOtherAndRowsBeyondTheLastPixel)
{
    MakeTree();
    childCount = MANY;
    void* folder = AddFolder(MANY);
    void* child = tree.GetChildAt(folder, 500'000);
    tree.Expand(child);
    EXPECT_EQ(tree.m_aVisible.GetLength(), 2 * MANY + 1);
    EXPECT_EQ(RowsFrom(500'001, 2), "c500000 c0");
    EXPECT_EQ(RowsFrom(1'500'001, 2), "c999999 c500001");
    tree.Collapse(folder);
    tree.SetItemHeight(32);
    tree.SetChildCount(folder, NONE);
    tree.Expand(folder);
    EXPECT_EQ(tree.m_siV.nMax, 0x7FFFFFFE);
    Key(VK_END);
    EXPECT_EQ(tree.m_nSelected, 100'000'000u);
    AskedByPaint();
    EXPECT_EQ(tree.Selected(), "c99999999") << "selected, though no bar leads there";
    // In place of as many rows, however little room there is for more.
    for (int i = 0; i < 41; ++i) {
        AddFolder(NONE);
    }
    tree.SetChildCount(folder, 99'999'999);
    EXPECT_EQ(tree.GetItemChildCount(folder), 99'999'999u);
    tree.SetItemHeight(NONE);
    AskedByPaint();
    EXPECT_EQ(tree.m_siV.nMax, 0x7FFFFFFE);
    EXPECT_TRUE(tree.Check());
}

} // namespace
