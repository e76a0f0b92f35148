// What a list says of itself to those who do not see it: its items, and behind them, as objects, its groups
// and the cells of its header.
#include <gesso/access/AccessibleSide.h>
#include <gesso/containers/Index.h>
#include <gesso/containers/StringOf.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Lifeline.h>
#include <gesso/framework/Quirks.h>
#include <gesso/framework/Saturate.h>
#include <gesso/list/ListInside.h>

#include <algorithm>

using gesso::AccessibleAction;
using gesso::AccessibleChoice;
using gesso::AccessibleId;
using gesso::AccessString;
using gesso::Frame;
using gesso::NO_INDEX;
using gesso::Quirk;
using gesso::Role;
using gesso::Saturated;
using gesso::StringOf;
using gesso::Watch;
using gesso::WHOLE;

namespace {

// Kinds of things, in the order of the list's children.
constexpr UINT ITEM = 1;
constexpr UINT GROUP = 2;
constexpr UINT HEADER = 3; // a column's cell of it

constexpr UINT LIST_STATE = STATE_SYSTEM_MULTISELECTABLE | STATE_SYSTEM_EXTSELECTABLE;
constexpr UINT OUT_OF_VIEW = STATE_SYSTEM_INVISIBLE | STATE_SYSTEM_OFFSCREEN;

// What holds for all that is in a window, of that window's state.
constexpr UINT SHARED_STATE = STATE_SYSTEM_UNAVAILABLE | OUT_OF_VIEW;

// With room for a window beyond it.
constexpr int64_t FAR_AWAY = 0x20000000;

struct Range
{
    UINT first = 0;
    UINT end = 0;

    UINT Count() const { return end - first; }
    bool Has(UINT n) const { return first <= n && n < end; }
};

// The first index below `end` for which the condition holds, which holds for all behind it; `end` for none.
template <class CONDITION> UINT FirstThat(UINT end, const CONDITION& condition)
{
    UINT low = 0;
    while (low < end) {
        const UINT middle = low + (end - low) / 2;
        if (condition(middle)) {
            end = middle;
        } else {
            low = middle + 1;
        }
    }
    return low;
}

// The middle of what is in view of a rectangle.
POINTS MiddleOf(RECT rc, const RECT& rcView)
{
    RECT rcShown{};
    rc = IntersectRect(&rcShown, &rc, &rcView) ? rcShown : rc;
    const auto middle = [](LONG a, LONG b) {
        return static_cast<SHORT>(std::clamp<int64_t>((int64_t{a} + b) / 2, SHRT_MIN, SHRT_MAX));
    };
    return {middle(rc.left, rc.right), middle(rc.top, rc.bottom)};
}

} // namespace

class GList::Access final : public gesso::SideOf<GList>
{
public:
    bool Has(const GWnd& wnd, AccessibleId id) const override
    {
        return id == WHOLE || (id.nOuter == 0 && id.nIndex < CountOfKind(Of(wnd), id.nKind));
    }
    Role RoleOf(const GWnd&, AccessibleId id) const override;
    AccessString NameOf(const GWnd& wnd, AccessibleId id) const override;
    AccessString DescriptionOf(const GWnd& wnd, AccessibleId id) const override;
    UINT StateOf(const GWnd& wnd, AccessibleId id) const override;
    RECT RectOf(const GWnd& wnd, AccessibleId id) const override;
    bool TakesLabel() const override { return true; }

    UINT CountOf(const GWnd& wnd, AccessibleId id) const override;
    AccessibleId ChildOf(const GWnd& wnd, AccessibleId id, UINT nIndex) const override;
    UINT IndexOf(const GWnd& wnd, AccessibleId outer, AccessibleId id) const override;
    bool IsObject(const GWnd&, AccessibleId id) const override { return id.nKind != ITEM; }
    AccessibleId FocusOf(const GWnd& wnd) const override;
    UINT NextSelected(const GWnd& wnd, AccessibleId outer, UINT nIndex) const override;
    AccessibleId HitTest(const GWnd& wnd, POINT pt) const override;

    AccessibleAction ActionOf(const GWnd& wnd, AccessibleId id) const override;
    bool Act(GWnd& wnd, AccessibleId id) const override;
    bool Focus(GWnd& wnd, AccessibleId id) const override;
    bool Choose(GWnd& wnd, AccessibleId id, AccessibleChoice choice) const override;
    bool Show(GWnd& wnd, AccessibleId id) const override;

private:
    static bool HasHeader(const GList& list)
    {
        return (list.listStyle & GLS_VIEWMASK) == GLS_DETAILS && (list.listStyle & GLS_HEADER);
    }
    static bool HasBoxes(const GList& list) { return (list.listStyle & GLS_CHECKBOXES) != 0; }
    static bool IsChecked(const GList& list, UINT item)
    {
        return HasBoxes(list) && (list.GetItemState(item, 0) & LSIS_CHECKED);
    }
    static UINT CountOfKind(const GList& list, UINT nKind);
    static RECT ViewOf(const GList& list);

    // Groups. Of the list's own items the rows tell what is in which; `Members` are such rows, or else the
    // host's items.
    static Range Members(const GList& list, UINT group);
    static UINT RowOfGroup(const GList& list, UINT group);
    static UINT GroupOfRow(const GList& list, UINT row);

    // Places
    static RECT RowRect(const GList& list, UINT item, UINT cell);
    static RECT GroupRect(const GList& list, UINT group);
    static RECT HeaderRect(const GList& list, UINT column);
    static UINT HeaderCell(const GList& list, UINT column);
    static RECT WithTitle(const GList& list, const stcElementPosition& row, RECT rc);

    static AccessString Details(const GList& list, UINT item);

    static bool TakeFocus(const GList& list);
    static bool ClickOn(GList& list, UINT item, UINT cell, WORD mods);
    static bool PressHeader(GList& list, UINT column);
};

const gesso::AccessibleSide& GList::Describes()
{
    static constexpr Access SIDE;
    return SIDE;
}

// --- What there is

UINT GList::Access::CountOfKind(const GList& list, UINT nKind)
{
    switch (nKind) {
    case ITEM: return list.ItemCount();
    case GROUP: return list.groups.GetLength();
    case HEADER: return HasHeader(list) ? list.columns.GetLength() : 0;
    default: return 0;
    }
}

Role GList::Access::RoleOf(const GWnd&, AccessibleId id) const
{
    switch (id.nKind) {
    case ITEM: return Role::ListItem;
    case GROUP: return Role::Grouping;
    case HEADER: return Role::ColumnHeader;
    default: return Role::List;
    }
}

AccessString GList::Access::NameOf(const GWnd& wnd, AccessibleId id) const
{
    const GList& list = Of(wnd);
    switch (id.nKind) {
    case ITEM: return StringOf(list.GetItemText(id.nIndex, 0));
    case GROUP: return StringOf(list.groups[id.nIndex]->name);
    case HEADER: return StringOf(list.columns[id.nIndex]->text);
    default: return {};
    }
}

AccessString GList::Access::DescriptionOf(const GWnd& wnd, AccessibleId id) const
{
    const GList& list = Of(wnd);
    if (id.nKind == ITEM) {
        return Details(list, id.nIndex);
    }
    const UINT uSorted = id.nKind == HEADER ? list.columns[id.nIndex]->state : 0;
    return StringOf(uSorted & LCS_SORTUP ? L"ascending" : uSorted & LCS_SORTDOWN ? L"descending" : nullptr);
}

// What the columns behind the first one say of an item. The host may do anything when it is asked.
AccessString GList::Access::Details(const GList& list, UINT item)
{
    const Watch watch(list);
    AccessString strAll;
    for (UINT column = 1; column < list.columns.GetLength(); ++column) {
        const ListItem* record = list.ItemAt(item);
        const bool fThere =
            list.IsVirtual() ? item < list.ItemCount() : record && column < record->subItemCount;
        if (!fThere || list.columns[column]->type == LCT_IMAGE) {
            continue;
        }
        const AccessString strText = StringOf(list.GetItemText(item, column));
        if (!watch || column >= list.columns.GetLength()) {
            break;
        }
        if (strText.GetLength()) {
            const LPCWSTR pszBetween = strAll.GetLength() ? L"; " : L"";
            const AccessString strCaption = StringOf(list.columns[column]->text);
            const LPCWSTR pszColon = strCaption.GetLength() ? L": " : L"";
            strAll = AccessString::Build(L"%s%s%s%s%s", LPCWSTR{strAll}, pszBetween, LPCWSTR{strCaption},
                                         pszColon, LPCWSTR{strText});
        }
    }
    return strAll;
}

UINT GList::Access::StateOf(const GWnd& wnd, AccessibleId id) const
{
    const GList& list = Of(wnd);
    const UINT uWindow = StateOfWindow(Frame::Handle(wnd), true);
    if (id == WHOLE) {
        return uWindow | LIST_STATE;
    }
    UINT uState = uWindow & SHARED_STATE;
    if (id.nKind == ITEM) {
        uState |= STATE_SYSTEM_SELECTABLE | (uWindow & STATE_SYSTEM_FOCUSABLE);
        uState |= list.GetSelected(id.nIndex) ? STATE_SYSTEM_SELECTED : 0;
        const bool fCursor = (uWindow & STATE_SYSTEM_FOCUSED) && list.GetCursorItem() == id.nIndex;
        uState |= fCursor ? STATE_SYSTEM_FOCUSED : 0;
    }
    const RECT rc = RectOf(wnd, id);
    const RECT rcView = id.nKind == HEADER ? RECT{0, 0, ViewOf(list).right, INT_MAX} : ViewOf(list);
    RECT rcShown{};
    if (IsRectEmpty(&rc)) {
        uState |= STATE_SYSTEM_INVISIBLE;
    } else if (!IntersectRect(&rcShown, &rc, &rcView)) {
        uState |= OUT_OF_VIEW;
    }
    // Last: the host may end the list when it is asked.
    return id.nKind == ITEM && IsChecked(list, id.nIndex) ? uState | STATE_SYSTEM_CHECKED : uState;
}

// --- Groups

UINT GList::Access::GroupOfRow(const GList& list, UINT row)
{
    const stcElementPosition& element = list.elements[row];
    return element.type == LET_GROUP ? element.index : list.GroupIndexOf(list.items[element.index]->group);
}

// The number of rows for a group that has none.
UINT GList::Access::RowOfGroup(const GList& list, UINT group)
{
    const UINT rows = list.elements.GetLength();
    const auto isRow = [&](const stcElementPosition& e) { return e.type == LET_GROUP && e.index == group; };
    if (list.m_inside->rowOrder.fCurrent) {
        const UINT row = FirstThat(rows, [&](UINT n) { return GroupOfRow(list, n) >= group; });
        return row < rows && isRow(list.elements[row]) ? row : rows;
    }
    const stcElementPosition* first = list.elements.GetData();
    return static_cast<UINT>(std::find_if(first, first + rows, isRow) - first);
}

Range GList::Access::Members(const GList& list, UINT group)
{
    if (const gesso::VirtualList* host = list.Virtual()) {
        // Behind all groups there is none, whose number is the largest.
        const auto firstFrom = [&](UINT n) {
            return FirstThat(host->rows.Count(), [&](UINT item) { return host->rows.GroupOf(item) >= n; });
        };
        return {firstFrom(group), firstFrom(group + 1)};
    }
    const UINT rows = list.elements.GetLength();
    const UINT row = list.bulkInsert ? rows : RowOfGroup(list, group);
    if (row == rows) {
        return {};
    }
    if (list.m_inside->rowOrder.fCurrent) {
        return {row + 1, FirstThat(rows, [&](UINT n) { return GroupOfRow(list, n) > group; })};
    }
    UINT end = row + 1;
    while (end < rows && list.elements[end].type == LET_ITEM) {
        ++end;
    }
    return {row + 1, end};
}

// --- Children

UINT GList::Access::CountOf(const GWnd& wnd, AccessibleId id) const
{
    const GList& list = Of(wnd);
    if (id.nKind == GROUP) {
        return Members(list, id.nIndex).Count();
    }
    const uint64_t nAll =
        uint64_t{CountOfKind(list, ITEM)} + CountOfKind(list, GROUP) + CountOfKind(list, HEADER);
    return id == WHOLE ? static_cast<UINT>(std::min<uint64_t>(nAll, NO_INDEX)) : 0;
}

AccessibleId GList::Access::ChildOf(const GWnd& wnd, AccessibleId id, UINT nIndex) const
{
    const GList& list = Of(wnd);
    if (id.nKind == GROUP) {
        const UINT n = Members(list, id.nIndex).first + nIndex;
        return {ITEM, list.IsVirtual() ? n : list.elements[n].index, 0};
    }
    for (const UINT nKind : {ITEM, GROUP}) {
        const UINT nCount = CountOfKind(list, nKind);
        if (nIndex < nCount) {
            return {nKind, nIndex, 0};
        }
        nIndex -= nCount;
    }
    return {HEADER, nIndex, 0};
}

UINT GList::Access::IndexOf(const GWnd& wnd, AccessibleId outer, AccessibleId id) const
{
    const GList& list = Of(wnd);
    if (outer.nKind == GROUP) {
        const Range members = Members(list, outer.nIndex);
        const UINT n = list.IsVirtual() ? id.nIndex : list.Geometry().RowOf(id.nIndex);
        return id.nKind == ITEM && members.Has(n) ? n - members.first : NO_INDEX;
    }
    if (!(outer == WHOLE) || !Has(wnd, id)) {
        return NO_INDEX;
    }
    switch (id.nKind) {
    case ITEM: return id.nIndex;
    case GROUP: return CountOfKind(list, ITEM) + id.nIndex;
    case HEADER: return CountOfKind(list, ITEM) + CountOfKind(list, GROUP) + id.nIndex;
    default: return NO_INDEX;
    }
}

AccessibleId GList::Access::FocusOf(const GWnd& wnd) const
{
    const UINT cursor = Of(wnd).GetCursorItem();
    return cursor == NO_INDEX ? WHOLE : AccessibleId{ITEM, cursor, 0};
}

UINT GList::Access::NextSelected(const GWnd& wnd, AccessibleId outer, UINT nIndex) const
{
    const GList& list = Of(wnd);
    const UINT nFrom = nIndex + 1; // 0 for NO_INDEX
    if (outer == WHOLE) {
        return list.SelectedFrom(nFrom);
    }
    const Range members = outer.nKind == GROUP ? Members(list, outer.nIndex) : Range{};
    if (list.IsVirtual()) {
        const UINT found = list.SelectedFrom(members.first + nFrom);
        return members.Has(found) ? found - members.first : NO_INDEX;
    }
    for (UINT row = members.first + nFrom; row < members.end; ++row) {
        if (list.GetSelected(list.elements[row].index)) {
            return row - members.first;
        }
    }
    return NO_INDEX;
}

// --- Places, in the client area

// Where rows show: below the header.
RECT GList::Access::ViewOf(const GList& list)
{
    RECT rc{};
    GetClientRect(list.m_hWnd, &rc);
    rc.top = HasHeader(list) ? Saturated(list.headerHeight) : 0;
    return rc;
}

// A row, or one of its cells; empty where the item has none. NO_INDEX stands for the row. What is further
// away than the platform's numbers reach is as far away as they do.
RECT GList::Access::RowRect(const GList& list, UINT item, UINT cell)
{
    gesso::ListCut cut;
    const gesso::ListGeometry geometry = list.GeometryAround(item, 0, cut);
    const UINT row = list.bulkInsert ? geometry.RowCount() : geometry.RowOf(item);
    if (row >= geometry.RowCount()) {
        return {};
    }
    const int64_t dx = -int64_t{list.m_siH.nPos};
    const int64_t dy = std::clamp(cut.origin - list.Origin() - list.m_siV.nPos, -FAR_AWAY, FAR_AWAY);
    return cell < list.columnDraw.GetLength() ? gesso::Shifted(geometry.CellRect(row, cell), dx, dy)
                                              : geometry.RowRect(row, dx, dy);
}

// In Modern a title has the room beside the columns too.
RECT GList::Access::WithTitle(const GList& list, const stcElementPosition& row, RECT rc)
{
    if (row.type == LET_GROUP && list.HasExactPlaces()) {
        rc.right = std::max(rc.right, ViewOf(list).right);
    }
    return rc;
}

// The group's own row.
RECT GList::Access::GroupRect(const GList& list, UINT group)
{
    const int64_t dx = -int64_t{list.m_siH.nPos};
    const int64_t dy = int64_t{list.headerArea} - list.m_siV.nPos;
    if (const gesso::VirtualList* host = list.Virtual()) {
        const auto place = host->rows.PlaceOfGroup(group);
        if (place.top == place.bottom) {
            return {};
        }
        const int64_t top = std::clamp(place.top + dy - list.Origin(), -FAR_AWAY, FAR_AWAY);
        const RECT rc{Saturated(dx), Saturated(top), Saturated(host->rows.GroupWidth() + dx),
                      Saturated(top + place.bottom - place.top)};
        return WithTitle(list, {LET_GROUP, group, rc}, rc);
    }
    const UINT row = list.bulkInsert ? list.elements.GetLength() : RowOfGroup(list, group);
    if (row == list.elements.GetLength()) {
        return {};
    }
    const stcElementPosition& element = list.elements[row];
    return WithTitle(list, element, gesso::Shifted(element.rect, dx, dy));
}

// The element that shows a column in the details view; NO_INDEX for none.
UINT GList::Access::HeaderCell(const GList& list, UINT column)
{
    const UINT cell = column + (HasBoxes(list) ? 1 : 0);
    return cell < list.columnDraw.GetLength() && list.columnDraw[cell].column == column ? cell : NO_INDEX;
}

RECT GList::Access::HeaderRect(const GList& list, UINT column)
{
    const UINT cell = HeaderCell(list, column);
    if (cell == NO_INDEX) {
        return {};
    }
    const RECT& rc = list.columnDraw[cell].rect;
    const int64_t dx = -int64_t{list.m_siH.nPos};
    return {Saturated(rc.left + dx), 0, Saturated(rc.right + dx), Saturated(list.headerHeight)};
}

RECT GList::Access::RectOf(const GWnd& wnd, AccessibleId id) const
{
    const GList& list = Of(wnd);
    switch (id.nKind) {
    case ITEM: return RowRect(list, id.nIndex, NO_INDEX);
    case GROUP: return GroupRect(list, id.nIndex);
    case HEADER: return HeaderRect(list, id.nIndex);
    default: return {};
    }
}

// What is drawn there, where in Classic a click may find something else. What is drawn last lies on top.
AccessibleId GList::Access::HitTest(const GWnd& wnd, POINT pt) const
{
    const GList& list = Of(wnd);
    const RECT rcView = ViewOf(list);
    if (!PtInRect(&rcView, pt)) {
        const auto isThere = [&](UINT column) {
            const RECT rc = HeaderRect(list, column);
            return PtInRect(&rc, pt) != FALSE;
        };
        const UINT nColumns = CountOfKind(list, HEADER);
        UINT column = 0;
        while (column < nColumns && !isThere(column)) {
            ++column;
        }
        return column < nColumns ? AccessibleId{HEADER, column, 0} : WHOLE;
    }
    const gesso::ListGeometry geometry = list.Geometry();
    const int64_t x = int64_t{pt.x} + list.m_siH.nPos;
    const int64_t y = int64_t{pt.y} + list.m_siV.nPos;
    AccessibleId found = WHOLE;
    for (UINT row = geometry.FirstRowReaching(y - list.headerArea);
         row < geometry.RowCount() && !geometry.AreBelow(row, y) && !list.bulkInsert; ++row)
    {
        const stcElementPosition& element = geometry.Row(row);
        const RECT rc = WithTitle(list, element, geometry.RowRect(row));
        const UINT nKind = element.type == LET_GROUP ? GROUP : ITEM;
        const bool fThere = rc.left <= x && x < rc.right && rc.top <= y && y < rc.bottom;
        if (fThere && element.index < CountOfKind(list, nKind)) {
            found = {nKind, element.index, 0};
        }
    }
    return found;
}

// --- Actions: what the mouse and the keys would do

AccessibleAction GList::Access::ActionOf(const GWnd& wnd, AccessibleId id) const
{
    switch (id.nKind) {
    case HEADER: return AccessibleAction::Press;
    case ITEM:
        if (!HasBoxes(Of(wnd))) {
            return AccessibleAction::Select;
        }
        return IsChecked(Of(wnd), id.nIndex) ? AccessibleAction::Uncheck : AccessibleAction::Check;
    default: return AccessibleAction::None;
    }
}

// The list may be gone afterwards.
bool GList::Access::TakeFocus(const GList& list)
{
    const HWND hwnd = list.m_hWnd;
    SetFocus(hwnd);
    return GetFocus() == hwnd;
}

// A click on an element of an item, which is brought into view for it.
bool GList::Access::ClickOn(GList& list, UINT item, UINT cell, WORD mods)
{
    const Watch watch(list);
    if (!TakeFocus(list) || !watch || item >= list.ItemCount()) {
        return false;
    }
    list.EnsureVisible(item);
    const RECT rc = watch && item < list.ItemCount() ? RowRect(list, item, cell) : RECT{};
    if (!watch || rc.top >= rc.bottom) {
        return false;
    }
    if (gesso::Has(list, Quirk::ListKeyboard)) {
        list.MoveCursor(NO_INDEX);
    }
    list.Invalidate(0);
    const HitTestInfo hit{MiddleOf(rc, ViewOf(list)), NO_INDEX, item, static_cast<WORD>(cell), LHP_BODY};
    gesso::ListInside::ClickItem(list, hit, mods);
    return true;
}

bool GList::Access::PressHeader(GList& list, UINT column)
{
    const Watch watch(list);
    if (!TakeFocus(list) || !watch || column >= CountOfKind(list, HEADER)) {
        return false;
    }
    const UINT cell = HeaderCell(list, column);
    if (cell == NO_INDEX) {
        return false;
    }
    if (gesso::Has(list, Quirk::ListKeyboard)) {
        list.MoveCursor(NO_INDEX);
    }
    list.Invalidate(0);
    RECT rcClient{};
    GetClientRect(list.m_hWnd, &rcClient);
    list.ClickHeader({MiddleOf(HeaderRect(list, column), rcClient), NO_INDEX, LHI_HEADER,
                      static_cast<WORD>(cell), LHP_BODY},
                     LHP_BODY);
    return true;
}

// The check mark is the host's to change: what checks it is a click on the box.
bool GList::Access::Act(GWnd& wnd, AccessibleId id) const
{
    GList& list = Of(wnd);
    return id.nKind == HEADER ? PressHeader(list, id.nIndex)
                              : id.nKind == ITEM && ClickOn(list, id.nIndex, 0, 0);
}

bool GList::Access::Choose(GWnd& wnd, AccessibleId id, AccessibleChoice choice) const
{
    GList& list = Of(wnd);
    if (id.nKind != ITEM) {
        return false;
    }
    const UINT cell = HasBoxes(list) ? 1 : 0;
    switch (choice) {
    case AccessibleChoice::Only: return ClickOn(list, id.nIndex, cell, 0);
    case AccessibleChoice::Extend: return ClickOn(list, id.nIndex, cell, KEYMOD_SHIFT);
    case AccessibleChoice::Add:
    case AccessibleChoice::Remove: {
        const bool fOn = choice == AccessibleChoice::Add;
        return (list.GetSelected(id.nIndex) != 0) == fOn || ClickOn(list, id.nIndex, cell, KEYMOD_CTRL);
    }
    }
    return false;
}

// As an arrow key with Ctrl: what is selected stays, and so does where a range starts.
bool GList::Access::Focus(GWnd& wnd, AccessibleId id) const
{
    GList& list = Of(wnd);
    if (id.nKind != ITEM) {
        return SideOf::Focus(wnd, id);
    }
    const Watch watch(list);
    if (!TakeFocus(list) || !watch || id.nIndex >= list.ItemCount()) {
        return false;
    }
    if (gesso::Has(list, Quirk::ListKeyboard)) {
        list.MoveCursor(id.nIndex);
        list.BringIntoView(id.nIndex);
    } else {
        list.MoveTo(id.nIndex, KEYMOD_CTRL, false);
    }
    list.RedrawAll();
    list.TellSelection();
    return true;
}

bool GList::Access::Show(GWnd& wnd, AccessibleId id) const
{
    GList& list = Of(wnd);
    UINT item = id.nKind == ITEM ? id.nIndex : NO_INDEX;
    if (id.nKind == GROUP) {
        const Range members = Members(list, id.nIndex);
        const UINT first = members.first;
        item = !members.Count() ? NO_INDEX : list.IsVirtual() ? first : list.elements[first].index;
    }
    const RECT rc = item == NO_INDEX ? RECT{} : RowRect(list, item, NO_INDEX);
    if (rc.top >= rc.bottom) {
        return false;
    }
    list.EnsureVisible(item);
    return true;
}
