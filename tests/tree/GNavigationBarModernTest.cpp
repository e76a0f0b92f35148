#include "TreeModern.h"

namespace {

using namespace test;

// A header at 0..40, mail with the compact inbox and sent, a separator and a spacer of 5, and news of 40.
class GNavigationBarModernTest : public ModernTreeTest<GNavigationBar>
{
protected:
    void SetUp() override
    {
        Make(WS_VSCROLL);
        // Each goes to the front.
        news = Add(tree.GetRootItem(), "news");
        Add(tree.GetRootItem(), "_", NBIK_SPACER);
        Add(tree.GetRootItem(), "-", NBIK_SEPARATOR);
        mail = Add(tree.GetRootItem(), "mail");
        Add(tree.GetRootItem(), "Folders", NBIK_HEADER);
        sent = Add(mail, "sent", NBIK_SUBITEM);
        inbox = Add(mail, "inbox", NBIK_SUBITEM);
        SetFocus(tree);
        host.Take();
    }

    void *news, *mail, *sent, *inbox;
};

TEST_F(GNavigationBarModernTest, KeysGoOverItemsOpenAndClick)
{
    for (const auto& [key, selected, told] : {std::tuple{VK_DOWN, "mail", Lines{"-451 mail"}},
                                              {VK_UP, "mail", Lines{}},
                                              {VK_RIGHT, "mail", Lines{"-454 mail", "-455 mail"}},
                                              {VK_RIGHT, "inbox", Lines{"-451 inbox"}},
                                              {VK_RIGHT, "inbox", Lines{}},
                                              {VK_SPACE, "inbox", Lines{"-2 inbox"}},
                                              {VK_RETURN, "inbox", Lines{"-2 inbox"}},
                                              {VK_DOWN, "sent", Lines{"-451 sent"}},
                                              {VK_DOWN, "news", Lines{"-451 news"}},
                                              {VK_DOWN, "news", Lines{}},
                                              {VK_UP, "sent", Lines{"-451 sent"}},
                                              {VK_LEFT, "mail", Lines{"-451 mail"}},
                                              {VK_LEFT, "mail", Lines{"-454 mail", "-455 mail"}},
                                              {VK_LEFT, "mail", Lines{}},
                                              {VK_END, "news", Lines{"-451 news"}},
                                              {VK_HOME, "mail", Lines{"-451 mail"}}})
    {
        Key(static_cast<UINT>(key));
        Send(WM_KEYUP, static_cast<WPARAM>(key), 1);
        EXPECT_EQ(tree.Selected(), selected) << key;
        EXPECT_EQ(Told(), told) << key;
    }
    EXPECT_EQ(host.TakeClicks(), 0) << "no button";
    MSG enter{tree, WM_KEYDOWN, VK_RETURN, 1, 0, {0, 0}};
    EXPECT_TRUE(IsDialogMessageW(host, &enter));
    EXPECT_EQ(Told(), Lines{"-2 mail"}) << "also in a dialog";
    EXPECT_EQ(host.TakeClicks(), 0);
}

TEST_F(GNavigationBarModernTest, TypedWordsLeadToItemsAndNoHeaders)
{
    Add(tree.GetRootItem(), "fox");
    Add(tree.GetRootItem(), "For you", NBIK_HEADER);
    Send(WM_CHAR, 'f');
    EXPECT_EQ(tree.Selected(), "fox");
    Send(WM_CHAR, 'x');
    EXPECT_EQ(Told(), Lines{"-451 fox"});
}

TEST_F(GNavigationBarModernTest, TheScrollRangeEndsWithTheLastRow)
{
    tree.Expand(mail);
    EXPECT_EQ(tree.m_siV.nMax, 40 + 40 + 20 + 20 + 5 + 5 + 40 - 1);
    EXPECT_EQ(static_cast<int>(tree.m_siV.nPage), TREE_CY);
    tree.EnsureVisible(news);
    EXPECT_EQ(tree.m_siV.nPos, 170 - TREE_CY);
    EXPECT_EQ(tree.HitAt(TREE_CX - 30, TREE_CY - 1).nItem, 6u);
    tree.EnsureVisible(inbox);
    EXPECT_EQ(tree.m_siV.nPos, 70) << "in view";
    tree.EnsureVisible(mail);
    EXPECT_EQ(tree.m_siV.nPos, 40);
}

TEST_F(GNavigationBarModernTest, TheSelectionFollowsItsItemAndNewRowsStandBehindBranches)
{
    tree.Expand(mail);
    tree.SetSelectedItem(news);
    tree.Collapse(mail);
    EXPECT_EQ(tree.GetSelectedItem(), news);
    tree.Expand(mail);
    tree.Add(tree.GetRootItem(), "behind", 0, mail);
    EXPECT_EQ(tree.Rows(), "Folders mail inbox sent behind - _ news");
    EXPECT_EQ(tree.GetSelectedItem(), news);
    tree.SetSelectedItem(sent);
    host.Take();
    tree.Collapse(mail);
    EXPECT_EQ(Told(), (Lines{"-454 mail", "-451 mail", "-455 mail"}));
    tree.RemoveItem(mail);
    EXPECT_EQ(Told(), (Lines{"-458 mail", "-458 inbox", "-458 sent", "-451 none"}));
}

TEST_F(GNavigationBarModernTest, RightClicksSelectItemsAndNoHeaders)
{
    RightClick(60, 60);
    EXPECT_EQ(Told(), (Lines{"-451 mail", "-5 mail"}));
    RightClick(60, 10);
    EXPECT_EQ(Told(), Lines{"-5 none"});
    EXPECT_EQ(tree.Selected(), "mail");
    Click(60, 60);
    EXPECT_EQ(Told(), Lines{"-2 mail"});
}

TEST_F(GNavigationBarModernTest, TheParentMayDestroyTheBarInEachNotification)
{
    for (const auto& [code, key] : {std::pair{SELECTION_CHANGED, VK_END},
                                    {SELECTION_CHANGED, VK_DOWN},
                                    {CLICKED, VK_SPACE},
                                    {CLICKED, VK_RETURN},
                                    {EXPANDING, VK_RIGHT},
                                    {EXPANDED, VK_RIGHT}})
    {
        auto* doomed = new GNavigationBar;
        const HWND hwnd = doomed->Create(0, 0, 100, 100, host, TREE_ID, 0, WS_CHILD | WS_VISIBLE);
        gesso::OwnByWindow(doomed);
        void* hTop = doomed->InsertItem(doomed->GetRootItem(), nullptr, L"top", 0, 0, nullptr);
        doomed->InsertItem(doomed->GetRootItem(), hTop, L"end", 0, 0, nullptr);
        doomed->InsertItem(hTop, nullptr, L"below", 0, 0, nullptr);
        doomed->SetSelectedItem(hTop);
        host.onNotify = [&, code = code](const Notified& n) {
            if (n.code == code) {
                DestroyWindow(hwnd);
            }
        };
        SendMessageW(hwnd, WM_KEYDOWN, static_cast<WPARAM>(key), 1);
        EXPECT_FALSE(IsWindow(hwnd)) << code;
        host.onNotify = nullptr;
    }
}

} // namespace
