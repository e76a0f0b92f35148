// How a program of the console starts whose command line is of bytes.
#include "runtime.h"

#include <corecrt_startup.h>
#include <stdlib.h>

extern "C" {

int main(int, char**, char**);

void mainCRTStartup()
{
    _set_app_type(_crt_console_app);
    _configure_narrow_argv(_crt_argv_unexpanded_arguments);
    _initialize_narrow_environment();
    runtime::RunInitialisers();
    exit(main(*__p___argc(), *__p___argv(), *__p__environ()));
}

} // extern "C"
