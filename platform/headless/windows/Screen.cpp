// The pointer's shape and the monitor.
#include "Desktop.h"

#include "../core/Faults.h"
#include "../core/TableLock.h"

namespace gesso::headless {
namespace {

const auto MONITOR = reinterpret_cast<HMONITOR>(uintptr_t{0x10001});

} // namespace
} // namespace gesso::headless

using namespace gesso::headless;

extern "C" {

HCURSOR WINAPI SetCursor(HCURSOR cursor)
{
    const TableLock lock;
    return std::exchange(TheDesktop().cursor, cursor);
}

HCURSOR WINAPI GetCursor()
{
    const TableLock lock;
    return TheDesktop().cursor;
}

int WINAPI ShowCursor(BOOL show)
{
    const TableLock lock;
    return TheDesktop().cursorShown += show ? 1 : -1;
}

HMONITOR WINAPI MonitorFromWindow(HWND, DWORD)
{
    if (FaultFires("MonitorFromWindow")) {
        return nullptr;
    }
    return MONITOR;
}

HMONITOR WINAPI MonitorFromPoint(POINT point, DWORD flags)
{
    const TableLock lock;
    if (FaultFires("MonitorFromPoint")) {
        return nullptr;
    }
    return flags != MONITOR_DEFAULTTONULL || PtInRect(&Root().frame, point) ? MONITOR : nullptr;
}

BOOL WINAPI GetMonitorInfoW(HMONITOR monitor, LPMONITORINFO info)
{
    const TableLock lock;
    if (monitor != MONITOR || FaultFires("GetMonitorInfoW")) {
        SetLastError(ERROR_INVALID_MONITOR_HANDLE);
        return FALSE;
    }
    const CallsBy platform(Caller::Platform);
    info->rcMonitor = Root().frame;
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &info->rcWork, 0);
    info->dwFlags = MONITORINFOF_PRIMARY;
    return TRUE;
}
}
