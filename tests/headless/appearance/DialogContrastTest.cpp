// Whether everything in the library's dialogs, and in the list of a combo box, can be told from what it
// stands on, in each scheme that the library draws by itself.

#include "../../dialogs/WizardFixture.h"
#include "../../support/WithBehavior.h"
#include "../edit/ComboFixture.h"
#include "StandsOut.h"

namespace {

using namespace test;

// The texts of a dialog, and of its own controls.
size_t ExpectDialogToStandOut(HWND hDlg)
{
    size_t nTexts = ExpectTextsToStandOut(hDlg, "dialog");
    for (HWND hwnd = GetWindow(hDlg, GW_CHILD); hwnd; hwnd = GetWindow(hwnd, GW_HWNDNEXT)) {
        if (IsWindowVisible(hwnd) && GWnd::FromHwnd(hwnd)) {
            nTexts += ExpectTextsToStandOut(hwnd, "control");
        }
    }
    return nTexts;
}

class DialogContrastTest : public ModalTest
{
protected:
    // Runs dialogs in each scheme and behaviour.
    template <class RUN> static void InEachScheme(const RUN& run)
    {
        for (const gesso::Behavior behavior : {gesso::Behavior::Classic, gesso::Behavior::Modern}) {
            const WithBehavior made(behavior);
            for (const Scheme& scheme : SCHEMES) {
                SCOPED_TRACE(scheme.name);
                const WithScheme looks(scheme);
                run();
            }
        }
    }
    // Looks at the next dialog, and closes it.
    static void Expect(size_t nTexts)
    {
        WhenIdle([nTexts](HWND hDlg) {
            EXPECT_GE(ExpectDialogToStandOut(hDlg), nTexts);
            EndDialog(hDlg, IDCANCEL);
        });
    }
};

TEST_F(DialogContrastTest, TheMessageBoxAndTheTaskDialog)
{
    InEachScheme([this] {
        Expect(3);
        GTaskDialog::MessageBoxW(Parent(), L"Content", L"Caption", MB_YESNO);
        GTASKDIALOGCONFIG config{};
        config.hwndParent = Parent();
        config.pszMainInstruction = L"Instruction";
        config.pszContent = L"Content";
        config.dwCommonButtons = TDCBF_OK_BUTTON | TDCBF_CANCEL_BUTTON;
        config.dwDefaultButton = TDCBF_OK_BUTTON;
        Expect(4);
        GTaskDialog::IsolationAwareTaskDialogIndirect(&config, nullptr);
        bool fChecked = false;
        Expect(5);
        GTaskDialog::Ask(&config, L"Not &again", &fChecked, nullptr);
    });
}

TEST_F(DialogContrastTest, TheCertificatesBands)
{
    InEachScheme([this] {
        for (const DWORD dwType : {CFT_SECURE, CFT_UNTRUSTED, CFT_INVALID}) {
            Expect(3);
            DWORD dwResult = 0;
            GWndCertFailure::WndCertFailure(&dwResult, Parent(), nullptr, nullptr, dwType, 0xFF, L"Caption",
                                            L"subject");
        }
    });
}

class WizardContrastTest : public WizardFixture<DialogContrastTest>
{};

TEST_F(WizardContrastTest, TheWizard)
{
    AddPages(2);
    InEachScheme([this] {
        user::WhenIdle([this] {
            EXPECT_GE(ExpectDialogToStandOut(wizard), 3U);
            EndDialog(wizard, IDCANCEL);
        });
        wizard.DoModal(Parent(), nullptr);
    });
}

class ComboListContrastTest : public ComboFixture
{};

TEST_F(ComboListContrastTest, TheRowsOfAnOpenList)
{
    for (const Scheme& scheme : SCHEMES) {
        SCOPED_TRACE(scheme.name);
        const WithScheme looks(scheme);
        pCombo = std::make_unique<ComboProbe>();
        Make(GCBS_DROPDOWNLIST, 4);
        WithList({[] {
                      MoveTo(List(), 5, COMBO_ROW + 5);
                      desk::Pump();
                      EXPECT_GE(ExpectTextsToStandOut(List(), "list"), 4U);
                  },
                  [] { desk::TypeKey(VK_ESCAPE); }});
        pCombo->Destroy();
    }
}

} // namespace
