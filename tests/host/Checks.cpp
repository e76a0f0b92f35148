#include "Checks.h"

#include <stdio.h>
#include <wchar.h>

namespace {

int s_nPassed = 0;
int s_nFailed = 0;
const char* s_pszGroup = "";

LRESULT CALLBACK HostProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    auto* pHost = reinterpret_cast<HostWindow*>(GetWindowLongPtrW(hwnd, GWLP_USERDATA));
    if (pHost && uMsg == WM_COMMAND) {
        ++pHost->nCommands;
        pHost->uLastId = LOWORD(wParam);
        pHost->uLastCode = HIWORD(wParam);
    }
    if (pHost && uMsg == WM_NOTIFY) {
        ++pHost->nNotifies;
        pHost->nFound += reinterpret_cast<const NMHDR*>(lParam)->code == pHost->uSearched;
    }
    return DefWindowProcW(hwnd, uMsg, wParam, lParam);
}

void Register()
{
    WNDCLASSW wc{};
    wc.lpfnWndProc = HostProc;
    wc.hInstance = GetModuleHandleW(nullptr);
    wc.lpszClassName = L"HostWindow";
    RegisterClassW(&wc); // fails but for the first
}

} // namespace

bool Check(bool fHolds, const char* pszWhat)
{
    ++(fHolds ? s_nPassed : s_nFailed);
    if (!fHolds) {
        printf("FAILED  %s: %s\n", s_pszGroup, pszWhat);
    }
    return fHolds;
}

bool Same(long long nFound, long long nExpected, const char* pszWhat)
{
    const bool fHolds = Check(nFound == nExpected, pszWhat);
    if (!fHolds) {
        printf("        %lld rather than %lld\n", nFound, nExpected);
    }
    return fHolds;
}

bool Same(LPCWSTR pszFound, LPCWSTR pszExpected, const char* pszWhat)
{
    return Check(wcscmp(pszFound ? pszFound : L"", pszExpected) == 0, pszWhat);
}

bool SameForBoth(size_t nFound, size_t nGnu, size_t nMicrosoft, const char* pszWhat)
{
#if defined(_MSC_VER)
    const size_t nExpected = nMicrosoft;
    static_cast<void>(nGnu);
#else
    const size_t nExpected = nGnu;
    static_cast<void>(nMicrosoft);
#endif
    return Same(static_cast<long long>(nFound), static_cast<long long>(nExpected), pszWhat);
}

void Group(const char* pszName)
{
    s_pszGroup = pszName;
    fflush(stdout); // so that it is known where a program that ends early was
}

int Conclude()
{
    printf("%d passed, %d failed\n", s_nPassed, s_nFailed);
    fflush(stdout);
    return s_nFailed == 0 && s_nPassed > 0 ? 0 : 1;
}

HostWindow::HostWindow()
{
    Register();
    hwnd = CreateWindowExW(0, L"HostWindow", L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 50, 50, 500, 400,
                           nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    SetWindowLongPtrW(hwnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

HostWindow::~HostWindow()
{
    SetWindowLongPtrW(hwnd, GWLP_USERDATA, 0);
    DestroyWindow(hwnd);
}
