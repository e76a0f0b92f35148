// Dialogs at any dots an inch, made for them or brought to them while they are open: what they show, and the
// pages of a wizard.

#include "../../support/DialogTemplate.h"
#include "../../support/Numbers.h"
#include "../../support/WithBehavior.h"
#include "../framework/ScalingFixture.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <tuple>

namespace {

using namespace test;
using gesso::Behavior;
using gesso::Scaling;

// --- A wizard with a label, a box and a button on each page

constexpr WORD PAGE = 510;
constexpr int LABEL = 901, BOX = 902, BUTTON = 903;
constexpr int CONTROLS[] = {LABEL, BOX, BUTTON};

// Called as a page hears of its size.
constinit std::function<void()>* s_pOnSize = nullptr;

class PagedWizard : public GWizard
{
public:
    explicit PagedWizard(size_t nPages)
        : m_pages(nPages, {nullptr, desk::HostModule(), MAKEINTRESOURCEW(PAGE), PageProc, 0})
    {
        DialogTemplate page(WS_CHILD | DS_CONTROL | DS_SETFONT, 180, 90);
        page.Add(L"GLabel", LABEL, 0, 5, 5, 120, 12, L"A text for a label");
        page.Add(L"GCheckBox", BOX, GS_VCENTER, 5, 21, 80, 14, L"A box");
        page.Add(L"GButton", BUTTON, GS_CENTER | GS_VCENTER, 120, 70, 55, 15, L"Button");
        desk::AddResource(desk::HostModule(), L"RT_DLG", MAKEINTRESOURCEW(PAGE), page.Bytes());
        m_pConfig = &m_config;
        for (stcPage& record : m_pages) {
            InsertPage(NO_PAGE, &record);
        }
    }
    HWND Page(size_t nIndex) const { return m_pages[nIndex].hwnd; }
    using GWizard::NextPage;

private:
    static INT_PTR CALLBACK PageProc(HWND, UINT uMsg, WPARAM, LPARAM lParam)
    {
        if (uMsg == WM_SIZE && s_pOnSize) {
            const auto act = *s_pOnSize;
            act();
        } else if (uMsg == WM_NOTIFY) {
            reinterpret_cast<stcWizardNotify*>(lParam)->nResult = 1;
        }
        return FALSE;
    }

    const GWIZARDCONFIG m_config{0, L"Wizard", 0, WZB_NEXT, L"Done"};
    std::vector<stcPage> m_pages;
};

// --- What a dialog shows, in its client area

struct Look
{
    SIZE client;
    SIZE frame; // around it
    std::vector<ShownText> texts;
    std::vector<RECT> things; // texts and controls
};

// A control's paint begins with its dialog's, whose texts are there already.
void AddTexts(Look& look, HWND hDlg, HWND hwnd)
{
    POINT pt{};
    MapWindowPoints(hwnd, hDlg, &pt, 1);
    for (ShownText text : TextsOf(hwnd, BrokenTexts::Show)) {
        const auto isThere = [&text](const ShownText& other) { return other.text == text.text; };
        if (std::ranges::any_of(look.texts, isThere)) {
            continue;
        }
        OffsetRect(&text.box, pt.x, pt.y);
        OffsetRect(&text.room, pt.x, pt.y);
        look.texts.push_back(text);
    }
}

void AddControls(Look& look, HWND hDlg, HWND hwndParent)
{
    for (HWND hwnd = GetWindow(hwndParent, GW_CHILD); hwnd; hwnd = GetWindow(hwnd, GW_HWNDNEXT)) {
        if (GetWindow(hwnd, GW_CHILD)) {
            AddControls(look, hDlg, hwnd); // a page
        } else if (IsWindowVisible(hwnd)) {
            look.things.push_back(PlaceIn(hDlg, hwnd));
            AddTexts(look, hDlg, hwnd);
        }
    }
}

Look LookAt(HWND hDlg)
{
    RECT rc{};
    GetWindowRect(hDlg, &rc);
    const SIZE client = ClientSize(hDlg);
    Look look{client, {rc.right - rc.left - client.cx, rc.bottom - rc.top - client.cy}, {}, {}};
    AddTexts(look, hDlg, hDlg);
    for (const ShownText& text : look.texts) {
        look.things.push_back(text.box);
    }
    AddControls(look, hDlg, hDlg);
    return look;
}

bool IsWithin(const RECT& rc, SIZE size)
{
    return rc.left >= 0 && rc.top >= 0 && rc.right <= size.cx && rc.bottom <= size.cy;
}

void ExpectTextsLike(const Look& look, const Look& base, double factor)
{
    ASSERT_EQ(look.texts.size(), base.texts.size());
    ASSERT_FALSE(base.texts.empty());
    for (size_t i = 0; i < look.texts.size(); ++i) {
        const ShownText& text = look.texts[i];
        EXPECT_EQ(text.text, base.texts[i].text);
        EXPECT_NEAR(text.em, base.texts[i].em * factor, 1) << text.text;
        EXPECT_TRUE(text.IsWhole() || !base.texts[i].IsWhole())
            << text.text << " (" << Numbers(text.box) << ") in (" << Numbers(text.room) << ")";
    }
}

// A text breaks elsewhere where its characters are a little wider or narrower than the factor says. Where the
// frame does not grow, what the platform wants of it is the client area's.
void ExpectLike(const Look& look, const Look& base, double factor)
{
    constexpr double ROUGHLY = 0.12;
    ExpectTextsLike(look, base, factor);
    EXPECT_GE(look.client.cx, base.client.cx * factor * (1 - ROUGHLY));
    EXPECT_GE(look.client.cy, base.client.cy * factor * (1 - ROUGHLY));
    EXPECT_LE(look.client.cx, (base.client.cx + base.frame.cx) * factor * (1 + ROUGHLY));
    EXPECT_LE(look.client.cy, (base.client.cy + base.frame.cy) * factor * (1 + ROUGHLY));
    ASSERT_EQ(look.things.size(), base.things.size());
    for (size_t i = 0; i < look.things.size(); ++i) {
        EXPECT_TRUE(IsWithin(look.things[i], look.client) || !IsWithin(base.things[i], base.client))
            << i << ": (" << Numbers(look.things[i]) << ") in " << Numbers(look.client);
        for (size_t j = 0; j < i; ++j) {
            EXPECT_TRUE(!Overlap(look.things[i], look.things[j]) || Overlap(base.things[i], base.things[j]))
                << i << ": (" << Numbers(look.things[i]) << ") and " << j << ": (" << Numbers(look.things[j])
                << ")";
        }
    }
}

// --- Each dialog

enum class Kind
{
    Box,
    Task,
    Asking,
    Certificate,
    Wizard
};
constexpr Kind KINDS[] = {Kind::Box, Kind::Task, Kind::Asking, Kind::Certificate, Kind::Wizard};

void ShowDialog(Kind kind, HWND hwndOwner)
{
    GTASKDIALOGCONFIG config{};
    config.hwndParent = hwndOwner;
    config.pszWindowTitle = L"Title";
    config.pszMainInstruction = L"The main instruction";
    config.pszContent = L"A content of so many words that its lines are broken, which it takes a few more "
                        L"for, and then as many again.";
    config.dwCommonButtons = TDCBF_YES_BUTTON | TDCBF_NO_BUTTON | TDCBF_CANCEL_BUTTON;
    bool fChecked = false;
    switch (kind) {
    case Kind::Box:
        GTaskDialog::MessageBoxW(hwndOwner, L"A text", L"Title", MB_YESNO | MB_ICONWARNING);
        break;
    case Kind::Task: GTaskDialog::IsolationAwareTaskDialogIndirect(&config, nullptr); break;
    case Kind::Asking: GTaskDialog::Ask(&config, L"Never again", &fChecked, nullptr); break;
    case Kind::Certificate:
        GWndCertFailure::WndCertFailure(nullptr, hwndOwner, nullptr, nullptr, CFT_UNTRUSTED, 0x02, L"Title",
                                        L"subject");
        break;
    case Kind::Wizard: PagedWizard(2).DoModal(hwndOwner, nullptr); break;
    }
}

class DialogsAtDpi : public ScalingTest, public testing::WithParamInterface<std::tuple<int, bool>>
{
protected:
    // Made where the screen has so many dots, and brought to others.
    Look Show(Kind kind, int nMade, int nShown) const
    {
        gesso::SetScaling(Scaling::None);
        desk::SetDpi(nMade);
        gesso::SetScaling(Scaling::PerMonitor);
        Look look{};
        desk::WhenIdle([&] {
            const HWND hDlg = GetActiveWindow();
            SetWindowPos(hDlg, nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOZORDER); // so that all of it shows
            if (nShown != nMade) {
                desk::ChangeDpi(hDlg, nShown);
            }
            look = LookAt(hDlg);
            EndDialog(hDlg, 0);
        });
        ShowDialog(kind, Window());
        return look;
    }
};

INSTANTIATE_TEST_SUITE_P(Dpi, DialogsAtDpi, testing::Combine(testing::ValuesIn(ALL_DPI), testing::Bool()));

TEST_P(DialogsAtDpi, ShowAllThatTheyShowAtFirstMadeThereOrBroughtThere)
{
    const auto [nDpi, fShared] = GetParam();
    desk::ShareThemeHandles(fShared);
    for (const Behavior behavior : {Behavior::Classic, Behavior::Modern}) {
        const WithBehavior with(behavior);
        for (const Kind kind : KINDS) {
            SCOPED_TRACE(static_cast<int>(kind));
            const double factor = nDpi / static_cast<double>(USER_DEFAULT_SCREEN_DPI);
            const Look base = Show(kind, USER_DEFAULT_SCREEN_DPI, USER_DEFAULT_SCREEN_DPI);
            {
                SCOPED_TRACE("made there");
                ExpectLike(Show(kind, nDpi, nDpi), base, factor);
            }
            SCOPED_TRACE("brought there");
            ExpectLike(Show(kind, USER_DEFAULT_SCREEN_DPI, nDpi), base, factor);
        }
    }
}

using ScaledDialogs = ScalingTest;

TEST_F(ScaledDialogs, TheIconFollowsAndTheFocusStays)
{
    for (const Behavior behavior : {Behavior::Classic, Behavior::Modern}) {
        const WithBehavior with(behavior);
        gesso::SetScaling(Scaling::PerMonitor);
        SIZE icon{};
        desk::WhenIdle([&] {
            const HWND hDlg = GDialog::s_hActiveDlg;
            SetFocus(GetDlgItem(hDlg, IDNO));
            desk::ChangeDpi(hDlg, 192);
            const RECT rc = ImageIn(hDlg);
            icon = {rc.right - rc.left, rc.bottom - rc.top};
            EXPECT_EQ(GetFocus(), GetDlgItem(hDlg, IDNO));
            EndDialog(hDlg, 0);
        });
        ShowDialog(Kind::Box, m_host);
        EXPECT_EQ(Numbers(icon), Numbers(64, 64));
    }
}

TEST_F(ScaledDialogs, TheTextSizeIsThatOfTheTextsAsOfTheButtons)
{
    desk::SetRegistryNumber("Software\\Microsoft\\Accessibility", "TextScaleFactor", 150);
    gesso::SetScaling(Scaling::System);
    std::vector<ShownText> texts;
    desk::WhenIdle([&] {
        texts = LookAt(GDialog::s_hActiveDlg).texts;
        EndDialog(GDialog::s_hActiveDlg, 0);
    });
    ShowDialog(Kind::Box, m_host);
    ASSERT_EQ(texts.size(), 3U);
    for (const ShownText& text : texts) {
        EXPECT_EQ(text.em, 18) << text.text;
    }
}

// --- The pages of a wizard

class ScaledPages : public ScalingTest
{
protected:
    ScaledPages() { gesso::SetScaling(Scaling::PerMonitor); }
    ~ScaledPages() override { s_pOnSize = nullptr; }

    // Each page's size, and the places and the fonts' heights of what stands on it.
    static Lines Describe(const PagedWizard& wizard, size_t nPages, int nFactor = 1)
    {
        Lines lines;
        for (size_t i = 0; i < nPages; ++i) {
            const SIZE size = ClientSize(wizard.Page(i));
            lines.push_back(Numbers(nFactor * size.cx, nFactor * size.cy));
            for (const int nId : CONTROLS) {
                const HWND hwnd = GetDlgItem(wizard.Page(i), nId);
                const RECT rc = PlaceIn(wizard.Page(i), hwnd);
                lines.push_back(Numbers(nFactor * rc.left, nFactor * rc.top) + "," +
                                Numbers(nFactor * rc.right, nFactor * rc.bottom) + " font " +
                                std::to_string(nFactor * EmOf(FontOf(hwnd))));
            }
        }
        return lines;
    }

    // The room of the page that shows, above the buttons.
    static void ExpectRoomFor(HWND hDlg, HWND hwndPage)
    {
        const RECT rcPage = PlaceIn(hDlg, hwndPage);
        EXPECT_EQ(ClientSize(hDlg).cx, rcPage.right);
        for (const UINT uId : {WZB_CANCEL, WZB_NEXT}) {
            const RECT rc = PlaceIn(hDlg, GetDlgItem(hDlg, static_cast<int>(uId)));
            EXPECT_GE(rc.top, rcPage.bottom);
            EXPECT_TRUE(IsWithin(rc, ClientSize(hDlg)));
        }
    }
};

TEST_F(ScaledPages, AllOfThemGrowWithWhatStandsOnThemAndComeBack)
{
    constexpr size_t PAGES = 3;
    PagedWizard wizard(PAGES);
    desk::WhenIdle([&] {
        const HWND hDlg = wizard;
        const Lines before = Describe(wizard, PAGES);
        const Lines twice = Describe(wizard, PAGES, 2);
        const SIZE client = ClientSize(hDlg);
        desk::ChangeDpi(hDlg, 192);
        EXPECT_EQ(Describe(wizard, PAGES), twice);
        ExpectRoomFor(hDlg, wizard.Page(0));
        wizard.NextPage();
        ExpectRoomFor(hDlg, wizard.Page(1));
        desk::ChangeDpi(hDlg, 96);
        EXPECT_EQ(Describe(wizard, PAGES), before);
        EXPECT_EQ(Numbers(ClientSize(hDlg)), Numbers(client));
        EXPECT_EQ(FontOf(GetDlgItem(wizard.Page(0), LABEL)), FontOf(wizard.Page(0)));
        desk::ChangeDpi(hDlg, 192);
        gesso::SetScaling(Scaling::None);
        desk::Pump();
        EXPECT_EQ(Describe(wizard, PAGES), before) << "as the platform made them";
        EndDialog(hDlg, 0);
    });
    wizard.DoModal(m_host, nullptr);
}

TEST_F(ScaledPages, AHostsFontAndAHostsLayoutStay)
{
    const HFONT hFont = CreateFontW(-20, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, L"Arial");
    PagedWizard wizard(1);
    const std::function<void()> layOut = [&] {
        MoveWindow(GetDlgItem(wizard.Page(0), BUTTON), 1, 2, 3, 4, FALSE);
    };
    desk::WhenIdle([&] {
        const HWND hwndLabel = GetDlgItem(wizard.Page(0), LABEL);
        SendMessageW(hwndLabel, WM_SETFONT, reinterpret_cast<WPARAM>(hFont), 0);
        auto act = layOut;
        s_pOnSize = &act;
        desk::ChangeDpi(wizard, 192);
        s_pOnSize = nullptr;
        EXPECT_EQ(FontOf(hwndLabel), hFont);
        EXPECT_EQ(Numbers(PlaceIn(wizard.Page(0), GetDlgItem(wizard.Page(0), BUTTON))), "1,2,4,6");
        EndDialog(wizard, 0);
    });
    wizard.DoModal(m_host, nullptr);
    DeleteObject(hFont);
}

TEST_F(ScaledPages, APageMayEndTheDialogAsItGrows)
{
    for (const bool fDelete : {false, true}) {
        auto pWizard = std::make_unique<PagedWizard>(2);
        HWND hDlg = nullptr;
        std::function<void()> end = [&] {
            s_pOnSize = nullptr;
            DestroyWindow(hDlg);
            if (fDelete) {
                pWizard.reset();
            }
        };
        desk::WhenIdle([&] {
            hDlg = *pWizard;
            s_pOnSize = &end;
            desk::ChangeDpi(hDlg, 192);
            EXPECT_FALSE(IsWindow(hDlg));
        });
        pWizard->DoModal(m_host, nullptr);
    }
}

} // namespace
