// What the buttons say of themselves to those who do not see them.
#include <gesso/controls/ButtonAccess.h>
#include <gesso/controls/GButton.h>
#include <gesso/controls/GCheckBox.h>
#include <gesso/controls/GCommandButton.h>
#include <gesso/controls/GNavigationButton.h>
#include <gesso/controls/GRadioButton.h>
#include <gesso/language/Language.h>

using gesso::AccessibleAction;
using gesso::AccessibleId;
using gesso::AccessString;
using gesso::Frame;
using gesso::Role;

namespace gesso {

UINT StateOfButton(const GWnd& wnd)
{
    const DWORD dwState = Frame::State(wnd);
    UINT uState = 0;
    uState |= dwState & (GWS_PRESSED | GWS_KEYDOWN) ? STATE_SYSTEM_PRESSED : 0;
    uState |= dwState & GWS_HOT ? STATE_SYSTEM_HOTTRACKED : 0;
    uState |= Frame::Style(wnd) & GBS_DEFAULT ? STATE_SYSTEM_DEFAULT : 0;
    return uState;
}

bool PressByKey(GWnd& wnd)
{
    constexpr LPARAM PRESSED = 1;                                // once
    constexpr LPARAM RELEASED = static_cast<LPARAM>(0xC0000001); // was down, and is let go
    const HWND hwnd = Frame::Handle(wnd);
    SetFocus(hwnd);
    if (GetFocus() != hwnd) {
        return false;
    }
    SendMessageW(hwnd, WM_KEYDOWN, VK_SPACE, PRESSED);
    SendMessageW(hwnd, WM_KEYUP, VK_SPACE, RELEASED);
    return true;
}

} // namespace gesso

class GButton::Access final : public gesso::ButtonSide<GButton>
{
    LPCWSTR TextOf(const GButton& button) const override { return button.m_pszText; }
};

const gesso::AccessibleSide& GButton::Describes()
{
    static constexpr Access SIDE;
    return SIDE;
}

class GCommandButton::Access final : public gesso::ButtonSide<GCommandButton>
{
public:
    AccessString DescriptionOf(const GWnd& wnd, AccessibleId) const override
    {
        return AccessString::Build(L"%s", gesso::TextOrEmpty(Of(wnd).m_pszNote));
    }

private:
    LPCWSTR TextOf(const GCommandButton& button) const override { return button.m_pszText; }
};

const gesso::AccessibleSide& GCommandButton::Describes()
{
    static constexpr Access SIDE;
    return SIDE;
}

class GNavigationButton::Access final : public gesso::ButtonSide<GNavigationButton>
{
    LPCWSTR TextOf(const GNavigationButton&) const override
    {
        return gesso::TextOf(gesso::TextId::WizardBack);
    }
};

const gesso::AccessibleSide& GNavigationButton::Describes()
{
    static constexpr Access SIDE;
    return SIDE;
}

class GCheckBox::Access final : public gesso::CheckSide<GCheckBox>
{
public:
    Role RoleOf(const GWnd&, AccessibleId) const override { return Role::CheckButton; }
    AccessibleAction ActionOf(const GWnd& wnd, AccessibleId) const override
    {
        return Of(wnd).GetCheck() == BST_CHECKED ? AccessibleAction::Uncheck : AccessibleAction::Check;
    }

private:
    LPCWSTR TextOf(const GCheckBox& box) const override { return box.m_pszText; }
};

const gesso::AccessibleSide& GCheckBox::Describes()
{
    static constexpr Access SIDE;
    return SIDE;
}

class GRadioButton::Access final : public gesso::CheckSide<GRadioButton>
{
public:
    Role RoleOf(const GWnd&, AccessibleId) const override { return Role::RadioButton; }
    AccessibleAction ActionOf(const GWnd& wnd, AccessibleId) const override
    {
        return Of(wnd).GetCheck() ? AccessibleAction::None : AccessibleAction::Check;
    }

private:
    LPCWSTR TextOf(const GRadioButton& button) const override { return button.m_pszText; }
};

const gesso::AccessibleSide& GRadioButton::Describes()
{
    static constexpr Access SIDE;
    return SIDE;
}
