// Windows that cannot be, that refuse to be, or that go while they come.
#include "../support/OnWine.h"
#include "../support/TestWindow.h"
#include "../support/User.h"

using namespace test;

namespace {

using WindowRulesTest = WindowsTest;

TEST_F(WindowRulesTest, AWindowThatRefusesItsCreationIsGoneAtOnce)
{
    const HWND parent = MakeTop();
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
    ExpectButForWine<std::vector<UINT>>(seen,
                                        {WM_NCCREATE, WM_NCCALCSIZE, WM_CREATE, WM_DESTROY, WM_NCDESTROY},
                                        {WM_NCCREATE, WM_NCCALCSIZE, WM_CREATE, WM_NCDESTROY});
    EXPECT_EQ(GetWindow(parent, GW_CHILD), nullptr);
}

TEST_F(WindowRulesTest, WindowsMayDestroyThemselvesInAnyMessage)
{
    const HWND parent = MakeTop();
    struct Case
    {
        UINT fatal;
        bool staleOnWine; // the handle that creation returns, where Windows returns none
    };
    const Case cases[] = {{WM_CREATE, false},          {WM_SIZE, false},      {WM_SHOWWINDOW, true},
                          {WM_WINDOWPOSCHANGED, true}, {WM_ERASEBKGND, true}, {WM_NCPAINT, true}};
    for (const Case& c : cases) {
        const HWND hwnd = Make({.style = WS_CHILD | WS_VISIBLE, .parent = parent},
                               [&](HWND self, UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
                                   if (message == c.fatal) {
                                       DestroyWindow(self);
                                       return 0;
                                   }
                                   return std::nullopt;
                               });
        if (c.staleOnWine) {
            ExpectButForWine(hwnd == nullptr, true, false);
        } else {
            EXPECT_EQ(hwnd, nullptr) << gesso::NameOfMessage(c.fatal);
        }
        user::Pump();
        EXPECT_EQ(GetWindow(parent, GW_CHILD), nullptr) << gesso::NameOfMessage(c.fatal);
    }
}

TEST_F(WindowRulesTest, CreationFailsForWhatCannotBe)
{
    struct Case
    {
        LPCWSTR className;
        DWORD style;
        HWND parent;
        HMENU menu;
        DWORD error;
        DWORD errorOnWine;
    };
    const auto noWindow = reinterpret_cast<HWND>(0x77);
    const Case cases[] = {
        {L"NoSuchClass", WS_POPUP, nullptr, nullptr, ERROR_CANNOT_FIND_WND_CLASS, ERROR_CLASS_DOES_NOT_EXIST},
        {MAKEINTRESOURCEW(0), WS_POPUP, nullptr, nullptr, ERROR_CANNOT_FIND_WND_CLASS,
         ERROR_CLASS_DOES_NOT_EXIST},
        {L"STATIC", WS_CHILD, nullptr, nullptr, ERROR_TLW_WITH_WSCHILD, 0},
        {L"STATIC", WS_CHILD, noWindow, nullptr, ERROR_INVALID_WINDOW_HANDLE, 0},
        {L"STATIC", WS_POPUP, nullptr, reinterpret_cast<HMENU>(7), ERROR_INVALID_MENU_HANDLE, 0},
    };
    for (const Case& c : cases) {
        SetLastError(0);
        EXPECT_EQ(
            CreateWindowExW(0, c.className, nullptr, c.style, 0, 0, 9, 9, c.parent, c.menu, nullptr, nullptr),
            nullptr);
        if (c.errorOnWine) {
            ExpectButForWine(GetLastError(), c.error, c.errorOnWine);
        } else {
            EXPECT_EQ(GetLastError(), c.error);
        }
    }
}

TEST_F(WindowRulesTest, GlobalClassesAreSeenFromEverywhereAndLocalOnesFromTheirModule)
{
    const HMODULE library = LoadLibraryW(L"comctl32.dll");
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
    EXPECT_EQ(make(L"LocalOfLibrary", GetModuleHandleW(nullptr)), nullptr);
    const HWND local = make(L"localoflibrary", library);
    const HWND global = make(MAKEINTRESOURCEW(atom), nullptr);
    EXPECT_FALSE(UnregisterClassW(L"GlobalOfLibrary", library)); // it has a window
    EXPECT_TRUE(DestroyWindow(local) && DestroyWindow(global));
    EXPECT_TRUE(UnregisterClassW(L"GlobalOfLibrary", library));
    EXPECT_TRUE(UnregisterClassW(L"LocalOfLibrary", library));
    FreeLibrary(library);
}

TEST_F(WindowRulesTest, UiStateIsAskedForAtTheTopAndComesDownToAll)
{
    const HWND top = MakeTop();
    const HWND child = MakeChild(top, {0, 0, 100, 100});
    const HWND inner = MakeChild(child, {0, 0, 50, 50});
    const WPARAM hide = MAKEWPARAM(UIS_SET, UISF_HIDEFOCUS);
    const auto names = [&](WPARAM change) {
        return Names(Traced([&] { SendMessageW(inner, WM_CHANGEUISTATE, change, 0); }),
                     {{top, 't'}, {child, 'c'}, {inner, 'i'}}, {WM_CHANGEUISTATE, WM_UPDATEUISTATE});
    };
    // Wine hides nothing when it is asked to.
    ExpectButForWine<std::string>(
        names(hide),
        "i:WM_CHANGEUISTATE, c:WM_CHANGEUISTATE, t:WM_CHANGEUISTATE, t:WM_UPDATEUISTATE, "
        "c:WM_UPDATEUISTATE, i:WM_UPDATEUISTATE",
        "i:WM_CHANGEUISTATE");
    ExpectButForWine<LRESULT>(SendMessageW(inner, WM_QUERYUISTATE, 0, 0), UISF_HIDEFOCUS, 0);
    EXPECT_EQ(names(hide), "i:WM_CHANGEUISTATE"); // nothing to change
    const HWND later = MakeChild(top, {0, 0, 10, 10});
    ExpectButForWine<LRESULT>(SendMessageW(later, WM_QUERYUISTATE, 0, 0), UISF_HIDEFOCUS, 0);
}

} // namespace
