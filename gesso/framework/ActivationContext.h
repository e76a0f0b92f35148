// Calls of the platform that depend on which common controls are loaded, made inside the library's own
// activation context. Each wrapper has the parameters and the result of the operation it wraps; four narrow
// the call.
#pragma once

#include <gesso/api.h>

// The library's activation context: a handle, null for none, or all bits set (INVALID_HANDLE_VALUE) before
// the first set-up. An integer, so that it starts from a constant.
extern ULONG_PTR g_hActCtx;
// Set when the platform turns out to have no activation contexts; none is activated from then on.
extern bool g_fActCtxUnavailable;
// Never set. The wrappers' control flow tests them all the same, in the order of the platform's own isolation
// code.
extern bool g_fIsolationCleanupCalled;
extern bool g_fIsolationDownlevel;
// Where common-controls operations are looked up; loaded once and never freed.
extern HMODULE g_hComctl32;

// Always passes a null instance: the classes are found by being global.
HWND IsolationAwareCreateWindowExW(DWORD dwExStyle, LPCWSTR pszClass, LPCWSTR pszName, DWORD dwStyle, int x,
                                   int y, int cx, int cy, HWND hwndParent, HMENU hMenu, HINSTANCE hInstance,
                                   void* pParam);
ATOM IsolationAwareRegisterClassExW(const WNDCLASSEXW* pClass);
INT_PTR IsolationAwareDialogBoxIndirectParamW(HINSTANCE hInstance, const DLGTEMPLATE* pTemplate,
                                              HWND hwndParent, DLGPROC pfnDialog, LPARAM lParam);
HWND IsolationAwareCreateDialogIndirectParamW(HINSTANCE hInstance, const DLGTEMPLATE* pTemplate,
                                              HWND hwndParent, DLGPROC pfnDialog, LPARAM lParam);
// Always with a mask, 32 bits of colour and growth by 4.
HIMAGELIST IsolationAwareImageList_Create(int cx, int cy, int nInitial);
BOOL IsolationAwareImageList_Destroy(HIMAGELIST hImageList);
// Always with a null mask.
int IsolationAwareImageList_Add(HIMAGELIST hImageList, HBITMAP hBitmap);
// Always with no background and foreground colour and the plain style.
BOOL IsolationAwareImageList_DrawEx(HIMAGELIST hImageList, int i, HDC hdc, int x, int y, int cx, int cy);
HRESULT IsolationAwareLoadIconWithScaleDown(HINSTANCE hInstance, LPCWSTR pszName, int cx, int cy,
                                            HICON* phIcon);
