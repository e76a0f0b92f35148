// The things of a window and of those below it, in the order of a screen reader: each control's items behind
// it, then the windows below it.
#pragma once

#include <gesso/access/NodeBody.h>

namespace gesso {

// Calls visit(node, level) for each, until it answers false. False where it did.
template <class VISIT> bool WalkItems(const AccessibleNode& node, UINT nLevel, const VISIT& visit)
{
    if (!visit(node, nLevel)) {
        return false;
    }
    const HWND hwnd = node.Body()->Window();
    const UINT nCount = node.GetChildCount();
    for (UINT n = 0; n < nCount; ++n) {
        const AccessibleNode child = node.GetChild(n);
        // What is a window of its own comes with the windows.
        if (child && child.Body()->Window() == hwnd && !WalkItems(child, nLevel + 1, visit)) {
            return false;
        }
    }
    return true;
}

template <class VISIT> bool WalkWindow(HWND hwnd, UINT nLevel, const VISIT& visit)
{
    const AccessibleNode node = NodeOfWindow(hwnd);
    if (node && !WalkItems(node, nLevel, visit)) {
        return false;
    }
    for (HWND hwndChild = GetWindow(hwnd, GW_CHILD); hwndChild; hwndChild = GetWindow(hwndChild, GW_HWNDNEXT))
    {
        if (!WalkWindow(hwndChild, nLevel + 1, visit)) {
            return false;
        }
    }
    return true;
}

} // namespace gesso
