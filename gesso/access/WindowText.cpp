#include <gesso/access/WindowText.h>
#include <gesso/containers/OStringEx.h>

namespace gesso {

AccessString TextOfWindow(HWND hwnd)
{
    OStringEx<wchar_t> strText;
    const int nLength = GetWindowTextLengthW(hwnd);
    if (wchar_t* pszText = nLength > 0 ? strText.GetBuffer(static_cast<UINT>(nLength) + 1) : nullptr) {
        strText.ReleaseBuffer(static_cast<UINT>(GetWindowTextW(hwnd, pszText, nLength + 1)));
    }
    return strText;
}

} // namespace gesso
