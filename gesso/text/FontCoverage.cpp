#include <gesso/framework/DrawScope.h>
#include <gesso/text/FontCoverage.h>
#include <gesso/text/TextArrays.h>

#include <array>

namespace gesso {
namespace {

constexpr char32_t LISTED = 0x10000; // the platform lists what a font has below this

// A font of the face, in whatever size.
class ProbeFont
{
public:
    ProbeFont(HDC hdc, LPCWSTR pszFace) : m_hFont(Make(pszFace)), m_select(hdc, m_hFont) {}
    ProbeFont(const ProbeFont&) = delete;
    ProbeFont& operator=(const ProbeFont&) = delete;

    explicit operator bool() const { return m_hFont; }

private:
    struct Owned
    {
        explicit Owned(HFONT hFont) : h(hFont) {}
        ~Owned()
        {
            if (h) {
                DeleteObject(h);
            }
        }
        Owned(const Owned&) = delete;
        Owned& operator=(const Owned&) = delete;
        operator HFONT() const { return h; }
        HFONT h;
    };

    static HFONT Make(LPCWSTR pszFace)
    {
        constexpr LONG ANY_HEIGHT = -16;
        LOGFONTW log{};
        log.lfHeight = ANY_HEIGHT;
        log.lfCharSet = DEFAULT_CHARSET;
        std::copy_n(pszFace, wcslen(pszFace), log.lfFaceName);
        return CreateFontIndirectW(&log);
    }

    Owned m_hFont;
    SelectScope m_select;
};

} // namespace

FontCoverage::FontCoverage(LPCWSTR pszFace)
{
    std::copy_n(pszFace, std::min<size_t>(wcslen(pszFace), LF_FACESIZE - 1), m_szFace);
}

Told FontCoverage::Has(HDC hdc, char32_t c, const SCRIPT_ANALYSIS& analysis)
{
    if (!m_fRead && !ReadRanges(hdc)) {
        return Told::Nothing;
    }
    if (c >= LISTED) {
        const char32_t first = c / BLOCK * BLOCK;
        if (!m_fBeyond) {
            return Told::No;
        }
        const auto [block, fNew] = m_blocks.try_emplace(first);
        if (fNew && !ReadBlock(hdc, first, analysis, block->second)) {
            m_blocks.erase(block);
            return Told::Nothing;
        }
        return block->second[c - first] ? Told::Yes : Told::No;
    }
    const auto endsBefore = [](const WCRANGE& range, char32_t n) {
        return char32_t{range.wcLow} + range.cGlyphs <= n;
    };
    const auto range = std::lower_bound(m_ranges.begin(), m_ranges.end(), c, endsBefore);
    return range != m_ranges.end() && range->wcLow <= c ? Told::Yes : Told::No;
}

// In the place of a face that is not installed the platform puts some font or other, which is not asked: it
// has its turn under its own name, if it suits.
bool FontCoverage::ReadRanges(HDC hdc)
{
    const ProbeFont font(hdc, m_szFace);
    WCHAR szThere[LF_FACESIZE];
    if (!font || GetTextFaceW(hdc, LF_FACESIZE, szThere) == 0) {
        return false;
    }
    if (_wcsicmp(szThere, m_szFace) != 0) {
        m_fBeyond = false;
        m_fRead = true;
        return true;
    }
    const DWORD cb = GetFontUnicodeRanges(hdc, nullptr);
    if (cb < offsetof(GLYPHSET, ranges)) {
        return false;
    }
    std::vector<uint32_t> block(cb / sizeof(uint32_t) + 1);
    auto* const pSet = reinterpret_cast<GLYPHSET*>(block.data());
    if (GetFontUnicodeRanges(hdc, pSet) == 0) {
        return false;
    }
    const size_t nRoom = (cb - offsetof(GLYPHSET, ranges)) / sizeof(WCRANGE);
    m_ranges.assign(pSet->ranges, pSet->ranges + std::min<size_t>(pSet->cRanges, nRoom));
    m_fRead = true;
    return true;
}

// By shaping, since the platform tells of these characters in no other way. What a call that fails has not
// written counts as missing: the font has no way to shape the script.
bool FontCoverage::ReadBlock(HDC hdc, char32_t first, SCRIPT_ANALYSIS analysis, Block& block)
{
    constexpr int CHARS = 2 * BLOCK;
    constexpr int ROOM = 4 * CHARS;
    const ProbeFont font(hdc, m_szFace);
    if (!font) {
        return false;
    }
    std::array<WCHAR, CHARS> text;
    for (UINT n = 0; n < BLOCK; ++n) {
        text[2 * n] = static_cast<WCHAR>(0xD7C0 + ((first + n) >> 10));
        text[2 * n + 1] = static_cast<WCHAR>(0xDC00 | ((first + n) & 0x3FF));
    }
    std::array<WORD, ROOM> glyphs{};
    std::array<WORD, CHARS> clusters{};
    std::array<SCRIPT_VISATTR, ROOM> attributes;
    SCRIPT_CACHE cache = nullptr;
    SCRIPT_FONTPROPERTIES properties{};
    properties.cBytes = sizeof(properties);
    int nGlyphs = 0;
    HRESULT hr = ScriptShape(hdc, &cache, text.data(), CHARS, ROOM, &analysis, glyphs.data(), clusters.data(),
                             attributes.data(), &nGlyphs);
    if (SUCCEEDED(hr)) {
        hr = ScriptGetFontProperties(hdc, &cache, &properties);
    }
    FreeCache(cache);
    for (UINT n = 0; SUCCEEDED(hr) && n < BLOCK; ++n) {
        const WORD wGlyph = clusters[2 * n];
        block[n] = wGlyph < nGlyphs && wGlyph < ROOM && glyphs[wGlyph] != properties.wgDefault;
    }
    return SUCCEEDED(hr) || hr == USP_E_SCRIPT_NOT_IN_FONT;
}

} // namespace gesso
