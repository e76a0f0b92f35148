#include <bench/Floor.h>
#include <bench/Pairs.h>

namespace bench {
namespace {

constexpr int CONTROLS = 1000;
constexpr int PAINTS = 200;

void MakeAndDestroyGesso(const Makers& makers, HWND hwndParent)
{
    std::vector<std::unique_ptr<GWnd>> controls;
    for (int i = 0; i < CONTROLS; i++) {
        controls.push_back(makers.gesso(hwndParent, i % 500, i / 3));
    }
    for (const auto& control : controls) {
        DestroyWindow(control->GetHwnd());
    }
}

void MakeAndDestroyPlatform(const Makers& makers, HWND hwndParent)
{
    std::vector<HWND> controls;
    for (int i = 0; i < CONTROLS; i++) {
        controls.push_back(makers.platform(hwndParent, i % 500, i / 3));
    }
    for (const HWND hwnd : controls) {
        DestroyWindow(hwnd);
    }
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

} // namespace

HWND MakeParent(DWORD dwStyle)
{
    return CreateWindowExW(0, L"STATIC", L"", WS_POPUP | dwStyle, 0, 0, 640, 480, nullptr, nullptr, nullptr,
                           nullptr);
}

void MeasureMaking(Bench& bench, const Makers& makers)
{
    for (const DWORD dwStyle : {DWORD{0}, DWORD{WS_VISIBLE}}) {
        const HWND hwndParent = MakeParent(dwStyle);
        HandleMessages();
        bench.Measure(
            dwStyle ? "make and destroy one of 1,000, shown parent"
                    : "make and destroy one of 1,000, hidden parent",
            CONTROLS, [&] { MakeAndDestroyGesso(makers, hwndParent); },
            [&] { MakeAndDestroyPlatform(makers, hwndParent); });
        DestroyWindow(hwndParent);
        HandleMessages();
    }
}

void MeasurePainting(Bench& bench, HWND hwndGesso, HWND hwndPlatform)
{
    bench.Measure(
        "paint one on the screen", PAINTS, [&] { Repaint(hwndGesso); }, [&] { Repaint(hwndPlatform); });
    MeasureFloor(hwndGesso, PAINTS);
}

void MeasurePrinting(Bench& bench, HWND hwndGesso, HWND hwndPlatform)
{
    RECT rc{};
    GetClientRect(hwndGesso, &rc);
    const HDC hdcScreen = GetDC(nullptr);
    const HDC hdc = CreateCompatibleDC(hdcScreen);
    const HBITMAP hbm = CreateCompatibleBitmap(hdcScreen, rc.right, rc.bottom);
    const HGDIOBJ hFormer = SelectObject(hdc, hbm);
    bench.Measure(
        "WM_PRINTCLIENT of one", PAINTS, [&] { PrintInto(hdc, hwndGesso); },
        [&] { PrintInto(hdc, hwndPlatform); });
    SelectObject(hdc, hFormer);
    DeleteObject(hbm);
    DeleteDC(hdc);
    ReleaseDC(nullptr, hdcScreen);
}

} // namespace bench
