// Finding the items of a combo box that was made in Modern by their texts.
#pragma once

#include <gesso/edit/GComboBox.h>

namespace gesso {

using ComboItems = OArray<ComboItem*, ComboItem*>;

enum class ComboMatch
{
    Start, // the item begins with the text
    Whole
};

// The first item that matches, without case, from the one behind nStart to the end, and then from the first
// one up to nStart itself. From the first one where there is no item nStart. NO_INDEX for none, and for an
// empty text.
UINT FindItem(const ComboItems& aItems, UINT nStart, LPCWSTR psz, ComboMatch match);

// Where an item with this text goes among items in the order of the user's language: behind those that are
// equal.
UINT SortedPlace(const ComboItems& aItems, LPCWSTR psz);

} // namespace gesso
