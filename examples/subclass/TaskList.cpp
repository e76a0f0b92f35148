#include "TaskList.h"

namespace {

constexpr UINT TASK = 0;
constexpr UINT STATE = 1;
constexpr UINT LINE = DT_SINGLELINE | DT_VCENTER;

} // namespace

HWND TaskList::Create(int x, int y, int cx, int cy, HWND hwndParent, int nId)
{
    const HWND hwnd = GList::Create(x, y, cx, cy, hwndParent, nId, GLS_DETAILS | GLS_HEADER | GLS_CHECKBOXES,
                                    0, WS_CHILD | WS_VISIBLE | WS_BORDER | WS_TABSTOP | WS_VSCROLL);
    InsertColumn(TASK, 0, LINE, 200, 60, L"Task", 0, LCT_TEXT, nullptr, nullptr, nullptr, nullptr);
    InsertColumn(STATE, 0, LINE, 90, 40, L"State", 0, LCT_TEXT, nullptr, nullptr, nullptr, nullptr);
    return hwnd;
}

UINT TaskList::Add(LPCWSTR pszTask)
{
    return InsertItem(GetItemCount(), 0, nullptr, 0, pszTask, 0);
}

UINT TaskList::InsertItem(UINT position, UINT group, void* customData, UINT state, LPCWSTR text, UINT image)
{
    const UINT item = GList::InsertItem(position, group, customData, state, text, image);
    SetSubItem(item, STATE, 0, L"to do", 0);
    return item;
}

void TaskList::RemoveItem(UINT item)
{
    if (IsDone(item)) {
        GList::RemoveItem(item);
        m_nDone--;
    }
}

void TaskList::SetItemState(UINT item, UINT subItem, UINT state, UINT mask)
{
    const bool fWasDone = IsDone(item);
    GList::SetItemState(item, subItem, state, mask);
    if (IsDone(item) != fWasDone) {
        m_nDone += fWasDone ? UINT(-1) : 1;
        SetItemText(item, STATE, fWasDone ? L"to do" : L"done");
    }
}
