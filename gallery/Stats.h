// What the gallery holds of the system, noted four times a second for a run that lasts: the file that --stats
// names. A thread of its own asks the gallery's window to answer before each note, so that a gap in its clock
// is a time in which the gallery did not: a timer's message would wait for all input as well.
#pragma once

#include <gesso/api.h>

#include <atomic>
#include <cstdio>
#include <string>
#include <thread>

namespace gallery {

class Stats
{
public:
    Stats() = default;
    ~Stats();
    Stats(const Stats&) = delete;
    Stats& operator=(const Stats&) = delete;

    // Starts the notes on a window's thread, which is the caller's: milliseconds, GDI objects, windows, each
    // as a number, a line each time. False where the file could not be made. The window is to be gone when
    // this object goes.
    bool Start(const std::wstring& path, HWND hwnd);

private:
    void Run(HWND hwnd, DWORD dwThread);

    FILE* m_file = nullptr;
    std::atomic<bool> m_fEnd = false;
    std::thread m_thread;
};

} // namespace gallery
