// GRibbonPage: the content of one ribbon tab, a row of titled groups of items. It is no window: its ribbon
// draws it and hands it the mouse.
//
//     GRibbonPage* pPage = ribbon.GetPage(ID_HOME);
//     pPage->InsertGroup(0, ID_CLIPBOARD, L"Clipboard", 0);
//     UINT uSize = RIS_LARGE << 16;
//     GRibbonPage::ItemInfo info{};
//     info.uType = RIT_BUTTON;
//     info.nId = ID_PASTE;
//     info.nOptions = 1;
//     info.puOptions = &uSize;
//     info.nImage = 0;
//     info.pszText = L"Paste";
//     pPage->InsertItem(ID_CLIPBOARD, 0, &info);
//     ribbon.Invalidate(0);
//
// GRibbon::AddPage makes the page, or takes over one that the host made with new, and owns it until
// RemovePage. Items are measured when they change, with the theme of the ribbon that the page is in: add the
// page first, and its items then. No operation repaints but those of the mouse; the host invalidates the
// ribbon after it has changed a page.
//
// Items stand in columns of up to 66 pixels. Groups follow one another from the left; none shrinks where room
// runs out. Ids are the host's own; where several groups or items have the same, the first one counts. An
// operation on one that is not there does nothing.
//
// Sends to the parent of the ribbon: WM_COMMAND for each click on an item, with the low 16 bits of its id and
// a notification code of 0 in wParam; lParam is 1 for a check box that is now checked, else 0.
#pragma once

#include <gesso/containers/LibraryMemory.h>
#include <gesso/containers/OString.h>
#include <gesso/framework/ControlText.h>
#include <gesso/framework/ThemeHandle.h>
#include <gesso/ribbon/GRibbon.h>
#include <gesso/ribbon/OwnedSet.h>

// Kinds of item.
constexpr UINT RIT_WINDOW = 0;
constexpr UINT RIT_BUTTON = 1;
constexpr UINT RIT_CHECKBOX = 3;

// Flags of an item.
constexpr UINT RIF_CHECKED = 0x1000000;
constexpr UINT RIF_DISABLED = 0x8000000; // looks disabled; no operation of the library sets it

// Sizes of a button, in the high 16 bits of a size option.
constexpr WORD RIS_SMALL = 1;  // 16 by 16 image
constexpr WORD RIS_MEDIUM = 2; // 16 by 16 image and text beside it
constexpr WORD RIS_LARGE = 3;  // 32 by 32 image and text in up to two lines under it

class GESSO_API GRibbonPage : public gesso::LibraryMemory
{
public:
    struct HitTestInfo
    {
        POINTS pt;  // in the ribbon's client area
        UINT group; // index of the group, or RIBBON_NONE
        UINT item;  // index of the group in the high word and of the item in the low one, or RIBBON_NONE
    };

    struct Item
    {
        UINT nId;
        UINT uType;  // RIT_
        UINT uFlags; // RIF_
        WORD wSize;  // RIS_
        WORD wOptions;
        UINT* puOptions; // null with one option or none
        int nImage;      // in the ribbon's image lists, or -1
        LPWSTR pszText;  // null for none
        int nLeft;       // from the group's left
        int nTop;        // in the ribbon
        int nRight;
        int nBottom;
        HWND hwnd; // of a RIT_WINDOW item; the host's
    };

    struct Group
    {
        static constexpr bool RELOCATABLE = true; // in an OArray

        DWORD nId;
        OString<wchar_t> strTitle;
        OArray<Item, Item const&> aItems;
        int nLeft; // in the ribbon
        int nRight;
        UINT uFixedWidth;  // in pixels, of a group for hosted windows, whose items are not drawn; else 0
        UINT nPlacedItems; // so many, from the first on, stand where the layout put them
    };

    // What is told about an item. The pointers that GetItemInfo gives are the page's own, and good until the
    // item changes.
    struct ItemInfo
    {
        UINT uReserved;
        UINT uType; // RIT_BUTTON or RIT_CHECKBOX
        UINT nId;
        union
        {
            int nOptions;  // button: how many size options there are
            BYTE bChecked; // check box: 0 or 1
        };
        union
        {
            const UINT* puOptions; // button: RIS_ << 16 each. The last one counts
            LPCWSTR pszCheckText;  // check box
        };
        int nImage;      // button: in the ribbon's image lists, or -1
        LPCWSTR pszText; // button
    };

    // A page on the heap, for GRibbon::AddPage. The title is copied; null, or no memory, counts as empty.
    GRibbonPage(DWORD dwId, LPCWSTR pszTitle);
    // A copy has groups of its own, but shares the title and the items' texts and options, which stay those
    // of the page that it was copied from, as does the theme.
    GRibbonPage(const GRibbonPage& other) = default;
    GRibbonPage& operator=(const GRibbonPage& other) = default;
    virtual ~GRibbonPage();
    // Destroys and frees the page at p, a GRibbonPage*; null is ignored.
    virtual void Delete(void* p);

    // Called by the ribbon when the page is added and when the ribbon's window is made: takes what the page
    // draws with from the ribbon and opens the theme.
    virtual void Create(GRibbon* pRibbon);
    // Called by the ribbon when its window goes: closes the theme.
    virtual void Destroy();
    // Copies the title; without memory nothing is done. The tab keeps its width: GRibbon::RenamePage sets
    // both.
    virtual void SetTitle(LPCWSTR pszTitle);

    // Inserts an empty group behind the one with dwAfterId: in front for 0, at the end where there is none
    // such. uFixedWidth is 0, or the width in pixels of a group whose room the host uses for its own windows.
    // Returns 1; 0, with nothing done, without memory.
    virtual int InsertGroup(DWORD dwAfterId, DWORD dwId, LPCWSTR pszTitle, UINT uFixedWidth);
    virtual void SetGroupName(DWORD dwId, LPCWSTR pszTitle);
    // Removes a group with its items. Pointers from GetItemInfo stay good until the page goes. Returns 0 if
    // there is no such group, else 1.
    // Fixed behaviour: the groups behind it stay where they are until the next change of an item or
    // RecalcWidth. A host that removes a group to insert another would see its own windows jump twice.
    virtual int RemoveGroup(DWORD dwId);

    // Inserts an item before the one with dwBeforeId, or at the end of the group where there is none such.
    // Texts and options are copied. Without options a button has no size and does not show. Without memory
    // this, SetItemInfo, SetGroupName and AddWindow do nothing.
    virtual void InsertItem(DWORD dwGroupId, DWORD dwBeforeId, ItemInfo* pInfo);
    // Changes an item to what *pInfo says, the id included; nothing where the item is of another type. A null
    // text, and 0 options, leave the former text and size.
    virtual void SetItemInfo(DWORD dwGroupId, DWORD dwItemId, ItemInfo* pInfo);
    // Fills *pInfo, whose uType says which type is expected. For an item of another type only type and id are
    // written. A button with one option tells 0 options.
    virtual void GetItemInfo(DWORD dwGroupId, DWORD dwItemId, ItemInfo* pInfo);
    virtual void RemoveItem(DWORD dwGroupId, DWORD dwItemId);

    // Shows the host's window (a child of the ribbon) and notes it in the group. The host places it itself.
    // In Modern the window shows while the page is the active one; on another page it is hidden until then.
    // One that the host hides while its page is active stays hidden. Arrows come to those with WS_TABSTOP.
    void AddWindow(DWORD dwGroupId, HWND hwnd);
    void AddWindow(DWORD dwGroupId, HWND* phwnd, UINT nCount);

    // Draws the page under the tabs of a ribbon at the origin of a context; nothing without a ribbon's
    // window.
    void Draw(HDC hdc);
    // Says which group and item are at pInfo->pt.
    void HitTest(HitTestInfo* pInfo) const;
    // Measures an item: its right and bottom, from left 0 and the top that it has. Pixels.
    void CalculateItemSize(HDC hdc, Item* pItem) const;
    // Stacks the group's items in columns and sets the group's width, its left being 0.
    void CalculateGroupSize(Group* pGroup) const;
    // Moves the groups to where they follow one another.
    void RecalcWidth();

protected:
    LRESULT OnLButtonDown(WPARAM wKeys, POINTS pt);
    LRESULT OnLButtonUp(WPARAM wKeys, POINTS pt);
    LRESULT OnMouseMove(WPARAM wKeys, POINTS pt);
    LRESULT OnMouseLeave();
    LRESULT OnCaptureChanged(HWND hwndNew);
    // Nothing calls them, and they do nothing.
    LRESULT OnActivate();
    LRESULT OnDeactivate();

    DWORD m_dwId;
    gesso::ControlText m_pszTitle;
    gesso::ThemeHandle m_hTheme;
    HFONT m_hItemFont;
    GRibbon* m_pRibbon = nullptr;
    HWND m_hwndTarget = nullptr; // of the commands
    HBRUSH m_hBrush = nullptr;
    HPEN m_hPen = nullptr;
    HFONT m_hGroupFont = nullptr;
    UINT m_uState = 0;
    OArray<Group, Group const&> m_aGroups;
    OArray<UINT, UINT const&> m_aReserved;
    UINT m_uReserved1 = 0;
    UINT m_uReserved2 = 0;
    HitTestInfo m_press{{0, 0}, RIBBON_NONE, RIBBON_NONE};
    HitTestInfo m_hover{{0, 0}, RIBBON_NONE, RIBBON_NONE};
    UINT m_uHotItem = RIBBON_NONE;

private:
    friend class GRibbon;
    class Watch;
    static void FreeBlock(void* p);
    LPCWSTR Title() const;
    // The ribbon's window; null without one, and where the ribbon is gone.
    HWND RibbonWindow() const;
    void InvalidateRibbon() const;
    void TakeStyle();
    void OnScaling();

    Group* FindGroup(DWORD dwId);
    Item* ItemOfCode(UINT uItem);
    bool TakeInfo(Item& item, const ItemInfo& info);
    void TakeOptions(Item& item, const ItemInfo& info, UINT* puCopy);
    void TakeText(Item& item, LPWSTR pszCopy);
    void Measure(Item& item) const;
    void ChangeHot(UINT uItem);
    void ChangeState(UINT uBits, bool fOn);
    static void ChangeCheck(Item& item, bool fChecked);
    void OnItemsChanged(Group& group, UINT nFirstChanged);
    int StateOf(UINT uItem, const Item& item) const;
    int StateAsItIs(UINT uItem, const Item& item) const;
    void DrawItems(HDC hdc, UINT nGroup) const;
    void Click(UINT uItem);
    void TrackLeave();
    void ForgetPointer();
    bool KeepsHot() const;
    void Settle();

    UINT FocusItem() const;
    UINT NextReachable(UINT uFrom, int nStep) const;
    void ChangeFocusItem(UINT uItem);
    void PressFocusItem();
    void DrawFocusOfWindow(HDC hdc) const;

    bool WindowsFollow() const;
    void UpdateWindows();
    UINT NextWindow(UINT uFrom, bool fShow) const;

    HWND m_hwndRibbon = nullptr;
    gesso::OwnedSet<void*, FreeBlock> m_ownBlocks; // the items' texts and options
};
