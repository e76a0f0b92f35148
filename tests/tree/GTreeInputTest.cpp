#include "../support/Interception.h"
#include "TreeFixture.h"

#include <algorithm>

namespace {

using namespace test;

// Rows of 20 pixels: a, its children a1 and a2, b, and c to l.
class GTreeInputTest : public TreeTest<GTree>
{
protected:
    void SetUp() override
    {
        Make(WS_VSCROLL | WS_HSCROLL);
        a = tree.Add(nullptr, "a");
        tree.Add(a, "a1");
        tree.Add(a, "a2");
        b = tree.Add(nullptr, "b");
    }
    void AddMany()
    {
        for (char c = 'c'; c <= 'l'; ++c) {
            tree.Add(nullptr, std::string(1, c));
        }
    }
    void SelectRow(UINT row)
    {
        tree.SetSelectedItem(tree.At(row));
        ASSERT_EQ(tree.m_nSelected, row);
    }
    int Page() const { return static_cast<int>(tree.m_siV.nPage); }

    void* a;
    void* b;
};

TEST_F(GTreeInputTest, APointHitsByStepsOf15WhateverIsPainted)
{
    void* deep = tree.Add(a, "deep");
    tree.Add(deep, "deeper");
    tree.Expand(a);
    ExpectHits(tree, {{0, 19, 0, THT_EXPANDER},
                      {14, 19, 0, THT_EXPANDER},
                      {15, 19, 0, THT_LABEL},
                      {150, 5, 0, THT_LABEL},
                      {14, 20, 1, THT_ROW},
                      {15, 20, 1, THT_ROW}, // no expander there
                      {30, 20, 1, THT_LABEL},
                      {15, 65, 3, THT_EXPANDER},
                      {5, 85, 4, THT_ROW}, // b has no children
                      {-1, 5, -1, THT_NOWHERE},
                      {5, -1, -1, THT_NOWHERE},
                      {TREE_CX + 1, 5, -1, THT_NOWHERE},
                      {5, TREE_CY + 1, -1, THT_NOWHERE}});
    tree.SetTreeStyle(GTS_CHECKBOXES);
    ExpectHits(tree, {{15, 0, 0, THT_CHECKBOX}, {29, 0, 0, THT_CHECKBOX}, {30, 0, 0, THT_LABEL}});
    tree.SetTreeStyle(GTS_IMAGES);
    ExpectHits(tree, {{15, 0, 0, THT_IMAGE}, {30, 0, 0, THT_LABEL}});
    tree.SetTreeStyle(GTS_CHECKBOXES | GTS_IMAGES);
    ExpectHits(tree, {{14, 0, 0, THT_EXPANDER},
                      {15, 0, 0, THT_CHECKBOX},
                      {30, 0, 0, THT_IMAGE},
                      {44, 0, 0, THT_IMAGE},
                      {45, 0, 0, THT_LABEL}});
    tree.SetTreeStyle(0);
    tree.Collapse(a);
    ExpectHits(tree, {{5, 40, -1, THT_ROW}}); // below the last row
    const SCROLLINFO vast{sizeof(SCROLLINFO), SIF_ALL, 0, INT_MAX - 1, 0, INT_MAX, 0};
    tree.SetScrollInfo(SB_VERT, &vast, 0);
    ExpectHits(tree, {{5, 40, -1, THT_ROW}});
    tree.RemoveAllItems();
    ExpectHits(tree, {{5, 5, -1, THT_NOWHERE}});
}

TEST_F(GTreeInputTest, AClickSelectsOrTogglesOnTheRowThatWasPressed)
{
    SetFocus(tree);
    host.Take();
    Click(60, 30);
    EXPECT_EQ(tree.GetSelectedItem(), b);
    EXPECT_EQ(tree.m_pSelected, b);
    std::vector<Notified> notified = host.Take();
    ASSERT_EQ(notified.size(), 1u);
    EXPECT_EQ(notified[0].code, CLICKED);
    EXPECT_EQ(notified[0].record.pItem, b);
    EXPECT_EQ(notified[0].record.hdr.idFrom, static_cast<UINT_PTR>(TREE_ID));
    EXPECT_EQ(notified[0].record.hdr.hwndFrom, static_cast<HWND>(tree));

    HoldKeys({VK_CONTROL});
    Click(60, 5);
    EXPECT_EQ(host.TakeLines(), Lines{"-2 row 0 action 0 at 60,5 keys 2"});
    HoldKeys({});
    Click(5, 5);
    EXPECT_EQ(tree.Rows(), "a a1 a2 b");
    EXPECT_EQ(host.Take().size(), 2u);
    // The row of the press counts, not its part.
    Mouse(WM_LBUTTONDOWN, 60, 5);
    Mouse(WM_LBUTTONUP, 5, 5);
    EXPECT_EQ(tree.Rows(), "a b");
    host.Take();
    Mouse(WM_LBUTTONDOWN, 60, 5);
    EXPECT_EQ(GetCapture(), static_cast<HWND>(tree));
    EXPECT_TRUE(tree.m_dwState & GWS_PRESSED);
    EXPECT_EQ(tree.GetSelectedItem(), a) << "the press selects nothing";
    Mouse(WM_LBUTTONUP, 60, 30);
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_EQ(tree.m_hitDown.nItem, NONE);
    EXPECT_EQ(tree.m_hitDown.nPart, 0xFFFF);
    Click(60, 90); // below the last row
    Mouse(WM_LBUTTONUP, 60, 5);
    EXPECT_TRUE(host.Take().empty());
    EXPECT_EQ(tree.GetSelectedItem(), a);
    // Check boxes are the host's to tick.
    tree.SetTreeStyle(GTS_CHECKBOXES);
    Click(20, 30);
    EXPECT_EQ(tree.GetSelectedItem(), b);
    EXPECT_EQ(tree.GetItemState(b), 0u);
    EXPECT_EQ(host.Take().size(), 1u);
}

TEST_F(GTreeInputTest, ADoubleClickTogglesUnlessTheParentObjects)
{
    Mouse(WM_LBUTTONDBLCLK, 60, 5);
    EXPECT_EQ(tree.Rows(), "a a1 a2 b");
    EXPECT_EQ(host.TakeLines()[0], "-3 row 0 action 0 at 60,5 keys 0");
    host.answer = 1;
    Mouse(WM_LBUTTONDBLCLK, 60, 5);
    EXPECT_EQ(tree.Rows(), "a a1 a2 b");
    host.answer = 0;
    Mouse(WM_LBUTTONDBLCLK, 60, 5);
    EXPECT_EQ(tree.Rows(), "a b");
    host.Take();
    Mouse(WM_LBUTTONDBLCLK, 5, 5); // on the expander
    EXPECT_TRUE(host.Take().empty());
    tree.SetTreeStyle(GTS_IMAGES);
    ASSERT_EQ(tree.HitAt(20, 5).nPart, THT_IMAGE);
    Mouse(WM_LBUTTONDBLCLK, 20, 5);
    EXPECT_EQ(tree.Rows(), "a a1 a2 b");
    tree.SetTreeStyle(0);
    host.Take();
    // What the parent does to the row holds.
    host.onNotify = [&](const Notified& n) {
        if (n.code == DOUBLE_CLICKED) {
            tree.RemoveAllItems();
            tree.Add(tree.Add(nullptr, "new"), "below");
        }
    };
    Mouse(WM_LBUTTONDBLCLK, 60, 5);
    EXPECT_EQ(tree.Rows(), "new") << "what stands in its place is not toggled";
}

TEST_F(GTreeInputTest, ThePointerHoversAndLeaves)
{
    Mouse(WM_MOUSEMOVE, 60, 30);
    EXPECT_EQ(tree.m_hitMove.nItem, 1u);
    EXPECT_EQ(tree.m_hitMove.nPart, THT_LABEL);
    EXPECT_FALSE(tree.m_dwState & GWS_HOT) << "the bit is set over nothing";
    EXPECT_TRUE(tree.m_dwState & GWS_TRACKING);
    UpdateWindow(tree);
    Mouse(WM_MOUSEMOVE, 61, 31);
    EXPECT_FALSE(GetUpdateRect(tree, nullptr, FALSE)) << "the same part: nothing to paint";
    Mouse(WM_MOUSEMOVE, 61, 5);
    EXPECT_TRUE(GetUpdateRect(tree, nullptr, FALSE));
    Send(WM_MOUSELEAVE);
    EXPECT_EQ(tree.m_hitMove.nItem, NONE);
    EXPECT_FALSE(tree.m_dwState & GWS_TRACKING);
    tree.RemoveAllItems();
    Mouse(WM_MOUSEMOVE, 60, 30);
    EXPECT_TRUE(tree.m_dwState & GWS_HOT);
}

TEST_F(GTreeInputTest, KeysMoveTheSelectionAndOpenBranches)
{
    SelectRow(0);
    const struct
    {
        UINT vk;
        const char* pszSelected;
        const char* pszRows;
        size_t nTold; // the selection is not reported, expansion and collapse are
        const char* pszWhy;
    } steps[] = {
        {VK_DOWN, "b", "a b", 0, ""},
        {VK_DOWN, "b", "a b", 0, "the last row"},
        {VK_UP, "a", "a b", 0, ""},
        {VK_UP, "a", "a b", 0, "the first row"},
        {VK_RIGHT, "a", "a a1 a2 b", 2, "opens"},
        {VK_RIGHT, "a1", "a a1 a2 b", 0, "goes in"},
        {VK_RIGHT, "a1", "a a1 a2 b", 0, "without children"},
        {VK_END, "b", "a a1 a2 b", 0, ""},
        {VK_LEFT, "b", "a a1 a2 b", 0, "never out to the root"},
        {VK_UP, "a2", "a a1 a2 b", 0, ""},
        {VK_LEFT, "a", "a a1 a2 b", 0, "goes out"},
        {VK_LEFT, "a", "a b", 2, "closes"},
        {VK_END, "b", "a b", 0, ""},
    };
    for (const auto& step : steps) {
        Key(step.vk);
        EXPECT_EQ(tree.Selected(), step.pszSelected) << &step - steps << step.pszWhy;
        if (step.vk == VK_UP || step.vk == VK_DOWN) {
            EXPECT_EQ(tree.m_pSelected, tree.GetSelectedItem()) << &step - steps << step.pszWhy;
        }
        EXPECT_EQ(tree.Rows(), step.pszRows) << &step - steps << step.pszWhy;
        EXPECT_EQ(host.Take().size(), step.nTold) << &step - steps << step.pszWhy;
    }
    Key(VK_HOME);
    EXPECT_EQ(tree.m_nSelected, 0u);
    EXPECT_EQ(tree.m_pSelected, nullptr) << "the number moves alone";
    EXPECT_EQ(tree.GetSelectedItem(), a);
    tree.Add(nullptr, "c");
    EXPECT_EQ(tree.m_nSelected, NONE) << "so that the next insertion loses it";
    Key(VK_SPACE);
    Key(VK_RETURN);
    EXPECT_TRUE(host.Take().empty());
    SelectRow(1);
    Key(VK_SPACE);
    Key(VK_RETURN);
    const std::string clicked = "-2 row 1 action 0 at -1,-1 keys 0";
    EXPECT_EQ(host.TakeLines(), (Lines{clicked, clicked}));
}

TEST_F(GTreeInputTest, KeysWithNoSelectedRowDoNothingButUpAndDown)
{
    for (const UINT vk : std::initializer_list<UINT>{VK_LEFT, VK_RIGHT, VK_SPACE, VK_RETURN}) {
        Key(vk);
        EXPECT_EQ(tree.m_nSelected, NONE) << vk;
    }
    Key(VK_DOWN);
    EXPECT_EQ(tree.Selected(), "a");
    tree.SetSelectedItem(nullptr);
    Key(VK_UP);
    EXPECT_EQ(tree.Selected(), "a");
    tree.RemoveAllItems();
    const auto pressAll = [&] {
        for (UINT key = 0; key < 256; ++key) {
            Key(key);
            Send(WM_CHAR, key, 1);
        }
    };
    pressAll();
    EXPECT_EQ(tree.GetSelectedItem(), nullptr);
    tree.Add(nullptr, "x");
    pressAll();
}

TEST_F(GTreeInputTest, PagingGoesToTheWholeRowsAtTheEdgesFirst)
{
    AddMany(); // 12 rows, 240 pixels
    tree.SetSelectedItem(tree.At(0));
    ASSERT_LT(Page(), 240);
    const UINT rowsOfPage = static_cast<UINT>(Page()) / 20;
    const UINT firstBottom = static_cast<UINT>(Page() + 1 - 20) / 20;
    Key(VK_NEXT);
    EXPECT_EQ(tree.m_nSelected, firstBottom);
    for (int i = 0; i < 11; ++i) {
        Key(VK_NEXT);
        EXPECT_GE(tree.m_nSelected, firstBottom);
    }
    EXPECT_EQ(tree.m_nSelected, 11u);
    EXPECT_EQ(tree.m_siV.nPos, 240 - Page());
    Key(VK_PRIOR);
    EXPECT_EQ(tree.m_nSelected, static_cast<UINT>(tree.m_siV.nPos + 19) / 20);
    const UINT top = tree.m_nSelected;
    Key(VK_PRIOR);
    EXPECT_EQ(tree.m_nSelected, top - std::min(top, rowsOfPage));
    for (int i = 0; i < 10; ++i) {
        Key(VK_PRIOR);
    }
    EXPECT_EQ(tree.m_nSelected, 0u);
    EXPECT_EQ(tree.m_siV.nPos, 0);
    EXPECT_EQ(tree.m_pSelected, tree.At(0));
}

TEST_F(GTreeInputTest, PagingInATreeThatFitsGoesToItsEnds)
{
    SelectRow(1);
    Key(VK_PRIOR);
    EXPECT_EQ(tree.m_nSelected, 0u);
    EXPECT_EQ(tree.m_pSelected, nullptr);
    Key(VK_NEXT);
    EXPECT_EQ(tree.GetSelectedItem(), b);
    EXPECT_EQ(tree.m_pSelected, b);
}

TEST_F(GTreeInputTest, LettersSearchForWhatIsTyped)
{
    for (const char* name : {"beta", "Bingo", "barn", "alpha"}) {
        tree.Add(nullptr, name);
    }
    // a b beta Bingo barn alpha
    const auto found = [&](const char* text) {
        for (const char* p = text; *p; ++p) {
            Send(WM_CHAR, static_cast<WPARAM>(*p), 1);
        }
        return tree.Selected();
    };
    EXPECT_EQ(found("a"), "a") << "from the first row on, where none is selected";
    Key(VK_HOME);
    EXPECT_EQ(found("b"), "b");
    EXPECT_EQ(found("b"), "beta") << "one letter again and again goes on";
    EXPECT_EQ(found("b"), "Bingo");
    Key(VK_HOME); // a movement ends what was typed
    EXPECT_EQ(found("bA"), "barn");
    EXPECT_EQ(found("?!"), "barn");
    Key(VK_SPACE);
    EXPECT_EQ(found("al"), "alpha");
    Key(VK_SPACE);
    EXPECT_EQ(found("al"), "alpha") << "the first letter went on, and the second one came around again";
    found("xxxxxxxxxxxxxxx");
    Key(VK_SPACE);
    EXPECT_EQ(found("z"), "alpha");
    for (const Notified& n : host.Take()) {
        EXPECT_EQ(n.code, CLICKED) << "the selection is not reported";
    }
}

TEST_F(GTreeInputTest, ScrollRequestsMoveByTheirStepsWithinTheRange)
{
    AddMany(); // 12 rows, 240 pixels
    const int last = tree.m_siV.nMax - Page() + 1;
    const auto scroll = [&](UINT code, UINT pos = 0) {
        Send(WM_VSCROLL, MAKEWPARAM(code, pos));
        return tree.m_siV.nPos;
    };
    EXPECT_EQ(scroll(SB_LINEDOWN), 20);
    tree.SetItemHeight(30);
    EXPECT_EQ(scroll(SB_LINEDOWN), 40) << "a line is 20 pixels at any height";
    EXPECT_EQ(scroll(SB_LINEUP), 20);
    tree.SetItemHeight(20);
    EXPECT_EQ(scroll(SB_PAGEDOWN), 20 + Page() * 5 / 6);
    EXPECT_EQ(scroll(SB_PAGEUP), 20);
    EXPECT_EQ(scroll(SB_THUMBTRACK, 33), 33);
    EXPECT_EQ(scroll(SB_THUMBPOSITION, 34), 34);
    EXPECT_EQ(scroll(SB_ENDSCROLL), 34);
    EXPECT_EQ(scroll(SB_THUMBTRACK, 5000), last);
    EXPECT_EQ(scroll(SB_LINEDOWN), last);
    scroll(SB_THUMBTRACK, 0);
    EXPECT_EQ(scroll(SB_LINEUP), 0);

    UINT lines = 3;
    SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
    const auto wheel = [&](int nDelta) {
        Send(WM_MOUSEWHEEL, MAKEWPARAM(0, nDelta));
        return tree.m_siV.nPos;
    };
    EXPECT_EQ(wheel(-120), std::min(static_cast<int>(lines) * 20, last));
    EXPECT_EQ(wheel(119), std::min(static_cast<int>(lines) * 20, last)) << "no whole notch";
    EXPECT_EQ(wheel(240), 0);
}

TEST_F(GTreeInputTest, TheSelectedRowIsBroughtIntoViewWhicheverIsGiven)
{
    AddMany();
    SelectRow(11);
    tree.EnsureVisible(a);
    EXPECT_EQ(tree.m_siV.nPos, 240 - Page());
    SelectRow(0);
    tree.EnsureVisible(tree.At(11));
    EXPECT_EQ(tree.m_siV.nPos, 0);
    tree.SetSelectedItem(nullptr);
    tree.EnsureVisible(tree.At(11));
    EXPECT_EQ(tree.m_siV.nPos, 0);
}

TEST_F(GTreeInputTest, TheScrollRangesCountTheRowsAndTheWidestLabel)
{
    EXPECT_EQ(tree.m_siV.nMax, 39);
    EXPECT_EQ(tree.m_siH.nMax, -1) << "nothing was measured yet";
    tree.Add(a, "a label that is far too wide for a tree of that width to show it");
    tree.Expand(a);
    EXPECT_EQ(tree.m_siV.nMax, 5 * 20 - 1);
    const int widest = tree.m_siH.nMax + 1;
    EXPECT_GT(widest, TREE_CX);
    tree.SetTreeStyle(GTS_IMAGES | GTS_CHECKBOXES);
    tree.Collapse(a);
    EXPECT_LT(tree.m_siH.nMax, TREE_CX);
    tree.Expand(a);
    EXPECT_EQ(tree.m_siH.nMax + 1, widest + 40) << "two cells more";
    tree.SetItemName(tree.At(3), L"");
    EXPECT_EQ(tree.m_siH.nMax + 1, widest + 40) << "until the next expansion or collapse";
    tree.Collapse(a);
    tree.Expand(a);
    EXPECT_LT(tree.m_siH.nMax, widest);

    // What fits leaves its page shorter by a bar.
    RECT rc{};
    tree.GetClientRectNoScroll(&rc);
    EXPECT_LE(tree.m_siH.nMax, rc.right);
    EXPECT_EQ(static_cast<int>(tree.m_siH.nPage),
              std::min(tree.m_siH.nMax, static_cast<int>(rc.right) - GetSystemMetrics(SM_CXVSCROLL)));
    tree.MoveWindow(0, 0, 900, 400);
    tree.MoveWindow(0, 0, 900, tree.m_siV.nMax);
    EXPECT_TRUE(tree.GetStyle() & WS_VSCROLL) << "one pixel of the last row is out of sight";
}

TEST_F(GTreeInputTest, AHorizontalLineIsAnItemsHeight)
{
    tree.Add(a, "a label that is far too wide for a tree of that width to show it");
    tree.Expand(a);
    tree.SetItemHeight(25);
    Send(WM_HSCROLL, SB_LINEDOWN);
    EXPECT_EQ(tree.m_siH.nPos, 25);
    EXPECT_EQ(tree.HitAt(14, 5).nPart, THT_EXPANDER) << "hit-testing stays where it was";
    Send(WM_HSCROLL, SB_LINEUP);
    EXPECT_EQ(tree.m_siH.nPos, 0);
}

TEST_F(GTreeInputTest, FocusSelectsTheFirstRowByNumberAlone)
{
    SetFocus(tree);
    EXPECT_EQ(tree.m_nSelected, 0u);
    EXPECT_EQ(tree.m_pSelected, nullptr);
    SetFocus(host);
    EXPECT_EQ(host.TakeLines(), (Lines{"-7", "-8"}));
    SelectRow(1);
    SetFocus(tree);
    EXPECT_EQ(tree.GetSelectedItem(), b);

    for (const WPARAM vk : {WPARAM{VK_TAB}, WPARAM{VK_ESCAPE}}) {
        MSG msg{tree, WM_KEYDOWN, vk, 0, 0, {}};
        EXPECT_EQ(SendMessageW(tree, WM_GETDLGCODE, vk, reinterpret_cast<LPARAM>(&msg)), 0x81);
    }
    EXPECT_EQ(SendMessageW(tree, WM_GETDLGCODE, 0, 0), 0x85);
    for (const auto& [uMsg, vk] : {std::pair(WM_KEYDOWN, WPARAM{VK_RETURN}), {WM_KEYUP, WPARAM{VK_TAB}}}) {
        MSG msg{tree, static_cast<UINT>(uMsg), vk, 0, 0, {}};
        EXPECT_EQ(SendMessageW(tree, WM_GETDLGCODE, vk, reinterpret_cast<LPARAM>(&msg)), 0x85);
    }
    for (const UINT uMsg : std::initializer_list<UINT>{WM_CONTEXTMENU, WM_KEYUP, WM_DEADCHAR, WM_MOUSEHWHEEL})
    {
        EXPECT_EQ(SendMessageW(tree, uMsg, 0, 0), 0) << uMsg;
    }
}

// A tree that goes with its window.
GTree* MakeOwnedTree(HWND hwndHost, DWORD dwStyle, int cx, int cy)
{
    static const WORD CREATION[] = {0, 0};
    const HWND hwnd =
        CreateWindowExW(0, L"GTree", L"", WS_CHILD | WS_VISIBLE | dwStyle, 0, 0, cx, cy, hwndHost,
                        reinterpret_cast<HMENU>(TREE_ID), nullptr, const_cast<WORD*>(CREATION));
    return static_cast<GTree*>(GWnd::FromHwnd(hwnd));
}

TEST_F(GTreeInputTest, TheParentMayDestroyTheTreeInEachNotification)
{
    struct Case
    {
        int code;
        std::function<void(HWND)> action;
    };
    const auto click = [](int x) {
        return [x](HWND hwnd) {
            SendMessageW(hwnd, WM_LBUTTONDOWN, 0, MAKELPARAM(x, 5));
            SendMessageW(hwnd, WM_LBUTTONUP, 0, MAKELPARAM(x, 5));
        };
    };
    const auto doubleClick = [](HWND hwnd) { SendMessageW(hwnd, WM_LBUTTONDBLCLK, 0, MAKELPARAM(60, 5)); };
    const auto key = [](UINT vk) { return [vk](HWND hwnd) { SendMessageW(hwnd, WM_KEYDOWN, vk, 1); }; };
    GTree* pTree = nullptr;
    const Case cases[] = {
        {CLICKED, click(60)},
        {CLICKED, key(VK_RETURN)},
        {DOUBLE_CLICKED, doubleClick},
        {EXPANDING, click(5)},
        {EXPANDED, click(5)},
        {EXPANDING, key(VK_RIGHT)},
        {EXPANDED, key(VK_RIGHT)},
        {EXPANDED, [&](HWND) { pTree->Expand(pTree->GetSelectedItem()); }},
        {EXPANDED, doubleClick},
        {FOCUS_SET, click(60)},
        {FOCUS_KILLED, [&](HWND) { SetFocus(host); }},
    };
    for (const bool fOwned : {false, true}) {
        for (const Case& c : cases) {
            GTree kept;
            if (!fOwned) {
                kept.Create(0, 0, TREE_CX, TREE_CY, host, TREE_ID, 0, WS_CHILD | WS_VISIBLE);
            }
            pTree = fOwned ? MakeOwnedTree(host, 0, TREE_CX, TREE_CY) : &kept;
            const HWND hwnd = pTree->GetHwnd();
            void* item = pTree->InsertItem(nullptr, nullptr, L"x", 0, 0, nullptr);
            pTree->InsertItem(item, nullptr, L"y", 0, 0, nullptr);
            pTree->SetSelectedItem(item);
            if (c.code != FOCUS_SET) {
                SetFocus(hwnd);
            }
            host.onNotify = [&](const Notified& n) {
                if (n.code == c.code) {
                    DestroyWindow(hwnd);
                }
            };
            c.action(hwnd);
            EXPECT_FALSE(IsWindow(hwnd)) << c.code << (fOwned ? " owned" : "");
            host.onNotify = nullptr;
        }
    }
}

TEST_F(GTreeInputTest, TheParentMayDestroyTheTreeAsItDrawsBehindTheBars)
{
    constexpr int PRINTING = 0, PAINTING = 1, UNFOLDING = 2, SIZING = 3;
    for (int action = PRINTING; action <= SIZING; ++action) {
        GTree* own = MakeOwnedTree(host, WS_HSCROLL | WS_VSCROLL, 60, 50);
        const HWND hwnd = own->GetHwnd();
        void* item = own->InsertItem(nullptr, nullptr, L"a label that is wider", 0, 0, nullptr);
        for (int i = 0; i < 4; ++i) {
            own->InsertItem(item, nullptr, L"and a row", 0, 0, nullptr);
        }
        if (action != UNFOLDING) {
            own->Expand(item);
            ASSERT_EQ(own->GetStyle() & (WS_HSCROLL | WS_VSCROLL), WS_HSCROLL | WS_VSCROLL);
        }
        own->MoveWindow(0, 0, action == SIZING ? 900 : 60, action == SIZING ? 900 : 50);
        const Interception background(host, WM_ERASEBKGND, [&] { DestroyWindow(hwnd); });
        const HDC hdc = CreateCompatibleDC(nullptr);
        switch (action) {
        case PRINTING:
            SendMessageW(hwnd, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(hdc), PRF_CLIENT | PRF_NONCLIENT);
            break;
        case PAINTING: SendMessageW(hwnd, WM_NCPAINT, 1, 0); break;
        case UNFOLDING: own->Expand(item); break;
        default: own->MoveWindow(0, 0, 60, 50); break;
        }
        DispatchAll();
        DeleteDC(hdc);
        EXPECT_TRUE(background.Happened()) << action;
        EXPECT_FALSE(IsWindow(hwnd)) << action;
    }
}

TEST_F(GTreeInputTest, AFontThatTheHostHandsOverIsTheTreesToDelete)
{
    const HFONT handed = CreateFontW(-30, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, L"Segoe UI");
    tree.SetFont(handed);
    tree.SetTreeStyle(0);
    tree.SetFont(nullptr);
    EXPECT_EQ(GetObjectType(handed), 0u);
}

TEST_F(GTreeInputTest, FontsAreTheTreesUntilTheHostGivesOne)
{
    const HFONT own = tree.GetFont();
    EXPECT_TRUE(own);
    EXPECT_EQ(SendMessageW(tree, WM_GETFONT, 0, 0), reinterpret_cast<LRESULT>(own));
    const HFONT hFont = CreateFontW(-30, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, L"Segoe UI");
    tree.Expand(a);
    const int narrow = tree.m_siH.nMax;
    Send(WM_SETFONT, reinterpret_cast<WPARAM>(hFont), TRUE);
    EXPECT_EQ(GetObjectType(own), 0u) << "the tree's own is deleted";
    EXPECT_EQ(tree.GetTreeStyle(), GTS_OWNFONT);
    tree.Collapse(a);
    tree.Expand(a);
    EXPECT_GT(tree.m_siH.nMax, narrow) << "the labels are measured in the new font";
    Send(WM_THEMECHANGED);
    EXPECT_EQ(tree.GetFont(), hFont);
    DestroyWindow(tree);
    EXPECT_NE(GetObjectType(hFont), 0u) << "the host's stays";
    EXPECT_EQ(tree.GetFont(), hFont);
    Make();
    EXPECT_NE(tree.GetFont(), hFont) << "a new window begins with the style's";
    DeleteObject(hFont);
    const HFONT second = tree.GetFont();
    tree.SetFont(second);
    EXPECT_NE(GetObjectType(second), 0u) << "its own, given to it, stays";
    DestroyWindow(tree);
    EXPECT_EQ(GetObjectType(second), 0u) << "and goes with the window";
}

} // namespace
