#include "../support/Numbers.h"
#include "ListFixture.h"

#include <tests/support/AllowMisuse.h>

namespace {

using namespace test;

using GListDataTest = ListFixture;

TEST_F(GListDataTest, ColumnsKeepWhatTheyAreGiven)
{
    MakeList();
    const RECT rc{1, 2, 3, 4};
    const auto group = [](GList*, void*) -> UINT { return 7; };
    const auto sort = [](void*, void*) { return 0; };
    EXPECT_EQ(list.InsertColumn(9, LCF_TILELINE, DT_RIGHT, 50, 10, L"Second", 3, LCT_IMAGE, &rc, group, sort,
                                nullptr),
              0u)
        << "past the end appends";
    EXPECT_EQ(list.InsertColumn(0, 0, 0, 60, 20, L"First", 4, LCT_TEXT, nullptr, nullptr, nullptr, nullptr),
              0u);
    EXPECT_EQ(list.GetColumnCount(), 2u);
    EXPECT_EQ(Narrow(list.GetColumnText(0)), "First");
    EXPECT_EQ(Numbers(*list.GetColumnFormatRect(0)), "-1,-1,-1,-1");
    EXPECT_EQ(list.GetColumnFlags(1), LCF_TILELINE);
    EXPECT_EQ(list.GetColumnFormat(1), UINT{DT_RIGHT});
    EXPECT_EQ(list.GetColumnCx(1), 50u);
    EXPECT_EQ(list.GetColumnCxMin(1), 10u);
    EXPECT_EQ(list.GetColumnImage(1), 3u);
    EXPECT_EQ(list.GetColumnType(1), LCT_IMAGE);
    EXPECT_EQ(Numbers(*list.GetColumnFormatRect(1)), "1,2,3,4");
    EXPECT_EQ(list.GetColumnFktGroup(1), PFNLISTGROUP(group));
    EXPECT_EQ(list.GetColumnFktSort(1), PFNLISTSORT(sort));
    EXPECT_EQ(list.contentCx, 110u);

    list.RemoveColumn(5);
    list.RemoveColumn(0);
    EXPECT_EQ(list.GetColumnCount(), 1u);
    EXPECT_EQ(list.columnDraw.GetLength(), 1u);
    EXPECT_EQ(list.contentCx, 50u);
    list.RemoveAllColumns();
    EXPECT_EQ(list.columnDraw.GetLength(), 0u);
}

TEST_F(GListDataTest, WhatIsSetOneByOneIsTold)
{
    MakeFilledList(1, 1);
    AddGroup(0);
    const auto group = [](GList*, void*) -> UINT { return 7; };
    const auto sort = [](void*, void*) { return 0; };
    const auto get = [](GList*, UINT, UINT, UINT, void*) {};
    list.SetColumnFktGroup(0, group);
    list.SetColumnFktSort(0, sort);
    list.SetColumnFktGet(0, get);
    list.SetColumnCxMin(0, 33);
    list.SetColumnImage(0, 4);
    EXPECT_EQ(list.GetColumnFktGroup(0), PFNLISTGROUP(group));
    EXPECT_EQ(list.GetColumnFktSort(0), PFNLISTSORT(sort));
    EXPECT_EQ(list.GetColumnFktGet(0), PFNLISTGET(get));
    EXPECT_EQ(list.GetColumnCxMin(0), 33u);
    EXPECT_EQ(list.GetColumnImage(0), 4u);
    list.SetGroupFormat(0, DT_RIGHT);
    list.SetGroupImage(0, 6);
    list.SetGroupHeight(31);
    EXPECT_EQ(list.GetGroupFormat(0), UINT{DT_RIGHT});
    EXPECT_EQ(list.GetGroupImage(0), 6u);
    EXPECT_EQ(list.GetGroupHeight(), 31u);
    const RECT rc{1, 2, 3, 4};
    for (const RECT* pRect : {&rc, static_cast<const RECT*>(nullptr)}) {
        list.SetGroupFormatRect(pRect);
        EXPECT_EQ(Numbers(*list.GetGroupFormatRect()), "1,2,3,4") << "null is ignored";
    }
    list.SetItemCustomData(0, &list);
    EXPECT_EQ(list.GetItemCustomData(0), &list);
    list.SetHeaderHeight(41);
    list.SetHeaderItemSpacing(9);
    EXPECT_EQ(list.GetHeaderHeight(), 41u);
    EXPECT_EQ(list.GetHeaderItemSpacing(), 9u);
    bool ascending = false;
    list.Sort(0, true);
    list.GetCurrentSort(nullptr, &ascending);
    EXPECT_TRUE(ascending);
}

// Stores do not reach what was derived from the columns before.
TEST_F(GListDataTest, ColumnSettersReachCellsOnlyWithTheNextListStyle)
{
    MakeList();
    AddColumns(2);
    const void* caption = list.columns[0]->prepared->first;
    list.SetColumnCx(0, 40);
    list.SetColumnFormat(0, DT_CENTER);
    list.SetColumnText(0, L"Other");
    EXPECT_EQ(Narrow(list.GetColumnText(0)), "Other");
    EXPECT_EQ(list.columns[0]->prepared->first, caption) << "the header goes on showing the old caption";
    EXPECT_EQ(list.columnDraw[0].rect.right, 100);
    EXPECT_EQ(list.contentCx, 200u);
    list.SetListStyle(list.GetListStyle());
    EXPECT_EQ(list.columnDraw[0].rect.right, 40);
    EXPECT_EQ(list.columnDraw[0].format, UINT{DT_CENTER});
    EXPECT_EQ(list.contentCx, 140u);
}

TEST_F(GListDataTest, ItemsHaveTheSubItemsThatTheColumnsGaveThem)
{
    MakeList();
    AddColumns(2);
    int data = 0;
    EXPECT_EQ(list.InsertItem(5, 0, &data, 8, L"One", 2), 0u);
    list.SetSubItem(0, 1, 0x11, L"Two", 3);
    EXPECT_EQ(list.GetItemCustomData(0), &data);
    EXPECT_EQ(list.GetItemState(0, 0), 8u);
    EXPECT_EQ(list.GetItemImage(0, 0), 2u);
    EXPECT_EQ(Narrow(list.GetItemText(0, 1)), "Two");
    EXPECT_EQ(list.GetItemImage(0, 1), 3u);
    list.SetItemState(0, 1, 0x20, 0x0F);
    EXPECT_EQ(list.GetItemState(0, 1), 0x30u);
    list.SetItemText(0, 1, nullptr);
    EXPECT_EQ(list.GetItemText(0, 1), nullptr);
    EXPECT_FALSE(list.items[0]->SubItem(1)->prepared);
    list.SetItem(0, 0, nullptr);
    EXPECT_EQ(list.GetItemCustomData(0), nullptr);

    // A later column finds no room in the item, and nothing beside it is touched.
    AddColumns(1);
    const AllowMisuse allowed;
    list.SetSubItem(0, 2, 1, L"None", 1);
    EXPECT_EQ(list.GetItemText(0, 2), nullptr);
    list.RemoveColumn(0);
    list.RemoveColumn(0);
    list.RemoveItem(0);
    EXPECT_EQ(list.GetItemCount(), 0u);
}

TEST_F(GListDataTest, GroupsAnswerNothingPastTheEnd)
{
    MakeList();
    EXPECT_EQ(list.InsertGroup(DT_CENTER, L"Name", 5, 77), 0u);
    EXPECT_EQ(list.GetGroupFormat(0), UINT{DT_CENTER});
    EXPECT_EQ(Narrow(list.GetGroupName(0)), "Name");
    EXPECT_EQ(list.GetGroupImage(0), 5u);
    EXPECT_EQ(list.GetGroupGroup(0), 77u);
    list.SetGroupName(0, L"Longer name");
    EXPECT_EQ(Narrow(list.GetGroupName(0)), "Longer name");
    EXPECT_EQ(list.GetGroupFormat(1), END);
    EXPECT_EQ(list.GetGroupImage(1), END);
    EXPECT_EQ(list.GetGroupGroup(1), END);
    EXPECT_EQ(list.GetGroupName(1), nullptr);
    list.SetGroupName(1, L"x");
    list.RemoveGroup(1);
    EXPECT_EQ(list.GetGroupCount(), 1u);
    list.RemoveGroup(0);
    EXPECT_EQ(list.GetGroupCount(), 0u);
}

TEST_F(GListDataTest, CallsThatNameNothingAreAnsweredSafely)
{
    MakeFilledList(1, 2);
    const AllowMisuse allowed;
    list.SetColumnCx(3, 5);
    list.SetColumnCxMin(3, 5);
    list.SetColumnImage(3, 5);
    list.SetGroupFormat(3, 5);
    list.SetGroupImage(3, 5);
    list.SetItem(9, 0, nullptr);
    list.SetItemText(9, 0, L"x");
    list.SetItemGroup(9, 1);
    list.SetItemImage(0, 9, 1);
    EXPECT_EQ(list.GetColumnText(3), nullptr);
    EXPECT_EQ(list.GetColumnCx(3), 0u);
    EXPECT_EQ(list.GetColumnFormatRect(3), nullptr);
    EXPECT_EQ(list.GetItemText(9, 0), nullptr);
    EXPECT_EQ(list.GetItemGroup(9), 0u);
    RECT rc{1, 1, 1, 1};
    list.GetItemRect(&rc, 9, 0);
    EXPECT_TRUE(IsRectEmpty(&rc));
    list.GetItemRect(nullptr, 0, 0);
    list.EndEdit();
    list.SetSelected(9, 1);
    list.SetFirstSelectedItemIndex(9);
    EXPECT_EQ(list.GetSelected(9), 0);
    list.SetSelected(1, 1);
    EXPECT_EQ(list.GetNextSelectedItemIndex(END), 1u) << "behind none comes the first";
    EXPECT_EQ(list.GetNextSelectedItemIndex(1), END);
}

TEST_F(GListDataTest, ABulkFillPreparesAndLaysOutAtItsEnd)
{
    MakeList();
    AddColumns(2);
    list.BulkInsertOn();
    AddItems(3);
    list.SetItemText(1, 0, L"changed");
    list.SetSubItem(2, 1, 0, nullptr, 0);
    list.SetItemState(0, 1, 4, 4);
    list.SetItemImage(0, 1, 2);
    list.SetItemGroup(0, 0);
    list.SetItem(1, 0, nullptr);
    EXPECT_EQ(list.elements.GetLength(), 0u);
    EXPECT_FALSE(list.items[0]->SubItem(1)->prepared);
    list.BulkInsertOff();
    EXPECT_EQ(list.Rows(),
              (std::vector<std::string>{"item 0 at 0..22", "item 1 at 22..44", "item 2 at 44..66"}));
    EXPECT_EQ(list.Texts(), "item0 changed item2");
    for (UINT column = 0; column < 2; ++column) {
        const ListTextPair* prepared = list.items[0]->SubItem(column)->prepared;
        ASSERT_TRUE(prepared);
        EXPECT_TRUE(prepared->first && prepared->second && prepared->first != prepared->second);
    }
    EXPECT_FALSE(list.items[2]->SubItem(1)->prepared) << "a text that is not there is not prepared";
    for (UINT i = 0; i < 3; ++i) {
        EXPECT_EQ(list.items[i]->row, 0u);
        EXPECT_TRUE(IsRectEmpty(&list.items[i]->rcItem));
    }

    list.BulkInsertOn();
    AddItem("single");
    EXPECT_EQ(list.elements.GetLength(), 4u) << "a list with items takes no bulk fill";
    EXPECT_TRUE(list.items[3]->SubItem(0)->prepared);
    list.BulkInsertOff();

    list.RemoveAllItems();
    list.BulkInsertOn();
    list.BulkInsertOff();
    EXPECT_EQ(list.elements.GetLength(), 0u);
}

TEST_F(GListDataTest, OneFontOfTheListsOwnIsReplacedByTheHosts)
{
    MakeList();
    const auto makeFont = [] { return CreateFontW(-20, 0, 0, 0, 400, 0, 0, 0, 0, 0, 0, 0, 0, L"Segoe UI"); };
    const auto isFont = [](HFONT hFont) { return GetObjectType(hFont) == OBJ_FONT; };
    const HFONT former = list.GetLabelTitleFont();
    const HFONT title = makeFont();
    list.SetLabelTitleFont(title);
    EXPECT_EQ(list.GetLabelTitleFont(), title);
    EXPECT_FALSE(isFont(former)) << "the font that the list had is the list's to delete";

    const HFONT lent = makeFont();
    list.OnSetFont(lent, 0);
    EXPECT_EQ(list.OnGetFont(), reinterpret_cast<LRESULT>(lent));
    EXPECT_TRUE(list.GetListStyle() & GLS_OWNFONT);
    list.SetLabelTextFont(makeFont());
    EXPECT_TRUE(isFont(lent)) << "a font that was lent stays the host's";
    list.OnSetFont(lent, 0);
    for (const auto& [set, get] : {std::pair(&GList::SetLabelHeaderFont, &GList::GetLabelHeaderFont),
                                   {&GList::SetGroupTitleFont, &GList::GetGroupTitleFont}})
    {
        const HFONT hFont = makeFont();
        (list.*set)(hFont);
        (list.*set)(hFont);
        EXPECT_EQ((list.*get)(), hFont);
        EXPECT_TRUE(isFont(hFont)) << "the same once more";
    }
    DestroyWindow(list);
    EXPECT_TRUE(isFont(lent));
    EXPECT_FALSE(isFont(title));
    DeleteObject(lent);
}

TEST_F(GListDataTest, ACopySharesTheRecordsAndReleasesNothing)
{
    MakeFilledList(1, 2);
    AddGroup(0);
    {
        ProbeList copy(list);
        ProbeList assigned;
        assigned = list;
        EXPECT_EQ(Narrow(copy.GetItemText(1, 0)), "item1");
        EXPECT_EQ(assigned.GetHwnd(), list.GetHwnd());
    }
    EXPECT_EQ(Narrow(list.GetItemText(1, 0)), "item1");
    EXPECT_EQ(Narrow(list.GetGroupName(0)), "Group");
}

class Overriding : public GList
{
public:
    UINT SetListStyle(UINT style) override { return Note("style"), GList::SetListStyle(style); }
    UINT GetColumnCount() override { return Note("count"), GList::GetColumnCount(); }
    void RemoveAllColumns() override { Note("columns"), GList::RemoveAllColumns(); }
    void RemoveAllGroups() override { Note("groups"), GList::RemoveAllGroups(); }
    void RemoveAllItems() override { Note("items"), GList::RemoveAllItems(); }
    void ClearSelection() override { Note("clear"), GList::ClearSelection(); }
    void Sort(UINT column, bool ascending) override { Note("sort"), GList::Sort(column, ascending); }

    std::string noted;

private:
    void Note(const std::string& call) { noted += noted.empty() ? call : " " + call; }
};

TEST_F(GListDataTest, AnOverrideGetsTheCallsThatTheListMakesItself)
{
    Overriding own;
    own.Create(0, 0, LIST_CX, LIST_CY, host, LIST_ID, GLS_DETAILS | GLS_HEADER, 0, WS_CHILD);
    own.InsertColumn(0, 0, 0, 50, 10, L"A", 0, LCT_TEXT, nullptr, nullptr, nullptr, nullptr);
    own.InsertItem(0, 0, nullptr, 0, L"a", 0);
    own.SetFirstSelectedItemIndex(0);
    own.Group(0, false);
    SendMessageW(own, WM_LBUTTONDOWN, 0, MAKELPARAM(5, 5));
    SendMessageW(own, WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
    SendMessageW(own, WM_LBUTTONDOWN, 0, MAKELPARAM(50, 5));
    SendMessageW(own, WM_MOUSEMOVE, 0, MAKELPARAM(60, 5));
    own.RemoveColumn(0);
    EXPECT_EQ(own.noted, "style count clear groups sort sort style style");
    own.noted.clear();
    DestroyWindow(own);
    EXPECT_EQ(own.noted, "items columns style");
}

TEST_F(GListDataTest, AListWithoutAWindowCanBeFilledAndDropped)
{
    AddColumns(2);
    AddItems(3);
    AddGroup(1);
    list.Sort(0, true);
    EXPECT_EQ(list.GetItemCount(), 0u) << "items of no group go";
    Renew();
}

TEST_F(GListDataTest, AListOfADialogTemplateMakesItsOwnObject)
{
    const WORD data[] = {0, 'x', 0};
    const HWND hwnd = CreateWindowExW(0, L"GList", nullptr, WS_CHILD, 0, 0, 100, 100, host, nullptr, nullptr,
                                      const_cast<WORD*>(data));
    ASSERT_TRUE(hwnd);
    auto* own = static_cast<GList*>(GWnd::FromHwnd(hwnd));
    ASSERT_TRUE(own);
    EXPECT_EQ(own->GetListStyle(), GLS_DETAILS);
    own->InsertColumn(0, 0, 0, 50, 10, L"A", 0, LCT_TEXT, nullptr, nullptr, nullptr, nullptr);
    own->InsertItem(0, 0, nullptr, 0, L"a", 0);
    own->InsertGroup(0, L"g", 0, 0);
    DestroyWindow(hwnd);
}

} // namespace
