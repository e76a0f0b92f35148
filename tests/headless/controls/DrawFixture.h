// Looks at what a control draws, through the desktop's record.
#pragma once

#include "../../support/Host.h"
#include "../../support/Numbers.h"
#include "../FreshDesktop.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>

namespace test {

inline bool AnyStartsWith(const Lines& lines, const std::string& start)
{
    return std::any_of(lines.begin(), lines.end(),
                       [&](const std::string& line) { return line.starts_with(start); });
}

// The place in a line, as "(3,5,96,34)".
inline std::string PlaceOf(const std::string& line)
{
    return line.substr(line.find('('), line.find(')') - line.find('(') + 1);
}

// A button with its state in the open.
template <class CONTROL> struct OpenState : CONTROL
{
    using CONTROL::m_dwState;
};

// What bits of the state and the style make of a part's state.
struct PartState
{
    DWORD dwState, dwStyle;
    int nState;
};

// The controls in a window: "12 'Save' (10,20,98,46)", each with its id, text and place, in the order of
// making.
inline Lines Controls(HWND hwndParent)
{
    Lines controls;
    for (HWND hwnd = GetWindow(hwndParent, GW_CHILD); hwnd; hwnd = GetWindow(hwnd, GW_HWNDNEXT)) {
        controls.push_back(std::to_string(GetDlgCtrlID(hwnd)) + " '" + TextOf(hwnd) + "' (" +
                           Numbers(PlaceIn(hwndParent, hwnd)) + ")");
    }
    return controls;
}

// A fresh desktop with a host window of 400 x 300; at the end nothing may be left of what the test made.
class DrawFixture : public testing::Test
{
protected:
    void TearDown() override
    {
        m_host.reset();
        m_desktop.reset();
    }

    HWND Parent() const { return *m_host; }
    Host& TheHost() { return *m_host; }

    // The lines of a control's next paint that start with a word.
    static Lines Draw(HWND hwnd, const std::string& word) { return NextPaint(hwnd, word); }

    // Looks at the one part that a button draws, named "CLASS part ", by its states.
    template <class CONTROL>
    static void ExpectStates(OpenState<CONTROL>& control, const std::string& part,
                             std::initializer_list<PartState> rows)
    {
        for (const PartState& row : rows) {
            control.m_dwState = row.dwState;
            control.SetStyle(WS_CHILD | WS_VISIBLE | row.dwStyle);
            const Lines lines = Draw(control, "DrawThemeBackground");
            ASSERT_EQ(lines.size(), 1u);
            EXPECT_EQ(lines[0].substr(0, lines[0].find(" (")),
                      "DrawThemeBackground " + part + std::to_string(row.nState))
                << row.dwState << " " << row.dwStyle;
        }
    }

    // An icon of so many pixels a side.
    static HICON MakeIcon(int nSide)
    {
        ICONINFO info{TRUE, 0, 0, CreateBitmap(nSide, nSide, 1, 1, nullptr),
                      CreateBitmap(nSide, nSide, 1, 32, nullptr)};
        const HICON hIcon = CreateIconIndirect(&info);
        DeleteObject(info.hbmMask);
        DeleteObject(info.hbmColor);
        return hIcon;
    }

private:
    std::optional<FreshDesktop> m_desktop{std::in_place};
    std::optional<Host> m_host{std::in_place};
};

} // namespace test
