// Plain windows for the tests of the simulated desktop itself.
#pragma once

#include <gesso/platform/platform.h>

#include <gesso/platform/headless/headless.h>

#include <gtest/gtest.h>

#include <functional>
#include <optional>

namespace gesso::headless::test {

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

// "WM_CREATE, WM_SIZE(0)" ...: the names of the messages, leaving out those in `without`.
std::string Names(const std::vector<Message>& trace, std::initializer_list<UINT> without = {});
// The same with a letter for each window before its messages: "a:WM_KILLFOCUS, b:WM_SETFOCUS".
std::string Names(const std::vector<Message>& trace, const std::vector<std::pair<HWND, char>>& windows,
                  std::initializer_list<UINT> only);

// What `act` makes all windows, or one, get.
template <typename Act> std::vector<Message> Traced(Act act, HWND hwnd = nullptr)
{
    StartTrace(hwnd);
    act();
    return StopTrace();
}

// Starts each test with a fresh desktop, and fails it if it leaves anything behind.
class DesktopTest : public testing::Test
{
protected:
    void SetUp() override;
    void TearDown() override;

private:
    Census m_before;
};

} // namespace gesso::headless::test
