// Trees to which memory is refused: nothing is inserted, expanded, moved or named, and what was there stays.
#include "../../support/WithBehavior.h"
#include "../../tree/TreeFixture.h"
#include "../FreshDesktop.h"
#include "LongText.h"

using test::LongText;
using test::MemoryLimit;

namespace {

constexpr size_t NOTHING = 0;
constexpr size_t A_FEW_POINTERS = 64;
constexpr size_t BELOW_A_CHUNK = 2060; // of rows
constexpr size_t BELOW_A_BLOCK = 2300; // of items

// The model, without any window.
template <class CONTROL> class TreeModelMemoryTest : public testing::Test
{
protected:
    using Item = std::conditional_t<std::is_same_v<CONTROL, GTree>, TreeItem, NavigationBarItem>;
    using Rows = gesso::VisibleRows<Item>;
    using View = gesso::TreeView<Item, gesso::TreeRules<CONTROL>>;

    TreeModelMemoryTest() { m_view.OpenRoot(); }
    Item* Root() { return m_view.Root(); }
    Item* Add(Item* parent) { return m_view.Insert(parent, nullptr, L"x", 0, 0, nullptr).item; }
    Item* AddWithChildren(UINT n)
    {
        Item* item = Add(Root());
        AddMany(item, n);
        return item;
    }
    void AddMany(Item* parent, UINT n)
    {
        for (UINT i = 0; i < n; ++i) {
            Add(parent);
        }
    }
    // Adds until that is refused; returns how often it was not.
    UINT Fill(Item* parent, size_t cbLargest)
    {
        const MemoryLimit limit(cbLargest);
        UINT n = 0;
        while (n < LongText::LENGTH && Add(parent)) {
            ++n;
        }
        EXPECT_LT(n, LongText::LENGTH);
        return n;
    }

    Item* m_pSelected = nullptr;
    UINT m_nSelected = gesso::NO_INDEX;
    Rows m_rows;
    View m_view{m_rows, m_pSelected, m_nSelected};
};

template <class CONTROL> class TreeMemoryTest : private test::FreshDesktop, public test::TreeTest<CONTROL>
{
protected:
    void SetUp() override { this->Make(WS_VSCROLL); }
    void* Add(LPCWSTR pszName, void* parent = nullptr)
    {
        return this->tree.InsertItem(parent ? parent : this->tree.GetRootItem(), nullptr, pszName, 0, 0,
                                     nullptr);
    }
    void Paint()
    {
        InvalidateRect(this->tree, nullptr, FALSE);
        UpdateWindow(this->tree);
        EXPECT_TRUE(this->tree.Check());
    }
};

using Trees = testing::Types<GTree, GNavigationBar>;

} // namespace

TYPED_TEST_SUITE(TreeModelMemoryTest, Trees);
TYPED_TEST_SUITE(TreeMemoryTest, Trees);

TYPED_TEST(TreeModelMemoryTest, ItemsThatAreRefusedLeaveThoseThatAreThere)
{
    for (const size_t cbLargest : {NOTHING, BELOW_A_CHUNK, MemoryLimit::LARGEST}) {
        const UINT n = this->Fill(this->Root(), cbLargest);
        EXPECT_EQ(this->Root()->aChildren.GetLength(), n);
        EXPECT_EQ(this->m_rows.GetLength(), n);
        EXPECT_TRUE(this->m_view.Check());
        this->AddMany(this->Root(), 600);
        EXPECT_TRUE(this->m_view.Check());
        const MemoryLimit none(NOTHING);
        auto* item = this->m_rows[0];
        this->m_view.RemoveRows(*item);
        this->m_view.Delete(*item);
        this->m_view.RemoveAll();
        EXPECT_EQ(none.Refused(), 0u);
    }
    // The array of the children, where the blocks of the items have room.
    this->AddMany(this->Root(), 9000);
    const UINT n = this->Fill(this->Root(), MemoryLimit::LARGEST);
    EXPECT_EQ(this->m_rows.GetLength(), 9000 + n);
    EXPECT_TRUE(this->m_view.Check());
}

TYPED_TEST(TreeModelMemoryTest, ABranchThatIsRefusedStaysClosed)
{
    this->AddMany(this->Root(), 100);
    auto* item = this->AddWithChildren(200);
    this->AddMany(this->Root(), 10);
    const UINT row = this->m_view.RowOf(item);
    for (const size_t cbLargest : {A_FEW_POINTERS, BELOW_A_CHUNK}) {
        const MemoryLimit limit(cbLargest);
        EXPECT_FALSE(this->m_view.Expand(row));
        EXPECT_TRUE(this->m_view.MayExpand(row));
        EXPECT_EQ(this->m_rows.GetLength(), 111u);
        EXPECT_EQ(limit.Refused(), 1u);
    }
    EXPECT_TRUE(this->m_view.Check());
    EXPECT_TRUE(this->m_view.Expand(row));
    EXPECT_EQ(this->m_rows.GetLength(), 311u);
    EXPECT_TRUE(this->m_view.Check());
}

TYPED_TEST(TreeModelMemoryTest, AnItemThatCannotBeMovedStaysWhereItIs)
{
    auto* parent = this->AddWithChildren(30);
    this->AddMany(this->Root(), 100);
    const MemoryLimit limit(A_FEW_POINTERS);
    UINT n = 0;
    while (n < 100 && limit.Refused() == 0) {
        EXPECT_TRUE(this->m_view.Move(this->Root()->aChildren[this->Root()->aChildren[0] == parent], parent));
        ++n;
    }
    EXPECT_LT(n, 100u);
    EXPECT_EQ(parent->aChildren.GetLength(), 30 + n - 1);
    EXPECT_EQ(this->Root()->aChildren.GetLength(), 101 - n + 1);
    EXPECT_FALSE(this->m_view.Move(parent, parent->aChildren[0]));
}

TYPED_TEST(TreeModelMemoryTest, ACopyWithoutMemoryForItsRowsHasNone)
{
    this->AddMany(this->Root(), 300);
    const MemoryLimit limit(BELOW_A_CHUNK);
    typename TestFixture::Rows copy(this->m_rows);
    typename TestFixture::Rows other;
    other = this->m_rows;
    EXPECT_EQ(copy.GetLength() + other.GetLength(), 0u);
    EXPECT_EQ(limit.Refused(), 2u);
    EXPECT_EQ(this->m_rows.GetLength(), 300u);
}

TYPED_TEST(TreeMemoryTest, ANameThatIsRefusedMakesNoItemAndLeavesTheFormerOne)
{
    const LongText text;
    void* hItem = this->Add(L"Before");
    {
        const MemoryLimit limit;
        EXPECT_EQ(this->Add(text), nullptr);
        this->tree.SetItemName(hItem, text);
        EXPECT_EQ(limit.Refused(), 2u);
        EXPECT_EQ(this->tree.Rows(), "Before");
        this->Paint();
    }
    this->tree.SetItemName(hItem, text);
    EXPECT_EQ(test::Narrow(this->tree.GetItemName(hItem)), test::Narrow(text));
    EXPECT_NE(this->Add(text), nullptr);
    this->Paint();
}

TYPED_TEST(TreeMemoryTest, AnItemThatCannotExpandIsNotSaidToHave)
{
    void* hItem = this->Add(L"Parent");
    for (UINT i = 0; i < 9000; ++i) {
        this->Add(L"x", hItem);
    }
    this->host.Take();
    {
        const MemoryLimit limit;
        this->tree.Expand(hItem);
        EXPECT_EQ(this->host.Take().size(), 1u) << "it was to expand";
        while (this->Add(L"y")) {
        }
        EXPECT_GE(limit.Refused(), 2u);
    }
    this->Paint();
    EXPECT_EQ(this->tree.GetItemChildCount(hItem), 9000u);
    this->tree.Expand(hItem);
    EXPECT_GT(this->tree.m_aVisible.GetLength(), 9000u);
    this->Paint();
}

using CountedModelMemoryTest = TreeModelMemoryTest<GTree>;
using CountedMemoryTest = TreeMemoryTest<GTree>;

TEST_F(CountedModelMemoryTest, CountedChildrenThatAreRefusedLeaveThoseThatAreThere)
{
    auto* item = AddWithChildren(20);
    m_view.Expand(0);
    AddMany(Root(), 300);
    for (const size_t cbLargest : {NOTHING, BELOW_A_CHUNK}) {
        {
            const MemoryLimit limit(cbLargest);
            EXPECT_FALSE(m_view.SetChildCount(*item, 1'000'000));
        }
        EXPECT_EQ(item->aChildren.GetLength(), 20u);
        EXPECT_EQ(m_rows.GetLength(), 321u);
        EXPECT_TRUE(m_view.Check());
    }
    EXPECT_TRUE(m_view.SetChildCount(*item, 1'000'000));
    auto* child = m_rows.Inside().tree.ChildAt(*item, 70);
    AddMany(child, 300);
    {
        const MemoryLimit limit(BELOW_A_CHUNK);
        EXPECT_FALSE(m_view.Expand(71)) << "the run is not split";
        EXPECT_EQ(m_rows.GetLength(), 1'000'301u);
    }
    EXPECT_TRUE(m_view.Check());
    EXPECT_TRUE(m_view.Expand(71));
    const MemoryLimit none(NOTHING);
    m_view.Collapse(71); // which joins it again
    m_view.Collapse(0);
    EXPECT_EQ(m_rows.GetLength(), 301u);
    m_view.RemoveAll();
}

TEST_F(CountedMemoryTest, RowsWhoseItemsCannotBeMadeAreBlankUntilTheyCan)
{
    tree.SetChildCount(nullptr, 1'000'000);
    host.Take();
    {
        const MemoryLimit limit(BELOW_A_BLOCK);
        UINT n = 500;
        while (tree.GetChildAt(nullptr, n)) {
            ++n;
        }
        EXPECT_LT(n, 600u);
        EXPECT_EQ(tree.At(3), nullptr);
        EXPECT_EQ(tree.ItemFromPoint({5, 5}), nullptr);
        EXPECT_EQ(tree.HitAt(5, 5).nItem, 0u);
        Click(40, 30);
        Key(VK_DOWN);
        Key(VK_END);
        Key(VK_HOME);
        EXPECT_EQ(tree.GetItemNextChild(nullptr, nullptr), reinterpret_cast<void*>(-1));
        EXPECT_GE(limit.Refused(), 5u);
    }
    Paint();
    EXPECT_NE(tree.At(3), nullptr);
    EXPECT_TRUE(tree.Check());
}

TEST_F(CountedMemoryTest, ATextThatIsRefusedIsAskedForAgain)
{
    tree.SetChildCount(nullptr, 3);
    const LongText text;
    host.onNotify = [&](const test::Notified& n) {
        if (n.code == -452) {
            n.record.pDispInfo->text = text;
        }
    };
    {
        const MemoryLimit limit;
        Paint();
        EXPECT_GE(limit.Refused(), 3u);
    }
    Paint();
    EXPECT_EQ(test::Narrow(tree.GetItemName(tree.At(1))), test::Narrow(text));
}

TEST_F(CountedMemoryTest, ChildrenThatAnAnswerGivesAreAskedForAgain)
{
    tree.SetChildCount(nullptr, 3);
    tree.SetItemState(tree.At(1), TIS_EXPANDED, 0);
    host.onNotify = [&](const test::Notified& n) {
        if (n.code == -452) {
            n.record.pDispInfo->childCount = n.record.iItem == 1 ? 5 : 0;
        }
    };
    {
        const MemoryLimit limit(BELOW_A_CHUNK);
        EXPECT_EQ(tree.GetItemChildCount(tree.At(1)), 0u);
        EXPECT_EQ(limit.Refused(), 1u);
    }
    EXPECT_EQ(tree.GetItemChildCount(tree.At(1)), 5u);
    EXPECT_EQ(tree.m_aVisible.GetLength(), 8u);
    EXPECT_TRUE(tree.Check());
}

TEST_F(CountedMemoryTest, WhatCannotBeReplacedIsNotToldToGo)
{
    const test::WithBehavior inIt(gesso::Behavior::Modern);
    test::Probe<GTree> other;
    other.Create(0, 0, test::TREE_CX, test::TREE_CY, host, test::TREE_ID, 0, WS_CHILD | WS_VISIBLE);
    other.SetChildCount(nullptr, 3);
    void* child = other.GetChildAt(nullptr, 1);
    host.Take();
    {
        const MemoryLimit limit(BELOW_A_CHUNK);
        other.SetChildCount(nullptr, 4);
        EXPECT_EQ(limit.Refused(), 1u);
    }
    EXPECT_EQ(host.TakeCodes(), std::vector<int>{});
    EXPECT_EQ(other.GetChildAt(nullptr, 1), child);
    other.SetChildCount(nullptr, 0);
    EXPECT_EQ(host.TakeCodes(), std::vector<int>{-458});
    EXPECT_TRUE(other.Check());
    DestroyWindow(other);
}
