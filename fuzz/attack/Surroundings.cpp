// What a window lives in: its parent and the style.

#include "Call.h"

#include <gesso/framework/Appearance.h>
#include <gesso/framework/Behavior.h>
#include <gesso/framework/Scaling.h>

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
    const auto nStyle = static_cast<LONG>(WS_CHILD | WS_VISIBLE | (source.Bits() & ~desk::STYLES_LEFT_OUT));
    SetWindowLongW(world.Window(), source.Chance(4) ? GWL_EXSTYLE : GWL_STYLE, nStyle);
}

// What is made in the window from then on is laid out as it is, and so is what is drawn in it.
void Turn(World& world, Source& source)
{
    const HWND hwnd = source.Chance(2) ? world.Window() : world.AnyParent(source);
    SetWindowLongW(hwnd, GWL_EXSTYLE, GetWindowLongW(hwnd, GWL_EXSTYLE) ^ WS_EX_LAYOUTRTL);
    if (source.Chance(2)) {
        SetWindowPos(hwnd, nullptr, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_FRAMECHANGED);
    }
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

BOOL CALLBACK TellOfTheme(HWND hwnd, LPARAM)
{
    SendMessageW(hwnd, WM_THEMECHANGED, 0, 0);
    return TRUE;
}

BOOL CALLBACK TellWithChildren(HWND hwnd, LPARAM)
{
    EnumChildWindows(hwnd, TellOfTheme, 0);
    return TellOfTheme(hwnd, 0);
}

// The control hears of it, as a rule, and mostly all other windows of the thread as well.
void ChangeTheme(World& world, Source& source)
{
    desk::SetThemed(world.Window(), !source.Chance(3));
    if (source.Chance(2)) {
        EnumThreadWindows(GetCurrentThreadId(), TellWithChildren, 0);
    } else if (!source.Chance(3)) {
        SendMessageW(world.Window(), WM_THEMECHANGED, 0, 0);
    }
}

void ChangeScale(World& world, Source& source)
{
    gesso::SetScaling(static_cast<gesso::Scaling>(source.Below(3)));
    gesso::Scale(world.Window(), source.Integer());
    gesso::DpiOf(world.Window());
}

void ChangeDots(World& world, Source& source)
{
    const UINT uMsg = source.Chance(2) ? WM_DPICHANGED : WM_DPICHANGED_AFTERPARENT;
    const RECT rc = source.Rect();
    const auto wDots = static_cast<WORD>(source.Chance(2) ? 96 + 24 * source.Below(9) : source.Bits());
    SendMessageW(world.Window(), uMsg, MAKEWPARAM(wDots, wDots), reinterpret_cast<LPARAM>(&rc));
}

void ChangeScheme(World&, Source& source)
{
    gesso::SetColorScheme(static_cast<gesso::ColorScheme>(
        source.Chance(8) ? source.Integer() : static_cast<int>(source.Below(4))));
}

void ChangeColor(World&, Source& source)
{
    const auto role = static_cast<gesso::ColorRole>(source.Chance(8) ? source.Integer()
                                                                     : static_cast<int>(source.Below(18)));
    gesso::SetColor(role, source.Flag()      ? CLR_DEFAULT
                          : source.Chance(4) ? source.Bits()
                                             : source.Below(0x1000000));
    gesso::ColorOf(role);
}

void ChangeSystemColors(World& world, Source& source)
{
    SendMessageW(world.Window(), source.Flag() ? WM_SYSCOLORCHANGE : WM_SETTINGCHANGE, 0, 0);
}

} // namespace

void AddSurroundings(Table& table)
{
    Add(table, {
                   {"Resize", Resize, 3},
                   {"ResizeWell", ResizeWell, 3},
                   {"Reparent", Reparent},
                   {"ChangeStyle", ChangeStyle, 2},
                   {"Turn", Turn},
                   {"Enable", Enable},
                   {"Show", Show},
                   {"Invalidate", Invalidate, 3},
                   {"ChangeTheme", ChangeTheme},
                   {"ChangeScale", ChangeScale},
                   {"ChangeDots", ChangeDots, 2},
                   {"ChangeScheme", ChangeScheme},
                   {"ChangeColor", ChangeColor},
                   {"ChangeSystemColors", ChangeSystemColors},
                   {"ShowCues", [](World& world, Source&) { gesso::ShowKeyboardCues(world.Host()); }},
                   {"Arm", [](World& world, Source& source) { world.Arm(source); }, 12},
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
