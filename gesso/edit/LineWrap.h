// Where a paragraph is wrapped into rows.
#pragma once

#include <gesso/edit/PreparedLine.h>

namespace gesso {

// Where the rows of the first nLength characters of a source begin, from the source's start: 0 and the places
// that do not fit into nWidth pixels. Rows end behind spaces, which may reach beyond the width, between
// ideographs, or, where a word is wider than a row, between two characters. nAverage is how wide a character
// is about. Throws std::bad_alloc.
std::vector<UINT> WrapRows(const LineSource& source, UINT nLength, int nWidth, int nAverage);

} // namespace gesso
