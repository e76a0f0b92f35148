// One line of a text field, shaped: how wide it is, where its characters stand, and its painting.
//
// The line is prepared in pieces: from tab to tab, and a long line in stretches that an edit changes one by
// one. What mixes directions is in visual order within a piece. Offsets are characters of the line, from its
// start; x is in pixels from the line's left end, and in a mirrored window from its right one: the line
// itself is as it is anywhere.
#pragma once

#include <gesso/text/CDrawText.h>
#include <gesso/text/SplitText.h>

#include <vector>

namespace gesso {

struct LineStyle
{
    std::vector<int> tabs;  // in pixels; one alone stands for all its multiples
    int nTab = 0;           // behind the last of several, its multiples
    wchar_t chMask = 0;     // shows for every character; 0 for none
    bool fMirrored = false; // the window
};

// Where a line's characters come from, and what they are prepared with.
struct LineSource
{
    HDC hdc; // with the font selected
    SplitText text;
    UINT nStart; // of the line in the text
    const LineStyle& style;

    wchar_t At(UINT n) const { return text.At(nStart + n); }
};

// What a reader sees as one character, where it is shown.
struct TextCell
{
    UINT nFrom;
    UINT nTo;
    int x;
    int cx;
    bool fRightToLeft;

    int Right() const { return x + cx; }
};

// A place for the caret: in front of a character, or where the one in front of it ends, which in a text of
// both directions, and where a line is wrapped, is elsewhere.
struct CaretPlace
{
    UINT n;
    bool fTrailing;

    friend bool operator==(const CaretPlace&, const CaretPlace&) = default;
};

class PreparedLine
{
public:
    PreparedLine() = default;
    ~PreparedLine() { Clear(); }
    PreparedLine(PreparedLine&& other) noexcept { m_pieces.swap(other.m_pieces); }
    PreparedLine& operator=(PreparedLine&& other) noexcept
    {
        m_pieces.swap(other.m_pieces);
        return *this;
    }

    // All of it throw std::bad_alloc; the line is then to be prepared again.

    void Prepare(const LineSource& source, UINT nLength);
    // nRemoved characters at nFrom have become nInserted.
    void Change(const LineSource& source, UINT nFrom, UINT nRemoved, UINT nInserted);

    UINT Length() const;
    int Width() const;
    int XOf(const LineSource& source, const CaretPlace& place);
    // The place next to x, of the nearer half of a character.
    CaretPlace PlaceAt(const LineSource& source, int x);
    // The character that x is in; false where it is in none.
    bool CharAt(const LineSource& source, int x, UINT* pnChar);
    // The place to the right of one, or to the left. False at the line's end there.
    bool Step(const LineSource& source, bool fRight, CaretPlace* pPlace);
    // How many characters, whole ones, come to no more than nWidth, in the order of the text.
    UINT CountFitting(const LineSource& source, int nWidth);

    struct Stretch
    {
        int nLeft;
        int nRight;
    };
    // Where a range shows, between nLeft and nRight as x counts: in parts, where the order turns.
    std::vector<Stretch> Stretches(const LineSource& source, const TextRange& range, int nLeft, int nRight);
    // What shows between nLeft and nRight, with x of 0 at the point.
    void Draw(const LineSource& source, POINT pt, int nLeft, int nRight);

private:
    struct Piece
    {
        UINT nChars;
        int cx = 0;
        bool fTab = false;
        bool fPrepared = false;
        stcDrawTextBuffer buffer{};
        std::vector<TextCell>
            cells{}; // in visual order, from the piece's start; none before they are asked for
    };
    struct Found
    {
        size_t nPiece;
        UINT nStart;
        int x;
    };

    void Clear();
    std::vector<Stretch> StretchesFromLeft(const LineSource& source, const TextRange& range, int nLeft,
                                           int nRight);
    void AppendPieces(const LineSource& source, const TextRange& range, bool fLong,
                      std::vector<Piece>* pPieces);
    void Measure(const LineSource& source);
    void Shape(const LineSource& source, Piece& piece, UINT nStart);
    const std::vector<TextCell>& Cells(const LineSource& source, const Found& at);
    Found FindChar(UINT n) const;
    Found FindX(int x) const;
    size_t BoundaryOf(const std::vector<TextCell>& cells, const Found& at, const CaretPlace& place) const;
    static void Forget(Piece& piece);

    std::vector<Piece> m_pieces;
};

} // namespace gesso
