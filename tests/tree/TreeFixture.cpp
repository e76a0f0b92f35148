#include "TreeFixture.h"

namespace test {
namespace {

bool IsOfFocus(int code)
{
    return code == FOCUS_SET || code == FOCUS_KILLED;
}

} // namespace

Lines Expansion(int row, int action, int keys)
{
    const std::string rest = " row " + std::to_string(row) + " action " + std::to_string(action) +
                             " at -1,0 keys " + std::to_string(keys);
    return {std::to_string(EXPANDING) + rest, std::to_string(EXPANDED) + rest};
}

TreeHost::TreeHost() : m_hWnd(MakeHostWindow(L"GessoTestTreeHost", WindowProc, this)) {}

TreeHost::~TreeHost()
{
    onNotify = nullptr;
    DestroyWindow(m_hWnd);
}

Lines TreeHost::TakeLines()
{
    Lines lines;
    for (const TreeNotified& n : Take()) {
        const GLISTNOTIFY& r = n.record;
        std::string line = std::to_string(n.code);
        if (!IsOfFocus(n.code)) {
            EXPECT_EQ(r.iSubItem, -1);
            line += " row " + std::to_string(r.iItem) + " action " + std::to_string(r.uAction) + " at " +
                    std::to_string(r.x) + "," + std::to_string(r.y) + " keys " + std::to_string(r.uKeyFlags);
        }
        lines.push_back(line);
    }
    return lines;
}

LRESULT TreeHost::Note(const NMHDR& header)
{
    TreeNotified notified{static_cast<int>(header.code), {}};
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

LRESULT CALLBACK TreeHost::WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    auto* host = reinterpret_cast<TreeHost*>(GetWindowLongPtrW(hwnd, GWLP_USERDATA));
    if (host && uMsg == WM_NOTIFY) {
        return host->Note(*reinterpret_cast<const NMHDR*>(lParam));
    }
    if (host && uMsg == WM_COMMAND && LOWORD(wParam) == TREE_ID) {
        ++host->m_nClicks;
    }
    return DefWindowProcW(hwnd, uMsg, wParam, lParam);
}

} // namespace test
