// What the visual style does with windows.
#include "DesktopTest.h"

using namespace gesso::headless;
using namespace gesso::headless::test;

namespace {

// A parent with a white background and a child that shows it through.
class ThemeWindowTest : public DesktopTest
{
protected:
    void SetUp() override
    {
        DesktopTest::SetUp();
        m_parent = Make({.style = WS_POPUP, .place = {0, 0, 200, 100}}, PrintFrame);
        m_child = Make({.style = WS_CHILD, .place = {30, 20, 80, 60}, .parent = m_parent});
        ASSERT_NE(m_child, nullptr);
    }

    static std::optional<LRESULT> PrintFrame(HWND, UINT message, WPARAM hdc, LPARAM)
    {
        if (message != WM_PRINTCLIENT) {
            return std::nullopt;
        }
        const RECT rect = {1, 1, 5, 5};
        DrawFocusRect(reinterpret_cast<HDC>(hdc), &rect);
        return 0;
    }

    HWND m_parent = nullptr;
    HWND m_child = nullptr;
};

} // namespace

TEST_F(ThemeWindowTest, TheParentsBackgroundIsDrawnInTheParentsCoordinates)
{
    const HDC hdc = GetDC(m_child);
    RECT part = {0, 0, 50, 10};
    EXPECT_EQ(DrawThemeParentBackground(m_child, hdc, &part), S_OK);
    EXPECT_EQ(Drawing(m_child),
              (std::vector<std::string>{
                  "DrawThemeParentBackground (0,0,50,10)",
                  "FillRect (0,0,200,100) brush=sys5 FFFFFF origin=(-30,-20) clip=(0,0,50,10)",
                  "DrawFocusRect (1,1,5,5) origin=(-30,-20) clip=(0,0,50,10)",
              }));
    POINT origin{};
    GetViewportOrgEx(hdc, &origin);
    EXPECT_EQ(origin.x, 0) << "the context is as it was";
    ReleaseDC(m_child, hdc);
    EXPECT_EQ(DrawThemeParentBackground(nullptr, nullptr, nullptr), E_HANDLE);
}

TEST_F(ThemeWindowTest, SetWindowThemeChoosesTheApplicationsClasses)
{
    const auto trace = Traced([&] { EXPECT_EQ(SetWindowTheme(m_child, L"Explorer", nullptr), S_OK); });
    EXPECT_EQ(Names(trace), "WM_THEMECHANGED");
    const HTHEME theme = OpenThemeData(m_child, L"TREEVIEW");
    EXPECT_EQ(GetWindowTheme(m_child), theme);
    const HDC hdc = GetDC(m_child);
    const RECT rect = {0, 0, 9, 9};
    SetThemePartSize("TREEVIEW", 2, 0, {7, 7});
    SIZE size{};
    EXPECT_EQ(GetThemePartSize(theme, hdc, 2, 1, nullptr, TS_TRUE, &size), S_OK);
    EXPECT_EQ(size.cx, 7) << "what is set for a class holds for an application's form of it";
    EXPECT_EQ(DrawThemeBackground(theme, hdc, 2, 1, &rect, nullptr), S_OK);
    EXPECT_EQ(Drawing(m_child),
              std::vector<std::string>{"DrawThemeBackground Explorer::TREEVIEW 2 1 (0,0,9,9)"});
    ReleaseDC(m_child, hdc);
    CloseThemeData(theme);
    EXPECT_EQ(SetWindowTheme(nullptr, L"Explorer", nullptr), E_HANDLE);
}
