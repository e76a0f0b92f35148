// What all controls have of both behaviours.

#include "../support/AllControls.h"
#include "../support/AllowMisuse.h"
#include "../support/WithBehavior.h"

namespace {

using namespace test;
using gesso::Behavior;

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
