#include <gallery/Slices.h>

#include <utility>

namespace gallery {
namespace {

constexpr UINT_PTR TIMER = 91;
constexpr UINT PAUSE = USER_TIMER_MINIMUM;
constexpr ULONGLONG SLICE = 70; // milliseconds, in which nothing else is answered

} // namespace

UINT Slices::Share(size_t nDone, size_t nAll)
{
    return nDone < nAll ? static_cast<UINT>(DONE * nDone / nAll) : DONE;
}

void Slices::Start(HWND hwnd, GProgressBar& bar, Step step, End end)
{
    m_hwnd = hwnd;
    m_pBar = &bar;
    m_step = std::move(step);
    m_end = std::move(end);
    m_pBar->SetProgress(0);
    m_pBar->SetVisible(1);
    SetTimer(m_hwnd, TIMER, PAUSE, nullptr);
}

void Slices::Stop()
{
    if (GProgressBar* pBar = std::exchange(m_pBar, nullptr)) {
        KillTimer(m_hwnd, TIMER);
        pBar->SetVisible(0);
    }
}

void Slices::OnTimer()
{
    if (!AreRunning()) {
        return;
    }
    const ULONGLONG end = GetTickCount64() + SLICE;
    UINT uDone = 0;
    do {
        uDone = m_step();
    } while (uDone < DONE && GetTickCount64() < end);
    m_pBar->SetProgress(uDone);
    if (uDone >= DONE) {
        Stop();
        const End atEnd = std::exchange(m_end, nullptr); // which may start the next
        atEnd();
    }
}

} // namespace gallery
