// The rules of line breaking, told as plainly as can be: what CDrawText::DrawText_Break must agree with.
#pragma once

#include "tests/text/TextSupport.h"

namespace test {

// The breaks of a text whose buffer is calculated and has its pLogAttr filled. Without a guard a word that is
// wider than the line and follows white space breaks at its start for ever: where the rules make no end, the
// records are those before the first that does not move on.
std::vector<stcDrawTextBreak> ModelBreaks(std::u16string_view text, int cxMax,
                                          const stcDrawTextBuffer& buffer);

} // namespace test
