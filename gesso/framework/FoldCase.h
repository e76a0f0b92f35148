// Texts without the difference between capitals and small letters, in any script.
#pragma once

#include <gesso/api.h>

namespace gesso {

// The small letter of a character of 16 bits.
wchar_t FoldCase(wchar_t c);

// What of a text comes behind another one that it begins with; null where it does not begin so.
LPCWSTR BehindStart(LPCWSTR psz, LPCWSTR pszStart);

} // namespace gesso
