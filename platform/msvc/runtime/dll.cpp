// How a DLL starts.
#include "runtime.h"

extern "C" {

BOOL WINAPI DllMain(HINSTANCE, DWORD, LPVOID);

BOOL WINAPI DefaultDllMain(HINSTANCE, DWORD, LPVOID)
{
    return TRUE;
}
#pragma comment(linker, "/alternatename:DllMain=DefaultDllMain")

BOOL WINAPI _DllMainCRTStartup(HINSTANCE hInst, DWORD dwReason, LPVOID pReserved)
{
    if (dwReason == DLL_PROCESS_ATTACH) {
        runtime::RunInitialisers();
    }
    return DllMain(hInst, dwReason, pReserved);
}

} // extern "C"
