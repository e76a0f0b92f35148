// Variables in functions, which the first thread that comes by makes while others wait.
#include <windows.h>

#include <limits.h>

namespace {

constexpr int NOT_BEGUN = 0;
constexpr int BEGUN = -1;

SRWLOCK s_lock = SRWLOCK_INIT;
CONDITION_VARIABLE s_ended = CONDITION_VARIABLE_INIT;
int s_nEpoch = INT_MIN;

} // namespace

// What is made has the epoch of then; a thread that knows a later one need not ask.
extern "C" {

__declspec(thread) int _Init_thread_epoch = INT_MIN;

void __cdecl _Init_thread_header(int* pState)
{
    AcquireSRWLockExclusive(&s_lock);
    while (*pState == BEGUN) {
        SleepConditionVariableSRW(&s_ended, &s_lock, INFINITE, 0);
    }
    if (*pState == NOT_BEGUN) {
        *pState = BEGUN;
    } else {
        _Init_thread_epoch = s_nEpoch;
    }
    ReleaseSRWLockExclusive(&s_lock);
}

void __cdecl _Init_thread_footer(int* pState)
{
    AcquireSRWLockExclusive(&s_lock);
    *pState = ++s_nEpoch;
    _Init_thread_epoch = s_nEpoch;
    ReleaseSRWLockExclusive(&s_lock);
    WakeAllConditionVariable(&s_ended);
}

void __cdecl _Init_thread_abort(int* pState)
{
    AcquireSRWLockExclusive(&s_lock);
    *pState = NOT_BEGUN;
    ReleaseSRWLockExclusive(&s_lock);
    WakeAllConditionVariable(&s_ended);
}

} // extern "C"
