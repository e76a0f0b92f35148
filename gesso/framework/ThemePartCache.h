// What is cached of the visual style: the pixels of its parts (framework/PictureCache), and their true sizes.
// What turns out to be no picture at all, as some styles' grippers, is left out.
#pragma once

#include <gesso/api.h>

namespace gesso {

// Copies the part to rc where it is cached, or leaves it out where it is blank. False where the part is to be
// drawn: where DrawCached says so, or because it is no image.
bool DrawCachedPart(HTHEME hTheme, HDC hdc, int nPart, int nState, const RECT& rc);

// Drops what is cached of a theme handle, which is about to be closed and may come again for another class.
void DropCachedParts(HTHEME hTheme);

// The true size of a part as the theme service tells it, for a rectangle or a null one, which takes it as
// long as to draw the part.
HRESULT CachedPartSize(HTHEME hTheme, HDC hdc, int nPart, int nState, const RECT* prc, SIZE* pSize);
// To be called when a theme handle was opened: Wine keeps one a class, whose sizes may be others since.
void ForgetPartSizes();

} // namespace gesso
