// The open list of a combo box: a message loop in which the user's input goes to the list.
//
// Anything of the program's may run in the loop, and may destroy the control or its object: each turn looks
// at the window again.

#include <gesso/edit/GComboBoxModern.h>
#include <gesso/framework/Frame.h>

#include <optional>

using gesso::Frame;

namespace {

bool IsWithin(UINT n, UINT nFirst, UINT nLast)
{
    return n >= nFirst && n <= nLast;
}

// What goes to the list as it is: keys, the wheel, and the mouse outside of client areas.
bool IsPlainInput(UINT uMsg)
{
    return IsWithin(uMsg, WM_NCMOUSEMOVE, WM_NCMBUTTONDBLCLK) ||
           IsWithin(uMsg, WM_NCXBUTTONDOWN, WM_NCXBUTTONDBLCLK) ||
           IsWithin(uMsg, WM_KEYDOWN, WM_SYSDEADCHAR) || uMsg == WM_MOUSEWHEEL;
}

// What goes to the list with its point mapped.
bool IsClientMouse(UINT uMsg)
{
    return IsWithin(uMsg, WM_MOUSEMOVE, WM_MBUTTONDBLCLK) || IsWithin(uMsg, WM_XBUTTONDOWN, WM_XBUTTONDBLCLK);
}

} // namespace

void GComboBoxList::Redirect(MSG* pMsg) const
{
    if (!pMsg->hwnd || pMsg->hwnd == m_hWnd || IsChild(m_hWnd, pMsg->hwnd)) {
        return;
    }
    if (IsPlainInput(pMsg->message)) {
        pMsg->hwnd = m_hWnd;
    } else if (IsClientMouse(pMsg->message)) {
        POINT pt{gesso::PointOf(pMsg->lParam).x, gesso::PointOf(pMsg->lParam).y};
        MapWindowPoints(pMsg->hwnd, m_hWnd, &pt, 1);
        pMsg->lParam = MAKELPARAM(pt.x, pt.y);
        pMsg->hwnd = m_hWnd;
    }
}

// Once another window is in the foreground the list closes, and the message keeps its own window.
void GComboBox::Direct(MSG* pMsg, HWND hwndForeground)
{
    if (!IsDropped()) {
        return;
    }
    const HWND hwndNow = GetForegroundWindow();
    if (hwndNow != hwndForeground && hwndNow != m_pList->GetHwnd()) {
        ChangeExpansion(false);
    } else {
        m_pList->Redirect(pMsg);
    }
}

void GComboBox::ChangeExpansion(bool fOpen)
{
    if (fOpen) {
        m_pList->Open(m_hWnd, m_hFont, m_nDropdownHeight);
    } else {
        m_pList->Close();
    }
}

// False if the control is gone, or the program is to end.
bool GComboBox::RunList()
{
    const HWND hwnd = m_hWnd;
    const HWND hwndForeground = GetForegroundWindow();
    SetCapture(hwnd);
    bool fAlive = Frame::IsAlive(hwnd, this);
    std::optional<Inside::Release> release;
    if (fAlive) {
        release.emplace(*this);
        fAlive = Frame::IsAlive(hwnd, this);
    }
    while (fAlive && IsDropped()) {
        MSG msg{};
        const BOOL nGot = GetMessageW(&msg, nullptr, 0, 0);
        if (nGot < 0) {
            ChangeExpansion(false); // no message would ever close it
            fAlive = Frame::IsAlive(hwnd, this);
            continue;
        }
        if (nGot == 0) {
            // All is left as it is: capture, pressed state and list. The loop around this one is to end too.
            PostQuitMessage(static_cast<int>(msg.wParam));
            return false;
        }
        // Sent messages were answered on the way.
        if (Frame::IsAlive(hwnd, this)) {
            Direct(&msg, hwndForeground);
        }
        TranslateMessage(&msg);
        DispatchMessageW(&msg);
        fAlive = Frame::IsAlive(hwnd, this);
    }
    if (!fAlive && GetCapture() == hwnd) {
        ReleaseCapture();
    }
    return fAlive;
}

// Fixed behaviour: a text that was typed gives way to the selected item's, also where the user chose nothing;
// a host would read the typed text where it now reads the item's.
void GComboBox::ShowDropDown()
{
    if (Modern* pModern = ModernPart()) {
        pModern->Open();
        return;
    }
    if (IsDropped()) {
        return;
    }
    HideCursor();
    Frame::AddState(*this, GWS_PRESSED);
    ChangeExpansion(true);
    if (!RunList()) {
        return;
    }
    const HWND hwnd = m_hWnd;
    Invalidate(0);
    // The program may have given the capture to a window of its own, which is told now.
    ReleaseCapture();
    if (!Frame::IsAlive(hwnd, this)) {
        return;
    }
    ShowCursor();
    Frame::ClearState(*this, GWS_PRESSED);
    Update(false);
}
