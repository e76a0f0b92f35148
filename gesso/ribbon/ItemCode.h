// How a page names an item: the index of its group in the high word, and its own in the low one.
#pragma once

#include <gesso/api.h>

namespace gesso {

constexpr UINT ItemCode(UINT nGroup, UINT nItem)
{
    return nGroup << 16 | nItem;
}

} // namespace gesso
