// The task dialog and the message box, run modally and driven from within.

#include <gesso/dialogs/DialogSupport.h>
#include <gesso/dialogs/GTaskDialog.h>

#include "../controls/DrawFixture.h"

#include <gtest/gtest.h>

namespace {

namespace desk = gesso::headless;
using test::Lines;

class GTaskDialogTest : public test::DrawFixture
{
protected:
    // Runs a message box and acts within it.
    UINT Box(UINT uType, const std::function<void(HWND)>& act)
    {
        desk::WhenIdle([act] { act(GDialog::s_hActiveDlg); });
        return GTaskDialog::MessageBoxW(Parent(), L"Content", L"Caption", uType);
    }

    // The texts of a dialog's buttons from left to right, the default one in brackets.
    static std::string Buttons(HWND hDlg)
    {
        std::string buttons;
        const WORD wDefault = LOWORD(SendMessageW(hDlg, DM_GETDEFID, 0, 0));
        const bool fDefault = HIWORD(SendMessageW(hDlg, DM_GETDEFID, 0, 0)) == DC_HASDEFID;
        for (HWND hwnd = GetWindow(hDlg, GW_CHILD); hwnd; hwnd = GetWindow(hwnd, GW_HWNDNEXT)) {
            std::string text = test::TextOf(hwnd);
            if (fDefault && GetDlgCtrlID(hwnd) == wDefault) {
                text = "[" + text + "]";
            }
            buttons = text + (buttons.empty() ? "" : " ") + buttons;
        }
        return buttons;
    }
};

TEST_F(GTaskDialogTest, MessageTypesShowTheirButtonsAndDefaults)
{
    struct
    {
        UINT uType;
        const char* pszButtons;
    } const rows[] = {
        {MB_OK, "[OK]"},
        {MB_OKCANCEL, "[OK] Abbrechen"},
        {MB_OKCANCEL | MB_DEFBUTTON2, "OK [Abbrechen]"},
        {MB_OKCANCEL | MB_DEFBUTTON3, "[OK] Abbrechen"},
        {MB_ABORTRETRYIGNORE, "OK"},
        {MB_YESNOCANCEL, "[Ja] Nein Abbrechen"},
        {MB_YESNOCANCEL | MB_DEFBUTTON2, "Ja [Nein] Abbrechen"},
        {MB_YESNOCANCEL | MB_DEFBUTTON3, "Ja Nein [Abbrechen]"},
        {MB_YESNO, "[Ja] Nein"},
        {MB_RETRYCANCEL | MB_DEFBUTTON2, "Wiederholen [Abbrechen]"},
        {0xF, "OK"},
    };
    for (const auto& row : rows) {
        std::string buttons;
        Box(row.uType, [&](HWND hDlg) {
            buttons = Buttons(hDlg);
            EndDialog(hDlg, IDOK);
        });
        EXPECT_EQ(buttons, row.pszButtons) << row.uType;
    }
}

TEST_F(GTaskDialogTest, AnswersByMouseKeyboardAndCloseBox)
{
    EXPECT_EQ(Box(MB_YESNO,
                  [](HWND hDlg) {
                      RECT rc{};
                      GetWindowRect(GetDlgItem(hDlg, IDNO), &rc);
                      desk::Click(rc.left + 5, rc.top + 5);
                  }),
              static_cast<UINT>(IDNO));
    EXPECT_EQ(Box(MB_YESNO, [](HWND) { desk::TypeKey(VK_RETURN); }), static_cast<UINT>(IDYES));
    EXPECT_EQ(Box(MB_YESNO, [](HWND) { desk::TypeKey(VK_ESCAPE); }), static_cast<UINT>(IDCANCEL));
    EXPECT_EQ(Box(MB_OK, [](HWND hDlg) { PostMessageW(hDlg, WM_CLOSE, 0, 0); }), static_cast<UINT>(IDCANCEL));
}

TEST_F(GTaskDialogTest, OwnerIsDisabledMeanwhileAndActiveAfter)
{
    Box(MB_OK, [this](HWND hDlg) {
        EXPECT_FALSE(IsWindowEnabled(Parent()));
        EXPECT_EQ(GetActiveWindow(), hDlg);
        desk::TypeKey(VK_ESCAPE);
    });
    EXPECT_TRUE(IsWindowEnabled(Parent()));
    EXPECT_EQ(GetActiveWindow(), Parent());
    EXPECT_EQ(GDialog::s_hActiveDlg, nullptr);
    EXPECT_FALSE(desk::Deadlocked());
}

TEST_F(GTaskDialogTest, GrowsForItsTextsAndButtons)
{
    const auto widthOf = [&](LPCWSTR pszContent, DWORD dwButtons) {
        GTASKDIALOGCONFIG config{};
        config.hwndParent = Parent();
        config.pszContent = pszContent;
        config.dwCommonButtons = dwButtons;
        int cx = 0;
        desk::WhenIdle([&] {
            RECT rc{};
            GetClientRect(GDialog::s_hActiveDlg, &rc);
            cx = rc.right;
            for (HWND hwnd = GetWindow(GDialog::s_hActiveDlg, GW_CHILD); hwnd;
                 hwnd = GetWindow(hwnd, GW_HWNDNEXT)) {
                RECT rcButton{};
                GetWindowRect(hwnd, &rcButton);
                MapWindowPoints(nullptr, GDialog::s_hActiveDlg, reinterpret_cast<POINT*>(&rcButton), 2);
                EXPECT_GE(rcButton.left, 0);
                EXPECT_LE(rcButton.right, rc.right);
                EXPECT_LE(rcButton.bottom, rc.bottom);
            }
            EndDialog(GDialog::s_hActiveDlg, 0);
        });
        EXPECT_EQ(GTaskDialog::IsolationAwareTaskDialogIndirect(&config, nullptr), S_OK);
        return cx;
    };
    const int cxSmall = widthOf(L"x", 0);
    EXPECT_GT(widthOf(L"x", 0x3F), cxSmall) << "six buttons";
    const LPCWSTR pszWord =
        L"wwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwwww";
    EXPECT_GT(widthOf(pszWord, 1), 6 * 80) << "a word that no limit breaks";
}

TEST_F(GTaskDialogTest, DialogThatCannotRunGivesMinusOne)
{
    desk::Fail("DialogBoxIndirectParamW", 2);
    EXPECT_EQ(GTaskDialog::MessageBoxW(Parent(), L"text", nullptr, MB_ICONERROR), static_cast<UINT>(-1));
    UINT uButton = 0;
    EXPECT_EQ(GTaskDialog::IsolationAwareTaskDialog(Parent(), nullptr, nullptr, nullptr, nullptr,
                                                    TDCBF_OK_BUTTON, nullptr, &uButton),
              E_FAIL);
    EXPECT_EQ(uButton, static_cast<UINT>(-1));
}

TEST_F(GTaskDialogTest, NullTextsCountAsEmptyAndUnknownButtonsAreNone)
{
    GTASKDIALOGCONFIG config{};
    config.dwCommonButtons = 0xFFFFFF00;
    config.dwDefaultButton = 0x100;
    desk::WhenIdle([] {
        EXPECT_EQ(GetWindow(GDialog::s_hActiveDlg, GW_CHILD), nullptr);
        EXPECT_FALSE(Draw(GDialog::s_hActiveDlg, "DrawThemeBackground TASKDIALOG 8").empty()) << "the footer";
        desk::TypeKey(VK_ESCAPE);
    });
    UINT uButton = 0;
    EXPECT_EQ(GTaskDialog::IsolationAwareTaskDialogIndirect(&config, &uButton), S_OK);
    EXPECT_EQ(uButton, static_cast<UINT>(IDCANCEL));
}

TEST(EmptyDialogTemplate, HasThePlatformsLayout)
{
    const gesso::EmptyDialogTemplate dialog(0x100, 0x80C80848, 123, 65, L"Hi");
    const auto* pWords = reinterpret_cast<const WORD*>(dialog.Get());
    const WORD expected[] = {1,   0xFFFF, 0, 0, 0x100, 0, 0x0848, 0x80C8, 0,   200, 200, 123, 65,  0,   0,
                             'H', 'i',    0, 9, 400,   0, 'S',    'e',    'g', 'o', 'e', ' ', 'U', 'I', 0};
    EXPECT_TRUE(std::equal(std::begin(expected), std::end(expected), pWords));
}

} // namespace
