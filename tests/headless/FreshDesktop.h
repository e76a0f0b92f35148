// What the tests of controls on the simulated desktop share: a fresh one each, its record, and its pointer.
#pragma once

#include "Faults.h"

#include <gesso/gesso.h>
#include <string>
#include <vector>

namespace test {

namespace desk = gesso::headless;

// A fresh desktop below a fixture; at the end nothing may be left of what the test made, and no fault that
// never fired.
class FreshDesktop
{
public:
    FreshDesktop()
    {
        desk::Reset();
        InitControls();
        m_before = desk::Live();
    }
    ~FreshDesktop()
    {
        EndFaults();
        EXPECT_EQ(desk::Live(), m_before);
        EXPECT_TRUE(desk::HeapIsClean());
    }
    FreshDesktop(const FreshDesktop&) = delete;
    FreshDesktop& operator=(const FreshDesktop&) = delete;

private:
    desk::Census m_before;
};

using Lines = std::vector<std::string>;

// The lines of a window's next paint that start with a word.
inline Lines NextPaint(HWND hwnd, const std::string& word)
{
    desk::Pump();
    desk::ClearDrawing(hwnd);
    InvalidateRect(hwnd, nullptr, FALSE);
    desk::Pump();
    Lines lines = desk::Drawing(hwnd);
    std::erase_if(lines, [&](const std::string& line) { return !line.starts_with(word); });
    return lines;
}

// What follows the word in those lines.
inline Lines NextPaintBehind(HWND hwnd, const std::string& word)
{
    Lines lines = NextPaint(hwnd, word);
    for (std::string& line : lines) {
        line = line.substr(word.size());
    }
    return lines;
}

// Takes the pointer to a point of a window's client area, where a press and a release come then.
inline void PointAt(HWND hwnd, int x, int y)
{
    POINT pt{x, y};
    ClientToScreen(hwnd, &pt);
    desk::MoveMouse(pt.x, pt.y);
    desk::Pump();
}
inline void PressThere()
{
    desk::PressButton();
    desk::Pump();
}
inline void ReleaseThere()
{
    desk::ReleaseButton();
    desk::Pump();
}

} // namespace test
