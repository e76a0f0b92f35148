// A window in front that belongs to another thread.
#pragma once

#include <gesso/gesso.h>

#include <thread>

namespace gallery {

class OtherThread
{
public:
    // Returns when the window is shown. It lasts as long as this object.
    OtherThread();
    ~OtherThread();
    OtherThread(const OtherThread&) = delete;
    OtherThread& operator=(const OtherThread&) = delete;

private:
    void Run(HANDLE hShown);

    HWND m_hwnd = nullptr;
    std::thread m_thread;
};

} // namespace gallery
