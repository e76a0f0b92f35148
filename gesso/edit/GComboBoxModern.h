// What a combo box that was made in Modern does otherwise than the rest of its sources tell: its text field,
// its keys, the open list, the notifications, and the platform's messages.
//
// Made with the window, and gone with it. The parent may do anything when it is told, ending this object
// included: what tells does so last, or holds a Lifeline.
#pragma once

#include <gesso/edit/ComboText.h>
#include <gesso/edit/EditorSite.h>
#include <gesso/edit/GComboBoxInside.h>
#include <gesso/edit/TextEditor.h>
#include <gesso/framework/ControlText.h>
#include <gesso/framework/Lifeline.h>
#include <gesso/framework/TypeAhead.h>

struct GComboBox::Modern final : private gesso::EditorSite
{
    explicit Modern(GComboBox& combo);
    ~Modern();
    Modern(const Modern&) = delete;
    Modern& operator=(const Modern&) = delete;

    // False for a message that is answered as in Classic. Otherwise the control may be gone.
    bool OnMessage(UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT* plAnswer);
    // The same of the open list's window.
    bool OnListMessage(UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT* plAnswer);

    bool HasList() const;
    bool HasField() const;
    void Open();
    // What a user does who chooses an item, in the open list or by the keys; and who types over the whole
    // text of the field. The control may be gone afterwards.
    void PickItem(UINT nIndex);
    bool TypeOver(LPCWSTR psz);
    // The control's text is another one: the field shows it. False, with the former text back, without
    // memory.
    bool TakeText();
    // The program has selected an item, or changed the items.
    void OnSelected();
    void OnItemsChanged(UINT nIndex, int nDelta);
    void Reflow();
    void OnFont();
    // The kinds without a field have no text but the selected item's.
    void ShowItem();

    void DrawField(HDC hdc);
    // In a face without an item.
    void DrawCue(HDC hdc, const RECT& rcText);
    gesso::ComboTexts& Texts() { return m_texts; }
    UINT CharAt(POINTS pt);
    // The open list's rows and place, where anything that they depend on has changed.
    void ArrangeIfOpen();

private:
    enum class Phase
    {
        Closed,
        Opening, // while the parent is told
        Open,
        Closing
    };
    // What a list stays open for.
    struct Place
    {
        RECT rcControl;
        HWND hwndForeground;
        bool fShown;
        bool fEnabled;
    };

    // --- The control as a TextEditor's window
    const GWnd& Window() const override { return m_combo; }
    HFONT Font() const override { return m_combo.m_hFont; }
    DWORD EditStyle() const override;
    RECT TextRect() const override;
    LRESULT Tell(UINT uCode) override;
    void SetRange(int, int, UINT, int) override {}
    bool HasRoomFor(UINT nLength) override;
    bool TakesDropAt(POINT pt) const override;

    // --- Messages
    gesso::Lifeline Life() const { return gesso::Lifeline(static_cast<const void*>(this)); }
    bool OnWindowMessage(UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT* plAnswer);
    bool OnStyle();
    bool OnFocus(UINT uMsg, WPARAM wParam, LPARAM lParam);
    LRESULT DlgCode(const MSG* pMsg) const;
    LRESULT SetText(LPCWSTR psz);
    bool EndPress();
    bool OnPress(POINTS pt);
    void OnWheel(int nDelta);
    bool OnComboMessage(UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT* plAnswer);
    bool OnListQuery(UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT* plAnswer);
    bool OnItemQuery(UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT* plAnswer);
    bool OnFieldQuery(UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT* plAnswer);
    // False where the control is gone.
    bool Report(UINT uCode);

    // --- Keys
    bool OnKey(UINT uMsg, WPARAM wParam);
    bool OnKeyDown(UINT uKey);
    bool OnChar(wchar_t c);
    bool StepByKey(UINT uKey);
    LONGLONG StepTarget(int nRows) const;
    void StepBy(int nRows);
    void StepTo(UINT nIndex);
    bool KeepFormer();
    int PageRows();

    // --- The field
    bool OnFieldMessage(UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT* plAnswer);
    bool OnTyped(UINT uMsg, WPARAM wParam, LPARAM lParam, LRESULT* plAnswer);
    void OnEdited();
    bool IsDragging() const { return HasField() && m_editor.IsDragging(); }
    void SetLimit();
    bool IsPointerOnText() const;
    void CompleteText();
    void CopyText();
    void CopySelection();
    UINT TextLength() const { return m_editor.Text().Length(); }
    // The item that the text of the field leads to.
    UINT MatchOfText() const;

    // --- The open list
    GComboBoxList& List() const { return *m_combo.m_pList; }
    bool IsOpen() const { return m_phase == Phase::Open; }
    bool Show();
    void Arrange();
    int RowHeight() const;
    UINT TopRow() const;
    RECT PlaceOfList();
    int WidestItem();
    SIZE ListFrame() const;
    Place PlaceNow() const;
    void Toggle();
    // With the highlighted row, with the former choice, or with what was chosen last.
    enum class Ending
    {
        Take,
        GiveBack,
        Leave
    };
    void Close(Ending ending);
    bool Leave();
    bool LeaveIfMoved();
    void Finish(UINT uCode, bool fChanged);
    bool Hide();
    enum class Choice
    {
        Failed, // without memory
        Same,
        Changed
    };
    Choice Choose(UINT nIndex);
    bool GiveBack();
    bool GiveTextOrItemBack();
    void CloseByPress();
    UINT RowOfText() const;
    void HighlightText();
    bool OnListPress(UINT uMsg, POINTS pt);
    void OnListRelease(POINTS pt);
    void OnListMove(WPARAM wKeys, POINTS pt);
    void OnListTimer(WPARAM wTimer);
    void KeepView(UINT nIndex, int nDelta);
    void KeepScrolling(POINTS pt);
    void ScrollByRow();
    void Pick(UINT nIndex);

    // --- The platform's messages
    LRESULT InsertString(int nIndex, LPCWSTR psz);
    LRESULT InitStorage(UINT nItems);
    LRESULT SetItemHeight(int nIndex, int nHeight);
    LRESULT ItemHeight(int nIndex) const;
    LRESULT SetEditSelection(UINT nStart, UINT nEnd);
    LRESULT SetCue(LPCWSTR psz);
    LRESULT CopyCue(LPWSTR pszBuffer, int nCapacity) const;
    LRESULT DroppedRect(RECT* prc);
    LRESULT Info(COMBOBOXINFO* pInfo) const;
    LRESULT SetTopIndex(UINT nIndex);
    LRESULT SetMinVisible(UINT nRows);
    int DroppedWidth() const;
    void ShowDropDown(bool fShow);
    int FieldHeight() const;

    GComboBox& m_combo;
    gesso::TextEditor m_editor;
    gesso::TypeAhead m_typed;
    gesso::ControlText m_cue;
    gesso::ComboTexts m_texts;
    UINT m_nMinVisible = 30;
    int m_nRowHeight = 0; // CB_SETITEMHEIGHT; 0 for what the font needs
    UINT m_nTop = 0;      // the first row in view when the list opens
    int m_nDroppedWidth = 0;
    int m_nWidest = -1;       // of the items, in pixels; -1 until they are measured
    bool m_fExtended = false; // CB_SETEXTENDEDUI

    bool m_fTyped = false;      // the next edit is to be completed
    bool m_fCompleting = false; // this one is part of what is told then

    Phase m_phase = Phase::Closed;
    UINT m_nOpenings = 0;
    Place m_place{};
    bool m_fField = HasField();
    bool m_fAway = false;            // the focus has gone with the window
    bool m_fHeld = false;            // the press that opened the list lasts
    bool m_fDrawn = false;           // a press lasts that has been on the rows
    bool m_fReleasing = false;       // the list's bar gives the capture up
    bool m_fUsedUp = false;          // the press that closed the list lasts, and has the capture
    POINTS m_ptSeen{};               // of the pointer, on the screen
    UINT m_nShown = gesso::NO_INDEX; // a row that is highlighted without having been chosen
    bool m_fStepped = false;         // the choice is not what it was when the list opened, which is:
    UINT m_nFormer = gesso::NO_INDEX;
    gesso::ControlText m_strFormer;
};
