// Painting in another look beside the same controls as they are at first: the two columns are the two looks,
// without the change from one to the other.
#include <bench/Lists.h>
#include <bench/Painted.h>

#include <uxtheme.h>

namespace bench {
namespace {

constexpr int TWICE = 2;

double TimeIn(gesso::ColorScheme scheme, HWND hwnd)
{
    gesso::SetColorScheme(scheme);
    return TimeOfPaint(hwnd);
}

// As large in inches.
double TimeAt(int nTimes, SIZE size, HWND hwnd)
{
    const auto wDots = static_cast<WORD>(nTimes * USER_DEFAULT_SCREEN_DPI);
    SendMessageW(hwnd, WM_DPICHANGED_AFTERPARENT, MAKEWPARAM(wDots, wDots), 0);
    SetWindowPos(hwnd, nullptr, 0, 0, nTimes * size.cx, nTimes * size.cy, SWP_NOZORDER | SWP_NOACTIVATE);
    return TimeOfPaint(hwnd);
}

double TimeDirected(bool fMirrored, HWND hwnd)
{
    const LONG_PTR lStyle = GetWindowLongPtrW(hwnd, GWL_EXSTYLE) & ~LONG_PTR{WS_EX_LAYOUTRTL};
    SetWindowLongPtrW(hwnd, GWL_EXSTYLE, fMirrored ? lStyle | WS_EX_LAYOUTRTL : lStyle);
    SetWindowPos(hwnd, nullptr, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_FRAMECHANGED);
    return TimeOfPaint(hwnd);
}

// A list of classes that no style has leaves the window without one.
double TimeStyled(bool fStyled, HWND hwnd)
{
    SetWindowTheme(hwnd, fStyled ? L"explorer" : L" ", fStyled ? nullptr : L" ");
    return TimeOfPaint(hwnd);
}

SIZE SizeOf(HWND hwnd)
{
    RECT rc{};
    GetWindowRect(hwnd, &rc);
    return {rc.right - rc.left, rc.bottom - rc.top};
}

} // namespace

void MeasureDark(Bench& bench)
{
    bench.Family("Dark (first column) beside Light, a paint");
    const Host host(LIST_CX, LIST_CY);
    ForEachPainted(host, [&](const std::string& name, HWND hwnd) {
        bench.MeasureTimed(
            name, [hwnd] { return TimeIn(gesso::ColorScheme::Dark, hwnd); },
            [hwnd] { return TimeIn(gesso::ColorScheme::Light, hwnd); });
        gesso::SetColorScheme(gesso::ColorScheme::Light);
    });
}

void MeasureMirrored(Bench& bench)
{
    bench.Family("Mirrored (first column) beside not, a paint");
    const Host host(LIST_CX, LIST_CY);
    ForEachPainted(host, [&](const std::string& name, HWND hwnd) {
        bench.MeasureTimed(
            name, [hwnd] { return TimeDirected(true, hwnd); }, [hwnd] { return TimeDirected(false, hwnd); });
    });
}

void MeasureUnstyled(Bench& bench)
{
    bench.Family("Without a visual style (first column) beside one, a paint");
    const Host host(LIST_CX, LIST_CY);
    ForEachPainted(host, [&](const std::string& name, HWND hwnd) {
        bench.MeasureTimed(
            name, [hwnd] { return TimeStyled(false, hwnd); }, [hwnd] { return TimeStyled(true, hwnd); });
    });
}

void MeasureScale(Bench& bench)
{
    bench.Family("192 dots an inch (first column) beside 96, a paint");
    const Host host(TWICE * LIST_CX, TWICE * LIST_CY);
    gesso::SetScaling(gesso::Scaling::PerMonitor);
    ForEachPainted(host, [&](const std::string& name, HWND hwnd) {
        const SIZE size = SizeOf(hwnd);
        bench.MeasureTimed(
            name, [=] { return TimeAt(TWICE, size, hwnd); }, [=] { return TimeAt(1, size, hwnd); });
    });
    gesso::SetScaling(gesso::Scaling::None);
}

} // namespace bench
