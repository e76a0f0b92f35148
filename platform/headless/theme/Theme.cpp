// The visual-styles services: theme handles, what the style says, and drawing with it.
#include "Theme.h"
#include "../core/Accounting.h"
#include "../core/Faults.h"
#include "../core/TableLock.h"
#include "../core/Text.h"
#include "../gdi/DeviceContext.h"
#include "../gdi/FontMetrics.h"
#include "../gdi/Record.h"
#include "ThemeData.h"

#include <unordered_map>
#include <utility>

using namespace gesso::headless;

namespace {

constexpr auto NOT_FOUND = static_cast<HRESULT>(0x80070490); // of ERROR_NOT_FOUND

struct ThemeHandle
{
    std::string themeClass;
    int dpi; // 0 for one that was opened for none
};

// By class, those of the handle that was opened last.
std::unordered_map<std::string, int>& LastDpi()
{
    static std::unordered_map<std::string, int> s_last;
    return s_last;
}

// What a window was told by SetWindowTheme, and the theme it opened last.
struct WindowStyle
{
    std::string application;
    std::string classes;
    HTHEME theme = nullptr;
};

std::unordered_map<HTHEME, ThemeHandle>& Handles()
{
    static std::unordered_map<HTHEME, ThemeHandle> s_handles;
    return s_handles;
}

std::unordered_map<HWND, WindowStyle>& Windows()
{
    static std::unordered_map<HWND, WindowStyle> s_windows;
    return s_windows;
}

const std::string* ClassOf(HTHEME theme)
{
    const TableLock lock;
    const auto found = Handles().find(theme);
    return found != Handles().end() ? &found->second.themeClass : nullptr;
}

// A length of the style, which is of so many dots an inch.
int ScaledFor(HTHEME theme, int length, UINT base = USER_DEFAULT_SCREEN_DPI)
{
    const TableLock lock;
    const auto found = Handles().find(theme);
    if (found == Handles().end()) {
        return length;
    }
    const int dpi = AreThemeHandlesShared() ? LastDpi()[found->second.themeClass] : found->second.dpi;
    return dpi ? MulDiv(length, dpi, static_cast<int>(base)) : length;
}

HTHEME MakeHandle(std::string themeClass, int dpi)
{
    const TableLock lock;
    static constinit uintptr_t s_last = 0x00020000;
    s_last += 4;
    const auto theme = reinterpret_cast<HTHEME>(s_last);
    Track(Kind::Theme, theme);
    LastDpi()[themeClass] = dpi;
    Handles().emplace(theme, ThemeHandle{std::move(themeClass), dpi});
    return theme;
}

HTHEME Open(HWND hwnd, LPCWSTR classes, int dpi);

// The first available class of a list like "Button;Window", with the window's application name before it.
std::string FirstAvailable(const std::string& list, const std::string& application)
{
    for (size_t at = 0; at <= list.size();) {
        const size_t end = std::min(list.find(';', at), list.size());
        const std::string name = list.substr(at, end - at);
        if (IsThemeClassAvailable(name)) {
            return application.empty() ? name : (application + "::").append(name);
        }
        at = end + 1;
    }
    return {};
}

// Runs a query that needs a live theme and a place for its answer.
template <typename ANSWER, typename QUERY>
HRESULT Answer(HTHEME theme, Operation operation, ANSWER* to, QUERY query)
{
    if (FaultFires(operation)) {
        return FaultResult();
    }
    const std::string* themeClass = ClassOf(theme);
    if (!themeClass) {
        return E_HANDLE;
    }
    if (!to) {
        return E_POINTER;
    }
    const auto answer = query(*themeClass);
    if (!answer) {
        return NOT_FOUND;
    }
    *to = *answer;
    return S_OK;
}

HRESULT CheckDrawing(HTHEME theme, HDC hdc, int part, Operation operation)
{
    if (FaultFires(operation)) {
        return FaultResult();
    }
    const std::string* themeClass = ClassOf(theme);
    if (!themeClass || !FindContext(hdc)) {
        return E_HANDLE;
    }
    return IsThemePartAvailable(*themeClass, part) ? S_OK : NOT_FOUND;
}

// Selects the font that the style has for a part, if any, as long as it lives.
class PartFont
{
public:
    PartFont(HTHEME theme, HDC hdc, int part, int state) : m_hdc(hdc)
    {
        const CallsBy platform(Caller::Platform);
        LOGFONTW font;
        if (SUCCEEDED(GetThemeFont(theme, hdc, part, state, TMT_FONT, &font))) {
            m_font = MakeStock<HFONT, Font>(font);
            m_former = static_cast<HFONT>(SelectObject(hdc, m_font));
        }
    }
    PartFont(const PartFont&) = delete;
    PartFont& operator=(const PartFont&) = delete;
    ~PartFont()
    {
        const CallsBy platform(Caller::Platform);
        if (m_font) {
            SelectObject(m_hdc, m_former);
            RemoveObject(m_font);
        }
    }

private:
    HDC m_hdc;
    HFONT m_font = nullptr;
    HFONT m_former = nullptr;
};

// An image (TMT_BGTYPE) covers what lies below it; a transparent one (TMT_TRANSPARENT) covers the upper half;
// one of another opacity than 255 (TMT_ALPHALEVEL) lets it show through; one without pictures
// (TMT_IMAGECOUNT) covers nothing.
void CoverPixels(HDC hdc, const std::string& themeClass, int part, int state, const RECT& rect)
{
    if (FindThemeInt(themeClass, part, state, TMT_BGTYPE) != BT_IMAGEFILE ||
        FindThemeInt(themeClass, part, state, TMT_IMAGECOUNT) == 0)
    {
        return;
    }
    RECT covered = rect;
    if (FindThemeInt(themeClass, part, state, TMT_TRANSPARENT)) {
        covered.bottom -= (rect.bottom - rect.top) / 2;
    }
    const auto value = static_cast<DWORD>(part << 8 | state);
    const auto opacity =
        static_cast<DWORD>(FindThemeInt(themeClass, part, state, TMT_ALPHALEVEL).value_or(255));
    if (opacity == 255) {
        return SetPixels(hdc, covered, value);
    }
    const DWORD pixel = value | opacity << 24;
    for (LONG y = covered.top; y < covered.bottom; ++y) {
        for (LONG x = covered.left; x < covered.right; ++x) {
            BlendPixels(hdc, {x, y, x + 1, y + 1}, &pixel, 1, false);
        }
    }
}

// Tells a window to draw its background into a context of one of its children.
void DrawParentInto(HWND parent, HDC hdc)
{
    SendMessageW(parent, WM_ERASEBKGND, reinterpret_cast<WPARAM>(hdc), 0);
    SendMessageW(parent, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(hdc), PRF_CLIENT);
}

} // namespace

namespace gesso::headless {

void ForgetWindowTheme(HWND hwnd)
{
    const TableLock lock;
    Windows().erase(hwnd);
}

} // namespace gesso::headless

HTHEME WINAPI OpenThemeData(HWND hwnd, LPCWSTR classes)
{
    const TableLock lock;
    return FaultFires("OpenThemeData") ? nullptr : Open(hwnd, classes, 0);
}

HTHEME WINAPI OpenThemeDataForDpi(HWND hwnd, LPCWSTR classes, UINT dpi)
{
    const TableLock lock;
    return FaultFires("OpenThemeDataForDpi") ? nullptr : Open(hwnd, classes, static_cast<int>(dpi));
}

namespace {

HTHEME Open(HWND hwnd, LPCWSTR classes, int dpi)
{
    if (!classes) {
        SetLastError(static_cast<DWORD>(E_POINTER));
        return nullptr;
    }
    WindowStyle style = hwnd ? Windows()[hwnd] : WindowStyle();
    const std::string list = style.classes.empty() ? ToUtf8(View(classes)) : style.classes;
    const std::string themeClass = ThemesActive() ? FirstAvailable(list, style.application) : std::string();
    const HTHEME theme = themeClass.empty() ? nullptr : MakeHandle(themeClass, dpi);
    if (hwnd) {
        Windows()[hwnd].theme = theme;
    }
    if (!theme) {
        SetLastError(static_cast<DWORD>(NOT_FOUND));
    }
    return theme;
}

} // namespace

HRESULT WINAPI CloseThemeData(HTHEME theme)
{
    if (FaultFires("CloseThemeData")) {
        return FaultResult();
    }
    const TableLock lock;
    if (Handles().erase(theme) == 0) {
        return E_HANDLE;
    }
    Untrack(Kind::Theme, theme);
    return S_OK;
}

HTHEME WINAPI GetWindowTheme(HWND hwnd)
{
    const TableLock lock;
    const auto found = Windows().find(hwnd);
    return found != Windows().end() ? found->second.theme : nullptr;
}

HRESULT WINAPI SetWindowTheme(HWND hwnd, LPCWSTR application, LPCWSTR classes)
{
    const TableLock lock;
    if (FaultFires("SetWindowTheme")) {
        return FaultResult();
    }
    if (!IsWindow(hwnd)) {
        return E_HANDLE;
    }
    WindowStyle& style = Windows()[hwnd];
    style.application = ToUtf8(View(application));
    style.classes = ToUtf8(View(classes));
    SendMessageW(hwnd, WM_THEMECHANGED, 0, 0);
    return S_OK;
}

BOOL WINAPI IsThemeActive()
{
    return ThemesActive();
}

BOOL WINAPI IsAppThemed()
{
    return ThemesActive();
}

BOOL WINAPI IsThemePartDefined(HTHEME theme, int part, int)
{
    const std::string* themeClass = ClassOf(theme);
    return themeClass && IsThemePartAvailable(*themeClass, part);
}

// Every part lets its parent show through unless TMT_TRANSPARENT says otherwise.
BOOL WINAPI IsThemeBackgroundPartiallyTransparent(HTHEME theme, int part, int state)
{
    const std::string* themeClass = ClassOf(theme);
    return themeClass && FindThemeInt(*themeClass, part, state, TMT_TRANSPARENT).value_or(TRUE);
}

HRESULT WINAPI GetThemeMargins(HTHEME theme, HDC, int part, int state, int property, RECT*, MARGINS* margins)
{
    if (margins) {
        *margins = {};
    }
    return Answer(theme, "GetThemeMargins", margins, [=](const std::string& themeClass) {
        std::optional<MARGINS> found = FindThemeMargins(themeClass, part, state, property);
        if (found && !AreThemeHandlesShared()) {
            for (int* length :
                 {&found->cxLeftWidth, &found->cxRightWidth, &found->cyTopHeight, &found->cyBottomHeight}) {
                *length = ScaledFor(theme, *length);
            }
        }
        return found;
    });
}

HRESULT WINAPI GetThemePartSize(HTHEME theme, HDC, int part, int state, RECT*, THEMESIZE, SIZE* size)
{
    return Answer(theme, "GetThemePartSize", size, [=](const std::string& themeClass) {
        std::optional<SIZE> found = FindThemePartSize(themeClass, part, state);
        if (found) {
            found = SIZE{ScaledFor(theme, found->cx), ScaledFor(theme, found->cy)};
        }
        return found;
    });
}

HRESULT WINAPI GetThemeColor(HTHEME theme, int part, int state, int property, COLORREF* color)
{
    return Answer(theme, "GetThemeColor", color, [=](const std::string& themeClass) {
        return FindThemeColor(themeClass, part, state, property);
    });
}

HRESULT WINAPI GetThemeInt(HTHEME theme, int part, int state, int property, int* value)
{
    return Answer(theme, "GetThemeInt", value, [=](const std::string& themeClass) {
        return FindThemeInt(themeClass, part, state, property);
    });
}

HRESULT WINAPI GetThemeEnumValue(HTHEME theme, int part, int state, int property, int* value)
{
    if (FaultFires("GetThemeEnumValue")) {
        return FaultResult();
    }
    const CallsBy platform(Caller::Platform);
    return GetThemeInt(theme, part, state, property, value);
}

HRESULT WINAPI GetThemeFont(HTHEME theme, HDC hdc, int part, int state, int property, LOGFONTW* font)
{
    return Answer(theme, "GetThemeFont", font, [=](const std::string& themeClass) {
        std::optional<LOGFONTW> found = FindThemeFont(themeClass, part, state, property);
        if (found && AreThemeHandlesShared()) {
            found->lfHeight = hdc ? found->lfHeight : 0;
        } else if (found && found->lfHeight) {
            found->lfHeight = ScaledFor(theme, found->lfHeight, GetDpiForSystem());
        }
        return found;
    });
}

HRESULT WINAPI GetThemeSysFont(HTHEME, int id, LOGFONTW* font)
{
    if (FaultFires("GetThemeSysFont")) {
        return FaultResult();
    }
    if (!font) {
        return E_POINTER;
    }
    if (id < TMT_FIRSTFONT || id > TMT_LASTFONT) {
        return STG_E_INVALIDPARAMETER;
    }
    *font = UserInterfaceFont(9);
    return S_OK;
}

HRESULT WINAPI GetThemeTextExtent(HTHEME theme, HDC hdc, int part, int state, LPCWSTR text, int count,
                                  DWORD flags, const RECT* bounds, RECT* extent)
{
    if (FaultFires("GetThemeTextExtent")) {
        return FaultResult();
    }
    if (!ClassOf(theme) || !FindContext(hdc)) {
        return E_HANDLE;
    }
    if (!text || !extent) {
        return E_POINTER;
    }
    const PartFont font(theme, hdc, part, state);
    const CallsBy platform(Caller::Platform);
    RECT rect = bounds ? *bounds : RECT{};
    DrawTextW(hdc, text, count, &rect, flags | DT_CALCRECT);
    *extent = rect;
    return S_OK;
}

HRESULT WINAPI GetThemeTextMetrics(HTHEME theme, HDC hdc, int part, int state, TEXTMETRICW* metrics)
{
    if (FaultFires("GetThemeTextMetrics")) {
        return FaultResult();
    }
    if (!ClassOf(theme) || !FindContext(hdc)) {
        return E_HANDLE;
    }
    const PartFont font(theme, hdc, part, state);
    const CallsBy platform(Caller::Platform);
    return GetTextMetricsW(hdc, metrics) ? S_OK : E_FAIL;
}

HRESULT WINAPI DrawThemeBackground(HTHEME theme, HDC hdc, int part, int state, const RECT* rect,
                                   const RECT* clip)
{
    const HRESULT result = CheckDrawing(theme, hdc, part, "DrawThemeBackground");
    if (FAILED(result)) {
        return result;
    }
    if (!rect) {
        return E_POINTER;
    }
    Line line(hdc, "DrawThemeBackground");
    line.Word(*ClassOf(theme)).Number(part).Number(state).Put(*rect);
    if (clip) {
        line.Word("within").Put(*clip);
    }
    CoverPixels(hdc, *ClassOf(theme), part, state, *rect);
    return S_OK;
}

HRESULT WINAPI DrawThemeParentBackground(HWND hwnd, HDC hdc, RECT* rect)
{
    if (FaultFires("DrawThemeParentBackground")) {
        return FaultResult();
    }
    if (!IsWindow(hwnd) || !FindContext(hdc)) {
        return E_HANDLE;
    }
    const CallsBy platform(Caller::Platform);
    RECT client;
    GetClientRect(hwnd, &client);
    Line(hdc, "DrawThemeParentBackground").Put(rect ? *rect : client);
    const HWND parent = GetParent(hwnd);
    if (!parent || (rect && IsRectEmpty(rect))) {
        return S_OK;
    }
    // The parent draws in its own coordinates, within the rectangle alone.
    const int saved = SaveDC(hdc);
    if (rect) {
        IntersectClipRect(hdc, rect->left, rect->top, rect->right, rect->bottom);
    }
    const RECT part = rect ? *rect : client;
    RECT inParent = part;
    MapWindowPoints(hwnd, parent, reinterpret_cast<POINT*>(&inParent), 2);
    const POINT back = Difference(Corner(part), Corner(inParent));
    OffsetViewportOrgEx(hdc, back.x, back.y, nullptr);
    DrawParentInto(parent, hdc);
    RestoreDC(hdc, saved);
    return S_OK;
}

HRESULT WINAPI DrawThemeText(HTHEME theme, HDC hdc, int part, int state, LPCWSTR text, int count, DWORD flags,
                             DWORD, const RECT* rect)
{
    if (FaultFires("DrawThemeText")) {
        return FaultResult();
    }
    const CallsBy platform(Caller::Platform);
    RECT copy = *rect;
    return DrawThemeTextEx(theme, hdc, part, state, text, count, flags, &copy, nullptr);
}

HRESULT WINAPI DrawThemeTextEx(HTHEME theme, HDC hdc, int part, int state, LPCWSTR text, int count,
                               DWORD flags, RECT* rect, const DTTOPTS* options)
{
    const HRESULT result = CheckDrawing(theme, hdc, part, "DrawThemeTextEx");
    if (FAILED(result)) {
        return result;
    }
    const CallsBy platform(Caller::Platform);
    const PartFont font(theme, hdc, part, state);
    if (options && options->dwFlags & DTT_CALCRECT) {
        DrawTextW(hdc, text, count, rect, flags | DT_CALCRECT);
        return S_OK;
    }
    const bool ownColor = options && options->dwFlags & DTT_TEXTCOLOR;
    const COLORREF color =
        ownColor ? options->crText : FindThemeColor(*ClassOf(theme), part, state, TMT_TEXTCOLOR).value_or(0);
    const int mode = SetBkMode(hdc, TRANSPARENT); // the style never fills behind its texts
    Line(hdc, options ? "DrawThemeTextEx" : "DrawThemeText")
        .Word(*ClassOf(theme))
        .Number(part)
        .Number(state)
        .Text(text, count)
        .Put(*rect)
        .Hex(flags)
        .TextState(color);
    SetBkMode(hdc, mode);
    return S_OK;
}
