// What a program with Microsoft's C++ interface starts with, in place of that compiler's own static runtime:
// the C runtime is the system's ucrtbase.dll, and exceptions are handled by it as well.
#pragma once

#include <windows.h>

namespace runtime {

// Runs what is to run before anything else of a module, in the order of its sources.
void RunInitialisers();

// What a DLL has to run at its end; null in a program. In the form of the C runtime, which works with it.
struct Endings
{
    void* pFirst;
    void* pLast;
    void* pEnd;
};
extern Endings* g_pEndings;

// Of a command line what stands behind the program's name, which may be quoted.
template <class CHARACTER> CHARACTER* ArgumentsOf(CHARACTER* psz)
{
    bool fQuoted = false;
    for (; *psz && (fQuoted || (*psz != ' ' && *psz != '\t')); ++psz) {
        fQuoted = fQuoted != (*psz == '"');
    }
    while (*psz == ' ' || *psz == '\t') {
        ++psz;
    }
    return psz;
}

// How whoever started the program wants its window.
inline int ShowCommand()
{
    STARTUPINFOW info{};
    GetStartupInfoW(&info);
    return info.dwFlags & STARTF_USESHOWWINDOW ? info.wShowWindow : SW_SHOWDEFAULT;
}

} // namespace runtime
