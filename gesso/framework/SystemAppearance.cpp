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

constexpr LPCWSTR LISTENER = L"GessoAppearance";
constinit ATOM s_aListener = 0;
// No lock is held while windows are made and go: who exchanges it has the former one to itself.
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

LONG_PTR AddressOf(WNDPROC pfnWindow)
{
    return reinterpret_cast<LONG_PTR>(pfnWindow);
}

// Whether it is still there: windows go with their thread, and their handles come again.
bool IsListener(HWND hwnd)
{
    return hwnd && GetWindowLongPtrW(hwnd, GWLP_WNDPROC) == AddressOf(ListenerProc);
}

// The class is the platform's own procedure, so that it outlives the library's module: the window alone leads
// here.
HWND MakeListener()
{
    RegisterControlClass(s_aListener, LISTENER, DefWindowProcW, 0);
    const HWND hwnd = CreateWindowExW(WS_EX_TOOLWINDOW, LISTENER, nullptr, WS_POPUP, 0, 0, 0, 0, nullptr,
                                      nullptr, nullptr, nullptr);
    if (hwnd) {
        SetWindowLongPtrW(hwnd, GWLP_WNDPROC, AddressOf(ListenerProc));
    }
    return hwnd;
}

// Leaves the window to the platform, which closes it once its thread looks at its messages: the library's
// module may be gone by then.
void LeaveToPlatform(HWND hwnd)
{
    SetWindowLongPtrW(hwnd, GWLP_WNDPROC, AddressOf(DefWindowProcW));
    PostMessageW(hwnd, WM_CLOSE, 0, 0);
}

void Close(HWND hwnd)
{
    if (!IsListener(hwnd)) {
        return;
    }
    if (GetWindowThreadProcessId(hwnd, nullptr) == GetCurrentThreadId()) {
        DestroyWindow(hwnd);
    } else {
        LeaveToPlatform(hwnd);
    }
}

// True where there was none.
bool StartListening()
{
    HWND hwndFormer = s_hwndListener;
    if (IsListener(hwndFormer)) {
        return false;
    }
    const HWND hwnd = MakeListener();
    if (!s_hwndListener.compare_exchange_strong(hwndFormer, hwnd)) {
        Close(hwnd); // another thread was first
        return false;
    }
    return hwnd != nullptr;
}

constinit std::atomic<bool> s_fForTexts = false;

bool IsAnybodyListening()
{
    return GetColorScheme() == ColorScheme::System || s_fForTexts;
}

using SetAttribute = HRESULT(WINAPI*)(HWND, DWORD, LPCVOID, DWORD);

// Null where the system has no such operation: captions stay as they are. From the system's folder alone; a
// system that cannot be asked for that has no dark captions either. The module stays, as it does in any
// program with windows.
SetAttribute LookUpSetAttribute()
{
    static constinit std::atomic<void*> s_pfn = nullptr;
    if (!s_pfn) {
        const HMODULE hModule = LoadLibraryExW(L"dwmapi.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
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

// What is set may change while the window is made.
void FollowSystem()
{
    if (IsAnybodyListening() && StartListening()) {
        RenewScheme(); // of what nobody has heard before
        FollowTextSize();
    }
    if (!IsAnybodyListening() && s_hwndListener) {
        StopFollowing();
    }
}

void HearOfTextSize(bool fHear)
{
    s_fForTexts = fHear;
    FollowSystem();
}

void StopFollowing()
{
    Close(s_hwndListener.exchange(nullptr));
}

void LeaveListener()
{
    const HWND hwnd = s_hwndListener.exchange(nullptr);
    if (IsListener(hwnd)) {
        LeaveToPlatform(hwnd);
    }
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
