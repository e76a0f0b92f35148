// What the buttons have alike: how a click comes about, and that each survives being destroyed in any report.

#include "../support/Host.h"

#include <gtest/gtest.h>

namespace {

using test::Host;
using test::Reports;

constexpr DWORD CHILD = WS_CHILD | WS_VISIBLE | WS_TABSTOP;
constexpr int ID = 12;

template <class CONTROL> HWND Make(CONTROL& control, HWND hwndParent, int nId)
{
    return control.Create(10, 10, 100, 30, hwndParent, nId, L"Text", 0, CHILD);
}

HWND Make(GCommandButton& control, HWND hwndParent, int nId)
{
    return control.Create(10, 10, 100, 30, hwndParent, nId, L"Text", L"Note", 0, CHILD);
}

HWND Make(GNavigationButton& control, HWND hwndParent, int nId)
{
    return control.Create(10, 10, 100, 30, hwndParent, nId, 0, CHILD);
}

template <class CONTROL> class ProbeOf : public CONTROL
{
public:
    DWORD State() const { return this->m_dwState; }
};

template <class CONTROL> class ButtonFamilyTest : public testing::Test
{
protected:
    void SetUp() override
    {
        InitControls();
        ASSERT_TRUE(Make(static_cast<CONTROL&>(control), host, ID));
    }
    void TearDown() override { DestroyWindow(control); }

    void Send(UINT uMsg, WPARAM wParam = 0, LPARAM lParam = 0)
    {
        SendMessageW(control, uMsg, wParam, lParam);
    }
    void Mouse(UINT uMsg, int x = 5, int y = 5) { Send(uMsg, 0, MAKELPARAM(x, y)); }
    void Focus()
    {
        SetFocus(control);
        host.TakeReports();
    }
    // Lets the parent destroy window and object at a report that the act brings about.
    template <class ACT> void ExpectSurvival(const std::string& report, ACT act)
    {
        auto* pDoomed = new CONTROL;
        const HWND hwnd = Make(*pDoomed, host, 33);
        host.onReport = [&](const std::string& got) {
            if (got == report + " 33") {
                host.onReport = nullptr;
                DestroyWindow(hwnd);
                pDoomed->Delete(pDoomed);
            }
        };
        act(hwnd);
        EXPECT_FALSE(IsWindow(hwnd)) << report;
        ReleaseCapture();
        SetFocus(host);
    }

    Host host;
    ProbeOf<CONTROL> control;
};

using Family = testing::Types<GCheckBox, GRadioButton, GCommandButton, GNavigationButton>;
TYPED_TEST_SUITE(ButtonFamilyTest, Family);

TYPED_TEST(ButtonFamilyTest, MouseClicksInsideOnly)
{
    this->Focus();
    this->Mouse(WM_LBUTTONDOWN);
    EXPECT_EQ(GetCapture(), this->control.GetHwnd());
    this->Mouse(WM_MOUSEMOVE, -3, 5);
    this->Mouse(WM_MOUSEMOVE, 7, 5);
    this->Mouse(WM_LBUTTONUP, 100, 30);
    EXPECT_EQ(this->host.TakeReports(), Reports{"click 12"}) << "the right and bottom edges are inside";
    EXPECT_EQ(GetCapture(), nullptr);
    this->Mouse(WM_LBUTTONDOWN);
    this->Mouse(WM_LBUTTONUP, 5, 31);
    this->Mouse(WM_LBUTTONUP);
    EXPECT_EQ(this->host.TakeReports(), Reports{}) << "released outside, and released without a press";
}

TYPED_TEST(ButtonFamilyTest, SpaceClicksOnReleaseAndOnLosingTheFocus)
{
    SetFocus(this->control);
    EXPECT_EQ(this->host.TakeReports(), Reports{"setfocus 12"});
    this->Send(WM_KEYDOWN, VK_RETURN);
    this->Send(WM_KEYUP, VK_RETURN);
    this->Send(WM_KEYUP, VK_SPACE);
    this->Send(WM_KEYDOWN, VK_SPACE);
    EXPECT_EQ(this->host.TakeReports(), Reports{});
    this->Send(WM_KEYUP, VK_SPACE);
    EXPECT_EQ(this->host.TakeReports(), Reports{"click 12"});
    this->Send(WM_KEYDOWN, VK_SPACE);
    SetFocus(this->host);
    EXPECT_EQ(this->host.TakeReports(), (Reports{"click 12", "killfocus 12"}));
}

TYPED_TEST(ButtonFamilyTest, HeldMouseKeepsTheKeyFromClicking)
{
    this->Focus();
    this->Send(WM_KEYDOWN, VK_SPACE);
    this->Mouse(WM_LBUTTONDOWN);
    this->Send(WM_KEYUP, VK_SPACE);
    EXPECT_EQ(this->host.TakeReports(), Reports{});
    SetCapture(this->host);
    this->Mouse(WM_LBUTTONUP);
    EXPECT_EQ(this->host.TakeReports(), Reports{}) << "the capture went elsewhere";
    ReleaseCapture();
}

TYPED_TEST(ButtonFamilyTest, HeldKeyKeepsTheMouseFromClickingExceptOnTheBackButton)
{
    this->Focus();
    this->Send(WM_KEYDOWN, VK_SPACE);
    this->Mouse(WM_LBUTTONDOWN);
    this->Mouse(WM_LBUTTONUP);
    const bool fBack = std::is_same_v<TypeParam, GNavigationButton>;
    EXPECT_EQ(this->host.TakeReports(), fBack ? Reports{"click 12"} : Reports{});
    this->Send(WM_KEYUP, VK_SPACE);
    EXPECT_EQ(this->host.TakeReports(), Reports{"click 12"});
}

TYPED_TEST(ButtonFamilyTest, ParentMayDestroyTheButtonInEveryReport)
{
    const LPARAM inside = MAKELPARAM(5, 5);
    this->ExpectSurvival("setfocus", [](HWND hwnd) { SetFocus(hwnd); });
    this->ExpectSurvival("setfocus", [&](HWND hwnd) { SendMessageW(hwnd, WM_LBUTTONDOWN, 0, inside); });
    this->ExpectSurvival("killfocus", [&](HWND hwnd) {
        SetFocus(hwnd);
        SetFocus(this->host);
    });
    this->ExpectSurvival("click", [&](HWND hwnd) {
        SendMessageW(hwnd, WM_LBUTTONDOWN, 0, inside);
        SendMessageW(hwnd, WM_LBUTTONUP, 0, inside);
    });
    this->ExpectSurvival("click", [](HWND hwnd) {
        SendMessageW(hwnd, WM_KEYDOWN, VK_SPACE, 0);
        SendMessageW(hwnd, WM_KEYUP, VK_SPACE, 0);
    });
    this->ExpectSurvival("click", [&](HWND hwnd) {
        SetFocus(hwnd);
        SendMessageW(hwnd, WM_KEYDOWN, VK_SPACE, 0);
        SetFocus(this->host);
    });
}

TYPED_TEST(ButtonFamilyTest, StyleChangesRepaint)
{
    const DWORD dwStyle = this->control.GetStyle();
    ValidateRect(this->control, nullptr);
    EXPECT_EQ(this->control.SetStyle(dwStyle | GS_CENTER), dwStyle);
    EXPECT_EQ(this->control.GetStyle(), dwStyle | GS_CENTER);
    EXPECT_TRUE(GetUpdateRect(this->control, nullptr, FALSE));
}

// --- Those with a text

template <class CONTROL> class TextButtonTest : public ButtonFamilyTest<CONTROL>
{};

using TextButtons = testing::Types<GCheckBox, GRadioButton, GCommandButton>;
TYPED_TEST_SUITE(TextButtonTest, TextButtons);

TYPED_TEST(TextButtonTest, TextFontAndImageGoInAndOut)
{
    TypeParam& button = this->control;
    EXPECT_EQ(test::TextOf(button), "Text");
    this->Send(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"Other"));
    EXPECT_EQ(test::TextOf(button), "Other");
    EXPECT_EQ(button.GetTextLength(), 5);

    const HFONT hFont = CreateFontW(-20, 0, 0, 0, 400, 0, 0, 0, 0, 0, 0, 0, 0, L"Segoe UI");
    const HFONT hFormer = button.GetFont();
    ASSERT_TRUE(hFormer);
    ValidateRect(button, nullptr);
    this->Send(WM_SETFONT, reinterpret_cast<WPARAM>(hFont), FALSE);
    EXPECT_FALSE(GetUpdateRect(button, nullptr, FALSE));
    EXPECT_EQ(SendMessageW(button, WM_GETFONT, 0, 0), reinterpret_cast<LRESULT>(hFont));
    button.SetFont(hFormer);
    DeleteObject(hFont);

    const HBITMAP hBitmap = CreateBitmap(16, 12, 1, 1, nullptr);
    EXPECT_EQ(button.SetBitmap(hBitmap), nullptr);
    EXPECT_EQ(static_cast<void*>(button.GetIcon()), static_cast<void*>(hBitmap));
    EXPECT_EQ(static_cast<void*>(button.SetIcon(nullptr)), static_cast<void*>(hBitmap));
    DeleteObject(hBitmap);
}

TYPED_TEST(TextButtonTest, DisablingAndUiStateReachTheState)
{
    EXPECT_EQ(this->control.State(), GWS_HIDEFOCUS | GWS_HIDEACCEL);
    this->Mouse(WM_MOUSEMOVE);
    this->Send(WM_KEYDOWN, VK_SPACE);
    this->Mouse(WM_LBUTTONDOWN);
    EXPECT_EQ(this->control.State() & 7, GWS_HOT | GWS_KEYDOWN | GWS_PRESSED);
    EnableWindow(this->control, FALSE);
    EXPECT_EQ(this->control.State() & 7, 0u);
    this->Send(WM_UPDATEUISTATE, MAKEWPARAM(UIS_INITIALIZE, 0));
    EXPECT_EQ(this->control.State() & (GWS_HIDEFOCUS | GWS_HIDEACCEL), 0u);
    ReleaseCapture();
}

} // namespace
