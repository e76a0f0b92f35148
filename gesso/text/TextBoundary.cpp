// The names of the rules are those of UAX #29.
#include <gesso/text/TextBoundary.h>
#include <gesso/text/TextClasses.h>

namespace gesso {
namespace {

// --- Code points

struct CodePoint
{
    UINT c; // a surrogate stands for itself where it has no other half
    UINT nFrom;
    UINT nTo;
};

constexpr bool IsHigh(wchar_t c)
{
    return (c & 0xFC00) == 0xD800;
}

constexpr bool IsLow(wchar_t c)
{
    return (c & 0xFC00) == 0xDC00;
}

constexpr UINT Join(wchar_t cHigh, wchar_t cLow)
{
    return 0x10000 + ((cHigh & 0x3FFU) << 10 | (cLow & 0x3FFU));
}

bool SplitsPair(const SplitText& text, UINT n)
{
    return n > 0 && n < text.Length() && IsLow(text.At(n)) && IsHigh(text.At(n - 1));
}

// n is below the length.
CodePoint At(const SplitText& text, UINT n)
{
    const wchar_t c = text.At(n);
    return IsHigh(c) && SplitsPair(text, n + 1) ? CodePoint{Join(c, text.At(n + 1)), n, n + 2}
                                                : CodePoint{c, n, n + 1};
}

// n is above 0.
CodePoint Before(const SplitText& text, UINT n)
{
    const wchar_t c = text.At(n - 1);
    return SplitsPair(text, n - 1) ? CodePoint{Join(text.At(n - 2), c), n - 2, n} : CodePoint{c, n - 1, n};
}

// The first boundary behind n, and the last one in front of it.
template <bool (&IsBoundary)(const SplitText&, UINT)> UINT Behind(const SplitText& text, UINT n)
{
    n = std::min(n, text.Length());
    while (n < text.Length()) {
        n = At(text, n).nTo;
        if (IsBoundary(text, n)) {
            break;
        }
    }
    return n;
}

template <bool (&IsBoundary)(const SplitText&, UINT)> UINT InFrontOf(const SplitText& text, UINT n)
{
    n = std::min(n, text.Length());
    while (n > 0) {
        n = Before(text, n).nFrom;
        if (IsBoundary(text, n)) {
            break;
        }
    }
    return n;
}

// --- Clusters

constexpr bool IsControl(ClusterClass cls)
{
    return cls == ClusterClass::CR || cls == ClusterClass::LF || cls == ClusterClass::Control;
}

// GB6 to GB8.
constexpr bool JoinHangul(ClusterClass a, ClusterClass b)
{
    using enum ClusterClass;
    switch (a) {
    case L: return b == L || b == V || b == LV || b == LVT;
    case LV:
    case V: return b == V || b == T;
    case LVT:
    case T: return b == T;
    default: return false;
    }
}

// Whether a pictograph with its marks ends at n (GB11).
bool EndsPictograph(const SplitText& text, UINT n)
{
    ClusterClass cls = ClusterClass::Extend;
    while (n > 0 && cls == ClusterClass::Extend) {
        const CodePoint point = Before(text, n);
        cls = ClusterClassOf(point.c);
        n = point.nFrom;
    }
    return cls == ClusterClass::Extended_Pictographic;
}

// Whether a regional indicator ends at n that makes no flag with the one in front of it (GB12, GB13).
bool EndsHalfFlag(const SplitText& text, UINT n)
{
    bool fHalf = false;
    while (n > 0) {
        const CodePoint point = Before(text, n);
        if (ClusterClassOf(point.c) != ClusterClass::Regional_Indicator) {
            break;
        }
        fHalf = !fHalf;
        n = point.nFrom;
    }
    return fHalf;
}

// n is within the text, between two code points.
bool JoinsClusters(const SplitText& text, UINT n)
{
    using enum ClusterClass;
    const CodePoint point = Before(text, n);
    const ClusterClass a = ClusterClassOf(point.c);
    const ClusterClass b = ClusterClassOf(At(text, n).c);
    if (IsControl(a) || IsControl(b)) {
        return a == CR && b == LF;
    }
    if (b == Extend || b == ZWJ || b == SpacingMark || a == Prepend) {
        return true;
    }
    return (a == ZWJ && b == Extended_Pictographic && EndsPictograph(text, point.nFrom)) ||
           (a == Regional_Indicator && b == Regional_Indicator && EndsHalfFlag(text, n)) || JoinHangul(a, b);
}

// --- Words

constexpr bool IsLineEnd(WordClass cls)
{
    return cls == WordClass::CR || cls == WordClass::LF || cls == WordClass::Newline;
}

// Belongs to the character in front of it (WB4).
constexpr bool IsAttached(WordClass cls)
{
    return cls == WordClass::Extend || cls == WordClass::Format || cls == WordClass::ZWJ;
}

constexpr bool IsLetter(WordClass cls)
{
    return cls == WordClass::ALetter || cls == WordClass::Hebrew_Letter;
}

// What joins its like, or an underscore to it.
constexpr bool IsInWords(WordClass cls)
{
    return IsLetter(cls) || cls == WordClass::Numeric || cls == WordClass::Katakana ||
           cls == WordClass::ExtendNumLet;
}

// The class of the last character that ends at n or in front of it, past what is attached to it, with where
// it begins. Other at the text's start; a line end, which nothing attaches to and nothing joins.
struct Base
{
    WordClass cls;
    UINT nFrom;
};

Base BaseBefore(const SplitText& text, UINT n)
{
    while (n > 0) {
        const CodePoint point = Before(text, n);
        n = point.nFrom;
        if (const WordClass cls = WordClassOf(point.c); !IsAttached(cls)) {
            return {cls, n};
        }
    }
    return {WordClass::Other, 0};
}

WordClass BaseBehind(const SplitText& text, UINT n)
{
    while (n < text.Length()) {
        const CodePoint point = At(text, n);
        n = point.nTo;
        if (const WordClass cls = WordClassOf(point.c); !IsAttached(cls)) {
            return cls;
        }
    }
    return WordClass::Other;
}

// WB5, WB7a, WB8 to WB10, WB13 to WB13b.
constexpr bool JoinDirectly(WordClass a, WordClass b)
{
    using enum WordClass;
    if (a == ExtendNumLet || b == ExtendNumLet) {
        return IsInWords(a) && IsInWords(b);
    }
    if (a == Katakana || b == Katakana) {
        return a == b;
    }
    return (IsInWords(a) && IsInWords(b)) || (a == Hebrew_Letter && b == Single_Quote);
}

// Whether a character joins those on both sides of it: WB6, WB7, WB7b, WB7c, WB11 and WB12.
constexpr bool Bridges(WordClass a, WordClass between, WordClass b)
{
    using enum WordClass;
    const bool fAny = between == MidNumLet || between == Single_Quote;
    return ((fAny || between == MidLetter) && IsLetter(a) && IsLetter(b)) ||
           ((fAny || between == MidNum) && a == Numeric && b == Numeric) ||
           (between == Double_Quote && a == Hebrew_Letter && b == Hebrew_Letter);
}

constexpr bool MayBridge(WordClass cls)
{
    using enum WordClass;
    return cls == MidNumLet || cls == MidLetter || cls == MidNum || cls == Single_Quote ||
           cls == Double_Quote;
}

// As EndsHalfFlag, past what is attached (WB15, WB16).
bool EndsHalfFlagWord(const SplitText& text, UINT n)
{
    bool fHalf = false;
    Base base = BaseBefore(text, n);
    while (base.cls == WordClass::Regional_Indicator) {
        fHalf = !fHalf;
        base = BaseBefore(text, base.nFrom);
    }
    return fHalf;
}

// Past WB4, with b beginning at n.
bool JoinsBases(const SplitText& text, UINT n, WordClass b)
{
    const Base base = BaseBefore(text, n);
    if (b == WordClass::Regional_Indicator) {
        return base.cls == b && EndsHalfFlagWord(text, n);
    }
    return JoinDirectly(base.cls, b) ||
           (MayBridge(b) && Bridges(base.cls, b, BaseBehind(text, At(text, n).nTo))) ||
           (MayBridge(base.cls) && Bridges(BaseBefore(text, base.nFrom).cls, base.cls, b));
}

// n is within the text, between two code points.
bool JoinsWords(const SplitText& text, UINT n)
{
    const UINT c = At(text, n).c;
    const WordClass a = WordClassOf(Before(text, n).c);
    const WordClass b = WordClassOf(c);
    if (IsLineEnd(a) || IsLineEnd(b)) {
        return a == WordClass::CR && b == WordClass::LF;
    }
    if (a == WordClass::ZWJ && ClusterClassOf(c) == ClusterClass::Extended_Pictographic) {
        return true;
    }
    if (IsAttached(b) || (a == WordClass::WSegSpace && b == a)) {
        return true;
    }
    const bool fMayJoin = IsInWords(b) || MayBridge(b) || b == WordClass::Regional_Indicator;
    return fMayJoin && JoinsBases(text, n, b);
}

// --- Words as a person moves by them: several of Unicode's where these are of spaces or of punctuation

enum class Kind
{
    Word,
    Punctuation,
    Space,
    LineEnd
};

constexpr Kind KindOf(WordClass cls)
{
    using enum WordClass;
    if (IsLineEnd(cls)) {
        return Kind::LineEnd;
    }
    if (cls == WSegSpace || cls == Space) {
        return Kind::Space;
    }
    return cls == Punctuation || MayBridge(cls) ? Kind::Punctuation : Kind::Word;
}

// Of the word that begins at n, in front of the text's end.
Kind KindAt(const SplitText& text, UINT n)
{
    return KindOf(WordClassOf(At(text, n).c));
}

// Whether two of Unicode's words are parts of one.
constexpr bool IsOneRun(Kind a, Kind b)
{
    return a == b && (a == Kind::Punctuation || a == Kind::Space);
}

// Unicode ends some words within what a reader sees as one character, as in front of a vowel of Thai.
bool IsPieceBoundary(const SplitText& text, UINT n)
{
    return IsWordBoundary(text, n) && IsClusterBoundary(text, n);
}

UINT PieceEnd(const SplitText& text, UINT n)
{
    return Behind<IsPieceBoundary>(text, n);
}

UINT PieceStart(const SplitText& text, UINT n)
{
    return InFrontOf<IsPieceBoundary>(text, n);
}

// The boundary at n or in front of it.
UINT SnapToWord(const SplitText& text, UINT n)
{
    return IsPieceBoundary(text, n) ? std::min(n, text.Length()) : PieceStart(text, n);
}

bool IsEdge(const SplitText& text, UINT n)
{
    return n == 0 || n >= text.Length() ||
           (IsPieceBoundary(text, n) && !IsOneRun(KindAt(text, PieceStart(text, n)), KindAt(text, n)));
}

// Whether words stop at a boundary between two: not in front of spaces, but that a line begins with them.
constexpr bool IsStop(Kind before, Kind behind)
{
    return !IsOneRun(before, behind) && (behind != Kind::Space || before == Kind::LineEnd);
}

} // namespace

bool IsClusterBoundary(const SplitText& text, UINT n)
{
    return n == 0 || n >= text.Length() || (!SplitsPair(text, n) && !JoinsClusters(text, n));
}

UINT ClusterEnd(const SplitText& text, UINT n)
{
    return Behind<IsClusterBoundary>(text, n);
}

UINT ClusterStart(const SplitText& text, UINT n)
{
    return InFrontOf<IsClusterBoundary>(text, n);
}

UINT SnapToCluster(const SplitText& text, UINT n)
{
    return IsClusterBoundary(text, n) ? std::min(n, text.Length()) : ClusterStart(text, n);
}

UINT CodePointStart(const SplitText& text, UINT n)
{
    n = std::min(n, text.Length());
    if (n == 0) {
        return 0;
    }
    const bool fLineEnd = n >= 2 && text.At(n - 1) == L'\n' && text.At(n - 2) == L'\r';
    return fLineEnd ? n - 2 : Before(text, n).nFrom;
}

bool IsWordBoundary(const SplitText& text, UINT n)
{
    return n == 0 || n >= text.Length() || (!SplitsPair(text, n) && !JoinsWords(text, n));
}

UINT WordBoundaryBehind(const SplitText& text, UINT n)
{
    return Behind<IsWordBoundary>(text, n);
}

UINT WordBoundaryBefore(const SplitText& text, UINT n)
{
    return InFrontOf<IsWordBoundary>(text, n);
}

UINT NextWordStart(const SplitText& text, UINT n)
{
    if (n >= text.Length()) {
        return text.Length();
    }
    Kind before = KindAt(text, SnapToWord(text, n));
    for (n = PieceEnd(text, n); n < text.Length(); n = PieceEnd(text, n)) {
        const Kind behind = KindAt(text, n);
        if (IsStop(before, behind)) {
            break;
        }
        before = behind;
    }
    return n;
}

UINT PreviousWordStart(const SplitText& text, UINT n)
{
    n = PieceStart(text, n);
    while (n > 0) {
        const UINT nBefore = PieceStart(text, n);
        if (IsStop(KindAt(text, nBefore), KindAt(text, n))) {
            break;
        }
        n = nBefore;
    }
    return n;
}

TextRange WordAt(const SplitText& text, UINT n)
{
    n = SnapToWord(text, n);
    if (n == text.Length() || KindAt(text, n) == Kind::LineEnd) {
        const UINT nBefore = PieceStart(text, n);
        if (nBefore == n || KindAt(text, nBefore) == Kind::LineEnd) {
            return {n, n};
        }
        n = nBefore;
    }
    TextRange word{n, PieceEnd(text, n)};
    while (!IsEdge(text, word.nFrom)) {
        word.nFrom = PieceStart(text, word.nFrom);
    }
    while (!IsEdge(text, word.nTo)) {
        word.nTo = PieceEnd(text, word.nTo);
    }
    return word;
}

bool IsWholeWord(const SplitText& text, const TextRange& range)
{
    return IsEdge(text, range.nFrom) && IsEdge(text, range.nTo);
}

} // namespace gesso
