// What the benches of trees share: the names, and both sides' trees with the same items.
#pragma once

#include <bench/Bench.h>

#include <string>
#include <type_traits>
#include <vector>

namespace bench {

constexpr int TREE_CX = 400;
constexpr int TREE_CY = 480;
constexpr UINT BRANCH = 100; // children of each top item
constexpr DWORD CHILD = WS_CHILD | WS_VISIBLE;

// The same names for both trees: nItems of them, of which every 101st is a top item's.
class Names
{
public:
    explicit Names(UINT nItems)
    {
        for (UINT i = 0; i < nItems; i++) {
            m_names.push_back((IsTop(i) ? L"Folder " : L"Document number ") +
                              std::to_wstring(i * 7919 % 100'003));
        }
    }

    static bool IsTop(UINT i) { return i % (BRANCH + 1) == 0; }
    UINT Count() const { return static_cast<UINT>(m_names.size()); }
    LPCWSTR At(UINT i) const { return m_names[i].c_str(); }

private:
    std::vector<std::wstring> m_names;
};

// Gesso's tree, or its navigation bar.
template <class CONTROL> class OwnItems : public CONTROL
{
public:
    explicit OwnItems(HWND hwndHost)
    {
        this->Create(0, 0, TREE_CX, TREE_CY, hwndHost, 1, 0, CHILD | WS_HSCROLL | WS_VSCROLL);
        this->SetFont(g_hDefaultFont);
    }
    ~OwnItems() override { DestroyWindow(this->m_hWnd); }

    void Fill(const Names& names)
    {
        Empty();
        void* hLast = nullptr;
        for (UINT i = 0; i < names.Count(); i++) {
            const bool fTop = Names::IsTop(i);
            void* const hParent = fTop ? this->GetRootItem() : m_tops.back();
            void* const hAfter =
                fTop ? (m_tops.empty() ? nullptr : m_tops.back()) : (hLast == hParent ? nullptr : hLast);
            hLast = InsertBehind(hParent, hAfter, names.At(i));
            if (fTop) {
                m_tops.push_back(hLast);
            }
        }
    }
    // All of them below one folder, which is closed.
    void FillFolder(const Names& names)
    {
        Empty();
        m_tops.push_back(InsertBehind(this->GetRootItem(), nullptr, L"Folder"));
        for (UINT i = 0; i < names.Count(); i++) {
            void* const hLast = m_children.empty() ? nullptr : m_children.back();
            m_children.push_back(InsertBehind(m_tops[0], hLast, names.At(i)));
        }
    }
    void Empty()
    {
        this->RemoveAllItems();
        m_tops.clear();
        m_children.clear();
    }
    void ExpandAll()
    {
        for (void* hTop : m_tops) {
            this->Expand(hTop);
        }
    }
    void CollapseAll()
    {
        for (void* hTop : m_tops) {
            this->Collapse(hTop);
        }
    }
    void* InsertBehind(void* hParent, void* hAfter, LPCWSTR pszName)
    {
        return this->InsertItem(hParent, hAfter, pszName, 0, 0, nullptr);
    }
    void* InsertFirst(void* hParent, LPCWSTR pszName)
    {
        return InsertBehind(hParent, std::is_same_v<CONTROL, GTree> ? hParent : nullptr, pszName);
    }
    HWND Window() const { return this->m_hWnd; }
    void* Top(size_t i) const { return m_tops[i]; }
    size_t TopCount() const { return m_tops.size(); }
    void* Child(size_t i) const { return m_children[i]; } // of the one folder

protected:
    std::vector<void*> m_tops;

private:
    std::vector<void*> m_children;
};

class PlatformTree
{
public:
    explicit PlatformTree(HWND hwndHost)
        : m_hwnd(CreateWindowExW(0, L"SysTreeView32", L"",
                                 CHILD | TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT, 0, 0, TREE_CX,
                                 TREE_CY, hwndHost, nullptr, GetModuleHandleW(nullptr), nullptr))
    {
        SendMessageW(m_hwnd, WM_SETFONT, reinterpret_cast<WPARAM>(g_hDefaultFont), FALSE);
        SendMessageW(m_hwnd, TVM_SETITEMHEIGHT, 20, 0);
    }
    ~PlatformTree() { DestroyWindow(m_hwnd); }
    PlatformTree(const PlatformTree&) = delete;
    PlatformTree& operator=(const PlatformTree&) = delete;
    operator HWND() const { return m_hwnd; }

    void Fill(const Names& names)
    {
        Empty();
        for (UINT i = 0; i < names.Count(); i++) {
            const bool fTop = Names::IsTop(i);
            const HTREEITEM hItem = InsertLast(fTop ? TVI_ROOT : m_tops.back(), names.At(i));
            if (fTop) {
                m_tops.push_back(hItem);
            }
        }
    }
    void FillFolder(const Names& names)
    {
        Empty();
        m_tops.push_back(InsertLast(TVI_ROOT, L"Folder"));
        for (UINT i = 0; i < names.Count(); i++) {
            InsertLast(m_tops[0], names.At(i));
        }
    }
    void Empty()
    {
        RemoveItem(TVI_ROOT);
        m_tops.clear();
    }
    void RemoveItem(HTREEITEM hItem)
    {
        SendMessageW(m_hwnd, TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(hItem));
    }
    void ExpandAll() { ForTops(TVE_EXPAND); }
    void CollapseAll() { ForTops(TVE_COLLAPSE); }
    void CollapseFirst() { Run(m_tops[0], TVE_COLLAPSE); }
    void ToggleFirst()
    {
        Run(m_tops[0], TVE_EXPAND);
        Run(m_tops[0], TVE_COLLAPSE);
    }
    HTREEITEM InsertLast(HTREEITEM hParent, LPCWSTR pszName)
    {
        TVINSERTSTRUCTW record{};
        record.hParent = hParent;
        record.hInsertAfter = TVI_LAST;
        record.item.mask = TVIF_TEXT;
        record.item.pszText = const_cast<LPWSTR>(pszName);
        return reinterpret_cast<HTREEITEM>(
            SendMessageW(m_hwnd, TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&record)));
    }
    HTREEITEM Top(size_t i) const { return m_tops[i]; }
    int HitAt(int x, int y) const
    {
        TVHITTESTINFO info{};
        info.pt = {x, y};
        return SendMessageW(m_hwnd, TVM_HITTEST, 0, reinterpret_cast<LPARAM>(&info)) != 0;
    }

private:
    void ForTops(WPARAM wAction) const
    {
        for (const HTREEITEM hTop : m_tops) {
            Run(hTop, wAction);
        }
    }
    void Run(HTREEITEM hItem, WPARAM wAction) const
    {
        SendMessageW(m_hwnd, TVM_EXPAND, wAction, reinterpret_cast<LPARAM>(hItem));
    }

    HWND m_hwnd;
    std::vector<HTREEITEM> m_tops;
};

} // namespace bench
