#include <gesso/framework/Colors.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/SystemAppearance.h>
#include <gesso/framework/WindowClass.h>
#include <gesso/framework/WindowDpi.h>

#include <atomic>

namespace gesso {
namespace {

constexpr LPCWSTR PERSONALIZE = L"Software\\Microsoft\\Windows\\CurrentVersion\\Themes\\Personalize";

// The property of dialogs whose caption was made dark.
constexpr LPCWSTR CAPTION_MARK = L"gesso.caption";

constinit ATOM s_aListener = 0;
constinit std::atomic<HWND> s_hwndListener = nullptr;

bool HasContrastTheme()
{
    HIGHCONTRASTW contrast{};
    contrast.cbSize = sizeof(contrast);
    return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof(contrast), &contrast, 0) &&
           (contrast.dwFlags & HCF_HIGHCONTRASTON);
}

bool AreProgramsDark()
{
    DWORD dwLight = 1;
    DWORD dwSize = sizeof(dwLight);
    const LSTATUS nResult = RegGetValueW(HKEY_CURRENT_USER, PERSONALIZE, L"AppsUseLightTheme",
                                         RRF_RT_REG_DWORD, nullptr, &dwLight, &dwSize);
    return nResult == ERROR_SUCCESS && !dwLight;
}

LRESULT CALLBACK ListenerProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    switch (uMsg) {
    case WM_SETTINGCHANGE: FollowTextSize(); [[fallthrough]];
    case WM_SYSCOLORCHANGE:
    case WM_THEMECHANGED: TakeSystemColors(); break;
    default: break;
    }
    return Frame::Default(hwnd, uMsg, wParam, lParam);
}

void StartListening()
{
    if (IsWindow(s_hwndListener)) {
        return; // one of a thread that ended has gone with it
    }
    const ATOM aClass = RegisterControlClass(s_aListener, L"GessoAppearance", ListenerProc, 0);
    s_hwndListener = CreateWindowExW(WS_EX_TOOLWINDOW, MAKEINTRESOURCEW(aClass), nullptr, WS_POPUP, 0, 0, 0,
                                     0, nullptr, nullptr, nullptr, nullptr);
}

// The window of another thread is that thread's to destroy.
void StopListening()
{
    const HWND hwnd = s_hwndListener.exchange(nullptr);
    if (!hwnd) {
        return;
    }
    if (GetWindowThreadProcessId(hwnd, nullptr) == GetCurrentThreadId()) {
        DestroyWindow(hwnd);
    } else {
        PostMessageW(hwnd, WM_CLOSE, 0, 0);
    }
}

// What anybody hears of.
constinit std::atomic<bool> s_fForColors = false;
constinit std::atomic<bool> s_fForTexts = false;

void Listen()
{
    s_fForColors || s_fForTexts ? StartListening() : StopListening();
}

using SetAttribute = HRESULT(WINAPI*)(HWND, DWORD, LPCVOID, DWORD);

// Null where the system has no such operation: captions stay as they are. The module stays, as it does in any
// program with windows.
SetAttribute LookUpSetAttribute()
{
    static constinit std::atomic<void*> s_pfn = nullptr;
    if (!s_pfn) {
        const HMODULE hModule = LoadLibraryW(L"dwmapi.dll");
        s_pfn = hModule ? reinterpret_cast<void*>(GetProcAddress(hModule, "DwmSetWindowAttribute")) : nullptr;
    }
    return reinterpret_cast<SetAttribute>(s_pfn.load());
}

void SetDarkCaption(HWND hDlg, BOOL fDark)
{
    constexpr DWORD USE_IMMERSIVE_DARK_MODE = 20;
    if (const SetAttribute pfn = LookUpSetAttribute()) {
        pfn(hDlg, USE_IMMERSIVE_DARK_MODE, &fDark, sizeof(fDark));
    }
}

} // namespace

ColorScheme SchemeOfSystem()
{
    if (HasContrastTheme()) {
        return ColorScheme::Contrast;
    }
    return AreProgramsDark() ? ColorScheme::Dark : ColorScheme::Light;
}

void FollowSystem(bool fFollow)
{
    s_fForColors = fFollow;
    Listen();
}

void HearOfTextSize(bool fHear)
{
    s_fForTexts = fHear;
    Listen();
}

// The frame is painted anew whenever the scheme changes.
void FitCaption(HWND hDlg, UINT uMsg)
{
    if (uMsg != WM_INITDIALOG && uMsg != WM_NCPAINT) {
        return;
    }
    const bool fDark = ActiveColorScheme() == ColorScheme::Dark;
    const bool fMarked = GetPropW(hDlg, CAPTION_MARK);
    if (fDark != fMarked && SetPropW(hDlg, CAPTION_MARK, reinterpret_cast<HANDLE>(INT_PTR{fDark}))) {
        SetDarkCaption(hDlg, fDark);
    }
}

} // namespace gesso
