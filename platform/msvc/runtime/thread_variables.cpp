// Variables of a thread that are made by code, and what ends them with it.
#include <windows.h>

#include <stdlib.h>

namespace {

using Function = void(__cdecl*)();

struct Ending
{
    Function pfn;
    Ending* pNext;
};
__declspec(thread) Ending* s_pLast = nullptr;

} // namespace

#pragma section(".CRT$XDA", long, read)
#pragma section(".CRT$XDZ", long, read)
#pragma section(".CRT$XLC", long, read)

extern "C" {

__declspec(allocate(".CRT$XDA")) Function __xd_a = nullptr;
__declspec(allocate(".CRT$XDZ")) Function __xd_z = nullptr;

// Whether this thread has made its variables: one that was there before the module has not.
__declspec(thread) bool __tls_guard = false;

// What is registered last ends first. Without memory it does not end.
int __cdecl __tlregdtor(Function pfn)
{
    auto* const pEnding = static_cast<Ending*>(malloc(sizeof(Ending)));
    if (!pEnding) {
        return -1;
    }
    *pEnding = {pfn, s_pLast};
    s_pLast = pEnding;
    return 0;
}

void WINAPI __dyn_tls_init(PVOID, DWORD dwReason, LPVOID) noexcept
{
    if (dwReason != DLL_THREAD_ATTACH && dwReason != DLL_PROCESS_ATTACH) {
        return;
    }
    if (__tls_guard) {
        return;
    }
    __tls_guard = true;
    Function* const volatile end = &__xd_z;
    for (Function* p = &__xd_a + 1; p < end; ++p) {
        if (*p) {
            (*p)();
        }
    }
}

void __cdecl __dyn_tls_on_demand_init() noexcept
{
    __dyn_tls_init(nullptr, DLL_THREAD_ATTACH, nullptr);
}

void WINAPI __dyn_tls_end(PVOID, DWORD dwReason, LPVOID) noexcept
{
    if (dwReason != DLL_THREAD_DETACH && dwReason != DLL_PROCESS_DETACH) {
        return;
    }
    while (Ending* const pEnding = s_pLast) {
        s_pLast = pEnding->pNext;
        pEnding->pfn();
        free(pEnding);
    }
}

extern const PIMAGE_TLS_CALLBACK __dyn_tls_begin_callback;
extern const PIMAGE_TLS_CALLBACK __dyn_tls_end_callback;
__declspec(allocate(".CRT$XLC")) const PIMAGE_TLS_CALLBACK __dyn_tls_begin_callback = __dyn_tls_init;
__declspec(allocate(".CRT$XLC")) const PIMAGE_TLS_CALLBACK __dyn_tls_end_callback = __dyn_tls_end;

} // extern "C"
