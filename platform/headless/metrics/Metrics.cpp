#include "Metrics.h"

#include "../core/Faults.h"
#include "../core/TableLock.h"
#include "../gdi/FontMetrics.h"
#include "../gdi/Objects.h"

#include <algorithm>
#include <map>

namespace gesso::headless {
namespace {

constexpr int SCREEN_WIDTH = 1280;
constexpr int SCREEN_HEIGHT = 1024;

struct Settings
{
    int dpi = USER_DEFAULT_SCREEN_DPI;
    int keyboardDelay = 1;
    int keyboardSpeed = 31;
    UINT wheelLines = 3;
    bool highContrast = false;
    std::map<int, int> metrics;
    std::map<int, COLORREF> colors;
    std::vector<std::string> languages{"en-US"};
};

Settings& Current()
{
    static Settings s_settings;
    return s_settings;
}

// What the platform has at 96 dots per inch in its default style.
int DefaultMetric(int index)
{
    switch (index) {
    case SM_CXSCREEN:
    case SM_CXFULLSCREEN:
    case SM_CXVIRTUALSCREEN:
    case SM_CXMAXIMIZED: return SCREEN_WIDTH;
    case SM_CYSCREEN:
    case SM_CYFULLSCREEN:
    case SM_CYVIRTUALSCREEN:
    case SM_CYMAXIMIZED: return SCREEN_HEIGHT;
    case SM_CXVSCROLL:
    case SM_CYHSCROLL:
    case SM_CYVSCROLL:
    case SM_CXHSCROLL:
    case SM_CYVTHUMB:
    case SM_CXHTHUMB: return 17;
    case SM_CXBORDER:
    case SM_CYBORDER:
    case SM_CXFOCUSBORDER:
    case SM_CYFOCUSBORDER:
    case SM_CMONITORS:
    case SM_MOUSEPRESENT:
    case SM_MOUSEWHEELPRESENT: return 1;
    case SM_CXEDGE:
    case SM_CYEDGE: return 2;
    case SM_CXFIXEDFRAME:
    case SM_CYFIXEDFRAME:
    case SM_CMOUSEBUTTONS: return 3;
    case SM_CXSIZEFRAME:
    case SM_CYSIZEFRAME:
    case SM_CXPADDEDBORDER:
    case SM_CXDRAG:
    case SM_CYDRAG:
    case SM_CXDOUBLECLK:
    case SM_CYDOUBLECLK: return 4;
    case SM_CXSMICON:
    case SM_CYSMICON: return 16;
    case SM_CXICON:
    case SM_CYICON:
    case SM_CXCURSOR:
    case SM_CYCURSOR: return 32;
    case SM_CYCAPTION:
    case SM_CYSMCAPTION: return 23;
    case SM_CYMENU: return 20;
    case SM_CXMENUCHECK:
    case SM_CYMENUCHECK: return 15;
    case SM_CXMIN:
    case SM_CXMINTRACK: return 136;
    case SM_CYMIN:
    case SM_CYMINTRACK: return 39;
    default: return 0;
    }
}

COLORREF DefaultColor(int index)
{
    switch (index) {
    case COLOR_WINDOW:
    case COLOR_HIGHLIGHTTEXT:
    case COLOR_BTNHIGHLIGHT: return RGB(255, 255, 255);
    case COLOR_BTNFACE:
    case COLOR_MENU:
    case COLOR_MENUBAR: return RGB(240, 240, 240);
    case COLOR_3DLIGHT: return RGB(227, 227, 227);
    case COLOR_SCROLLBAR:
    case COLOR_DESKTOP: return RGB(200, 200, 200);
    case COLOR_BTNSHADOW: return RGB(160, 160, 160);
    case COLOR_3DDKSHADOW: return RGB(105, 105, 105);
    case COLOR_GRAYTEXT: return RGB(109, 109, 109);
    case COLOR_HIGHLIGHT: return RGB(0, 120, 215);
    case COLOR_HOTLIGHT: return RGB(0, 102, 204);
    case COLOR_INFOBK: return RGB(255, 255, 225);
    case COLOR_WINDOWFRAME: return RGB(100, 100, 100);
    default: return RGB(0, 0, 0);
    }
}

} // namespace

void ResetMetrics()
{
    const TableLock lock;
    Current() = {};
}

void SetSystemMetric(int index, int value)
{
    const TableLock lock;
    Current().metrics[index] = value;
}

void SetSystemColor(int index, COLORREF color)
{
    const TableLock lock;
    Current().colors[index] = color;
}

void SetHighContrast(bool on)
{
    const TableLock lock;
    Current().highContrast = on;
}

void SetDpi(int dpi)
{
    const TableLock lock;
    Current().dpi = dpi;
}

void SetKeyboardRepeat(int delay, int speed)
{
    const TableLock lock;
    Current().keyboardDelay = delay;
    Current().keyboardSpeed = speed;
}

void SetUserLanguages(const std::vector<std::string>& tags)
{
    const TableLock lock;
    Current().languages = tags;
}

void SetWheelLines(UINT lines)
{
    const TableLock lock;
    Current().wheelLines = lines;
}

} // namespace gesso::headless

using namespace gesso::headless;

namespace {

template <typename VALUE> BOOL Answer(PVOID to, VALUE value)
{
    memcpy(to, &value, sizeof(value));
    return TRUE;
}

BOOL AnswerNonClientMetrics(NONCLIENTMETRICSW* metrics)
{
    const UINT size = metrics->cbSize;
    constexpr UINT SIZE_BEFORE_PADDING = offsetof(NONCLIENTMETRICSW, iPaddedBorderWidth);
    if (size != sizeof(NONCLIENTMETRICSW) && size != SIZE_BEFORE_PADDING) {
        return FALSE;
    }
    NONCLIENTMETRICSW answer{};
    answer.cbSize = size;
    answer.iBorderWidth = 1;
    answer.iScrollWidth = GetSystemMetrics(SM_CXVSCROLL);
    answer.iScrollHeight = GetSystemMetrics(SM_CYHSCROLL);
    answer.iCaptionWidth = 36;
    answer.iCaptionHeight = GetSystemMetrics(SM_CYCAPTION) - 1;
    answer.iSmCaptionWidth = 22;
    answer.iSmCaptionHeight = GetSystemMetrics(SM_CYSMCAPTION) - 1;
    answer.iMenuWidth = 19;
    answer.iMenuHeight = GetSystemMetrics(SM_CYMENU) - 1;
    const LOGFONTW font = UserInterfaceFont(9);
    answer.lfCaptionFont = answer.lfSmCaptionFont = answer.lfMenuFont = font;
    answer.lfStatusFont = answer.lfMessageFont = font;
    memcpy(metrics, &answer, size);
    return TRUE;
}

BOOL AnswerHighContrast(HIGHCONTRASTW* contrast)
{
    if (contrast->cbSize != sizeof(HIGHCONTRASTW)) {
        return FALSE;
    }
    contrast->dwFlags = HCF_AVAILABLE | (Current().highContrast ? HCF_HIGHCONTRASTON : 0U);
    contrast->lpszDefaultScheme = nullptr;
    return TRUE;
}

} // namespace

int WINAPI GetSystemMetrics(int index)
{
    const TableLock lock;
    const auto found = Current().metrics.find(index);
    return found != Current().metrics.end() ? found->second : DefaultMetric(index);
}

// Lengths grow with the dots an inch, lines by whole steps; what the screen has and what is counted does not.
int WINAPI GetSystemMetricsForDpi(int index, UINT dpi)
{
    const int metric = GetSystemMetrics(index);
    switch (index) {
    case SM_CXSCREEN:
    case SM_CYSCREEN:
    case SM_CMONITORS:
    case SM_CMOUSEBUTTONS:
    case SM_MOUSEPRESENT:
    case SM_MOUSEWHEELPRESENT: return metric;
    case SM_CXBORDER:
    case SM_CYBORDER:
    case SM_CXEDGE:
    case SM_CYEDGE: return metric * static_cast<int>(dpi) / USER_DEFAULT_SCREEN_DPI;
    default: return MulDiv(metric, static_cast<int>(dpi), USER_DEFAULT_SCREEN_DPI);
    }
}

BOOL WINAPI SystemParametersInfoForDpi(UINT action, UINT, PVOID to, UINT, UINT dpi)
{
    const TableLock lock;
    if (FaultFires("SystemParametersInfoForDpi") || action != SPI_GETNONCLIENTMETRICS ||
        !AnswerNonClientMetrics(static_cast<NONCLIENTMETRICSW*>(to)))
    {
        return FALSE;
    }
    auto* metrics = static_cast<NONCLIENTMETRICSW*>(to);
    metrics->lfCaptionFont.lfHeight =
        MulDiv(metrics->lfCaptionFont.lfHeight, static_cast<int>(dpi), static_cast<int>(GetDpiForSystem()));
    return TRUE;
}

UINT WINAPI GetDpiForSystem()
{
    const TableLock lock;
    return static_cast<UINT>(Current().dpi);
}

DWORD WINAPI GetSysColor(INT index)
{
    const TableLock lock;
    const auto found = Current().colors.find(index);
    return found != Current().colors.end() ? found->second : DefaultColor(index);
}

HBRUSH WINAPI GetSysColorBrush(INT index)
{
    const TableLock lock;
    static std::map<INT, HBRUSH> s_brushes;
    if (index < 0 || index > COLOR_MENUBAR) {
        return nullptr;
    }
    HBRUSH& brush = s_brushes[index];
    if (!brush) {
        brush = MakeStock<HBRUSH, Brush>(LOGBRUSH{BS_SOLID, GetSysColor(index), 0}, index);
    }
    return brush;
}

BOOL WINAPI SystemParametersInfoW(UINT action, UINT, PVOID to, UINT)
{
    const TableLock lock;
    if (FaultFires("SystemParametersInfoW")) {
        return FALSE;
    }
    switch (action) {
    case SPI_GETKEYBOARDDELAY: return Answer(to, Current().keyboardDelay);
    case SPI_GETKEYBOARDSPEED: return Answer(to, static_cast<DWORD>(Current().keyboardSpeed));
    case SPI_GETWHEELSCROLLLINES: return Answer(to, Current().wheelLines);
    case SPI_GETWHEELSCROLLCHARS: return Answer(to, UINT{3});
    case SPI_GETWORKAREA:
        return Answer(to, RECT{0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)});
    case SPI_GETNONCLIENTMETRICS: return AnswerNonClientMetrics(static_cast<NONCLIENTMETRICSW*>(to));
    case SPI_GETHIGHCONTRAST: return AnswerHighContrast(static_cast<HIGHCONTRASTW*>(to));
    case SPI_GETICONTITLELOGFONT: return Answer(to, UserInterfaceFont(9));
    case SPI_GETCARETWIDTH: return Answer(to, DWORD{1});
    case SPI_GETMENUSHOWDELAY:
    case SPI_GETMOUSEHOVERTIME: return Answer(to, UINT{400});
    case SPI_GETKEYBOARDCUES:
    case SPI_GETCLIENTAREAANIMATION: return Answer(to, BOOL{FALSE});
    default: SetLastError(ERROR_INVALID_PARAMETER); return FALSE;
    }
}

// The tags one behind the other, each with its end, and an empty one behind the last.
BOOL WINAPI GetUserPreferredUILanguages(DWORD, PULONG count, PZZWSTR tags, PULONG room)
{
    const TableLock lock;
    if (FaultFires("GetUserPreferredUILanguages")) {
        return FALSE;
    }
    std::string all;
    for (const std::string& tag : Current().languages) {
        all += tag + '\0';
    }
    all += '\0';
    if (tags && *room < all.size()) {
        SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return FALSE;
    }
    *count = static_cast<ULONG>(Current().languages.size());
    *room = static_cast<ULONG>(all.size());
    if (tags) {
        std::copy(all.begin(), all.end(), tags);
    }
    return TRUE;
}
