#include <gallery/ListChoice.h>

#include <commctrl.h>

namespace gallery {
namespace {

// A press on the button runs the list, and returns when that has closed.
LRESULT CALLBACK ReportBehindPress(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                   DWORD_PTR combo)
{
    if (uMsg != WM_LBUTTONDOWN) {
        return DefSubclassProc(hwnd, uMsg, wParam, lParam);
    }
    const auto& box = *reinterpret_cast<const GComboBox*>(combo);
    const UINT nFormer = box.GetSelected();
    const LRESULT result = DefSubclassProc(hwnd, uMsg, wParam, lParam);
    if (IsWindow(hwnd) && box.GetSelected() != nFormer) {
        SendMessageW(GetParent(hwnd), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(hwnd), CBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(hwnd));
    }
    return result;
}

} // namespace

void ReportChoiceOfList(GComboBox& combo)
{
    SetWindowSubclass(combo, &ReportBehindPress, 1, reinterpret_cast<DWORD_PTR>(&combo));
}

} // namespace gallery
