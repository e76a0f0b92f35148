// What all controls have of both behaviours.

#include "../support/AllControls.h"
#include "../support/AllowMisuse.h"
#include "../support/Interception.h"
#include "../support/WithBehavior.h"

namespace {

using namespace test;
using gesso::Behavior;

// Tells of each WM_CONTEXTMENU that a window gets, while it lives.
class Contexts
{
public:
    using Told = std::function<void(WPARAM wParam, LPARAM lParam)>;
    Contexts(HWND hwnd, Told told) : m_hWnd(hwnd), m_told(std::move(told))
    {
        s_pCurrent = this;
        m_pfnFormer = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrW(hwnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(WindowProc)));
    }
    ~Contexts() { SetWindowLongPtrW(m_hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(m_pfnFormer)); }
    Contexts(const Contexts&) = delete;
    Contexts& operator=(const Contexts&) = delete;

private:
    static LRESULT CALLBACK WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
    {
        if (uMsg == WM_CONTEXTMENU) {
            s_pCurrent->m_told(wParam, lParam);
            return 0;
        }
        return CallWindowProcW(s_pCurrent->m_pfnFormer, hwnd, uMsg, wParam, lParam);
    }

    static inline Contexts* s_pCurrent = nullptr;
    HWND m_hWnd;
    Told m_told;
    WNDPROC m_pfnFormer;
};

template <class CONTROL> class BehaviorTest : public testing::Test
{
protected:
    Host host;
};

TYPED_TEST_SUITE(BehaviorTest, AllControlsBut<GRightClickMenu>);

TYPED_TEST(BehaviorTest, AControlKeepsWhatItWasMadeWith)
{
    TypeParam control;
    const HWND hwndClassic = MakeAnyControl(control, this->host);
    EXPECT_EQ(gesso::BehaviorOf(hwndClassic), Behavior::Classic);
    TypeParam other;
    HWND hwndModern = nullptr;
    {
        const Modern modern;
        EXPECT_EQ(gesso::BehaviorOf(hwndClassic), Behavior::Classic);
        hwndModern = MakeAnyControl(other, this->host);
    }
    EXPECT_EQ(gesso::BehaviorOf(hwndModern), Behavior::Modern) << "also once the process has the other one";
    DestroyWindow(hwndModern);
    EXPECT_EQ(gesso::BehaviorOf(hwndModern), Behavior::Classic);
    EXPECT_EQ(gesso::BehaviorOf(MakeAnyControl(other, this->host)), Behavior::Classic)
        << "a second window takes the behaviour of then";
}

TYPED_TEST(BehaviorTest, RedrawHoldsThePaintsOfAModernControlAndShowsNone)
{
    const Modern modern;
    TypeParam control;
    const HWND hwnd = MakeAnyControl(control, this->host);
    UpdateWindow(hwnd);
    SendMessageW(hwnd, WM_SETREDRAW, FALSE, 0);
    EXPECT_TRUE(IsWindowVisible(hwnd));
    control.Invalidate(0);
    UpdateWindow(hwnd);
    EXPECT_FALSE(GetUpdateRect(hwnd, nullptr, FALSE)) << "no loop of paints that do not happen";
    SendMessageW(hwnd, WM_SETREDRAW, TRUE, 0);
    RECT rcUpdate{};
    RECT rcClient{};
    GetUpdateRect(hwnd, &rcUpdate, FALSE);
    GetClientRect(hwnd, &rcClient);
    EXPECT_TRUE(EqualRect(&rcUpdate, &rcClient));

    ShowWindow(hwnd, SW_HIDE);
    SendMessageW(hwnd, WM_SETREDRAW, FALSE, 0);
    SendMessageW(hwnd, WM_SETREDRAW, TRUE, 0);
    EXPECT_FALSE(IsWindowVisible(hwnd));
}

TYPED_TEST(BehaviorTest, TheMenuKeyAndTheRightButtonAskTheParent)
{
    // A text field asks by EN_CONTEXTMENU, and has a menu of its own.
    constexpr bool TEXT_FIELD = std::is_same_v<TypeParam, GEdit> || std::is_same_v<TypeParam, GComboBox>;
    const Modern modern;
    TypeParam control;
    const HWND hwnd = MakeAnyControl(control, this->host);
    if constexpr (TEXT_FIELD) {
        const Interception told(this->host, WM_COMMAND, [&] { control.Destroy(); });
        SendMessageW(hwnd, WM_KEYUP, VK_APPS, 0);
        EXPECT_TRUE(told.Happened());
        return;
    }
    HWND hwndAsked = nullptr;
    LPARAM lWhere = 0;
    const auto asked = [&](WPARAM wParam, LPARAM lParam) {
        hwndAsked = reinterpret_cast<HWND>(wParam);
        lWhere = lParam;
    };
    const Contexts contexts(this->host, asked);
    SendMessageW(hwnd, WM_KEYUP, VK_APPS, 0);
    EXPECT_EQ(hwndAsked, hwnd);
    EXPECT_EQ(lWhere, -1);

    hwndAsked = nullptr;
    SendMessageW(hwnd, WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(5, 6));
    SendMessageW(hwnd, WM_RBUTTONUP, 0, MAKELPARAM(5, 6));
    POINT pt{5, 6};
    ClientToScreen(hwnd, &pt);
    EXPECT_EQ(hwndAsked, hwnd);
    EXPECT_EQ(lWhere, MAKELPARAM(pt.x, pt.y));
}

TYPED_TEST(BehaviorTest, AKeyShowsTheCuesOfAllAndOfThoseMadeLater)
{
    struct Shown : TypeParam
    {
        DWORD Hidden() const { return this->m_dwState & (GWS_HIDEFOCUS | GWS_HIDEACCEL); }
    };
    const Modern modern;
    Shown first;
    Shown second;
    Shown later;
    const HWND hwnd = MakeAnyControl(first, this->host);
    MakeAnyControl(second, this->host);
    const DWORD dwHidden = second.Hidden(); // none, of controls that have no cues
    SendMessageW(hwnd, WM_KEYDOWN, 'A', 0);
    EXPECT_EQ(second.Hidden(), dwHidden);
    MSG message{hwnd, WM_KEYDOWN, VK_TAB, 0, 0, {}};
    SendMessageW(hwnd, WM_GETDLGCODE, VK_TAB, reinterpret_cast<LPARAM>(&message));
    EXPECT_EQ(second.Hidden(), dwHidden & GWS_HIDEACCEL);
    SendMessageW(hwnd, WM_SYSKEYDOWN, VK_MENU, 1 << 29);
    EXPECT_EQ(second.Hidden(), 0U);
    MakeAnyControl(later, this->host);
    EXPECT_EQ(later.Hidden(), 0U);
}

TYPED_TEST(BehaviorTest, AWindowDeletesTheObjectThatItOwns)
{
    static int s_nDeleted;
    struct Counted : TypeParam
    {
        ~Counted() override { ++s_nDeleted; }
    };
    s_nDeleted = 0;
    auto* pOwned = new Counted;
    {
        const AllowMisuse allow;
        gesso::OwnByWindow(pOwned);
        gesso::OwnByWindow(nullptr);
    }
    const HWND hwnd = MakeAnyControl(*pOwned, this->host);
    gesso::OwnByWindow(pOwned);
    DestroyWindow(hwnd);
    EXPECT_EQ(s_nDeleted, 1);
}

TEST(KeyboardCues, AHostShowsThemInAWindow)
{
    struct Shown : GButton
    {
        DWORD Hidden() const { return m_dwState & (GWS_HIDEFOCUS | GWS_HIDEACCEL); }
    };
    const Host host;
    Shown button;
    MakeAnyControl(button, host);
    const DWORD dwHidden = button.Hidden();
    ASSERT_NE(dwHidden, 0U);
    gesso::ShowKeyboardCues(nullptr);
    EXPECT_EQ(button.Hidden(), dwHidden);
    gesso::ShowKeyboardCues(host);
    EXPECT_EQ(button.Hidden(), 0U);
}

TEST(BehaviorOfTheProcess, StartsAsClassicAndTakesNoOtherValue)
{
    const AllowMisuse allow;
    EXPECT_EQ(gesso::GetBehavior(), Behavior::Classic);
    gesso::SetBehavior(static_cast<Behavior>(7));
    EXPECT_EQ(gesso::GetBehavior(), Behavior::Classic);
    const Host host;
    EXPECT_EQ(gesso::BehaviorOf(host), Behavior::Classic);
    EXPECT_EQ(gesso::BehaviorOf(nullptr), Behavior::Classic);
}

} // namespace
