#include <gesso/edit/PreparedLine.h>
#include <gesso/framework/Saturate.h>
#include <gesso/text/TextArrays.h>
#include <gesso/text/TextBoundary.h>
#include <gesso/text/VisualOrder.h>

#include <algorithm>
#include <iterator>
#include <new>
#include <numeric>
#include <utility>

namespace gesso {
namespace {

constexpr wchar_t TAB = 9;
// A longer line is prepared in stretches of about so many characters.
constexpr UINT WHOLE_LINE = 2048;
constexpr UINT STRETCH = 512;
// The glyphs of so many pieces are kept; of a longer line those that show.
constexpr size_t KEPT_PIECES = 16;

// The end of the tab that begins at x.
int TabEnd(const LineStyle& style, int x)
{
    const std::vector<int>& tabs = style.tabs;
    const auto next = std::upper_bound(tabs.begin(), tabs.end(), x);
    if (next != tabs.end()) {
        return *next;
    }
    const int nStep = tabs.size() == 1 ? tabs.front() : style.nTab;
    return nStep > 0 ? (x / nStep + 1) * nStep : x + 1;
}

// What counts from the left of a line that is so wide, from the right, and back.
int Turned(const LineSource& source, int nWidth, int x)
{
    return source.style.fMirrored ? Saturated(int64_t{nWidth} - x) : x;
}

// Where a stretch of a long line ends: behind a space if there is one near, and never within a character.
UINT StretchEnd(const LineSource& source, const TextRange& range)
{
    if (range.Length() <= STRETCH + STRETCH / 2) {
        return range.nTo;
    }
    for (UINT n = range.nFrom + STRETCH; n > range.nFrom + STRETCH / 2; --n) {
        if (source.At(n - 1) == L' ' && IsClusterBoundary(source.text, source.nStart + n)) {
            return n;
        }
    }
    const UINT nEnd = ClusterEnd(source.text, source.nStart + range.nFrom + STRETCH - 1) - source.nStart;
    return std::min(nEnd, range.nTo);
}

// What each character of a piece adds to the width: a shaped cluster's width is its first character's, or is
// shared by those that begin within it, as in a ligature.
class CellMaker
{
public:
    CellMaker(const LineSource& source, UINT nStart, const stcDrawTextBuffer& buffer)
        : m_source(source), m_nStart(nStart), m_buffer(buffer)
    {}

    std::vector<TextCell> Make()
    {
        FindBeginnings();
        const UINT nItems = UsableItems(m_buffer);
        std::vector<UINT> order(nItems);
        std::iota(order.begin(), order.end(), 0U);
        if (IsPaintedAsRead(m_buffer)) {
            VisualOrderOf(m_buffer, 0, nItems, order.data());
        }
        int x = 0;
        for (const UINT nItem : order) {
            AddRun(nItem, x);
            x += RunWidth(m_buffer.pRuns[nItem]);
        }
        JoinLeads();
        return std::move(m_cells);
    }

private:
    // What a run has of a character that began in the one before; of a run without a cell, where it is.
    struct Lead
    {
        TextRange range;
        int x;
        int cx;
    };

    bool Begins(UINT n) const { return m_begins[n]; }

    bool IsHalfFlag(UINT n) const
    {
        const wchar_t chLow = m_source.At(m_nStart + n + 1);
        return m_source.At(m_nStart + n) == 0xD83C && chLow >= 0xDDE6 && chLow <= 0xDDFF;
    }

    // In a row of flags every other half begins one; each asked alone, the row would be counted from its
    // start each time.
    void FindBeginnings()
    {
        const UINT nChars = UsableChars(m_buffer);
        m_begins.assign(nChars, char{1});
        for (UINT n = 1; n < nChars; ++n) {
            const bool fWithinRow =
                n > 4 && n + 1 < nChars && IsHalfFlag(n) && IsHalfFlag(n - 2) && IsHalfFlag(n - 4);
            m_begins[n] = fWithinRow ? !m_begins[n - 2]
                                     : IsClusterBoundary(m_source.text, m_source.nStart + m_nStart + n);
        }
    }

    void AddRun(UINT nItem, int x)
    {
        const auto nFrom = static_cast<UINT>(m_buffer.pItems[nItem].iCharPos);
        const UINT nTo = nFrom + static_cast<UINT>(m_buffer.pRuns[nItem].nChars);
        const bool fRightToLeft = m_buffer.pItems[nItem].a.fRTL;
        const size_t nFirstCell = m_cells.size();
        m_lead = {nFrom, nFrom};
        m_cxLead = 0;
        for (UINT n = nFrom; n < nTo;) {
            UINT nEnd = n + 1;
            while (nEnd < nTo && m_buffer.pLogClust[nEnd] == m_buffer.pLogClust[n]) {
                ++nEnd;
            }
            AddCluster({n, nEnd}, nFirstCell, ClusterWidth(nItem, n, nEnd, nTo), fRightToLeft);
            n = nEnd;
        }
        if (m_lead.Length() > 0) {
            m_leads.push_back({m_lead, x, std::exchange(m_cxLead, 0)});
        }
        PlaceRun(nFirstCell, x, fRightToLeft);
    }

    // Of the glyphs that stand for the characters from n up to nEnd; in a run from right to left they lie
    // between the glyph of these and that of the next ones.
    int ClusterWidth(UINT nItem, UINT n, UINT nEnd, UINT nRunEnd) const
    {
        const stcDrawTextRun& run = m_buffer.pRuns[nItem];
        const UINT nGlyph = m_buffer.pLogClust[n];
        if (m_buffer.pItems[nItem].a.fRTL) {
            const UINT nFirst = nEnd < nRunEnd ? m_buffer.pLogClust[nEnd] + 1U : run.nFirstGlyph;
            return SumAdvances(m_buffer, nFirst, nGlyph + 1);
        }
        return SumAdvances(m_buffer, nGlyph, nEnd < nRunEnd ? m_buffer.pLogClust[nEnd] : RunEnd(run));
    }

    void AddCluster(const TextRange& range, size_t nFirstCell, int cx, bool fRightToLeft)
    {
        const size_t nFormer = m_cells.size();
        for (UINT n = range.nFrom; n < range.nTo; ++n) {
            if (Begins(n)) {
                m_cells.push_back({n, n, 0, std::exchange(m_cxLead, 0), fRightToLeft});
            }
            (m_cells.size() > nFirstCell ? m_cells.back().nTo : m_lead.nTo) = n + 1;
        }
        const auto nNew = static_cast<int>(m_cells.size() - nFormer);
        if (nNew == 0) {
            (m_cells.size() > nFirstCell ? m_cells.back().cx : m_cxLead) += cx;
        }
        for (int i = 0; i < nNew; ++i) {
            m_cells[nFormer + static_cast<size_t>(i)].cx += cx * (i + 1) / nNew - cx * i / nNew;
        }
    }

    void PlaceRun(size_t nFirstCell, int x, bool fRightToLeft)
    {
        const auto first = m_cells.begin() + static_cast<ptrdiff_t>(nFirstCell);
        if (fRightToLeft) {
            std::reverse(first, m_cells.end());
        }
        for (auto cell = first; cell != m_cells.end(); ++cell) {
            cell->x = x;
            x += cell->cx;
        }
    }

    // A run may begin within a character, whose first part is of the run before, wherever that shows.
    void JoinLeads()
    {
        std::sort(m_leads.begin(), m_leads.end(),
                  [](const Lead& a, const Lead& b) { return a.range.nFrom < b.range.nFrom; });
        for (const Lead& lead : m_leads) {
            const auto cell = std::find_if(m_cells.begin(), m_cells.end(), [&](const TextCell& other) {
                return other.nTo == lead.range.nFrom;
            });
            if (cell != m_cells.end()) {
                cell->nTo = lead.range.nTo;
            }
            if (lead.cx != 0 && !(cell != m_cells.end() && Widen(*cell, lead))) {
                static_cast<void>(std::any_of(m_cells.begin(), m_cells.end(),
                                              [&](TextCell& other) { return Widen(other, lead); }));
            }
        }
    }

    // A run that only goes on with a character has no cell: the room it takes is that of the cell beside it,
    // best of the character's own.
    static bool Widen(TextCell& cell, const Lead& lead)
    {
        if (cell.Right() != lead.x && cell.x != lead.x + lead.cx) {
            return false;
        }
        cell.x = std::min(cell.x, lead.x);
        cell.cx += lead.cx;
        return true;
    }

    const LineSource& m_source;
    UINT m_nStart;
    const stcDrawTextBuffer& m_buffer;
    std::vector<char> m_begins; // of each character, whether a cluster does
    std::vector<TextCell> m_cells;
    TextRange m_lead{0, 0}; // of the run that is added, what is in front of its first cell
    int m_cxLead = 0;
    std::vector<Lead> m_leads;
};

} // namespace

void PreparedLine::Forget(Piece& piece)
{
    CDrawText::FreeBuffer(&piece.buffer);
    piece.buffer = {};
    piece.cells.clear();
    piece.fPrepared = false;
}

void PreparedLine::Clear()
{
    std::for_each(m_pieces.begin(), m_pieces.end(), Forget);
    m_pieces.clear();
}

// --- Preparing

void PreparedLine::Prepare(const LineSource& source, UINT nLength)
{
    Clear();
    AppendPieces(source, {0, nLength}, nLength > WHOLE_LINE, &m_pieces);
    Measure(source);
}

void PreparedLine::AppendPieces(const LineSource& source, const TextRange& range, bool fLong,
                                std::vector<Piece>* pPieces)
{
    for (UINT n = range.nFrom; n < range.nTo;) {
        const bool fTab = source.At(n) == TAB && !source.style.chMask;
        UINT nEnd = n + 1;
        while (!fTab && nEnd < range.nTo && (source.At(nEnd) != TAB || source.style.chMask)) {
            ++nEnd;
        }
        while (n < nEnd) {
            const UINT nPart = fLong ? StretchEnd(source, {n, nEnd}) : nEnd;
            pPieces->push_back({nPart - n});
            pPieces->back().fTab = fTab;
            n = nPart;
        }
    }
}

void PreparedLine::Change(const LineSource& source, UINT nFrom, UINT nRemoved, UINT nInserted)
{
    const UINT nLength = Length() - nRemoved + nInserted;
    if (nLength <= WHOLE_LINE || m_pieces.empty()) {
        Prepare(source, nLength);
        return;
    }
    const Found first = FindChar(nFrom > 0 ? nFrom - 1 : 0);
    const Found last = FindChar(std::min(nFrom + nRemoved, Length() - 1));
    const UINT nEnd = last.nStart + m_pieces[last.nPiece].nChars - nRemoved + nInserted;
    std::vector<Piece> pieces;
    AppendPieces(source, {first.nStart, nEnd}, true, &pieces);
    const auto at = m_pieces.begin() + static_cast<ptrdiff_t>(first.nPiece);
    const auto behind = m_pieces.begin() + static_cast<ptrdiff_t>(last.nPiece + 1);
    std::for_each(at, behind, Forget);
    m_pieces.insert(m_pieces.erase(at, behind), std::make_move_iterator(pieces.begin()),
                    std::make_move_iterator(pieces.end()));
    Measure(source);
}

// The widths of what has none yet, and of all tabs, which depend on what is in front of them.
void PreparedLine::Measure(const LineSource& source)
{
    int x = 0;
    UINT nStart = 0;
    for (Piece& piece : m_pieces) {
        if (piece.fTab) {
            piece.cx = TabEnd(source.style, x) - x;
        } else if (!piece.fPrepared && piece.cx == 0) {
            Shape(source, piece, nStart);
            if (m_pieces.size() > KEPT_PIECES) {
                Forget(piece);
            }
        }
        x += piece.cx;
        nStart += piece.nChars;
    }
}

void PreparedLine::Shape(const LineSource& source, Piece& piece, UINT nStart)
{
    if (piece.fTab || piece.fPrepared) {
        return;
    }
    std::vector<wchar_t> text(piece.nChars, source.style.chMask);
    if (!source.style.chMask) {
        const UINT nFrom = source.nStart + nStart;
        source.text.Copy({nFrom, nFrom + piece.nChars}, text.data());
    }
    if (!CalculateExactly(source.hdc, text.data(), piece.nChars, piece.buffer)) {
        throw std::bad_alloc();
    }
    piece.fPrepared = true;
    int cx = 0;
    for (UINT n = 0; n < UsableItems(piece.buffer); ++n) {
        cx += RunWidth(piece.buffer.pRuns[n]);
    }
    piece.cx = cx;
}

const std::vector<TextCell>& PreparedLine::Cells(const LineSource& source, const Found& at)
{
    Piece& piece = m_pieces[at.nPiece];
    if (piece.fTab && piece.cells.empty()) {
        piece.cells.push_back({0, 1, 0, piece.cx, false});
    }
    if (piece.fTab) {
        piece.cells.front().cx = piece.cx;
        return piece.cells;
    }
    Shape(source, piece, at.nStart);
    if (piece.cells.empty()) {
        piece.cells = CellMaker(source, at.nStart, piece.buffer).Make();
    }
    if (piece.cells.empty()) {
        piece.cells.push_back({0, piece.nChars, 0, piece.cx, false}); // nothing could be shaped
    }
    return piece.cells;
}

// --- Places

UINT PreparedLine::Length() const
{
    UINT n = 0;
    for (const Piece& piece : m_pieces) {
        n += piece.nChars;
    }
    return n;
}

int PreparedLine::Width() const
{
    int cx = 0;
    for (const Piece& piece : m_pieces) {
        cx += piece.cx;
    }
    return cx;
}

// The piece that a character is in; of those behind the line the last one. There is one at least.
PreparedLine::Found PreparedLine::FindChar(UINT n) const
{
    Found at{0, 0, 0};
    while (at.nPiece + 1 < m_pieces.size() && n >= at.nStart + m_pieces[at.nPiece].nChars) {
        at.nStart += m_pieces[at.nPiece].nChars;
        at.x += m_pieces[at.nPiece].cx;
        ++at.nPiece;
    }
    return at;
}

PreparedLine::Found PreparedLine::FindX(int x) const
{
    Found at{0, 0, 0};
    while (at.nPiece + 1 < m_pieces.size() && x >= at.x + m_pieces[at.nPiece].cx) {
        at.nStart += m_pieces[at.nPiece].nChars;
        at.x += m_pieces[at.nPiece].cx;
        ++at.nPiece;
    }
    return at;
}

// Between which cells of a piece a place is: the number of those to the left of it.
size_t PreparedLine::BoundaryOf(const std::vector<TextCell>& cells, const Found& at,
                                const CaretPlace& place) const
{
    const UINT n = place.n - at.nStart;
    for (size_t i = 0; i < cells.size(); ++i) {
        const TextCell& cell = cells[i];
        const bool fHere =
            place.fTrailing ? n > cell.nFrom && n <= cell.nTo : n >= cell.nFrom && n < cell.nTo;
        if (fHere) {
            return i + (cell.fRightToLeft != place.fTrailing ? 1 : 0);
        }
    }
    return cells.size();
}

int PreparedLine::XOf(const LineSource& source, const CaretPlace& given)
{
    if (m_pieces.empty()) {
        return 0;
    }
    const UINT nLength = Length();
    const CaretPlace place{std::min(given.n, nLength),
                           (given.fTrailing && given.n > 0) || given.n >= nLength};
    const Found at = FindChar(place.fTrailing ? place.n - 1 : place.n);
    const std::vector<TextCell>& cells = Cells(source, at);
    const size_t n = BoundaryOf(cells, at, place);
    return Turned(source, Width(), at.x + (n < cells.size() ? cells[n].x : m_pieces[at.nPiece].cx));
}

CaretPlace PreparedLine::PlaceAt(const LineSource& source, int x)
{
    if (m_pieces.empty()) {
        return {0, false};
    }
    x = Turned(source, Width(), x);
    const Found at = FindX(x);
    for (const TextCell& cell : Cells(source, at)) {
        if (x - at.x < cell.Right()) {
            const bool fRightHalf = x - at.x >= cell.x + (cell.cx + 1) / 2;
            return fRightHalf != cell.fRightToLeft ? CaretPlace{at.nStart + cell.nTo, true}
                                                   : CaretPlace{at.nStart + cell.nFrom, false};
        }
    }
    const TextCell& last = Cells(source, at).back();
    return last.fRightToLeft ? CaretPlace{at.nStart + last.nFrom, false}
                             : CaretPlace{at.nStart + last.nTo, true};
}

bool PreparedLine::CharAt(const LineSource& source, int x, UINT* pnChar)
{
    if (m_pieces.empty() || x < 0 || x >= Width()) {
        return false;
    }
    x = Turned(source, Width() - 1, x);
    const Found at = FindX(x);
    for (const TextCell& cell : Cells(source, at)) {
        if (x - at.x < cell.Right()) {
            *pnChar = at.nStart + cell.nFrom;
            return true;
        }
    }
    return false;
}

// The far side of the cell on that side is where the caret goes.
bool PreparedLine::Step(const LineSource& source, bool fRight, CaretPlace* pPlace)
{
    if (m_pieces.empty()) {
        return false;
    }
    const bool fTrailing = (pPlace->fTrailing && pPlace->n > 0) || pPlace->n >= Length();
    Found at = FindChar(fTrailing ? pPlace->n - 1 : pPlace->n);
    size_t nLeftOf = BoundaryOf(Cells(source, at), at, {pPlace->n, fTrailing});
    if (nLeftOf == (fRight ? Cells(source, at).size() : 0)) {
        if (at.nPiece == (fRight ? m_pieces.size() - 1 : 0)) {
            return false;
        }
        at = fRight ? FindChar(at.nStart + m_pieces[at.nPiece].nChars) : FindChar(at.nStart - 1);
        nLeftOf = fRight ? 0 : Cells(source, at).size();
    }
    const TextCell& cell = Cells(source, at)[fRight ? nLeftOf : nLeftOf - 1];
    *pPlace = cell.fRightToLeft == fRight ? CaretPlace{at.nStart + cell.nFrom, false}
                                          : CaretPlace{at.nStart + cell.nTo, true};
    return true;
}

UINT PreparedLine::CountFitting(const LineSource& source, int nWidth)
{
    Found at{0, 0, 0};
    while (at.nPiece < m_pieces.size() && at.x + m_pieces[at.nPiece].cx <= nWidth) {
        at.nStart += m_pieces[at.nPiece].nChars;
        at.x += m_pieces[at.nPiece].cx;
        ++at.nPiece;
    }
    if (at.nPiece == m_pieces.size()) {
        return at.nStart;
    }
    std::vector<TextCell> cells = Cells(source, at);
    std::sort(cells.begin(), cells.end(),
              [](const TextCell& a, const TextCell& b) { return a.nFrom < b.nFrom; });
    UINT nFit = at.nStart;
    for (const TextCell& cell : cells) {
        at.x += cell.cx;
        if (at.x > nWidth) {
            break;
        }
        nFit = at.nStart + cell.nTo;
    }
    return nFit;
}

// --- Painting

std::vector<PreparedLine::Stretch> PreparedLine::Stretches(const LineSource& source, const TextRange& range,
                                                           int nLeft, int nRight)
{
    if (!source.style.fMirrored) {
        return StretchesFromLeft(source, range, nLeft, nRight);
    }
    const int nWidth = Width();
    std::vector<Stretch> stretches =
        StretchesFromLeft(source, range, Turned(source, nWidth, nRight), Turned(source, nWidth, nLeft));
    for (Stretch& stretch : stretches) {
        stretch = {nWidth - stretch.nRight, nWidth - stretch.nLeft};
    }
    std::reverse(stretches.begin(), stretches.end());
    return stretches;
}

std::vector<PreparedLine::Stretch>
PreparedLine::StretchesFromLeft(const LineSource& source, const TextRange& range, int nLeft, int nRight)
{
    std::vector<Stretch> stretches;
    Found at{0, 0, 0};
    for (; at.nPiece < m_pieces.size() && at.x < nRight; ++at.nPiece) {
        const Piece& piece = m_pieces[at.nPiece];
        const UINT nEnd = at.nStart + piece.nChars;
        const bool fShows = at.x + piece.cx > nLeft && at.nStart < range.nTo && nEnd > range.nFrom;
        const auto add = [&](int nFrom, int nTo) {
            if (!stretches.empty() && stretches.back().nRight == nFrom) {
                stretches.back().nRight = nTo;
            } else {
                stretches.push_back({nFrom, nTo});
            }
        };
        if (fShows && at.nStart >= range.nFrom && nEnd <= range.nTo) {
            add(at.x, at.x + piece.cx);
        } else if (fShows) {
            for (const TextCell& cell : Cells(source, at)) {
                if (at.nStart + cell.nFrom < range.nTo && at.nStart + cell.nTo > range.nFrom) {
                    add(at.x + cell.x, at.x + cell.Right());
                }
            }
        }
        at.x += piece.cx;
        at.nStart = nEnd;
    }
    return stretches;
}

void PreparedLine::Draw(const LineSource& source, POINT pt, int nLeft, int nRight)
{
    int x = 0;
    UINT nStart = 0;
    const int nWidth = source.style.fMirrored ? Width() : 0;
    for (Piece& piece : m_pieces) {
        const int xPiece = source.style.fMirrored ? nWidth - x - piece.cx : x;
        const bool fShows = xPiece < nRight && xPiece + piece.cx > nLeft;
        if (fShows && !piece.fTab) {
            Shape(source, piece, nStart);
            CDrawText::DrawText_TextOut(source.hdc, pt.x + xPiece, pt.y, &piece.buffer);
        } else if (!fShows && m_pieces.size() > KEPT_PIECES) {
            Forget(piece);
        }
        x += piece.cx;
        nStart += piece.nChars;
    }
}

} // namespace gesso
