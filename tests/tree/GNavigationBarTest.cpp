#include "TreeFixture.h"

#include <tests/support/AllowMisuse.h>

namespace {

using namespace test;

// A header at 0..40, mail at 40..80 with the compact inbox and sent below it, a separator and a spacer of 5,
// and then news and zoo of 40 each.
class GNavigationBarTest : public TreeTest<GNavigationBar>
{
protected:
    void SetUp() override { m_root = tree.GetRootItem(); }
    void MakeBar(DWORD dwStyle = 0)
    {
        Make(WS_VSCROLL | dwStyle, TREE_CX, 400); // high enough for all rows
        EXPECT_EQ(tree.GetScrollBarStyle(SB_VERT), GSB_HIDDEN) << "until there is a row";
        void* header = tree.Add(m_root, "Folders", NBIK_HEADER);
        m_mail = tree.Add(m_root, "mail", 0, header);
        m_inbox = tree.Add(m_mail, "inbox", NBIK_SUBITEM);
        tree.Add(m_mail, "sent", NBIK_SUBITEM, m_inbox);
        void* line = tree.Add(m_root, "-", NBIK_SEPARATOR, m_mail);
        void* space = tree.Add(m_root, "_", NBIK_SPACER, line);
        m_news = tree.Add(m_root, "news", 0, space);
        tree.Add(m_news, "today", NBIK_SUBITEM);
        m_zoo = tree.Add(m_root, "zoo", 0, m_news);
    }

    std::string RowsAfterClick(int x, int y)
    {
        Click(x, y);
        return tree.Rows();
    }

    void* m_root;
    void* m_mail;
    void* m_inbox;
    void* m_news;
    void* m_zoo;
};

constexpr int MAIL_Y = 60;
constexpr int NEWS_Y = 110;
constexpr int GLYPH_X = TREE_CX - 15; // of a glyph at the right
constexpr int TEXT_X = 100;
constexpr auto ALL_CLOSED = "Folders mail - _ news zoo";
constexpr auto MAIL_OPEN = "Folders mail inbox sent - _ news zoo";
constexpr auto NEWS_OPEN = "Folders mail - _ news today zoo";

TEST_F(GNavigationBarTest, ItemsStandWhereTheyWereInserted)
{
    MakeBar();
    EXPECT_EQ(tree.Rows(), ALL_CLOSED);
    EXPECT_EQ(tree.Children(m_mail), "inbox sent");
    tree.Add(m_root, "front");
    tree.Add(m_root, "end", 0, m_inbox); // no child of the root
    EXPECT_EQ(tree.Rows(), "front Folders mail - _ news zoo end");
    EXPECT_EQ(tree.Children(m_news), "today");
    EXPECT_EQ(tree.GetItemNextChild(m_zoo, nullptr), nullptr);
    EXPECT_EQ(tree.GetItemNextChild(m_mail, m_zoo), nullptr) << "a child that is none counts as the last";
    EXPECT_EQ(tree.GetItemLevel(m_inbox), 1);
    EXPECT_EQ(tree.GetItemParent(m_mail), m_root);
    EXPECT_EQ(tree.GetItemState(m_inbox), 0u) << "the kind is out of reach";
    tree.SetItemState(m_inbox, NBIK_HEADER | 0x20, 0xFFFF);
    EXPECT_EQ(tree.GetItemState(m_inbox), 0x20u);

    tree.SetItemImage(m_inbox, 4);
    tree.SetItemCustomData(m_inbox, &tree);
    EXPECT_EQ(tree.GetItemImage(m_inbox), 4u);
    EXPECT_EQ(tree.GetItemCustomData(m_inbox), &tree);
    EXPECT_EQ(tree.GetItemHeight(), 40u);
    Probe<GNavigationBar> copy;
    copy = tree;
    EXPECT_EQ(copy.Rows(), tree.Rows());

    // The place among the rows is counted from the children alone.
    tree.Expand(m_mail);
    tree.Add(m_root, "x", 0, m_mail);
    EXPECT_EQ(tree.Rows(), "front Folders mail x inbox sent - _ news zoo end");
    tree.Add(m_mail, "draft", NBIK_SUBITEM, m_inbox);
    EXPECT_EQ(tree.Rows(), "front Folders mail x draft inbox sent - _ news zoo end");
    const AllowMisuse allowed;
    EXPECT_EQ(tree.Add(nullptr, "nowhere"), nullptr);
}

TEST_F(GNavigationBarTest, ExpansionKeepsTheSelectedRowsNumber)
{
    MakeBar();
    tree.SetSelectedItem(m_news);
    EXPECT_EQ(tree.m_nSelected, 4u);
    host.Take();
    tree.Expand(m_mail);
    EXPECT_EQ(tree.Rows(), MAIL_OPEN);
    EXPECT_EQ(host.TakeLines(), Expansion(1, 2));
    EXPECT_EQ(tree.Selected(), "-") << "the row of that number";
    EXPECT_EQ(tree.m_pSelected, m_news);
    tree.SetSelectedItem(m_news); // the same item: nothing happens
    EXPECT_EQ(tree.m_nSelected, 4u);
    tree.SortChildren(m_news);
    EXPECT_EQ(tree.Selected(), "news") << "sorting looks for it again";
    tree.Collapse(m_mail);
    EXPECT_EQ(tree.Selected(), "(none)");

    // Without children, but with the promise of some.
    void* later = tree.Add(m_root, "later", NBIS_HASCHILDREN);
    tree.Expand(later);
    EXPECT_EQ(tree.GetItemState(later), NBIS_HASCHILDREN | NBIS_EXPANDED) << "expanded with nothing below";
    host.Take();
    tree.Expand(m_zoo);
    EXPECT_TRUE(host.Take().empty()) << "no children and no promise";
}

TEST_F(GNavigationBarTest, RemovalTakesTheRowsAndASelectionAmongThem)
{
    MakeBar();
    tree.Expand(m_mail);
    tree.SetSelectedItem(m_inbox);
    EXPECT_EQ(tree.m_nSelected, 2u);
    tree.RemoveItem(m_mail);
    EXPECT_EQ(tree.Rows(), "Folders - _ news zoo");
    EXPECT_EQ(tree.GetSelectedItem(), nullptr);
    EXPECT_EQ(tree.m_pSelected, nullptr);
    tree.SetSelectedItem(m_zoo);
    tree.RemoveItem(tree.At(0));
    EXPECT_EQ(tree.Selected(), "(none)") << "the number stays";
    tree.SetSelectedItem(nullptr);
    tree.SetSelectedItem(m_zoo);
    tree.RemoveAllItems();
    EXPECT_EQ(tree.GetSelectedItem(), nullptr);
    EXPECT_EQ(tree.Rows(), "");
    EXPECT_EQ(tree.GetItemChildCount(m_root), 0u);
    const AllowMisuse allowed;
    tree.RemoveItem(m_zoo);
    tree.RemoveItem(nullptr);
    tree.RemoveItem(m_root);
    EXPECT_EQ(tree.GetItemName(m_zoo), nullptr);
}

TEST_F(GNavigationBarTest, APointHitsThePartsOfEachKindOfRow)
{
    MakeBar();
    tree.Expand(m_mail);
    tree.SetItemState(m_zoo, NBIS_HASCHILDREN, 0);
    ASSERT_EQ(tree.m_siV.nPos, 0);
    // Folders 0..40, mail 40..80, inbox 80..100, sent 100..120, - 120..125, _ 125..130, news 130..170
    ExpectHits(tree, {
                         {20, 20, 0, NHT_ROW},
                         {20, 40, 0, NHT_ROW}, // the bottom line is the upper row's
                         {9, 41, 1, NHT_ROW},
                         {10, 41, 1, NHT_IMAGE},
                         {29, 79, 1, NHT_IMAGE},
                         {30, 79, 1, NHT_ROW}, // the text
                         {29, 80, 1, NHT_ROW}, // the bottom line is in no part
                         {TREE_CX - 26, 60, 1, NHT_ROW},
                         {TREE_CX - 25, 60, 1, NHT_GLYPH},
                         {TREE_CX - 6, 60, 1, NHT_GLYPH},
                         {TREE_CX - 5, 60, 1, NHT_LABEL},
                         {TREE_CX, 60, 1, NHT_ROW},
                         {24, 90, 2, NHT_ROW},
                         {25, 90, 2, NHT_GLYPH}, // with no glyph to see
                         {49, 90, 2, NHT_GLYPH},
                         {50, 90, 2, NHT_IMAGE},
                         {70, 90, 2, NHT_LABEL},
                         {70, 122, 4, NHT_ROW},
                         {70, 127, 5, NHT_ROW},
                         {TREE_CX + 1, 60, -1, NHT_NOWHERE},
                         {60, -1, -1, NHT_NOWHERE},
                         {-1, 60, -1, NHT_NOWHERE},
                     });
    tree.SetStyle(tree.GetStyle() | GNS_GLYPHLEFT);
    ExpectHits(tree, {
                         {9, 60, 1, NHT_ROW},
                         {10, 60, 1, NHT_GLYPH},
                         {34, 60, 1, NHT_GLYPH},
                         {35, 60, 1, NHT_IMAGE},
                         {55, 60, 1, NHT_LABEL},
                         {TREE_CX - 1, 60, 1, NHT_LABEL},
                     });
    tree.SetItemHeight(10);
    ExpectHits(tree, {{10, 95, -1, NHT_ROW}}); // below the last row
    tree.RemoveAllItems();
    ExpectHits(tree, {{10, 15, -1, NHT_NOWHERE}});
}

TEST_F(GNavigationBarTest, AClickSelectsAndTheGlyphToggles)
{
    MakeBar();
    SetFocus(tree);
    host.Take();
    HoldKeys({VK_CONTROL});
    Click(TEXT_X, MAIL_Y);
    HoldKeys({});
    EXPECT_EQ(tree.GetSelectedItem(), m_mail);
    EXPECT_EQ(host.TakeLines(), Lines{"-2 row 1 action 0 at 100,60 keys 2"});
    EXPECT_EQ(RowsAfterClick(GLYPH_X, MAIL_Y), MAIL_OPEN);
    EXPECT_EQ(host.Take().size(), 2u) << "no click is sent for the glyph";
    Click(TEXT_X, 20); // the header
    EXPECT_EQ(tree.GetSelectedItem(), m_mail);
    Click(60, 90);
    EXPECT_EQ(tree.GetSelectedItem(), m_inbox);
    host.Take();
    // Pressed on the glyph, released on the text of the same row: selected and not toggled.
    Mouse(WM_LBUTTONDOWN, GLYPH_X, MAIL_Y);
    Mouse(WM_LBUTTONUP, TEXT_X, MAIL_Y);
    EXPECT_EQ(tree.GetSelectedItem(), m_mail);
    EXPECT_EQ(tree.Rows(), MAIL_OPEN);
    EXPECT_EQ(host.Take().size(), 1u);
    Mouse(WM_LBUTTONDOWN, TEXT_X, MAIL_Y);
    Mouse(WM_LBUTTONUP, TEXT_X, 90);
    EXPECT_TRUE(host.Take().empty());
    EXPECT_EQ(tree.m_hitDown.nItem, NONE);
    EXPECT_EQ(tree.m_hitDown.nPart, 0xFFFF);
    EXPECT_EQ(tree.m_hitDown.wReserved, 0xFFFF);

    Mouse(WM_LBUTTONDBLCLK, TEXT_X, MAIL_Y);
    Mouse(WM_LBUTTONDBLCLK, GLYPH_X, MAIL_Y);
    EXPECT_EQ(host.TakeLines(), Lines{"-3 row 1 action 0 at 100,60 keys 0"});
}

TEST_F(GNavigationBarTest, ClickExpansionTogglesTheSelectedRowAndOpensTheOthers)
{
    MakeBar(GNS_CLICKEXPAND);
    EXPECT_EQ(RowsAfterClick(TEXT_X, MAIL_Y), MAIL_OPEN);
    EXPECT_EQ(tree.GetSelectedItem(), m_mail);
    tree.SetSelectedItem(m_zoo);
    EXPECT_EQ(RowsAfterClick(TEXT_X, MAIL_Y), MAIL_OPEN) << "expanded and not selected: only selected";
    EXPECT_EQ(RowsAfterClick(TEXT_X, MAIL_Y), ALL_CLOSED);
    tree.SetSelectedItem(m_zoo);
    EXPECT_EQ(RowsAfterClick(GLYPH_X, MAIL_Y), MAIL_OPEN);
    EXPECT_EQ(RowsAfterClick(GLYPH_X, MAIL_Y), ALL_CLOSED);
}

TEST_F(GNavigationBarTest, SingleExpansionCollapsesTheFirstOtherRowAfterwards)
{
    MakeBar(GNS_SINGLEEXPAND);
    EXPECT_EQ(RowsAfterClick(GLYPH_X, NEWS_Y), NEWS_OPEN);
    host.Take();
    EXPECT_EQ(RowsAfterClick(GLYPH_X, MAIL_Y), MAIL_OPEN);
    EXPECT_EQ(host.TakeLines(),
              (Lines{"-454 row 1 action 2 at -1,0 keys 0", "-455 row 1 action 2 at -1,0 keys 0",
                     "-454 row 6 action 1 at -1,0 keys 0", "-455 row 6 action 1 at -1,0 keys 0"}));
    // With click expansion as well the clicked item is told of, where its row has moved too.
    tree.SetStyle(tree.GetStyle() | GNS_CLICKEXPAND);
    host.Take();
    EXPECT_EQ(RowsAfterClick(TEXT_X, 150), NEWS_OPEN);
    EXPECT_EQ(tree.Selected(), "news");
    EXPECT_EQ(host.TakeLines().back(), "-2 row 4 action 0 at 100,150 keys 0");
    // An item that hides itself with its parent, too.
    void* old = tree.Add(m_news, "old");
    EXPECT_EQ(RowsAfterClick(TEXT_X, 150), ALL_CLOSED);
    EXPECT_EQ(tree.GetSelectedItem(), nullptr);
    EXPECT_EQ(host.Take().back().record.pItem, old);
}

TEST_F(GNavigationBarTest, AnItemPutInPlaceOfTheExpandingOneStaysClosed)
{
    MakeBar();
    void* made = nullptr;
    host.onNotify = [&](const Notified& n) {
        tree.RemoveItem(n.record.pItem);
        made = tree.Add(m_root, "new", NBIS_HASCHILDREN, tree.GetItemNextChild(m_root, nullptr));
    };
    tree.Expand(m_mail);
    EXPECT_EQ(tree.Rows(), "Folders new - _ news zoo");
    EXPECT_EQ(tree.GetItemState(made), NBIS_HASCHILDREN);
    EXPECT_EQ(host.Take().size(), 1u);
    EXPECT_FALSE(tree.m_aVisible.Inside().tree.Find(m_mail)) << "nothing holds the former one any more";
}

TEST_F(GNavigationBarTest, TheScrollRangeCountsEveryRowAsAnItem)
{
    MakeBar();
    EXPECT_EQ(tree.m_siV.nMax, 6 * 40 - 1) << "the thin rows as well";
    EXPECT_EQ(static_cast<int>(tree.m_siV.nPage), tree.m_siV.nMax);
    // The bar across is never shown, and its room counts as part of the page.
    tree.MoveWindow(0, 0, TREE_CX, 100);
    EXPECT_EQ(static_cast<int>(tree.m_siV.nPage), 100 + GetSystemMetrics(SM_CYHSCROLL));
    const int page = static_cast<int>(tree.m_siV.nPage);
    const int last = tree.m_siV.nMax - page + 1;
    tree.EnsureVisible(m_zoo);
    EXPECT_EQ(tree.m_siV.nPos, last);
    tree.EnsureVisible(tree.At(0));
    EXPECT_EQ(tree.m_siV.nPos, 0);
    const auto scroll = [&](UINT code, UINT pos = 0) {
        Send(WM_VSCROLL, MAKEWPARAM(code, pos));
        return tree.m_siV.nPos;
    };
    EXPECT_EQ(scroll(SB_LINEDOWN), 40);
    EXPECT_EQ(scroll(SB_PAGEUP), 0);
    EXPECT_EQ(scroll(SB_PAGEDOWN), std::min(page * 5 / 6, last));
    EXPECT_EQ(scroll(SB_THUMBTRACK, 7), 7);
    EXPECT_EQ(scroll(SB_THUMBPOSITION, 9), 7);
    EXPECT_EQ(tree.HitAt(20, 34).nItem, 1u) << "41 from the top";
    Send(WM_MOUSEWHEEL, MAKEWPARAM(0, 120));
    EXPECT_EQ(tree.m_siV.nPos, 0);
}

TEST_F(GNavigationBarTest, TheSpaceKeyClicksAndNoKeyMovesTheSelection)
{
    MakeBar();
    SetFocus(tree);
    for (UINT key = VK_PRIOR; key <= VK_DOWN; ++key) {
        Key(key);
        EXPECT_EQ(tree.GetSelectedItem(), nullptr);
    }
    host.Take();
    Key(VK_SPACE);
    EXPECT_TRUE(tree.m_dwState & GWS_KEYDOWN);
    EXPECT_EQ(host.TakeClicks(), 0);
    Send(WM_KEYUP, VK_SPACE);
    EXPECT_EQ(host.TakeClicks(), 1);
    Key(VK_SPACE);
    SetFocus(host);
    EXPECT_EQ(host.TakeClicks(), 1) << "losing the focus lets go of the key";
    EXPECT_EQ(host.TakeLines(), Lines{"-8"});
    EXPECT_EQ(SendMessageW(tree, WM_GETDLGCODE, 0, 0), DLGC_WANTARROWS);
    EXPECT_EQ(tree.GetFont(), g_hDefaultFont);
}

TEST_F(GNavigationBarTest, TheParentMayDestroyTheBarInEachNotification)
{
    struct Case
    {
        int code;
        UINT action;
        int x;
    };
    for (const Case& c :
         {Case{CLICKED, 0, TEXT_X}, Case{EXPANDING, TVE_EXPAND, TEXT_X}, Case{EXPANDED, TVE_EXPAND, TEXT_X},
          Case{EXPANDING, TVE_COLLAPSE, TEXT_X}, Case{EXPANDED, TVE_COLLAPSE, TEXT_X},
          Case{EXPANDING, TVE_EXPAND, GLYPH_X}, Case{FOCUS_SET, 0, TEXT_X}, Case{DOUBLE_CLICKED, 0, TEXT_X}})
    {
        MakeBar(GNS_SINGLEEXPAND | GNS_CLICKEXPAND);
        tree.Expand(m_news);
        host.onNotify = [&](const Notified& n) {
            if (n.code == c.code && (IsWindow(tree) && (c.action == 0 || n.record.uAction == c.action))) {
                DestroyWindow(tree);
            }
        };
        Click(c.x, MAIL_Y);
        if (c.code == DOUBLE_CLICKED) {
            Mouse(WM_LBUTTONDBLCLK, c.x, MAIL_Y);
        }
        EXPECT_FALSE(IsWindow(tree)) << c.code << " action " << c.action;
        host.onNotify = nullptr;
        tree.RemoveAllItems();
        SetFocus(host);
    }
}

} // namespace
