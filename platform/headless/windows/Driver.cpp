// The user's hands and the clock.
#include "Desktop.h"
#include "Input.h"
#include "Keyboard.h"
#include "Queue.h"
#include "Requests.h"
#include "Timer.h"

#include "../core/Clock.h"

#include <algorithm>

namespace gesso::headless {
namespace {

struct ButtonMessages
{
    UINT vk;
    UINT down;
    UINT up;
};

ButtonMessages MessagesOf(Button button)
{
    switch (button) {
    case Button::Right: return {VK_RBUTTON, WM_RBUTTONDOWN, WM_RBUTTONUP};
    case Button::Middle: return {VK_MBUTTON, WM_MBUTTONDOWN, WM_MBUTTONUP};
    default: return {VK_LBUTTON, WM_LBUTTONDOWN, WM_LBUTTONUP};
    }
}

void Queue(UINT message, WPARAM wParam = 0, bool released = false)
{
    Desktop& desktop = TheDesktop();
    QueueInput(desktop, {message, wParam, desktop.pointer, Now(), released});
    desktop.keyboardLast = message == WM_KEYDOWN;
}

void Hold(UINT vk, bool down)
{
    TheDesktop().keysNow[vk & 0xFF] = down ? 0x80 : 0;
}

void QueueKey(UINT vk, bool released)
{
    const bool repeat = !released && (TheDesktop().keysNow[vk & 0xFF] & 0x80) != 0;
    Hold(vk, !released);
    Queue(WM_KEYDOWN, MAKEWPARAM(vk, repeat), released);
}

// A character that no key types comes as a key of its own kind.
void QueuePacket(char16_t character)
{
    Queue(WM_KEYDOWN, MAKEWPARAM(VK_PACKET, character));
    Queue(WM_KEYDOWN, MAKEWPARAM(VK_PACKET, character), true);
}

} // namespace

void MoveMouse(int x, int y)
{
    const TableLock lock;
    Desktop& desktop = TheDesktop();
    const RECT& screen = Root().frame;
    desktop.pointer = {std::clamp<LONG>(x, 0, screen.right - 1), std::clamp<LONG>(y, 0, screen.bottom - 1)};
    Queue(WM_MOUSEMOVE);
}

void PressButton(Button button)
{
    const TableLock lock;
    Hold(MessagesOf(button).vk, true);
    Queue(MessagesOf(button).down);
}

void ReleaseButton(Button button)
{
    const TableLock lock;
    Hold(MessagesOf(button).vk, false);
    Queue(MessagesOf(button).up);
}

void Click(int x, int y, Button button)
{
    const TableLock lock;
    MoveMouse(x, y);
    PressButton(button);
    TheDesktop().input.back().apart = true;
    ReleaseButton(button);
}

void DoubleClick(int x, int y, Button button)
{
    Click(x, y, button);
    PressButton(button);
    ReleaseButton(button);
}

void Wheel(int delta)
{
    const TableLock lock;
    Queue(WM_MOUSEWHEEL, static_cast<WORD>(delta));
}

void PressKey(UINT vk)
{
    const TableLock lock;
    QueueKey(vk, false);
}

void ReleaseKey(UINT vk)
{
    const TableLock lock;
    QueueKey(vk, true);
}

void TypeKey(UINT vk, std::initializer_list<UINT> modifiers)
{
    for (const UINT modifier : modifiers) {
        PressKey(modifier);
    }
    PressKey(vk);
    ReleaseKey(vk);
    for (const UINT modifier : modifiers) {
        ReleaseKey(modifier);
    }
}

void TypeText(std::string_view text)
{
    const TableLock lock;
    for (const char16_t character : FromUtf8(text)) {
        bool shift = false;
        if (const UINT vk = KeyOf(character, shift)) {
            shift ? TypeKey(vk, {VK_SHIFT}) : TypeKey(vk);
        } else {
            QueuePacket(character);
        }
    }
}

void Advance(DWORD milliseconds)
{
    const TableLock lock;
    const ULONGLONG end = Now() + milliseconds;
    for (;;) {
        DispatchPending();
        const auto due = NextDue(TheDesktop());
        if (!due || *due > end) {
            break;
        }
        SetNow(std::max(*due, Now()));
    }
    SetNow(end);
    DispatchPending();
}

bool WaitUntilIdle(DWORD thread)
{
    const TableLock lock;
    const auto desktop = DesktopOf(thread);
    while (desktop && DesktopOf(thread) == desktop && !IsAtRest(*desktop)) {
        Serve();
        if (!WaitForOthers(false)) {
            return false;
        }
    }
    return desktop && DesktopOf(thread) == desktop;
}

bool Advance(DWORD milliseconds, DWORD thread)
{
    const TableLock lock;
    if (!WaitUntilIdle(thread)) {
        return false;
    }
    const auto desktop = DesktopOf(thread);
    const ULONGLONG end = *desktop->clock + milliseconds;
    const auto moveTo = [&](ULONGLONG time) {
        *desktop->clock = std::max(time, *desktop->clock);
        Wake(*desktop);
        return WaitUntilIdle(thread);
    };
    for (auto due = NextDue(*desktop); due && *due <= end; due = NextDue(*desktop)) {
        if (!moveTo(*due)) {
            return false;
        }
    }
    return moveTo(end);
}

} // namespace gesso::headless
