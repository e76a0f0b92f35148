// A dialog whose controls come from its template. The windows make the objects; the program reaches them by
// id.
#include "resource.h"

#include <gesso/gesso.h>

namespace {

template <class CONTROL> CONTROL& Item(HWND hDlg, int nId)
{
    return *static_cast<CONTROL*>(GWnd::FromHwnd(GetDlgItem(hDlg, nId)));
}

// The program decides what a click on a check box or a radio button means.
void Choose(HWND hDlg, int nId)
{
    if (nId == IDC_NEWS) {
        auto& news = Item<GCheckBox>(hDlg, IDC_NEWS);
        news.SetCheck(!news.GetCheck());
    } else {
        Item<GRadioButton>(hDlg, IDC_ALPHABET).SetCheck(nId == IDC_ALPHABET);
        Item<GRadioButton>(hDlg, IDC_DATE).SetCheck(nId == IDC_DATE);
    }
}

INT_PTR CALLBACK FormProc(HWND hDlg, UINT uMsg, WPARAM wParam, LPARAM)
{
    if (uMsg == WM_INITDIALOG) {
        Choose(hDlg, IDC_ALPHABET);
        return TRUE;
    }
    if (uMsg != WM_COMMAND || HIWORD(wParam) != BN_CLICKED) {
        return FALSE;
    }
    switch (LOWORD(wParam)) {
    case IDC_NEWS:
    case IDC_ALPHABET:
    case IDC_DATE: Choose(hDlg, LOWORD(wParam)); return TRUE;
    case IDOK:
    case IDCANCEL: EndDialog(hDlg, LOWORD(wParam)); return TRUE;
    default: return FALSE;
    }
}

} // namespace

int WINAPI wWinMain(HINSTANCE hInstance, HINSTANCE, LPWSTR, int)
{
    InitControls();
    return DialogBoxParamW(hInstance, MAKEINTRESOURCEW(IDD_FORM), nullptr, FormProc, 0) == IDOK ? 0 : 1;
}
