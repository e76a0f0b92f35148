// Theme parts look the same from the first time that they are drawn to the later times, when they are
// copied from the cache. The simulated desktop keeps no pixels, so that it is the platform's own theme that
// tells here.

#include "../support/Host.h"

#include <gtest/gtest.h>

namespace {

using namespace test;

constexpr int SIDE = 300;
constexpr size_t PIXELS = size_t{SIDE} * SIDE;

// What a control prints over a background of one colour.
std::vector<DWORD> Printed(HWND hwnd)
{
    BITMAPINFO info{};
    info.bmiHeader = {sizeof(info.bmiHeader), SIDE, -SIDE, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    const HDC hdc = CreateCompatibleDC(nullptr);
    void* pBits = nullptr;
    const HBITMAP hBitmap = CreateDIBSection(hdc, &info, DIB_RGB_COLORS, &pBits, nullptr, 0);
    const HGDIOBJ hFormer = SelectObject(hdc, hBitmap);
    auto* pPixels = static_cast<DWORD*>(pBits);
    std::fill_n(pPixels, PIXELS, 0x123456);
    SendMessageW(hwnd, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(hdc), PRF_CLIENT | PRF_NONCLIENT);
    GdiFlush();
    std::vector<DWORD> pixels(pPixels, pPixels + PIXELS);
    SelectObject(hdc, hFormer);
    DeleteObject(hBitmap);
    DeleteDC(hdc);
    return pixels;
}

TEST(ThemePartCache, CopiesLookAsThePartsThatTheyStandFor)
{
    Host host;
    GList list;
    list.Create(0, 0, SIDE, SIDE, host, 1, GLS_DETAILS | GLS_HEADER | GLS_CHECKBOXES, 0,
                WS_CHILD | WS_VISIBLE | WS_HSCROLL | WS_VSCROLL);
    for (const UINT cx : {100U, 120U, 150U}) {
        list.InsertColumn(0, 0, DT_SINGLELINE, cx, 20, L"Column", 0, LCT_TEXT, nullptr, nullptr, nullptr,
                          nullptr);
    }
    for (int n = 0; n < 40; n++) {
        list.InsertItem(0, 0, nullptr, 0, L"item", 0);
    }
    list.Sort(1, true);
    const std::vector<DWORD> drawn = Printed(list);
    for (const char* time : {"second", "third"}) {
        EXPECT_TRUE(Printed(list) == drawn) << time;
    }
}

} // namespace
