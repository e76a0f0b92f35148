// The program under a user's hand, with no screen and no Windows: the desktop is simulated in memory.
#include "CounterWindow.h"

#include <gesso/platform/headless/headless.h>

#include <gtest/gtest.h>

namespace {

namespace desktop = gesso::headless;

class CounterWindowTest : public testing::Test
{
protected:
    void SetUp() override
    {
        desktop::Reset();
        InitControls();
        m_hwnd = m_window.Create();
        desktop::Pump(m_hwnd);
    }

    void TearDown() override
    {
        if (IsWindow(m_hwnd)) {
            DestroyWindow(m_hwnd);
        }
    }

    void ClickOn(int nId)
    {
        RECT rc{};
        GetWindowRect(GetDlgItem(m_hwnd, nId), &rc);
        desktop::Click((rc.left + rc.right) / 2, (rc.top + rc.bottom) / 2);
        desktop::Pump(m_hwnd);
    }

    bool LabelSays(LPCWSTR pszText)
    {
        WCHAR szText[64] = L"";
        SendMessageW(GetDlgItem(m_hwnd, ID_LABEL), WM_GETTEXT, 64, reinterpret_cast<LPARAM>(szText));
        return wcscmp(szText, pszText) == 0;
    }

    CounterWindow m_window;
    HWND m_hwnd = nullptr;
};

TEST_F(CounterWindowTest, CountsClicksAndTheSpaceKey)
{
    EXPECT_TRUE(LabelSays(L"Not pressed yet"));
    ClickOn(ID_COUNT);
    EXPECT_TRUE(LabelSays(L"Pressed once"));
    desktop::TypeKey(VK_SPACE); // the click has moved the focus to the button
    desktop::Pump(m_hwnd);
    EXPECT_TRUE(LabelSays(L"Pressed more than once"));
}

TEST_F(CounterWindowTest, CloseEndsTheWindow)
{
    ClickOn(ID_CLOSE);
    EXPECT_FALSE(IsWindow(m_hwnd));
}

} // namespace
