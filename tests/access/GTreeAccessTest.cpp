// What a tree says of itself to those who do not see it, and what can be done with it.
#include "../support/WithBehavior.h"
#include "../tree/CountedTree.h"
#include "ClientObject.h"

namespace {

using namespace test;
using gesso::AccessibleNode;
using gesso::AccessibleTree;
using gesso::Behavior;
using gesso::Role;

constexpr int SELECTION_CHANGED = -451;
constexpr int EXPANDS = 2;
constexpr int COLLAPSES = 1;

// Rows of 20 pixels: a, whose children a1 and a2 are closed, and b.
class GTreeAccess : public TreeTest<GTree>, public testing::WithParamInterface<Behavior>
{
protected:
    GTreeAccess() : m_behavior(GetParam())
    {
        Make(WS_VSCROLL | WS_HSCROLL);
        a = tree.Add(nullptr, "a");
        a1 = tree.Add(a, "a1");
        tree.Add(a, "a2");
        b = tree.Add(nullptr, "b");
    }
    AccessibleNode Whole() const { return gesso::FindAccessible(tree, Role::Outline, nullptr); }
    AccessibleNode Row(LPCWSTR pszName) const
    {
        return gesso::FindAccessible(tree, Role::OutlineItem, pszName);
    }
    static bool IsModern() { return GetParam() == Behavior::Modern; }

    WithBehavior m_behavior;
    void* a;
    void* a1;
    void* b;
};

INSTANTIATE_TEST_SUITE_P(Both, GTreeAccess, testing::Values(Behavior::Classic, Behavior::Modern));

TEST_P(GTreeAccess, RowsStandFlatWithTheirLevels)
{
    EXPECT_EQ(AccessibleTree(tree), "outline \"\" [focusable]\n"
                                    "  outline item \"a\" = \"0\" [collapsed, focusable, selectable]\n"
                                    "  outline item \"b\" = \"0\" [focusable, selectable]\n");
    tree.Expand(a);
    tree.SetSelectedItem(a1);
    SetFocus(tree);
    tree.SetItemState(b, TIS_CHECKED, TIS_CHECKED);
    const std::string opened = "outline \"\" [focused, focusable]\n"
                               "  outline item \"a\" = \"0\" [expanded, focusable, selectable]\n"
                               "  outline item \"a1\" = \"1\" [selected, focused, focusable, selectable]\n"
                               "  outline item \"a2\" = \"1\" [focusable, selectable]\n";
    EXPECT_EQ(AccessibleTree(tree), opened + "  outline item \"b\" = \"0\" [focusable, selectable]\n");
    tree.SetTreeStyle(GTS_CHECKBOXES);
    EXPECT_EQ(AccessibleTree(tree),
              opened + "  outline item \"b\" = \"0\" [checked, focusable, selectable]\n");
}

TEST_P(GTreeAccess, ADisabledTreeTakesNoAction)
{
    EnableWindow(tree, FALSE);
    EXPECT_EQ(AccessibleTree(tree), "outline \"\" [unavailable]\n"
                                    "  outline item \"a\" = \"0\" [unavailable, collapsed, selectable]\n"
                                    "  outline item \"b\" = \"0\" [unavailable, selectable]\n");
    host.Take();
    EXPECT_FALSE(Row(L"a").Press());
    EXPECT_FALSE(Row(L"b").Select());
    EXPECT_EQ(host.TakeCodes(), std::vector<int>{});
}

TEST_P(GTreeAccess, ARowIsWhereItIsHit)
{
    tree.Expand(a);
    const AccessibleNode whole = Whole();
    ASSERT_EQ(whole.GetChildCount(), 4u);
    for (UINT row = 0; row < 4; ++row) {
        EXPECT_EQ(NameInMiddle(whole.GetChild(row)), NameOf(whole.GetChild(row)));
    }
    EXPECT_FALSE(whole.GetChild(4));
    EXPECT_EQ(ClientObject(tree).Name(5), "(none)");
}

TEST_P(GTreeAccess, RowsOutOfViewSaySoAndScrollIntoIt)
{
    for (char c = 'c'; c <= 'l'; ++c) {
        tree.Add(nullptr, std::string(1, c));
    }
    constexpr UINT OUT_OF_VIEW = STATE_SYSTEM_OFFSCREEN | STATE_SYSTEM_INVISIBLE;
    EXPECT_EQ(Row(L"a").GetState() & OUT_OF_VIEW, 0u);
    EXPECT_EQ(Row(L"l").GetState() & OUT_OF_VIEW, OUT_OF_VIEW);
    EXPECT_TRUE(Row(L"l").ScrollIntoView());
    EXPECT_EQ(Row(L"l").GetState() & OUT_OF_VIEW, 0u);
    EXPECT_EQ(Row(L"a").GetState() & OUT_OF_VIEW, OUT_OF_VIEW);
    EXPECT_EQ(NameInMiddle(Row(L"l")), "l");
    EXPECT_TRUE(Row(L"a").ScrollIntoView());
    EXPECT_EQ(tree.m_siV.nPos, 0);
}

TEST_P(GTreeAccess, ExpandingTellsTheParentAsTheUserDoes)
{
    EXPECT_TRUE(Row(L"a").Expand());
    EXPECT_EQ(host.TakeLines(), Expansion(0, EXPANDS));
    EXPECT_TRUE(Row(L"a").Expand()) << "which it is";
    EXPECT_EQ(host.TakeLines(), Lines{});
    EXPECT_TRUE(Row(L"a").Press());
    EXPECT_EQ(host.TakeLines(), Expansion(0, COLLAPSES));
    EXPECT_EQ(tree.Rows(), "a b");
    EXPECT_FALSE(Row(L"b").Expand()) << "without children";
    tree.Add(nullptr, "later", TIS_HASCHILDREN);
    EXPECT_FALSE(Row(L"later").Expand()) << "the parent gave it none";
}

TEST_P(GTreeAccess, APressOfALeafIsAClick)
{
    POINT pt{};
    host.onNotify = [&](const Notified& n) {
        if (n.code == CLICKED) {
            pt = {n.record.x, n.record.y};
        }
    };
    EXPECT_TRUE(Row(L"b").Press());
    EXPECT_EQ(host.TakeCodes(), IsModern() ? (std::vector<int>{FOCUS_SET, SELECTION_CHANGED, CLICKED})
                                           : (std::vector<int>{FOCUS_SET, CLICKED}));
    EXPECT_EQ(tree.Selected(), "b");
    EXPECT_EQ(tree.HitAt(pt.x, pt.y).nItem, 1u);
    EXPECT_TRUE(Row(L"a").Select());
    EXPECT_EQ(tree.Selected(), "a");
}

TEST_P(GTreeAccess, TheParentMayEndTheTreeInAnAction)
{
    const AccessibleNode row = Row(L"b");
    host.onNotify = [&](const Notified& n) {
        if (n.code == FOCUS_SET) {
            DestroyWindow(tree);
        }
    };
    EXPECT_FALSE(row.Press());
    EXPECT_EQ(row.role(), Role::None);
    EXPECT_FALSE(row.Expand());
    EXPECT_EQ(AccessibleTree(tree), "");
}

TEST_P(GTreeAccess, ARootThatShowsIsLevelZero)
{
    tree.SetRootVisible(true);
    EXPECT_EQ(AccessibleTree(tree), "outline \"\" [focusable]\n"
                                    "  outline item \"\" = \"0\" [expanded, focusable, selectable]\n"
                                    "  outline item \"a\" = \"1\" [collapsed, focusable, selectable]\n"
                                    "  outline item \"b\" = \"1\" [focusable, selectable]\n");
}

class GTreeCountedAccess : public GTreeCountedTest
{};

TEST_F(GTreeCountedAccess, OfAMillionOnlyTheRowIsAskedForThatIsAskedOf)
{
    MakeTree();
    AddFolder(MANY);
    const ClientObject client(tree);
    EXPECT_EQ(client.CountChildren(), static_cast<LONG>(MANY) + 1);
    EXPECT_EQ(Asked(), std::vector<int>{});
    EXPECT_EQ(client.Name(500'002), "c500000");
    EXPECT_EQ(Asked(), std::vector<int>{500'000});
    EXPECT_EQ(client.Name(500'002), "c500000");
    EXPECT_EQ(client.Name(static_cast<LONG>(MANY) + 2), "(none)");
    EXPECT_EQ(Asked(), std::vector<int>{});
}

TEST_F(GTreeCountedAccess, TheParentMayEndTheTreeWhenItIsAsked)
{
    MakeTree();
    AddFolder(MANY);
    const ClientObject client(tree);
    answers = false;
    onAsked = [this](const Notified&) { DestroyWindow(tree); };
    EXPECT_EQ(client.Name(500'002), "(none)");
    EXPECT_EQ(client.CountChildren(), 0);
}

} // namespace
