// GTree: a tree view, drawn through the visual style's "TREEVIEW" class, with optional images and check boxes
// and scroll bars of its own.
//
// A host makes a GTree (or gets one from CreateControl(GCK_TREE)), calls Create with WS_CHILD | WS_VISIBLE |
// WS_TABSTOP | WS_HSCROLL | WS_VSCROLL, and inserts items; or names the class "GTree" in a dialog template
// with creation data. An item that is marked TIS_HASCHILDREN may be given its children when it is expanded:
//
//     void* pDrive = tree.InsertItem(nullptr, nullptr, L"C:", 0, TIS_HASCHILDREN, nullptr);
//     case TVN_ITEMEXPANDINGW: // of a GLISTNOTIFY
//         if (p->uAction == TVE_EXPAND && tree.GetItemChildCount(p->pItem) == 0) FillFolder(p->pItem);
//
// Sends to its parent, as WM_NOTIFY:
//   NM_CLICK              GLISTNOTIFY: a press and a release on the same row, on its check box, image or
//                         label; or Enter or Space on the selected row, with x and y -1
//   NM_DBLCLK             GLISTNOTIFY: a double click on an image or label; answering 0 toggles the row
//   TVN_ITEMEXPANDINGW    GLISTNOTIFY: before a row expands or collapses (uAction); the result is not read
//   TVN_ITEMEXPANDEDW     GLISTNOTIFY: after it
//   NM_SETFOCUS, NM_KILLFOCUS  NMHDR
//   TVN_GETDISPINFOW      GLISTNOTIFY: a child that SetChildCount has only counted is to show, or is asked
//                         for by a getter: iItem is its index and pItem its parent, null for the root; the
//                         parent fills in pDispInfo
//   TVN_BEGINLABELEDITW   GLISTNOTIFY: before an item is renamed; a non-zero answer refuses it
//   TVN_ENDLABELEDITW     GLISTNOTIFY: after it; pszText, null where it is dropped; non-zero takes it
// and in Modern
//   TVN_SELCHANGEDW       GLISTNOTIFY: another item is selected, or none, by the user or by a call
//   TVN_DELETEITEMW       GLISTNOTIFY: before an item goes, each of a branch
//   NM_RETURN             GLISTNOTIFY: Enter
//   NM_RCLICK, NM_RDBLCLK GLISTNOTIFY: a right click or a double one; where NM_RCLICK is answered by 0,
//                         WM_CONTEXTMENU follows
// Each other GLISTNOTIFY has the row in iItem, -1 in iSubItem, the item's handle in pItem and the modifier
// keys in uKeyFlags. In Classic check boxes change no state by themselves: the host answers NM_CLICK by
// SetItemState with TIS_CHECKED, if it wishes. Answers WM_GETDLGCODE, WM_PRINTCLIENT (PRF_CLIENT,
// PRF_NONCLIENT), WM_VSCROLL, WM_HSCROLL, WM_MOUSEWHEEL.
//
// Items are named by handles, which hold until the item is removed; the root, which is always there, is
// hidden at first and stands above the top items. Where nothing else is said, a handle that is null, or of
// another tree, or of an item that is gone is a caller's mistake: what takes it does nothing, and a getter
// returns 0 or null. In Classic no operation sends a notification but Expand, Collapse, EditLabel, and what
// asks for a child that is only counted. A copy of a tree shares its items and window and has rows of its
// own.
//
// A folder of any length owns no items: SetChildCount says how many children it has, and the tree asks for
// those that it is about to show. So it opens at once, and costs what was shown of it. A getter asks as well,
// and may then be the one in which the host is called.
//
//     tree.SetChildCount(hFolder, 1000000);
//     case TVN_GETDISPINFOW: // of a GLISTNOTIFY
//         p->pDispInfo->text = NameOfRecord(p->iItem); // to live until the host has returned
//
// Where an operation needs more memory than there is, it does nothing: InsertItem returns null, Expand leaves
// the item closed. A copy without memory for its rows has none.
#pragma once

#include <gesso/containers/Index.h>
#include <gesso/framework/GWndScroll.h>
#include <gesso/framework/OwnedHandles.h>
#include <gesso/list/GListNotify.h>
#include <gesso/tree/TreeTheme.h>
#include <gesso/tree/VisibleRows.h>

// State of an item. The bits 8 to 15 are out of reach of the getter and setter.
constexpr UINT TIS_EXPANDED = 0x2;     // its children are among the rows
constexpr UINT TIS_HASCHILDREN = 0x10; // shows the expander also while it has no children
constexpr UINT TIS_CHECKED = 0x10000;  // its check box is ticked

// Tree style.
constexpr UINT GTS_IMAGES = 0x1;         // rows have an image
constexpr UINT GTS_CHECKBOXES = 0x2;     // rows have a check box
constexpr UINT GTS_OWNFONT = 0x40000000; // the font is the host's: set by SetFont, cleared by SetTreeStyle

// Parts of a row, as hit tests answer them.
constexpr WORD THT_NOWHERE = 0; // outside the client area, or no rows
constexpr WORD THT_ROW = 1;     // left of all cells, on an expander that is not there, or below the last row
constexpr WORD THT_EXPANDER = 2;
constexpr WORD THT_CHECKBOX = 3;
constexpr WORD THT_IMAGE = 4;
constexpr WORD THT_LABEL = 5;

namespace gesso {

struct RowPlace;

} // namespace gesso

// One item, owned by its tree; named by its handle.
struct TreeItem : gesso::TreeRecord<TreeItem>
{
    using TreeRecord::TreeRecord;
};

namespace gesso {

// The item of a row in a run, which is made if need be; null without memory.
GESSO_API TreeItem* ItemOfRun(const RowChunk<TreeItem>& chunk, UINT row);

} // namespace gesso

class GESSO_API GTree : public GWndScroll
{
public:
    struct HitTestInfo
    {
        POINTS pt;  // in client coordinates
        UINT nItem; // row, or -1
        WORD nPart; // THT_
    };

    GTree();
    GTree(const GTree& other);
    GTree& operator=(const GTree& other);
    // Releases the items.
    ~GTree() override;

    // Makes the window; position and size in pixels in the parent's client area. The style is used as it is:
    // WS_CHILD is the caller's to give. Returns the window, or null where it could not be made.
    virtual HWND Create(int x, int y, int cx, int cy, HWND hwndParent, int nId, DWORD dwExStyle,
                        DWORD dwStyle);
    // DestroyWindow. Returns 0 without a window.
    virtual int Destroy();

    // Of an item that is in view, with the notifications; repaints. Nothing for an item that is not; in
    // Modern Expand opens what stands above it first, with the notifications.
    virtual void Expand(void* hItem);
    virtual void Collapse(void* hItem);
    // Scrolls until the selected row is in sight; in Modern the given item's, opening what stands above it.
    // Fixed behaviour: whichever item in view is given; trees of hosts that give another one would jump.
    virtual void EnsureVisible(void* hItem);

    // The whole window style; repaints. Returns the former style.
    virtual DWORD SetStyle(DWORD dwStyle);
    virtual DWORD GetStyle() const;
    // The tree style (GTS_), as a whole. Returns the former one; no repaint.
    virtual UINT SetTreeStyle(UINT uStyle);
    virtual UINT GetTreeStyle() const;
    // The font stays the host's as long as GTS_OWNFONT is set. Create puts the style's own in its place. No
    // repaint.
    virtual void SetFont(HFONT hFont);
    virtual HFONT GetFont() const;
    // Of a row, in pixels, 20 at first; repaints.
    virtual void SetItemHeight(UINT nHeight);
    virtual UINT GetItemHeight() const;
    // The images of the items, of which each shows 16 by 16 pixels; they stay the host's. No repaint.
    virtual void SetImageList(HIMAGELIST hImageList);
    virtual HIMAGELIST GetImageList() const;

    virtual void* GetRootItem() const;
    // Makes an item below hParent (null: the root) and behind its child hAfter: null, or no child of it, for
    // the end, and hParent itself for the front. The text is copied; nImage is an index into the image list.
    // Returns the handle, or null for a bad hParent or without memory. Repaints.
    virtual void* InsertItem(void* hParent, void* hAfter, LPCWSTR pszName, UINT nImage, UINT uState,
                             void* pData);
    // Removes an item with all below it; repaints.
    // Fixed behaviour of Classic: a row of it stays where it is, with nothing behind it, until the branch
    // that it stands in is collapsed or all items are removed, and until then the getters answer for it; the
    // rows behind it would move under hosts that count them, or that still ask for the item.
    virtual void RemoveItem(void* hItem);
    virtual void RemoveAllItems();
    // 0 for the top items, -1 for the root.
    virtual int GetItemLevel(void* hItem) const;
    virtual UINT GetItemState(void* hItem) const;
    // Valid until the name changes or the item goes.
    virtual LPCWSTR GetItemName(void* hItem) const;
    virtual UINT GetItemImage(void* hItem) const;
    virtual void* GetItemParent(void* hItem) const;
    virtual UINT GetItemChildCount(void* hItem) const;
    // The child of hParent (null: the root) behind hChild, or its first one for null. Where there is none the
    // result is -1 and not null: callers loop until that value.
    virtual void* GetItemNextChild(void* hParent, void* hChild) const;
    virtual void* GetItemCustomData(void* hItem) const;
    // Clears the bits of uMask, then sets those of uState, which uMask does not limit. In Classic none of the
    // setters repaints; in Modern they show at once, TIS_EXPANDED with the rows.
    virtual void SetItemState(void* hItem, UINT uState, UINT uMask);
    virtual void SetItemName(void* hItem, LPCWSTR pszName);
    virtual void SetItemImage(void* hItem, UINT nImage);
    // Makes an item the last child of another one. In Classic it is for moves within a level: the rows, the
    // item's level and the parent that GetItemParent names stay as they are until the branches are collapsed
    // and expanded. Ignored where hNewParent is below hItem. Repaints.
    virtual void SetItemParent(void* hItem, void* hNewParent);
    virtual void SetItemCustomData(void* hItem, void* pData);
    // Sorts the children by name, capitals and small letters being alike; GetRootItem() for the top items.
    // In Classic meant for items in view whose children are collapsed: the rows behind the item become its
    // children, one after the other, whatever stood there. Repaints.
    virtual void SortChildren(void* hItem);
    // The item of the selected row, null for none; in Modern the selected item, in view or not.
    virtual void* GetSelectedItem() const;
    // Null selects nothing. No scrolling, and in Classic no repaint.
    virtual void SetSelectedItem(void* hItem);
    // Whether the root has a row, the first one. No repaint.
    virtual void SetRootVisible(bool fVisible);

    void Draw(HDC hdc);

    // The item whose row is at a point in client coordinates; null outside of the client area and of all
    // rows.
    void* ItemFromPoint(POINT client) const;
    // Writes where an item's row is, or its label's text alone, in client coordinates; it may be out of
    // sight. False, with nothing written, where the item has no row.
    bool GetItemRect(void* hItem, bool labelOnly, RECT* prc) const;
    // As InsertItem, behind the siblings that the shell's order of names puts in front of it: capitals and
    // small letters are alike, "file 2" comes before "file 10". The siblings are to be in that order already.
    void* InsertSorted(void* hParent, LPCWSTR pszName, UINT nImage, UINT uState, void* pData);
    // Lets the user rename an item: opens what stands above it, brings it into view, and puts a text field
    // over its label, with the notifications. A field that is there takes its text first. False for a bad
    // item, where the parent refuses, and where there is no window; so it is for a copy.
    bool EditLabel(void* hItem);

    // Says that an item (null: the root) has so many children, without making them: the parent is asked for
    // each by TVN_GETDISPINFOW when it first shows. They take the place of the children that the item has,
    // which go as if they were removed; 0 leaves it without any, and as one that can be given them again. A
    // count above 100,000,000 is that. An item that is expanded shows them at once. Such children cannot be
    // inserted, removed, moved or sorted, which stops a debug build; what is below them can. Repaints.
    void SetChildCount(void* hItem, UINT nChildren);
    // The child of an item (null: the root) with an index from 0. One that is only counted is made, and the
    // parent asked for it. Null for a bad index or handle, which is a caller's mistake, without memory, and
    // where the parent, being asked, has done away with it.
    void* GetChildAt(void* hItem, UINT nIndex);

    static ATOM IsolationAwareRegisterClassW();
    static LRESULT CALLBACK WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam);
    static ATOM s_aClass;

protected:
    LRESULT OnNcCreate(const CREATESTRUCTW* pcs);
    LRESULT OnCreate(const CREATESTRUCTW* pcs);
    LRESULT OnDestroy();
    LRESULT OnNcDestroy();
    LRESULT OnNcCalcSize(BOOL fValidRects, NCCALCSIZE_PARAMS* pParams);
    LRESULT OnNcPaint(WPARAM wRegion);
    LRESULT OnPrintClient(HDC hdc, LPARAM lParam);
    LRESULT OnThemeChanged();
    LRESULT OnSetFont(HFONT hFont, UINT uRedraw);
    LRESULT OnGetFont() const;
    LRESULT OnGetDlgCode(const MSG* pMessage) const;
    LRESULT OnEnable(BOOL fEnable);
    LRESULT OnSetFocus(HWND hwndFormer);
    LRESULT OnKillFocus(HWND hwndNew);
    LRESULT OnKeyDown(UINT uKey, UINT nRepeat, UINT uFlags);
    LRESULT OnChar(UINT ch, UINT nRepeat, UINT uFlags);
    LRESULT OnLButtonDown(WPARAM wKeys, POINTS pt);
    LRESULT OnLButtonUp(WPARAM wKeys, POINTS pt);
    LRESULT OnLButtonDblClk(WPARAM wKeys, POINTS pt);
    LRESULT OnMouseMove(WPARAM wKeys, POINTS pt);
    LRESULT OnMouseLeave();
    LRESULT OnCaptureChanged(HWND hwndNew);
    LRESULT OnMouseWheel(UINT uKeys, int nDelta, POINTS pt);
    LRESULT OnVScroll(UINT uCode, UINT nPos, HWND hwndBar);
    LRESULT OnHScroll(UINT uCode, UINT nPos, HWND hwndBar);
    LRESULT OnTreeMessage(UINT uMsg, WPARAM wParam, LPARAM lParam);

    // The first row of an item; -1 for null and for an item that is not in view.
    UINT FindVisibleIndex(TreeItem* item) const;
    void Expand(UINT row);
    void Collapse(UINT row);
    void EnsureVisible(UINT row);
    // Frees an item and all below it.
    void DeleteItem(TreeItem* item);
    // Sets the scroll ranges. The size is what rows would have without bars, in pixels.
    void CalcScrollbars(int cx, int cy);
    // Writes nItem and nPart for pt.
    void HitTest(HitTestInfo* pInfo) const;
    void NcDraw(HDC hdc, RECT rc);

private:
    // Keeps the fields behind it at the places that derived classes have in their own code.
    [[maybe_unused]] void* m_pReserved[3]{};

protected:
    UINT m_uTreeStyle = 0;
    gesso::TreeTheme m_hTheme;
    gesso::ThemeHandle m_hThemeButton;
    HFONT m_hFont = nullptr;
    UINT m_nItemHeight;
    HIMAGELIST m_hImageList = nullptr;
    TreeItem* m_pRoot = nullptr;
    TreeItem* m_pSelected = nullptr;         // also while it is not in view
    gesso::VisibleRows<TreeItem> m_aVisible; // and, behind them, all items
    UINT m_nSelected = gesso::NO_INDEX;
    UINT m_nContentWidth = 0; // of the widest row, in pixels, as of the last expansion or collapse
    HitTestInfo m_hitDown{{0, 0}, gesso::NO_INDEX, THT_NOWHERE};
    HitTestInfo m_hitMove{{0, 0}, gesso::NO_INDEX, THT_NOWHERE};
    ULONGLONG m_ftLastChar = 0; // in 100 nanoseconds: when the type-ahead search got its last character
    wchar_t m_szSearch[8]{};

private:
    friend class gesso::Frame;
    friend struct gesso::TreeActions;
    friend struct gesso::TreeInput;
    using Rules = gesso::TreeRules<GTree>;
    struct Layout;

    LRESULT OnMessage(UINT uMsg, WPARAM wParam, LPARAM lParam);
    // What it says of itself to those who do not see it.
    class Access;
    static const gesso::AccessibleSide& Describes();
    LRESULT OnPaint();
    bool Ask(TreeItem& item);
    bool TakeAnswer(TreeItem& item, const GTREEDISPINFO& info);
    bool AskFor(void* hItem) const;
    bool AskForRow(UINT row);
    bool AskInView();
    bool AskRows(LONG cy);
    bool Widen(TreeItem& item);
    bool WidenRange(bool fSelectedShows);
    bool ShowsWhole(UINT row, LONG cy) const;
    gesso::TreeItems<TreeItem, Rules> Items() const;
    gesso::TreeView<TreeItem, Rules> View();
    void ItemInserted(const TreeItem& item, bool fShown);
    bool RowsChanged();
    bool UpdateScrollbars();

    class TextMeasure;
    int RoomWithBar(int nBar) const;
    void CalcTruePages(int cx, int cy, SCROLLINFO& siH, SCROLLINFO& siV) const;
    void MeasureRows();
    int TextWidth(TreeItem& item) const;
    void TakeFont(HFONT hFont);
    void MakeFont();
    void ReleaseFont();
    void TakeMeasures();
    void OnScaling();
    gesso::RowPlace PlaceOf(UINT row) const;
    RECT RowRect(UINT row, int cx) const;
    UINT RowAt(int y) const;
    UINT SelectableAt(POINTS pt) const;
    UINT SelectableFrom(UINT row, bool fDown) const;
    void DrawRow(HDC hdc, UINT row, RECT rc, bool fFocused) const;
    WORD PartAt(const TreeItem& item, int x) const;

    bool ShowWholeLabel(TreeItem* item);
    bool BeginEdit(TreeItem* item);
    static void OnEditEnded(HWND hwndTree, LPCWSTR pszText);
    void EndEdit(LPCWSTR pszText);
    void EndLostEdit();
    void PlaceEdit();
    void ForgetEdit();

    void Tick(TreeItem& item);
    void ClickRow(UINT row, WORD nPart, POINTS pt);
    void ClickSelected();
    void StepByKey(UINT uKey);
    void StepTo(UINT row);
    void StepToStart();
    void PageUp();
    void PageDown();
    void StepOut();
    void StepIn();
    UINT FindTyped(wchar_t ch);
    bool StartsWith(UINT row, UINT nLength) const;
    UINT FindByPrefix(UINT rowFrom, UINT nLength) const;
    UINT FindByPrefix(UINT row, UINT rowEnd, UINT nLength) const;

    gesso::FontHandle m_hMadeFont; // of the visual style
    UINT m_nPageH = 0;             // the bars' pages as they were given, however they were limited
    UINT m_nPageV = 0;
    bool m_fSizing = false; // in WM_NCCALCSIZE
};
