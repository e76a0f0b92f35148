// How a program with windows starts whose command line is of bytes.
#include "runtime.h"

#include <corecrt_startup.h>
#include <stdlib.h>

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int);

extern "C" void WinMainCRTStartup()
{
    _set_app_type(_crt_gui_app);
    _configure_narrow_argv(_crt_argv_unexpanded_arguments);
    _initialize_narrow_environment();
    runtime::RunInitialisers();
    exit(WinMain(GetModuleHandleW(nullptr), nullptr, runtime::ArgumentsOf(GetCommandLineA()),
                 runtime::ShowCommand()));
}
