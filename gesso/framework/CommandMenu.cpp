#include <gesso/framework/Colors.h>
#include <gesso/framework/CommandMenu.h>
#include <gesso/framework/Direction.h>
#include <gesso/framework/FlatMenu.h>

namespace gesso {
namespace {

class PopupMenu
{
public:
    PopupMenu() : m_hMenu(CreatePopupMenu()) {}
    ~PopupMenu()
    {
        if (m_hMenu) {
            DestroyMenu(m_hMenu);
        }
    }
    PopupMenu(const PopupMenu&) = delete;
    PopupMenu& operator=(const PopupMenu&) = delete;
    operator HMENU() const { return m_hMenu; }

private:
    HMENU m_hMenu;
};

UINT RunPlatformMenu(HWND hwndOwner, POINT ptScreen, std::span<const CommandEntry> entries)
{
    const PopupMenu menu;
    for (const CommandEntry& entry : entries) {
        const UINT uKind = entry.uCommand ? MF_STRING : MF_SEPARATOR;
        AppendMenuW(menu, uKind | (entry.uCommand && !entry.fEnabled ? MF_GRAYED : MF_ENABLED),
                    entry.uCommand, entry.uCommand ? entry.pszText : nullptr);
    }
    const UINT uFlags =
        TPM_RETURNCMD | TPM_NONOTIFY | TPM_RIGHTBUTTON | (IsMirrored(hwndOwner) ? TPM_LAYOUTRTL : 0);
    return static_cast<UINT>(TrackPopupMenu(menu, uFlags, ptScreen.x, ptScreen.y, 0, hwndOwner, nullptr));
}

} // namespace

UINT RunCommandMenu(HWND hwndOwner, POINT ptScreen, std::span<const CommandEntry> entries, bool fByKey)
{
    // In Contrast the platform's menu has the user's colours already.
    if (ActiveColorScheme() != ColorScheme::Dark) {
        return RunPlatformMenu(hwndOwner, ptScreen, entries);
    }
    FlatMenu menu(entries, fByKey);
    return menu.Run(hwndOwner, ptScreen);
}

} // namespace gesso
