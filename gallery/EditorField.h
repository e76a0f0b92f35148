// The gallery's text editor: a GEdit with commands for a ribbon and a menu to act on.
#pragma once

#include <gesso/edit/GEdit.h>

#include <string>
#include <utility>

namespace gallery {

class EditorField : public GEdit
{
public:
    std::wstring Text() const;

    // Each takes the focus to the field. All but Copy and the selections can be undone, the last of them.
    void StartAnew();
    void Cut();
    void Copy();
    void Paste();
    void Clear();
    void Undo();
    // In the place of the selection.
    void Type(const std::wstring& text);
    void ReplaceCharacters(wint_t (*convert)(wint_t));
    void SelectAll();
    void SelectStart();
    void SelectEnd();
    // From the selection on, and then once more from the start. Nothing where it is not there.
    void FindNext(const std::wstring& wanted);

    // Breaks the lines for the field's width, which it does not do by itself in Classic. The selection stays.
    void WrapAnew();
    // Wraps anew as well. The font is the caller's.
    void ChangeFont(HFONT hFont);

private:
    void Remember() { m_former = Text(); }
    void Press(UINT uKey);
    void PressWithControl(UINT uKey);
    bool IsTextField() const;
    std::pair<size_t, size_t> Selection() const;
    void Select(size_t nFrom, size_t nTo);
    void PutSelection(size_t nFrom, size_t nTo);
    void PutInLine(size_t nOffset, UINT& nLine, UINT& nChar) const;

    std::wstring m_former; // the text before the last command
};

} // namespace gallery
