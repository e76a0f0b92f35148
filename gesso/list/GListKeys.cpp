// What the keys do in Classic.
//
// The page keys go by the rectangles and rows that are kept with the items, and not by the laid-out rows: see
// ListGeometry. Where indices are compared, -1 is the largest of them.

#include <gesso/containers/Index.h>
#include <gesso/framework/Direction.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Quirks.h>
#include <gesso/list/ListGeometry.h>
#include <gesso/list/ListInside.h>

#include <algorithm>
#include <utility>

using gesso::Frame;
using gesso::Has;
using gesso::NO_INDEX;
using gesso::Quirk;

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
    if (!Has(*this, Quirk::ListKeyboard)) {
        return OnModernKeyDown(vk, flags);
    }
    const bool fIcons = (listStyle & GLS_VIEWMASK) == GLS_ICONS;
    const UINT step = gesso::KeyInLayout(m_hWnd, vk);
    if (cursorItem == NO_INDEX) {
        MoveCursor(lastItem);
    }
    if (IsNavigation(vk)) {
        if (!fIcons && (vk == VK_LEFT || vk == VK_RIGHT)) {
            return 0;
        }
        keyMods = ModifierKeys();
        Navigate(step, fIcons);
    } else if (vk == VK_SHIFT) {
        shiftAnchor = cursorItem;
    } else if (vk == VK_SPACE) {
        OnSpace();
    } else if (vk == 'A' && (GetKeyState(VK_CONTROL) & KEY_IS_DOWN)) {
        ChangeSelection(0, NO_INDEX, true);
        shiftAnchor = NO_INDEX;
        MoveCursor(NO_INDEX);
        SetHotItem(NO_INDEX);
    }
    if (IsNavigation(vk)) {
        BringCursorIntoView(step);
    }
    RedrawAll();
    ChangeCursor(cursorItem, cursorItem);
    if (!TellSelection()) {
        return 0;
    }
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
    case VK_PRIOR: MoveByPage(PageTarget(false)); break;
    case VK_NEXT: MoveByPage(PageTarget(true)); break;
    case VK_HOME: MoveToEdge(0); break;
    case VK_END: MoveToEdge(ItemCount() - 1); break;
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
    } else if (cursorItem == NO_INDEX && ItemCount() > 0) {
        MoveCursor(0);
        Select(0);
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

UINT GList::PageTarget(bool fDown) const
{
    const UINT page = BarInPixels().nPage;
    if (const gesso::VirtualList* list = Virtual()) {
        return fDown ? list->rows.PageDownFrom(cursorItem, page) : list->rows.PageUpFrom(cursorItem, page);
    }
    return fDown ? Geometry().PageDownFrom(cursorItem, page) : Geometry().PageUpFrom(cursorItem, page);
}

// A list without items has no cursor.
void GList::MoveByPage(UINT target)
{
    const UINT cursor = ItemCount() == 0 ? NO_INDEX : target;
    MoveCursor(cursor);
    SetHotItem(cursor);
    if (!(keyMods & KEYMOD_CTRL)) {
        SelectNone();
    }
    if (keyMods & KEYMOD_SHIFT) {
        ChangeSelection(shiftAnchor, cursor, true);
    } else if (!(keyMods & KEYMOD_CTRL)) {
        Select(cursor);
    }
}

// --- Edges

// A list without items has no edge.
void GList::MoveToEdge(UINT edge)
{
    MoveCursor(ItemCount() == 0 ? NO_INDEX : edge);
    SetHotItem(keyMods == 0 ? NO_INDEX : cursorItem);
    if (!(keyMods & KEYMOD_CTRL)) {
        SelectNone();
    }
    if (keyMods & KEYMOD_SHIFT) {
        ChangeSelection(shiftAnchor, edge, true);
    } else if (keyMods == 0) {
        Select(edge);
        shiftAnchor = NO_INDEX;
    }
}

// --- Steps

void GList::StepForward(UINT target)
{
    if (cursorItem == NO_INDEX) {
        StepFromNowhere();
    } else if (cursorItem < ItemCount() - 1 && ItemCount() > 0) {
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
    const UINT from = cursorItem;
    MoveCursor(target);
    switch (keyMods) {
    case KEYMOD_CTRL | KEYMOD_SHIFT: ChangeSelection(from, target, true); break;
    case KEYMOD_CTRL: SetHotItem(target); break;
    case KEYMOD_SHIFT:
        SetHotItem(target);
        ChangeSelection(from, target, fAway);
        break;
    default:
        SelectOnly(target);
        shiftAnchor = NO_INDEX;
        SetHotItem(NO_INDEX);
        break;
    }
}

// Fixed behaviour: the first step leads to the second item, as if the first had been the cursor; to the first
// where there is no other.
void GList::StepFromNowhere()
{
    const UINT count = ItemCount();
    if (count == 0) {
        return;
    }
    MoveCursor(std::min(1U, count - 1));
    SetHotItem(keyMods == 0 ? NO_INDEX : cursorItem);
    if (keyMods & KEYMOD_SHIFT) {
        shiftAnchor = 0;
        ChangeSelection(0, cursorItem, true);
    } else if (keyMods == 0) {
        shiftAnchor = NO_INDEX;
        Select(cursorItem);
    }
}

// --- Into view

void GList::BringCursorIntoView(UINT vk)
{
    if (cursorItem >= ItemCount()) {
        return;
    }
    const UINT gap = listStyle & GLS_HEADER ? headerItemSpacing : 0;
    if (IsVirtual()) {
        BringVirtualCursorIntoView(GoesForward(vk), gap);
        return;
    }
    const auto position = GoesForward(vk) ? Geometry().PositionOfEnd(cursorItem, m_siV.nPos, m_siV.nPage)
                                          : Geometry().PositionOfStart(cursorItem, m_siV.nPos, gap);
    if (position) {
        ScrollTo(SB_VERT, *position);
    }
}
