// GNavigationBar: a navigation pane: a tree of rows with section headers, separators, spacers and compact
// rows between them, drawn through the visual style's "TREEVIEW" class.
//
// A host makes a GNavigationBar, calls Create with WS_CHILD | WS_VISIBLE | WS_VSCROLL and GNS_ bits in the
// style, gives it an image list, and inserts rows. The first Create registers the class; a dialog template
// may name it afterwards.
//
//     bar.InsertItem(bar.GetRootItem(), nullptr, L"Mail", 0, NBIK_HEADER, nullptr);
//
// Sends to its parent, as WM_NOTIFY:
//   NM_CLICK              GNAVNOTIFY: a click has selected a row; x, y
//   NM_DBLCLK             GNAVNOTIFY: a double click on a row, its glyph excepted; x, y
//   TVN_ITEMEXPANDINGW    GNAVNOTIFY: before a row expands or collapses (uAction); the result is not read
//   TVN_ITEMEXPANDEDW     GNAVNOTIFY: after it
//   NM_SETFOCUS, NM_KILLFOCUS  NMHDR
// and in Modern TVN_SELCHANGEDW, TVN_DELETEITEMW, NM_RCLICK and NM_RDBLCLK, as a GTree does.
// Each GNAVNOTIFY has the row in iItem, -1 in iSubItem, the item's handle in pItem and the modifier keys in
// uKeyFlags. In Classic the space key sends WM_COMMAND, as a button's click, and no key moves the selection;
// in Modern the arrows, Home and End do, Left and Right close and open, Enter and Space send NM_CLICK.
// Answers WM_GETDLGCODE, WM_PRINTCLIENT (PRF_CLIENT), WM_VSCROLL, WM_MOUSEWHEEL.
//
// Items are named by handles, which hold until the item is removed; the root, which is always there, is never
// shown. Where nothing else is said, a handle that is null, or of another tree, or of an item that is gone is
// a caller's mistake: what takes it does nothing, and a getter returns 0 or null. No operation sends a
// notification but Expand and Collapse. A copy of a bar shares its items and window and has rows of its own.
//
// Where an operation needs more memory than there is, it does nothing: InsertItem returns null, Expand leaves
// the item closed. A copy without memory for its rows has none.
//
// Fixed behaviour of Classic: the scroll range counts every row as high as an item, so that a bar with many
// separators may be scrolled past its end; hosts lay their own things out by that range.
#pragma once

#include <gesso/containers/Index.h>
#include <gesso/framework/GWndScroll.h>
#include <gesso/framework/OwnedHandles.h>
#include <gesso/list/GListNotify.h>
#include <gesso/tree/TreeTheme.h>
#include <gesso/tree/VisibleRows.h>

// State of an item. The bits 8 to 15 are out of reach of the getter and setter.
constexpr UINT NBIS_EXPANDED = 0x1;
constexpr UINT NBIS_HASCHILDREN = 0x10; // shows the glyph without children too, though not in compact rows

// Kind of an item, one value within its state, fixed when it is inserted.
constexpr UINT NBIK_MASK = 0xF00;
constexpr UINT NBIK_ITEM = 0;
constexpr UINT NBIK_HEADER = 0x100;    // bold text, as high as an item, not to be selected
constexpr UINT NBIK_SEPARATOR = 0x200; // a line, 5 pixels high
constexpr UINT NBIK_SPACER = 0x400;    // nothing, 5 pixels high
constexpr UINT NBIK_SUBITEM = 0x800;   // compact, 20 pixels high, its glyph always at the left

// Window style.
constexpr DWORD GNS_GLYPHLEFT = 0x10;    // the glyph stands left of the image, otherwise at the right edge
constexpr DWORD GNS_SINGLEEXPAND = 0x20; // a click that expands a row collapses the first expanded one
constexpr DWORD GNS_NOHOTGLYPH = 0x40;   // a glyph at the right never lights up
constexpr DWORD GNS_CLICKEXPAND = 0x80;  // a click on the row toggles it

// Parts of a row, as hit tests answer them.
constexpr WORD NHT_NOWHERE = 0; // outside the client area, or no rows
constexpr WORD NHT_ROW = 1;     // no part in particular, or below the last row
constexpr WORD NHT_GLYPH = 2;
constexpr WORD NHT_IMAGE = 3;
constexpr WORD NHT_LABEL = 4;

using GNAVNOTIFY = GLISTNOTIFY;

// One row's item, owned by its bar; named by its handle.
struct NavigationBarItem : gesso::TreeRecord<NavigationBarItem>
{
    using TreeRecord::TreeRecord;
};

namespace gesso {

class NavigationRows;
struct RowPlace;

} // namespace gesso

class GESSO_API GNavigationBar : public GWndScroll
{
public:
    struct HitTestInfo
    {
        POINTS pt;  // in client coordinates
        UINT nItem; // row, or -1
        WORD nPart; // NHT_
        WORD wReserved;
    };

    static constexpr HitTestInfo NO_HIT{{0, 0}, gesso::NO_INDEX, 0xFFFF, 0xFFFF};

    GNavigationBar();
    GNavigationBar(const GNavigationBar& other);
    GNavigationBar& operator=(const GNavigationBar& other);
    // Releases the items.
    ~GNavigationBar() override;

    // Makes the window; position and size in pixels in the parent's client area. The style is used as it is:
    // WS_CHILD is the caller's to give. Returns the window, or null where it could not be made.
    virtual HWND Create(int x, int y, int cx, int cy, HWND hwndParent, int nId, DWORD dwExStyle,
                        DWORD dwStyle);
    // DestroyWindow. Returns 0 without a window.
    virtual int Destroy();

    // Of an item that is in view, with the notifications; repaints. Nothing for an item that is not.
    // Fixed behaviour: the selection stays at its row's number, though rows below move; hosts select anew
    // after an expansion, and would find their item selected already, with no repaint.
    virtual void Expand(void* hItem);
    virtual void Collapse(void* hItem);
    // Scrolls until the row would be in sight if all rows were as high as an item; repaints.
    virtual void EnsureVisible(void* hItem);

    // The whole window style; repaints. Returns the former style.
    virtual DWORD SetStyle(DWORD dwStyle);
    virtual DWORD GetStyle() const;
    // The rows' font stays the host's. No repaint.
    virtual void SetFont(HFONT hFont);
    virtual HFONT GetFont() const;
    // Of items and headers, in pixels, 40 at first; repaints.
    virtual void SetItemHeight(UINT nHeight);
    virtual UINT GetItemHeight() const;
    // The images of the items, of which each shows 16 by 16 pixels; they stay the host's. No repaint.
    virtual void SetImageList(HIMAGELIST hImageList);
    virtual HIMAGELIST GetImageList() const;

    virtual void* GetRootItem() const;
    // Makes an item below hParent, GetRootItem() for the top, and behind its child hAfter: null for the
    // front, no child of it for the end. The text is copied, null for none; nImage is an index into the image
    // list; uState holds the kind. Returns the handle, or null for a bad hParent or without memory. Repaints.
    // Fixed behaviour: below an expanded item the row's number is counted from the children alone, so that
    // behind an expanded one it lands in that one's branch, and the selected row keeps its number; the rows
    // of hosts that insert so, and then collapse and expand, would change their order.
    virtual void* InsertItem(void* hParent, void* hAfter, LPCWSTR pszName, UINT nImage, UINT uState,
                             void* pData);
    // Removes an item with all below it; repaints.
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
    // The child of hParent behind hChild, or its first one for null; null at the end.
    virtual void* GetItemNextChild(void* hParent, void* hChild) const;
    virtual void* GetItemCustomData(void* hItem) const;
    // Clears the bits of uMask, then sets those of uState, which uMask does not limit. None of the setters
    // repaints.
    virtual void SetItemState(void* hItem, UINT uState, UINT uMask);
    virtual void SetItemName(void* hItem, LPCWSTR pszName);
    virtual void SetItemImage(void* hItem, UINT nImage);
    virtual void SetItemCustomData(void* hItem, void* pData);
    // Sorts the children by name, capitals and small letters being alike; GetRootItem() for the top. Meant
    // for items whose children are collapsed: the rows behind the item become its children, one after the
    // other, whatever stood there. Repaints.
    virtual void SortChildren(void* hItem);
    // The item of the selected row, null for none.
    virtual void* GetSelectedItem() const;
    // Null selects nothing. Repaints, unless it is the selected item.
    virtual void SetSelectedItem(void* hItem);

    void Draw(HDC hdc);

    static ATOM IsolationAwareRegisterClassW();
    static LRESULT CALLBACK WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam);
    static ATOM s_aClass;

protected:
    LRESULT OnNcCreate(const CREATESTRUCTW* pcs);
    LRESULT OnCreate(const CREATESTRUCTW* pcs);
    LRESULT OnDestroy();
    LRESULT OnNcDestroy();
    LRESULT OnNcPaint(WPARAM wRegion);
    LRESULT OnSize();
    LRESULT OnThemeChanged();
    LRESULT OnSetFont(HFONT hFont, UINT uRedraw);
    LRESULT OnGetFont() const;
    LRESULT OnGetDlgCode() const;
    LRESULT OnEnable(BOOL fEnable);
    LRESULT OnSetFocus(HWND hwndFormer);
    LRESULT OnKillFocus(HWND hwndNew);
    LRESULT OnKeyDown(UINT uKey, LPARAM lParam);
    LRESULT OnKeyUp(UINT uKey, LPARAM lParam);
    LRESULT OnLButtonDown(WPARAM wKeys, POINTS pt);
    LRESULT OnLButtonUp(WPARAM wKeys, POINTS pt);
    LRESULT OnLButtonDblClk(WPARAM wKeys, POINTS pt);
    LRESULT OnMouseMove(WPARAM wKeys, POINTS pt);
    LRESULT OnMouseLeave();
    LRESULT OnCaptureChanged(HWND hwndNew);
    LRESULT OnMouseWheel(UINT uKeys, int nDelta, POINTS pt);
    LRESULT OnVScroll(UINT uCode, UINT nPos, HWND hwndBar);
    LRESULT OnTreeMessage(UINT uMsg, WPARAM wParam, LPARAM lParam);

    // The first row of an item; -1 for null and for an item that is not in view.
    UINT FindVisibleIndex(NavigationBarItem* item) const;
    void Expand(UINT row);
    void Collapse(UINT row);
    void EnsureVisible(UINT row);
    // Frees an item and all below it.
    void DeleteItem(NavigationBarItem* item);
    // Sets the scroll range. The page is in pixels.
    void CalcScrollbars(int nPage);
    // Writes nItem and nPart for pt.
    void HitTest(HitTestInfo* pInfo) const;
    void NcDraw(HDC hdc, RECT rc);

private:
    // Keeps the fields behind it at the places that derived classes have in their own code.
    [[maybe_unused]] void* m_pReserved[3]{};

protected:
    gesso::TreeTheme m_hTheme;
    gesso::FontHandle m_hHeaderFont;
    HFONT m_hFont = nullptr;
    UINT m_nItemHeight;
    HIMAGELIST m_hImageList = nullptr;
    NavigationBarItem* m_pRoot = nullptr;
    NavigationBarItem* m_pSelected = nullptr;
    gesso::VisibleRows<NavigationBarItem> m_aVisible; // and, behind them, all items
    UINT m_nSelected = gesso::NO_INDEX;
    HitTestInfo m_hitDown = NO_HIT;
    HitTestInfo m_hitMove = NO_HIT;

private:
    friend class gesso::Frame;
    friend struct gesso::TreeActions;
    friend struct gesso::TreeInput;
    using Rules = gesso::TreeRules<GNavigationBar>;
    struct Layout;

    LRESULT OnMessage(UINT uMsg, WPARAM wParam, LPARAM lParam);
    // What it says of itself to those who do not see it.
    class Access;
    static const gesso::AccessibleSide& Describes();
    void MakeHeaderFont();
    void TakeMeasures();
    void OnScaling();
    gesso::TreeItems<NavigationBarItem, Rules> Items() const;
    gesso::TreeView<NavigationBarItem, Rules> View();
    void ItemInserted(const NavigationBarItem& item, bool fShown);
    bool RowsChanged();
    bool UpdateScrollbars();

    int LastPixel() const;
    gesso::RowPlace PlaceOf(UINT row) const;
    int PageHeight() const;
    UINT SelectableAt(POINTS pt) const;
    LRESULT KeysWanted(const MSG* pMessage) const;
    LRESULT OnTyped(WPARAM wChar, LPARAM lParam);
    UINT SelectableFrom(UINT row, bool fDown) const;
    void StepTo(UINT row);
    void StepOut();
    void StepIn();

    int LeftOf(const NavigationBarItem& item) const;
    gesso::NavigationRows Rows() const;
    struct Cells;
    Cells CellsOf(const NavigationBarItem& item, int nRight) const;
    bool HasGlyphAtLeft(const NavigationBarItem& item) const;
    WORD PartAt(const NavigationBarItem& item, int x, int nRight) const;
    void DrawRow(HDC hdc, UINT row, const RECT& rc) const;
    void DrawItemRow(HDC hdc, UINT row, const RECT& rc) const;
    void DrawSeparator(HDC hdc, const RECT& rc) const;
    void DrawHeader(HDC hdc, const NavigationBarItem& item, RECT rc) const;
    bool IsGlyphHot(UINT row) const;
    bool ToggleByClick(UINT row, bool fOnGlyph);
    void ClickItem(NavigationBarItem* item, POINTS pt);
    UINT FirstExpanded() const;
};
