// Labels, buttons and the other small controls.

#include "Call.h"
#include "ControlTables.h"

namespace attack {

namespace {

// What GButton has, and with it all that show a text and an image.
template <class CONTROL> void AddTextAndImage(Table& table)
{
    Add(table, {OP(CONTROL, SetStyle), OP(CONTROL, GetStyle), OP(CONTROL, SetFont), OP(CONTROL, GetFont),
                Often(4, OP(CONTROL, SetText)), OP(CONTROL, GetTextLength), OP(CONTROL, SetIcon),
                OP(CONTROL, GetIcon), OP(CONTROL, SetBitmap), OP(CONTROL, GetBitmap),
                Making(OP(CONTROL, Create)), OP(CONTROL, Destroy)});
}

template <class CONTROL> void AddCheck(Table& table)
{
    Add(table, {Often(3, OP(CONTROL, SetCheck)), OP(CONTROL, GetCheck)});
}

// The font is the host's from then on, but for the one that all share.
void NoteFont(World& world, HFONT hFont)
{
    if (hFont && hFont != g_hDefaultFont) {
        world.Keep(hFont);
    }
}

void Wrap(World&, Source& source)
{
    OStringEx<wchar_t> in;
    in = source.AnyText();
    OString<wchar_t> out;
    GLabel::WrapText(out, in);
}

} // namespace

template <> void AddOperations<GLabel>(Table& table)
{
    AddTextAndImage<GLabel>(table);
    Add(table,
        {OP(GLabel, SetTextColor), OP(GLabel, GetTextColor), OP(GLabel, CalcSizeText), {"WrapText", Wrap}});
}

template <> void AddOperations<GButton>(Table& table)
{
    AddTextAndImage<GButton>(table);
}

template <> void AddOperations<GCheckBox>(Table& table)
{
    AddTextAndImage<GCheckBox>(table);
    AddCheck<GCheckBox>(table);
}

template <> void AddOperations<GRadioButton>(Table& table)
{
    AddTextAndImage<GRadioButton>(table);
    AddCheck<GRadioButton>(table);
}

template <> void AddOperations<GCommandButton>(Table& table)
{
    using Button = GCommandButton;
    Add(table, {OP(Button, SetStyle), OP(Button, GetStyle), OP(Button, SetFont), OP(Button, SetNoteFont),
                Often(4, OP(Button, SetText)), OP(Button, GetTextLength), Often(4, OP(Button, SetNote)),
                OP(Button, GetNoteLength), GetTextOf<Button>("GetNote", &Button::GetNote),
                OP(Button, SetIcon), OP(Button, GetIcon), OP(Button, SetBitmap), OP(Button, GetBitmap),
                Making(OP(Button, Create)), OP(Button, Destroy)});
    Add(table, {Own<Button>("GetFont",
                            [](Button& button, World& world, Source&) { NoteFont(world, button.GetFont()); }),
                Own<Button>("GetNoteFont", [](Button& button, World& world, Source&) {
                    NoteFont(world, button.GetNoteFont());
                })});
}

template <> void AddOperations<GNavigationButton>(Table& table)
{
    using Button = GNavigationButton;
    Add(table, {OP(Button, SetStyle), OP(Button, GetStyle), Making(OP(Button, Create)), OP(Button, Destroy)});
}

template <> void AddOperations<GProgressBar>(Table& table)
{
    Add(table, {OP(GProgressBar, SetStyle), OP(GProgressBar, GetStyle), Making(OP(GProgressBar, Create)),
                OP(GProgressBar, Destroy), Often(6, OP(GProgressBar, SetProgress))});
}

template <> void AddOperations<GSeparator>(Table& table)
{
    Add(table, {Making(OP(GSeparator, Create)), OP(GSeparator, Destroy)});
}

template <> void AddOperations<GScrollbar>(Table& table)
{
    Add(table, {Making(OP(GScrollbar, Create)), OP(GScrollbar, Destroy), OP(GScrollbar, GetScrollPos),
                Often(4, OP(GScrollbar, SetScrollPos)), OP(GScrollbar, InitScrollBar),
                OP(GScrollbar, UninitScrollBar), Often(4, OP(GScrollbar, ScrSetTotalHeight)),
                OP(GScrollbar, ScrGetPageSize), OP(GScrollbar, ResetScroll), OP(GScrollbar, IsScrollable)});
}

namespace {

void TrackMenu(GRightClickMenu&, World& world, Source& source)
{
    const Text texts[] = {source.AnyText(), source.AnyText(), source.AnyText()};
    const LPCWSTR values[] = {texts[0], source.Chance(8) ? nullptr : LPCWSTR{texts[1]}, texts[2]};
    GRightClickMenu::Track(world.AnyParent(source), source.Integer(), source.Integer(),
                           source.Chance(12) ? nullptr : values, source.Below(4),
                           source.Chance(4) ? source.Number() : source.Below(4));
}

} // namespace

template <> void AddOperations<GRightClickMenu>(Table& table)
{
    using Menu = GRightClickMenu;
    Add(table, {Making(OP(Menu, Create)), OP(Menu, Destroy), Often(4, OP(Menu, AddValue)),
                Often(2, OP(Menu, SetValue)), OP(Menu, GetValue), OP(Menu, GetValueCount),
                Often(3, Own<Menu>("Track", TrackMenu))});
}

} // namespace attack
