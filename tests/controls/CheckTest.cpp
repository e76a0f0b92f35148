#include "ButtonFixture.h"

namespace {

using namespace test;

template <class CONTROL> class CheckTest : public ButtonFixture<CONTROL>
{
protected:
    static constexpr bool RADIO = std::is_same_v<CONTROL, GRadioButton>;
};

using Checks = testing::Types<GCheckBox, GRadioButton>;
TYPED_TEST_SUITE(CheckTest, Checks);

TYPED_TEST(CheckTest, ClickLeavesTheMarkToTheParentWhoseSettingItRepaintsAndSendsNothing)
{
    this->Mouse(WM_LBUTTONDOWN);
    this->Mouse(WM_LBUTTONUP);
    EXPECT_EQ(this->control.GetCheck(), BST_UNCHECKED);
    this->host.TakeReports();
    TakeRepaint(this->control);
    EXPECT_EQ(this->Send(BM_SETCHECK, BST_CHECKED), 0);
    EXPECT_TRUE(TakeRepaint(this->control));
    EXPECT_EQ(this->Send(BM_GETCHECK), BST_CHECKED);
    this->control.SetCheck(BST_INDETERMINATE);
    EXPECT_EQ(this->Send(BM_GETCHECK), BST_INDETERMINATE);
    EXPECT_EQ(this->host.TakeReports(), Reports{});
}

TYPED_TEST(CheckTest, MarkBeyondTheKnownOnesIsKeptAndPainted)
{
    for (const int nCheck : {3, 77, 0xFFFF, -1}) {
        this->control.SetCheck(nCheck);
        EXPECT_EQ(this->control.GetCheck(), nCheck & 0xFFFF);
        UpdateWindow(this->control);
        EXPECT_FALSE(TakeRepaint(this->control));
    }
}

TYPED_TEST(CheckTest, MarkKeepsTheLowEightStateBitsAndClearsTheNextEight)
{
    this->control.State() = 0xABCD0000 | 0xFF00 | GWS_HOT | GWS_HIDEFOCUS;
    this->control.SetCheck(1);
    EXPECT_EQ(this->control.State(), 0x00010000 | GWS_HOT | GWS_HIDEFOCUS);
    EnableWindow(this->control, FALSE);
    EXPECT_EQ(this->control.GetCheck(), 1) << "disabling does not take the mark";
}

TYPED_TEST(CheckTest, IsNeverADefaultButton)
{
    const LRESULT code = this->RADIO ? DLGC_BUTTON | DLGC_RADIOBUTTON : DLGC_BUTTON;
    EXPECT_EQ(this->Send(WM_GETDLGCODE), code);
    const DWORD dwStyle = this->control.GetStyle();
    this->Send(BM_SETSTYLE, BS_DEFPUSHBUTTON, TRUE);
    EXPECT_EQ(this->control.GetStyle(), dwStyle);
    EXPECT_EQ(this->Send(WM_GETDLGCODE), code);
}

} // namespace
