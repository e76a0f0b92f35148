// What the sources of the ribbon and its pages share.
#pragma once

#include <gesso/api.h>

namespace gesso {

// Pixels.
constexpr int TAB_BASE_LINE = 25;
constexpr int PAGE_TOP = 26; // what is above belongs to the tabs
constexpr int EMPTY_GROUP_WIDTH = 40;

// How a page names an item.
constexpr UINT ItemCode(UINT nGroup, UINT nItem)
{
    return nGroup << 16 | nItem;
}

} // namespace gesso
