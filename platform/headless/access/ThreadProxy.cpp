#include "ThreadProxy.h"

#include "../core/Accounting.h"
#include "../core/Faults.h"
#include "../core/TableLock.h"
#include "../windows/Requests.h"

#include <algorithm>
#include <atomic>

namespace gesso::headless {
namespace {

template <typename INTERFACE> REFIID IdOf();
template <> REFIID IdOf<IAccessible>()
{
    return IID_IAccessible;
}
template <> REFIID IdOf<IEnumVARIANT>()
{
    return IID_IEnumVARIANT;
}
template <> REFIID IdOf<IOleWindow>()
{
    return IID_IOleWindow;
}

// COM interfaces have no virtual destructor: the last Release ends the object by its own class.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

class ThreadProxy final : public IAccessible, public IEnumVARIANT, public IOleWindow
{
public:
    ThreadProxy(IUnknown* object, const std::shared_ptr<Desktop>& desktop);
    ThreadProxy(const ThreadProxy&) = delete;
    ThreadProxy& operator=(const ThreadProxy&) = delete;

    void Disconnect();
    bool StandsFor(const IUnknown* object) const { return m_object == object; }

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

    HRESULT get_accParent(IDispatch** out) override { return Object(out, &IAccessible::get_accParent, out); }
    HRESULT get_accChildCount(LONG* out) override { return On(&IAccessible::get_accChildCount, out); }
    HRESULT get_accChild(VARIANT id, IDispatch** out) override
    {
        return Object(out, &IAccessible::get_accChild, id, out);
    }
    HRESULT get_accName(VARIANT id, BSTR* out) override { return On(&IAccessible::get_accName, id, out); }
    HRESULT get_accValue(VARIANT id, BSTR* out) override { return On(&IAccessible::get_accValue, id, out); }
    HRESULT get_accDescription(VARIANT id, BSTR* out) override
    {
        return On(&IAccessible::get_accDescription, id, out);
    }
    HRESULT get_accRole(VARIANT id, VARIANT* out) override { return On(&IAccessible::get_accRole, id, out); }
    HRESULT get_accState(VARIANT id, VARIANT* out) override
    {
        return On(&IAccessible::get_accState, id, out);
    }
    HRESULT get_accHelp(VARIANT id, BSTR* out) override { return On(&IAccessible::get_accHelp, id, out); }
    HRESULT get_accHelpTopic(BSTR* file, VARIANT id, LONG* out) override
    {
        return On(&IAccessible::get_accHelpTopic, file, id, out);
    }
    HRESULT get_accKeyboardShortcut(VARIANT id, BSTR* out) override
    {
        return On(&IAccessible::get_accKeyboardShortcut, id, out);
    }
    HRESULT get_accFocus(VARIANT* out) override { return Value(out, &IAccessible::get_accFocus, out); }
    HRESULT get_accSelection(VARIANT* out) override
    {
        return Value(out, &IAccessible::get_accSelection, out);
    }
    HRESULT get_accDefaultAction(VARIANT id, BSTR* out) override
    {
        return On(&IAccessible::get_accDefaultAction, id, out);
    }
    HRESULT accSelect(LONG flags, VARIANT id) override { return On(&IAccessible::accSelect, flags, id); }
    HRESULT accLocation(LONG* left, LONG* top, LONG* width, LONG* height, VARIANT id) override
    {
        return On(&IAccessible::accLocation, left, top, width, height, id);
    }
    HRESULT accNavigate(LONG way, VARIANT id, VARIANT* out) override
    {
        return Value(out, &IAccessible::accNavigate, way, id, out);
    }
    HRESULT accHitTest(LONG x, LONG y, VARIANT* out) override
    {
        return Value(out, &IAccessible::accHitTest, x, y, out);
    }
    HRESULT accDoDefaultAction(VARIANT id) override { return On(&IAccessible::accDoDefaultAction, id); }
    HRESULT put_accName(VARIANT id, BSTR name) override { return On(&IAccessible::put_accName, id, name); }
    HRESULT put_accValue(VARIANT id, BSTR value) override
    {
        return On(&IAccessible::put_accValue, id, value);
    }

    HRESULT Next(ULONG count, VARIANT* out, ULONG* fetched) override;
    HRESULT Skip(ULONG count) override { return On(&IEnumVARIANT::Skip, count); }
    HRESULT Reset() override { return On(&IEnumVARIANT::Reset); }
    HRESULT Clone(IEnumVARIANT**) override { return E_NOTIMPL; }

    HRESULT GetWindow(HWND* hwnd) override { return On(&IOleWindow::GetWindow, hwnd); }
    HRESULT ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }

private:
    ~ThreadProxy();
    template <typename CALL> HRESULT There(CALL call);
    template <typename INTERFACE, typename... PARAMS, typename... ARGS>
    HRESULT On(HRESULT (INTERFACE::*method)(PARAMS...), ARGS... args);
    template <typename... METHOD> HRESULT Object(IDispatch** out, METHOD... method);
    template <typename... METHOD> HRESULT Value(VARIANT* out, METHOD... method);
    void Replace(VARIANT& value);
    template <typename INTERFACE> INTERFACE* InPlaceOf(INTERFACE* object);

    IUnknown* m_object; // a reference, used on its own thread alone; null once disconnected
    const std::shared_ptr<Desktop> m_desktop;
    std::atomic<ULONG> m_references = 1;
};

#pragma GCC diagnostic pop

std::vector<ThreadProxy*>& Proxies()
{
    static std::vector<ThreadProxy*> s_proxies;
    return s_proxies;
}

ThreadProxy::ThreadProxy(IUnknown* object, const std::shared_ptr<Desktop>& desktop)
    : m_object(object), m_desktop(desktop)
{
    const TableLock lock;
    Track(Kind::AccessibleObject, this);
    Proxies().push_back(this);
}

ThreadProxy::~ThreadProxy()
{
    const TableLock lock;
    std::erase(Proxies(), this);
    Untrack(Kind::AccessibleObject, this);
    Disconnect();
}

// The object is let go by its own thread; where that has ended, by this one.
void ThreadProxy::Disconnect()
{
    IUnknown* object = std::exchange(m_object, nullptr);
    if (!object) {
        return;
    }
    const auto release = [object]() -> LRESULT {
        const CallsBy program(Caller::Program);
        const TableUnlock unlock;
        object->Release();
        return 0;
    };
    const auto& all = AllDesktops();
    if (m_desktop == TheDesktopRef() || std::find(all.begin(), all.end(), m_desktop) == all.end()) {
        release();
    } else {
        Tell(*m_desktop, release);
    }
}

// Runs a call on the thread of the object.
template <typename CALL> HRESULT ThreadProxy::There(CALL call)
{
    const TableLock lock;
    const auto& all = AllDesktops();
    if (!m_object || std::find(all.begin(), all.end(), m_desktop) == all.end()) {
        return RPC_E_DISCONNECTED;
    }
    HRESULT result = RPC_E_DISCONNECTED; // where the thread ends meanwhile
    const auto run = [&]() -> LRESULT {
        IUnknown* object = m_object;
        const CallsBy program(Caller::Program);
        const TableUnlock unlock;
        object->AddRef();
        result = call(*object);
        object->Release();
        return 0;
    };
    m_desktop == TheDesktopRef() ? run() : Ask(*m_desktop, run);
    return result;
}

template <typename INTERFACE, typename... PARAMS, typename... ARGS>
HRESULT ThreadProxy::On(HRESULT (INTERFACE::*method)(PARAMS...), ARGS... args)
{
    return There([&](IUnknown& object) {
        void* found = nullptr;
        const HRESULT known = object.QueryInterface(IdOf<INTERFACE>(), &found);
        if (FAILED(known)) {
            return known;
        }
        auto* at = static_cast<INTERFACE*>(found);
        const HRESULT result = (at->*method)(args...);
        at->Release();
        return result;
    });
}

template <typename INTERFACE> INTERFACE* ThreadProxy::InPlaceOf(INTERFACE* object)
{
    return object ? static_cast<IAccessible*>(new ThreadProxy(object, m_desktop)) : nullptr;
}

template <typename... METHOD> HRESULT ThreadProxy::Object(IDispatch** out, METHOD... method)
{
    *out = nullptr;
    const HRESULT result = On(method...);
    *out = SUCCEEDED(result) ? InPlaceOf(*out) : nullptr;
    return result;
}

void ThreadProxy::Replace(VARIANT& value)
{
    if (V_VT(&value) == VT_DISPATCH) {
        V_DISPATCH(&value) = InPlaceOf(V_DISPATCH(&value));
    } else if (V_VT(&value) == VT_UNKNOWN && V_UNKNOWN(&value)) {
        V_UNKNOWN(&value) = static_cast<IEnumVARIANT*>(new ThreadProxy(V_UNKNOWN(&value), m_desktop));
    }
}

template <typename... METHOD> HRESULT ThreadProxy::Value(VARIANT* out, METHOD... method)
{
    V_VT(out) = VT_EMPTY;
    const HRESULT result = On(method...);
    if (SUCCEEDED(result)) {
        Replace(*out);
    }
    return result;
}

HRESULT ThreadProxy::QueryInterface(REFIID id, void** object)
{
    *object = nullptr;
    const HRESULT known = There([&](IUnknown& there) {
        void* found = nullptr;
        const HRESULT result = there.QueryInterface(id, &found);
        if (SUCCEEDED(result)) {
            static_cast<IUnknown*>(found)->Release();
        }
        return result;
    });
    if (FAILED(known)) {
        return known;
    }
    if (IsEqualIID(id, IID_IEnumVARIANT)) {
        *object = static_cast<IEnumVARIANT*>(this);
    } else if (IsEqualIID(id, IID_IOleWindow)) {
        *object = static_cast<IOleWindow*>(this);
    } else if (IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IDispatch) ||
               IsEqualIID(id, IID_IAccessible)) {
        *object = static_cast<IAccessible*>(this);
    } else {
        return E_NOINTERFACE;
    }
    AddRef();
    return S_OK;
}

ULONG ThreadProxy::Release()
{
    const ULONG left = --m_references;
    if (left == 0) {
        delete this;
    }
    return left;
}

HRESULT ThreadProxy::Next(ULONG count, VARIANT* out, ULONG* fetched)
{
    ULONG got = 0;
    const HRESULT result = On(&IEnumVARIANT::Next, count, out, &got);
    for (ULONG i = 0; SUCCEEDED(result) && i < got; ++i) {
        Replace(out[i]);
    }
    if (fetched) {
        *fetched = got;
    }
    return result;
}

} // namespace

HRESULT GiveProxy(IUnknown* object, const std::shared_ptr<Desktop>& desktop, REFIID id, void** out)
{
    auto* proxy = new ThreadProxy(object, desktop);
    const HRESULT result = proxy->QueryInterface(id, out);
    proxy->Release();
    return result;
}

void DisconnectProxies(IUnknown* object)
{
    const std::vector<ThreadProxy*> proxies = Proxies();
    for (ThreadProxy* proxy : proxies) {
        const bool lives = std::find(Proxies().begin(), Proxies().end(), proxy) != Proxies().end();
        if (lives && proxy->StandsFor(object)) {
            proxy->Disconnect();
        }
    }
}

} // namespace gesso::headless
