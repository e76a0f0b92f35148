// A tree or navigation bar in a host window that keeps its notifications.
#pragma once

#include "../support/Keys.h"
#include "../support/NotifyHost.h"

#include <gesso/tree/TreeRules.h>
#include <gesso/tree/TreeView.h>

#include <gtest/gtest.h>

namespace test {

constexpr UINT NONE = static_cast<UINT>(-1);
constexpr int TREE_ID = 31;
constexpr int TREE_CX = 200;
constexpr int TREE_CY = 100;

using Lines = Reports;

// What a host is told when a row expands (2) or collapses (1).
Lines Expansion(int row, int action, int keys = 0);

// A plain text as the platform's.
class WideText
{
public:
    explicit WideText(const std::string& text) : m_text(text.begin(), text.end()) { m_text.push_back(0); }
    operator LPCWSTR() const { return m_text.data(); }

private:
    std::vector<wchar_t> m_text;
};

// A tree of either class with everything in reach.
template <class CONTROL> class Probe : public CONTROL
{
public:
    using CONTROL::DeleteItem;
    using CONTROL::EnsureVisible;
    using CONTROL::FindVisibleIndex;
    using CONTROL::m_aVisible;
    using CONTROL::m_dwHStyle;
    using CONTROL::m_dwState;
    using CONTROL::m_dwVStyle;
    using CONTROL::m_hitDown;
    using CONTROL::m_hitMove;
    using CONTROL::m_nSelected;
    using CONTROL::m_pRoot;
    using CONTROL::m_pSelected;
    using CONTROL::m_siH;
    using CONTROL::m_siV;
    using HitTestInfo = typename CONTROL::HitTestInfo;

    void* Add(void* parent, const std::string& name, UINT state = 0, void* after = nullptr)
    {
        return this->InsertItem(parent, after, WideText(name), 0, state, nullptr);
    }
    // The names of the rows with blanks between.
    std::string Rows() const
    {
        std::string rows;
        for (UINT row = 0; row < m_aVisible.GetLength(); ++row) {
            rows += row > 0 ? " " : "";
            rows += Narrow(m_aVisible[row]->strName);
        }
        return rows;
    }
    std::string Children(void* parent) const
    {
        std::string names;
        void* const end = reinterpret_cast<void*>(-1); // of a GTree; null of a GNavigationBar
        for (void* p = nullptr; (p = this->GetItemNextChild(parent, p)) && p != end;) {
            names += names.empty() ? "" : " ";
            names += Narrow(this->GetItemName(p));
        }
        return names;
    }
    std::string Selected() const
    {
        void* item = this->GetSelectedItem();
        return item ? Narrow(this->GetItemName(item)) : "(none)";
    }
    HitTestInfo HitAt(int x, int y) const
    {
        HitTestInfo info{};
        info.pt = {static_cast<SHORT>(x), static_cast<SHORT>(y)};
        this->HitTest(&info);
        return info;
    }
    void* At(UINT row) const { return m_aVisible.GetAt(row); }
    bool Check()
    {
        using Item = std::remove_pointer_t<decltype(m_pRoot)>;
        return gesso::TreeView<Item, gesso::TreeRules<CONTROL>>(m_aVisible, m_pSelected, m_nSelected).Check();
    }
};

struct HitCase
{
    int x, y;
    int item;
    int part;
};

template <class CONTROL> void ExpectHits(const Probe<CONTROL>& tree, std::initializer_list<HitCase> cases)
{
    for (const HitCase& c : cases) {
        const auto hit = tree.HitAt(c.x, c.y);
        EXPECT_EQ(static_cast<int>(hit.nItem), c.item) << c.x << "," << c.y;
        EXPECT_EQ(hit.nPart, c.part) << c.x << "," << c.y;
    }
}

// CONTROL is the class under test. It has no window until Make.
template <class CONTROL> class TreeTest : public testing::Test
{
protected:
    void TearDown() override
    {
        HoldKeys({});
        DestroyWindow(tree);
    }

    void Make(DWORD dwStyle = 0, int cx = TREE_CX, int cy = TREE_CY)
    {
        tree.Create(0, 0, cx, cy, host, TREE_ID, 0, WS_CHILD | WS_VISIBLE | dwStyle);
        ASSERT_TRUE(tree.GetHwnd());
    }
    void Send(UINT uMsg, WPARAM wParam = 0, LPARAM lParam = 0) { SendMessageW(tree, uMsg, wParam, lParam); }
    void Mouse(UINT uMsg, int x, int y) { Send(uMsg, 0, MAKELPARAM(x, y)); }
    void Click(int x, int y)
    {
        Mouse(WM_LBUTTONDOWN, x, y);
        Mouse(WM_LBUTTONUP, x, y);
    }
    void Key(UINT vk) { Send(WM_KEYDOWN, vk, 1); }
    NotifyHost host;
    Probe<CONTROL> tree;
};

} // namespace test
