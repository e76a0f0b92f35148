// The task dialog and the message box of Modern. Runs on both platforms.

#include "../support/AllowMisuse.h"
#include "../support/Keys.h"
#include "../support/WithBehavior.h"
#include "ModalFixture.h"

#include <algorithm>

namespace {

using namespace test;

class ModernDialogTest : public ModalTest
{
protected:
    UINT Box(UINT uType, const std::function<void(HWND)>& act, LPCWSTR pszText = L"Content")
    {
        WhenIdle(act);
        return GTaskDialog::MessageBoxW(Parent(), pszText, L"Caption", uType);
    }
    HRESULT Ask(LPCWSTR pszVerification, bool* pfChecked, UINT* puButton,
                const std::function<void(HWND)>& act)
    {
        GTASKDIALOGCONFIG config{};
        config.hwndParent = Parent();
        config.pszMainInstruction = L"Instruction";
        config.dwCommonButtons = TDCBF_OK_BUTTON | TDCBF_CANCEL_BUTTON;
        config.dwDefaultButton = TDCBF_OK_BUTTON;
        WhenIdle(act);
        return GTaskDialog::Ask(&config, pszVerification, pfChecked, puButton);
    }
    static HWND CheckOf(HWND hDlg)
    {
        HWND hwnd = GetWindow(hDlg, GW_CHILD);
        while (hwnd && TextOf(hwnd) != "Not &again") {
            hwnd = GetWindow(hwnd, GW_HWNDNEXT);
        }
        return hwnd;
    }
    static RECT WorkAreaOf(HWND hwnd)
    {
        MONITORINFO monitor{};
        monitor.cbSize = sizeof(monitor);
        GetMonitorInfoW(MonitorFromWindow(hwnd, MONITOR_DEFAULTTONEAREST), &monitor);
        return monitor.rcWork;
    }
    // From left to right, with ids, the one that has the focus in brackets.
    static std::string Buttons(HWND hDlg)
    {
        std::string buttons;
        for (HWND hwnd = GetWindow(hDlg, GW_CHILD); hwnd; hwnd = GetWindow(hwnd, GW_HWNDNEXT)) {
            const std::string text = TextOf(hwnd) + " " + std::to_string(GetDlgCtrlID(hwnd));
            buttons += (buttons.empty() ? "" : ", ") + (GetFocus() == hwnd ? "[" + text + "]" : text);
        }
        return buttons;
    }

    Modern modern;
};

TEST_F(ModernDialogTest, EveryTypeShowsItsOwnButtonsAndReturnsThem)
{
    struct
    {
        UINT uType;
        const char* pszButtons;
    } const rows[] = {
        {MB_OK, "[OK 1]"},
        {MB_OKCANCEL | MB_DEFBUTTON2, "OK 1, [Abbrechen 2]"},
        {MB_ABORTRETRYIGNORE | MB_DEFBUTTON3, "Abbrechen 3, Wiederholen 4, [Ignorieren 5]"},
        {MB_YESNOCANCEL, "[Ja 6], Nein 7, Abbrechen 2"},
        {MB_YESNO | MB_DEFBUTTON4, "[Ja 6], Nein 7"},
        {MB_RETRYCANCEL, "[Wiederholen 4], Abbrechen 2"},
        {MB_CANCELTRYCONTINUE | MB_DEFBUTTON2, "Abbrechen 2, [Erneut versuchen 10], Weiter 11"},
        {MB_OK | MB_HELP, "[OK 1], Hilfe 9"},
        {0xF, "[OK 1]"},
    };
    for (const auto& row : rows) {
        std::string buttons;
        UINT uFocus = 0;
        const UINT uResult = Box(row.uType, [&](HWND hDlg) {
            buttons = Buttons(hDlg);
            uFocus = static_cast<UINT>(GetDlgCtrlID(GetFocus()));
            user::TypeKey(VK_SPACE);
        });
        EXPECT_EQ(buttons, row.pszButtons);
        EXPECT_EQ(uResult, uFocus);
    }
}

TEST_F(ModernDialogTest, EscCancelsButWhereThereIsAbort)
{
    EXPECT_EQ(Box(MB_YESNO, [](HWND) { user::TypeKey(VK_ESCAPE); }), static_cast<UINT>(IDCANCEL));
    EXPECT_EQ(Box(MB_ABORTRETRYIGNORE,
                  [](HWND hDlg) {
                      SendMessageW(hDlg, WM_COMMAND, IDCANCEL, 0);
                      SendMessageW(hDlg, WM_CLOSE, 0, 0);
                      user::TypeKey(VK_ESCAPE);
                      user::TypeKey(VK_TAB);
                      user::TypeKey(VK_SPACE);
                  }),
              static_cast<UINT>(IDRETRY));
}

TEST_F(ModernDialogTest, HelpAsksTheOwnerAndEndsNothing)
{
    static int s_nAsked;
    s_nAsked = 0;
    static WNDPROC s_pfnFormer;
    const WNDPROC pfnAsked = [](HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam) -> LRESULT {
        s_nAsked += uMsg == WM_HELP && reinterpret_cast<const HELPINFO*>(lParam)->iCtrlId == IDHELP;
        return CallWindowProcW(s_pfnFormer, hwnd, uMsg, wParam, lParam);
    };
    s_pfnFormer = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(Parent(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(pfnAsked)));
    EXPECT_EQ(Box(MB_OK | MB_HELP,
                  [](HWND hDlg) {
                      SendMessageW(GetDlgItem(hDlg, IDHELP), BM_CLICK, 0, 0);
                      user::TypeKey(VK_RETURN);
                  }),
              static_cast<UINT>(IDOK));
    EXPECT_EQ(s_nAsked, 1);
    SetWindowLongPtrW(Parent(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(s_pfnFormer));
}

TEST_F(ModernDialogTest, CtrlCCopiesTheTexts)
{
    std::string copied;
    bool fChecked = false;
    Ask(L"Not &again", &fChecked, nullptr, [&](HWND hDlg) {
        user::TypeKey('C', {VK_CONTROL});
        WhenIdle([&, hDlg](HWND) {
            OpenClipboard(hDlg);
            if (const HANDLE hData = GetClipboardData(CF_UNICODETEXT)) {
                copied = Narrow(static_cast<LPCWSTR>(GlobalLock(hData)));
                GlobalUnlock(hData);
            }
            EmptyClipboard();
            CloseClipboard();
            user::TypeKey(VK_ESCAPE);
        });
    });
    HoldKeys({}); // the dialog may have ended before the release came
    const std::string rule = std::string(27, '-') + "\r\n";
    EXPECT_EQ(copied,
              rule + "\r\n" + rule + "Instruction\r\n" + rule + "\r\n" + rule + "OK   Abbrechen\r\n" + rule);
}

TEST_F(ModernDialogTest, TheCheckBoxIsGivenAndAnsweredWhateverEndsIt)
{
    for (const bool fFirst : {false, true}) {
        for (const gesso::Behavior behavior : {gesso::Behavior::Modern, gesso::Behavior::Classic}) {
            const WithBehavior current(behavior);
            bool fChecked = fFirst;
            UINT uButton = 0;
            EXPECT_EQ(Ask(L"Not &again", &fChecked, &uButton,
                          [&](HWND hDlg) {
                              const HWND hwnd = CheckOf(hDlg);
                              EXPECT_EQ(SendMessageW(hwnd, BM_GETCHECK, 0, 0), fFirst);
                              SetFocus(hwnd);
                              user::TypeKey(VK_SPACE);
                              user::TypeKey(VK_ESCAPE);
                          }),
                      S_OK);
            EXPECT_EQ(uButton, static_cast<UINT>(IDCANCEL));
            EXPECT_EQ(fChecked, !fFirst);
        }
    }
    bool fChecked = true;
    Ask(L"", &fChecked, nullptr, [](HWND hDlg) {
        EXPECT_EQ(Buttons(hDlg), "[OK 1], Abbrechen 2");
        user::TypeKey(VK_RETURN);
    });
    EXPECT_TRUE(fChecked);
}

TEST_F(ModernDialogTest, ALongTextScrollsWithinTheWorkArea)
{
    std::vector<wchar_t> text;
    for (int i = 0; i < 400; i++) {
        text.insert(text.end(), {L'L', L'i', L'n', L'e', L'\n'});
    }
    text.push_back(0);
    Box(
        MB_OK,
        [](HWND hDlg) {
            const RECT rcWork = WorkAreaOf(hDlg);
            RECT rc{};
            GetWindowRect(hDlg, &rc);
            EXPECT_LE(rc.bottom - rc.top, rcWork.bottom - rcWork.top);
            EXPECT_GE(rc.top, rcWork.top);
            const HWND hwndButton = GetDlgItem(hDlg, IDOK);
            UpdateWindow(hDlg);
            EXPECT_TRUE(SendMessageW(hwndButton, WM_GETDLGCODE, VK_UP, 0) & DLGC_WANTARROWS);
            EXPECT_FALSE(SendMessageW(hwndButton, WM_GETDLGCODE, VK_LEFT, 0) & DLGC_WANTARROWS);
            for (const UINT uKey : {VK_NEXT, VK_UP, VK_END, VK_PRIOR, VK_DOWN, VK_HOME}) {
                SendMessageW(hwndButton, WM_KEYDOWN, uKey, 0);
                EXPECT_TRUE(TakeRepaint(hDlg)) << uKey;
            }
            SendMessageW(hwndButton, WM_KEYDOWN, VK_UP, 0);
            EXPECT_FALSE(TakeRepaint(hDlg)) << "it is at the top";
            SendMessageW(hDlg, WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-WHEEL_DELTA)), 0);
            EXPECT_TRUE(TakeRepaint(hDlg));
            EndDialog(hDlg, IDOK);
        },
        text.data());
}

TEST_F(ModernDialogTest, ARecordShowsItsTextsAndNoneIsAMistake)
{
    GTASKDIALOGCONFIG config{};
    config.hwndParent = Parent();
    config.pszContent = L"Content";
    config.hMainIcon = LoadIconW(nullptr, MAKEINTRESOURCEW(32516)); // information
    config.cxWidth = 300;
    UINT uButton = 0;
    WhenIdle([](HWND hDlg) {
        EXPECT_EQ(Buttons(hDlg), "");
        UpdateWindow(hDlg);
        EndDialog(hDlg, 7);
    });
    EXPECT_EQ(GTaskDialog::IsolationAwareTaskDialogIndirect(&config, &uButton), S_OK);
    EXPECT_EQ(uButton, 7u);
    const AllowMisuse allowed;
    bool fChecked = true;
    EXPECT_NE(GTaskDialog::Ask(nullptr, L"x", &fChecked, &uButton), S_OK);
    EXPECT_EQ(uButton, static_cast<UINT>(-1));
}

TEST_F(ModernDialogTest, AWordWiderThanTheScreenIsAsWideAsTheWorkArea)
{
    std::vector<wchar_t> word(2000, L'W');
    word.push_back(0);
    SetWindowPos(Parent(), nullptr, 150, 90, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    Box(
        MB_OK,
        [](HWND hDlg) {
            const RECT rcWork = WorkAreaOf(hDlg);
            RECT rc{};
            GetWindowRect(hDlg, &rc);
            EXPECT_EQ(rc.right - rc.left, rcWork.right - rcWork.left);
            EndDialog(hDlg, IDOK);
        },
        word.data());
}

TEST_F(ModernDialogTest, TheOwnerMayEndTheDialogWhereItIsTold)
{
    Box(MB_OK | MB_HELP, [](HWND hDlg) {
        SetFocus(GetDlgItem(hDlg, IDHELP));
        PostMessageW(hDlg, WM_COMMAND, IDHELP, 0);
        WhenIdle([hDlg](HWND) { DestroyWindow(hDlg); });
    });
}

} // namespace
