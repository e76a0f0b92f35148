// The message queue: posted messages, input, paints and timers, in the platform's order.
#pragma once

#include "Desktop.h"

namespace gesso::headless {

struct Filter
{
    HWND hwnd = nullptr; // null for all, -1 for messages of no window
    UINT first = 0;
    UINT last = 0;

    bool Takes(HWND window, UINT message) const;
};

// To the thread of the window; with none, or one that is gone, to the calling one.
void Post(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
void PostTo(Desktop& desktop, HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
// Dispatches what is pending, but leaves WM_QUIT in the queue.
void DispatchPending();
// Runs the next idle action; false if there is none.
bool RunIdleAction();
// Takes out the next message, running idle actions and waiting for other threads until there is one; false
// for WM_QUIT.
bool WaitForMessage(const Filter& filter, MSG& message);
// Removes the messages of a window that is going.
void ForgetMessages(const Window& window);

// The next message that comes of input, of an invalid region, and of a due timer.
bool TakeInput(const Filter& filter, bool remove, MSG& message);
bool TakePaint(const Filter& filter, MSG& message);
// Offers the paints again that were given up, since BeginPaint failed again and again.
void RetryPaints();
bool TakeTimer(const Filter& filter, bool remove, MSG& message);

} // namespace gesso::headless
