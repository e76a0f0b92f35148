// Which characters a font of the machine has, read from it as far as somebody asks.
#pragma once

#include <gesso/text/RunFonts.h>

#include <bitset>
#include <map>
#include <vector>

namespace gesso {

class FontCoverage
{
public:
    explicit FontCoverage(LPCWSTR pszFace);

    LPCWSTR Face() const { return m_szFace; }
    Told Has(HDC hdc, char32_t c);

private:
    // A block is what the platform is asked for at once, beyond the characters that it lists.
    static constexpr UINT BLOCK = 256;
    using Block = std::bitset<BLOCK>;

    bool ReadRanges(HDC hdc);
    bool ReadBlock(HDC hdc, char32_t first, Block& block);

    WCHAR m_szFace[LF_FACESIZE]{};
    bool m_fInstalled = true; // as far as is known
    bool m_fRead = false;
    std::vector<WCRANGE> m_ranges;
    std::map<char32_t, Block> m_blocks;
};

} // namespace gesso
