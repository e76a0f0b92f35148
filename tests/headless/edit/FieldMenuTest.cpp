// The context menu of text fields made in Modern, and who may keep it closed.

#include "../../edit/EditFixture.h"
#include "../../support/WithBehavior.h"

#include <platform/headless/headless.h>

namespace {

using namespace test;
namespace headless = gesso::headless;

constexpr const char* UNDO = "&R\xC3\xBC"
                             "ckg\xC3\xA4ngig";

class FieldMenuTest : public EditFixture
{
protected:
    std::string Menu(LPARAM lWhere = -1)
    {
        SendMessageW(edit, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(edit.GetHwnd()), lWhere);
        return headless::LastMenu();
    }
    std::string Text()
    {
        wchar_t text[40];
        int nLength = 40;
        edit.GetText(text, &nLength);
        return {text, text + nLength};
    }

    Modern modern;
};

TEST_F(FieldMenuTest, TheMenuOffersWhatCanBeDoneAndDoesIt)
{
    Make(20, 3, ES_AUTOHSCROLL);
    const std::string empty = Menu();
    EXPECT_EQ(std::count(empty.begin(), empty.end(), '|'), 8);
    EXPECT_NE(empty.find(std::string(UNDO) + " (grey)"), std::string::npos) << empty;
    EXPECT_NE(empty.find("&Kopieren (grey)"), std::string::npos);
    Type(L"word");
    edit.SetSel(0, 2);
    headless::ChooseFromMenu("&Ausschneiden");
    EXPECT_EQ(Menu(MAKELPARAM(5, 5)).find("&Ausschneiden (grey)"), std::string::npos);
    EXPECT_EQ(Text(), "rd");
    EXPECT_EQ(Clipboard(), "wo");
    headless::ChooseFromMenu(UNDO);
    Menu();
    EXPECT_EQ(Text(), "word");
    headless::ChooseFromMenu("Alles &markieren");
    Menu();
    headless::ChooseFromMenu("&L\xC3\xB6schen");
    Menu();
    EXPECT_EQ(Text(), "");
    EXPECT_EQ(headless::Live()[headless::Kind::Menu], 0);
}

TEST_F(FieldMenuTest, MaskedTextIsNeitherCutNorDragged)
{
    Make(20, 3, ES_AUTOHSCROLL | ES_PASSWORD);
    Type(L"secret");
    edit.SetSel(0, -1);
    EXPECT_NE(Menu().find("&Ausschneiden (grey)|&Kopieren (grey)"), std::string::npos);
    Mouse(WM_LBUTTONDOWN, 1, 0);
    Mouse(WM_MOUSEMOVE, 4, 0, MK_LBUTTON);
    Mouse(WM_LBUTTONUP, 4, 0);
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_EQ(Text(), "secret");
}

TEST_F(FieldMenuTest, TheKeyOfMenusAsksOnce)
{
    Make(20, 3, ES_AUTOHSCROLL);
    host.TakeReports();
    SendMessageW(edit, WM_KEYUP, VK_APPS, 0);
    const Reports told = host.TakeReports();
    EXPECT_EQ(told.size(), 1U) << "EN_CONTEXTMENU alone";
    EXPECT_NE(headless::LastMenu(), "");
}

} // namespace
