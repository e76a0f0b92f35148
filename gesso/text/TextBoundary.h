// Where a reader sees one character end and the next begin, and where words do: the extended grapheme
// clusters and the words of Unicode (UAX #29), by the tables of TextClasses.h.
//
// Positions beyond the text count as its end. A line end is CR LF, one cluster; words stop at CR, LF and
// Unicode's other line ends alone too. Half a surrogate pair is a character of its own. Each call looks as
// far as the cluster or word goes, whatever the text's length.
#pragma once

#include <gesso/text/SplitText.h>

namespace gesso {

// --- Characters

bool IsClusterBoundary(const SplitText& text, UINT n);
// The next boundary behind n, and the last one in front of it; the text's end and start at the latest.
UINT ClusterEnd(const SplitText& text, UINT n);
UINT ClusterStart(const SplitText& text, UINT n);
// n itself where it is a boundary, or else the last one in front of it.
UINT SnapToCluster(const SplitText& text, UINT n);
// Where the code point begins that ends at n; of CR LF, the CR.
UINT CodePointStart(const SplitText& text, UINT n);

// --- Words

bool IsWordBoundary(const SplitText& text, UINT n);
UINT WordBoundaryBehind(const SplitText& text, UINT n);
UINT WordBoundaryBefore(const SplitText& text, UINT n);

// What Ctrl+Right and Ctrl+Left lead to: the next word's start, with the spaces behind a word passed over. A
// run of punctuation is a word, and so is a line end: both its sides are stops, whatever spaces follow.
UINT NextWordStart(const SplitText& text, UINT n);
UINT PreviousWordStart(const SplitText& text, UINT n);
// The word, the run of punctuation or the run of spaces that the character at n belongs to, without the
// spaces behind it; at a line end and at the text's end what stands in front of it, if that is in the line,
// or else nothing.
TextRange WordAt(const SplitText& text, UINT n);
// Whether a range begins and ends where words, runs of punctuation or runs of spaces do.
bool IsWholeWord(const SplitText& text, const TextRange& range);

} // namespace gesso
