// Lines of texts in which something goes from right to left. The glyphs of a right-to-left item stand from
// left to right, so that a line which ends within it has its last glyphs and not its first.
#pragma once

#include <gesso/text/CDrawText.h>

#include <span>
#include <vector>

namespace gesso {

// A text with the glyphs of its right-to-left items in the order of the characters: what breaks lines can go
// through it as through any other. Throws where there is no memory.
class LogicalGlyphs
{
public:
    explicit LogicalGlyphs(const stcDrawTextBuffer& buffer);
    LogicalGlyphs(const LogicalGlyphs&) = delete;
    LogicalGlyphs& operator=(const LogicalGlyphs&) = delete;

    const stcDrawTextBuffer& Buffer() const { return m_view; }

private:
    void Turn(const stcDrawTextBuffer& buffer, const SCRIPT_ITEM& item, const stcDrawTextRun& run);

    std::vector<int> m_advances;
    std::vector<WORD> m_clusters;
    stcDrawTextBuffer m_view;
};

// Parts each right-to-left item in which lines end: what the first line has of it comes first then, as an
// item of its own, and the white space that ends a line as one more. False without memory, and nothing is
// done; throws where there is less still.
[[nodiscard]] bool PartAtLineEnds(stcDrawTextBuffer& buffer, const LogicalGlyphs& logical,
                                  std::span<const stcDrawTextBreak> breaks);

} // namespace gesso
