// The library's texts in the user's language, and in a program's own words.

#include "../../dialogs/ModalFixture.h"
#include "../../dialogs/WizardFixture.h"
#include "../../support/AllowMisuse.h"
#include "../../support/WithBehavior.h"
#include "../memory/LongText.h"

#include <gesso/language/LanguageTable.h>
#include <platform/headless/headless.h>

#include <algorithm>

namespace {

using namespace test;
using gesso::SetLanguage;
using gesso::SetTextOf;
using gesso::TextId;
namespace headless = gesso::headless;

bool Is(TextId id, LPCWSTR text)
{
    return wcscmp(gesso::TextOf(id), text) == 0;
}

class LanguageTest : public WizardFixture<ModalTest>
{
protected:
    void TearDown() override
    {
        for (size_t id = 0; id < gesso::TEXT_COUNT; ++id) {
            SetTextOf(static_cast<TextId>(id), nullptr);
        }
        gesso::ForgetLanguage();
        WizardFixture::TearDown();
    }
    // Whether the user's languages make it the one that has this word for Yes.
    static bool FollowsTo(const std::vector<std::string>& tags, LPCWSTR yes)
    {
        headless::SetUserLanguages(tags);
        return SetLanguage(L"") && Is(TextId::Yes, yes);
    }
    // The controls that show lie in the dialog, apart, and their texts have room.
    static void ExpectButtonsApart(HWND hDlg)
    {
        std::vector<RECT> places;
        for (HWND hwnd = GetWindow(hDlg, GW_CHILD); hwnd; hwnd = GetWindow(hwnd, GW_HWNDNEXT)) {
            if (!IsWindowVisible(hwnd) || !(GetWindowLongW(hwnd, GWL_STYLE) & WS_TABSTOP)) {
                continue;
            }
            RECT rc{};
            GetWindowRect(hwnd, &rc);
            for (const RECT& other : places) {
                RECT both{};
                EXPECT_FALSE(IntersectRect(&both, &rc, &other)) << test::TextOf(hwnd);
            }
            places.push_back(rc);
            EXPECT_GT(rc.right - rc.left, TextWidth(hwnd)) << test::TextOf(hwnd);
            RECT rcDialog{};
            GetClientRect(hDlg, &rcDialog);
            MapWindowPoints(hDlg, nullptr, reinterpret_cast<POINT*>(&rcDialog), 2);
            EXPECT_GE(rc.left, rcDialog.left) << test::TextOf(hwnd);
        }
    }

private:
    static LONG TextWidth(HWND hwnd)
    {
        wchar_t text[100] = {};
        SendMessageW(hwnd, WM_GETTEXT, 100, reinterpret_cast<LPARAM>(text));
        const HDC hdc = GetDC(hwnd);
        const HGDIOBJ former =
            SelectObject(hdc, reinterpret_cast<HFONT>(SendMessageW(hwnd, WM_GETFONT, 0, 0)));
        RECT rc{};
        DrawTextW(hdc, text, -1, &rc, DT_CALCRECT | DT_SINGLELINE);
        SelectObject(hdc, former);
        ReleaseDC(hwnd, hdc);
        return rc.right;
    }
};

TEST_F(LanguageTest, TagsNameTheLanguageOrItsNearest)
{
    EXPECT_TRUE(Is(TextId::Cancel, L"Abbrechen") && Is(TextId::WizardNext, L"Next"));
    const std::pair<LPCWSTR, LPCWSTR> tags[] = {{L"de", L"Ja"},      {L"EN", L"Yes"},
                                                {L"fr-CA", L"Oui"},  {L"es", L"S\u00ED"},
                                                {L"it", L"S\u00EC"}, {L"nl-BE", L"Ja"},
                                                {L"pl", L"Tak"},     {L"ru", L"\u0414\u0430"},
                                                {L"pt", L"Sim"},     {L"ja-JP", L"\u306F\u3044"},
                                                {L"zh", L"\u662F"},  {L"ar-EG", L"\u0646\u0639\u0645"}};
    for (const auto& [tag, yes] : tags) {
        EXPECT_TRUE(SetLanguage(tag) && Is(TextId::Yes, yes)) << test::Narrow(tag);
    }
    EXPECT_TRUE(SetLanguage(L"pt-br") && Is(TextId::Undo, L"&Desfazer"));
    EXPECT_TRUE(SetLanguage(L"pt-pt") && Is(TextId::Undo, L"&Anular"));
    for (const LPCWSTR traditional : {L"zh-tw", L"zh-Hant", L"zh-hant-HK", L"zh-MO"}) {
        EXPECT_TRUE(SetLanguage(traditional) && Is(TextId::Ok, L"\u78BA\u5B9A")) << test::Narrow(traditional);
    }
    EXPECT_TRUE(SetLanguage(L"pt-PT-ao1990") && Is(TextId::Undo, L"&Anular"));
    EXPECT_TRUE(SetLanguage(L"zh-TW-x-own") && Is(TextId::Ok, L"\u78BA\u5B9A"));
    EXPECT_TRUE(SetLanguage(L"zh-Hans-CN") && Is(TextId::Ok, L"\u786E\u5B9A"));
    for (const LPCWSTR none : {L"xx", L"d", L"deu", L"-", L"-de", L" de"}) {
        EXPECT_FALSE(SetLanguage(none)) << test::Narrow(none);
    }
    EXPECT_FALSE(SetLanguage(nullptr));
    EXPECT_TRUE(Is(TextId::Ok, L"\u786E\u5B9A"));
}

TEST_F(LanguageTest, TheEmptyTagFollowsTheUser)
{
    EXPECT_TRUE(FollowsTo({"de-AT", "en-US"}, L"Ja"));
    EXPECT_TRUE(FollowsTo({"sv-SE", "fr-FR"}, L"Oui"));
    EXPECT_TRUE(FollowsTo({"sv-SE"}, L"Yes"));
    EXPECT_TRUE(FollowsTo({}, L"Yes"));
    headless::SetUserLanguages({"de"});
    headless::Fail("GetUserPreferredUILanguages");
    EXPECT_TRUE(SetLanguage(L"") && Is(TextId::Yes, L"Yes"));
}

TEST_F(LanguageTest, AProgramsWordingOutlivesTheLanguage)
{
    wchar_t text[] = L"Save";
    SetTextOf(TextId::Ok, text);
    text[0] = L'x';
    const LPCWSTR kept = gesso::TextOf(TextId::Ok);
    EXPECT_TRUE(SetLanguage(L"fr") && Is(TextId::Ok, L"Save") && Is(TextId::Cancel, L"Annuler"));
    {
        const LongText longText;
        const MemoryLimit limit;
        SetTextOf(TextId::Ok, longText);
        EXPECT_TRUE(Is(TextId::Ok, L"Save"));
    }
    SetTextOf(TextId::Ok, L"Keep");
    SetTextOf(TextId::Ok, L"Save");
    EXPECT_EQ(gesso::TextOf(TextId::Ok), kept) << "an equal wording is kept once";
    SetTextOf(TextId::Ok, nullptr);
    EXPECT_TRUE(Is(TextId::Ok, L"OK") && wcscmp(kept, L"Save") == 0);
    const AllowMisuse allowed;
    SetTextOf(static_cast<TextId>(gesso::TEXT_COUNT), L"x");
    EXPECT_EQ(gesso::TextOf(static_cast<TextId>(gesso::TEXT_COUNT)), nullptr);
    EXPECT_EQ(gesso::TextOf(static_cast<TextId>(0xFFFFFFFF)), nullptr);
}

TEST_F(LanguageTest, DialogsShowItAndTheirButtonsHaveRoom)
{
    SetTextOf(TextId::No, L"By no means, and under no circumstances at all");
    for (const LPCWSTR tag : {L"fr", L"ru", L"pl", L"nl", L"pt", L"ar"}) {
        SetLanguage(tag);
        WhenIdle([](HWND hDlg) {
            EXPECT_EQ(test::TextOf(GetDlgItem(hDlg, IDYES)), test::Narrow(gesso::TextOf(TextId::Yes)));
            ExpectButtonsApart(hDlg);
            SendMessageW(hDlg, WM_COMMAND, IDNO, 0);
        });
        EXPECT_EQ(GTaskDialog::MessageBoxW(Parent(), L"Content", L"Caption", MB_YESNOCANCEL), UINT{IDNO});
        WhenIdle([](HWND hDlg) {
            ExpectButtonsApart(hDlg);
            SendMessageW(hDlg, WM_COMMAND, IDNO, 0);
        });
        DWORD dwResult = 0;
        GWndCertFailure::WndCertFailure(&dwResult, Parent(), nullptr, nullptr, CFT_UNTRUSTED, 0x7FF,
                                        L"Caption", L"Subject");
        EXPECT_EQ(dwResult, DWORD{IDNO});
    }
}

TEST_F(LanguageTest, TheWizardFollowsOnceALanguageIsSet)
{
    AddPages(2);
    SetLanguage(L"de");
    Run({[](HWND hDlg) {
             EXPECT_EQ(Buttons(hDlg), "(Zur\u00FCck) Weiter Abbrechen");
             ExpectButtonsApart(hDlg);
         },
         Command(WZB_CANCEL)});
}

class PlainWizard : public GWizard
{
public:
    PlainWizard() { m_pConfig = &m_config; }

private:
    const GWIZARDCONFIG m_config{0, L"Wizard", 0, WZB_NEXT, nullptr};
};

TEST_F(LanguageTest, AWizardsFinishHasTheHostsLabelOrTheLanguages)
{
    for (const char* label : {"", "Finish"}) {
        PlainWizard plain;
        user::WhenIdle([&] {
            EXPECT_EQ(test::TextOf(GetDlgItem(plain, WZB_FINISH)), label);
            SendMessageW(plain, WM_COMMAND, WZB_CANCEL, 0);
        });
        plain.DoModal(Parent(), nullptr);
        SetLanguage(L"en");
    }
}

} // namespace
