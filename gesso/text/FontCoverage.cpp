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
    ProbeFont(HDC hdc, LPCWSTR pszFace) : m_hdc(hdc), m_hFont(Make(pszFace)), m_select(hdc, m_hFont) {}
    ProbeFont(const ProbeFont&) = delete;
    ProbeFont& operator=(const ProbeFont&) = delete;

    // Whether the context has the font now.
    explicit operator bool() const { return m_hFont && GetCurrentObject(m_hdc, OBJ_FONT) == m_hFont; }

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

    HDC m_hdc;
    Owned m_hFont;
    SelectScope m_select;
};

int CALLBACK NoteFace(const LOGFONTW*, const TEXTMETRICW*, DWORD, LPARAM lParam)
{
    *reinterpret_cast<bool*>(lParam) = true;
    return FALSE;
}

// A font may bear another name than it is asked for by, that in the language of the machine.
Told IsInstalled(HDC hdc, LPCWSTR pszFace)
{
    LOGFONTW log{};
    log.lfCharSet = DEFAULT_CHARSET;
    std::copy_n(pszFace, wcslen(pszFace), log.lfFaceName);
    bool fFound = false;
    const int nLast = EnumFontFamiliesExW(hdc, &log, NoteFace, reinterpret_cast<LPARAM>(&fFound), 0);
    if (fFound) {
        return Told::Yes;
    }
    return nLast != 0 ? Told::No : Told::Nothing;
}

} // namespace

FontCoverage::FontCoverage(LPCWSTR pszFace)
{
    std::copy_n(pszFace, std::min<size_t>(wcslen(pszFace), LF_FACESIZE - 1), m_szFace);
}

Told FontCoverage::Has(HDC hdc, char32_t c)
{
    if (!m_fRead && !ReadRanges(hdc)) {
        return Told::Nothing;
    }
    if (c >= LISTED) {
        const char32_t first = c / BLOCK * BLOCK;
        if (!m_fInstalled) {
            return Told::No;
        }
        const auto [block, fNew] = m_blocks.try_emplace(first);
        if (fNew && !ReadBlock(hdc, first, block->second)) {
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
    const Told installed = _wcsicmp(szThere, m_szFace) == 0 ? Told::Yes : IsInstalled(hdc, m_szFace);
    if (installed != Told::Yes) {
        m_fInstalled = false;
        m_fRead = installed == Told::No;
        return m_fRead;
    }
    m_fInstalled = true;
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

// By shaping, since the platform tells of these characters in no other way: as of no script, so that the
// answer holds for every text.
bool FontCoverage::ReadBlock(HDC hdc, char32_t first, Block& block)
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
    SCRIPT_ANALYSIS analysis{};
    analysis.eScript = SCRIPT_UNDEFINED;
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
    return SUCCEEDED(hr);
}

} // namespace gesso
