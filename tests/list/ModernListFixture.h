// A list that was made in Modern, with its notifications as lines.
#pragma once

#include "../support/WithBehavior.h"
#include "ListFixture.h"

namespace test {

constexpr int RETURN_PRESSED = -4;
constexpr int RIGHT_CLICKED = -5;
constexpr int RIGHT_DOUBLE_CLICKED = -6;
constexpr int ITEM_CHANGED = -101;
constexpr int ITEM_DELETED = -103;
constexpr int COLUMN_CLICKED = -108;

class ModernListFixture : public ListFixture
{
protected:
    // A list with the focus, and nothing told yet.
    void Fill(UINT items, UINT listStyle = GLS_DETAILS, UINT columns = 2)
    {
        MakeFilledList(columns, items, listStyle);
        SetFocus(list);
        host.Take();
    }
    // What was told since, as "-101 3" for the code and the item, with blanks between; not the keys.
    std::string Told()
    {
        std::string told;
        for (const Notified& notified : host.Take()) {
            if (notified.code != KEY_PRESSED) {
                told += (told.empty() ? "" : ", ") + std::to_string(notified.code) + " " +
                        std::to_string(notified.record.iItem);
            }
        }
        return told;
    }
    template <class ACT> std::string ToldBy(ACT act)
    {
        host.Take();
        act();
        return Told();
    }
    void ClickWith(WORD mods, UINT item)
    {
        HoldKeys(mods);
        ClickItem(item);
        HoldKeys(0);
    }
    void RightClick(int x, int y)
    {
        Mouse(WM_RBUTTONDOWN, x, y);
        Mouse(WM_RBUTTONUP, x, y);
    }
    // Presses, goes there over its middle, and releases.
    void Drag(POINT from, POINT to)
    {
        Mouse(WM_LBUTTONDOWN, from.x, from.y);
        Mouse(WM_MOUSEMOVE, (from.x + to.x) / 2, (from.y + to.y) / 2);
        Mouse(WM_MOUSEMOVE, to.x, to.y);
        Mouse(WM_LBUTTONUP, to.x, to.y);
    }
    std::string SelectedBy(UINT vk, WORD mods = 0)
    {
        Key(vk, mods);
        return list.Selected();
    }

private:
    const Modern m_modern;
};

} // namespace test
