// Windows and contexts that are laid out from right to left: the rules that the controls rest on.
#include "../support/Numbers.h"
#include "../support/TestWindow.h"

#include <gtest/gtest.h>

#include <array>

using test::Numbers;

namespace {

class Layout : public testing::Test
{
protected:
    void SetUp() override { top = Make(WS_EX_LAYOUTRTL, WS_POPUP, {100, 100, 400, 300}, nullptr); }
    void TearDown() override
    {
        SetProcessDefaultLayout(0);
        DestroyWindow(top);
    }

    static HWND Make(DWORD dwExStyle, DWORD dwStyle, const RECT& rc, HWND hwndParent)
    {
        return test::Make({dwStyle, dwExStyle, rc, hwndParent});
    }
    static bool IsMirrored(HWND hwnd) { return (GetWindowLongW(hwnd, GWL_EXSTYLE) & WS_EX_LAYOUTRTL) != 0; }
    static RECT OnScreen(HWND hwnd)
    {
        RECT rc{};
        GetWindowRect(hwnd, &rc);
        return rc;
    }
    static std::string ClientOnScreen(HWND hwnd)
    {
        RECT rc{};
        GetClientRect(hwnd, &rc);
        MapWindowPoints(hwnd, nullptr, reinterpret_cast<POINT*>(&rc), 2);
        return Numbers(rc);
    }

    HWND top = nullptr;
};

} // namespace

TEST_F(Layout, ChildrenTakeItAndStandFromTheRight)
{
    const HWND child = Make(0, WS_CHILD | WS_BORDER, {10, 10, 60, 50}, top);
    EXPECT_TRUE(IsMirrored(child));
    EXPECT_EQ(Numbers(OnScreen(child)), "340,110,390,150");
    EXPECT_EQ(ClientOnScreen(child), "341,111,389,149");
    EXPECT_EQ(Numbers(test::PlaceIn(top, child)), "10,10,60,50");
    SetWindowPos(child, nullptr, 20, 20, 60, 40, SWP_NOZORDER);
    EXPECT_EQ(Numbers(OnScreen(child)), "320,120,380,160");
    SetWindowPos(top, nullptr, 0, 0, 350, 200, SWP_NOMOVE | SWP_NOZORDER);
    EXPECT_EQ(Numbers(OnScreen(child)), "370,120,430,160") << "it keeps its distance from the right edge";

    const HWND popup = Make(0, WS_POPUP, {0, 0, 10, 10}, top);
    EXPECT_FALSE(IsMirrored(popup)) << "nor does a window that is owned";
    const HWND apart = Make(WS_EX_LAYOUTRTL | WS_EX_NOINHERITLAYOUT, WS_POPUP, {0, 0, 99, 99}, top);
    EXPECT_FALSE(IsMirrored(Make(0, WS_CHILD, {0, 0, 10, 10}, apart)));
    DestroyWindow(popup);
    DestroyWindow(apart);
}

TEST_F(Layout, TheProcessHasOneForWindowsWithoutAParent)
{
    DWORD dwLayout = LAYOUT_RTL;
    EXPECT_TRUE(GetProcessDefaultLayout(&dwLayout));
    EXPECT_EQ(dwLayout, 0u);
    EXPECT_TRUE(SetProcessDefaultLayout(LAYOUT_RTL));
    EXPECT_TRUE(GetProcessDefaultLayout(&dwLayout));
    EXPECT_EQ(dwLayout, DWORD{LAYOUT_RTL});
    const HWND first = Make(0, WS_POPUP, {0, 0, 10, 10}, nullptr);
    const HWND owned = Make(0, WS_POPUP, {0, 0, 10, 10}, first);
    EXPECT_TRUE(IsMirrored(first));
    EXPECT_FALSE(IsMirrored(owned));
    DestroyWindow(first);
}

TEST_F(Layout, PointsCountFromTheRightEdge)
{
    const HWND child = Make(0, WS_CHILD | WS_BORDER, {10, 10, 60, 50}, top);
    POINT pt{0, 0};
    ClientToScreen(top, &pt);
    EXPECT_EQ(Numbers(pt), "400,100");
    pt = {100, 130};
    ScreenToClient(top, &pt);
    EXPECT_EQ(Numbers(pt), "300,30");
    pt = {7, 0};
    EXPECT_EQ(MapWindowPoints(child, top, &pt, 1), static_cast<int>(MAKELONG(11, 11)));
    EXPECT_EQ(pt.x, 18);
    RECT rc{110, 110, 120, 130};
    EXPECT_EQ(MapWindowPoints(nullptr, top, reinterpret_cast<POINT*>(&rc), 2),
              static_cast<int>(MAKELONG(-400, -100)));
    EXPECT_EQ(Numbers(rc), "280,10,290,30") << "the corners of a rectangle stay in order";
    std::array<POINT, 3> points{{{110, 0}, {120, 0}, {130, 0}}};
    MapWindowPoints(nullptr, top, points.data(), 3);
    EXPECT_EQ(points[0].x, 290);
    EXPECT_EQ(points[2].x, 270);
}

TEST_F(Layout, BarsStandAtTheOtherSide)
{
    const int cxBar = GetSystemMetrics(SM_CXVSCROLL);
    const HWND straight = Make(0, WS_POPUP, {100, 100, 400, 300}, nullptr);
    for (const HWND parent : {straight, top}) {
        const HWND child = Make(WS_EX_LAYOUTRTL, WS_CHILD | WS_VSCROLL, {10, 10, 70, 50}, parent);
        EXPECT_EQ(ClientOnScreen(child), Numbers({OnScreen(child).left + cxBar, OnScreen(child).top,
                                                  OnScreen(child).right, OnScreen(child).bottom}));
        const HWND flipped =
            Make(WS_EX_LAYOUTRTL | WS_EX_LEFTSCROLLBAR, WS_CHILD | WS_VSCROLL, {10, 10, 70, 50}, parent);
        EXPECT_EQ(ClientOnScreen(flipped),
                  Numbers({OnScreen(flipped).left, OnScreen(flipped).top, OnScreen(flipped).right - cxBar,
                           OnScreen(flipped).bottom}));
    }
    DestroyWindow(straight);
}

TEST_F(Layout, ContextsOfWindowsHaveItAndMemoryContextsDoNot)
{
    ShowWindow(top, SW_SHOW);
    const HDC window = GetDC(top);
    EXPECT_EQ(GetLayout(window), DWORD{LAYOUT_RTL});
    const HDC memory = CreateCompatibleDC(window);
    EXPECT_EQ(GetLayout(memory), 0u);
    DeleteDC(memory);
    POINT pt{0, 0};
    LPtoDP(window, &pt, 1);
    EXPECT_EQ(pt.x, 299);
    const int nSaved = SaveDC(window);
    EXPECT_EQ(SetLayout(window, 0), DWORD{LAYOUT_RTL});
    DPtoLP(window, &pt, 1);
    EXPECT_EQ(pt.x, 299);
    RestoreDC(window, nSaved);
    EXPECT_EQ(GetLayout(window), DWORD{LAYOUT_RTL});
    ReleaseDC(top, window);
}

TEST_F(Layout, ClippingIsCountedAsTheContextCountsAndStaysWhereItIs)
{
    const HDC hdc = CreateCompatibleDC(nullptr);
    const HDC screen = GetDC(nullptr);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, 20, 8);
    ReleaseDC(nullptr, screen);
    const HGDIOBJ former = SelectObject(hdc, bitmap);
    SetLayout(hdc, LAYOUT_RTL);
    const auto box = [hdc] {
        RECT rc{};
        GetClipBox(hdc, &rc);
        return Numbers(rc);
    };
    IntersectClipRect(hdc, 1, 1, 5, 6);
    EXPECT_EQ(box(), "1,1,5,6");
    SetLayout(hdc, 0);
    EXPECT_EQ(box(), "15,1,19,6");
    SetLayout(hdc, LAYOUT_RTL);
    OffsetWindowOrgEx(hdc, 2, 0, nullptr);
    EXPECT_EQ(box(), "-1,1,3,6") << "the window's origin counts the other way";
    SelectObject(hdc, former);
    DeleteDC(hdc);
    DeleteObject(bitmap);
}
