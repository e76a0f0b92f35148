#include "ListFixture.h"

#include "../support/Keys.h"

#include <algorithm>
#include <memory>
#include <numeric>

namespace test {
namespace {

std::string Join(const std::vector<std::string>& parts)
{
    return std::accumulate(parts.begin(), parts.end(), std::string(),
                           [](const std::string& all, const std::string& part) {
                               return all.empty() ? part : all + " " + part;
                           });
}

} // namespace

std::vector<wchar_t> Wide(const std::string& text)
{
    std::vector<wchar_t> wide(text.begin(), text.end());
    wide.push_back(0);
    return wide;
}

// --- ProbeList

GList::HitTestInfo ProbeList::HitAt(int x, int y) const
{
    HitTestInfo info{};
    info.pt = {static_cast<SHORT>(x), static_cast<SHORT>(y)};
    HitTest(&info);
    return info;
}

std::vector<std::string> ProbeList::Rows() const
{
    std::vector<std::string> rows;
    for (UINT k = 0; k < elements.GetLength(); ++k) {
        const stcElementPosition& e = elements[k];
        rows.push_back((e.type == LET_GROUP ? "group " : "item ") + std::to_string(e.index) + " at " +
                       std::to_string(e.rect.top) + ".." + std::to_string(e.rect.bottom));
    }
    return rows;
}

std::string ProbeList::Selected() const
{
    std::vector<std::string> selected;
    for (UINT i = GetFirstSelectedItemIndex(); i != END; i = GetNextSelectedItemIndex(i)) {
        selected.push_back(std::to_string(i));
    }
    EXPECT_EQ(selected.size(), GetSelectedCount());
    return Join(selected);
}

std::string ProbeList::Texts() const
{
    std::vector<std::string> texts;
    for (UINT i = 0; i < GetItemCount(); ++i) {
        texts.push_back(Narrow(GetItemText(i, 0)));
    }
    return Join(texts);
}

void ProbeList::Check() const
{
    // A tiles view with nothing to show leaves the icons where they were.
    const UINT view = GetListStyle() & GLS_VIEWMASK;
    const bool iconCells = columnDraw.GetLength() == 3 && columnDraw[1].type == LCT_ICONIMAGE;
    const bool icons = view == GLS_ICONS || (view == GLS_TILES && iconCells);
    LONG end = 0;
    for (UINT k = 0; k < elements.GetLength() && !icons; ++k) {
        const stcElementPosition& e = elements[k];
        ASSERT_EQ(e.rect.top, end) << "row " << k << " does not follow the one above it";
        ASSERT_GE(e.rect.bottom, e.rect.top);
        end = e.rect.bottom;
    }
    if (!icons) {
        EXPECT_LE(static_cast<UINT>(end), contentCy) << "rows reach out of the content";
    }
    for (const SCROLLINFO* si : {&m_siH, &m_siV}) {
        EXPECT_GE(si->nPos, si->nMin);
        // Of a content of no size, the page is -1 and the last position 1.
        EXPECT_LE(si->nPos, std::max(si->nMin, si->nMax - static_cast<int>(si->nPage) + 1));
    }
    UINT selected = 0;
    for (UINT i = 0; i < items.GetLength(); ++i) {
        selected += items[i]->state & LIS_SELECTED ? 1 : 0;
        for (UINT sub = 0; sub < items[i]->subItemCount; ++sub) {
            EXPECT_TRUE(items[i]->SubItem(sub)->text || !items[i]->SubItem(sub)->prepared)
                << "item " << i << " has prepared a text that it does not have";
        }
    }
    if (!IsVirtual()) {
        EXPECT_EQ(GetSelectedCount(), selected);
    }
}

// --- ListFixture

void ListFixture::TearDown()
{
    HoldKeys(0);
    list.Check();
    DestroyWindow(list);
}

void ListFixture::Renew()
{
    std::destroy_at(&list);
    std::construct_at(&list);
}

void ListFixture::MakeList(UINT listStyle, DWORD style)
{
    list.Create(0, 0, LIST_CX, LIST_CY, host, LIST_ID, listStyle, 0, WS_CHILD | WS_VISIBLE | style);
    ASSERT_TRUE(list.GetHwnd());
}

void ListFixture::MakeFilledList(UINT columns, UINT items, UINT listStyle)
{
    MakeList(listStyle);
    AddColumns(columns);
    AddItems(items);
}

void ListFixture::AddColumn(LPCWSTR text, int type, UINT flags, const RECT* rcFormat)
{
    list.InsertColumn(END, flags, DT_SINGLELINE, 100, 20, text, 0, type, rcFormat, nullptr, nullptr, nullptr);
}

void ListFixture::AddColumn(PFNLISTGROUP fktGroup, PFNLISTSORT fktSort)
{
    list.InsertColumn(END, 0, 0, 50, 10, L"A", 0, LCT_TEXT, nullptr, fktGroup, fktSort, nullptr);
}

void ListFixture::AddColumns(UINT count, int type)
{
    for (UINT column = 0; column < count; ++column) {
        const wchar_t name[] = {static_cast<wchar_t>('A' + column), 0};
        AddColumn(name, type);
    }
}

UINT ListFixture::AddItem(const char* text, UINT group, void* data)
{
    const std::vector<wchar_t> wide = Wide(text);
    const UINT item = list.InsertItem(END, group, data, 0, wide.data(), 0);
    for (UINT column = 1; column < list.GetColumnCount(); ++column) {
        list.SetSubItem(item, column, 0, wide.data(), 0);
    }
    return item;
}

void ListFixture::AddItems(UINT count)
{
    for (UINT i = 0; i < count; ++i) {
        AddItem(("item" + std::to_string(i)).c_str());
    }
}

void ListFixture::AddGroup(UINT id, const char* name)
{
    list.InsertGroup(DT_SINGLELINE, Wide(name).data(), 0, id);
}

void ListFixture::Click(int x, int y)
{
    Mouse(WM_LBUTTONDOWN, x, y);
    Mouse(WM_LBUTTONUP, x, y);
}

int ListFixture::RowY(UINT item)
{
    RECT rc{};
    list.GetItemRect(&rc, item, 0);
    return (rc.top + rc.bottom) / 2 - list.m_siV.nPos;
}

void ListFixture::HoldKeys(WORD mods)
{
    test::HoldKeys({mods & KEYMOD_CTRL ? VK_CONTROL : 0, mods & KEYMOD_SHIFT ? VK_SHIFT : 0});
}

void ListFixture::Key(UINT vk, WORD mods)
{
    HoldKeys(mods);
    Send(WM_KEYDOWN, vk, 1);
    HoldKeys(0);
}

} // namespace test
