// The clipboard's text, for a control. Both operations send messages to the window that has put its content
// there, which may destroy any control: they are false then.
#pragma once

#include <gesso/containers/OStringEx.h>
#include <gesso/framework/GWnd.h>

namespace gesso {

// Replaces what the clipboard has by the first nLength characters. False where the clipboard does not take
// them: nothing happens while another window has it open.
bool PutClipboardText(const GWnd& wnd, LPCWSTR psz, UINT nLength);

// A copy of the clipboard's text in *pstr, which is empty. False where there is none to be had, or no memory
// for it.
bool GetClipboardText(const GWnd& wnd, OStringEx<wchar_t>* pstr);

} // namespace gesso
