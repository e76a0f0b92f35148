// What the platform's own controls say of themselves, as nodes: what their interface tells.
#include <gesso/access/NodeBody.h>
#include <gesso/access/OleApi.h>
#include <gesso/containers/StringOf.h>

#include <new>

namespace gesso {
namespace {

class PlatformBody final : public NodeBody
{
public:
    // Takes over one reference.
    PlatformBody(HWND hwnd, IAccessible* pObject, LONG nChild)
        : m_hwnd(hwnd), m_pObject(pObject), m_nChild(nChild)
    {}
    ~PlatformBody() override { m_pObject->Release(); }

    HWND Window() const override { return m_hwnd; }
    bool IsSame(const NodeBody& other) const override
    {
        const auto* pOther = dynamic_cast<const PlatformBody*>(&other);
        return pOther && pOther->m_hwnd == m_hwnd && pOther->m_pObject == m_pObject &&
               pOther->m_nChild == m_nChild;
    }
    bool IsThere() const override { return IsWindow(m_hwnd); }

    Role GetRole() const override
    {
        return static_cast<Role>(NumberOf([&](VARIANT* p) { return m_pObject->get_accRole(Self(), p); }));
    }
    AccessString Name() const override
    {
        return TextOf([&](BSTR* p) { return m_pObject->get_accName(Self(), p); });
    }
    AccessString Value() const override
    {
        return TextOf([&](BSTR* p) { return m_pObject->get_accValue(Self(), p); });
    }
    AccessString Description() const override
    {
        return TextOf([&](BSTR* p) { return m_pObject->get_accDescription(Self(), p); });
    }
    UINT State() const override
    {
        return NumberOf([&](VARIANT* p) { return m_pObject->get_accState(Self(), p); });
    }
    RECT Rect() const override
    {
        LONG x = 0, y = 0, cx = 0, cy = 0;
        return m_pObject->accLocation(&x, &y, &cx, &cy, Self()) == S_OK ? RECT{x, y, x + cx, y + cy} : RECT{};
    }

    UINT Count() const override
    {
        LONG nCount = 0;
        // An item without an object has none.
        const bool fAsks = m_nChild == CHILDID_SELF && m_pObject->get_accChildCount(&nCount) == S_OK;
        return fAsks && nCount > 0 ? static_cast<UINT>(nCount) : 0;
    }
    AccessibleNode Child(UINT nIndex) const override;

    bool Act() const override { return m_pObject->accDoDefaultAction(Self()) == S_OK; }
    bool Select() const override { return m_pObject->accSelect(SELFLAG_TAKESELECTION, Self()) == S_OK; }
    bool Open(bool) const override { return false; }
    bool Show() const override { return false; }
    bool SetValue(LPCWSTR pszValue) const override;

private:
    VARIANT Self() const
    {
        VARIANT child{};
        V_VT(&child) = VT_I4;
        V_I4(&child) = m_nChild;
        return child;
    }
    template <class ASK> AccessString TextOf(const ASK& ask) const
    {
        BSTR text = nullptr;
        const HRESULT hr = ask(&text);
        AccessString str = hr == S_OK ? StringOf(text) : AccessString();
        FindOleApi()->pfnFreeString(text);
        return str;
    }
    template <class ASK> UINT NumberOf(const ASK& ask) const
    {
        VARIANT number{};
        const bool fNumber = ask(&number) == S_OK && V_VT(&number) == VT_I4;
        const UINT nNumber = fNumber ? static_cast<UINT>(V_I4(&number)) : 0;
        FindOleApi()->pfnClearVariant(&number);
        return nNumber;
    }

    HWND m_hwnd;
    IAccessible* m_pObject;
    LONG m_nChild;
};

// Takes over one reference.
AccessibleNode NodeOfObject(HWND hwnd, IAccessible* pObject, LONG nChild)
{
    auto* pBody = new (std::nothrow) PlatformBody(hwnd, pObject, nChild);
    if (!pBody) {
        pObject->Release();
    }
    return AccessibleNode(pBody);
}

// A child that is a window of its own is that window's.
AccessibleNode NodeOfChild(HWND hwnd, IDispatch* pDispatch)
{
    IAccessible* pObject = nullptr;
    HWND hwndChild = nullptr;
    if (pDispatch->QueryInterface(ID_ACCESSIBLE, reinterpret_cast<void**>(&pObject)) != S_OK) {
        return {};
    }
    FindOleApi()->pfnWindowFromObject(pObject, &hwndChild);
    if (hwndChild && hwndChild != hwnd) {
        pObject->Release();
        return NodeOfWindow(hwndChild);
    }
    return NodeOfObject(hwnd, pObject, CHILDID_SELF);
}

AccessibleNode PlatformBody::Child(UINT nIndex) const
{
    VARIANT child{};
    LONG nGot = 0;
    if (nIndex >= Count() ||
        FindOleApi()->pfnChildren(m_pObject, static_cast<LONG>(nIndex), 1, &child, &nGot) != S_OK || !nGot)
    {
        return {};
    }
    AccessibleNode node;
    if (V_VT(&child) == VT_I4) {
        m_pObject->AddRef();
        node = NodeOfObject(m_hwnd, m_pObject, V_I4(&child));
    } else if (V_VT(&child) == VT_DISPATCH && V_DISPATCH(&child)) {
        node = NodeOfChild(m_hwnd, V_DISPATCH(&child));
    }
    FindOleApi()->pfnClearVariant(&child);
    return node;
}

bool PlatformBody::SetValue(LPCWSTR pszValue) const
{
    const AccessString str = StringOf(pszValue);
    BSTR value = FindOleApi()->pfnAllocString(str, str.GetLength());
    const bool fSet = value && m_pObject->put_accValue(Self(), value) == S_OK;
    FindOleApi()->pfnFreeString(value);
    return fSet;
}

} // namespace

AccessibleNode NodeOfPlatform(HWND hwnd)
{
    const OleApi* pApi = FindOleApi();
    IAccessible* pObject = nullptr;
    if (!pApi || pApi->pfnObjectFromWindow(hwnd, static_cast<DWORD>(OBJID_CLIENT), ID_ACCESSIBLE,
                                           reinterpret_cast<void**>(&pObject)) != S_OK)
    {
        return {};
    }
    return NodeOfObject(hwnd, pObject, CHILDID_SELF);
}

} // namespace gesso
