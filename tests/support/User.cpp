#include "User.h"

#if defined(_WIN32)

#include <deque>
#include <iterator>
#include <string>

namespace test::user {
namespace {

std::deque<std::function<void()>> s_actions;

void Send(INPUT input)
{
    SendInput(1, &input, sizeof(input));
}

void SendMouse(DWORD flags, DWORD data = 0)
{
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = flags;
    input.mi.mouseData = data;
    Send(input);
}

bool IsExtended(UINT vk)
{
    return (vk >= VK_PRIOR && vk <= VK_DOWN) || vk == VK_INSERT || vk == VK_DELETE || vk == VK_APPS;
}

void SendKey(UINT vk, DWORD flags)
{
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = static_cast<WORD>(vk);
    input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(vk, MAPVK_VK_TO_VSC));
    input.ki.dwFlags = flags | (IsExtended(vk) ? KEYEVENTF_EXTENDEDKEY : 0);
    Send(input);
}

void SendCharacter(wchar_t c, DWORD flags)
{
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wScan = c;
    input.ki.dwFlags = flags | KEYEVENTF_UNICODE;
    Send(input);
}

// A timer of no window is served by any message loop, when there is nothing else to do.
void CALLBACK RunNext(HWND, UINT, UINT_PTR id, DWORD)
{
    const auto action = std::move(s_actions.front());
    s_actions.pop_front();
    if (s_actions.empty()) {
        KillTimer(nullptr, id);
    }
    action();
}

} // namespace

void MoveMouse(int x, int y)
{
    SetCursorPos(x, y);
}

void PressButton()
{
    SendMouse(MOUSEEVENTF_LEFTDOWN);
}

void ReleaseButton()
{
    SendMouse(MOUSEEVENTF_LEFTUP);
}

void Click(int x, int y)
{
    Wait(GetDoubleClickTime() + 50);
    MoveMouse(x, y);
    PressButton();
    ReleaseButton();
}

void Wheel(int delta)
{
    SendMouse(MOUSEEVENTF_WHEEL, static_cast<DWORD>(delta));
}

void PressKey(UINT vk)
{
    SendKey(vk, 0);
}

void ReleaseKey(UINT vk)
{
    SendKey(vk, KEYEVENTF_KEYUP);
}

void TypeKey(UINT vk, std::initializer_list<UINT> modifiers)
{
    for (const UINT modifier : modifiers) {
        PressKey(modifier);
    }
    PressKey(vk);
    ReleaseKey(vk);
    for (auto at = std::rbegin(modifiers); at != std::rend(modifiers); ++at) {
        ReleaseKey(*at);
    }
}

void TypeText(std::string_view text)
{
    std::wstring wide(text.size(), 0);
    wide.resize(static_cast<size_t>(MultiByteToWideChar(
        CP_UTF8, 0, text.data(), static_cast<int>(text.size()), wide.data(), static_cast<int>(wide.size()))));
    for (const wchar_t c : wide) {
        SendCharacter(c, 0);
        SendCharacter(c, KEYEVENTF_KEYUP);
    }
}

bool Pump(HWND dialog)
{
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            return false;
        }
        if (!dialog || !IsDialogMessageW(dialog, &message)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    return true;
}

void Wait(DWORD milliseconds)
{
    const DWORD start = GetTickCount();
    for (DWORD gone = 0; gone < milliseconds; gone = GetTickCount() - start) {
        MsgWaitForMultipleObjects(0, nullptr, FALSE, milliseconds - gone, QS_ALLINPUT);
        Pump();
    }
}

DWORD Now()
{
    return GetTickCount();
}

void WhenIdle(std::function<void()> action)
{
    if (s_actions.empty()) {
        SetTimer(nullptr, 0, 50, RunNext);
    }
    s_actions.push_back(std::move(action));
}

} // namespace test::user

#else

#include <platform/headless/headless.h>

namespace test::user {

namespace desk = gesso::headless;

void MoveMouse(int x, int y)
{
    desk::MoveMouse(x, y);
}

void PressButton()
{
    desk::PressButton();
}

void ReleaseButton()
{
    desk::ReleaseButton();
}

void Click(int x, int y)
{
    desk::Click(x, y);
}

void Wheel(int delta)
{
    desk::Wheel(delta);
}

void PressKey(UINT vk)
{
    desk::PressKey(vk);
}

void ReleaseKey(UINT vk)
{
    desk::ReleaseKey(vk);
}

void TypeKey(UINT vk, std::initializer_list<UINT> modifiers)
{
    desk::TypeKey(vk, modifiers);
}

void TypeText(std::string_view text)
{
    desk::TypeText(text);
}

bool Pump(HWND dialog)
{
    return desk::Pump(dialog);
}

void Wait(DWORD milliseconds)
{
    desk::Advance(milliseconds);
}

DWORD Now()
{
    return static_cast<DWORD>(desk::Now());
}

void WhenIdle(std::function<void()> action)
{
    desk::WhenIdle(std::move(action));
}

} // namespace test::user

#endif
