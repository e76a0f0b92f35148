// The scroll bars in the non-client area: their numbers, their place, and what the mouse and the clock do to
// them.

#include "../../support/Interception.h"
#include "../../support/WithBehavior.h"
#include "../controls/DrawFixture.h"
#include "ScrollProbe.h"

namespace {

using namespace test;

constexpr int CX = 200, CY = 150; // of the probe
constexpr int BAR = 17;           // thickness and arrow length

class GWndScrollTest : public DrawFixture
{
protected:
    void SetUp() override
    {
        for (const int nMetric :
             {SM_CXVSCROLL, SM_CYHSCROLL, SM_CYVSCROLL, SM_CXHSCROLL, SM_CYVTHUMB, SM_CXHTHUMB}) {
            desk::SetSystemMetric(nMetric, BAR);
        }
        desk::SetKeyboardRepeat(1, 31);
    }
    void TearDown() override
    {
        DestroyWindow(probe);
        DrawFixture::TearDown();
    }

    void MakeVertical()
    {
        probe.Create(Parent(), WS_VSCROLL);
        probe.ShowRange(SB_VERT);
        desk::Pump();
    }

    // A point of the one control, counted from its left top.
    void MoveTo(int x, int y) { PointAt(GetWindow(Parent(), GW_CHILD), x, y); }

    Lines ScrollsAt(int x, int y)
    {
        MoveTo(x, y);
        return probe.TakeScrolls();
    }

    ScrollProbe probe;
};

TEST_F(GWndScrollTest, NumbersAreLimitedToTheRange)
{
    probe.Create(Parent(), WS_VSCROLL);
    const auto set = [&](UINT fMask, int nMin, int nMax, UINT nPage, int nPos) {
        const SCROLLINFO si{sizeof(SCROLLINFO), fMask, nMin, nMax, nPage, nPos, 0};
        return probe.SetScrollInfo(SB_VERT, &si, FALSE);
    };
    EXPECT_TRUE(probe.GetScrollBarStyle(SB_VERT) & GSB_HIDDEN) << "bars start hidden";
    EXPECT_EQ(set(SIF_ALL, 0, 99, 10, 500), 90) << "nMax - nPage + 1";
    EXPECT_FALSE(probe.GetScrollBarStyle(SB_VERT) & GSB_HIDDEN) << "setting a range shows the bar";
    EXPECT_EQ(set(SIF_POS, 0, 0, 0, -5), 0);
    EXPECT_EQ(set(SIF_RANGE, 20, 30, 0, 0), 20);
    EXPECT_EQ(set(SIF_PAGE, 0, 0, 77, 0), 20);
    SCROLLINFO si{};
    EXPECT_EQ(probe.GetScrollInfo(SB_VERT, &si), 0) << "no size";
    si.cbSize = sizeof(si);
    ASSERT_EQ(probe.GetScrollInfo(SB_VERT, &si), 1);
    EXPECT_EQ(si.nPage, 10u) << "the page is cut to the range";
    EXPECT_EQ(si.fMask, static_cast<UINT>(SIF_RANGE | SIF_PAGE | SIF_POS | SIF_TRACKPOS));
    EXPECT_EQ(probe.SetScrollPos(SB_VERT, 25, FALSE), 21);
    EXPECT_EQ(probe.GetScrollPos(SB_VERT), 21);

    for (const int nBar : {-1, 2, 77}) {
        EXPECT_EQ(probe.SetScrollInfo(nBar, &si, TRUE), 0);
        EXPECT_EQ(probe.SetScrollPos(nBar, 1, TRUE), static_cast<int>(0x80000000));
        EXPECT_EQ(probe.GetScrollPos(nBar), static_cast<int>(0x80000000));
        EXPECT_EQ(probe.GetScrollInfo(nBar, &si), 0);
        EXPECT_EQ(probe.ShowScrollBar(nBar, 1), 0);
        EXPECT_EQ(probe.EnableScrollBar(nBar, 3), 0);
        EXPECT_EQ(probe.GetScrollBarStyle(nBar), static_cast<UINT>(-1));
    }
}

TEST_F(GWndScrollTest, BarsTakeTheirRoomAndGiveItBack)
{
    probe.Create(Parent(), WS_VSCROLL | WS_HSCROLL);
    const auto client = [this] { return Numbers(ClientSize(probe)); };
    EXPECT_EQ(client(), Numbers(CX, CY));
    probe.ShowRange(SB_VERT);
    probe.ShowRange(SB_HORZ);
    EXPECT_EQ(client(), Numbers(CX - BAR, CY - BAR));
    EXPECT_EQ(Numbers(probe.VRect()), Numbers({CX - BAR, 0, CX, CY - BAR})) << "the corner stays empty";
    probe.ShowScrollBar(SB_HORZ, 0);
    EXPECT_EQ(client(), Numbers(CX - BAR, CY));
    RECT rc{};
    probe.GetClientRectNoScroll(&rc);
    EXPECT_EQ(Numbers(rc.right, rc.bottom), Numbers(CX - BAR, CY + BAR));
    probe.ShowScrollBar(SB_VERT, 0);
    probe.GetClientRectNoScroll(&rc);
    EXPECT_EQ(Numbers(rc.right, rc.bottom), Numbers(CX + BAR, CY + BAR));
}

TEST_F(GWndScrollTest, FlippedBarsLieAtTheOppositeEdges)
{
    probe.Create(Parent(), WS_VSCROLL | WS_HSCROLL | GSS_FLIPHORZ | GSS_FLIPVERT);
    probe.ShowRange(SB_VERT);
    probe.ShowRange(SB_HORZ);
    EXPECT_EQ(Numbers(ClientSize(probe)), Numbers(CX - BAR, CY - BAR));
    EXPECT_EQ(Numbers(probe.VRect()), Numbers({BAR, BAR, 2 * BAR, CY}));
    EXPECT_EQ(Numbers(probe.m_rcHScroll), Numbers({BAR, BAR, CX, 2 * BAR}));
}

TEST_F(GWndScrollTest, PointsBesideTheClientAreaBelongToABarOrToTheBorder)
{
    probe.Create(Parent(), WS_VSCROLL | WS_HSCROLL);
    probe.ShowRange(SB_VERT);
    probe.ShowRange(SB_HORZ);
    desk::Pump();
    const std::tuple<int, int, LRESULT> rows[] = {
        {CX - BAR, CY - BAR, HTCLIENT}, {CX - 5, 20, HTVSCROLL}, {20, CY - 5, HTHSCROLL}, {CX, CY, HTSIZE},
        {CX + 1, CY, HTBORDER},         {-1, CY - 5, HTBORDER},  {CX, CY + 1, HTBORDER},  {-1, 20, HTBORDER},
        {CX - 5, CY - 5, HTVSCROLL}};
    for (const auto& [x, y, nPart] : rows) {
        POINT pt{x, y};
        ClientToScreen(probe, &pt);
        EXPECT_EQ(SendMessageW(probe, WM_NCHITTEST, 0, MAKELPARAM(pt.x, pt.y)), nPart) << x << " " << y;
    }
}

TEST_F(GWndScrollTest, BothBarsAreSetAtOnceAndDrawnOrLaidOutAnew)
{
    probe.Create(Parent(), WS_VSCROLL | WS_HSCROLL);
    SCROLLINFO si{sizeof(SCROLLINFO), SIF_RANGE | SIF_PAGE | SIF_POS, 0, 99, 10, 20, 0};
    const SCROLLINFO siH{sizeof(SCROLLINFO), SIF_RANGE | SIF_PAGE | SIF_POS, 0, 9, 1, 3, 0};
    desk::Pump();
    probe.SetScrollInfo(&siH, &si, TRUE);
    EXPECT_TRUE(GetUpdateRect(probe, nullptr, FALSE)) << "bars have come";
    EXPECT_EQ(Numbers(probe.GetScrollPos(SB_HORZ), probe.GetScrollPos(SB_VERT)), Numbers(3, 20));
    desk::Pump();
    desk::ClearDrawing(probe);
    probe.SetScrollInfo(&siH, &si, TRUE);
    EXPECT_FALSE(GetUpdateRect(probe, nullptr, FALSE));
    EXPECT_TRUE(AnyStartsWith(desk::Drawing(probe), "DrawThemeBackground SCROLLBAR 2 "));
    EXPECT_TRUE(AnyStartsWith(desk::Drawing(probe), "DrawThemeBackground SCROLLBAR 3 "));

    si.nPos = 30;
    desk::ClearDrawing(probe);
    probe.SetScrollInfo(&siH, &si, FALSE);
    EXPECT_EQ(probe.GetScrollPos(SB_VERT), 30);
    probe.SetScrollPos(SB_VERT, 31, FALSE);
    EXPECT_EQ(desk::Drawing(probe), Lines{});
    probe.SetScrollPos(SB_VERT, 30, TRUE);
    EXPECT_TRUE(AnyStartsWith(desk::Drawing(probe), "DrawThemeBackground SCROLLBAR 3 "));
    desk::ClearDrawing(probe);
    EXPECT_EQ(probe.GetScrollBarStyle(SB_HORZ), 0u);

    EXPECT_EQ(probe.SetScrollBarStyle(2, 0), static_cast<UINT>(-1));
    EXPECT_EQ(probe.GetScrollInfo(SB_VERT, nullptr), 0);
    EXPECT_EQ(probe.SetScrollInfo(SB_VERT, nullptr, TRUE), 0);
    ASSERT_EQ(probe.GetScrollInfo(SB_HORZ, &si), 1);
    EXPECT_EQ(si.nMax, 9);
    // Of a derived class that writes the record itself.
    for (const auto& [fMask, dwFlag] :
         {std::pair(SIF_POS, GSB_HIDDEN), {SIF_POS | SIF_DISABLENOSCROLL, GSB_DISABLED}})
    {
        probe.m_siV.nPage = 1000;
        si.fMask = static_cast<UINT>(fMask);
        probe.GWndScroll::SetScrollInfo(SB_VERT, &si, FALSE);
        EXPECT_TRUE(probe.GetScrollBarStyle(SB_VERT) & dwFlag);
    }
    si.cbSize = 1;
    EXPECT_EQ(probe.SetScrollInfo(SB_VERT, &si, TRUE), 0);
}

TEST_F(GWndScrollTest, EachPartIsHitAndItsFlagMakesItInactive)
{
    MakeVertical();
    // The track is 116 long, less the 5 that the thumb was enlarged by to its smallest length of 17.
    const int x = CX - BAR / 2;
    const std::tuple<int, WORD, UINT> rows[] = {{0, SBH_UP, GSB_DISABLE_FIRST},
                                                {BAR, SBH_VTHUMB, GSB_DISABLE_THUMB},
                                                {BAR + 17, SBH_VTHUMB, GSB_DISABLE_THUMB},
                                                {BAR + 18, SBH_BELOW, GSB_DISABLE_PAGELAST},
                                                {CY - BAR, SBH_BELOW, GSB_DISABLE_PAGELAST},
                                                {CY - 1, SBH_DOWN, GSB_DISABLE_LAST}};
    for (const auto& [y, wHit, uFlag] : rows) {
        EXPECT_EQ(probe.HitAt(x, y), wHit) << y;
        const UINT uFormer = probe.SetScrollBarStyle(SB_VERT, uFlag);
        EXPECT_EQ(probe.HitAt(x, y), 0) << y;
        probe.SetScrollBarStyle(SB_VERT, uFormer);
    }
    probe.SetScrollPos(SB_VERT, 50, FALSE);
    EXPECT_EQ(probe.HitAt(x, BAR + 5), SBH_ABOVE);
    EXPECT_EQ(probe.HitAt(10, 10), 0);
    probe.EnableScrollBar(SB_VERT, GSB_DISABLED);
    EXPECT_EQ(probe.HitAt(x, 0), 0);
}

TEST_F(GWndScrollTest, HeldArrowRepeatsByTheKeyboardsDelayAndSpeed)
{
    MakeVertical();
    EXPECT_EQ(ScrollProbe::Delay(), 500u);
    EXPECT_EQ(ScrollProbe::Speed(), 33u);
    MoveTo(CX - 5, CY - 5);
    PressThere();
    EXPECT_EQ(probe.TakeScrolls(), Lines{"V 1"});
    desk::Advance(499);
    EXPECT_EQ(probe.TakeScrolls(), Lines{});
    desk::Advance(100);
    EXPECT_EQ(probe.TakeScrolls().size(), 3u);
    MoveTo(CX - 5, CY - 40);
    desk::Advance(500);
    EXPECT_EQ(probe.TakeScrolls(), Lines{}) << "the pointer left the arrow";
    MoveTo(CX - 5, CY - 5);
    desk::Advance(66);
    EXPECT_EQ(probe.TakeScrolls().size(), 2u) << "and came back";
    ReleaseThere();
    EXPECT_EQ(probe.TakeScrolls(), Lines{"V 8"});
    EXPECT_FALSE(ScrollProbe::Repeats());
    EXPECT_EQ(ScrollProbe::Last(), &probe) << "the static names it until it goes";
    EXPECT_EQ(desk::Live()[desk::Kind::Timer], 0);
}

TEST_F(GWndScrollTest, HorizontalBarRepeatsAndEndsAsVertical)
{
    probe.Create(Parent(), WS_HSCROLL);
    probe.ShowRange(SB_HORZ);
    desk::Pump();
    MoveTo(CX - 5, CY - 5);
    PressThere();
    EXPECT_EQ(probe.TakeScrolls(), Lines{"H 1"});
    desk::Advance(540);
    EXPECT_EQ(probe.TakeScrolls(), Lines{"V 1"}) << "kept so";
    ReleaseThere();
    EXPECT_EQ(probe.TakeScrolls(), Lines{"V 8"});
}

TEST_F(GWndScrollTest, ThumbIsDraggedAndLetGo)
{
    MakeVertical();
    probe.fFollow = false;
    MoveTo(CX - 5, BAR + 5);
    PressThere();
    EXPECT_EQ(probe.TakeScrolls(), Lines{});
    EXPECT_FALSE(ScrollProbe::Repeats());
    EXPECT_EQ(ScrollsAt(CX - 5, BAR + 5 + 56), Lines{"V 5:50"}) << "56 of 111 pixels: half of the 99";
    EXPECT_EQ(ScrollsAt(CX - 5, 1000), Lines{"V 5:90"});
    EXPECT_EQ(ScrollsAt(CX - 5, -1000), Lines{"V 5:0"});
    EXPECT_EQ(ScrollsAt(CX - 5, BAR + 5 + 11), Lines{"V 5:10"});
    ReleaseThere();
    EXPECT_EQ(probe.TakeScrolls(), (Lines{"V 4:10", "V 8"}));
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(GWndScrollTest, IdleArrowsLookDisabledAndComeUpUnderThePointer)
{
    MakeVertical();
    const auto arrowsAt = [&](int x, int y) {
        MoveTo(x, y);
        desk::ClearDrawing(probe);
        probe.DrawScrollBar(SB_VERT);
        const std::string start = "DrawThemeBackground SCROLLBAR 1 ";
        std::string states;
        for (const std::string& line : desk::Drawing(probe)) {
            if (line.starts_with(start)) {
                states += line.substr(start.size(), line.find(" (") - start.size()) + " ";
            }
        }
        return states;
    };
    EXPECT_EQ(arrowsAt(20, 20), "4 8 ");
    EXPECT_EQ(arrowsAt(CX - 5, 60), "17 18 ") << "hover";
    EXPECT_EQ(arrowsAt(CX - 5, 5), "2 18 ");
    PressThere();
    EXPECT_EQ(arrowsAt(CX - 5, 5), "3 18 ");
    EXPECT_EQ(arrowsAt(CX - 5, 60), "2 18 ") << "still held, from outside";
    ReleaseThere();
    MoveTo(-10, -10);
    EXPECT_EQ(arrowsAt(20, 20), "4 8 ");
}

TEST_F(GWndScrollTest, FrameIsPaintedWholeWithoutARegionAndWithinOne)
{
    MakeVertical();
    SendMessageW(probe, WM_NCPAINT, 0, 0);
    EXPECT_TRUE(desk::Drawing(probe).back().ends_with(" clip=(183,0,200,150) nonclient"));
    RECT rc{};
    GetWindowRect(probe, &rc);
    const HRGN hRegion = CreateRectRgn(rc.left, rc.top, rc.right, rc.top + 40);
    SendMessageW(probe, WM_NCPAINT, reinterpret_cast<WPARAM>(hRegion), 0);
    EXPECT_TRUE(desk::Drawing(probe).back().ends_with(" clip=(183,0,200,40) nonclient"));
    EXPECT_TRUE(DeleteObject(hRegion)) << "it stays the platform's";
}

// As when a message box comes up: the button is let go where the control does not see it.
TEST_F(GWndScrollTest, PressThatLosesItsCaptureScrollsNoMore)
{
    MakeVertical();
    const auto loseCapture = [this] {
        SetCapture(Parent());
        ReleaseThere();
        ReleaseCapture();
    };
    MoveTo(CX - 5, CY - 5);
    PressThere();
    probe.TakeScrolls();
    loseCapture();
    desk::Advance(2000);
    EXPECT_EQ(probe.TakeScrolls(), Lines{});
    EXPECT_FALSE(ScrollProbe::Repeats());

    MoveTo(CX - 5, CY - 5);
    PressThere();
    probe.TakeScrolls();
    SetCapture(Parent());
    desk::Advance(2000);
    EXPECT_EQ(probe.TakeScrolls(), Lines{}) << "while the button is still down";
    EXPECT_FALSE(ScrollProbe::Repeats());
    ReleaseThere();
    ReleaseCapture();

    MoveTo(CX - 5, BAR + 5);
    PressThere();
    loseCapture();
    EXPECT_EQ(ScrollsAt(CX - 5, BAR + 40), Lines{}) << "the thumb is not dragged on";
    PressThere();
    EXPECT_EQ(probe.TakeScrolls(), Lines{"V 3"}) << "and the next press is one of its own";
    ReleaseThere();
}

TEST_F(GWndScrollTest, ThumbOfAHugeRangeStopsAtTheEnd)
{
    MakeVertical();
    const SCROLLINFO si{
        sizeof(SCROLLINFO), SIF_RANGE | SIF_PAGE | SIF_POS, 0, 2'000'000'000, 10, 1'500'000'000, 0};
    probe.GWndScroll::SetScrollInfo(SB_VERT, &si, FALSE);
    MoveTo(CX - 5, BAR + 80);
    PressThere();
    MoveTo(CX - 5, BAR + 170);
    SCROLLINFO siNow{};
    siNow.cbSize = sizeof(siNow);
    probe.GetScrollInfo(SB_VERT, &siNow);
    EXPECT_EQ(siNow.nTrackPos, 1'999'999'991);
    ReleaseThere();
}

TEST_F(GWndScrollTest, ControlDestroyedWhileItsArrowIsHeldEndsTheRepeat)
{
    auto pProbe = std::make_unique<ScrollProbe>();
    pProbe->Create(Parent(), WS_VSCROLL);
    pProbe->ShowRange(SB_VERT);
    desk::Pump();
    MoveTo(CX - 5, CY - 5);
    PressThere();
    ASSERT_TRUE(ScrollProbe::Repeats());
    DestroyWindow(*pProbe);
    EXPECT_FALSE(ScrollProbe::Repeats());
    desk::Advance(2000);
    pProbe.reset();
    ScrollProbe::LateTimer(); // of a message that waited: the sanitizers would tell
    EXPECT_FALSE(ScrollProbe::Repeats());
    ReleaseThere();
}

TEST_F(GWndScrollTest, ControlDestroyedByWhoLosesTheCaptureToItIsNotTouchedAgain)
{
    MakeVertical();
    SetCapture(Parent());
    Interception loss(Parent(), WM_CAPTURECHANGED, [this] { DestroyWindow(probe); });
    MoveTo(CX - 5, CY - 5);
    POINT pt{};
    GetCursorPos(&pt);
    SendMessageW(probe, WM_NCLBUTTONDOWN, HTVSCROLL, MAKELPARAM(pt.x, pt.y));
    EXPECT_TRUE(loss.Happened());
    EXPECT_FALSE(ScrollProbe::Repeats());
    EXPECT_TRUE(probe.TakeScrolls().empty());
}

TEST_F(GWndScrollTest, ControlDeletedWithItsCaptureIsNotTouchedAgain)
{
    auto pProbe = std::make_unique<ScrollProbe>();
    const HWND hwnd = pProbe->Create(Parent(), WS_VSCROLL);
    pProbe->ShowRange(SB_VERT);
    desk::Pump();
    MoveTo(CX - 5, BAR + 5);
    PressThere();
    Interception loss(hwnd, WM_CAPTURECHANGED, [&] {
        DestroyWindow(hwnd);
        pProbe.reset();
    });
    ReleaseThere(); // the sanitizers would tell
    EXPECT_TRUE(loss.Happened());
}

TEST_F(GWndScrollTest, DrawingThatFailsLeavesNothingBehind)
{
    MakeVertical();
    const desk::Census before = desk::Live();
    for (const char* operation : {"CreateCompatibleDC", "CreateCompatibleBitmap"}) {
        desk::Fail(operation);
        probe.DrawScrollBar(SB_VERT);
        EXPECT_EQ(desk::Live(), before) << operation;
    }
    for (int nSkip = 0; nSkip < 40; ++nSkip) {
        desk::Fail("SelectObject", 1, ERROR_INVALID_HANDLE, nSkip);
        probe.DrawScrollBar(SB_VERT);
        EXPECT_EQ(desk::Live(), before) << "SelectObject, call " << nSkip;
        desk::ClearFaults();
    }
}

TEST_F(GWndScrollTest, WithoutAWindowNothingHappens)
{
    probe.ShowRange(SB_VERT, 7);
    EXPECT_EQ(probe.GetScrollPos(SB_VERT), 7);
    probe.DrawScrollBar(SB_BOTH);
    const SCROLLINFO si{sizeof(SCROLLINFO), SIF_POS, 0, 0, 0, 8, 0};
    EXPECT_EQ(probe.GWndScroll::SetScrollInfo(SB_VERT, &si, TRUE), 8);
    EXPECT_EQ(desk::Live()[desk::Kind::DeviceContext], 0);
}

// --- Made in Modern

class ModernScrollTest : public GWndScrollTest
{
    const Modern m_modern;
};

TEST_F(ModernScrollTest, ABarAcrossRepeatsAndEndsAcross)
{
    probe.Create(Parent(), WS_HSCROLL);
    probe.ShowRange(SB_HORZ);
    desk::Pump();
    MoveTo(CX - 5, CY - 5);
    PressThere();
    desk::Advance(540);
    ReleaseThere();
    EXPECT_EQ(probe.TakeScrolls(), (Lines{"H 1", "H 1", "H 8"}));
}

TEST_F(ModernScrollTest, BarsAreHitWhereTheyAreDrawn)
{
    probe.Create(Parent(), WS_VSCROLL | WS_HSCROLL);
    probe.ShowRange(SB_VERT);
    probe.ShowRange(SB_HORZ);
    desk::Pump();
    RECT rcWindow{};
    GetWindowRect(probe, &rcWindow);
    const auto hit = [&](int x, int y) {
        return SendMessageW(probe, WM_NCHITTEST, 0, MAKELPARAM(rcWindow.left + x, rcWindow.top + y));
    };
    const RECT rcV = probe.VRect();
    EXPECT_EQ(hit(rcV.left - 1, rcV.top), HTCLIENT);
    EXPECT_EQ(hit(rcV.left, rcV.top), HTVSCROLL);
    EXPECT_EQ(hit(rcV.right - 1, rcV.bottom - 1), HTVSCROLL);
    EXPECT_EQ(hit(rcV.left, rcV.bottom), HTBORDER) << "between the bars";
    EXPECT_EQ(hit(5, probe.m_rcHScroll.top), HTHSCROLL);
    EXPECT_EQ(hit(5, probe.m_rcHScroll.top - 1), HTCLIENT);
    desk::MoveMouse(rcWindow.left + rcV.left, rcWindow.top + rcV.top);
    PressThere();
    ReleaseThere();
    EXPECT_EQ(probe.TakeScrolls(), (Lines{"V 0", "V 8"})) << "its first pixel is the arrow's";
}

} // namespace
