// Two aids for whoever looks for a fault, in debug builds of the library: a trace of the messages that one
// control gets, and an overlay of the rectangles that it is laid out in. A release build has the operations,
// so that a program links with either, and they do nothing there.
#pragma once

#include <gesso/api.h>

namespace gesso {

// From now on each message that a control of this class ("GList") gets is written to the debug output as it
// comes, with its parameters, and again with its result, indented by how deep it was sent. A name with an id
// behind it ("GList:17") traces the controls with that id alone; "*" traces all; null ends it.
GESSO_API void TraceMessages(LPCWSTR pszControl);

// Outlines over a control's picture the rectangles that it is laid out in: of one control, in place of the
// one before, or of all controls of the thread. Repaints the control; what ShowLayoutOfAll concerns shows
// with its next paint. Null shows none.
GESSO_API void ShowLayout(HWND hwnd);
GESSO_API void ShowLayoutOfAll(bool fShow);

} // namespace gesso
