// GComboBox: a drop-down selector, drawn through the visual style's "COMBOBOX" class.
//
// A host makes a GComboBox (or gets one from CreateControl(GCK_COMBOBOX)) and calls Create with WS_CHILD |
// WS_VISIBLE | WS_TABSTOP and one of the three kinds in the style; or names the class "GComboBox" in a dialog
// template. Dialog code written for the platform's own control runs with it: items are added, found and
// selected by the CB_ messages below, or by the operations of the class.
//
// Sends to its parent: WM_COMMAND with the id and CBN_SELCHANGE when the user selects another item by a key,
// the wheel or a click in the list; in Classic with EN_CHANGE when the user edits the text of GCBS_DROPDOWN,
// in Modern with CBN_EDITUPDATE and CBN_EDITCHANGE, and with CBN_DROPDOWN, CBN_SELENDOK, CBN_SELENDCANCEL,
// CBN_CLOSEUP, CBN_SETFOCUS and CBN_KILLFOCUS; WM_NOTIFY with NM_SETFOCUS and NM_KILLFOCUS; WM_NEXTDLGCTL for
// a Tab that it is given. Programs that change the text or the selection get no notification.
//
// Answers WM_GETTEXT, WM_SETTEXT, WM_GETTEXTLENGTH, WM_GETFONT, WM_SETFONT, WM_GETDLGCODE, WM_PRINTCLIENT and
// CB_ADDSTRING, CB_INSERTSTRING, CB_DELETESTRING, CB_RESETCONTENT, CB_GETCOUNT, CB_GETCURSEL, CB_SETCURSEL,
// CB_GETLBTEXT, CB_GETLBTEXTLEN, CB_FINDSTRING, CB_FINDSTRINGEXACT, CB_SELECTSTRING, CB_GETEDITSEL,
// CB_SETEDITSEL and CB_LIMITTEXT; docs/combobox.md tells how the searches differ, and which others are
// answered in Modern. The remaining CB_ messages up to CB_GETCOMBOBOXINFO answer -1.
//
// In Classic the control runs a message loop of its own while the list is open, in which the program goes on:
// it may change the items, and destroy the control. In Modern the list opens and the call returns.
//
// In Modern the control handles its messages before the protected handlers, and the text of GCBS_DROPDOWN is
// a text field's. m_strText, m_nCaret and m_nAnchor follow that; the handlers of keys, characters and the
// mouse, and ShowCursor, are Classic's.
#pragma once

#include <gesso/containers/OArray.h>
#include <gesso/containers/OStringEx.h>
#include <gesso/framework/GWnd.h>
#include <gesso/framework/ThemeHandle.h>

// The kinds. A style with neither bit has no border and no button, and otherwise acts like GCBS_PLAIN.
constexpr DWORD GCBS_PLAIN = 0x4;        // a border and no button; the arrow keys step through the items
constexpr DWORD GCBS_DROPDOWN = 0x8;     // a text field that the user edits, and a button for the list
constexpr DWORD GCBS_DROPDOWNLIST = 0xC; // a face that shows the selected item; all of it opens the list
constexpr DWORD GCBS_KIND = 0xC;
// In Modern: CB_ADDSTRING, and InsertItem with -1, insert in the order of the texts, as the user's language
// has it. What is there before the window is made, or has another text later, stays where it is.
constexpr DWORD GCBS_SORT = 0x100;

// One item. The control owns the record and its text, and gives no meaning to the other fields.
struct ComboItem
{
    UINT nFlags;
    LPWSTR pszText;
    UINT nImage;
    void* pData;
};

class GComboBoxList;

namespace gesso {
class TextField;
// Deletes the list of a combo box. Fixed behaviour: a host that was built when the public class released its
// list by it would not start without it.
GESSO_API void DeleteComboList(GComboBoxList* pList);
} // namespace gesso

class GESSO_API GComboBox : public GWnd
{
public:
    struct HitTestInfo
    {
        POINTS pt;
        int nPart; // -1 outside, 1 text, 2 button
        UINT nChar;
    };

    GComboBox();
    // A copy shares window, items, selection and list with the control that it was made from, which owns them
    // and must outlive it.
    GComboBox(const GComboBox& other);
    GComboBox& operator=(const GComboBox& other);
    // Frees the items. An open list goes too; the control's own window stays.
    ~GComboBox() override;

    // Makes the window; position and size in pixels in the parent's client area. The style is used as it is:
    // WS_CHILD is the caller's to give. Returns the window, or null where it could not be made.
    virtual HWND Create(int x, int y, int cx, int cy, HWND hwndParent, int nId, DWORD dwStyle,
                        DWORD dwExStyle);
    // DestroyWindow. Returns 0 without a window.
    virtual int Destroy();
    // The whole window style; repaints. Returns the former style.
    virtual DWORD SetStyle(DWORD dwStyle);
    virtual DWORD GetStyle() const;
    // The font stays the host's, and must live as long as the control uses it. No repaint, but of an open
    // list in Modern. Null: the font that the drawing context happens to have.
    virtual void SetFont(HFONT hFont);
    virtual HFONT GetFont() const;
    // The height of the open list in pixels, its frame included; it never exceeds what the items need. 150
    // dialog units of the parent unless it was set before the window was made; in Modern 0 then, which leaves
    // the height to the rows: 30, or CB_SETMINVISIBLE. Without an argument the
    // setter gets, as the first name in the interface has it.
    virtual UINT SetDropdownHeight();
    virtual void SetDropdownHeight(UINT nHeight);
    UINT GetDropdownHeight() { return SetDropdownHeight(); }

    // Copies the text (null counts as empty), puts the caret behind it, in Modern before it, and repaints.
    // The selected item stays. Returns 1, or 0 with nothing done where there is no memory for the text, and
    // in Modern in the kinds without a field, whose text is the selected item's.
    virtual int SetText(LPCWSTR pszText);
    // In characters, without the terminator.
    virtual int GetTextLength() const;
    // *pnLength is the buffer's capacity in characters. With room for the text and its terminator, copies it,
    // sets *pnLength to the length and returns 1; otherwise writes no text, sets *pnLength to the capacity
    // needed and returns 0.
    virtual int GetText(LPWSTR pszBuffer, int* pnLength) const;

    // Inserts a copy of the text before the item nIndex, or at the end where there is no such item; see
    // GCBS_SORT. Returns
    // the index of the new item, or -1 with nothing done where there is no memory for it. In Classic the
    // index of the selected one is left as it is, here and in RemoveItem, and in Modern it goes with its
    // item; none of these operations repaints.
    virtual UINT InsertItem(UINT nIndex, UINT nFlags, LPCWSTR pszText, UINT nImage, void* pData);
    // Returns the number of items left, or -1 for a bad index.
    virtual UINT RemoveItem(UINT nIndex);
    // No item is selected afterwards. The text stays, in Modern in a field alone.
    virtual void RemoveAllItems();
    virtual UINT GetItemCount() const;
    // A bad index gets 0 or null, and is ignored by the setters. The text is valid until the item changes; it
    // stays where there is no memory for another one.
    virtual UINT GetItemFlags(UINT nIndex) const;
    virtual LPCWSTR GetItemText(UINT nIndex) const;
    virtual UINT GetItemImage(UINT nIndex) const;
    virtual void* GetItemCustomData(UINT nIndex) const;
    virtual void SetItemFlags(UINT nIndex, UINT nFlags);
    virtual void SetItemText(UINT nIndex, LPCWSTR pszText);
    virtual void SetItemImage(UINT nIndex, UINT nImage);
    virtual void SetItemCustomData(UINT nIndex, void* pData);

    // Selects an item, shows its text and repaints, without a notification. Returns nIndex; a bad index
    // selects none, empties the text and returns -1. Where there is no memory for the text, nothing is done,
    // by a user's step neither, and -1 returned.
    virtual UINT SetSelected(UINT nIndex);
    // -1 for none. After RemoveItem it may be beyond the items in Classic.
    virtual UINT GetSelected() const;

    // Whether what is typed in the field of GCBS_DROPDOWN is completed to the first item that begins so, with
    // the rest selected. Off at first; nothing in Classic.
    void SetAutoComplete(bool bComplete);

    // SetSelected without a look at the index.
    void Callback(UINT nIndex);

    // Takes the text from a dialog template's creation data; null gives the empty text.
    void Init(void* pCreateData);
    // Draws the control at the origin of a context.
    void Draw(HDC hdc);

    static ATOM IsolationAwareRegisterClassW();
    static LRESULT CALLBACK WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam);
    static ATOM s_aClass;
    static HCURSOR s_hIbeam;

protected:
    LRESULT OnCreate(const CREATESTRUCTW* pcs);
    LRESULT OnDestroy();
    LRESULT OnEnable(BOOL fEnable);
    LRESULT OnSetFocus(HWND hwndFormer);
    LRESULT OnKillFocus(HWND hwndNew);
    LRESULT OnKeyDown(UINT uKey, LPARAM lFlags);
    LRESULT OnChar(wchar_t c, LPARAM lFlags);
    LRESULT OnLButtonDown(WPARAM wKeys, POINTS pt);
    LRESULT OnLButtonUp(WPARAM wKeys, POINTS pt);
    LRESULT OnLButtonDblClk(WPARAM wKeys, POINTS pt);
    LRESULT OnMouseMove(WPARAM wKeys, POINTS pt);
    LRESULT OnMouseWheel(int nDelta);
    LRESULT OnMouseLeave();
    LRESULT OnCaptureChanged(HWND hwndNew);
    LRESULT OnSetCursor(WPARAM wParam, LPARAM lParam);
    LRESULT OnThemeChanged();
    LRESULT OnStyleChanged();
    LRESULT OnSetFont(HFONT hFont, UINT uRedraw);
    LRESULT OnGetFont() const;
    LRESULT OnSetText(LPCWSTR pszText);
    LRESULT OnGetText(UINT nCapacity, LPWSTR pszBuffer) const;
    LRESULT OnGetTextLength() const;
    LRESULT OnGetDlgCode() const;

    // Shows the selected item's text, all of it selected where the user can edit it, or no text without a
    // selected item; repaints, and with bNotify sends CBN_SELCHANGE, last.
    void Update(bool bNotify);
    // Writes and returns the part at pInfo->pt, and for text the character that the point is on.
    int HitTest(HitTestInfo* pInfo) const;
    void ShowCursor();
    void HideCursor();
    // Puts the caret before the character m_nCaret, if there is a caret.
    void UpdateCursorPos();
    // Opens the list; in Classic returns when it is closed. The control may be gone then.
    void ShowDropDown();

    gesso::ThemeHandle m_hTheme;
    HFONT m_hFont = nullptr;
    int m_nTextLimit;
    UINT m_nDropdownHeight = 0; // in pixels; 0 until it is known
    OStringEx<wchar_t> m_strText;
    OArray<ComboItem*, ComboItem*> m_aItems;
    GComboBoxList* m_pList; // also while it has no window

private:
    struct Inside; // what the library keeps for itself
    Inside* m_inside;

protected:
    HitTestInfo m_hitDown;
    HitTestInfo m_hitMove;
    // The ends of the selection in the text, in no order: neither is beyond its length.
    UINT m_nCaret = 0;
    UINT m_nAnchor = 0;
    int m_bCaret = 0; // the platform's caret was made for this control

private:
    friend class gesso::Frame;
    friend class GComboBoxList;
    struct Field;
    struct Layout;
    struct Modern;
    struct Look
    {
        int nBorder, nButton; // states of the parts
    };

    bool m_fOwner = true; // of the items, the list and what is inside

    LRESULT OnMessage(UINT uMsg, WPARAM wParam, LPARAM lParam);
    // What it says of itself to those who do not see it.
    class Access;
    static const gesso::AccessibleSide& Describes();
    void OnScaling();
    bool AnswersContextMenu(LPARAM lParam);
    // Null in Classic.
    Modern* ModernPart() const;
    void StartModern();
    void FollowItem(UINT nIndex, int nDelta);
    void ReleaseAll();
    void Release(ComboItem* pItem) const;
    void ReleaseItems();
    ComboItem* ItemAt(UINT nIndex) const;
    // The same for an operation that is given an index by a host.
    ComboItem* CheckedItem(UINT nIndex, const char* pszOperation) const;
    DWORD Kind() const;
    UINT Selected() const;

    // The one place each where the text, the selected item, the field's selection and the list's being open
    // change.
    template <class EDIT> bool ChangeText(EDIT edit);
    bool ShowText();
    bool ChangeSelection(UINT nIndex);
    void ChangeField(const gesso::TextField& field);
    void ChangeExpansion(bool fOpen);

    LRESULT OnComboMessage(UINT uMsg, WPARAM wParam, LPARAM lParam);
    LRESULT OnGetEditSel(DWORD* pdwStart, DWORD* pdwEnd) const;
    LRESULT OnSetEditSel(UINT nStart, UINT nEnd);
    LRESULT OnLimitText(UINT nLimit);
    LRESULT OnGetLbText(UINT nIndex, LPWSTR pszBuffer) const;
    LRESULT OnGetLbTextLen(UINT nIndex) const;
    template <class MATCHES> UINT Search(UINT nStart, MATCHES matches) const;
    UINT FindString(UINT nStart, LPCWSTR pszSearch) const;
    UINT FindStringExact(UINT nStart, LPCWSTR pszSearch) const;
    LRESULT OnSelectString(UINT nStart, LPCWSTR pszSearch);

    void SelectAllText();
    void PressText(bool fExtend);
    int PartAt(POINTS pt) const;
    UINT CharAt(int x) const;
    void StepThroughItems(UINT uKey);
    void SelectWithin(LONGLONG nIndex);
    void EditByKey(UINT uKey);
    void EditByControlKey(UINT uKey);
    bool MoveByKey(UINT uKey);
    void StepItem(int nStep);
    template <class EDIT> void Edit(EDIT edit);

    bool IsDropped() const;
    Look LookNow() const;
    RECT FieldRect(HDC hdc, int nState) const;
    RECT TextRect(HDC hdc, int nState) const;
    RECT ButtonRect(const RECT& rcClient) const;
    bool IsButtonLeft() const;
    void DrawFrame(HDC hdc, const RECT& rcClient, Look look) const;
    void DrawField(HDC hdc, const RECT& rcText) const;
    void DrawFace(HDC hdc, const RECT& rcText, int nState) const;

    bool RunList();
    void Direct(MSG* pMsg, HWND hwndForeground);
};
