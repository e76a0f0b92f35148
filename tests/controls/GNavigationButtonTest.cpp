#include "../support/Host.h"

#include <gtest/gtest.h>

namespace {

using test::Host;
using test::Reports;

class ProbeButton : public GNavigationButton
{
public:
    DWORD State() const { return m_dwState; }
};

class GNavigationButtonTest : public testing::Test
{
protected:
    void SetUp() override
    {
        InitControls();
        ASSERT_TRUE(button.Create(10, 10, 30, 30, host, 12, 0, WS_CHILD | WS_VISIBLE | WS_TABSTOP));
    }
    void TearDown() override { DestroyWindow(button); }

    LRESULT Send(UINT uMsg, WPARAM wParam = 0, LPARAM lParam = 0)
    {
        return SendMessageW(button, uMsg, wParam, lParam);
    }

    Host host;
    ProbeButton button;
};

TEST_F(GNavigationButtonTest, StartsWithNoStateAndHasNoUiState)
{
    EXPECT_EQ(button.State(), 0u);
    Send(WM_UPDATEUISTATE, MAKEWPARAM(UIS_SET, UISF_HIDEFOCUS | UISF_HIDEACCEL));
    EXPECT_EQ(button.State(), 0u);
    EXPECT_EQ(Send(WM_GETDLGCODE), DLGC_BUTTON);
    EXPECT_EQ(Send(WM_GETFONT), 0);
}

TEST_F(GNavigationButtonTest, DisablingKeepsAHeldSpaceKey)
{
    Send(WM_MOUSEMOVE, 0, MAKELPARAM(5, 5));
    Send(WM_LBUTTONDOWN, 0, MAKELPARAM(5, 5));
    Send(WM_KEYDOWN, VK_SPACE);
    Send(WM_ENABLE, FALSE);
    EXPECT_EQ(button.State() & 7, GWS_KEYDOWN);
    ReleaseCapture();
    host.TakeReports();
    Send(WM_KEYUP, VK_SPACE);
    EXPECT_EQ(host.TakeReports(), Reports{"click 12"});
}

TEST_F(GNavigationButtonTest, EnableAndKeyReleaseAskForTheRepaintBeforeTheStateChanges)
{
    class Watcher : public GNavigationButton
    {
    public:
        void Invalidate(int bErase) override
        {
            seen.push_back(m_dwState & (GWS_HOT | GWS_PRESSED | GWS_KEYDOWN));
            GNavigationButton::Invalidate(bErase);
        }
        std::vector<DWORD> seen;
    } watcher;
    watcher.Create(50, 10, 30, 30, host, 13, 0, WS_CHILD | WS_VISIBLE);
    SendMessageW(watcher, WM_MOUSEMOVE, 0, MAKELPARAM(5, 5));
    SendMessageW(watcher, WM_KEYDOWN, VK_SPACE, 0);
    watcher.seen.clear();
    SendMessageW(watcher, WM_KEYUP, VK_SPACE, 0);
    SendMessageW(watcher, WM_ENABLE, FALSE, 0);
    EXPECT_EQ(watcher.seen, (std::vector<DWORD>{GWS_HOT | GWS_KEYDOWN, GWS_HOT}));
    DestroyWindow(watcher);
}

} // namespace
