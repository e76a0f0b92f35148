// The program under a user's hand, with no screen and no Windows: the desktop is simulated in memory.
#include "HelloWindow.h"

#include <gesso/platform/headless/headless.h>

#include <cstdio>
#include <string>

using namespace gesso;

namespace {

int s_nFailed = 0;

void Expect(bool fTrue, const char* pszWhat)
{
    std::printf("%s: %s\n", fTrue ? "ok" : "FAILED", pszWhat);
    s_nFailed += !fTrue;
}

void ClickOn(HWND hwnd, int nId)
{
    RECT rc{};
    GetWindowRect(GetDlgItem(hwnd, nId), &rc);
    headless::Click((rc.left + rc.right) / 2, (rc.top + rc.bottom) / 2);
    headless::Pump(hwnd);
}

bool LabelSays(HWND hwnd, LPCWSTR pszText)
{
    WCHAR szText[64] = L"";
    SendMessageW(GetDlgItem(hwnd, 0), WM_GETTEXT, 64, reinterpret_cast<LPARAM>(szText));
    return wcscmp(szText, pszText) == 0;
}

} // namespace

int main()
{
    headless::Reset();
    InitControls();
    HelloWindow window;
    const HWND hwnd = window.Create();
    headless::Pump(hwnd);
    Expect(LabelSays(hwnd, L"Hello from Gesso"), "it greets");
    ClickOn(hwnd, ID_COUNT);
    Expect(LabelSays(hwnd, L"Pressed once"), "a click on the first button counts");
    headless::TypeKey(VK_SPACE);
    headless::Pump(hwnd);
    Expect(LabelSays(hwnd, L"Pressed more than once"),
           "so does the space key, since the button has the focus");
    ClickOn(hwnd, ID_CLOSE);
    Expect(!IsWindow(hwnd), "a click on the other button closes the window");
    return s_nFailed;
}
