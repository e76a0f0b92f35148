// A user: the mouse, the keyboard and the time that passes, on both platforms. Input is queued, and finds its
// window when a message loop takes it out.
#pragma once

#include <platform/platform.h>

#include <functional>
#include <initializer_list>
#include <string_view>

namespace test::user {

// In pixels of the screen.
void MoveMouse(int x, int y);
// The left button, where the pointer is.
void PressButton();
void ReleaseButton();
// Moves, presses and releases, never as the second press of a double-click.
void Click(int x, int y);
void Wheel(int delta);

// Keys by their virtual codes; modifier keys are held around the key.
void PressKey(UINT vk);
void ReleaseKey(UINT vk);
void TypeKey(UINT vk, std::initializer_list<UINT> modifiers = {});
// Of characters, in UTF-8.
void TypeText(std::string_view text);

// Dispatches what is pending, through IsDialogMessageW where there is a dialog. False if that was WM_QUIT.
bool Pump(HWND dialog = nullptr);
// Lets milliseconds pass, dispatching what comes.
void Wait(DWORD milliseconds);
// The time that passes by Wait.
DWORD Now();
// Runs an action when a message loop has nothing else to do, each of several at a time of its own.
void WhenIdle(std::function<void()> action);

} // namespace test::user
