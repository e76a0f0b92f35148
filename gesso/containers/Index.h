// The index that is none, as every operation of the library answers it.
#pragma once

#include <gesso/api.h>

namespace gesso {

inline constexpr UINT NO_INDEX = static_cast<UINT>(-1);

} // namespace gesso
