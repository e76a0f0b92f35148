// Looks at what a control draws, through the desktop's record.
#pragma once

#include <gesso/gesso.h>
#include <platform/headless/headless.h>

#include "../../support/Host.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <sstream>

namespace test {

namespace desk = gesso::headless;
using Lines = std::vector<std::string>;

inline bool AnyStartsWith(const Lines& lines, const std::string& start)
{
    return std::any_of(lines.begin(), lines.end(),
                       [&](const std::string& line) { return line.starts_with(start); });
}

// The controls in a window: "12 'Save' (10,20,98,46)", each with its id, text and place, in the order of
// making.
inline Lines Controls(HWND hwndParent)
{
    Lines controls;
    for (HWND hwnd = GetWindow(hwndParent, GW_CHILD); hwnd; hwnd = GetWindow(hwnd, GW_HWNDNEXT)) {
        RECT rc{};
        GetWindowRect(hwnd, &rc);
        MapWindowPoints(nullptr, hwndParent, reinterpret_cast<POINT*>(&rc), 2);
        std::ostringstream line;
        line << GetDlgCtrlID(hwnd) << " '" << TextOf(hwnd) << "' (" << rc.left << "," << rc.top << ","
             << rc.right << "," << rc.bottom << ")";
        controls.push_back(line.str());
    }
    return controls;
}

// A fresh desktop with a host window of 400 x 300; at the end nothing may be left of what the test made.
class DrawFixture : public testing::Test
{
protected:
    void SetUp() override
    {
        desk::Reset();
        InitControls();
        m_before = desk::Live();
        m_host.emplace();
    }
    void TearDown() override
    {
        m_host.reset();
        EXPECT_EQ(desk::Live(), m_before);
        EXPECT_TRUE(desk::HeapIsClean());
    }

    HWND Parent() const { return *m_host; }
    Host& TheHost() { return *m_host; }

    // The lines of a control's next paint that start with a word.
    static Lines Draw(HWND hwnd, const std::string& word)
    {
        desk::Pump();
        desk::ClearDrawing(hwnd);
        InvalidateRect(hwnd, nullptr, FALSE);
        desk::Pump();
        Lines lines = desk::Drawing(hwnd);
        std::erase_if(lines, [&](const std::string& line) { return !line.starts_with(word); });
        return lines;
    }

private:
    desk::Census m_before;
    std::optional<Host> m_host;
};

} // namespace test
