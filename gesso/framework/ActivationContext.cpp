#include <gesso/framework/ActivationContext.h>

#include <atomic>

namespace {

constexpr ULONG_PTR NOT_SET_UP = ~static_cast<ULONG_PTR>(0);

} // namespace

constinit ULONG_PTR g_hActCtx = NOT_SET_UP;
constinit bool g_fActCtxUnavailable = false;
constinit bool g_fIsolationCleanupCalled = false;
constinit bool g_fIsolationDownlevel = false;
constinit HMODULE g_hComctl32 = nullptr;

namespace {

constexpr WORD MANIFEST_ID = 3;
constexpr DWORD PATH_CAPACITY = MAX_PATH + 1;
constexpr const wchar_t* COMMON_CONTROLS = L"Comctl32.dll";

// The library's one context, which any thread may be setting up.
ULONG_PTR Context()
{
    return std::atomic_ref(g_hActCtx);
}

bool IsUnavailable()
{
    return std::atomic_ref(g_fActCtxUnavailable);
}

HANDLE HandleOf(ULONG_PTR hActCtx)
{
    return reinterpret_cast<HANDLE>(hActCtx);
}

// --- Set-up

bool MeansNoManifest(DWORD dwError)
{
    return (dwError >= ERROR_RESOURCE_DATA_NOT_FOUND && dwError <= ERROR_RESOURCE_LANG_NOT_FOUND) ||
           dwError == ERROR_FILE_NOT_FOUND || dwError == ERROR_PATH_NOT_FOUND;
}

bool FindOwnModule(HMODULE* phModule, wchar_t* pszPath)
{
    if (!GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                                GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                            reinterpret_cast<LPCWSTR>(&g_hActCtx), phModule))
    {
        return false;
    }
    const DWORD nLength = GetModuleFileNameW(*phModule, pszPath, PATH_CAPACITY);
    if (nLength >= PATH_CAPACITY) {
        SetLastError(ERROR_BUFFER_OVERFLOW);
    }
    return nLength != 0 && nLength < PATH_CAPACITY;
}

// The context that the library's manifest describes; null in *phActCtx where it has none.
bool CreateOwnContext(ULONG_PTR* phActCtx)
{
    HMODULE hModule = nullptr;
    wchar_t szPath[PATH_CAPACITY];
    if (!FindOwnModule(&hModule, szPath)) {
        return false;
    }
    ACTCTXW context{};
    context.cbSize = sizeof(context);
    context.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID | ACTCTX_FLAG_HMODULE_VALID;
    context.lpSource = szPath;
    context.lpResourceName = MAKEINTRESOURCEW(MANIFEST_ID);
    context.hModule = hModule;
    const HANDLE hActCtx = CreateActCtxW(&context);
    *phActCtx = hActCtx == INVALID_HANDLE_VALUE ? 0 : reinterpret_cast<ULONG_PTR>(hActCtx);
    return hActCtx != INVALID_HANDLE_VALUE || MeansNoManifest(GetLastError());
}

// Keeps the version of the common controls that the context names loaded.
void PinCommonControls(ULONG_PTR hActCtx)
{
    ULONG_PTR cookie = 0;
    if (!ActivateActCtx(HandleOf(hActCtx), &cookie)) {
        return;
    }
    ACTCTX_SECTION_KEYED_DATA data{};
    data.cbSize = sizeof(data);
    if (FindActCtxSectionStringW(0, nullptr, ACTIVATION_CONTEXT_SECTION_DLL_REDIRECTION, COMMON_CONTROLS,
                                 &data)) {
        LoadLibraryW(COMMON_CONTROLS);
    }
    DeactivateActCtx(0, cookie);
}

// Without a lock, since loading a library takes the loader's. Of threads that come at once each makes a
// context, and all but the first give theirs back.
bool IsolationAwareInit()
{
    if (IsUnavailable() || Context() != NOT_SET_UP) {
        return true;
    }
    ACTIVATION_CONTEXT_BASIC_INFORMATION basic{};
    if (!QueryActCtxW(QUERY_ACTCTX_FLAG_NO_ADDREF | QUERY_ACTCTX_FLAG_ACTCTX_IS_ADDRESS, &g_hActCtx, nullptr,
                      ActivationContextBasicInformation, &basic, sizeof(basic), nullptr))
    {
        return false;
    }
    auto hActCtx = reinterpret_cast<ULONG_PTR>(basic.hActCtx);
    const bool fOwn = !hActCtx;
    if (fOwn && !CreateOwnContext(&hActCtx)) {
        return false;
    }
    PinCommonControls(hActCtx);
    ULONG_PTR former = NOT_SET_UP;
    if (!std::atomic_ref(g_hActCtx).compare_exchange_strong(former, hActCtx) && fOwn && hActCtx) {
        ReleaseActCtx(HandleOf(hActCtx));
    }
    return true;
}

// --- Prologue and epilogue

bool MeansNoContexts(DWORD dwError)
{
    switch (dwError) {
    case ERROR_MOD_NOT_FOUND:
    case ERROR_PROC_NOT_FOUND:
    case ERROR_CALL_NOT_IMPLEMENTED:
    case ERROR_INVALID_FUNCTION:
    case ERROR_NOT_SUPPORTED: return true;
    default: return false;
    }
}

// Activates the context, setting it up first where needed. False means that nothing may be called.
bool Activate(ULONG_PTR* pCookie)
{
    bool fSetUp = true;
    if (g_fIsolationCleanupCalled) {
        OutputDebugStringA("IsolationAware function called after IsolationAwareCleanup\n");
        if (IsUnavailable()) {
            return true;
        }
    } else {
        fSetUp = IsolationAwareInit();
    }
    if (fSetUp && ActivateActCtx(HandleOf(Context()), pCookie)) {
        return true;
    }
    if (!MeansNoContexts(GetLastError())) {
        return false;
    }
    std::atomic_ref(g_fActCtxUnavailable).store(true);
    return true;
}

bool Enter(ULONG_PTR* pCookie)
{
    return g_fIsolationDownlevel || IsUnavailable() || Activate(pCookie);
}

bool EnterUnlessUnavailable(ULONG_PTR* pCookie)
{
    return IsUnavailable() || Activate(pCookie);
}

// The caller is to see the wrapped operation's last error, not the deactivation's.
void Leave(ULONG_PTR cookie, bool fKeepError)
{
    if (g_fIsolationDownlevel && IsUnavailable()) {
        return;
    }
    const DWORD dwError = fKeepError ? GetLastError() : 0;
    DeactivateActCtx(0, cookie);
    if (fKeepError) {
        SetLastError(dwError);
    }
}

template <class RESULT, class CALL> RESULT CallInContext(RESULT failure, CALL call)
{
    ULONG_PTR cookie = 0;
    if (!Enter(&cookie)) {
        return failure;
    }
    const RESULT result = call();
    Leave(cookie, result == failure);
    return result;
}

// --- Common-controls operations, looked up by name

FARPROC LookUpInContext(const char* pszName)
{
    HMODULE hModule = std::atomic_ref(g_hComctl32);
    if (!hModule) {
        hModule = LoadLibraryW(COMMON_CONTROLS);
        std::atomic_ref(g_hComctl32).store(hModule);
    }
    return GetProcAddress(hModule, pszName);
}

FARPROC IsolationAwareGetProcAddress(const char* pszName)
{
    ULONG_PTR cookie = 0;
    if (!EnterUnlessUnavailable(&cookie)) {
        return nullptr;
    }
    const FARPROC pfn = LookUpInContext(pszName);
    Leave(cookie, !pfn);
    return pfn;
}

// Looks the operation up at its first use; only a success is remembered.
template <class FUNCTION> FUNCTION LookUp(std::atomic<FUNCTION>& known, const char* pszName)
{
    FUNCTION pfn = known;
    if (!pfn) {
        pfn = reinterpret_cast<FUNCTION>(reinterpret_cast<void*>(IsolationAwareGetProcAddress(pszName)));
        known = pfn;
    }
    return pfn;
}

constinit std::atomic<decltype(&ImageList_Create)> s_pfnImageListCreate = nullptr;
constinit std::atomic<decltype(&ImageList_Destroy)> s_pfnImageListDestroy = nullptr;
constinit std::atomic<decltype(&ImageList_Add)> s_pfnImageListAdd = nullptr;
constinit std::atomic<decltype(&ImageList_DrawEx)> s_pfnImageListDrawEx = nullptr;
constinit std::atomic<decltype(&LoadIconWithScaleDown)> s_pfnLoadIconWithScaleDown = nullptr;

// As it was looked up before, or can be without the context; null where the common controls were not needed
// yet, and no list was made.
decltype(&ImageList_Destroy) DestroyFunction()
{
    const HMODULE hModule = std::atomic_ref(g_hComctl32);
    const auto pfnKnown = s_pfnImageListDestroy.load();
    if (pfnKnown || !hModule) {
        return pfnKnown;
    }
    const FARPROC pfn = GetProcAddress(hModule, "ImageList_Destroy");
    return reinterpret_cast<decltype(&ImageList_Destroy)>(reinterpret_cast<void*>(pfn));
}

HRESULT ResultOfLastError()
{
    const auto lError = static_cast<LONG>(GetLastError());
    if (lError == 0) {
        return static_cast<HRESULT>(0x8007054F);
    }
    return lError < 0 ? lError : static_cast<HRESULT>((static_cast<DWORD>(lError) & 0xFFFF) | 0x80070000);
}

} // namespace

HWND IsolationAwareCreateWindowExW(DWORD dwExStyle, LPCWSTR pszClass, LPCWSTR pszName, DWORD dwStyle, int x,
                                   int y, int cx, int cy, HWND hwndParent, HMENU hMenu, HINSTANCE,
                                   void* pParam)
{
    return CallInContext<HWND>(nullptr, [&] {
        return CreateWindowExW(dwExStyle, pszClass, pszName, dwStyle, x, y, cx, cy, hwndParent, hMenu,
                               nullptr, pParam);
    });
}

ATOM IsolationAwareRegisterClassExW(const WNDCLASSEXW* pClass)
{
    return CallInContext<ATOM>(0, [&] { return RegisterClassExW(pClass); });
}

INT_PTR IsolationAwareDialogBoxIndirectParamW(HINSTANCE hInstance, const DLGTEMPLATE* pTemplate,
                                              HWND hwndParent, DLGPROC pfnDialog, LPARAM lParam)
{
    return CallInContext<INT_PTR>(
        -1, [&] { return DialogBoxIndirectParamW(hInstance, pTemplate, hwndParent, pfnDialog, lParam); });
}

HWND IsolationAwareCreateDialogIndirectParamW(HINSTANCE hInstance, const DLGTEMPLATE* pTemplate,
                                              HWND hwndParent, DLGPROC pfnDialog, LPARAM lParam)
{
    return CallInContext<HWND>(nullptr, [&] {
        return CreateDialogIndirectParamW(hInstance, pTemplate, hwndParent, pfnDialog, lParam);
    });
}

HIMAGELIST IsolationAwareImageList_Create(int cx, int cy, int nInitial)
{
    return CallInContext<HIMAGELIST>(nullptr, [&] {
        const auto pfn = LookUp(s_pfnImageListCreate, "ImageList_Create");
        return pfn ? pfn(cx, cy, ILC_MASK | ILC_COLOR32, nInitial, 4) : nullptr;
    });
}

BOOL IsolationAwareImageList_Destroy(HIMAGELIST hImageList)
{
    // Without the context too: nobody would destroy the list later.
    ULONG_PTR cookie = 0;
    const bool fEntered = Enter(&cookie);
    const auto pfn = fEntered ? LookUp(s_pfnImageListDestroy, "ImageList_Destroy") : DestroyFunction();
    const BOOL fDestroyed = pfn ? pfn(hImageList) : FALSE;
    if (fEntered) {
        Leave(cookie, !fDestroyed);
    }
    return fDestroyed;
}

int IsolationAwareImageList_Add(HIMAGELIST hImageList, HBITMAP hBitmap)
{
    return CallInContext<int>(-1, [&] {
        const auto pfn = LookUp(s_pfnImageListAdd, "ImageList_Add");
        return pfn ? pfn(hImageList, hBitmap, nullptr) : -1;
    });
}

BOOL IsolationAwareImageList_DrawEx(HIMAGELIST hImageList, int i, HDC hdc, int x, int y, int cx, int cy)
{
    return CallInContext<BOOL>(FALSE, [&] {
        const auto pfn = LookUp(s_pfnImageListDrawEx, "ImageList_DrawEx");
        return pfn ? pfn(hImageList, i, hdc, x, y, cx, cy, CLR_NONE, CLR_NONE, ILD_NORMAL) : FALSE;
    });
}

// Unlike its siblings it does not keep the last error across the deactivation.
HRESULT IsolationAwareLoadIconWithScaleDown(HINSTANCE hInstance, LPCWSTR pszName, int cx, int cy,
                                            HICON* phIcon)
{
    ULONG_PTR cookie = 0;
    if (!Enter(&cookie)) {
        return ResultOfLastError();
    }
    const auto pfn = LookUp(s_pfnLoadIconWithScaleDown, "LoadIconWithScaleDown");
    const HRESULT hr = pfn ? pfn(hInstance, pszName, cx, cy, phIcon) : ResultOfLastError();
    Leave(cookie, false);
    return hr;
}
