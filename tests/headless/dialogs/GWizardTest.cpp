// The wizard's pages and buttons, run modally and driven from within.

#include <gesso/dialogs/GWizard.h>

#include "../../support/DialogTemplate.h"
#include "../controls/DrawFixture.h"

#include <gtest/gtest.h>

namespace {

namespace desk = gesso::headless;
using test::Lines;

constexpr WORD PAGE_TEMPLATE = 500;

// What the pages hear, and what they answer.
struct PageScript
{
    Lines heard;
    bool fAllowLeave = true;
    bool fAllowFinish = true;
};
constinit PageScript* s_pScript = nullptr;

INT_PTR CALLBACK PageProc(HWND, UINT uMsg, WPARAM, LPARAM lParam)
{
    if (uMsg != WM_NOTIFY) {
        return FALSE;
    }
    auto& notify = *reinterpret_cast<stcWizardNotify*>(lParam);
    s_pScript->heard.push_back(std::to_string(notify.hdr.code));
    notify.nResult = notify.hdr.code == WZN_FINISH ? s_pScript->fAllowFinish : s_pScript->fAllowLeave;
    return TRUE;
}

class TestWizard : public GWizard
{
public:
    TestWizard() { m_pConfig = &m_config; }
    UINT Current() const { return m_nCurrent; }
    using GWizard::NextPage;
    using GWizard::PreviousPage;

private:
    const GWIZARDCONFIG m_config{0, L"Wizard", 0, WZB_NEXT, L"Done"};
};

class GWizardTest : public test::DrawFixture
{
protected:
    void SetUp() override
    {
        DrawFixture::SetUp();
        s_pScript = &script;
        const test::DialogTemplate page(WS_CHILD | DS_CONTROL, 180, 90);
        desk::AddResource(desk::HostModule(), L"RT_DLG", MAKEINTRESOURCEW(PAGE_TEMPLATE), page.Bytes());
        m_before = desk::Live();
    }
    void TearDown() override
    {
        EXPECT_EQ(desk::Live(), m_before) << "the pages' windows and the buttons' are gone";
        DrawFixture::TearDown();
    }

    void AddPages(size_t nCount)
    {
        pages.resize(nCount, {nullptr, desk::HostModule(), MAKEINTRESOURCEW(PAGE_TEMPLATE), PageProc, 0});
        for (stcPage& page : pages) {
            wizard.InsertPage(0xFFFF, &page);
        }
    }

    // Runs the wizard with one action within it after another.
    INT_PTR Run(std::initializer_list<std::function<void(HWND)>> actions)
    {
        for (const auto& action : actions) {
            desk::WhenIdle([this, action] { action(wizard); });
        }
        return wizard.DoModal(Parent(), nullptr);
    }

    static std::function<void(HWND)> Command(UINT uId)
    {
        return [uId](HWND hDlg) { SendMessageW(hDlg, WM_COMMAND, uId, 0); };
    }

    // The buttons that show, from left to right, those that are disabled in brackets.
    static std::string Buttons(HWND hDlg)
    {
        std::string buttons;
        for (const UINT uId : {WZB_BACK, WZB_NEXT, WZB_FINISH, WZB_CANCEL}) {
            const HWND hwnd = GetDlgItem(hDlg, static_cast<int>(uId));
            if (IsWindowVisible(hwnd)) {
                const std::string text = test::TextOf(hwnd);
                buttons += (buttons.empty() ? "" : " ") + (IsWindowEnabled(hwnd) ? text : "(" + text + ")");
            }
        }
        return buttons;
    }

    PageScript script;
    std::vector<stcPage> pages;
    TestWizard wizard;

private:
    desk::Census m_before;
};

TEST_F(GWizardTest, WalksItsPagesAndFinishes)
{
    AddPages(3);
    Lines shown;
    const auto look = [&](HWND hDlg) {
        shown.push_back(std::to_string(wizard.Current()) + ": " + Buttons(hDlg));
        EXPECT_TRUE(IsWindowVisible(pages[wizard.Current()].hwnd));
    };
    const INT_PTR nResult = Run({look, Command(WZB_NEXT), look, Command(WZB_NEXT), look, Command(WZB_BACK),
                                 look, Command(WZB_NEXT), Command(WZB_FINISH)});
    EXPECT_EQ(nResult, static_cast<INT_PTR>(WZB_FINISH));
    EXPECT_EQ(shown, (Lines{"0: (Back) Next Cancel", "1: Back Next Cancel", "2: Back Done Cancel",
                            "1: Back Next Cancel"}));
    EXPECT_EQ(script.heard, (Lines{"2024", "2025", "2024", "2025", "2024", "2025", "2024", "2025", "2024",
                                   "2025", "2026"}));
}

TEST_F(GWizardTest, PageThatRefusesStaysAndCancelAsksNobody)
{
    AddPages(2);
    const INT_PTR nResult = Run({[&](HWND hDlg) {
        script.fAllowLeave = false;
        SendMessageW(hDlg, WM_COMMAND, WZB_NEXT, 0);
        EXPECT_EQ(wizard.Current(), 0u);
        EXPECT_EQ(Buttons(hDlg), "(Back) Next Cancel");
        SendMessageW(hDlg, WM_COMMAND, WZB_FINISH, 0);
        script.fAllowLeave = true;
        script.fAllowFinish = false;
        SendMessageW(hDlg, WM_COMMAND, WZB_FINISH, 0);
        script.heard.clear();
        desk::TypeKey(VK_ESCAPE);
    }});
    EXPECT_EQ(nResult, static_cast<INT_PTR>(WZB_CANCEL));
    EXPECT_EQ(script.heard, Lines{});
}

TEST_F(GWizardTest, MessagesSetAndTellThePageAndTheButtons)
{
    AddPages(3);
    stcPage stranger{};
    Run({[&](HWND hDlg) {
        UINT nIndex = 77;
        stcPage* pPage = nullptr;
        SendMessageW(hDlg, WZM_SETCURPAGE, 0, reinterpret_cast<LPARAM>(&pages[2]));
        SendMessageW(hDlg, WZM_GETCURPAGE, reinterpret_cast<WPARAM>(&nIndex),
                     reinterpret_cast<LPARAM>(&pPage));
        EXPECT_EQ(nIndex, 2u);
        EXPECT_EQ(pPage, &pages[2]);
        SendMessageW(hDlg, WZM_SETCURPAGE, 0, reinterpret_cast<LPARAM>(&stranger));
        SendMessageW(hDlg, WZM_SETCURPAGE, 1000, 0);
        wizard.NextPage();
        EXPECT_EQ(wizard.Current(), 2u) << "beyond the end nothing changes";
        SendMessageW(hDlg, WZM_SETCURPAGE, 0, 0);
        wizard.PreviousPage();
        EXPECT_EQ(wizard.Current(), 0u);
        SendMessageW(hDlg, WZM_SETBUTTONS, WZB_CANCEL | WZB_BACK, WZB_CANCEL);
        EXPECT_EQ(Buttons(hDlg), "(Back) Cancel");
        PostMessageW(hDlg, WM_CLOSE, 0, 0);
    }});
}

TEST_F(GWizardTest, SinglePageShowsFinishAtOnce)
{
    AddPages(1);
    std::string buttons;
    Run({[&](HWND hDlg) { buttons = Buttons(hDlg); }, Command(WZB_CANCEL)});
    EXPECT_EQ(buttons, "(Back) Done Cancel");
}

TEST_F(GWizardTest, WithoutPagesOrWithAMissingTemplateNothingBreaks)
{
    EXPECT_EQ(Run({Command(WZB_NEXT), Command(WZB_CANCEL)}), static_cast<INT_PTR>(WZB_CANCEL));
    AddPages(2);
    pages[0].pszTemplate = MAKEINTRESOURCEW(PAGE_TEMPLATE + 1);
    Lines at;
    Run({Command(WZB_NEXT), [&](HWND) { at.push_back(std::to_string(wizard.Current())); },
         Command(WZB_FINISH)});
    EXPECT_EQ(at, Lines{"1"}) << "an empty page can be left";
    wizard.RemovePage(1000);
    EXPECT_EQ(wizard.GetPage(1000), nullptr);
    desk::Fail("DialogBoxIndirectParamW");
    EXPECT_EQ(wizard.DoModal(Parent(), nullptr), -1);
}

TEST_F(GWizardTest, DialogFitsItsFirstPageAndTheFooter)
{
    AddPages(2);
    Run({[&](HWND hDlg) {
             RECT rcClient{}, rcPage{}, rcButton{};
             GetClientRect(hDlg, &rcClient);
             GetWindowRect(pages[0].hwnd, &rcPage);
             GetWindowRect(GetDlgItem(hDlg, WZB_CANCEL), &rcButton);
             MapWindowPoints(nullptr, hDlg, reinterpret_cast<POINT*>(&rcPage), 2);
             MapWindowPoints(nullptr, hDlg, reinterpret_cast<POINT*>(&rcButton), 2);
             EXPECT_EQ(rcPage.left, 0);
             EXPECT_EQ(rcPage.right, rcClient.right);
             EXPECT_GT(rcButton.top, rcPage.bottom);
             EXPECT_LT(rcButton.bottom, rcClient.bottom);
             EXPECT_LT(rcButton.right, rcClient.right);
         },
         Command(WZB_CANCEL)});
}

} // namespace
