// What a GComboBox keeps for itself, behind the one pointer in its public class, and its text as a TextField.
#pragma once

#include <gesso/containers/Index.h>
#include <gesso/edit/GComboBoxList.h>
#include <gesso/edit/TextField.h>
#include <gesso/framework/Quirks.h>

#include <memory>

namespace gesso {

// The parts of a combo box, as GComboBox::HitTestInfo counts them.
inline constexpr int COMBO_OUTSIDE = -1;
inline constexpr int COMBO_TEXT = 1;
inline constexpr int COMBO_BUTTON = 2;

inline constexpr int FIRST_TEXT_LIMIT = 30000;

// Whether each item is a record of its own with a text of its own.
bool CheckItems(const OArray<ComboItem*, ComboItem*>& aItems);

// What a text format says of ampersands in the items' texts.
inline UINT ItemPrefixFormat(const GWnd& combo)
{
    return Has(combo, Quirk::ComboHidesAmpersands) ? DT_HIDEPREFIX : DT_NOPREFIX;
}

} // namespace gesso

struct GComboBox::Inside
{
    void TakeFirstHeight(GComboBox& combo);
    // Of Classic's list, as long as the host has set none.
    void ScaleFirstHeight(GComboBox& combo) const;

    UINT nSelected = gesso::NO_INDEX; // it may be beyond the items
    bool fCompletes = false;          // SetAutoComplete
    bool fLimited = false;            // CB_LIMITTEXT
    bool fFirstHeight = false;        // the open list's is the one of Classic's first window
    UINT nFirstHeight = 0;            // that, for so many dots an inch
    UINT nFirstDpi = 0;
    UINT nRowHeight = 0;             // of Classic's list, as the library last gave it; 0 for none
    std::unique_ptr<Modern> pModern; // of the window; null in Classic
};

// The field for one operation. Whatever is in it is one line.
struct GComboBox::Field
{
    explicit Field(GComboBox& combo)
        : lines(combo.m_strText, aLines), text(lines, {0, combo.m_nCaret}, {0, combo.m_nAnchor})
    {
        lines.BeOneLine();
    }
    // The text becomes the selected item's, or empty without one, and all of it is selected where the user
    // can edit it. False, with nothing done, without memory.
    static bool ShowItem(GComboBox& combo);
    // The item becomes the selected one, and its text shows. False, with nothing done, without memory.
    static bool Select(GComboBox& combo, UINT nIndex);
    static void Mark(GComboBox& combo, UINT nIndex);

    gesso::LineTable aLines;
    gesso::EditLines lines;
    gesso::TextField text;
};

// The one place where the text changes. edit(field) does it, and answers whether it has done anything; the
// selection in it then is the field's.
template <class EDIT> bool GComboBox::ChangeText(EDIT edit)
{
    Field field(*this);
    if (!edit(field.text)) {
        return false;
    }
    ChangeField(field.text);
    return ShowText();
}
