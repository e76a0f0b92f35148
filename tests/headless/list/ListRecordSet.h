// A list's records, rows and measures, for a layout without a list and without a window.
#pragma once

#include <gesso/list/ListLayout.h>

#include <memory>
#include <string>
#include <vector>

namespace test {

struct ListRecordSet
{
    void InsertItem(UINT position, UINT group);
    void AddItems(UINT count, UINT group = 0);
    void AddGroup(UINT id);
    void AddColumn(UINT cx, UINT flags = 0, LPCWSTR text = nullptr, const RECT& rcFormat = {-1, -1, -1, -1});

    gesso::ListLayout Layout() { return {measures, items, groups, cells, rows, order}; }
    // The rows as "group 0 at 0..26" and "item 3 at 26..48".
    std::vector<std::string> Rows() const;
    // The elements of a cell as "1 of column 0 at 0,0,100,22".
    std::vector<std::string> Cells() const;

    gesso::ListMeasures measures{GLS_DETAILS, false, 200, 90, 22, 0, 0, 26, 0};
    gesso::ListColumns columns;
    gesso::ListGroups groups;
    gesso::ListItems items;
    gesso::ListCells cells;
    gesso::ListRows rows;
    gesso::RowOrder order;

private:
    std::vector<std::unique_ptr<ListColumn>> m_columns;
    std::vector<std::unique_ptr<ListGroup>> m_groups;
    std::vector<std::unique_ptr<ListItem>> m_items;
};

} // namespace test
