// A list to which memory is refused: each operation says so, the records, rows and order are as they were,
// and it goes on afterwards.
#include "../../support/WithBehavior.h"
#include "../list/ListDesktop.h"
#include "LongText.h"

#include <gesso/list/IndexRanges.h>
#include <gesso/list/VirtualCells.h>
#include <gesso/text/TextSpace.h>

#include <array>
#include <functional>
#include <new>

using test::END;
using test::LongText;
using test::MemoryLimit;
using test::Modern;

namespace {

class ListMemoryTest : public test::ListDesktop
{
protected:
    // What the operations below change.
    std::string State() const
    {
        std::string state = list.Texts() + "," + list.Selected() + ",";
        for (UINT column = 0; column < list.columns.GetLength(); ++column) {
            state +=
                test::Narrow(list.GetColumnText(column)) + std::to_string(list.columns[column]->state) + " ";
        }
        for (UINT group = 0; group < list.groups.GetLength(); ++group) {
            state += test::Narrow(list.GetGroupName(group)) + " ";
        }
        for (UINT item = 0; item < list.items.GetLength(); ++item) {
            state += std::to_string(list.GetItemState(item, 0)) + std::to_string(list.GetItemImage(item, 0));
        }
        return state;
    }
    void Paint() const
    {
        InvalidateRect(list, nullptr, FALSE);
        UpdateWindow(list);
        list.Check();
    }
    // Inserts until that is refused; returns how often it was not.
    static UINT Fill(const std::function<UINT()>& insert)
    {
        const MemoryLimit limit;
        UINT n = 0;
        while (n < LongText::LENGTH && insert() != gesso::NO_INDEX) {
            ++n;
        }
        EXPECT_LT(n, LongText::LENGTH);
        return n;
    }
    UINT InsertPlain() { return list.InsertItem(END, 0, nullptr, 0, nullptr, 0); }
    // In the reverse of their order by text and by data, in so many groups in turn.
    void FillReversed(UINT items, UINT groups)
    {
        for (UINT group = 0; group < groups; ++group) {
            list.InsertGroup(0, nullptr, 0, group);
        }
        list.BulkInsertOn();
        for (UINT item = 0; item < items; ++item) {
            const auto text = test::Wide(std::to_string(2 * items - item));
            list.InsertItem(END, groups ? item % groups : 0, reinterpret_cast<void*>(uintptr_t{items - item}),
                            0, text.data(), 0);
        }
        list.BulkInsertOff();
    }
    static int ByData(void* a, void* b) { return (a > b) - (a < b); }
};

} // namespace

TEST_F(ListMemoryTest, ATextThatIsRefusedChangesNothing)
{
    const LongText text;
    MakeFilledList(2, 3);
    AddGroup(0);
    const auto column = [&] {
        return list.InsertColumn(0, 0, 0, 50, 0, text, 0, LCT_TEXT, nullptr, nullptr, nullptr, nullptr);
    };
    const std::function<void()> setters[] = {
        [&] { list.SetColumnText(1, text); },
        [&] { list.SetGroupName(0, text); },
        [&] { list.SetItemText(1, 0, text); },
        [&] { list.SetSubItem(1, 0, LIS_SELECTED, text, 5); },
    };
    const std::string before = State();
    {
        const MemoryLimit limit;
        EXPECT_EQ(column(), END);
        EXPECT_EQ(list.InsertGroup(0, text, 0, 7), END);
        EXPECT_EQ(list.InsertItem(0, 0, nullptr, 0, text, 0), END);
        for (const auto& set : setters) {
            set();
            EXPECT_EQ(State(), before);
        }
        Paint();
        EXPECT_EQ(limit.Refused(), 7u);
    }
    for (const auto& set : setters) {
        set();
    }
    EXPECT_EQ(column(), 0u);
    EXPECT_EQ(list.InsertGroup(0, text, 0, 7), 1u);
    EXPECT_EQ(list.InsertItem(0, 0, nullptr, 0, text, 0), 0u);
    EXPECT_NE(State(), before);
    Paint();
}

TEST_F(ListMemoryTest, ATextThatIsKeptButNotPreparedDoesNotShow)
{
    const LongText text(MemoryLimit::LARGEST / 4);
    MakeFilledList(1, 1);
    {
        const MemoryLimit limit;
        list.SetItemText(0, 0, text);
        EXPECT_GT(limit.Refused(), 0u);
        Paint();
    }
    EXPECT_EQ(test::Narrow(list.GetItemText(0, 0)), test::Narrow(text));
    list.SetItemText(0, 0, text);
    Paint();
}

TEST_F(ListMemoryTest, AColumnThatOnlySomeItemsHaveRoomForIsNotInserted)
{
    const Modern modern;
    MakeFilledList(2, 5);
    const std::string before = State();
    size_t nGranted = 0;
    for (bool fInserted = false; !fInserted; ++nGranted) {
        try {
            const MemoryLimit limit(0, nGranted);
            fInserted = list.InsertColumn(0, 0, 0, 50, 0, L"New", 0, LCT_TEXT, nullptr, nullptr, nullptr,
                                          nullptr) != END;
        } catch (const std::bad_alloc&) {
            fInserted = list.GetColumnCount() > 2; // the simulated desktop had none
        }
        if (!fInserted) {
            EXPECT_EQ(State(), before) << nGranted;
        }
    }
    EXPECT_GT(nGranted, 5u);
    Paint();
}

TEST_F(ListMemoryTest, TextsThatWerePreparedWithLittleMemoryLeaveNoNarrowSpaceBehind)
{
    const std::array<gesso::TextSpace, 2> ample; // as many as there are spares
    size_t nRefused = 0;
    {
        const MemoryLimit limit(300);
        const gesso::TextSpace narrow;
        nRefused = limit.Refused();
    }
    EXPECT_GT(nRefused, 0u);
    MakeFilledList(1, 0);
    for (int n = 0; n < 2; ++n) {
        list.InsertItem(END, 0, nullptr, 0,
                        L"ab \x0431\x0432 cd \x0433\x0434 ef \x0435\x0436 gh \x03B1\x03B2 ij", 0);
    }
    Paint();
}

TEST_F(ListMemoryTest, WhatTheTablesHaveNoRoomForIsNotInserted)
{
    MakeFilledList(1, 0);
    const UINT items = Fill([&] { return InsertPlain(); });
    EXPECT_EQ(list.GetItemCount(), items);
    Paint();
    const UINT groups = Fill([&] { return list.InsertGroup(0, L"Group", 0, 1); });
    EXPECT_EQ(list.GetGroupCount(), groups);
    list.RemoveAllGroups();
    list.RemoveAllItems();
    const UINT columns = Fill([&] {
        return list.InsertColumn(0, 0, 0, 1, 0, nullptr, 0, LCT_TEXT, nullptr, nullptr, nullptr, nullptr);
    });
    EXPECT_EQ(list.GetColumnCount(), columns + 1);
    list.SetListStyle(GLS_TILES | GLS_CHECKBOXES);
    list.SetListStyle(GLS_ICONS);
    list.SetListStyle(GLS_DETAILS | GLS_CHECKBOXES);
    EXPECT_EQ(list.columnDraw.GetLength(), columns + 2);
    {
        const MemoryLimit limit(4096);
        EXPECT_EQ(InsertPlain(), END) << "an item of so many sub-items";
    }
    EXPECT_EQ(InsertPlain(), 0u);
    Paint();
}

TEST_F(ListMemoryTest, ABulkFillEndsWithRowsForAllThatWasInserted)
{
    MakeFilledList(1, 0);
    list.BulkInsertOn();
    const UINT items = Fill([&] { return InsertPlain(); });
    {
        const MemoryLimit limit;
        list.BulkInsertOff();
    }
    EXPECT_EQ(list.elements.GetLength(), items);
    Paint();
    EXPECT_EQ(InsertPlain(), items);
    Paint();
}

TEST_F(ListMemoryTest, ASortWithoutMemoryLeavesOrderAndArrow)
{
    // What is refused first: the keys, the copy that is ordered, and what gathers the groups.
    for (const auto& [items, groups] : {std::pair(5000U, 0U), std::pair(9000U, 0U), std::pair(4000U, 3000U)})
    {
        MakeList();
        AddColumn(nullptr, ByData);
        AddColumn(nullptr, nullptr);
        FillReversed(items, groups);
        list.Sort(1, false);
        const std::vector<ListItem*> before(list.items.begin(), list.items.end());
        for (const UINT column : {0U, 1U}) {
            const MemoryLimit limit;
            list.Sort(column, true);
            EXPECT_GT(limit.Refused(), 0u);
            EXPECT_TRUE(std::equal(before.begin(), before.end(), list.items.begin(), list.items.end()));
            UINT current = 7;
            list.GetCurrentSort(&current, nullptr);
            EXPECT_EQ(current, 1u);
            EXPECT_EQ(list.columns[0]->state, 0u);
            EXPECT_EQ(list.columns[1]->state, LCS_SORTDOWN);
        }
        Paint();
        list.Sort(0, true);
        const UINT last = groups ? (items - 1) / groups * groups : items - 1;
        EXPECT_EQ(list.items[0]->customData, reinterpret_cast<void*>(uintptr_t{items - last}));
        Paint();
        DestroyWindow(list);
        Renew();
    }
}

TEST_F(ListMemoryTest, AnArrayThatCannotBeSortedIsAsItWas)
{
    MakeList();
    AddColumn(nullptr, nullptr);
    FillReversed(5000, 0);
    ListItem* const first = list.items[0];
    const MemoryLimit limit;
    list.FastSortItemPtr(list.items.GetData(), 5000, true, ByData);
    EXPECT_EQ(list.items[0], first);
    list.SortAlphabetical(list.items.GetData(), 5000, true, 0);
    EXPECT_EQ(list.items[0], first);
    EXPECT_EQ(limit.Refused(), 2u);
}

TEST_F(ListMemoryTest, AnEditThatIsRefusedLeavesTheFormerOne)
{
    MakeFilledList(1, 1);
    std::vector<HWND> windows(LongText::LENGTH);
    windows[0] =
        CreateWindowExW(0, L"STATIC", nullptr, WS_CHILD, 0, 0, 10, 10, list, nullptr, nullptr, nullptr);
    list.BeginEdit(1, windows.data());
    {
        const MemoryLimit limit;
        list.BeginEdit(LongText::LENGTH, windows.data());
        EXPECT_EQ(list.editWindows[0], windows[0]);
        EXPECT_EQ(limit.Refused(), 2u);
    }
    list.BeginEdit(LongText::LENGTH, windows.data());
    list.EndEdit();
}

TEST_F(ListMemoryTest, ACopyHasNoneOfWhatItHasNoMemoryFor)
{
    for (const UINT items : {4000U, 10000U}) {
        MakeList();
        AddColumn(nullptr, nullptr);
        FillReversed(items, 0);
        {
            const MemoryLimit limit;
            test::ProbeList copy(list);
            test::ProbeList other;
            other = list;
            EXPECT_EQ(copy.items.GetLength(), items < MemoryLimit::LARGEST / sizeof(void*) ? items : 0);
            EXPECT_EQ(copy.elements.GetLength(), 0u);
            EXPECT_EQ(other.elements.GetLength(), 0u);
            for (test::ProbeList* pCopy : {&copy, &other}) {
                pCopy->Calculate();
                pCopy->HitAt(5, 60);
                pCopy->Check();
            }
        }
        Paint();
        DestroyWindow(list);
        Renew();
    }
}

TEST_F(ListMemoryTest, AListHasNoneOfWhatItReleasedForWhatItHasNoMemoryFor)
{
    MakeList();
    AddColumn(nullptr, nullptr);
    FillReversed(10000, 0);
    test::ProbeList other;
    other.InsertItem(0, 0, nullptr, 0, L"Gone", 0);
    {
        const MemoryLimit limit;
        other = list;
    }
    EXPECT_EQ(other.items.GetLength(), 0u);
}

// Refused one after the other: what texts share, the table that finds equal ones, the block of a text in both
// fonts. Each is then prepared by itself.
TEST_F(ListMemoryTest, TextsThatCannotBeSharedAreThereAllTheSame)
{
    constexpr UINT ROWS = 20;
    constexpr UINT LENGTH = 100;
    const std::vector<wchar_t> text = test::Wide(std::string(LENGTH, 'x'));
    for (const size_t limit : {8000U, 4000U, 2000U}) {
        MakeFilledList(2, 0);
        list.BulkInsertOn();
        for (UINT row = 0; row < ROWS; ++row) {
            list.InsertItem(END, 0, nullptr, 0, text.data(), 0);
            list.SetSubItem(row, 1, 0, test::Wide("row " + std::to_string(row)).data(), 0);
        }
        {
            const MemoryLimit refusing(limit);
            list.BulkInsertOff();
            EXPECT_GT(refusing.Refused(), 0u) << limit;
        }
        for (UINT row = 0; row < ROWS; ++row) {
            for (void* hText : {list.items[row]->SubItem(0)->prepared->first,
                                list.items[row]->SubItem(0)->prepared->second})
            {
                ASSERT_NE(hText, reinterpret_cast<void*>(intptr_t{-1}));
                ASSERT_EQ(static_cast<stcDrawTextBuffer*>(hText)->nChars, LENGTH);
            }
        }
        Paint();
        DestroyWindow(list);
        Renew();
    }
    MakeFilledList(1, 1);
}

TEST_F(ListMemoryTest, AListThatCannotBecomeVirtualIsEmpty)
{
    MakeFilledList(1, 3);
    {
        const MemoryLimit limit(200);
        list.SetVirtualItems(100);
        EXPECT_GT(limit.Refused(), 0u);
    }
    EXPECT_FALSE(list.IsVirtual());
    EXPECT_EQ(list.GetItemCount(), 0u);
    Paint();
    list.SetVirtualItems(100);
    EXPECT_EQ(list.GetItemCount(), 100u);
    Paint();
}

TEST_F(ListMemoryTest, ASetOfRangesStaysAsItIs)
{
    MakeFilledList(1, 0);
    gesso::IndexRanges ranges;
    ranges.Add(10, 20);
    ranges.Add(30, 40);
    ranges.Remove(12, 13);
    gesso::IndexRanges copy;
    UINT count = ranges.Count();
    {
        const MemoryLimit limit(0);
        // What an operation keeps ready from the last one may do for some.
        while (ranges.Add(1000 + 2 * count, 1001 + 2 * count).count) {
            ++count;
        }
        EXPECT_EQ(ranges.Count(), count);
        EXPECT_EQ(ranges.Remove(32, 33).count, 0u);
        EXPECT_TRUE(ranges.Has(32));
        EXPECT_FALSE(copy.Copy(ranges));
        EXPECT_EQ(copy.Count(), 0u);
        ranges.Insert(15, 100);
        EXPECT_TRUE(ranges.Has(14));
        EXPECT_TRUE(ranges.Has(139)) << "the range behind moves on";
        EXPECT_EQ(ranges.Erase(130, 140), 10u);
    }
    UINT held = 0;
    for (UINT i = ranges.Next(0); i != gesso::NO_INDEX; i = ranges.Next(i + 1)) {
        ++held;
    }
    EXPECT_EQ(ranges.Count(), held);
    EXPECT_TRUE(copy.Copy(ranges));
    EXPECT_EQ(copy.Count(), held);
    EXPECT_EQ(ranges.Add(50, 60).count, 10u);
}

TEST_F(ListMemoryTest, CellsThatCannotBeKeptGo)
{
    static constinit std::array<ListItem, 100> s_records{};
    static constinit size_t s_made = 0;
    static constinit size_t s_released = 0;
    MakeFilledList(1, 0);
    {
        gesso::VirtualCells cells([](UINT) { return &s_records[s_made++]; }, [](ListItem*) { ++s_released; });
        cells.SetRoom(20);
        for (UINT item = 0; item < 30; ++item) {
            EXPECT_TRUE(cells.Get(item, 1));
        }
        const ListItem* const kept = cells.Find(25);
        {
            const MemoryLimit limit(0);
            EXPECT_FALSE(cells.Get(50, 1));
            EXPECT_EQ(cells.Get(25, 1), kept);
            EXPECT_EQ(s_made, s_released + 30);
            cells.Erase(0, 1);
        }
        EXPECT_FALSE(cells.Find(24)) << "asked for anew";
        EXPECT_EQ(s_made, s_released);
        EXPECT_TRUE(cells.Get(24, 1));
    }
    EXPECT_EQ(s_made, s_released);
}
