// Which characters a font of the machine has, read from it as far as somebody asks.
#pragma once

#include <gesso/api.h>

#include <bitset>
#include <map>
#include <vector>

namespace gesso {

enum class Told
{
    No,
    Yes,
    Nothing // the platform failed
};

class FontCoverage
{
public:
    explicit FontCoverage(LPCWSTR pszFace);

    LPCWSTR Face() const { return m_szFace; }
    // Whether there may be anything beyond the first 65,536 characters.
    void SetBeyond(bool fBeyond) { m_fBeyond = fBeyond; }
    // The analysis is that of a text with the character.
    Told Has(HDC hdc, char32_t c, const SCRIPT_ANALYSIS& analysis);

private:
    // A block is what the platform is asked for at once, beyond the characters that it lists.
    static constexpr UINT BLOCK = 256;
    using Block = std::bitset<BLOCK>;

    bool ReadRanges(HDC hdc);
    bool ReadBlock(HDC hdc, char32_t first, SCRIPT_ANALYSIS analysis, Block& block);

    WCHAR m_szFace[LF_FACESIZE]{};
    bool m_fBeyond = true;
    bool m_fRead = false;
    std::vector<WCRANGE> m_ranges;
    std::map<char32_t, Block> m_blocks;
};

} // namespace gesso
