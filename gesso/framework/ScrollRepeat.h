// The repeat of a held arrow or track, for GWndScroll and GScrollbar.
//
// The whole state of a repeat stands in three static members of either class, whose names are exported; they
// are written here and nowhere else. They are the process's: only one bar of a class repeats at a time.
#pragma once

#include <gesso/framework/SystemTime.h>

namespace gesso {

template <class BAR> struct ScrollRepeat
{
    BAR*& pBar;
    UINT_PTR& nTimer; // 0 for none
    ULONGLONG& time;  // what the class counts the delay of the first repeat from

    // Ends the repeat of another bar. The timer's messages come to the callback from then on.
    void Start(BAR& bar, UINT nMilliseconds, ULONGLONG timeFrom, TIMERPROC pCallback)
    {
        Stop();
        pBar = &bar;
        nTimer = SetTimer(nullptr, 0, nMilliseconds, pCallback);
        time = timeFrom;
    }

    void Stop()
    {
        if (nTimer) {
            KillTimer(nullptr, nTimer);
            nTimer = 0;
        }
    }

    // The bar goes: a message of the timer that waits finds none.
    void Forget(const BAR& bar)
    {
        if (pBar == &bar) {
            Stop();
            pBar = nullptr;
        }
    }
};

} // namespace gesso
