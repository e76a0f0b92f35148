// The layout of a list, without a list: records in, places and hits out.

#include "ListRecordSet.h"

#include <tests/support/Numbers.h>

#include <gesso/list/ListCellLayout.h>
#include <gesso/list/ListInside.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <random>

namespace {

using namespace test;
using Texts = std::vector<std::string>;
using Position = std::optional<int64_t>;

constexpr UINT NO_ITEM = static_cast<UINT>(-1);

TEST(ListLayout, RowsFollowTheGroupsInTheOrderOfTheItems)
{
    ListRecordSet list;
    for (const UINT id : {5U, 6U, 7U}) {
        list.AddGroup(id);
    }
    list.AddItems(2, 5);
    list.AddItems(1, 7);
    EXPECT_EQ(list.Layout().Place(), 144);
    EXPECT_EQ(list.Rows(), (Texts{"group 0 at 0,26", "item 0 at 26,48", "item 1 at 48,70", "group 1 at 70,96",
                                  "group 2 at 96,122", "item 2 at 122,144"}));
    EXPECT_EQ(Numbers(list.rows[1].rect), "0,26,200,48");
    list.items[2]->group = 5;
    EXPECT_EQ(list.Layout().Place(), 92) << "groups behind the last item have no row";
    list.items[1]->group = 9;
    list.items[2]->group = 7;
    list.Layout().Place();
    EXPECT_EQ(list.Rows(), (Texts{"group 0 at 0,26", "item 0 at 26,48", "group 1 at 48,74",
                                  "group 2 at 74,100", "item 2 at 100,122"}))
        << "an item that matches no group has no row, and hides no other";
}

TEST(ListLayout, AllIconsOfAGroupShareACell)
{
    ListRecordSet list;
    list.measures.view = GLS_ICONS;
    list.measures.spacingX = list.measures.spacingY = 5;
    list.AddItems(3);
    EXPECT_EQ(list.Layout().Place(), 10);
    EXPECT_EQ(Numbers(list.rows[0].rect), "0,5,200,27") << "with the right edge of what came before";
    EXPECT_EQ(Numbers(list.rows[1].rect), "0,5,90,27");
    EXPECT_EQ(Numbers(list.rows[2].rect), "0,5,90,27");
    EXPECT_TRUE(list.Layout().Check());
}

TEST(ListLayout, AnInsertionMendsTheRows)
{
    ListRecordSet list;
    for (const UINT position : {0U, 0U, 1U, 3U, 2U}) {
        list.InsertItem(position, 0);
        gesso::ListLayout layout = list.Layout();
        EXPECT_TRUE(layout.Fit(layout.Insert(position)));
        const Texts mended = list.Rows();
        EXPECT_TRUE(layout.Check());
        layout.Place();
        EXPECT_EQ(mended, list.Rows());
    }
    list.measures.itemHeight = 30;
    EXPECT_TRUE(list.Layout().Fit(3));
    EXPECT_FALSE(list.Layout().Fit(3));
    EXPECT_EQ(Numbers(list.rows[4].rect), "0,96,200,118");
}

TEST(ListLayout, AnInsertionAmongGroupsCountsRowsUntilTheNextLayout)
{
    ListRecordSet list;
    list.AddGroup(0);
    list.AddGroup(1);
    list.AddItems(1, 0);
    list.AddItems(1, 1);
    list.Layout().Place();
    const auto insert = [&](UINT position, UINT group) {
        list.InsertItem(position, group);
        gesso::ListLayout layout = list.Layout();
        layout.Fit(layout.Insert(position));
        EXPECT_TRUE(layout.Check());
        EXPECT_FALSE(list.order.fCurrent);
        return list.Rows();
    };
    EXPECT_EQ(insert(2, 1), (Texts{"group 0 at 0,26", "item 0 at 26,48", "group 1 at 48,74",
                                   "item 1 at 74,96", "item 4 at 96,118"}));
    EXPECT_EQ(insert(0, 0), (Texts{"group 1 at 0,26", "item 1 at 26,48", "item 1 at 48,70",
                                   "group 2 at 70,96", "item 2 at 96,118", "item 5 at 118,140"}));
    EXPECT_FALSE(list.order.fAscending);
}

// Whatever is known of the rows only spares looks at them.
TEST(ListLayout, RowsAreFoundAsByAWalkOverAll)
{
    std::mt19937 random(1);
    const auto any = [&random](UINT limit) { return static_cast<UINT>(random() % limit); };
    for (int round = 0; round < 40; ++round) {
        ListRecordSet list;
        for (UINT id = any(4); id > 0; --id) {
            list.AddGroup(list.groups.GetLength());
        }
        list.measures.groupHeight = any(3) * 10;
        for (UINT i = 0; i < 20; ++i) {
            list.AddItems(1, i / 6);
        }
        list.Layout().Place();
        for (int step = 0; step < 4; ++step) {
            const UINT position = any(list.items.GetLength() + 1);
            list.InsertItem(position, any(3));
            list.Layout().Fit(list.Layout().Insert(position));
            ASSERT_TRUE(list.Layout().Check());
            const gesso::ListLayout known = list.Layout();
            gesso::RowOrder nothing;
            const gesso::ListLayout walking(list.measures, list.items, list.groups, list.cells, list.rows,
                                            nothing);
            for (UINT n = 0; n < 30; ++n) {
                EXPECT_EQ(known.RowFrom(n), walking.RowFrom(n));
                EXPECT_EQ(known.RowOf(n), walking.RowOf(n));
                EXPECT_EQ(known.FirstRowReaching(int64_t{n} * 20), walking.FirstRowReaching(int64_t{n} * 20));
            }
        }
    }
}

TEST(ListLayout, ACheckSeesRowsThatBelieWhatIsKnownOfThem)
{
    const auto isSeen = [](const auto& spoil) {
        ListRecordSet list;
        list.AddGroup(0);
        list.AddItems(3);
        list.Layout().Place();
        EXPECT_TRUE(list.Layout().Check());
        spoil(list);
        return !list.Layout().Check();
    };
    EXPECT_TRUE(isSeen([](ListRecordSet& list) { OffsetRect(&list.rows[2].rect, 0, 1); }));
    EXPECT_TRUE(isSeen([](ListRecordSet& list) { std::swap(list.rows[1].index, list.rows[2].index); }));
    EXPECT_TRUE(isSeen([](ListRecordSet& list) { list.rows[0].index = 7; }));
    EXPECT_TRUE(isSeen([](ListRecordSet& list) { list.items[1]->group = 4; })) << "no longer current";
    EXPECT_TRUE(isSeen([](ListRecordSet& list) { list.rows.RemoveAt(3, 1); }));
}

// --- Hits

class ListHitTest : public testing::Test
{
protected:
    void SetUp() override
    {
        list.measures.headerArea = 35;
        list.AddColumn(100);
        list.AddColumn(100);
        gesso::ArrangeDetails(list.cells, list.columns, 22, nullptr, 3);
        list.AddItems(5);
        list.Layout().Place();
    }
    // "item element part", in a window of 300 x 200.
    std::string HitAt(int x, int y, int scrollY = 0)
    {
        const gesso::ListHit hit = list.Layout().HitAt({x, y}, {{300, 200}, {0, scrollY}}, 6);
        return std::to_string(static_cast<int>(hit.item)) + " " +
               std::to_string(static_cast<SHORT>(hit.subItem)) + " " +
               std::to_string(static_cast<SHORT>(hit.part));
    }
    ListRecordSet list;
};

struct HitCase
{
    int x, y;
    const char* hit;
};

TEST_F(ListHitTest, APointHitsTheCellThatShowsThere)
{
    const HitCase cases[] = {
        {5, 5, "-2 0 0"},      {94, 5, "-2 0 0"},   {95, 5, "-2 0 2"},
        {105, 5, "-2 0 2"},    {106, 5, "-2 0 0"}, // the first column ends 6 behind the second one's left
        {107, 5, "-2 1 0"},    {195, 5, "-2 1 2"},  {200, 5, "-2 1 2"},
        {201, 5, "-2 -1 -1"},                       // the last divider's far half
        {5, 34, "-2 0 0"},     {5, 35, "-1 -1 -1"}, // the row's first line
        {5, 36, "0 0 0"},      {5, 57, "0 0 0"},    {5, 58, "1 0 0"},
        {100, 58, "1 0 0"},    {101, 58, "1 1 0"},  {200, 58, "1 1 0"},
        {201, 58, "-1 -1 -1"}, {5, 145, "4 0 0"},   {5, 146, "-1 -1 -1"},
        {-1, 50, "-1 -1 -1"},  {5, -1, "-1 -1 -1"}, {301, 50, "-1 -1 -1"},
        {5, 201, "-1 -1 -1"},
    };
    for (const HitCase& c : cases) {
        EXPECT_EQ(HitAt(c.x, c.y), c.hit) << c.x << "," << c.y;
    }
    EXPECT_EQ(HitAt(5, 36, 22), "1 0 0") << "scrolled";
    list.items.RemoveAll();
    EXPECT_EQ(HitAt(5, 5), "-1 -1 -1") << "an empty list has no header to click";
}

TEST_F(ListHitTest, GroupRowsCheckBoxesAndIconsHitByTheirOwnRules)
{
    list.measures.headerArea = 0;
    list.AddGroup(0);
    list.Layout().Place();
    EXPECT_EQ(HitAt(5, 10), "0 -1 0") << "the group's index";
    EXPECT_EQ(HitAt(250, 10), "-1 -1 -1");

    const SIZE box{13, 13};
    list.measures.fCheckBoxes = true;
    EXPECT_EQ(gesso::ArrangeDetails(list.cells, list.columns, 22, &box, 3), 216);
    EXPECT_EQ(HitAt(3, 40), "0 0 0") << "the box is the first element";
    EXPECT_EQ(HitAt(50, 40), "0 1 0");

    list.measures.view = GLS_ICONS;
    gesso::ArrangeIcons(list.cells, {{90, 22}, {0, 0}, 0, 2, 40});
    list.Layout().Place();
    for (int x = 0; x < 300; x += 7) {
        for (int y = 27; y < 200; y += 7) {
            EXPECT_EQ(HitAt(x, y), "-1 -1 -1") << "icons overlap their elements nowhere";
        }
    }
}

TEST_F(ListHitTest, AHitFarDownIsTakenIn16Bits)
{
    list.measures.headerArea = 0;
    list.AddItems(4000);
    list.Layout().Place();
    EXPECT_EQ(HitAt(5, 10, 22000), "1000 0 0");
    EXPECT_EQ(HitAt(5, 10, 33000), "-1 -1 -1");
    EXPECT_EQ(HitAt(5, 10, 65536 + 2200), "100 0 0");
}

TEST_F(ListHitTest, ARowsCellIsInTheContentBelowTheHeader)
{
    EXPECT_EQ(Numbers(list.Layout().CellRect(2, 1)), "100,79,200,101");
    EXPECT_EQ(Numbers(list.Layout().RowRect(2, -10, -100)), "-10,-21,190,1");
    EXPECT_TRUE(list.Layout().AreBelow(2, 78));
    EXPECT_FALSE(list.Layout().AreBelow(2, 79));
}

// --- Cells

TEST(ListCells, DetailsLineUpBehindTheCheckBoxAndTilesStandWhereTheirColumnsSay)
{
    ListRecordSet list;
    const SIZE box{13, 12};
    list.AddColumn(100, LCF_TILELINE, L"a", {1, 2, 50, 12});
    list.AddColumn(50, LCF_TILECAPTION, L"bb", {3, 14, 80, 24});
    list.AddColumn(UINT_MAX);
    gesso::ArrangeDetails(list.cells, list.columns, 22, &box, 3);
    EXPECT_EQ(list.Cells(), (Texts{"1024 of -1 at 0,5,13,17", "1 of 0 at 16,0,116,22",
                                   "1 of 1 at 116,0,166,22", "1 of 2 at 166,0,2147483647,22"}));
    const auto width = [](LPCWSTR text) { return static_cast<int>(wcslen(text)) * 10; };
    gesso::ArrangeTiles(list.cells, list.columns, 22, nullptr, width);
    EXPECT_EQ(list.Cells(),
              (Texts{"1 of 0 at 1,2,50,12", "32768 of 1 at 3,14,80,24", "1 of 1 at 23,14,80,24"}));
    gesso::ArrangeTiles(list.cells, list.columns, 22, &box, width);
    EXPECT_EQ(list.cells[3].rect.left, 3 + 10) << "the element at the column's number is measured";
}

TEST(ListCells, IconsLeaveWhatAnEarlierViewWroteElsewhere)
{
    ListRecordSet list;
    list.AddColumn(100);
    gesso::ArrangeDetails(list.cells, list.columns, 22, nullptr, 3);
    list.cells[0].column = 7;
    gesso::ArrangeIcons(list.cells, {{90, 40}, {32, 16}, 15, 2, 40});
    EXPECT_EQ(list.Cells(),
              (Texts{"1024 of 7 at 0,0,40,40", "512 of 0 at 29,4,90,21", "256 of 0 at 0,23,90,40"}));
}

// --- Bars and keys

struct BarCase
{
    SIZE content;
    int reducedX, reducedY; // by how many bar widths
};

// What fits with and without the bars, in a client area of 300 x 200.
TEST(ListBars, PagesAreReducedWhereOneOrBothDirectionsFit)
{
    const BarCase cases[] = {
        {{1000, 1000}, 0, 0}, // neither fits
        {{297, 1000}, 1, 0},  // across fits, but not beside a bar
        {{1000, 197}, 0, 1},  {{297, 197}, 1, 1}, {{50, 50}, 1, 1},
        {{50, 1000}, 1, 0},   {{297, 50}, 1, 1},  {{1000, 50}, 0, 1},
    };
    for (const BarCase& c : cases) {
        const gesso::ListBars bars = gesso::BarsOf(c.content, {300, 200}, {17, 16});
        EXPECT_EQ(bars.pageX, 300U - static_cast<UINT>(c.reducedX) * 17) << Numbers(c.content);
        EXPECT_EQ(bars.pageY, 200U - static_cast<UINT>(c.reducedY) * 16) << Numbers(c.content);
        EXPECT_EQ(bars.lastX, static_cast<UINT>(c.content.cx) - 1);
        EXPECT_EQ(bars.lastY, static_cast<UINT>(c.content.cy) - 1);
    }
}

TEST(ListKeys, PagesAndScrollingGoByWhatWasStamped)
{
    ListRecordSet list;
    list.measures.headerArea = 35;
    list.AddItems(20);
    list.Layout().Stamp(0, 200);
    list.Layout().Place();
    EXPECT_EQ(list.Layout().PageDownFrom(0, 100), 3U);
    EXPECT_EQ(list.Layout().PageDownFrom(18, 100), 19U);
    EXPECT_EQ(list.Layout().PageUpFrom(10, 100), 7U);
    EXPECT_EQ(list.Layout().PageUpFrom(2, 100), 0U);
    EXPECT_EQ(list.Layout().PageUpFrom(NO_ITEM, 100), 0U);
    EXPECT_EQ(list.Layout().PageDownFrom(NO_ITEM, 100), 19U);

    EXPECT_EQ(list.Layout().PositionOfEnd(9, 0, 100), Position(35 + 10 * 22 - 100));
    EXPECT_EQ(list.Layout().PositionOfEnd(1, 0, 100), std::nullopt);
    EXPECT_EQ(list.Layout().PositionOfStart(3, 100, 10), Position(3 * 22 + 10));
    EXPECT_EQ(list.Layout().PositionOfStart(6, 100, 10), std::nullopt);
    EXPECT_EQ(list.Layout().PositionOfStart(0, 0, 10), Position(0));

    std::swap(list.items[1], list.items[9]);
    EXPECT_EQ(list.Layout().PositionOfEnd(1, 0, 100), Position(35 + 10 * 22 - 100))
        << "until the items are stamped anew";
    list.Layout().Stamp(0);
    EXPECT_EQ(list.Layout().PositionOfEnd(1, 0, 100), std::nullopt);
}

// --- What a list holds

// As a program copies a list that was built when the first byte was an owner's mark.
TEST(ListInside, AHoldWhoseFirstByteIsClearedHoldsNothing)
{
    gesso::ListInsideHold held;
    held->itemChanges = 7;
    gesso::ListInsideHold copied;
    std::memcpy(static_cast<void*>(&copied), &held, sizeof(held));
    *reinterpret_cast<unsigned char*>(&copied) = 0;
    EXPECT_EQ(copied->itemChanges, 0U);
    const gesso::ListInsideHold copy(held);
    EXPECT_EQ(copy->itemChanges, 0U);
    held = copy;
    EXPECT_EQ(held->itemChanges, 0U) << "what it was assigned to is another list's";
}

} // namespace
