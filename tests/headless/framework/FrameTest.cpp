// Creation that fails, and what a control leaves behind.

#include <gesso/framework/ActivationContext.h>

#include "../../support/Interception.h"
#include "../controls/DrawFixture.h"

#include <climits>

namespace {

using namespace test;

using FrameTest = DrawFixture;

TEST_F(FrameTest, FailedCreationLeavesNothingBehind)
{
    constexpr ULONG_PTR NOT_SET_UP = ~static_cast<ULONG_PTR>(0);
    for (const char* pszOperation : {"CreateWindowExW", "QueryActCtxW"}) {
        const ULONG_PTR hFormer = g_hActCtx;
        if (pszOperation == std::string("QueryActCtxW")) {
            g_hActCtx = NOT_SET_UP;
        }
        auto* pButton = new GButton;
        desk::Fail(pszOperation, 1, ERROR_ACCESS_DENIED);
        EXPECT_EQ(pButton->Create(0, 0, 10, 10, Parent(), 1, L"lost", 0, WS_CHILD), nullptr) << pszOperation;
        EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_ACCESS_DENIED));
        pButton->Delete(pButton);
        EXPECT_TRUE(desk::HeapIsClean()) << pszOperation;
        g_hActCtx = hFormer;
    }
}

TEST_F(FrameTest, RibbonThatTheParentDeletesDuringCreateIsNotTouchedAgain)
{
    auto* pRibbon = new GRibbon(1);
    Interception told(Parent(), WM_PARENTNOTIFY, [&] {
        DestroyWindow(*pRibbon);
        pRibbon->Delete(pRibbon); // the sanitizers watch it from here on
    });
    EXPECT_EQ(pRibbon->Create(0, 0, 100, 100, Parent(), nullptr), nullptr);
    EXPECT_TRUE(told.Happened());
}

TEST_F(FrameTest, AnObjectThatCannotBeMarkedAsGoneIsFollowedNoMore)
{
    const HWND hwnd =
        CreateWindowExW(0, L"GButton", nullptr, WS_CHILD, 0, 0, 50, 20, Parent(), nullptr, nullptr,
                        nullptr); // owns its object
    ASSERT_TRUE(GWnd::FromHwnd(hwnd));
    desk::Fail("SetWindowLongW", INT_MAX);
    DestroyWindow(hwnd); // WM_NCDESTROY comes after the object has gone
    EXPECT_FALSE(IsWindow(hwnd));

    auto pButton = std::make_unique<GButton>();
    const HWND hwndKept = pButton->Create(0, 0, 50, 20, Parent(), 7, L"Text", 0, WS_CHILD);
    desk::Fail("SetWindowLongPtrW", INT_MAX); // not even the pointer can be taken away
    pButton.reset();
    EXPECT_EQ(SendMessageW(hwndKept, WM_GETDLGCODE, 0, 0), 0);
}

TEST_F(FrameTest, FailedRegistrationIsTriedAgain)
{
    const ATOM aFormer = std::exchange(GWindow2::s_aClass, ATOM{0});
    if (aFormer) {
        UnregisterClassW(L"GWindow2", GetModuleHandleW(nullptr));
    }
    desk::Fail("RegisterClassExW", 1, ERROR_NOT_ENOUGH_MEMORY);
    GWindow2 window;
    EXPECT_EQ(window.Create(0, 0, 10, 10, nullptr), nullptr);
    EXPECT_EQ(GWindow2::s_aClass, 0);
    const HWND hwnd = window.Create(0, 0, 10, 10, nullptr);
    GWnd* pOwn = GWnd::FromHwnd(hwnd);
    ASSERT_TRUE(pOwn);
    DestroyWindow(hwnd);
    pOwn->Delete(pOwn);
    desk::Pump();
}

TEST_F(FrameTest, DefaultFontThatFailsIsMadeByTheNextCall)
{
    const HFONT hFormer = std::exchange(g_hDefaultFont, nullptr);
    desk::Fail("CreateFontW");
    InitControls();
    EXPECT_EQ(g_hDefaultFont, nullptr);
    GButton button;
    button.Create(0, 0, 50, 20, Parent(), 1, L"plain", 0, WS_CHILD | WS_VISIBLE);
    EXPECT_EQ(button.GetFont(), nullptr);
    EXPECT_FALSE(Draw(button, "DrawThemeText").empty());
    DestroyWindow(button);
    InitControls();
    EXPECT_TRUE(g_hDefaultFont);
    DeleteObject(std::exchange(g_hDefaultFont, hFormer));
}

TEST_F(FrameTest, PaintThatFindsNoBitmapDrawsNothingAndEnds)
{
    GButton button;
    button.Create(0, 0, 50, 20, Parent(), 1, L"text", 0, WS_CHILD | WS_VISIBLE);
    desk::Fail("CreateCompatibleBitmap"); // of the first paint, which the later ones keep
    desk::Pump();
    EXPECT_FALSE(GetUpdateRect(button, nullptr, FALSE));
    DestroyWindow(button);
}

} // namespace
