// Parts an item in which the font lacks something: each stretch that another font shows is to be an item of
// its own.
#pragma once

#include <gesso/text/FallbackFonts.h>

#include <vector>

namespace gesso {

struct FontStretch
{
    UINT nFrom; // the first character
    UINT nTo;
    SCRIPT_ANALYSIS analysis;
    RunFontRef font; // none where the context's own shows it, be it as boxes
};

// What shaping gave for an item: how many characters it has, and the glyphs, none where the font lacks the
// whole script.
struct ShapedItem
{
    const SCRIPT_ITEM& item;
    UINT nChars;
    std::span<const WORD> glyphs;
    const WORD* pLogClust;
    WORD wFirst; // the value in pLogClust of the first glyph
};

// The items of one text. Throws where there is no memory.
class FontSplitter
{
public:
    FontSplitter(HDC hdc, LPCWSTR pszText, UINT nChars) : m_hdc(hdc), m_pszText(pszText), m_nChars(nChars) {}

    // Appends the stretches of the item, which are one if no font of the machine can help.
    void Split(const ShapedItem& shaped, WORD wDefault, std::vector<FontStretch>& stretches);
    // Of the stretches of the whole text: what a reader sees as one character may lie in several items, and
    // is to be shown by one font if one has all of it.
    void UniteClusters(std::vector<FontStretch>& stretches);

private:
    struct Part
    {
        UINT nFrom;
        UINT nTo;
    };

    struct Cluster
    {
        Part part;
        RunFontRef font;
    };

    bool ReadBase();
    void Mark(const ShapedItem& shaped, WORD wDefault);
    void MarkWholeClusters(const Part& part);
    void MarkJoinedLetters(const Part& part);
    void FindFonts(const ShapedItem& shaped);
    void LinkStretches(std::span<FontStretch> stretches) const;
    static void GiveFonts(std::span<const Cluster> clusters, std::vector<FontStretch>& stretches);
    uint64_t MostProbes() const;
    RunFontRef FontOfAll(std::span<const FontStretch> stretches, const Part& cluster);
    void FindFontsOfMissing(const SCRIPT_ANALYSIS& analysis);
    void TryWithoutScript(SCRIPT_ANALYSIS analysis);
    void FindFontsOf(Part part, const SCRIPT_ANALYSIS& analysis);
    void FindFontsOneByOne(const Part& cluster, const SCRIPT_ANALYSIS& analysis);
    Part UnitOf(const Part& part) const;
    RunFontRef FontFor(const Part& unit, const SCRIPT_ANALYSIS& analysis);
    template <class SHOWS>
    RunFontRef FontFor(const Part& unit, const SCRIPT_ANALYSIS& analysis, std::span<const char32_t> told,
                       const SHOWS& shows);
    void Tell(const Part& part, std::vector<char32_t>& told) const;
    std::vector<char32_t> Wanted(const Part& unit) const;
    Told Probe(RunFont& font, const Part& part, SCRIPT_ANALYSIS analysis, std::vector<char>& lacking);
    Told Shows(RunFont& font, const Part& unit, const SCRIPT_ANALYSIS& analysis);
    void CountAsShown(const Part& unit);
    void TakeShown(RunFontRef font, const Part& part);
    void Use(RunFontRef font, const Part& part);
    char32_t CodePoint(UINT nChar) const;
    bool ShowsSomething(UINT nChar) const;
    bool IsFormat(UINT nChar) const;
    bool IsWanted(UINT nChar) const { return ShowsSomething(nChar) || IsFormat(nChar); }
    // Whether a font is looked for because of the character.
    bool IsDecisive(UINT nChar) const { return m_missing[nChar] && IsWanted(nChar); }
    bool IsSeen(const Part& unit) const;
    template <class VISIT> void VisitMissing(const Part& part, const VISIT& visit) const;

    HDC m_hdc;
    LPCWSTR m_pszText;
    UINT m_nChars;
    BaseFont m_base{};
    bool m_fBaseRead = false;
    HanStyle m_style = HanStyle::Chinese;

    // Of the item, a value a character.
    LPCWSTR m_psz = nullptr;
    UINT m_nLength = 0;
    std::vector<char> m_missing; // from where it is looked for
    std::vector<char> m_lacking; // from the text's own font
    std::vector<char> m_plain;   // shown as of no script
    std::vector<RunFont*> m_fontOf;
    std::vector<RunFontRef> m_fonts; // those in m_fontOf
    std::vector<Part> m_parts;       // to be looked at
    uint64_t m_nProbes = 0;          // characters that may still be shaped to find fonts
};

} // namespace gesso
