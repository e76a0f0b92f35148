// How soon a message box stands complete on the screen.
#include <bench/Pairs.h>

#include <chrono>

namespace bench {
namespace {

using Clock = std::chrono::steady_clock;

constexpr UINT TYPE = MB_YESNO | MB_ICONQUESTION;
constexpr LPCWSTR TEXT = L"Do you want to save the changes to this document?";
constexpr LPCWSTR CAPTION = L"Benchmark";

// When the box that is open now was complete.
Clock::time_point s_complete;

BOOL CALLBACK NoteUpdate(HWND hwnd, LPARAM lParam)
{
    auto& fDirty = *reinterpret_cast<bool*>(lParam);
    fDirty = fDirty || GetUpdateRect(hwnd, nullptr, FALSE);
    return TRUE;
}

bool IsPainted(HWND hDlg)
{
    bool fDirty = GetUpdateRect(hDlg, nullptr, FALSE) != 0;
    EnumChildWindows(hDlg, &NoteUpdate, reinterpret_cast<LPARAM>(&fDirty));
    return !fDirty;
}

// Stops the clock at the paint after which nothing of the dialog is left to paint, and ends it there.
LRESULT CALLBACK WatchPaint(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR dwDialog)
{
    const LRESULT lResult = DefSubclassProc(hwnd, uMsg, wParam, lParam);
    const auto hDlg = reinterpret_cast<HWND>(dwDialog);
    if (uMsg == WM_PAINT && s_complete == Clock::time_point() && IsPainted(hDlg)) {
        s_complete = Clock::now();
        EndDialog(hDlg, IDNO);
    }
    return lResult;
}

BOOL CALLBACK WatchWindow(HWND hwnd, LPARAM lDialog)
{
    SetWindowSubclass(hwnd, &WatchPaint, 0, static_cast<DWORD_PTR>(lDialog));
    return TRUE;
}

// A dialog is activated when all its controls are there and none has painted itself.
LRESULT CALLBACK OnActivation(int nCode, WPARAM wParam, LPARAM lParam)
{
    const auto hwnd = reinterpret_cast<HWND>(wParam);
    if (nCode == HCBT_ACTIVATE && GetWindow(hwnd, GW_OWNER)) {
        WatchWindow(hwnd, static_cast<LPARAM>(wParam));
        EnumChildWindows(hwnd, &WatchWindow, static_cast<LPARAM>(wParam));
    }
    return CallNextHookEx(nullptr, nCode, wParam, lParam);
}

double TimeToPaint(const Work& open)
{
    HandleMessages();
    s_complete = {};
    const HHOOK hHook = SetWindowsHookExW(WH_CBT, &OnActivation, nullptr, GetCurrentThreadId());
    const Clock::time_point start = Clock::now();
    open();
    UnhookWindowsHookEx(hHook);
    return std::chrono::duration<double, std::micro>(s_complete - start).count();
}

} // namespace

void MeasureDialogs(Bench& bench)
{
    bench.Family("Dialogs");
    const HWND hwnd = MakeParent(WS_VISIBLE);
    bench.MeasureTimed(
        "message box, from the call to its complete paint",
        [hwnd] { return TimeToPaint([hwnd] { GTaskDialog::MessageBoxW(hwnd, TEXT, CAPTION, TYPE); }); },
        [hwnd] { return TimeToPaint([hwnd] { ::MessageBoxW(hwnd, TEXT, CAPTION, TYPE); }); });
    DestroyWindow(hwnd);
}

} // namespace bench
