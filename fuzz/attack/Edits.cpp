// The text field and the combo box.

#include "Call.h"
#include "ControlTables.h"

namespace attack {

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
                OP(GComboBox, SetAutoComplete),
                OP(GComboBox, Callback)});
}

} // namespace attack
