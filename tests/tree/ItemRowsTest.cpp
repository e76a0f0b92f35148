// The rows of a tree beside a plain array of the same items.

#include <gesso/tree/GTree.h>
#include <gesso/tree/TreeInside.h>

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <random>

namespace {

using gesso::ItemRows;
using gesso::ItemStore;
using gesso::NO_INDEX;
using gesso::VisibleRows;

class ItemRowsTest : public testing::Test
{
protected:
    TreeItem* NewItem(int level = 0)
    {
        TreeItem* item = store->Make(nullptr);
        item->nLevel = level;
        item->place.pHolder = &holder;
        return item;
    }
    void Insert(UINT row, const std::vector<TreeItem*>& items)
    {
        rows.Insert(row, items);
        plain.insert(plain.begin() + std::min<std::ptrdiff_t>(row, std::ssize(plain)), items.begin(),
                     items.end());
    }
    void Remove(UINT row, UINT n)
    {
        rows.Remove(row, n);
        const auto first = plain.begin() + std::min<std::ptrdiff_t>(row, std::ssize(plain));
        plain.erase(first, first + std::min<std::ptrdiff_t>(n, plain.end() - first));
    }
    void Check()
    {
        ASSERT_EQ(rows.GetLength(), plain.size());
        for (UINT row = 0; row < plain.size(); ++row) {
            ASSERT_EQ(rows[row], plain[row]) << row;
        }
        EXPECT_EQ(rows[static_cast<UINT>(plain.size())], nullptr);
        for (size_t row = 0; row < plain.size(); row += 1 + plain.size() / 50) {
            const auto first = std::find(plain.begin(), plain.end(), plain[row]);
            ASSERT_EQ(rows.Find(plain[row]), static_cast<UINT>(first - plain.begin()));
            const auto isNoDeeper = [&](const TreeItem* item) { return item->nLevel <= plain[row]->nLevel; };
            const auto end =
                std::find_if(plain.begin() + static_cast<std::ptrdiff_t>(row) + 1, plain.end(), isNoDeeper);
            ASSERT_EQ(rows.EndOfBranch(static_cast<UINT>(row)), static_cast<UINT>(end - plain.begin()));
        }
        int widest = 0;
        for (const TreeItem* item : plain) {
            widest = std::max(widest, item->place.nTextWidth);
        }
        ASSERT_TRUE(rows.Check());
        ASSERT_EQ(rows.Widest([](const TreeItem& item) { return item.place.nTextWidth; }), widest);
    }

    TreeItem holder{nullptr};
    VisibleRows<TreeItem> shown;
    std::shared_ptr<ItemStore<TreeItem>> store = shown.Inside().tree.Store();
    ItemRows<TreeItem>& rows = shown.Inside().rows;
    std::vector<TreeItem*> plain;
};

TEST_F(ItemRowsTest, AnySplicesLeaveWhatAPlainArrayHolds)
{
    std::mt19937 random(3);
    const auto below = [&](size_t limit) { return static_cast<UINT>(random() % limit); };
    // So that some branches are longer than a chunk.
    const auto level = [&] { return below(400) ? 1 + static_cast<int>(below(100) == 0) : 0; };
    for (int step = 0; step < 800; ++step) {
        const UINT row = below(plain.size() + 2);
        switch (below(plain.size() > 6000 ? 9 : 8)) {
        case 0:
        case 1: Insert(row, {NewItem(level())}); break;
        case 2: {
            std::vector<TreeItem*> items(below(20) == 0 ? 700 : below(40));
            for (TreeItem*& item : items) {
                item = NewItem(level());
                item->place.nTextWidth = static_cast<int>(below(1000));
            }
            Insert(row, items);
            break;
        }
        case 3: Remove(row, below(60)); break;
        case 4: Remove(row, below(20) == 0 ? 900 : 1); break;
        case 5:
            if (row < plain.size()) { // a second row of an item
                TreeItem* item = plain[below(plain.size())];
                rows.Set(row, item);
                plain[row] = item;
            }
            break;
        case 6:
            if (row < plain.size()) {
                plain[row]->place.nTextWidth = static_cast<int>(below(1000));
                rows.Changed(*plain[row]);
                plain[row]->nLevel = level();
                store->LevelsChanged();
            }
            break;
        case 7: Insert(static_cast<UINT>(plain.size()), {NewItem()}); break;
        default: Remove(0, 5000); break;
        }
        ASSERT_NO_FATAL_FAILURE(Check()) << "step " << step;
    }
}

// Among items rows of children that are only counted, beside a plain array of parents and indexes.
class RunsTest : public ItemRowsTest
{
protected:
    struct Row
    {
        TreeItem* item; // or the parent
        UINT index;     // of the child; NO_INDEX for an item itself
        bool GoesOn(const Row& next) const
        {
            return index != NO_INDEX && next.item == item && next.index == index + 1;
        }
    };
    TreeItem* NewFolder(UINT n)
    {
        TreeItem* folder = NewItem();
        store->Counted().Reserve(*folder);
        store->Counted().SetCount(*folder, n);
        return folder;
    }
    void InsertItem(UINT row)
    {
        TreeItem* item = NewItem();
        item->place.nTextWidth = static_cast<int>(Below(1000));
        ASSERT_TRUE(rows.Insert(row, item));
        plain.insert(plain.begin() + row, {item, NO_INDEX});
    }
    void InsertRun(UINT row)
    {
        const UINT n = 1 + Below(600);
        TreeItem* folder = NewFolder(n);
        if (Below(2)) {
            ASSERT_TRUE(rows.ReserveRun(n, 0));
        }
        ASSERT_TRUE(rows.InsertRun(row, {folder, 0, n}));
        std::vector<Row> run;
        for (UINT i = 0; i < n; ++i) {
            run.push_back({folder, i});
        }
        plain.insert(plain.begin() + row, run.begin(), run.end());
    }
    // Whatever is taken of a run begins or ends with it.
    void Remove(UINT row, UINT n)
    {
        UINT end = std::min(row + n, static_cast<UINT>(plain.size()));
        while (end < plain.size() && plain[end - 1].GoesOn(plain[end])) {
            ++end;
        }
        rows.Remove(row, end - row);
        plain.erase(plain.begin() + row, plain.begin() + end);
    }
    void MakeChild(UINT row)
    {
        TreeItem* child = rows[row];
        ASSERT_TRUE(child);
        if (plain[row].index != NO_INDEX) {
            child->fAsked = true;
            child->place.nTextWidth = static_cast<int>(Below(1000));
            rows.Changed(*child);
        }
    }
    void CheckRuns()
    {
        ASSERT_TRUE(rows.Check());
        ASSERT_EQ(rows.GetLength(), plain.size());
        int widest = 0;
        for (UINT row = 0; row < plain.size(); ++row) {
            const auto [item, index] = plain[row];
            const TreeItem* own = index == NO_INDEX ? item : store->Counted().Find(*item, index);
            widest = std::max(widest, own && (index == NO_INDEX || own->fAsked) ? own->place.nTextWidth : 0);
        }
        ASSERT_EQ(rows.Widest([](const TreeItem& item) { return item.place.nTextWidth; }), widest);
        for (UINT i = 0; i < 9 && !plain.empty(); ++i) {
            const UINT row = Below(plain.size());
            const auto [item, index] = plain[row];
            TreeItem* own = rows[row];
            ASSERT_EQ(rows.Find(own), row);
            ASSERT_EQ(index == NO_INDEX ? own : own->place.pHolder, item);
            ASSERT_TRUE(index == NO_INDEX || own->place.iChild == index);
        }
    }
    UINT Below(size_t limit) { return static_cast<UINT>(m_random() % limit); }

    std::vector<Row> plain;

private:
    std::mt19937 m_random{5};
};

TEST_F(RunsTest, RunsAreSplitAndJoinedAsAPlainArrayHoldsThem)
{
    for (int step = 0; step < 1000; ++step) {
        const UINT row = Below(plain.size() + 1);
        const bool fThere = row < plain.size();
        switch (Below(plain.size() > 9000 ? 8 : 6)) {
        case 0: InsertRun(row); break;
        case 1:
        case 2: InsertItem(row); break;
        case 3:
        case 4:
            if (fThere) {
                MakeChild(row);
            }
            break;
        default:
            if (fThere) {
                Remove(row, 1 + Below(Below(9) == 0 ? 3000 : 5));
            }
        }
        ASSERT_NO_FATAL_FAILURE(CheckRuns()) << "step " << step;
    }
    EXPECT_TRUE(rows.HasRuns());
}

TEST_F(ItemRowsTest, ABranchEndsAtTheNextRowThatIsNoDeeper)
{
    for (const int level : {0, 1, 2, 2, 1, 0, 3}) {
        Insert(NO_INDEX, {NewItem(level)});
    }
    EXPECT_EQ(rows.EndOfBranch(0), 5u);
    EXPECT_EQ(rows.EndOfBranch(1), 4u);
    EXPECT_EQ(rows.EndOfBranch(2), 3u);
    EXPECT_EQ(rows.EndOfBranch(4), 5u);
    EXPECT_EQ(rows.EndOfBranch(5), 7u);
}

TEST_F(ItemRowsTest, ARemovedItemLivesAsLongAsARowShowsIt)
{
    TreeItem* item = NewItem();
    Insert(0, {item, NewItem(), item});
    const VisibleRows<TreeItem> copy(shown);
    item->place.pHolder = nullptr;
    Remove(0, 1);
    EXPECT_EQ(store->Find(item), item);
    Check();
    Remove(1, 1);
    EXPECT_EQ(store->Find(item), item) << "the copy still shows it";
    copy.Inside().rows.RemoveAll();
    EXPECT_EQ(store->Find(item), nullptr);
}

TEST_F(ItemRowsTest, OnceACopyIsGoneTheFirstSearchTellsTheNextOneWhereToLook)
{
    TreeItem* item = NewItem();
    Insert(0, {item});
    VisibleRows<TreeItem>(shown).Inside().rows.RemoveAll();
    ASSERT_FALSE(item->place.pChunk);
    EXPECT_EQ(rows.Find(item), 0u);
    EXPECT_TRUE(item->place.pChunk);
}

// As a program copies a tree whose code was compiled when the rows were their own owner: the pointer alone,
// and chunks of its own, of which this copy has none.
TEST_F(ItemRowsTest, ACopyMadeByOlderCodeReleasesNothingOfTheTreeAndGetsRowsOfItsOwn)
{
    TreeItem* item = shown.Inside().tree.Insert(*shown.Inside().tree.Root(), 0, L"item");
    shown.Inside().rows.Insert(0, item);
    struct OldCopy
    {
        explicit OldCopy(const VisibleRows<TreeItem>& rows) { std::memcpy(bytes, &rows, sizeof(void*)); }
        ~OldCopy() { Rows().~VisibleRows(); }
        VisibleRows<TreeItem>& Rows() { return *reinterpret_cast<VisibleRows<TreeItem>*>(bytes); }
        alignas(VisibleRows<TreeItem>) unsigned char bytes[sizeof(VisibleRows<TreeItem>)]{};
    };
    OldCopy(shown).Rows();
    EXPECT_EQ(shown.Inside().tree.Root()->aChildren.GetLength(), 1u) << "still there";
    OldCopy copy(shown);
    copy.Rows().Inside().rows.Remove(0, 1);
    EXPECT_EQ(copy.Rows().GetLength(), 0u);
    EXPECT_EQ(shown.GetLength(), 1u);
    EXPECT_EQ(shown[0], item);
    const VisibleRows<TreeItem> copyOfCopy(OldCopy(shown).Rows());
    EXPECT_EQ(copyOfCopy[0], item);
}

TEST_F(ItemRowsTest, HandlesAreKnownWithoutALookAtWhatTheyPointTo)
{
    std::vector<TreeItem*> items;
    for (int i = 0; i < 5000; ++i) {
        items.push_back(NewItem());
    }
    for (TreeItem* item : items) {
        ASSERT_EQ(store->Find(item), item);
        ASSERT_EQ(store->Find(reinterpret_cast<char*>(item) + 8), nullptr);
    }
    EXPECT_EQ(store->Find(nullptr), nullptr);
    EXPECT_EQ(store->Find(reinterpret_cast<void*>(-1)), nullptr);
    EXPECT_EQ(store->Find(reinterpret_cast<void*>(8)), nullptr);
    store->Free(items[7]);
    EXPECT_EQ(store->Find(items[7]), nullptr);
    EXPECT_EQ(NewItem(), items[7]) << "the place is used again";
}

} // namespace
