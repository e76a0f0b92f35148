// What the keys do.
//
// The keyboard goes by the rectangles and rows that are kept with the items (StampRows), and not by the
// laid-out rows. Where indices are compared, -1 is the largest of them.

#include <gesso/containers/Index.h>
#include <gesso/framework/Frame.h>
#include <gesso/list/GList.h>
#include <gesso/list/Saturate.h>

#include <algorithm>
#include <utility>

using gesso::Frame;
using gesso::NO_INDEX;

namespace {

constexpr SHORT KEY_IS_DOWN = static_cast<SHORT>(0x8000);

bool GoesForward(UINT vk)
{
    return vk == VK_NEXT || vk == VK_END || vk == VK_RIGHT || vk == VK_DOWN;
}

bool IsNavigation(UINT vk)
{
    return vk >= VK_PRIOR && vk <= VK_DOWN;
}

} // namespace

LRESULT GList::OnKeyDown(UINT vk, LPARAM, UINT flags)
{
    const bool fIcons = (listStyle & GLS_VIEWMASK) == GLS_ICONS;
    if (cursorItem == NO_INDEX) {
        cursorItem = lastItem;
    }
    if (IsNavigation(vk)) {
        if (!fIcons && (vk == VK_LEFT || vk == VK_RIGHT)) {
            return 0;
        }
        keyMods = ModifierKeys();
        Navigate(vk, fIcons);
    } else if (vk == VK_SHIFT) {
        shiftAnchor = cursorItem;
    } else if (vk == VK_SPACE) {
        OnSpace();
    } else if (vk == 'A' && (GetKeyState(VK_CONTROL) & KEY_IS_DOWN)) {
        SelectRange(0, NO_INDEX);
        cursorItem = shiftAnchor = hitHot.item = NO_INDEX;
    }
    if (IsNavigation(vk)) {
        BringCursorIntoView(vk);
    }
    RedrawAll();
    lastItem = cursorItem;
    GLISTNOTIFY notify{};
    notify.uKeyFlags = flags;
    notify.vKey = vk;
    Frame::SendNotify(*this, static_cast<UINT>(NM_KEYDOWN), &notify.hdr);
    return 0;
}

void GList::Navigate(UINT vk, bool fIcons)
{
    const UINT cursor = cursorItem;
    switch (vk) {
    case VK_PRIOR: WalkPageUp(); break;
    case VK_NEXT: WalkPageDown(); break;
    case VK_HOME: MoveToEdge(0); break;
    case VK_END: MoveToEdge(items.GetLength() - 1); break;
    // Fixed behaviour: in the icons view these two leave the cursor where it is, and select it.
    case VK_UP: StepBack(fIcons ? cursor : cursor - 1); break;
    case VK_DOWN: StepForward(fIcons ? cursor : cursor + 1); break;
    case VK_LEFT: StepBack(cursor - 1); break;
    case VK_RIGHT: StepForward(cursor + 1); break;
    default: break;
    }
}

// Fixed behaviour: Ctrl counts here only if a navigation key has seen it. Ctrl and space would else invert an
// item that no key has led to.
void GList::OnSpace()
{
    if (keyMods & KEYMOD_CTRL) {
        InvertItem(cursorItem);
    } else if (cursorItem == NO_INDEX && items.GetLength() > 0) {
        cursorItem = 0;
        SelectRange(0, 0);
    }
}

LRESULT GList::OnKeyUp(UINT vk)
{
    if (vk == VK_SHIFT) {
        keyMods &= static_cast<WORD>(~KEYMOD_SHIFT);
    } else if (vk == VK_CONTROL) {
        keyMods &= static_cast<WORD>(~KEYMOD_CTRL);
    }
    return 0;
}

LRESULT GList::OnChar(UINT character)
{
    if (character == VK_SHIFT) {
        keyMods &= static_cast<WORD>(~KEYMOD_SHIFT);
    }
    return 0;
}

// --- Pages

void GList::WalkPageUp()
{
    const UINT start = cursorItem;
    if (const ListItem* from = ItemAt(start)) {
        const auto bottom = static_cast<UINT>(from->rcItem.bottom);
        const auto reaches = [&](const ListItem& item) {
            return bottom > static_cast<UINT>(item.rcItem.top) - itemSpacingY - itemHeight + m_siV.nPage &&
                   item.column == from->column;
        };
        while (cursorItem != NO_INDEX && !reaches(*items[cursorItem])) {
            --cursorItem;
        }
        cursorItem = cursorItem == NO_INDEX ? from->column : cursorItem;
    }
    cursorItem = cursorItem == start ? 0 : cursorItem;
    SelectToCursor();
}

void GList::WalkPageDown()
{
    const UINT start = cursorItem;
    const UINT last = items.GetLength() - 1;
    if (const ListItem* from = ItemAt(start)) {
        const auto reaches = [&](const ListItem& item) {
            return from->rcItem.top < int64_t{item.rcItem.bottom} - m_siV.nPage + itemSpacingY + itemHeight &&
                   item.column == from->column;
        };
        while (cursorItem < last && !reaches(*items[cursorItem])) {
            ++cursorItem;
        }
        while (cursorItem == last && cursorItem > 0 && items[cursorItem]->column != from->column) {
            --cursorItem;
        }
    }
    cursorItem = cursorItem == start ? last : cursorItem;
    SelectToCursor();
}

// After a page walk. A list without items has no cursor.
void GList::SelectToCursor()
{
    if (items.GetLength() == 0) {
        cursorItem = NO_INDEX;
    }
    hitHot.item = cursorItem;
    if (!(keyMods & KEYMOD_CTRL)) {
        SelectNone();
    }
    if (keyMods & KEYMOD_SHIFT) {
        SelectRange(shiftAnchor, cursorItem);
    } else if (!(keyMods & KEYMOD_CTRL)) {
        SelectRange(cursorItem, cursorItem);
    }
}

// --- Edges

void GList::MoveToEdge(UINT edge)
{
    // A list without items has no edge.
    cursorItem = items.GetLength() == 0 ? NO_INDEX : edge;
    hitHot.item = keyMods == 0 ? NO_INDEX : cursorItem;
    if (!(keyMods & KEYMOD_CTRL)) {
        SelectNone();
    }
    if (keyMods & KEYMOD_SHIFT) {
        SelectRange(shiftAnchor, edge);
    } else if (keyMods == 0) {
        SelectRange(edge, edge);
        shiftAnchor = NO_INDEX;
    }
}

// --- Steps

void GList::StepForward(UINT target)
{
    if (cursorItem == NO_INDEX) {
        StepFromNowhere();
    } else if (cursorItem < items.GetLength() - 1 && items.GetLength() > 0) {
        Step(target, target > shiftAnchor);
    }
}

void GList::StepBack(UINT target)
{
    if (cursorItem != 0 && cursorItem != NO_INDEX) {
        Step(target, target < shiftAnchor);
    }
}

// Fixed behaviour: with Shift alone a step away from the anchor selects where it comes from and where it goes
// to, and one toward the anchor unselects both, so that the cursor's item is left unselected.
void GList::Step(UINT target, bool fAway)
{
    const UINT from = std::exchange(cursorItem, target);
    switch (keyMods) {
    case KEYMOD_CTRL | KEYMOD_SHIFT: SelectRange(from, target); break;
    case KEYMOD_CTRL: hitHot.item = target; break;
    case KEYMOD_SHIFT:
        hitHot.item = target;
        SelectRange(from, target, fAway);
        break;
    default:
        SelectOnly(target);
        shiftAnchor = hitHot.item = NO_INDEX;
        break;
    }
}

// Fixed behaviour: the first step leads to the second item, as if the first had been the cursor; to the first
// where there is no other.
void GList::StepFromNowhere()
{
    const UINT count = items.GetLength();
    if (count == 0) {
        return;
    }
    cursorItem = std::min(1U, count - 1);
    hitHot.item = keyMods == 0 ? NO_INDEX : cursorItem;
    if (keyMods & KEYMOD_SHIFT) {
        shiftAnchor = 0;
        SelectRange(0, cursorItem);
    } else if (keyMods == 0) {
        shiftAnchor = NO_INDEX;
        SelectRange(cursorItem, cursorItem);
    }
}

// --- Into view

void GList::BringCursorIntoView(UINT vk)
{
    const ListItem* item = ItemAt(cursorItem);
    if (!item) {
        return;
    }
    const int64_t height = int64_t{itemHeight} + itemSpacingY;
    if (GoesForward(vk)) {
        const int64_t end = int64_t{headerArea} - itemSpacingY + (int64_t{item->row} + 1) * height;
        if (end > int64_t{m_siV.nPos} + m_siV.nPage) {
            ScrollTo(SB_VERT, end - m_siV.nPage);
        }
    } else {
        const UINT gap = listStyle & GLS_HEADER ? headerItemSpacing : 0;
        const int64_t top = item->row == 0 ? 0 : item->row * height - 2 * int64_t{itemSpacingY} + gap;
        if (item->row == 0 || top < m_siV.nPos) {
            ScrollTo(SB_VERT, top);
        }
    }
}
