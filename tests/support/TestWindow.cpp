#include "TestWindow.h"

#include <platform/headless/headless.h>

#include <algorithm>
#include <map>

namespace test {
namespace {

std::map<HWND, Handler>& Handlers()
{
    static std::map<HWND, Handler> s_handlers;
    return s_handlers;
}

Handler* s_pending = nullptr;
std::vector<Seen>* s_trace = nullptr;

std::string NameOf(UINT message)
{
    return gesso::headless::MessageName(message);
}

LRESULT CALLBACK Procedure(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (s_pending) {
        Handlers()[hwnd] = std::move(*s_pending);
        s_pending = nullptr;
    }
    if (s_trace && NameOf(message).starts_with("WM_")) {
        s_trace->push_back({hwnd, message, wParam, lParam});
    }
    const Handler handler = Handlers()[hwnd];
    if (message == WM_NCDESTROY) {
        Handlers().erase(hwnd);
    }
    const auto answer = handler ? handler(hwnd, message, wParam, lParam) : std::nullopt;
    return answer ? *answer : DefWindowProcW(hwnd, message, wParam, lParam);
}

void RegisterOnce(LPCWSTR name, UINT style)
{
    WNDCLASSEXW known{};
    known.cbSize = sizeof(known);
    if (GetClassInfoExW(GetModuleHandleW(nullptr), name, &known)) {
        return;
    }
    WNDCLASSEXW data{};
    data.cbSize = sizeof(data);
    data.style = style;
    data.lpfnWndProc = Procedure;
    data.cbWndExtra = 12;
    data.hInstance = GetModuleHandleW(nullptr);
    data.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
    data.lpszClassName = name;
    ASSERT_NE(RegisterClassExW(&data), 0);
}

HWND MakeOf(LPCWSTR className, const Options& o, Handler handler)
{
    RegisterOnce(L"TestWindow", CS_HREDRAW | CS_VREDRAW);
    RegisterOnce(L"TestDoubleClicks", CS_DBLCLKS);
    s_pending = &handler;
    const HWND hwnd = CreateWindowExW(o.exStyle, className, o.text, o.style, o.place.left, o.place.top,
                                      o.place.right - o.place.left, o.place.bottom - o.place.top, o.parent,
                                      reinterpret_cast<HMENU>(static_cast<intptr_t>(o.id)), nullptr, nullptr);
    s_pending = nullptr;
    return hwnd;
}

void Append(std::string& out, const std::string& name)
{
    out += (out.empty() ? "" : ", ") + name;
}

} // namespace

HWND Make(const Options& options, Handler handler)
{
    return MakeOf(L"TestWindow", options, std::move(handler));
}

HWND MakeTop(RECT place, Handler handler)
{
    return Make({.style = WS_POPUP | WS_VISIBLE, .place = place}, std::move(handler));
}

HWND MakeChild(HWND parent, RECT place, Handler handler, DWORD style, int id)
{
    return Make({.style = WS_CHILD | WS_VISIBLE | style, .place = place, .parent = parent, .id = id},
                std::move(handler));
}

HWND MakeDoubleClickChild(HWND parent, RECT place)
{
    return MakeOf(L"TestDoubleClicks", {.style = WS_CHILD | WS_VISIBLE, .place = place, .parent = parent},
                  {});
}

std::string Names(const std::vector<Seen>& trace, std::initializer_list<UINT> without)
{
    std::string out;
    for (const Seen& m : trace) {
        if (std::find(without.begin(), without.end(), m.message) == without.end()) {
            Append(out, NameOf(m.message));
        }
    }
    return out;
}

std::string Names(const std::vector<Seen>& trace, const std::vector<std::pair<HWND, char>>& windows,
                  std::initializer_list<UINT> only)
{
    std::string out;
    for (const Seen& m : trace) {
        const auto window = std::find_if(windows.begin(), windows.end(),
                                         [&](const auto& known) { return known.first == m.hwnd; });
        if (window != windows.end() && std::find(only.begin(), only.end(), m.message) != only.end()) {
            Append(out, std::string(1, window->second) + ":" + NameOf(m.message));
        }
    }
    return out;
}

std::vector<Seen> Traced(const std::function<void()>& act, HWND hwnd)
{
    std::vector<Seen> trace;
    s_trace = &trace;
    act();
    s_trace = nullptr;
    std::erase_if(trace, [hwnd](const Seen& m) { return hwnd && m.hwnd != hwnd; });
    return trace;
}

void WindowsTest::SetUp()
{
#if !defined(_WIN32)
    gesso::headless::Reset();
#endif
}

void WindowsTest::TearDown()
{
    while (!Handlers().empty()) {
        DestroyWindow(Handlers().begin()->first);
    }
}

} // namespace test
