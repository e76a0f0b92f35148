// A wizard whose pages do and answer what a test tells them, run modally and driven from within.
#pragma once

#include "../support/TestDialogs.h"
#include "ModalFixture.h"

namespace test {

// What the pages hear, and what they answer.
struct PageScript
{
    Lines heard;
    bool fAllowLeave = true;
    bool fAllowFinish = true;
    // Called for each message, or its code if it asks the page, with the page's window.
    std::function<void(UINT, HWND)> onMessage;
};
inline constinit PageScript* s_pScript = nullptr;

inline INT_PTR CALLBACK PageProc(HWND hwnd, UINT uMsg, WPARAM, LPARAM lParam)
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

// Over ModalTest, or a fixture of the simulated desktop.
template <class FIXTURE> class WizardFixture : public FIXTURE
{
protected:
    void SetUp() override { s_pScript = &script; }
    void TearDown() override
    {
        for (const stcPage& page : pages) {
            EXPECT_FALSE(IsWindow(page.hwnd)) << "a page outlives its wizard";
        }
        FIXTURE::TearDown();
    }

    void AddPages(size_t nCount)
    {
        pages.resize(nCount, {nullptr, TestDialogs(), MAKEINTRESOURCEW(TEST_PAGE), PageProc, 0});
        for (stcPage& page : pages) {
            wizard.InsertPage(0xFFFF, &page);
        }
    }

    // Runs the wizard with one action within it after another.
    INT_PTR Run(std::initializer_list<std::function<void(HWND)>> actions)
    {
        for (const auto& action : actions) {
            user::WhenIdle([this, action] { action(wizard); });
        }
        return wizard.DoModal(this->Parent(), nullptr);
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
            if (hwnd && hwnd == GetDlgItem(pages[i].hwnd, TEST_FIELD)) {
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
};

} // namespace test
