// The records that GList keeps, and the values of their fields. A host names columns, groups and items by
// their index; a class derived from GList sees the records themselves. GList owns them.
#pragma once

#include <gesso/containers/OArray.h>
#include <gesso/containers/OString.h>

class GList;

// List style (GList::SetListStyle). The view is one value, the rest are bits.
constexpr UINT GLS_VIEWMASK = 0xF;
constexpr UINT GLS_DETAILS = 1;          // one row an item, one cell a column
constexpr UINT GLS_TILES = 2;            // one block an item, each chosen column at its own place in it
constexpr UINT GLS_ICONS = 3;            // check slot, image and one centred line of text
constexpr UINT GLS_GRIDLINES = 0x10;     // lines around the cells
constexpr UINT GLS_HEADER = 0x300;       // the header is on if either bit is set
constexpr UINT GLS_CHECKBOXES = 0x800;   // the first element of each item is a check box
constexpr UINT GLS_OWNFONT = 0x40000000; // the text font is the host's: set by the list, not by a host

// Flags of a column.
constexpr UINT LCF_TILELINE = 0x10000;    // shows in the tiles view
constexpr UINT LCF_TILECAPTION = 0x20000; // shows in the tiles view behind its caption

// State of a column, set by sorting: the arrow that its header shows.
constexpr UINT LCS_SORTUP = 0x10;
constexpr UINT LCS_SORTDOWN = 0x20;

// What a cell of a column shows.
constexpr int LCT_TEXT = 1;
constexpr int LCT_IMAGE = 2;
constexpr int LCT_IMAGETEXT = 3;
constexpr int LCT_TITLE = 0x10; // the text in the title font
// What the other elements of an item show.
constexpr int LCT_ICONTEXT = 0x100;
constexpr int LCT_ICONIMAGE = 0x200;
constexpr int LCT_CHECKSLOT = 0x400;
constexpr int LCT_CAPTION = 0x8000;

// What a prepared text is for: mode of GList::PrepareText and TextOutW.
constexpr UINT LTM_COLUMN = 1;  // a header's caption
constexpr UINT LTM_CAPTION = 2; // a column's caption before its value, with a colon
constexpr UINT LTM_GROUP = 3;   // a group's title
constexpr UINT LTM_ITEM = 4;    // an item's text
constexpr UINT LTM_TITLE = 5;   // an item's text in the title font

constexpr UINT LIS_SELECTED = 0x2; // state of an item

// State of the first sub-item: the check mark. All other bits of sub-items are the host's.
constexpr UINT LSIS_CHECKED = 0x10000;

// Kinds of laid-out rows.
constexpr UINT LET_GROUP = 1;
constexpr UINT LET_ITEM = 2;

// GList::HitTestInfo: what stands for an item in the header, and the parts.
constexpr UINT LHI_HEADER = static_cast<UINT>(-2);
constexpr WORD LHP_BODY = 0;
constexpr WORD LHP_CHECKBOX = 1;
constexpr WORD LHP_DIVIDER = 2;

// The group that an item belongs to, by its custom data; may call InsertGroup.
using PFNLISTGROUP = UINT (*)(GList* pList, void* customData);
// Negative, 0 or positive, as the first is less than, equal to or greater than the second.
using PFNLISTSORT = int (*)(void* customData1, void* customData2);
// The same of any column, by the custom data of two items and what was given with the function.
using PFNLISTCOMPARE = int (*)(const GList* pList, UINT column, void* customData1, void* customData2,
                               void* context);
// What a virtual list asks a column for (LGET_): `item` is the item's index, `column` the column's. Of a list
// that owns its items it is kept for the host's own use.
using PFNLISTGET = void (*)(GList* pList, UINT item, UINT column, UINT what, void* answer);

// What a virtual list asks, and what the answer is written to.
constexpr UINT LGET_TEXT = 1;  // LPCWSTR*: the cell's text, the host's, which lives until the next question
constexpr UINT LGET_IMAGE = 2; // UINT*: index into the image list; of columns that show an image
constexpr UINT LGET_STATE = 3; // UINT*: LSIS_CHECKED or 0; of column 0
constexpr UINT LGET_MATCH = 4; // GLISTMATCH*: the item that typed characters lead to; of column 0, item -1

struct GLISTMATCH
{
    LPCWSTR text; // in lower case
    UINT from;    // the item to look at first; the search goes on around the end
    UINT found;   // in: -1; left so where no item's text begins so, or the host does not search
};

// A text prepared in two fonts, as handles of CDrawText: null where none was made.
struct ListTextPair
{
    void* first;
    void* second;
};

struct ListColumn
{
    UINT flags;
    UINT state;
    UINT format; // DT_ format of the column's texts
    UINT cx;     // pixels
    UINT cxMin;  // the least width that the mouse gives it
    LPWSTR text;
    ListTextPair* prepared; // the caption in the text font, and with a colon behind it in the header font
    UINT image;
    int type;
    RECT rcFormat; // margins of a cell, -1 for the usual 2; in the tiles view the place in the block
    PFNLISTGROUP fktGroup;
    PFNLISTSORT fktSort;
    PFNLISTGET fktGet;
};

struct ListGroup
{
    UINT format; // DT_ format of the title
    UINT image;
    UINT group; // the id that items carry
    OString<wchar_t> name;
    ListTextPair* prepared; // second: the title in the group title font
};

struct ListSubItem
{
    UINT state;
    UINT image;             // in the list's image list
    LPWSTR text;            // may be null
    ListTextPair* prepared; // in the text font and in the title font; null without a text
};

// One heap block with the sub-items behind it: as many as there were columns when the item was made.
struct ListItem
{
    UINT state;
    UINT group;       // id of the group; its index once GList::Group has run
    void* customData; // the host's
    RECT rcItem;      // where the keyboard takes the item to be; painting and hits go by the laid-out rows
    UINT column;      // always 0
    UINT row;
    UINT subItemCount;

    ListSubItem* SubItems() { return reinterpret_cast<ListSubItem*>(this + 1); }
    // Null where the item has no such sub-item.
    ListSubItem* SubItem(UINT subItem) { return subItem < subItemCount ? SubItems() + subItem : nullptr; }
};
static_assert(sizeof(ListItem) % alignof(ListSubItem) == 0);

// One laid-out row.
struct stcElementPosition
{
    UINT type;  // LET_GROUP or LET_ITEM
    UINT index; // of the group or item
    RECT rect;  // in the content: 0 is the top of the first row below the header
};

// One element of what every item shows.
struct stcColumnDrawInfo
{
    int type; // LCT_
    UINT column;
    UINT format; // DT_ format
    UINT reserved;
    RECT rect; // from the top left of the item's row
};

// The entries of the paint history are bitmap handles, passed around under this type.
struct stcDrawItem
{};

GESSO_DECLARE_ARRAY(stcElementPosition, stcElementPosition const&)
GESSO_DECLARE_ARRAY(stcColumnDrawInfo, stcColumnDrawInfo const&)
