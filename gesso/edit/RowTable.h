// Where the rows of a text begin: its paragraphs, and the parts that these are wrapped into. An edit moves no
// more entries than those between it and the edit before.
//
// What is false without memory has then done nothing.
#pragma once

#include <gesso/text/SplitText.h>

namespace gesso {

class RowTable
{
public:
    RowTable();
    ~RowTable();
    RowTable(const RowTable&) = delete;
    RowTable& operator=(const RowTable&) = delete;

    // 1 at least.
    UINT Count() const;
    // Of the row behind the last one: the text's length.
    UINT Start(UINT nRow) const;
    UINT Length(UINT nRow) const { return Start(nRow + 1) - Start(nRow); } // with its line end
    // The last row that begins at nOffset or in front of it.
    UINT RowOf(UINT nOffset) const;

    [[nodiscard]] bool Reserve(UINT nMore);
    // Rows nRow up to nRow + nRows become nNew ones that begin at pStarts, of which the first is where nRow
    // begins. nNew is 1 or more.
    [[nodiscard]] bool Replace(UINT nRow, UINT nRows, const UINT* pStarts, UINT nNew);
    // Everything behind the row's start moves by so many characters.
    void Move(UINT nRow, int nBy);
    // One row of so many characters.
    void Clear(UINT nLength);

private:
    // (the implementer's)
};

} // namespace gesso
