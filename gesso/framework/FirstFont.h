// The font that a control starts with.
#pragma once

#include <gesso/framework/Frame.h>
#include <gesso/framework/Quirks.h>

namespace gesso {

// What a window's creation makes of its control's font: that which the host has set before, or the default
// one of the window, which need not be that of the control's former window.
inline void TakeFirstFont(const GWnd& wnd, HFONT& hFont)
{
    if (!hFont || IsDefaultFont(hFont) || Has(wnd, Quirk::FontEndsWithWindow)) {
        hFont = DefaultFontOf(Frame::Handle(wnd));
    }
}

} // namespace gesso
