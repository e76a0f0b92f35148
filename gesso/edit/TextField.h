// TextField: caret, anchor and text of an editable field, and what the user's edits do to them. GEdit and the
// field of GComboBox, which is a text of one line, are both made of it. Only Copy needs a window, which the
// clipboard asks for.
//
// It is a copy of the control's caret and anchor, taken for one operation: the control writes them back in
// one place, its ChangeField, and reads them anew after anything that sends messages. Caret and anchor are
// the ends of the selection, in no order, and may be places that the text no longer has: they count as the
// nearest ones.
#pragma once

#include <gesso/edit/ClipboardText.h>
#include <gesso/edit/EditLines.h>

#include <algorithm>

namespace gesso {

class TextField
{
public:
    TextField(EditLines& lines, const Place& caret, const Place& anchor)
        : m_lines(lines), m_caret(caret), m_anchor(anchor)
    {}

    EditLines& Lines() const { return m_lines; }
    Place Caret() const { return m_lines.Limited(m_caret); }
    Place Anchor() const { return m_lines.Limited(m_anchor); }
    Place First() const { return std::min(Caret(), Anchor()); }
    Place Last() const { return std::max(Caret(), Anchor()); }
    bool HasSelection() const { return Caret() != Anchor(); }
    // As they were given, which need not be in the text.
    const Place& GivenCaret() const { return m_caret; }
    const Place& GivenAnchor() const { return m_anchor; }

    // --- Caret and selection

    void PutCaret(const Place& caret) { m_caret = caret; }
    void Select(const Place& anchor, const Place& caret);
    void SelectAll() { Select({0, 0}, m_lines.End()); }
    void Collapse() { m_anchor = Caret(); }
    // Caret and anchor become places that the text has.
    void Limit() { Select(Anchor(), Caret()); }
    // The caret goes to a place, and the anchor with it unless the selection is extended.
    void MoveTo(const Place& caret, bool fExtend);

    // --- Edits. Those that insert take the selection's place, and leave nothing selected.

    void RemoveSelection();
    void Insert(LPCWSTR psz);
    void InsertBreak();
    // The selection, or else the character in front of the caret, or behind it. False where there is neither.
    bool RemoveBefore();
    bool RemoveBehind();

    // --- Clipboard

    // False if there is no selection, the clipboard would not take it, or the control is gone.
    bool Copy(const GWnd& wnd) const;

private:
    EditLines& m_lines;
    Place m_caret;
    Place m_anchor;
};

} // namespace gesso
