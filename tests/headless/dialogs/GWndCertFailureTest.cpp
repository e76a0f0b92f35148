// The certificate dialog, run modally and driven from within.

#include <gesso/controls/GCheckBox.h>
#include <gesso/dialogs/GWndCertFailure.h>

#include "../controls/DrawFixture.h"

#include <gtest/gtest.h>

namespace {

namespace desk = gesso::headless;
using test::Lines;

constexpr int CHECKBOX = 1080;
constexpr int SHOW = 2000;

// Wider than the dialog's limit by itself, so that it wraps alike however often it is repeated.
#define NAMES L"a name with many words, a name with many words, a name with many words, "

class GWndCertFailureTest : public test::DrawFixture
{
protected:
    DWORD Run(DWORD dwType, DWORD dwFailures, const std::function<void(HWND)>& act)
    {
        desk::WhenIdle([act] { act(GDialog::s_hActiveDlg); });
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

    // The texts that the dialog draws itself, without what stands around them.
    static Lines Texts(HWND hDlg)
    {
        Lines texts;
        for (const std::string& line : Draw(hDlg, "DrawTextW \"")) {
            const size_t nStart = line.find('"') + 1;
            texts.push_back(line.substr(nStart, line.find('"', nStart) - nStart));
        }
        return texts;
    }
};

TEST_F(GWndCertFailureTest, ResultsByAnswerAndSeverity)
{
    const auto escape = [](HWND) { desk::TypeKey(VK_ESCAPE); };
    const auto close = [](HWND hDlg) { PostMessageW(hDlg, WM_CLOSE, 0, 0); };
    for (const DWORD dwType : {CFT_SECURE, CFT_UNTRUSTED}) {
        EXPECT_EQ(Run(dwType, 0, Command(IDYES)), static_cast<DWORD>(IDYES));
        EXPECT_EQ(Run(dwType, 0, Command(IDOK)), static_cast<DWORD>(IDYES));
        EXPECT_EQ(Run(dwType, 0, Command(IDNO)), static_cast<DWORD>(IDNO));
        EXPECT_EQ(Run(dwType, 0, escape), static_cast<DWORD>(IDNO));
        EXPECT_EQ(Run(dwType, 0, close), static_cast<DWORD>(IDNO));
        EXPECT_EQ(Run(dwType, 0, [](HWND) { desk::TypeKey(VK_RETURN); }), static_cast<DWORD>(IDYES));
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
                      desk::Click(rc.left + 5, (rc.top + rc.bottom) / 2);
                      desk::WhenIdle([&box, hDlg] {
                          EXPECT_EQ(box.GetCheck(), 1);
                          SendMessageW(hDlg, WM_COMMAND, CHECKBOX, reinterpret_cast<LPARAM>(box.GetHwnd()));
                          EXPECT_EQ(box.GetCheck(), 0);
                          SendMessageW(hDlg, WM_COMMAND, CHECKBOX, reinterpret_cast<LPARAM>(box.GetHwnd()));
                          SendMessageW(hDlg, WM_COMMAND, IDYES, 0);
                      });
                  }),
              CFR_DONTASK | IDYES);
}

TEST_F(GWndCertFailureTest, ShowsALineForEachFailureInOrder)
{
    Lines texts;
    Run(CFT_UNTRUSTED, 0xFFFFF820 | 0x02, [&](HWND hDlg) {
        texts = Texts(hDlg);
        EndDialog(hDlg, 0);
    });
    EXPECT_EQ(texts.size(), 6u);
    EXPECT_EQ(texts.at(0), "Nicht vertrauensw\xC3\xBCrdiges Zertifikat");
    EXPECT_EQ(texts.at(1), "subject");
    EXPECT_EQ(texts.at(3), "dem Zertifikat wird nicht getraut (bzw. dessen Root)");
    EXPECT_EQ(texts.at(4), "das Zertifikat ist abgelaufen");
    EXPECT_EQ(texts.at(5), "M\xC3\xB6"
                           "chten Sie den Vorgang fortsetzen?");

    Run(CFT_INVALID, 0, [&](HWND hDlg) {
        texts = Texts(hDlg);
        EXPECT_EQ(GetDlgItem(hDlg, CHECKBOX), nullptr);
        EXPECT_EQ(GetDlgItem(hDlg, IDYES), nullptr);
        EXPECT_NE(GetDlgItem(hDlg, IDOK), nullptr);
        EndDialog(hDlg, 0);
    });
    EXPECT_EQ(texts.size(), 3u) << "no failures, and no question";
}

TEST_F(GWndCertFailureTest, LongSubjectMakesTheDialogTallerAndNotWider)
{
    const auto sizeFor = [&](LPCWSTR pszSubject) {
        SIZE size{};
        desk::WhenIdle([&size] {
            RECT rc{};
            GetClientRect(GDialog::s_hActiveDlg, &rc);
            size = {rc.right, rc.bottom};
            EndDialog(GDialog::s_hActiveDlg, 0);
        });
        GWndCertFailure::WndCertFailure(nullptr, Parent(), nullptr, nullptr, CFT_UNTRUSTED, 0, nullptr,
                                        pszSubject);
        return size;
    };
    const SIZE brief = sizeFor(NAMES NAMES);
    const SIZE talkative = sizeFor(NAMES NAMES NAMES NAMES);
    EXPECT_EQ(talkative.cx, brief.cx);
    EXPECT_GT(talkative.cy, brief.cy);
}

TEST_F(GWndCertFailureTest, CertificateButtonCallsBackAndTheDialogStays)
{
    int nCalls = 0;
    desk::WhenIdle([] {
        SendMessageW(GDialog::s_hActiveDlg, WM_COMMAND, SHOW, 0);
        SendMessageW(GDialog::s_hActiveDlg, WM_COMMAND, IDNO, 0);
    });
    DWORD dwResult = 0;
    const CertCallback pfnShow = [](HWND, void* pData) { return ++*static_cast<int*>(pData); };
    GWndCertFailure::WndCertFailure(&dwResult, Parent(), pfnShow, &nCalls, CFT_SECURE, 0, L"", L"");
    EXPECT_EQ(nCalls, 1);
    EXPECT_EQ(dwResult, static_cast<DWORD>(IDNO));
}

TEST_F(GWndCertFailureTest, FailuresToRunAreReported)
{
    DWORD dwResult = 99;
    const auto run = [&](DWORD dwType) {
        return GWndCertFailure::WndCertFailure(&dwResult, Parent(), nullptr, nullptr, dwType, 0, L"", L"");
    };
    desk::Fail("FindResourceW", 1, ERROR_RESOURCE_NAME_NOT_FOUND);
    EXPECT_EQ(run(CFT_SECURE), HRESULT_FROM_WIN32(ERROR_RESOURCE_NAME_NOT_FOUND));
    EXPECT_EQ(dwResult, 99u);
    const bool fFormer = gesso::SetMisuseStops(false);
    EXPECT_EQ(run(3), E_INVALIDARG);
    gesso::SetMisuseStops(fFormer);
    desk::Fail("DialogBoxIndirectParamW");
    EXPECT_EQ(run(CFT_SECURE), E_FAIL);
    EXPECT_EQ(dwResult, static_cast<DWORD>(-1));
}

TEST_F(GWndCertFailureTest, HeaderIsOneRowOfGradientRepeated)
{
    Run(CFT_SECURE, 0, [](HWND hDlg) {
        const Lines rows = Draw(hDlg, "BitBlt (0,");
        EXPECT_GT(rows.size(), 20u);
        EndDialog(hDlg, 0);
    });
}

} // namespace
