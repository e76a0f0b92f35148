// What is Gesso's own of a list, behind the one pointer that its class has for it.
#pragma once

#include <gesso/list/GList.h>
#include <gesso/list/ListGeometry.h>

namespace gesso {

struct ListInside
{
    bool fOwner = false; // of the list's records: their maker's, not a copy's
    RowOrder rowOrder;
    bool fSizing = false;       // in WM_NCCALCSIZE
    bool fFontsMissing = false; // some could not be made
    bool fEdits = false;        // the edit in progress is this list's own, which a copy has only seen
    UINT itemChanges = 0;       // counts insertions and removals

    // Whether a list's layout agrees with its records, for tests.
    static bool CheckLayout(const GList& list);

    struct FieldPlaces;
};

} // namespace gesso
