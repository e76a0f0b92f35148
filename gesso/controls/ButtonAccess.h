// What the button family says of itself.
#pragma once

#include <gesso/access/AccessibleSide.h>
#include <gesso/controls/ControlStyles.h>
#include <gesso/framework/Frame.h>

namespace gesso {

// Focused, hot, pressed and default, as they are.
UINT StateOfButton(const GWnd& wnd);
// The focus, and a press and release of the space key; false where the window cannot take the focus.
bool PressByKey(GWnd& wnd);

// A button that shows a text; the class tells which.
template <class BUTTON> class ButtonSide : public SideOf<BUTTON>
{
public:
    Role RoleOf(const GWnd&, AccessibleId) const override { return Role::PushButton; }
    AccessString NameOf(const GWnd& wnd, AccessibleId) const override
    {
        return WithoutMnemonic(TextOf(this->Of(wnd)));
    }
    AccessString ShortcutOf(const GWnd& wnd, AccessibleId) const override
    {
        return ShortcutOfMnemonic(TextOf(this->Of(wnd)));
    }
    UINT StateOf(const GWnd& wnd, AccessibleId) const override
    {
        return this->StateOfWindow(Frame::Handle(wnd), true) | StateOfButton(wnd);
    }
    AccessibleAction ActionOf(const GWnd&, AccessibleId) const override { return AccessibleAction::Press; }
    bool Act(GWnd& wnd, AccessibleId) const override { return PressByKey(wnd); }
    bool TakesLabel() const override { return true; }

protected:
    ~ButtonSide() = default;
    virtual LPCWSTR TextOf(const BUTTON& button) const = 0;
};

// One with a mark.
template <class BUTTON> class CheckSide : public ButtonSide<BUTTON>
{
public:
    UINT StateOf(const GWnd& wnd, AccessibleId id) const override
    {
        const UINT uState = ButtonSide<BUTTON>::StateOf(wnd, id) & ~UINT{STATE_SYSTEM_DEFAULT};
        switch (this->Of(wnd).GetCheck()) {
        case BST_UNCHECKED: return uState;
        case BST_INDETERMINATE: return uState | STATE_SYSTEM_MIXED;
        default: return uState | STATE_SYSTEM_CHECKED;
        }
    }

protected:
    ~CheckSide() = default;
};

} // namespace gesso
