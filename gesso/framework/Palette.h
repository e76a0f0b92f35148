// The shades of the roles, by scheme.
#pragma once

#include <gesso/framework/Appearance.h>

namespace gesso {

inline constexpr size_t ROLE_COUNT = static_cast<size_t>(ColorRole::Hint) + 1;
inline constexpr size_t SCHEME_COUNT = 3; // those that can be active

// What a scheme has for a role where the host has set nothing.
COLORREF ShadeOf(ColorScheme active, ColorRole role);

// What the host has set for a role; CLR_DEFAULT for nothing.
COLORREF OwnShade(ColorScheme active, ColorRole role);
void SetOwnShade(ColorScheme active, ColorRole role, COLORREF cr);

} // namespace gesso
