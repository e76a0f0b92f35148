// TextField: caret, anchor and text of an editable field, and what the user's edits do to them. GEdit and the
// field of GComboBox, which is a text of one line, are both made of it. Only the clipboard asks for the
// window.
//
// It is a copy of the control's caret and anchor, taken for one operation: the control writes them back in
// one place and reads them anew after anything that sends messages. Caret and anchor are
// the ends of the selection, in no order, and may be places that the text no longer has: they count as the
// nearest ones.
#pragma once

#include <gesso/edit/EditLines.h>
#include <gesso/framework/GWnd.h>

#include <algorithm>

namespace gesso {

// What a text that is pasted becomes.
enum class PastedAs
{
    Lines,
    OneLine, // with a space for each line end
};

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

    // --- Edits. Those that insert take the selection's place, and leave nothing selected; without memory for
    // what comes in they are false, and nothing is changed.

    void RemoveSelection();
    bool Insert(LPCWSTR psz);
    // The whole text, as a text of lines with the caret at its end.
    bool Replace(LPCWSTR psz);
    bool InsertBreak();
    // The selection, or else the character in front of the caret, or behind it. False where there is neither.
    bool RemoveBefore();
    bool RemoveBehind();

    // --- Clipboard. It tells the window whose content it had or is asked for, and in that the program may
    // change the field or destroy the control: what a cut and a paste do to the field as it is then goes to
    // edit, which is the control's way to make an edit: it calls what it is given with the field, and is
    // answered whether that has done anything. It is not called where nothing is selected, the clipboard
    // gives or takes nothing, or the control is gone.

    // False where edit would not be called.
    bool Copy(const GWnd& wnd) const;
    template <class EDIT> void Cut(const GWnd& wnd, EDIT edit) const;
    template <class EDIT> static void Paste(const GWnd& wnd, PastedAs as, EDIT edit);

    // Whether the lines are the text, and caret and anchor places in it, as they are after any edit.
    bool Check() const { return m_lines.Check() && m_lines.Has(m_caret) && m_lines.Has(m_anchor); }

private:
    static bool Offered(const GWnd& wnd, PastedAs as, OStringEx<wchar_t>* pstr);

    EditLines& m_lines;
    Place m_caret;
    Place m_anchor;
};

template <class EDIT> void TextField::Cut(const GWnd& wnd, EDIT edit) const
{
    if (Copy(wnd)) {
        edit([](TextField& field) {
            field.RemoveSelection();
            return true;
        });
    }
}

template <class EDIT> void TextField::Paste(const GWnd& wnd, PastedAs as, EDIT edit)
{
    OStringEx<wchar_t> strOffered;
    if (Offered(wnd, as, &strOffered)) {
        edit([&](TextField& field) { return field.Insert(strOffered); });
    }
}

} // namespace gesso
