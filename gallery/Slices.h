// Work that is too long for one message, done slice by slice from a timer, so that the program goes on
// meanwhile; a progress bar shows how far it is.
#pragma once

#include <gesso/gesso.h>

#include <functional>

namespace gallery {

class Slices
{
public:
    static constexpr UINT DONE = 1000;
    // How much so many of all are, in thousandths.
    static UINT Share(size_t nDone, size_t nAll);

    // Does a small part of the work and returns how much of all is done by now, in thousandths.
    using Step = std::function<UINT()>;
    using End = std::function<void()>;

    // Begins at the window's next WM_TIMER; what was going on before is dropped. The bar is shown until then.
    void Start(HWND hwnd, GProgressBar& bar, Step step, End end);
    // Drops what is left to do, without its end.
    void Stop();
    bool AreRunning() const { return m_pBar != nullptr; }
    // For the window's WM_TIMER: a slice's worth of steps, and the end after the last one.
    void OnTimer();

private:
    HWND m_hwnd = nullptr;
    GProgressBar* m_pBar = nullptr; // null where nothing is going on
    Step m_step;
    End m_end;
};

} // namespace gallery
