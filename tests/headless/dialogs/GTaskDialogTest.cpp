// What the task dialog draws, where it stands, and what it makes of failures.

#include <gesso/dialogs/DialogSupport.h>
#include <gesso/dialogs/GTaskDialog.h>

#include "../../support/AllowMisuse.h"
#include "../controls/DrawFixture.h"

namespace {

using namespace test;

// Ends as soon as it is told of its first button.
class EndingDialog : public GTaskDialog
{
public:
    explicit EndingDialog(const GTASKDIALOGCONFIG& config) : GTaskDialog(&config) {}

    static INT_PTR CALLBACK EndingProc(HWND hDlg, UINT uMsg, WPARAM wParam, LPARAM lParam)
    {
        if (uMsg == WM_PARENTNOTIFY && LOWORD(wParam) == WM_CREATE) {
            DestroyWindow(hDlg);
        }
        return DialogProc(hDlg, uMsg, wParam, lParam);
    }
};

class GTaskDialogHeadlessTest : public DrawFixture
{
protected:
    // Runs a message box and acts within it.
    UINT Box(UINT uType, const std::function<void(HWND)>& act)
    {
        desk::WhenIdle([act] { act(GDialog::s_hActiveDlg); });
        return GTaskDialog::MessageBoxW(Parent(), L"Content", L"Caption", uType);
    }
};

TEST_F(GTaskDialogHeadlessTest, IsActiveUnlessTheForegroundGoesAndItsOwnerIsDisabledMeanwhile)
{
    Box(MB_OK, [this](HWND hDlg) {
        EXPECT_FALSE(IsWindowEnabled(Parent()));
        EXPECT_EQ(GetActiveWindow(), hDlg);
        desk::SwitchAway();
        EXPECT_EQ(GDialog::s_hActiveDlg, nullptr);
        SetForegroundWindow(hDlg);
        EXPECT_EQ(GDialog::s_hActiveDlg, hDlg);
        desk::TypeKey(VK_ESCAPE);
    });
    EXPECT_TRUE(IsWindowEnabled(Parent()));
    EXPECT_EQ(GetActiveWindow(), Parent());
    EXPECT_EQ(GDialog::s_hActiveDlg, nullptr);
    EXPECT_FALSE(desk::Deadlocked());
}

// In fonts with characters of 8 x 20 and 6 x 15 pixels; a dialog unit is 7/4 x 15/8 pixels.
TEST_F(GTaskDialogHeadlessTest, TextsButtonsAndFooterStandWhereTheyBelong)
{
    Lines drawn, controls;
    GTASKDIALOGCONFIG config{};
    config.hwndParent = Parent();
    config.pszContent =
        L"Content of many words, Content of many words, Content of many words, Content of many "
        L"words, Content of many words.";
    config.pszMainInstruction = L"Instruction";
    config.dwCommonButtons = TDCBF_OK_BUTTON | TDCBF_YES_BUTTON | TDCBF_CANCEL_BUTTON;
    const auto run = [&] {
        desk::WhenIdle([&] {
            drawn = Draw(GDialog::s_hActiveDlg, "DrawTheme");
            controls = Controls(GDialog::s_hActiveDlg);
            EndDialog(GDialog::s_hActiveDlg, 0);
        });
        GTaskDialog::IsolationAwareTaskDialogIndirect(&config, nullptr);
    };
    run();
    EXPECT_EQ(drawn.at(0), "DrawThemeBackground TASKDIALOG 1 0 (0,0,414,154)") << "as wide as its text needs";
    EXPECT_EQ(drawn.at(1), "DrawThemeBackground TASKDIALOG 8 0 (0,101,414,154)");
    EXPECT_EQ(drawn.at(2),
              "DrawThemeText TASKDIALOG 2 0 \"Instruction\" (61,13,149,52) 0x0000 font=\"Segoe UI\" 16 "
              "color=003399");
    EXPECT_TRUE(drawn.at(3).find("(61,52,403,82) 0x0010 font=\"Segoe UI\" 12") != std::string::npos)
        << drawn.at(3);
    EXPECT_EQ(controls, (Lines{"2 'Abbrechen' (319,114,407,140)", "1 'OK' (224,114,312,140)",
                               "6 'Ja' (129,114,217,140)"}));
    config.pszMainInstruction = nullptr;
    config.pszContent = L"Content.";
    config.dwCommonButtons = TDCBF_YES_BUTTON | TDCBF_NO_BUTTON;
    run();
    EXPECT_EQ(drawn.at(0), "DrawThemeBackground TASKDIALOG 1 0 (0,0,197,122)")
        << "as wide as its buttons need";
    EXPECT_EQ(drawn.at(1), "DrawThemeBackground TASKDIALOG 8 0 (0,69,197,122)") << "all of it";
    EXPECT_TRUE(drawn.at(2).find("(61,13,109,28)") != std::string::npos) << drawn.at(2);
    EXPECT_EQ(controls, (Lines{"7 'Nein' (102,82,190,108)", "6 'Ja' (7,82,95,108)"}));
    config.pszContent = L"a a a a a a a a a a a a a a a a a a a a a a a a a a a a a a";
    run();
    EXPECT_TRUE(drawn.at(2).find("(61,13,409,43)") != std::string::npos) << drawn.at(2) << ": 58 characters";
    config.pszContent = L"a-word-that-no-limit-breaks-and-that-is-wider-than-the-columns-which-the-texts-"
                        L"are-given-and-than-six-buttons";
    config.dwCommonButtons = 0x3F;
    run();
    EXPECT_EQ(drawn.at(0), "DrawThemeBackground TASKDIALOG 1 0 (0,0,726,122)") << "the word";
    config.pszContent = nullptr;
    run();
    EXPECT_EQ(drawn.at(0), "DrawThemeBackground TASKDIALOG 1 0 (0,0,577,122)") << "six buttons";
    EXPECT_EQ(controls, (Lines{"2 'Abbrechen' (482,82,570,108)", "1 'OK' (387,82,475,108)",
                               "7 'Nein' (292,82,380,108)", "6 'Ja' (197,82,285,108)",
                               "4 'Wiederholen' (102,82,190,108)", "8 'Schliessen' (7,82,95,108)"}));
}

TEST_F(GTaskDialogHeadlessTest, WithoutAStyleTheMainInstructionIsLargerAllTheSame)
{
    desk::SetThemed(false);
    GTASKDIALOGCONFIG config{};
    config.hwndParent = Parent();
    config.pszMainInstruction = L"Instruction";
    config.pszContent = L"Content";
    Lines drawn;
    desk::WhenIdle([&] {
        drawn = Draw(GDialog::s_hActiveDlg, "DrawTextW");
        EndDialog(GDialog::s_hActiveDlg, 0);
    });
    const desk::Census before = desk::Live();
    GTaskDialog::IsolationAwareTaskDialogIndirect(&config, nullptr);
    ASSERT_EQ(drawn.size(), 2u);
    EXPECT_NE(drawn[0].find("\"Instruction\" (61,13,149,"), std::string::npos) << drawn[0];
    EXPECT_NE(drawn[0].find("\"Segoe UI\" 16 "), std::string::npos) << drawn[0];
    EXPECT_NE(drawn[1].find("\"Segoe UI\" 12 "), std::string::npos) << drawn[1];
    EXPECT_EQ(desk::Live(), before);
}

TEST_F(GTaskDialogHeadlessTest, RunsAndLeavesNothingBehindWhateverFails)
{
    for (const char* pszOperation : {"LoadIconWithScaleDown", "OpenThemeData", "CreateCompatibleDC",
                                     "CreateCompatibleBitmap", "GetDC", "CreateWindowExW"})
    {
        // The dialog itself is the first window of all; its buttons come then.
        desk::Fail(pszOperation, 100, ERROR_NOT_ENOUGH_MEMORY,
                   pszOperation == std::string("CreateWindowExW"));
        EXPECT_EQ(Box(MB_YESNO | MB_ICONERROR, [](HWND) { desk::TypeKey(VK_ESCAPE); }),
                  static_cast<UINT>(IDCANCEL))
            << pszOperation;
        EndFaults();
    }
    const AllowMisuse allowed;
    UINT uButton = 0;
    EXPECT_EQ(GTaskDialog::IsolationAwareTaskDialogIndirect(nullptr, &uButton), E_FAIL);
    EXPECT_EQ(uButton, static_cast<UINT>(-1));
}

TEST_F(GTaskDialogHeadlessTest, DialogThatCannotRunGivesMinusOne)
{
    desk::Fail("DialogBoxIndirectParamW", 2, ERROR_ACCESS_DENIED);
    EXPECT_EQ(GTaskDialog::MessageBoxW(Parent(), L"text", nullptr, MB_ICONERROR), static_cast<UINT>(-1));
    UINT uButton = 0;
    EXPECT_EQ(GTaskDialog::IsolationAwareTaskDialog(Parent(), nullptr, nullptr, nullptr, nullptr,
                                                    TDCBF_OK_BUTTON, nullptr, &uButton),
              E_FAIL);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_ACCESS_DENIED});
    EXPECT_EQ(uButton, static_cast<UINT>(-1));
}

TEST_F(GTaskDialogHeadlessTest, NullTextsCountAsEmptyAndUnknownButtonsAreNone)
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

TEST_F(GTaskDialogHeadlessTest, MayEndWhileItMakesItsButtons)
{
    GTASKDIALOGCONFIG config{};
    config.dwCommonButtons = TDCBF_YES_BUTTON | TDCBF_NO_BUTTON;
    EndingDialog object(config);
    const gesso::EmptyDialogTemplate dialog(0, 0x80C80848, 123, 65, L"Hi");
    DialogBoxIndirectParamW(nullptr, dialog.Get(), Parent(), EndingDialog::EndingProc,
                            reinterpret_cast<LPARAM>(&object));
    EXPECT_FALSE(IsWindow(object));
    EXPECT_FALSE(desk::Deadlocked());
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
