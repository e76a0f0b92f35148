// Controls of every class, made alike.
#pragma once

#include "../support/Host.h"

namespace test {

// Of 100 x 30 pixels, with the text "Text" where the class has one.
template <class CONTROL>
HWND MakeControl(CONTROL& control, HWND hwndParent, int nId = 33, DWORD dwStyle = WS_CHILD | WS_VISIBLE)
{
    if constexpr (requires { control.SetNote(nullptr); }) {
        return control.Create(10, 10, 100, 30, hwndParent, nId, L"Text", L"Note", 0, dwStyle);
    } else if constexpr (requires { control.SetSel(0, 0); }) {
        return control.Create(10, 10, 100, 30, hwndParent, nId, L"Text", dwStyle, 0);
    } else if constexpr (requires { control.GetDropdownHeight(); }) {
        const HWND hwnd = control.Create(10, 10, 100, 30, hwndParent, nId, dwStyle | GCBS_DROPDOWN, 0);
        control.SetText(L"Text");
        return hwnd;
    } else if constexpr (requires { control.SetText(nullptr); }) {
        return control.Create(10, 10, 100, 30, hwndParent, nId, L"Text", 0, dwStyle);
    } else if constexpr (requires { control.SetListStyle(GLS_DETAILS); }) {
        return control.Create(10, 10, 100, 30, hwndParent, nId, GLS_DETAILS, 0, dwStyle);
    } else {
        return control.Create(10, 10, 100, 30, hwndParent, nId, 0, dwStyle);
    }
}

} // namespace test
