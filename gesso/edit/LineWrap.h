// Where a paragraph is wrapped into rows.
#pragma once

#include <gesso/edit/PreparedLine.h>

namespace gesso {

// How many characters the row that begins at a source's start has in nWidth pixels, with the paragraph's end
// if it comes to that. Rows end behind spaces, which may reach beyond the width, between ideographs, or,
// where a word is wider than a row, between two characters. nAverage is how wide a character is about. Throws
// std::bad_alloc.
UINT RowLength(const LineSource& source, int nWidth, int nAverage);

// Where a row may begin that is not wrapped yet: at n, which is within the text, or not far in front of it.
UINT LikelyRowStart(const LineSource& source, UINT n, UINT nMostBack);

// How many spaces end the first nLength characters of a source.
UINT CountHangingSpaces(const LineSource& source, UINT nLength);

} // namespace gesso
