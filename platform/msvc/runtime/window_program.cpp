// How a program with windows starts whose command line is wide.
#include "runtime.h"

#include <corecrt_startup.h>
#include <stdlib.h>

int WINAPI wWinMain(HINSTANCE, HINSTANCE, LPWSTR, int);

extern "C" void wWinMainCRTStartup()
{
    _set_app_type(_crt_gui_app);
    _configure_wide_argv(_crt_argv_unexpanded_arguments);
    _initialize_wide_environment();
    runtime::RunInitialisers();
    exit(wWinMain(GetModuleHandleW(nullptr), nullptr, runtime::ArgumentsOf(GetCommandLineW()),
                  runtime::ShowCommand()));
}
