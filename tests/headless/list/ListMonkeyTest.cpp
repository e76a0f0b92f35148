// A monkey at a list: any operations, messages and keys, on lists of any kind.

#include "ListDesktop.h"

#include <tests/support/AllowMisuse.h>

#include <gesso/list/ListInside.h>

#include <algorithm>
#include <random>

namespace {

using namespace test;

class ListMonkeyTest : public ListDesktop
{
protected:
    void TearDown() override
    {
        ListDesktop::TearDown();
        if (m_images) {
            ImageList_Destroy(m_images);
        }
    }

    UINT Random(UINT limit) { return static_cast<UINT>(m_random() % limit); }
    bool Chance(UINT oneIn) { return Random(oneIn) == 0; }
    // Mostly an index that is there.
    UINT Index(UINT count) { return Chance(20) ? static_cast<UINT>(m_random()) : Random(count + 1); }
    UINT Item() { return Index(list.GetItemCount()); }
    UINT Column() { return Index(list.GetColumnCount()); }
    std::vector<wchar_t> Text()
    {
        std::string text(Random(12), ' ');
        for (char& c : text) {
            c = static_cast<char>('a' + Random(26));
        }
        return Wide(text);
    }
    POINT Point() { return {static_cast<LONG>(Random(320)) - 10, static_cast<LONG>(Random(220)) - 10}; }

    void InsertColumn();
    void ChangeColumns();
    void ChangeItems();
    void ChangeGroups();
    void ChangeStyle();
    void Order();
    void Select();
    void UseMouse();
    void UseKeys();
    void Scroll();
    void Edit();
    void Step();
    void CheckHits();

    const AllowMisuse m_allowed;
    std::mt19937 m_random;
    HIMAGELIST m_images = nullptr;
};

UINT AnyGroup(GList* pList, void* data)
{
    const auto group = static_cast<UINT>(reinterpret_cast<size_t>(data) % 5);
    while (pList->GetGroupCount() <= group) {
        pList->InsertGroup(0, L"group", 0, pList->GetGroupCount());
    }
    return group;
}

int AnyOrder(void* a, void* b)
{
    return static_cast<int>(reinterpret_cast<size_t>(a)) - static_cast<int>(reinterpret_cast<size_t>(b));
}

void ListMonkeyTest::InsertColumn()
{
    const RECT rc{static_cast<LONG>(Random(20)), static_cast<LONG>(Random(20)), 90, 20};
    const int types[] = {LCT_TEXT, LCT_IMAGE, LCT_IMAGETEXT, LCT_TITLE, 0};
    const UINT flags[] = {0, LCF_TILELINE, LCF_TILECAPTION};
    list.InsertColumn(Column(), flags[Random(3)], Chance(2) ? DT_SINGLELINE : DT_CENTER, Random(150),
                      Random(30), Chance(8) ? nullptr : Text().data(), 0, types[Random(5)],
                      Chance(2) ? &rc : nullptr, Chance(2) ? AnyGroup : nullptr,
                      Chance(2) ? AnyOrder : nullptr, nullptr);
}

void ListMonkeyTest::ChangeColumns()
{
    switch (Random(6)) {
    case 0: InsertColumn(); break;
    case 1: list.RemoveColumn(Column()); break;
    case 2: list.SetColumnCx(Column(), Random(200)); break;
    case 3: list.SetColumnText(Column(), Text().data()); break;
    case 4: list.SetColumnFlags(Column(), Chance(2) ? LCF_TILELINE : 0); break;
    default: list.SetColumnFormat(Column(), DT_RIGHT); break;
    }
}

void ListMonkeyTest::ChangeItems()
{
    void* data = reinterpret_cast<void*>(size_t{Random(30)});
    switch (Random(12)) {
    case 0: list.RemoveItem(Item()); break;
    case 1: list.SetItemText(Item(), Column(), Chance(5) ? nullptr : Text().data()); break;
    case 2: list.SetSubItem(Item(), Column(), Random(9), Text().data(), Random(4)); break;
    case 3: list.SetItemState(Item(), Column(), LSIS_CHECKED, LSIS_CHECKED); break;
    case 4: list.SetItemImage(Item(), Column(), Random(4)); break;
    case 5: list.SetItemGroup(Item(), Random(5)); break;
    case 6:
        if (Chance(10)) {
            list.RemoveAllItems();
        }
        break;
    case 7:
        list.BulkInsertOn();
        for (UINT i = Random(20); i > 0; --i) {
            list.InsertItem(Item(), Random(3), data, 0, Text().data(), 0);
        }
        list.BulkInsertOff();
        break;
    default:
        list.InsertItem(Item(), Random(3), data, 0, Chance(9) ? nullptr : Text().data(), Random(3));
        break;
    }
}

void ListMonkeyTest::ChangeGroups()
{
    switch (Random(7)) {
    case 0: list.InsertGroup(0, Text().data(), 0, Random(4)); break;
    case 1: list.RemoveGroup(Random(4)); break;
    case 2: list.SetGroupName(Random(4), Text().data()); break;
    case 3: list.SetGroupHeight(Random(60)); break;
    case 4: list.SetGroupGroup(Random(4), Random(4)); break;
    case 5: list.RemoveAllGroups(); break;
    default: list.Group(Chance(3) ? END : Column(), true); break;
    }
}

void ListMonkeyTest::ChangeStyle()
{
    const UINT bits[] = {0, GLS_GRIDLINES, GLS_HEADER, GLS_CHECKBOXES};
    switch (Random(5)) {
    case 0: list.SetItemHeight(Random(50)); break;
    case 1: list.SetItemWidth(Random(200)); break;
    case 2: list.SetImageList(Chance(2) ? m_images : nullptr); break;
    case 3: list.SetHeaderHeight(Random(50)); break;
    default: list.SetListStyle(Random(5) | bits[Random(4)] | bits[Random(4)]); break;
    }
}

void ListMonkeyTest::Order()
{
    list.Sort(Column(), Chance(2));
}

void ListMonkeyTest::Select()
{
    list.SetSelected(Item(), static_cast<int>(Random(2)));
    list.SetNextSelectedItemIndex(Item());
    list.GetNextSelectedItemIndex(Item());
    if (Chance(3)) {
        list.SetFirstSelectedItemIndex(Item());
    }
}

void ListMonkeyTest::UseMouse()
{
    HoldKeys(static_cast<WORD>(Random(4) * 2));
    const POINT pt = Point();
    const UINT messages[] = {WM_LBUTTONDOWN, WM_LBUTTONUP,     WM_MOUSEMOVE,  WM_MOUSEMOVE, WM_MOUSEMOVE,
                             WM_LBUTTONUP,   WM_LBUTTONDBLCLK, WM_MOUSELEAVE, WM_SETCURSOR};
    Mouse(messages[Random(9)], pt.x, pt.y);
    if (Chance(6)) {
        desk::MoveMouse(HOST_X + static_cast<int>(Random(330)), HOST_Y + static_cast<int>(Random(230)));
        Chance(2) ? desk::PressButton() : desk::ReleaseButton();
        desk::Pump();
    }
}

void ListMonkeyTest::UseKeys()
{
    const UINT keys[] = {VK_UP,  VK_DOWN,  VK_LEFT,  VK_RIGHT, VK_PRIOR, VK_NEXT, VK_HOME,
                         VK_END, VK_SPACE, VK_SHIFT, 'A',      VK_TAB,   VK_F2};
    Key(keys[Random(13)], static_cast<WORD>(Random(4) * 2));
    if (Chance(4)) {
        Send(WM_KEYUP, Chance(2) ? VK_SHIFT : VK_CONTROL);
    }
}

void ListMonkeyTest::Scroll()
{
    Send(Chance(2) ? WM_VSCROLL : WM_HSCROLL, MAKEWPARAM(Random(9), Random(3000)));
    Send(WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<int>(Random(5)) * 120 - 240));
    if (Chance(3)) {
        SetWindowPos(list, nullptr, 0, 0, static_cast<int>(Random(400)), static_cast<int>(Random(300)),
                     SWP_NOMOVE | SWP_NOZORDER);
    }
}

void ListMonkeyTest::Edit()
{
    if (list.editWindows) {
        list.EndEdit();
        return;
    }
    HWND edit = CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE, 0, 0, 50, 20, list, nullptr, nullptr,
                                nullptr);
    list.BeginEdit(1, &edit);
    SetFocus(Chance(2) ? edit : list.GetHwnd());
    if (Chance(2)) {
        SetFocus(host);
    }
    if (Chance(2)) {
        DestroyWindow(edit);
    }
}

void ListMonkeyTest::Step()
{
    switch (Random(12)) {
    case 0: ChangeColumns(); break;
    case 1: ChangeStyle(); break;
    case 2: ChangeGroups(); break;
    case 3: Order(); break;
    case 4: Select(); break;
    case 5: Scroll(); break;
    case 6: UseKeys(); break;
    case 7:
    case 8: UseMouse(); break;
    case 9:
        if (Chance(5)) {
            Edit();
        }
        break;
    default: ChangeItems(); break;
    }
}

// What a point hits lies where the item's cell is said to lie.
void ListMonkeyTest::CheckHits()
{
    const POINT pt = Point();
    const GList::HitTestInfo hit = list.HitAt(pt.x, pt.y);
    if (hit.item < list.GetItemCount() && hit.part == LHP_BODY && hit.subItem != 0xFFFF) {
        const auto y = pt.y + list.m_siV.nPos;
        const bool found = std::any_of(list.elements.begin(), list.elements.end(), [&](const auto& row) {
            const RECT& rc = row.rect;
            const auto top = static_cast<LONG>(list.headerArea);
            return row.type == LET_ITEM && row.index == hit.item && rc.top + top < y && y <= rc.bottom + top;
        });
        EXPECT_TRUE(found) << "item " << hit.item << " is not at " << y;
    }
}

TEST_F(ListMonkeyTest, NothingThatIsDoneToAListBreaksIt)
{
    constexpr int LISTS = 60;
    constexpr int STEPS = 250;
    m_images = ImageList_Create(16, 16, ILC_COLOR32, 3, 1);
    for (int round = 0; round < LISTS; ++round) {
        m_random.seed(static_cast<unsigned>(round));
        SCOPED_TRACE("list " + std::to_string(round));
        Renew();
        MakeList(GLS_DETAILS | (Chance(2) ? GLS_HEADER : 0),
                 WS_HSCROLL | WS_VSCROLL | (Chance(2) ? WS_BORDER : 0));
        for (UINT columns = Random(5); columns > 0; --columns) {
            InsertColumn();
        }
        for (int step = 0; step < STEPS; ++step) {
            SCOPED_TRACE("step " + std::to_string(step));
            Step();
            list.Check();
            ASSERT_TRUE(gesso::ListInside::CheckLayout(list));
            CheckHits();
            if (step % 10 == 0) {
                InvalidateRect(list, nullptr, FALSE);
                desk::Pump();
            }
            ASSERT_FALSE(HasFailure());
        }
        DestroyWindow(list);
        host.Take();
    }
}

} // namespace
