// The style's parts and numbers, the session's settings, and a platform that fails.

#include "../Call.h"

#include <gesso/text/FallbackFonts.h>
#include <platform/headless/headless.h>

namespace attack {

namespace {

namespace simulated = gesso::headless;

void TellOfTheme(World& world, Source& source)
{
    if (!source.Chance(5)) {
        SendMessageW(world.Window(), WM_THEMECHANGED, 0, 0);
    }
}

constexpr const char* CLASSES[] = {"BUTTON",     "EDIT",     "COMBOBOX",  "LISTVIEW",
                                   "HEADER",     "TREEVIEW", "SCROLLBAR", "PROGRESS",
                                   "NAVIGATION", "TOOLBAR",  "MENU",      "EXPLORERBAR"};

void ChangeThemeClass(World& world, Source& source)
{
    simulated::SetThemeClassAvailable(source.Any(std::span<const char* const>(CLASSES)), !source.Chance(3));
    TellOfTheme(world, source);
}

void ChangeThemeNumbers(World& world, Source& source)
{
    const char* const pszClass = source.Any(std::span<const char* const>(CLASSES));
    const auto nPart = static_cast<int>(source.Below(12));
    switch (source.Below(5)) {
    case 0: simulated::SetThemePartAvailable(pszClass, nPart, source.Flag()); break;
    case 1: {
        const int n = source.Integer();
        simulated::SetThemeMargins(pszClass, nPart, 0, TMT_CONTENTMARGINS, {n, source.Integer(), 1, 2});
        break;
    }
    case 2: simulated::SetThemePartSize(pszClass, nPart, 0, {source.Size(), source.Size()}); break;
    case 3: // whatever is below shows through the picture
        simulated::SetThemeInt(pszClass, nPart, 0, TMT_BGTYPE, BT_IMAGEFILE);
        simulated::SetThemeInt(pszClass, nPart, 0, TMT_ALPHALEVEL, static_cast<int>(source.Below(256)));
        break;
    default: simulated::SetThemeInt(pszClass, nPart, 0, TMT_BGTYPE, static_cast<int>(source.Below(3))); break;
    }
    TellOfTheme(world, source);
}

void ChangeSettings(World& world, Source& source)
{
    static constexpr int METRICS[] = {SM_CXVSCROLL, SM_CYHSCROLL, SM_CYVSCROLL, SM_CXEDGE,
                                      SM_CXBORDER,  SM_CXDRAG,    SM_CXICON,    SM_CYSMICON};
    switch (source.Below(4)) {
    case 0: simulated::SetSystemMetric(source.Any(std::span<const int>(METRICS)), source.Size()); break;
    case 1: simulated::SetDpi(96 + 24 * static_cast<int>(source.Below(5))); break;
    case 2: simulated::SetWheelLines(source.Number()); break;
    default:
        simulated::SetKeyboardRepeat(static_cast<int>(source.Below(4)), static_cast<int>(source.Below(32)));
        break;
    }
    SendMessageW(world.Window(), WM_SETTINGCHANGE, 0, 0);
}

// --- Faults

// Not what gives something back, which stays held then and could not be told from a leak; nor the reading of
// a window's words, without which no object is found, and the one that the window owns never goes.
bool MayFail(const simulated::FallibleOperation& operation)
{
    return !operation.releases && !operation.name.starts_with("GetWindowLong");
}

void LetFail(World&, Source& source)
{
    const auto& operation = source.Any(simulated::FallibleOperations());
    if (!MayFail(operation)) {
        return;
    }
    const int nTimes = source.Chance(6) ? 40 : 1 + static_cast<int>(source.Below(3));
    const auto nSkip = static_cast<int>(source.Below(source.Chance(2) ? 3 : 20));
    source.Note(std::string(operation.name) + " " + std::to_string(nTimes) + " times after " +
                std::to_string(nSkip));
    simulated::Fail(operation.name, nTimes, ERROR_NOT_ENOUGH_MEMORY, nSkip);
}

// Until the end of the run there are the installed ones alone.
void InstallFont(World&, Source& source)
{
    static constexpr const char* FACES[] = {"Tahoma", "Arial", "Font A", "Font B", "Font C"};
    static constexpr simulated::CodeRange RANGES[] = {
        {0x20, 0x7E},     {0x300, 0x36F},     {0x590, 0x5FF},     {0x600, 0x6FF},   {0x900, 0x97F},
        {0x3000, 0x9FFF}, {0x1F1E6, 0x1F1FF}, {0x1F300, 0x1FAFF}, {0xD800, 0xDFFF}, {0x20, 0x1FFFF}};
    const auto& range = source.Any(std::span<const simulated::CodeRange>(RANGES));
    const simulated::FontShape shape{static_cast<int>(source.Below(300)),
                                     static_cast<int>(source.Below(300))};
    simulated::InstallFont(source.Any(std::span<const char* const>(FACES)), {range}, shape);
    gesso::ForgetFallbackFonts();
}

} // namespace

void AddFonts(Table& table)
{
    Add(table, {{"InstallFont", InstallFont}});
}

void AddSettings(Table& table)
{
    Add(table, {
                   {"ChangeThemeClass", ChangeThemeClass},
                   {"ChangeThemeNumbers", ChangeThemeNumbers},
                   {"ChangeSettings", ChangeSettings},
               });
}

void AddFaults(Table& table)
{
    Add(table, {
                   {"LetFail", LetFail, 6},
                   {"LetNothingFail", [](World&, Source&) { desk::ClearFaults(); }, 4},
               });
}

} // namespace attack
