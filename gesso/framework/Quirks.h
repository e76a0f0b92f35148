// The fixed rules that controls made in Classic keep and those made in Modern do not have: each has its name
// here and its row in docs/quirks.md, and the control asks for it at the one place where it matters.
// scripts/check-quirks.py compares the three.
#pragma once

#include <gesso/framework/GWnd.h>

namespace gesso {

enum class Quirk
{
    // All controls
    ContextMenuEnds,     // WM_CONTEXTMENU and the menu key do not leave most of the controls
    CuesStayHidden,      // a key shows focus rectangles and mnemonics only where the platform says so
    StateOutlivesWindow, // pressed, hot and the like are what they were before a second Create
    FontEndsWithWindow,  // a second Create forgets the font that the host has set
    RedrawShows,         // WM_SETREDRAW is the platform's, which shows a window that was hidden

    // Buttons, labels and bars
    NoPlatformButton,       // BM_CLICK, BM_GETSTATE and BM_SETSTATE do nothing
    MarkIsTheHosts,         // GBS_AUTO and GBS_3STATE do nothing
    MarkEndsWithWindow,     // a second Create forgets the mark that the host has set
    IdIsDropped,            // labels and progress bars have the id 0
    ImageBesideItsPlace,    // an image stands beside the place that the style bits say
    LabelImageIsStretched,  // a label's image is as large as its place tells
    BarOutlivesWindow,      // the object of a scroll bar that its window made stays when that goes
    BackButtonOnBlack,      // no parent's background is behind the back button
    BackButtonChangesStyle, // the back button opens another class of the style at WM_THEMECHANGED

    // Bars of controls that scroll
    BarThumbWraps,       // a dragged thumb leads no further than the first 65,536 pixels
    BarAcrossSpeaksDown, // a bar across repeats, and ends, as the one that goes down
    BarHitsBeside,       // bars are hit a few pixels beside where they are drawn
    BarWheelDropsRest,   // turns of the wheel by less than a notch are lost

    // GTree and GNavigationBar
    TreeSelectionIsSilent,  // nobody is told of a selection that changes, nor is it painted
    TreeRemovalIsSilent,    // nobody is told of an item that goes
    TreeSelectsByNumber,    // what is selected is a row's number, which its item may leave
    TreeRowsStay,           // rows stay where they are when their items go, move or are sorted
    TreeSettersShowLater,   // the setters of items neither repaint nor measure
    TreeOpensRowsInView,    // what stands below a closed item is neither expanded nor brought into view
    TreeEnsuresSelection,   // whatever is to be brought into view, the selected row is
    TreeHitsByOwnSteps,     // points hit cells in other places than those that are painted
    TreeLosesSecondClicks,  // the second of two fast clicks on an expander or check box does nothing
    TreeBoxesTickNothing,   // check boxes are the host's to tick
    TreeEnterClicks,        // Enter is the tree's in a dialog too, and is a click
    TreeRightClickIsSilent, // a right click selects nothing and is not told
    TreePagesForgetBars,    // of two bars that show each covers the end of the other one's range
    TreeF2IsIdle,           // F2 does nothing
    TreeTypesLatinWords,    // type-ahead is of Latin letters and digits, a quarter of a second apart
    PaneRangeIsEven,        // every row of a pane counts as high as an item
    PaneHasNoKeys,          // no key moves a pane's selection, and Space is a button's click

    // GRibbon and GRibbonPage
    RibbonTakesNoKeys,        // the ribbon is no Tab stop, and takes neither focus nor keys
    RibbonTabsSilent,         // another tab becomes active, and nobody is told
    RibbonActiveStaysByIndex, // the active tab keeps its number when a page is removed
    RibbonWindowsStay,        // hosted windows show whichever page is active
    RibbonCheckedLooksHot,    // a checked box is drawn one state beyond its own
    RibbonHotStays,           // an item looks hot or pressed where the pointer is no more
    RibbonTextCutOff,         // a large button with an image has no room for a second line
    RibbonTextsGrey,    // where the style has no colour for an item's text, it has that of the groups' titles
    RibbonLosesAnswers, // what the parent answers to a hosted window's notification is lost

    // GEdit and GComboBox
    EditIsPlain,           // an edit field shows what fits, in lines that wrap, and takes nothing back
    ComboFieldIsPlain,     // the same of a combo box's field
    ComboListIsModal,      // an open list runs a message loop, and Esc takes what the arrows led to
    ComboListFixed,        // the list opens downwards, as wide as the control, and as high as it is told
    ComboFindsByLetter,    // CB_FINDSTRING looks at first letters, and CB_FINDSTRINGEXACT for what is unlike
    ComboKnowsFewMessages, // open state, item data, heights, cues and the like are not told
    ComboTellsLittle,      // of the list and the field the parent is told of selections and edits alone
    ComboKeysAreItems,     // keys do not open the list, and typed letters choose nothing
    ComboIndexStays,       // the selection keeps its number when items come or go in front of it
    ComboHidesAmpersands,  // an ampersand in an item's text does not show

    // CDrawText
    TextHasOneFont,  // what the font lacks shows as boxes
    TextRunsInOrder, // items stand one behind the other from left to right, whatever their direction

    // Dialogs
    TaskDialogAsItWas, // task dialogs and message boxes know six buttons, and grow as their texts need

    // GList
    ListBars,               // the bars' pages leave the end of the content out of reach
    ListColumnsMoveNothing, // a column that comes or goes moves no sub-item
    ListColumnsWait,        // a column's width, format and caption wait for the next SetListStyle
    ListCursorStays,        // SetFirstSelectedItemIndex leaves the cursor where it is
    ListCursorUnseen,       // no focus rectangle shows where the keyboard is
    ListDividerFitsNothing, // a double click on a divider does nothing
    ListElementsAreColumns, // the header sorts and sizes the column of an element's number
    ListEmptyRoom,          // a drag from empty room selects nothing
    ListFirstFocusSelects,  // the first focus selects the first item
    ListGoesWithWindow,     // columns and fonts go with the window
    ListGridStays,          // the grid stays where it is when the list scrolls, and ends with the window
    ListHeaderSilent,       // a header click sorts, and nobody is asked
    ListIndicesStay,        // cursor, anchor and hot item keep their number when their item gets another
    ListKeyboard,           // the keyboard starts from what was last acted on, by rules of its own
    ListPlaces,             // hits, rectangles and icons' cells are not where things are drawn
    ListRemovalSilent,      // items go, and nobody is told
    ListRightClickIgnored,  // a right click does nothing
    ListSelectionSilent,    // the selection changes, and nobody is told
    ListSortUnstable,       // equal items change places in a sort
    ListTakesAllKeys,       // Enter and Esc do not reach a dialog's buttons
    ListTiltIgnored,        // a wheel that tilts does nothing
    ListTypingIgnored,      // typed characters lead nowhere
    ListF2IsIdle,           // F2 does nothing
    ListCaptionsMixed,      // in a tile a value begins where another column's caption would end
    ListCellsLag,           // cells keep what a former height, width or view gave them
    ListContentSpills,      // what a cell has no room for shows over others
    ListHeaderDrags,        // a press on the header that moves away is told as a drag
    ListLosesSecondClicks,  // the second of two fast clicks in the header or in empty room does nothing
    ListTextsMisaligned,    // an icon's text lies as its column says, and a wide one that is centred is lost
};

// Whether a control has the rule. An object without a window has what it would be made with now.
bool Has(const GWnd& wnd, Quirk quirk);
// The same of the window that an object is about to be given.
bool WillHave(Quirk quirk);

} // namespace gesso
