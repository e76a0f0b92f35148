#include <gesso/access/OleApi.h>
#include <gesso/framework/MakeOnce.h>

#include <atomic>

namespace gesso {
namespace {

constinit OleApi s_api{};
constinit std::atomic<const OleApi*> s_pApi = nullptr;

// A module of the system's, which stays for the life of the process: objects that it made may outlive the
// library's windows.
template <class FUNCTION> bool Find(LPCWSTR pszModule, const char* pszName, FUNCTION& pfn)
{
    const HMODULE hModule = LoadLibraryExW(pszModule, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    const FARPROC pfnFound = hModule ? GetProcAddress(hModule, pszName) : nullptr;
    pfn = reinterpret_cast<FUNCTION>(reinterpret_cast<void*>(pfnFound));
    return pfn != nullptr;
}

bool FindAll(OleApi& api)
{
    constexpr LPCWSTR ACCESS = L"oleacc.dll";
    constexpr LPCWSTR AUTOMATION = L"oleaut32.dll";
    return Find(ACCESS, "LresultFromObject", api.pfnLresultFromObject) &&
           Find(ACCESS, "AccessibleObjectFromWindow", api.pfnObjectFromWindow) &&
           Find(ACCESS, "WindowFromAccessibleObject", api.pfnWindowFromObject) &&
           Find(ACCESS, "AccessibleChildren", api.pfnChildren) &&
           Find(AUTOMATION, "SysAllocStringLen", api.pfnAllocString) &&
           Find(AUTOMATION, "SysFreeString", api.pfnFreeString) &&
           Find(AUTOMATION, "VariantClear", api.pfnClearVariant) &&
           Find(AUTOMATION, "LoadRegTypeLib", api.pfnLoadTypeLibrary) &&
           Find(L"ole32.dll", "CoDisconnectObject", api.pfnDisconnect);
}

} // namespace

const OleApi* FindOleApi()
{
    if (const OleApi* pApi = s_pApi) {
        return pApi;
    }
    OleApi api{};
    if (!FindAll(api)) {
        return nullptr; // the next one to ask tries again
    }
    const ScopedLock lock(g_makeOnceLock);
    if (!s_pApi.load()) {
        s_api = api;
        s_pApi = &s_api;
    }
    return s_pApi;
}

const OleApi* LoadedOleApi()
{
    return s_pApi;
}

bool IsSameId(const GUID& a, const GUID& b)
{
    return std::memcmp(&a, &b, sizeof(GUID)) == 0;
}

} // namespace gesso
