// The context menu of text fields made in Modern, as it is in Dark: the library's own, with the keys, the
// mnemonics and the mouse of the platform's.

#include "../support/User.h"
#include "../support/WithBehavior.h"
#include "EditFixture.h"

#include <functional>

namespace {

using namespace test;

BOOL CALLBACK TakeMenu(HWND hwnd, LPARAM lResult)
{
    wchar_t szClass[32]{};
    GetClassNameW(hwnd, szClass, 32);
    const bool fMenu = Narrow(szClass) == "GCommandMenu";
    if (fMenu) {
        *reinterpret_cast<HWND*>(lResult) = hwnd;
    }
    return !fMenu;
}

// "word" with its first two characters selected: all but Redo can be chosen.
class DarkFieldMenuTest : public EditFixture
{
protected:
    DarkFieldMenuTest()
    {
        user::Pump(); // an end of the program that another test has left would end the menus
        gesso::SetColorScheme(gesso::ColorScheme::Dark);
    }
    ~DarkFieldMenuTest() override { gesso::SetColorScheme(gesso::ColorScheme::Light); }

    // The text, with what the user does while the menu is there.
    std::string Open(std::function<void(HWND)> act)
    {
        edit.Destroy();
        Make(20, 3, ES_AUTOHSCROLL);
        EmptyTheClipboard();
        SetFocus(edit);
        Type(L"word");
        edit.SetSel(0, 2);
        HWND hwndMenu = nullptr;
        user::WhenIdle([&] {
            EnumThreadWindows(GetCurrentThreadId(), TakeMenu, reinterpret_cast<LPARAM>(&hwndMenu));
            EXPECT_TRUE(hwndMenu);
            act(hwndMenu);
        });
        SendMessageW(edit, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(edit.GetHwnd()), -1);
        HoldKeys({});
        EXPECT_FALSE(IsWindow(hwndMenu));
        return TextOf(edit);
    }
    std::string OpenAndType(std::initializer_list<UINT> keys)
    {
        return Open([&](HWND) {
            for (const UINT vk : keys) {
                user::TypeKey(vk);
            }
        });
    }
    std::string Selected()
    {
        DWORD dwFrom = 0, dwTo = 0;
        SendMessageW(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&dwFrom), reinterpret_cast<LPARAM>(&dwTo));
        return std::to_string(dwFrom) + "-" + std::to_string(dwTo);
    }

    Modern modern;
};

// In the middle of an entry's row, from the menu's top.
POINT EntryAt(HWND hwndMenu, int nEntry, int nLinesAbove)
{
    constexpr int MARGIN = 3, ENTRY = 22, LINE = 9;
    POINT pt{30, MARGIN + nEntry * ENTRY + nLinesAbove * LINE + ENTRY / 2};
    ClientToScreen(hwndMenu, &pt);
    return pt;
}

} // namespace

TEST_F(DarkFieldMenuTest, ArrowsPassLinesAndEnterAndMnemonicsChooseWhatIsEnabled)
{
    EXPECT_EQ(OpenAndType({VK_DOWN, VK_DOWN, VK_DOWN, VK_RETURN}), "rd") << "cut, behind a line";
    EXPECT_EQ(Clipboard(), "wo");
    EXPECT_EQ(OpenAndType({VK_HOME, VK_RETURN}), "") << "undone";
    EXPECT_EQ(OpenAndType({'A'}), "rd");
    EXPECT_EQ(OpenAndType({'L'}), "rd");
    EXPECT_EQ(Clipboard(), "(none)") << "deleted, and not cut";
    EXPECT_EQ(OpenAndType({VK_END, VK_RETURN}), "word");
    EXPECT_EQ(Selected(), "0-4");
    EXPECT_EQ(OpenAndType({VK_UP, VK_UP, VK_RETURN}), "rd") << "from the last one up: delete";
    EXPECT_EQ(OpenAndType({'M'}), "word");
    EXPECT_EQ(Selected(), "0-4");
}

TEST_F(DarkFieldMenuTest, WhatIsDisabledIsMarkedAndNotChosen)
{
    EXPECT_EQ(OpenAndType({VK_DOWN, VK_DOWN, VK_RETURN, 'W', VK_RETURN, 'X', VK_ESCAPE}), "word");
    EXPECT_EQ(Selected(), "0-2") << "nothing was done";
    EXPECT_EQ(GetFocus(), edit.GetHwnd());
    EXPECT_EQ(OpenAndType({'W', VK_DOWN, VK_RETURN}), "rd") << "the mark goes on from there";
}

TEST_F(DarkFieldMenuTest, EitherButtonChoosesAndAClickElsewhereEndsIt)
{
    const auto click = [](int nEntry, int nLines) {
        return [=](HWND hwnd) {
            const POINT pt = EntryAt(hwnd, nEntry, nLines);
            user::Click(pt.x, pt.y);
        };
    };
    EXPECT_EQ(Open(click(2, 1)), "rd");
    EXPECT_EQ(Open([](HWND hwnd) {
                  const POINT pt = EntryAt(hwnd, 2, 1);
                  POINT ptClient = pt;
                  ScreenToClient(hwnd, &ptClient);
                  PostMessageW(hwnd, WM_RBUTTONDOWN, 0, MAKELPARAM(ptClient.x, ptClient.y));
                  PostMessageW(hwnd, WM_RBUTTONUP, 0, MAKELPARAM(ptClient.x, ptClient.y));
              }),
              "rd");
    EXPECT_EQ(Open([&](HWND hwnd) {
                  click(1, 0)(hwnd); // disabled
                  user::Click(HOST_X + 350, HOST_Y + 250);
              }),
              "word");
}
