// A field in which the user renames an item of a tree or list: a child of the control, over the item's label.
//
// Enter takes the text, Esc drops it, and so does the loss of the focus take it: a click elsewhere. The
// window owns the object. It is gone, and the focus is the control's again if it was the field's, when the
// control is told.
#pragma once

#include <gesso/edit/GEdit.h>

namespace gesso {

class LabelEdit final : public GEdit
{
public:
    // What a control does at the end, whose object may be gone; the text is null where it is dropped.
    using EndFunction = void (*)(HWND hwndOwner, LPCWSTR pszText);

    // Makes a field over a label, in the owner's client coordinates, with the text all selected. It is as
    // wide as the text needs, and grows with it as far as there is room. Null where it could not be made.
    static HWND Make(HWND hwndOwner, const RECT& rcLabel, HFONT hFont, LPCWSTR pszText, EndFunction pfnEnd);
    // Gives it the focus. False where it is gone again, or did not get it. The owner may be gone afterwards.
    static bool Begin(HWND hwnd);
    // The same label is elsewhere now.
    static void Place(HWND hwnd, const RECT& rcLabel);
    // The owner is about to delete a font, which may be the field's, and has this one in its place.
    static void ReplaceFont(HWND hwnd, HFONT hFormer, HFONT hFont);
    // Ends the edit, if it has not ended yet. The owner may be gone afterwards.
    static void End(HWND hwnd, bool fTake);
    // The same without telling the owner, which is going.
    static void Forget(HWND hwnd);

private:
    explicit LabelEdit(EndFunction pfnEnd);

    static LabelEdit* Of(HWND hwnd);
    static LRESULT CALLBACK WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam);
    bool TakesKey(UINT uMsg, WPARAM wKey) const;
    void Fit();

    EndFunction m_pfnEnd; // null once the edit has ended
    RECT m_rcLabel{};
};

} // namespace gesso
