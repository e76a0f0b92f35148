// The desktop's other side: the process itself, with a user whose input the session delivers.
#include "../Desktop.h"

#include <gallery/Held.h>
#include <platform/headless/headless.h>

#include <algorithm>
#include <atomic>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <sstream>
#include <utility>

namespace attack::desk {

namespace {

// The platform makes them for the thread, once.
bool IsOfPlatform(HWND hwnd)
{
    wchar_t name[32]{};
    GetClassNameW(hwnd, name, 32);
    return wcscmp(name, L"IME") == 0 || wcsncmp(name, L"MSCTFIME", 8) == 0;
}

BOOL CALLBACK NoteWindow(HWND hwnd, LPARAM lParam)
{
    if (!IsOfPlatform(hwnd)) {
        reinterpret_cast<std::vector<HWND>*>(lParam)->push_back(hwnd);
    }
    return TRUE;
}

void SendMouse(DWORD dwFlags)
{
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = dwFlags;
    SendInput(1, &input, sizeof(input));
}

} // namespace

// --- Dialogs that give a control of theirs the focus

namespace {

std::vector<HWND> s_focusing;

bool PassesFocusOn(UINT uMsg)
{
    return uMsg == WM_ACTIVATE || uMsg == WM_SETFOCUS;
}

bool IsDialog(HWND hwnd)
{
    return GetClassLongPtrW(hwnd, GCW_ATOM) == reinterpret_cast<ULONG_PTR>(WC_DIALOG);
}

LRESULT CALLBACK OnSent(int nCode, WPARAM wParam, LPARAM lParam)
{
    const auto& sent = *reinterpret_cast<const CWPSTRUCT*>(lParam);
    if (nCode == HC_ACTION && PassesFocusOn(sent.message) && IsDialog(sent.hwnd)) {
        s_focusing.push_back(sent.hwnd);
    }
    return CallNextHookEx(nullptr, nCode, wParam, lParam);
}

LRESULT CALLBACK OnReturned(int nCode, WPARAM wParam, LPARAM lParam)
{
    const auto& sent = *reinterpret_cast<const CWPRETSTRUCT*>(lParam);
    if (nCode == HC_ACTION && PassesFocusOn(sent.message) && !s_focusing.empty() &&
        s_focusing.back() == sent.hwnd)
    {
        s_focusing.pop_back();
    }
    return CallNextHookEx(nullptr, nCode, wParam, lParam);
}

void WatchFocus()
{
    SetWindowsHookExW(WH_CALLWNDPROC, OnSent, nullptr, GetCurrentThreadId());
    SetWindowsHookExW(WH_CALLWNDPROCRET, OnReturned, nullptr, GetCurrentThreadId());
}

} // namespace

// Wine writes into a dialog's data once it has given a control of it the focus, whether or not the dialog is
// still there.
bool IsHostFree()
{
    std::erase_if(s_focusing, [](HWND hwnd) { return !IsWindow(hwnd); });
    return s_focusing.empty();
}

// A key or a button that a run left down would be pressed in the next one as well.
void Reset()
{
    for (int vk = 0; vk < 256; ++vk) {
        if (GetAsyncKeyState(vk) < 0) {
            keybd_event(static_cast<BYTE>(vk), 0, KEYEVENTF_KEYUP, 0);
        }
    }
    for (const Button button : {Button::Left, Button::Right, Button::Middle}) {
        ReleaseButton(button);
    }
    Pump();
}

std::vector<HWND> TopLevelWindows()
{
    std::vector<HWND> windows;
    EnumThreadWindows(GetCurrentThreadId(), NoteWindow, reinterpret_cast<LPARAM>(&windows));
    return windows;
}

HMODULE HostModule()
{
    return GetModuleHandleW(nullptr);
}

HMODULE LibraryModule()
{
    return GetModuleHandleW(L"gesso.dll");
}

std::string MessageName(UINT uMsg)
{
    return gesso::headless::MessageName(uMsg);
}

// --- A user, and the time

void PressButton(Button button)
{
    SendMouse(button == Button::Left    ? MOUSEEVENTF_LEFTDOWN
              : button == Button::Right ? MOUSEEVENTF_RIGHTDOWN
                                        : MOUSEEVENTF_MIDDLEDOWN);
}

void ReleaseButton(Button button)
{
    SendMouse(button == Button::Left    ? MOUSEEVENTF_LEFTUP
              : button == Button::Right ? MOUSEEVENTF_RIGHTUP
                                        : MOUSEEVENTF_MIDDLEUP);
}

void SwitchAway()
{
    SetForegroundWindow(GetDesktopWindow());
}

void SetClipboardText(std::string_view text)
{
    const std::wstring wide(text.begin(), text.end());
    const size_t nBytes = (wide.size() + 1) * sizeof(wchar_t);
    if (!OpenClipboard(nullptr)) {
        return;
    }
    EmptyClipboard();
    const HGLOBAL hText = GlobalAlloc(GMEM_MOVEABLE, nBytes);
    std::memcpy(GlobalLock(hText), wide.c_str(), nBytes);
    GlobalUnlock(hText);
    SetClipboardData(CF_UNICODETEXT, hText);
    CloseClipboard();
}

std::atomic<UINT> s_nMoves = 0; // of the user and of the loops

constexpr UINT MOST_MESSAGES = 5000; // of one look into the queue

// The idle timer, which is no window's, is for the loops of others.
void Pump()
{
    MSG message{};
    UINT nLeft = MOST_MESSAGES;
    ++s_nMoves;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) && message.message != WM_QUIT) {
        if (--nLeft == 0) {
            std::fprintf(stderr, "attack: the loop does not end: %s\n", MessageName(message.message).c_str());
            std::abort();
        }
        if (message.hwnd || message.message != WM_TIMER) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
}

void LetPass(DWORD dwMilliseconds)
{
    const DWORD dwWait = std::min(dwMilliseconds, LONGEST_WAIT);
    const DWORD dwStart = GetTickCount();
    for (DWORD dwGone = 0; dwGone < dwWait; dwGone = GetTickCount() - dwStart) {
        MsgWaitForMultipleObjects(0, nullptr, FALSE, dwWait - dwGone, QS_ALLINPUT);
        Pump();
    }
}

namespace {

void (*s_pfnIdle)() = nullptr;

void CALLBACK RunIdle(HWND, UINT, UINT_PTR, DWORD)
{
    ++s_nMoves;
    if (void (*pfn)() = std::exchange(s_pfnIdle, nullptr)) {
        pfn();
    }
}

} // namespace

void WhenIdle(void (*pfn)())
{
    static const UINT_PTR TIMER = SetTimer(nullptr, 0, USER_TIMER_MINIMUM, RunIdle);
    static_cast<void>(TIMER);
    s_pfnIdle = pfn;
}

// --- The style, and faults

void SetThemed(HWND hwnd, bool fThemed)
{
    SetWindowTheme(hwnd, fThemed ? nullptr : L"", fThemed ? nullptr : L"");
}

void ClearFaults() {}

// --- What the process holds

// Windows first, and then GDI objects by their types.
Census Live()
{
    Census census{{static_cast<int>(gallery::Windows(GetCurrentThreadId()))}};
    const std::vector<int> objects = gallery::GdiObjectsByType();
    census.counts.insert(census.counts.end(), objects.begin(), objects.end());
    return census;
}

bool Grew(const Census& before, const Census& after)
{
    for (size_t n = 0; n < after.counts.size(); ++n) {
        if (after.counts[n] > before.counts[n]) {
            return true;
        }
    }
    return false;
}

std::string Told(const Census& census)
{
    std::ostringstream out;
    int nObjects = 0;
    std::string types;
    for (size_t n = 1; n < census.counts.size(); ++n) {
        nObjects += census.counts[n];
        if (census.counts[n] > 0) {
            types += " " + std::to_string(n - 1) + ":" + std::to_string(census.counts[n]);
        }
    }
    out << census.counts[0] << " windows " << nObjects << " GDI objects (by type" << types << ")";
    return out.str();
}

bool HeapIsClean()
{
    return true;
}

// --- Its end

namespace {

void (*s_pfnTell)() = nullptr;
std::atomic<ULONGLONG> s_nEnd = 0; // by the clock
HANDLE s_hMain = nullptr;

// Where a module stands in which an address lies, by its file's own addresses.
void TellAddress(const char* pszWhat, DWORD64 nAddress)
{
    HMODULE hModule = nullptr;
    wchar_t name[MAX_PATH]{};
    if (GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                               GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                           reinterpret_cast<LPCWSTR>(nAddress), &hModule))
    {
        GetModuleFileNameW(hModule, name, MAX_PATH);
        const wchar_t* const pszName = wcsrchr(name, L'\\');
        std::fprintf(stderr, "  %s %ls+0x%llx\n", pszWhat, pszName ? pszName + 1 : name,
                     nAddress - reinterpret_cast<DWORD64>(hModule));
    }
}

// Each word of the stack's last page or so that is an address of code.
void TellStack(const CONTEXT& context)
{
    TellAddress("at", context.Rip);
    const auto* pWords = reinterpret_cast<const DWORD64*>(context.Rsp);
    MEMORY_BASIC_INFORMATION memory{};
    VirtualQuery(pWords, &memory, sizeof(memory));
    const auto* pEnd =
        reinterpret_cast<const DWORD64*>(static_cast<const BYTE*>(memory.BaseAddress) + memory.RegionSize);
    for (int n = 0; n < 800 && pWords + n < pEnd; ++n) {
        HMODULE hModule = nullptr;
        if (pWords[n] &&
            GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                                   GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                               reinterpret_cast<LPCWSTR>(pWords[n]), &hModule) &&
            (hModule == HostModule() || hModule == LibraryModule()))
        {
            TellAddress("by", pWords[n]);
        }
    }
}

// Faults alone: what else is raised is for somebody to catch.
bool IsFault(DWORD dwCode)
{
    return dwCode == EXCEPTION_ACCESS_VIOLATION || dwCode == EXCEPTION_ILLEGAL_INSTRUCTION ||
           dwCode == EXCEPTION_INT_DIVIDE_BY_ZERO || dwCode == EXCEPTION_STACK_OVERFLOW;
}

// Before all others, since Wine goes on after a fault in a window's procedure.
LONG CALLBACK OnException(EXCEPTION_POINTERS* pInfo)
{
    if (!IsFault(pInfo->ExceptionRecord->ExceptionCode)) {
        return EXCEPTION_CONTINUE_SEARCH;
    }
    std::fprintf(stderr, "attack: exception %08lx\n", pInfo->ExceptionRecord->ExceptionCode);
    TellStack(*pInfo->ContextRecord);
    s_pfnTell();
    std::fflush(stderr);
    TerminateProcess(GetCurrentProcess(), 1);
    return EXCEPTION_CONTINUE_SEARCH;
}

extern "C" void OnAbort(int)
{
    s_pfnTell();
    std::fflush(stderr);
    TerminateProcess(GetCurrentProcess(), 1);
}

// A press on a caption or on its buttons waits in a loop that takes nothing but the mouse's messages. A
// user's would go to whatever is in front, and that need not be a window of this program.
void ReleaseWhereNothingMoves()
{
    static UINT s_nSeen = 0;
    if (std::exchange(s_nSeen, s_nMoves.load()) == s_nMoves) {
        PostThreadMessageW(GetThreadId(s_hMain), WM_LBUTTONUP, 0, 0);
        PostThreadMessageW(GetThreadId(s_hMain), WM_RBUTTONUP, 0, 0);
    }
}

DWORD WINAPI Watch(void*)
{
    for (;;) {
        Sleep(250);
        ReleaseWhereNothingMoves();
        const ULONGLONG nEnd = s_nEnd;
        if (nEnd && GetTickCount64() > nEnd) {
            std::fprintf(stderr, "attack: the operation does not end\n");
            CONTEXT context{};
            context.ContextFlags = CONTEXT_FULL;
            SuspendThread(s_hMain);
            GetThreadContext(s_hMain, &context);
            TellStack(context);
            OnAbort(0);
        }
    }
}

} // namespace

void AtBadEnd(void (*pfnTell)())
{
    s_pfnTell = pfnTell;
    SetErrorMode(SEM_NOGPFAULTERRORBOX | SEM_FAILCRITICALERRORS);
    AddVectoredExceptionHandler(1, OnException);
    WatchFocus();
    std::signal(SIGABRT, OnAbort);
    DuplicateHandle(GetCurrentProcess(), GetCurrentThread(), GetCurrentProcess(), &s_hMain, 0, FALSE,
                    DUPLICATE_SAME_ACCESS);
    CloseHandle(CreateThread(nullptr, 0, Watch, nullptr, 0, nullptr));
}

void EndAfter(unsigned nSeconds)
{
    s_nEnd = nSeconds ? GetTickCount64() + nSeconds * 1000ull : 0;
}

} // namespace attack::desk
