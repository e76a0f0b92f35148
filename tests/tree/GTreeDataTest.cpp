#include "TreeFixture.h"

#include <tests/support/AllowMisuse.h>

#include <algorithm>
#include <memory>

namespace {

using namespace test;

void* const END = reinterpret_cast<void*>(-1);

class GTreeDataTest : public TreeTest<GTree>
{
protected:
    void SetUp() override { Make(); }
};

TEST_F(GTreeDataTest, ItemsStandWhereTheyWereInserted)
{
    void* b = tree.Add(nullptr, "b");
    void* d = tree.Add(tree.GetRootItem(), "d");
    tree.Add(nullptr, "c", 0, b);
    tree.Add(nullptr, "a", 0, tree.GetRootItem());
    void* child = tree.Add(b, "below");
    tree.Add(nullptr, "e", 0, child); // no child of the root: at the end
    EXPECT_EQ(tree.Rows(), "a b c d e");
    EXPECT_EQ(tree.Children(nullptr), "a b c d e");
    EXPECT_EQ(tree.Children(b), "below");

    EXPECT_EQ(tree.GetItemLevel(tree.GetRootItem()), -1);
    EXPECT_EQ(tree.GetItemLevel(b), 0);
    EXPECT_EQ(tree.GetItemLevel(child), 1);
    EXPECT_EQ(tree.GetItemParent(child), b);
    EXPECT_EQ(tree.GetItemParent(b), tree.GetRootItem());
    EXPECT_EQ(tree.GetItemParent(tree.GetRootItem()), nullptr);
    EXPECT_EQ(tree.GetItemChildCount(b), 1u);
    EXPECT_EQ(tree.GetItemNextChild(d, nullptr), END);
    EXPECT_EQ(tree.GetItemNextChild(b, child), END);
    EXPECT_EQ(tree.GetItemNextChild(b, d), END);
}

TEST_F(GTreeDataTest, ExpansionTellsTheParentAndLetsItFillTheItem)
{
    void* a = tree.Add(nullptr, "a", TIS_HASCHILDREN);
    void* leaf = tree.Add(nullptr, "leaf");
    tree.Expand(leaf);
    EXPECT_TRUE(host.Take().empty());

    tree.Expand(a); // nothing comes
    EXPECT_EQ(host.TakeLines(), Lines{"-454 row 0 action 2 at -1,0 keys 0"});
    EXPECT_EQ(tree.GetItemState(a), TIS_HASCHILDREN);

    host.onNotify = [&](const Notified& n) {
        EXPECT_EQ(n.record.pItem, a);
        if (n.code == EXPANDING && n.record.uAction == TVE_EXPAND && tree.GetItemChildCount(a) == 0) {
            tree.Add(a, "a1");
            tree.Add(a, "a2");
        }
    };
    HoldKeys({VK_SHIFT, VK_MENU});
    tree.Expand(a);
    EXPECT_EQ(host.TakeLines(), Expansion(0, 2, 5));
    HoldKeys({});
    EXPECT_EQ(tree.Rows(), "a a1 a2 leaf");
    EXPECT_EQ(tree.GetItemState(a), TIS_HASCHILDREN | TIS_EXPANDED);
    tree.Expand(a);
    EXPECT_TRUE(host.Take().empty());
    tree.Collapse(a);
    EXPECT_EQ(host.TakeLines(), Expansion(0, 1));
    EXPECT_EQ(tree.Rows(), "a leaf");
    tree.Collapse(a);
    EXPECT_TRUE(host.Take().empty());
}

TEST_F(GTreeDataTest, TheParentMayDoAnythingWhenARowExpandsOrCollapses)
{
    void* a = tree.Add(nullptr, "a");
    void* b = tree.Add(nullptr, "b");
    tree.Add(b, "b1");
    const auto at = [&](int code, const std::function<void()>& action) {
        host.onNotify = [=, fDone = false](const Notified& n) mutable {
            if (n.code == code && !std::exchange(fDone, true)) {
                action();
            }
        };
    };
    // A row above comes: the item is found again.
    at(EXPANDING, [&] { tree.Add(nullptr, "new", 0, tree.GetRootItem()); });
    tree.Expand(b);
    EXPECT_EQ(tree.Rows(), "new a b b1");
    EXPECT_EQ(host.Take().back().record.iItem, 2);
    // The parent is quicker.
    at(EXPANDING, [&] { tree.Collapse(b); });
    tree.Collapse(b);
    EXPECT_EQ(tree.Rows(), "new a b");
    at(EXPANDING, [&] { tree.Expand(b); });
    tree.Expand(b);
    EXPECT_EQ(tree.Rows(), "new a b b1");
    // The item goes.
    at(EXPANDING, [&] { tree.RemoveAllItems(); });
    tree.Collapse(b);
    EXPECT_EQ(tree.Rows(), "");

    a = tree.Add(nullptr, "a");
    tree.Add(a, "a1");
    at(EXPANDED, [&] { tree.RemoveItem(a); });
    tree.Expand(a);
    EXPECT_EQ(tree.Rows(), "a");
    EXPECT_EQ(tree.GetItemChildCount(tree.GetRootItem()), 0u);
}

TEST_F(GTreeDataTest, RemovedRowsStayWithoutAnythingBehindThem)
{
    void* a = tree.Add(nullptr, "a");
    void* b = tree.Add(nullptr, "b");
    void* b1 = tree.Add(b, "b1");
    tree.Add(b1, "b11");
    tree.Add(nullptr, "c");
    tree.Expand(b);
    tree.Expand(b1);
    tree.SetSelectedItem(b1);
    EXPECT_EQ(tree.m_nSelected, 2u);

    tree.RemoveItem(b);
    EXPECT_EQ(tree.Rows(), "a b c");
    EXPECT_EQ(tree.Children(nullptr), "a c");
    EXPECT_EQ(tree.m_nSelected, NONE);
    EXPECT_EQ(tree.m_pSelected, nullptr);
    // The row is painted, hit and collapsed over; its item has neither children nor parent.
    EXPECT_EQ(tree.At(1), b);
    EXPECT_EQ(Narrow(tree.GetItemName(b)), "b");
    EXPECT_EQ(tree.GetItemChildCount(b), 0u);
    EXPECT_EQ(tree.GetItemParent(b), nullptr);
    UpdateWindow(tree);
    Click(60, 30);
    EXPECT_EQ(tree.GetSelectedItem(), b);
    tree.Collapse(b);
    tree.Expand(b);
    EXPECT_EQ(tree.Rows(), "a b c");

    const AllowMisuse allowed;
    tree.RemoveItem(b);
    EXPECT_EQ(tree.Add(b, "x"), nullptr);
    tree.SetSelectedItem(b);
    EXPECT_EQ(tree.Rows(), "a b c");
    tree.RemoveAllItems();
    EXPECT_EQ(tree.GetItemName(b), nullptr);
    EXPECT_EQ(tree.GetItemName(a), nullptr);
    EXPECT_EQ(tree.Rows(), "");
}

TEST_F(GTreeDataTest, ARemovedRowGoesWithTheBranchThatItStandsIn)
{
    void* a = tree.Add(nullptr, "a");
    void* a1 = tree.Add(a, "a1");
    tree.Add(a, "a2");
    tree.Expand(a);
    tree.RemoveItem(a1);
    EXPECT_EQ(tree.Rows(), "a a1 a2");
    tree.Collapse(a);
    tree.Expand(a);
    EXPECT_EQ(tree.Rows(), "a a2");
}

TEST_F(GTreeDataTest, TheSelectedRowFollowsItsItemButForRemovals)
{
    void* a = tree.Add(nullptr, "a");
    void* b = tree.Add(nullptr, "b");
    void* b1 = tree.Add(b, "b1");
    tree.Add(a, "a1");
    tree.Expand(b);
    tree.SetSelectedItem(b1);
    EXPECT_EQ(tree.Selected(), "b1");
    tree.Expand(a);
    EXPECT_EQ(tree.m_nSelected, 3u);
    tree.Collapse(b);
    EXPECT_EQ(tree.Selected(), "(none)");
    EXPECT_EQ(tree.m_pSelected, b1);
    tree.Expand(b);
    EXPECT_EQ(tree.Selected(), "b1");
    tree.RemoveItem(a); // two rows were a's, of which one stays
    EXPECT_EQ(tree.m_nSelected, 3u);
    EXPECT_EQ(tree.Selected(), "(none)") << "one row too low";
    tree.Add(nullptr, "c");
    EXPECT_EQ(tree.Selected(), "b1") << "the next insertion looks again";
    // Selected, hidden and removed: the selection must not come back with another item.
    tree.Collapse(b);
    tree.RemoveItem(b1);
    EXPECT_EQ(tree.m_pSelected, nullptr);
    tree.SetSelectedItem(nullptr);
    EXPECT_EQ(tree.GetSelectedItem(), nullptr);
}

TEST_F(GTreeDataTest, StatesAndOtherFieldsAreStored)
{
    int data = 0;
    void* a = tree.InsertItem(nullptr, nullptr, L"a", 3, TIS_CHECKED | 0xFF00, &data);
    EXPECT_EQ(tree.GetItemState(a), TIS_CHECKED);
    tree.SetItemState(a, 0x4 | 0x4400, TIS_CHECKED | 0xF000);
    EXPECT_EQ(tree.GetItemState(a), 0x4u);
    tree.SetItemState(a, TIS_CHECKED, 0); // what is set is not limited by the mask
    EXPECT_EQ(tree.GetItemState(a), TIS_CHECKED | 0x4u);
    EXPECT_EQ(tree.m_aVisible[0]->uState, TIS_CHECKED | 0xFF04u) << "bits 8 to 15 are out of reach";
    EXPECT_EQ(tree.GetItemImage(a), 3u);
    EXPECT_EQ(tree.GetItemCustomData(a), &data);
    tree.SetItemImage(a, 4);
    tree.SetItemName(a, L"renamed");
    tree.SetItemCustomData(a, nullptr);
    EXPECT_EQ(tree.GetItemImage(a), 4u);
    EXPECT_EQ(tree.Rows(), "renamed");
    EXPECT_EQ(tree.GetItemCustomData(a), nullptr);

    EXPECT_EQ(tree.SetTreeStyle(GTS_IMAGES), 0u);
    EXPECT_EQ(tree.SetTreeStyle(GTS_CHECKBOXES), GTS_IMAGES);
    EXPECT_EQ(tree.GetTreeStyle(), GTS_CHECKBOXES);
    EXPECT_EQ(tree.GetItemHeight(), 20u);
}

TEST_F(GTreeDataTest, HandlesThatNameNoItemAreIgnored)
{
    void* a = tree.Add(nullptr, "a");
    Probe<GTree> other;
    void* foreign = other.Add(nullptr, "foreign");
    void* gone = tree.Add(a, "gone");
    tree.RemoveItem(gone);
    int local = 0;
    const AllowMisuse allowed;
    for (void* bad : {static_cast<void*>(nullptr), foreign, gone, static_cast<void*>(&local),
                      static_cast<void*>(static_cast<char*>(a) + 1), END})
    {
        tree.Expand(bad);
        tree.Collapse(bad);
        tree.EnsureVisible(bad);
        tree.RemoveItem(bad);
        tree.SortChildren(bad);
        tree.SetItemState(bad, 1, 1);
        tree.SetItemName(bad, L"x");
        tree.SetItemImage(bad, 1);
        tree.SetItemCustomData(bad, bad);
        tree.SetItemParent(bad, a);
        tree.SetItemParent(a, bad);
        tree.SetSelectedItem(bad);
        EXPECT_EQ(tree.GetItemLevel(bad), 0);
        EXPECT_EQ(tree.GetItemState(bad), 0u);
        EXPECT_EQ(tree.GetItemName(bad), nullptr);
        EXPECT_EQ(tree.GetItemImage(bad), 0u);
        EXPECT_EQ(tree.GetItemParent(bad), nullptr);
        EXPECT_EQ(tree.GetItemChildCount(bad), 0u);
        EXPECT_EQ(tree.GetItemCustomData(bad), nullptr);
        if (bad) {
            EXPECT_EQ(tree.Add(bad, "x"), nullptr);
            EXPECT_EQ(tree.GetItemNextChild(bad, nullptr), END);
            EXPECT_EQ(tree.GetItemNextChild(nullptr, bad), END);
        }
    }
    tree.RemoveItem(tree.GetRootItem());
    EXPECT_EQ(tree.Rows(), "a");
    EXPECT_EQ(tree.GetSelectedItem(), nullptr);
    EXPECT_EQ(other.Rows(), "foreign");
}

TEST_F(GTreeDataTest, ACopySharesTheItemsAndHasRowsOfItsOwn)
{
    void* a = tree.Add(nullptr, "a");
    tree.Add(a, "a1");
    void* b = tree.Add(nullptr, "b");
    auto copy = std::make_unique<Probe<GTree>>(tree);
    EXPECT_EQ(copy->Rows(), "a b");
    tree.Expand(a);
    EXPECT_EQ(tree.Rows(), "a a1 b");
    EXPECT_EQ(copy->Rows(), "a b");
    EXPECT_EQ(copy->GetItemChildCount(a), 1u);
    tree.RemoveItem(b);
    EXPECT_EQ(copy->Rows(), "a b");
    EXPECT_EQ(copy->FindVisibleIndex(static_cast<TreeItem*>(b)), 1u);
    *copy = tree;
    EXPECT_EQ(copy->Rows(), "a a1 b");
    copy.reset();
    EXPECT_EQ(tree.FindVisibleIndex(static_cast<TreeItem*>(a)), 0u);
    tree.Collapse(a);
    EXPECT_EQ(tree.Rows(), "a b");
}

TEST_F(GTreeDataTest, ACopyAndATreeThatHasLostItsWindowExpandToo)
{
    void* a = tree.Add(nullptr, "a");
    tree.Add(a, "a1");
    Probe<GTree> copy(tree);
    copy.Expand(a);
    EXPECT_EQ(copy.Rows(), "a a1");
    EXPECT_EQ(host.TakeLines().size(), 2u);
    copy.Collapse(a);
    EXPECT_EQ(copy.Rows(), "a");

    const HFONT hFont = CreateFontW(-12, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, L"Segoe UI");
    tree.SetFont(hFont);
    DestroyWindow(tree);
    tree.Expand(a);
    EXPECT_EQ(tree.Rows(), "a a1");
    Make(WS_HSCROLL);
    EXPECT_LT(tree.m_siH.nMax, TREE_CX) << "the labels were measured without a window of their own";
    DestroyWindow(tree);
    DeleteObject(hFont);
}

} // namespace
