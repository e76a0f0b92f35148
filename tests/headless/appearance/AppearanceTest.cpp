// Which scheme is active, who hears of it, and whose colours hold.

#include "../../support/AllControls.h"
#include "../../support/AllowMisuse.h"
#include "Exhibit.h"
#include "Picture.h"
#include "Schemes.h"

namespace {

using namespace test;
using gesso::ActiveColorScheme;
using gesso::ColorRole;
using gesso::ColorScheme;
using gesso::SetColorScheme;

constexpr const char* PERSONALIZE = "Software\\Microsoft\\Windows\\CurrentVersion\\Themes\\Personalize";

void SetProgramsDark(bool fDark)
{
    desk::SetRegistryNumber(PERSONALIZE, "AppsUseLightTheme", fDark ? 0 : 1);
}

class AppearanceTest : public testing::Test
{
protected:
    void TearDown() override
    {
        SetColorScheme(ColorScheme::Light);
        desk::SetHighContrast(false);
    }

private:
    FreshDesktop m_desktop;
};

TEST_F(AppearanceTest, TheSchemeIsTheProcesssAndNoneThatIsNotThere)
{
    EXPECT_EQ(gesso::GetColorScheme(), ColorScheme::Light);
    EXPECT_EQ(ActiveColorScheme(), ColorScheme::Light);
    SetColorScheme(ColorScheme::Dark);
    const AllowMisuse allowed;
    SetColorScheme(static_cast<ColorScheme>(4));
    SetColorScheme(static_cast<ColorScheme>(-1));
    EXPECT_EQ(gesso::GetColorScheme(), ColorScheme::Dark);
    EXPECT_EQ(ActiveColorScheme(), ColorScheme::Dark);
    EXPECT_EQ(ColorOf(static_cast<ColorRole>(99)), CLR_INVALID);
    EXPECT_EQ(ColorOf(static_cast<ColorRole>(-1)), CLR_INVALID);
}

TEST_F(AppearanceTest, ContrastIsTheUsersColoursAndNothingElse)
{
    for (int i = 0; i <= COLOR_MENUBAR; ++i) {
        desk::SetSystemColor(i, RGB(i, 100 + i, 200));
    }
    SetColorScheme(ColorScheme::Contrast);
    constexpr std::pair<ColorRole, int> ROLES[] = {{ColorRole::Window, COLOR_WINDOW},
                                                   {ColorRole::WindowText, COLOR_WINDOWTEXT},
                                                   {ColorRole::Panel, COLOR_BTNFACE},
                                                   {ColorRole::PanelText, COLOR_BTNTEXT},
                                                   {ColorRole::DisabledText, COLOR_GRAYTEXT},
                                                   {ColorRole::Selection, COLOR_HIGHLIGHT},
                                                   {ColorRole::SelectionText, COLOR_HIGHLIGHTTEXT},
                                                   {ColorRole::InactiveSelection, COLOR_BTNFACE},
                                                   {ColorRole::InactiveSelectionText, COLOR_BTNTEXT},
                                                   {ColorRole::HotRow, COLOR_WINDOW},
                                                   {ColorRole::Line, COLOR_WINDOWTEXT},
                                                   {ColorRole::Border, COLOR_WINDOWTEXT},
                                                   {ColorRole::Accent, COLOR_HIGHLIGHT},
                                                   {ColorRole::Link, COLOR_HOTLIGHT},
                                                   {ColorRole::Header, COLOR_BTNFACE},
                                                   {ColorRole::HeaderText, COLOR_BTNTEXT}};
    for (const auto& [role, nIndex] : ROLES) {
        EXPECT_EQ(ColorOf(role), GetSysColor(nIndex)) << static_cast<int>(role);
    }
}

TEST_F(AppearanceTest, AHostsShadeHoldsForTheSchemeThatWasActive)
{
    constexpr COLORREF OWN = RGB(1, 2, 3);
    const COLORREF crLight = ColorOf(ColorRole::Panel);
    SetColorScheme(ColorScheme::Dark);
    const COLORREF crDark = ColorOf(ColorRole::Panel);
    gesso::SetColor(ColorRole::Panel, OWN);
    EXPECT_EQ(ColorOf(ColorRole::Panel), OWN);
    SetColorScheme(ColorScheme::Light);
    EXPECT_EQ(ColorOf(ColorRole::Panel), crLight);
    gesso::SetColor(ColorRole::Panel, CLR_DEFAULT);
    SetColorScheme(ColorScheme::Dark);
    EXPECT_EQ(ColorOf(ColorRole::Panel), OWN) << "whatever came between";
    {
        const AllowMisuse allowed;
        gesso::SetColor(static_cast<ColorRole>(99), OWN);
        gesso::SetColor(ColorRole::Panel, 0x05010101);
        EXPECT_EQ(ColorOf(ColorRole::Panel), OWN);
    }
    gesso::SetColor(ColorRole::Panel, CLR_DEFAULT);
    EXPECT_EQ(ColorOf(ColorRole::Panel), crDark);
    gesso::SetColor(ColorRole::Panel, 0);
    EXPECT_EQ(ColorOf(ColorRole::Panel), 0u) << "black is a shade";
    gesso::SetColor(ColorRole::Panel, CLR_DEFAULT);
}

template <class CONTROL> class LiveSchemeTest : public AppearanceTest
{};
TYPED_TEST_SUITE(LiveSchemeTest, AllControls::Types);

// Each draws the same as one that was made in the scheme, and comes back to what it was.
TYPED_TEST(LiveSchemeTest, AControlThatIsThereFollows)
{
    const Ground ground;
    TypeParam control;
    const HWND hwnd = MakeExhibit(control, ground);
    const Picture light(hwnd);
    TakeRepaint(hwnd);
    SetColorScheme(ColorScheme::Dark);
    EXPECT_TRUE(TakeRepaint(hwnd));
    const Picture dark(hwnd);
    EXPECT_EQ(light == dark, (std::is_same_v<TypeParam, GSeparator>));
    control.Destroy();

    TypeParam other;
    const HWND hwndOther = MakeExhibit(other, ground);
    EXPECT_TRUE(Picture(hwndOther) == dark);
    SetColorScheme(ColorScheme::Light);
    EXPECT_TRUE(TakeRepaint(hwndOther));
    EXPECT_TRUE(Picture(hwndOther) == light);
    other.Destroy();
    SetColorScheme(ColorScheme::Dark); // nobody is there to be told
}

TEST_F(AppearanceTest, TheWindowsAroundAControlRepaintToo)
{
    const Ground ground, beside;
    const HWND hwndPage = CreateWindowExW(0, L"Static", nullptr, WS_CHILD | WS_VISIBLE, 0, 0, 300, 200,
                                          ground, nullptr, nullptr, nullptr);
    GLabel label;
    label.Create(0, 0, 50, 20, hwndPage, 0, L"Text", 0, WS_CHILD | WS_VISIBLE);
    for (const HWND hwnd : {HWND(ground), HWND(beside), hwndPage}) {
        TakeRepaint(hwnd);
    }
    SetColorScheme(ColorScheme::Dark);
    EXPECT_TRUE(TakeRepaint(hwndPage));
    EXPECT_TRUE(TakeRepaint(ground));
    EXPECT_FALSE(TakeRepaint(beside)) << "nothing of the library's is in it";
    label.Destroy();
}

// What the system asks for, and how it is heard of.
TEST_F(AppearanceTest, SystemFollowsTheUsersSettings)
{
    const Ground ground;
    GButton button;
    button.Create(0, 0, 50, 20, ground, 1, L"Text", 0, WS_CHILD | WS_VISIBLE);
    const auto hears = [&](UINT uMsg) {
        TakeRepaint(button.GetHwnd());
        for (const HWND hwnd : desk::TopLevelWindows()) {
            SendMessageW(hwnd, uMsg, 0, 0);
        }
        return TakeRepaint(button.GetHwnd());
    };
    SetColorScheme(ColorScheme::System);
    EXPECT_EQ(ActiveColorScheme(), ColorScheme::Light);
    EXPECT_EQ(gesso::GetColorScheme(), ColorScheme::System);
    EXPECT_FALSE(hears(WM_SETTINGCHANGE)) << "nothing has changed";
    SetProgramsDark(true);
    EXPECT_TRUE(hears(WM_SETTINGCHANGE));
    EXPECT_EQ(ActiveColorScheme(), ColorScheme::Dark);
    desk::SetHighContrast(true);
    EXPECT_TRUE(hears(WM_THEMECHANGED));
    EXPECT_EQ(ActiveColorScheme(), ColorScheme::Contrast);
    EXPECT_TRUE(hears(WM_SYSCOLORCHANGE)) << "other colours of the same scheme";
    desk::SetHighContrast(false);
    SetProgramsDark(false);
    TakeRepaint(button.GetHwnd());
    SendMessageW(button.GetHwnd(), WM_SYSCOLORCHANGE, 0, 0);
    EXPECT_EQ(ActiveColorScheme(), ColorScheme::Light) << "a control hears of it as well";
    EXPECT_TRUE(TakeRepaint(button.GetHwnd()));

    SetColorScheme(ColorScheme::Dark);
    desk::Pump();
    EXPECT_EQ(desk::TopLevelWindows().size(), 1u) << "nobody listens any more";
    desk::SetHighContrast(true);
    EXPECT_FALSE(hears(WM_SETTINGCHANGE));
    EXPECT_EQ(ActiveColorScheme(), ColorScheme::Dark);
    button.Destroy();
}

TEST_F(AppearanceTest, AColourThatAHostSetOnALabelIsKeptInDarkAndReplacedInContrast)
{
    constexpr COLORREF OWN = RGB(0xF0, 0x80, 0x00);
    const Ground ground;
    GLabel label;
    const HWND hwnd = label.Create(0, 0, 50, 20, ground, 0, L"Text", 0, WS_CHILD | WS_VISIBLE);
    const auto color = [&] { return Picture(hwnd).Texts().at(0).cr; };
    EXPECT_EQ(color(), 0u);
    SetColorScheme(ColorScheme::Dark);
    EXPECT_EQ(color(), ColorOf(ColorRole::PanelText));
    label.SetTextColor(OWN);
    EXPECT_EQ(color(), OWN);
    label.SetTextColor(0);
    EXPECT_EQ(color(), 0u) << "black as well";
    SetColorScheme(ColorScheme::Contrast);
    EXPECT_EQ(color(), ColorOf(ColorRole::PanelText));
    SetColorScheme(ColorScheme::Light);
    EXPECT_EQ(color(), 0u);
    label.Destroy();
}

TEST_F(AppearanceTest, ADialogsCaptionGoesWithTheScheme)
{
    const auto during = [](const std::function<void(HWND)>& look) {
        desk::WhenIdle([&look] {
            const HWND hDlg = GetActiveWindow();
            look(hDlg);
            EndDialog(hDlg, IDCANCEL);
        });
        GTaskDialog::MessageBoxW(nullptr, L"Text", L"Title", MB_OK);
    };
    during([](HWND hDlg) {
        EXPECT_FALSE(desk::HasDarkCaption(hDlg));
        SetColorScheme(ColorScheme::Dark);
        desk::Pump();
        EXPECT_TRUE(desk::HasDarkCaption(hDlg));
    });
    during([](HWND hDlg) {
        EXPECT_TRUE(desk::HasDarkCaption(hDlg));
        SetColorScheme(ColorScheme::Light);
        desk::Pump();
        EXPECT_FALSE(desk::HasDarkCaption(hDlg));
    });
}

// A disabled image is the image, faintly: what it shows does not depend on the system's colours.
TEST_F(AppearanceTest, ADisabledImageKeepsItsShape)
{
    const HBITMAP hBitmap = CreateBitmap(16, 16, 1, 32, nullptr);
    const Ground ground;
    GLabel label;
    const HWND hwnd =
        label.Create(0, 0, 50, 20, ground, 0, L"", 0, WS_CHILD | WS_VISIBLE | WS_DISABLED | GS_BITMAP);
    label.SetBitmap(hBitmap);
    EXPECT_EQ(NextPaint(hwnd, "GdiAlphaBlend"), Lines{});
    SetColorScheme(ColorScheme::Dark);
    EXPECT_EQ(NextPaint(hwnd, "DrawStateW"), Lines{"DrawStateW bitmap=16x16 (0,0,16,16) 0x0004"});
    EXPECT_EQ(NextPaint(hwnd, "GdiAlphaBlend").size(), 1u);
    label.Destroy();
    DeleteObject(hBitmap);
}

} // namespace
