// A text field that a person can write in, within the window of a control: the text, what shows of it, and
// what keys, the mouse, the clipboard, input methods and messages do to it.
//
// Offsets are in characters of 16 bits; points are in client coordinates of the control's window.
//
// The parent may do anything when it is told, destroying the control and with it this object included: what
// tells does so last, or asks whether the control lives before it goes on.
#pragma once

#include <gesso/edit/EditModel.h>
#include <gesso/edit/EditorSite.h>

namespace gesso {

class TextEditor final : private TextListener
{
public:
    explicit TextEditor(EditorSite& site);
    ~TextEditor();
    TextEditor(const TextEditor&) = delete;
    TextEditor& operator=(const TextEditor&) = delete;

    // What a text field does with a message: keys, characters, mouse, focus, clipboard, EM_ messages, timers,
    // input methods. False for one that is not a text field's, with *plAnswer as it is. The control may be
    // gone afterwards.
    bool OnMessage(UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT* plAnswer);
    // Draws the text, the selection and the cue into a context, over a background that is there.
    void Draw(HDC hdc);

    // --- For the control's own operations. They repaint. What tells nothing says so.

    // Line ends are normalised; the caret goes to 0. Tells nothing. False, with nothing done, without memory.
    bool SetText(LPCWSTR psz);
    SplitText Text() const;
    TextRange Selection() const;
    UINT Caret() const;
    // The caret goes to nCaret, and comes into view. Tells nothing.
    void Select(UINT nAnchor, UINT nCaret);
    // As typed by the user, but that a limit cuts it without EN_MAXTEXT where fTell is false.
    bool ReplaceSelection(LPCWSTR psz, bool fCanUndo, bool fTell);
    bool Undo();
    bool Redo();
    bool CanRedo() const;
    bool IsModified() const;
    void SetModified(bool fModified);
    void SetLimit(UINT nMost);
    // Grey text while the field is empty; null for none. False without memory.
    bool SetCue(LPCWSTR psz, bool fWithFocus);
    // What was prepared is of another font, width, style or theme now.
    void Reflow();

private:
    struct Inside;

    void OnTextChange(const TextChange& change) override;

    Inside* m_inside;
};

} // namespace gesso
