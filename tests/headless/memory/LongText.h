// A text that no block of a MemoryLimit holds.
#pragma once

#include "MemoryLimit.h"

#include <gesso/api.h>

#include <vector>

namespace test {

// Words of one letter, so that it breaks anywhere. It ends in two terminators.
class LongText
{
public:
    static constexpr UINT LENGTH = 100'000;

    explicit LongText(UINT nLength = LENGTH) : m_text(nLength + 2)
    {
        for (UINT i = 0; i < nLength; ++i) {
            m_text[i] = i % 2 == 0 ? L'x' : L' ';
        }
    }
    operator LPCWSTR() const { return m_text.data(); }
    LPARAM Param() const { return reinterpret_cast<LPARAM>(m_text.data()); }

private:
    std::vector<wchar_t> m_text;
};

} // namespace test
