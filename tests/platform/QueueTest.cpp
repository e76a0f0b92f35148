// The message queue: in which order messages come, and which a loop takes.
#include "../support/TestWindow.h"
#include "../support/User.h"

#include <algorithm>

using namespace test;
using namespace test::user;

namespace {

using QueueTest = WindowsTest;

TEST_F(QueueTest, MessagesComeInTheOrderPostedInputPaintTimer)
{
    MoveMouse(900, 900);
    const HWND top = MakeTop({0, 0, 100, 100});
    Pump();
    SetTimer(top, 1, 10, nullptr);
    auto trace = Traced([top] {
        InvalidateRect(top, nullptr, FALSE);
        TypeKey(VK_LEFT);
        PostMessageW(top, WM_USER, 0, 0);
        Wait(60); // more than one timer message is one here, and a slow machine has its time
        Pump();
    });
    trace.erase(std::unique(trace.begin(), trace.end(),
                            [](const Seen& a, const Seen& b) { return a.message == b.message; }),
                trace.end());
    EXPECT_EQ(Names(trace), "WM_USER, WM_KEYDOWN, WM_KEYUP, WM_PAINT, WM_TIMER");
}

TEST_F(QueueTest, FiltersTakeOnlyTheirOwn)
{
    const HWND top = MakeTop({0, 0, 100, 100});
    const HWND child = MakeChild(top, {0, 0, 10, 10});
    const HWND other = MakeTop({200, 0, 300, 100});
    Pump();
    PostMessageW(other, WM_USER, 0, 0);
    PostMessageW(child, WM_USER + 1, 0, 0);
    PostMessageW(top, WM_USER + 2, 0, 0);
    MSG message{};
    EXPECT_TRUE(PeekMessageW(&message, top, 0, 0, PM_NOREMOVE));
    EXPECT_EQ(message.hwnd, child);
    EXPECT_TRUE(PeekMessageW(&message, nullptr, WM_USER + 2, WM_USER + 2, PM_REMOVE));
    EXPECT_EQ(message.hwnd, top);
    EXPECT_FALSE(PeekMessageW(&message, top, WM_USER, WM_USER, PM_REMOVE));
    DestroyWindow(child);
    EXPECT_FALSE(PeekMessageW(&message, top, WM_USER, WM_USER + 2, PM_REMOVE)); // its message went with it
    EXPECT_TRUE(PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(message.hwnd, other);
}

TEST_F(QueueTest, QuitComesAfterWhatIsPosted)
{
    const HWND top = MakeTop();
    Pump();
    PostQuitMessage(5);
    PostMessageW(top, WM_USER, 0, 0);
    const auto trace = Traced([] { EXPECT_FALSE(Pump()); }, top);
    EXPECT_EQ(Names(trace), "WM_USER");
    EXPECT_TRUE(Pump());
}

} // namespace
