#include "ListRecordSet.h"

#include "../../support/Numbers.h"

namespace test {

void ListRecordSet::InsertItem(UINT position, UINT group)
{
    m_items.push_back(std::make_unique<ListItem>());
    m_items.back()->group = group;
    items.InsertAt(position, m_items.back().get());
}

void ListRecordSet::AddItems(UINT count, UINT group)
{
    while (count-- > 0) {
        InsertItem(items.GetLength(), group);
    }
}

void ListRecordSet::AddGroup(UINT id)
{
    m_groups.push_back(std::make_unique<ListGroup>());
    m_groups.back()->group = id;
    groups.Add(m_groups.back().get());
}

void ListRecordSet::AddColumn(UINT cx, UINT flags, LPCWSTR text, const RECT& rcFormat)
{
    m_columns.push_back(std::make_unique<ListColumn>());
    ListColumn& column = *m_columns.back();
    column.type = LCT_TEXT;
    column.cx = cx;
    column.flags = flags;
    column.text = const_cast<LPWSTR>(text);
    column.rcFormat = rcFormat;
    columns.Add(&column);
}

std::vector<std::string> ListRecordSet::Rows() const
{
    std::vector<std::string> texts;
    for (const stcElementPosition& row : rows) {
        texts.push_back((row.type == LET_GROUP ? "group " : "item ") + std::to_string(row.index) + " at " +
                        Numbers(row.rect.top, row.rect.bottom));
    }
    return texts;
}

std::vector<std::string> ListRecordSet::Cells() const
{
    std::vector<std::string> texts;
    for (const stcColumnDrawInfo& cell : cells) {
        texts.push_back(std::to_string(cell.type) + " of " + std::to_string(static_cast<int>(cell.column)) +
                        " at " + Numbers(cell.rect));
    }
    return texts;
}

} // namespace test
