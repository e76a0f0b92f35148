// A value menu that runs until a choice.

#include "../support/Keys.h"
#include "../support/User.h"
#include "RibbonTestSupport.h"

#include <gesso/ribbon/GRightClickMenu.h>

#include <gtest/gtest.h>

#include <functional>
#include <vector>

using namespace test;

namespace {

constexpr UINT NONE = 0xFFFFFFFF;
constexpr LPCWSTR VALUES[] = {L"Open", L"Rename", L"Delete"};

BOOL CALLBACK TakeMenu(HWND hwnd, LPARAM lResult)
{
    wchar_t szClass[32]{};
    GetClassNameW(hwnd, szClass, 32);
    const bool fMenu = Narrow(szClass) == "GRightClickMenu";
    if (fMenu) {
        *reinterpret_cast<HWND*>(lResult) = hwnd;
    }
    return !fMenu;
}

HWND MenuWindow()
{
    HWND hwnd = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), TakeMenu, reinterpret_cast<LPARAM>(&hwnd));
    return hwnd;
}

RECT WorkAreaAt(POINT pt)
{
    MONITORINFO monitor{};
    monitor.cbSize = sizeof(monitor);
    GetMonitorInfoW(MonitorFromPoint(pt, MONITOR_DEFAULTTONEAREST), &monitor);
    return monitor.rcWork;
}

bool Within(const RECT& rc, const RECT& rcArea)
{
    return rc.left >= rcArea.left && rc.top >= rcArea.top && rc.right <= rcArea.right &&
           rc.bottom <= rcArea.bottom;
}

class TrackedMenuTest : public testing::Test
{
protected:
    // The choice, with what the user does while the menu is there.
    UINT Track(std::function<void(HWND)> act, UINT uChecked = NONE, int x = 300, int y = 200)
    {
        user::WhenIdle([&] {
            hwndMenu = MenuWindow();
            act(hwndMenu);
        });
        const UINT nChoice = GRightClickMenu::Track(host, x, y, VALUES, 3, uChecked);
        HoldKeys({});
        EXPECT_FALSE(IsWindow(hwndMenu));
        return nChoice;
    }
    UINT TrackKeys(std::initializer_list<UINT> keys, UINT uChecked = NONE)
    {
        return Track(
            [&](HWND) {
                for (const UINT vk : keys) {
                    user::TypeKey(vk);
                }
            },
            uChecked);
    }

    Host host;
    HWND hwndMenu = nullptr;
};

} // namespace

TEST_F(TrackedMenuTest, ArrowsMoveTheMarkAndEnterChooses)
{
    const struct
    {
        std::initializer_list<UINT> keys;
        UINT uChecked;
        UINT nChoice;
    } cases[] = {
        {{VK_DOWN, VK_RETURN}, NONE, 0}, {{VK_DOWN, VK_DOWN, VK_RETURN}, NONE, 1},
        {{VK_UP, VK_RETURN}, NONE, 2},   {{VK_RETURN}, 1, 1},
        {{VK_RETURN}, 7, NONE},          {{VK_DOWN, VK_RETURN}, 2, 0},
        {{VK_UP, VK_RETURN}, 0, 2},      {{VK_END, VK_RETURN}, NONE, 2},
        {{VK_HOME, VK_RETURN}, 1, 0},    {{VK_DOWN, VK_ESCAPE}, NONE, NONE},
        {{VK_RETURN}, NONE, NONE},       {{VK_DOWN, 'X', VK_TAB, VK_RETURN}, NONE, 0},
    };
    SetFocus(host);
    for (const auto& c : cases) {
        EXPECT_EQ(TrackKeys(c.keys, c.uChecked), c.nChoice) << "case " << &c - cases;
    }
    EXPECT_EQ(host.TakeReports(), Reports{}) << "no command is sent";
    EXPECT_EQ(GetFocus(), host.Window());
}

TEST_F(TrackedMenuTest, AClickOnARowChoosesItAndOneElsewhereGoesOn)
{
    const auto clickAt = [](int dx, int dy) {
        return [=](HWND hwnd) {
            POINT pt{dx, dy};
            ClientToScreen(hwnd, &pt);
            user::Click(pt.x, pt.y);
        };
    };
    EXPECT_EQ(Track(clickAt(8, 30)), 1u);
    GButton button;
    button.Create(10, 10, 80, 26, host, 12, L"Go", 0, WS_CHILD | WS_VISIBLE);
    POINT pt{20, 20};
    ClientToScreen(host, &pt);
    EXPECT_EQ(Track([&](HWND) { user::Click(pt.x, pt.y); }), NONE);
    user::Pump();
    const Reports reports = host.TakeReports();
    EXPECT_EQ(std::count(reports.begin(), reports.end(), "click 12"), 1) << "it is not used up";
}

TEST_F(TrackedMenuTest, StandsOnTheMonitorAndTakesNoFocus)
{
    SetFocus(host);
    const POINT corner{GetSystemMetrics(SM_CXSCREEN) - 3, GetSystemMetrics(SM_CYSCREEN) - 3};
    for (const POINT pt : {corner, POINT{-50, -50}, POINT{100, 100}}) {
        Track(
            [&](HWND hwnd) {
                RECT rc{};
                GetWindowRect(hwnd, &rc);
                EXPECT_EQ(Within(rc, WorkAreaAt(pt)), true);
                EXPECT_EQ(rc.bottom - rc.top, 62);
                EXPECT_EQ(GetFocus(), host.Window());
                user::TypeKey(VK_ESCAPE);
            },
            NONE, pt.x, pt.y);
    }
}

TEST_F(TrackedMenuTest, EndsWithItsOwnerAndWithTheProgram)
{
    const HWND owner = CreateWindowExW(0, L"STATIC", nullptr, WS_POPUP | WS_VISIBLE, 0, 0, 50, 50, host,
                                       nullptr, nullptr, nullptr);
    user::WhenIdle([&] { DestroyWindow(owner); });
    EXPECT_EQ(GRightClickMenu::Track(owner, 10, 10, VALUES, 3, NONE), NONE);
    EXPECT_EQ(Track([](HWND hwnd) { DestroyWindow(hwnd); }), NONE);
    EXPECT_EQ(Track([](HWND) { PostQuitMessage(0); }), NONE);
    EXPECT_FALSE(user::Pump()) << "the loop around it ends too";
}

// What opened the menu may still be held, or let go over it.
TEST_F(TrackedMenuTest, TheKeyOrPressThatOpenedItChoosesNothing)
{
    const auto post = [&](UINT uMsg, WPARAM wKey, LPARAM lParam) { PostMessageW(host, uMsg, wKey, lParam); };
    constexpr LPARAM REPEATED = LPARAM{KF_REPEAT} << 16;
    EXPECT_EQ(Track(
                  [&](HWND hwnd) {
                      post(WM_KEYDOWN, VK_RETURN, REPEATED);
                      post(WM_SYSKEYDOWN, VK_F10, REPEATED);
                      POINT pt{};
                      GetCursorPos(&pt);
                      ScreenToClient(hwnd, &pt);
                      SendMessageW(hwnd, WM_LBUTTONUP, 0, MAKELPARAM(pt.x, pt.y));
                      post(WM_KEYDOWN, VK_DOWN, 0);
                      post(WM_KEYDOWN, VK_RETURN, 0);
                  },
                  0),
              1u);
    EXPECT_EQ(Track([&](HWND) { post(WM_SYSKEYDOWN, VK_F10, 0); }, 0), NONE);
    EXPECT_EQ(Track([&](HWND) { post(WM_KEYUP, VK_APPS, 0); }, 0), NONE);
}

TEST_F(TrackedMenuTest, AMenuHigherThanTheScreenScrolls)
{
    const std::vector<LPCWSTR> values(200, L"Value");
    const auto track = [&](std::function<void(HWND)> act) {
        user::WhenIdle([act] { act(MenuWindow()); });
        return GRightClickMenu::Track(host, 100, 100, values.data(), 200, NONE);
    };
    EXPECT_EQ(track([](HWND hwnd) {
                  RECT rc{};
                  GetWindowRect(hwnd, &rc);
                  EXPECT_TRUE(Within(rc, WorkAreaAt({100, 100})));
                  user::TypeKey(VK_UP);
                  user::TypeKey(VK_RETURN);
              }),
              199u);
    EXPECT_EQ(track([](HWND hwnd) {
                  RECT rc{};
                  GetWindowRect(hwnd, &rc);
                  user::MoveMouse(rc.left + 8, rc.top + 30);
                  user::Wheel(-3 * WHEEL_DELTA);
                  user::TypeKey(VK_RETURN);
              }),
              4u)
        << "the second row in sight";
    HoldKeys({});
}

TEST_F(TrackedMenuTest, IsNoneWithoutAnOwnerOrTexts)
{
    const AllowMisuse misuse;
    const HWND dead =
        CreateWindowExW(0, L"STATIC", nullptr, WS_POPUP, 0, 0, 5, 5, nullptr, nullptr, nullptr, nullptr);
    DestroyWindow(dead);
    EXPECT_EQ(GRightClickMenu::Track(nullptr, 0, 0, VALUES, 3, 0), NONE);
    EXPECT_EQ(GRightClickMenu::Track(dead, 0, 0, VALUES, 3, 0), NONE);
    EXPECT_EQ(GRightClickMenu::Track(host, 0, 0, nullptr, 3, 0), NONE);
    EXPECT_EQ(GRightClickMenu::Track(host, 0, 0, VALUES, 0, 0), NONE);
    EXPECT_EQ(GRightClickMenu::Track(GetDesktopWindow(), 0, 0, VALUES, 3, 0), NONE) << "of another thread";
}
