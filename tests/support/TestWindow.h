// Plain windows whose messages are noted, for the tests of the platform itself: Windows, and the simulated
// desktop that has to do as it does.
#pragma once

#include <platform/platform.h>

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace test {

// Answers a message in the place of DefWindowProcW, or passes it on by returning nothing.
using Handler = std::function<std::optional<LRESULT>(HWND, UINT, WPARAM, LPARAM)>;

struct Options
{
    DWORD style = WS_OVERLAPPEDWINDOW;
    DWORD exStyle = 0;
    RECT place{10, 20, 210, 120}; // left, top, right, bottom within the parent
    HWND parent = nullptr;
    int id = 0;
    const wchar_t* text = nullptr;
};

// Makes a window of a test class; `handler` sees its messages from the first one on.
HWND Make(const Options& options, Handler handler = {});
// A visible top-level window without a frame, and a visible child.
HWND MakeTop(RECT place = {0, 0, 400, 300}, Handler handler = {});
HWND MakeChild(HWND parent, RECT place, Handler handler = {}, DWORD style = 0, int id = 0);

// A child whose class has CS_DBLCLKS.
HWND MakeDoubleClickChild(HWND parent, RECT place);

// A message that a test window got. Those that the driver of the simulated desktop has no name for are left
// out.
struct Seen
{
    HWND hwnd;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
};

// "WM_CREATE, WM_SIZE" ...: the names of the messages, leaving out those in `without`.
std::string Names(const std::vector<Seen>& trace, std::initializer_list<UINT> without = {});
// The same with a letter for each window before its messages: "a:WM_KILLFOCUS, b:WM_SETFOCUS".
std::string Names(const std::vector<Seen>& trace, const std::vector<std::pair<HWND, char>>& windows,
                  std::initializer_list<UINT> only);

// What `act` makes all test windows, or one, get.
std::vector<Seen> Traced(const std::function<void()>& act, HWND hwnd = nullptr);

// Starts each test without test windows, on the simulated desktop with a fresh one, and ends it so.
class WindowsTest : public testing::Test
{
protected:
    void SetUp() override;
    void TearDown() override;
};

} // namespace test
