// What the two sides tell each other: notifications, controls by template, behaviours, texts of the
// language, the rows of a virtual list, and memory.
#include "Checks.h"

#include <stdio.h>
#include <string.h>

namespace {

constexpr DWORD STYLE = WS_CHILD | WS_VISIBLE | WS_TABSTOP;

void Key(HWND hwnd, UINT uKey)
{
    SendMessageW(hwnd, WM_KEYDOWN, uKey, 1);
    SendMessageW(hwnd, WM_KEYUP, uKey, static_cast<LPARAM>(0xC0000001));
}

// --- Notifications

void CheckNotifications()
{
    Group("notifications");
    HostWindow host;
    GButton button;
    const HWND hwndButton = button.Create(10, 10, 80, 30, host.hwnd, 5, L"&Press", 0, STYLE);
    host.uSearched = static_cast<UINT>(NM_SETFOCUS);
    SetFocus(hwndButton);
    Same(host.nFound, 1, "the focus is told");
    Key(hwndButton, VK_SPACE);
    Check(host.nCommands == 1 && host.uLastId == 5 && host.uLastCode == BN_CLICKED, "a click is told");

    GEdit edit;
    const HWND hwndEdit = edit.Create(10, 50, 80, 24, host.hwnd, 6, L"", STYLE, 0);
    SendMessageW(hwndEdit, WM_CHAR, L'x', 1);
    Check(host.uLastId == 6 && host.uLastCode == EN_CHANGE, "a change of text is told");
    wchar_t sz[10]{};
    int nLength = 10;
    Check(edit.GetText(sz, &nLength) && nLength == 1, "the text comes back");
    Same(sz, L"x", "as it was typed");

    GComboBox combo;
    const HWND hwndCombo = combo.Create(10, 90, 80, 24, host.hwnd, 7, STYLE, 0);
    combo.InsertItem(0, 0, L"Zero", 0, nullptr);
    combo.InsertItem(1, 0, L"One", 0, &combo);
    Same(combo.GetItemText(1), L"One", "the item's text");
    Check(combo.GetItemCustomData(1) == &combo, "the host's value of an item");
    combo.SetSelected(0);
    SetFocus(hwndCombo);
    Key(hwndCombo, VK_DOWN);
    Same(combo.GetSelected(), 1, "the choice changes");
    Check(host.uLastId == 7 && host.uLastCode == CBN_SELCHANGE, "which is told");

    gesso::SetBehavior(gesso::Behavior::Modern); // in which a tree tells it
    GTree tree;
    const HWND hwndTree = tree.Create(100, 10, 150, 100, host.hwnd, 8, 0, STYLE);
    void* hFirst = tree.InsertItem(tree.GetRootItem(), nullptr, L"First", 0, 0, &tree);
    void* hSecond = tree.InsertItem(tree.GetRootItem(), hFirst, L"Second", 0, 0, nullptr);
    Same(tree.GetItemChildCount(tree.GetRootItem()), 2, "the tree's items");
    Check(tree.GetItemCustomData(hFirst) == &tree, "the host's value of a tree's item");
    host.uSearched = static_cast<UINT>(TVN_SELCHANGED);
    tree.SetSelectedItem(hFirst);
    const int nBefore = host.nFound;
    SetFocus(hwndTree);
    Key(hwndTree, VK_DOWN);
    gesso::SetBehavior(gesso::Behavior::Classic);
    Check(host.nFound > nBefore && tree.GetSelectedItem() == hSecond, "the tree's selection is told");
    Same(tree.GetItemName(hSecond), L"Second", "the name of the tree's item");
}

// --- Lists

int s_nAsked = 0;
wchar_t s_szAnswer[40];

void Answer(GList*, UINT item, UINT column, UINT what, void* answer)
{
    ++s_nAsked;
    if (what == LGET_TEXT) {
        swprintf(s_szAnswer, 40, L"%u/%u", item, column);
        *static_cast<LPCWSTR*>(answer) = s_szAnswer;
    }
}

int CompareNumbers(void* pFirst, void* pSecond)
{
    return static_cast<int>(reinterpret_cast<INT_PTR>(pFirst) - reinterpret_cast<INT_PTR>(pSecond));
}

void InsertColumn(GList& list, UINT position, LPCWSTR psz, PFNLISTSORT pfnSort, PFNLISTGET pfnGet)
{
    list.InsertColumn(position, 0, DT_SINGLELINE, 100, 20, psz, 0, LCT_TEXT, nullptr, nullptr, pfnSort,
                      pfnGet);
}

void CheckLists()
{
    Group("list");
    HostWindow host;
    GList list;
    list.Create(10, 10, 300, 200, host.hwnd, 9, GLS_DETAILS | GLS_HEADER, 0, STYLE | WS_VSCROLL);
    InsertColumn(list, 0, L"Number", CompareNumbers, nullptr);
    for (INT_PTR i = 0; i < 20; ++i) {
        wchar_t sz[20];
        swprintf(sz, 20, L"row %d", static_cast<int>(i));
        list.InsertItem(static_cast<UINT>(i), 0, reinterpret_cast<void*>((i * 7) % 20), 0, sz, 0);
    }
    Same(list.GetItemCount(), 20, "its items");
    Same(list.GetItemText(3, 0), L"row 3", "an item's text");
    list.Sort(0, true);
    bool fSorted = true;
    for (UINT i = 0; i < 20; ++i) {
        fSorted = fSorted && list.GetItemCustomData(i) == reinterpret_cast<void*>(static_cast<UINT_PTR>(i));
    }
    Check(fSorted, "sorted by the host's function");
    list.SetSelected(4, 1);
    Check(list.GetSelectedCount() == 1 && list.GetFirstSelectedItemIndex() == 4, "its selection");

    Group("virtual list");
    GList rows;
    const HWND hwnd =
        rows.Create(10, 220, 300, 100, host.hwnd, 10, GLS_DETAILS | GLS_HEADER, 0, STYLE | WS_VSCROLL);
    InsertColumn(rows, 0, L"First", nullptr, Answer);
    InsertColumn(rows, 1, L"Second", nullptr, Answer);
    rows.SetVirtualItems(5000000);
    Check(rows.IsVirtual() && rows.GetItemCount() == 5000000, "five million rows");
    UpdateWindow(hwnd);
    rows.EnsureVisible(4999999);
    Same(rows.GetItemText(4999999, 1), L"4999999/1", "the host's text of the last");
    Check(s_nAsked > 0 && s_nAsked < 1000, "only what shows was asked for");
    rows.ItemsRemoved(0, 10);
    Same(rows.GetItemCount(), 4999990, "rows are taken away");
}

// --- Templates

INT_PTR CALLBACK TemplateProc(HWND, UINT, WPARAM, LPARAM)
{
    return FALSE;
}

template <class CLASS> void CheckItem(HWND hDlg, int nId, const char* pszWhat)
{
    const HWND hwnd = GetDlgItem(hDlg, nId);
    Check(hwnd && dynamic_cast<CLASS*>(GWnd::FromHwnd(hwnd)), pszWhat);
}

void CheckTemplate()
{
    Group("controls by a dialog template");
    HostWindow host;
    const HWND hDlg =
        CreateDialogParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(200), host.hwnd, TemplateProc, 0);
    if (!Check(hDlg != nullptr, "the dialog is made")) {
        return;
    }
    CheckItem<GButton>(hDlg, 1, "a button");
    CheckItem<GLabel>(hDlg, 901, "a label");
    CheckItem<GEdit>(hDlg, 902, "an edit field");
    CheckItem<GCheckBox>(hDlg, 903, "a check box");
    CheckItem<GRadioButton>(hDlg, 904, "a radio button");
    CheckItem<GComboBox>(hDlg, 905, "a combo box");
    CheckItem<GProgressBar>(hDlg, 906, "a progress bar");
    static_cast<GCheckBox*>(GWnd::FromHwnd(GetDlgItem(hDlg, 903)))->SetCheck(1);
    SetDlgItemTextW(hDlg, 902, L"Field");
    wchar_t sz[20]{};
    GetDlgItemTextW(hDlg, 902, sz, 20);
    Same(sz, L"Field", "a text by the platform's functions");
    Same(SendDlgItemMessageW(hDlg, 902, WM_GETTEXTLENGTH, 0, 0), 5, "a message to one");
    const HWND hwndField = GetDlgItem(hDlg, 902);
    DestroyWindow(hDlg);
    Check(!IsWindow(hDlg) && !IsWindow(hwndField), "the windows go, with objects that they made");
}

// --- Settings of the process

void CheckSettings()
{
    Group("behaviours");
    HostWindow host;
    Check(gesso::GetBehavior() == gesso::Behavior::Classic, "Classic at first");
    GButton before, after;
    const HWND hwndBefore = before.Create(0, 0, 50, 20, host.hwnd, 1, L"A", 0, STYLE);
    gesso::SetBehavior(gesso::Behavior::Modern);
    const HWND hwndAfter = after.Create(0, 30, 50, 20, host.hwnd, 2, L"B", 0, STYLE);
    Check(gesso::BehaviorOf(hwndBefore) == gesso::Behavior::Classic, "of the control made before");
    Check(gesso::BehaviorOf(hwndAfter) == gesso::Behavior::Modern, "of the one made after");
    SendMessageW(hwndBefore, BM_CLICK, 0, 0);
    Same(host.nCommands, 0, "a Classic button knows no BM_CLICK");
    SendMessageW(hwndAfter, BM_CLICK, 0, 0);
    Same(host.nCommands, 1, "a Modern one does");
    gesso::SetBehavior(gesso::Behavior::Classic);

    Group("languages");
    Check(gesso::SetLanguage(L"en"), "English is there");
    Same(gesso::TextOf(gesso::TextId::Cancel), L"Cancel", "its text");
    Check(gesso::SetLanguage(L"de"), "German is there");
    Same(gesso::TextOf(gesso::TextId::Yes), L"Ja", "its text");
    gesso::SetTextOf(gesso::TextId::Yes, L"Jawohl");
    Same(gesso::TextOf(gesso::TextId::Yes), L"Jawohl", "the host's own text");
    gesso::SetTextOf(gesso::TextId::Yes, nullptr);
    Same(gesso::TextOf(gesso::TextId::Yes), L"Ja", "and the language's again");
    Check(!gesso::SetLanguage(L"no such language"), "one that is not there");

    Group("values");
    Check(g_hDefaultFont != nullptr, "the font, a variable of the library");
    Check(GButton::s_aClass != 0, "a static of a class");
    Check(before.GetFont() == g_hDefaultFont, "both are the same font");
    Same(gesso::DpiOf(hwndAfter), 96, "dots an inch without scaling");
}

// --- Memory

void CheckMemory()
{
    Group("memory");
    auto* p = static_cast<char*>(gesso::Allocate(10));
    memcpy(p, "gesso", 6);
    p = static_cast<char*>(gesso::Reallocate(p, 100000));
    Check(strcmp(p, "gesso") == 0, "a block grows");
    gesso::Free(p);
    gesso::Free(nullptr);
    auto* psz = static_cast<wchar_t*>(gesso::Allocate(8 * sizeof(wchar_t)));
    memcpy(psz, L"text", 5 * sizeof(wchar_t));
    {
        gesso::ControlText text; // takes what the host allocated
        text.Reset(psz);
        const gesso::ControlText copy(text);
        Same(copy, L"text", "a text of the host's is shared");
        text.Reset();
        Same(copy, L"text", "and lives as long as anyone has it");
    }
    Check(!gesso::TryAllocate(static_cast<size_t>(-1) / 2), "too much is refused");

    Group("prepared texts");
    const HDC hdc = GetDC(nullptr);
    RECT rc{0, 0, 60, 200};
    UINT nLines = 0;
    void* hText = CDrawText::DrawText_Prepare(hdc, L"several words on several lines", -1, &rc,
                                              DT_WORDBREAK | DT_CALCRECT, 0, &nLines);
    Check(hText && nLines > 1, "one is made by the library");
    CDrawText::DrawText_CloseHandle(hText);
    rc = {0, 0, 60, 200};
    stcDrawTextBuffer* pBuffer =
        CDrawText::DrawText_Prepare_Int(hdc, L"abc", 3, &rc, DT_SINGLELINE, 0, &nLines);
    Check(pBuffer && pBuffer->nChars == 3, "its record is read by the host");
    CDrawText::DrawText_CloseHandle(pBuffer);
    ReleaseDC(nullptr, hdc);
}

} // namespace

void CheckExchange()
{
    CheckNotifications();
    CheckLists();
    CheckTemplate();
    CheckSettings();
    CheckMemory();
}
