// The host's side of an in-place edit in a list: an edit field over the name, which Enter and leaving it
// accept and Escape drops.
#pragma once

#include <gesso/gesso.h>

#include <string>

namespace gallery {

class NameEdit
{
public:
    explicit NameEdit(GList& list) : m_list(list) {}

    // Puts the field over a cell of the details view, with the cell's text in it.
    void Begin(UINT item, UINT subItem);
    bool IsActive() const { return m_hwnd != nullptr; }
    // The new name, where the user accepted one, when the list tells that the field has lost the focus; the
    // field is gone afterwards.
    std::wstring End();
    UINT Item() const { return m_item; }

private:
    static LRESULT CALLBACK KeyProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                    DWORD_PTR data);

    GList& m_list;
    GEdit m_field;
    HWND m_hwnd = nullptr;
    UINT m_item = 0;
    bool m_fAccept = true;
};

} // namespace gallery
