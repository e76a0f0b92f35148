// A monkey at both trees: any operations, messages, keys and clicks, in a view and in answer to
// notifications, beside the plain model.

#include "../FreshDesktop.h"
#include "TreeModel.h"

#include <tests/support/AllowMisuse.h>

#include <random>

namespace {

using namespace test;

template <class CONTROL> class Monkey : private FreshDesktop
{
public:
    static constexpr bool IS_TREE = std::is_same_v<CONTROL, GTree>;

    explicit Monkey(unsigned seed) : m_random(seed), m_model(IS_TREE, m_tree.GetRootItem())
    {
        constexpr DWORD STYLES[] = {0, GNS_GLYPHLEFT, GNS_SINGLEEXPAND, GNS_CLICKEXPAND,
                                    GNS_SINGLEEXPAND | GNS_CLICKEXPAND};
        const DWORD style = IS_TREE ? 0 : STYLES[Below(std::size(STYLES))];
        m_tree.Create(0, 0, TREE_CX, TREE_CY, m_host, TREE_ID, 0,
                      WS_CHILD | WS_VISIBLE | WS_VSCROLL | WS_HSCROLL | style);
        m_host.onNotify = [this](const Notified& n) { Answer(n); };
    }
    ~Monkey()
    {
        m_host.onNotify = nullptr;
        DestroyWindow(m_tree);
    }

    void Run(int steps)
    {
        for (int step = 0; step < steps && !testing::Test::HasFailure(); ++step) {
            SCOPED_TRACE("step " + std::to_string(step));
            Step();
            if (Below(10) == 0) {
                desk::Advance(Below(400));
                desk::Pump();
            }
            m_host.Take();
            Check();
        }
    }

private:
    UINT Below(size_t limit) { return static_cast<UINT>(m_random() % limit); }
    void* Any()
    {
        const std::vector<void*> handles = m_model.Handles();
        return Below(30) == 0 ? m_stale : handles[Below(handles.size())];
    }
    ModelItem* InTree(void* handle) const
    {
        ModelItem* item = m_model.Find(handle);
        return item && !item->removed ? item : nullptr;
    }

    void Step()
    {
        switch (Below(20)) {
        case 0:
        case 1:
        case 2:
        case 3:
        case 4: Insert(Any(), Below(2) ? Any() : nullptr); break;
        case 5: Remove(Any()); break;
        case 6:
        case 7: m_tree.Expand(Any()); break;
        case 8: m_tree.Collapse(Any()); break;
        case 9: Select(Below(5) ? Any() : nullptr); break;
        case 10: Rename(); break;
        case 11: Odd(); break;
        case 12:
        case 13:
        case 14: Mouse(); break;
        case 15:
        case 16:
        case 17: Key(); break;
        default: Scroll(); break;
        }
    }

    void Insert(void* hParent, void* hAfter)
    {
        ModelItem* parent = hParent || !IS_TREE ? InTree(hParent) : m_model.Root();
        const bool promises = Below(4) == 0;
        const bool expanded = Below(6) == 0;
        const UINT kinds[] = {NBIK_ITEM, NBIK_HEADER, NBIK_SEPARATOR, NBIK_SPACER, NBIK_SUBITEM};
        const UINT kind = IS_TREE || Below(2) ? 0 : kinds[Below(std::size(kinds))];
        const UINT bit = IS_TREE ? TIS_EXPANDED : NBIS_EXPANDED;
        const std::string name(1 + Below(3), static_cast<char>('a' + Below(8)));
        void* handle =
            m_tree.InsertItem(hParent, hAfter, WideText(name), Below(4),
                              (promises ? TIS_HASCHILDREN : 0) | (expanded ? bit : 0) | kind, nullptr);
        ASSERT_EQ(handle != nullptr, parent != nullptr);
        if (parent) {
            m_model.Insert(handle, parent, hAfter, expanded, promises);
        }
    }

    void Remove(void* handle)
    {
        ModelItem* item = InTree(handle);
        m_tree.RemoveItem(handle);
        if (item && item != m_model.Root()) {
            m_stale = handle;
            m_model.Remove(item);
        }
    }

    void Select(void* handle)
    {
        ModelItem* item = InTree(handle);
        m_tree.SetSelectedItem(handle);
        if (item || !handle) {
            m_model.Select(item);
        }
    }

    void Rename()
    {
        m_tree.SetItemName(Any(), WideText(std::string(Below(40), 'w')));
        m_tree.SetItemHeight(IS_TREE ? 15 + Below(10) : 20 + Below(20));
    }

    void Odd()
    {
        void* handle = Any();
        ModelItem* item = InTree(handle);
        switch (Below(5)) {
        case 0:
        case 1: Sort(handle); break;
        // NOLINTNEXTLINE(bugprone-branch-clone): the two are empty for one of the classes only
        case 2:
            if constexpr (IS_TREE) {
                void* hParent = Any();
                ModelItem* parent = InTree(hParent);
                m_tree.SetItemParent(handle, hParent);
                if (item && parent && item != m_model.Root() && !m_model.IsBelow(parent, item)) {
                    m_model.Move(item, parent);
                }
            }
            break;
        case 3:
            if constexpr (IS_TREE) {
                const bool show = Below(2);
                m_tree.SetRootVisible(show);
                m_model.ShowRoot(show);
            }
            break;
        default:
            if (Below(8) == 0) {
                m_tree.RemoveAllItems();
                m_model.RemoveAll();
            }
            break;
        }
    }

    void Sort(void* handle)
    {
        ModelItem* item = m_model.Find(handle);
        m_tree.SortChildren(handle);
        if (!item) {
            return;
        }
        std::vector<ModelItem*> order;
        const auto& children = static_cast<decltype(m_tree.m_pRoot)>(handle)->aChildren;
        for (UINT i = 0; i < children.GetLength(); ++i) {
            order.push_back(m_model.Find(children[i]));
            ASSERT_LE(i > 0 ? children[i - 1]->strName.CompareNoCase(children[i]->strName) : 0, 0);
        }
        m_model.Sorted(item, order);
    }

    void Mouse()
    {
        const LPARAM lParam = MAKELPARAM(Below(TREE_CX + 10), Below(TREE_CY + 10));
        const UINT messages[] = {WM_MOUSEMOVE, WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_MOUSELEAVE};
        if (Below(2)) {
            SendMessageW(m_tree, WM_LBUTTONDOWN, 0, lParam);
            SendMessageW(m_tree, WM_LBUTTONUP, 0, lParam);
        } else {
            SendMessageW(m_tree, messages[Below(std::size(messages))], 0, lParam);
        }
        TakeSelection();
    }

    void Key()
    {
        constexpr UINT KEYS[] = {VK_UP,  VK_DOWN, VK_LEFT,  VK_RIGHT,  VK_HOME,
                                 VK_END, VK_NEXT, VK_PRIOR, VK_RETURN, VK_SPACE};
        if (Below(3) == 0) {
            SendMessageW(m_tree, WM_CHAR, 'a' + Below(9), 1);
        } else {
            SendMessageW(m_tree, WM_KEYDOWN, KEYS[Below(std::size(KEYS))], 1);
            SendMessageW(m_tree, WM_KEYUP, VK_SPACE, 1);
        }
        SetFocus(Below(4) ? m_tree.GetHwnd() : static_cast<HWND>(m_host));
        TakeSelection();
    }

    void Scroll()
    {
        SendMessageW(m_tree, Below(2) ? WM_VSCROLL : WM_HSCROLL, MAKEWPARAM(Below(9), Below(500)), 0);
        SendMessageW(m_tree, WM_MOUSEWHEEL, MAKEWPARAM(0, Below(2) ? 120 : static_cast<WORD>(-240)), 0);
        m_tree.EnsureVisible(Any());
    }

    // What the user selects: the row's number, and its item or none.
    void TakeSelection()
    {
        if (m_tree.m_nSelected != m_model.nSelected || m_tree.m_pSelected != HandleOf(m_model.selected)) {
            const ModelItem* row =
                m_tree.m_nSelected < m_model.rows.size() ? m_model.rows[m_tree.m_nSelected] : nullptr;
            // A click may collapse the bar's clicked item away.
            if (m_tree.m_pSelected && (IS_TREE || row)) {
                ASSERT_EQ(m_tree.m_pSelected, HandleOf(row));
                ASSERT_FALSE(row->removed);
            }
            m_model.nSelected = m_tree.m_nSelected;
            m_model.selected = m_model.Find(m_tree.m_pSelected);
        }
    }

    // Expansions reach the model by their notifications. Now and then the parent fills the item, or does
    // something else before.
    void Answer(const Notified& n)
    {
        if (n.code != EXPANDING && n.code != EXPANDED) {
            return;
        }
        const auto row = static_cast<UINT>(n.record.iItem);
        ASSERT_LT(row, m_model.rows.size());
        ModelItem* item = m_model.rows[row];
        ASSERT_EQ(item->handle, n.record.pItem);
        if (n.code == EXPANDED) {
            TakeSelectionBefore();
            n.record.uAction == TVE_EXPAND ? m_model.Expand(item, row) : m_model.Collapse(item, row);
        } else if (m_nDepth < 2) {
            ++m_nDepth;
            if (n.record.uAction == TVE_EXPAND && Below(2)) {
                Insert(item->handle, nullptr);
            }
            if (Below(8) == 0) {
                TakeSelectionBefore();
                Step();
            }
            --m_nDepth;
        }
    }

    // A click that expands may have selected before; m_nSelected of a tree is looked up again afterwards.
    void TakeSelectionBefore()
    {
        if (m_tree.m_pSelected != HandleOf(m_model.selected)) {
            m_model.selected = m_model.Find(m_tree.m_pSelected);
        }
        if (!IS_TREE) {
            m_model.nSelected = m_tree.m_nSelected;
        }
    }

    static void* HandleOf(const ModelItem* item) { return item ? item->handle : nullptr; }

    void Check()
    {
        ASSERT_TRUE(m_tree.Check());
        ASSERT_EQ(m_tree.m_aVisible.GetLength(), m_model.rows.size());
        for (UINT row = 0; row < m_model.rows.size(); ++row) {
            ASSERT_EQ(m_tree.At(row), m_model.rows[row]->handle) << "row " << row;
            ASSERT_EQ(m_tree.GetItemLevel(m_tree.At(row)), m_model.rows[row]->level);
        }
        ASSERT_EQ(m_tree.m_nSelected, m_model.nSelected);
        ASSERT_EQ(static_cast<void*>(m_tree.m_pSelected), HandleOf(m_model.selected));
        for (void* handle : m_model.Handles()) {
            const ModelItem* item = m_model.Find(handle);
            ASSERT_EQ(m_tree.FindVisibleIndex(static_cast<decltype(m_tree.m_pRoot)>(handle)),
                      m_model.RowOf(item));
            ASSERT_EQ(m_tree.GetItemChildCount(handle), item->children.size());
            const bool named = item->named && !item->named->removed;
            ASSERT_EQ(m_tree.GetItemParent(handle), named ? item->named->handle : nullptr);
            if (!item->children.empty()) {
                const ModelItem* child = item->children[Below(item->children.size())];
                void* next = m_tree.GetItemNextChild(handle, child->handle);
                ASSERT_EQ(next == nullptr || next == reinterpret_cast<void*>(-1),
                          child == item->children.back());
            }
        }
    }

    std::mt19937 m_random;
    NotifyHost m_host;
    Probe<CONTROL> m_tree;
    TreeModel m_model;
    void* m_stale = nullptr;
    int m_nDepth = 0;
};

template <class CONTROL> void LetMonkeysPlay()
{
    const AllowMisuse allowed;
    for (unsigned seed = 1; seed <= 25 && !testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Monkey<CONTROL>(seed).Run(400);
    }
}

TEST(TreeMonkeyTest, NothingDoneToATreePartsItFromThePlainModel)
{
    LetMonkeysPlay<GTree>();
}

TEST(TreeMonkeyTest, NothingDoneToANavigationBarPartsItFromThePlainModel)
{
    LetMonkeysPlay<GNavigationBar>();
}

} // namespace
