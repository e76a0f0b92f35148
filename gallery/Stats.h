// What the gallery holds of the system, noted four times a second for a run that lasts: the file that --stats
// names. A gap in its clock is a time in which the gallery did not answer.
#pragma once

#include <gesso/api.h>

#include <cstdio>
#include <string>

namespace gallery {

class Stats
{
public:
    Stats() = default;
    ~Stats();
    Stats(const Stats&) = delete;
    Stats& operator=(const Stats&) = delete;

    // Starts the notes: milliseconds, GDI objects, windows, each as a number, a line each time. False where
    // the file could not be made.
    bool Start(const std::wstring& path);

private:
    FILE* m_file = nullptr;
    UINT_PTR m_timer = 0;
};

} // namespace gallery
