#include <bench/Pairs.h>

namespace bench {
namespace {

constexpr DWORD CHILD = WS_CHILD | WS_VISIBLE;
constexpr LPCWSTR TEXT = L"Check box";
constexpr SIZE CHECK = {120, 24};
constexpr SIZE PROGRESS = {200, 20};
constexpr SIZE SCROLLBAR = {17, 200};
constexpr int TOTAL = 1000; // of the scroll bars
constexpr int PERCENT = 40; // of the progress bars

std::unique_ptr<GWnd> MakeGessoCheckBox(HWND hwndParent, int x, int y)
{
    auto box = std::make_unique<GCheckBox>();
    box->Create(x, y, CHECK.cx, CHECK.cy, hwndParent, 1, TEXT, 0, CHILD | WS_TABSTOP | GS_VCENTER);
    box->SetCheck(BST_CHECKED);
    return box;
}

HWND MakePlatformCheckBox(HWND hwndParent, int x, int y)
{
    const HWND hwnd = CreateWindowExW(0, L"BUTTON", TEXT, CHILD | WS_TABSTOP | BS_CHECKBOX, x, y, CHECK.cx,
                                      CHECK.cy, hwndParent, nullptr, nullptr, nullptr);
    SendMessageW(hwnd, WM_SETFONT, reinterpret_cast<WPARAM>(g_hDefaultFont), FALSE);
    SendMessageW(hwnd, BM_SETCHECK, BST_CHECKED, 0);
    return hwnd;
}

std::unique_ptr<GWnd> MakeGessoProgressBar(HWND hwndParent, int x, int y)
{
    auto bar = std::make_unique<GProgressBar>();
    bar->Create(x, y, PROGRESS.cx, PROGRESS.cy, hwndParent, 1, 0, CHILD);
    bar->SetProgress(PERCENT * 10);
    return bar;
}

HWND MakePlatformProgressBar(HWND hwndParent, int x, int y)
{
    const HWND hwnd = CreateWindowExW(0, PROGRESS_CLASSW, L"", CHILD, x, y, PROGRESS.cx, PROGRESS.cy,
                                      hwndParent, nullptr, nullptr, nullptr);
    SendMessageW(hwnd, PBM_SETPOS, PERCENT, 0);
    return hwnd;
}

std::unique_ptr<GWnd> MakeGessoScrollbar(HWND hwndParent, int x, int y)
{
    auto bar = std::make_unique<GScrollbar>();
    bar->Create(x, y, SCROLLBAR.cx, SCROLLBAR.cy, hwndParent, 1, 0, CHILD);
    bar->InitScrollBar(TOTAL);
    bar->ScrSetTotalHeight(TOTAL);
    return bar;
}

HWND MakePlatformScrollbar(HWND hwndParent, int x, int y)
{
    const HWND hwnd = CreateWindowExW(0, L"SCROLLBAR", L"", CHILD | SBS_VERT, x, y, SCROLLBAR.cx,
                                      SCROLLBAR.cy, hwndParent, nullptr, nullptr, nullptr);
    const SCROLLINFO info{
        sizeof(SCROLLINFO), SIF_RANGE | SIF_PAGE, 0, TOTAL, static_cast<UINT>(SCROLLBAR.cy), 0, 0};
    SetScrollInfo(hwnd, SB_CTL, &info, FALSE);
    return hwnd;
}

void MeasureFamily(Bench& bench, const std::string& name, const Makers& makers, bool fPrinting = true)
{
    bench.Family(name);
    MeasureMaking(bench, makers);
    const HWND hwndParent = MakeParent(WS_VISIBLE);
    const auto control = makers.gesso(hwndParent, 20, 20);
    const HWND hwndPlatform = makers.platform(hwndParent, 300, 20);
    HandleMessages();
    MeasurePainting(bench, control->GetHwnd(), hwndPlatform);
    if (fPrinting) {
        MeasurePrinting(bench, control->GetHwnd(), hwndPlatform);
    }
    DestroyWindow(hwndParent);
}

} // namespace

void MeasureCheckBoxes(Bench& bench)
{
    MeasureFamily(bench, "Check box", {&MakeGessoCheckBox, &MakePlatformCheckBox});
}

void MeasureProgressBars(Bench& bench)
{
    MeasureFamily(bench, "Progress bar", {&MakeGessoProgressBar, &MakePlatformProgressBar});
}

void MeasureScrollbars(Bench& bench)
{
    // The platform's answers no WM_PRINTCLIENT.
    MeasureFamily(bench, "Scroll bar", {&MakeGessoScrollbar, &MakePlatformScrollbar}, false);
}

} // namespace bench
