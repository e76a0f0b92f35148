// The model of a tree, without any window.

#include "TreeFixture.h"

#include <gesso/tree/NavigationRows.h>

#include <tests/support/AllowMisuse.h>

#include <numeric>
#include <random>

namespace {

using namespace test;

void* const END = reinterpret_cast<void*>(-1);

// A tree of no control, with the operations that a control's tests have.
class Model
{
    using View = gesso::TreeView<TreeItem, gesso::TreeRules<GTree>>;

public:
    Model() { view.OpenRoot(); }
    void* GetRootItem() const { return view.Root(); }
    void* InsertItem(void* parent, void* after, LPCWSTR name, UINT image, UINT state, void* data)
    {
        return view.Insert(parent, after, name, image, state, data).item;
    }
    void* Add(void* parent, const std::string& name, UINT state = 0, void* after = nullptr)
    {
        return InsertItem(parent, after, WideText(name), 0, state, nullptr);
    }
    void RemoveItem(void* item)
    {
        TreeItem* removed = view.Removable(item);
        view.RemoveRows(*removed);
        view.Delete(*removed);
    }
    void Expand(void* item)
    {
        const UINT row = view.RowOf(item);
        ASSERT_TRUE(view.MayExpand(row));
        view.Expand(row);
    }
    void Collapse(void* item)
    {
        const UINT row = view.RowOf(item);
        ASSERT_TRUE(view.MayCollapse(row));
        view.Collapse(row);
    }
    std::string Rows() const
    {
        std::string names;
        for (UINT row = 0; row < rows.GetLength(); ++row) {
            names += (row > 0 ? " " : "") + Narrow(rows[row]->strName);
        }
        return names;
    }
    std::string Children(void* parent) const
    {
        std::string names;
        for (void* p = nullptr; (p = view.GetNextChild(parent, p)) != END;) {
            names += (names.empty() ? "" : " ") + Narrow(view.GetName(p));
        }
        return names;
    }
    std::string Selected() const { return rows[nSelected] ? Narrow(rows[nSelected]->strName) : "(none)"; }
    void* At(UINT row) const { return rows[row]; }

    gesso::VisibleRows<TreeItem> rows;
    TreeItem* pSelected = nullptr;
    UINT nSelected = NONE;
    View view{rows, pSelected, nSelected};
};

class TreeViewTest : public testing::Test
{
protected:
    void TearDown() override { EXPECT_TRUE(tree.view.Check()); }

    Model tree;
};

TEST_F(TreeViewTest, AnItemIsKnownAmongManySiblingsThatCameAndWent)
{
    std::vector<void*> items;
    for (int i = 0; i < 3000; ++i) {
        items.insert(items.begin(), tree.Add(nullptr, "x", 0, tree.GetRootItem()));
    }
    const auto checkOrder = [&] {
        void* p = nullptr;
        for (void* item : items) {
            p = tree.view.GetNextChild(nullptr, p);
            ASSERT_EQ(p, item);
        }
        EXPECT_EQ(tree.view.GetNextChild(nullptr, p), END);
    };
    checkOrder();
    for (int i = 0; i < 1500; ++i) {
        tree.RemoveItem(items.front());
        items.erase(items.begin());
    }
    checkOrder();
}

TEST_F(TreeViewTest, RowsUnderAnExpandedItemFollowItsBranch)
{
    void* a = tree.Add(nullptr, "a");
    tree.Add(nullptr, "z");
    void* a1 = tree.Add(a, "a1");
    EXPECT_EQ(tree.Rows(), "a z");
    tree.Expand(a);
    tree.Add(a1, "a11");
    tree.Expand(a1);
    EXPECT_EQ(tree.Rows(), "a a1 a11 z");
    tree.Add(a, "a2");
    tree.Add(a, "a0", 0, a);
    tree.Add(a, "a15", 0, a1);
    EXPECT_EQ(tree.Rows(), "a a0 a1 a11 a15 a2 z");
    tree.Add(nullptr, "y", 0, a);
    EXPECT_EQ(tree.Rows(), "a a0 a1 a11 a15 a2 y z");

    // Expanded, but not in view itself.
    tree.Collapse(a);
    tree.Add(a1, "a12");
    EXPECT_EQ(tree.Rows(), "a y z");
    tree.Expand(a);
    EXPECT_EQ(tree.Rows(), "a a0 a1 a11 a12 a15 a2 y z");
}

TEST_F(TreeViewTest, ItemsThatMoveKeepRowLevelAndNamedParent)
{
    void* a = tree.Add(nullptr, "a");
    void* b = tree.Add(nullptr, "b");
    void* a1 = tree.Add(a, "a1");
    void* a2 = tree.Add(a, "a2");
    tree.Expand(a);
    EXPECT_TRUE(tree.view.Move(a1, b));
    EXPECT_EQ(tree.Rows(), "a a1 a2 b");
    EXPECT_EQ(tree.Children(a), "a2");
    EXPECT_EQ(tree.Children(b), "a1");
    EXPECT_EQ(tree.view.GetParent(a1), a);
    tree.Expand(b); // now a1 has two rows
    EXPECT_EQ(tree.Rows(), "a a1 a2 b a1");
    EXPECT_EQ(tree.view.FindRow(a1), 1u);
    tree.Collapse(a);
    EXPECT_EQ(tree.Rows(), "a b a1");
    EXPECT_EQ(tree.view.FindRow(a1), 2u);
    // The parent that a1 still names goes.
    tree.RemoveItem(a);
    EXPECT_EQ(tree.view.GetParent(a1), nullptr);
    EXPECT_TRUE(tree.view.Move(a1, tree.GetRootItem()));
    tree.RemoveItem(b);
    EXPECT_EQ(tree.Children(nullptr), "a1");

    const AllowMisuse allowed;
    void* x = tree.Add(a1, "x");
    EXPECT_FALSE(tree.view.Move(a1, x));
    EXPECT_FALSE(tree.view.Move(a1, a1));
    EXPECT_FALSE(tree.view.Move(tree.GetRootItem(), a1));
    EXPECT_FALSE(tree.view.Move(a1, nullptr));
    tree.view.Move(a2, a1); // gone with a, or x in its place
    EXPECT_EQ(tree.Children(nullptr), "a1");
    EXPECT_EQ(tree.Children(a1), "x");
}

TEST_F(TreeViewTest, SortingOrdersByNameAndWritesTheRowsBehindTheItem)
{
    void* a = tree.Add(nullptr, "a");
    for (const char* name : {"delta", "Alpha", "charlie", "BRAVO"}) {
        tree.Add(a, name);
    }
    tree.Expand(a);
    tree.view.Select(tree.At(1));
    tree.view.SortChildren(*tree.view.ItemOf(a));
    EXPECT_EQ(tree.Rows(), "a Alpha BRAVO charlie delta");
    EXPECT_EQ(tree.Selected(), "delta");
    tree.Add(nullptr, "B", 0, tree.GetRootItem());
    tree.Collapse(a);
    tree.view.SortChildren(*tree.view.ItemOf(tree.GetRootItem()));
    EXPECT_EQ(tree.Rows(), "a B");

    // An open branch among the children: its rows are written over.
    void* c = tree.Add(a, "C", 0, a);
    tree.Add(c, "c1");
    tree.Expand(a);
    tree.Expand(c);
    EXPECT_EQ(tree.Rows(), "a C c1 Alpha BRAVO charlie delta B");
    tree.view.SortChildren(*tree.view.ItemOf(a));
    EXPECT_EQ(tree.Rows(), "a Alpha BRAVO C charlie delta delta B");
    // Never beyond the last row.
    tree.view.SortChildren(*tree.view.ItemOf(tree.GetRootItem()));
    EXPECT_EQ(tree.Rows(), "a B BRAVO C charlie delta delta B");
    tree.view.RemoveAll();
    EXPECT_EQ(tree.Rows(), "");
}

// Worked through apart from the code: which of the equal names the partition swaps, and that the insertion
// sort takes parts of 16.
TEST_F(TreeViewTest, EqualNamesComeOutInTheOrderOfTheStatedSort)
{
    constexpr std::string_view NAMES = "CaBaBbAcBcBbBcacAccaccaBBbabaBAACaaAaaBCAAACcBBbCAbBBCabAbbb";
    for (UINT i = 0; i < NAMES.size(); ++i) {
        tree.InsertItem(nullptr, nullptr, WideText(std::string(1, NAMES[i])), i, 0, nullptr);
    }
    tree.view.SortChildren(*tree.view.ItemOf(tree.GetRootItem()));
    std::string order;
    for (UINT row = 0; row < NAMES.size(); ++row) {
        order += std::to_string(tree.view.GetImage(tree.At(row))) + " ";
    }
    EXPECT_EQ(order,
              "19 22 26 28 30 31 33 34 35 36 37 40 41 42 49 54 56 6 3 14 1 16 55 57 52 51 50 2 47 46 45 "
              "58 4 5 38 59 8 10 11 12 29 23 27 25 24 17 18 20 0 21 15 53 48 13 44 43 32 39 9 7 ");
}

TEST_F(TreeViewTest, TheRootHasARowOnDemand)
{
    tree.view.ShowRoot(true);
    EXPECT_EQ(tree.rows.GetLength(), 1u);
    tree.view.ShowRoot(false);
    tree.view.ShowRoot(false);
    EXPECT_EQ(tree.rows.GetLength(), 0u);
    tree.Add(nullptr, "b");
    tree.view.ShowRoot(true);
    tree.view.ShowRoot(true);
    EXPECT_EQ(tree.Rows(), " b");
    tree.Add(nullptr, "a", 0, tree.GetRootItem());
    EXPECT_EQ(tree.Rows(), "a  b") << "the first child lands in front of the root";
    tree.view.RemoveAll();
    EXPECT_EQ(tree.Rows(), "");
}

TEST_F(TreeViewTest, ADeepChainIsShownAndRemovedWithoutRecursion)
{
    constexpr int DEEP = 100'000;
    void* top = tree.Add(nullptr, "top", TIS_EXPANDED);
    void* p = top;
    for (int i = 0; i < DEEP; ++i) {
        p = tree.InsertItem(p, nullptr, L"", 0, TIS_EXPANDED, nullptr);
    }
    EXPECT_EQ(tree.rows.GetLength(), DEEP + 1u);
    EXPECT_EQ(tree.view.GetLevel(p), DEEP);
    tree.Collapse(top);
    EXPECT_EQ(tree.Rows(), "top");
    tree.Expand(top);
    EXPECT_EQ(tree.rows.GetLength(), DEEP + 1u);
    tree.RemoveItem(top);
    EXPECT_EQ(tree.Rows(), "top");
    EXPECT_EQ(tree.view.GetChildCount(tree.GetRootItem()), 0u);
}

// Rows of all kinds, and of all heights that the arithmetic may meet.
TEST(RowGeometryTest, EachPixelBelongsToTheRowThatPaintsIt)
{
    const gesso::EvenRows even{20};
    for (int y = 0; y < 100; ++y) {
        const gesso::RowPlace place = even.PlaceOf(even.RowAt(y));
        EXPECT_TRUE(place.nTop <= y && y < place.nBottom) << y;
    }
    EXPECT_EQ(gesso::EvenRows{0}.RowAt(5), NONE);
    EXPECT_EQ(even.LastPixel(3), 59);
    const gesso::EvenRows tall{NONE};
    EXPECT_EQ(tall.LastPixel(1000), INT_MAX - 1);
    EXPECT_EQ(gesso::RectOf(tall.PlaceOf(1), 0, 9).bottom, INT_MAX);
}

TEST(RowGeometryTest, ABarsRowsAreAsHighAsTheirKindsAndEndWithTheirBottomLine)
{
    gesso::VisibleRows<NavigationBarItem> rows;
    auto& inside = rows.Inside();
    const UINT kinds[] = {NBIK_HEADER, NBIK_ITEM, NBIK_SUBITEM, NBIK_SEPARATOR, NBIK_SPACER, NBIK_ITEM};
    for (UINT i = 0; i < std::size(kinds); ++i) {
        NavigationBarItem* item = inside.tree.Insert(*inside.tree.Root(), i, L"x");
        item->uState = kinds[i];
        inside.rows.Insert(i, item);
    }
    const gesso::NavigationRows geometry(rows, {40, 20, 5});
    const int64_t bottoms[] = {40, 80, 100, 105, 110, 150};
    gesso::RowPlace place = geometry.Reaching(0);
    for (UINT row = 0; row < std::size(kinds); ++row) {
        EXPECT_EQ(place.row, row);
        EXPECT_EQ(place.nTop, row > 0 ? bottoms[row - 1] : 0);
        EXPECT_EQ(place.nBottom, bottoms[row]);
        EXPECT_EQ(geometry.Reaching(place.nBottom).row, row) << "the bottom line is the upper row's";
        EXPECT_EQ(geometry.Reaching(place.nTop + 1).row, row);
        place = geometry.Behind(place);
    }
    EXPECT_EQ(place.row, NONE);
    EXPECT_EQ(geometry.Reaching(151).row, NONE);
}

TEST(RowGeometryTest, ARowFarDownABarStandsBelowAllBeforeIt)
{
    gesso::VisibleRows<NavigationBarItem> rows;
    auto& inside = rows.Inside();
    const gesso::NavigationRows geometry(rows, {40, 20, 5});
    const std::pair<UINT, int> kinds[] = {{NBIK_ITEM, 40}, {NBIK_SUBITEM, 20}, {NBIK_SPACER, 5}};
    std::vector<int> heights;
    std::mt19937 random(5);
    for (int step = 0; step < 1500; ++step) {
        const auto row = static_cast<UINT>(random() % (heights.size() + 1));
        if (random() % 5 == 0 && row < heights.size()) {
            inside.rows.Remove(row, 1);
            heights.erase(heights.begin() + row);
            continue;
        }
        const auto [kind, height] = kinds[random() % 3];
        NavigationBarItem* item = inside.tree.Insert(*inside.tree.Root(), 0, L"x");
        item->uState = kind;
        inside.rows.Insert(row, item);
        heights.insert(heights.begin() + row, height);
        if (step % 10 == 0) {
            const auto sampled = static_cast<UINT>(random() % heights.size());
            const int top = std::accumulate(heights.begin(), heights.begin() + sampled, 0);
            EXPECT_EQ(geometry.PlaceOf(sampled).nTop, top);
            EXPECT_EQ(geometry.Reaching(top + 1).row, sampled);
            EXPECT_EQ(geometry.LastPixel(), std::accumulate(heights.begin(), heights.end(), -1));
        }
    }
}

// A check that cannot fail would prove nothing.
TEST_F(TreeViewTest, WhatIsOutOfStepIsFound)
{
    auto* a = static_cast<TreeItem*>(tree.Add(nullptr, "a", TIS_EXPANDED));
    auto* a1 = static_cast<TreeItem*>(tree.Add(a, "a1"));
    const auto finds = [&](auto& field, auto wrong) {
        const auto right = std::exchange(field, wrong);
        const bool fFound = !tree.view.Check();
        field = right;
        return fFound;
    };
    TreeItem foreign(L"foreign");
    EXPECT_TRUE(finds(a1->place.pHolder, tree.view.Root())) << "no child of its parent";
    EXPECT_TRUE(finds(a1->place.nRows, 0u)) << "more rows than it knows of";
    EXPECT_TRUE(finds(a1->place.pChunk->nFirst, 1u)) << "rows that are not numbered on";
    EXPECT_TRUE(finds(a1->pParent, &foreign)) << "a parent that does not live";
    EXPECT_TRUE(finds(tree.pSelected, &foreign)) << "an item of no tree is selected";
    EXPECT_TRUE(finds(a1->pParent, tree.view.Root())) << "a parent that does not count it";
    EXPECT_TRUE(tree.view.Check());
}

} // namespace
