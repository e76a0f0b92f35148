// Text between the platform's 16-bit characters and the UTF-8 of the driver interface.
#pragma once

#include "../headless.h"

namespace gesso::headless {

// A platform text as the sources hold it. (std::wstring reads 32-bit characters on Linux.)
using WideText = std::u16string;
using WideView = std::u16string_view;

WideView View(LPCWSTR text); // an empty view for null
LPCWSTR Characters(const WideText& text);
std::string ToUtf8(WideView text);
WideText FromUtf8(std::string_view text); // what is no UTF-8 becomes U+FFFD

// Copies into a buffer of `capacity` characters as the platform's text queries do: cut off to fit, always
// terminated. Returns the characters copied, without the terminator.
int CopyText(WideView text, LPWSTR buffer, int capacity);
bool EqualIgnoringCase(WideView a, WideView b); // by Latin letters, which is what names need

} // namespace gesso::headless
