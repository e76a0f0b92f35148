// What the stand-alone scroll bar draws, and how it repeats while it is held.

#include "../../controls/ProbeScrollbar.h"
#include "DrawFixture.h"

namespace {

using namespace test;

class ScrollbarDrawTest : public DrawFixture
{
protected:
    void TearDown() override
    {
        bar.UninitScrollBar();
        DrawFixture::TearDown();
    }
    void Make(int cx, UINT nTotal)
    {
        bar.Create(0, 0, cx, BAR_HEIGHT, Parent(), 5, 0, WS_CHILD | WS_VISIBLE);
        bar.InitScrollBar(nTotal);
        bar.ScrSetTotalHeight(nTotal);
    }

    ProbeScrollbar bar;
};

TEST_F(ScrollbarDrawTest, WholeRecordAtTheRightEdge)
{
    Make(30, 2 * BAR_HEIGHT);
    bar.SetScrollPos(BAR_HEIGHT / 2);
    EXPECT_EQ(Draw(bar, ""), (Lines{
                                 "DrawThemeBackground SCROLLBAR 7 1 (13,17,30,217)",
                                 "DrawThemeBackground SCROLLBAR 1 4 (13,0,30,17)",
                                 "DrawThemeBackground SCROLLBAR 1 8 (13,217,30,234)",
                                 "DrawThemeBackground SCROLLBAR 3 1 (13,67,30,167)",
                                 "DrawThemeBackground SCROLLBAR 9 1 (13,67,30,167)",
                                 "BitBlt (0,0,30,234) from (0,0) SRCCOPY",
                             }));
}

TEST_F(ScrollbarDrawTest, StatesByPressAndPointer)
{
    Make(17, 2 * BAR_HEIGHT);
    struct
    {
        WORD wDown, wNow;
        int nUp, nDown, nThumb;
    } const rows[] = {
        {0, 0, 4, 8, 1},
        {0, SBH_UP, 2, 5, 1},
        {0, SBH_VTHUMB, 1, 5, 2},
        {0, SBH_ABOVE, 1, 5, 1},
        {SBH_UP, SBH_UP, 3, 5, 1},
        {SBH_UP, SBH_VTHUMB, 2, 5, 1},
        {SBH_DOWN, SBH_DOWN, 1, 7, 1},
        {SBH_DOWN, 0, 1, 6, 1},
        {SBH_VTHUMB, 0, 1, 5, 3},
        {SBH_VTHUMB, SBH_UP, 1, 5, 3},
        {SBH_BELOW, SBH_BELOW, 1, 5, 1},
    };
    for (const auto& row : rows) {
        bar.SetHits(row.wDown, row.wNow);
        const auto line = [](int nPart, int nState, const char* pszPlace) {
            return "DrawThemeBackground SCROLLBAR " + std::to_string(nPart) + " " + std::to_string(nState) +
                   " " + pszPlace;
        };
        EXPECT_EQ(Draw(bar, "DrawThemeBackground"), (Lines{
                                                        line(7, 1, "(0,17,17,217)"),
                                                        line(1, row.nUp, "(0,0,17,17)"),
                                                        line(1, row.nDown, "(0,217,17,234)"),
                                                        line(3, row.nThumb, "(0,17,17,117)"),
                                                        line(9, row.nThumb, "(0,17,17,117)"),
                                                    }))
            << row.wDown << " " << row.wNow;
    }
    bar.SetHits(0, 0);
}

// The two divide and multiply in different orders: in one order, either what is seen or what a press does
// would change.
TEST_F(ScrollbarDrawTest, PaintingAndHitTestMayDisagreeByAPixel)
{
    Make(17, 400);
    bar.SetScrollPos(58);
    EXPECT_EQ(Draw(bar, "DrawThemeBackground SCROLLBAR 3"),
              Lines{"DrawThemeBackground SCROLLBAR 3 1 (0,45,17,162)"});
    EXPECT_EQ(bar.HitAt(45), SBH_ABOVE);
    EXPECT_EQ(bar.HitAt(46), SBH_VTHUMB);
}

TEST_F(ScrollbarDrawTest, WithoutInitItIsPlainAndHasTheSmallestThumb)
{
    bar.Create(0, 0, 17, BAR_HEIGHT, Parent(), 5, 0, WS_CHILD | WS_VISIBLE);
    EXPECT_EQ(Draw(bar, "DrawThemeBackground"), Lines{});
    EXPECT_EQ(Draw(bar, "DrawFrameControl (0,17,17,39)").size(), 1u);
}

TEST_F(ScrollbarDrawTest, ThemeIsOpenedByInitAndClosedByUninit)
{
    const auto themes = [] { return desk::Live()[desk::Kind::Theme]; };
    Make(17, 100);
    EXPECT_EQ(themes(), 1);
    bar.InitScrollBar(100);
    EXPECT_EQ(themes(), 1);
    DestroyWindow(bar);
    EXPECT_EQ(themes(), 1) << "the end of the window leaves it to the host";
    bar.UninitScrollBar();
    EXPECT_EQ(themes(), 0);
}

// As it is the host that opens and closes the theme, it must still find the object there.
TEST_F(ScrollbarDrawTest, ObjectThatTheWindowMadeOutlivesItAndIsTheHosts)
{
    Make(17, 100);
    const HWND hwnd =
        CreateWindowExW(0, L"GScrollbar", L"", WS_CHILD, 0, 0, 17, 100, Parent(), nullptr, nullptr, nullptr);
    auto* pOwn = dynamic_cast<GScrollbar*>(GWnd::FromHwnd(hwnd));
    ASSERT_TRUE(pOwn);
    pOwn->InitScrollBar(10);
    DestroyWindow(hwnd);
    EXPECT_EQ(desk::Live()[desk::Kind::Theme], 2);
    pOwn->UninitScrollBar();
    EXPECT_EQ(desk::Live()[desk::Kind::Theme], 1);
    pOwn->Delete(pOwn);
}

// --- The clock

class ScrollbarClockTest : public ScrollbarDrawTest
{
protected:
    void SetUp() override
    {
        bar.Create(100, 20, 17, BAR_HEIGHT, Parent(), 5, 0, WS_CHILD | WS_VISIBLE);
        bar.InitScrollBar(0);
        bar.ScrSetTotalHeight(2 * BAR_HEIGHT);
        bar.SetScrollPos(BAR_HEIGHT / 2);
        desk::Pump();
        TheHost().TakeReports();
    }
    void MoveTo(int y) { PointAt(bar, 5, y); }
    void PressAt(int y)
    {
        MoveTo(y);
        PressThere();
    }
    static void Release() { ReleaseThere(); }
    static int Timers() { return desk::Live()[desk::Kind::Timer]; }
    size_t CountAfter(DWORD dwMilliseconds)
    {
        desk::Advance(dwMilliseconds);
        return TheHost().TakeReports().size();
    }
};

TEST_F(ScrollbarClockTest, HeldArrowRepeatsAfterHalfASecondAndThenTenTimesASecond)
{
    desk::SetKeyboardRepeat(3, 31); // of no account here
    PressAt(5);
    EXPECT_EQ(TheHost().TakeReports(), Reports{"lineup 5"}) << "at once";
    EXPECT_EQ(CountAfter(500), 0u);
    EXPECT_EQ(CountAfter(99), 0u);
    EXPECT_EQ(CountAfter(1), 1u);
    EXPECT_EQ(CountAfter(300), 3u);
    Release();
    EXPECT_EQ(CountAfter(2000), 0u);
    EXPECT_EQ(Timers(), 0);
}

TEST_F(ScrollbarClockTest, RepeatPausesWhileThePointerIsOffThePart)
{
    PressAt(210);
    EXPECT_EQ(TheHost().TakeReports(), Reports{"pagedown 5"});
    MoveTo(100);
    EXPECT_EQ(CountAfter(1000), 0u);
    MoveTo(212);
    EXPECT_EQ(CountAfter(100), 1u);
    bar.SetScrollPos(BAR_HEIGHT); // brings the thumb under the pointer
    EXPECT_EQ(CountAfter(300), 0u);
    Release();
}

TEST_F(ScrollbarClockTest, ThumbHasNoTimer)
{
    PressAt(100);
    EXPECT_EQ(Timers(), 0);
    MoveTo(110);
    EXPECT_EQ(TheHost().TakeReports(), Reports{"thumbtrack 5 at 140"});
    Release();
}

TEST_F(ScrollbarClockTest, ANewWindowOfTheSameBarHasItsPointerAndNoFormerPress)
{
    PressAt(5);
    DestroyWindow(bar);
    EXPECT_EQ(Timers(), 0);
    Release();
    bar.Create(100, 20, 17, BAR_HEIGHT, Parent(), 5, 0, WS_CHILD | WS_VISIBLE);
    TheHost().TakeReports();
    MoveTo(5);
    EXPECT_EQ(CountAfter(1000), 0u);
    EXPECT_EQ(Draw(bar, "DrawThemeBackground SCROLLBAR 1 2").size(), 1u) << "hot, not pressed";
    PointAt(bar, -20, 5);
    EXPECT_EQ(Draw(bar, "DrawThemeBackground SCROLLBAR 1 4").size(), 1u) << "it hears of the pointer leaving";
}

TEST_F(ScrollbarClockTest, ParentMayDestroyTheBarWhileItRepeats)
{
    for (const bool fObjectToo : {false, true}) {
        auto* pDoomed = new GScrollbar;
        const HWND hwnd = pDoomed->Create(200, 20, 17, BAR_HEIGHT, Parent(), 33, 0, WS_CHILD | WS_VISIBLE);
        PointAt(hwnd, 5, 5);
        PressThere();
        TheHost().onReport = [&](const std::string&) {
            TheHost().onReport = nullptr;
            DestroyWindow(hwnd);
            if (fObjectToo) {
                pDoomed->Delete(pDoomed);
            }
        };
        desk::Advance(1000);
        EXPECT_FALSE(IsWindow(hwnd));
        EXPECT_EQ(Timers(), 0) << "nothing repeats for a window that is gone";
        if (!fObjectToo) {
            pDoomed->Delete(pDoomed);
        }
        Release();
        TheHost().TakeReports();
    }
}

TEST_F(ScrollbarClockTest, ObjectThatGoesBeforeItsWindowStopsItsTimer)
{
    auto* pDoomed = new GScrollbar;
    const HWND hwnd = pDoomed->Create(200, 20, 17, BAR_HEIGHT, Parent(), 33, 0, WS_CHILD | WS_VISIBLE);
    SendMessageW(hwnd, WM_LBUTTONDOWN, 0, MAKELPARAM(5, 5));
    SendMessageW(hwnd, WM_MOUSEMOVE, 0, MAKELPARAM(5, 5));
    pDoomed->Delete(pDoomed);
    EXPECT_EQ(Timers(), 0);
    desk::Advance(1000);
    TheHost().TakeReports();
    ProbeScrollbar::LateTimer(); // was waiting in the queue already
    EXPECT_EQ(TheHost().TakeReports(), Reports{});
    DestroyWindow(hwnd);
}

} // namespace
