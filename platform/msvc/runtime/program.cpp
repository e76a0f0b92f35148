// How a program of the console starts.
#include "runtime.h"

#include <stdlib.h>

extern "C" {

int main(int, char**);
int __cdecl _configure_narrow_argv(int);

void mainCRTStartup()
{
    _configure_narrow_argv(1);
    runtime::RunInitialisers();
    exit(main(*__p___argc(), *__p___argv()));
}

} // extern "C"
