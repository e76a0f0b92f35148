#include "ButtonFixture.h"

namespace {

using namespace test;

class GNavigationButtonTest : public ButtonFixture<GNavigationButton>
{};

TEST_F(GNavigationButtonTest, StartsWithNoStateAndHasNoUiState)
{
    EXPECT_EQ(control.State(), 0u);
    Send(WM_UPDATEUISTATE, MAKEWPARAM(UIS_SET, UISF_HIDEFOCUS | UISF_HIDEACCEL));
    EXPECT_EQ(control.State(), 0u);
    EXPECT_EQ(Send(WM_GETDLGCODE), DLGC_BUTTON);
    EXPECT_EQ(Send(WM_GETFONT), 0);
}

TEST_F(GNavigationButtonTest, DisablingKeepsAHeldSpaceKey)
{
    Mouse(WM_MOUSEMOVE);
    Mouse(WM_LBUTTONDOWN);
    Send(WM_KEYDOWN, VK_SPACE);
    Send(WM_ENABLE, FALSE);
    EXPECT_EQ(control.Held(), GWS_KEYDOWN);
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
}

} // namespace
