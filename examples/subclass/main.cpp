// A window with a list of tasks. A click on a task's box, or the Delete key, changes the list; the window's
// title counts along.
#include "TaskList.h"

#include <string>

namespace {

constexpr int CHECK_BOX = 0; // the first cell of a row in a list with check boxes

TaskList s_tasks;

void CountInTitle(HWND hwnd)
{
    const std::wstring title = std::to_wstring(s_tasks.GetDoneCount()) + L" of " +
                               std::to_wstring(s_tasks.GetItemCount()) + L" tasks done";
    SetWindowTextW(hwnd, title.c_str());
}

void OnNotify(HWND hwnd, const GLISTNOTIFY& notify)
{
    const UINT selected = s_tasks.GetFirstSelectedItemIndex();
    if (notify.hdr.code == static_cast<UINT>(NM_KEYDOWN) && notify.vKey == VK_DELETE &&
        selected < s_tasks.GetItemCount())
    {
        s_tasks.RemoveItem(selected);
    } else if (notify.hdr.code == static_cast<UINT>(NM_CLICK) && notify.iSubItem == CHECK_BOX) {
        const auto item = static_cast<UINT>(notify.iItem);
        s_tasks.SetItemState(item, 0, ~s_tasks.GetItemState(item, 0) & LSIS_CHECKED, LSIS_CHECKED);
    }
    CountInTitle(hwnd);
}

LRESULT CALLBACK WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    switch (uMsg) {
    case WM_NOTIFY: OnNotify(hwnd, *reinterpret_cast<const GLISTNOTIFY*>(lParam)); return 0;
    case WM_SETFOCUS: SetFocus(s_tasks); return 0;
    case WM_DESTROY: PostQuitMessage(0); return 0;
    default: return DefWindowProcW(hwnd, uMsg, wParam, lParam);
    }
}

} // namespace

int WINAPI wWinMain(HINSTANCE hInstance, HINSTANCE, LPWSTR, int)
{
    InitControls();
    WNDCLASSW wc{};
    wc.lpfnWndProc = WindowProc;
    wc.hInstance = hInstance;
    wc.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    wc.hbrBackground = GetSysColorBrush(COLOR_WINDOW);
    wc.lpszClassName = L"Tasks";
    RegisterClassW(&wc);
    const HWND hwnd = CreateWindowExW(0, wc.lpszClassName, L"Tasks", WS_OVERLAPPEDWINDOW, 100, 100, 380, 260,
                                      nullptr, nullptr, hInstance, nullptr);
    s_tasks.Create(10, 10, 344, 200, hwnd, 1);
    for (LPCWSTR pszTask : {L"Water the plants", L"Call the plumber", L"Read the report"}) {
        s_tasks.Add(pszTask);
    }
    CountInTitle(hwnd);
    ShowWindow(hwnd, SW_SHOW);
    for (MSG msg; GetMessageW(&msg, nullptr, 0, 0) > 0; DispatchMessageW(&msg)) {
        TranslateMessage(&msg);
    }
    return 0;
}
