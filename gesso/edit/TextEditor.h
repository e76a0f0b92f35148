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
    // rcShown is left out where rows do not touch it.
    void Draw(HDC hdc, const RECT& rcShown);

    // --- For the control's own operations. They repaint. What tells nothing says so.

    // Line ends are normalised; the caret goes to 0. Tells nothing. False, with nothing done, without memory.
    bool SetText(LPCWSTR psz);
    SplitText Text() const;
    // As GEdit::GetText does.
    int GetText(LPWSTR pszBuffer, int* pnLength) const;
    // WM_GETTEXT: as much as there is room for, with its terminator. Returns how many characters were copied.
    LRESULT CopyText(UINT nCapacity, LPWSTR pszBuffer) const;
    TextRange Selection() const;
    UINT Caret() const;
    UINT Anchor() const;
    // The caret goes to nCaret, and comes into view. Tells nothing.
    void Select(UINT nAnchor, UINT nCaret);
    // As EM_REPLACESEL does, which tells. False unless all of it has come in. The control may be gone
    // afterwards.
    bool ReplaceSelection(LPCWSTR psz, bool fCanUndo);
    // What typing over the whole text does, in one step: it tells as that, and what may not be typed stays
    // out. False unless all of it has come in. The control may be gone afterwards.
    bool TypeOver(LPCWSTR psz);
    // What is typed is completed: the text comes in at the caret, selected, in one step with what was typed
    // before it and is typed over it. Tells. The control may be gone afterwards.
    void Complete(LPCWSTR psz);
    bool Redo();
    bool CanRedo() const;
    // Whether an input method shows text that is not accepted.
    bool IsComposing() const;
    // Whether the user's press in the text lasts.
    bool IsPressed() const;
    // Whether the user drags selected text.
    bool IsDragging() const;
    bool IsModified() const;
    void SetModified(bool fModified);
    // What was prepared is of another font, width, style or theme now.
    void Reflow();
    // WM_VSCROLL and WM_HSCROLL with the thumb's whole position. The control may be gone afterwards.
    void ScrollByBar(int nBar, UINT uCode, UINT nThumb);

private:
    struct Inside;

    void OnTextChange(const TextChange& change) override;
    // The field that text may be dropped in at a point of the screen; null for none of this thread's.
    static TextEditor* At(POINT ptScreen);

    Inside* m_inside;
    TextEditor* m_pNext;

    static constinit thread_local TextEditor* s_pFirst;
};

} // namespace gesso
