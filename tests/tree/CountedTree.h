// A tree of which the host has only counted some children, and for which it answers by their names: "c7" is
// the child with the index 7. What it was asked for is kept.
#pragma once

#include "TreeFixture.h"

#include <functional>
#include <optional>

namespace test {

constexpr int ASKED = -452;
constexpr UINT MANY = 1'000'000;

class GTreeCountedTest : public TreeTest<GTree>
{
protected:
    GTreeCountedTest()
    {
        host.onNotify = [this](const Notified& n) { Hear(n); };
    }

    void MakeTree()
    {
        Make(WS_VSCROLL | WS_HSCROLL);
        UpdateWindow(host);
    }
    // A folder at the top, open, of so many.
    void* AddFolder(UINT nChildren, bool open = true)
    {
        void* folder = tree.Add(nullptr, "folder");
        tree.SetChildCount(folder, nChildren);
        if (open) {
            tree.Expand(folder);
        }
        return folder;
    }
    void Hear(const Notified& n)
    {
        if (n.code != ASKED) {
            return;
        }
        const GTREEDISPINFO asked = *n.record.pDispInfo;
        EXPECT_EQ(asked.mask, GTDI_TEXT | GTDI_IMAGE | GTDI_CHILDREN);
        EXPECT_EQ(n.record.iSubItem, -1);
        m_asked.push_back(n.record.iItem);
        m_parents.push_back(n.record.pItem);
        if (onAsked) {
            onAsked(n);
        }
        if (answers) {
            m_text.emplace("c" + std::to_string(n.record.iItem));
            n.record.pDispInfo->text = *m_text;
            n.record.pDispInfo->image = static_cast<UINT>(n.record.iItem % 4);
            n.record.pDispInfo->childCount = childCount;
        }
    }
    // What the host was asked for since the last call.
    std::vector<int> Asked() { return std::exchange(m_asked, {}); }
    std::vector<int> AskedByPaint()
    {
        m_asked.clear();
        InvalidateRect(tree, nullptr, FALSE);
        UpdateWindow(tree);
        return Asked();
    }
    std::string NameOf(void* item) const { return item ? Narrow(tree.GetItemName(item)) : "(none)"; }
    // The names of so many rows from one on.
    std::string RowsFrom(UINT row, UINT n) const
    {
        std::string names;
        for (; n-- > 0 && row < tree.m_aVisible.GetLength(); ++row) {
            names += (names.empty() ? "" : " ") + NameOf(tree.At(row));
        }
        return names;
    }

    std::function<void(const Notified&)> onAsked;
    bool answers = true;
    UINT childCount = 0;
    std::vector<void*> m_parents;

private:
    std::vector<int> m_asked;
    std::optional<WideText> m_text;
};

} // namespace test
