// The program's one window: a label, a button that counts its clicks, and one that closes the window.
#pragma once

#include <gesso/gesso.h>

constexpr int ID_LABEL = 0;
constexpr int ID_COUNT = 1;
constexpr int ID_CLOSE = 2;

class CounterWindow
{
public:
    HWND Create();

private:
    static LRESULT CALLBACK WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam);
    void OnCommand(UINT uId);

    HWND m_hwnd = nullptr;
    GLabel m_label;
    GButton m_count;
    GButton m_close;
    int m_nClicks = 0;
};
