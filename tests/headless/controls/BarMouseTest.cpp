// The mouse in the bars of every control that has them.

#include "../../support/AllControls.h"
#include "DrawFixture.h"

namespace {

using namespace test;

template <class CONTROL> void FillMuch(CONTROL& control)
{
    if constexpr (std::is_same_v<CONTROL, GEdit>) {
        const SCROLLINFO si{sizeof(si), SIF_RANGE | SIF_PAGE | SIF_POS, 0, 999, 10, 0, 0};
        control.SetScrollInfo(SB_VERT, &si, TRUE);
        control.ShowScrollBar(SB_VERT, TRUE);
    } else if constexpr (std::is_same_v<CONTROL, GList>) {
        control.InsertColumn(0, 0, 0, 60, 20, L"Name", 0, LCT_TEXT, nullptr, nullptr, nullptr, nullptr);
        for (int i = 0; i < 100; ++i) {
            control.InsertItem(0, 0, nullptr, 0, L"Item", 0);
        }
    } else {
        for (int i = 0; i < 100; ++i) {
            control.InsertItem(control.GetRootItem(), nullptr, L"Item", 0, 0, nullptr);
        }
    }
}

template <class CONTROL> class BarMouseTest : public DrawFixture
{
protected:
    // What its own bar asks the control for, as codes.
    static inline std::string s_scrolls;
    static inline WNDPROC s_pfnFormer = nullptr;

    static LRESULT CALLBACK Watch(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
    {
        if (uMsg == WM_VSCROLL) {
            s_scrolls += std::to_string(LOWORD(wParam)) + " ";
        }
        return CallWindowProcW(s_pfnFormer, hwnd, uMsg, wParam, lParam);
    }
    static std::string TakeScrolls()
    {
        desk::Pump();
        return std::exchange(s_scrolls, "");
    }
};

using WithBars = testing::Types<GEdit, GList, GTree, GNavigationBar>;
TYPED_TEST_SUITE(BarMouseTest, WithBars);

TYPED_TEST(BarMouseTest, ScrollsByPressesSecondOnesAndDragsOverTheClientArea)
{
    TypeParam control;
    const HWND hwnd = MakeControl(control, this->Parent(), 33, WS_CHILD | WS_VISIBLE | WS_VSCROLL);
    MoveWindow(hwnd, 10, 10, 150, 120, TRUE);
    FillMuch(control);
    desk::Pump();
    this->s_pfnFormer = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(hwnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(this->Watch)));
    RECT rc{};
    GetWindowRect(hwnd, &rc);
    const POINT ptArrow{rc.right - 5, rc.bottom - 5};
    desk::Click(ptArrow.x, ptArrow.y);
    EXPECT_EQ(this->TakeScrolls(), "1 8 ");
    desk::DoubleClick(ptArrow.x, ptArrow.y);
    EXPECT_EQ(this->TakeScrolls(), "1 8 1 8 ");
    SendMessageW(hwnd, WM_VSCROLL, SB_TOP, 0);
    this->TakeScrolls();
    desk::MoveMouse(rc.right - 5, rc.top + 20); // where the thumb begins
    desk::PressButton();
    desk::Pump();
    desk::MoveMouse(rc.left + 50, rc.top + 70); // still the thumb's
    EXPECT_EQ(this->TakeScrolls().substr(0, 2), "5 ");
    desk::ReleaseButton();
    EXPECT_EQ(this->TakeScrolls(), "4 8 ");
    EXPECT_EQ(GetCapture(), nullptr);
    DestroyWindow(hwnd);
}

} // namespace
