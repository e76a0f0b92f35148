// The message loop of a pop-up window that is there until a choice: the keys, and the mouse over the window,
// are the menu's. It takes neither focus nor activation, so that what the user was at stays as it is.
#pragma once

#include <gesso/api.h>

namespace gesso {

// Where on the screen a menu stands that comes up at a point, wholly on the point's monitor: right of and
// below the point, for a mirrored owner left of it; where there is no room below, above it.
RECT PlaceMenu(POINT pt, SIZE size, bool fMirrored);

class MenuLoop
{
public:
    MenuLoop(const MenuLoop&) = delete;
    MenuLoop& operator=(const MenuLoop&) = delete;

protected:
    MenuLoop() = default;
    ~MenuLoop() = default;

    // Shows the menu, and returns once it has ended. Its window may still be there, and the owner may be
    // gone.
    void RunLoop(HWND hwndOwner);
    // Hides the window, whose loop then ends.
    void End();
    // For the window's messages: one that is destroyed, or whose program is left, has ended.
    void SeeEnd(UINT uMsg, WPARAM wParam);

    // The window may have come under a pointer that rests, and the first release may be that of the press
    // that opened it: neither marks or chooses. What is told here is where the pointer is on the screen.
    bool HasMovedTo(POINTS ptScreen);
    bool CountsReleaseAt(POINTS ptScreen);
    void NotePress() { m_fUsed = true; }

    virtual HWND LoopWindow() const = 0;
    // Makes the window, without activating it. False where that is not possible.
    virtual bool ShowMenu(HWND hwndOwner) = 0;
    // WM_KEYDOWN of a key that is pressed now. Whether the character that it makes is to come.
    virtual bool OnMenuKey(WPARAM wKey) = 0;
    virtual void OnMenuCharacter(wchar_t) {}
    virtual void OnMenuWheel(int) {}

private:
    // Whether a message of the loop goes to its window.
    bool GoesOn(const MSG& msg);
    static bool TakeMessage(MSG* pMsg);
    bool IsLeft();
    bool TakesKey(const MSG& msg);
    void TakeKeyDown(const MSG& msg);

    HWND m_hwndOwner = nullptr;
    HWND m_hwndForeground = nullptr;
    bool m_fEnded = false;
    POINTS m_ptPointer{}; // on the screen, where it was last
    bool m_fUsed = false; // the pointer has moved, or was pressed in the menu
};

} // namespace gesso
