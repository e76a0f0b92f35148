// The marks of check boxes that the gallery makes with GBS_AUTO: in Classic a click leaves them to the page.
#pragma once

#include <gesso/gesso.h>

namespace gallery {

// The mark that a click has led to, the next one of nMarks, when the page hears of it.
inline int MarkAfterClick(GCheckBox& box, int nMarks = 2)
{
    if (gesso::BehaviorOf(box) == gesso::Behavior::Classic) {
        box.SetCheck((box.GetCheck() + 1) % nMarks);
    }
    return box.GetCheck();
}

} // namespace gallery
