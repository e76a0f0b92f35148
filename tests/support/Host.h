// A top-level window that notes what its children report, and may be told what to do at the next report.
#pragma once

#include <gesso/gesso.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace test {

// A text as UTF-8, to be compared and printed; "(null)" for a null pointer.
std::string Narrow(LPCWSTR psz);

// A control's text through WM_GETTEXT.
std::string TextOf(HWND hwnd);

// Whether a window is to be painted; it counts as painted afterwards.
bool TakeRepaint(HWND hwnd);

// What is pending in the queue is dispatched; no waiting.
void DispatchAll();

// Where host windows stand on the screen.
constexpr int HOST_X = 50;
constexpr int HOST_Y = 50;

// Starts the library and makes a visible top-level window that has the focus, with `pHost` as its
// GWLP_USERDATA from then on; its class is registered when there is none of that name yet.
HWND MakeHostWindow(LPCWSTR pszClass, WNDPROC pfn, void* pHost);

class Host
{
public:
    Host();
    ~Host();
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    HWND Window() const { return m_hWnd; }
    operator HWND() const { return m_hWnd; }

    // The reports since the last call, in order: "click 12", "click 12 code 1 value 1", "setfocus 12",
    // "killfocus 12", "notify 12 code -101", "lineup 12", "linedown 12", "pageup 12", "pagedown 12",
    // "thumbtrack 12 at 40".
    std::vector<std::string> TakeReports() { return std::exchange(m_reports, {}); }
    // Called within each report, before it is answered.
    std::function<void(const std::string&)> onReport;
    // Called with the record of each WM_NOTIFY, before its report.
    std::function<void(const NMHDR&)> onNotify;

private:
    static LRESULT CALLBACK WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam);
    void Report(const std::string& report);

    HWND m_hWnd;
    std::vector<std::string> m_reports;
};

using Reports = std::vector<std::string>;

} // namespace test
