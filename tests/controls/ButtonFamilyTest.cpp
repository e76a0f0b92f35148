// What the buttons have alike: how a click comes about, and that each survives being destroyed in any report.

#include "ButtonFixture.h"

#include <typeinfo>

namespace {

using namespace test;

template <class CONTROL> class ButtonFamilyTest : public ButtonFixture<CONTROL>
{};

using Family = testing::Types<GButton, GCheckBox, GRadioButton, GCommandButton, GNavigationButton>;
TYPED_TEST_SUITE(ButtonFamilyTest, Family);

TYPED_TEST(ButtonFamilyTest, MouseClicksOnReleaseInside)
{
    this->Focus();
    this->Mouse(WM_LBUTTONDOWN);
    EXPECT_EQ(GetCapture(), this->control.GetHwnd());
    EXPECT_EQ(this->control.Held(), GWS_PRESSED);
    this->Mouse(WM_LBUTTONUP);
    EXPECT_EQ(this->host.TakeReports(), Reports{"click 12"});
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_EQ(this->control.Held(), GWS_HOT);

    this->Mouse(WM_LBUTTONUP);
    EXPECT_EQ(this->host.TakeReports(), Reports{}) << "a release without a press";

    this->Mouse(WM_LBUTTONDOWN);
    this->Mouse(WM_MOUSEMOVE, -1, 5);
    this->Mouse(WM_LBUTTONUP, -1, 5);
    EXPECT_EQ(this->host.TakeReports(), Reports{}) << "dragged out";
    EXPECT_EQ(this->control.Held(), 0u);

    this->Mouse(WM_LBUTTONDOWN);
    this->Mouse(WM_MOUSEMOVE, 5, BUTTON_HEIGHT + 1);
    EXPECT_EQ(this->control.Held(), GWS_PRESSED);
    this->Mouse(WM_MOUSEMOVE);
    this->Mouse(WM_LBUTTONUP, BUTTON_WIDTH, BUTTON_HEIGHT);
    EXPECT_EQ(this->host.TakeReports(), Reports{"click 12"})
        << "dragged back in; the right and bottom edges are inside";

    for (const POINT pt : {POINT{BUTTON_WIDTH + 1, 5}, POINT{5, BUTTON_HEIGHT + 1}}) {
        this->Mouse(WM_LBUTTONDOWN);
        this->Mouse(WM_LBUTTONUP, pt.x, pt.y);
        EXPECT_EQ(this->host.TakeReports(), Reports{});
    }
}

TYPED_TEST(ButtonFamilyTest, IsHitUpToItsEdgesTheLastOnesIncluded)
{
    EXPECT_TRUE(this->control.Hits(0, 0));
    EXPECT_TRUE(this->control.Hits(BUTTON_WIDTH, BUTTON_HEIGHT));
    for (const POINT pt : {POINT{-1, 5}, {5, -1}, {BUTTON_WIDTH + 1, 5}, {5, BUTTON_HEIGHT + 1}}) {
        EXPECT_FALSE(this->control.Hits(pt.x, pt.y)) << pt.x << "," << pt.y;
    }
}

TYPED_TEST(ButtonFamilyTest, SpaceClicksOnRelease)
{
    this->Focus();
    this->Send(WM_KEYDOWN, VK_SPACE);
    EXPECT_EQ(this->control.Held(), GWS_KEYDOWN);
    EXPECT_EQ(this->host.TakeReports(), Reports{});
    this->Send(WM_KEYUP, VK_SPACE);
    EXPECT_EQ(this->host.TakeReports(), Reports{"click 12"});
    this->Send(WM_KEYUP, VK_SPACE);
    this->Send(WM_KEYDOWN, VK_RETURN);
    this->Send(WM_KEYUP, VK_RETURN);
    EXPECT_EQ(this->host.TakeReports(), Reports{}) << "a release without a press, and another key";
    EXPECT_EQ(this->control.Held(), 0u);
}

TYPED_TEST(ButtonFamilyTest, KeyAndMouseTogetherClickOnceAtTheLastReleaseExceptOnTheBackButton)
{
    this->Focus();
    this->Send(WM_KEYDOWN, VK_SPACE);
    this->Mouse(WM_LBUTTONDOWN);
    this->Send(WM_KEYUP, VK_SPACE);
    EXPECT_EQ(this->host.TakeReports(), Reports{});
    this->Mouse(WM_LBUTTONUP);
    EXPECT_EQ(this->host.TakeReports(), Reports{"click 12"});

    this->Send(WM_KEYDOWN, VK_SPACE);
    this->Mouse(WM_LBUTTONDOWN);
    this->Mouse(WM_LBUTTONUP);
    const bool fBack = std::is_same_v<TypeParam, GNavigationButton>;
    EXPECT_EQ(this->host.TakeReports(), fBack ? Reports{"click 12"} : Reports{});
    this->Send(WM_KEYUP, VK_SPACE);
    EXPECT_EQ(this->host.TakeReports(), Reports{"click 12"});
}

TYPED_TEST(ButtonFamilyTest, FocusIsReportedAndLosingItClicksAHeldKey)
{
    SetFocus(this->control);
    EXPECT_EQ(this->host.TakeReports(), Reports{"setfocus 12"});
    SetFocus(this->host);
    EXPECT_EQ(this->host.TakeReports(), Reports{"killfocus 12"});

    this->Focus();
    this->Send(WM_KEYDOWN, VK_SPACE);
    SetFocus(this->host);
    EXPECT_EQ(this->host.TakeReports(), (Reports{"click 12", "killfocus 12"}));
    EXPECT_EQ(this->control.Held(), 0u);

    this->Focus();
    this->Mouse(WM_LBUTTONDOWN);
    this->Send(WM_KEYDOWN, VK_SPACE);
    SetFocus(this->host);
    EXPECT_EQ(this->host.TakeReports(), Reports{"killfocus 12"}) << "the mouse still holds the click";
}

TYPED_TEST(ButtonFamilyTest, CaptureThatGoesElsewhereEndsThePress)
{
    this->Focus();
    this->Mouse(WM_LBUTTONDOWN);
    SetCapture(this->host);
    EXPECT_EQ(this->control.Held(), 0u);
    this->Mouse(WM_LBUTTONUP);
    EXPECT_EQ(this->host.TakeReports(), Reports{});
}

TYPED_TEST(ButtonFamilyTest, MovingThePointerRepaintsOnlyOnAChange)
{
    this->Mouse(WM_MOUSEMOVE);
    EXPECT_TRUE(TakeRepaint(this->control));
    this->Mouse(WM_MOUSEMOVE, 6, 6);
    EXPECT_FALSE(TakeRepaint(this->control));
    EXPECT_EQ(this->control.Held(), GWS_HOT);
    this->Send(WM_MOUSELEAVE);
    EXPECT_TRUE(TakeRepaint(this->control));
    EXPECT_EQ(this->control.Held(), 0u);
}

TYPED_TEST(ButtonFamilyTest, ParentMayDestroyTheButtonInEveryReport)
{
    const LPARAM inside = MAKELPARAM(5, 5);
    this->ExpectSurvival("setfocus", [](HWND hwnd) { SetFocus(hwnd); });
    this->ExpectSurvival("setfocus", [&](HWND hwnd) { SendMessageW(hwnd, WM_LBUTTONDOWN, 0, inside); });
    this->ExpectSurvival("killfocus", [&](HWND hwnd) {
        SetFocus(hwnd);
        SetFocus(this->host);
    });
    this->ExpectSurvival("click", [&](HWND hwnd) {
        SendMessageW(hwnd, WM_LBUTTONDOWN, 0, inside);
        SendMessageW(hwnd, WM_LBUTTONUP, 0, inside);
    });
    this->ExpectSurvival("click", [](HWND hwnd) {
        SendMessageW(hwnd, WM_KEYDOWN, VK_SPACE, 0);
        SendMessageW(hwnd, WM_KEYUP, VK_SPACE, 0);
    });
    this->ExpectSurvival("click", [&](HWND hwnd) {
        SetFocus(hwnd);
        SendMessageW(hwnd, WM_KEYDOWN, VK_SPACE, 0);
        SetFocus(this->host);
    });
}

// --- Those with a text

template <class CONTROL> class TextButtonTest : public ButtonFixture<CONTROL>
{};

using TextButtons = testing::Types<GButton, GCheckBox, GRadioButton, GCommandButton>;
TYPED_TEST_SUITE(TextButtonTest, TextButtons);

TYPED_TEST(TextButtonTest, TextAndFontGoInAndOut)
{
    TypeParam& button = this->control;
    EXPECT_EQ(TextOf(button), "Text");
    this->Send(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"Other"));
    EXPECT_EQ(TextOf(button), "Other");
    EXPECT_EQ(button.GetTextLength(), 5);

    const HFONT hFont = CreateFontW(-20, 0, 0, 0, 400, 0, 0, 0, 0, 0, 0, 0, 0, L"Segoe UI");
    const HFONT hFormer = button.GetFont();
    ASSERT_TRUE(hFormer);
    TakeRepaint(button);
    EXPECT_EQ(this->Send(WM_SETFONT, reinterpret_cast<WPARAM>(hFont), FALSE), 0);
    EXPECT_FALSE(TakeRepaint(button));
    EXPECT_EQ(this->Send(WM_GETFONT), reinterpret_cast<LRESULT>(hFont));
    this->Send(WM_SETFONT, 0, TRUE);
    EXPECT_TRUE(TakeRepaint(button));
    EXPECT_EQ(button.GetFont(), nullptr);
    UpdateWindow(button);
    button.SetFont(hFormer);
    DeleteObject(hFont);
}

TYPED_TEST(TextButtonTest, DisablingAndUiStateReachTheState)
{
    EXPECT_EQ(this->control.State(), GWS_HIDEFOCUS | GWS_HIDEACCEL);
    this->Mouse(WM_MOUSEMOVE);
    this->Send(WM_KEYDOWN, VK_SPACE);
    this->Mouse(WM_LBUTTONDOWN);
    EXPECT_EQ(this->control.State() & 7, GWS_HOT | GWS_KEYDOWN | GWS_PRESSED);
    EnableWindow(this->control, FALSE);
    EXPECT_EQ(this->control.State() & 7, 0u);
    this->Send(WM_UPDATEUISTATE, MAKEWPARAM(UIS_INITIALIZE, 0));
    EXPECT_EQ(this->control.State() & (GWS_HIDEFOCUS | GWS_HIDEACCEL), 0u);
}

// --- Those that may be a dialog's default

template <class CONTROL> class DefaultableButtonTest : public ButtonFixture<CONTROL>
{};

using DefaultableButtons = testing::Types<GButton, GCommandButton>;
TYPED_TEST_SUITE(DefaultableButtonTest, DefaultableButtons);

TYPED_TEST(DefaultableButtonTest, DefaultButtonFollowsBmSetstyle)
{
    EXPECT_EQ(this->Send(WM_GETDLGCODE), DLGC_BUTTON | DLGC_UNDEFPUSHBUTTON);
    TakeRepaint(this->control);
    this->Send(BM_SETSTYLE, BS_DEFPUSHBUTTON, TRUE);
    EXPECT_TRUE(TakeRepaint(this->control));
    EXPECT_EQ(this->Send(WM_GETDLGCODE), DLGC_BUTTON | DLGC_DEFPUSHBUTTON);
    EXPECT_TRUE(this->control.GetStyle() & GBS_DEFAULT);
    this->Send(BM_SETSTYLE, BS_PUSHBUTTON, FALSE);
    EXPECT_EQ(this->Send(WM_GETDLGCODE), DLGC_BUTTON | DLGC_UNDEFPUSHBUTTON);
}

// --- Made by the window, as in a dialog

TEST(MadeByName, EachClassMakesItsOwnObjectReadsItsCreationDataAndDeletesTheObject)
{
    const Host host;
    const wchar_t data[] = L"\x0001"
                           L"From the template";
    struct
    {
        LPCWSTR pszClass;
        const std::type_info& type;
        bool fText;
    } const rows[] = {
        {L"GLabel", typeid(GLabel), true},
        {L"GButton", typeid(GButton), true},
        {L"GCheckBox", typeid(GCheckBox), true},
        {L"GRadioButton", typeid(GRadioButton), true},
        {L"GEdit", typeid(GEdit), true},
        {L"GComboBox", typeid(GComboBox), true},
        {L"GNavigationButton", typeid(GNavigationButton), false},
        {L"GProgressBar", typeid(GProgressBar), false},
    };
    for (const auto& row : rows) {
        for (const wchar_t* pData : {data, static_cast<const wchar_t*>(nullptr)}) {
            const HWND hwnd =
                CreateWindowExW(0, row.pszClass, row.fText ? L"a title does not count" : L"", BUTTON_STYLE, 0,
                                0, 80, 20, host, nullptr, nullptr, const_cast<wchar_t*>(pData));
            const GWnd* pControl = GWnd::FromHwnd(hwnd);
            ASSERT_TRUE(pControl) << Narrow(row.pszClass);
            EXPECT_EQ(typeid(*pControl), row.type);
            EXPECT_EQ(GetWindowLongW(hwnd, 8) & 1, 1);
            EXPECT_EQ(TextOf(hwnd), row.fText && pData ? "From the template" : "");
            UpdateWindow(hwnd);
            EXPECT_TRUE(DestroyWindow(hwnd));
            EXPECT_EQ(GWnd::FromHwnd(hwnd), nullptr);
        }
    }
}

} // namespace
