// How a program with windows starts whose command line is wide.
#include "runtime.h"

#include <stdlib.h>

int WINAPI wWinMain(HINSTANCE, HINSTANCE, LPWSTR, int);

extern "C" void wWinMainCRTStartup()
{
    runtime::RunInitialisers();
    exit(wWinMain(GetModuleHandleW(nullptr), nullptr, runtime::ArgumentsOf(GetCommandLineW()),
                  runtime::ShowCommand()));
}
