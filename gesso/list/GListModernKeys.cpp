// What the keys do in Modern: they start from the cursor, which is one item, and go by the rows that show.

#include <gesso/containers/Index.h>
#include <gesso/framework/Direction.h>
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
        ModernNavigate(gesso::KeyInLayout(m_hWnd, vk));
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
    const UINT item = cursorItem < ItemCount() ? cursorItem : GetFirstSelectedItemIndex();
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
    return selected != NO_INDEX || ItemCount() == 0 ? selected : 0;
}

// With neither cursor nor selection a key leads to the first item, but for the one that leads to the last.
void GList::ModernNavigate(UINT vk)
{
    if (ItemCount() == 0) {
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

// Where the rows that show lead. Of an item without a record those around it are looked at, and more of them
// where empty groups lie between it and the next line.
template <class TARGET> UINT GList::ByRows(UINT from, int64_t reach, bool fUp, TARGET target) const
{
    const gesso::VirtualList* list = Virtual();
    if (!list) {
        return target(Geometry());
    }
    const UINT edge = fUp ? 0 : ItemCount() - 1;
    const bool fLast = list->rows.PlaceOf(from).top == list->rows.PlaceOf(edge).top;
    for (;; reach = std::max<int64_t>(reach, 1) * 4) {
        gesso::ListCut cut;
        const UINT to = target(GeometryAround(from, reach, cut));
        if (to != from || fLast || reach > list->rows.End()) {
            return to;
        }
    }
}

UINT GList::ModernTarget(UINT vk, UINT from) const
{
    const UINT last = ItemCount() - 1;
    const bool fIcons = (listStyle & GLS_VIEWMASK) == GLS_ICONS;
    RECT rc{};
    GetClientRect(m_hWnd, &rc);
    const int page = rc.bottom - static_cast<int>(headerArea);
    switch (vk) {
    case VK_HOME: return 0;
    case VK_END: return last;
    case VK_PRIOR:
        return ByRows(from, page, true, [&](const auto& rows) { return rows.ItemPageAbove(from, page); });
    case VK_NEXT:
        return ByRows(from, page, false, [&](const auto& rows) { return rows.ItemPageBelow(from, page); });
    case VK_UP:
        if (fIcons) {
            return ByRows(from, 0, true, [&](const auto& rows) { return rows.ItemAbove(from); });
        }
        [[fallthrough]];
    case VK_LEFT: return from > 0 ? from - 1 : 0;
    case VK_DOWN:
        if (fIcons) {
            return ByRows(from, 0, false, [&](const auto& rows) { return rows.ItemBelow(from); });
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
    if (shiftAnchor >= ItemCount()) {
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
    if ((keyMods & KEYMOD_SHIFT) && shiftAnchor < ItemCount()) {
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

UINT GList::MatchByTexts(UINT from) const
{
    return m_inside->typed.Find(from, ItemCount(), [this](UINT item) {
        const ListSubItem* sub = items[item]->SubItem(0);
        return sub ? LPCWSTR{sub->text} : nullptr;
    });
}

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
    const gesso::Watch watch(*this);
    const UINT found = IsVirtual() ? MatchByHost(from) : MatchByTexts(from);
    if (found != NO_INDEX && watch) {
        MoveTo(found, 0, false);
        RedrawAll();
        TellSelection();
    }
    return 0;
}

// --- Into view

void GList::EnsureVisible(UINT item)
{
    if (HasItem(item, "GList::EnsureVisible: no such item")) {
        BringIntoView(item);
        gesso::ListInside::TellChanges(*this);
    }
}

void GList::BringIntoView(UINT item)
{
    gesso::ListCut cut;
    const gesso::ListGeometry geometry = GeometryAround(item, 0, cut);
    const UINT row = bulkInsert ? geometry.RowCount() : geometry.RowOf(item);
    if (row >= geometry.RowCount()) {
        return;
    }
    RECT rcClient{};
    GetClientRect(m_hWnd, &rcClient);
    const RECT rc = geometry.RowRect(row);
    const int64_t highest = int64_t{rc.bottom} - rcClient.bottom;
    const int64_t lowest = geometry.StartOf(row, int64_t{rcClient.bottom} - headerArea);
    const int64_t now = m_siV.nPos + Origin() - cut.origin;
    const int64_t position = std::min(std::max(now, highest), lowest);
    if (position != now) {
        ScrollTo(SB_VERT, position + cut.origin - Origin());
        RedrawAll();
    }
}
