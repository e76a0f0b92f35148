// What the wizard draws, where its parts stand, and that it leaves nothing behind.

#include "../../dialogs/WizardFixture.h"
#include "../controls/DrawFixture.h"

namespace {

using namespace test;

using GWizardHeadlessTest = WizardFixture<DrawFixture>;

TEST_F(GWizardHeadlessTest, DialogThatCannotRunGivesMinusOne)
{
    AddPages(2);
    desk::Fail("DialogBoxIndirectParamW");
    EXPECT_EQ(wizard.DoModal(Parent(), nullptr), -1);
}

// The page is 180 x 90 units, which are 315 x 169 pixels; the footer's 28 are 53.
TEST_F(GWizardHeadlessTest, DialogFitsItsFirstPageAndTheFooter)
{
    AddPages(2);
    Run({[&](HWND hDlg) {
             EXPECT_EQ(Numbers(ClientSize(hDlg)), Numbers(315, 169 + 53));
             EXPECT_EQ(Controls(hDlg), (Lines{"0 'Test' (0,0,315,169)", "0 'Test' (0,0,315,169)",
                                              "1 'Done' (125,182,213,208)", "2 'Cancel' (220,182,308,208)",
                                              "4 'Next' (125,182,213,208)", "8 'Back' (30,182,118,208)"}));
         },
         Command(WZB_CANCEL)});
}

TEST_F(GWizardHeadlessTest, DrawsHeaderAndCommandAreaForASubclass)
{
    AddPages(1);
    Lines drawn;
    const auto draw = [&](HWND hDlg) {
        const HDC hdc = GetDC(hDlg);
        wizard.Draw(hdc);
        ReleaseDC(hDlg, hdc);
        drawn = desk::Drawing(hDlg);
        desk::ClearDrawing(hDlg);
    };
    const std::string footer = "DrawThemeBackground AEROWIZARD 4 0 (0,169,315,222)";
    Run({[](HWND hDlg) { desk::ClearDrawing(hDlg); }, draw,
         [&](HWND) {
             EXPECT_EQ(drawn, (Lines{"DrawThemeTextEx CompositedWindow::Window 0 0 \"Wizard\" (48,28,190,50) "
                                     "0x40000 font=\"Segoe UI\" 12 color=000000",
                                     footer}));
             desk::SetThemeClassAvailable("CompositedWindow::Window", false);
         },
         draw, Command(WZB_CANCEL)});
    EXPECT_EQ(drawn, (Lines{"DrawTextW \"Wizard\" (48,28,190,50) 0x40000 font=\"Segoe UI\" 12 color=000000",
                            footer}));
}

} // namespace
