// What holds of every control.

#include "../support/AllControls.h"

namespace {

using namespace test;

template <class CONTROL> class EveryControlTest : public testing::Test
{
protected:
    // What a user and the platform may send to any window.
    static void SendOfAll(HWND hwnd)
    {
        for (const UINT uMsg : std::initializer_list<UINT>{
                 WM_MOUSEMOVE, WM_LBUTTONDOWN, WM_MOUSEMOVE, WM_CAPTURECHANGED, WM_MOUSELEAVE, WM_SETFOCUS,
                 WM_KILLFOCUS, WM_THEMECHANGED, WM_SYSCOLORCHANGE, WM_TIMER, WM_GETDLGCODE})
        {
            SendMessageW(hwnd, uMsg, 0, 0);
        }
        InvalidateRect(hwnd, nullptr, TRUE);
        UpdateWindow(hwnd);
    }

    Host host;
};

// A value menu's window has another object than the one that makes it.
TYPED_TEST_SUITE(EveryControlTest, AllControlsBut<GRightClickMenu>);

TYPED_TEST(EveryControlTest, ObjectAndWindowFindEachOtherAndEitherMayGoFirst)
{
    auto* pControl = new TypeParam;
    const HWND hwndFirst = MakeAnyControl(*pControl, this->host);
    ASSERT_TRUE(hwndFirst);
    EXPECT_EQ(pControl->GetHwnd(), hwndFirst);
    EXPECT_EQ(GWnd::FromHwnd(hwndFirst), pControl);
    this->SendOfAll(hwndFirst);
    DestroyWindow(hwndFirst);
    EXPECT_FALSE(IsWindow(hwndFirst));

    const HWND hwndSecond = MakeAnyControl(*pControl, this->host);
    ASSERT_TRUE(hwndSecond) << "the object is as good as new";
    pControl->Delete(pControl);
    ASSERT_TRUE(IsWindow(hwndSecond)) << "and goes without its window";
    this->SendOfAll(hwndSecond);
    EXPECT_TRUE(DestroyWindow(hwndSecond));
}

} // namespace
