// What the keys do in Modern: they start from the cursor, which is one item, and go by the rows that show.

#include <gesso/containers/Index.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Lifeline.h>
#include <gesso/framework/Quirks.h>
#include <gesso/list/ListInside.h>

#include <algorithm>

using gesso::Frame;
using gesso::Has;
using gesso::NO_INDEX;
using gesso::Quirk;

namespace {

bool IsNavigation(UINT vk)
{
    return vk >= VK_PRIOR && vk <= VK_DOWN;
}

bool IsSideways(UINT vk)
{
    return vk == VK_LEFT || vk == VK_RIGHT;
}

bool IsStep(UINT vk)
{
    return vk >= VK_LEFT && vk <= VK_DOWN;
}

} // namespace

LRESULT GList::OnModernKeyDown(UINT vk, UINT flags)
{
    if (IsSideways(vk) && (listStyle & GLS_VIEWMASK) != GLS_ICONS) {
        return 0;
    }
    const gesso::Watch watch(*this);
    keyMods = ModifierKeys();
    if (IsNavigation(vk)) {
        m_inside->typed.Forget();
        ModernNavigate(vk);
    } else if (vk == VK_SPACE && ((keyMods & KEYMOD_CTRL) || !m_inside->typed.IsUnderWay())) {
        ModernSpace();
    } else if (vk == 'A' && (gesso::ModifierFlags() & (LVKF_CONTROL | LVKF_ALT)) == LVKF_CONTROL) {
        ChangeSelection(0, NO_INDEX, true);
    }
    RedrawAll();
    if (!TellSelection()) {
        return 0;
    }
    if (vk == VK_RETURN && !(flags & KF_REPEAT)) { // nor the one that is held since it ended an edit
        SendReturn();
    }
    if (watch) {
        GLISTNOTIFY notify{};
        notify.uKeyFlags = flags;
        notify.vKey = vk;
        Frame::SendNotify(*this, static_cast<UINT>(NM_KEYDOWN), &notify.hdr);
    }
    if (watch && vk == VK_F2 && !Has(*this, gesso::Quirk::ListF2IsIdle)) {
        EditCursorItem();
    }
    return 0;
}

void GList::EditCursorItem()
{
    const UINT item = cursorItem < items.GetLength() ? cursorItem : GetFirstSelectedItemIndex();
    if (item != NO_INDEX) {
        EditItem(item);
    }
}

void GList::SendReturn()
{
    GLISTNOTIFY notify{};
    notify.iItem = static_cast<int>(GetCursorItem());
    notify.uKeyFlags = gesso::ModifierFlags();
    Frame::SendNotify(*this, static_cast<UINT>(NM_RETURN), &notify.hdr);
}

// The item where there is no cursor: the first selected one, or else the first of all.
UINT GList::StartOfKeys() const
{
    const UINT selected = SelectedFrom(0);
    return selected != NO_INDEX || items.GetLength() == 0 ? selected : 0;
}

// With neither cursor nor selection a key leads to the first item, but for the one that leads to the last.
void GList::ModernNavigate(UINT vk)
{
    if (items.GetLength() == 0) {
        return;
    }
    const UINT cursor = GetCursorItem();
    const UINT from = cursor != NO_INDEX ? cursor : SelectedFrom(0);
    if (from == NO_INDEX && vk != VK_END) {
        MoveTo(0, keyMods, false);
    } else {
        if (cursor != from) {
            PutCursor(from); // which Shift selects from
        }
        MoveTo(ModernTarget(vk, from), keyMods, IsStep(vk));
    }
}

UINT GList::ModernTarget(UINT vk, UINT from) const
{
    const UINT last = items.GetLength() - 1;
    const bool fIcons = (listStyle & GLS_VIEWMASK) == GLS_ICONS;
    const gesso::ListGeometry geometry = Geometry();
    RECT rc{};
    GetClientRect(m_hWnd, &rc);
    const int page = rc.bottom - static_cast<int>(headerArea);
    switch (vk) {
    case VK_HOME: return 0;
    case VK_END: return last;
    case VK_PRIOR: return geometry.ItemPageAbove(from, page);
    case VK_NEXT: return geometry.ItemPageBelow(from, page);
    case VK_UP:
        if (fIcons) {
            return geometry.ItemAbove(from);
        }
        [[fallthrough]];
    case VK_LEFT: return from > 0 ? from - 1 : 0;
    case VK_DOWN:
        if (fIcons) {
            return geometry.ItemBelow(from);
        }
        [[fallthrough]];
    default: return std::min(from + 1, last);
    }
}

// Where a key leads. Ctrl moves the cursor alone; Shift selects from the anchor on, and a step leaves what
// lies elsewhere selected.
void GList::MoveTo(UINT target, WORD mods, bool fStep)
{
    const UINT cursor = GetCursorItem();
    const UINT from = cursor != NO_INDEX ? cursor : target;
    if (shiftAnchor >= items.GetLength()) {
        shiftAnchor = from;
    }
    if (mods == 0) {
        SelectOnly(target);
        shiftAnchor = target;
    } else if (mods == KEYMOD_SHIFT) {
        fStep ? StepRange(from, target) : SelectOnlyRange(shiftAnchor, target);
    } else if (mods & KEYMOD_SHIFT) {
        ChangeSelection(shiftAnchor, target, true);
    }
    ChangeCursor(target, target);
    BringIntoView(target);
}

// The range that reached from the anchor to the cursor now reaches to the target: what lies beyond it is
// left.
void GList::StepRange(UINT from, UINT target)
{
    const UINT first = std::min(shiftAnchor, target);
    const UINT last = std::max(shiftAnchor, target);
    if (from < first) {
        ChangeSelection(from, first - 1, false);
    } else if (from > last) {
        ChangeSelection(last + 1, from, false);
    }
    ChangeSelection(first, last, true);
}

void GList::ModernSpace()
{
    const UINT cursor = GetCursorItem();
    const UINT item = cursor != NO_INDEX ? cursor : StartOfKeys();
    if (item == NO_INDEX) {
        return;
    }
    if ((keyMods & KEYMOD_SHIFT) && shiftAnchor < items.GetLength()) {
        SelectOnlyRange(shiftAnchor, item);
        ChangeCursor(item, item);
        return;
    }
    if (keyMods & KEYMOD_CTRL) {
        InvertItem(item);
    } else if (!GetSelected(item)) {
        SelectOnly(item);
    }
    PutCursor(item);
}

// --- Typing

// Characters lead to an item; those that Ctrl makes do not, but what AltGr makes does.
LRESULT GList::OnTyped(wchar_t character)
{
    if (Has(*this, Quirk::ListTypingIgnored)) {
        return OnChar(character);
    }
    const bool fCommand = (gesso::ModifierFlags() & (LVKF_CONTROL | LVKF_ALT)) == LVKF_CONTROL;
    if (fCommand || !m_inside->typed.Add(character)) {
        return 0;
    }
    const UINT cursor = GetCursorItem();
    const UINT from = cursor != NO_INDEX ? cursor : SelectedFrom(0);
    const UINT found = m_inside->typed.Find(from, items.GetLength(), [this](UINT item) {
        const ListSubItem* sub = items[item]->SubItem(0);
        return sub ? LPCWSTR{sub->text} : nullptr;
    });
    if (found != NO_INDEX) {
        MoveTo(found, 0, false);
        RedrawAll();
        TellSelection();
    }
    return 0;
}

// --- Into view

void GList::EnsureVisible(UINT item)
{
    if (ItemFor(item, "GList::EnsureVisible: no such item")) {
        BringIntoView(item);
    }
}

void GList::BringIntoView(UINT item)
{
    const gesso::ListGeometry geometry = Geometry();
    const UINT row = bulkInsert ? elements.GetLength() : geometry.RowOf(item);
    if (row >= elements.GetLength()) {
        return;
    }
    RECT rcClient{};
    GetClientRect(m_hWnd, &rcClient);
    const RECT rc = geometry.RowRect(row);
    const int64_t highest = int64_t{rc.bottom} - rcClient.bottom;
    const int64_t lowest = geometry.StartOf(row, int64_t{rcClient.bottom} - headerArea);
    const int64_t position = std::min(std::max<int64_t>(m_siV.nPos, highest), lowest);
    if (position != m_siV.nPos) {
        ScrollTo(SB_VERT, position);
        RedrawAll();
    }
}
