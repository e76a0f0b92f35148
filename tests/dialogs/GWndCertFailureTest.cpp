// The certificate dialog. Runs on both platforms.

#include "../support/AllowMisuse.h"
#include "ModalFixture.h"

namespace {

using namespace test;

constexpr int CHECKBOX = 1080;
constexpr int SHOW = 2000;

class GWndCertFailureTest : public ModalTest
{
protected:
    DWORD Run(DWORD dwType, DWORD dwFailures, const std::function<void(HWND)>& act)
    {
        WhenIdle(act);
        DWORD dwResult = 0;
        EXPECT_EQ(GWndCertFailure::WndCertFailure(&dwResult, Parent(), nullptr, nullptr, dwType, dwFailures,
                                                  L"Caption", L"subject"),
                  S_OK);
        return dwResult;
    }

    static std::function<void(HWND)> Command(int nId)
    {
        return [nId](HWND hDlg) { SendMessageW(hDlg, WM_COMMAND, static_cast<WPARAM>(nId), 0); };
    }
};

TEST_F(GWndCertFailureTest, ResultsByAnswerAndSeverity)
{
    const auto escape = [](HWND) { user::TypeKey(VK_ESCAPE); };
    const auto close = [](HWND hDlg) { PostMessageW(hDlg, WM_CLOSE, 0, 0); };
    for (const DWORD dwType : {CFT_SECURE, CFT_UNTRUSTED}) {
        EXPECT_EQ(Run(dwType, 0, Command(IDYES)), static_cast<DWORD>(IDYES));
        EXPECT_EQ(Run(dwType, 0, Command(IDOK)), static_cast<DWORD>(IDYES));
        EXPECT_EQ(Run(dwType, 0, Command(IDNO)), static_cast<DWORD>(IDNO));
        EXPECT_EQ(Run(dwType, 0, escape), static_cast<DWORD>(IDNO));
        EXPECT_EQ(Run(dwType, 0, close), static_cast<DWORD>(IDNO));
        EXPECT_EQ(Run(dwType, 0, [](HWND) { user::TypeKey(VK_RETURN); }), static_cast<DWORD>(IDYES));
    }
    EXPECT_EQ(Run(CFT_INVALID, 0, Command(IDOK)), static_cast<DWORD>(IDNO));
    EXPECT_EQ(Run(CFT_INVALID, 0, Command(IDYES)), static_cast<DWORD>(IDNO));
    EXPECT_EQ(Run(CFT_INVALID, 0, escape), static_cast<DWORD>(IDNO));
}

TEST_F(GWndCertFailureTest, CheckBoxAndFlagStayEqual)
{
    EXPECT_EQ(Run(CFT_UNTRUSTED, 0,
                  [](HWND hDlg) {
                      auto& box = *static_cast<GCheckBox*>(GWnd::FromHwnd(GetDlgItem(hDlg, CHECKBOX)));
                      RECT rc{};
                      box.GetPos(&rc);
                      user::Click(rc.left + 5, (rc.top + rc.bottom) / 2);
                      WhenIdle([&box](HWND hwnd) {
                          EXPECT_EQ(box.GetCheck(), 1);
                          SendMessageW(hwnd, WM_COMMAND, CHECKBOX, reinterpret_cast<LPARAM>(box.GetHwnd()));
                          EXPECT_EQ(box.GetCheck(), 0);
                          SendMessageW(hwnd, WM_COMMAND, CHECKBOX, reinterpret_cast<LPARAM>(box.GetHwnd()));
                          SendMessageW(hwnd, WM_COMMAND, IDYES, 0);
                      });
                  }),
              CFR_DONTASK | IDYES);
}

TEST_F(GWndCertFailureTest, CommandsOfOthersAndAButtonWithoutACallbackDoNothing)
{
    EXPECT_EQ(Run(CFT_UNTRUSTED, 0,
                  [](HWND hDlg) {
                      for (const int nId : {CHECKBOX, SHOW, 999}) {
                          SendMessageW(hDlg, WM_COMMAND, static_cast<WPARAM>(nId), 0);
                      }
                      EXPECT_EQ(GWndCertFailure::DialogProc(hDlg, WM_COMMAND, 999, 0), 1);
                      SendMessageW(hDlg, WM_COMMAND, IDYES, 0);
                  }),
              static_cast<DWORD>(IDYES));
    const AllowMisuse allowed;
    EXPECT_EQ(GWndCertFailure::WndCertFailureIndirect(nullptr, Parent(), nullptr), E_INVALIDARG);
}

TEST_F(GWndCertFailureTest, CertificateButtonCallsBackAndTheDialogStays)
{
    int nCalls = 0;
    WhenIdle([](HWND hDlg) {
        SendMessageW(hDlg, WM_COMMAND, SHOW, 0);
        SendMessageW(hDlg, WM_COMMAND, IDNO, 0);
    });
    DWORD dwResult = 0;
    const CertCallback pfnShow = [](HWND, void* pData) { return ++*static_cast<int*>(pData); };
    GWndCertFailure::WndCertFailure(&dwResult, Parent(), pfnShow, &nCalls, CFT_SECURE, 0, L"", L"");
    EXPECT_EQ(nCalls, 1);
    EXPECT_EQ(dwResult, static_cast<DWORD>(IDNO));
}

} // namespace
