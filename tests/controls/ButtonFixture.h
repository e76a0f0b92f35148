// Buttons of every kind, made and driven alike.
#pragma once

#include "MakeControl.h"
#include "Survival.h"

namespace test {

constexpr DWORD BUTTON_STYLE = WS_CHILD | WS_VISIBLE | WS_TABSTOP;
constexpr int BUTTON_ID = 12;
constexpr int BUTTON_WIDTH = 100;
constexpr int BUTTON_HEIGHT = 30;

// With its state in the open.
template <class CONTROL> class ProbeOf : public CONTROL
{
public:
    DWORD& State() { return this->m_dwState; }
    bool Hits(int x, int y) const { return this->HitTest({static_cast<SHORT>(x), static_cast<SHORT>(y)}); }
    DWORD Held() const { return this->m_dwState & (GWS_HOT | GWS_PRESSED | GWS_KEYDOWN); }
};

// A button of any kind, with the id 12, in a host.
template <class CONTROL> class ButtonFixture : public testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(MakeControl(control, host, BUTTON_ID, BUTTON_STYLE)); }
    void TearDown() override
    {
        ReleaseCapture();
        DestroyWindow(control);
    }

    LRESULT Send(UINT uMsg, WPARAM wParam = 0, LPARAM lParam = 0)
    {
        return SendMessageW(control, uMsg, wParam, lParam);
    }
    void Mouse(UINT uMsg, int x = 5, int y = 5) { Send(uMsg, 0, MAKELPARAM(x, y)); }
    void Focus()
    {
        SetFocus(control);
        host.TakeReports();
    }
    void ExpectSurvival(const std::string& report, const std::function<void(HWND)>& act)
    {
        auto* pDoomed = new CONTROL;
        MakeControl(*pDoomed, host, 33, BUTTON_STYLE);
        test::ExpectSurvival(host, report + " 33", pDoomed, act);
    }

    Host host;
    ProbeOf<CONTROL> control;
};

} // namespace test
