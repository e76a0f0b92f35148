// A control of any class with something of each kind to show, in a window that paints what controls stand on
// as a host is to.
#pragma once

#include "../../support/AllControls.h"

namespace test {

// A window of 400 x 300 whose ground is the scheme's.
class Ground
{
public:
    Ground()
    {
        static const ATOM s_aClass = Register();
        m_hwnd = CreateWindowExW(0, MAKEINTRESOURCEW(s_aClass), nullptr, WS_POPUP | WS_VISIBLE, 0, 0, 400,
                                 300, nullptr, nullptr, nullptr, nullptr);
    }
    ~Ground() { DestroyWindow(m_hwnd); }
    Ground(const Ground&) = delete;
    Ground& operator=(const Ground&) = delete;
    operator HWND() const { return m_hwnd; }

private:
    static ATOM Register()
    {
        WNDCLASSW wc{};
        wc.lpfnWndProc = WindowProc;
        wc.lpszClassName = L"GessoTestGround";
        return RegisterClassW(&wc);
    }
    static LRESULT CALLBACK WindowProc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
    {
        if (uMsg != WM_ERASEBKGND && uMsg != WM_PRINTCLIENT) {
            return DefWindowProcW(hwnd, uMsg, wParam, lParam);
        }
        RECT rc{};
        GetClientRect(hwnd, &rc);
        const HBRUSH hBrush = CreateSolidBrush(ColorOf(gesso::ColorRole::Panel));
        FillRect(reinterpret_cast<HDC>(wParam), &rc, hBrush);
        DeleteObject(hBrush);
        return 1;
    }

    HWND m_hwnd;
};

// What a class shows besides its text. A class that is nothing of this shows what MakeAnyControl gives it.
inline void Furnish(GList& list)
{
    for (const LPCWSTR text : {L"Name", L"Size"}) {
        list.InsertColumn(static_cast<UINT>(-1), LCS_SORTUP, DT_SINGLELINE | DT_VCENTER, 80, 20, text, 0,
                          LCT_TEXT, nullptr, nullptr, nullptr, nullptr);
    }
    for (const LPCWSTR text : {L"One", L"Two", L"Three", L"Four", L"Five", L"Six", L"Seven", L"Eight"}) {
        const UINT item = list.InsertItem(static_cast<UINT>(-1), 0, nullptr, 0, text, 0);
        list.SetSubItem(item, 1, 0, L"12", 0);
    }
    list.SetListStyle(GLS_DETAILS | GLS_HEADER | GLS_CHECKBOXES | GLS_GRIDLINES);
    list.SetItemState(0, 0, LIS_SELECTED, LIS_SELECTED);
}

inline void Furnish(GTree& tree)
{
    void* hFirst = tree.InsertItem(nullptr, nullptr, L"One", 0, TIS_HASCHILDREN | TIS_EXPANDED, nullptr);
    tree.InsertItem(hFirst, nullptr, L"Two", 0, TIS_HASCHILDREN, nullptr);
    for (const LPCWSTR text : {L"Three", L"Four", L"Five", L"Six", L"Seven", L"Eight"}) {
        tree.InsertItem(nullptr, nullptr, text, 0, 0, nullptr);
    }
    tree.SetSelectedItem(hFirst);
}

inline void Furnish(GNavigationBar& bar)
{
    bar.InsertItem(bar.GetRootItem(), nullptr, L"Header", 0, NBIK_HEADER, nullptr);
    bar.InsertItem(bar.GetRootItem(), nullptr, L"Line", 0, NBIK_SEPARATOR, nullptr);
    for (const LPCWSTR text : {L"One", L"Two", L"Three"}) {
        bar.InsertItem(bar.GetRootItem(), nullptr, text, 0, NBIK_ITEM, nullptr);
    }
}

inline void Furnish(GRibbon& ribbon)
{
    constexpr UINT SIZES[] = {static_cast<UINT>(RIS_LARGE) << 16};
    ribbon.AddPage(nullptr, 2, L"Other");
    GRibbonPage::ItemInfo button{};
    button.uType = RIT_BUTTON;
    button.nId = 10;
    button.nOptions = 1;
    button.puOptions = SIZES;
    button.nImage = -1;
    button.pszText = L"Button";
    ribbon.GetPage(1)->InsertItem(1, 0, &button);
    GRibbonPage::ItemInfo box{};
    box.uType = RIT_CHECKBOX;
    box.nId = 12;
    box.bChecked = 1;
    box.pszCheckText = L"Box";
    ribbon.GetPage(1)->InsertItem(1, 0, &box);
}

inline void Furnish(GProgressBar& bar)
{
    bar.SetProgress(50);
}

inline void Furnish(GScrollbar& bar)
{
    bar.InitScrollBar(1000);
    bar.ScrSetTotalHeight(1000);
}

inline void Furnish(GWnd&) {}

// The object that answers for a control's window: a value menu's is another than the one that makes it.
template <class CONTROL> CONTROL& Shown(HWND hwnd)
{
    return static_cast<CONTROL&>(*GWnd::FromHwnd(hwnd));
}

template <class CONTROL> HWND MakeExhibit(CONTROL& control, HWND hwndParent)
{
    const HWND hwnd = MakeAnyControl(control, hwndParent);
    if constexpr (std::is_same_v<CONTROL, GRightClickMenu>) {
        Shown<CONTROL>(hwnd).AddValue(L"Value");
        Shown<CONTROL>(hwnd).AddValue(L"Other");
    } else {
        Furnish(control);
    }
    SetWindowPos(hwnd, nullptr, 10, 10, 200, 140, SWP_NOZORDER);
    return hwnd;
}

} // namespace test
