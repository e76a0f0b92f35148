// Working space for texts that are being prepared.
#pragma once

#include <gesso/text/CDrawText.h>

#include <utility>

namespace gesso {

// A buffer of which the arrays, their capacities and the running counts are used. Two are kept from text to
// text, and their arrays never shrink. Threads prepare their own texts: whoever gets the pointer has the
// spare to itself, and whoever finds none makes another.
class TextSpace
{
public:
    TextSpace();
    ~TextSpace();
    TextSpace(const TextSpace&) = delete;
    TextSpace& operator=(const TextSpace&) = delete;

    stcDrawTextBuffer& Arrays() const { return *m_pArrays; }

private:
    stcDrawTextBuffer* m_pArrays;
};

} // namespace gesso
