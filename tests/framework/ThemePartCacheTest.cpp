// Theme parts and the library's own look the same from the first time that they are drawn to the later times,
// when they are copied from the cache. The simulated desktop keeps few pixels, so that it is the platform's
// own theme that tells here.

#include "../support/Host.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

using namespace test;

constexpr int SIDE = 300;
constexpr size_t PIXELS = size_t{SIDE} * SIDE;
// Hidden, so that nothing of a control has been drawn before it prints; all that is cached goes with the last
// control.
constexpr DWORD CHILD = WS_CHILD;

// What a control prints over a background of many colours.
std::vector<DWORD> Printed(HWND hwnd, DWORD dwLayout)
{
    BITMAPINFO info{};
    info.bmiHeader = {sizeof(info.bmiHeader), SIDE, -SIDE, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    const HDC hdc = CreateCompatibleDC(nullptr);
    void* pBits = nullptr;
    const HBITMAP hBitmap = CreateDIBSection(hdc, &info, DIB_RGB_COLORS, &pBits, nullptr, 0);
    const HGDIOBJ hFormer = SelectObject(hdc, hBitmap);
    auto* pPixels = static_cast<DWORD*>(pBits);
    for (DWORD i = 0; i < PIXELS; i++) {
        pPixels[i] = i * 2654435761U >> 8;
    }
    SetLayout(hdc, dwLayout);
    SendMessageW(hwnd, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(hdc), PRF_CLIENT | PRF_NONCLIENT);
    GdiFlush();
    std::vector<DWORD> pixels(pPixels, pPixels + PIXELS);
    for (DWORD& pixel : pixels) {
        pixel &= 0xFFFFFF;
    }
    SelectObject(hdc, hFormer);
    DeleteObject(hBitmap);
    DeleteDC(hdc);
    return pixels;
}

std::unique_ptr<GWnd> MakeList(HWND hwndHost)
{
    auto list = std::make_unique<GList>();
    list->Create(0, 0, SIDE, SIDE, hwndHost, 1, GLS_DETAILS | GLS_HEADER | GLS_CHECKBOXES, 0,
                 CHILD | WS_HSCROLL | WS_VSCROLL);
    for (const UINT cx : {100U, 120U, 150U}) {
        list->InsertColumn(0, 0, DT_SINGLELINE, cx, 20, L"Column", 0, LCT_TEXT, nullptr, nullptr, nullptr,
                           nullptr);
    }
    for (int n = 0; n < 40; n++) {
        list->InsertItem(0, 0, nullptr, 0, L"item", 0);
    }
    list->Sort(1, true);
    return list;
}

std::unique_ptr<GWnd> MakeTree(HWND hwndHost)
{
    auto tree = std::make_unique<GTree>();
    tree->Create(0, 0, SIDE / 2, SIDE / 2, hwndHost, 1, 0, CHILD | WS_VSCROLL);
    for (int n = 0; n < 20; n++) {
        tree->InsertItem(nullptr, nullptr, L"item", 0, TIS_HASCHILDREN, nullptr);
    }
    return tree;
}

// In twice as many dots an inch where asked for.
struct Look
{
    gesso::ColorScheme scheme;
    int nTimes;
    bool fMirrored;
};

void ExpectCopiesAlike(const char* name, const Look& look,
                       const std::function<std::unique_ptr<GWnd>(HWND)>& make)
{
    const Host host;
    if (look.fMirrored) {
        SetWindowLongPtrW(host, GWL_EXSTYLE, WS_EX_LAYOUTRTL);
    }
    const std::unique_ptr<GWnd> control = make(host);
    const auto wDots = static_cast<WORD>(look.nTimes * USER_DEFAULT_SCREEN_DPI);
    SendMessageW(control->GetHwnd(), WM_DPICHANGED_AFTERPARENT, MAKEWPARAM(wDots, wDots), 0);
    const DWORD dwLayout = look.fMirrored ? LAYOUT_RTL : 0;
    const std::vector<DWORD> drawn = Printed(control->GetHwnd(), dwLayout);
    for (const char* time : {"second", "third"}) {
        EXPECT_TRUE(Printed(control->GetHwnd(), dwLayout) == drawn)
            << name << ", the " << time << " time at " << wDots << (look.fMirrored ? ", mirrored" : "")
            << (look.scheme == gesso::ColorScheme::Dark ? ", dark" : "");
    }
    DestroyWindow(control->GetHwnd());
}

void ExpectAllAlike(const Look& look)
{
    gesso::SetScaling(look.nTimes > 1 ? gesso::Scaling::PerMonitor : gesso::Scaling::None);
    gesso::SetColorScheme(look.scheme);
    ExpectCopiesAlike("list", look, MakeList);
    ExpectCopiesAlike("tree", look, MakeTree);
    ExpectCopiesAlike("button", look, [](HWND hwndHost) {
        auto button = std::make_unique<GButton>();
        button->Create(0, 0, 90, 26, hwndHost, 1, L"Save", 0, CHILD);
        return button;
    });
    ExpectCopiesAlike("check box", look, [](HWND hwndHost) {
        auto box = std::make_unique<GCheckBox>();
        box->Create(0, 0, 90, 30, hwndHost, 1, L"Box", 0, CHILD);
        SendMessageW(*box, BM_SETCHECK, BST_CHECKED, 0);
        return box;
    });
    ExpectCopiesAlike("radio button", look, [](HWND hwndHost) {
        auto radio = std::make_unique<GRadioButton>();
        radio->Create(0, 0, 90, 30, hwndHost, 1, L"Radio", 0, CHILD);
        SendMessageW(*radio, BM_SETCHECK, BST_CHECKED, 0);
        return radio;
    });
    ExpectCopiesAlike("edit field", look, [](HWND hwndHost) {
        auto edit = std::make_unique<GEdit>();
        edit->Create(0, 0, 90, 24, hwndHost, 1, L"Text", CHILD | WS_BORDER, 0);
        return edit;
    });
    ExpectCopiesAlike("combo box", look, [](HWND hwndHost) {
        auto combo = std::make_unique<GComboBox>();
        combo->Create(0, 0, 90, 24, hwndHost, 1, CHILD | GCBS_DROPDOWNLIST, 0);
        return combo;
    });
    gesso::SetColorScheme(gesso::ColorScheme::Light);
    gesso::SetScaling(gesso::Scaling::None);
}

TEST(ThemePartCache, CopiesLookAsThePartsThatTheyStandFor)
{
    ExpectAllAlike({gesso::ColorScheme::Light, 1, false});
    ExpectAllAlike({gesso::ColorScheme::Light, 1, true});
    ExpectAllAlike({gesso::ColorScheme::Light, 2, false});
    ExpectAllAlike({gesso::ColorScheme::Light, 2, true});
    ExpectAllAlike({gesso::ColorScheme::Dark, 1, false});
    ExpectAllAlike({gesso::ColorScheme::Dark, 2, true});
}

} // namespace
