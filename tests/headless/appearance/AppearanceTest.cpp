// Which scheme is active, who hears of it, and whose colours hold.

#include "../../support/AllControls.h"
#include "../../support/AllowMisuse.h"
#include "../../support/WithBehavior.h"
#include "Exhibit.h"
#include "Picture.h"
#include "Schemes.h"

#include <gesso/framework/Module.h>

#include <future>
#include <thread>

extern "C" BOOL WINAPI DllMain(HINSTANCE hModule, DWORD dwReason, void* pProcessEnds);

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

// Which is drawn in what its parent answers.
TEST_F(AppearanceTest, ThePlatformsControlsBesideAControlRepaintToo)
{
    const Ground ground;
    const HWND hwndStatic = CreateWindowExW(0, L"Static", nullptr, WS_CHILD | WS_VISIBLE, 0, 0, 50, 20,
                                            ground, nullptr, nullptr, nullptr);
    GButton button;
    button.Create(0, 30, 50, 20, ground, 1, L"Text", 0, WS_CHILD | WS_VISIBLE);
    TakeRepaint(hwndStatic);
    SetColorScheme(ColorScheme::Dark);
    EXPECT_TRUE(TakeRepaint(hwndStatic));
    button.Destroy();
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

// Its own message may come before the library has heard.
TEST_F(AppearanceTest, AHostThatIsToldFirstAsksAnew)
{
    SetColorScheme(ColorScheme::System);
    SetProgramsDark(true);
    EXPECT_EQ(ActiveColorScheme(), ColorScheme::Light);
    SetColorScheme(gesso::GetColorScheme());
    EXPECT_EQ(ActiveColorScheme(), ColorScheme::Dark);
    EXPECT_EQ(gesso::GetColorScheme(), ColorScheme::System);
    SetProgramsDark(false);
}

// --- Who listens

// The window of the library's that hears of the system's changes, of this thread; null for none.
HWND Listener()
{
    for (const HWND hwnd : desk::TopLevelWindows()) {
        wchar_t name[32]{};
        GetClassNameW(hwnd, name, 32);
        if (Narrow(name) == "GessoAppearance") {
            return hwnd;
        }
    }
    return nullptr;
}

bool LeadsToPlatform(HWND hwnd)
{
    return GetWindowLongPtrW(hwnd, GWLP_WNDPROC) == reinterpret_cast<LONG_PTR>(DefWindowProcW);
}

TEST_F(AppearanceTest, TheListenerGoesWithTheLastControlAndComesWithTheNext)
{
    const Ground ground;
    SetColorScheme(ColorScheme::System);
    EXPECT_TRUE(Listener());
    GButton button;
    button.Create(0, 0, 50, 20, ground, 1, L"Text", 0, WS_CHILD | WS_VISIBLE);
    button.Destroy();
    EXPECT_FALSE(Listener());
    SetProgramsDark(true); // which nobody hears
    button.Create(0, 0, 50, 20, ground, 1, L"Text", 0, WS_CHILD | WS_VISIBLE);
    EXPECT_TRUE(Listener());
    EXPECT_EQ(ActiveColorScheme(), ColorScheme::Dark);
    button.Destroy();
    SetProgramsDark(false);
}

TEST_F(AppearanceTest, AControlThatPaintsListensWhereTheListenersThreadHasEnded)
{
    const Ground ground;
    GButton button;
    const HWND hwnd = button.Create(0, 0, 50, 20, ground, 1, L"Text", 0, WS_CHILD | WS_VISIBLE);
    std::thread([] { SetColorScheme(ColorScheme::System); }).join();
    EXPECT_FALSE(Listener());
    NextPaint(hwnd, "");
    ASSERT_TRUE(Listener());
    SetProgramsDark(true);
    SendMessageW(Listener(), WM_SETTINGCHANGE, 0, 0);
    EXPECT_EQ(ActiveColorScheme(), ColorScheme::Dark);
    button.Destroy();
    SetProgramsDark(false);
}

// The library's module may go before the window does.
TEST_F(AppearanceTest, AListenerThatIsLeftLeadsToThePlatformAlone)
{
    std::promise<HWND> made;
    std::promise<void> left;
    std::thread other([&] {
        SetColorScheme(ColorScheme::System);
        made.set_value(Listener());
        left.get_future().wait();
        desk::Pump();
        EXPECT_FALSE(Listener());
    });
    const HWND hwnd = made.get_future().get();
    EXPECT_FALSE(LeadsToPlatform(hwnd));
    SetColorScheme(ColorScheme::Dark);
    EXPECT_TRUE(LeadsToPlatform(hwnd)) << "the thread has not looked at its messages yet";
    left.set_value();
    other.join();

    SetColorScheme(ColorScheme::System);
    const HWND hwndOwn = Listener();
    DllMain(g_hModule, DLL_PROCESS_DETACH, nullptr);
    EXPECT_TRUE(LeadsToPlatform(hwndOwn));
    desk::Pump();
    EXPECT_FALSE(IsWindow(hwndOwn));
}

// --- Whose colours

// What is handed out is the context's own brush: neither are there too many shades for it, nor does one that
// somebody draws with go.
TEST_F(AppearanceTest, ADialogsGroundIsItsShadeWhateverWasPaintedBefore)
{
    const Ground ground;
    GButton button;
    const HWND hwnd = button.Create(0, 0, 50, 20, ground, 1, L"Text", 0, WS_CHILD | WS_VISIBLE);
    SetColorScheme(ColorScheme::Dark);
    for (int n = 0; n < 200; ++n) {
        gesso::SetColor(ColorRole::Accent, RGB(n, 255 - n, 7));
        gesso::SetColor(ColorRole::Panel, RGB(n, n, 0x40));
        NextPaint(hwnd, "");
    }
    gesso::SetColor(ColorRole::Accent, CLR_DEFAULT);
    gesso::SetColor(ColorRole::Panel, CLR_DEFAULT);
    button.Destroy();
    desk::WhenIdle([] {
        const HWND hDlg = GetActiveWindow();
        const HDC hdc = GetDC(hDlg);
        const auto hBrush =
            reinterpret_cast<HBRUSH>(SendMessageW(hDlg, WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(hdc), 0));
        desk::ClearDrawing(hDlg);
        const RECT rc{0, 0, 1, 1};
        FillRect(hdc, &rc, hBrush);
        EXPECT_EQ(desk::Drawing(hDlg), Lines{"FillRect (0,0,1,1) brush=2B2B2B"});
        ReleaseDC(hDlg, hdc);
        EndDialog(hDlg, IDCANCEL);
    });
    GTaskDialog::MessageBoxW(nullptr, L"Text", L"Title", MB_OK);
}

// The shade that most of a picture is filled with.
COLORREF MostOf(const Picture& picture)
{
    const auto shades = picture.Shades({0, 0, picture.Width(), picture.Height()});
    const auto fewer = [](const auto& a, const auto& b) { return a.second < b.second; };
    return std::max_element(shades.begin(), shades.end(), fewer)->first;
}

TEST_F(AppearanceTest, AHostsShadesReachWhatHasAShadeOfItsOwn)
{
    const Ground ground;
    GButton button;
    const HWND hwnd = button.Create(0, 0, 50, 20, ground, 1, L"Text", 0, WS_CHILD | WS_VISIBLE);
    SetColorScheme(ColorScheme::Dark);
    EXPECT_EQ(MostOf(Picture(hwnd)), RGB(0x38, 0x38, 0x38));
    gesso::SetColor(ColorRole::Panel, RGB(0x10, 0x20, 0xF8));
    EXPECT_EQ(MostOf(Picture(hwnd)), RGB(0x28, 0x38, 0xFF)) << "as much lighter as before";
    gesso::SetColor(ColorRole::Panel, CLR_DEFAULT);
    button.Destroy();
}

// In Light what the library paints by itself takes them, but for a colour that was set on the control.
TEST_F(AppearanceTest, AHostsShadesReachLightTexts)
{
    constexpr COLORREF OWN = RGB(0x12, 0x34, 0x56);
    const Ground ground;
    GLabel label, set;
    GTree tree;
    label.Create(0, 0, 50, 20, ground, 0, L"Text", 0, WS_CHILD | WS_VISIBLE);
    set.Create(0, 20, 50, 20, ground, 0, L"Text", 0, WS_CHILD | WS_VISIBLE);
    set.SetTextColor(0);
    tree.Create(0, 40, 100, 100, ground, 0, 0, WS_CHILD | WS_VISIBLE);
    tree.InsertItem(nullptr, nullptr, L"Item", 0, 0, nullptr);
    const auto color = [](GWnd& control) { return Picture(control.GetHwnd()).Texts().at(0).cr; };
    gesso::SetColor(ColorRole::PanelText, OWN);
    gesso::SetColor(ColorRole::WindowText, OWN);
    EXPECT_EQ(color(label), OWN);
    EXPECT_EQ(color(set), 0u);
    EXPECT_EQ(color(tree), OWN);
    gesso::SetColor(ColorRole::PanelText, CLR_DEFAULT);
    gesso::SetColor(ColorRole::WindowText, CLR_DEFAULT);
    EXPECT_EQ(color(label), 0u);
    EXPECT_EQ(color(tree), 0u);
    for (GWnd* pControl : {static_cast<GWnd*>(&label), static_cast<GWnd*>(&set), static_cast<GWnd*>(&tree)}) {
        DestroyWindow(pControl->GetHwnd());
    }
}

// In Light without a style; with one, or in the usual colours, they have their own shades.
TEST_F(AppearanceTest, WithoutAStyleTreesHaveTheSystemsGroundWhereItIsNotWhite)
{
    const Ground ground;
    GTree tree;
    const HWND hwnd = tree.Create(0, 0, 100, 100, ground, 0, 0, WS_CHILD | WS_VISIBLE);
    desk::SetSystemColor(COLOR_WINDOW, RGB(0x20, 0x20, 0x20));
    desk::SetSystemColor(COLOR_WINDOWTEXT, WHITE);
    EXPECT_EQ(Picture(hwnd).At(50, 50), WHITE);
    desk::SetThemed(false);
    EXPECT_EQ(Picture(hwnd).At(50, 50), RGB(0x20, 0x20, 0x20));
    desk::SetSystemColor(COLOR_WINDOW, WHITE);
    desk::SetSystemColor(COLOR_WINDOWTEXT, BLACK);
    desk::SetSystemColor(COLOR_GRAYTEXT, RGB(0x80, 0x80, 0x80));
    EXPECT_EQ(Picture(hwnd).At(50, 50), WHITE);
    tree.Destroy();
}

TEST_F(AppearanceTest, AHostsShadeReachesTheRowOfAValueMenuInLight)
{
    constexpr COLORREF OWN = RGB(0x12, 0x34, 0x56);
    const Ground ground;
    GRightClickMenu menu;
    const HWND hwnd = MakeExhibit(menu, ground);
    PointAt(hwnd, 20, 5);
    const auto color = [hwnd](size_t nRow) { return Picture(hwnd).Texts().at(nRow).cr; };
    EXPECT_EQ(color(0), 0u);
    gesso::SetColor(ColorRole::SelectionText, OWN);
    EXPECT_EQ(color(0), OWN);
    EXPECT_EQ(color(1), 0u);
    gesso::SetColor(ColorRole::SelectionText, CLR_DEFAULT);
    menu.Destroy();
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

// In a mirrored window it stays as it is, and of one that is larger than its window what shows is drawn.
TEST_F(AppearanceTest, ADisabledImageIsUprightAndOfAnySize)
{
    for (const int cx : {16, 5000}) {
        const HBITMAP hBitmap = CreateBitmap(cx, 16, 1, 32, nullptr);
        const Ground ground;
        GLabel label;
        const HWND hwnd = label.Create(0, 0, 50, 20, ground, 0, L"", WS_EX_LAYOUTRTL,
                                       WS_CHILD | WS_VISIBLE | WS_DISABLED | GS_BITMAP);
        label.SetBitmap(hBitmap);
        SetColorScheme(ColorScheme::Dark);
        const Lines blends = NextPaint(hwnd, "GdiAlphaBlend");
        ASSERT_EQ(blends.size(), 1u) << cx;
        EXPECT_EQ(blends[0].find("mirrored"), std::string::npos) << blends[0];
        label.Destroy();
        DeleteObject(hBitmap);
        SetColorScheme(ColorScheme::Light);
    }
}

// Without the focus the selection of a field that keeps showing it stands back.
TEST_F(AppearanceTest, AFieldsSelectionWithoutTheFocusIsInactive)
{
    const Modern modern;
    const Ground ground;
    GEdit edit;
    const HWND hwnd = MakeExhibit(edit, ground);
    SetWindowLongW(hwnd, GWL_STYLE, GetWindowLongW(hwnd, GWL_STYLE) | ES_NOHIDESEL);
    SendMessageW(hwnd, EM_SETSEL, 0, -1);
    SetColorScheme(ColorScheme::Dark);
    const auto shows = [hwnd](ColorRole role) {
        const Picture picture(hwnd);
        return picture.Shades({0, 0, picture.Width(), picture.Height()}).contains(ColorOf(role));
    };
    SetFocus(hwnd);
    EXPECT_TRUE(shows(ColorRole::Selection));
    SetFocus(ground);
    EXPECT_FALSE(shows(ColorRole::Selection));
    EXPECT_TRUE(shows(ColorRole::InactiveSelection));
    edit.Destroy();
}

} // namespace
