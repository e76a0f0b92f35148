// How a DLL starts.
#include "runtime.h"

extern "C" {

int __cdecl _initialize_onexit_table(runtime::Endings*);
int __cdecl _execute_onexit_table(runtime::Endings*);
BOOL WINAPI DllMain(HINSTANCE, DWORD, LPVOID);

BOOL WINAPI DefaultDllMain(HINSTANCE, DWORD, LPVOID)
{
    return TRUE;
}
#pragma comment(linker, "/alternatename:DllMain=DefaultDllMain")

BOOL WINAPI _DllMainCRTStartup(HINSTANCE hInst, DWORD dwReason, LPVOID pReserved)
{
    static constinit runtime::Endings s_endings{};
    if (dwReason == DLL_PROCESS_ATTACH) {
        _initialize_onexit_table(&s_endings);
        runtime::g_pEndings = &s_endings;
        runtime::RunInitialisers();
    }
    const BOOL fDone = DllMain(hInst, dwReason, pReserved);
    if (dwReason == DLL_PROCESS_DETACH) {
        _execute_onexit_table(&s_endings);
    }
    return fDone;
}

} // extern "C"
