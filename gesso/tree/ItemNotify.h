// What a tree tells its parent of an item.
#pragma once

#include <gesso/framework/Frame.h>
#include <gesso/list/GListNotify.h>

namespace gesso {

// An item without a row has NO_INDEX as `row`. Returns the parent's answer.
inline LRESULT SendItemNotify(const GWnd& wnd, UINT uCode, void* hItem, UINT row, UINT uAction, int x, int y)
{
    GLISTNOTIFY notify{};
    notify.iItem = static_cast<int>(row);
    notify.iSubItem = -1;
    notify.uAction = uAction;
    notify.x = x;
    notify.y = y;
    notify.pItem = hItem;
    // Of items that go there may be a million, and no key has to do with it.
    notify.uKeyFlags = uCode == static_cast<UINT>(TVN_DELETEITEMW) ? 0 : ModifierFlags();
    return Frame::SendNotify(wnd, uCode, &notify.hdr);
}

} // namespace gesso
