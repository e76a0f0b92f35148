// What a host and a user do with a control from its making to its end, the same for every class.
#pragma once

#include "../../support/AllControls.h"

#include <platform/headless/headless.h>

namespace test {

namespace desk = gesso::headless;

// --- Content

inline void Fill(GWnd&) {}

template <class CONTROL>
requires requires(CONTROL& control)
{
    control.SetText(L"");
}
void Fill(CONTROL& control)
{
    control.SetText(L"Text");
}

inline void Fill(GEdit& edit)
{
    edit.SetText(L"One line\r\nand another, longer than the field is wide\r\nthree\r\nfour\r\nfive");
    edit.SetSel(2, 6);
}

inline void Fill(GComboBox& combo)
{
    SendMessageW(combo.GetHwnd(), CB_SHOWDROPDOWN, FALSE, 0);
    combo.RemoveAllItems();
    for (const wchar_t* psz : {L"one", L"two", L"three"}) {
        combo.InsertItem(gesso::NO_INDEX, 0, psz, 0, nullptr);
    }
    combo.SetSelected(1);
    combo.SetText(L"two");
}

inline void Fill(GList& list)
{
    list.RemoveAllItems();
    list.RemoveAllColumns();
    for (const wchar_t* psz : {L"Name", L"Size"}) {
        list.InsertColumn(gesso::NO_INDEX, 0, DT_SINGLELINE, 80, 20, psz, 0, LCT_TEXT, nullptr, nullptr,
                          nullptr, nullptr);
    }
    for (UINT i = 0; i < 12; ++i) {
        list.InsertItem(gesso::NO_INDEX, 0, nullptr, 0, i % 2 ? L"odd" : L"even", 0);
        list.SetItemText(i, 1, L"12 KB");
    }
    list.Sort(0, true);
    list.ClearSelection();
    list.SetSelected(1, 1);
}

// A list whose items are the host's.
class HostedList : public GList
{
public:
    static void Answer(GList*, UINT item, UINT column, UINT what, void* answer)
    {
        if (what == LGET_TEXT) {
            *static_cast<LPCWSTR*>(answer) = column ? L"12 KB" : item % 2 ? L"odd" : L"even";
        }
    }
};

inline void Fill(HostedList& list)
{
    list.SetVirtualItems(0); // which leads to the top
    list.RemoveAllColumns();
    for (const wchar_t* psz : {L"Name", L"Size"}) {
        list.InsertColumn(gesso::NO_INDEX, 0, DT_SINGLELINE, 80, 20, psz, 0, LCT_TEXT, nullptr, nullptr,
                          nullptr, HostedList::Answer);
    }
    list.SetVirtualItems(12);
    list.ClearSelection();
    list.SetSelected(1, 1);
}

template <class TREE> void FillTree(TREE& tree)
{
    tree.RemoveAllItems();
    void* hFirst = nullptr;
    for (int i = 0; i < 4; ++i) {
        void* hTop = tree.InsertItem(tree.GetRootItem(), nullptr, L"top", 0, 0, nullptr);
        hFirst = hFirst ? hFirst : hTop;
        for (int k = 0; hTop && k < 3; ++k) {
            tree.InsertItem(hTop, nullptr, L"below", 0, 0, nullptr);
        }
    }
    if (hFirst) {
        tree.Expand(hFirst);
        tree.SortChildren(hFirst);
        tree.SetSelectedItem(hFirst);
    }
}

inline void Fill(GTree& tree)
{
    FillTree(tree);
    // One that has a million children that are only counted, of which one is open.
    void* hFolder = tree.InsertItem(nullptr, tree.GetRootItem(), L"folder", 0, 0, nullptr);
    if (hFolder) {
        tree.SetChildCount(hFolder, 1'000'000);
        tree.Expand(hFolder);
        tree.SetChildCount(tree.GetChildAt(hFolder, 1), 2);
        tree.Expand(tree.GetChildAt(hFolder, 1));
    }
}

inline void Fill(GNavigationBar& bar)
{
    FillTree(bar);
}

inline void Fill(GScrollbar& bar)
{
    bar.ScrSetTotalHeight(400);
    bar.SetScrollPos(10);
}

inline void Fill(GProgressBar& bar)
{
    bar.SetProgress(40);
}

inline void Fill(GRightClickMenu& menu)
{
    while (menu.GetValueCount() < 3) {
        menu.AddValue(L"Value");
    }
}

inline void Fill(GRibbon& ribbon)
{
    constexpr DWORD PAGE = 1, GROUP = 1;
    if (GRibbonPage* pFormer = ribbon.GetPage(PAGE)) {
        ribbon.RemovePage(pFormer);
        pFormer->Delete(pFormer);
    }
    ribbon.AddPage(nullptr, PAGE, L"Page");
    GRibbonPage* pPage = ribbon.GetPage(PAGE);
    if (!pPage) {
        return;
    }
    pPage->InsertGroup(0, GROUP, L"Group", 0);
    static constexpr UINT SIZES[] = {RIS_LARGE << 16, RIS_SMALL << 16};
    for (UINT nId = 1; nId < 4; ++nId) {
        GRibbonPage::ItemInfo info{};
        info.uType = nId == 3 ? RIT_CHECKBOX : RIT_BUTTON;
        info.nId = nId;
        if (nId < 3) {
            info.nOptions = 2;
            info.puOptions = SIZES;
        } else {
            info.pszCheckText = L"Check";
        }
        info.nImage = -1;
        info.pszText = L"Item";
        pPage->InsertItem(GROUP, 0, &info);
    }
}

// --- What a user and a host do with one class alone

inline void ActOn(GWnd&) {}

// In Modern the list stays open meanwhile.
inline void ActOn(GComboBox& combo)
{
    const HWND hwnd = combo.GetHwnd();
    if (!IsWindow(hwnd) || gesso::BehaviorOf(combo) != gesso::Behavior::Modern) {
        return;
    }
    combo.SetAutoComplete(true);
    SendMessageW(hwnd, CB_INITSTORAGE, 10, 0);
    desk::TypeText("t");
    SendMessageW(hwnd, CB_SHOWDROPDOWN, TRUE, 0);
    desk::Pump();
    combo.SetFont(combo.GetFont());
    combo.InsertItem(0, 0, L"zero", 0, nullptr);
    desk::Advance(20);
    desk::TypeKey(VK_NEXT);
    desk::Pump();
    desk::Click(1, 1, desk::Button::Right);
    desk::TypeKey(VK_PRIOR);
    desk::TypeKey('Z', {VK_CONTROL});
    desk::Pump();
}

// --- A life

template <class CONTROL> class ControlLife
{
public:
    explicit ControlLife(HWND hwndParent) : m_hwndParent(hwndParent), m_pControl(new CONTROL)
    {
        // So that a picture does not tell whether keys were typed before.
        if (gesso::GetBehavior() == gesso::Behavior::Modern) {
            gesso::ShowKeyboardCues(hwndParent);
        }
    }
    ~ControlLife()
    {
        End();
        m_pControl->Delete(m_pControl);
    }
    ControlLife(const ControlLife&) = delete;
    ControlLife& operator=(const ControlLife&) = delete;

    bool IsThere() const { return IsWindow(m_hwnd); }

    void Begin()
    {
        m_hwnd = MakeAnyControl(*m_pControl, m_hwndParent);
        if (IsThere()) {
            Resize(WIDTH, HEIGHT);
        }
        Fill(*m_pControl);
        desk::Pump();
    }
    // All that a user does, and what the platform tells; the content may change by it.
    void Use()
    {
        for (int i = 0; i < 4; ++i) {
            desk::WhenIdle([] { desk::TypeKey(VK_ESCAPE); }); // out of a loop that the control runs
        }
        if (IsThere()) {
            Point();
            Type();
        }
        ActOn(*m_pControl);
        if (IsThere()) {
            Scroll();
            Tell();
        }
    }
    void End()
    {
        if (IsThere()) {
            DestroyWindow(m_hwnd);
        }
    }
    // What a host does after a failure that it was told of.
    void Heal()
    {
        desk::ReleaseButton();
        Hover(); // so that it hears of the pointer's leaving, which it may have failed to ask for
        desk::Click(1, 1);
        desk::Pump();
        ShowWindow(m_hwnd, SW_SHOW);
        EnableWindow(m_hwnd, TRUE);
        Resize(WIDTH, HEIGHT);
        SendMessageW(m_hwnd, WM_THEMECHANGED, 0, 0);
        Fill(*m_pControl);
        Resize(WIDTH + 1, HEIGHT + 1); // so that the bars are those of this content
        Resize(WIDTH, HEIGHT);
        SetFocus(m_hwndParent);
        SendMessageW(m_hwnd, WM_VSCROLL, SB_TOP, 0);
        SendMessageW(m_hwnd, WM_HSCROLL, SB_LEFT, 0);
        desk::Advance(1000);
    }
    std::vector<std::string> Picture() const
    {
        desk::ClearDrawing(m_hwnd);
        RedrawWindow(m_hwnd, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME | RDW_ERASE | RDW_UPDATENOW);
        return desk::Drawing(m_hwnd);
    }

private:
    static constexpr int WIDTH = 120, HEIGHT = 118;

    // A fault is the control's to meet: where this call met it, the next one does it.
    void Resize(int cx, int cy) const
    {
        for (int i = 0; i < 2; ++i) {
            SetWindowPos(m_hwnd, nullptr, 0, 0, cx, cy, SWP_NOMOVE | SWP_NOZORDER);
        }
    }
    void Hover() const
    {
        RECT rc{};
        GetWindowRect(m_hwnd, &rc);
        desk::MoveMouse(rc.left + 1, rc.top + 1);
        desk::Pump();
    }
    void Point()
    {
        RECT rc{};
        if (!GetWindowRect(m_hwnd, &rc)) {
            GetWindowRect(m_hwnd, &rc);
        }
        for (const POINT pt : {POINT{rc.left + 20, rc.top + 15}, POINT{rc.right - 8, rc.bottom - 8}}) {
            desk::MoveMouse(pt.x, pt.y);
            desk::Pump();
            desk::PressButton();
            desk::Pump();
            desk::Advance(600);
            desk::MoveMouse(pt.x + 3, pt.y + 30);
            desk::Pump();
            desk::ReleaseButton();
            desk::Pump();
        }
        desk::Click(rc.left + 20, rc.top + 15);
        desk::Pump();
    }
    void Type()
    {
        SetFocus(m_hwnd);
        desk::TypeText("ab");
        for (const UINT vk : std::initializer_list<UINT>{VK_DOWN, VK_RIGHT, VK_BACK, VK_RETURN, VK_F2}) {
            desk::TypeKey(vk);
        }
        for (const UINT vk : std::initializer_list<UINT>{'A', 'C', 'X', 'V'}) {
            desk::TypeKey(vk, {VK_CONTROL});
        }
        desk::TypeKey(VK_DOWN, {VK_MENU});
        desk::TypeKey(VK_ESCAPE);
        desk::Pump();
    }
    void Scroll() const
    {
        for (const UINT uMsg : std::initializer_list<UINT>{WM_VSCROLL, WM_HSCROLL}) {
            for (const WPARAM code : std::initializer_list<WPARAM>{SB_LINEDOWN, SB_PAGEDOWN, SB_BOTTOM}) {
                SendMessageW(m_hwnd, uMsg, code, 0);
            }
        }
        desk::Wheel(-120);
        desk::Pump();
    }
    void Tell() const
    {
        Resize(WIDTH / 2, HEIGHT / 2);
        desk::Pump();
        for (const UINT uMsg :
             std::initializer_list<UINT>{WM_SYSCOLORCHANGE, WM_SETTINGCHANGE, WM_THEMECHANGED}) {
            SendMessageW(m_hwnd, uMsg, 0, 0);
        }
        EnableWindow(m_hwnd, FALSE);
        EnableWindow(m_hwnd, TRUE);
        if (const HDC hdc = GetDC(m_hwndParent)) {
            SendMessageW(m_hwnd, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(hdc), PRF_CLIENT);
            ReleaseDC(m_hwndParent, hdc);
        }
        desk::Pump();
    }

    HWND m_hwndParent;
    CONTROL* m_pControl;
    HWND m_hwnd = nullptr;
};

} // namespace test
