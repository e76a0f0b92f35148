// A window of a test that answers WM_GETOBJECT with an object of its own: a container with items.
#pragma once

#include "DesktopTest.h"

#include <algorithm>

namespace gesso::headless::test {

// What the object tells of itself, and what clients did to it.
struct Story
{
    HWND hwnd = nullptr;
    LONG role = ROLE_SYSTEM_LIST;
    std::string name = "Shelf";
    LONG state = 0;
    LONG itemRole = ROLE_SYSTEM_LISTITEM;
    std::vector<std::string> items;
    std::string did;                 // "focus", "select 2", "act 0", ...
    std::function<void(LONG)> onAct; // child
    int references = 0;
};

inline BSTR MakeString(const std::string& text)
{
    const std::u16string wide(text.begin(), text.end());
    return SysAllocStringLen(reinterpret_cast<LPCWSTR>(wide.data()), static_cast<UINT>(wide.size()));
}

inline std::string Taken(BSTR text)
{
    std::string narrow;
    for (UINT i = 0; i < SysStringLen(text); ++i) {
        narrow += static_cast<char>(text[i]);
    }
    SysFreeString(text);
    return narrow;
}

inline VARIANT Id(LONG child = CHILDID_SELF)
{
    VARIANT id{};
    V_VT(&id) = VT_I4;
    V_I4(&id) = child;
    return id;
}

// COM interfaces have no virtual destructor: the last Release ends the object by its own class.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

// The items are children by id. Without IEnumVARIANT, and with IOleWindow by its parent alone.
class Teller final : public IAccessible
{
public:
    explicit Teller(Story& story) : m_story(story) { ++m_story.references; }
    Teller(const Teller&) = delete;
    Teller& operator=(const Teller&) = delete;

    HRESULT QueryInterface(REFIID id, void** object) override
    {
        const bool known =
            IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IDispatch) || IsEqualIID(id, IID_IAccessible);
        *object = known ? static_cast<IAccessible*>(this) : nullptr;
        m_story.references += known ? 1 : 0;
        m_references += known ? 1 : 0;
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG AddRef() override
    {
        ++m_story.references;
        return ++m_references;
    }
    ULONG Release() override
    {
        --m_story.references;
        const ULONG left = --m_references;
        if (left == 0) {
            delete this;
        }
        return left;
    }

    HRESULT GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    HRESULT Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override
    {
        return E_NOTIMPL;
    }

    HRESULT get_accParent(IDispatch** parent) override
    {
        return AccessibleObjectFromWindow(m_story.hwnd, OBJID_WINDOW, IID_IDispatch,
                                          reinterpret_cast<void**>(parent));
    }
    HRESULT get_accChildCount(LONG* count) override
    {
        *count = static_cast<LONG>(m_story.items.size());
        return S_OK;
    }
    HRESULT get_accChild(VARIANT, IDispatch** child) override
    {
        *child = nullptr;
        return S_FALSE;
    }
    HRESULT get_accName(VARIANT id, BSTR* name) override
    {
        const LONG child = V_I4(&id);
        *name =
            MakeString(child == CHILDID_SELF ? m_story.name : m_story.items[static_cast<size_t>(child - 1)]);
        return S_OK;
    }
    HRESULT get_accValue(VARIANT, BSTR*) override { return E_NOTIMPL; }
    HRESULT get_accDescription(VARIANT, BSTR*) override { return E_NOTIMPL; }
    HRESULT get_accRole(VARIANT id, VARIANT* role) override
    {
        *role = Id(V_I4(&id) == CHILDID_SELF ? m_story.role : m_story.itemRole);
        return S_OK;
    }
    HRESULT get_accState(VARIANT id, VARIANT* state) override
    {
        *state = Id(V_I4(&id) == CHILDID_SELF ? m_story.state : 0);
        return S_OK;
    }
    HRESULT get_accHelp(VARIANT, BSTR*) override { return E_NOTIMPL; }
    HRESULT get_accHelpTopic(BSTR*, VARIANT, LONG*) override { return E_NOTIMPL; }
    HRESULT get_accKeyboardShortcut(VARIANT, BSTR*) override { return E_NOTIMPL; }
    HRESULT get_accFocus(VARIANT*) override { return E_NOTIMPL; }
    HRESULT get_accSelection(VARIANT*) override { return E_NOTIMPL; }
    HRESULT get_accDefaultAction(VARIANT, BSTR*) override { return E_NOTIMPL; }
    HRESULT accSelect(LONG flags, VARIANT id) override
    {
        m_story.did += "select" + std::to_string(V_I4(&id)) + (flags & SELFLAG_TAKEFOCUS ? "f " : " ");
        return S_OK;
    }
    HRESULT accLocation(LONG*, LONG*, LONG*, LONG*, VARIANT) override { return E_NOTIMPL; }
    HRESULT accNavigate(LONG, VARIANT, VARIANT*) override { return E_NOTIMPL; }
    // Items lie below one another, ten pixels each.
    HRESULT accHitTest(LONG, LONG y, VARIANT* hit) override
    {
        RECT frame{};
        GetWindowRect(m_story.hwnd, &frame);
        const LONG item = (y - frame.top) / 10 + 1;
        *hit = Id(item <= static_cast<LONG>(m_story.items.size()) ? item : CHILDID_SELF);
        return S_OK;
    }
    HRESULT accDoDefaultAction(VARIANT id) override
    {
        m_story.did += "act" + std::to_string(V_I4(&id)) + " ";
        if (m_story.onAct) {
            m_story.onAct(V_I4(&id));
        }
        return S_OK;
    }
    HRESULT put_accName(VARIANT, BSTR) override { return E_NOTIMPL; }
    HRESULT put_accValue(VARIANT, BSTR value) override
    {
        m_story.did += "value " + Taken(SysAllocString(value)) + " ";
        return S_OK;
    }

private:
    ~Teller() = default;

    Story& m_story;
    ULONG m_references = 1;
};

#pragma GCC diagnostic pop

// A child that answers for its client area with a new object each time.
inline HWND MakeTeller(Story& story, HWND parent, RECT place = {0, 0, 100, 100})
{
    story.hwnd = MakeChild(parent, place, [&story](HWND, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message != WM_GETOBJECT || static_cast<LONG>(lParam) != OBJID_CLIENT) {
            return std::optional<LRESULT>();
        }
        auto* teller = new Teller(story);
        const LRESULT answer = LresultFromObject(IID_IAccessible, wParam, teller);
        teller->Release();
        return std::optional(answer);
    });
    return story.hwnd;
}

inline HWND MakeControl(LPCWSTR windowClass, LPCWSTR text, HWND parent, RECT place, DWORD style = 0)
{
    return CreateWindowExW(0, windowClass, text, WS_CHILD | WS_VISIBLE | style, place.left, place.top,
                           place.right - place.left, place.bottom - place.top, parent, nullptr, nullptr,
                           nullptr);
}

// A counted reference to a part of a window.
class Object
{
public:
    explicit Object(HWND hwnd, LONG part = OBJID_CLIENT)
    {
        m_result = AccessibleObjectFromWindow(hwnd, static_cast<DWORD>(part), IID_IAccessible,
                                              reinterpret_cast<void**>(&m_object));
    }
    explicit Object(IUnknown* taken)
    {
        m_result = taken->QueryInterface(IID_IAccessible, reinterpret_cast<void**>(&m_object));
        taken->Release();
    }
    ~Object()
    {
        if (m_object) {
            m_object->Release();
        }
    }
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;

    HRESULT Result() const { return m_result; }
    IAccessible* operator->() const { return m_object; }
    IAccessible* Get() const { return m_object; }

    std::string Name() const { return Text(&IAccessible::get_accName); }
    std::string Value() const { return Text(&IAccessible::get_accValue); }
    std::string Shortcut() const { return Text(&IAccessible::get_accKeyboardShortcut); }
    std::string Action() const { return Text(&IAccessible::get_accDefaultAction); }
    LONG Role() const { return Number(&IAccessible::get_accRole); }
    LONG State() const { return Number(&IAccessible::get_accState); }
    HWND Window() const
    {
        HWND hwnd = nullptr;
        EXPECT_EQ(WindowFromAccessibleObject(m_object, &hwnd), S_OK);
        return hwnd;
    }

private:
    std::string Text(HRESULT (IAccessible::*get)(VARIANT, BSTR*)) const
    {
        BSTR text = nullptr;
        (m_object->*get)(Id(), &text);
        return Taken(text);
    }
    LONG Number(HRESULT (IAccessible::*get)(VARIANT, VARIANT*)) const
    {
        VARIANT value{};
        EXPECT_EQ((m_object->*get)(Id(), &value), S_OK);
        return V_I4(&value);
    }

    IAccessible* m_object = nullptr;
    HRESULT m_result = E_FAIL;
};

} // namespace gesso::headless::test
