// What buttons, labels and bars do in Modern.

#include "../support/AllControls.h"
#include "../support/Host.h"
#include "../support/WithBehavior.h"

namespace {

using namespace test;

constexpr DWORD CHILD = WS_CHILD | WS_VISIBLE | WS_TABSTOP;

template <class BUTTON> class ModernButtonTest : public testing::Test
{
protected:
    LRESULT Send(UINT uMsg, WPARAM wParam = 0) { return SendMessageW(button, uMsg, wParam, 0); }

    Modern modern;
    Host host;
    BUTTON button;
};

using Buttons = testing::Types<GButton, GCheckBox, GRadioButton, GCommandButton, GNavigationButton>;
TYPED_TEST_SUITE(ModernButtonTest, Buttons);

TYPED_TEST(ModernButtonTest, AnswersAsThePlatformsButton)
{
    MakeControl(this->button, this->host, 12);
    SetFocus(this->host);
    this->host.TakeReports();
    this->Send(BM_CLICK);
    EXPECT_EQ(this->host.TakeReports(), Reports{"click 12"}) << "and takes no focus";
    EXPECT_EQ(this->Send(BM_GETSTATE), 0);
    this->Send(BM_SETSTATE, TRUE);
    EXPECT_EQ(this->Send(BM_GETSTATE), BST_PUSHED);
    this->Send(WM_LBUTTONUP);
    EXPECT_EQ(this->host.TakeReports(), Reports{}) << "nothing was pressed";
    this->Send(BM_SETSTATE, FALSE);
    SetFocus(this->button);
    EXPECT_EQ(this->Send(BM_GETSTATE), BST_FOCUS);

    EnableWindow(this->button, FALSE);
    this->host.TakeReports();
    this->Send(BM_CLICK);
    EXPECT_EQ(this->host.TakeReports(), Reports{});
}

TYPED_TEST(ModernButtonTest, AnAltKeyPressesItInAPlainWindow)
{
    if constexpr (requires { this->button.SetText(L""); }) {
        MakeControl(this->button, this->host, 12);
        this->button.SetText(L"&Go");
        this->host.TakeReports();
        MSG message{this->button, WM_SYSCHAR, 'g', 1 << 29, 0, {}};
        IsDialogMessageW(this->host, &message);
        const Reports reports = this->host.TakeReports();
        EXPECT_EQ(std::count(reports.begin(), reports.end(), "click 12"), 1);
    }
}

class ModernCheckTest : public testing::Test
{
protected:
    static void Click(HWND hwnd)
    {
        SendMessageW(hwnd, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
        SendMessageW(hwnd, WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
    }
    static void Press(HWND hwnd, WPARAM wKey)
    {
        SendMessageW(hwnd, WM_KEYDOWN, wKey, 0);
        SendMessageW(hwnd, WM_KEYUP, wKey, 0);
    }

    Modern modern;
    Host host;
};

TEST_F(ModernCheckTest, AClickGoesToTheNextMarkBeforeItIsTold)
{
    GCheckBox box;
    MakeControl(box, host, 12, CHILD | GBS_AUTO);
    std::vector<int> seen;
    host.onReport = [&](const std::string& report) {
        if (report == "click 12") {
            seen.push_back(box.GetCheck());
        }
    };
    Click(box);
    Press(box, VK_SPACE);
    SendMessageW(box, BM_CLICK, 0, 0);
    box.SetCheck(BST_INDETERMINATE);
    Click(box);
    EXPECT_EQ(seen, (std::vector{1, 0, 1, 0}));

    seen.clear();
    box.SetStyle(box.GetStyle() | GBS_3STATE);
    for (int i = 0; i < 3; i++) {
        Click(box);
    }
    EXPECT_EQ(seen, (std::vector{1, 2, 0}));

    seen.clear();
    box.SetStyle(box.GetStyle() & ~GBS_AUTO);
    Click(box);
    EXPECT_EQ(seen, std::vector{0});
}

TEST_F(ModernCheckTest, InClassicTheStylesDoNothing)
{
    const WithBehavior classic(gesso::Behavior::Classic);
    GCheckBox box;
    GRadioButton radio;
    MakeControl(box, host, 12, CHILD | GBS_AUTO | GBS_3STATE);
    MakeControl(radio, host, 13, CHILD | GBS_AUTO);
    Click(box);
    Click(radio);
    host.TakeReports();
    SendMessageW(box, BM_CLICK, 0, 0);
    EXPECT_EQ(host.TakeReports(), Reports{});
    EXPECT_EQ(box.GetCheck(), 0);
    EXPECT_EQ(radio.GetCheck(), 0);
    MSG message{radio, WM_KEYDOWN, VK_DOWN, 0, 0, {}};
    EXPECT_EQ(SendMessageW(radio, WM_GETDLGCODE, VK_DOWN, reinterpret_cast<LPARAM>(&message)),
              DLGC_BUTTON | DLGC_RADIOBUTTON);
}

class RadioGroupTest : public ModernCheckTest
{
protected:
    RadioGroupTest()
    {
        for (int i = 0; i < 5; i++) {
            MakeControl(radios[i], host, 20 + i, CHILD | GBS_AUTO | (i == 0 || i == 3 ? WS_GROUP : 0));
        }
    }
    std::string Marks() const
    {
        std::string marks;
        for (const GRadioButton& radio : radios) {
            marks += radio.GetCheck() ? 'x' : '-';
        }
        return marks;
    }
    std::string Stops() const
    {
        std::string stops;
        for (const GRadioButton& radio : radios) {
            stops += radio.GetStyle() & WS_TABSTOP ? 'T' : '-';
        }
        return stops;
    }

    GRadioButton radios[5]; // two groups, of three and of two
};

TEST_F(RadioGroupTest, AClickUnchecksTheOthersOfTheGroupBeforeItIsTold)
{
    Click(radios[4]);
    radios[0].SetCheck(BST_CHECKED);
    radios[1].SetCheck(BST_CHECKED);
    EXPECT_EQ(Marks(), "xx--x") << "a call unchecks nobody";
    ShowWindow(radios[0], SW_HIDE);
    std::string told;
    host.onReport = [&](const std::string& report) {
        if (report == "click 22") {
            told = Marks();
        }
    };
    Click(radios[2]);
    EXPECT_EQ(told, "--x-x") << "hidden ones too";
    Click(radios[2]);
    EXPECT_EQ(Marks(), "--x-x");
}

TEST_F(RadioGroupTest, TabStopsAtTheCheckedOneAlone)
{
    EXPECT_EQ(Stops(), "TTTTT");
    Click(radios[1]);
    EXPECT_EQ(Stops(), "-T-TT");
    radios[2].SetCheck(BST_CHECKED);
    EXPECT_EQ(Stops(), "--TTT");
    GRadioButton late;
    SetWindowPos(MakeControl(late, host, 30, CHILD | GBS_AUTO), radios[1], 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE);
    radios[1].SetCheck(BST_CHECKED);
    EXPECT_FALSE(late.GetStyle() & WS_TABSTOP);
    EXPECT_EQ(SendMessageW(radios[1], WM_GETDLGCODE, 0, 0), DLGC_BUTTON | DLGC_RADIOBUTTON);
}

TEST_F(RadioGroupTest, ArrowsMoveAndCheckAroundTheGroup)
{
    EnableWindow(radios[1], FALSE);
    SetFocus(radios[0]);
    MSG message{radios[0], WM_KEYDOWN, VK_DOWN, 0, 0, {}};
    EXPECT_TRUE(SendMessageW(radios[0], WM_GETDLGCODE, VK_DOWN, reinterpret_cast<LPARAM>(&message)) &
                DLGC_WANTARROWS);
    host.TakeReports();
    Press(radios[0], VK_DOWN);
    EXPECT_EQ(GetFocus(), radios[2]);
    EXPECT_EQ(Marks(), "--x--");
    const Reports reports = host.TakeReports();
    EXPECT_EQ(std::count(reports.begin(), reports.end(), "click 22"), 1);
    Press(radios[2], VK_RIGHT);
    EXPECT_EQ(Marks(), "x----");
    Press(radios[0], VK_UP);
    EXPECT_EQ(Marks(), "--x--");
    EnableWindow(radios[1], TRUE);
    Press(radios[2], VK_UP);
    EXPECT_EQ(Marks(), "-x---");
    Press(radios[1], VK_RIGHT);
    EXPECT_EQ(Marks(), "--x--");
}

TEST_F(RadioGroupTest, TheParentMayDestroyAnyOfThemInAClick)
{
    host.onReport = [&](const std::string& report) {
        if (report == "setfocus 22" || report == "click 21") {
            DestroyWindow(radios[2]);
            DestroyWindow(radios[0]);
        }
    };
    SetFocus(radios[1]);
    Press(radios[1], VK_DOWN);
    Click(radios[1]);
    EXPECT_EQ(radios[1].GetCheck(), BST_CHECKED);
}

TEST(ModernSecondCreate, KeepsWhatTheHostHasSetAndNothingElse)
{
    const Modern modern;
    const Host host;
    const HFONT hFont = CreateFontW(-30, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, L"Segoe UI");
    struct Probe : GCheckBox
    {
        using GCheckBox::m_dwState;
    };
    Probe box;
    box.SetFont(hFont);
    MakeControl(box, host);
    box.SetCheck(BST_CHECKED);
    SendMessageW(box, WM_MOUSEMOVE, 0, MAKELPARAM(5, 5));
    SendMessageW(box, WM_KEYDOWN, VK_SPACE, 0);
    MakeControl(box, host);
    EXPECT_EQ(box.GetFont(), hFont);
    EXPECT_EQ(box.GetCheck(), BST_CHECKED);
    EXPECT_EQ(box.m_dwState & (GWS_HOT | GWS_KEYDOWN | GWS_TRACKING), 0U);
    DeleteObject(hFont);
}

TEST(ModernIds, LabelsAndProgressBarsHaveTheirs)
{
    const Modern modern;
    const Host host;
    GLabel label;
    GProgressBar bar;
    EXPECT_EQ(GetDlgCtrlID(MakeControl(label, host, 12)), 12);
    EXPECT_EQ(GetDlgCtrlID(MakeControl(bar, host, 13)), 13);
}

} // namespace
