// Modal dialogs over a host window, driven from within.
#pragma once

#include "../support/Host.h"
#include "../support/User.h"
#if !defined(_WIN32)
#include "../headless/FreshDesktop.h"
#endif

#include <gtest/gtest.h>

namespace test {

using Lines = std::vector<std::string>;

// On the simulated desktop nothing may be left at the end of what the test made.
class ModalTest : public testing::Test
{
protected:
    HWND Parent() const { return m_host; }

    // Has the dialog that is active then do something, once its loop has nothing else to do.
    static void WhenIdle(const std::function<void(HWND)>& act)
    {
        user::WhenIdle([act] { act(GDialog::s_hActiveDlg); });
    }

private:
#if !defined(_WIN32)
    FreshDesktop m_desktop;
#endif
    Host m_host;
};

} // namespace test
