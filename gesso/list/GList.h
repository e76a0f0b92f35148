// GList: a list of items with columns, groups, an image list and three views, drawn through the visual
// style's "LISTVIEW", "HEADER" and "BUTTON" classes, with scroll bars of its own.
//
// A host makes a GList (or gets one from CreateControl(GCK_LIST)), calls Create with WS_CHILD | WS_VISIBLE |
// WS_TABSTOP | WS_HSCROLL | WS_VSCROLL in the window style and GLS_ bits in the list style, inserts all of
// its columns and then its items; or names the class "GList" in a dialog template with creation data. Many
// items are best filled between BulkInsertOn and BulkInsertOff.
//
//     list.InsertColumn(0, 0, DT_SINGLELINE | DT_VCENTER, 200, 40, L"Name", 0, LCT_TEXT, nullptr, ...);
//     const UINT item = list.InsertItem(UINT(-1), 0, pFile, 0, L"Readme.txt", 0);
//     list.SetSubItem(item, 1, 0, L"12 KB", 0);
//
// Sends to its parent, as WM_NOTIFY:
//   NM_CLICK       GLISTNOTIFY: a press and a release on the same item; iItem, iSubItem, x, y, uKeyFlags
//   NM_DBLCLK      GLISTNOTIFY: a double click on an item; the same fields
//   NM_KEYDOWN     GLISTNOTIFY: a key, once it is handled; uKeyFlags, vKey
//   LVN_BEGINDRAG  GLISTNOTIFY: the pressed pointer has left its place; iItem
//   LVN_FIRST      NMHDR: a window of the in-place edit lost the focus
//   LVN_BEGINLABELEDITW  GLISTNOTIFY: before an item is renamed; iItem; a non-zero answer refuses it
//   LVN_COLUMNCLICK  GLISTNOTIFY: of a virtual list, a header click asks the host to sort
//   LVN_ENDLABELEDITW    GLISTNOTIFY: after it; iItem, pszText, null where it is dropped; non-zero takes it
//   NM_SETFOCUS, NM_KILLFOCUS  NMHDR
// and, where it was made in Modern, as GLISTNOTIFY:
//   LVN_ITEMCHANGED  what is selected has changed, by the user or a call; iItem, or -1 for several
//   LVN_DELETEITEM   an item is about to go; iItem
//   LVN_COLUMNCLICK  a header click is about to sort; iSubItem, the column; non-zero keeps it from sorting
//   NM_RETURN        Enter; iItem, the cursor
//   NM_RCLICK, NM_RDBLCLK  the right button, the fields of NM_CLICK; non-zero to the first is to ask for no
//   menu
// Answers WM_GETDLGCODE, WM_PRINTCLIENT (PRF_CLIENT, PRF_NONCLIENT), WM_VSCROLL, WM_HSCROLL, WM_MOUSEWHEEL.
//
// Columns, groups, items and sub-items are named by index, from 0. Where nothing else is said, an index past
// the end is a caller's mistake: a setter ignores it, a getter returns 0 or null. Every operation that
// changes what is seen lays out and repaints, if nothing else is said; in Classic none sends a notification.
// A copy of a list shares its records and window and releases nothing; a list that is assigned another
// releases what it had.
//
// Where a program's data needs more memory than there is, an operation does nothing: one that inserts returns
// -1, Sort leaves the order and the arrow, BeginEdit a former edit. A text that can be kept but not prepared
// does not show until it is set again. A copy without memory for its records has none of that kind.
//
// A derived class may override every virtual operation. The list's own calls of SetListStyle, GetColumnCount,
// Sort, ClearSelection and the three RemoveAll... reach the override as well; those that an override is
// likely to answer with a state of its own are not const.
#pragma once

#include <gesso/containers/Index.h>
#include <gesso/containers/OArray.h>
#include <gesso/framework/GWndScroll.h>
#include <gesso/framework/ItemTheme.h>
#include <gesso/framework/ThemeHandle.h>
#include <gesso/list/GListNotify.h>
#include <gesso/list/ListRecords.h>

constexpr DWORD GWS_LISTDRAG = 0x08; // state bit: LVN_BEGINDRAG was sent for this press

// Modifier keys as the list keeps them.
constexpr WORD KEYMOD_CTRL = 2;
constexpr WORD KEYMOD_SHIFT = 4;
static_assert(KEYMOD_CTRL == LVKF_CONTROL && KEYMOD_SHIFT == LVKF_SHIFT);

namespace gesso {

class BlockPool;
class ListGeometry;
class ListLayout;
struct ListInside;
struct ListMeasures;
struct ListCut;
struct ListIndices;
struct ListKept;
struct ListPlace;
struct ShownItems;
struct CellNeeds;
class ListItemTrack;
class ListTextPass;
enum ListGiven : UINT;
struct Measure;
struct ViewAnchor;
struct VirtualList;

// A list's hold on what is Gesso's own of it, made when it is first asked for. A copy has one of its own.
//
// Fixed behaviour: bit 0 of the word says that the pointer is this object's. Programs that were built when
// this was an owner's mark clear the first byte of a copy and take the others over: such a copy has nothing
// either, and would else release what is another's.
class GESSO_API ListInsideHold
{
public:
    ListInsideHold() noexcept = default;
    ListInsideHold(const ListInsideHold&) noexcept {}
    ListInsideHold& operator=(const ListInsideHold& other) noexcept;
    ~ListInsideHold();

    ListInside& operator*() const;
    ListInside* operator->() const { return &**this; }

private:
    void Release() noexcept;

    static constexpr UINT_PTR OWN = 1;
    mutable UINT_PTR m_word = 0;
};

} // namespace gesso

class GESSO_API GList : public GWndScroll
{
public:
    struct HitTestInfo
    {
        POINTS pt;     // in client coordinates
        UINT reserved; // always -1
        UINT item;     // item; of a group's row the group; LHI_HEADER; -1 for nothing
        WORD subItem;  // element of the item's cell; 0xFFFF for none
        WORD part;     // LHP_; 0xFFFF for none
    };

    GList();
    GList(const GList&) = default;
    GList& operator=(const GList& other);
    ~GList() override;

    // Makes the window; position and size in pixels in the parent's client area. The window style is used as
    // it is: WS_CHILD is the caller's to give. Returns the window, or null where it could not be made.
    virtual HWND Create(int x, int y, int cx, int cy, HWND hwndParent, int nId, UINT listStyle,
                        DWORD dwExStyle, DWORD dwStyle);
    // DestroyWindow. Returns 0 without a window.
    virtual int Destroy();
    // The whole window style; repaints. Returns the former style.
    virtual DWORD SetStyle(DWORD dwStyle);
    virtual DWORD GetStyle() const;

    // The view and its options (GLS_), and with it what every item shows, made anew from the columns. Returns
    // the former style; or -1, with the style stored, for the tiles view when no column has a LCF_ flag. In
    // Classic nothing is laid out then; in Modern items show nothing.
    virtual UINT SetListStyle(UINT style);
    virtual UINT GetListStyle() const;

    // The images of the items, which stay the host's; null for none. Neither lays out nor repaints.
    virtual void SetImageList(HIMAGELIST hImageList);
    virtual HIMAGELIST GetImageList() const;
    // The font becomes the list's, which deletes the one it had. Texts stay prepared in the font that they
    // were set in.
    virtual void SetLabelTitleFont(HFONT hFont);
    virtual void SetLabelHeaderFont(HFONT hFont);
    virtual void SetLabelTextFont(HFONT hFont);
    virtual void SetGroupTitleFont(HFONT hFont);
    virtual HFONT GetLabelTitleFont() const;
    virtual HFONT GetLabelHeaderFont() const;
    virtual HFONT GetLabelTextFont() const;
    virtual HFONT GetGroupTitleFont() const;

    // The header's height and the gap below it, in pixels. The room above the first row follows with the next
    // SetListStyle or SetItemHeight.
    virtual UINT GetHeaderHeight() const;
    virtual void SetHeaderHeight(UINT height);
    virtual UINT GetHeaderItemSpacing() const;
    virtual void SetHeaderItemSpacing(UINT spacing);

    // Columns. In Classic they are to stand before the first item is made: an item has as many sub-items as
    // there were columns then, and a column that is inserted or removed moves none of them. In Modern the
    // sub-items go with their columns.

    // `position` past the end appends. `format` is the DT_ format of the column's texts, `cx` and `cxMin` are
    // pixels, `text` is copied (null for none), `image` is kept for the host, `type` is one of the LCT_
    // kinds, `rcFormat` as in ListColumn or null; the callbacks may be null. Returns the column's index.
    virtual UINT InsertColumn(UINT position, UINT flags, UINT format, UINT cx, UINT cxMin, LPCWSTR text,
                              UINT image, int type, const RECT* rcFormat, PFNLISTGROUP fktGroup,
                              PFNLISTSORT fktSort, PFNLISTGET fktGet);
    // Ignored past the end.
    virtual void RemoveColumn(UINT column);
    virtual void RemoveAllColumns();
    virtual UINT GetColumnCount();
    // Fixed behaviour: in Classic format, width and flags reach the cells with the next SetListStyle, texts
    // stay prepared in the format that they were set in, and the header goes on showing the caption that the
    // column was inserted with. A program that stores a column's fields for later use would else see its list
    // change.
    virtual void SetColumnFlags(UINT column, UINT flags);
    virtual void SetColumnFormat(UINT column, UINT format);
    virtual void SetColumnCx(UINT column, UINT cx);
    virtual void SetColumnCxMin(UINT column, UINT cxMin);
    virtual void SetColumnText(UINT column, LPCWSTR text);
    virtual void SetColumnImage(UINT column, UINT image);
    // No repaint.
    virtual void SetColumnFktGroup(UINT column, PFNLISTGROUP fktGroup);
    virtual void SetColumnFktSort(UINT column, PFNLISTSORT fktSort);
    virtual void SetColumnFktGet(UINT column, PFNLISTGET fktGet);
    virtual UINT GetColumnFlags(UINT column) const;
    virtual UINT GetColumnFormat(UINT column) const;
    virtual UINT GetColumnCx(UINT column) const;
    virtual UINT GetColumnCxMin(UINT column) const;
    // Valid until the column's text is set or the column removed.
    virtual LPCWSTR GetColumnText(UINT column) const;
    virtual UINT GetColumnImage(UINT column) const;
    virtual int GetColumnType(UINT column) const;
    // The column's own rectangle, valid as long as the column.
    virtual RECT* GetColumnFormatRect(UINT column);
    virtual PFNLISTGROUP GetColumnFktGroup(UINT column) const;
    virtual PFNLISTSORT GetColumnFktSort(UINT column) const;
    virtual PFNLISTGET GetColumnFktGet(UINT column) const;

    // Groups. They show in the order of insertion, each above the items that carry its id, which must lie in
    // that order too: Sort and Group see to it. Past the end, setters do nothing and getters return -1 or
    // null.

    // Appends a group with a title, copied, in a DT_ format. Returns its index. No layout: Sort, Group or
    // SetListStyle follows; of a virtual list SetGroupItemCount.
    virtual UINT InsertGroup(UINT format, LPCWSTR name, UINT image, UINT group);
    // No layout, and the items keep their ids; a virtual list lays out, and the next group has the items.
    virtual void RemoveGroup(UINT index);
    virtual void RemoveAllGroups();
    virtual UINT GetGroupCount() const;
    virtual void SetGroupFormat(UINT index, UINT format);
    // Added, side by side, to the rectangle in which every group's title is drawn. Null is ignored.
    virtual void SetGroupFormatRect(const RECT* rcFormat);
    // Of every group's row, in pixels.
    virtual void SetGroupHeight(UINT height);
    virtual void SetGroupName(UINT index, LPCWSTR name);
    virtual void SetGroupImage(UINT index, UINT image);
    // No layout.
    virtual void SetGroupGroup(UINT index, UINT group);
    virtual UINT GetGroupFormat(UINT index) const;
    // The list's own rectangle.
    virtual RECT* GetGroupFormatRect();
    virtual UINT GetGroupHeight() const;
    // Valid until the group's name is set or a group removed.
    virtual LPCWSTR GetGroupName(UINT index) const;
    virtual UINT GetGroupImage(UINT index) const;
    virtual UINT GetGroupGroup(UINT index) const;

    // Items.

    // `position` past the end appends. `customData` is the host's, for the callbacks; `state`, `text`
    // (copied, null for none) and `image` are those of the first sub-item. Returns the item's index. In a
    // list with groups Sort or Group is to follow.
    virtual UINT InsertItem(UINT position, UINT group, void* customData, UINT state, LPCWSTR text,
                            UINT image);
    // Ignored past the end. In Classic the cursor and the hot item keep their indices; in Modern they follow
    // their items, and the parent is told before the item goes.
    virtual void RemoveItem(UINT item);
    virtual void RemoveAllItems();
    virtual UINT GetItemCount() const;
    // In pixels. What the view needs at least may make items larger. In Classic what the items show follows
    // with the next SetListStyle.
    virtual void SetItemHeight(UINT height);
    virtual UINT GetItemHeight() const;
    virtual void SetItemWidth(UINT width);
    virtual UINT GetItemWidth() const;
    // No repaint.
    virtual void SetItemCustomData(UINT item, void* customData);
    virtual void SetItemGroup(UINT item, UINT group);
    // Sets the bits of a sub-item that `mask` names to those of `state`.
    virtual void SetItemState(UINT item, UINT subItem, UINT state, UINT mask);
    // The text is copied; null for none. During a bulk fill it is prepared at its end.
    virtual void SetItemText(UINT item, UINT subItem, LPCWSTR text);
    virtual void SetItemImage(UINT item, UINT subItem, UINT image);
    virtual void* GetItemCustomData(UINT item) const;
    virtual UINT GetItemGroup(UINT item) const;
    virtual UINT GetItemState(UINT item, UINT subItem) const;
    // Valid until the text is set or the item removed; of a virtual list until it is next asked or painted.
    virtual LPCWSTR GetItemText(UINT item, UINT subItem) const;
    virtual UINT GetItemImage(UINT item, UINT subItem) const;
    virtual void SetItem(UINT item, UINT group, void* customData);
    // State, text and image of a sub-item together. During a bulk fill it neither prepares the text nor lays
    // out.
    virtual void SetSubItem(UINT item, UINT subItem, UINT state, LPCWSTR text, UINT image);

    // Selection. Past the end, setters do nothing and getters return 0; -1 stands for no item. Setters
    // repaint.
    virtual UINT GetSelectedCount() const;
    virtual void ClearSelection();
    virtual void SetSelected(UINT item, int on);
    // 1 or 0.
    virtual int GetSelected(UINT item) const;
    // Selects this item alone. In Modern the cursor goes there.
    virtual void SetFirstSelectedItemIndex(UINT item);
    // Selects this item besides the others.
    virtual void SetNextSelectedItemIndex(UINT item);
    virtual UINT GetFirstSelectedItemIndex() const;
    // The first one behind `item`; of -1, the first of all.
    virtual UINT GetNextSelectedItemIndex(UINT item) const;
    // What the pointer is over: as HitTestInfo's item and subItem.
    virtual UINT GetHotItem() const;
    virtual WORD GetHotSubItem() const;

    // Orders the items by the sort callback, or by the column's fktSort, or else by its texts, without case,
    // and then by groups; sets the header's arrow. A column that is not there leaves the order. In Classic
    // equal items may change places. An item whose group is none of the groups goes.
    virtual void Sort(UINT column, bool ascending);
    // Removes all groups, gives each item the group that the column's fktGroup answers, which is to insert
    // groups with their index as id, and sorts as before. Column -1 turns grouping off. Items that memory
    // fails to sort stay in their order, and those that do not stand in that of the groups do not show.
    virtual void Group(UINT column, bool);
    virtual void GetCurrentSort(UINT* column, bool* ascending);
    // Does nothing: for a derived class to fill.
    virtual void GetCurrentGroup(UINT* column, bool* ascending);

    // The cell of an item, in the content with the header's room above: the scroll position is the caller's
    // to take off. `subItem` is an element of the item. Empty for an item that has no row.
    virtual void GetItemRect(RECT* rc, UINT item, UINT subItem);

    // In-place editing. The host makes its edit windows, as children of the list, places them by GetItemRect
    // and hands them over; from then on the list counts as focused while one of them is, and LVN_FIRST tells
    // when one loses the focus. The windows stay the host's. EndEdit gives them back, and may be called from
    // that notification.
    virtual void BeginEdit(UINT count, HWND* windows);
    virtual void EndEdit();

    // Between the two, items are neither laid out nor shown, and their texts wait to be prepared until the
    // end, in one go. Ignored on a list that has items.
    void BulkInsertOn();
    void BulkInsertOff();

    // The item that the keyboard starts from: the last one that a key or a click led to, or that was set; -1
    // for none. In Modern it is that item, wherever it goes.
    UINT GetCursorItem() const;
    // -1 takes it away; past the end is ignored. Repaints; neither selects nor scrolls.
    void SetCursorItem(UINT item);
    // Scrolls the rows so that the item shows whole, or its upper end where it is higher than the window; the
    // first item of a group with the group's row, if both fit.
    // Ignored past the end, for an item that has no row, and during a bulk fill.
    void EnsureVisible(UINT item);
    // What orders the items of every column from then on, in the place of the columns' fktSort and of their
    // texts; null for none. `context` goes to each call. Sorts nothing by itself. The function must not
    // change the list.
    void SetSortCallback(PFNLISTCOMPARE compare, void* context);
    // Makes a column as wide as its widest text (of a virtual list, in view) and its caption need, its least
    // width at least. Lays out and repaints.
    void FitColumn(UINT column);
    // Lets the user rename an item, in both behaviours: brings it into view and puts a text field over the
    // text of its first column, with the notifications. A field that is there takes its text first. False for
    // an item that is not there or shows no such text, where the parent refuses, and where there is no
    // window; so it is for a copy.
    bool EditItem(UINT item);

    // A virtual list has no items of its own: it asks each column's fktGet (LGET_) for what is about to show,
    // each cell once, and keeps what it was told of the last few screens. The callback may change the list,
    // and may answer nothing: no text, no image, not checked. In a virtual list what sets, inserts, removes,
    // sorts or groups items is ignored, and InsertItem returns -1; the getters ask; the custom data is null,
    // and GetItemGroup returns -1 for an item behind the last group. Icons have a cell each in both
    // behaviours, as in Modern. A copy of a virtual list is none, and has no items. It ends with its window.

    // Makes the list virtual, with so many items, 4,000,000,000 at the most; its own items go as by
    // RemoveAllItems. Of a list that is virtual already: what is selected below the new count stays, and the
    // groups' counts are forgotten. Lays out and repaints.
    void SetVirtualItems(UINT count);
    bool IsVirtual() const;
    // Back to an empty list of its own items. Ignored for a list that is not virtual, and so are the next
    // four.
    void LeaveVirtual();
    // What is kept of the items from `first` to `last`, which is included, is asked for anew: 0 and -1 for
    // all. Repaints.
    void ItemsChanged(UINT first, UINT last);
    // Items have come in at `first`, unselected, the count for behind the last, or have gone from there. The
    // selection, the cursor and what is in view move along; a cursor whose item went has the next one. The
    // group of `first` grows or shrinks, at a border the later one. Ignored past the end. Lays out, repaints.
    void ItemsInserted(UINT first, UINT count);
    void ItemsRemoved(UINT first, UINT count);
    // How many items belong to a group, by its index: the groups' items come one behind the other, in the
    // order of the groups. Items that no group has stand behind the last one. Lays out and repaints. Ignored
    // past the end.
    void SetGroupItemCount(UINT group, UINT count);

    static ATOM IsolationAwareRegisterClassW();
    static LRESULT CALLBACK WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam);
    // What the windows of an in-place edit run on.
    static LRESULT CALLBACK ListEditProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam);
    static ATOM s_aClass;
    static HCURSOR s_hColumnSizing;

protected:
    // Do nothing: for a derived class to fill.
    void Init(void* pCreateData);
    void CalculateGroup(UINT group);
    void CalculateItem(UINT item);

    // Texts
    // Prepares a text in the fonts of a mode (LTM_): LTM_COLUMN and LTM_CAPTION the text font and, with ":"
    // behind it, the header font; LTM_GROUP only the group title font, as second; LTM_ITEM and LTM_TITLE the
    // text font and the title font. The pair is the caller's, to be given to FreeText; of null it makes
    // nothing.
    ListTextPair* PrepareText(HDC hdc, UINT mode, LPCWSTR text, RECT* rc, UINT format, int lineHeight);
    static void FreeText(void* pair);
    // Draws a pair in rc: LTM_COLUMN and LTM_ITEM first in the text font, LTM_CAPTION second in the header
    // font, LTM_GROUP second in the group title font, LTM_TITLE second in the title font.
    void TextOutW(HDC hdc, UINT mode, void* pair, RECT rc);

    // Layout
    void Calculate();
    // Mends the layout after one item was inserted or changed.
    void CalculateU(UINT item, bool inserted);
    void CalcScrollbars(int contentWidth, int contentHeight, int clientWidth, int clientHeight);

    // Sorting. Neither is stable; both end, and stay inside the array, whatever `compare` answers. Without
    // memory the array is as it was.
    void FastSortItemPtr(ListItem** a, __int64 n, bool ascending, PFNLISTSORT compare);
    void SortAlphabetical(ListItem** a, __int64 n, bool ascending, UINT column);

    // Drawing
    void Draw(HDC hdc);
    void DrawItem(HDC hdc, UINT item, RECT rc);
    void DrawDetailsHeader(HDC hdc, RECT rc);
    void NcDraw(HDC hdc, RECT rc);

    // Fills all but the point.
    void HitTest(HitTestInfo* pInfo) const;

    LRESULT OnNcCreate(const CREATESTRUCTW* pcs);
    LRESULT OnNcDestroy();
    LRESULT OnNcCalcSize(BOOL fValidRects, NCCALCSIZE_PARAMS* pParams);
    LRESULT OnCreate(const CREATESTRUCTW* pcs);
    LRESULT OnDestroy();
    LRESULT OnGetDlgCode(const MSG* pMessage) const;
    // Takes a font that stays the host's. The window procedure routes no message here.
    LRESULT OnSetFont(HFONT hFont, UINT uRedraw);
    LRESULT OnGetFont() const;
    LRESULT OnThemeChanged();
    LRESULT OnEnable(BOOL fEnable);
    LRESULT OnVScroll(UINT code, UINT position, HWND hwndBar);
    LRESULT OnHScroll(UINT code, UINT position, HWND hwndBar);
    LRESULT OnSetFocus(HWND hwndFormer);
    LRESULT OnKillFocus(HWND hwndNew);
    LRESULT OnKeyDown(UINT vk, LPARAM lParam, UINT flags);
    LRESULT OnKeyUp(UINT vk);
    LRESULT OnChar(UINT character);
    LRESULT OnCaptureChanged(HWND hwndNew);
    LRESULT OnLButtonDown(WPARAM keys, POINTS pt);
    LRESULT OnLButtonUp(WPARAM keys, POINTS pt);
    LRESULT OnLButtonDblClk(WPARAM keys, POINTS pt);
    LRESULT OnMouseWheel(UINT keys, int delta, POINTS pt);
    LRESULT OnMouseMove(WPARAM keys, POINTS pt);
    LRESULT OnMouseLeave();
    LRESULT OnSetCursor(HWND hwndUnder, LPARAM lParam);
    LRESULT OnNotify(UINT id, const NMHDR* pHeader);

    UINT listStyle = GLS_DETAILS;
    gesso::ItemTheme themeList;
    gesso::ThemeHandle themeHeader;
    gesso::ThemeHandle themeButton;
    HFONT fontLabelTitle = nullptr;
    HFONT fontLabelHeader = nullptr;
    HFONT fontLabelText = nullptr;
    HFONT fontGroupTitle = nullptr;
    UINT headerArea = 0; // the room above the first row
    UINT headerHeight;
    UINT headerItemSpacing;
    UINT groupHeight;
    UINT itemWidth; // in use; the base is what was asked for
    UINT itemWidthBase;
    UINT itemHeight;
    UINT itemHeightBase;
    int lineHeight;
    UINT itemSpacingX = 0;
    UINT itemSpacingY = 0;
    HIMAGELIST imageList = nullptr;
    OArray<ListColumn*, ListColumn*> columns;
    OArray<ListGroup*, ListGroup*> groups;
    OArray<ListItem*, ListItem*> items;
    HitTestInfo hitPress; // of the last press; all zero between presses
    HitTestInfo hitHot;   // under the pointer
    UINT columnCxAtPress = 0;
    UINT cursorItem = gesso::NO_INDEX;
    UINT shiftAnchor = gesso::NO_INDEX;
    WORD keyMods = 0;                // KEYMOD_ bits, as last seen
    UINT lastItem = gesso::NO_INDEX; // last acted on
    // Fixed behaviour: a Group before any Sort sorts by the first column, descending. Another start would
    // turn the items of every grouped list around.
    UINT sortColumn = 0;
    bool sortAscending = false;
    OArray<stcElementPosition, stcElementPosition const&> elements; // the laid-out rows, in drawing order
    OArray<stcColumnDrawInfo, stcColumnDrawInfo const&> columnDraw; // what every item shows
    RECT rcGroupFormat{};
    UINT contentCx;
    UINT contentCy = 0;
    HWND* editWindows = nullptr; // of an edit in progress, ended by null
    WNDPROC* editProcs = nullptr;
    bool bulkInsert = false;
    // The paint history, which a derived class switches on: record keeps the last bitmaps, replay shows one.
    bool frameRecord = false;
    bool frameReplay = false;
    int frameIndex = 0;
    OArray<stcDrawItem*, stcDrawItem*> frames;

private:
    friend class gesso::Frame;
    friend struct gesso::ListInside;

    class RowPainter;
    // What has changed of a column.
    enum class ListColumnPart
    {
        Place,
        Width,
        Caption,
        Texts
    };

    LRESULT OnMessage(UINT uMsg, WPARAM wParam, LPARAM lParam);
    // What it says of itself to those who do not see it.
    class Access;
    static const gesso::AccessibleSide& Describes();

    void StartAnew();

    // Scaling
    static HFONT MakeFont(int nCharacterHeight, int nWeight);
    bool IsGiven(gesso::ListGiven given) const;
    void NoteGiven(gesso::ListGiven given);
    void TakeMeasures();
    void RenewFont(HFONT& hField, gesso::Measure height, int nWeight, gesso::ListGiven given);
    void RenewFonts();
    void PrepareAll();
    void OnScaling();
    void ShowFirst(UINT row, UINT item);

    // Data
    ListColumn* ColumnFor(UINT column, const char* operation) const;
    ListItem* ItemAt(UINT item) const;
    ListItem* ItemFor(UINT item, const char* operation) const;
    ListSubItem* SubItemFor(UINT item, UINT subItem, const char* operation) const;
    ListGroup* GroupAt(UINT group) const;
    bool AddColumn(UINT position, ListColumn* column);
    bool NameGroup(ListGroup& group, LPCWSTR name);
    bool ReserveRow();
    static ListItem* MakeItem(UINT subItemCount);
    gesso::BlockPool* FillPool() const;
    bool AddItem(UINT position, ListItem* item);
    bool StoreText(ListSubItem& sub, UINT column, LPCWSTR text);
    void PrepareSubItem(ListSubItem& sub, UINT column);
    void PrepareSubItem(gesso::ListTextPass& pass, ListSubItem& sub, UINT column);
    void PrepareColumn(UINT column);
    UINT FormatOf(UINT column) const;
    static void ReleaseColumn(ListColumn* column);
    static void ReleaseGroup(ListGroup* group);
    static void ReleaseItem(ListItem* item);
    void ReleaseColumns();
    void ReleaseGroups();
    void ReleaseItems();
    void ReleaseFrames();
    void ReleaseFonts();
    bool ReleaseAllBut(const GList& other);
    void TakeFields(const GList& other);
    void OpenCellThemes();
    void MakeMissingFonts();
    void ShowColumn(UINT column, ListColumnPart part);
    bool InsertSubItems(UINT position);
    void RemoveSubItems(UINT column);
    void FollowSortColumn(UINT column, bool fInserted);
    bool LeavesToDialog(const MSG* pMessage) const;
    bool TakesForEdit(UINT uMsg, const MSG* pMessage) const;

    // Cells
    UINT HeaderRoom() const;
    UINT ColumnsWidth() const;
    SIZE CheckBoxSize(HDC hdc) const;
    SIZE IconSize() const;
    int TileCaptionWidth(LPCWSTR caption) const;
    void MakeDetailsCell(HDC hdc);
    bool MakeTilesCell(HDC hdc);
    void MakeIconsCell();

    // Layout
    gesso::ListMeasures Measures() const;
    gesso::ListGeometry Geometry() const;
    gesso::ListLayout Layout();
    bool HasExactPlaces() const;
    bool HasExactBars() const;
    UINT RowsWidth() const;
    UINT CellWidth() const;
    int PlaceRows();
    gesso::ListGeometry GeometryAround(UINT item, int64_t reach, gesso::ListCut& cut) const;
    gesso::ListGeometry GeometryInView(UINT item, gesso::ListCut& cut) const;
    SIZE RoomOfBarsAndClient() const;
    LRESULT OnSize(WPARAM wParam, LPARAM lParam);
    void RefreshLayout();
    void ForgetLayout();
    bool SetContentHeight(int rowsEnd);
    void ScrollTo(int nBar, int64_t position);
    void RedrawMoved();
    void RedrawAll();

    // Sorting
    void SetSortState(UINT column, UINT state);
    void ChangeSort(UINT column, bool ascending, UINT state);
    void OrderItems(UINT column, bool ascending);
    UINT GroupIndexOf(UINT id) const;

    // Drawing
    void DrawElements(HDC hdc, const RECT& rcClient);
    RECT MarginsOf(const ListColumn& column) const;
    void DrawGrid(HDC hdc, UINT first, UINT last, POINT shift) const;
    int HeaderState(UINT cell, bool fSorted) const;
    void DrawHeaderPart(HDC hdc, int nPart, int nState, const RECT& rc) const;
    void DrawHeaderCell(HDC hdc, UINT cell, RECT rc, int nBorder) const;
    void KeepFrame(HDC hdc);
    void ReplayFrame();
    LRESULT OnPaint();
    LRESULT OnNcPaint(WPARAM wRegion);
    LRESULT OnPrintClient(HDC hdc, LPARAM lParam);

    // Input
    void Click(const HitTestInfo& hit);
    void ClickHeader(const HitTestInfo& hit, WORD pressedPart);
    UINT ColumnOf(WORD element) const;
    void SizeColumn(int x);
    void StartDrag(POINTS pt);
    LRESULT SendItemNotify(UINT code, const HitTestInfo& hit) const;
    static WORD ModifierKeys();
    void Navigate(UINT vk, bool fIcons);
    void OnSpace();
    UINT PageTarget(bool fDown) const;
    void MoveByPage(UINT target);
    void MoveToEdge(UINT edge);
    void StepForward(UINT target);
    void StepBack(UINT target);
    void Step(UINT target, bool fAway);
    void StepFromNowhere();
    void BringCursorIntoView(UINT vk);
    void EditCursorItem();

    // The mouse of lists made in Modern
    void ModernClick(const HitTestInfo& hit);
    void SelectForMenu(const HitTestInfo& hit);
    LRESULT OnRightButton(UINT uMsg, WPARAM wParam, LPARAM lParam);
    LRESULT OnMouseHWheel(int delta);
    void ScrollByWheel(int nBar, int delta);
    void RenewHot();
    gesso::ListPlace InRows(POINTS pt) const;
    void StartBand(POINTS pt);
    void MoveBand(POINTS pt);
    void ScrollToward(POINTS pt);
    void RenewBand();
    void EndBand();
    bool TakesTimer(WPARAM timer);
    void SelectInBand();
    void DrawBand(HDC hdc) const;

    // The keyboard of lists made in Modern
    LRESULT OnModernKeyDown(UINT vk, UINT flags);
    LRESULT OnTyped(wchar_t character);
    void ModernNavigate(UINT vk);
    template <class TARGET> UINT ByRows(UINT from, int64_t reach, bool fUp, TARGET target) const;
    UINT ModernTarget(UINT vk, UINT from) const;
    UINT MatchByTexts(UINT from) const;
    UINT StartOfKeys() const;
    void MoveTo(UINT target, WORD mods, bool fStep);
    void StepRange(UINT from, UINT target);
    void ModernSpace();
    void SendReturn();
    void BringIntoView(UINT item);

    // What can change of the items: each in one place, where whoever is to hear of it is told.
    void ChangeSelection(UINT a, UINT b, bool on);
    void ChangeCursor(UINT cursor, UINT last);
    void PutCursor(UINT item);
    void ChangeHot(const HitTestInfo& hit);
    void ChangeSubItemState(ListSubItem& sub, UINT state);

    // Selection
    UINT SelectedFrom(UINT item) const;
    void Select(UINT item);
    void SelectNone();
    void SelectOnly(UINT item);
    void SelectOnlyRange(UINT a, UINT b);
    bool TellSelection();

    // Items that change their index, or go
    bool IsHotOnItem() const;
    bool IsPressOnItem() const;
    gesso::ListIndices Indices() const;
    void SetIndices(const gesso::ListIndices& indices);
    bool FollowsItems() const;
    void FollowInsertion(UINT item);
    ListItem* StayingFrom(UINT item) const;
    gesso::ListKept KeepItems() const;
    void FindItems(const gesso::ListKept& kept);
    void RemoveAndTell(UINT first, UINT last);
    bool RemoveItems(UINT first, UINT last, bool fStraysAlone);
    bool MarkGoing(UINT first, UINT last, bool fStraysAlone, UINT depth);
    void TellGoing(UINT first, UINT last, UINT depth);
    void DropGoing(UINT depth);
    bool IsStray(const ListItem& item) const;
    void SelectByMouse(UINT item, WORD mods);
    void InvertItem(UINT item);
    void MoveCursor(UINT item);
    void SetHotItem(UINT item);

    // Editing
    GList* Editor() const;
    WNDPROC EditProcOf(HWND hwnd) const;
    bool IsFocusInside() const;

    // Renaming
    RECT ContentRect(const stcColumnDrawInfo& element, const RECT& rcRow, int border) const;
    const stcColumnDrawInfo* LabelElement() const;
    bool GetLabelRect(UINT item, RECT* rc) const;
    gesso::ListItemTrack Track(UINT item) const;
    UINT IndexOf(const gesso::ListItemTrack& track) const;
    void ShowLabel(UINT item);
    bool BeginRenaming(UINT item);
    static void OnRenamed(HWND hwndList, LPCWSTR text);
    void EndRenaming(LPCWSTR text);
    void EndLostRenaming();
    void PlaceRenaming();
    void ForgetRenaming();

    // Items of the host's
    gesso::VirtualList* Virtual() const;
    gesso::VirtualList& VirtualInStep() const;
    UINT ItemCount() const;
    bool HasItem(UINT item, const char* operation) const;
    bool IsForeign(const char* operation) const;
    bool IsHosts(const char* operation) const;
    bool BecomeVirtual();
    void DropVirtualItems();
    template <class MOVE> void MoveIndices(MOVE move);
    gesso::ViewAnchor AnchorOfView() const;
    void LayOutAround(const gesso::ViewAnchor& anchor);
    UINT GetVirtualGroup(UINT item) const;
    void AskToSort(const HitTestInfo& hit, UINT column, bool ascending);
    UINT MatchByHost(UINT from);

    // Their rows, and the scale of the bar
    int PlaceVirtualRows();
    void CutView() const;
    int64_t Origin() const;
    SCROLLINFO BarInPixels() const;
    void ScaleBar(SCROLLINFO& si, int contentHeight);
    int64_t StoreTop(int64_t position);
    int64_t PlaceOfThumb(UINT position) const;
    void BringVirtualCursorIntoView(bool fForward, UINT gap);

    // What is asked of the host
    UINT SubItemCount() const;
    bool ShowsImage(UINT column) const;
    ListSubItem* KeptCell(UINT item, UINT column) const;
    ListSubItem Answered(UINT item, UINT subItem, UINT bit, const char* operation) const;
    bool Ask(UINT item, UINT column, UINT bits) const;
    bool AskOne(UINT item, UINT column, UINT bit) const;
    gesso::CellNeeds Needs() const;
    gesso::ShownItems ItemsInView() const;
    bool AskForItems(const gesso::ShownItems& shown);
    bool AskForView();
    void PrepareCells(const gesso::ShownItems& shown, const gesso::CellNeeds& needs, bool fTitle);
    void ForgetCells();
    int64_t WidestInView(UINT column, bool fTitle);

    gesso::ListInsideHold m_inside;
};
