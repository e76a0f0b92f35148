// What the controls report, in words: the lines at the gallery's foot and in the file that --log names.
#pragma once

#include <gesso/gesso.h>

#include <cstdio>
#include <deque>
#include <string>

namespace gallery {

// "WM_COMMAND id 12 code 0 from GButton 'Save'"; "WM_COMMAND id 12 code 0 value 1" where that is no window.
std::wstring DescribeCommand(UINT uId, UINT uCode, HWND hwndFrom);
// "WM_NOTIFY id 12 code NM_SETFOCUS from GButton 'Save'"
std::wstring DescribeNotify(const NMHDR& header);
// "WM_CONTEXTMENU at 20, 30 from GList ''", in the window's client area; "by the keyboard" in the place of
// the point.
std::wstring DescribeContextMenu(HWND hwndFrom, POINT ptScreen);
std::wstring DescribeScroll(UINT uCode, UINT uPos, HWND hwndFrom);

// A window's class and text as the log names them: GButton 'Save'.
std::wstring DescribeWindow(HWND hwnd);
std::wstring ClassOf(HWND hwnd);
std::wstring TextOf(HWND hwnd);

class Report
{
public:
    static constexpr size_t LINES_SHOWN = 4;

    ~Report();
    // Writes every line to a file as well, at once. False where it could not be made.
    bool OpenFile(const std::wstring& path);
    void Add(const std::wstring& line);
    // The last lines, oldest first, numbered, for a label.
    std::wstring LastLines() const;

private:
    std::deque<std::wstring> m_last;
    int m_nCount = 0;
    FILE* m_file = nullptr;
};

// With a space in the place of each line end and tab.
std::wstring OneLine(std::wstring text);
std::string ToUtf8(const std::wstring& text);

} // namespace gallery
