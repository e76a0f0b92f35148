// Registration of the library's window classes: all alike but for a style and a background.
#pragma once

#include <gesso/api.h>

namespace gesso {

// Class styles, by what a class is for.
constexpr UINT CLASS_HOST = CS_HREDRAW | CS_VREDRAW;
constexpr UINT CLASS_SCROLLING = CLASS_HOST | CS_DBLCLKS | CS_GLOBALCLASS;
constexpr UINT CLASS_CONTROL = CLASS_HOST | CS_PARENTDC | CS_GLOBALCLASS;
constexpr UINT CLASS_TEXT_ENTRY = CLASS_CONTROL | CS_DBLCLKS;
static_assert(CLASS_HOST == 0x0003 && CLASS_SCROLLING == 0x400B && CLASS_CONTROL == 0x4083 &&
              CLASS_TEXT_ENTRY == 0x408B);

// The background of every class but the separator's: COLOR_WINDOW + 1, or 0 for none.
constexpr int BACKGROUND_WINDOW = COLOR_WINDOW + 1;

// Registers the class unless aClass already holds its atom, and returns the atom. A failure stores 0, so that
// the next call tries again.
ATOM RegisterControlClass(ATOM& aClass, LPCWSTR pszName, WNDPROC pfnWindow, UINT uStyle,
                          int nBackground = BACKGROUND_WINDOW);

} // namespace gesso
