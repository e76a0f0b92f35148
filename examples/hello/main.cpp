#include <gesso/gesso.h>

int WINAPI wWinMain(HINSTANCE, HINSTANCE, LPWSTR, int)
{
    InitControls();
    GWindow2 window;
    const HWND hwnd = window.Create(100, 100, 360, 240, nullptr);
    SetWindowTextW(hwnd, L"Hello");
    GList list;
    list.Create(10, 10, 320, 180, hwnd, 1, GLS_DETAILS | GLS_HEADER, 0,
                WS_CHILD | WS_VISIBLE | WS_BORDER | WS_VSCROLL);
    list.InsertColumn(0, 0, DT_SINGLELINE | DT_VCENTER, 150, 40, L"Greeting", 0, LCT_TEXT, nullptr, nullptr,
                      nullptr, nullptr);
    list.InsertColumn(1, 0, DT_SINGLELINE | DT_VCENTER, 150, 40, L"Language", 0, LCT_TEXT, nullptr, nullptr,
                      nullptr, nullptr);
    list.SetSubItem(list.InsertItem(0, 0, nullptr, 0, L"Hello", 0), 1, 0, L"English", 0);
    list.SetSubItem(list.InsertItem(1, 0, nullptr, 0, L"Γειά σου", 0), 1, 0, L"Greek", 0);
    list.SetSubItem(list.InsertItem(2, 0, nullptr, 0, L"Здравствуй", 0), 1, 0, L"Russian", 0);
    for (MSG msg; GetMessageW(&msg, nullptr, 0, 0) > 0; DispatchMessageW(&msg)) {
        TranslateMessage(&msg);
    }
    return 0;
}
