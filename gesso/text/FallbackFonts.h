// Which font of the machine shows what another one lacks: one that the registry links to it, else one that
// the platform has for the script, else any that has the characters. What each font has, and which font a
// character was found in, is found out once a process.
#pragma once

#include <gesso/text/FontCoverage.h>
#include <gesso/text/RunFonts.h>

#include <functional>

namespace gesso {

// In which manner ideographs are written, by what stands beside them.
enum class HanStyle
{
    Chinese,
    Japanese,
    Korean,
    Taiwanese
};
HanStyle HanStyleOf(LPCWSTR pszText, UINT nChars);

struct FontRequest
{
    HDC hdc;
    const BaseFont& base;
    const SCRIPT_ANALYSIS& analysis;      // of the item that lacks the characters
    std::span<const char32_t> characters; // all of them are to be in the font; one at least
    HanStyle style;
    // All that a face is tried with, in numbers; empty where that is too much to be remembered.
    std::span<const char32_t> unit;
};

// Yes takes a face; Nothing says that the platform failed, so that the refusal is not remembered.
using AcceptFace = std::function<Told(LPCWSTR pszFace)>;

// Offers faces until one is accepted. False if none is: no font of the machine has the characters, or the
// platform does not tell. Faces are offered by one thread at a time. Throws where there is no memory.
bool FindFallbackFace(const FontRequest& request, const AcceptFace& accept);

// Forgets all that was found out, and ends the fonts that no text uses: what the machine has may be others.
void ForgetFallbackFonts();

// Whether a character shows nothing of its own: controls, joiners, marks of direction, variation selectors.
bool IsIgnorable(char32_t c);

} // namespace gesso
