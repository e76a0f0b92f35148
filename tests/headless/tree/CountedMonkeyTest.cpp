// A monkey at two trees of the same data, side by side: one whose host has inserted every item, and one whose
// host has only counted them. Nothing that shows may part them.

#include "../../support/Numbers.h"
#include "../../support/WithBehavior.h"
#include "../../tree/TreeFixture.h"
#include "../FreshDesktop.h"

#include <tests/support/AllowMisuse.h>

#include <algorithm>
#include <optional>
#include <random>

namespace {

using namespace test;

constexpr UINT TOPS = 60;
constexpr int ASKED = -452;

// The data: "7.3" is the child with the index 3 of "7".
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
    Side() { tree.Create(0, 0, TREE_CX, TREE_CY, host, TREE_ID, 0, WS_CHILD | WS_VISIBLE | WS_VSCROLL); }
    ~Side()
    {
        host.onNotify = nullptr;
        DestroyWindow(tree);
    }

    void Insert(void* parent, const std::string& name, UINT n)
    {
        for (UINT i = 0; i < n; ++i) {
            const std::string child = ChildName(name, i);
            Insert(tree.InsertItem(parent, nullptr, WideText(child), i % 4, 0, nullptr), child,
                   ChildCountOf(child));
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
        const std::string parent = n.record.pItem ? Narrow(tree.GetItemName(n.record.pItem)) : "";
        const std::string name = ChildName(parent, i);
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
               " to " + std::to_string(tree.m_siV.nMax);
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

private:
    std::optional<WideText> m_answer;
};

class CountedMonkey : private FreshDesktop
{
public:
    explicit CountedMonkey(unsigned seed) : m_random(seed)
    {
        m_owned.Insert(nullptr, "", TOPS);
        m_counted.Count();
    }

    void Run(int steps)
    {
        for (int step = 0; step < steps && !testing::Test::HasFailure(); ++step) {
            SCOPED_TRACE("step " + std::to_string(step));
            Step();
            Compare();
            if (step % 20 == 0) {
                ASSERT_TRUE(m_owned.tree.Check());
                ASSERT_TRUE(m_counted.tree.Check());
            }
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
        const UINT rowTop = static_cast<UINT>(m_owned.tree.m_siV.nPos) / m_owned.tree.GetItemHeight();
        return Below(3) == 0 ? Below(nRows) : std::min(rowTop + Below(6), nRows - 1);
    }

    void Step()
    {
        const UINT row = AnyRow();
        switch (Below(14)) {
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
        default: Key(); break;
        }
    }

    void Change(UINT row)
    {
        const UINT uState = Below(2) ? TIS_CHECKED : TIS_EXPANDED;
        const UINT uNew = Below(2) ? uState : 0;
        const UINT nKind = Below(4);
        OnBoth([&](Side& s) {
            switch (nKind) {
            case 0: s.tree.SetItemHeight(18 + uState % 5); break;
            case 1: s.tree.SetTreeStyle(uNew ? GTS_CHECKBOXES | GTS_IMAGES : 0); break;
            case 2: s.tree.SetItemImage(s.tree.At(row), 3); break;
            default: s.tree.SetItemState(s.tree.At(row), uNew, uState); break;
            }
        });
    }

    // Below items that have no children, or those that the monkey has given them.
    void AddOrRemove(UINT row)
    {
        const bool fRemoves = Below(3) == 0 && !m_owned.added.empty();
        const UINT k = fRemoves ? Below(m_owned.added.size()) : 0;
        const std::string parent = Narrow(m_owned.tree.GetItemName(m_owned.tree.At(row)));
        if (!fRemoves && ChildCountOf(parent) > 0) {
            return;
        }
        OnBoth([&](Side& s) {
            if (fRemoves) {
                s.tree.RemoveItem(s.added[k]);
                s.added.erase(s.added.begin() + k);
            } else if (void* item = s.tree.Add(s.tree.At(row), parent + "+1")) {
                s.added.push_back(item);
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
    Side m_owned;
    Side m_counted;
};

void LetMonkeysPlay(gesso::Behavior behavior)
{
    const WithBehavior inIt(behavior);
    const AllowMisuse allowed;
    for (unsigned seed = 1; seed <= 6 && !testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        CountedMonkey(seed).Run(200);
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
