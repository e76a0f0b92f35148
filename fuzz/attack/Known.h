// What does not hold yet, and is left out until it does. Each entry goes with the change that mends it.
#pragma once

#include <platform/platform.h>

#include <string_view>

namespace attack::known {

// Whether the host may act in a message: within those of painting it destroys what is painted next.
constexpr bool MayActIn(UINT uMsg)
{
    return uMsg != WM_ERASEBKGND && uMsg != WM_PRINTCLIENT;
}

// Whether objects of a class may be assigned to: a list loses its fonts.
constexpr bool MayAssign(std::string_view name)
{
    return name != "GList";
}

// Whether a control's own fonts may be asked for: a command button never deletes one that it makes later.
constexpr bool GIVES_FONTS = false;

// Whether a bar's range and position may be at the ends of int: sums of them overflow.
constexpr int FARTHEST_SCROLL = 1 << 28;

// Whether an operation of the platform may be made to fail.
constexpr bool MayFail(std::string_view operation)
{
    // A window whose words cannot be written or read loses its object.
    return !operation.starts_with("SetWindowLong") && !operation.starts_with("GetWindowLong");
}

} // namespace attack::known
