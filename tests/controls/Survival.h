// A control whose parent destroys it in the middle of a report, as it may in any.
#pragma once

#include "../support/Host.h"

#include <gtest/gtest.h>

namespace test {

// Lets the parent destroy window and object at a report that the act brings about.
inline void ExpectSurvival(Host& host, const std::string& report, GWnd* pDoomed,
                           const std::function<void(HWND)>& act)
{
    const HWND hwnd = pDoomed->GetHwnd();
    host.onReport = [&](const std::string& got) {
        if (got == report) {
            host.onReport = nullptr;
            DestroyWindow(hwnd);
            pDoomed->Delete(pDoomed);
        }
    };
    act(hwnd);
    EXPECT_FALSE(IsWindow(hwnd)) << report;
    EXPECT_EQ(GetCapture(), nullptr) << report;
    SetFocus(host);
}

} // namespace test
