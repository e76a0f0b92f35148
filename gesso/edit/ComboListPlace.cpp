#include <gesso/edit/ComboListPlace.h>
#include <gesso/framework/DrawScope.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/Saturate.h>
#include <gesso/framework/Scaling.h>

#include <algorithm>

namespace gesso {
namespace {

bool KnowsWork(const ComboListRoom& room)
{
    return !IsRectEmpty(&room.rcWork);
}

// The height that so many pixels have full rows for.
LONGLONG HeightWithin(const ComboListRoom& room, LONGLONG nPixels)
{
    const LONGLONG nFrame = 2 * LONGLONG{room.frame.cy};
    return nFrame + std::max<LONGLONG>(1, (nPixels - nFrame) / room.cyRow) * room.cyRow;
}

LONGLONG WantedHeight(const ComboListRoom& room)
{
    const LONGLONG nRows = std::max(1u, std::min(room.nItems, room.nMostRows));
    const LONGLONG nWanted = 2 * LONGLONG{room.frame.cy} + nRows * room.cyRow;
    return room.cyMost && room.cyMost < nWanted ? HeightWithin(room, room.cyMost) : nWanted;
}

void PlaceVertically(const ComboListRoom& room, RECT* prc)
{
    const LONGLONG nWanted = WantedHeight(room);
    const LONGLONG nBelow = LONGLONG{room.rcWork.bottom} - room.rcControl.bottom;
    const LONGLONG nAbove = LONGLONG{room.rcControl.top} - room.rcWork.top;
    const bool fFits = !KnowsWork(room) || nWanted <= nBelow;
    const bool fUp = !fFits && nAbove > nBelow;
    const LONGLONG nHeight = fFits ? nWanted : std::min(nWanted, HeightWithin(room, fUp ? nAbove : nBelow));
    prc->top = fUp ? Saturated(room.rcControl.top - nHeight) : room.rcControl.bottom;
    prc->bottom = Saturated(prc->top + nHeight);
}

void PlaceAcross(const ComboListRoom& room, RECT* prc)
{
    const bool fBar = LONGLONG{room.nItems} * room.cyRow > prc->bottom - prc->top - 2 * room.frame.cy;
    const LONGLONG nText = LONGLONG{room.cxWidest} + 2 * LONGLONG{room.frame.cx} + (fBar ? room.cxBar : 0);
    LONGLONG nWidth =
        std::max({LONGLONG{room.rcControl.right} - room.rcControl.left, LONGLONG{room.cxLeast}, nText});
    if (KnowsWork(room)) {
        nWidth = std::min(nWidth, LONGLONG{room.rcWork.right} - room.rcWork.left);
    }
    LONGLONG nLeft = room.fMirrored ? room.rcControl.right - nWidth : room.rcControl.left;
    if (KnowsWork(room)) {
        nLeft = std::clamp<LONGLONG>(nLeft, room.rcWork.left, room.rcWork.right - nWidth);
    }
    prc->left = Saturated(nLeft);
    prc->right = Saturated(nLeft + nWidth);
}

} // namespace

RECT PlaceComboList(const ComboListRoom& room)
{
    RECT rc{};
    PlaceVertically(room, &rc);
    PlaceAcross(room, &rc);
    return rc;
}

// A theme handle that all windows share may have been opened for more dots an inch meanwhile: a frame is then
// much wider than the system's edges.
SIZE ComboListFrame(HTHEME hComboTheme, HWND hwnd)
{
    constexpr int MOST_EDGES = 4;
    SIZE size{};
    const WindowContext hdc(hwnd);
    const HRESULT hr = GetThemePartSize(hComboTheme, hdc, CP_BORDER, CBXS_NORMAL, nullptr, TS_MIN, &size);
    const bool fSound =
        GetScaling() == Scaling::None || size.cx <= MOST_EDGES * SystemMetric(hwnd, SM_CXEDGE);
    return SUCCEEDED(hr) && fSound ? size
                                   : SIZE{SystemMetric(hwnd, SM_CXBORDER), SystemMetric(hwnd, SM_CYBORDER)};
}

} // namespace gesso
