// What Unicode says of a character where clusters and words are told apart: the tables behind TextBoundary.h.
// scripts/make-text-tables.py makes TextClassTables.cpp from the files of Unicode and the enumerators below.
#pragma once

#include <gesso/api.h>

#include <algorithm>

namespace gesso {

// Grapheme_Cluster_Break, with Extended_Pictographic, which all of these are Other in.
enum class ClusterClass : BYTE
{
    Other,
    CR,
    LF,
    Control,
    Extend,
    ZWJ,
    Regional_Indicator,
    Prepend,
    SpacingMark,
    L,
    V,
    T,
    LV,
    LVT,
    Extended_Pictographic
};

// Word_Break, with two parts of what it calls Other: spaces, and punctuation with symbols.
enum class WordClass : BYTE
{
    Other,
    CR,
    LF,
    Newline,
    Extend,
    ZWJ,
    Format,
    Regional_Indicator,
    Katakana,
    Hebrew_Letter,
    ALetter,
    Single_Quote,
    Double_Quote,
    MidNumLet,
    MidLetter,
    MidNum,
    Numeric,
    ExtendNumLet,
    WSegSpace,
    Space,
    Punctuation
};

struct ClassTable
{
    BYTE aLatin[256]; // of the first characters, which most texts are of
    // Sorted: the first code point of a range, times 256, plus its class. The first range begins at 0.
    const UINT* pRanges;
    UINT nRanges;

    BYTE Of(UINT c) const
    {
        return c < std::size(aLatin)
                   ? aLatin[c]
                   : static_cast<BYTE>(*(std::upper_bound(pRanges, pRanges + nRanges, c << 8 | 0xFF) - 1));
    }
};

extern const ClassTable CLUSTER_CLASSES;
extern const ClassTable WORD_CLASSES;

inline ClusterClass ClusterClassOf(UINT c)
{
    return static_cast<ClusterClass>(CLUSTER_CLASSES.Of(c));
}

inline WordClass WordClassOf(UINT c)
{
    return static_cast<WordClass>(WORD_CLASSES.Of(c));
}

} // namespace gesso
