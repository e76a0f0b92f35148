// The pixels of parts of the visual style, cached. The theme service scales an image anew each time that it
// draws a part, which takes it a hundred times as long as to copy the outcome. A part that covers all that
// lies below it looks the same wherever it is drawn, so that its pixels may be copied there; what shows
// through is never cached. What turns out to be no picture at all, as some styles' grippers, is left out.
#pragma once

#include <gesso/api.h>

namespace gesso {

// Copies the part to rc, where it is cached, or leaves it out where it is blank. False where the part is to
// be drawn: for the first time in this size, or because it is no image, shows what lies below, is very large,
// or goes into a context other than a plain memory context.
bool DrawCachedPart(HTHEME hTheme, HDC hdc, int nPart, int nState, const RECT& rc);

// Drops what is cached of a theme handle, which is about to be closed and may come again for another class.
void DropCachedParts(HTHEME hTheme);

// Whether the entries agree with each other and with the count of pixels. For tests.
bool CheckThemePartCache();

} // namespace gesso
