#include "CounterWindow.h"

HWND CounterWindow::Create()
{
    WNDCLASSEXW wc{};
    wc.cbSize = sizeof(wc);
    wc.lpfnWndProc = &WindowProc;
    wc.hInstance = GetModuleHandleW(nullptr);
    wc.hbrBackground = GetSysColorBrush(COLOR_WINDOW);
    wc.lpszClassName = L"CounterWindow";
    RegisterClassExW(&wc);
    m_hwnd = CreateWindowExW(0, wc.lpszClassName, L"Counter", WS_OVERLAPPEDWINDOW, 100, 100, 340, 160,
                             nullptr, nullptr, wc.hInstance, nullptr);
    SetWindowLongPtrW(m_hwnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));

    constexpr DWORD BUTTON = WS_CHILD | WS_VISIBLE | WS_TABSTOP | GS_CENTER | GS_VCENTER;
    m_label.Create(20, 20, 280, 24, m_hwnd, ID_LABEL, L"Not pressed yet", 0, WS_CHILD | WS_VISIBLE);
    m_count.Create(20, 60, 130, 32, m_hwnd, ID_COUNT, L"Press me", 0, BUTTON);
    m_close.Create(170, 60, 130, 32, m_hwnd, ID_CLOSE, L"Close", 0, BUTTON);
    ShowWindow(m_hwnd, SW_SHOW);
    return m_hwnd;
}

LRESULT CALLBACK CounterWindow::WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    auto* pWindow = reinterpret_cast<CounterWindow*>(GetWindowLongPtrW(hwnd, GWLP_USERDATA));
    if (pWindow && uMsg == WM_COMMAND) {
        pWindow->OnCommand(LOWORD(wParam));
        return 0;
    }
    if (uMsg == WM_DESTROY) {
        PostQuitMessage(0);
    }
    return DefWindowProcW(hwnd, uMsg, wParam, lParam);
}

void CounterWindow::OnCommand(UINT uId)
{
    if (uId == ID_CLOSE) {
        DestroyWindow(m_hwnd);
    } else if (uId == ID_COUNT) {
        m_label.SetText(++m_nClicks == 1 ? L"Pressed once" : L"Pressed more than once");
    }
}
