// What a control says of itself to those who do not see it: of each thing in it, by role, name, description,
// value, state, place and children, and what can be done with it. No interface of the platform's is known
// here; AccessibleObject hands it on as IAccessible, and AccessibleNode to tests.
//
// A side has no state: one serves all controls of a class. It is asked on the control's thread, for things
// that Has has said to be there, and computes each answer anew, so that nothing is built for items that
// nobody asks of.
#pragma once

#include <gesso/access/Role.h>
#include <gesso/containers/OString.h>
#include <gesso/framework/GWnd.h>

namespace gesso {

using AccessString = OString<wchar_t>;

// A thing within a control: what kind of thing, which one, and of what. The control itself has all zero.
struct AccessibleId
{
    UINT nKind = 0;
    UINT nIndex = 0;
    UINT nOuter = 0;

    bool operator==(const AccessibleId&) const = default;
};
inline constexpr AccessibleId WHOLE{};

// What a press of a thing does.
enum class AccessibleAction
{
    None,
    Press,
    Check,
    Uncheck,
    Expand,
    Collapse,
    Open,
    Close,
    Select
};
// "Press"; null for none.
LPCWSTR NameOf(AccessibleAction action);

// Ways to select an item, as the platform's SELFLAG_ bits have them.
enum class AccessibleChoice
{
    Only,   // this one alone
    Extend, // all from the anchor to it
    Add,
    Remove
};

class AccessibleSide
{
public:
    // Whether a thing is there now.
    virtual bool Has(const GWnd& wnd, AccessibleId id) const;
    virtual Role RoleOf(const GWnd& wnd, AccessibleId id) const = 0;
    // Without ampersands. Of the control itself: its own text, empty where it has none.
    virtual AccessString NameOf(const GWnd& wnd, AccessibleId id) const;
    virtual AccessString DescriptionOf(const GWnd& wnd, AccessibleId id) const;
    virtual AccessString ValueOf(const GWnd& wnd, AccessibleId id) const;
    // Whether the thing has a value, be it empty.
    virtual bool HasValue(const GWnd& wnd, AccessibleId id) const;
    // "Alt+S"; empty for none.
    virtual AccessString ShortcutOf(const GWnd& wnd, AccessibleId id) const;
    // The STATE_SYSTEM_ bits: StateOfWindow and more for the control itself.
    virtual UINT StateOf(const GWnd& wnd, AccessibleId id) const;
    // In the client area. The control itself is not asked of.
    virtual RECT RectOf(const GWnd& wnd, AccessibleId id) const;

    // The control is named by the label in front of it where it has no name of its own.
    virtual bool TakesLabel() const { return false; }

    virtual UINT CountOf(const GWnd& wnd, AccessibleId id) const;
    // The index counts from 0 and is below the count.
    virtual AccessibleId ChildOf(const GWnd& wnd, AccessibleId id, UINT nIndex) const;
    // The index of a child in what it is below; NO_INDEX where it is not below it.
    virtual UINT IndexOf(const GWnd& wnd, AccessibleId outer, AccessibleId id) const;
    virtual AccessibleId ParentOf(const GWnd& wnd, AccessibleId id) const;
    // Whether a thing has an object of its own, as all have that have children.
    virtual bool IsObject(const GWnd& wnd, AccessibleId id) const;
    // What has the focus while the control has it.
    virtual AccessibleId FocusOf(const GWnd& wnd) const;
    // The selected child behind another one, by index, NO_INDEX for the first one and at the end.
    virtual UINT NextSelected(const GWnd& wnd, AccessibleId outer, UINT nIndex) const;
    // What is at a point of the client area; WHOLE for nothing in particular.
    virtual AccessibleId HitTest(const GWnd& wnd, POINT pt) const;

    // What is done may end the control. Each returns whether it did it.
    virtual AccessibleAction ActionOf(const GWnd& wnd, AccessibleId id) const;
    virtual bool Act(GWnd& wnd, AccessibleId id) const;
    virtual bool Focus(GWnd& wnd, AccessibleId id) const;
    virtual bool Choose(GWnd& wnd, AccessibleId id, AccessibleChoice choice) const;
    virtual bool Open(GWnd& wnd, AccessibleId id, bool fOpen) const;
    virtual bool Show(GWnd& wnd, AccessibleId id) const;
    virtual bool SetValue(GWnd& wnd, AccessibleId id, LPCWSTR pszValue) const;

protected:
    ~AccessibleSide() = default;

    // What holds for every window: unavailable, focused, invisible, off-screen and, of one that takes it,
    // focusable.
    static UINT StateOfWindow(HWND hwnd, bool fTakesFocus);
};

// The side of one class: what it asks, it asks of that class.
template <class CONTROL> class SideOf : public AccessibleSide
{
protected:
    ~SideOf() = default;
    static const CONTROL& Of(const GWnd& wnd) { return static_cast<const CONTROL&>(wnd); }
    static CONTROL& Of(GWnd& wnd) { return static_cast<CONTROL&>(wnd); }
};

// A text without the ampersand of its mnemonic; two stand for one.
AccessString WithoutMnemonic(LPCWSTR pszText);
// "Alt+S" for the mnemonic of a text; empty for none.
AccessString ShortcutOfMnemonic(LPCWSTR pszText);

} // namespace gesso
