#include "../support/AllowMisuse.h"
#include "ListFixture.h"

#include <gesso/list/PartitionSort.h>

#include <algorithm>
#include <functional>
#include <numeric>
#include <random>
#include <utility>

namespace {

using namespace test;

void* Data(size_t n)
{
    return reinterpret_cast<void*>(n);
}

int CompareData(void* a, void* b)
{
    return a < b ? -1 : a > b ? 1 : 0;
}

std::function<void()> s_onCallback; // once, at the next call

int CompareAndAct(void* a, void* b)
{
    if (const auto act = std::exchange(s_onCallback, nullptr)) {
        act();
    }
    return CompareData(a, b);
}

UINT GroupAndAct(GList*, void*)
{
    CompareAndAct(nullptr, nullptr);
    return 0;
}

class GListSortTest : public ListFixture
{
protected:
    void Fill(std::initializer_list<const char*> texts)
    {
        MakeList();
        AddColumns(1);
        for (const char* text : texts) {
            AddItem(text);
        }
    }
};

TEST_F(GListSortTest, TextsSortWithoutCaseByUnits)
{
    Fill({"b10", "B2", "a", "", "abcdZ", "abcd", "ABCDE", "abce"});
    list.SetItemText(2, 0, nullptr);
    list.Sort(0, true);
    EXPECT_EQ(list.Texts(), "(null)  abcd ABCDE abcdZ abce b10 B2") << "no text counts as empty, digits as "
                                                                       "characters";
    list.Sort(0, false);
    EXPECT_EQ(list.Texts().substr(0, 6), "B2 b10");
}

// The keys leave out what all texts begin with, which may be a whole text.
TEST_F(GListSortTest, TextsWithACommonStartSortByWhatFollowsIt)
{
    Fill({"File 10", "fILE 1", "File", "file b", "FILE A", "File 10x", "file 1"});
    list.Sort(0, true);
    EXPECT_EQ(list.Texts().substr(0, 5), "File ");
    EXPECT_EQ(list.Texts().substr(19), "File 10 File 10x FILE A file b");
    list.RemoveItem(0);
    list.Sort(0, false);
    EXPECT_EQ(list.Texts().substr(0, 31), "file b FILE A File 10x File 10 ");
    list.RemoveAllItems();
    list.Sort(0, true);
    AddItem("alone");
    list.Sort(0, true);
    EXPECT_EQ(list.Texts(), "alone");
}

// The swaps of the partition, worked through by hand: they decide how equal items lie.
TEST_F(GListSortTest, EqualItemsLieAsThePartitionLeavesThem)
{
    Fill({"xx", "Xx", "aa", "xX", "Aa"});
    list.Sort(0, true);
    EXPECT_EQ(list.Texts(), "aa Aa xx Xx xX");
    list.Sort(0, true);
    EXPECT_EQ(list.Texts(), "Aa aa xX xx Xx") << "sorting once more may swap equal items";
}

TEST_F(GListSortTest, TheCallbackSortsByTheHostsData)
{
    MakeList();
    AddColumn(nullptr, CompareData);
    for (const size_t n : std::initializer_list<size_t>{3, 1, 2, 5, 4}) {
        AddItem(std::to_string(n).c_str(), 0, Data(n));
    }
    list.SetSelected(0, 1);
    list.Sort(0, true);
    EXPECT_EQ(list.Texts(), "1 2 3 4 5");
    EXPECT_EQ(list.Selected(), "2") << "the selection goes with its item";
    list.Sort(0, false);
    EXPECT_EQ(list.Texts(), "5 4 3 2 1");
    UINT column = 9;
    bool ascending = true;
    list.GetCurrentSort(&column, &ascending);
    EXPECT_EQ(column, 0u);
    EXPECT_FALSE(ascending);
}

TEST_F(GListSortTest, TheArrowMovesToTheSortedColumn)
{
    MakeList();
    AddColumns(2);
    list.Sort(1, true);
    EXPECT_EQ(list.columns[1]->state, LCS_SORTUP) << "also with nothing to sort";
    list.Sort(0, false);
    EXPECT_EQ(list.columns[1]->state, 0u);
    EXPECT_EQ(list.columns[0]->state, LCS_SORTDOWN);
    list.RemoveColumn(0);
    AddItem("a");
    AddItem("b");
    list.Sort(END, true);
    EXPECT_EQ(list.Texts(), "a b") << "a column that is not there leaves the order";
    list.Group(END, false);
    EXPECT_EQ(list.Texts(), "a b");
}

TEST_F(GListSortTest, SortingGathersByGroupAndDropsWhatHasNone)
{
    Fill({});
    AddGroup(8);
    AddGroup(3);
    AddGroup(8, "The same id again");
    for (const auto& [text, group] : {std::pair{"d", 3U}, {"c", 8U}, {"b", 3U}, {"none", 4U}, {"a", 8U}}) {
        AddItem(text, group);
    }
    list.Sort(0, true);
    EXPECT_EQ(list.Texts(), "a c b d");
    EXPECT_EQ(list.Rows().front(), "group 0 at 0..26");
    EXPECT_EQ(list.elements.GetLength(), 2u + 4u);
}

UINT GroupByTens(GList* pList, void* data)
{
    const auto tens = static_cast<UINT>(reinterpret_cast<size_t>(data) / 10);
    while (pList->GetGroupCount() <= tens) {
        pList->InsertGroup(0, L"Tens", 0, pList->GetGroupCount());
    }
    return tens;
}

TEST_F(GListSortTest, GroupingAsksTheColumnAndSortsAsBefore)
{
    MakeList();
    AddColumn(GroupByTens, CompareData);
    for (const size_t n : std::initializer_list<size_t>{23, 5, 12, 3, 25}) {
        AddItem(std::to_string(n).c_str(), 0, Data(n));
    }
    list.Group(0, true);
    EXPECT_EQ(list.Texts(), "5 3 12 25 23") << "before any sort: by the first column, descending";
    EXPECT_EQ(list.columns[0]->state, LCS_SORTDOWN);
    EXPECT_EQ(list.GetGroupCount(), 3u);
    EXPECT_EQ(list.GetItemGroup(4), 2u);
    list.Sort(0, true);
    EXPECT_EQ(list.Texts(), "3 5 12 23 25");
    list.Group(END, false);
    EXPECT_EQ(list.GetGroupCount(), 0u);
    EXPECT_EQ(list.elements.GetLength(), 5u);
    list.RemoveAllItems();
    list.InsertGroup(0, L"left", 0, 0);
    list.Calculate();
    list.Group(0, false);
    EXPECT_EQ(list.elements.GetLength(), 0u);
}

// The item is left with the group's index, which sorting takes for an id.
TEST_F(GListSortTest, AnIdThatIsNotTheIndexLosesTheItem)
{
    MakeList();
    const auto group = [](GList* pList, void*) -> UINT {
        if (pList->GetGroupCount() == 0) {
            pList->InsertGroup(0, L"Zero", 0, 0);
            pList->InsertGroup(0, L"Three", 0, 3);
        }
        return 3;
    };
    AddColumn(group, nullptr);
    AddItem("a");
    list.Group(0, true);
    EXPECT_EQ(list.GetItemCount(), 0u);
}

// Worked through apart from the code: which of the equal items the partition swaps, also in a part that comes
// to be looked at for a merge.
TEST(PartitionSort, LeavesEqualItemsInTheStatedOrder)
{
    constexpr std::string_view KEYS = "bbgbhgbhgfdhfbeafgcchgeegheefchhacfahbcadfbfhgfcfbbdebehgfdh";
    std::vector<size_t> places(KEYS.size());
    std::iota(places.begin(), places.end(), size_t{0});
    const auto order = [&](size_t a, size_t b) { return KEYS[a] - KEYS[b]; };
    gesso::PartitionSort<size_t, decltype(order)>::Sort(places, order);
    std::string sorted;
    for (const size_t place : places) {
        sorted += std::to_string(place) + " ";
    }
    EXPECT_EQ(sorted,
              "35 39 15 32 37 49 42 13 53 3 50 0 1 6 19 18 33 29 47 38 40 10 51 58 54 27 14 52 26 22 23 "
              "41 34 9 57 48 46 28 43 12 16 45 8 2 5 21 24 17 56 59 55 11 20 4 7 36 44 25 31 30 ");
}

// An order that is invented while it is asked for, to make the middle item the worst pivot each time.
class Adversary
{
public:
    explicit Adversary(size_t n) : m_rank(n, GAS) {}

    int Compare(size_t a, size_t b)
    {
        if (m_rank[a] == GAS && m_rank[b] == GAS) {
            m_rank[a == m_candidate ? a : b] = m_solid++;
        }
        m_candidate = m_rank[a] == GAS ? a : m_rank[b] == GAS ? b : m_candidate;
        return m_rank[a] < m_rank[b] ? -1 : m_rank[a] > m_rank[b] ? 1 : 0;
    }

private:
    static constexpr size_t GAS = static_cast<size_t>(-1);
    std::vector<size_t> m_rank;
    size_t m_solid = 0;
    size_t m_candidate = 0;
};

TEST(PartitionSort, EqualAndHostileInputOfAMillionEndsInTime)
{
    constexpr size_t COUNT = 1'000'000;
    size_t comparisons = 0;
    std::vector<int> values(COUNT, 5);
    const auto count = [&](int a, int b) {
        ++comparisons;
        return a < b ? -1 : a > b ? 1 : 0;
    };
    gesso::PartitionSort<int, decltype(count)>::Sort(values, count);
    EXPECT_LT(comparisons, 30 * COUNT) << "all equal";

    comparisons = 0;
    std::iota(values.begin(), values.end(), 0);
    std::rotate(values.begin(), values.begin() + COUNT / 2, values.end());
    gesso::PartitionSort<int, decltype(count)>::Sort(values, count);
    EXPECT_TRUE(std::is_sorted(values.begin(), values.end()));
    EXPECT_LT(comparisons, 60 * COUNT) << "two halves, the wrong way round";

    comparisons = 0;
    Adversary adversary(COUNT);
    std::vector<size_t> hostile(COUNT);
    std::iota(hostile.begin(), hostile.end(), size_t{0});
    const auto invent = [&](size_t a, size_t b) {
        ++comparisons;
        return adversary.Compare(a, b);
    };
    gesso::PartitionSort<size_t, decltype(invent)>::Sort(hostile, invent);
    EXPECT_LT(comparisons, 150 * COUNT) << "hostile";
    for (size_t i = 1; i < COUNT; ++i) {
        ASSERT_LT(adversary.Compare(hostile[i - 1], hostile[i]), 0) << i;
    }
}

// By its object, by its window, or by both; and a copy by its original.
TEST(GListLifeTest, TheListMayGoWhileItSortsAndGroups)
{
    Host host;
    constexpr int OBJECT = 1, WINDOW = 2, COPY = 4;
    for (const int gone : {OBJECT, WINDOW, OBJECT | WINDOW, COPY | OBJECT, COPY | WINDOW}) {
        for (const bool groups : {false, true}) {
            auto* list = new GList;
            const HWND hwnd = list->Create(0, 0, 200, 100, host, 1, GLS_DETAILS, 0, WS_CHILD | WS_VISIBLE);
            list->InsertColumn(0, 0, 0, 100, 20, L"Column", 0, LCT_TEXT, nullptr, GroupAndAct, CompareAndAct,
                               nullptr);
            for (size_t i = 0; i < 20; ++i) {
                list->InsertItem(0, 0, Data(i * 7 % 20), 0, L"Item", 0);
            }
            auto* sorter = gone & COPY ? new GList(*list) : list;
            s_onCallback = [&] {
                if (gone & WINDOW) {
                    DestroyWindow(hwnd);
                }
                if (gone & OBJECT) {
                    list->Delete(list);
                }
            };
            groups ? sorter->Group(0, true) : sorter->Sort(0, true);
            EXPECT_FALSE(s_onCallback) << gone;
            DestroyWindow(hwnd);
            if (sorter != list) {
                sorter->Delete(sorter);
            }
            if (!(gone & OBJECT)) {
                list->Delete(list);
            }
        }
    }
}

TEST(GListLifeTest, CallbacksMayChangeTheItemsThatTheyAreAskedOf)
{
    const Host host;
    const AllowMisuse allowed;
    GList list;
    list.Create(0, 0, 200, 100, host, 1, GLS_DETAILS, 0, WS_CHILD | WS_VISIBLE);
    list.InsertColumn(0, 0, 0, 100, 20, L"Column", 0, LCT_TEXT, nullptr, GroupAndAct, CompareAndAct, nullptr);
    for (const size_t n : {2, 1, 3}) {
        list.InsertItem(END, 0, Data(n), 0, L"Item", 0);
    }
    s_onCallback = [&] { list.InsertItem(0, 0, Data(9), 0, L"New", 0); };
    list.Sort(0, true);
    ASSERT_EQ(list.GetItemCount(), 4u);
    EXPECT_EQ(list.GetItemCustomData(0), Data(9)) << "the order stays";
    list.Group(0, true);
    EXPECT_EQ(list.GetItemGroup(0), 0u) << "the id, for there is no such group";
    s_onCallback = [&] { list.RemoveAllItems(); };
    list.Group(0, true);
    EXPECT_EQ(list.GetItemCount(), 0u);
    DestroyWindow(list);
}

TEST(GListLifeTest, AComparisonThatEndsItsItemsIsAskedNoMore)
{
    const Host host;
    const AllowMisuse allowed;
    for (const bool fList : {false, true}) {
        auto* list = new GList;
        list->Create(0, 0, 200, 100, host, 1, GLS_DETAILS, 0, WS_CHILD | WS_VISIBLE);
        list->InsertColumn(0, 0, 0, 100, 20, L"Column", 0, LCT_TEXT, nullptr, nullptr, CompareAndAct,
                           nullptr);
        for (size_t n = 0; n < 30; ++n) {
            list->InsertItem(END, 0, Data(n * 7 % 30), 0, L"Item", 0);
        }
        s_onCallback = [&] {
            fList ? list->Delete(list) : list->RemoveAllItems();
            s_onCallback = [] { ADD_FAILURE() << "of data that the host may have freed"; };
        };
        list->Sort(0, true);
        s_onCallback = nullptr;
        if (!fList) {
            list->Delete(list);
        }
    }
}

TEST(PartitionSort, AnInconsistentOrderEndsInsideTheArray)
{
    std::mt19937 random(3);
    const auto any = [&](int, int) { return static_cast<int>(random() % 3) - 1; };
    const auto always = [](int, int) { return -1; };
    const auto never = [](int, int) { return 1; };
    for (size_t n = 0; n < 300; ++n) {
        std::vector<int> values(n);
        std::iota(values.begin(), values.end(), 0);
        gesso::PartitionSort<int, decltype(any)>::Sort(values, any);
        gesso::PartitionSort<int, decltype(always)>::Sort(values, always);
        gesso::PartitionSort<int, decltype(never)>::Sort(values, never);
        std::sort(values.begin(), values.end());
        for (size_t i = 0; i < n; ++i) {
            ASSERT_EQ(values[i], static_cast<int>(i)) << "no item is lost";
        }
    }
}

} // namespace
