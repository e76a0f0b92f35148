// Controls that go while they are in the middle of a call to the platform: the parent draws its background
// behind them, or a host that subclassed them hears of a change of the capture or the style. Under the
// sanitizers, any touch of an object after its end shows here.

#include "../support/AllControls.h"
#include "../support/Interception.h"

#include <gtest/gtest.h>

namespace {

using namespace test;

// A point where a press takes the capture.
template <class CONTROL> constexpr LPARAM INSIDE = MAKELPARAM(5, 5);
template <> constexpr LPARAM INSIDE<GRibbon> = MAKELPARAM(5, 60);

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
        Host host;
        for (const bool fObjectToo : {false, true}) {
            auto* pControl = new CONTROL;
            const HWND hwnd = MakeAnyControl(*pControl, host);
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

// The others paint all of their background themselves.
using Transparent =
    AllControlsBut<GNavigationButton, GSeparator, GScrollbar, GTree, GNavigationBar, GRightClickMenu>;
TYPED_TEST_SUITE(ParentBackgroundTest, Transparent);

TYPED_TEST(ParentBackgroundTest, ParentMayDestroyTheControlWhileItPaintsOrPrints)
{
    this->ExpectSurvival([](HWND hwnd) {
        InvalidateRect(hwnd, nullptr, FALSE);
        UpdateWindow(hwnd);
    });
    const HDC hdc = CreateCompatibleDC(nullptr);
    this->ExpectSurvival(
        [&](HWND hwnd) { SendMessageW(hwnd, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(hdc), PRF_CLIENT); });
    DeleteDC(hdc);
}

TEST(CornerBackgroundTest, ParentMayDestroyTheFieldWhileItsFrameIsPrinted)
{
    Host host;
    auto* pEdit = new GEdit;
    const HWND hwnd = pEdit->Create(10, 10, 100, 60, host, 33, L"Text",
                                    WS_CHILD | WS_VISIBLE | WS_HSCROLL | WS_VSCROLL, WS_EX_CLIENTEDGE);
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
    Host host;
    CONTROL* pControl = new CONTROL;
    HWND hwnd = MakeAnyControl(*pControl, host);
};

using Pressable = AllControlsBut<GLabel, GProgressBar, GRightClickMenu>;
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
