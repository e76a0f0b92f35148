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

// --- Scaling

class ScaledWizardTest : public GWizardHeadlessTest
{
protected:
    void TearDown() override
    {
        gesso::SetScaling(gesso::Scaling::None);
        gesso::SetTextOf(gesso::TextId::WizardNext, nullptr);
        GWizardHeadlessTest::TearDown();
    }
    static RECT PlaceOf(HWND hwnd)
    {
        RECT rc{};
        GetWindowRect(hwnd, &rc);
        return rc;
    }
};

TEST_F(ScaledWizardTest, TheFooterStaysBelowThePageWhereTheTextSizeChanges)
{
    AddPages(1);
    gesso::SetScaling(gesso::Scaling::System);
    for (const DWORD dwPercent : {200, 100}) {
        const DWORD dwFirst = dwPercent == 100 ? 200 : 100;
        const auto setTextSize = [](DWORD dw) {
            desk::SetRegistryNumber("Software\\Microsoft\\Accessibility", "TextScaleFactor", dw);
            gesso::SetScaling(gesso::Scaling::System);
            desk::Pump();
        };
        setTextSize(dwFirst);
        Run({[&](HWND hDlg) {
                 const RECT rcPage = PlaceOf(pages[0].hwnd);
                 RECT rcClient{};
                 GetClientRect(hDlg, &rcClient);
                 const LONG nFooter = rcClient.bottom - (rcPage.bottom - rcPage.top);
                 setTextSize(dwPercent);
                 EXPECT_EQ(Numbers(PlaceOf(pages[0].hwnd)), Numbers(rcPage)) << "it is the host's";
                 GetClientRect(hDlg, &rcClient);
                 const LONG nNow = rcClient.bottom - (rcPage.bottom - rcPage.top);
                 EXPECT_NEAR(nNow, nFooter * static_cast<LONG>(dwPercent) / static_cast<LONG>(dwFirst), 3);
                 EXPECT_GE(PlaceOf(GetDlgItem(hDlg, WZB_CANCEL)).top, rcPage.bottom);
             },
             Command(WZB_CANCEL)});
    }
}

TEST_F(ScaledWizardTest, ADialogIsAsWideAsItsButtonsNeed)
{
    AddPages(1);
    gesso::SetTextOf(gesso::TextId::WizardNext, L"On to the next one of all the pages that there are");
    Run({[&](HWND hDlg) {
             RECT rcClient{};
             GetClientRect(hDlg, &rcClient);
             EXPECT_GT(PlaceIn(hDlg, GetDlgItem(hDlg, WZB_BACK)).left, 0);
             EXPECT_LT(PlaceIn(hDlg, GetDlgItem(hDlg, WZB_CANCEL)).right, rcClient.right);
         },
         Command(WZB_CANCEL)});
}

// The last of two dialogs has the object to itself.
TEST_F(ScaledWizardTest, ADialogAroundAnotherOfTheSameObjectTakesItsOwnRectangle)
{
    AddPages(1);
    gesso::SetScaling(gesso::Scaling::PerMonitor);
    const RECT rcWanted{10, 20, 510, 420};
    Run({[&](HWND hwndOuter) {
        user::WhenIdle([&] {
            const HWND hwndInner = wizard;
            const RECT rcInner = PlaceOf(hwndInner);
            SendMessageW(hwndOuter, WM_DPICHANGED, MAKEWPARAM(192, 192), reinterpret_cast<LPARAM>(&rcWanted));
            EXPECT_EQ(Numbers(PlaceOf(hwndOuter)), Numbers(rcWanted));
            EXPECT_EQ(Numbers(PlaceOf(hwndInner)), Numbers(rcInner));
            EndDialog(hwndInner, 0);
        });
        wizard.DoModal(hwndOuter, nullptr);
        EndDialog(hwndOuter, 0);
    }});
}

} // namespace
