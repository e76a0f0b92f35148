// Windows of the simulated desktop, where Windows does what Wine does not.
#include "DesktopTest.h"

using namespace gesso::headless;
using namespace gesso::headless::test;

namespace {

using DesktopWindowTest = DesktopTest;

TEST_F(DesktopWindowTest, AWindowThatRefusesItsCreationIsGoneAtOnce)
{
    const HWND parent = MakeTop();
    const Census before = Live();
    std::vector<UINT> seen;
    const auto refuseAt = [&](UINT refused, LRESULT answer) {
        seen.clear();
        return [&, refused, answer](HWND, UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
            seen.push_back(message);
            return message == refused ? std::optional<LRESULT>(answer) : std::nullopt;
        };
    };
    EXPECT_EQ(Make({.style = WS_CHILD, .parent = parent}, refuseAt(WM_NCCREATE, FALSE)), nullptr);
    EXPECT_EQ(seen, (std::vector<UINT>{WM_NCCREATE, WM_NCDESTROY}));
    EXPECT_EQ(Make({.style = WS_CHILD, .parent = parent}, refuseAt(WM_CREATE, -1)), nullptr);
    EXPECT_EQ(seen, (std::vector<UINT>{WM_NCCREATE, WM_NCCALCSIZE, WM_CREATE, WM_DESTROY, WM_NCDESTROY}));
    EXPECT_EQ(Live(), before);
}

TEST_F(DesktopWindowTest, WindowsMayDestroyThemselvesInAnyMessage)
{
    const HWND parent = MakeTop();
    for (const UINT fatal : std::initializer_list<UINT>{WM_CREATE, WM_SIZE, WM_SHOWWINDOW,
                                                        WM_WINDOWPOSCHANGED, WM_ERASEBKGND, WM_NCPAINT})
    {
        const HWND hwnd = Make({.style = WS_CHILD | WS_VISIBLE, .parent = parent},
                               [=](HWND self, UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
                                   if (message == fatal) {
                                       DestroyWindow(self);
                                       return 0;
                                   }
                                   return std::nullopt;
                               });
        EXPECT_EQ(hwnd, nullptr) << MessageName(fatal);
        EXPECT_EQ(GetWindow(parent, GW_CHILD), nullptr) << MessageName(fatal);
    }
}

TEST_F(DesktopWindowTest, CreationFailsForWhatCannotBe)
{
    struct Case
    {
        LPCWSTR className;
        DWORD style;
        HWND parent;
        HMENU menu;
        DWORD error;
    };
    const auto noWindow = reinterpret_cast<HWND>(0x77);
    const Case cases[] = {
        {L"NoSuchClass", WS_POPUP, nullptr, nullptr, ERROR_CANNOT_FIND_WND_CLASS},
        {MAKEINTRESOURCEW(0), WS_POPUP, nullptr, nullptr, ERROR_CANNOT_FIND_WND_CLASS},
        {L"STATIC", WS_CHILD, nullptr, nullptr, ERROR_TLW_WITH_WSCHILD},
        {L"STATIC", WS_CHILD, noWindow, nullptr, ERROR_INVALID_WINDOW_HANDLE},
        {L"STATIC", WS_POPUP, nullptr, reinterpret_cast<HMENU>(7), ERROR_INVALID_MENU_HANDLE},
    };
    for (const Case& c : cases) {
        SetLastError(0);
        EXPECT_EQ(
            CreateWindowExW(0, c.className, nullptr, c.style, 0, 0, 9, 9, c.parent, c.menu, nullptr, nullptr),
            nullptr);
        EXPECT_EQ(GetLastError(), c.error);
    }
}

TEST_F(DesktopWindowTest, GlobalClassesAreSeenFromEverywhereAndLocalOnesFromTheirModule)
{
    const HINSTANCE library = LibraryModule();
    WNDCLASSEXW data{};
    data.cbSize = sizeof(data);
    data.lpfnWndProc = DefWindowProcW;
    data.hInstance = library;
    data.lpszClassName = L"LocalOfLibrary";
    ASSERT_NE(RegisterClassExW(&data), 0);
    EXPECT_EQ(RegisterClassExW(&data), 0);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_CLASS_ALREADY_EXISTS});
    data.lpszClassName = L"GlobalOfLibrary";
    data.style = CS_GLOBALCLASS;
    const ATOM atom = RegisterClassExW(&data);
    ASSERT_NE(atom, 0);

    const auto make = [](LPCWSTR name, HINSTANCE instance) {
        return CreateWindowExW(0, name, nullptr, WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, instance, nullptr);
    };
    EXPECT_EQ(make(L"LocalOfLibrary", nullptr), nullptr);
    const HWND local = make(L"localoflibrary", library);
    const HWND global = make(MAKEINTRESOURCEW(atom), nullptr);
    EXPECT_FALSE(UnregisterClassW(L"GlobalOfLibrary", library)); // it has a window
    EXPECT_TRUE(DestroyWindow(local) && DestroyWindow(global));
    EXPECT_TRUE(UnregisterClassW(L"GlobalOfLibrary", library));
    EXPECT_TRUE(UnregisterClassW(L"LocalOfLibrary", library));
}

TEST_F(DesktopWindowTest, UiStateIsAskedForAtTheTopAndComesDownToAll)
{
    const HWND top = MakeTop();
    const HWND child = MakeChild(top, {0, 0, 100, 100});
    const HWND inner = MakeChild(child, {0, 0, 50, 50});
    const WPARAM hide = MAKEWPARAM(UIS_SET, UISF_HIDEFOCUS);
    const auto names = [&](WPARAM change) {
        return Names(Traced([&] { SendMessageW(inner, WM_CHANGEUISTATE, change, 0); }),
                     {{top, 't'}, {child, 'c'}, {inner, 'i'}}, {WM_CHANGEUISTATE, WM_UPDATEUISTATE});
    };
    EXPECT_EQ(names(hide), "i:WM_CHANGEUISTATE, c:WM_CHANGEUISTATE, t:WM_CHANGEUISTATE, t:WM_UPDATEUISTATE, "
                           "c:WM_UPDATEUISTATE, i:WM_UPDATEUISTATE");
    EXPECT_EQ(SendMessageW(inner, WM_QUERYUISTATE, 0, 0), UISF_HIDEFOCUS);
    EXPECT_EQ(names(hide), "i:WM_CHANGEUISTATE"); // nothing to change
    const HWND later = MakeChild(top, {0, 0, 10, 10});
    EXPECT_EQ(SendMessageW(later, WM_QUERYUISTATE, 0, 0), UISF_HIDEFOCUS);
}

} // namespace
