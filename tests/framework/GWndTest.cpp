// How objects and windows find each other and part again, seen through GButton and GLabel.

#include "../support/AllControls.h"
#include "../support/Interception.h"
#include "../support/Numbers.h"

#include <gtest/gtest.h>

namespace {

using namespace test;

constexpr DWORD CHILD = WS_CHILD | WS_VISIBLE;

// Shows the state bits, and tells when it is destroyed.
class ProbeButton : public GButton
{
public:
    ~ProbeButton() override
    {
        if (pfDestroyed) {
            *pfDestroyed = true;
        }
    }
    DWORD State() const { return m_dwState; }
    bool* pfDestroyed = nullptr;
};

class GWndTest : public testing::Test
{
protected:
    HWND Make(GButton& any, LPCWSTR pszText = L"Text")
    {
        return any.Create(10, 10, 100, 30, host, 7, pszText, 0, CHILD);
    }

    Host host; // whose end takes all windows along
    ProbeButton button;
};

TEST_F(GWndTest, ObjectFirstKeepsTheObjectTheCreators)
{
    bool fDestroyed = false;
    {
        ProbeButton probe;
        probe.pfDestroyed = &fDestroyed;
        const HWND hwnd = Make(probe);
        ASSERT_TRUE(hwnd);
        EXPECT_EQ(probe.GetHwnd(), hwnd);
        EXPECT_EQ(static_cast<HWND>(probe), hwnd);
        EXPECT_EQ(GWnd::FromHwnd(hwnd), &probe);
        EXPECT_EQ(probe.GetParent(), host.Window());
        EXPECT_EQ(GetDlgCtrlID(hwnd), 7);
        EXPECT_EQ(probe.State(), GWS_HIDEFOCUS | GWS_HIDEACCEL);
        EXPECT_EQ(GetWindowLongW(hwnd, 8), 0);
        EXPECT_EQ(probe.GetFont(), g_hDefaultFont);
        EXPECT_TRUE(DestroyWindow(hwnd));
        EXPECT_FALSE(fDestroyed);
        EXPECT_EQ(probe.GetTextLength(), 0) << "the text goes with the window";
    }
    EXPECT_TRUE(fDestroyed);
}

TEST_F(GWndTest, HostThatMakesTheWindowNamesItsObjectByTheTag)
{
    stcCreateTag tag{0xFFFF, &button};
    for (const auto& [dwExStyle, hwndParent] : {std::pair(DWORD{0}, host.Window()),
                                                {WS_EX_NOPARENTNOTIFY, host.Window()},
                                                {WS_EX_NOPARENTNOTIFY, HWND()}})
    {
        const HWND hwnd = CreateWindowExW(dwExStyle, L"GButton", L"", hwndParent ? CHILD : WS_POPUP, 0, 0, 80,
                                          20, hwndParent, nullptr, nullptr, &tag);
        EXPECT_EQ(GWnd::FromHwnd(hwnd), &button);
        EXPECT_EQ(button.GetHwnd(), hwnd);
        EXPECT_EQ(GetWindowLongW(hwnd, 8), 0) << "which stays the host's";
        DestroyWindow(hwnd);
    }
}

TEST_F(GWndTest, ObjectThatIsTaggedForASecondWindowLeavesTheFirst)
{
    stcCreateTag tag{0xFFFF, &button};
    const auto make = [&] {
        return CreateWindowExW(0, L"GButton", L"", CHILD, 0, 0, 80, 20, host, nullptr, nullptr, &tag);
    };
    const HWND first = make();
    const HWND second = make();
    EXPECT_EQ(button.GetHwnd(), second);
    button.SetText(L"kept");
    UpdateWindow(first);
    EXPECT_TRUE(DestroyWindow(first));
    EXPECT_EQ(button.GetTextLength(), 4) << "the text goes with the second window";
}

TEST_F(GWndTest, DeletingAnObjectLeavesItsWindowWithoutOne)
{
    auto* pButton = new GButton;
    const HWND hwnd = Make(*pButton);
    pButton->Delete(pButton);
    ASSERT_TRUE(IsWindow(hwnd));
    SendMessageW(hwnd, WM_LBUTTONDOWN, 0, MAKELPARAM(5, 5));
    SendMessageW(hwnd, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"nobody's"));
    UpdateWindow(hwnd);
    EXPECT_TRUE(DestroyWindow(hwnd));
}

// Under the sanitizers, any touch of an object after its end shows here.
TEST_F(GWndTest, ObjectThatTheParentDeletesDuringCreateIsNotTouchedAgain)
{
    for (const bool fWindowToo : {false, true}) {
        auto* pButton = new GButton;
        Interception told(host, WM_PARENTNOTIFY, [&] {
            if (fWindowToo) {
                DestroyWindow(*pButton);
            }
            pButton->Delete(pButton);
        });
        const HWND hwnd = Make(*pButton);
        EXPECT_TRUE(told.Happened());
        EXPECT_EQ(DestroyWindow(hwnd), fWindowToo ? FALSE : TRUE) << "it stays, without an object";
    }
}

TEST_F(GWndTest, SecondCreateMovesTheObjectToTheNewWindow)
{
    const HWND hwndFirst = Make(button, L"first");
    const HWND hwndSecond = Make(button, L"second");
    ASSERT_TRUE(hwndSecond);
    EXPECT_NE(hwndFirst, hwndSecond);
    EXPECT_EQ(button.GetHwnd(), hwndSecond);
    UpdateWindow(hwndFirst);
    DestroyWindow(hwndFirst);
    EXPECT_EQ(TextOf(hwndSecond), "second");
    DestroyWindow(hwndSecond);

    const HWND hwndThird = Make(button, L"third");
    EXPECT_EQ(TextOf(hwndThird), "third");
}

TEST_F(GWndTest, CopiesShareAndOwnNothing)
{
    const HWND hwnd = Make(button, L"shared");
    {
        GButton copy(button);
        EXPECT_EQ(copy.GetHwnd(), hwnd);
        EXPECT_EQ(copy.GetTextLength(), 6);
        GButton assigned;
        assigned = copy;
        assigned.SetText(L"its own");
        EXPECT_EQ(assigned.GetTextLength(), 7);
    }
    EXPECT_EQ(TextOf(hwnd), "shared");
    EXPECT_EQ(GWnd::FromHwnd(hwnd), &button);
}

TEST_F(GWndTest, CopyKeepsTheTextThatItsOriginalLets)
{
    GButton copy;
    {
        GButton original;
        const HWND hwnd = Make(original, L"shared");
        copy = original;
        original.SetText(L"the original's next");
        EXPECT_EQ(copy.GetTextLength(), 6);
        copy = original;
        DestroyWindow(hwnd);
    }
    wchar_t buffer[32];
    int nLength = 32;
    EXPECT_EQ(copy.GetText(buffer, &nLength), 1);
    EXPECT_EQ(Narrow(buffer), "the original's next");
}

TEST_F(GWndTest, AssignmentLeavesTheFormerWindowWithoutAnObject)
{
    GButton source;
    const HWND hwndSource = Make(source, L"source");
    {
        GButton target;
        const HWND hwndFormer = Make(target, L"former");
        target = source;
        EXPECT_EQ(target.GetHwnd(), hwndSource);
        UpdateWindow(hwndFormer);
        EXPECT_TRUE(DestroyWindow(hwndFormer));
        EXPECT_EQ(TextOf(hwndSource), "source") << "the other window was parted from its object";
        target = source;
        Make(target, L"again");
        target = source;
    }
    DispatchAll();
    EXPECT_EQ(TextOf(hwndSource), "source");
}

TEST_F(GWndTest, WithoutAWindowOperationsDoNothing)
{
    TakeRepaint(host);
    button.Invalidate(1);
    button.SetText(L"kept");
    EXPECT_FALSE(TakeRepaint(host)) << "a null window must not mean all windows";
    RECT rc{1, 2, 3, 4};
    EXPECT_EQ(button.GetPos(&rc), 0);
    EXPECT_EQ(Numbers(rc), "1,2,3,4");
    EXPECT_EQ(button.MoveWindow(0, 0, 10, 10), 0);
    EXPECT_EQ(button.SetVisible(1), 0);
    EXPECT_EQ(button.GetParent(), nullptr);
    EXPECT_EQ(button.Destroy(), 0);
    EXPECT_EQ(button.GetTextLength(), 4);
}

TEST_F(GWndTest, CreateThatFailsGivesNullAndCanBeRepeated)
{
    EXPECT_EQ(button.Create(0, 0, 10, 10, nullptr, 1, L"child without a parent", 0, WS_CHILD), nullptr);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_TLW_WITH_WSCHILD)) << "the wrapped call's own error";
    EXPECT_EQ(button.GetHwnd(), nullptr);
    const HWND hwnd = Make(button, L"second try");
    EXPECT_EQ(TextOf(hwnd), "second try");
}

TEST_F(GWndTest, PositionAndVisibility)
{
    const HWND hwnd = Make(button);
    button.MoveWindow(20, 30, 60, 25);
    RECT rc{};
    button.GetPos(&rc);
    EXPECT_EQ(Numbers(rc), Numbers(PlaceIn(nullptr, hwnd)));
    EXPECT_EQ(Numbers(PlaceIn(host, hwnd)), "20,30,80,55");
    EXPECT_NE(button.SetVisible(0), 0);
    EXPECT_FALSE(IsWindowVisible(hwnd));
    EXPECT_EQ(button.SetVisible(1), 0);
    EXPECT_TRUE(IsWindowVisible(hwnd));
}

TEST_F(GWndTest, SetTextWithTheControlsOwnText)
{
    class Exposed : public GButton
    {
    public:
        LPCWSTR Own() const { return m_pszText; }
    } exposed;
    const HWND hwnd = Make(exposed, L"my own");
    exposed.SetText(exposed.Own() + 3);
    EXPECT_EQ(TextOf(hwnd), "own");
}

TEST_F(GWndTest, UiStateFollowsThePlatformsActions)
{
    const HWND hwnd = Make(button);
    const std::tuple<WORD, WORD, DWORD> steps[] = {
        {UIS_CLEAR, UISF_HIDEFOCUS, GWS_HIDEACCEL},
        {UIS_SET, UISF_HIDEFOCUS, GWS_HIDEFOCUS | GWS_HIDEACCEL},
        {UIS_CLEAR, UISF_HIDEFOCUS | UISF_HIDEACCEL, 0},
        {UIS_SET, UISF_ACTIVE, 0},
        {UIS_INITIALIZE, UISF_HIDEACCEL, GWS_HIDEACCEL},
        {UIS_INITIALIZE, 0, 0},
        {77, UISF_HIDEFOCUS, 0},
    };
    for (const auto& [action, state, after] : steps) {
        TakeRepaint(hwnd);
        SendMessageW(hwnd, WM_UPDATEUISTATE, MAKEWPARAM(action, state), 0);
        EXPECT_EQ(button.State(), after) << action << " " << state;
        EXPECT_TRUE(TakeRepaint(hwnd)) << action;
    }
}

TEST_F(GWndTest, Window2RunsOnAnObjectOfItsOwnAndEndsTheLoop)
{
    GWindow2 window;
    const HWND hwnd = window.Create(0, 0, 200, 100, nullptr);
    ASSERT_TRUE(hwnd);
    EXPECT_EQ(window.GetHwnd(), nullptr);
    EXPECT_EQ(window.Destroy(), 0);
    GWnd* pOwn = GWnd::FromHwnd(hwnd);
    ASSERT_TRUE(dynamic_cast<GWindow2*>(pOwn));
    EXPECT_NE(pOwn, &window);
    EXPECT_EQ(pOwn->GetHwnd(), hwnd);
    EXPECT_EQ(GetWindowLongW(hwnd, GWL_STYLE) & WS_OVERLAPPEDWINDOW, WS_OVERLAPPEDWINDOW);

    SendMessageW(hwnd, WM_CLOSE, 0, 0);
    EXPECT_FALSE(IsWindow(hwnd));
    MSG msg{};
    EXPECT_EQ(GetMessageW(&msg, nullptr, WM_QUIT, WM_QUIT), 0) << "the quit message must be there";
    DispatchAll();
    EXPECT_EQ(pOwn->GetHwnd(), hwnd) << "it outlives its window, for whoever has it";
    pOwn->Delete(pOwn);
}

// --- What every control with a text answers

template <class CONTROL> class ControlTextTest : public testing::Test
{
protected:
    Host host;
    CONTROL control;
};

// The others have no text of their own.
using TextControls = AllControlsBut<GNavigationButton, GProgressBar, GSeparator, GScrollbar, GList, GTree,
                                    GNavigationBar, GRibbon, GRightClickMenu>;
TYPED_TEST_SUITE(ControlTextTest, TextControls);

TYPED_TEST(ControlTextTest, GoesInAndOutWithTheStatedCounts)
{
    const HWND hwnd = MakeControl(this->control, this->host);
    EXPECT_EQ(this->control.SetText(L"hello"), 1);
    EXPECT_EQ(this->control.GetTextLength(), 5);
    wchar_t buffer[16];
    const auto get = [&](WPARAM nCapacity) {
        wmemset(buffer, L'#', 16);
        return SendMessageW(hwnd, WM_GETTEXT, nCapacity, reinterpret_cast<LPARAM>(buffer));
    };
    EXPECT_EQ(get(6), 5);
    EXPECT_EQ(Narrow(buffer), "hello");
    EXPECT_EQ(get(5), 5) << "a truncated text answers with the capacity";
    EXPECT_EQ(Narrow(buffer), "hell");
    EXPECT_EQ(get(1), 1);
    EXPECT_EQ(Narrow(buffer), "");
    EXPECT_EQ(get(0), 0);
    EXPECT_EQ(buffer[0], L'#');

    int nLength = 5;
    EXPECT_EQ(this->control.GetText(buffer, &nLength), 0);
    EXPECT_EQ(nLength, 6);
    EXPECT_EQ(buffer[0], L'#') << "nothing is written where not all of it fits";
    EXPECT_EQ(this->control.GetText(buffer, &nLength), 1);
    EXPECT_EQ(nLength, 5);
    EXPECT_EQ(SendMessageW(hwnd, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"next")), 1);
    EXPECT_EQ(SendMessageW(hwnd, WM_GETTEXTLENGTH, 0, 0), 4);
    EXPECT_EQ(this->control.SetText(nullptr), 1);
    EXPECT_EQ(TextOf(hwnd), "");
    nLength = -1;
    EXPECT_EQ(this->control.GetText(buffer, &nLength), 0);
    EXPECT_EQ(this->control.GetText(nullptr, nullptr), 0);
    this->control.SetText(L"hello");
    EXPECT_EQ(get(UINT_MAX), 5);
    EXPECT_EQ(SendMessageW(hwnd, WM_GETTEXT, 6, 0), 0);
    nLength = 7;
    EXPECT_EQ(this->control.GetText(nullptr, &nLength), 0);
    EXPECT_EQ(nLength, 6);
}

} // namespace
