// Invalid regions and paints.
#include "../support/Host.h"
#include "../support/Numbers.h"
#include "../support/TestWindow.h"

using namespace test;

namespace {

class PaintTest : public WindowsTest
{
protected:
    static std::optional<LRESULT> PaintNothing(HWND hwnd, UINT message, WPARAM, LPARAM)
    {
        if (message != WM_PAINT) {
            return std::nullopt;
        }
        PAINTSTRUCT paint{};
        BeginPaint(hwnd, &paint);
        s_painted = paint.rcPaint;
        EndPaint(hwnd, &paint);
        return 0;
    }

    static HWND MakePainted()
    {
        const HWND top = MakeTop({0, 0, 100, 100}, PaintNothing);
        DispatchAll();
        return top;
    }

    static std::string Invalid(HWND hwnd)
    {
        RECT r{};
        return GetUpdateRect(hwnd, &r, FALSE) ? Numbers(r) : "none";
    }

    static RECT s_painted;
};
RECT PaintTest::s_painted{};

TEST_F(PaintTest, InvalidPartsAddUpAreClippedAndPaintedOnceWhenTheQueueIsEmpty)
{
    const HWND top = MakePainted();
    EXPECT_EQ(Invalid(top), "none");
    const RECT a = {10, 10, 20, 20};
    const RECT b = {90, 90, 200, 200};
    InvalidateRect(top, &a, FALSE);
    InvalidateRect(top, &b, FALSE);
    EXPECT_EQ(Invalid(top), "10,10,100,100");
    PostMessageW(top, WM_USER, 0, 0);
    EXPECT_EQ(Names(Traced([] { DispatchAll(); }, top)), "WM_USER, WM_PAINT"); // nothing to erase
    EXPECT_EQ(Numbers(s_painted), "10,10,100,100");
    EXPECT_EQ(Names(Traced([] { DispatchAll(); }, top)), "");
}

TEST_F(PaintTest, ValidatingTakesPartsAway)
{
    const HWND top = MakePainted();
    InvalidateRect(top, nullptr, TRUE);
    const RECT lower = {0, 40, 100, 100};
    ValidateRect(top, &lower);
    EXPECT_EQ(Invalid(top), "0,0,100,40");
    ValidateRect(top, nullptr);
    EXPECT_EQ(Names(Traced([] { DispatchAll(); }, top)), "");
    const HWND child = MakeChild(top, {0, 0, 50, 50}, PaintNothing);
    DispatchAll();
    InvalidateRect(top, nullptr, TRUE);
    EXPECT_EQ(Invalid(child), "0,0,50,50");
    ValidateRect(top, nullptr);
    EXPECT_EQ(Invalid(child), "none"); // children are validated with their parent
}

TEST_F(PaintTest, BeginPaintSendsFrameAndBackgroundFirst)
{
    const HWND top = MakePainted();
    RedrawWindow(top, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME | RDW_ERASE);
    EXPECT_EQ(Names(Traced([&] { UpdateWindow(top); }, top)), "WM_PAINT, WM_NCPAINT, WM_ERASEBKGND");
    EXPECT_EQ(Names(Traced([&] { UpdateWindow(top); }, top)), "");
}

TEST_F(PaintTest, ChildrenArePaintedWithTheirParentUnlessClipped)
{
    for (const bool clipped : {false, true}) {
        const HWND top = Make({.style = WS_POPUP | WS_VISIBLE | (clipped ? DWORD{WS_CLIPCHILDREN} : 0U),
                               .place = {0, 0, 100, 100}},
                              PaintNothing);
        const HWND child = MakeChild(top, {0, 0, 50, 100}, PaintNothing);
        DispatchAll();
        InvalidateRect(top, nullptr, FALSE);
        EXPECT_EQ(Invalid(child), clipped ? "none" : "0,0,50,100");
        DispatchAll();
        EXPECT_EQ(Numbers(s_painted), clipped ? "50,0,100,100" : "0,0,50,100"); // by the last of the two
        RedrawWindow(top, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
        EXPECT_EQ(Invalid(child), "0,0,50,100");
        EXPECT_EQ(Names(Traced([] { DispatchAll(); }), {{top, 't'}, {child, 'c'}}, {WM_PAINT, WM_ERASEBKGND}),
                  "t:WM_PAINT, c:WM_PAINT, c:WM_ERASEBKGND"); // the child has lost its background
        DestroyWindow(top);
    }
}

TEST_F(PaintTest, HiddenWindowsHaveNothingToPaintAndUncoverTheirParent)
{
    const HWND top = MakeTop({0, 0, 100, 100}, PaintNothing);
    const HWND child = MakeChild(top, {10, 10, 30, 30}, PaintNothing);
    DispatchAll();
    ShowWindow(child, SW_HIDE);
    EXPECT_EQ(Invalid(top), "10,10,30,30");
    InvalidateRect(child, nullptr, TRUE);
    EXPECT_EQ(Invalid(child), "none");
    DispatchAll();
    ShowWindow(child, SW_SHOW);
    EXPECT_EQ(Invalid(child), "0,0,20,20");
    DispatchAll();
    MoveWindow(child, 40, 10, 20, 20, TRUE);
    EXPECT_EQ(Invalid(top), "10,10,30,30");
}

TEST_F(PaintTest, GrowingInvalidatesTheGainOrAllAsTheClassSays)
{
    const HWND top = MakeTop();
    const HWND all = MakeChild(top, {0, 0, 20, 20}); // CS_HREDRAW and CS_VREDRAW
    const HWND gain = MakeDoubleClickChild(top, {50, 0, 70, 20});
    DispatchAll();
    for (const HWND hwnd : {all, gain}) {
        SetWindowPos(hwnd, nullptr, 0, 0, 30, 20, SWP_NOMOVE | SWP_NOZORDER);
    }
    EXPECT_EQ(Invalid(all), "0,0,30,20");
    EXPECT_EQ(Invalid(gain), "20,0,30,20");
}

TEST_F(PaintTest, RegionsInvalidateLikeRectangles)
{
    const HWND top = MakePainted();
    const HRGN region = CreateRectRgn(5, 5, 15, 25);
    InvalidateRgn(top, region, FALSE);
    EXPECT_EQ(Invalid(top), "5,5,15,25");
    SetRectRgn(region, 0, 0, 1, 1);
    EXPECT_EQ(GetUpdateRgn(top, region, FALSE), SIMPLEREGION);
    RECT box{};
    GetRgnBox(region, &box);
    EXPECT_EQ(Numbers(box), "5,5,15,25");
    DeleteObject(region);
}

} // namespace
