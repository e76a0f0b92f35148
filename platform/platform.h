// The one door to the platform. Library code, hosts and tests include this header and call the platform's
// operations by their own names; which build it is decides who answers them: Windows itself, or the desktop
// simulated in memory under platform/headless/.
#pragma once

#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif

// The wide runtime functions are redirected below on headless, so the standard headers that declare them
// come first.
#include <cstdarg>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <cwctype>
#include <string>

#if !defined(_WIN32)
// WCHAR is wchar_t, as on Windows, and not char16_t.
#ifndef WINE_UNICODE_NATIVE
#define WINE_UNICODE_NATIVE
#endif
#include <windef.h>
// One calling convention on Linux: the platform's would only cost registers at every call.
#undef __stdcall
#define __stdcall
#undef __cdecl
#define __cdecl
#endif

#include <windows.h>

#include <windowsx.h>

#include <commctrl.h>
#include <commoncontrols.h>
#include <oleacc.h>
#include <oleauto.h>
#include <usp10.h>
#include <uxtheme.h>
#include <vssym32.h>

static_assert(sizeof(wchar_t) == 2, "headless builds need -fshort-wchar: link against gesso::headless");
static_assert(sizeof(LONG) == 4 && sizeof(void*) == 8, "Gesso is for 64-bit Windows records");

#if defined(_WIN32)
#include "windows/runtime.h"
#else
#include "headless/runtime.h"
#endif

namespace gesso {

// "WM_CREATE"; null for a message that has no name here. For traces.
const char* NameOfMessage(UINT message);

} // namespace gesso
