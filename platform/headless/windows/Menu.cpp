// Menus that pop up. A test says beforehand what will be chosen; what a menu showed is told afterwards.
#include "Desktop.h"
#include "Send.h"

#include "../core/Accounting.h"
#include "../core/Faults.h"
#include "../core/TableLock.h"
#include "../core/Text.h"

#include <algorithm>
#include <utility>

namespace gesso::headless {
namespace {

struct MenuItem
{
    UINT flags;
    UINT_PTR id;
    std::string text;
};

struct PopupMenu
{
    std::vector<MenuItem> items;
};

PopupMenu* FindMenu(HMENU menu)
{
    return IsLive(Kind::Menu, menu) ? reinterpret_cast<PopupMenu*>(menu) : nullptr;
}

std::string Shown(const PopupMenu& menu)
{
    std::string shown;
    for (const MenuItem& item : menu.items) {
        shown += shown.empty() ? "" : "|";
        shown += item.flags & MF_SEPARATOR ? "-" : item.text;
        shown += item.flags & MF_GRAYED ? " (grey)" : "";
    }
    return shown;
}

// A grey item cannot be chosen.
bool CanChoose(const PopupMenu& menu, const std::string& text)
{
    const auto isIt = [&](const MenuItem& item) { return item.text == text && !(item.flags & MF_GRAYED); };
    return std::any_of(menu.items.begin(), menu.items.end(), isIt);
}

} // namespace

void ChooseFromMenu(std::string_view text)
{
    const TableLock lock;
    TheDesktop().menuChoice = text;
}

std::string LastMenu()
{
    const TableLock lock;
    return TheDesktop().lastMenu;
}

} // namespace gesso::headless

using namespace gesso::headless;

extern "C" {

HMENU WINAPI CreatePopupMenu()
{
    const TableLock lock;
    if (FaultFires("CreatePopupMenu")) {
        return nullptr;
    }
    auto* menu = new PopupMenu;
    Track(Kind::Menu, menu);
    return reinterpret_cast<HMENU>(menu);
}

BOOL WINAPI DestroyMenu(HMENU handle)
{
    const TableLock lock;
    if (FaultFires("DestroyMenu")) {
        return FALSE;
    }
    PopupMenu* menu = FindMenu(handle);
    if (!menu) {
        SetLastError(ERROR_INVALID_MENU_HANDLE);
        return FALSE;
    }
    Untrack(Kind::Menu, menu);
    delete menu;
    return TRUE;
}

BOOL WINAPI AppendMenuW(HMENU handle, UINT flags, UINT_PTR id, LPCWSTR text)
{
    const TableLock lock;
    if (FaultFires("AppendMenuW")) {
        return FALSE;
    }
    PopupMenu* menu = FindMenu(handle);
    if (!menu) {
        SetLastError(ERROR_INVALID_MENU_HANDLE);
        return FALSE;
    }
    menu->items.push_back({flags, id, text ? ToUtf8(View(text)) : std::string()});
    return TRUE;
}

// With TPM_RETURNCMD alone. Modal on the platform: here the choice is made at once.
BOOL WINAPI TrackPopupMenu(HMENU handle, UINT flags, int, int, int, HWND owner, const RECT*)
{
    const TableLock lock;
    if (FaultFires("TrackPopupMenu")) {
        return 0;
    }
    const PopupMenu* menu = FindMenu(handle);
    if (!menu || !Find(owner) || !(flags & TPM_RETURNCMD)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    Desktop& desktop = TheDesktop();
    desktop.lastMenu = Shown(*menu);
    const std::string choice = std::exchange(desktop.menuChoice, {});
    if (!CanChoose(*menu, choice)) {
        return 0;
    }
    const auto isIt = [&](const MenuItem& item) { return item.text == choice; };
    return static_cast<BOOL>(std::find_if(menu->items.begin(), menu->items.end(), isIt)->id);
}

} // extern "C"
