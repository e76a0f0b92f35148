// A host of the console whose command line is wide: how a program starts is the compiler's own as well.
#include <gesso/gesso.h>

#include <stdlib.h>
#include <wchar.h>

int wmain(int nArguments, wchar_t** ppszArguments)
{
    InitControls();
    const bool fStarted =
        nArguments == 2 && wcscmp(ppszArguments[1], L"two words") == 0 && _wgetenv(L"PATH") != nullptr;
    return fStarted && g_hDefaultFont ? 0 : 1;
}
