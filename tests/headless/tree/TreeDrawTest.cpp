// What the trees draw, operation by operation, and what they ask of the clock and the platform meanwhile.

#include "../../support/Numbers.h"
#include "../../tree/TreeFixture.h"
#include "../FreshDesktop.h"

#include <algorithm>

namespace {

using namespace test;

template <class CONTROL> class DrawTest : private FreshDesktop, public TreeTest<CONTROL>
{
protected:
    void SetUp() override
    {
        images = ImageList_Create(16, 16, 0, 4, 4);
        const HBITMAP hbm = CreateBitmap(64, 16, 1, 1, nullptr);
        ImageList_Add(images, hbm, nullptr);
        DeleteObject(hbm);
        this->tree.SetImageList(images);
        EXPECT_EQ(this->tree.GetImageList(), images);
    }
    void TearDown() override
    {
        TreeTest<CONTROL>::TearDown();
        ImageList_Destroy(images);
    }

    // The lines of the next paint that start with a word.
    Lines Draw(const std::string& word = "") { return NextPaint(this->tree, word); }
    // The parts of the style of that kind, as "3 (0,22,200,44)": state and place.
    Lines Parts(int nPart)
    {
        return NextPaintBehind(this->tree,
                               "DrawThemeBackground explorer::TREEVIEW " + std::to_string(nPart) + " ");
    }
    Lines Rows() { return Parts(TVP_TREEITEM); } // those that are highlighted

    HIMAGELIST images = nullptr;
};

class GTreeDrawTest : public DrawTest<GTree>
{
protected:
    void MakeTwoLevels()
    {
        Make();
        a = tree.InsertItem(nullptr, nullptr, L"a", 1, TIS_CHECKED, nullptr);
        tree.InsertItem(a, nullptr, L"a1", 2, 0, nullptr);
        tree.InsertItem(nullptr, nullptr, L"b", 9, TIS_HASCHILDREN, nullptr);
        tree.Expand(a);
    }

    void* a = nullptr;
};

TEST_F(GTreeDrawTest, TheBarAcrossIsDrawnWhereARowThatShowsMakesItsRangeLonger)
{
    Make(WS_HSCROLL | WS_VSCROLL);
    const WideText wide(std::string(100, 'w')), wider(std::string(200, 'w'));
    host.onNotify = [&](const Notified& n) {
        if (n.code == -452) {
            n.record.pDispInfo->text = n.record.iItem < 50 ? wide : wider;
        }
    };
    tree.SetChildCount(nullptr, 100);
    const auto bars = [&] {
        Lines lines = Draw("DrawThemeBackground");
        std::erase_if(lines, [](const std::string& line) { return line.find("SCROLLBAR") == line.npos; });
        return lines;
    };
    bars();
    EXPECT_EQ(bars(), Lines{});
    tree.SetScrollPos(SB_VERT, 1500, 0);
    EXPECT_NE(bars(), Lines{});
    EXPECT_EQ(bars(), Lines{});
    host.onNotify = nullptr;
}

TEST_F(GTreeDrawTest, TheWholePaintInItsOrder)
{
    MakeTwoLevels();
    tree.SetTreeStyle(GTS_CHECKBOXES | GTS_IMAGES);
    tree.SetSelectedItem(a);
    EXPECT_EQ(Draw(), (Lines{
                          "FillRect (0,0,200,100) brush=FFFFFF",
                          "DrawThemeBackground explorer::TREEVIEW 1 5 (0,0,200,20)",
                          "DrawThemeBackground explorer::TREEVIEW 2 2 (0,0,20,20)",
                          "DrawThemeBackground explorer::BUTTON 3 5 (20,0,40,20)",
                          "ImageList_Draw 1 (40,0,56,16) 0x0000",
                          "DrawTextW \"a\" (60,0,200,20) 0x0824 font=\"Segoe UI\" 12 color=000000",
                          "DrawThemeBackground explorer::BUTTON 3 1 (35,20,55,40)",
                          "ImageList_Draw 2 (55,20,71,36) 0x0000",
                          "DrawTextW \"a1\" (75,20,200,40) 0x0824 font=\"Segoe UI\" 12 color=000000",
                          "DrawThemeBackground explorer::TREEVIEW 2 1 (0,40,20,60)",
                          "DrawThemeBackground explorer::BUTTON 3 1 (20,40,40,60)",
                          "DrawTextW \"b\" (60,40,200,60) 0x0824 font=\"Segoe UI\" 12 color=000000",
                          "BitBlt (0,0,200,100) from (0,0) SRCCOPY",
                      }));
}

TEST_F(GTreeDrawTest, ARowsLookFollowsSelectionFocusAndPointer)
{
    MakeTwoLevels();
    tree.SetSelectedItem(a);
    EXPECT_EQ(Rows(), Lines{"5 (0,0,200,20)"}) << "without the focus";
    SetFocus(tree);
    EXPECT_EQ(Rows(), Lines{"3 (0,0,200,20)"});
    PointAt(tree, 60, 5);
    EXPECT_EQ(Rows(), Lines{"6 (0,0,200,20)"}) << "hot and selected";
    PointAt(tree, 60, 25);
    EXPECT_EQ(Rows(), (Lines{"3 (0,0,200,20)", "2 (0,20,200,40)"}));
    PointAt(tree, TREE_CX + 50, 5);
    EnableWindow(tree, FALSE);
    EXPECT_EQ(Rows(), (Lines{"5 (0,0,200,20)", "4 (0,20,200,40)", "4 (0,40,200,60)"})) << "disabled";
}

TEST_F(GTreeDrawTest, AGlyphLightsUpUnderThePointerAlone)
{
    MakeTwoLevels();
    PointAt(tree, 5, 45);
    EXPECT_EQ(Parts(TVP_HOTGLYPH), Lines{"1 (0,40,20,60)"});
    PointAt(tree, 60, 45);
    EXPECT_EQ(Parts(TVP_HOTGLYPH), Lines{});

    desk::SetThemePartAvailable("TREEVIEW", TVP_HOTGLYPH, false);
    Send(WM_THEMECHANGED);
    PointAt(tree, 5, 45);
    EXPECT_EQ(Parts(TVP_GLYPH).size(), 2u) << "the usual one stands in";
    desk::SetThemed(false);
    Send(WM_THEMECHANGED);
    EXPECT_EQ(Draw("DrawThemeBackground"), Lines{});
    EXPECT_EQ(Draw("FrameRect").size(), 2u + 1u) << "plain boxes, and the hot row";
}

TEST_F(GTreeDrawTest, CellsMoveWithTheHorizontalPositionAndRowsWithTheVerticalOne)
{
    Make(WS_HSCROLL | WS_VSCROLL);
    tree.SetTreeStyle(GTS_IMAGES);
    for (int i = 0; i < 1000; ++i) {
        tree.Add(nullptr, "row" + std::to_string(i), i == 1 ? TIS_HASCHILDREN : 0);
    }
    host.onNotify = [&](const Notified& n) {
        if (n.code == EXPANDING && tree.GetItemChildCount(n.record.pItem) == 0) {
            tree.Add(n.record.pItem, std::string(60, 'w'));
        }
    };
    tree.Expand(tree.At(1));
    Send(WM_VSCROLL, MAKEWPARAM(SB_THUMBTRACK, 30));
    Send(WM_HSCROLL, MAKEWPARAM(SB_THUMBTRACK, 7));
    const Lines texts = Draw("DrawTextW");
    EXPECT_EQ(texts.front().substr(0, 22), "DrawTextW \"row1\" (33,-");
    EXPECT_LE(texts.size(), 6u) << "only rows in view are drawn";
    EXPECT_EQ(Parts(TVP_GLYPH)[0], "2 (-7,-10,13,10)");
}

TEST_F(GTreeDrawTest, ATextIsMeasuredOnceUntilItOrTheFontChanges)
{
    MakeTwoLevels();
    for (int i = 0; i < 500; ++i) {
        tree.Add(a, "child" + std::to_string(i));
    }
    // A text that cannot be measured counts with the whole room, so that a measurement shows.
    const auto widthAfter = [&](const std::function<void()>& change) {
        change();
        desk::Fail("DrawTextW", 100'000);
        tree.Collapse(a);
        tree.Expand(a);
        desk::ClearFaults(); // which nobody asks where nothing is measured
        return tree.m_siH.nMax;
    };
    tree.Expand(a);
    tree.Collapse(a);
    tree.Expand(a);
    const int narrow = tree.m_siH.nMax;
    EXPECT_EQ(widthAfter([] {}), narrow) << "nothing is asked again";
    EXPECT_EQ(widthAfter([&] { tree.SetItemState(a, TIS_CHECKED, 0); }), narrow);
    EXPECT_GT(widthAfter([&] { tree.SetItemName(tree.At(2), L"new"); }), narrow);
    tree.SetItemName(tree.At(2), L"new");
    EXPECT_LE(widthAfter([&] {
                  tree.Collapse(a);
                  tree.Expand(a);
              }),
              narrow);
    EXPECT_GT(widthAfter([&] { tree.SetFont(g_hDefaultFont); }), narrow);
}

TEST_F(GTreeDrawTest, APauseOfAQuarterOfASecondEndsWhatIsTyped)
{
    Make();
    for (const char* name : {"ba", "bb", "ca"}) {
        tree.Add(nullptr, name);
    }
    const auto type = [&](char c, DWORD pause) {
        desk::Advance(pause);
        Send(WM_CHAR, static_cast<WPARAM>(c), 1);
        return tree.Selected();
    };
    desk::Advance(1000);
    EXPECT_EQ(type('c', 0), "ca");
    EXPECT_EQ(type('a', 250), "ca") << "still one word";
    EXPECT_EQ(type('b', 251), "ba");
    EXPECT_EQ(type('b', 250), "bb");
    EXPECT_EQ(type('b', 251), "ba") << "a single letter again";
}

TEST_F(GTreeDrawTest, TheFrameIsDrawnAroundTheClientArea)
{
    desk::SetThemeInt("TREEVIEW", 0, 0, TMT_BORDERSIZE, 3);
    Make(WS_BORDER);
    EXPECT_EQ(ClientSize(tree).cx, TREE_CX - 6);
    desk::Pump();
    const Lines lines = desk::Drawing(tree);
    EXPECT_TRUE(std::any_of(lines.begin(), lines.end(), [](const std::string& line) {
        return line.starts_with("DrawThemeBackground explorer::TREEVIEW 0 0 (0,0,200,100)");
    }));
}

class GNavigationBarDrawTest : public DrawTest<GNavigationBar>
{
protected:
    void SetUp() override
    {
        DrawTest::SetUp();
        void* root = tree.GetRootItem();
        header = tree.InsertItem(root, nullptr, L"Head", 0, NBIK_HEADER, nullptr);
        mail = tree.InsertItem(root, header, L"mail", 1, NBIS_HASCHILDREN, nullptr);
        in = tree.InsertItem(mail, nullptr, L"in", 2, NBIK_SUBITEM | NBIS_HASCHILDREN, nullptr);
        void* line = tree.InsertItem(root, mail, L"", 0, NBIK_SEPARATOR, nullptr);
        tree.InsertItem(root, line, L"", 0, NBIK_SPACER, nullptr);
    }

    void* header = nullptr;
    void* mail = nullptr;
    void* in = nullptr;
};

TEST_F(GNavigationBarDrawTest, TheWholePaintInItsOrder)
{
    Make(0, TREE_CX, 200);
    tree.Expand(mail);
    tree.SetSelectedItem(mail);
    EXPECT_EQ(Draw(), (Lines{
                          "FillRect (0,0,200,200) brush=FFFFFF",
                          "DrawTextW \"Head\" (10,0,200,40) 0x0824 font=\"Segoe UI\" 12 bold color=5C5C5C",
                          "DrawThemeBackground explorer::TREEVIEW 1 5 (0,40,200,80)",
                          "DrawThemeBackground explorer::TREEVIEW 2 2 (175,40,195,80)",
                          "ImageList_Draw 1 (10,52,26,68) 0x0000",
                          "DrawTextW \"mail\" (30,40,200,80) 0x0824 font=\"Segoe UI\" 12 color=000000",
                          "ImageList_Draw 2 (50,82,66,98) 0x0000",
                          "DrawTextW \"in\" (70,80,200,100) 0x0824 font=\"Segoe UI\" 12 color=000000",
                          "FillRect (0,102,200,103) brush=E5E5E5",
                          "BitBlt (0,0,200,200) from (0,0) SRCCOPY",
                      }));
    // A compact row's glyph shows once there is a child.
    tree.Add(in, "unread");
    tree.SetStyle(tree.GetStyle() | GNS_GLYPHLEFT);
    EXPECT_EQ(Parts(TVP_GLYPH), (Lines{"2 (10,40,35,80)", "1 (25,80,50,100)"}));
    EXPECT_EQ(Draw("ImageList_Draw 1"), Lines{"ImageList_Draw 1 (35,52,51,68) 0x0000"});
    tree.SetImageList(nullptr);
    EXPECT_EQ(Draw("ImageList_Draw"), Lines{});
}

TEST_F(GNavigationBarDrawTest, TheGlyphAtTheRightLightsUpAsTheStylesSay)
{
    Make(0, TREE_CX, 300);
    const auto hot = [&](DWORD style, int x) {
        tree.SetStyle(WS_CHILD | WS_VISIBLE | style);
        PointAt(tree, x, 60);
        return Parts(TVP_HOTGLYPH).size() == 1;
    };
    EXPECT_TRUE(hot(0, 180));
    EXPECT_FALSE(hot(0, 100));
    EXPECT_FALSE(hot(GNS_NOHOTGLYPH, 180));
    EXPECT_FALSE(hot(GNS_NOHOTGLYPH | GNS_CLICKEXPAND, 180));
    EXPECT_TRUE(hot(GNS_CLICKEXPAND, 100));
    EXPECT_TRUE(hot(GNS_GLYPHLEFT | GNS_NOHOTGLYPH, 20));
    EXPECT_FALSE(hot(GNS_GLYPHLEFT | GNS_CLICKEXPAND, 100));
    PointAt(tree, TREE_CX + 50, 5);
    EXPECT_EQ(Rows(), Lines{});
    EnableWindow(tree, FALSE);
    EXPECT_FALSE(Rows().empty()) << "of a disabled bar each row is drawn";
}

TEST_F(GNavigationBarDrawTest, PaintingBeginsAtTheRowThatReachesThePosition)
{
    Make(WS_VSCROLL, TREE_CX, 60);
    tree.Expand(mail);
    Send(WM_VSCROLL, MAKEWPARAM(SB_THUMBTRACK, 80));
    EXPECT_EQ(Draw("DrawTextW")[0].substr(0, 30), "DrawTextW \"mail\" (30,-40,183,0");
    Send(WM_VSCROLL, MAKEWPARAM(SB_THUMBTRACK, 81));
    EXPECT_EQ(Draw("DrawTextW")[0].substr(0, 18), "DrawTextW \"in\" (70");
}

} // namespace
