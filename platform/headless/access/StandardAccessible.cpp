#include "StandardAccessible.h"
#include "WindowFacts.h"

#include "../core/Accounting.h"
#include "../core/Faults.h"

#include <algorithm>
#include <atomic>

namespace gesso::headless {
namespace {

// COM interfaces have no virtual destructor: the last Release ends the object by its own class.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

// A window as such, whose one child is its client area; a client area, whose children are the windows in it;
// a scroll bar; or the caret. It may be called on any thread.
class StandardAccessible final : public IAccessible, public IEnumVARIANT, public IOleWindow
{
public:
    StandardAccessible(HWND hwnd, LONG object) : m_hwnd(hwnd), m_object(object)
    {
        Track(Kind::AccessibleObject, this);
    }
    StandardAccessible(const StandardAccessible&) = delete;
    StandardAccessible& operator=(const StandardAccessible&) = delete;

    HRESULT QueryInterface(REFIID id, void** object) override;
    ULONG AddRef() override { return ++m_references; }
    ULONG Release() override;

    // Nobody calls it by name.
    HRESULT GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    HRESULT Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override
    {
        return E_NOTIMPL;
    }

    HRESULT get_accParent(IDispatch** parent) override;
    HRESULT get_accChildCount(LONG* count) override;
    HRESULT get_accChild(VARIANT id, IDispatch** child) override;
    HRESULT get_accName(VARIANT id, BSTR* name) override { return Give(id, NameOf, name); }
    HRESULT get_accValue(VARIANT id, BSTR* value) override;
    HRESULT get_accDescription(VARIANT id, BSTR* text) override { return GiveNone(id, text); }
    HRESULT get_accRole(VARIANT id, VARIANT* role) override;
    HRESULT get_accState(VARIANT id, VARIANT* state) override;
    HRESULT get_accHelp(VARIANT id, BSTR* text) override { return GiveNone(id, text); }
    HRESULT get_accHelpTopic(BSTR*, VARIANT, LONG*) override { return E_NOTIMPL; }
    HRESULT get_accKeyboardShortcut(VARIANT id, BSTR* text) override { return Give(id, ShortcutOf, text); }
    HRESULT get_accFocus(VARIANT* focus) override;
    HRESULT get_accSelection(VARIANT*) override { return E_NOTIMPL; }
    HRESULT get_accDefaultAction(VARIANT id, BSTR* text) override { return Give(id, ActionOf, text); }
    HRESULT accSelect(LONG flags, VARIANT id) override;
    HRESULT accLocation(LONG* left, LONG* top, LONG* width, LONG* height, VARIANT id) override;
    HRESULT accNavigate(LONG, VARIANT, VARIANT*) override { return E_NOTIMPL; }
    HRESULT accHitTest(LONG x, LONG y, VARIANT* hit) override;
    HRESULT accDoDefaultAction(VARIANT id) override;
    HRESULT put_accName(VARIANT, BSTR) override { return E_NOTIMPL; }
    HRESULT put_accValue(VARIANT id, BSTR value) override;

    HRESULT Next(ULONG count, VARIANT* children, ULONG* fetched) override;
    HRESULT Skip(ULONG count) override;
    HRESULT Reset() override;
    HRESULT Clone(IEnumVARIANT**) override { return E_NOTIMPL; }

    HRESULT GetWindow(HWND* hwnd) override;
    HRESULT ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }

private:
    using Fact = WideText (*)(HWND, LONG);

    ~StandardAccessible() { Untrack(Kind::AccessibleObject, this); }
    bool Is(const VARIANT& id) const
    {
        return V_VT(&id) == VT_I4 && V_I4(&id) == CHILDID_SELF && IsWindow(m_hwnd);
    }
    HRESULT Give(const VARIANT& id, Fact fact, BSTR* text) const;
    HRESULT GiveNone(const VARIANT& id, BSTR* text) const;
    std::vector<IDispatch*> Children(size_t first, size_t count) const;
    size_t CountChildren() const;
    HWND ChildAt(POINT point) const;

    const HWND m_hwnd;
    const LONG m_object;
    std::atomic<ULONG> m_references = 1;
    size_t m_next = 0; // of the enumeration
};

#pragma GCC diagnostic pop

VARIANT Number(LONG number)
{
    VARIANT value{};
    V_VT(&value) = VT_I4;
    V_I4(&value) = number;
    return value;
}

// What is asked about: the object itself, another object, or nothing.
HRESULT GiveSelf(VARIANT* out)
{
    *out = Number(CHILDID_SELF);
    return S_OK;
}

HRESULT GiveObject(IDispatch* object, VARIANT* out)
{
    V_VT(out) = object ? VT_DISPATCH : VT_EMPTY;
    V_DISPATCH(out) = object;
    return S_OK;
}

// The child of a window in which another window lies; null if it lies elsewhere.
HWND ChildWith(HWND parent, HWND within)
{
    HWND at = within;
    while (at && GetAncestor(at, GA_PARENT) != parent) {
        at = GetAncestor(at, GA_PARENT);
    }
    return at;
}

HRESULT StandardAccessible::QueryInterface(REFIID id, void** object)
{
    if (IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IDispatch) || IsEqualIID(id, IID_IAccessible)) {
        *object = static_cast<IAccessible*>(this);
    } else if (IsEqualIID(id, IID_IEnumVARIANT)) {
        *object = static_cast<IEnumVARIANT*>(this);
    } else if (IsEqualIID(id, IID_IOleWindow)) {
        *object = static_cast<IOleWindow*>(this);
    } else {
        *object = nullptr;
        return E_NOINTERFACE;
    }
    AddRef();
    return S_OK;
}

ULONG StandardAccessible::Release()
{
    const ULONG left = --m_references;
    if (left == 0) {
        delete this;
    }
    return left;
}

HRESULT StandardAccessible::Give(const VARIANT& id, Fact fact, BSTR* text) const
{
    const CallsBy platform(Caller::Platform);
    *text = nullptr;
    if (!Is(id)) {
        return E_INVALIDARG;
    }
    const WideText fully = fact(m_hwnd, m_object);
    if (fully.empty()) {
        return S_FALSE;
    }
    *text = SysAllocStringLen(Characters(fully), static_cast<UINT>(fully.size()));
    return *text ? S_OK : E_OUTOFMEMORY;
}

HRESULT StandardAccessible::GiveNone(const VARIANT& id, BSTR* text) const
{
    *text = nullptr;
    return Is(id) ? S_FALSE : E_INVALIDARG;
}

HRESULT StandardAccessible::get_accParent(IDispatch** parent)
{
    const CallsBy platform(Caller::Platform);
    *parent = nullptr;
    if (!IsWindow(m_hwnd)) {
        return E_INVALIDARG;
    }
    if (m_object != OBJID_WINDOW) {
        *parent = DispatchOf(m_hwnd, OBJID_WINDOW);
    } else if (const HWND above = GetAncestor(m_hwnd, GA_PARENT)) {
        *parent = DispatchOf(above, OBJID_CLIENT);
    }
    return *parent ? S_OK : S_FALSE;
}

size_t StandardAccessible::CountChildren() const
{
    if (m_object == OBJID_CLIENT) {
        return ChildWindows(m_hwnd).size();
    }
    return m_object == OBJID_WINDOW && IsWindow(m_hwnd) ? 1 : 0;
}

HRESULT StandardAccessible::get_accChildCount(LONG* count)
{
    *count = static_cast<LONG>(CountChildren());
    return S_OK;
}

// All children are objects of their own, which are asked for by enumeration.
HRESULT StandardAccessible::get_accChild(VARIANT, IDispatch** child)
{
    *child = nullptr;
    return E_INVALIDARG;
}

HRESULT StandardAccessible::get_accValue(VARIANT id, BSTR* value)
{
    *value = nullptr;
    return Is(id) && m_object == OBJID_CLIENT && IsPassword(m_hwnd) ? E_ACCESSDENIED
                                                                    : Give(id, ValueOf, value);
}

HRESULT StandardAccessible::get_accRole(VARIANT id, VARIANT* role)
{
    if (V_VT(&id) != VT_I4 || V_I4(&id) != CHILDID_SELF) {
        V_VT(role) = VT_EMPTY;
        return E_INVALIDARG;
    }
    *role = Number(static_cast<LONG>(RoleOf(m_hwnd, m_object)));
    return S_OK;
}

HRESULT StandardAccessible::get_accState(VARIANT id, VARIANT* state)
{
    const CallsBy platform(Caller::Platform);
    if (V_VT(&id) != VT_I4 || V_I4(&id) != CHILDID_SELF) {
        V_VT(state) = VT_EMPTY;
        return E_INVALIDARG;
    }
    *state = Number(static_cast<LONG>(StateOf(m_hwnd, m_object)));
    return S_OK;
}

HRESULT StandardAccessible::get_accFocus(VARIANT* focus)
{
    const CallsBy platform(Caller::Platform);
    V_VT(focus) = VT_EMPTY;
    const HWND with = FocusBeside(m_hwnd);
    if (m_object == OBJID_CLIENT && with == m_hwnd) {
        return GiveSelf(focus);
    }
    if (m_object == OBJID_CLIENT) {
        const HWND child = ChildWith(m_hwnd, with);
        return GiveObject(child ? DispatchOf(child, OBJID_WINDOW) : nullptr, focus);
    }
    const bool within = m_object == OBJID_WINDOW && (with == m_hwnd || IsChild(m_hwnd, with));
    return GiveObject(within ? DispatchOf(m_hwnd, OBJID_CLIENT) : nullptr, focus);
}

HRESULT StandardAccessible::accSelect(LONG flags, VARIANT id)
{
    const CallsBy platform(Caller::Platform);
    if (!Is(id) || flags != SELFLAG_TAKEFOCUS) {
        return E_INVALIDARG;
    }
    if (!(StateOf(m_hwnd, m_object) & STATE_SYSTEM_FOCUSABLE)) {
        return S_FALSE;
    }
    SetFocus(m_hwnd);
    return FocusBeside(m_hwnd) == m_hwnd ? S_OK : S_FALSE;
}

HRESULT StandardAccessible::accLocation(LONG* left, LONG* top, LONG* width, LONG* height, VARIANT id)
{
    *left = *top = *width = *height = 0;
    if (!Is(id)) {
        return E_INVALIDARG;
    }
    const RECT place = PlaceOf(m_hwnd, m_object);
    const SIZE size = SizeOf(place);
    *left = place.left;
    *top = place.top;
    *width = size.cx;
    *height = size.cy;
    return S_OK;
}

// The topmost child that can be seen there, null for none.
HWND StandardAccessible::ChildAt(POINT point) const
{
    const auto lies = [&](HWND child) {
        const RECT place = PlaceOf(child, OBJID_WINDOW);
        return IsWindowVisible(child) && PtInRect(&place, point);
    };
    const std::vector<HWND> children = ChildWindows(m_hwnd);
    const auto found = std::find_if(children.begin(), children.end(), lies);
    return found == children.end() ? nullptr : *found;
}

HRESULT StandardAccessible::accHitTest(LONG x, LONG y, VARIANT* hit)
{
    const CallsBy platform(Caller::Platform);
    V_VT(hit) = VT_EMPTY;
    const POINT point = {x, y};
    const RECT place = PlaceOf(m_hwnd, m_object);
    if (!PtInRect(&place, point)) {
        return S_FALSE;
    }
    const HWND child = m_object == OBJID_CLIENT ? ChildAt(point) : nullptr;
    if (child) {
        return GiveObject(DispatchOf(child, OBJID_WINDOW), hit);
    }
    const RECT client = PlaceOf(m_hwnd, OBJID_CLIENT);
    return m_object == OBJID_WINDOW && PtInRect(&client, point)
               ? GiveObject(DispatchOf(m_hwnd, OBJID_CLIENT), hit)
               : GiveSelf(hit);
}

// The press is posted, so that the client does not wait for what comes of it.
HRESULT StandardAccessible::accDoDefaultAction(VARIANT id)
{
    const CallsBy platform(Caller::Platform);
    if (!Is(id)) {
        return E_INVALIDARG;
    }
    if (ActionOf(m_hwnd, m_object).empty()) {
        return DISP_E_MEMBERNOTFOUND;
    }
    if (!IsWindowEnabled(m_hwnd)) {
        return S_FALSE;
    }
    PostMessageW(m_hwnd, BM_CLICK, 0, 0);
    return S_OK;
}

HRESULT StandardAccessible::put_accValue(VARIANT id, BSTR value)
{
    const CallsBy platform(Caller::Platform);
    if (!Is(id)) {
        return E_INVALIDARG;
    }
    constexpr DWORD CLOSED = STATE_SYSTEM_UNAVAILABLE | STATE_SYSTEM_READONLY;
    if (m_object != OBJID_CLIENT || !IsField(m_hwnd) || (StateOf(m_hwnd, m_object) & CLOSED)) {
        return S_FALSE;
    }
    return SetWindowTextW(m_hwnd, value ? value : L"") ? S_OK : E_FAIL;
}

// A window that gives no object is passed over.
std::vector<IDispatch*> StandardAccessible::Children(size_t first, size_t count) const
{
    const CallsBy platform(Caller::Platform);
    std::vector<HWND> windows = ChildWindows(m_hwnd);
    if (m_object != OBJID_CLIENT) {
        windows.assign(CountChildren(), m_hwnd);
    }
    const LONG part = m_object == OBJID_CLIENT ? OBJID_WINDOW : OBJID_CLIENT;
    std::vector<IDispatch*> children;
    for (size_t i = first; i < windows.size() && children.size() < count; ++i) {
        if (IDispatch* child = DispatchOf(windows[i], part)) {
            children.push_back(child);
        }
    }
    return children;
}

HRESULT StandardAccessible::Next(ULONG count, VARIANT* children, ULONG* fetched)
{
    const std::vector<IDispatch*> found = Children(m_next, count);
    for (size_t i = 0; i < found.size(); ++i) {
        GiveObject(found[i], &children[i]);
    }
    m_next += found.size();
    if (fetched) {
        *fetched = static_cast<ULONG>(found.size());
    }
    return found.size() == count ? S_OK : S_FALSE;
}

HRESULT StandardAccessible::Skip(ULONG count)
{
    const size_t all = CountChildren();
    const bool enough = m_next + count <= all;
    m_next = std::min(all, m_next + count);
    return enough ? S_OK : S_FALSE;
}

HRESULT StandardAccessible::Reset()
{
    m_next = 0;
    return S_OK;
}

HRESULT StandardAccessible::GetWindow(HWND* hwnd)
{
    *hwnd = m_hwnd;
    return S_OK;
}

} // namespace

IAccessible* MakeStandardAccessible(HWND hwnd, LONG object)
{
    switch (object) {
    case OBJID_WINDOW:
    case OBJID_CLIENT:
    case OBJID_VSCROLL:
    case OBJID_HSCROLL:
    case OBJID_CARET: return new StandardAccessible(hwnd, object);
    default: return nullptr;
    }
}

IDispatch* DispatchOf(HWND hwnd, LONG object)
{
    void* found = nullptr;
    AccessibleObjectFromWindow(hwnd, static_cast<DWORD>(object), IID_IDispatch, &found);
    return static_cast<IDispatch*>(found);
}

} // namespace gesso::headless
