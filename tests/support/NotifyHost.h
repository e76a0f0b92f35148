// A top-level window that keeps what its children, lists and trees, tell it by WM_NOTIFY, and may be told
// what to do at the next.
#pragma once

#include "Host.h"

namespace test {

// Codes of notifications.
constexpr int CLICKED = -2;
constexpr int DOUBLE_CLICKED = -3;
constexpr int FOCUS_SET = -7;
constexpr int FOCUS_KILLED = -8;
constexpr int KEY_PRESSED = -15;
constexpr int EDIT_LEFT = -100;
constexpr int DRAG_BEGUN = -109;
constexpr int EXPANDING = -454;
constexpr int EXPANDED = -455;

// A notification: the record is whole for all but those of the focus.
struct Notified
{
    int code;
    GLISTNOTIFY record;
};

class NotifyHost
{
public:
    NotifyHost();
    ~NotifyHost();
    NotifyHost(const NotifyHost&) = delete;
    NotifyHost& operator=(const NotifyHost&) = delete;

    operator HWND() const { return m_hWnd; }
    // The notifications since the last call.
    std::vector<Notified> Take() { return std::exchange(m_notified, {}); }
    // Only their codes.
    std::vector<int> TakeCodes();
    // Those of a tree as "-454 row 1 action 2 at -1,0 keys 0", or only the code for those of the focus.
    Reports TakeLines();
    // How many WM_COMMAND came.
    int TakeClicks() { return std::exchange(m_nClicks, 0); }
    // Called within each notification.
    std::function<void(const Notified&)> onNotify;
    LRESULT answer = 0;

private:
    static LRESULT CALLBACK WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam);
    LRESULT Note(const NMHDR& header);

    HWND m_hWnd;
    std::vector<Notified> m_notified;
    int m_nClicks = 0;
};

} // namespace test
