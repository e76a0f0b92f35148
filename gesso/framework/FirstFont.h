// The font that a control starts with.
#pragma once

#include <gesso/framework/Frame.h>
#include <gesso/framework/Quirks.h>

namespace gesso {

// What a window's creation makes of its control's font: the default one, or that which the host has set
// before.
inline void TakeFirstFont(const GWnd& wnd, HFONT& hFont)
{
    if (!hFont || Has(wnd, Quirk::FontEndsWithWindow)) {
        hFont = DefaultFontOf(Frame::Handle(wnd));
    }
}

} // namespace gesso
