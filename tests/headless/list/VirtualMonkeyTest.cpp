// A list with items of its own and a list whose items are the host's, side by side over the same data: rows,
// hits, selection, notifications and drawing are the same after each step.
//
// Where the two differ by design the former is put where the latter is to be: when rows come and go the rows
// in view stay in view, and so do, in Classic, the cursor's item and the hot one.

#include "../../support/Numbers.h"
#include "../../support/WithBehavior.h"
#include "ListDesktop.h"

#include <gesso/list/ListInside.h>

#include <algorithm>
#include <memory>
#include <random>

namespace {

using namespace test;

constexpr UINT COLUMNS = 3;

struct Row
{
    std::string texts[COLUMNS];
    bool fChecked;
    UINT group;
};

std::vector<Row> g_rows;
std::vector<wchar_t> g_text;

void Get(GList*, UINT item, UINT column, UINT what, void* answer)
{
    if (what == LGET_TEXT) {
        g_text = Wide(g_rows[item].texts[column]);
        *static_cast<LPCWSTR*>(answer) = g_text.data();
    } else if (what == LGET_IMAGE) {
        *static_cast<UINT*>(answer) = item % 2;
    } else if (what == LGET_STATE) {
        *static_cast<UINT*>(answer) = g_rows[item].fChecked ? LSIS_CHECKED : 0;
    }
}

class VirtualMonkeyTest : public ListDesktop
{
protected:
    void SetUp() override { m_images = ImageList_Create(16, 16, ILC_COLOR32, 2, 1); }
    void TearDown() override
    {
        ListDesktop::TearDown();
        ImageList_Destroy(m_images);
        g_rows.clear();
        g_text = {};
    }

    UINT Random(UINT limit) { return static_cast<UINT>(m_random() % limit); }
    bool Chance(UINT oneIn) { return Random(oneIn) == 0; }
    UINT Item() { return Random(static_cast<UINT>(g_rows.size()) + 1); }
    template <class ACT> void Both(ACT act)
    {
        act(list);
        act(*m_own);
    }
    // The same random numbers for both.
    template <class ACT> void BothRandom(ACT act)
    {
        const std::mt19937 before = m_random;
        act(list);
        const std::mt19937 behind = std::exchange(m_random, before);
        act(*m_own);
        m_random = behind;
    }

    void Make(bool fGrouped);
    void InsertOwn(UINT item);
    void Insert();
    void Remove();
    void Change();
    void ChangeLook();
    void UseKeys();
    void UseMouse();
    void Scroll();
    void Select();
    void Step();
    void LayOutTwice();
    void Rename();
    void CountAnew();
    void NoteView();
    void ExpectView(UINT first, UINT inserted, UINT removed);
    void Follow();
    void Compare();
    void Run(unsigned seed, bool fGrouped);

    std::mt19937 m_random;
    HIMAGELIST m_images = nullptr;
    std::unique_ptr<NotifyHost> m_host;
    std::unique_ptr<ProbeList> m_own;
    std::vector<UINT> m_counts; // of the groups
    bool m_fModern = false;
    UINT m_kind = 0;
    // Before rows come or go: the first item in view, and how far the position lies below its top.
    UINT m_topItem = END;
    int m_topOffset = 0;
    UINT m_indices[3]{}; // cursor, last and anchor
    UINT m_hot = END;
};

void VirtualMonkeyTest::Make(bool fGrouped)
{
    g_rows.clear();
    m_counts.assign(fGrouped ? 3 : 0, 0);
    m_host = std::make_unique<NotifyHost>();
    m_own = std::make_unique<ProbeList>();
    const UINT style = (Chance(3) ? GLS_TILES : GLS_DETAILS) | GLS_HEADER | (Chance(2) ? GLS_CHECKBOXES : 0) |
                       (Chance(3) ? GLS_GRIDLINES : 0);
    const auto make = [&](ProbeList& made, HWND hwndHost) {
        made.Create(0, 0, LIST_CX, LIST_CY, hwndHost, LIST_ID, style, 0,
                    WS_CHILD | WS_VISIBLE | WS_HSCROLL | WS_VSCROLL);
        made.SetImageList(m_images);
        const int types[COLUMNS] = {LCT_IMAGETEXT, LCT_TEXT, LCT_TITLE};
        for (UINT column = 0; column < COLUMNS; ++column) {
            const RECT rc{static_cast<LONG>(40 * column), 2, static_cast<LONG>(40 * column + 60), 20};
            made.InsertColumn(END, LCF_TILELINE, DT_SINGLELINE, 90, 20, L"Column", 0, types[column],
                              style & 2 ? &rc : nullptr, nullptr, nullptr, Get);
        }
        for (UINT group = 0; group < m_counts.size(); ++group) {
            made.InsertGroup(DT_SINGLELINE, L"Group", 0, group + 10);
        }
    };
    make(list, host);
    make(*m_own, *m_host);
    list.SetVirtualItems(0);
    m_own->SetListStyle(style);
}

void VirtualMonkeyTest::InsertOwn(UINT item)
{
    const Row& row = g_rows[item];
    m_own->InsertItem(item, row.group, nullptr, row.fChecked ? LSIS_CHECKED : 0, Wide(row.texts[0]).data(),
                      0);
    for (UINT column = 1; column < COLUMNS; ++column) {
        m_own->SetSubItem(item, column, 0, Wide(row.texts[column]).data(), 0);
    }
}

// Reckoned from the list with items of its own.
void VirtualMonkeyTest::NoteView()
{
    const int position = list.GetScrollPos(SB_VERT);
    const auto reaches = [position](const stcElementPosition& row) {
        return row.type == LET_ITEM && row.rect.bottom > position;
    };
    const auto top = std::find_if(m_own->elements.begin(), m_own->elements.end(), reaches);
    m_topItem = top == m_own->elements.end() ? END : top->index;
    m_topOffset = top == m_own->elements.end() ? 0 : position - top->rect.top;
    m_indices[0] = list.cursorItem;
    m_indices[1] = list.lastItem;
    m_indices[2] = list.shiftAnchor;
    m_hot = list.hitHot.item;
}

void VirtualMonkeyTest::ExpectView(UINT first, UINT inserted, UINT removed)
{
    const auto count = static_cast<UINT>(g_rows.size());
    const UINT next = count ? std::min(first, count - 1) : END;
    const auto moved = [=](UINT index, UINT gone) {
        const bool fStays = index == END || index < first;
        return fStays ? index : index - first < removed ? gone : index - removed + inserted;
    };
    EXPECT_EQ(list.cursorItem, moved(m_indices[0], next));
    EXPECT_EQ(list.lastItem, moved(m_indices[1], next));
    EXPECT_EQ(list.shiftAnchor, moved(m_indices[2], next));
    if (!m_fModern && m_hot < LHI_HEADER) {
        EXPECT_EQ(list.hitHot.item, moved(m_hot, END));
    }
    LayOutTwice();
    // Where neither the rows end nor the view changes whether a bar shows.
    const UINT item = moved(m_topItem, next);
    const int room =
        list.m_siV.nMax - static_cast<int>(list.m_siV.nPage) - 2 * GetSystemMetrics(SM_CYHSCROLL);
    const auto isTop = [item](const stcElementPosition& row) {
        return row.type == LET_ITEM && row.index == item;
    };
    const auto top = std::find_if(m_own->elements.begin(), m_own->elements.end(), isTop);
    if (top != m_own->elements.end() && top->rect.top + m_topOffset < room) {
        EXPECT_EQ(list.GetScrollPos(SB_VERT), std::max(top->rect.top + m_topOffset, LONG{0}))
            << "item " << item << " was the first in view";
    }
    Follow();
}

void VirtualMonkeyTest::Insert()
{
    const UINT first = Item();
    NoteView();
    const UINT count = 1 + Random(Chance(4) ? 30 : 3);
    UINT group = 0;
    UINT end = 0;
    for (UINT g = 0; g < m_counts.size(); ++g) {
        group = end <= first ? g : group;
        end += m_counts[g];
    }
    if (!m_counts.empty()) {
        m_counts[group] += count;
    }
    for (UINT i = 0; i < count; ++i) {
        Row row{{}, Chance(3), m_counts.empty() ? 0 : group + 10};
        for (std::string& text : row.texts) {
            text.assign(Random(10), static_cast<char>('a' + Random(26)));
        }
        g_rows.insert(g_rows.begin() + first + i, row);
        InsertOwn(first + i);
    }
    list.ItemsInserted(first, count);
    ExpectView(first, count, 0);
}

void VirtualMonkeyTest::Remove()
{
    if (g_rows.empty()) {
        return;
    }
    const UINT first = Random(static_cast<UINT>(g_rows.size()));
    const UINT count = std::min(1 + Random(4), static_cast<UINT>(g_rows.size()) - first);
    NoteView();
    for (UINT i = 0; i < count; ++i) {
        if (!m_counts.empty()) {
            --m_counts[g_rows[first].group - 10];
        }
        g_rows.erase(g_rows.begin() + first);
        m_own->RemoveItem(first);
    }
    list.ItemsRemoved(first, count);
    ExpectView(first, 0, count);
}

void VirtualMonkeyTest::Change()
{
    if (g_rows.empty()) {
        return;
    }
    const UINT item = Random(static_cast<UINT>(g_rows.size()));
    const UINT column = Random(COLUMNS);
    Row& row = g_rows[item];
    row.texts[column].assign(Random(20), 'z');
    row.fChecked = Chance(2);
    m_own->SetItemText(item, column, Wide(row.texts[column]).data());
    m_own->SetItemState(item, 0, row.fChecked ? LSIS_CHECKED : 0, LSIS_CHECKED);
    list.ItemsChanged(item, item);
    LayOutTwice();
}

void VirtualMonkeyTest::ChangeLook()
{
    const UINT views[] = {GLS_DETAILS, GLS_TILES, m_fModern ? GLS_ICONS : GLS_DETAILS};
    const UINT bits[] = {0, GLS_GRIDLINES, GLS_HEADER, GLS_CHECKBOXES};
    BothRandom([&](ProbeList& l) {
        switch (Random(5)) {
        case 0: l.SetItemHeight(10 + Random(40)); break;
        case 1: l.SetColumnCx(Random(COLUMNS), Random(200)); break;
        case 2: l.SetGroupHeight(Random(50)); break;
        case 3:
            SetWindowPos(l, nullptr, 0, 0, 100 + static_cast<int>(Random(300)),
                         60 + static_cast<int>(Random(300)), SWP_NOMOVE | SWP_NOZORDER);
            break;
        default: l.SetListStyle(views[Random(3)] | bits[Random(4)] | bits[Random(4)]); break;
        }
    });
    LayOutTwice();
}

void VirtualMonkeyTest::UseKeys()
{
    const UINT keys[] = {VK_UP,   VK_DOWN, VK_LEFT, VK_RIGHT, VK_PRIOR,
                         VK_NEXT, VK_HOME, VK_END,  VK_SPACE, 'A'};
    const UINT key = keys[Random(10)];
    HoldKeys(static_cast<WORD>(Random(4) * 2));
    Both([&](ProbeList& l) { SendMessageW(l, WM_KEYDOWN, key, 1); });
    HoldKeys(0);
}

// Each list has the whole of it, since there is one capture and one focus.
void VirtualMonkeyTest::Rename()
{
    const UINT item = Item();
    if (item == g_rows.size()) {
        return;
    }
    SetFocus(host);
    Both([&](ProbeList& l) {
        l.EditItem(item);
        SendMessageW(GetFocus(), WM_KEYDOWN, VK_ESCAPE, 1);
        SetFocus(host);
    });
}

// The same number, which forgets the groups'.
void VirtualMonkeyTest::CountAnew()
{
    list.SetVirtualItems(list.GetItemCount());
    for (UINT group = 0; group < m_counts.size(); ++group) {
        list.SetGroupItemCount(group, m_counts[group]);
    }
    LayOutTwice();
    Both([](ProbeList& l) { l.SetScrollPos(SB_VERT, 0, 0); });
    m_own->hitHot = list.hitHot;
}

void VirtualMonkeyTest::UseMouse()
{
    const auto any = [this] { return MAKELPARAM(Random(300) - 5, Random(250) - 5); };
    const LPARAM from = any();
    const LPARAM to = Chance(2) ? from : any();
    const UINT down = Chance(4) ? WM_RBUTTONDOWN : WM_LBUTTONDOWN;
    const bool fHeader =
        list.HitAt(static_cast<SHORT>(LOWORD(from)), static_cast<SHORT>(HIWORD(from))).item == LHI_HEADER;
    if (fHeader && !m_fModern) {
        return; // which one of the two lists sorts by
    }
    host.answer = m_host->answer = fHeader; // so that neither does
    HoldKeys(static_cast<WORD>(Random(4) * 2));
    Both([&](ProbeList& l) {
        SendMessageW(l, down, 0, from);
        SendMessageW(l, WM_MOUSEMOVE, 0, to);
        SendMessageW(l, down + 1, 0, to);
    });
    HoldKeys(0);
    SetFocus(host);
    host.answer = m_host->answer = 0;
}

void VirtualMonkeyTest::Scroll()
{
    const UINT message = Chance(4) ? WM_HSCROLL : WM_VSCROLL;
    const WPARAM wParam = MAKEWPARAM(Random(6), Random(2000));
    const WPARAM wWheel = MAKEWPARAM(0, static_cast<int>(Random(5)) * 120 - 240);
    Both([&](ProbeList& l) {
        SendMessageW(l, message, wParam, 0);
        SendMessageW(l, WM_MOUSEWHEEL, wWheel, 0);
    });
}

void VirtualMonkeyTest::Select()
{
    const UINT item = Item();
    BothRandom([&](ProbeList& l) {
        switch (Random(5)) {
        case 0: l.SetSelected(item, static_cast<int>(Random(2))); break;
        case 1: l.SetNextSelectedItemIndex(item); break;
        case 2: l.SetFirstSelectedItemIndex(item); break;
        case 3: l.ClearSelection(); break;
        default:
            if (item < g_rows.size()) {
                l.EnsureVisible(item);
                l.SetCursorItem(item);
            }
            break;
        }
    });
}

// The pages of Classic's bars go by the bars before: a second layout settles them.
void VirtualMonkeyTest::LayOutTwice()
{
    for (int i = 0; i < 2; ++i) {
        Both([](ProbeList& l) { l.SetListStyle(l.GetListStyle()); });
    }
}

// What the list with items of its own does otherwise when they come and go.
void VirtualMonkeyTest::Follow()
{
    m_own->SetScrollPos(SB_VERT, list.GetScrollPos(SB_VERT), 0);
    m_own->hitHot = list.hitHot;
    if (!m_fModern) {
        m_own->cursorItem = list.cursorItem;
        m_own->lastItem = list.lastItem;
        m_own->shiftAnchor = list.shiftAnchor;
        m_own->hitPress = list.hitPress;
    }
    // A selection that goes is told of item by item there.
    host.Take();
    m_host->Take();
}

void VirtualMonkeyTest::Step()
{
    m_kind = Random(13);
    switch (m_kind) {
    case 0:
    case 1: Insert(); break;
    case 2: Remove(); break;
    case 3: Change(); break;
    case 4: ChangeLook(); break;
    case 5: Scroll(); break;
    case 6: Select(); break;
    case 7:
    case 8: UseKeys(); break;
    case 9: Rename(); break;
    case 10: CountAnew(); break;
    default: UseMouse(); break;
    }
}

// Without what a list with items of its own draws below its window.
Lines Seen(Lines lines, HWND hwnd)
{
    RECT rc{};
    GetClientRect(hwnd, &rc);
    std::erase_if(lines, [&rc](const std::string& line) {
        const size_t place = line.find("("); // no text has one
        const size_t comma = line.find(',', place);
        return place != std::string::npos && comma != std::string::npos &&
               std::atoi(line.c_str() + comma + 1) >= rc.bottom;
    });
    return lines;
}

void ExpectSameLines(const Lines& lines, const Lines& own)
{
    const auto [a, b] = std::mismatch(lines.begin(), lines.end(), own.begin(), own.end());
    EXPECT_EQ(a == lines.end() ? "the end" : *a, b == own.end() ? "the end" : *b)
        << "behind " << a - lines.begin() << " lines";
}

std::string Told(NotifyHost& host)
{
    std::string told;
    for (const Notified& n : host.Take()) {
        told += std::to_string(n.code) + " " + Numbers(n.record.iItem, n.record.iSubItem) + "; ";
    }
    return told;
}

void VirtualMonkeyTest::Compare()
{
    ASSERT_TRUE(gesso::ListInside::CheckLayout(list));
    ASSERT_EQ(list.GetItemCount(), m_own->GetItemCount());
    EXPECT_EQ(list.Selected(), m_own->Selected());
    EXPECT_EQ(list.GetCursorItem(), m_own->GetCursorItem());
    EXPECT_EQ(list.GetScrollPos(SB_VERT), m_own->GetScrollPos(SB_VERT));
    EXPECT_EQ(list.GetScrollPos(SB_HORZ), m_own->GetScrollPos(SB_HORZ));
    EXPECT_EQ(Numbers(list.m_siV.nMax, list.m_siV.nPage), Numbers(m_own->m_siV.nMax, m_own->m_siV.nPage));
    EXPECT_EQ(list.contentCy, m_own->contentCy);
    EXPECT_EQ(list.contentCx, m_own->contentCx);
    EXPECT_EQ(Told(host), Told(*m_host));
    for (UINT item = 0; item < g_rows.size(); ++item) {
        RECT rc{}, rcOwn{};
        list.GetItemRect(&rc, item, 0);
        m_own->GetItemRect(&rcOwn, item, 0);
        ASSERT_TRUE(EqualRect(&rc, &rcOwn)) << "item " << item << " at " << rc.top << " and " << rcOwn.top;
    }
    for (int y = -1; y < 300; y += 7) {
        for (int x = -1; x < 320; x += 43) {
            const GList::HitTestInfo hit = list.HitAt(x, y);
            const GList::HitTestInfo hitOwn = m_own->HitAt(x, y);
            ASSERT_EQ(hit.item, hitOwn.item) << x << "," << y;
            ASSERT_EQ(hit.subItem, hitOwn.subItem) << x << "," << y;
        }
    }
    for (UINT item = 0; item < g_rows.size(); item += 1 + Random(9)) {
        EXPECT_TRUE(wcscmp(list.GetItemText(item, 1), m_own->GetItemText(item, 1)) == 0);
        EXPECT_EQ(list.GetItemState(item, 0), m_own->GetItemState(item, 0) & LSIS_CHECKED);
        EXPECT_EQ(list.GetItemGroup(item), m_counts.empty() ? END : m_own->GetItemGroup(item));
    }
    const auto drawing = [](ProbeList& l) {
        UpdateWindow(l);
        desk::ClearDrawing(l);
        InvalidateRect(l, nullptr, FALSE);
        UpdateWindow(l);
        return Seen(desk::Drawing(l), l);
    };
    ExpectSameLines(drawing(list), drawing(*m_own));
}

void VirtualMonkeyTest::Run(unsigned seed, bool fGrouped)
{
    constexpr int STEPS = 150;
    m_random.seed(seed);
    SCOPED_TRACE("lists " + std::to_string(seed));
    Renew();
    Make(fGrouped);
    for (int step = 0; step < STEPS && !HasFailure(); ++step) {
        SCOPED_TRACE("step " + std::to_string(step));
        Step();
        SCOPED_TRACE("of kind " + std::to_string(m_kind));
        Compare();
    }
    DestroyWindow(list);
    DestroyWindow(*m_own);
    m_own.reset();
    m_host.reset();
    host.Take();
}

TEST_F(VirtualMonkeyTest, ItemsOfTheHostsAreLikeTheListsOwnInClassic)
{
    for (unsigned seed = 0; seed < 12 && !HasFailure(); ++seed) {
        Run(seed, false);
    }
    MakeList();
}

// A paint that asks for another one would never come to an end.
TEST_F(VirtualMonkeyTest, AHostThatChangesItsItemsInEachAnswerIsPaintedAndDone)
{
    MakeList();
    const auto change = [](GList* pList, UINT, UINT, UINT, void*) {
        pList->ItemsChanged(0, END);
        pList->ItemsInserted(0, 1);
    };
    list.InsertColumn(0, 0, 0, 50, 10, L"A", 0, LCT_TEXT, nullptr, nullptr, nullptr, change);
    list.SetVirtualItems(10);
    desk::Pump();
    EXPECT_FALSE(GetUpdateRect(list, nullptr, FALSE));
    EXPECT_GT(list.GetItemCount(), 10U);
    EXPECT_LT(list.GetItemCount(), 30U);
}

TEST_F(VirtualMonkeyTest, ItemsOfTheHostsAreLikeTheListsOwnInModern)
{
    const Modern modern;
    m_fModern = true;
    for (unsigned seed = 0; seed < 24 && !HasFailure(); ++seed) {
        Run(seed, seed % 2 != 0);
    }
    MakeList();
}

} // namespace
