// The clipboard's text. Both operations send messages to the window that has put its content there, which may
// destroy any control: look again afterwards.
#pragma once

#include <gesso/containers/OStringEx.h>

namespace gesso {

// Replaces what the clipboard has by the first nLength characters. False where the clipboard does not take
// them: nothing happens while another window has it open.
bool PutClipboardText(HWND hwnd, LPCWSTR psz, UINT nLength);

// A copy of the clipboard's text in *pstr. False, with *pstr as it was, where there is none to be had.
bool GetClipboardText(HWND hwnd, OStringEx<wchar_t>* pstr);

} // namespace gesso
