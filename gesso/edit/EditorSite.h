// The control that a TextEditor works in: an edit field, or a combo box with a field of its own.
#pragma once

#include <gesso/framework/GWnd.h>

namespace gesso {

class EditorSite
{
public:
    virtual const GWnd& Window() const = 0;
    virtual HFONT Font() const = 0;
    // ES_ and WS_ bits as an edit field has them.
    virtual DWORD EditStyle() const = 0;
    // The room for text, in client coordinates.
    virtual RECT TextRect() const = 0;

    // EN_UPDATE, EN_CHANGE, EN_MAXTEXT, EN_HSCROLL, EN_VSCROLL or EN_CONTEXTMENU, to be told to the parent,
    // which may do anything. Returns the answer, 0 if the control is gone.
    virtual LRESULT Tell(UINT uCode) = 0;
    // How far the content reaches now: bars are shown and placed by it. A site without bars does nothing.
    virtual void SetRange(int nBar, int nMax, UINT nPage, int nPos) = 0;
    // Whether the control, too, has memory for a text of so many characters: an edit is not made otherwise.
    virtual bool HasRoomFor(UINT) { return true; }
    // Whether text that is dragged may be dropped at a point of the window, in client coordinates.
    virtual bool TakesDropAt(POINT) const { return true; }

protected:
    ~EditorSite() = default;
};

} // namespace gesso
