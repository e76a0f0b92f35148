// Values at the ends of their range: nothing overflows on the way to the picture, or to what a press does.

#include "../../support/AllControls.h"
#include "../../support/WithBehavior.h"
#include "DrawFixture.h"

#include <climits>

namespace {

using namespace test;

constexpr int ENDS[] = {INT_MIN, INT_MIN + 1, -1, 0, 1, INT_MAX - 1, INT_MAX};

// Paints and presses all over.
void Use(HWND hwnd)
{
    RedrawWindow(hwnd, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME);
    desk::Pump();
    RECT rc{};
    GetWindowRect(hwnd, &rc);
    for (const POINT pt : {POINT{rc.right - 5, rc.top + 3}, POINT{rc.right - 5, (rc.top + rc.bottom) / 2},
                           POINT{rc.right - 5, rc.bottom - 25}, POINT{rc.left + 40, rc.bottom - 5},
                           POINT{rc.left + 15, rc.top + 12}})
    {
        desk::MoveMouse(pt.x, pt.y);
        desk::PressButton();
        desk::MoveMouse(pt.x + 7, pt.y + 9);
        desk::Pump();
        desk::ReleaseButton();
        desk::Wheel(-120);
        desk::Pump();
    }
    for (const WPARAM code :
         std::initializer_list<WPARAM>{SB_LINEUP, SB_LINEDOWN, SB_PAGEUP, SB_PAGEDOWN, SB_THUMBTRACK})
    {
        SendMessageW(hwnd, WM_VSCROLL, code, 0);
        SendMessageW(hwnd, WM_HSCROLL, code, 0);
    }
    desk::Pump();
}

template <class CONTROL> void FillFew(CONTROL& control)
{
    if constexpr (std::is_same_v<CONTROL, GList>) {
        control.InsertColumn(0, 0, 0, 60, 20, L"Name", 0, LCT_TEXT, nullptr, nullptr, nullptr, nullptr);
        control.InsertItem(0, 0, nullptr, 0, L"Item", 0);
        control.SetListStyle(GLS_DETAILS | GLS_HEADER | GLS_GRIDLINES | GLS_CHECKBOXES);
    } else {
        void* hItem = control.InsertItem(control.GetRootItem(), nullptr, L"Item", 0, 0, nullptr);
        control.InsertItem(hItem, nullptr, L"Child", 0, 0, nullptr);
    }
}

template <class CONTROL> class ScrollExtremesTest : public DrawFixture
{};

using Scrolling = testing::Types<GList, GTree, GNavigationBar>;
TYPED_TEST_SUITE(ScrollExtremesTest, Scrolling);

TYPED_TEST(ScrollExtremesTest, RangesAndPositionsMayBeAnything)
{
    for (const bool fThemed : {true, false}) {
        desk::SetThemed(fThemed);
        TypeParam control;
        const HWND hwnd =
            MakeControl(control, this->Parent(), 33, WS_CHILD | WS_VISIBLE | WS_HSCROLL | WS_VSCROLL);
        MoveWindow(hwnd, 10, 10, 150, 120, TRUE);
        FillFew(control);
        if constexpr (std::is_same_v<TypeParam, GTree>) {
            control.SetTreeStyle(GTS_CHECKBOXES | GTS_IMAGES);
        }
        for (const int nMin : ENDS) {
            for (const int nMax : ENDS) {
                for (const int nPos : {INT_MIN, 0, INT_MAX}) {
                    const auto nPage = static_cast<UINT>(nPos ^ nMax);
                    const SCROLLINFO si{sizeof(si), SIF_RANGE | SIF_PAGE | SIF_POS, nMin, nMax, nPage, nPos,
                                        0};
                    control.SetScrollInfo(SB_HORZ, &si, TRUE);
                    control.SetScrollInfo(SB_VERT, &si, TRUE);
                    Use(hwnd);
                }
            }
        }
        DestroyWindow(hwnd);
    }
}

using ExtremesTest = DrawFixture;

TEST_F(ExtremesTest, ALabelIsEditedWhereverItsRowLies)
{
    const Modern modern;
    GTree tree;
    MakeControl(tree, Parent(), 33, WS_CHILD | WS_VISIBLE | WS_HSCROLL | WS_VSCROLL);
    void* hItem = tree.InsertItem(tree.GetRootItem(), nullptr, L"Item", 0, 0, nullptr);
    for (const int nBar : {SB_HORZ, SB_VERT}) {
        for (const int nPos : ENDS) {
            const SCROLLINFO si{sizeof(si), SIF_RANGE | SIF_POS, INT_MIN, INT_MAX, 1, nPos, 0};
            tree.SetScrollInfo(nBar, &si, FALSE);
            EXPECT_TRUE(tree.EditLabel(hItem));
            SetFocus(tree);
        }
    }
    DestroyWindow(tree);
}

TEST_F(ExtremesTest, AFrameIsPaintedAtTheEndsOfTheScreen)
{
    GTree tree;
    MakeControl(tree, Parent(), 33, WS_CHILD | WS_VISIBLE | WS_BORDER | WS_VSCROLL);
    for (const int n : ENDS) {
        SetWindowPos(tree, nullptr, n, n, 100, 80, SWP_NOZORDER);
        const HRGN hRegion = CreateRectRgn(0, 0, 100, 100);
        SendMessageW(tree, WM_NCPAINT, reinterpret_cast<WPARAM>(hRegion), 0);
        SendMessageW(tree, WM_NCPAINT, 1, 0);
        DeleteObject(hRegion);
    }
    DestroyWindow(tree);
}

TEST_F(ExtremesTest, BarsTotalAndPositionMayBeAnything)
{
    GScrollbar bar;
    bar.Create(10, 10, 20, 200, Parent(), 1, 0, WS_CHILD | WS_VISIBLE);
    bar.InitScrollBar(static_cast<UINT>(-1));
    for (const int nTotal : ENDS) {
        for (const int nPos : ENDS) {
            bar.ScrSetTotalHeight(static_cast<UINT>(-1));
            bar.SetScrollPos(static_cast<UINT>(nPos));
            bar.ScrSetTotalHeight(static_cast<UINT>(nTotal));
            Use(bar);
        }
    }
    bar.UninitScrollBar();
    DestroyWindow(bar);
}

TEST_F(ExtremesTest, AStylesMarginsMayBeAnyNumber)
{
    for (const int nMargin : ENDS) {
        desk::SetThemeMargins("BUTTON", BP_CHECKBOX, 0, TMT_CONTENTMARGINS, {nMargin, 0x10000, 1, nMargin});
        for (const DWORD dwStyle : {DWORD{0}, GCS_BOXRIGHT, GS_BOTTOM}) {
            GCheckBox box;
            MakeControl(box, Parent(), 1, WS_CHILD | WS_VISIBLE | dwStyle);
            Use(box);
            DestroyWindow(box);
        }
    }
}

TEST_F(ExtremesTest, GroupsMayBeAnyWidth)
{
    GRibbon ribbon;
    ribbon.Create(0, 0, 300, 118, Parent(), nullptr);
    ribbon.AddPage(nullptr, 1, L"Page");
    GRibbonPage& page = *ribbon.GetPage(1);
    DWORD dwId = 1;
    for (const int nWidth : ENDS) {
        page.InsertGroup(dwId, dwId + 1, L"Wide", static_cast<UINT>(nWidth));
        ++dwId;
        page.InsertGroup(dwId, dwId + 1, L"Group", 0);
        ++dwId;
        GRibbonPage::ItemInfo info{};
        info.uType = RIT_CHECKBOX;
        info.pszCheckText = L"Check";
        page.InsertItem(dwId, 0, &info);
        Use(ribbon);
    }
    DestroyWindow(ribbon);
}

TEST_F(ExtremesTest, SortArrowStandsInTheMiddleOfTheWidestColumn)
{
    desk::SetThemed(false);
    GList list;
    list.Create(0, 0, 200, 100, Parent(), 1, GLS_DETAILS | GLS_HEADER, 0, WS_CHILD | WS_VISIBLE);
    for (int i = 0; i < 2; ++i) {
        list.InsertColumn(0, 0, 0, INT_MAX, 20, L"Column", 0, LCT_TEXT, nullptr, nullptr, nullptr, nullptr);
    }
    list.InsertItem(0, 0, nullptr, 0, L"Item", 0);
    for (const UINT column : {0u, 1u}) {
        list.Sort(column, true);
        Use(list);
    }
    DestroyWindow(list);
}

} // namespace
