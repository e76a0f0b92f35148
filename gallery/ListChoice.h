// What is chosen by a key in the open list of a combo box goes unreported.
#pragma once

#include <gesso/gesso.h>

namespace gallery {

// Has the combo box send CBN_SELCHANGE once more when its list has closed on another item than it opened
// with; a click in the list has then sent one already.
void ReportChoiceOfList(GComboBox& combo);

} // namespace gallery
