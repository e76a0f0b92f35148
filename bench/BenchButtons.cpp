#include <bench/Pairs.h>

namespace bench {
namespace {

constexpr int MOVES = 10000;
constexpr int CX = 120;
constexpr int CY = 32;
constexpr LPCWSTR TEXT = L"Push button";
constexpr DWORD CHILD = WS_CHILD | WS_VISIBLE | WS_TABSTOP;

HWND MakePlatformButton(HWND hwndParent, int x, int y)
{
    const HWND hwnd = CreateWindowExW(0, L"BUTTON", TEXT, CHILD | BS_PUSHBUTTON, x, y, CX, CY, hwndParent,
                                      nullptr, nullptr, nullptr);
    SendMessageW(hwnd, WM_SETFONT, reinterpret_cast<WPARAM>(g_hDefaultFont), FALSE);
    return hwnd;
}

std::unique_ptr<GWnd> MakeGessoButton(HWND hwndParent, int x, int y)
{
    auto button = std::make_unique<GButton>();
    button->Create(x, y, CX, CY, hwndParent, 1, TEXT, 0, CHILD | GS_CENTER | GS_VCENTER);
    return button;
}

// Returns how many of the moves asked for a paint.
int Move(HWND hwnd)
{
    int nPaints = 0;
    for (int i = 0; i < MOVES; i++) {
        SendMessageW(hwnd, WM_MOUSEMOVE, 0, MAKELPARAM(10 + i % 50, 10));
        nPaints += GetUpdateRect(hwnd, nullptr, FALSE) != 0;
    }
    return nPaints;
}

void MeasureMoves(Bench& bench, HWND hwndGesso, HWND hwndPlatform)
{
    // The first move makes the button hot; what is measured is all that come after it.
    for (const HWND hwnd : {hwndGesso, hwndPlatform}) {
        SendMessageW(hwnd, WM_MOUSEMOVE, 0, MAKELPARAM(10, 10));
        UpdateWindow(hwnd);
    }
    int nGesso = 0;
    int nPlatform = 0;
    bench.Measure(
        "WM_MOUSEMOVE within a hot button", MOVES, [&] { nGesso += Move(hwndGesso); },
        [&] { nPlatform += Move(hwndPlatform); });
    bench.Print("  paints that those moves asked for", nGesso, nPlatform);
}

} // namespace

void MeasureButtons(Bench& bench)
{
    bench.Family("Push button");
    MeasureMaking(bench, {&MakeGessoButton, &MakePlatformButton});

    const HWND hwndParent = MakeParent(WS_VISIBLE);
    const auto button = MakeGessoButton(hwndParent, 20, 20);
    const HWND hwndPlatform = MakePlatformButton(hwndParent, 20, 80);
    HandleMessages();
    MeasurePainting(bench, button->GetHwnd(), hwndPlatform);
    MeasurePrinting(bench, button->GetHwnd(), hwndPlatform);
    MeasureMoves(bench, button->GetHwnd(), hwndPlatform);
    DestroyWindow(hwndParent);
}

} // namespace bench
