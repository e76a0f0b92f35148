#include <gesso/controls/RadioGroup.h>
#include <gesso/framework/Behavior.h>
#include <gesso/framework/Direction.h>

#include <algorithm>
#include <vector>

namespace gesso {
namespace {

DWORD StyleOf(HWND hwnd)
{
    return static_cast<DWORD>(GetWindowLongW(hwnd, GWL_STYLE));
}

void SetTabStop(HWND hwnd, bool fStops)
{
    const DWORD dwStyle = StyleOf(hwnd);
    const DWORD dwNew = fStops ? dwStyle | WS_TABSTOP : dwStyle & ~static_cast<DWORD>(WS_TABSTOP);
    if (dwNew != dwStyle) {
        SetWindowLongW(hwnd, GWL_STYLE, static_cast<LONG>(dwNew));
    }
}

bool IsChecked(HWND hwnd)
{
    return SendMessageW(hwnd, BM_GETCHECK, 0, 0) == BST_CHECKED;
}

// Asked by a message: a window of another class may be a radio button too.
bool IsGroupRadio(HWND hwnd)
{
    return (StyleOf(hwnd) & GBS_AUTO) && BehaviorOf(hwnd) == Behavior::Modern &&
           (SendMessageW(hwnd, WM_GETDLGCODE, 0, 0) & DLGC_RADIOBUTTON);
}

std::vector<HWND> GroupOf(HWND hwnd)
{
    HWND hwndFirst = hwnd;
    while (!(StyleOf(hwndFirst) & WS_GROUP)) {
        const HWND hwndPrevious = GetWindow(hwndFirst, GW_HWNDPREV);
        if (!hwndPrevious) {
            break;
        }
        hwndFirst = hwndPrevious;
    }
    std::vector<HWND> group;
    for (HWND hwndAt = hwndFirst; hwndAt && (hwndAt == hwndFirst || !(StyleOf(hwndAt) & WS_GROUP));
         hwndAt = GetWindow(hwndAt, GW_HWNDNEXT))
    {
        if (IsGroupRadio(hwndAt)) {
            group.push_back(hwndAt);
        }
    }
    return group;
}

bool TakesFocus(HWND hwnd)
{
    return IsWindowVisible(hwnd) && IsWindowEnabled(hwnd);
}

bool IsArrow(WPARAM wKey)
{
    return wKey >= VK_LEFT && wKey <= VK_DOWN;
}

} // namespace

void UncheckOthers(HWND hwnd)
{
    for (const HWND hwndOther : GroupOf(hwnd)) {
        if (hwndOther != hwnd && SendMessageW(hwndOther, BM_GETCHECK, 0, 0) != BST_UNCHECKED) {
            SendMessageW(hwndOther, BM_SETCHECK, BST_UNCHECKED, 0);
        }
    }
}

void MoveTabStop(HWND hwnd, bool fChecked)
{
    const std::vector<HWND> group = GroupOf(hwnd);
    if (fChecked) {
        for (const HWND hwndOne : group) {
            SetTabStop(hwndOne, hwndOne == hwnd);
        }
    } else if (std::ranges::none_of(group, [](HWND hwndOne) { return (StyleOf(hwndOne) & WS_TABSTOP) != 0; }))
    {
        const auto first = std::ranges::find_if(group, TakesFocus);
        SetTabStop(group.empty() ? hwnd : first != group.end() ? *first : group.front(), true);
    }
}

void JoinGroup(HWND hwnd)
{
    if (std::ranges::any_of(GroupOf(hwnd), IsChecked)) {
        SetTabStop(hwnd, IsChecked(hwnd));
    }
}

LRESULT CodeOfArrows(LPARAM lParam)
{
    const auto* pMessage = reinterpret_cast<const MSG*>(lParam);
    const bool fArrow = pMessage && pMessage->message == WM_KEYDOWN && IsArrow(pMessage->wParam);
    return fArrow ? DLGC_WANTARROWS : 0;
}

bool GoInGroup(HWND hwnd, WPARAM wKey)
{
    if (!IsArrow(wKey)) {
        return false;
    }
    std::vector<HWND> group = GroupOf(hwnd);
    const UINT uStep = KeyInLayout(hwnd, static_cast<UINT>(wKey));
    if (uStep == VK_LEFT || uStep == VK_UP) {
        std::ranges::reverse(group);
    }
    const auto self = std::ranges::find(group, hwnd);
    std::rotate(group.begin(), self, group.end());
    const auto next = std::find_if(group.begin() + !group.empty(), group.end(), TakesFocus);
    if (next != group.end()) {
        SetFocus(*next);
        SendMessageW(*next, BM_CLICK, 0, 0);
    }
    return true;
}

} // namespace gesso
