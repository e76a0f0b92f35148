// GComboBoxList: the window of a combo box's open list, made by the combo box for each opening. It draws its
// rows itself, and changes the combo box as the user moves through it. Hosts have no need to name it.
#pragma once

#include <gesso/containers/Index.h>
#include <gesso/edit/GComboBox.h>
#include <gesso/framework/GWndScroll.h>
#include <gesso/framework/ItemTheme.h>

namespace gesso {
struct Placement;
} // namespace gesso

class GESSO_API GComboBoxList : public GWndScroll
{
public:
    GComboBoxList();
    GComboBoxList(const GComboBoxList&) = default;
    GComboBoxList& operator=(const GComboBoxList&) = default;
    // Destroys the window.
    ~GComboBoxList() override;

    // Draws the rows in view at the origin of a context.
    void Draw(HDC hdc);

    static LRESULT CALLBACK WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam);

protected:
    struct PressInfo
    {
        POINTS pt;
        UINT nItem;
        UINT nKeys; // 2 for Ctrl, 4 for Shift
    };
    struct HoverInfo
    {
        POINTS pt;
        UINT nItem;
    };

    LRESULT OnNcCreate(const CREATESTRUCTW* pcs);
    LRESULT OnNcDestroy();
    LRESULT OnNcCalcSize(BOOL fValidRects, NCCALCSIZE_PARAMS* pParams);
    LRESULT OnNcPaint(WPARAM wRegion);
    LRESULT OnNcLButtonDown(UINT uHit, POINTS ptScreen);
    LRESULT OnNcMouseMove(UINT uHit, POINTS ptScreen);
    LRESULT OnNcMouseLeave();
    LRESULT OnKeyDown(UINT uKey);
    LRESULT OnLButtonDown(WPARAM wKeys, POINTS pt);
    LRESULT OnLButtonUp(WPARAM wKeys, POINTS pt);
    LRESULT OnMouseMove(WPARAM wKeys, POINTS pt);
    LRESULT OnMouseWheel(int nDelta);
    LRESULT OnVScroll(WORD wCode, WORD wPos);
    LRESULT OnPrintClient(HDC hdc, LPARAM lParam);
    LRESULT OnThemeChanged();

    HWND m_hwndOwner = nullptr;
    gesso::ThemeHandle m_hComboTheme;
    gesso::ItemTheme m_hListTheme;
    HFONT m_hFont = nullptr;
    UINT m_nItemHeight = 0; // in pixels; 0 until the list is opened
    GComboBox* m_pOwner = nullptr;
    OArray<ComboItem*, ComboItem*>* m_pItems = nullptr; // the owner's
    PressInfo m_hitDown{};
    HoverInfo m_hitMove{};
    // The owner's selected item, also while the list is closed; -1 for none. It may be beyond the items.
    UINT m_nSelected = gesso::NO_INDEX;
    UINT m_nHot = gesso::NO_INDEX;

private:
    friend class gesso::Frame;
    friend class GComboBox;

    LRESULT OnMessage(UINT uMsg, WPARAM wParam, LPARAM lParam);
    // What it says of itself to those who do not see it.
    class Access;
    static const gesso::AccessibleSide& Describes();

    bool IsOpen() const;
    // Makes the window, hidden; false where it could not be made.
    bool Make(HWND hwndOwner, HFONT hFont, const gesso::Placement& place);
    // Makes and shows the window below the owner's, no higher than the items need.
    void Open(HWND hwndOwner, HFONT hFont, UINT nHeight);
    void Close();
    // Turns a message for another window into one for this list, if it is the user's input.
    void Redirect(MSG* pMsg) const;

    int ItemHeight() const;
    int ItemCount() const;
    LONGLONG RowsHeight() const;
    bool IsRow(UINT nItem) const;
    void ShrinkToItems();
    void TakeRowHeight();
    void OnScaling();
    void SetUpScrolling(int nPage);
    SIZE FrameSize() const;
    bool IsOverBar(POINTS ptScreen) const;
    POINTS BarPoint(POINTS ptScreen) const;
    // Of the client area.
    RECT RowRect(UINT nItem, int cx) const;
    UINT RowAt(int y) const;
    UINT HitTest(POINTS pt) const;
    void ChangeHot(UINT nItem);
    void MoveBy(int nRows);
    void ShowRow(UINT nItem);
    void ScrollTo(LONGLONG nPos);
    void Pick(UINT nItem);
    int ThumbPos(WORD wPos) const;
    void DrawRow(HDC hdc, UINT nItem, const RECT& rc) const;
    void NcDraw(HDC hdc, const RECT& rcWindow);
};
