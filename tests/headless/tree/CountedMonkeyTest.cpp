// A monkey at two trees of the same data, side by side: one whose host has inserted every item, and one whose
// host has only counted them. Nothing that shows may part them.

#include "../../support/Numbers.h"
#include "../../support/WithBehavior.h"
#include "../../tree/TreeFixture.h"
#include "../FreshDesktop.h"

#include <tests/support/AllowMisuse.h>

#include <algorithm>
#include <map>
#include <optional>
#include <random>

namespace {

using namespace test;

constexpr UINT TOPS = 60;
constexpr int ASKED = -452;

// The data: "7.3" is the child with the index 3 of "7". Whatever an item is called later, it stays what it
// is.
std::string ChildName(const std::string& parent, UINT i)
{
    return parent.empty() ? std::to_string(i) : parent + "." + std::to_string(i);
}
UINT ChildCountOf(const std::string& name)
{
    const auto depth = std::count(name.begin(), name.end(), '.');
    const UINT last = static_cast<UINT>(name.back() - '0');
    return depth < 2 && last % 3 == 0 ? 2 + last : 0;
}

struct Side
{
    Side()
    {
        tree.Create(0, 0, TREE_CX, TREE_CY, host, TREE_ID, 0,
                    WS_CHILD | WS_VISIBLE | WS_VSCROLL | WS_HSCROLL);
    }
    ~Side()
    {
        host.onNotify = nullptr;
        DestroyWindow(tree);
    }

    void Insert(void* parent, const std::string& name, UINT n)
    {
        for (UINT i = 0; i < n; ++i) {
            const std::string child = ChildName(name, i);
            void* item = tree.InsertItem(parent, nullptr, WideText(child), i % 4, 0, nullptr);
            data[item] = child;
            Insert(item, child, ChildCountOf(child));
        }
    }
    void Count()
    {
        host.onNotify = [this](const Notified& n) {
            if (n.code == ASKED) {
                Answer(n);
            }
        };
        tree.SetChildCount(nullptr, TOPS);
    }
    void Answer(const Notified& n)
    {
        const auto i = static_cast<UINT>(n.record.iItem);
        const std::string name = ChildName(n.record.pItem ? data[n.record.pItem] : "", i);
        data[tree.GetChildAt(n.record.pItem, i)] = name;
        m_answer.emplace(name);
        *n.record.pDispInfo = {0, *m_answer, i % 4, ChildCountOf(name)};
    }

    // Of a row, all that the getters tell.
    std::string Tell(UINT row)
    {
        void* item = tree.At(row);
        if (!item) {
            return "no row";
        }
        RECT rc{}, rcLabel{};
        tree.GetItemRect(item, false, &rc);
        tree.GetItemRect(item, true, &rcLabel);
        void* parent = tree.GetItemParent(item);
        return Narrow(tree.GetItemName(item)) + " level " + std::to_string(tree.GetItemLevel(item)) +
               " state " + std::to_string(tree.GetItemState(item)) + " image " +
               std::to_string(tree.GetItemImage(item)) + " children " +
               std::to_string(tree.GetItemChildCount(item)) + " at " + Numbers(rc) + " label " +
               Numbers(rcLabel) + " row " +
               std::to_string(tree.FindVisibleIndex(static_cast<TreeItem*>(item))) + " below " +
               Narrow(tree.GetItemName(parent)) + " next " + Next(parent, item);
    }
    std::string Next(void* parent, void* item) const
    {
        void* next = tree.GetItemNextChild(parent, item);
        return next == reinterpret_cast<void*>(-1) ? "none" : Narrow(tree.GetItemName(next));
    }
    std::string Hit(int x, int y) const
    {
        void* item = tree.ItemFromPoint({x, y});
        const auto hit = tree.HitAt(x, y);
        return std::to_string(hit.nItem) + " part " + std::to_string(hit.nPart) + " " +
               (item ? Narrow(tree.GetItemName(item)) : "none");
    }
    std::string Selection()
    {
        return std::to_string(tree.m_nSelected) + " " +
               (tree.m_pSelected ? Narrow(tree.GetItemName(tree.m_pSelected)) : "none") + " of " +
               std::to_string(tree.m_aVisible.GetLength()) + " from " + std::to_string(tree.m_siV.nPos) +
               " to " + std::to_string(tree.m_siV.nMax) + Across();
    }
    // The range across, where a name that the monkey has given makes it: of those, all are known.
    std::string Across() const
    {
        const bool fRenamed = tree.m_siH.nMax >= 2 * TREE_CX;
        return fRenamed
                   ? " across " + std::to_string(tree.m_siH.nPos) + " to " + std::to_string(tree.m_siH.nMax)
                   : "";
    }
    std::string ToRepaint()
    {
        RECT rc{};
        GetUpdateRect(tree, &rc, FALSE);
        return Numbers(rc);
    }
    // Other children, below which nothing is that the monkey has added.
    void CountAnew(void* item, UINT n)
    {
        std::erase_if(added, [&](void* h) { return IsBelow(h, item); });
        if (host.onNotify) {
            return tree.SetChildCount(item, n);
        }
        for (void* h; (h = tree.GetItemNextChild(item, nullptr)) != reinterpret_cast<void*>(-1);) {
            tree.RemoveItem(h);
        }
        Insert(item, data[item], n);
    }
    // Whether its children, if it has any, are what the monkey has added.
    bool TakesMore(void* item) const
    {
        void* child = tree.GetItemNextChild(item, nullptr);
        return item != tree.GetRootItem() && (child == reinterpret_cast<void*>(-1) ||
                                              std::find(added.begin(), added.end(), child) != added.end());
    }
    // Or is that item.
    bool IsBelow(void* h, void* item) const
    {
        while (h && h != item) {
            h = tree.GetItemParent(h);
        }
        return h;
    }
    // What the host was told, but for what it was asked.
    Lines Told()
    {
        Lines lines = host.TakeLines();
        std::erase_if(lines, [](const std::string& line) {
            return line.starts_with(std::to_string(ASKED)) || line == std::to_string(FOCUS_SET) ||
                   line == std::to_string(FOCUS_KILLED);
        });
        return lines;
    }

    NotifyHost host;
    Probe<GTree> tree;
    std::vector<void*> added; // by the monkey, below items without children of their own
    std::map<void*, std::string> data;

private:
    std::optional<WideText> m_answer;
};

class CountedMonkey : private FreshDesktop
{
public:
    CountedMonkey(unsigned seed, bool fModern) : m_random(seed), m_fModern(fModern)
    {
        m_font.Reset(CreateFontW(-20, 0, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0, L"Font"));
        m_owned.Insert(nullptr, "", TOPS);
        m_counted.Count();
    }

    void Run(int steps)
    {
        Compare();
        for (int step = 0; step < steps && !testing::Test::HasFailure(); ++step) {
            SCOPED_TRACE("step " + std::to_string(step));
            Step();
            SCOPED_TRACE("of kind " + std::to_string(m_kind));
            Compare();
            ASSERT_TRUE(m_owned.tree.Check());
            ASSERT_TRUE(m_counted.tree.Check());
        }
    }

private:
    UINT Below(size_t limit) { return static_cast<UINT>(m_random() % limit); }

    // The same with each of them, to which the focus goes before.
    template <class ACT> void OnBoth(const ACT& act)
    {
        for (Side* side : {&m_owned, &m_counted}) {
            SetFocus(side->tree);
            act(*side);
        }
    }
    // A row near those in view, or any.
    UINT AnyRow()
    {
        const UINT nRows = m_owned.tree.m_aVisible.GetLength();
        return Below(3) == 0 ? Below(nRows) : std::min(RowInView() + Below(4), nRows - 1);
    }
    UINT RowInView()
    {
        const UINT rowTop = static_cast<UINT>(m_owned.tree.m_siV.nPos) / m_owned.tree.GetItemHeight();
        return std::min(rowTop + Below(3), m_owned.tree.m_aVisible.GetLength() - 1);
    }

    void Step()
    {
        const UINT row = AnyRow();
        m_kind = Below(19);
        switch (m_kind) {
        case 0:
        case 1: OnBoth([&](Side& s) { s.tree.GTree::Expand(s.tree.At(row)); }); break;
        case 2: OnBoth([&](Side& s) { s.tree.GTree::Collapse(s.tree.At(row)); }); break;
        case 3: OnBoth([&](Side& s) { s.tree.SetSelectedItem(s.tree.At(row)); }); break;
        case 4: OnBoth([&](Side& s) { s.tree.GTree::EnsureVisible(s.tree.At(row)); }); break;
        case 5: Change(row); break;
        case 6: AddOrRemove(row); break;
        case 7:
        case 8:
        case 9: Mouse(); break;
        case 10: Scroll(); break;
        case 11: Rename(RowInView()); break;
        case 12: Type(row); break;
        case 13: Surround(); break;
        case 14: Order(row); break;
        case 15:
            if (m_fModern) {
                CountAnew(row);
            }
            break;
        default: Key(); break;
        }
    }

    void Change(UINT row)
    {
        const UINT uState = Below(2) ? TIS_CHECKED : TIS_EXPANDED;
        const UINT uNew = Below(2) ? uState : 0;
        const UINT nKind = Below(4);
        OnBoth([&](Side& s) {
            s.tree.GetItemName(s.tree.At(row)); // which asks: what is expanded first is shown by the answer
            switch (nKind) {
            case 0: s.tree.SetItemHeight(18 + uState % 5); break;
            case 1:
                s.tree.SetTreeStyle((s.tree.GetTreeStyle() & GTS_OWNFONT) |
                                    (uNew ? GTS_CHECKBOXES | GTS_IMAGES : 0));
                break;
            case 2: s.tree.SetItemImage(s.tree.At(row), 3); break;
            default: s.tree.SetItemState(s.tree.At(row), uNew, uState); break;
            }
        });
    }

    // Names that are longer than all of the data's, or in place.
    void Rename(UINT row)
    {
        const std::string name(80 + Below(30), static_cast<char>('a' + Below(26)));
        const bool fInPlace = Below(2);
        const bool fTaken = Below(2);
        OnBoth([&](Side& s) {
            if (!fInPlace) {
                return s.tree.SetItemName(s.tree.At(row), WideText(name));
            }
            s.tree.EditLabel(s.tree.At(row));
            s.host.answer = fTaken;
            if (const HWND hwndField = GetWindow(s.tree, GW_CHILD)) {
                SetWindowTextW(hwndField, WideText(name));
                SendMessageW(hwndField, WM_KEYDOWN, VK_RETURN, 0);
            }
            s.host.answer = 0;
        });
    }

    // What rows that have shown begin with; the row's is one of them.
    void Type(UINT row)
    {
        if (row == 0) {
            return;
        }
        const char c = Narrow(m_counted.tree.GetItemName(m_counted.tree.At(row))).front();
        OnBoth([&](Side& s) {
            SendMessageW(s.tree, WM_KEYDOWN, VK_DOWN, 1); // another word
            s.tree.SetSelectedItem(s.tree.At(row - 1));
            if (s.tree.m_nSelected == row - 1) {
                SendMessageW(s.tree, WM_CHAR, static_cast<WPARAM>(c), 1);
            }
        });
    }

    void Surround()
    {
        const UINT nKind = Below(5);
        const int cx = TREE_CX + static_cast<int>(Below(60)); // room for all but what is renamed
        OnBoth([&](Side& s) {
            switch (nKind) {
            case 0: s.tree.SetRootVisible(cx % 2 == 0); break;
            case 1: s.tree.MoveWindow(0, 0, cx, TREE_CY + cx % 40); break;
            case 2: s.tree.SetFont(cx % 2 == 0 ? HFONT(m_font) : nullptr); break;
            case 3: s.tree.SetSelectedItem(nullptr); break;
            default: SendMessageW(s.tree, WM_MOUSEWHEEL, MAKEWPARAM(0, 240), 0); break;
            }
        });
    }

    // Among what the monkey has added.
    void Order(UINT row)
    {
        if (m_owned.added.empty()) {
            return;
        }
        const UINT k = Below(m_owned.added.size());
        const bool fMoves = m_owned.TakesMore(m_owned.tree.At(row));
        OnBoth([&](Side& s) {
            if (fMoves) {
                s.tree.SetItemParent(s.added[k], s.tree.At(row));
            } else if (m_fModern) {
                s.tree.SortChildren(s.tree.GetItemParent(s.added[k]));
            }
        });
    }

    // What each is told of those that go is not the same: the one has made few of them.
    void CountAnew(UINT row)
    {
        const UINT n = Below(6);
        if (m_owned.tree.At(row) == m_owned.tree.GetRootItem()) {
            return;
        }
        OnBoth([&](Side& s) {
            s.Told();
            s.CountAnew(s.tree.At(row), n);
            s.tree.SetItemName(s.tree.At(row), WideText("anew")); // by which all rows are measured
            s.tree.SetScrollPos(SB_VERT, 0, 1);                   // the range was shorter in between
            s.Told();
        });
    }

    // Below items that have no children, or those that the monkey has given them.
    void AddOrRemove(UINT row)
    {
        const bool fRemoves = Below(3) == 0 && !m_owned.added.empty();
        const UINT k = fRemoves ? Below(m_owned.added.size()) : 0;
        const std::string parent = m_owned.data[m_owned.tree.At(row)];
        if (!fRemoves && !m_owned.TakesMore(m_owned.tree.At(row))) {
            return;
        }
        OnBoth([&](Side& s) {
            if (fRemoves) {
                void* item = s.added[k];
                std::erase_if(s.added, [&](void* h) { return s.IsBelow(h, item); });
                s.tree.RemoveItem(item);
            } else if (void* item = s.tree.Add(s.tree.At(row), parent + "+1")) {
                s.added.push_back(item);
                s.data[item] = parent + "+1";
            }
        });
        ASSERT_EQ(m_owned.added.size(), m_counted.added.size());
    }

    void Mouse()
    {
        const LPARAM lParam = MAKELPARAM(Below(TREE_CX), Below(TREE_CY));
        const UINT messages[] = {WM_MOUSEMOVE, WM_LBUTTONDBLCLK, WM_RBUTTONDOWN, WM_MOUSELEAVE};
        const UINT uMsg = messages[Below(std::size(messages))];
        const bool fClick = Below(2);
        OnBoth([&](Side& s) {
            SendMessageW(s.tree, fClick ? WM_LBUTTONDOWN : uMsg, 0, lParam);
            SendMessageW(s.tree, WM_LBUTTONUP, 0, lParam);
        });
    }

    void Scroll()
    {
        const UINT uCode = Below(9);
        const UINT nPos = Below(9000);
        const bool fWheel = Below(2);
        OnBoth([&](Side& s) {
            if (fWheel) {
                SendMessageW(s.tree, WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-240)), 0);
            } else {
                SendMessageW(s.tree, WM_VSCROLL, MAKEWPARAM(uCode, nPos), 0);
            }
        });
    }

    void Key()
    {
        constexpr UINT KEYS[] = {VK_UP,  VK_DOWN, VK_LEFT, VK_RIGHT, VK_RIGHT, VK_HOME,
                                 VK_END, VK_NEXT, VK_LEFT, VK_PRIOR, VK_SPACE};
        const UINT uKey = KEYS[Below(std::size(KEYS))];
        OnBoth([&](Side& s) { SendMessageW(s.tree, WM_KEYDOWN, uKey, 1); });
    }

    template <class TELL> void ExpectAlike(const TELL& tell) { ASSERT_EQ(tell(m_counted), tell(m_owned)); }

    void Compare()
    {
        ExpectAlike([](Side& s) { return s.ToRepaint(); });
        ExpectAlike([](Side& s) { return s.Told(); });
        ExpectAlike([](Side& s) { return s.Selection(); });
        // With no focus on either.
        SetFocus(m_owned.host);
        ExpectAlike([](Side& s) { return NextPaint(s.tree, ""); });
        const int x = static_cast<int>(Below(TREE_CX));
        const int y = static_cast<int>(Below(TREE_CY));
        ExpectAlike([&](Side& s) { return s.Hit(x, y); });
        for (int i = 0; i < 3; ++i) {
            const UINT row = AnyRow();
            ExpectAlike([&](Side& s) { return s.Tell(row); });
        }
    }

    std::mt19937 m_random;
    const bool m_fModern;
    UINT m_kind = 0;
    gesso::FontHandle m_font;
    Side m_owned;
    Side m_counted;
};

void LetMonkeysPlay(gesso::Behavior behavior)
{
    const WithBehavior inIt(behavior);
    const AllowMisuse allowed;
    for (unsigned seed = 1; seed <= 6 && !testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        CountedMonkey(seed, behavior == gesso::Behavior::Modern).Run(200);
    }
}

TEST(CountedMonkeyTest, NothingPartsCountedChildrenFromInsertedOnes)
{
    LetMonkeysPlay(gesso::Behavior::Classic);
}

TEST(CountedMonkeyTest, NothingPartsThemInModern)
{
    LetMonkeysPlay(gesso::Behavior::Modern);
}

} // namespace
