// Rows that are worked out from their number lie where those of records are placed.

#include "ListRecordSet.h"

#include <gesso/list/RowScale.h>
#include <gesso/list/VirtualRows.h>

#include <gtest/gtest.h>

#include <random>
#include <set>

namespace {

using namespace test;
using gesso::NO_INDEX;
using gesso::VirtualRows;

constexpr int64_t FAR_AWAY = 1'000'000;

class VirtualRowsTest : public testing::Test
{
protected:
    UINT Random(UINT limit) { return static_cast<UINT>(m_random() % limit); }

    // Groups with some items each; those that no group has only without groups, since records have no place
    // for them.
    void Fill()
    {
        records = ListRecordSet();
        records.measures.fExact = true;
        records.measures.view = Random(2) ? GLS_ICONS : GLS_DETAILS;
        const bool fIcons = records.measures.view == GLS_ICONS;
        records.measures.spacingX = fIcons ? 3 + Random(9) : 0;
        records.measures.spacingY = fIcons ? Random(9) : 0;
        records.measures.linesWidth = static_cast<int>(Random(500));
        records.measures.groupHeight = Random(40);
        records.measures.itemHeight = 1 + Random(40);
        groups = Random(5);
        std::vector<UINT> counts(groups);
        for (UINT group = 0; group < groups; ++group) {
            counts[group] = Random(3) ? Random(20) : 0;
            records.AddGroup(group);
            records.AddItems(counts[group], group);
        }
        if (groups == 0) {
            records.AddItems(Random(60));
        }
        rows.SetCount(records.items.GetLength());
        for (UINT group = 0; group < groups; ++group) {
            rows.SetGroupCount(group, counts[group]);
        }
        end = records.Layout().Place();
        rows.Place(records.measures, groups);
    }
    std::string Around(const gesso::ListRows& all, int64_t from, int64_t to)
    {
        ListRecordSet part;
        for (const auto& row : all) {
            if (row.rect.bottom >= from && row.rect.top <= to) {
                part.rows.Add(row);
            }
        }
        std::string lines;
        for (const auto& row : part.rows) {
            lines += std::to_string(row.type) + " " + std::to_string(row.index) + " at " +
                     std::to_string(row.rect.left) + "," + std::to_string(row.rect.top) + "," +
                     std::to_string(row.rect.right) + "," + std::to_string(row.rect.bottom) + "\n";
        }
        return lines;
    }
    void CheckRows();
    void CheckTouched();

    ListRecordSet records;
    VirtualRows rows;
    UINT groups = 0;
    int end = 0;

private:
    std::mt19937 m_random{1};
};

void VirtualRowsTest::CheckRows()
{
    EXPECT_EQ(rows.End(), end);
    gesso::ListRows cut;
    rows.Cut(-FAR_AWAY, FAR_AWAY, 0, cut);
    EXPECT_EQ(Around(cut, -FAR_AWAY, FAR_AWAY), Around(records.rows, -FAR_AWAY, FAR_AWAY));
    const int from = static_cast<int>(Random(1000));
    const int to = from + static_cast<int>(Random(100));
    rows.Cut(from, to, 0, cut);
    EXPECT_EQ(Around(cut, from, to), Around(records.rows, from, to));
    for (const auto& row : records.rows) {
        if (row.type == LET_ITEM) {
            EXPECT_EQ(rows.PlaceOf(row.index).top, row.rect.top);
            EXPECT_EQ(rows.PlaceOf(row.index).bottom, row.rect.bottom);
            EXPECT_EQ(rows.GroupOf(row.index), records.items[row.index]->group);
        }
    }
    UINT reaching = 0;
    while (reaching < rows.Count() && rows.PlaceOf(reaching).bottom <= from) {
        ++reaching;
    }
    EXPECT_EQ(rows.ItemReaching(from), reaching);
}

void VirtualRowsTest::CheckTouched()
{
    const int64_t left = Random(300);
    const int64_t top = Random(600);
    const VirtualRows::Area area{left, top, left + 1 + Random(200), top + 1 + Random(300)};
    std::set<UINT> touched, expected;
    rows.VisitTouched(area, [&](UINT first, UINT last) {
        for (UINT item = first; item < last; ++item) {
            touched.insert(item);
        }
    });
    for (const auto& row : records.rows) {
        if (row.type == LET_ITEM && row.rect.left < area.right && area.left < row.rect.right &&
            row.rect.top < area.bottom && area.top < row.rect.bottom)
        {
            expected.insert(row.index);
        }
    }
    EXPECT_EQ(touched, expected);
}

TEST_F(VirtualRowsTest, RowsLieWhereThoseOfRecordsDo)
{
    for (int round = 0; round < 2000 && !HasFailure(); ++round) {
        SCOPED_TRACE(round);
        Fill();
        CheckRows();
        CheckTouched();
    }
}

TEST_F(VirtualRowsTest, PageKeysLeadWhereRecordsLead)
{
    records.AddItems(50);
    records.Layout().Place();
    records.Layout().Stamp(0);
    rows.SetCount(50);
    rows.Place(records.measures, 0);
    for (UINT page : {0U, 10U, 22U, 43U, 44U, 45U, 100U, 1000U, 2000U}) {
        for (UINT item : {0U, 1U, 7U, 25U, 48U, 49U, 50U, NO_INDEX}) {
            EXPECT_EQ(rows.PageUpFrom(item, page), records.Layout().PageUpFrom(item, page)) << item << page;
            EXPECT_EQ(rows.PageDownFrom(item, page), records.Layout().PageDownFrom(item, page))
                << item << page;
        }
    }
}

TEST_F(VirtualRowsTest, GroupsGrowAndShrinkWithTheirItems)
{
    const auto counts = [this] {
        rows.Place(records.measures, 3);
        std::string text;
        for (UINT item = 0; item < rows.Count(); ++item) {
            text += rows.GroupOf(item) == NO_INDEX ? "-" : std::to_string(rows.GroupOf(item));
        }
        return text;
    };
    rows.SetCount(6);
    rows.SetGroupCount(0, 2);
    rows.SetGroupCount(1, 0);
    rows.SetGroupCount(2, 3);
    EXPECT_EQ(counts(), "00222-");
    EXPECT_EQ(rows.Insert(2, 1), 1U) << "at a border";
    EXPECT_EQ(counts(), "002222-");
    rows.Insert(6, 1);
    EXPECT_EQ(counts(), "002222--") << "behind the last group";
    EXPECT_EQ(rows.Erase(1, 3), 3U);
    EXPECT_EQ(counts(), "022--");
    EXPECT_EQ(rows.Erase(3, 100), 2U);
    rows.Insert(3, 2);
    EXPECT_EQ(counts(), "02222") << "appended to the last group";
    EXPECT_EQ(rows.Insert(6, 1), 0U);
    EXPECT_EQ(rows.Erase(5, 1), 0U);
    rows.SetGroupCount(0, 4);
    EXPECT_EQ(counts(), "00002") << "what is too many is cut";
    rows.SetCount(5);
    EXPECT_EQ(counts(), "-----") << "another number forgets the groups' counts";
}

TEST_F(VirtualRowsTest, FourBillionRowsHaveEachItsPlace)
{
    rows.SetCount(NO_INDEX);
    EXPECT_EQ(rows.Count(), 4'000'000'000);
    EXPECT_EQ(rows.Insert(0, 5), 0U);
    rows.Place(records.measures, 0);
    EXPECT_EQ(rows.End(), int64_t{4'000'000'000} * 22);
    EXPECT_EQ(rows.PlaceOf(3'999'999'999).bottom, rows.End());
    EXPECT_EQ(rows.ItemReaching(rows.End() - 1), 3'999'999'999);
    gesso::ListRows cut;
    rows.Cut(rows.End() - 30, rows.End(), rows.End() - 100, cut);
    ASSERT_GE(cut.GetLength(), 2U);
    EXPECT_EQ(cut[cut.GetLength() - 1].index, 3'999'999'999);
    EXPECT_EQ(cut[cut.GetLength() - 1].rect.bottom, 100);
    EXPECT_LE(cut.GetLength(), 6U);
}

TEST_F(VirtualRowsTest, AnAreaOfTooManyRangesVisitsNone)
{
    records.measures.view = GLS_ICONS;
    records.measures.linesWidth = 1000;
    rows.SetCount(4'000'000'000);
    rows.Place(records.measures, 0);
    UINT ranges = 0;
    const auto note = [&ranges](UINT, UINT) { ++ranges; };
    EXPECT_FALSE(rows.VisitTouched({0, 0, 1, rows.End()}, note));
    EXPECT_EQ(ranges, 0U);
    EXPECT_TRUE(rows.VisitTouched({0, 0, 1000, rows.End()}, note));
    EXPECT_EQ(ranges, 1U) << "whole lines are one range";
    EXPECT_TRUE(rows.VisitTouched({0, 0, 1, 1000}, note));
    EXPECT_GT(ranges, 10U);
}

TEST_F(VirtualRowsTest, EachUnitOfALargeBarIsAPlaceOfItsOwn)
{
    for (const int64_t count : {100'000'000LL, 1'000'000'000LL, 4'000'000'000LL}) {
        const int64_t height = count * 22;
        const gesso::RowScale scale(height, 170, 22);
        EXPECT_EQ(scale.LastPixel(), height - 170);
        EXPECT_EQ(scale.PixelAt(scale.LastUnit()), height - 170);
        EXPECT_EQ(scale.PixelAt(0), 0);
        for (const int unit : {0, 1, 2, 1000, scale.LastUnit() / 2, scale.LastUnit() - 1, scale.LastUnit()}) {
            EXPECT_EQ(scale.UnitAt(scale.PixelAt(unit)), unit);
            const int64_t step = scale.PixelAt(unit + 1) - scale.PixelAt(unit);
            EXPECT_LE(step, 170 - 22) << "rows between two units would never show";
        }
        EXPECT_EQ(scale.UnitAt(scale.LastPixel() - 1), scale.LastUnit() - 1);
    }
}

} // namespace
