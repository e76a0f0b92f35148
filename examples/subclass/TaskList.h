// A list of tasks, each of which may be done: a list with its own columns, and with its own idea of what it
// means to insert and to remove an item.
#pragma once

#include <gesso/gesso.h>

class TaskList : public GList
{
public:
    // Makes the window with the columns of a task.
    HWND Create(int x, int y, int cx, int cy, HWND hwndParent, int nId);
    // Appends a task, not done yet. Returns its index.
    UINT Add(LPCWSTR pszTask);
    UINT GetDoneCount() const { return m_nDone; }

    // A task starts with its state in words, however it comes into the list.
    UINT InsertItem(UINT position, UINT group, void* customData, UINT state, LPCWSTR text,
                    UINT image) override;
    // A task that is not done stays.
    void RemoveItem(UINT item) override;
    // The tick of the check box decides whether a task is done.
    void SetItemState(UINT item, UINT subItem, UINT state, UINT mask) override;

private:
    using GList::Create;
    bool IsDone(UINT item) const { return GetItemState(item, 0) & LSIS_CHECKED; }

    UINT m_nDone = 0;
};
