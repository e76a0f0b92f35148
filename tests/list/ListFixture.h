// A list in a host window that keeps its notifications.
#pragma once

#include "../support/NotifyHost.h"

#include <gtest/gtest.h>

namespace test {

constexpr UINT END = static_cast<UINT>(-1);
constexpr int LIST_ID = 21;
constexpr int LIST_CX = 300;
constexpr int LIST_CY = 200;

// A list with everything in reach.
class ProbeList : public GList
{
public:
    using GList::Calculate;
    using GList::CalculateU;
    using GList::DrawItem;
    using GList::FastSortItemPtr;
    using GList::FreeText;
    using GList::OnGetFont;
    using GList::OnSetFont;
    using GList::PrepareText;
    using GList::SortAlphabetical;
    using GList::TextOutW;

    using GList::columnDraw;
    using GList::columns;
    using GList::contentCx;
    using GList::contentCy;
    using GList::cursorItem;
    using GList::editWindows;
    using GList::elements;
    using GList::fontLabelHeader;
    using GList::frameIndex;
    using GList::frameRecord;
    using GList::frameReplay;
    using GList::frames;
    using GList::groups;
    using GList::headerArea;
    using GList::hitHot;
    using GList::hitPress;
    using GList::itemHeight;
    using GList::items;
    using GList::itemWidth;
    using GList::keyMods;
    using GList::lastItem;
    using GList::m_dwState;
    using GList::m_siH;
    using GList::m_siV;
    using GList::shiftAnchor;

    HitTestInfo HitAt(int x, int y) const;
    // The rows as "group 0 at 0..26" and "item 3 at 26..48".
    std::vector<std::string> Rows() const;
    // The indices of the selected items, as "0 2 5".
    std::string Selected() const;
    // The first sub-items' texts in the order of the items, with blanks between.
    std::string Texts() const;

    // What must hold after any operation.
    void Check() const;
};

class ListFixture : public testing::Test
{
protected:
    void TearDown() override;

    void MakeList(UINT listStyle = GLS_DETAILS, DWORD style = WS_HSCROLL | WS_VSCROLL);
    // A list with so many columns and items.
    void MakeFilledList(UINT columns, UINT items, UINT listStyle = GLS_DETAILS);
    // A column of 100 pixels at the end.
    void AddColumn(LPCWSTR text, int type = LCT_TEXT, UINT flags = 0, const RECT* rcFormat = nullptr);
    // A column whose items group and sort by the callbacks.
    void AddColumn(PFNLISTGROUP fktGroup, PFNLISTSORT fktSort);
    // Columns of 100 pixels named A, B, ...
    void AddColumns(UINT count, int type = LCT_TEXT);
    // An item whose texts are the given one in every column.
    UINT AddItem(const char* text, UINT group = 0, void* data = nullptr);
    void AddItems(UINT count);
    void AddGroup(UINT id, const char* name = "Group");
    // A new object in the place of the list.
    void Renew();

    void Send(UINT uMsg, WPARAM wParam = 0, LPARAM lParam = 0) { SendMessageW(list, uMsg, wParam, lParam); }
    void Mouse(UINT uMsg, int x, int y) { Send(uMsg, 0, MAKELPARAM(x, y)); }
    void Click(int x, int y);
    // The middle of an item's row, scrolled as it is.
    int RowY(UINT item);
    void ClickItem(UINT item) { Click(5, RowY(item)); }
    // A key press, as the list gets it, with modifier keys down.
    void Key(UINT vk, WORD mods = 0);
    // Lets GetKeyState answer for the modifier keys, until the end of the test.
    static void HoldKeys(WORD mods);

    NotifyHost host;
    ProbeList list;
};

std::vector<wchar_t> Wide(const std::string& text);

} // namespace test
