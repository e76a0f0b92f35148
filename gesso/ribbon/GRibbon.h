// GRibbon: a strip of tabs, and under it the content of the active one's page.
//
//     GRibbon ribbon;
//     ribbon.AddPage(nullptr, ID_HOME, L"Home");
//     ribbon.Create(0, 0, cx, 118, hwnd, nullptr);
//     GRibbonPage* pHome = ribbon.GetPage(ID_HOME);
//
// A host makes a GRibbon, adds pages before or after it calls Create, and fills the pages (GRibbonPage.h).
// The height is the host's choice: 118 pixels hold the tabs, three rows of items and the groups' titles. A
// window made by the class name "GRibbon", once the class is registered, makes its own ribbon.
//
// The ribbon owns the pages that are in it. Its two image lists may come from a template resource
// (RibbonTemplate.h). A copy shares the window and the pages and owns none of them.
//
// Sends to its parent: WM_COMMAND comes from the pages' items; WM_COMMAND and WM_NOTIFY that hosted windows
// send to the ribbon are passed on. Answers WM_PRINTCLIENT. In Classic that is all: it takes no focus and no
// keys, and tells no change of tab.
//
// In Modern it is a Tab stop. Arrows go over the tabs, which become active, and from there by Down over the
// page's items; Up goes back. Enter and Space press the item, or take the focus into a hosted window, whose
// keys are its own. Ctrl+Page Up and Page Down change the tab, Home and End go to the first and the last. Esc
// gives the focus back to where it was. It sends NM_SETFOCUS, NM_KILLFOCUS, and GRN_TABCHANGED
// (framework/Behavior.h) after each change of the active tab, by the user and by call. Hosted windows show
// while their page does.
#pragma once

#include <gesso/containers/Index.h>
#include <gesso/containers/OArray.h>
#include <gesso/framework/GWnd.h>
#include <gesso/framework/OwnedHandles.h>

class GRibbonPage;

namespace gesso {

struct RibbonInside;

// A ribbon's hold on what is Gesso's own of it, made when it is first asked for. A copy has one of its own,
// with the host's image lists.
//
// Fixed behaviour: the size, and that bit 0 of the word says that the pointer is this object's. Programs that
// were built when a set of pages stood here put an empty one into a copy, whose first word has no such bit.
class GESSO_API RibbonInsideHold
{
public:
    RibbonInsideHold() noexcept = default;
    RibbonInsideHold(const RibbonInsideHold& other);
    RibbonInsideHold& operator=(const RibbonInsideHold& other);
    ~RibbonInsideHold();

    RibbonInside& operator*() const;
    RibbonInside* operator->() const { return &**this; }

private:
    static constexpr UINT_PTR OWN = 1;
    mutable UINT_PTR m_word = 0;
    [[maybe_unused]] UINT_PTR m_room[2]{};
};

} // namespace gesso

// Bits of a tab's status. The others are stored and mean nothing.
constexpr UINT RIBBON_TAB_VISIBLE = 0x1;

// No tab, group or item.
constexpr UINT RIBBON_NONE = gesso::NO_INDEX;

struct RibbonTab
{
    UINT uTextWidth; // of the title, in pixels
    UINT uStatus;
    GRibbonPage* pPage;
};

class GESSO_API GRibbon : public GWnd
{
public:
    GRibbon();
    // With images from a template, named by number or by a text that must live until Create.
    // Fixed behaviour: unlike the default constructor these prepare no font and no colours: text is measured
    // and drawn in the context's own font, and lines and fills are black, unless a subclass sets them.
    // Prepared ones would change the pixels and the tabs' widths of hosts that use them.
    explicit GRibbon(UINT uTemplate);
    explicit GRibbon(LPCWSTR pszTemplate);
    GRibbon(const GRibbon& other) = default;
    GRibbon& operator=(const GRibbon& other) = default;
    // Deletes the pages that are still in the ribbon.
    ~GRibbon() override;

    // Makes the visible child window; position and size in pixels in the parent's client area. The template,
    // if there is one, is looked up in hInstance, null being the program; without it, or where it is missing
    // or malformed, the image lists are empty. Returns the window, or null where it could not be made.
    virtual HWND Create(int x, int y, int cx, int cy, HWND hwndParent, HINSTANCE hInstance);
    // DestroyWindow. The pages stay. Returns 0 without a window.
    virtual int Destroy();
    // Adds a visible tab behind the others, and repaints. A given page, from new, belongs to the ribbon from
    // now on; an id other than 0 becomes its id. Without a page, MakePage makes one with the id and the
    // title. Returns the tab's index, or RIBBON_NONE where MakePage made no page, and without memory, when a
    // given page stays the caller's. Fixed behaviour: with a
    // page, a title only sets the tab's width, and the page keeps its own; a host that asks for room this way
    // would find its tabs renamed.
    virtual UINT AddPage(GRibbonPage* pPage, DWORD dwId, LPCWSTR pszTitle);
    // Takes the page out and repaints; it belongs to the caller again, who deletes it. A page that is not in
    // the ribbon is ignored. In Classic the active tab keeps its number: the next page shows where the active
    // one goes, or the last where none is left behind it. In Modern the active page stays active; where it is
    // the one that goes, none is, until SetActive, and the page's hosted windows are hidden.
    virtual void RemovePage(GRibbonPage* pPage);
    // Sets the page's title and the width of its tab; nothing without memory. Does not repaint.
    virtual void RenamePage(GRibbonPage* pPage, LPCWSTR pszTitle);
    // Makes the page for AddPage; a subclass may supply its own kind. Null without memory.
    virtual GRibbonPage* MakePage(DWORD dwId, LPCWSTR pszTitle);
    // The first page with that id, or null.
    virtual GRibbonPage* GetPage(DWORD dwId);

    // Makes a tab active and repaints. An index beyond the tabs shows no page. In Modern the parent is told.
    void SetActive(UINT nIndex);
    // Shows (RIBBON_TAB_VISIBLE) or hides (0) a tab and repaints. Where the active one is hidden, the next
    // visible one becomes active, or else the nearest one before it, or else the first, though hidden. An
    // index beyond the tabs is ignored.
    void SetStatus(UINT nIndex, UINT uStatus);
    // What pages draw with; the handles stay the ribbon's. Null before the window is made.
    void GetPageDrawInfo(HBRUSH* phBrush, HPEN* phPen, HFONT* phFont) const;
    // The images that items are drawn with, instead of the ribbon's own; null goes back to these. Large ones
    // are drawn 32 pixels wide and high, small ones 16. They stay the host's, who destroys them when the
    // ribbon has gone or has others. Before or after Create; repaints.
    void SetImageLists(HIMAGELIST hLarge, HIMAGELIST hSmall);

    // Draws the ribbon at the origin of a context.
    void Draw(HDC hdc);

    static ATOM IsolationAwareRegisterClassW();
    static LRESULT CALLBACK WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam);
    static ATOM s_aClass;

protected:
    // Does nothing.
    void Init(void* pCreateData);
    LRESULT OnCreate(const CREATESTRUCTW* pcs);
    LRESULT OnDestroy();
    LRESULT OnWindowPosChanged();
    LRESULT OnCaptureChanged(HWND hwndNew);
    LRESULT OnLButtonDown(WPARAM wKeys, POINTS pt);
    LRESULT OnLButtonUp(WPARAM wKeys, POINTS pt);
    LRESULT OnMouseMove(WPARAM wKeys, POINTS pt);
    LRESULT OnMouseLeave();
    // The index of the tab at a point of the client area, or RIBBON_NONE.
    UINT HitTest(POINTS pt) const;

    ULONG_PTR m_template = 0; // a resource's number or name; 0 for none
    gesso::FontHandle m_hTabFont;
    COLORREF m_crActiveLine = 0;
    gesso::PenHandle m_hActivePen;
    COLORREF m_crActiveFill = 0;
    gesso::BrushHandle m_hActiveBrush;
    COLORREF m_crHotLine = 0;
    gesso::PenHandle m_hHotPen;
    COLORREF m_crHotFill = 0;
    gesso::BrushHandle m_hHotBrush;
    COLORREF m_crPageLine = 0;
    gesso::PenHandle m_hPagePen;
    gesso::FontHandle m_hPageFont;
    OArray<RibbonTab, RibbonTab const&> m_aTabs;
    UINT m_nActive = 0;
    UINT m_nHot = RIBBON_NONE;
    gesso::ImageListHandle m_hLargeImages;
    gesso::ImageListHandle m_hSmallImages;

private:
    friend class gesso::Frame;
    friend struct gesso::RibbonInside;
    friend class GRibbonPage;
    LRESULT OnMessage(UINT uMsg, WPARAM wParam, LPARAM lParam);
    // What it says of itself to those who do not see it.
    class Access;
    static const gesso::AccessibleSide& Describes();
    LRESULT OnMouseMessage(UINT uMsg, WPARAM wParam, LPARAM lParam);
    LRESULT OnKeyboardMessage(UINT uMsg, WPARAM wParam, LPARAM lParam);
    LRESULT PassToParent(UINT uMsg, WPARAM wParam, LPARAM lParam) const;
    LRESULT OnThemeChanged();
    void OnScaling();
    bool HasImages() const { return LargeImages() || SmallImages(); }
    void MakeMissingTools();
    void ReleaseTools();
    void TakeMissingImages(HINSTANCE hInstance);
    static void DeletePage(GRibbonPage* pPage);
    void ChangeActive(UINT nIndex);
    void TurnPages(GRibbonPage* pFormer);
    void OnPageRemoved(GRibbonPage* pPage, UINT nIndex);
    void ChangeHot(UINT nIndex);
    bool IsVisible(UINT nIndex) const;
    UINT IndexOf(const GRibbonPage* pPage) const;
    GRibbonPage* ActivePage() const;
    HIMAGELIST LargeImages() const;
    HIMAGELIST SmallImages() const;
    UINT MeasureTitle(LPCWSTR pszTitle) const;
    UINT TabToShowInsteadOf(UINT nIndex) const;
    template <class VISIT> void VisitTabs(VISIT visit) const;
    void DrawTab(HDC hdc, UINT nIndex, int nLeft, int nRight, int nClientRight) const;
    void DrawActiveTab(HDC hdc, int nLeft, int nRight, int nClientRight) const;
    void DrawHotTab(HDC hdc, int nLeft, int nRight) const;
    COLORREF ColorOfPageLine() const;

    bool ShowsFocus() const;
    UINT FocusTab() const;
    UINT FocusItem() const;
    HWND WindowBefore() const;
    LRESULT OnGetDlgCode(const MSG* pMessage) const;
    bool IsElsewhere(HWND hwnd) const;
    LRESULT OnSetFocus(HWND hwndFormer);
    LRESULT OnKeyDown(UINT uKey, bool fRepeated);
    void StepTab(UINT nFrom, int nStep);
    void StepItem(UINT uFrom, int nStep);
    void StepOnLevel(int nStep, bool fFromEnd);
    void LeaveItems();
    void PressFocusItem();

    gesso::RibbonInsideHold m_inside;
};
