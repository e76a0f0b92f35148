// Controls that go while they are in the middle of a call to the platform: the parent draws its background
// behind them, or a host that subclassed them hears of a change of the capture or the style. Under the
// sanitizers, any touch of an object after its end shows here.

#include "../support/Host.h"
#include "../support/Interception.h"

#include <gtest/gtest.h>

namespace {

using test::Host;
using test::Interception;
using test::Reports;

constexpr DWORD CHILD = WS_CHILD | WS_VISIBLE;
// A point where a press takes the capture.
template <class CONTROL> constexpr LPARAM INSIDE = MAKELPARAM(5, 5);
template <> constexpr LPARAM INSIDE<GRibbon> = MAKELPARAM(5, 60);

HWND MakeRibbon(GRibbon& ribbon, HWND hwndParent)
{
    const HWND hwnd = ribbon.Create(10, 10, 100, 118, hwndParent, nullptr);
    ribbon.AddPage(nullptr, 1, L"Page");
    ribbon.GetPage(1)->InsertGroup(0, 1, L"Group", 0);
    return hwnd;
}

template <class CONTROL> HWND Make(CONTROL& control, HWND hwndParent)
{
    if constexpr (requires { control.GetPage(1); }) {
        return MakeRibbon(control, hwndParent);
    } else if constexpr (requires { control.SetNote(nullptr); }) {
        return control.Create(10, 10, 100, 30, hwndParent, 33, L"Text", L"Note", 0, CHILD);
    } else if constexpr (requires { control.SetSel(0, 0); }) {
        return control.Create(10, 10, 100, 30, hwndParent, 33, L"Text", CHILD, 0);
    } else if constexpr (requires { control.GetDropdownHeight(); }) {
        return control.Create(10, 10, 100, 30, hwndParent, 33, CHILD | GCBS_DROPDOWN, 0);
    } else if constexpr (requires { control.SetText(nullptr); }) {
        return control.Create(10, 10, 100, 30, hwndParent, 33, L"Text", 0, CHILD);
    } else if constexpr (requires { control.SetListStyle(GLS_DETAILS); }) {
        return control.Create(10, 10, 100, 30, hwndParent, 33, GLS_DETAILS, 0, CHILD);
    } else {
        return control.Create(10, 10, 100, 30, hwndParent, 33, 0, CHILD);
    }
}

void Destroy(GWnd* pControl, bool fObjectToo)
{
    DestroyWindow(pControl->GetHwnd());
    if (fObjectToo) {
        pControl->Delete(pControl);
    }
}

// --- The parent's background

template <class CONTROL> class ParentBackgroundTest : public testing::Test
{
protected:
    // Lets the parent destroy a control while it draws behind it, once with the object and once without.
    template <class ACT> void ExpectSurvival(ACT act)
    {
        InitControls();
        Host host;
        for (const bool fObjectToo : {false, true}) {
            auto* pControl = new CONTROL;
            const HWND hwnd = Make(*pControl, host);
            const Interception background(host, WM_ERASEBKGND, [&] { Destroy(pControl, fObjectToo); });
            act(hwnd);
            EXPECT_TRUE(background.Happened());
            EXPECT_FALSE(IsWindow(hwnd));
            if (!fObjectToo) {
                pControl->Delete(pControl);
            }
        }
    }
};

using Transparent = testing::Types<GLabel, GButton, GCheckBox, GRadioButton, GCommandButton, GProgressBar,
                                   GList, GEdit, GComboBox, GRibbon>;
TYPED_TEST_SUITE(ParentBackgroundTest, Transparent);

TYPED_TEST(ParentBackgroundTest, ParentMayDestroyTheControlWhileItPaints)
{
    this->ExpectSurvival([](HWND hwnd) {
        InvalidateRect(hwnd, nullptr, FALSE);
        UpdateWindow(hwnd);
    });
}

TYPED_TEST(ParentBackgroundTest, ParentMayDestroyTheControlWhileItPrints)
{
    const HDC hdc = CreateCompatibleDC(nullptr);
    this->ExpectSurvival(
        [&](HWND hwnd) { SendMessageW(hwnd, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(hdc), PRF_CLIENT); });
    DeleteDC(hdc);
}

TEST(CornerBackgroundTest, ParentMayDestroyTheFieldWhileItsFrameIsPrinted)
{
    InitControls();
    Host host;
    auto* pEdit = new GEdit;
    const HWND hwnd =
        pEdit->Create(10, 10, 100, 60, host, 33, L"Text", CHILD | WS_HSCROLL | WS_VSCROLL, WS_EX_CLIENTEDGE);
    const SCROLLINFO si{sizeof(si), SIF_RANGE | SIF_PAGE, 0, 100, 10, 0, 0};
    pEdit->SetScrollInfo(SB_HORZ, &si, FALSE);
    pEdit->SetScrollInfo(SB_VERT, &si, FALSE);
    const Interception background(host, WM_ERASEBKGND, [&] { Destroy(pEdit, true); });
    const HDC hdc = CreateCompatibleDC(nullptr);
    SendMessageW(hwnd, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(hdc), PRF_NONCLIENT | PRF_CLIENT);
    EXPECT_TRUE(background.Happened());
    EXPECT_FALSE(IsWindow(hwnd));
    DeleteDC(hdc);
}

// --- The capture and the style

template <class CONTROL> class MouseTest : public testing::Test
{
protected:
    void SetUp() override
    {
        InitControls();
        pControl = new CONTROL;
        hwnd = Make(*pControl, host);
    }

    Host host;
    CONTROL* pControl;
    HWND hwnd;
};

using Pressable = testing::Types<GButton, GCheckBox, GRadioButton, GCommandButton, GNavigationButton,
                                 GSeparator, GScrollbar, GTree, GNavigationBar, GEdit, GComboBox, GRibbon>;
TYPED_TEST_SUITE(MouseTest, Pressable);

TYPED_TEST(MouseTest, SubclassMayDestroyTheControlAsItGivesUpTheCapture)
{
    SendMessageW(this->hwnd, WM_LBUTTONDOWN, 0, INSIDE<TypeParam>);
    this->host.TakeReports();
    const Interception release(this->hwnd, WM_CAPTURECHANGED, [&] { Destroy(this->pControl, true); });
    SendMessageW(this->hwnd, WM_LBUTTONUP, 0, INSIDE<TypeParam>);
    EXPECT_TRUE(release.Happened());
    for (const std::string& report : this->host.TakeReports()) {
        EXPECT_EQ(report, "killfocus 33") << "a control that is gone clicks nothing and ends no drag";
    }
}

TYPED_TEST(MouseTest, LoserOfTheCaptureMayDestroyTheControlThatTakesIt)
{
    SetCapture(this->host);
    const Interception loss(this->host, WM_CAPTURECHANGED, [&] { Destroy(this->pControl, true); });
    SendMessageW(this->hwnd, WM_LBUTTONDOWN, 0, INSIDE<TypeParam>);
    EXPECT_TRUE(loss.Happened());
    EXPECT_FALSE(IsWindow(this->hwnd));
    ReleaseCapture();
}

template <class CONTROL> class DefaultButtonTest : public MouseTest<CONTROL>
{};

using DefaultButtons = testing::Types<GButton, GCommandButton>;
TYPED_TEST_SUITE(DefaultButtonTest, DefaultButtons);

TYPED_TEST(DefaultButtonTest, SubclassMayDestroyTheControlAsItBecomesTheDefault)
{
    const Interception change(this->hwnd, WM_STYLECHANGED, [&] { Destroy(this->pControl, true); });
    SendMessageW(this->hwnd, BM_SETSTYLE, BS_DEFPUSHBUTTON, TRUE);
    EXPECT_TRUE(change.Happened());
    EXPECT_FALSE(IsWindow(this->hwnd));
}

} // namespace
