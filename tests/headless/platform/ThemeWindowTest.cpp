// What the visual style does with windows.
#include <platform/headless/headless.h>

#include <gtest/gtest.h>

using namespace gesso::headless;

namespace {

LRESULT CALLBACK ParentProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_PRINTCLIENT) {
        const RECT rect = {1, 1, 5, 5};
        DrawFocusRect(reinterpret_cast<HDC>(wParam), &rect);
        return 0;
    }
    return DefWindowProcW(hwnd, message, wParam, lParam);
}

/// A parent with a white background and a child that shows it through.
class ThemeWindow : public testing::Test
{
protected:
    void SetUp() override
    {
        Reset();
        WNDCLASSEXW parentClass{};
        parentClass.cbSize = sizeof(parentClass);
        parentClass.lpfnWndProc = ParentProc;
        parentClass.hInstance = HostModule();
        parentClass.hbrBackground = reinterpret_cast<HBRUSH>(uintptr_t{COLOR_WINDOW + 1});
        parentClass.lpszClassName = L"ThemeWindowParent";
        RegisterClassExW(&parentClass);
        m_parent = CreateWindowExW(0, L"ThemeWindowParent", nullptr, WS_POPUP, 0, 0, 200, 100, nullptr,
                                   nullptr, HostModule(), nullptr);
        m_child = CreateWindowExW(0, L"ThemeWindowParent", nullptr, WS_CHILD, 30, 20, 50, 40, m_parent,
                                  nullptr, HostModule(), nullptr);
        ASSERT_NE(m_child, nullptr);
    }

    void TearDown() override
    {
        DestroyWindow(m_parent);
        UnregisterClassW(L"ThemeWindowParent", HostModule());
        Reset();
    }

    HWND m_parent = nullptr;
    HWND m_child = nullptr;
};

} // namespace

TEST_F(ThemeWindow, TheParentsBackgroundIsDrawnInTheParentsCoordinates)
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

TEST_F(ThemeWindow, SetWindowThemeChoosesTheApplicationsClasses)
{
    StartTrace(m_child);
    EXPECT_EQ(SetWindowTheme(m_child, L"Explorer", nullptr), S_OK);
    const std::vector<Message> messages = StopTrace();
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_EQ(messages[0].message, UINT{WM_THEMECHANGED});
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
