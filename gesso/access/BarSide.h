// What the scroll bars of the controls that have them in their frame say of themselves.
#pragma once

#include <gesso/access/AccessibleSide.h>

namespace gesso {

// The side of a control's bars; null for a control without any.
const AccessibleSide* BarSideOf(const GWnd& wnd);
// SB_HORZ or SB_VERT.
AccessibleId BarId(int nBar);

} // namespace gesso
