// Windows: which messages they get while they come, change and go.
#include "../support/Numbers.h"
#include "../support/TestWindow.h"

#include <climits>

using namespace test;

namespace {

using WindowTest = WindowsTest;

// What paints come with, at times that the platforms choose.
const std::initializer_list<UINT> PAINT_MESSAGES = {WM_NCPAINT, WM_ERASEBKGND, WM_GETTEXT};

TEST_F(WindowTest, CreationSendsWhatThePlatformSendsInItsOrder)
{
    const HWND parent = MakeTop();
    struct Case
    {
        const char* what;
        Options options;
        const char* messages;
    };
    const Case cases[] = {
        {"hidden overlapped",
         {.style = WS_OVERLAPPEDWINDOW},
         "WM_GETMINMAXINFO, WM_NCCREATE, WM_NCCALCSIZE, WM_CREATE"},
        {"hidden popup", {.style = WS_POPUP}, "WM_NCCREATE, WM_NCCALCSIZE, WM_CREATE, WM_SIZE, WM_MOVE"},
        {"visible overlapped",
         {.style = WS_OVERLAPPEDWINDOW | WS_VISIBLE},
         "WM_GETMINMAXINFO, WM_NCCREATE, WM_NCCALCSIZE, WM_CREATE, WM_SHOWWINDOW, WM_WINDOWPOSCHANGING, "
         "WM_NCACTIVATE, WM_ACTIVATE, WM_SETFOCUS, WM_WINDOWPOSCHANGED, WM_SIZE, WM_MOVE"},
        {"hidden child",
         {.style = WS_CHILD, .parent = parent},
         "WM_NCCREATE, WM_NCCALCSIZE, WM_CREATE, WM_SIZE, WM_MOVE, WM_PARENTNOTIFY"},
        {"visible child",
         {.style = WS_CHILD | WS_VISIBLE, .parent = parent},
         "WM_NCCREATE, WM_NCCALCSIZE, WM_CREATE, WM_SIZE, WM_MOVE, WM_PARENTNOTIFY, WM_SHOWWINDOW, "
         "WM_WINDOWPOSCHANGING, WM_WINDOWPOSCHANGED"},
    };
    for (const Case& c : cases) {
        SetActiveWindow(parent);
        HWND hwnd = nullptr;
        auto trace = Traced([&] { hwnd = Make(c.options); });
        // Of the former window's messages only the parent's notification belongs here.
        std::erase_if(trace, [&](const Seen& m) { return m.hwnd != hwnd && m.message != WM_PARENTNOTIFY; });
        EXPECT_EQ(Names(trace, PAINT_MESSAGES), c.messages) << c.what;
        DestroyWindow(hwnd);
    }
}

TEST_F(WindowTest, DestructionGoesFromParentToChildrenAndBack)
{
    const HWND top = MakeTop();
    const HWND child = MakeChild(top, {0, 0, 100, 100});
    const HWND grandchild = MakeChild(child, {0, 0, 50, 50});
    const auto trace = Traced([&] { DestroyWindow(top); });
    EXPECT_EQ(Names(trace, {{top, 't'}, {child, 'c'}, {grandchild, 'g'}},
                    {WM_DESTROY, WM_NCDESTROY, WM_SHOWWINDOW}),
              "t:WM_DESTROY, c:WM_DESTROY, g:WM_DESTROY, g:WM_NCDESTROY, c:WM_NCDESTROY, t:WM_NCDESTROY");
    EXPECT_FALSE(IsWindow(top) || IsWindow(child) || IsWindow(grandchild));
}

TEST_F(WindowTest, DestroyingAChildTellsTheParentAndHidesItFirst)
{
    const HWND top = MakeTop();
    const HWND child = MakeChild(top, {0, 0, 100, 100});
    SetFocus(child);
    const auto trace = Traced([&] { DestroyWindow(child); });
    EXPECT_EQ(
        Names(trace, {{top, 't'}, {child, 'c'}},
              {WM_PARENTNOTIFY, WM_SHOWWINDOW, WM_KILLFOCUS, WM_SETFOCUS, WM_DESTROY, WM_NCDESTROY}),
        "t:WM_PARENTNOTIFY, c:WM_SHOWWINDOW, c:WM_KILLFOCUS, t:WM_SETFOCUS, c:WM_DESTROY, c:WM_NCDESTROY");
    EXPECT_EQ(GetFocus(), top);
}

TEST_F(WindowTest, ExtraBytesEndWhereTheClassEndsThem)
{
    const HWND hwnd = MakeTop();
    EXPECT_EQ(SetWindowLongPtrW(hwnd, 0, 0x123456789ABCDEF0), 0);
    EXPECT_EQ(SetWindowLongW(hwnd, 8, 7), 0);
    EXPECT_EQ(GetWindowLongPtrW(hwnd, 0), 0x123456789ABCDEF0);
    EXPECT_EQ(GetWindowLongW(hwnd, 8), 7);
    SetLastError(0);
    EXPECT_EQ(SetWindowLongPtrW(hwnd, 8, 1), 0); // twelve bytes have no pointer at eight
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INVALID_INDEX});
    EXPECT_EQ(GetWindowLongW(hwnd, 8), 7);
}

TEST_F(WindowTest, AStyleChangesBetweenItsTwoMessagesAndTheFirstMayAlterIt)
{
    const HWND hwnd =
        Make({.style = WS_POPUP}, [](HWND, UINT message, WPARAM, LPARAM lParam) -> std::optional<LRESULT> {
            if (message == WM_STYLECHANGING) {
                reinterpret_cast<STYLESTRUCT*>(lParam)->styleNew |= 0x10;
                return 0;
            }
            return std::nullopt;
        });
    const auto former = GetWindowLongW(hwnd, GWL_STYLE);
    const auto trace = Traced([&] { EXPECT_EQ(SetWindowLongA(hwnd, GWL_STYLE, former | 0x1), former); });
    EXPECT_EQ(Names(trace), "WM_STYLECHANGING, WM_STYLECHANGED");
    EXPECT_EQ(GetWindowLongW(hwnd, GWL_STYLE), former | 0x11);
}

TEST_F(WindowTest, MovingAndSizingReportJustWhatChanged)
{
    const HWND top = MakeTop();
    const HWND child = MakeChild(top, {10, 20, 110, 70});
    const auto change = [&](int x, int y, int cx, int cy, UINT flags) {
        return Names(
            Traced([&] { SetWindowPos(child, nullptr, x, y, cx, cy, flags | SWP_NOZORDER | SWP_NOACTIVATE); },
                   child),
            PAINT_MESSAGES);
    };
    EXPECT_EQ(change(10, 20, 100, 50, 0), "WM_WINDOWPOSCHANGING");
    EXPECT_EQ(change(11, 22, 0, 0, SWP_NOSIZE), "WM_WINDOWPOSCHANGING, WM_WINDOWPOSCHANGED, WM_MOVE");
    EXPECT_EQ(change(0, 0, 90, 40, SWP_NOMOVE),
              "WM_WINDOWPOSCHANGING, WM_NCCALCSIZE, WM_WINDOWPOSCHANGED, WM_SIZE");
    EXPECT_EQ(change(0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_FRAMECHANGED),
              "WM_WINDOWPOSCHANGING, WM_NCCALCSIZE, WM_WINDOWPOSCHANGED");
    EXPECT_EQ(Numbers(PlaceIn(nullptr, child)), "11,22,101,62");
}

TEST_F(WindowTest, ChildrenMoveWithTheirParentsClientArea)
{
    const HWND top = MakeTop({100, 100, 400, 300});
    const HWND child = MakeChild(top, {10, 10, 60, 60});
    const HWND inner = MakeChild(child, {5, 5, 20, 20});
    MoveWindow(top, 120, 90, 300, 200, TRUE);
    POINT p{};
    ClientToScreen(inner, &p);
    EXPECT_EQ(Numbers(p), "135,105");
    MapWindowPoints(nullptr, top, &p, 1);
    EXPECT_EQ(Numbers(p), "15,15");
}

TEST_F(WindowTest, TheFrameTakesItsRoomOffTheClientArea)
{
    const HWND bordered = Make({.style = WS_POPUP | WS_BORDER | WS_VSCROLL, .place = {0, 0, 100, 100}});
    EXPECT_EQ(Numbers(ClientSize(bordered)),
              Numbers(100 - 2 * GetSystemMetrics(SM_CXBORDER) - GetSystemMetrics(SM_CXVSCROLL),
                      100 - 2 * GetSystemMetrics(SM_CYBORDER)));

    RECT wanted = {0, 0, 200, 100};
    AdjustWindowRectEx(&wanted, WS_OVERLAPPEDWINDOW, FALSE, 0);
    const HWND framed = Make({.place = {0, 0, wanted.right - wanted.left, wanted.bottom - wanted.top}});
    EXPECT_EQ(Numbers(ClientSize(framed)), "200,100");
}

TEST_F(WindowTest, PlatformScrollBarsComeAndGoWithTheirRange)
{
    const HWND hwnd = Make({.style = WS_POPUP | WS_VISIBLE | WS_VSCROLL, .place = {0, 0, 100, 100}});
    const auto set = [&](int max, UINT page, UINT more) {
        const SCROLLINFO info{sizeof(info), SIF_RANGE | SIF_PAGE | more, 0, max, page, 0, 0};
        return Names(Traced([&] { SetScrollInfo(hwnd, SB_VERT, &info, FALSE); }, hwnd), PAINT_MESSAGES);
    };
    EXPECT_EQ(set(99, 10, 0), "");
    EXPECT_EQ(set(9, 10, 0), "WM_WINDOWPOSCHANGING, WM_NCCALCSIZE, WM_WINDOWPOSCHANGED, WM_SIZE");
    EXPECT_EQ(GetWindowLongW(hwnd, GWL_STYLE) & WS_VSCROLL, 0);
    EXPECT_NE(set(99, 10, 0), "");
    EXPECT_NE(GetWindowLongW(hwnd, GWL_STYLE) & WS_VSCROLL, 0);
    EXPECT_EQ(set(9, 10, SIF_DISABLENOSCROLL), "");

    SCROLLINFO info{sizeof(info), SIF_ALL, 0, 0, 0, 0, 0};
    set(50, 10, 0);
    SetScrollPos(hwnd, SB_VERT, 1000, FALSE);
    EXPECT_TRUE(GetScrollInfo(hwnd, SB_VERT, &info));
    EXPECT_EQ(info.nPos, 41);
    EXPECT_TRUE(GetScrollInfo(hwnd, SB_HORZ, &info));
    EXPECT_FALSE(GetScrollInfo(MakeTop(), SB_HORZ, &info)); // neither of its bars was ever set
}

TEST_F(WindowTest, ScrollBarsBearTheEndsOfTheNumbers)
{
    const HWND hwnd = Make({.style = WS_POPUP | WS_VISIBLE});
    const auto set = [&](int min, int max, UINT page, int position) {
        SCROLLINFO info{sizeof(info), SIF_ALL, min, max, page, position, 0};
        EXPECT_EQ(SetScrollInfo(hwnd, SB_VERT, &info, FALSE), position);
        EXPECT_TRUE(GetScrollInfo(hwnd, SB_VERT, &info));
        return std::to_string(info.nMin) + " " + std::to_string(info.nMax) + " " + std::to_string(info.nPage);
    };
    EXPECT_EQ(set(0, INT_MAX, 0x80000000U, INT_MAX), "0 2147483647 0");
    EXPECT_EQ(set(0, 10, UINT_MAX, 5), "0 10 0") << "below zero, as a signed number";
    EXPECT_EQ(set(INT_MIN, -2, INT_MAX, INT_MIN), "-2147483648 -2 2147483647");
    EXPECT_EQ(set(INT_MIN, INT_MIN, 5, INT_MIN), "-2147483648 -2147483648 1");
}

TEST_F(WindowTest, PlacesAreAskedForInSixteenBitsAndPointsGoRound)
{
    const HWND top = MakeTop({10, 10, 110, 110});
    const HWND child = MakeChild(top, {0, 0, 10, 10});
    MoveWindow(child, INT_MIN, INT_MAX, INT_MIN, INT_MAX, FALSE);
    EXPECT_EQ(Numbers(PlaceIn(top, child)), "-32768,32767,-32768,65534");
    POINT point = {INT_MAX, INT_MIN};
    MapWindowPoints(top, nullptr, &point, 1);
    EXPECT_EQ(Numbers(point.x, point.y), "-2147483639,-2147483638");
    point = {INT_MIN, INT_MAX};
    ScreenToClient(top, &point);
    EXPECT_EQ(Numbers(point.x, point.y), "2147483638,2147483637");
    const HWND remote = Make({.style = WS_CHILD, .place = {INT_MAX - 50, 0, INT_MAX, 50}, .parent = top});
    EXPECT_TRUE(DestroyWindow(remote)) << "wherever it is";
}

TEST_F(WindowTest, RelationsTellParentsFromOwners)
{
    const HWND top = MakeTop();
    const HWND child = MakeChild(top, {0, 0, 10, 10});
    const HWND second = MakeChild(top, {20, 0, 30, 10});
    const HWND popup = Make({.style = WS_POPUP, .parent = child});
    EXPECT_EQ(GetParent(child), top);
    EXPECT_EQ(GetParent(popup), top); // a popup is owned by the child's top-level window
    EXPECT_EQ(GetAncestor(popup, GA_PARENT), GetDesktopWindow());
    EXPECT_EQ(GetAncestor(child, GA_ROOT), top);
    EXPECT_TRUE(IsChild(top, child));
    EXPECT_FALSE(IsChild(top, popup));
    EXPECT_EQ(GetWindow(top, GW_CHILD), child);
    EXPECT_EQ(GetWindow(child, GW_HWNDNEXT), second);
    SetParent(second, child);
    EXPECT_EQ(GetParent(second), child);
    DestroyWindow(top);
    EXPECT_FALSE(IsWindow(popup)); // the owned go with their owner
}

TEST_F(WindowTest, DefaultTextIsKeptAndCutToTheBuffer)
{
    const HWND hwnd = Make({.style = WS_POPUP, .text = L"Gesso"});
    wchar_t buffer[4];
    EXPECT_EQ(GetWindowTextLengthW(hwnd), 5);
    EXPECT_EQ(GetWindowTextW(hwnd, buffer, 4), 3);
    EXPECT_EQ(std::memcmp(buffer, L"Ges", sizeof(buffer)), 0);
}

} // namespace
