// What the benches of lists share: both sides' lists with the same four columns, how they are scrolled and
// painted.
#pragma once

#include <bench/Bench.h>

namespace bench {

constexpr int LIST_CX = 640;
constexpr int LIST_CY = 480;
constexpr UINT COLUMNS = 4;
constexpr UINT END = static_cast<UINT>(-1);
constexpr int COLUMN_WIDTH = 140;
constexpr int PAINTS = 10;
constexpr DWORD CHILD = WS_CHILD | WS_VISIBLE;

// Gesso's list. What answers for the columns is null where the list owns its items.
class OwnListView : public GList
{
public:
    OwnListView(HWND hwndHost, UINT style, PFNLISTGET fktGet)
    {
        Create(0, 0, LIST_CX, LIST_CY, hwndHost, 1, style, 0, CHILD | WS_HSCROLL | WS_VSCROLL);
        for (UINT column = 0; column < COLUMNS; column++) {
            InsertColumn(END, 0, DT_SINGLELINE, COLUMN_WIDTH, 10, L"Column", 0, LCT_TEXT, nullptr, nullptr,
                         nullptr, fktGet);
        }
    }
    ~OwnListView() override { DestroyWindow(m_hWnd); }

    HWND Window() const { return m_hWnd; }
    void Page(bool fDown) { SendMessageW(m_hWnd, WM_VSCROLL, fDown ? SB_PAGEDOWN : SB_PAGEUP, 0); }
};

// The platform's list view, in report view and double-buffered.
class PlatformListView
{
public:
    PlatformListView(HWND hwndHost, DWORD style)
        : m_hwnd(CreateWindowExW(0, L"SysListView32", L"", CHILD | LVS_REPORT | style, 0, 0, LIST_CX, LIST_CY,
                                 hwndHost, nullptr, GetModuleHandleW(nullptr), nullptr))
    {
        SendMessageW(m_hwnd, WM_SETFONT, reinterpret_cast<WPARAM>(g_hDefaultFont), FALSE);
        ListView_SetExtendedListViewStyle(m_hwnd, LVS_EX_DOUBLEBUFFER | LVS_EX_FULLROWSELECT);
        for (UINT column = 0; column < COLUMNS; column++) {
            LVCOLUMNW record{};
            record.mask = LVCF_TEXT | LVCF_WIDTH;
            record.cx = COLUMN_WIDTH;
            record.pszText = const_cast<LPWSTR>(L"Column");
            SendMessageW(m_hwnd, LVM_INSERTCOLUMNW, column, reinterpret_cast<LPARAM>(&record));
        }
    }
    ~PlatformListView() { DestroyWindow(m_hwnd); }
    PlatformListView(const PlatformListView&) = delete;
    PlatformListView& operator=(const PlatformListView&) = delete;

    HWND Window() const { return m_hwnd; }
    void Page(bool fDown) { SendMessageW(m_hwnd, WM_VSCROLL, fDown ? SB_PAGEDOWN : SB_PAGEUP, 0); }
    void ScrollToRow(UINT row) { ListView_EnsureVisible(m_hwnd, static_cast<int>(row), FALSE); }

protected:
    HWND m_hwnd;
};

inline void Paint(HWND hwnd)
{
    InvalidateRect(hwnd, nullptr, TRUE);
    UpdateWindow(hwnd);
}

template <class LIST> void PaintOften(const LIST& list)
{
    for (int i = 0; i < PAINTS; i++) {
        Paint(list.Window());
    }
}

// So many pages away, more than a list keeps prepared, and back again.
constexpr int PAGES = 40;
template <class LIST> void PageAwayAndBack(LIST& list, bool fDown)
{
    for (int i = 0; i < 2 * PAGES; i++) {
        list.Page((i < PAGES) == fDown);
        UpdateWindow(list.Window());
    }
}

} // namespace bench
