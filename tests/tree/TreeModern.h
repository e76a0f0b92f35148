// Trees that are made in Modern, and what their parents hear there besides.
#pragma once

#include "../support/Interception.h"
#include "../support/WithBehavior.h"
#include "TreeFixture.h"

#include <map>

namespace test {

constexpr int RETURNED = -4;
constexpr int RIGHT_CLICKED = -5;
constexpr int RIGHT_DOUBLE_CLICKED = -6;
constexpr int SELECTION_CHANGED = -451;
constexpr int ITEM_GOES = -458;

template <class CONTROL> class ModernTreeTest : public TreeTest<CONTROL>
{
protected:
    // What the parent was told since the last call, by code and name, without what comes with the focus.
    Lines Told()
    {
        Lines lines;
        for (const Notified& n : this->host.Take()) {
            if (n.code != FOCUS_SET && n.code != FOCUS_KILLED) {
                lines.push_back(std::to_string(n.code) + " " + NameAt(n));
            }
        }
        return lines;
    }
    // Names of items that went are kept.
    std::string NameAt(const Notified& n) { return n.record.pItem ? m_names[n.record.pItem] : "none"; }
    void* Add(void* parent, const std::string& name, UINT state = 0)
    {
        void* item = this->tree.Add(parent, name, state);
        m_names[item] = name;
        return item;
    }
    void RightClick(int x, int y)
    {
        this->Mouse(WM_RBUTTONDOWN, x, y);
        this->Mouse(WM_RBUTTONUP, x, y);
    }

    Modern modern;
    std::map<void*, std::string> m_names;
};

} // namespace test
