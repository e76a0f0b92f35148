// The measures: every length in pixels and every font height that is the library's own, and the one way to
// the system's. A control asks for each when it uses it and names its window, so that a measure can follow
// the window it is for.
#pragma once

#include <gesso/api.h>

namespace gesso {

// What a length is of: one that holds a text grows with the user's text size too, and a line is drawn as
// often as it fits, so that it does not become thick between two scales.
enum class MeasureKind
{
    Length,
    Text,
    Line
};

// A length of the library's own, in pixels at 96 dots an inch.
struct Measure
{
    int nPixels;
    MeasureKind kind = MeasureKind::Length;
};

// What a measure is in a window, in its pixels; at least 1. Null for no window in particular.
int Pixels(HWND hwnd, Measure measure);

// GetSystemMetrics for a window.
int SystemMetric(HWND hwnd, int nIndex);

// The height of a font of so many points, as LOGFONTW counts it: negative.
int FontHeight(HWND hwnd, int nPoints);
// The same without scaling, at the screen's resolution.
int ScreenFontHeight(int nPoints);

// By family, in the order of the folders.
namespace Metrics {

// --- Fonts, in points
inline constexpr int DEFAULT_FONT_POINTS = 9;

// --- Lines and edges that are as thin as can be
inline constexpr Measure THIN_LINE{1, MeasureKind::Line};

// --- Menus that the library draws
inline constexpr Measure MENU_ENTRY_HEIGHT{22, MeasureKind::Text};
inline constexpr Measure MENU_LINE_HEIGHT{9}; // of the room for a line
inline constexpr Measure MENU_TEXT{24};       // from an entry's edge to its text, on each side
inline constexpr Measure MENU_MARGIN{3};      // around the entries

// --- Scroll bars of the frame
inline constexpr Measure WHEEL_LINE{20, MeasureKind::Text};

// --- Parts of the style as they look without one
inline constexpr Measure PLAIN_GLYPH_REACH{4};      // of a tree's box from its middle
inline constexpr Measure PLAIN_GLYPH_MARK_REACH{2}; // of the plus or minus in it
// From a part's edge to its content, at the sides, and above and below.
inline constexpr Measure PLAIN_BUTTON_CX{5};
inline constexpr Measure PLAIN_BUTTON_CY{3};
inline constexpr Measure PLAIN_LINK{7};
inline constexpr Measure PLAIN_LINK_GLYPH{20}; // the side of a command link's arrow
inline constexpr Measure PLAIN_FIELD_CX{1};    // within the edge
inline constexpr Measure PLAIN_PROGRESS{2};

// --- Labels, buttons and the other small controls
inline constexpr Measure LABEL_INSET{1};
inline constexpr Measure IMAGE_GAP{5};          // between an image and the text
inline constexpr Measure CHECK_BOX_GAP{3};      // between a check box's box and its content
inline constexpr Measure CHECK_FOCUS_MARGIN{2}; // around the text
inline constexpr Measure COMMAND_GLYPH_GAP{5};  // between a command link's glyph and its text
inline constexpr Measure SCROLLBAR_BUTTON{17};  // the extent of a button of GScrollbar, and the bar's width
inline constexpr Measure SCROLLBAR_SMALLEST_THUMB{22};

// --- Edit fields and combo boxes
inline constexpr Measure EDIT_INSET{1};      // of the text, besides the margin that a derived class has set
inline constexpr Measure EDIT_HIT_SLACK{2};  // by which a point reaches the character behind it
inline constexpr Measure COMBO_HIT_SLACK{3}; // the same in a combo box's field
inline constexpr Measure COMBO_ROW_HEIGHT{22, MeasureKind::Text};
inline constexpr Measure COMBO_ROW_INSET{4}; // of a row's text, on each side
// By which the list's background reaches beyond its client area.
inline constexpr Measure COMBO_PANEL_OVERLAP{2};
inline constexpr int COMBO_DROPDOWN_HEIGHT = 150; // of the open list, in dialog units

// --- Lists
inline constexpr Measure LIST_TITLE_FONT{13, MeasureKind::Text}; // of items and groups
inline constexpr Measure LIST_FONT{12, MeasureKind::Text};
inline constexpr Measure LIST_HEADER_HEIGHT{25, MeasureKind::Text};
inline constexpr Measure LIST_HEADER_GAP{10};   // below the header
inline constexpr Measure LIST_CAPTION_TOP{5};   // of a header's captions, and the bottom of its arrow
inline constexpr Measure LIST_DIVIDER_REACH{6}; // to either side of a header's divider
inline constexpr Measure LIST_GROUP_HEIGHT{26, MeasureKind::Text};
inline constexpr Measure LIST_ITEM_WIDTH{90, MeasureKind::Text};
inline constexpr Measure LIST_ITEM_HEIGHT{22, MeasureKind::Text};
inline constexpr Measure LIST_LINE_HEIGHT{20, MeasureKind::Text};
inline constexpr Measure LIST_MARGIN{2};    // of a cell that asks for none of its own
inline constexpr Measure LIST_CHECK_GAP{3}; // between a check box and the first column
inline constexpr Measure LIST_TILE_CAPTION_GAP{5};
inline constexpr Measure LIST_ICON_CHECK_SLOT{40}; // its width and height
inline constexpr Measure LIST_ICON_SPACING{5};
inline constexpr Measure LIST_ICON_MARGINS{4};   // beside an icon, both together
inline constexpr Measure LIST_ICON_TEXT_GAP{2};  // above an icon, between it and its text, and below that
inline constexpr Measure LIST_EMPTY_WIDTH{10};   // of the content before there are columns
inline constexpr Measure LIST_FRAME_OVERHANG{2}; // by which the background reaches out of the client area
inline constexpr Measure LIST_FRAME_NUMBER_CX{50, MeasureKind::Text};
inline constexpr Measure LIST_FRAME_NUMBER_CY{20, MeasureKind::Text};

// --- Trees
inline constexpr Measure TREE_ITEM_HEIGHT{20, MeasureKind::Text};
inline constexpr Measure TREE_SCROLL_LINE{
    20, MeasureKind::Text}; // of WM_VSCROLL, whatever the height of an item is
inline constexpr Measure TREE_LEVEL_STEP{15};
inline constexpr Measure TREE_CELL{20};       // of each cell in front of the label, as it is painted
inline constexpr Measure TREE_HIT_CELL{15};   // as it is hit
inline constexpr Measure TREE_IMAGE{16};      // the side of an image, of a navigation bar's too
inline constexpr Measure LABEL_EDIT_INSET{2}; // from the edge of a field over a label to its text
inline constexpr Measure LABEL_EDIT_ROOM{16, MeasureKind::Text}; // behind the text
inline constexpr Measure TREE_TEXT_ROOM{
    1000, MeasureKind::Text}; // for a text that is measured: a single line takes its part

// --- Navigation bars
inline constexpr Measure NAVIGATION_ITEM_HEIGHT{40, MeasureKind::Text};
inline constexpr Measure NAVIGATION_SUBITEM_HEIGHT{20, MeasureKind::Text};
inline constexpr Measure NAVIGATION_THIN_HEIGHT{5}; // of a separator or spacer
inline constexpr Measure NAVIGATION_LINE_TOP{2};    // of a separator's line, in its row
inline constexpr Measure NAVIGATION_LINE{1, MeasureKind::Line};
inline constexpr Measure NAVIGATION_HEADER_FONT{12, MeasureKind::Text};
inline constexpr int NAVIGATION_HEADER_WEIGHT = 600;
inline constexpr Measure NAVIGATION_LEVEL_STEP{15};
inline constexpr Measure NAVIGATION_LEFT_MARGIN{10};
inline constexpr Measure NAVIGATION_GLYPH_CELL{25};
inline constexpr Measure NAVIGATION_IMAGE_CELL{20};
inline constexpr Measure NAVIGATION_RIGHT_MARGIN{5}; // behind a glyph at the right

// --- Ribbon
inline constexpr Measure RIBBON_TAB_FONT{14, MeasureKind::Text}; // the heights of the fonts
inline constexpr Measure RIBBON_PAGE_FONT{12, MeasureKind::Text};
inline constexpr Measure RIBBON_TAB_MARGIN{25}; // on each side of a title
inline constexpr Measure RIBBON_TAB_GAP{2};
inline constexpr Measure RIBBON_TAB_TEXT_BOTTOM{24, MeasureKind::Text};
inline constexpr Measure RIBBON_TAB_BASE_LINE{25, MeasureKind::Text};
inline constexpr Measure RIBBON_PAGE_TOP{26, MeasureKind::Text}; // what is above belongs to the tabs
inline constexpr Measure RIBBON_SMALL_IMAGE{16};
inline constexpr Measure RIBBON_LARGE_IMAGE{32};
// The sizes of items and groups.
inline constexpr Measure RIBBON_EMPTY_GROUP_WIDTH{40};
inline constexpr Measure RIBBON_GROUP_MARGINS{10};
inline constexpr Measure RIBBON_ROW_HEIGHT{22, MeasureKind::Text};
inline constexpr Measure RIBBON_COLUMN_HEIGHT{66};
inline constexpr Measure RIBBON_SMALL_WIDTH{22};
inline constexpr Measure RIBBON_MEDIUM_IMAGE_ROOM{22}; // the image with its margins
inline constexpr Measure RIBBON_TEXT_MARGIN{3};
inline constexpr Measure RIBBON_LARGE_TEXT_WIDTH{
    40, MeasureKind::Text}; // up to here a large button's text stays in one line
inline constexpr Measure RIBBON_LARGE_MARGINS{6};
inline constexpr Measure RIBBON_CHECK_MARGINS{11};
// Where items are drawn and hit, from their rectangles.
inline constexpr Measure RIBBON_HIT_OFFSET{4};
inline constexpr Measure RIBBON_FACE_LEFT_TOP{3};
inline constexpr Measure RIBBON_FACE_RIGHT_BOTTOM{5};
inline constexpr Measure RIBBON_CONTENT{7};      // image and text, from the left and the top
inline constexpr Measure RIBBON_MEDIUM_TEXT{26}; // the text beside an image, from the left
inline constexpr Measure RIBBON_LARGE_IMAGE_SHIFT{4};
inline constexpr Measure RIBBON_LARGE_TEXT{10}; // from the top, without an image and under one
inline constexpr Measure RIBBON_LARGE_TEXT_UNDER_IMAGE{42};
inline constexpr Measure RIBBON_LARGE_IMAGE_OVER_LINES{4}; // from the top, where two lines have room under it
inline constexpr Measure RIBBON_LARGE_TEXT_LINES{37};
inline constexpr Measure RIBBON_LARGE_TEXT_SPARE{2}; // on each side
inline constexpr Measure RIBBON_FOCUS_INSET{2};      // of a focus rectangle in an item's face
inline constexpr Measure RIBBON_TAB_FOCUS_INSET{3};
inline constexpr Measure RIBBON_BOX_LEFT{8};
inline constexpr Measure RIBBON_BOX_TOP{5};
inline constexpr Measure RIBBON_BOX_BOTTOM{3}; // beyond the item's
inline constexpr Measure RIBBON_BOX_GAP{3};    // from the box to the text
// A group's line, from the page's top and the window's bottom, and its title, from the bottom.
inline constexpr Measure RIBBON_LINE_TOP{2};
inline constexpr Measure RIBBON_LINE_BOTTOM{4};
inline constexpr Measure RIBBON_TITLE_TOP{22, MeasureKind::Text};
// The value menu.
inline constexpr Measure VALUE_MENU_ROW_HEIGHT{20, MeasureKind::Text};
inline constexpr Measure VALUE_MENU_INDENT{5};

// --- Dialogs
inline constexpr Measure WIZARD_TITLE_LEFT{48};
inline constexpr Measure WIZARD_TITLE_TOP{28};
inline constexpr Measure WIZARD_TITLE_RIGHT{125}; // from the right
inline constexpr Measure WIZARD_TITLE_BOTTOM{50, MeasureKind::Text};
inline constexpr Measure WIZARD_TITLE_GLOW{15};
inline constexpr Measure CERT_HEADER_FONT{16, MeasureKind::Text}; // the height of the font
inline constexpr Measure CERT_HEADER_MARGIN{3};
inline constexpr Measure CERT_HEADER_ROOM{5}; // with less above and below it the header's text has the margin
// In dialog units, which follow the dialog's font.
inline constexpr int DIALOG_BUTTON_WIDTH = 50;
inline constexpr int DIALOG_BUTTON_HEIGHT = 14;
inline constexpr int DIALOG_BUTTON_GAP = 4;
inline constexpr int DIALOG_FOOTER_HEIGHT = 28;
inline constexpr int TASK_DIALOG_WIDTH = 100; // before its texts widen it
inline constexpr int TASK_DIALOG_HEIGHT = 65;
inline constexpr int TASK_DIALOG_ICON = 6; // from the left and the top
inline constexpr int TASK_DIALOG_TEXT_LEFT = 35;
inline constexpr int TASK_DIALOG_TEXT_TOP = 7;
inline constexpr int TASK_DIALOG_TEXT_GAP = 10;
inline constexpr int WIZARD_WIDTH = 400; // before its first page sizes it
inline constexpr int WIZARD_HEIGHT = 300;
inline constexpr int CERT_MARGIN = 7;
inline constexpr int CERT_GAP_X = 5;
inline constexpr int CERT_GAP_Y = 10;
inline constexpr int CERT_HEADER_HEIGHT = 30;
inline constexpr int CERT_HEADER_TEXT_LEFT = 9; // beside the icon
inline constexpr int CERT_SHOW_WIDTH = 80;

} // namespace Metrics

} // namespace gesso
