// What the window manager asks of the graphics half as a whole.
#include "../metrics/Metrics.h"
#include "../theme/Theme.h"
#include "../theme/ThemeData.h"
#include "DeviceContext.h"
#include "InstalledFonts.h"
#include "Record.h"

namespace gesso::headless {

void ForgetDrawing(HWND hwnd)
{
    ClearDrawing(hwnd);
    ForgetWindowTheme(hwnd);
}

void ResetGraphics()
{
    ResetMetrics();
    ResetThemeData();
    RemoveInstalledFonts();
}

} // namespace gesso::headless
