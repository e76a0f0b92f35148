#include <bench/Bench.h>

#include <memory>

namespace bench {
namespace {

constexpr int BUTTONS = 1000;
constexpr int PAINTS = 200;
constexpr int MOVES = 10000;
constexpr int CX = 120;
constexpr int CY = 32;
constexpr LPCWSTR TEXT = L"Push button";
constexpr DWORD CHILD = WS_CHILD | WS_VISIBLE | WS_TABSTOP;

HWND MakeParent(DWORD dwStyle)
{
    return CreateWindowExW(0, L"STATIC", L"", WS_POPUP | dwStyle, 0, 0, 640, 480, nullptr, nullptr, nullptr,
                           nullptr);
}

HWND MakePlatformButton(HWND hwndParent, int x, int y)
{
    const HWND hwnd = CreateWindowExW(0, L"BUTTON", TEXT, CHILD | BS_PUSHBUTTON, x, y, CX, CY, hwndParent,
                                      nullptr, nullptr, nullptr);
    SendMessageW(hwnd, WM_SETFONT, reinterpret_cast<WPARAM>(g_hDefaultFont), FALSE);
    return hwnd;
}

HWND MakeGessoButton(GButton& button, HWND hwndParent, int x, int y)
{
    return button.Create(x, y, CX, CY, hwndParent, 1, TEXT, 0, CHILD | GS_CENTER | GS_VCENTER);
}

void MakeAndDestroyGesso(HWND hwndParent)
{
    const auto buttons = std::make_unique<GButton[]>(BUTTONS);
    for (int i = 0; i < BUTTONS; i++) {
        MakeGessoButton(buttons[static_cast<size_t>(i)], hwndParent, i % 500, i / 3);
    }
    for (int i = 0; i < BUTTONS; i++) {
        buttons[static_cast<size_t>(i)].Destroy();
    }
}

void MakeAndDestroyPlatform(HWND hwndParent)
{
    std::vector<HWND> buttons;
    for (int i = 0; i < BUTTONS; i++) {
        buttons.push_back(MakePlatformButton(hwndParent, i % 500, i / 3));
    }
    for (const HWND hwnd : buttons) {
        DestroyWindow(hwnd);
    }
}

void MeasureMaking(Bench& bench, const std::string& name, DWORD dwParentStyle)
{
    const HWND hwndParent = MakeParent(dwParentStyle);
    HandleMessages();
    bench.Measure(
        name, BUTTONS, [&] { MakeAndDestroyGesso(hwndParent); }, [&] { MakeAndDestroyPlatform(hwndParent); });
    DestroyWindow(hwndParent);
    HandleMessages();
}

void Repaint(HWND hwnd)
{
    for (int i = 0; i < PAINTS; i++) {
        RedrawWindow(hwnd, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    }
}

void PrintInto(HDC hdc, HWND hwnd)
{
    for (int i = 0; i < PAINTS; i++) {
        SendMessageW(hwnd, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(hdc), PRF_CLIENT);
    }
}

void MeasurePrinting(Bench& bench, HWND hwndGesso, HWND hwndPlatform)
{
    const HDC hdcScreen = GetDC(nullptr);
    const HDC hdc = CreateCompatibleDC(hdcScreen);
    const HBITMAP hbm = CreateCompatibleBitmap(hdcScreen, CX, CY);
    const HGDIOBJ hFormer = SelectObject(hdc, hbm);
    bench.Measure(
        "WM_PRINTCLIENT of one button", PAINTS, [&] { PrintInto(hdc, hwndGesso); },
        [&] { PrintInto(hdc, hwndPlatform); });
    SelectObject(hdc, hFormer);
    DeleteObject(hbm);
    DeleteDC(hdc);
    ReleaseDC(nullptr, hdcScreen);
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
    MeasureMaking(bench, "make and destroy one of 1,000, hidden parent", 0);
    MeasureMaking(bench, "make and destroy one of 1,000, shown parent", WS_VISIBLE);

    const HWND hwndParent = MakeParent(WS_VISIBLE);
    GButton button;
    const HWND hwndGesso = MakeGessoButton(button, hwndParent, 20, 20);
    const HWND hwndPlatform = MakePlatformButton(hwndParent, 20, 80);
    HandleMessages();
    bench.Measure(
        "paint one button on the screen", PAINTS, [&] { Repaint(hwndGesso); },
        [&] { Repaint(hwndPlatform); });
    MeasurePrinting(bench, hwndGesso, hwndPlatform);
    MeasureMoves(bench, hwndGesso, hwndPlatform);
    DestroyWindow(hwndParent);
}

} // namespace bench
