// A thing that a window shows, held without keeping the window: what AccessibleObject hands out to other
// programs and AccessibleNode to tests. It puts the words of the program, and of the label in front of a
// control, before those of the control's side.
#pragma once

#include <gesso/access/AccessibleLink.h>
#include <gesso/access/AccessibleSide.h>

#include <optional>

namespace gesso {

class AccessibleThing
{
public:
    AccessibleThing(LinkRef link, const AccessibleSide& side, AccessibleId id)
        : m_link(std::move(link)), m_pSide(&side), m_id(id)
    {}

    // Why it cannot be asked: CO_E_OBJNOTCONNECTED once the control has gone, RPC_E_WRONG_THREAD on another
    // thread than the control's, E_INVALIDARG where the thing has gone. S_OK otherwise: all that follows is
    // for that case alone.
    HRESULT Check() const;

    HWND Window() const { return m_link->Window(); }
    AccessibleLink& Link() const { return *m_link; }
    AccessibleId Id() const { return m_id; }
    bool operator==(const AccessibleThing& other) const;
    // Another thing of the same control.
    AccessibleThing With(AccessibleId id) const { return {m_link, *m_pSide, id}; }

    Role GetRole() const { return m_pSide->RoleOf(Control(), m_id); }
    AccessString Name() const;
    AccessString Description() const;
    AccessString Value() const;
    bool HasValue() const { return m_pSide->HasValue(Control(), m_id); }
    AccessString Shortcut() const;
    UINT State() const;
    // In pixels of the screen.
    RECT Rect() const;
    AccessibleAction Action() const { return m_pSide->ActionOf(Control(), m_id); }

    bool IsObject() const { return m_pSide->IsObject(Control(), m_id); }
    UINT Count() const { return m_pSide->CountOf(Control(), m_id); }
    AccessibleThing Child(UINT nIndex) const { return With(m_pSide->ChildOf(Control(), m_id, nIndex)); }
    UINT IndexOf(AccessibleId id) const { return m_pSide->IndexOf(Control(), m_id, id); }
    AccessibleThing Parent() const { return With(m_pSide->ParentOf(Control(), m_id)); }
    // What has the focus, WHOLE for the control itself; only asked while the control has it.
    AccessibleId FocusId() const { return m_pSide->FocusOf(Control()); }
    UINT NextSelected(UINT nIndex) const { return m_pSide->NextSelected(Control(), m_id, nIndex); }
    AccessibleId IdAt(POINT ptScreen) const;

    // Each returns whether it did it; on a disabled control none does.
    bool Act() const;
    bool Focus() const;
    bool Choose(AccessibleChoice choice) const;
    bool Open(bool fOpen) const;
    bool Show() const;
    bool SetValue(LPCWSTR pszValue) const;

private:
    struct Texts
    {
        AccessString name, description, value;
    };
    GWnd& Control() const { return *m_link->Control(); }
    AccessString OwnName() const;
    AccessString OwnDescription() const;
    AccessString OwnValue() const;
    // With what the program said.
    Texts TextsBy(const AccessibleLink::Words& words) const;
    int ChildNumber() const;
    bool IsEnabled() const;

    LinkRef m_link;
    const AccessibleSide* m_pSide;
    AccessibleId m_id;
};

// The thing that a window of the library is, asked of it as a message; none for any other window, and for one
// of another thread.
std::optional<AccessibleThing> FindThing(HWND hwnd);

// What the label says that names a control: the one directly in front of it in the order of the windows.
struct LabelWords
{
    AccessString name, shortcut;
};
LabelWords LabelBefore(HWND hwnd);

} // namespace gesso
