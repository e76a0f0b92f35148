// Renaming an item of a list in place.

#include <gesso/edit/LabelEdit.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Lifeline.h>
#include <gesso/framework/Saturate.h>
#include <gesso/list/ListGeometry.h>
#include <gesso/list/ListInside.h>

#include <algorithm>
#include <cstdlib>
#include <utility>

using gesso::Frame;
using gesso::LabelEdit;
using gesso::NO_INDEX;
using gesso::Saturated;

namespace {

// Whether an element shows an item's name. An icon has one text, whatever column its element names.
bool IsLabel(const stcColumnDrawInfo& element)
{
    const bool fText = element.type == LCT_TEXT || element.type == LCT_TITLE || element.type == LCT_IMAGETEXT;
    return element.type == LCT_ICONTEXT || (fText && element.column == 0);
}

LRESULT SendRenaming(const GList& list, UINT code, UINT item, LPCWSTR text)
{
    GLISTNOTIFY notify{};
    notify.iItem = static_cast<int>(item);
    notify.pszText = text;
    return Frame::SendNotify(list, code, &notify.hdr);
}

} // namespace

bool GList::EditItem(UINT item)
{
    if (!HasItem(item, "GList::EditItem: no such item") || !Frame::IsAlive(m_hWnd, this)) {
        return false;
    }
    const gesso::ListItemTrack record = Track(item);
    const gesso::Watch watch(*this);
    LabelEdit::End(m_inside->renaming.hwnd, true);
    RECT rc{};
    if (!watch || !GetLabelRect(IndexOf(record), &rc)) {
        return false;
    }
    ShowLabel(IndexOf(record));
    const bool fRefused = SendRenaming(*this, LVN_BEGINLABELEDITW, IndexOf(record), nullptr) != 0;
    // The parent may have begun a renaming itself.
    return watch && !fRefused && !m_inside->renaming.hwnd && BeginRenaming(IndexOf(record));
}

gesso::ListItemTrack GList::Track(UINT item) const
{
    return m_inside->tracks.Follow({ItemAt(item), IsVirtual() ? item : NO_INDEX});
}

// The record is only compared.
UINT GList::IndexOf(const gesso::ListItemTrack& track) const
{
    if (IsVirtual()) {
        return track->index;
    }
    for (UINT i = 0; track->item && i < items.GetLength(); ++i) {
        if (items[i] == track->item) {
            return i;
        }
    }
    return NO_INDEX;
}

// Of an item's name; null where the view shows none.
const stcColumnDrawInfo* GList::LabelElement() const
{
    const auto found = std::find_if(columnDraw.begin(), columnDraw.end(), IsLabel);
    return found != columnDraw.end() ? &*found : nullptr;
}

// Of the first column's text, in client coordinates. False where the view or the item shows none.
bool GList::GetLabelRect(UINT item, RECT* rc) const
{
    gesso::ListCut cut;
    const gesso::ListGeometry geometry = GeometryInView(item, cut);
    const UINT row = geometry.RowOf(item);
    const stcColumnDrawInfo* element = LabelElement();
    if (row >= geometry.RowCount() || !element) {
        return false;
    }
    const RECT rcRow = geometry.RowRect(row, -int64_t{m_siH.nPos}, -int64_t{m_siV.nPos});
    const RECT rcContent = ContentRect(*element, rcRow, themeList.BorderSize());
    const int image = element->type == LCT_IMAGETEXT ? IconSize().cx * 5 / 4 : 0;
    *rc = {Saturated(int64_t{rcContent.left} + image), Saturated(int64_t{rcRow.top} + element->rect.top),
           rcContent.right, Saturated(int64_t{rcRow.top} + element->rect.bottom)};
    return true;
}

void GList::ShowLabel(UINT item)
{
    // Where a rectangle has no room for the place.
    const gesso::VirtualList* list = Virtual();
    if (list && std::abs(list->rows.PlaceOf(item).top - list->top) > INT_MAX / 2) {
        BringIntoView(item);
    }
    RECT rc{}, rcClient{};
    if (!GetLabelRect(item, &rc)) {
        return;
    }
    GetClientRect(m_hWnd, &rcClient);
    const int top = static_cast<int>(headerArea);
    if (rc.top < top || rc.bottom > rcClient.bottom) {
        const int64_t above = int64_t{rc.top} - top;
        const int64_t below = std::min(above, int64_t{rc.bottom} - rcClient.bottom);
        ScrollTo(SB_VERT, m_siV.nPos + (rc.top < top ? above : below));
    }
    if (rc.left < 0 || rc.left >= rcClient.right) {
        ScrollTo(SB_HORZ, int64_t{m_siH.nPos} + rc.left);
    }
    Invalidate(0);
}

bool GList::BeginRenaming(UINT item)
{
    RECT rc{};
    if (item == NO_INDEX || !GetLabelRect(item, &rc)) {
        return false;
    }
    const gesso::ListItemTrack record = Track(item);
    // The parent hears of the new window, and then that the list loses the focus, and may do anything; so it
    // may where it is asked for the text.
    const gesso::Watch watch(*this);
    const LPCWSTR text = GetItemText(item, 0);
    if (!watch || !LabelElement()) {
        return false;
    }
    if (!GetLabelRect(IndexOf(record), &rc)) {
        SendRenaming(*this, LVN_ENDLABELEDITW, IndexOf(record), nullptr);
        return false;
    }
    const HFONT hFont = LabelElement()->type == LCT_TITLE ? fontLabelTitle : fontLabelText;
    const HWND hwnd = LabelEdit::Make(m_hWnd, rc, hFont, text ? text : L"", OnRenamed);
    if (!watch) {
        return false;
    }
    // The parent has allowed it, but there is no field, or it has begun another one meanwhile.
    if (!hwnd || m_inside->renaming.hwnd) {
        LabelEdit::Forget(hwnd);
        DestroyWindow(hwnd);
        SendRenaming(*this, LVN_ENDLABELEDITW, IndexOf(record), nullptr);
        return false;
    }
    m_inside->renaming = {hwnd, record};
    return LabelEdit::Begin(hwnd);
}

void GList::OnRenamed(HWND hwndList, LPCWSTR text)
{
    if (auto* list = Frame::ObjectOf<GList>(hwndList)) {
        list->EndRenaming(text);
    }
}

void GList::EndRenaming(LPCWSTR text)
{
    const gesso::ListItemTrack record = std::exchange(m_inside->renaming, {}).item;
    if (!record) {
        return; // the list was assigned another one meanwhile
    }
    const UINT item = IndexOf(record);
    text = item != NO_INDEX ? text : nullptr;
    const gesso::Watch watch(*this);
    const bool fTaken = SendRenaming(*this, LVN_ENDLABELEDITW, item, text) != 0;
    const UINT now = watch ? IndexOf(record) : NO_INDEX;
    if (now == NO_INDEX || !fTaken || !text) {
        return;
    }
    IsVirtual() ? ItemsChanged(now, now) : SetItemText(now, 0, text);
}

// After a removal, and after a change of what shows.
void GList::EndLostRenaming()
{
    const gesso::ListRenaming renaming = m_inside->renaming;
    RECT rc{};
    if (renaming.hwnd && (renaming.fLost || !GetLabelRect(IndexOf(renaming.item), &rc))) {
        LabelEdit::End(renaming.hwnd, false);
    }
}

// After rows or columns have moved. A field that the header would cover, or that has left at the side, waits
// out of sight: without the focus it would end.
void GList::PlaceRenaming()
{
    const gesso::ListRenaming renaming = m_inside->renaming;
    RECT rc{};
    if (renaming.hwnd && GetLabelRect(IndexOf(renaming.item), &rc)) {
        const int top = HeaderRoom() ? static_cast<int>(headerHeight) : 0;
        const bool fShows = rc.top >= top && rc.right > 0;
        LabelEdit::Place(renaming.hwnd, fShows ? rc : gesso::Shifted(rc, 0, -int64_t{rc.bottom}));
    }
}

void GList::ForgetRenaming()
{
    LabelEdit::Forget(std::exchange(m_inside->renaming, {}).hwnd);
}
