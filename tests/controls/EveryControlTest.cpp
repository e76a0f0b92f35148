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

// Classes that nothing of it changes the look of.
using WithoutUiState = ClassList<GNavigationButton, GProgressBar, GScrollbar, GRibbon>;
using WithoutADisabledLook = ClassList<GSeparator, GScrollbar, GRibbon>;

template <class CONTROL> struct WithState : CONTROL
{
    DWORD UiState() const { return this->m_dwState & (GWS_HIDEFOCUS | GWS_HIDEACCEL); }
};

TYPED_TEST(EveryControlTest, OperationsAndMessagesTellAndPaintWhatWasSet)
{
    WithState<TypeParam> control;
    const HWND hwnd = MakeAnyControl(control, this->host);
    if constexpr (requires { control.SetFont(HFONT()); }) {
        for (const bool fRedraw : {false, true}) {
            const auto makeFont = [] { return CreateFontW(-20, 0, 0, 0, 400, 0, 0, 0, 0, 0, 0, 0, 0, L""); };
            const HFONT hSet = makeFont();
            const HFONT hSent = makeFont();
            control.SetFont(hSet);
            EXPECT_EQ(SendMessageW(hwnd, WM_GETFONT, 0, 0), reinterpret_cast<LRESULT>(hSet));
            TakeRepaint(hwnd);
            SendMessageW(hwnd, WM_SETFONT, reinterpret_cast<WPARAM>(hSent), fRedraw);
            EXPECT_EQ(TakeRepaint(hwnd), fRedraw);
            EXPECT_EQ(control.GetFont(), hSent);
            control.SetFont(nullptr);
            DeleteObject(hSet);
            DeleteObject(hSent);
        }
    }
    if constexpr (requires { control.SetStyle(DWORD()); }) {
        const DWORD dwStyle = control.GetStyle();
        TakeRepaint(hwnd);
        EXPECT_EQ(control.SetStyle(dwStyle | WS_TABSTOP), dwStyle);
        EXPECT_EQ(control.GetStyle(), dwStyle | WS_TABSTOP);
        EXPECT_NE(TakeRepaint(hwnd), (std::is_same_v<TypeParam, GProgressBar>));
    }
    if constexpr (requires { control.SetBitmap(HBITMAP()); }) {
        const HBITMAP hBitmap = CreateBitmap(16, 12, 1, 1, nullptr);
        const auto hIcon = reinterpret_cast<HICON>(static_cast<LONG_PTR>(0x1234));
        EXPECT_EQ(control.SetBitmap(hBitmap), nullptr);
        EXPECT_EQ(control.GetBitmap(), hBitmap);
        EXPECT_EQ(static_cast<void*>(control.GetIcon()), static_cast<void*>(hBitmap));
        EXPECT_EQ(static_cast<void*>(control.SetIcon(hIcon)), static_cast<void*>(hBitmap))
            << "no icon, and no fault";
        EXPECT_EQ(control.SetIcon(nullptr), hIcon);
        DeleteObject(hBitmap);
    }
    TakeRepaint(hwnd);
    for (const UINT uAction : {UIS_SET, UIS_CLEAR}) {
        SendMessageW(hwnd, WM_UPDATEUISTATE, MAKEWPARAM(uAction, UISF_HIDEFOCUS | UISF_HIDEACCEL), 0);
        EXPECT_NE(TakeRepaint(hwnd), WithoutUiState::Has<TypeParam>());
        EXPECT_TRUE(WithoutUiState::Has<TypeParam>() || (control.UiState() != 0) == (uAction == UIS_SET));
    }
    EnableWindow(hwnd, FALSE);
    EXPECT_NE(TakeRepaint(hwnd), WithoutADisabledLook::Has<TypeParam>());
    EXPECT_TRUE(control.Destroy());
    EXPECT_FALSE(IsWindow(hwnd));
    EXPECT_FALSE(control.Destroy());
}

TYPED_TEST(EveryControlTest, MessagesThatEveryControlMindsAreAnsweredWith0)
{
    TypeParam control;
    const HWND hwnd = MakeAnyControl(control, this->host);
    for (const UINT uMsg : std::initializer_list<UINT>{
             WM_MOUSEMOVE, WM_LBUTTONDOWN, WM_LBUTTONUP, WM_MOUSELEAVE, WM_CAPTURECHANGED, WM_SETFOCUS,
             WM_KILLFOCUS, WM_ENABLE, WM_THEMECHANGED, WM_TIMER, WM_DESTROY})
    {
        EXPECT_EQ(SendMessageW(hwnd, uMsg, 0, 0), 0) << uMsg;
    }
    ReleaseCapture();
    DestroyWindow(hwnd);
}

} // namespace
