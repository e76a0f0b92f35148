// The repeat of a held arrow or track, for GWndScroll and GScrollbar.
//
// Each thread has one repeat of either class. The three static members of the class, whose names are
// exported, tell of the bar that began to repeat last, on whichever thread; they are written here and nowhere
// else, and the library does not go by them.
#pragma once

#include <gesso/framework/SystemTime.h>

#include <atomic>

namespace gesso {

// The repeat of the thread's own bar.
template <class BAR> struct RepeatState
{
    BAR* pBar = nullptr;
    UINT_PTR nTimer = 0; // 0 for none
    ULONGLONG time = 0;  // what the class counts the delay of the first repeat from
};

template <class BAR> struct ScrollRepeat
{
    RepeatState<BAR>& own;
    BAR*& pBarTold;
    UINT_PTR& nTimerTold;
    ULONGLONG& timeTold;

    bool IsOf(const BAR& bar) const { return own.pBar == &bar; }

    // Ends the repeat of another bar. The timer's messages come to the callback from then on.
    void Start(BAR& bar, UINT nMilliseconds, ULONGLONG timeFrom, TIMERPROC pCallback)
    {
        Stop();
        own = {&bar, SetTimer(nullptr, 0, nMilliseconds, pCallback), timeFrom};
        std::atomic_ref(pBarTold).store(own.pBar);
        std::atomic_ref(nTimerTold).store(own.nTimer);
        std::atomic_ref(timeTold).store(own.time);
    }

    void Stop()
    {
        if (own.nTimer) {
            KillTimer(nullptr, own.nTimer);
            TakeBack(nTimerTold, own.nTimer);
            own.nTimer = 0;
        }
    }

    // The bar goes: a message of the timer that waits finds none.
    void Forget(const BAR& bar)
    {
        if (IsOf(bar)) {
            Stop();
            TakeBack(pBarTold, own.pBar);
            own.pBar = nullptr;
        }
    }

private:
    // Another thread's bar may have begun since.
    template <class VALUE> static void TakeBack(VALUE& told, VALUE mine)
    {
        std::atomic_ref(told).compare_exchange_strong(mine, VALUE());
    }
};

} // namespace gesso
