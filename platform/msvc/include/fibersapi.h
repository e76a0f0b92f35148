// The C++ library's headers include it for thread-local variables; Wine's windows.h has its contents.
#include <windows.h>
