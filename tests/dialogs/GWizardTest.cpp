// The wizard's pages, buttons and focus. Runs on both platforms.

#include "../support/AllowMisuse.h"
#include "../support/DialogTemplate.h"
#include "../support/OnWine.h"
#include "WizardFixture.h"

#include <memory>

namespace {

using namespace test;

// Milliseconds in which all that waits for an idle moment has had one.
constexpr DWORD SETTLE = 150;

using GWizardTest = WizardFixture<ModalTest>;

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
    wizard.RemovePage(2);
    wizard.RemovePage(1);
    Run({look, Command(WZB_CANCEL)});
    EXPECT_EQ(shown.back(), "0: (Back) Done Cancel") << "a single page is the last one as well";
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
        user::TypeKey(VK_ESCAPE);
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
        EXPECT_EQ(SendMessageW(hDlg, WZM_SETCURPAGE, 0, reinterpret_cast<LPARAM>(&pages[2])), 1);
        EXPECT_EQ(SendMessageW(hDlg, WZM_GETCURPAGE, reinterpret_cast<WPARAM>(&nIndex),
                               reinterpret_cast<LPARAM>(&pPage)),
                  1);
        EXPECT_EQ(nIndex, 2u);
        EXPECT_EQ(pPage, &pages[2]);
        SendMessageW(hDlg, WZM_SETCURPAGE, 0, reinterpret_cast<LPARAM>(&stranger));
        SendMessageW(hDlg, WZM_SETCURPAGE, 1000, 0);
        wizard.NextPage();
        EXPECT_EQ(wizard.Current(), 2u) << "beyond the end nothing changes";
        EXPECT_EQ(SendMessageW(hDlg, WZM_GETCURPAGE, 0, 0), 1);
        EXPECT_EQ(SendMessageW(hDlg, WM_COMMAND, 999, 0), 0);
        SendMessageW(hDlg, WZM_SETCURPAGE, 0, 0);
        wizard.PreviousPage();
        EXPECT_EQ(wizard.Current(), 0u);
        EXPECT_EQ(SendMessageW(hDlg, WZM_SETBUTTONS, WZB_CANCEL | WZB_BACK, WZB_CANCEL), 1);
        EXPECT_EQ(Buttons(hDlg), "(Back) Cancel");
        PostMessageW(hDlg, WM_CLOSE, 0, 0);
    }});
}

TEST_F(GWizardTest, WithoutPagesOrWithAMissingTemplateNothingBreaks)
{
    EXPECT_EQ(Run({Command(WZB_NEXT), Command(WZB_CANCEL)}), static_cast<INT_PTR>(WZB_CANCEL));
    AddPages(2);
    pages[0].pszTemplate = MAKEINTRESOURCEW(TEST_NO_PAGE);
    Lines at;
    Run({Command(WZB_NEXT), [&](HWND) { at.push_back(std::to_string(wizard.Current())); },
         Command(WZB_FINISH)});
    EXPECT_EQ(at, Lines{"1"}) << "an empty page can be left";
    wizard.RemovePage(1000);
    EXPECT_EQ(wizard.GetPage(1000), nullptr);
}

TEST_F(GWizardTest, KeyboardStaysInTheWizardWhenItsButtonsGo)
{
    AddPages(3);
    Lines at;
    const auto look = [&](HWND) { at.push_back(Focus()); };
    const auto type = [](UINT vk) { return [vk](HWND) { user::TypeKey(vk); }; };
    const auto focus = [](UINT uId) {
        return [uId](HWND hDlg) {
            SendMessageW(hDlg, WM_NEXTDLGCTL,
                         reinterpret_cast<WPARAM>(GetDlgItem(hDlg, static_cast<int>(uId))), TRUE);
        };
    };
    const INT_PTR nResult =
        Run({focus(WZB_NEXT), type(VK_SPACE), look, type(VK_SPACE), look, focus(WZB_BACK), type(VK_SPACE),
             look, type(VK_SPACE), look, type(VK_RETURN), type(VK_RETURN), look, type(VK_RETURN)});
    EXPECT_EQ(at, (Lines{"Next", "Done", "Back", "Next", "Done"}));
    EXPECT_EQ(nResult, static_cast<INT_PTR>(WZB_FINISH));
}

TEST_F(GWizardTest, FocusGoesFromPageToPage)
{
    AddPages(3);
    pages[0].pszTemplate = pages[1].pszTemplate = MAKEINTRESOURCEW(TEST_FIELD_PAGE);
    Lines at;
    const auto look = [&](HWND) { at.push_back(Focus()); };
    const auto enter = [](HWND) { user::TypeKey(VK_RETURN); };
    Run({[&](HWND) { SetFocus(GetDlgItem(pages[0].hwnd, TEST_FIELD)); }, look, enter, look, enter, look,
         Command(WZB_CANCEL)});
    EXPECT_EQ(at, (Lines{"field 0", "field 1", "Done"})) << "the last page has nothing to focus";
    at.clear();
    script.onMessage = [&](UINT uCode, HWND hwndPage) {
        if (uCode == WZN_SETACTIVE && hwndPage == pages[1].hwnd) {
            SetFocus(GetDlgItem(wizard, WZB_BACK));
        }
    };
    Run({[&](HWND) { SetFocus(GetDlgItem(pages[0].hwnd, TEST_FIELD)); }, Command(WZB_NEXT), look,
         Command(WZB_CANCEL)});
    EXPECT_EQ(at, (Lines{"Back"})) << "where the page put it";
}

TEST_F(GWizardTest, BeforeItsButtonsAreThereNoPageIsActivated)
{
    AddPages(2);
    UINT nIndex = 77;
    stcPage* pPage = &pages[1];
    script.onMessage = [&](UINT uMsg, HWND hwndPage) {
        if (uMsg == WM_INITDIALOG) {
            const HWND hDlg = GetParent(hwndPage);
            SendMessageW(hDlg, WZM_SETCURPAGE, 1, 0);
            SendMessageW(hDlg, WZM_SETBUTTONS, 0, 0);
            SendMessageW(hDlg, WZM_GETCURPAGE, reinterpret_cast<WPARAM>(&nIndex),
                         reinterpret_cast<LPARAM>(&pPage));
        }
    };
    Lines shown;
    const auto look = [&](HWND hDlg) { shown.push_back(Shown() + ": " + Buttons(hDlg)); };
    Run({look, Command(WZB_CANCEL)});
    EXPECT_EQ(nIndex, UINT{GWizard::NO_PAGE});
    EXPECT_EQ(pPage, &pages[1]) << "not written";
    Run({look, Command(WZB_CANCEL)});
    EXPECT_EQ(shown, (Lines{"0: (Back) Next Cancel", "0: (Back) Next Cancel"}))
        << "a second run is like the first";
}

TEST_F(GWizardTest, PageThatSendsTheUserOnIsNotShownItself)
{
    AddPages(4);
    script.onMessage = [&](UINT uCode, HWND hwndPage) {
        if (uCode == WZN_SETACTIVE && hwndPage == pages[1].hwnd) {
            SendMessageW(wizard, WZM_SETCURPAGE, 2, 0);
        }
    };
    Lines shown;
    Run({Command(WZB_NEXT), [&](HWND) { shown.push_back(std::to_string(wizard.Current()) + " " + Shown()); },
         Command(WZB_CANCEL)});
    EXPECT_EQ(shown, Lines{"2 2"});
}

TEST_F(GWizardTest, PageMayEndTheWizardInAnyAnswer)
{
    enum class Way
    {
        End,
        Destroy,
        EndAndDelete
    };
    AddPages(3);
    std::unique_ptr<TestWizard> own;
    const auto hwnd = [&] { return own ? own->GetHwnd() : nullptr; };
    for (const UINT uCode : {UINT{WM_INITDIALOG}, UINT{WM_SHOWWINDOW}, WZN_SETACTIVE, WZN_KILLACTIVE,
                             WZN_FINISH, UINT{WM_DESTROY}})
    {
        for (const Way way : {Way::End, Way::Destroy, Way::EndAndDelete}) {
            own = std::make_unique<TestWizard>(wizard);
            HWND hDlg = nullptr;
            script.onMessage = [&](UINT uNow, HWND hwndPage) {
                if (uNow == uCode) {
                    script.onMessage = nullptr;
                    hDlg = GetParent(hwndPage);
                    way == Way::Destroy ? DestroyWindow(hDlg) : EndDialog(hDlg, 77);
                    if (way == Way::EndAndDelete) {
                        own.reset();
                    }
                }
            };
            user::WhenIdle([&] { SendMessageW(hwnd(), WM_COMMAND, WZB_NEXT, 0); });
            user::WhenIdle([&] { SendMessageW(hwnd(), WM_COMMAND, WZB_FINISH, 0); });
            const INT_PTR nResult = own->DoModal(Parent(), nullptr);
            if (way == Way::End && uCode < WZN_FINISH && uCode != WM_DESTROY) {
                EXPECT_EQ(nResult, 77) << uCode;
            }
            EXPECT_TRUE(hDlg && !IsWindow(hDlg)) << uCode;
            if (way == Way::Destroy && uCode != WM_DESTROY) { // Wine enables the owner in EndDialog alone
                ExpectButForWine<bool>(IsWindowEnabled(Parent()), true, false);
                EnableWindow(Parent(), TRUE);
            }
            EXPECT_TRUE(IsWindowEnabled(Parent())) << uCode;
            user::Wait(SETTLE); // what is left to do finds no wizard
            user::Pump();
        }
    }
}

TEST_F(GWizardTest, PagesComeInWhereTheHostPutsThem)
{
    AddPages(2);
    stcPage first{};
    wizard.InsertPage(0, &first);
    EXPECT_EQ(wizard.GetPage(0), &first);
    EXPECT_EQ(wizard.GetPage(2), &pages[1]);
    wizard.RemovePage(0);
}

TEST_F(GWizardTest, AHostMayShowOneWithoutAConfigurationItself)
{
    const DialogTemplate source(WS_POPUP | WS_VISIBLE, 200, 100);
    GWizard bare;
    stcPage page{nullptr, TestDialogs(), MAKEINTRESOURCEW(TEST_PAGE), PageProc, 0};
    bare.InsertPage(0, &page);
    bare.CreateIndirect(Parent(), GetModuleHandleW(nullptr), source.Get());
    EXPECT_EQ(Buttons(bare), "(Back)  Cancel") << "Finish has no label";
    EXPECT_TRUE(bare.Destroy());
}

TEST_F(GWizardTest, IgnoresANullPageAndRefusesToRunWithoutConfiguration)
{
    const AllowMisuse allowed;
    wizard.InsertPage(0, nullptr);
    EXPECT_EQ(wizard.GetPage(0), nullptr);
    GWizard bare;
    EXPECT_EQ(bare.DoModal(Parent(), nullptr), -1);
}

} // namespace
