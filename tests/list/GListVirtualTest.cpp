// A list whose items are the host's.

#include "../support/AllowMisuse.h"
#include "ModernListFixture.h"
#include "VirtualHost.h"

#include <algorithm>
#include <memory>

namespace {

using namespace test;

constexpr UINT MANY = 100'000'000;
constexpr UINT MOST = 4'000'000'000;
constexpr UINT HEADER = GLS_DETAILS | GLS_HEADER;

template <class FIXTURE> class VirtualFixture : public FIXTURE
{
protected:
    using FIXTURE::host;
    using FIXTURE::list;

    void AddAskingColumn(int type = LCT_TEXT)
    {
        list.InsertColumn(END, LCF_TILELINE, DT_SINGLELINE, 100, 20, L"A", 0, type, nullptr, nullptr, nullptr,
                          VirtualHost::Get);
    }
    void MakeVirtual(UINT count, UINT style = HEADER, UINT columns = 2)
    {
        this->MakeList(style);
        for (UINT column = 0; column < columns; ++column) {
            AddAskingColumn();
        }
        list.SetVirtualItems(count);
        SetFocus(list);
        host.Take();
        data.Take();
    }
    void Paint()
    {
        const HDC hdc = CreateCompatibleDC(nullptr);
        this->Send(WM_PRINTCLIENT, reinterpret_cast<WPARAM>(hdc), PRF_CLIENT);
        DeleteDC(hdc);
    }
    // How many questions a paint asks, each of which must be another one.
    size_t AskedByPaint()
    {
        data.Take();
        Paint();
        auto asked = data.Take();
        const auto key = [](const VirtualHost::Question& q) { return std::tuple(q.item, q.column, q.what); };
        std::sort(asked.begin(), asked.end(), [key](auto& a, auto& b) { return key(a) < key(b); });
        const auto twice = std::adjacent_find(asked.begin(), asked.end(),
                                              [key](auto& a, auto& b) { return key(a) == key(b); });
        EXPECT_EQ(twice, asked.end()) << "a cell was asked for twice";
        return asked.size();
    }
    UINT FirstInView() { return list.HitAt(5, static_cast<int>(list.headerArea) + 1).item; }
    UINT LastInView()
    {
        RECT rc{};
        GetClientRect(list, &rc);
        return list.HitAt(5, rc.bottom - 1).item;
    }
    void DragThumbTo(int position)
    {
        list.m_siV.nTrackPos = position;
        this->Send(WM_VSCROLL, MAKEWPARAM(SB_THUMBTRACK, LOWORD(position)));
    }
    void ExpectRectsWhereHitsAre()
    {
        const UINT first = FirstInView() + 3; // the first line may reach below the header
        for (UINT item = first; item < first + 3; ++item) {
            RECT rc{};
            list.GetItemRect(&rc, item, 0);
            EXPECT_EQ(list.HitAt(rc.left + 2, rc.top + 2 - list.GetScrollPos(SB_VERT)).item, item);
        }
    }

    // From the thumb's place at the start.
    void DragThumbFarDown()
    {
        RECT rc{};
        GetClientRect(list, &rc);
        const int x = rc.right + 4;
        POINT pt{x, 20};
        ClientToScreen(list, &pt);
        this->Send(WM_NCLBUTTONDOWN, HTVSCROLL, MAKELPARAM(pt.x, pt.y));
        UINT former = 0;
        for (int y = 20; y < 2000; y += 30) {
            this->Mouse(WM_MOUSEMOVE, x, y);
            EXPECT_GE(FirstInView(), former) << y;
            former = FirstInView();
        }
        this->Mouse(WM_LBUTTONUP, x, 2000);
    }
    void ExpectThumbToReachTheEnd()
    {
        for (const UINT count : {97'000'000U, MOST}) {
            MakeVirtual(count);
            DragThumbFarDown();
            EXPECT_EQ(LastInView(), count - 1);
            DestroyWindow(list);
            this->Renew();
        }
        MakeVirtual(1);
    }
    void ExpectFieldInView()
    {
        RECT rcField{}, rcClient{}, rc{};
        ASSERT_EQ(GetParent(GetFocus()), list.GetHwnd());
        GetWindowRect(GetFocus(), &rcField);
        MapWindowPoints(nullptr, list, reinterpret_cast<POINT*>(&rcField), 2);
        GetClientRect(list, &rcClient);
        IntersectRect(&rc, &rcField, &rcClient);
        EXPECT_TRUE(EqualRect(&rc, &rcField)) << rcField.top;
    }

    VirtualHost data;
};

using GListVirtualTest = VirtualFixture<ListFixture>;
using GListVirtualModernTest = VirtualFixture<ModernListFixture>;

TEST_F(GListVirtualTest, AsksForWhatShowsOnceAndKeepsIt)
{
    MakeVirtual(MANY, HEADER | GLS_CHECKBOXES);
    AddAskingColumn(LCT_IMAGE);
    const size_t first = AskedByPaint();
    EXPECT_EQ(first % 4, 0U) << "two texts, an image and a state of each";
    EXPECT_GT(first / 4, 5U);
    EXPECT_LT(first / 4, 12U);
    EXPECT_EQ(AskedByPaint(), 0U) << "without a change";
    Send(WM_VSCROLL, SB_PAGEDOWN);
    EXPECT_GT(AskedByPaint(), 4U);
    Send(WM_VSCROLL, SB_PAGEUP);
    EXPECT_EQ(AskedByPaint(), 0U) << "what was in view before is kept";
    list.ItemsChanged(2, 3);
    EXPECT_EQ(AskedByPaint(), 8U);
    list.ItemsChanged(0, END);
    EXPECT_EQ(AskedByPaint(), first);
    list.SetVirtualItems(MANY + 1);
    EXPECT_EQ(AskedByPaint(), first);
    list.SetItemHeight(40);
    list.SetColumnFormat(0, DT_RIGHT);
    EXPECT_LE(AskedByPaint(), first);
}

TEST_F(GListVirtualTest, GettersAskAndSettersAreIgnored)
{
    const AllowMisuse allowed;
    MakeVirtual(MANY, HEADER | GLS_CHECKBOXES);
    AddAskingColumn(LCT_IMAGETEXT);
    EXPECT_TRUE(list.IsVirtual());
    EXPECT_EQ(list.GetItemCount(), MANY);
    EXPECT_EQ(Narrow(list.GetItemText(MANY - 1, 1)), VirtualHost::TextOf(MANY - 1, 1));
    EXPECT_EQ(list.GetItemText(MANY, 0), nullptr);
    EXPECT_EQ(list.GetItemText(0, 3), nullptr);
    EXPECT_EQ(list.GetItemState(5, 0), LSIS_CHECKED);
    EXPECT_EQ(list.GetItemState(5, 1), 0U);
    EXPECT_EQ(list.GetItemImage(5, 2), 2U);
    data.Take();
    EXPECT_EQ(list.GetItemImage(5, 0), 0U);
    EXPECT_TRUE(data.Take().empty()) << "a column that shows no image was asked for one";
    EXPECT_EQ(list.GetItemCustomData(5), nullptr);
    EXPECT_EQ(list.InsertItem(0, 0, nullptr, 0, L"x", 0), END);
    list.RemoveItem(0);
    list.RemoveAllItems();
    list.SetItemText(0, 0, L"x");
    list.SetSubItem(0, 0, 0, L"x", 0);
    list.SetItemState(0, 0, LSIS_CHECKED, LSIS_CHECKED);
    list.SetItemGroup(0, 1);
    list.Sort(0, true);
    list.Group(0, true);
    list.BulkInsertOn();
    EXPECT_EQ(list.GetItemCount(), MANY);
    EXPECT_EQ(Narrow(list.GetItemText(0, 0)), VirtualHost::TextOf(0, 0));
    list.SetVirtualItems(END);
    EXPECT_EQ(list.GetItemCount(), MOST);
    list.LeaveVirtual();
    EXPECT_FALSE(list.IsVirtual());
    EXPECT_EQ(list.GetItemCount(), 0U);
    AddItem("own");
    EXPECT_EQ(list.Texts(), "own");
    list.ItemsInserted(0, 1);
    list.ItemsRemoved(0, 1);
    list.ItemsChanged(0, 1);
    list.SetGroupItemCount(0, 1);
    list.LeaveVirtual();
    EXPECT_EQ(list.Texts(), "own");
    list.SetVirtualItems(3);
    EXPECT_EQ(list.GetItemCount(), 3U) << "own items go";
}

TEST_F(GListVirtualTest, SelectsAnyNumberOfItems)
{
    MakeVirtual(MANY);
    Key('A', KEYMOD_CTRL);
    EXPECT_EQ(list.GetSelectedCount(), MANY);
    list.SetSelected(50'000'000, 0);
    EXPECT_EQ(list.GetSelectedCount(), MANY - 1);
    EXPECT_EQ(list.GetNextSelectedItemIndex(49'999'999), 50'000'001U);
    EXPECT_EQ(list.GetNextSelectedItemIndex(MANY - 1), END);
    list.SetFirstSelectedItemIndex(7);
    list.SetNextSelectedItemIndex(MANY - 1);
    EXPECT_EQ(list.Selected(), "7 99999999");
    list.SetVirtualItems(MANY - 1);
    EXPECT_EQ(list.Selected(), "7") << "what is selected below the new count stays";
    list.SetSelected(MANY - 1, 1);
    EXPECT_EQ(list.GetSelected(MANY - 1), 0);
    list.ClearSelection();
    EXPECT_EQ(list.GetFirstSelectedItemIndex(), END);
}

TEST_F(GListVirtualTest, RowsThatComeAndGoTakeAllAlong)
{
    MakeVirtual(1000);
    ClickItem(5);
    list.SetSelected(2, 1);
    list.EnsureVisible(500);
    const UINT first = FirstInView();
    RECT before{}, behind{};
    list.GetItemRect(&before, first, 0);
    before.top -= list.GetScrollPos(SB_VERT);
    list.ItemsInserted(3, 10);
    EXPECT_EQ(list.Selected(), "2 15");
    EXPECT_EQ(list.GetCursorItem(), 15U);
    EXPECT_EQ(FirstInView(), first + 10);
    list.GetItemRect(&behind, first + 10, 0);
    EXPECT_EQ(behind.top - list.GetScrollPos(SB_VERT), before.top) << "the rows in view have moved";
    list.ItemsRemoved(0, 13);
    EXPECT_EQ(list.GetItemCount(), 997U);
    EXPECT_EQ(list.Selected(), "2");
    EXPECT_EQ(list.GetCursorItem(), 2U);
    EXPECT_EQ(FirstInView(), first - 3);
    list.ItemsRemoved(1, 2);
    EXPECT_EQ(list.GetCursorItem(), 1U) << "the item that follows";
    EXPECT_EQ(list.GetSelectedCount(), 0U);
    list.ItemsInserted(995, 1);
    EXPECT_EQ(list.GetItemCount(), 996U) << "appended";
    const AllowMisuse allowed;
    list.ItemsInserted(997, 1);
    list.ItemsRemoved(996, 1);
    EXPECT_EQ(list.GetItemCount(), 996U);
    list.ItemsRemoved(0, END);
    EXPECT_EQ(list.GetItemCount(), 0U);
    EXPECT_EQ(list.GetCursorItem(), END);
}

TEST_F(GListVirtualTest, EachOfFourBillionRowsIsInReach)
{
    MakeVirtual(MOST);
    EXPECT_EQ(FirstInView(), 0U);
    Key(VK_END);
    EXPECT_EQ(LastInView(), MOST - 1);
    EXPECT_EQ(list.GetCursorItem(), MOST - 1);
    ExpectRectsWhereHitsAre();
    RECT rc{};
    list.GetItemRect(&rc, 0, 0);
    EXPECT_EQ(rc.bottom, INT_MIN) << "far above";
    Key(VK_UP);
    EXPECT_EQ(list.GetCursorItem(), MOST - 2);
    Key(VK_HOME);
    EXPECT_EQ(FirstInView(), 0U);
    list.GetItemRect(&rc, MOST - 1, 0);
    EXPECT_EQ(rc.top, INT_MAX) << "far below";

    const int last = list.m_siV.nMax + 1 - static_cast<int>(list.m_siV.nPage);
    DragThumbTo(last);
    EXPECT_EQ(LastInView(), MOST - 1);
    DragThumbTo(last / 2);
    const UINT middle = FirstInView();
    EXPECT_NEAR(middle, MOST / 2, 100);
    ExpectRectsWhereHitsAre();
    const UINT shown = LastInView() - middle;
    DragThumbTo(last / 2 + 1);
    EXPECT_GT(FirstInView(), middle);
    EXPECT_LE(FirstInView(), middle + shown) << "rows between two places of the thumb never show";
    DragThumbTo(last / 2);
    for (UINT turns = 0; FirstInView() < middle + 3 && turns < 20; ++turns) {
        Send(WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA));
    }
    EXPECT_GE(FirstInView(), middle + 3);
    EXPECT_LE(FirstInView(), middle + 6) << "the wheel goes by pixels";
    list.SetScrollPos(SB_VERT, 0, 0);
    EXPECT_EQ(FirstInView(), 0U) << "a host may move the bar itself";
}

TEST_F(GListVirtualTest, AHeaderClickIsTheHostsToAnswer)
{
    MakeVirtual(10);
    host.onNotify = [this](const Notified& notified) {
        if (notified.code == COLUMN_CLICKED) {
            UINT column = END;
            bool ascending = false;
            list.GetCurrentSort(&column, &ascending);
            EXPECT_EQ(column, 1U);
            EXPECT_TRUE(ascending);
            EXPECT_EQ(notified.record.iSubItem, 1);
        }
    };
    Click(150, 5);
    EXPECT_EQ(list.columns[1]->state, LCS_SORTUP);
    host.onNotify = nullptr;
    host.answer = 1;
    Click(150, 5);
    EXPECT_EQ(list.columns[1]->state, LCS_SORTUP) << "the parent has refused it";
    host.answer = 0;
    Click(150, 5);
    EXPECT_EQ(list.columns[1]->state, LCS_SORTDOWN);
}

// Where elements count as columns too.
TEST_F(GListVirtualTest, AHeaderClickTellsTheColumnBesideCheckBoxes)
{
    MakeVirtual(10, HEADER | GLS_CHECKBOXES);
    for (UINT element = 0; element < 3; ++element) {
        host.Take();
        Click(list.columnDraw[element].rect.right - 20, 5);
        const auto told = host.Take();
        const auto clicked = std::find_if(told.begin(), told.end(),
                                          [](const Notified& n) { return n.code == COLUMN_CLICKED; });
        ASSERT_EQ(clicked != told.end(), element > 0) << element;
        if (element > 0) {
            EXPECT_EQ(clicked->record.iSubItem, static_cast<int>(element) - 1);
        }
    }
}

TEST_F(GListVirtualTest, ADraggedThumbReachesTheEndOfAnyLength)
{
    ExpectThumbToReachTheEnd();
}

TEST_F(GListVirtualModernTest, ADraggedThumbReachesTheEndOfAnyLength)
{
    ExpectThumbToReachTheEnd();
}

TEST_F(GListVirtualTest, GroupsHoldItemsOneBehindTheOther)
{
    MakeVirtual(10);
    AddGroup(7);
    AddGroup(9);
    list.SetGroupItemCount(0, 3);
    list.SetGroupItemCount(1, 5);
    EXPECT_EQ(list.GetItemGroup(2), 7U);
    EXPECT_EQ(list.GetItemGroup(3), 9U);
    EXPECT_EQ(list.GetItemGroup(8), END);
    RECT rc{}, next{};
    list.GetItemRect(&rc, 2, 0);
    list.GetItemRect(&next, 3, 0);
    EXPECT_EQ(next.top - rc.bottom, static_cast<int>(list.GetGroupHeight()));
    Key(VK_END);
    EXPECT_EQ(LastInView(), 9U) << "End stops short";
    list.ItemsInserted(3, 1);
    EXPECT_EQ(list.GetItemGroup(3), 9U);
    list.RemoveAllGroups();
    list.SetListStyle(HEADER);
    EXPECT_EQ(list.GetItemGroup(3), END);
    EXPECT_EQ(list.contentCy, list.headerArea + 11 * list.itemHeight);
}

// What a host may do in its answer, to a list that paints and to one that is asked.
TEST_F(GListVirtualTest, AHostThatAnswersWronglyBreaksNothing)
{
    const AllowMisuse allowed;
    const std::vector<std::function<void(GList*)>> deeds{
        [](GList* pList) { pList->SetVirtualItems(3); },
        [](GList* pList) { pList->SetVirtualItems(0); },
        [](GList* pList) { pList->ItemsChanged(0, END); },
        [](GList* pList) { pList->ItemsInserted(0, 5); },
        [](GList* pList) { pList->ItemsRemoved(0, 5); },
        [](GList* pList) { pList->LeaveVirtual(); },
        [](GList* pList) { pList->RemoveAllColumns(); },
        [](GList* pList) { pList->SetListStyle(GLS_ICONS); },
        [](GList* pList) { pList->GetItemText(1, 0); },
        [](GList* pList) { DestroyWindow(*pList); },
        [](GList* pList) { *pList = GList(); },
    };
    for (size_t deed = 0; deed < deeds.size(); ++deed) {
        for (const bool fPaints : {true, false}) {
            SCOPED_TRACE("deed " + std::to_string(deed));
            MakeVirtual(100);
            const HWND hwnd = list;
            data.onQuestion = [&](GList* pList, const VirtualHost::Question& question) {
                deeds[deed](pList);
                return question.item % 2 == 0;
            };
            fPaints ? Paint() : void(list.GetItemText(0, 0));
            data.onQuestion = nullptr;
            EXPECT_FALSE(data.Take().empty());
            DestroyWindow(hwnd);
            Renew();
        }
    }
    MakeVirtual(3);
}

TEST_F(GListVirtualTest, AListThatIsDeletedInAnAnswerIsGone)
{
    for (const bool fPaints : {true, false}) {
        auto* pList = new ProbeList;
        const HWND hwnd = pList->Create(0, 0, 100, 100, host, 1, GLS_DETAILS, 0, WS_CHILD | WS_VISIBLE);
        pList->InsertColumn(0, 0, 0, 50, 10, L"A", 0, LCT_TEXT, nullptr, nullptr, nullptr, VirtualHost::Get);
        pList->SetVirtualItems(100);
        data.onQuestion = [&](GList* pAsking, const VirtualHost::Question&) {
            delete std::exchange(pList, nullptr);
            return pAsking == nullptr;
        };
        const HDC hdc = CreateCompatibleDC(nullptr);
        fPaints ? void(SendMessageW(hwnd, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(hdc), PRF_CLIENT))
                : void(pList->GetItemText(3, 0));
        DeleteDC(hdc);
        EXPECT_EQ(pList, nullptr);
        DestroyWindow(hwnd);
    }
    MakeList();
}

TEST_F(GListVirtualTest, AnItemIsRenamedByTheHost)
{
    MakeVirtual(MANY);
    list.EnsureVisible(5000);
    host.answer = 0;
    ASSERT_TRUE(list.EditItem(5000));
    list.ItemsInserted(0, 10);
    host.answer = 1;
    host.Take();
    data.Take();
    SetFocus(host);
    const auto told = host.Take();
    const auto ended =
        std::find_if(told.begin(), told.end(), [](const Notified& n) { return n.code == -176; });
    ASSERT_NE(ended, told.end());
    EXPECT_EQ(ended->record.iItem, 5010);
    host.answer = 0;
    list.GetItemText(5010, 0);
    EXPECT_EQ(data.Take().size(), 1U) << "the text is asked for anew";
}

TEST_F(GListVirtualTest, AnItemFarAwayIsRenamedInView)
{
    MakeVirtual(MOST);
    ASSERT_TRUE(list.EditItem(3'000'000'000));
    ExpectFieldInView();
    SetFocus(list);
    ASSERT_TRUE(list.EditItem(5));
    ExpectFieldInView();
}

TEST_F(GListVirtualModernTest, F2BringsTheCursorsItemIntoView)
{
    MakeVirtual(MANY);
    list.SetCursorItem(0);
    list.EnsureVisible(MANY - 1);
    Key(VK_F2);
    ExpectFieldInView();
    EXPECT_EQ(FirstInView(), 0U);
}

// The text of an item is asked for between the two notifications.
TEST_F(GListVirtualTest, ARenamingGoesWhereItsItemGoesMeanwhile)
{
    MakeVirtual(100);
    bool fGoes = false;
    data.onQuestion = [&](GList* pList, const VirtualHost::Question& question) {
        fGoes ? pList->ItemsRemoved(question.item, 1) : pList->ItemsInserted(0, 2);
        data.onQuestion = nullptr;
        return true;
    };
    ASSERT_TRUE(list.EditItem(3));
    RECT rcField{};
    GetWindowRect(GetFocus(), &rcField);
    MapWindowPoints(nullptr, list, reinterpret_cast<POINT*>(&rcField), 2);
    EXPECT_EQ(list.HitAt(rcField.left + 2, rcField.top + 2).item, 5U);
    SetFocus(list);
    host.Take();
    fGoes = true;
    data.onQuestion = [&](GList* pList, const VirtualHost::Question& question) {
        pList->ItemsRemoved(question.item, 1);
        return true;
    };
    EXPECT_FALSE(list.EditItem(50));
    data.onQuestion = nullptr;
    EXPECT_EQ(host.Take().back().record.iItem, -1) << "the renaming has ended";
}

TEST_F(GListVirtualTest, AGetterAnswersWhateverTheHostChangesMeanwhile)
{
    MakeVirtual(100);
    const std::vector<std::function<void(GList*)>> deeds{
        [](GList* pList) { pList->ItemsChanged(0, END); },
        [](GList* pList) { pList->ItemsInserted(0, 1); },
        [](GList* pList) { pList->SetVirtualItems(99); },
        [](GList* pList) { pList->SetColumnText(0, L"B"); },
        [](GList* pList) { pList->SetColumnFormat(0, DT_RIGHT); },
        [](GList* pList) { UpdateWindow(*pList); },
    };
    for (size_t deed = 0; deed < deeds.size(); ++deed) {
        SCOPED_TRACE("deed " + std::to_string(deed));
        data.onQuestion = [&](GList* pList, const VirtualHost::Question&) {
            data.onQuestion = nullptr;
            deeds[deed](pList);
            return true;
        };
        const UINT item = 10 + static_cast<UINT>(deed);
        const LPCWSTR text = list.GetItemText(item, 0);
        ASSERT_NE(text, nullptr);
        EXPECT_EQ(Narrow(text), VirtualHost::TextOf(deed == 1 ? item + 1 : item, 0));
    }
}

TEST_F(GListVirtualTest, AsksNothingOfItemsThatAreNotThere)
{
    MakeVirtual(3);
    const HDC hdc = CreateCompatibleDC(nullptr);
    list.DrawItem(hdc, 3, {0, 0, 100, 20});
    EXPECT_TRUE(data.Take().empty());
    list.DrawItem(hdc, 2, {0, 0, 100, 20});
    EXPECT_EQ(data.Take().size(), 2U);
    DeleteDC(hdc);
    Paint();
    list.SetColumnFktGet(1, VirtualHost::Get);
    EXPECT_GT(AskedByPaint(), 0U) << "another function answers otherwise";
}

TEST_F(GListVirtualTest, AGroupGoesWithItsHeadingAtOnce)
{
    MakeVirtual(10);
    AddGroup(7);
    AddGroup(9);
    list.SetGroupItemCount(0, 3);
    list.SetGroupItemCount(1, 5);
    list.RemoveGroup(0);
    EXPECT_EQ(list.GetItemGroup(4), 9U);
    EXPECT_EQ(list.GetItemGroup(5), END);
    list.RemoveAllGroups();
    EXPECT_EQ(list.GetItemGroup(4), END);
    EXPECT_EQ(list.contentCy, list.headerArea + 10 * list.itemHeight);
}

TEST_F(GListVirtualModernTest, ADragRectangleStaysWithTheRowsItBeganAt)
{
    MakeVirtual(1000);
    list.EnsureVisible(500);
    const UINT first = FirstInView() + 2;
    const int x = 250; // beside the columns
    Mouse(WM_LBUTTONDOWN, x, RowY(first));
    Mouse(WM_MOUSEMOVE, 50, RowY(first + 2));
    EXPECT_EQ(list.GetSelectedCount(), 3U);
    list.ItemsInserted(0, 3);
    Mouse(WM_MOUSEMOVE, 51, RowY(first + 5));
    EXPECT_EQ(list.GetFirstSelectedItemIndex(), first + 3);
    EXPECT_EQ(list.GetSelectedCount(), 3U);
    Mouse(WM_LBUTTONUP, 51, RowY(first + 5));
}

TEST_F(GListVirtualModernTest, ADragOverMoreLinesThanItIsWorthLeavesTheSelection)
{
    MakeVirtual(MOST, GLS_ICONS);
    list.SetSelected(7, 1);
    HoldKeys(KEYMOD_CTRL);
    Mouse(WM_LBUTTONDOWN, 1, 1);
    HoldKeys(0);
    list.EnsureVisible(MOST - 1);
    Mouse(WM_MOUSEMOVE, 30, 100);
    EXPECT_EQ(list.Selected(), "7");
    Mouse(WM_LBUTTONUP, 30, 100);
}

TEST_F(GListVirtualModernTest, TypedCharactersAreTheHostsToFind)
{
    MakeVirtual(MANY);
    list.SetCursorItem(10);
    data.found = 777;
    Send(WM_CHAR, 'B');
    EXPECT_EQ(data.word, "b");
    EXPECT_EQ(data.match.from, 11U) << "one letter steps";
    EXPECT_EQ(data.match.found, END);
    EXPECT_EQ(list.Selected(), "777");
    data.found = MANY;
    Send(WM_CHAR, 'c');
    EXPECT_EQ(data.match.from, 777U);
    EXPECT_EQ(list.Selected(), "777") << "an item that is not there leads nowhere";
    EXPECT_EQ(data.Take().back().item, END);
}

TEST_F(GListVirtualModernTest, TheParentIsToldOfASelectionOnce)
{
    MakeVirtual(MANY);
    EXPECT_EQ(ToldBy([this] { Key('A', KEYMOD_CTRL); }), "-101 -1");
    EXPECT_EQ(ToldBy([this] { list.SetFirstSelectedItemIndex(5); }), "-101 -1");
    EXPECT_EQ(ToldBy([this] { list.SetSelected(MANY - 1, 1); }), "-101 99999999");
    EXPECT_EQ(ToldBy([this] { list.SetSelected(MANY - 1, 1); }), "");
    EXPECT_EQ(ToldBy([this] { list.ItemsRemoved(5, 1); }), "-101 -1");
    EXPECT_EQ(ToldBy([this] { list.ItemsRemoved(5, 1); }), "");
    EXPECT_EQ(ToldBy([this] { list.LeaveVirtual(); }), "-101 -1");
}

TEST_F(GListVirtualModernTest, IconsLieInLinesOfAnyNumber)
{
    MakeVirtual(MANY, GLS_ICONS);
    Key(VK_END);
    EXPECT_EQ(list.GetCursorItem(), MANY - 1);
    Paint();
    const UINT perLine = list.HitAt(290, 190).item == END ? 0 : 1;
    Key(VK_UP);
    const UINT above = list.GetCursorItem();
    EXPECT_LT(above, MANY - 1);
    EXPECT_GT(above, MANY - 20 - perLine);
    Key(VK_DOWN);
    EXPECT_EQ(list.GetCursorItem(), MANY - 1);
    Key(VK_PRIOR);
    Key(VK_NEXT);
    EXPECT_EQ(list.GetCursorItem(), MANY - 1);
    ExpectRectsWhereHitsAre();
}

} // namespace
