// What the certificate dialog draws, where it stands, and what it makes of failures.

#include <gesso/controls/GCheckBox.h>
#include <gesso/dialogs/GWndCertFailure.h>

#include "../../support/AllowMisuse.h"
#include "../../support/Interception.h"
#include "../controls/DrawFixture.h"

#include <gesso/framework/Colors.h>

namespace {

using namespace test;

constexpr int CHECKBOX = 1080;

// Wider than the dialog's limit by itself, so that it wraps alike however often it is repeated.
#define NAMES L"a name with many words, a name with many words, a name with many words, "

class GWndCertFailureHeadlessTest : public DrawFixture
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

TEST_F(GWndCertFailureHeadlessTest, ShowsALineForEachFailureInOrder)
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

// In a font with characters of 6 x 15 pixels, 8 x 20 in the header; a dialog unit is 7/4 x 15/8 pixels.
TEST_F(GWndCertFailureHeadlessTest, EverythingStandsWhereItBelongs)
{
    Lines drawn, controls;
    Run(CFT_SECURE, 0x22, [&](HWND hDlg) {
        const Lines gradient = Draw(hDlg, "BitBlt (0,");
        ASSERT_GT(gradient.size(), 20u) << "one row of it, repeated";
        EXPECT_EQ(gradient[0], "BitBlt (0,0,390,1) from (0,0) SRCCOPY");
        EXPECT_EQ(Draw(hDlg, "FillRect (0,0,390,345)").size(), 1u);
        drawn = Draw(hDlg, "D");
        controls = Controls(hDlg);
        EXPECT_EQ(ClientSize(hDlg).cx, 390);
        EXPECT_EQ(ClientSize(hDlg).cy, 345);
        EndDialog(hDlg, 0);
    });
    const std::string header = R"( 0x0010 font="Segoe UI" 16 color=FFFFFF)";
    const std::string body = R"( 0x0010 font="Segoe UI" 12 color=000000)";
    const Lines expected = {
        "DrawThemeBackground TASKDIALOG 8 0 (0,292,390,345)",
        R"-(DrawTextW "Verbindungsidentifizierung" (48,18,256,38))-" + header,
        "DrawIconEx icon=138 (9,12,41,44) 0x0003",
        "DrawIconEx icon=139 (27,75,43,91) 0x0003",
        R"-(DrawTextW "subject" (52,75,94,90))-" + body,
        R"-(DrawTextW "Die Verbindung ist sicher." (12,109,168,124))-" + body,
        "DrawIconEx icon=135 (36,143,52,159) 0x0003",
        R"-(DrawTextW "dem Zertifikat wird nicht getraut (bzw. dessen Root)" (61,143,373,158))-" + body,
        "DrawIconEx icon=135 (36,167,52,183) 0x0003",
        R"-(DrawTextW "das Zertifikat ist abgelaufen" (61,167,235,182))-" + body,
        R"-(DrawTextW "Möchten Sie den Vorgang fortsetzen?" (12,220,222,235))-" + body,
    };
    EXPECT_EQ(drawn, expected);
    EXPECT_EQ(controls,
              (Lines{"1080 'Nicht erneut nach Verbindungen mit diesem Computer fragen.' (12,254,390,273)",
                     "7 'Nein' (290,305,378,331)", "6 'Ja' (195,305,283,331)",
                     "2000 'Zertifikat anzeigen...' (12,305,152,331)"}));
}

struct OpenGradient : GWndCertFailure
{
    using GWndCertFailure::m_hGradient;
};

// Also those of a dialog that was made in another scheme, for when that is left.
TEST_F(GWndCertFailureHeadlessTest, TheHeadersColoursRunFromEndToEnd)
{
    gesso::SetColorScheme(gesso::ColorScheme::Contrast);
    Run(CFT_SECURE, 0, [](HWND hDlg) {
        gesso::SetColorScheme(gesso::ColorScheme::Light);
        const auto* pDialog = reinterpret_cast<GWndCertFailure*>(GetWindowLongPtrW(hDlg, DWLP_USER));
        BITMAP bitmap{};
        GetObjectW(pDialog->*&OpenGradient::m_hGradient, sizeof(bitmap), &bitmap);
        const auto colorAt = [&](LONG x) {
            const DWORD dwPixel = static_cast<const DWORD*>(bitmap.bmBits)[x];
            return RGB(dwPixel >> 16, dwPixel >> 8, dwPixel);
        };
        EXPECT_EQ(colorAt(0), gesso::ColorOf(gesso::Color::CertSecureLeft));
        EXPECT_EQ(colorAt(bitmap.bmWidth - 1), gesso::ColorOf(gesso::Color::CertSecureRight));
        EndDialog(hDlg, 0);
    });
}

TEST_F(GWndCertFailureHeadlessTest, LongSubjectMakesTheDialogTallerAndNotWider)
{
    const auto sizeFor = [&](LPCWSTR pszSubject) {
        SIZE size{};
        desk::WhenIdle([&size] {
            size = ClientSize(GDialog::s_hActiveDlg);
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

TEST_F(GWndCertFailureHeadlessTest, FailuresToRunAreReported)
{
    DWORD dwResult = 99;
    const auto run = [&](DWORD dwType) {
        return GWndCertFailure::WndCertFailure(&dwResult, Parent(), nullptr, nullptr, dwType, 0, L"", L"");
    };
    for (const char* pszOperation : {"FindResourceW", "LoadResource"}) {
        desk::Fail(pszOperation, 1, ERROR_RESOURCE_NAME_NOT_FOUND);
        EXPECT_EQ(run(CFT_SECURE), HRESULT_FROM_WIN32(ERROR_RESOURCE_NAME_NOT_FOUND));
        EXPECT_EQ(dwResult, 99u);
    }
    const AllowMisuse allowed;
    EXPECT_EQ(run(3), E_INVALIDARG);
    desk::Fail("DialogBoxIndirectParamW");
    EXPECT_EQ(run(CFT_SECURE), E_FAIL);
    EXPECT_EQ(dwResult, static_cast<DWORD>(-1));
}

TEST_F(GWndCertFailureHeadlessTest, RunsAndLeavesNothingBehindWhateverFails)
{
    for (const char* pszOperation :
         {"LoadIconWithScaleDown", "OpenThemeData", "CreateFontW", "CreateDIBSection", "CreateCompatibleDC",
          "CreateCompatibleBitmap", "GetDC", "CreateWindowExW"})
    {
        // The dialog itself is the first window of all; its controls come then.
        desk::Fail(pszOperation, 100, ERROR_NOT_ENOUGH_MEMORY,
                   pszOperation == std::string("CreateWindowExW"));
        EXPECT_EQ(Run(CFT_UNTRUSTED, 0x7FF, Command(IDYES)), static_cast<DWORD>(IDYES)) << pszOperation;
        EndFaults();
    }
}

TEST_F(GWndCertFailureHeadlessTest, OwnerMayEndItAsSoonAsItStandsAtItsPlace)
{
    const Interception inactive(Parent(), WM_ACTIVATE, [] { DestroyWindow(desk::TopLevelWindows()[0]); });
    GWndCertFailure::WndCertFailure(nullptr, Parent(), nullptr, nullptr, CFT_UNTRUSTED, 0x7FF, L"", L"");
    EXPECT_TRUE(inactive.Happened());
}

TEST_F(GWndCertFailureHeadlessTest, CopyDrawsTheSameAndOwnsNothing)
{
    Run(CFT_UNTRUSTED, 0x02, [](HWND hDlg) {
        auto& dialog = *reinterpret_cast<GWndCertFailure*>(GetWindowLongPtrW(hDlg, DWLP_USER));
        const Lines own = Draw(hDlg, "D");
        {
            GWndCertFailure copy(dialog);
            EXPECT_EQ(copy.GetHwnd(), hDlg);
            desk::ClearDrawing(hDlg);
            const HDC hdc = GetDC(hDlg);
            copy.Draw(hdc);
            ReleaseDC(hDlg, hdc);
            Lines drawn = desk::Drawing(hDlg);
            std::erase_if(drawn, [](const std::string& line) { return !line.starts_with("D"); });
            EXPECT_EQ(drawn, own);
        }
        EXPECT_EQ(Draw(hDlg, "D"), own);
        EndDialog(hDlg, 0);
    });
}

} // namespace
