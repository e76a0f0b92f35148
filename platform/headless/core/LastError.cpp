#include "../headless.h"

namespace {
constinit thread_local DWORD s_error = 0;
} // namespace

extern "C" {

DWORD WINAPI GetLastError()
{
    return s_error;
}

void WINAPI SetLastError(DWORD error)
{
    s_error = error;
}
}
