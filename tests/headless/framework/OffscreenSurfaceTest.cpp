// The surface that is kept from one paint to the next: it must look like a new one, and go with the last
// control.

#include "../controls/DrawFixture.h"

#include <gesso/framework/LibraryWindows.h>
#include <gesso/framework/OffscreenSurface.h>

namespace {

using namespace test;

using gesso::OffscreenSurface;

class OffscreenSurfaceTest : public DrawFixture
{
protected:
    void Repaint(HWND hwnd)
    {
        InvalidateRect(hwnd, nullptr, FALSE);
        desk::Pump();
    }
};

TEST_F(OffscreenSurfaceTest, LaterPaintShowsNothingOfTheOnesBefore)
{
    GButton first, second;
    first.Create(0, 0, 80, 30, Parent(), 1, L"first", 0, WS_CHILD | WS_VISIBLE);
    second.Create(0, 40, 60, 20, Parent(), 2, L"second", 0, WS_CHILD | WS_VISIBLE);
    desk::Pump();
    const auto once = desk::Drawing(second);
    desk::ClearDrawing(second);
    Repaint(first);
    Repaint(second);
    EXPECT_EQ(desk::Drawing(second), once);
    DestroyWindow(first);
    DestroyWindow(second);
}

TEST_F(OffscreenSurfaceTest, GoesWithTheLastControlOnly)
{
    const desk::Census before = desk::Live();
    {
        GButton first, second;
        first.Create(0, 0, 80, 30, Parent(), 1, L"first", 0, WS_CHILD | WS_VISIBLE);
        second.Create(0, 40, 80, 30, Parent(), 2, L"second", 0, WS_CHILD | WS_VISIBLE);
        desk::Pump();
        DestroyWindow(first);
        EXPECT_EQ(desk::Live()[desk::Kind::Bitmap], before[desk::Kind::Bitmap] + 1);
        DestroyWindow(second);
        EXPECT_EQ(desk::Live()[desk::Kind::Bitmap], before[desk::Kind::Bitmap]);
    }
    EXPECT_EQ(desk::Live(), before);
}

TEST_F(OffscreenSurfaceTest, SelectionThatFailsLeavesNothingBehind)
{
    const desk::Census before = desk::Live();
    for (int nSkip = 0; nSkip < 4; ++nSkip) {
        const HDC hdc = GetDC(Parent());
        desk::Fail("SelectObject", 1, ERROR_INVALID_HANDLE, nSkip);
        {
            const OffscreenSurface surface(hdc, {50, 50}); // not kept: there is no control
        }
        desk::ClearFaults();
        ReleaseDC(Parent(), hdc);
        EXPECT_EQ(desk::Live(), before) << nSkip;
    }
}

TEST_F(OffscreenSurfaceTest, PaintWithinAPaintHasASurfaceOfItsOwn)
{
    gesso::AddLibraryWindow(Parent(), 0);
    const HDC hdc = GetDC(Parent());
    {
        const OffscreenSurface outer(hdc, {50, 50});
        const OffscreenSurface inner(hdc, {50, 50});
        EXPECT_NE(outer.Context(), inner.Context());
    }
    HDC hdcKept = nullptr;
    {
        const OffscreenSurface fitting(hdc, {40, 40});
        hdcKept = fitting.Context();
    }
    {
        const OffscreenSurface again(hdc, {50, 50});
        EXPECT_EQ(again.Context(), hdcKept) << "the kept one is as large";
    }
    {
        const OffscreenSurface tiny(hdc, {10, 10});
        EXPECT_EQ(desk::Live()[desk::Kind::Bitmap], 1) << "far too large for this, so that it was let go";
    }
    {
        const OffscreenSurface vast(hdc, {70'000, 70'000}); // more pixels than 32 bits count
    }
    EXPECT_EQ(desk::Live()[desk::Kind::Bitmap], 0) << "not kept";
    ReleaseDC(Parent(), hdc);
    gesso::RemoveLibraryWindow(Parent());
}

} // namespace
