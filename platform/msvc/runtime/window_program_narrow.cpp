// How a program with windows starts whose command line is of bytes.
#include "runtime.h"

#include <stdlib.h>

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int);

extern "C" void WinMainCRTStartup()
{
    runtime::RunInitialisers();
    exit(WinMain(GetModuleHandleW(nullptr), nullptr, runtime::ArgumentsOf(GetCommandLineA()),
                 runtime::ShowCommand()));
}
