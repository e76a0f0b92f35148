// How a program of the console starts whose command line is wide.
#include "runtime.h"

#include <corecrt_startup.h>
#include <stdlib.h>

extern "C" {

int wmain(int, wchar_t**, wchar_t**);

void wmainCRTStartup()
{
    _set_app_type(_crt_console_app);
    _configure_wide_argv(_crt_argv_unexpanded_arguments);
    _initialize_wide_environment();
    runtime::RunInitialisers();
    exit(wmain(*__p___argc(), *__p___wargv(), *__p__wenviron()));
}

} // extern "C"
