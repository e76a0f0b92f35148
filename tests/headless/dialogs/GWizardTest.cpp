// The wizard's pages and buttons, run modally and driven from within.

#include <gesso/dialogs/GWizard.h>

#include "../../support/AllowMisuse.h"
#include "../../support/DialogTemplate.h"
#include "../controls/DrawFixture.h"

#include <memory>

namespace {

using namespace test;

constexpr WORD PAGE_TEMPLATE = 500;
constexpr WORD FIELD_TEMPLATE = 501; // a page with a control that takes the focus
constexpr int FIELD = 900;

// What the pages hear, and what they answer.
struct PageScript
{
    Lines heard;
    bool fAllowLeave = true;
    bool fAllowFinish = true;
    // Called for each message, or its code if it asks the page, with the page's window.
    std::function<void(UINT, HWND)> onMessage;
};
constinit PageScript* s_pScript = nullptr;

INT_PTR CALLBACK PageProc(HWND hwnd, UINT uMsg, WPARAM, LPARAM lParam)
{
    const bool fAsked = uMsg == WM_NOTIFY && reinterpret_cast<const NMHDR*>(lParam)->code >= WZN_SETACTIVE &&
                        reinterpret_cast<const NMHDR*>(lParam)->code <= WZN_FINISH;
    if (fAsked) {
        auto& notify = *reinterpret_cast<stcWizardNotify*>(lParam);
        s_pScript->heard.push_back(std::to_string(notify.hdr.code));
        notify.nResult = notify.hdr.code == WZN_FINISH ? s_pScript->fAllowFinish : s_pScript->fAllowLeave;
    }
    if (s_pScript->onMessage) {
        // A copy, since it may put another in its own place.
        const auto act = s_pScript->onMessage;
        act(fAsked ? reinterpret_cast<const NMHDR*>(lParam)->code : uMsg, hwnd);
    }
    return fAsked;
}

class TestWizard : public GWizard
{
public:
    TestWizard() { m_pConfig = &m_config; }
    UINT Current() const { return m_nCurrent; }
    using GWizard::Draw;
    using GWizard::NextPage;
    using GWizard::PreviousPage;

private:
    const GWIZARDCONFIG m_config{0, L"Wizard", 0, WZB_NEXT, L"Done"};
};

class GWizardTest : public DrawFixture
{
protected:
    void SetUp() override
    {
        s_pScript = &script;
        const DialogTemplate page(WS_CHILD | DS_CONTROL, 180, 90);
        desk::AddResource(desk::HostModule(), L"RT_DLG", MAKEINTRESOURCEW(PAGE_TEMPLATE), page.Bytes());
        DialogTemplate field(WS_CHILD | DS_CONTROL, 180, 90);
        field.Add(L"GCheckBox", FIELD, WS_TABSTOP, 5, 5, 60, 14, L"Field");
        desk::AddResource(desk::HostModule(), L"RT_DLG", MAKEINTRESOURCEW(FIELD_TEMPLATE), field.Bytes());
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

    // What has the focus: a page's field by the page's index, or a button by its text.
    std::string Focus() const
    {
        const HWND hwnd = GetFocus();
        for (size_t i = 0; i < pages.size(); i++) {
            if (hwnd && hwnd == GetDlgItem(pages[i].hwnd, FIELD)) {
                return "field " + std::to_string(i);
            }
        }
        return hwnd ? TextOf(hwnd) : "none";
    }

    // The pages that show.
    std::string Shown() const
    {
        std::string shown;
        for (size_t i = 0; i < pages.size(); i++) {
            shown += IsWindowVisible(pages[i].hwnd) ? std::to_string(i) : "";
        }
        return shown;
    }

    // The buttons that show, from left to right, those that are disabled in brackets.
    static std::string Buttons(HWND hDlg)
    {
        std::string buttons;
        for (const UINT uId : {WZB_BACK, WZB_NEXT, WZB_FINISH, WZB_CANCEL}) {
            const HWND hwnd = GetDlgItem(hDlg, static_cast<int>(uId));
            if (IsWindowVisible(hwnd)) {
                const std::string text = TextOf(hwnd);
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

// The page is 180 x 90 units, which are 315 x 169 pixels; the footer's 28 are 53.
TEST_F(GWizardTest, DialogFitsItsFirstPageAndTheFooter)
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

TEST_F(GWizardTest, KeyboardStaysInTheWizardWhenItsButtonsGo)
{
    AddPages(3);
    Lines at;
    const auto look = [&](HWND) { at.push_back(Focus()); };
    const auto type = [](UINT vk) { return [vk](HWND) { desk::TypeKey(vk); }; };
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
    pages[0].pszTemplate = pages[1].pszTemplate = MAKEINTRESOURCEW(FIELD_TEMPLATE);
    Lines at;
    const auto look = [&](HWND) { at.push_back(Focus()); };
    const auto enter = [](HWND) { desk::TypeKey(VK_RETURN); };
    Run({[&](HWND) { SetFocus(GetDlgItem(pages[0].hwnd, FIELD)); }, look, enter, look, enter, look,
         Command(WZB_CANCEL)});
    EXPECT_EQ(at, (Lines{"field 0", "field 1", "Done"})) << "the last page has nothing to focus";
    at.clear();
    script.onMessage = [&](UINT uCode, HWND hwndPage) {
        if (uCode == WZN_SETACTIVE && hwndPage == pages[1].hwnd) {
            SetFocus(GetDlgItem(wizard, WZB_BACK));
        }
    };
    Run({[&](HWND) { SetFocus(GetDlgItem(pages[0].hwnd, FIELD)); }, Command(WZB_NEXT), look,
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
    EXPECT_EQ(nIndex, GWizard::NO_PAGE);
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
            desk::WhenIdle([&] { SendMessageW(hwnd(), WM_COMMAND, WZB_NEXT, 0); });
            desk::WhenIdle([&] { SendMessageW(hwnd(), WM_COMMAND, WZB_FINISH, 0); });
            const INT_PTR nResult = own->DoModal(Parent(), nullptr);
            if (way == Way::End && uCode < WZN_FINISH && uCode != WM_DESTROY) {
                EXPECT_EQ(nResult, 77) << uCode;
            }
            EXPECT_TRUE(hDlg && !IsWindow(hDlg)) << uCode;
            EXPECT_TRUE(IsWindowEnabled(Parent())) << uCode;
            desk::Pump();
        }
    }
}

TEST_F(GWizardTest, IgnoresANullPageAndRefusesToRunWithoutConfiguration)
{
    const AllowMisuse allowed;
    wizard.InsertPage(0, nullptr);
    EXPECT_EQ(wizard.GetPage(0), nullptr);
    GWizard bare;
    EXPECT_EQ(bare.DoModal(Parent(), nullptr), -1);
}

TEST_F(GWizardTest, DrawsHeaderAndCommandAreaForASubclass)
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
