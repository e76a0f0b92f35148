// Both trees' rules on plain arrays, word for word and without regard for speed, to be compared with the
// trees.
#pragma once

#include "../../tree/TreeFixture.h"

#include <algorithm>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace test {

struct ModelItem
{
    void* handle = nullptr;
    int level = -1;
    bool expanded = false;
    bool promises = false; // children to come
    bool removed = false;
    ModelItem* named = nullptr; // the parent that it names
    ModelItem* holder = nullptr;
    std::vector<ModelItem*> children;
};

// GTree where fTree is set, GNavigationBar otherwise.
class TreeModel
{
public:
    TreeModel(bool fTree, void* hRoot) : m_fTree(fTree) { m_root = New(hRoot, nullptr); }

    ModelItem* Root() const { return m_root; }
    ModelItem* Find(void* handle) const
    {
        const auto found = m_byHandle.find(handle);
        return found == m_byHandle.end() ? nullptr : found->second;
    }
    // The root's, and removed items' that rows show, among them.
    std::vector<void*> Handles() const
    {
        std::vector<void*> handles;
        for (const auto& [handle, item] : m_byHandle) {
            handles.push_back(handle);
        }
        return handles;
    }

    UINT RowOf(const ModelItem* item) const
    {
        const auto found = std::find(rows.begin(), rows.end(), item);
        return item && found != rows.end() ? static_cast<UINT>(found - rows.begin()) : NONE;
    }

    void Insert(void* handle, ModelItem* parent, void* hAfter, bool expanded, bool promises)
    {
        const size_t at = PlaceOf(parent, hAfter);
        ASSERT_FALSE(Find(handle)) << "the memory of an item that is still shown was used again";
        ModelItem* item = New(handle, parent);
        item->expanded = expanded;
        item->promises = promises;
        parent->children.insert(parent->children.begin() + static_cast<std::ptrdiff_t>(at), item);
        const UINT row = parent->expanded ? RowForNew(parent, at, item->level) : NONE;
        if (row != NONE) {
            rows.insert(rows.begin() + std::min<std::ptrdiff_t>(row, std::ssize(rows)), item);
        }
        FollowSelection();
    }

    void Remove(ModelItem* item)
    {
        const UINT row = RowOf(item);
        if (row != NONE) {
            const UINT end = BranchEnd(row);
            rows.erase(rows.begin() + row + (m_fTree ? 1 : 0), rows.begin() + end);
            if (nSelected >= row && nSelected < end) {
                selected = nullptr;
                nSelected = NONE;
            }
        }
        std::erase(item->holder->children, item);
        Forget(item);
        Sweep();
    }

    void RemoveAll()
    {
        rows.clear();
        for (ModelItem* child : m_root->children) {
            Forget(child);
        }
        m_root->children.clear();
        selected = nullptr;
        nSelected = NONE;
        Sweep();
    }

    void Expand(ModelItem* item, UINT row)
    {
        item->expanded = true;
        std::vector<ModelItem*> branch;
        AddBranch(item, branch);
        rows.insert(rows.begin() + row + 1, branch.begin(), branch.end());
        FollowSelection();
    }
    void Collapse(ModelItem* item, UINT row)
    {
        item->expanded = false;
        rows.erase(rows.begin() + row + 1, rows.begin() + BranchEnd(row));
        FollowSelection();
        Sweep();
    }

    bool IsBelow(const ModelItem* item, const ModelItem* top) const
    {
        for (; item; item = item->holder) {
            if (item == top) {
                return true;
            }
        }
        return false;
    }
    void Move(ModelItem* item, ModelItem* parent)
    {
        std::erase(item->holder->children, item);
        parent->children.push_back(item);
        item->holder = parent;
        FollowSelection();
    }

    // `order` are the children as they came out.
    void Sorted(ModelItem* item, const std::vector<ModelItem*>& order)
    {
        ASSERT_TRUE(
            std::is_permutation(order.begin(), order.end(), item->children.begin(), item->children.end()));
        item->children = order;
        const UINT row = RowOf(item);
        if (item->expanded && (m_fTree || row != NONE || item == m_root)) {
            for (size_t i = 0; i < order.size() && row + 1 + i < rows.size(); ++i) {
                rows[row + 1 + i] = order[i];
            }
        }
        if (m_fTree || selected) {
            nSelected = RowOf(selected);
        }
        Sweep();
    }

    void ShowRoot(bool show)
    {
        const bool shown = !rows.empty() && rows[0] == m_root;
        if (show && !shown) {
            rows.insert(rows.begin(), m_root);
        } else if (!show && shown) {
            rows.erase(rows.begin());
        }
    }

    void Select(ModelItem* item)
    {
        if (item != selected) {
            selected = item;
            nSelected = RowOf(item);
        }
    }

    std::vector<ModelItem*> rows;
    ModelItem* selected = nullptr;
    UINT nSelected = NONE;

private:
    ModelItem* New(void* handle, ModelItem* parent)
    {
        auto item = std::make_unique<ModelItem>();
        item->handle = handle;
        item->named = item->holder = parent;
        item->level = parent ? parent->level + 1 : -1;
        item->expanded = !parent;
        m_byHandle[handle] = item.get();
        m_items.push_back(std::move(item));
        return m_items.back().get();
    }

    size_t PlaceOf(const ModelItem* parent, void* hAfter) const
    {
        const auto& children = parent->children;
        if (m_fTree ? hAfter == parent->handle : !hAfter) {
            return 0;
        }
        for (size_t i = 0; i < children.size(); ++i) {
            if (children[i]->handle == hAfter) {
                return i + 1;
            }
        }
        return children.size();
    }

    UINT RowForNew(ModelItem* parent, size_t at, int level) const
    {
        if (!m_fTree) {
            const UINT row = RowOf(parent);
            return row == NONE && parent != m_root ? NONE : row + 1 + static_cast<UINT>(at);
        }
        const ModelItem* anchor = at > 0 ? parent->children[at - 1] : parent;
        if (anchor == m_root) {
            return 0;
        }
        UINT row = RowOf(anchor);
        if (row == NONE) {
            return NONE;
        }
        for (++row; row < rows.size() && rows[row]->level > level; ++row) {
        }
        return row;
    }

    UINT BranchEnd(UINT row) const
    {
        UINT end = row + 1;
        while (end < rows.size() && rows[end]->level > rows[row]->level) {
            ++end;
        }
        return end;
    }

    void AddBranch(const ModelItem* item, std::vector<ModelItem*>& branch) const
    {
        for (ModelItem* child : item->children) {
            branch.push_back(child);
            if (child->expanded) {
                AddBranch(child, branch);
            }
        }
    }

    void FollowSelection()
    {
        if (m_fTree) {
            nSelected = RowOf(selected);
        }
    }

    void Forget(ModelItem* item)
    {
        for (ModelItem* child : item->children) {
            Forget(child);
        }
        item->children.clear();
        item->holder = item->named = nullptr;
        item->removed = true;
        if (item == selected) {
            selected = nullptr;
        }
    }

    // Removed items are known as long as rows show them, or others name them as their parent.
    void Sweep()
    {
        std::erase_if(m_byHandle, [this](const auto& entry) {
            const ModelItem* item = entry.second;
            const bool named = std::any_of(m_items.begin(), m_items.end(),
                                           [item](const auto& other) { return other->named == item; });
            return item->removed && RowOf(item) == NONE && !named;
        });
    }

    bool m_fTree;
    std::vector<std::unique_ptr<ModelItem>> m_items;
    std::map<void*, ModelItem*> m_byHandle;
    ModelItem* m_root;
};

} // namespace test
