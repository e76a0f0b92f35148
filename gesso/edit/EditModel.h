// What an edit field edits, without a window: the text, its rows, the selection, and the steps that can be
// taken back.
//
// Offsets are in characters of 16 bits. A line end is CR LF; caret and anchor are never within one, nor
// between the halves of a surrogate pair. What is false without memory has then done nothing.
#pragma once

#include <gesso/edit/RowTable.h>
#include <gesso/edit/TextBuffer.h>
#include <gesso/edit/UndoStack.h>

#include <utility>

namespace gesso {

// One change of the text, after it was made.
struct TextChange
{
    UINT nFrom;
    UINT nRemoved;
    UINT nInserted;
    UINT nRow;          // the first row that is not what it was
    UINT nRowsRemoved;  // so many went from there
    UINT nRowsInserted; // and so many have come: one, and one more for each line end
};

// Who shows the text. Changes nothing of the model when it is told, but for the wrapping of rows later.
class TextListener
{
public:
    virtual void OnTextChange(const TextChange& change) = 0;

protected:
    ~TextListener() = default;
};

class EditModel
{
public:
    explicit EditModel(TextListener& listener) : m_listener(listener) {}

    SplitText Text() const { return m_text.Text(); }
    UINT Length() const { return m_text.Length(); }
    // Valid until the next change.
    LPCWSTR Piece(const TextRange& range) { return m_text.Piece(range); }
    const RowTable& Rows() const { return m_rows; }

    UINT Caret() const { return m_nCaret; }
    UINT Anchor() const { return m_nAnchor; }
    TextRange Selection() const;
    bool HasSelection() const { return m_nCaret != m_nAnchor; }
    // Offsets beyond the text are its end; one within a line end or a surrogate pair goes to its start. What
    // is typed next begins a step of its own, if this changes anything.
    void Select(UINT nAnchor, UINT nCaret);

    // --- Changes. Line ends in what comes in are CR LF, which is the caller's to see to.

    // The whole text, with the caret at its start; nothing can be taken back then, and nothing is modified.
    [[nodiscard]] bool SetText(LPCWSTR psz, UINT n);
    // The range, with its ends where Select would put them, becomes n characters, with the caret behind
    // them; what completes is selected. Without fCanUndo no step can be taken back afterwards. dwNow is in
    // milliseconds: what is typed after a pause is a step of its own.
    [[nodiscard]] bool Replace(const TextRange& range, LPCWSTR psz, UINT n, EditKind kind, DWORD dwNow,
                               bool fCanUndo = true);
    // Whether a replacement was refused for want of memory since the last time that this was asked.
    bool TakeRefusal() { return std::exchange(m_fRefused, false); }
    // All changes up to EndStep are one step. Not nested.
    void BeginStep();
    void EndStep();

    // False where there is nothing to take back, or to do again, or no memory for it. Caret and selection are
    // what they were.
    bool Undo();
    bool Redo();
    // Takes the newest step back for good.
    void Revert();
    bool CanUndo() const { return m_undo.ToUndo() != nullptr; }
    bool CanRedo() const { return m_undo.ToRedo() != nullptr; }
    void EmptyUndo() { m_undo.Empty(); }

    bool IsModified() const { return m_fModified; }
    void SetModified(bool fModified) { m_fModified = fModified; }

    // --- Rows

    // A row that the text ends, or a line end.
    bool EndsParagraph(UINT nRow) const;
    // Without its line end.
    TextRange RowText(UINT nRow) const;
    // The rows of the paragraph that nRow is of: the first one, and the one behind the last.
    TextRange ParagraphRows(UINT nRow) const;
    // Rows nRow up to nRow + nRows, of one paragraph, become nNew ones that begin at pStarts. The listener is
    // not told.
    [[nodiscard]] bool Wrap(UINT nRow, UINT nRows, const UINT* pStarts, UINT nNew);
    // Every paragraph becomes one row.
    [[nodiscard]] bool Unwrap();

private:
    UINT Snapped(UINT n) const;
    UndoStack::Marks Marks() const { return {m_nAnchor, m_nCaret}; }
    void SetMarks(const UndoStack::Marks& marks);
    [[nodiscard]] bool MakeRoom(UINT nCharacters, LPCWSTR psz, UINT n);
    void Change(const TextRange& range, LPCWSTR psz, UINT n);
    [[nodiscard]] bool Play(UndoStep& step, bool fBack);
    bool GoTo(UndoStep* pStep, bool fBack);

    TextListener& m_listener;
    TextBuffer m_text;
    RowTable m_rows;
    UndoStack m_undo;
    UINT m_nCaret = 0;
    UINT m_nAnchor = 0;
    bool m_fModified = false;
    bool m_fRefused = false;
};

} // namespace gesso
