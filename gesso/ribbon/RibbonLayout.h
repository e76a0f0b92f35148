// Where a ribbon page's groups and items stand, and what is at a point: worked out from their sizes alone.
// hwnd is the window that the measures are for.
#pragma once

#include <gesso/ribbon/GRibbonPage.h>

namespace gesso {

using RibbonGroups = OArray<GRibbonPage::Group, GRibbonPage::Group const&>;

// Of a column of items: as many rows as there are at 96 dots an inch, however those round. What larger texts
// need beyond that is the host's to give, as the ribbon's height is.
int ColumnHeight(HWND hwnd);

// Stacks the items behind the placed ones in columns and sets the group's width, its left being 0.
void PlaceItems(HWND hwnd, GRibbonPage::Group& group);
// Moves the groups to where they follow one another.
void PlaceGroups(RibbonGroups& groups);

// Fills in the group and the item at info.pt.
void HitGroups(HWND hwnd, const RibbonGroups& groups, GRibbonPage::HitTestInfo& info);

// Whether all that was placed stands where placing everything anew would put it, and no group overlaps the
// next. Gaps between groups, as removing one leaves them, are sound.
bool CheckGroups(HWND hwnd, const RibbonGroups& groups);

} // namespace gesso
