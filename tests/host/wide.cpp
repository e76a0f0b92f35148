// A host of the console whose command line is wide: how a program starts is the compiler's own as well. Links
// to a library of the system's that no program has by itself.
#include <gesso/gesso.h>

#include <stdlib.h>
#include <wchar.h>
#include <winver.h>

namespace {

bool TellsItsVersion()
{
    wchar_t szPath[MAX_PATH]{};
    GetModuleFileNameW(GetModuleHandleW(L"gesso.dll"), szPath, MAX_PATH);
    DWORD dwUnused = 0;
    return GetFileVersionInfoSizeW(szPath, &dwUnused) > 0;
}

} // namespace

int wmain(int nArguments, wchar_t** ppszArguments)
{
    InitControls();
    const bool fStarted =
        nArguments == 2 && wcscmp(ppszArguments[1], L"two words") == 0 && _wgetenv(L"PATH") != nullptr;
    return fStarted && g_hDefaultFont && TellsItsVersion() ? 0 : 1;
}
