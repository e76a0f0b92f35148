// Does something when a window gets a message, before the window's own procedure answers it; once. Stands in
// for a host that subclasses a control, or for what a parent does of its own. One at a time.
#pragma once

#include <gesso/gesso.h>

#include <functional>

namespace test {

class Interception
{
public:
    Interception(HWND hwnd, UINT uMsg, std::function<void()> act);
    ~Interception();
    Interception(const Interception&) = delete;
    Interception& operator=(const Interception&) = delete;

    bool Happened() const { return !m_act; }

private:
    static LRESULT CALLBACK WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam);

    HWND m_hWnd;
    UINT m_uMsg;
    std::function<void()> m_act;
    WNDPROC m_pfnFormer;
};

} // namespace test
