#include "../support/DialogTemplate.h"
#include "../support/Host.h"

#include <gtest/gtest.h>

namespace {

using test::Host;
using test::Reports;

constexpr int ID = 12;
constexpr int WIDTH = 100;
constexpr int HEIGHT = 30;

class ProbeButton : public GButton
{
public:
    DWORD State() const { return m_dwState & (GWS_HOT | GWS_PRESSED | GWS_KEYDOWN); }
};

class GButtonTest : public testing::Test
{
protected:
    void SetUp() override
    {
        InitControls();
        button.Create(10, 10, WIDTH, HEIGHT, host, ID, L"&Button", 0, WS_CHILD | WS_VISIBLE | WS_TABSTOP);
        ASSERT_TRUE(button.GetHwnd());
    }
    void TearDown() override
    {
        if (IsWindow(button)) {
            DestroyWindow(button);
        }
    }

    void Send(UINT uMsg, WPARAM wParam = 0, LPARAM lParam = 0) { SendMessageW(button, uMsg, wParam, lParam); }
    void Mouse(UINT uMsg, int x = 5, int y = 5) { Send(uMsg, 0, MAKELPARAM(x, y)); }
    void Focus()
    {
        SetFocus(button);
        host.TakeReports();
    }

    Host host;
    ProbeButton button;
};

TEST_F(GButtonTest, ClickNeedsPressAndReleaseInside)
{
    Focus();
    Mouse(WM_LBUTTONDOWN);
    EXPECT_EQ(GetCapture(), button.GetHwnd());
    EXPECT_EQ(button.State(), GWS_PRESSED);
    Mouse(WM_LBUTTONUP);
    EXPECT_EQ(host.TakeReports(), Reports{"click 12"});
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_EQ(button.State(), GWS_HOT);

    Mouse(WM_LBUTTONUP);
    EXPECT_EQ(host.TakeReports(), Reports{}) << "a release without a press";

    Mouse(WM_LBUTTONDOWN);
    Mouse(WM_MOUSEMOVE, -1, 5);
    Mouse(WM_LBUTTONUP, -1, 5);
    EXPECT_EQ(host.TakeReports(), Reports{}) << "dragged out";
    EXPECT_EQ(button.State(), 0u);

    Mouse(WM_LBUTTONDOWN);
    Mouse(WM_MOUSEMOVE, 5, HEIGHT + 1);
    EXPECT_EQ(button.State(), GWS_PRESSED);
    Mouse(WM_MOUSEMOVE, 5, 5);
    Mouse(WM_LBUTTONUP, WIDTH, HEIGHT);
    EXPECT_EQ(host.TakeReports(), Reports{"click 12"})
        << "dragged back in; the right and bottom edges are inside";

    Mouse(WM_LBUTTONDOWN);
    Mouse(WM_LBUTTONUP, WIDTH + 1, 5);
    EXPECT_EQ(host.TakeReports(), Reports{});
}

TEST_F(GButtonTest, SpaceClicksOnRelease)
{
    Focus();
    Send(WM_KEYDOWN, VK_SPACE);
    EXPECT_EQ(button.State(), GWS_KEYDOWN);
    EXPECT_EQ(host.TakeReports(), Reports{});
    Send(WM_KEYUP, VK_SPACE);
    EXPECT_EQ(host.TakeReports(), Reports{"click 12"});
    Send(WM_KEYUP, VK_SPACE);
    Send(WM_KEYDOWN, VK_RETURN);
    Send(WM_KEYUP, VK_RETURN);
    EXPECT_EQ(host.TakeReports(), Reports{}) << "a release without a press, and another key";
    EXPECT_EQ(button.State(), 0u);
}

TEST_F(GButtonTest, KeyAndMouseTogetherClickOnceAtTheLastRelease)
{
    Focus();
    Send(WM_KEYDOWN, VK_SPACE);
    Mouse(WM_LBUTTONDOWN);
    Send(WM_KEYUP, VK_SPACE);
    EXPECT_EQ(host.TakeReports(), Reports{});
    Mouse(WM_LBUTTONUP);
    EXPECT_EQ(host.TakeReports(), Reports{"click 12"});

    Send(WM_KEYDOWN, VK_SPACE);
    Mouse(WM_LBUTTONDOWN);
    Mouse(WM_LBUTTONUP);
    EXPECT_EQ(host.TakeReports(), Reports{});
    Send(WM_KEYUP, VK_SPACE);
    EXPECT_EQ(host.TakeReports(), Reports{"click 12"});
}

TEST_F(GButtonTest, FocusIsReportedAndLosingItClicksAHeldKey)
{
    SetFocus(button);
    EXPECT_EQ(host.TakeReports(), Reports{"setfocus 12"});
    SetFocus(host);
    EXPECT_EQ(host.TakeReports(), Reports{"killfocus 12"});

    Focus();
    Send(WM_KEYDOWN, VK_SPACE);
    SetFocus(host);
    EXPECT_EQ(host.TakeReports(), (Reports{"click 12", "killfocus 12"}));
    EXPECT_EQ(button.State(), 0u);

    Focus();
    Mouse(WM_LBUTTONDOWN);
    Send(WM_KEYDOWN, VK_SPACE);
    SetFocus(host);
    EXPECT_EQ(host.TakeReports(), Reports{"killfocus 12"}) << "the mouse still holds the click";
    ReleaseCapture();
}

TEST_F(GButtonTest, CaptureLossAndDisablingEndThePress)
{
    Mouse(WM_LBUTTONDOWN);
    SetCapture(host);
    EXPECT_EQ(button.State(), 0u);
    Mouse(WM_LBUTTONUP);
    ReleaseCapture();
    host.TakeReports();

    Mouse(WM_MOUSEMOVE);
    Send(WM_KEYDOWN, VK_SPACE);
    Mouse(WM_LBUTTONDOWN);
    EnableWindow(button, FALSE);
    EXPECT_EQ(button.State(), 0u) << "a disabled button never stays hot";
    ReleaseCapture();
}

TEST_F(GButtonTest, MovingThePointerRepaintsOnlyOnAChange)
{
    Mouse(WM_MOUSEMOVE);
    ValidateRect(button, nullptr);
    Mouse(WM_MOUSEMOVE, 6, 6);
    EXPECT_FALSE(GetUpdateRect(button, nullptr, FALSE));
    EXPECT_EQ(button.State(), GWS_HOT);
    Send(WM_MOUSELEAVE);
    EXPECT_TRUE(GetUpdateRect(button, nullptr, FALSE));
    EXPECT_EQ(button.State(), 0u);
}

TEST_F(GButtonTest, DefaultButtonFollowsBmSetstyle)
{
    EXPECT_EQ(SendMessageW(button, WM_GETDLGCODE, 0, 0), DLGC_BUTTON | DLGC_UNDEFPUSHBUTTON);
    Send(BM_SETSTYLE, BS_DEFPUSHBUTTON, TRUE);
    EXPECT_EQ(SendMessageW(button, WM_GETDLGCODE, 0, 0), DLGC_BUTTON | DLGC_DEFPUSHBUTTON);
    EXPECT_TRUE(button.GetStyle() & GBS_DEFAULT);
    Send(BM_SETSTYLE, BS_PUSHBUTTON, FALSE);
    EXPECT_EQ(SendMessageW(button, WM_GETDLGCODE, 0, 0), DLGC_BUTTON | DLGC_UNDEFPUSHBUTTON);
}

TEST_F(GButtonTest, StyleChangesRepaint)
{
    const DWORD dwStyle = button.GetStyle();
    ValidateRect(button, nullptr);
    EXPECT_EQ(button.SetStyle(dwStyle | GS_CENTER), dwStyle);
    EXPECT_EQ(button.GetStyle(), dwStyle | GS_CENTER);
    EXPECT_TRUE(GetUpdateRect(button, nullptr, FALSE));
}

TEST_F(GButtonTest, ImagesAreExchanged)
{
    const HBITMAP hBitmap = CreateBitmap(16, 12, 1, 1, nullptr);
    const auto hIcon = reinterpret_cast<HICON>(static_cast<LONG_PTR>(0x1234));
    EXPECT_EQ(button.SetBitmap(hBitmap), nullptr);
    EXPECT_EQ(button.GetBitmap(), hBitmap);
    EXPECT_EQ(static_cast<void*>(button.GetIcon()), static_cast<void*>(hBitmap));
    EXPECT_EQ(static_cast<void*>(button.SetIcon(hIcon)), static_cast<void*>(hBitmap))
        << "no icon, and no fault";
    EXPECT_EQ(button.SetIcon(nullptr), hIcon);
    DeleteObject(hBitmap);
}

TEST_F(GButtonTest, ParentMayDestroyTheButtonInEveryReport)
{
    HWND hwndDoomed = nullptr;
    const auto destroyAt = [&](const char* pszReport, const std::function<void()>& act) {
        auto* pButton = new GButton;
        pButton->Create(0, 0, WIDTH, HEIGHT, host, 33, L"Doomed", 0, WS_CHILD | WS_VISIBLE);
        hwndDoomed = pButton->GetHwnd();
        const std::string report = std::string(pszReport) + " 33";
        host.onReport = [&](const std::string& got) {
            if (got == report) {
                DestroyWindow(hwndDoomed);
                pButton->Delete(pButton);
                host.onReport = nullptr;
            }
        };
        act();
        EXPECT_FALSE(IsWindow(hwndDoomed)) << pszReport;
        ReleaseCapture();
        SetFocus(host);
    };
    const auto send = [&](UINT uMsg, WPARAM wParam, LPARAM lParam) {
        SendMessageW(hwndDoomed, uMsg, wParam, lParam);
    };
    const LPARAM inside = MAKELPARAM(5, 5);

    destroyAt("setfocus", [&] { SetFocus(hwndDoomed); });
    destroyAt("setfocus", [&] { send(WM_LBUTTONDOWN, 0, inside); });
    destroyAt("killfocus", [&] {
        SetFocus(hwndDoomed);
        SetFocus(host);
    });
    destroyAt("click", [&] {
        send(WM_LBUTTONDOWN, 0, inside);
        send(WM_LBUTTONUP, 0, inside);
    });
    destroyAt("click", [&] {
        send(WM_KEYDOWN, VK_SPACE, 0);
        send(WM_KEYUP, VK_SPACE, 0);
    });
    destroyAt("click", [&] {
        SetFocus(hwndDoomed);
        send(WM_KEYDOWN, VK_SPACE, 0);
        SetFocus(host);
    });
}

} // namespace
