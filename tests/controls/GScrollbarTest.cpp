#include "ProbeScrollbar.h"
#include "Survival.h"

#include <climits>

namespace {

using namespace test;

constexpr int ID = 12;

class GScrollbarTest : public testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(Make(bar, ID)); }
    void TearDown() override
    {
        ReleaseCapture();
        DestroyWindow(bar);
    }

    HWND Make(GScrollbar& any, int nId)
    {
        return any.Create(10, 10, BAR_WIDTH, BAR_HEIGHT, host, nId, 0, WS_CHILD | WS_VISIBLE);
    }
    // A bar at position 0 with half of a total of 468 visible: a thumb of 100, from 17 to 117.
    void ShowHalf()
    {
        bar.InitScrollBar(0);
        bar.ScrSetTotalHeight(2 * BAR_HEIGHT);
    }
    void Mouse(UINT uMsg, int y, int x = 5) { SendMessageW(bar, uMsg, 0, MAKELPARAM(x, y)); }

    Host host;
    ProbeScrollbar bar;
};

TEST_F(GScrollbarTest, InitMakesPageAndTotalEqual)
{
    bar.InitScrollBar(100);
    EXPECT_EQ(bar.ScrGetPageSize(), 100u);
    EXPECT_FALSE(bar.IsScrollable());
    bar.ScrSetTotalHeight(2 * BAR_HEIGHT);
    EXPECT_EQ(bar.ScrGetPageSize(), static_cast<UINT>(BAR_HEIGHT));
    EXPECT_TRUE(bar.IsScrollable());
    bar.SetScrollPos(50);
    bar.ResetScroll();
    EXPECT_EQ(bar.GetScrollPos(), 0u);
}

TEST_F(GScrollbarTest, ThumbIsAsLongAsThePageAndNeverBelow22)
{
    ShowHalf();
    EXPECT_EQ(bar.Thumb(), 100);
    EXPECT_EQ(bar.Track(), 200);
    bar.ScrSetTotalHeight(BAR_HEIGHT * 100);
    EXPECT_EQ(bar.Thumb(), 22);
    EXPECT_EQ(bar.Track(), BAR_HEIGHT - 56 + 2) << "the track gives back what the thumb takes";
    bar.ScrSetTotalHeight(0);
    EXPECT_EQ(bar.Thumb(), 22);
    EXPECT_EQ(bar.Track(), BAR_HEIGHT - 34) << "whole, as before there is a total";
}

TEST_F(GScrollbarTest, PositionIsLimitedAndNotRepainted)
{
    ShowHalf();
    TakeRepaint(bar);
    const auto after = [&](UINT nPos) {
        bar.SetScrollPos(nPos);
        return bar.GetScrollPos();
    };
    EXPECT_EQ(after(100), 100u);
    EXPECT_EQ(after(BAR_HEIGHT), static_cast<UINT>(BAR_HEIGHT));
    EXPECT_EQ(after(BAR_HEIGHT + 1), static_cast<UINT>(BAR_HEIGHT));
    EXPECT_EQ(after(static_cast<UINT>(-5)), 0u) << "negative as a signed number";
    bar.ScrSetTotalHeight(BAR_HEIGHT / 2);
    EXPECT_EQ(after(100), 0u) << "a page above the total";
    EXPECT_FALSE(TakeRepaint(bar));
    EXPECT_EQ(host.TakeReports(), Reports{});
}

TEST_F(GScrollbarTest, PartsOfTheBar)
{
    ShowHalf();
    bar.SetScrollPos(BAR_HEIGHT / 2);
    const std::pair<int, WORD> rows[] = {
        {-1, 0},
        {0, SBH_UP},
        {16, SBH_UP},
        {17, SBH_ABOVE},
        {66, SBH_ABOVE},
        {67, SBH_VTHUMB},
        {167, SBH_VTHUMB} /* the edges are the thumb's */,
        {168, SBH_BELOW},
        {217, SBH_BELOW},
        {218, SBH_DOWN},
        {BAR_HEIGHT, SBH_DOWN},
        {BAR_HEIGHT + 1, 0},
    };
    for (const auto& [y, wHit] : rows) {
        EXPECT_EQ(bar.HitAt(y), wHit) << y;
    }
    EXPECT_EQ(bar.HitAt(5, -1), 0);
    EXPECT_EQ(bar.HitAt(5, BAR_WIDTH), SBH_UP);
    EXPECT_EQ(bar.HitAt(5, BAR_WIDTH + 1), 0);
}

TEST_F(GScrollbarTest, PressesScrollAndTheBarDoesNotMoveByItself)
{
    ShowHalf();
    bar.SetScrollPos(BAR_HEIGHT / 2);
    const auto press = [&](int y) {
        Mouse(WM_LBUTTONDOWN, y);
        EXPECT_EQ(GetCapture(), bar.GetHwnd());
        Mouse(WM_LBUTTONUP, y);
        EXPECT_EQ(GetCapture(), nullptr);
        return host.TakeReports();
    };
    EXPECT_EQ(press(5), Reports{"lineup 12"});
    EXPECT_EQ(press(BAR_HEIGHT - 5), Reports{"linedown 12"});
    EXPECT_EQ(press(20), Reports{"pageup 12"});
    EXPECT_EQ(press(210), Reports{"pagedown 12"});
    EXPECT_EQ(press(100), Reports{}) << "the thumb";
    EXPECT_EQ(press(-5), Reports{}) << "outside";
    EXPECT_EQ(bar.GetScrollPos(), static_cast<UINT>(BAR_HEIGHT / 2));
}

TEST_F(GScrollbarTest, DraggingTheThumbTellsLimitedPositions)
{
    ShowHalf();
    const auto drag = [&](int y) {
        Mouse(WM_MOUSEMOVE, y);
        return host.TakeReports();
    };
    Mouse(WM_LBUTTONDOWN, 50);
    EXPECT_EQ(drag(60), Reports{"thumbtrack 12 at 23"}) << "10 pixels of 200, of a total of 468";
    EXPECT_EQ(drag(59), Reports{"thumbtrack 12 at 21"});
    EXPECT_EQ(drag(40), Reports{"thumbtrack 12 at 0"});
    EXPECT_EQ(drag(900), Reports{"thumbtrack 12 at 234"});
    bar.SetScrollPos(100);
    EXPECT_EQ(drag(60), Reports{"thumbtrack 12 at 23"}) << "from where the drag began";
    Mouse(WM_LBUTTONUP, 60);
    EXPECT_EQ(drag(70), Reports{});
}

// There is no answer to a loss of the capture: a host that takes the capture in a notification would end the
// drag.
TEST_F(GScrollbarTest, CaptureThatGoesElsewhereLeavesTheDragUntilTheRelease)
{
    ShowHalf();
    Mouse(WM_LBUTTONDOWN, 50);
    SetCapture(host);
    Mouse(WM_MOUSEMOVE, 60);
    EXPECT_EQ(host.TakeReports(), Reports{"thumbtrack 12 at 23"});
    Mouse(WM_LBUTTONUP, 60);
    Mouse(WM_MOUSEMOVE, 70);
    EXPECT_EQ(host.TakeReports(), Reports{});
}

TEST_F(GScrollbarTest, PositionsAbove65535LoseTheirHighBitsAndATrackOfNothingDragsNowhere)
{
    bar.InitScrollBar(0);
    bar.ScrSetTotalHeight(1'000'000);
    const auto drag = [&] {
        Mouse(WM_LBUTTONDOWN, 20);
        Mouse(WM_MOUSEMOVE, 900);
        Mouse(WM_LBUTTONUP, 900);
        return host.TakeReports();
    };
    EXPECT_EQ(drag(), Reports{"thumbtrack 12 at " + std::to_string((1'000'000 - BAR_HEIGHT) & 0xFFFF)});
    bar.MoveWindow(10, 10, BAR_WIDTH, 56);
    bar.InitScrollBar(0);
    bar.ScrSetTotalHeight(1'000'000);
    ASSERT_EQ(bar.Track(), 0);
    host.TakeReports();
    EXPECT_EQ(drag(), Reports{"thumbtrack 12 at 0"});
}

TEST_F(GScrollbarTest, SizeThatLeavesThePositionBeyondTheEndAsksForALineDown)
{
    ShowHalf();
    bar.SetScrollPos(BAR_HEIGHT);
    host.TakeReports();
    bar.MoveWindow(10, 10, BAR_WIDTH, BAR_HEIGHT - 10);
    EXPECT_EQ(host.TakeReports(), Reports{}) << "a lower bar shows less";
    bar.MoveWindow(10, 10, BAR_WIDTH, BAR_HEIGHT + 10);
    EXPECT_EQ(host.TakeReports(), Reports{"linedown 12"});
    bar.SetScrollPos(UINT{INT_MAX});
    bar.MoveWindow(10, 10, BAR_WIDTH, 2 * BAR_HEIGHT + 10);
    EXPECT_EQ(host.TakeReports(), Reports{"linedown 12"})
        << "all of it is visible, and the position is not 0";
    bar.SetScrollPos(0);
    bar.MoveWindow(10, 10, BAR_WIDTH, 2 * BAR_HEIGHT + 20);
    EXPECT_EQ(host.TakeReports(), Reports{});
}

TEST_F(GScrollbarTest, PointerRepaintsTheBarWhenItReachesAnotherPart)
{
    ShowHalf();
    const auto repaints = [&](UINT uMsg, int y) {
        TakeRepaint(bar);
        Mouse(uMsg, y);
        return TakeRepaint(bar);
    };
    EXPECT_TRUE(repaints(WM_MOUSEMOVE, 5));
    EXPECT_FALSE(repaints(WM_MOUSEMOVE, 6));
    EXPECT_TRUE(repaints(WM_MOUSEMOVE, 50));
    EXPECT_EQ(bar.HitNow(), SBH_VTHUMB);
    EXPECT_TRUE(repaints(WM_MOUSELEAVE, 0));
    EXPECT_EQ(bar.HitNow(), 0);
    EXPECT_FALSE(bar.State() & GWS_TRACKING) << "so that the next leave is told";
    EXPECT_TRUE(repaints(WM_LBUTTONDOWN, 5));
    EXPECT_TRUE(repaints(WM_LBUTTONUP, 5));
    EXPECT_FALSE(repaints(WM_LBUTTONUP, 5)) << "no press, no repaint";
}

TEST_F(GScrollbarTest, FocusRepaintsTheParent)
{
    TakeRepaint(host);
    SetFocus(bar);
    EXPECT_TRUE(TakeRepaint(host));
    SetFocus(host);
    EXPECT_TRUE(TakeRepaint(host));
    EXPECT_EQ(host.TakeReports(), Reports{});
}

TEST_F(GScrollbarTest, UsableWithoutInitAndInEverySize)
{
    for (const int cy : {BAR_HEIGHT, 57, 56, 55, 34, 17, 1, 0}) {
        bar.MoveWindow(10, 10, BAR_WIDTH, cy);
        for (const UINT nTotal : {0u, 1u, 100u, UINT{INT_MAX}, UINT_MAX}) {
            bar.ScrSetTotalHeight(nTotal);
            EXPECT_GE(bar.Thumb(), 22);
            bar.SetScrollPos(10);
            bar.Invalidate(0);
            UpdateWindow(bar);
            for (int y = -1; y <= cy + 1; y += 7) {
                Mouse(WM_LBUTTONDOWN, y);
                Mouse(WM_MOUSEMOVE, y + 1);
                Mouse(WM_MOUSEMOVE, -32768);
                Mouse(WM_LBUTTONUP, y);
            }
            EXPECT_LE(bar.GetScrollPos(), nTotal);
        }
    }
    GScrollbar none;
    none.ScrSetTotalHeight(100);
    none.SetScrollPos(10);
    EXPECT_EQ(none.Destroy(), 0);
}

TEST_F(GScrollbarTest, ParentMayDestroyTheBarInEveryReport)
{
    const auto expectSurvival = [&](const std::string& report, const std::function<void(HWND)>& act) {
        auto* pDoomed = new GScrollbar;
        Make(*pDoomed, 33);
        pDoomed->InitScrollBar(0);
        pDoomed->ScrSetTotalHeight(2 * BAR_HEIGHT);
        pDoomed->SetScrollPos(BAR_HEIGHT);
        ExpectSurvival(host, report, pDoomed, act);
        DispatchAll();
    };
    const auto press = [](int y) {
        return [y](HWND hwnd) {
            SendMessageW(hwnd, WM_LBUTTONDOWN, 0, MAKELPARAM(5, y));
            SendMessageW(hwnd, WM_MOUSEMOVE, 0, MAKELPARAM(5, y + 1));
        };
    };
    expectSurvival("lineup 33", press(5));
    expectSurvival("thumbtrack 33 at 234", press(150));
    expectSurvival("linedown 33",
                   [](HWND hwnd) { MoveWindow(hwnd, 10, 10, BAR_WIDTH, BAR_HEIGHT + 10, FALSE); });
}

} // namespace
