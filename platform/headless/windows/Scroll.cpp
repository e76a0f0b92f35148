// The platform's standard scroll bars: their numbers, and whether they show.
#include "Desktop.h"
#include "Position.h"

#include "../core/Faults.h"
#include "../core/TableLock.h"

#include <algorithm>
#include <climits>

namespace gesso::headless {
namespace {

ScrollBar* BarOf(Window& window, int bar)
{
    if (bar != SB_HORZ && bar != SB_VERT && bar != SB_CTL) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    return &window.bars[bar == SB_VERT ? 1 : 0];
}

int LastPosition(const ScrollBar& bar)
{
    return Saturated(int64_t{bar.max} - std::max<int64_t>(int64_t{bar.page} - 1, 0));
}

void StoreRange(ScrollBar& bar, int min, int max)
{
    const bool valid = min <= max && static_cast<LONGLONG>(max) - min < 0x80000000LL;
    bar.min = valid ? min : 0;
    bar.max = valid ? max : 0;
}

void Store(ScrollBar& bar, const SCROLLINFO& info)
{
    bar.known = true;
    if (info.fMask & SIF_PAGE) {
        bar.page = info.nPage;
    }
    if (info.fMask & SIF_POS) {
        bar.position = info.nPos;
    }
    if (info.fMask & SIF_RANGE) {
        StoreRange(bar, info.nMin, info.nMax);
    }
    // A page that is below zero as a signed number is none.
    const UINT whole = static_cast<UINT>(bar.max) - static_cast<UINT>(bar.min) + 1;
    bar.page = bar.page > INT_MAX ? 0 : std::min(bar.page, whole);
    bar.position = std::max(bar.min, std::min(bar.position, LastPosition(bar)));
}

DWORD StyleBits(int bar)
{
    return bar == SB_HORZ   ? WS_HSCROLL
           : bar == SB_VERT ? WS_VSCROLL
           : bar == SB_BOTH ? WS_HSCROLL | WS_VSCROLL
                            : 0;
}

void Show(Window& window, int bar, bool show)
{
    const DWORD bits = StyleBits(bar);
    const DWORD style = show ? window.style | bits : window.style & ~bits;
    if (style != window.style) {
        window.style = style;
        Reposition(window.handle, nullptr, 0, 0, 0, 0,
                   SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE | SWP_NOZORDER | SWP_FRAMECHANGED);
    }
}

// A bar with nothing to scroll is hidden, unless it is only to be disabled.
void ShowAsNeeded(Window& window, int bar, const ScrollBar& state, UINT mask)
{
    if (bar == SB_CTL || !(mask & (SIF_RANGE | SIF_PAGE | SIF_DISABLENOSCROLL)) || !(mask & SIF_ALL)) {
        return;
    }
    const bool needed = state.min < LastPosition(state);
    if (needed && mask != SIF_PAGE) {
        Show(window, bar, true);
    } else if (!needed && !(mask & SIF_DISABLENOSCROLL)) {
        Show(window, bar, false);
    }
}

} // namespace
} // namespace gesso::headless

using namespace gesso::headless;

extern "C" {

int WINAPI SetScrollInfo(HWND hwnd, int bar, const SCROLLINFO* info, BOOL)
{
    const TableLock lock;
    if (FaultFires("SetScrollInfo")) {
        return 0;
    }
    const WindowRef window = Find(hwnd);
    ScrollBar* state = window ? BarOf(*window, bar) : nullptr;
    if (!state || (info->fMask & ~static_cast<UINT>(SIF_ALL | SIF_DISABLENOSCROLL))) {
        return 0;
    }
    Store(*state, *info);
    const int position = state->position;
    ShowAsNeeded(*window, bar, *state, info->fMask);
    return position;
}

BOOL WINAPI GetScrollInfo(HWND hwnd, int bar, LPSCROLLINFO info)
{
    const TableLock lock;
    if (FaultFires("GetScrollInfo")) {
        return FALSE;
    }
    const WindowRef window = Find(hwnd);
    const ScrollBar* state = window ? BarOf(*window, bar) : nullptr;
    // Setting one bar gives a window both.
    if (!state || !(window->bars[0].known || window->bars[1].known)) {
        return FALSE;
    }
    if (info->fMask & SIF_PAGE) {
        info->nPage = state->page;
    }
    if (info->fMask & SIF_POS) {
        info->nPos = state->position;
    }
    if (info->fMask & SIF_TRACKPOS) {
        info->nTrackPos = state->position;
    }
    if (info->fMask & SIF_RANGE) {
        info->nMin = state->min;
        info->nMax = state->max;
    }
    return (info->fMask & SIF_ALL) != 0;
}

int WINAPI SetScrollPos(HWND hwnd, int bar, int position, BOOL redraw)
{
    const TableLock lock;
    if (FaultFires("SetScrollPos")) {
        return 0;
    }
    const CallsBy platform(Caller::Platform);
    const WindowRef window = Find(hwnd);
    const ScrollBar* state = window ? BarOf(*window, bar) : nullptr;
    if (!state) {
        return 0;
    }
    const int former = state->position;
    SCROLLINFO info{sizeof(SCROLLINFO), SIF_POS, 0, 0, 0, position, 0};
    SetScrollInfo(hwnd, bar, &info, redraw);
    return former;
}

int WINAPI GetScrollPos(HWND hwnd, int bar)
{
    const TableLock lock;
    if (FaultFires("GetScrollPos")) {
        return 0;
    }
    const WindowRef window = Find(hwnd);
    const ScrollBar* state = window ? BarOf(*window, bar) : nullptr;
    return state ? state->position : 0;
}

BOOL WINAPI ShowScrollBar(HWND hwnd, int bar, BOOL show)
{
    const TableLock lock;
    if (FaultFires("ShowScrollBar")) {
        return FALSE;
    }
    const WindowRef window = Find(hwnd);
    if (!window) {
        return FALSE;
    }
    Show(*window, bar, show);
    return TRUE;
}
}
