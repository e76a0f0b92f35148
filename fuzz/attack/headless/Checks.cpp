// What must hold of an object, by the library's own checks of its data.

#include "../ControlTables.h"

#include <gesso/edit/EditLines.h>
#include <gesso/list/ListInside.h>
#include <gesso/tree/TreeRules.h>
#include <gesso/tree/TreeView.h>

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

struct OpenCombo : GComboBox
{
    using GComboBox::m_nAnchor;
    using GComboBox::m_nCaret;
    using GComboBox::m_strText;
};

bool IsInside(const GEdit& edit, UINT nLine, UINT nChar)
{
    const auto& aLines = edit.*&OpenEdit::m_aLines;
    // By SetSel with several lines it may count below 0, which is as good as 0.
    return nLine < aLines.GetLength() && static_cast<int>(nChar) <= static_cast<int>(aLines[nLine]);
}

// Opens those of a tree.
template <class CONTROL> struct OpenTree : CONTROL
{
    using CONTROL::m_aVisible;
    using CONTROL::m_nSelected;
    using CONTROL::m_pSelected;
};

template <class ITEM, class CONTROL> std::string CheckTree(CONTROL& tree)
{
    using Fields = OpenTree<CONTROL>;
    const gesso::TreeView<ITEM, gesso::TreeRules<CONTROL>> view(
        tree.*&Fields::m_aVisible, tree.*&Fields::m_pSelected, tree.*&Fields::m_nSelected);
    return view.Check() ? "" : "items and rows that do not agree";
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

std::string CheckObject(const GComboBox& combo)
{
    const UINT nLength = (combo.*&OpenCombo::m_strText).GetLength();
    const bool fInside = combo.*&OpenCombo::m_nCaret <= nLength && combo.*&OpenCombo::m_nAnchor <= nLength;
    return fInside ? "" : "caret or anchor outside of the text";
}

std::string CheckObject(const GList& list)
{
    return gesso::ListInside::CheckLayout(list) ? "" : "a layout that is not that of the records";
}

std::string CheckObject(GTree& tree)
{
    return CheckTree<TreeItem>(tree);
}

std::string CheckObject(GNavigationBar& bar)
{
    return CheckTree<NavigationBarItem>(bar);
}

} // namespace attack
