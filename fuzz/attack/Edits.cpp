// The text field and the combo box.

#include "Call.h"
#include "ControlTables.h"

#include <gesso/edit/EditLines.h>

namespace attack {

namespace {

// Opens the members that a check looks at, of any edit field.
struct OpenEdit : GEdit
{
    using GEdit::m_aLines;
    using GEdit::m_nAnchorChar;
    using GEdit::m_nAnchorLine;
    using GEdit::m_nCaretChar;
    using GEdit::m_nCaretLine;
    using GEdit::m_strText;
};

bool IsInside(const GEdit& edit, UINT nLine, UINT nChar)
{
    const auto& aLines = edit.*&OpenEdit::m_aLines;
    // By SetSel with several lines it may count below 0, which is as good as 0.
    return nLine < aLines.GetLength() && static_cast<int>(nChar) <= static_cast<int>(aLines[nLine]);
}

} // namespace

std::string CheckObject(const GEdit& edit)
{
    if (!gesso::EditLines::Check(edit.*&OpenEdit::m_strText, edit.*&OpenEdit::m_aLines)) {
        return "lines that are not the text";
    }
    const bool fCaret = IsInside(edit, edit.*&OpenEdit::m_nCaretLine, edit.*&OpenEdit::m_nCaretChar);
    const bool fAnchor = IsInside(edit, edit.*&OpenEdit::m_nAnchorLine, edit.*&OpenEdit::m_nAnchorChar);
    return fCaret && fAnchor ? "" : "caret or anchor outside of the lines";
}

template <> void AddOperations<GEdit>(Table& table)
{
    Add(table, {Making(OP(GEdit, Create)), OP(GEdit, Destroy), OP(GEdit, SetFont), OP(GEdit, GetFont),
                Often(6, OP(GEdit, SetText)), OP(GEdit, GetTextLength), Often(4, OP(GEdit, SetSel))});
}

template <> void AddOperations<GComboBox>(Table& table)
{
    using SetHeight = void (GComboBox::*)(UINT);
    const SetHeight setHeight = &GComboBox::SetDropdownHeight;
    Add(table, {Making(OP(GComboBox, Create)),
                OP(GComboBox, Destroy),
                OP(GComboBox, SetStyle),
                OP(GComboBox, GetStyle),
                OP(GComboBox, SetFont),
                OP(GComboBox, GetFont),
                Call<GComboBox>("SetDropdownHeight", setHeight),
                OP(GComboBox, GetDropdownHeight),
                Often(3, OP(GComboBox, SetText)),
                OP(GComboBox, GetTextLength),
                Often(8, OP(GComboBox, InsertItem)),
                Often(2, OP(GComboBox, RemoveItem)),
                OP(GComboBox, RemoveAllItems),
                OP(GComboBox, GetItemCount),
                OP(GComboBox, GetItemFlags),
                OP(GComboBox, GetItemText),
                OP(GComboBox, GetItemImage),
                OP(GComboBox, GetItemCustomData),
                OP(GComboBox, SetItemFlags),
                Often(2, OP(GComboBox, SetItemText)),
                OP(GComboBox, SetItemImage),
                OP(GComboBox, SetItemCustomData),
                Often(3, OP(GComboBox, SetSelected)),
                OP(GComboBox, GetSelected),
                OP(GComboBox, Callback)});
}

} // namespace attack
