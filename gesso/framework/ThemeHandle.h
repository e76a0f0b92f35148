// A control's handle to a class of the visual style.
#pragma once

#include <gesso/framework/Owned.h>

namespace gesso {

GESSO_API void CloseTheme(HTHEME hTheme) noexcept;

// Null where the style has no such class, or visual styles are off.
using ThemeHandle = Owned<HTHEME, CloseTheme>;

} // namespace gesso
