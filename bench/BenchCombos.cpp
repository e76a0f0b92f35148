#include <bench/Pairs.h>

#include <string>

namespace bench {
namespace {

constexpr int STRINGS = 20000;
constexpr int CX = 160;
constexpr int CY = 26;
constexpr DWORD CHILD = WS_CHILD | WS_VISIBLE | WS_TABSTOP;

HWND MakePlatformCombo(HWND hwndParent, int x, int y)
{
    const HWND hwnd = CreateWindowExW(0, L"COMBOBOX", L"", CHILD | CBS_DROPDOWNLIST, x, y, CX, 200,
                                      hwndParent, nullptr, nullptr, nullptr);
    SendMessageW(hwnd, WM_SETFONT, reinterpret_cast<WPARAM>(g_hDefaultFont), FALSE);
    return hwnd;
}

std::unique_ptr<GWnd> MakeGessoCombo(HWND hwndParent, int x, int y)
{
    auto combo = std::make_unique<GComboBox>();
    combo->Create(x, y, CX, CY, hwndParent, 1, CHILD | GCBS_DROPDOWNLIST, 0);
    return combo;
}

// All but the last start with the same letter, so that a search for the last looks at each.
std::vector<std::wstring> Strings()
{
    std::vector<std::wstring> strings;
    for (int n = 1; n < STRINGS; ++n) {
        strings.push_back(L"entry " + std::to_wstring(n));
    }
    strings.push_back(L"last");
    return strings;
}

void Fill(HWND hwnd, const std::vector<std::wstring>& strings)
{
    SendMessageW(hwnd, CB_RESETCONTENT, 0, 0);
    for (const std::wstring& text : strings) {
        SendMessageW(hwnd, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
    }
}

LRESULT FindLast(HWND hwnd)
{
    return SendMessageW(hwnd, CB_FINDSTRING, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(L"last"));
}

} // namespace

void MeasureCombos(Bench& bench)
{
    bench.Family("Combo box");
    const HWND hwndParent = MakeParent(WS_VISIBLE);
    const auto combo = MakeGessoCombo(hwndParent, 20, 20);
    const HWND hwndGesso = combo->GetHwnd();
    const HWND hwndPlatform = MakePlatformCombo(hwndParent, 20, 80);
    HandleMessages();
    const std::vector<std::wstring> strings = Strings();
    bench.Measure(
        "add one of 20,000 strings", STRINGS, [&] { Fill(hwndGesso, strings); },
        [&] { Fill(hwndPlatform, strings); });
    LRESULT nGesso = 0;
    LRESULT nPlatform = 0;
    bench.Measure(
        "find the last of 20,000 strings", 1, [&] { nGesso = FindLast(hwndGesso); },
        [&] { nPlatform = FindLast(hwndPlatform); });
    bench.Print("  the item found", nGesso, nPlatform);
    for (const HWND hwnd : {hwndGesso, hwndPlatform}) {
        SendMessageW(hwnd, CB_SETCURSEL, 3, 0);
    }
    MeasurePainting(bench, hwndGesso, hwndPlatform);
    DestroyWindow(hwndParent);
}

} // namespace bench
