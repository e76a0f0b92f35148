// What a window lives in: its parent, the style, settings, and a platform that fails.

#include "Call.h"

namespace attack {

namespace {

void Resize(World& world, Source& source)
{
    const int cx = source.Size();
    const int cy = source.Size();
    SetWindowPos(world.Window(), nullptr, source.Integer(), source.Integer(), cx, cy,
                 (source.Chance(2) ? SWP_NOMOVE : 0) | (source.Chance(2) ? SWP_NOZORDER : 0) |
                     (source.Chance(6) ? SWP_NOREDRAW : 0) | (source.Chance(6) ? SWP_FRAMECHANGED : 0));
}

void ResizeWell(World& world, Source& source)
{
    const int cx = 20 + static_cast<int>(source.Below(250));
    SetWindowPos(world.Window(), nullptr, 5, 5, cx, 20 + static_cast<int>(source.Below(200)), SWP_NOZORDER);
}

void Reparent(World& world, Source& source)
{
    SetParent(world.Window(), world.AnyParent(source));
}

void ChangeStyle(World& world, Source& source)
{
    const auto nStyle = static_cast<LONG>(WS_CHILD | WS_VISIBLE | source.Bits());
    SetWindowLongW(world.Window(), source.Chance(4) ? GWL_EXSTYLE : GWL_STYLE, nStyle);
}

void Enable(World& world, Source& source)
{
    EnableWindow(world.Window(), !source.Chance(3));
}

void Show(World& world, Source& source)
{
    ShowWindow(world.Window(), source.Chance(3) ? SW_HIDE : SW_SHOW);
}

void Invalidate(World& world, Source& source)
{
    const RECT rc = source.Rect();
    InvalidateRect(world.Window(), source.Chance(2) ? nullptr : &rc, source.Flag());
    if (source.Chance(2)) {
        UpdateWindow(world.Window());
    }
}

// --- The style and the settings

void TellOfTheme(World& world, Source& source)
{
    if (!source.Chance(5)) {
        SendMessageW(world.Window(), WM_THEMECHANGED, 0, 0);
    }
}

void ChangeTheme(World& world, Source& source)
{
    desk::SetThemed(!source.Chance(3));
    TellOfTheme(world, source);
}

constexpr const char* CLASSES[] = {"BUTTON",     "EDIT",     "COMBOBOX",  "LISTVIEW",
                                   "HEADER",     "TREEVIEW", "SCROLLBAR", "PROGRESS",
                                   "NAVIGATION", "TOOLBAR",  "MENU",      "EXPLORERBAR"};

void ChangeThemeClass(World& world, Source& source)
{
    desk::SetThemeClassAvailable(source.Any(std::span<const char* const>(CLASSES)), !source.Chance(3));
    TellOfTheme(world, source);
}

void ChangeThemeNumbers(World& world, Source& source)
{
    const char* const pszClass = source.Any(std::span<const char* const>(CLASSES));
    const auto nPart = static_cast<int>(source.Below(12));
    switch (source.Below(4)) {
    case 0: desk::SetThemePartAvailable(pszClass, nPart, source.Flag()); break;
    case 1: {
        const int n = source.Integer();
        desk::SetThemeMargins(pszClass, nPart, 0, TMT_CONTENTMARGINS, {n, source.Integer(), 1, 2});
        break;
    }
    case 2: desk::SetThemePartSize(pszClass, nPart, 0, {source.Size(), source.Size()}); break;
    default: desk::SetThemeInt(pszClass, nPart, 0, TMT_BGTYPE, static_cast<int>(source.Below(3))); break;
    }
    TellOfTheme(world, source);
}

void ChangeSettings(World& world, Source& source)
{
    static constexpr int METRICS[] = {SM_CXVSCROLL, SM_CYHSCROLL, SM_CYVSCROLL, SM_CXEDGE,
                                      SM_CXBORDER,  SM_CXDRAG,    SM_CXICON,    SM_CYSMICON};
    switch (source.Below(4)) {
    case 0: desk::SetSystemMetric(source.Any(std::span<const int>(METRICS)), source.Size()); break;
    case 1: desk::SetDpi(96 + 24 * static_cast<int>(source.Below(5))); break;
    case 2: desk::SetWheelLines(source.Number()); break;
    default:
        desk::SetKeyboardRepeat(static_cast<int>(source.Below(4)), static_cast<int>(source.Below(32)));
        break;
    }
    SendMessageW(world.Window(), WM_SETTINGCHANGE, 0, 0);
}

// --- Faults

// Not what gives something back, which stays held then and could not be told from a leak; nor the reading of
// a window's words, without which no object is found, and the one that the window owns never goes.
bool MayFail(const desk::FallibleOperation& operation)
{
    return !operation.releases && !operation.name.starts_with("GetWindowLong");
}

void LetFail(World&, Source& source)
{
    const auto& operation = source.Any(desk::FallibleOperations());
    if (!MayFail(operation)) {
        return;
    }
    const int nTimes = source.Chance(6) ? 40 : 1 + static_cast<int>(source.Below(3));
    const auto nSkip = static_cast<int>(source.Below(source.Chance(2) ? 3 : 20));
    source.Note(std::string(operation.name) + " " + std::to_string(nTimes) + " times after " +
                std::to_string(nSkip));
    desk::Fail(operation.name, nTimes, ERROR_NOT_ENOUGH_MEMORY, nSkip);
}

} // namespace

void AddSurroundings(Table& table)
{
    Add(table, {
                   {"Resize", Resize, 3},
                   {"ResizeWell", ResizeWell, 3},
                   {"Reparent", Reparent},
                   {"ChangeStyle", ChangeStyle, 2},
                   {"Enable", Enable},
                   {"Show", Show},
                   {"Invalidate", Invalidate, 3},
                   {"ChangeTheme", ChangeTheme},
                   {"ChangeThemeClass", ChangeThemeClass},
                   {"ChangeThemeNumbers", ChangeThemeNumbers},
                   {"ChangeSettings", ChangeSettings},
                   {"Arm", [](World& world, Source& source) { world.Arm(source); }, 12},
               });
}

void AddFaults(Table& table)
{
    Add(table, {
                   {"LetFail", LetFail, 6},
                   {"LetNothingFail", [](World&, Source&) { desk::ClearFaults(); }, 4},
               });
}

void AddLife(Table& table)
{
    Add(table, {
                   {"Make", [](World& world, Source& source) { world.Make(source); }, 3},
                   {"DestroyWindow", [](World& world, Source&) { ::DestroyWindow(world.Window()); }},
                   {"DeleteObject", [](World& world, Source& source) { world.DeleteObject(source); }},
                   {"UseCopy", [](World& world, Source& source) { world.UseCopy(source); }, 2},
                   {"Assign", [](World& world, Source& source) { world.Assign(source); }},
                   {"DestroyHost", [](World& world, Source&) { ::DestroyWindow(world.Host()); }},
               });
}

} // namespace attack
