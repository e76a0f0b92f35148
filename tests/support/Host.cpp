#include "Host.h"

namespace test {
namespace {

void RegisterHostClass(LPCWSTR pszClass, WNDPROC pfn)
{
    WNDCLASSEXW record{};
    record.cbSize = sizeof(record);
    if (GetClassInfoExW(GetModuleHandleW(nullptr), pszClass, &record)) {
        return;
    }
    record.cbSize = sizeof(record);
    record.lpfnWndProc = pfn;
    record.hInstance = GetModuleHandleW(nullptr);
    record.lpszClassName = pszClass;
    RegisterClassExW(&record);
}

std::string DescribeNotify(const NMHDR& header)
{
    const std::string id = std::to_string(header.idFrom);
    switch (header.code) {
    case static_cast<UINT>(NM_SETFOCUS): return "setfocus " + id;
    case static_cast<UINT>(NM_KILLFOCUS): return "killfocus " + id;
    default: return "notify " + id + " code " + std::to_string(static_cast<int>(header.code));
    }
}

// A value that is a window says no more than the id.
std::string DescribeCommand(WPARAM wParam, LPARAM lParam)
{
    const std::string code = HIWORD(wParam) ? " code " + std::to_string(HIWORD(wParam)) : "";
    const bool fValue = lParam && !IsWindow(reinterpret_cast<HWND>(lParam));
    return "click " + std::to_string(LOWORD(wParam)) + code +
           (fValue ? " value " + std::to_string(lParam) : "");
}

std::string DescribeScroll(WPARAM wParam, LPARAM lParam)
{
    const std::string id = std::to_string(GetDlgCtrlID(reinterpret_cast<HWND>(lParam)));
    switch (LOWORD(wParam)) {
    case SB_LINEUP: return "lineup " + id;
    case SB_LINEDOWN: return "linedown " + id;
    case SB_PAGEUP: return "pageup " + id;
    case SB_PAGEDOWN: return "pagedown " + id;
    case SB_THUMBTRACK: return "thumbtrack " + id + " at " + std::to_string(HIWORD(wParam));
    default: return "scroll " + id + " code " + std::to_string(LOWORD(wParam));
    }
}

} // namespace

std::string Narrow(LPCWSTR psz)
{
    if (!psz) {
        return "(null)";
    }
    const int nBytes = WideCharToMultiByte(CP_UTF8, 0, psz, -1, nullptr, 0, nullptr, nullptr);
    std::string text(static_cast<size_t>(nBytes), 0);
    WideCharToMultiByte(CP_UTF8, 0, psz, -1, text.data(), nBytes, nullptr, nullptr);
    text.resize(text.size() - 1);
    return text;
}

std::string TextOf(HWND hwnd)
{
    std::vector<wchar_t> buffer(static_cast<size_t>(SendMessageW(hwnd, WM_GETTEXTLENGTH, 0, 0)) + 1);
    SendMessageW(hwnd, WM_GETTEXT, buffer.size(), reinterpret_cast<LPARAM>(buffer.data()));
    return Narrow(buffer.data());
}

bool TakeRepaint(HWND hwnd)
{
    const bool fRepaint = GetUpdateRect(hwnd, nullptr, FALSE);
    ValidateRect(hwnd, nullptr);
    return fRepaint;
}

void DispatchAll()
{
    MSG msg{};
    while (PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&msg);
        DispatchMessageW(&msg);
    }
}

HWND MakeHostWindow(LPCWSTR pszClass, WNDPROC pfn, void* pHost)
{
    InitControls();
    RegisterHostClass(pszClass, pfn);
    const HWND hwnd = CreateWindowExW(0, pszClass, L"Host", WS_POPUP | WS_VISIBLE, HOST_X, HOST_Y, 400, 300,
                                      nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    SetWindowLongPtrW(hwnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(pHost));
    SetForegroundWindow(hwnd);
    SetFocus(hwnd);
    return hwnd;
}

Host::Host() : m_hWnd(MakeHostWindow(L"GessoTestHost", WindowProc, this)) {}

Host::~Host()
{
    onReport = nullptr;
    DestroyWindow(m_hWnd);
}

void Host::Report(const std::string& report)
{
    m_reports.push_back(report);
    // A copy, since it may put another in its own place.
    if (const auto act = onReport) {
        act(report);
    }
}

LRESULT CALLBACK Host::WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    auto* pHost = reinterpret_cast<Host*>(GetWindowLongPtrW(hwnd, GWLP_USERDATA));
    if (uMsg == WM_ERASEBKGND) {
        RECT rc{};
        GetClientRect(hwnd, &rc);
        return FillRect(reinterpret_cast<HDC>(wParam), &rc, GetSysColorBrush(COLOR_BTNFACE));
    }
    if (pHost && uMsg == WM_COMMAND) {
        pHost->Report(DescribeCommand(wParam, lParam));
        return 0;
    }
    if (pHost && uMsg == WM_NOTIFY) {
        const auto& header = *reinterpret_cast<const NMHDR*>(lParam);
        if (pHost->onNotify) {
            pHost->onNotify(header);
        }
        pHost->Report(DescribeNotify(header));
        return 0;
    }
    if (pHost && uMsg == WM_VSCROLL) {
        pHost->Report(DescribeScroll(wParam, lParam));
        return 0;
    }
    return DefWindowProcW(hwnd, uMsg, wParam, lParam);
}

} // namespace test
