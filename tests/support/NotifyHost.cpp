#include "NotifyHost.h"

#include "Numbers.h"

#include <gtest/gtest.h>

namespace test {
namespace {

bool IsOfFocus(int code)
{
    return code == FOCUS_SET || code == FOCUS_KILLED || code == EDIT_LEFT;
}

} // namespace

NotifyHost::NotifyHost() : m_hWnd(MakeHostWindow(L"GessoTestNotifyHost", WindowProc, this)) {}

NotifyHost::~NotifyHost()
{
    onNotify = nullptr;
    DestroyWindow(m_hWnd);
}

std::vector<int> NotifyHost::TakeCodes()
{
    std::vector<int> codes;
    for (const Notified& notified : Take()) {
        codes.push_back(notified.code);
    }
    return codes;
}

Reports NotifyHost::TakeLines()
{
    Reports lines;
    for (const Notified& notified : Take()) {
        const GLISTNOTIFY& r = notified.record;
        std::string line = std::to_string(notified.code);
        if (!IsOfFocus(notified.code)) {
            EXPECT_EQ(r.iSubItem, -1);
            line += " row " + std::to_string(r.iItem) + " action " + std::to_string(r.uAction) + " at " +
                    Numbers(r.x, r.y) + " keys " + std::to_string(r.uKeyFlags);
        }
        lines.push_back(line);
    }
    return lines;
}

LRESULT NotifyHost::Note(const NMHDR& header)
{
    Notified notified{static_cast<int>(header.code), {}};
    notified.record.hdr = header;
    if (!IsOfFocus(notified.code)) {
        notified.record = reinterpret_cast<const GLISTNOTIFY&>(header);
    }
    m_notified.push_back(notified);
    if (onNotify) {
        onNotify(notified);
    }
    return answer;
}

LRESULT CALLBACK NotifyHost::WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    auto* pHost = reinterpret_cast<NotifyHost*>(GetWindowLongPtrW(hwnd, GWLP_USERDATA));
    if (pHost && uMsg == WM_NOTIFY) {
        return pHost->Note(*reinterpret_cast<const NMHDR*>(lParam));
    }
    if (pHost && uMsg == WM_COMMAND) {
        ++pHost->m_nClicks;
    }
    return DefWindowProcW(hwnd, uMsg, wParam, lParam);
}

} // namespace test
