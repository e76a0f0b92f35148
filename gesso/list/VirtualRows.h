// The rows of a list that owns none: where each lies, by its number, the groups and their items' numbers.
// Works on numbers alone; places are pixels from the first row's top, in 64 bits.
#pragma once

#include <gesso/list/ListGeometry.h>

#include <functional>
#include <vector>

namespace gesso {

class VirtualRows
{
public:
    static constexpr UINT MOST = 4'000'000'000;

    struct Span
    {
        int64_t top;
        int64_t bottom;
    };
    struct Area
    {
        int64_t left, top, right, bottom;
    };

    UINT Count() const { return m_count; }
    // MOST at the most. Forgets the groups' counts.
    void SetCount(UINT count);
    // How many items a group has, by its index; ignored without memory.
    void SetGroupCount(UINT group, UINT count);
    void ForgetGroup(UINT group);
    void ForgetGroups() { m_groupCounts.clear(); }
    // Items come in at `first` and go from there; the group that holds it grows, at a border the later one.
    // Return how many there are: none for a place that is not there.
    UINT Insert(UINT first, UINT count);
    UINT Erase(UINT first, UINT count);

    // Lays out for so many groups, or those that there is memory for. What follows goes by it.
    void Place(const ListMeasures& measures, UINT groups);

    int64_t End() const;
    Span PlaceOf(UINT item) const;
    // The first item whose row ends below y; Count() for none.
    UINT ItemReaching(int64_t y) const;
    // The group's index; NO_INDEX behind the last one.
    UINT GroupOf(UINT item) const;
    // The row of a group itself; empty for one that has none.
    Span PlaceOfGroup(UINT group) const;
    int64_t GroupWidth() const { return m_width; }
    int64_t RowHeight() const { return m_pitchY; }

    // The rows between two places, and a row around them, as they count from `origin`. Without memory those
    // that there is room for.
    void Cut(int64_t from, int64_t to, int64_t origin, ListRows& rows) const;

    // The items that an area touches, as ranges without their ends. False, with nothing visited, where they
    // are more than MOST_TOUCHED.
    bool VisitTouched(const Area& area, const std::function<void(UINT first, UINT end)>& visit) const;
    static constexpr int64_t MOST_TOUCHED = 200'000;

    // Where the page keys of Classic lead from an item, with a page of so many pixels.
    UINT PageUpFrom(UINT item, int64_t page) const;
    UINT PageDownFrom(UINT item, int64_t page) const;

    // Whether the groups' rows are in order, and hold what there is.
    bool Check() const;

private:
    // A group's row, if there are groups, with its items' lines below it.
    struct Block
    {
        UINT firstItem;
        int64_t firstLine;
    };

    struct LineSpan
    {
        int64_t first;
        int64_t end;
    };

    bool SetGroups(size_t groups);
    void PlaceBlocks(UINT groups);
    void CutGroupCounts();
    size_t BlockAt(int64_t y) const;
    size_t BlockOf(UINT item) const;
    int64_t TopOf(size_t block) const;
    LineSpan LinesIn(size_t block, int64_t top, int64_t bottom) const;
    int64_t LinesTop(size_t block) const { return TopOf(block) + m_groupHeight; }
    UINT EndOf(size_t block) const;
    int64_t LinesOf(UINT items) const { return (int64_t{items} + m_perLine - 1) / m_perLine; }
    bool AddRow(ListRows& rows, UINT type, UINT index, const Area& area, int64_t origin) const;
    bool CutBlock(size_t block, int64_t from, int64_t to, int64_t origin, ListRows& rows) const;

    UINT m_count = 0;
    std::vector<UINT> m_groupCounts;

    // As placed.
    std::vector<Block> m_blocks{{0, 0}};
    int64_t m_lines = 0;
    UINT m_groupedEnd = 0; // of the items in groups
    bool m_fGroups = false;
    int64_t m_groupHeight = 0;
    int64_t m_perLine = 1;
    int64_t m_spacingX = 0;
    int64_t m_spacingY = 0;
    int64_t m_itemCx = 0;
    int64_t m_pitchX = 1;
    int64_t m_pitchY = 1;
    int64_t m_width = 0; // of a group's row
};

} // namespace gesso
