// What a list looks at in its prepared texts.
#pragma once

#include <gesso/framework/Saturate.h>
#include <gesso/text/TextArrays.h>

#include <algorithm>
#include <cstdlib>

namespace gesso {

// Null for a text that could not be prepared.
inline stcDrawTextBuffer* PreparedBuffer(void* hText)
{
    auto* buffer = static_cast<stcDrawTextBuffer*>(hText);
    return IsBuffer(buffer) && buffer->pBreaks ? buffer : nullptr;
}

// Of all its lines, as they are drawn.
inline SIZE PreparedSize(void* hText)
{
    const stcDrawTextBuffer* buffer = PreparedBuffer(hText);
    if (!buffer) {
        return {};
    }
    UINT width = 0;
    for (UINT line = 0; line <= buffer->nBreaks; ++line) {
        width = std::max(width, buffer->pBreaks[line].nWidth);
    }
    const int64_t lines = int64_t{buffer->nBreaks} * std::abs(int64_t{buffer->nLineHeight});
    return {Saturated(width), Saturated(lines + buffer->nFontHeight)};
}

} // namespace gesso
