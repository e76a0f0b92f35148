// The task dialog and the message box. Runs on both platforms.

#include "../support/Numbers.h"
#include "../support/OnWine.h"
#include "ModalFixture.h"

namespace {

using namespace test;

class GTaskDialogTest : public ModalTest
{
protected:
    // Runs a message box and acts within it.
    UINT Box(UINT uType, const std::function<void(HWND)>& act)
    {
        WhenIdle(act);
        return GTaskDialog::MessageBoxW(Parent(), L"Content", L"Caption", uType);
    }

    // The texts of a dialog's buttons from left to right, the default one in brackets.
    static std::string Buttons(HWND hDlg)
    {
        std::string buttons;
        const WORD wDefault = LOWORD(SendMessageW(hDlg, DM_GETDEFID, 0, 0));
        const bool fDefault = HIWORD(SendMessageW(hDlg, DM_GETDEFID, 0, 0)) == DC_HASDEFID;
        for (HWND hwnd = GetWindow(hDlg, GW_CHILD); hwnd; hwnd = GetWindow(hwnd, GW_HWNDNEXT)) {
            std::string text = TextOf(hwnd);
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
        {MB_OK | MB_USERICON, "[OK]"},
        {0xF, "OK"},
    };
    for (const auto& row : rows) {
        std::string buttons;
        Box(row.uType, [&](HWND hDlg) {
            buttons = Buttons(hDlg);
            EndDialog(hDlg, IDOK);
        });
        if (std::string(row.pszButtons) == "OK") { // without a default, for which Wine tells IDOK
            ExpectButForWine<std::string>(buttons, "OK", "[OK]");
        } else {
            EXPECT_EQ(buttons, row.pszButtons) << row.uType;
        }
    }
}

TEST_F(GTaskDialogTest, AnswersByMouseKeyboardAndCloseBox)
{
    EXPECT_EQ(Box(MB_YESNO,
                  [](HWND hDlg) {
                      RECT rc{};
                      GetWindowRect(GetDlgItem(hDlg, IDNO), &rc);
                      user::Click(rc.left + 5, rc.top + 5);
                  }),
              static_cast<UINT>(IDNO));
    EXPECT_EQ(Box(MB_YESNO, [](HWND) { user::TypeKey(VK_RETURN); }), static_cast<UINT>(IDYES));
    EXPECT_EQ(Box(MB_YESNO, [](HWND) { user::TypeKey(VK_ESCAPE); }), static_cast<UINT>(IDCANCEL));
    EXPECT_EQ(Box(MB_OK, [](HWND hDlg) { PostMessageW(hDlg, WM_CLOSE, 0, 0); }), static_cast<UINT>(IDCANCEL));
}

TEST_F(GTaskDialogTest, IsAsWideAsItsConfigurationSaysAndWhite)
{
    GTASKDIALOGCONFIG config{};
    config.hwndParent = Parent();
    config.dwCommonButtons = TDCBF_OK_BUTTON;
    config.dwDefaultButton = TDCBF_YES_BUTTON; // which is not there
    int cxFormer = 0;
    for (const UINT cxWidth : {0U, 200U, 300U}) {
        config.cxWidth = cxWidth;
        UINT uButton = 0;
        WhenIdle([&](HWND hDlg) {
            EXPECT_GT(ClientSize(hDlg).cx, cxFormer) << cxWidth;
            cxFormer = ClientSize(hDlg).cx;
            EXPECT_NE(LOWORD(SendMessageW(hDlg, DM_GETDEFID, 0, 0)), IDYES);
            for (const UINT uMsg : std::initializer_list<UINT>{
                     WM_CTLCOLORDLG, WM_CTLCOLORMSGBOX, WM_CTLCOLOREDIT, WM_CTLCOLORLISTBOX, WM_CTLCOLORBTN,
                     WM_CTLCOLORSCROLLBAR, WM_CTLCOLORSTATIC})
            {
                EXPECT_EQ(SendMessageW(hDlg, uMsg, 0, 0),
                          reinterpret_cast<LRESULT>(GetStockObject(WHITE_BRUSH)))
                    << uMsg;
            }
            EXPECT_EQ(SendMessageW(hDlg, WM_CTLCOLORBTN, 0, 2),
                      reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_BTNFACE)));
            SendMessageW(hDlg, WM_COMMAND, 999, 0);
            SendMessageW(hDlg, WM_COMMAND, IDOK, 0);
        });
        EXPECT_EQ(GTaskDialog::IsolationAwareTaskDialogIndirect(&config, &uButton), S_OK);
        EXPECT_EQ(uButton, static_cast<UINT>(IDOK));
    }
}

TEST_F(GTaskDialogTest, InnerDialogGivesTheKeyboardBackToTheOuter)
{
    HWND hOuter = nullptr;
    const UINT uOuter = Box(MB_YESNO, [&](HWND hDlg) {
        hOuter = hDlg;
        WhenIdle([&](HWND) {
            EXPECT_NE(GDialog::s_hActiveDlg, hOuter);
            EXPECT_FALSE(IsWindowEnabled(hOuter));
            user::TypeKey(VK_ESCAPE);
        });
        EXPECT_EQ(GTaskDialog::MessageBoxW(hDlg, L"Inner", L"", MB_OKCANCEL), static_cast<UINT>(IDCANCEL));
        EXPECT_EQ(GDialog::s_hActiveDlg, hOuter);
        EXPECT_TRUE(IsWindowEnabled(hOuter));
        user::TypeKey(VK_RETURN);
    });
    EXPECT_EQ(uOuter, static_cast<UINT>(IDYES));
}

} // namespace
