// What a navigation bar says of itself to those who do not see it, and what can be done with it.
#include "../support/WithBehavior.h"
#include "../tree/TreeFixture.h"
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

// A header, mail with the compact inbox and sent below it, a separator, a spacer, news with today below it,
// and zoo.
class GNavigationBarAccess : public TreeTest<GNavigationBar>, public testing::WithParamInterface<Behavior>
{
protected:
    GNavigationBarAccess() : m_behavior(GetParam()) {}
    void MakeBar(DWORD dwStyle = 0)
    {
        Make(WS_VSCROLL | dwStyle, TREE_CX, 400); // high enough for all rows
        void* root = tree.GetRootItem();
        void* header = tree.Add(root, "Folders", NBIK_HEADER);
        void* mail = tree.Add(root, "mail", 0, header);
        void* inbox = tree.Add(mail, "inbox", NBIK_SUBITEM);
        tree.Add(mail, "sent", NBIK_SUBITEM, inbox);
        void* line = tree.Add(root, "-", NBIK_SEPARATOR, mail);
        void* space = tree.Add(root, "_", NBIK_SPACER, line);
        void* news = tree.Add(root, "news", 0, space);
        tree.Add(news, "today", NBIK_SUBITEM);
        tree.Add(root, "zoo", 0, news);
    }
    AccessibleNode Row(LPCWSTR pszName) const
    {
        return gesso::FindAccessible(tree, Role::OutlineItem, pszName);
    }

    WithBehavior m_behavior;
};

INSTANTIATE_TEST_SUITE_P(Both, GNavigationBarAccess, testing::Values(Behavior::Classic, Behavior::Modern));

TEST_P(GNavigationBarAccess, HeadersAndSeparatorsSayWhatTheyAreAndSpacersNothing)
{
    MakeBar();
    EXPECT_EQ(AccessibleTree(tree), "outline \"\" [focusable]\n"
                                    "  grouping \"Folders\" []\n"
                                    "  outline item \"mail\" = \"0\" [collapsed, focusable, selectable]\n"
                                    "  separator \"\" []\n"
                                    "  outline item \"news\" = \"0\" [collapsed, focusable, selectable]\n"
                                    "  outline item \"zoo\" = \"0\" [focusable, selectable]\n");
    SetFocus(tree);
    tree.SetSelectedItem(tree.At(5));
    EXPECT_TRUE(Row(L"mail").Expand());
    tree.SetSelectedItem(tree.At(2));
    EXPECT_EQ(AccessibleTree(tree),
              "outline \"\" [focused, focusable]\n"
              "  grouping \"Folders\" []\n"
              "  outline item \"mail\" = \"0\" [expanded, focusable, selectable]\n"
              "  outline item \"inbox\" = \"1\" [selected, focused, focusable, selectable]\n"
              "  outline item \"sent\" = \"1\" [focusable, selectable]\n"
              "  separator \"\" []\n"
              "  outline item \"news\" = \"0\" [collapsed, focusable, selectable]\n"
              "  outline item \"zoo\" = \"0\" [focusable, selectable]\n");
}

TEST_P(GNavigationBarAccess, ARowIsWhereItIsHit)
{
    MakeBar();
    for (const LPCWSTR pszName : {L"mail", L"news", L"zoo"}) {
        EXPECT_EQ(NameInMiddle(Row(pszName)), Narrow(pszName));
    }
    const AccessibleNode header = gesso::FindAccessible(tree, Role::Grouping, L"Folders");
    EXPECT_EQ(NameInMiddle(header), "Folders");
    EXPECT_FALSE(header.Press());
    EXPECT_FALSE(header.Select());
    EXPECT_EQ(host.TakeCodes(), std::vector<int>{});
    RECT rc{};
    GetWindowRect(tree, &rc);
    EXPECT_EQ(ClientObject(POINT{rc.left + 5, rc.top + 87}).Name(), "(none)") << "the spacer";
}

TEST_P(GNavigationBarAccess, ChildrenAreCountedWithoutTheSpacersAmongMany)
{
    Make(WS_VSCROLL, TREE_CX, 200);
    std::vector<std::string> names;
    void* after = nullptr;
    for (int i = 0; i < 1000; ++i) {
        const bool fSpacer = i % 3 == 1 || (i > 250 && i < 270);
        const std::string name = std::to_string(i);
        after = tree.Add(tree.GetRootItem(), name, fSpacer ? NBIK_SPACER : NBIK_ITEM, after);
        if (!fSpacer) {
            names.push_back(name);
        }
    }
    const ClientObject client(tree);
    ASSERT_EQ(client.CountChildren(), static_cast<LONG>(names.size()));
    for (size_t i = 0; i < names.size(); ++i) {
        EXPECT_EQ(client.Name(static_cast<LONG>(i) + 1), names[i]);
    }
    const AccessibleNode row = Row(L"999");
    EXPECT_TRUE(row.ScrollIntoView());
    EXPECT_EQ(NameInMiddle(row), "999");
}

TEST_P(GNavigationBarAccess, ExpandingIsAClickOnTheGlyph)
{
    MakeBar(GNS_SINGLEEXPAND);
    EXPECT_TRUE(Row(L"mail").Press());
    EXPECT_EQ(host.TakeLines(), Expansion(1, EXPANDS));
    EXPECT_EQ(tree.Rows(), "Folders mail inbox sent - _ news zoo");
    EXPECT_TRUE(Row(L"news").Expand());
    Lines lines = Expansion(6, EXPANDS);
    for (const std::string& line : Expansion(1, COLLAPSES)) {
        lines.push_back(line);
    }
    EXPECT_EQ(host.TakeLines(), lines);
    EXPECT_EQ(tree.Rows(), "Folders mail - _ news today zoo");
    EXPECT_FALSE(Row(L"zoo").Expand());
}

TEST_P(GNavigationBarAccess, APressOfALeafIsAClick)
{
    MakeBar(GNS_CLICKEXPAND);
    EXPECT_TRUE(Row(L"zoo").Press());
    const bool fModern = GetParam() == Behavior::Modern;
    EXPECT_EQ(host.TakeCodes(), fModern ? (std::vector<int>{FOCUS_SET, SELECTION_CHANGED, CLICKED})
                                        : (std::vector<int>{FOCUS_SET, CLICKED}));
    EXPECT_EQ(tree.Selected(), "zoo");
    EXPECT_TRUE(Row(L"mail").Select());
    EXPECT_EQ(tree.Selected(), "mail");
    EXPECT_EQ(tree.Rows(), "Folders mail inbox sent - _ news zoo") << "opened by the click";
}

} // namespace
