#include "RibbonTestSupport.h"

namespace test::ribbon {

HWND CreateRibbon(GRibbon& ribbon, HWND hwndParent)
{
    return ribbon.Create(0, 0, RIBBON_WIDTH, RIBBON_HEIGHT, hwndParent, nullptr);
}

void InsertButton(GRibbonPage& page, DWORD dwGroup, UINT nId, WORD wSize, LPCWSTR pszText, int nImage,
                  DWORD dwBefore)
{
    const UINT uSize = static_cast<UINT>(wSize) << 16;
    GRibbonPage::ItemInfo info{};
    info.uType = RIT_BUTTON;
    info.nId = nId;
    info.nOptions = 1;
    info.puOptions = &uSize;
    info.nImage = nImage;
    info.pszText = pszText;
    page.InsertItem(dwGroup, dwBefore, &info);
}

void InsertCheckBox(GRibbonPage& page, DWORD dwGroup, UINT nId, bool fChecked, LPCWSTR pszText)
{
    GRibbonPage::ItemInfo info{};
    info.uType = RIT_CHECKBOX;
    info.nId = nId;
    info.bChecked = fChecked;
    info.pszCheckText = pszText;
    page.InsertItem(dwGroup, 0, &info);
}

POINT MiddleOf(OpenPage& page, UINT nGroup, UINT nItem)
{
    const GRibbonPage::Item& item = page.ItemAt(nGroup, nItem);
    return {page.m_aGroups[nGroup].nLeft + 4 + (item.nLeft + item.nRight) / 2,
            4 + (item.nTop + item.nBottom) / 2};
}

void Print(HWND hwnd)
{
    RECT rc{};
    GetClientRect(hwnd, &rc);
    const HDC hdcWindow = GetDC(hwnd);
    const HDC hdc = CreateCompatibleDC(hdcWindow);
    const HGDIOBJ hFormer = SelectObject(hdc, CreateCompatibleBitmap(hdcWindow, rc.right, rc.bottom));
    SendMessageW(hwnd, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(hdc), PRF_CLIENT);
    DeleteObject(SelectObject(hdc, hFormer));
    DeleteDC(hdc);
    ReleaseDC(hwnd, hdcWindow);
}

} // namespace test::ribbon
