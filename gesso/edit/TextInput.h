// What comes into an edit field from outside, made fit for it.
#pragma once

#include <gesso/text/SplitText.h>

#include <vector>

namespace gesso {

struct InputRules
{
    bool fOneLine; // line ends become spaces; otherwise each is CR LF
    bool fNumber;  // digits alone
    bool fUpper;
    bool fLower;
};

// The text up to nMost characters as it would be stored; empty where nothing is left. *pfCut tells whether it
// was cut at nMost, which splits neither a line end nor a surrogate pair. Throws std::bad_alloc.
std::vector<wchar_t> PrepareInput(LPCWSTR psz, UINT n, const InputRules& rules, UINT nMost, bool* pfCut);

// Whether all of the text would be stored as it is, so that it needs no preparing.
bool IsPrepared(LPCWSTR psz, UINT n, const InputRules& rules);

// GEdit::Find; see there. Letters without case are equal if the platform's upper case of them is. Takes time
// in proportion to the two texts. -1 without memory for the table of what is sought.
int FindText(const SplitText& text, LPCWSTR psz, int nFrom, UINT uFlags);

} // namespace gesso
