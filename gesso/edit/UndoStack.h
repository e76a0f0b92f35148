// The steps of an edit field that can be taken back, and those that were and can be done again.
//
// A step keeps only what is not in the text: what its edits removed, or, once it was taken back, what they
// had inserted. Offsets are in characters of 16 bits.
#pragma once

#include <gesso/containers/OArray.h>
#include <gesso/text/SplitText.h>

namespace gesso {

// How an edit joins the step before.
enum class EditKind
{
    Typing,     // goes on with the word that was being typed
    Completing, // what a program adds to the word: part of it, as is what is typed in its place
    Erasing,    // as Typing, for Backspace and Delete
    Step,       // a step of its own
    Dropping    // as Step, and what came in is selected
};

struct UndoEdit
{
    UINT nFrom;
    UINT nRemoved;
    UINT nInserted;
};

struct UndoStep;

class UndoStack
{
public:
    static constexpr UINT MOST_STEPS = 1000;
    static constexpr size_t MOST_BYTES = size_t{16} << 20; // of inserted and removed text
    static constexpr DWORD PAUSE = 2000;                   // milliseconds that end what is being typed

    struct Marks
    {
        UINT nAnchor;
        UINT nCaret;
    };

    UndoStack() = default;
    ~UndoStack() { Empty(); }
    UndoStack(const UndoStack&) = delete;
    UndoStack& operator=(const UndoStack&) = delete;

    // Notes an edit that is about to be made: before is the text without it, pszInserted what comes in.
    // False, with nothing done, without memory.
    [[nodiscard]] bool Note(const UndoEdit& edit, const SplitText& before, LPCWSTR pszInserted, EditKind kind,
                            DWORD dwNow, const Marks& marks);
    // Where anchor and caret stand after what was noted last.
    void SetAfter(const Marks& marks);
    // The next edit begins a step. Does nothing between Begin and End.
    void Close();
    // All edits from here to End are one step.
    void Begin();
    void End(const Marks& marks);
    void Empty();

    // Null where there is none. What was done with it is told by Undone or Redone.
    UndoStep* ToUndo() const { return m_nDone > 0 ? m_aSteps[m_nDone - 1] : nullptr; }
    UndoStep* ToRedo() const { return m_nDone < m_aSteps.GetLength() ? m_aSteps[m_nDone] : nullptr; }
    void Undone() { --m_nDone; }
    void Redone() { ++m_nDone; }
    // What was taken back cannot be done again.
    void ForgetUndone() { Drop(m_nDone, m_aSteps.GetLength() - m_nDone); }

private:
    bool Joins(const UndoEdit& edit, EditKind kind, DWORD dwNow, bool fSpace) const;
    bool TakesPlaceOfCompletion(const UndoEdit& edit) const;
    const UndoEdit& LastEdit() const;
    UndoStep* Prepared(bool fJoins, UINT nRemoved);
    void Drop(UINT nFrom, UINT n);
    void Trim();

    OArray<UndoStep*, UndoStep* const&> m_aSteps; // the oldest first
    UINT m_nDone = 0;                             // those behind were taken back
    size_t m_cb = 0;
    EditKind m_kind = EditKind::Step;
    DWORD m_dwLast = 0;
    UINT m_nCompleted = 0;       // characters at the end of the newest step that complete it
    bool m_fHeld = false;        // between Begin and End
    bool m_fOpen = false;        // the newest step may be joined
    bool m_fBehindSpace = false; // its last character was one
};

struct UndoStep
{
    using Edits = OArray<UndoEdit, const UndoEdit&>;
    using Characters = OArray<wchar_t, const wchar_t&>;

    // What its edits take out of the text and bring into it, taken back or done again.
    struct Need
    {
        UINT nGoing;    // all characters that go
        UINT nMoreMost; // so much longer than at first does the text become meanwhile
    };
    Need NeedOf(bool fBack) const;

    Edits aEdits;    // in the order in which they were made
    Characters text; // of all of them, in that order
    UndoStack::Marks before;
    UndoStack::Marks after;
};

} // namespace gesso
