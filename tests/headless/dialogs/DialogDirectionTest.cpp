// Dialogs whose texts are written from right to left.

#include <gesso/dialogs/GWizard.h>
#include <gesso/dialogs/GWndCertFailure.h>
#include <gesso/framework/Direction.h>
#include <gesso/language/LanguageTable.h>

#include "../controls/DrawFixture.h"

namespace {

using namespace test;

class DialogDirectionTest : public DrawFixture
{
protected:
    void TearDown() override
    {
        gesso::ForgetLanguage();
        DrawFixture::TearDown();
    }

    // Whether all windows of the dialog that is on are mirrored, or none is; and ends it.
    static void ExpectAll(bool fMirrored, int nLeftButton, int nRightButton)
    {
        const HWND hDlg = GDialog::s_hActiveDlg;
        ASSERT_TRUE(hDlg);
        EXPECT_EQ(gesso::IsMirrored(hDlg), fMirrored);
        for (HWND hwnd = GetWindow(hDlg, GW_CHILD); hwnd; hwnd = GetWindow(hwnd, GW_HWNDNEXT)) {
            EXPECT_EQ(gesso::IsMirrored(hwnd), fMirrored) << GetDlgCtrlID(hwnd);
        }
        RECT rcLeft{}, rcRight{};
        GetWindowRect(GetDlgItem(hDlg, nLeftButton), &rcLeft);
        GetWindowRect(GetDlgItem(hDlg, nRightButton), &rcRight);
        EXPECT_LT(rcLeft.right, rcRight.left + 1);
        const Lines lines = Draw(hDlg, "DrawT");
        EXPECT_FALSE(lines.empty());
        for (const std::string& line : lines) {
            EXPECT_EQ(line.ends_with(" mirrored"), fMirrored) << line;
        }
        EndDialog(hDlg, IDCANCEL);
    }

    void RunBox(bool fMirrored)
    {
        desk::WhenIdle([=] { ExpectAll(fMirrored, fMirrored ? IDNO : IDYES, fMirrored ? IDYES : IDNO); });
        GTaskDialog::MessageBoxW(Parent(), L"Content", L"Caption", MB_YESNO | MB_ICONQUESTION);
    }

    void RunCertificate(bool fMirrored)
    {
        desk::WhenIdle([=] { ExpectAll(fMirrored, fMirrored ? IDNO : IDYES, fMirrored ? IDYES : IDNO); });
        GWndCertFailure::WndCertFailure(nullptr, Parent(), nullptr, nullptr, CFT_UNTRUSTED, 7, L"Caption",
                                        L"subject");
    }
};

TEST_F(DialogDirectionTest, TheyAreLaidOutAsTheirLanguageReads)
{
    RunBox(false);
    RunCertificate(false);
    gesso::SetLanguage(L"ar");
    RunBox(true);
    RunCertificate(true);
    gesso::SetLanguage(L"en");
    SetWindowLongW(Parent(), GWL_EXSTYLE, WS_EX_LAYOUTRTL);
    RunBox(false);
}

} // namespace
