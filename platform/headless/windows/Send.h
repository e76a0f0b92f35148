// Delivery of messages to window procedures.
#pragma once

#include "Desktop.h"

namespace gesso::headless {

// Calls the window's procedure, on the thread of the window; 0 for a window that is gone.
LRESULT Send(Window& window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
// The same without waiting for another thread.
void Notify(Window& window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
// Calls the procedure for a message that came through the queue.
LRESULT Deliver(Window& window, UINT message, WPARAM wParam, LPARAM lParam);

// Tells the ancestors of a child by WM_PARENTNOTIFY that it comes or goes.
void NotifyParents(Window& window, WORD event);
// Tells them of a press at a point of the screen; each gets the point in its own coordinates.
void NotifyParentsOfPress(Window& window, WORD event, POINT point);

template <typename T> LPARAM Pointer(T* pointer)
{
    return reinterpret_cast<LPARAM>(pointer);
}

} // namespace gesso::headless
