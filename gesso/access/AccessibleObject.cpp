#include <gesso/access/AccessibleObject.h>
#include <gesso/access/OleApi.h>
#include <gesso/containers/Index.h>

#include <algorithm>
#include <new>

namespace gesso {
namespace {

// As many as the interface can count.
constexpr UINT MOST_CHILDREN = 0x7FFFFFFF;

VARIANT Empty()
{
    VARIANT value{};
    V_VT(&value) = VT_EMPTY;
    return value;
}

VARIANT Number(LONG nNumber)
{
    VARIANT value{};
    V_VT(&value) = VT_I4;
    V_I4(&value) = nNumber;
    return value;
}

HRESULT GiveString(const AccessString& str, BSTR* pText)
{
    const OleApi* pApi = FindOleApi();
    *pText = pApi ? pApi->pfnAllocString(str, str.GetLength()) : nullptr;
    return *pText ? S_OK : E_OUTOFMEMORY;
}

} // namespace

AccessibleObject* AccessibleObject::Make(const AccessibleThing& thing)
{
    return new (std::nothrow) AccessibleObject(thing);
}

AccessibleObject::AccessibleObject(const AccessibleThing& thing) : m_thing(thing)
{
    m_thing.Link().Join(*this);
}

AccessibleObject::~AccessibleObject()
{
    m_thing.Link().Leave(*this);
}

// --- IUnknown

HRESULT STDMETHODCALLTYPE AccessibleObject::QueryInterface(REFIID id, void** ppObject)
{
    if (!ppObject) {
        return E_POINTER;
    }
    if (IsSameId(id, ID_UNKNOWN) || IsSameId(id, ID_DISPATCH) || IsSameId(id, ID_ACCESSIBLE)) {
        *ppObject = static_cast<IAccessible*>(this);
    } else if (IsSameId(id, ID_OLE_WINDOW)) {
        *ppObject = static_cast<IOleWindow*>(this);
    } else if (IsSameId(id, ID_ENUM_VARIANT)) {
        *ppObject = static_cast<IEnumVARIANT*>(this);
    } else {
        *ppObject = nullptr;
        return E_NOINTERFACE;
    }
    AddRef();
    return S_OK;
}

ULONG STDMETHODCALLTYPE AccessibleObject::AddRef()
{
    return static_cast<ULONG>(++m_nReferences);
}

ULONG STDMETHODCALLTYPE AccessibleObject::Release()
{
    const LONG nLeft = --m_nReferences;
    if (!nLeft) {
        delete this;
    }
    return static_cast<ULONG>(nLeft);
}

bool AccessibleObject::Hold()
{
    LONG nNow = m_nReferences;
    while (nNow && !m_nReferences.compare_exchange_weak(nNow, nNow + 1)) {
    }
    return nNow != 0;
}

// --- Which thing is meant

HRESULT AccessibleObject::Find(const VARIANT& child, std::optional<AccessibleThing>& thing) const
{
    const HRESULT hr = m_thing.Check();
    if (hr != S_OK) {
        return hr;
    }
    if (V_VT(&child) != VT_I4 || V_I4(&child) < 0) {
        return E_INVALIDARG;
    }
    const auto nChild = static_cast<UINT>(V_I4(&child));
    if (nChild > m_thing.Count()) {
        return E_INVALIDARG;
    }
    thing = nChild ? m_thing.Child(nChild - 1) : m_thing;
    return thing->Check();
}

bool AccessibleObject::IsWithin(const AccessibleThing& thing) const
{
    AccessibleThing outer = thing;
    while (outer.Check() == S_OK && !(outer == m_thing)) {
        if (outer.Id() == WHOLE) {
            return false;
        }
        outer = outer.Parent();
    }
    return outer == m_thing;
}

HRESULT AccessibleObject::Name(const AccessibleThing& thing, VARIANT* pChild) const
{
    if (thing == m_thing) {
        *pChild = Number(CHILDID_SELF);
        return S_OK;
    }
    if (!thing.IsObject()) {
        const UINT nIndex = m_thing.IndexOf(thing.Id());
        *pChild = nIndex == NO_INDEX ? Empty() : Number(static_cast<LONG>(nIndex) + 1);
        return nIndex == NO_INDEX ? S_FALSE : S_OK;
    }
    AccessibleObject* pObject = Make(thing);
    if (!pObject) {
        return E_OUTOFMEMORY;
    }
    V_VT(pChild) = VT_DISPATCH;
    V_DISPATCH(pChild) = static_cast<IAccessible*>(pObject);
    return S_OK;
}

// --- IAccessible: the things around

HRESULT STDMETHODCALLTYPE AccessibleObject::get_accParent(IDispatch** ppParent)
{
    if (!ppParent) {
        return E_POINTER;
    }
    *ppParent = nullptr;
    if (const HRESULT hr = m_thing.Check(); hr != S_OK) {
        return hr;
    }
    // A bar in a control's frame is below the window itself, as the control is.
    if (!(m_thing.Id() == WHOLE) && m_thing.Parent().Check() == S_OK) {
        AccessibleObject* pParent = Make(m_thing.Parent());
        *ppParent = static_cast<IAccessible*>(pParent);
        return pParent ? S_OK : E_OUTOFMEMORY;
    }
    const OleApi* pApi = FindOleApi();
    return pApi ? pApi->pfnObjectFromWindow(m_thing.Window(), static_cast<DWORD>(OBJID_WINDOW), ID_DISPATCH,
                                            reinterpret_cast<void**>(ppParent))
                : E_FAIL;
}

HRESULT STDMETHODCALLTYPE AccessibleObject::get_accChildCount(LONG* pnCount)
{
    if (!pnCount) {
        return E_POINTER;
    }
    *pnCount = 0;
    const HRESULT hr = m_thing.Check();
    if (hr == S_OK) {
        *pnCount = static_cast<LONG>(std::min(m_thing.Count(), MOST_CHILDREN));
    }
    return hr;
}

HRESULT STDMETHODCALLTYPE AccessibleObject::get_accChild(VARIANT child, IDispatch** ppChild)
{
    if (!ppChild) {
        return E_POINTER;
    }
    *ppChild = nullptr;
    std::optional<AccessibleThing> thing;
    if (const HRESULT hr = Find(child, thing); hr != S_OK) {
        return hr;
    }
    if (!thing->IsObject()) {
        return S_FALSE; // asked for through this object, by its id
    }
    AccessibleObject* pObject = Make(*thing);
    *ppChild = static_cast<IAccessible*>(pObject);
    return pObject ? S_OK : E_OUTOFMEMORY;
}

HRESULT STDMETHODCALLTYPE AccessibleObject::accHitTest(LONG x, LONG y, VARIANT* pChild)
{
    if (!pChild) {
        return E_POINTER;
    }
    *pChild = Empty();
    if (const HRESULT hr = m_thing.Check(); hr != S_OK) {
        return hr;
    }
    const RECT rc = m_thing.Rect();
    if (!PtInRect(&rc, {x, y})) {
        return S_FALSE;
    }
    const AccessibleThing hit = m_thing.With(m_thing.IdAt({x, y}));
    return IsWithin(hit) ? Name(hit, pChild) : S_FALSE;
}

HRESULT STDMETHODCALLTYPE AccessibleObject::get_accFocus(VARIANT* pChild)
{
    if (!pChild) {
        return E_POINTER;
    }
    *pChild = Empty();
    if (const HRESULT hr = m_thing.Check(); hr != S_OK) {
        return hr;
    }
    const AccessibleThing focus = m_thing.With(m_thing.FocusId());
    return GetFocus() == m_thing.Window() && IsWithin(focus) ? Name(focus, pChild) : S_FALSE;
}

HRESULT STDMETHODCALLTYPE AccessibleObject::get_accSelection(VARIANT* pChildren)
{
    if (!pChildren) {
        return E_POINTER;
    }
    *pChildren = Empty();
    if (const HRESULT hr = m_thing.Check(); hr != S_OK) {
        return hr;
    }
    const UINT nFirst = m_thing.NextSelected(NO_INDEX);
    if (nFirst == NO_INDEX) {
        return S_FALSE;
    }
    if (m_thing.NextSelected(nFirst) == NO_INDEX) {
        return Name(m_thing.Child(nFirst), pChildren);
    }
    V_UNKNOWN(pChildren) = SelectedChildren::Make(m_thing);
    V_VT(pChildren) = V_UNKNOWN(pChildren) ? VT_UNKNOWN : VT_EMPTY;
    return V_UNKNOWN(pChildren) ? S_OK : E_OUTOFMEMORY;
}

HRESULT AccessibleObject::Step(LONG nDirection, const AccessibleThing& from, VARIANT* pEnd) const
{
    const bool fDown = nDirection == NAVDIR_FIRSTCHILD || nDirection == NAVDIR_LASTCHILD;
    const AccessibleThing outer = fDown ? from : from.Parent();
    const UINT nCount = outer.Count();
    if (!nCount || (!fDown && from.Id() == WHOLE)) {
        return S_FALSE;
    }
    const UINT nFrom = fDown ? 0 : outer.IndexOf(from.Id());
    UINT nTo = nFrom;
    switch (nDirection) {
    case NAVDIR_FIRSTCHILD: break;
    case NAVDIR_LASTCHILD: nTo = nCount - 1; break;
    case NAVDIR_NEXT: nTo = nFrom + 1; break;
    case NAVDIR_PREVIOUS: nTo = nFrom - 1; break;
    default: return S_FALSE; // by the eye: rows and columns are not told here
    }
    return nFrom == NO_INDEX || nTo >= nCount ? S_FALSE : Name(outer.Child(nTo), pEnd);
}

HRESULT STDMETHODCALLTYPE AccessibleObject::accNavigate(LONG nDirection, VARIANT start, VARIANT* pEnd)
{
    if (!pEnd) {
        return E_POINTER;
    }
    *pEnd = Empty();
    std::optional<AccessibleThing> from;
    if (const HRESULT hr = Find(start, from); hr != S_OK) {
        return hr;
    }
    return nDirection > NAVDIR_MIN && nDirection < NAVDIR_MAX ? Step(nDirection, *from, pEnd) : E_INVALIDARG;
}

// --- IAccessible: what a thing is

template <class TEXT>
HRESULT AccessibleObject::GiveText(const VARIANT& child, BSTR* pText, const TEXT& textOf) const
{
    if (!pText) {
        return E_POINTER;
    }
    *pText = nullptr;
    std::optional<AccessibleThing> thing;
    if (const HRESULT hr = Find(child, thing); hr != S_OK) {
        return hr;
    }
    const AccessString str = textOf(*thing);
    return str.GetLength() ? GiveString(str, pText) : S_FALSE;
}

HRESULT STDMETHODCALLTYPE AccessibleObject::get_accName(VARIANT child, BSTR* pName)
{
    return GiveText(child, pName, [](const AccessibleThing& thing) { return thing.Name(); });
}

HRESULT STDMETHODCALLTYPE AccessibleObject::get_accDescription(VARIANT child, BSTR* pDescription)
{
    return GiveText(child, pDescription, [](const AccessibleThing& thing) { return thing.Description(); });
}

HRESULT STDMETHODCALLTYPE AccessibleObject::get_accKeyboardShortcut(VARIANT child, BSTR* pShortcut)
{
    return GiveText(child, pShortcut, [](const AccessibleThing& thing) { return thing.Shortcut(); });
}

HRESULT STDMETHODCALLTYPE AccessibleObject::get_accDefaultAction(VARIANT child, BSTR* pAction)
{
    return GiveText(child, pAction, [](const AccessibleThing& thing) {
        const LPCWSTR pszAction = NameOf(thing.Action());
        return pszAction ? AccessString::Build(L"%s", pszAction) : AccessString();
    });
}

HRESULT STDMETHODCALLTYPE AccessibleObject::get_accValue(VARIANT child, BSTR* pValue)
{
    if (!pValue) {
        return E_POINTER;
    }
    *pValue = nullptr;
    std::optional<AccessibleThing> thing;
    if (const HRESULT hr = Find(child, thing); hr != S_OK) {
        return hr;
    }
    const bool fValue = thing->HasValue();
    const bool fProtected = thing->State() & STATE_SYSTEM_PROTECTED;
    if (const HRESULT hr = thing->Check(); hr != S_OK) { // the host may have been asked for the state
        return hr;
    }
    const AccessString strValue = fProtected ? AccessString() : thing->Value();
    if (!strValue.GetLength() && !fValue) {
        return DISP_E_MEMBERNOTFOUND;
    }
    return fProtected ? E_ACCESSDENIED : GiveString(strValue, pValue);
}

HRESULT STDMETHODCALLTYPE AccessibleObject::get_accRole(VARIANT child, VARIANT* pRole)
{
    if (!pRole) {
        return E_POINTER;
    }
    *pRole = Empty();
    std::optional<AccessibleThing> thing;
    const HRESULT hr = Find(child, thing);
    if (hr == S_OK) {
        *pRole = Number(static_cast<LONG>(thing->GetRole()));
    }
    return hr;
}

HRESULT STDMETHODCALLTYPE AccessibleObject::get_accState(VARIANT child, VARIANT* pState)
{
    if (!pState) {
        return E_POINTER;
    }
    *pState = Empty();
    std::optional<AccessibleThing> thing;
    const HRESULT hr = Find(child, thing);
    if (hr == S_OK) {
        *pState = Number(static_cast<LONG>(thing->State()));
    }
    return hr;
}

HRESULT STDMETHODCALLTYPE AccessibleObject::get_accHelp(VARIANT, BSTR* pHelp)
{
    if (!pHelp) {
        return E_POINTER;
    }
    *pHelp = nullptr;
    const HRESULT hr = m_thing.Check();
    return hr == S_OK ? S_FALSE : hr;
}

HRESULT STDMETHODCALLTYPE AccessibleObject::get_accHelpTopic(BSTR* pFile, VARIANT child, LONG* pnTopic)
{
    if (!pnTopic) {
        return E_POINTER;
    }
    *pnTopic = 0;
    return get_accHelp(child, pFile);
}

HRESULT STDMETHODCALLTYPE AccessibleObject::accLocation(LONG* px, LONG* py, LONG* pcx, LONG* pcy,
                                                        VARIANT child)
{
    if (!px || !py || !pcx || !pcy) {
        return E_POINTER;
    }
    *px = *py = *pcx = *pcy = 0;
    std::optional<AccessibleThing> thing;
    const HRESULT hr = Find(child, thing);
    if (hr == S_OK) {
        const RECT rc = thing->Rect();
        *px = rc.left;
        *py = rc.top;
        *pcx = rc.right - rc.left;
        *pcy = rc.bottom - rc.top;
    }
    return hr;
}

// --- IAccessible: what can be done

HRESULT STDMETHODCALLTYPE AccessibleObject::accDoDefaultAction(VARIANT child)
{
    std::optional<AccessibleThing> thing;
    if (const HRESULT hr = Find(child, thing); hr != S_OK) {
        return hr;
    }
    if (thing->Action() == AccessibleAction::None) {
        return DISP_E_MEMBERNOTFOUND;
    }
    return thing->Act() ? S_OK : S_FALSE;
}

namespace {

// Of the platform's flags that say how to select there may be one, or an extension with one of the two
// others.
std::optional<AccessibleChoice> ChoiceOf(LONG nFlags)
{
    switch (nFlags & ~SELFLAG_TAKEFOCUS) {
    case SELFLAG_TAKESELECTION: return AccessibleChoice::Only;
    case SELFLAG_EXTENDSELECTION:
    case SELFLAG_EXTENDSELECTION | SELFLAG_ADDSELECTION: return AccessibleChoice::Extend;
    case SELFLAG_ADDSELECTION: return AccessibleChoice::Add;
    case SELFLAG_REMOVESELECTION: return AccessibleChoice::Remove;
    default: return {};
    }
}

} // namespace

HRESULT STDMETHODCALLTYPE AccessibleObject::accSelect(LONG nFlags, VARIANT child)
{
    std::optional<AccessibleThing> thing;
    if (const HRESULT hr = Find(child, thing); hr != S_OK) {
        return hr;
    }
    const auto choice = ChoiceOf(nFlags);
    if ((nFlags & ~SELFLAG_VALID) || (!choice && nFlags != SELFLAG_TAKEFOCUS)) {
        return E_INVALIDARG;
    }
    if ((nFlags & SELFLAG_TAKEFOCUS) && !thing->Focus()) {
        return S_FALSE;
    }
    if (!choice) {
        return S_OK;
    }
    return thing->Check() == S_OK && thing->Choose(*choice) ? S_OK : S_FALSE;
}

HRESULT STDMETHODCALLTYPE AccessibleObject::put_accName(VARIANT, BSTR)
{
    const HRESULT hr = m_thing.Check();
    return hr == S_OK ? E_NOTIMPL : hr;
}

HRESULT STDMETHODCALLTYPE AccessibleObject::put_accValue(VARIANT child, BSTR value)
{
    std::optional<AccessibleThing> thing;
    if (const HRESULT hr = Find(child, thing); hr != S_OK) {
        return hr;
    }
    if (!thing->HasValue()) {
        return DISP_E_MEMBERNOTFOUND;
    }
    return thing->SetValue(value) ? S_OK : S_FALSE;
}

// --- IOleWindow

HRESULT STDMETHODCALLTYPE AccessibleObject::GetWindow(HWND* phwnd)
{
    if (!phwnd) {
        return E_POINTER;
    }
    const HRESULT hr = m_thing.Check();
    *phwnd = hr == S_OK ? m_thing.Window() : nullptr;
    return hr;
}

HRESULT STDMETHODCALLTYPE AccessibleObject::ContextSensitiveHelp(BOOL)
{
    return E_NOTIMPL;
}

// --- IEnumVARIANT

HRESULT STDMETHODCALLTYPE AccessibleObject::Next(ULONG nWanted, VARIANT* pChildren, ULONG* pnGot)
{
    if (pnGot) {
        *pnGot = 0;
    }
    if (!pChildren) {
        return E_POINTER;
    }
    if (const HRESULT hr = m_thing.Check(); hr != S_OK) {
        return hr;
    }
    const UINT nCount = m_thing.Count();
    ULONG nGot = 0;
    HRESULT hrLast = S_OK;
    for (; nGot < nWanted && m_nNext < nCount; ++nGot, ++m_nNext) {
        pChildren[nGot] = Empty();
        hrLast = Name(m_thing.Child(m_nNext), &pChildren[nGot]);
        if (FAILED(hrLast)) {
            break;
        }
    }
    if (pnGot) {
        *pnGot = nGot;
    }
    return FAILED(hrLast) && !nGot ? hrLast : nGot == nWanted ? S_OK : S_FALSE;
}

HRESULT STDMETHODCALLTYPE AccessibleObject::Skip(ULONG nCount)
{
    if (const HRESULT hr = m_thing.Check(); hr != S_OK) {
        return hr;
    }
    const ULONG nLeft = m_thing.Count() - std::min<ULONG>(m_nNext, m_thing.Count());
    m_nNext += std::min(nCount, nLeft);
    return nCount <= nLeft ? S_OK : S_FALSE;
}

HRESULT STDMETHODCALLTYPE AccessibleObject::Reset()
{
    const HRESULT hr = m_thing.Check();
    m_nNext = hr == S_OK ? 0 : m_nNext;
    return hr;
}

HRESULT STDMETHODCALLTYPE AccessibleObject::Clone(IEnumVARIANT** ppEnum)
{
    if (!ppEnum) {
        return E_POINTER;
    }
    *ppEnum = nullptr;
    if (const HRESULT hr = m_thing.Check(); hr != S_OK) {
        return hr;
    }
    AccessibleObject* pClone = Make(m_thing);
    *ppEnum = pClone;
    if (!pClone) {
        return E_OUTOFMEMORY;
    }
    pClone->m_nNext = m_nNext;
    return S_OK;
}

// --- IDispatch

HRESULT STDMETHODCALLTYPE AccessibleObject::GetTypeInfoCount(UINT* pnCount)
{
    if (!pnCount) {
        return E_POINTER;
    }
    ITypeInfo* pInfo = nullptr;
    *pnCount = GetTypeInfo(0, 0, &pInfo) == S_OK;
    if (pInfo) {
        pInfo->Release();
    }
    return S_OK;
}

HRESULT STDMETHODCALLTYPE AccessibleObject::GetTypeInfo(UINT nInfo, LCID lcid, ITypeInfo** ppInfo)
{
    if (!ppInfo) {
        return E_POINTER;
    }
    *ppInfo = nullptr;
    const OleApi* pApi = FindOleApi();
    if (nInfo || !pApi) {
        return nInfo ? DISP_E_BADINDEX : E_NOTIMPL;
    }
    ITypeLib* pLibrary = nullptr;
    HRESULT hr = pApi->pfnLoadTypeLibrary(ID_ACCESSIBILITY_LIBRARY, 1, 1, lcid, &pLibrary);
    if (hr == S_OK) {
        hr = pLibrary->GetTypeInfoOfGuid(ID_ACCESSIBLE, ppInfo);
        pLibrary->Release();
    }
    return hr;
}

HRESULT STDMETHODCALLTYPE AccessibleObject::GetIDsOfNames(REFIID, LPOLESTR* ppszNames, UINT nNames, LCID lcid,
                                                          DISPID* pIds)
{
    ITypeInfo* pInfo = nullptr;
    HRESULT hr = GetTypeInfo(0, lcid, &pInfo);
    if (hr == S_OK) {
        hr = pInfo->GetIDsOfNames(ppszNames, nNames, pIds);
        pInfo->Release();
    }
    return hr;
}

HRESULT STDMETHODCALLTYPE AccessibleObject::Invoke(DISPID nMember, REFIID, LCID lcid, WORD wFlags,
                                                   DISPPARAMS* pParams, VARIANT* pResult,
                                                   EXCEPINFO* pException, UINT* pnWrong)
{
    ITypeInfo* pInfo = nullptr;
    HRESULT hr = GetTypeInfo(0, lcid, &pInfo);
    if (hr == S_OK) {
        hr = pInfo->Invoke(static_cast<IAccessible*>(this), nMember, wFlags, pParams, pResult, pException,
                           pnWrong);
        pInfo->Release();
    }
    return hr;
}

// --- What was selected

SelectedChildren* SelectedChildren::Make(const AccessibleThing& thing)
{
    return new (std::nothrow) SelectedChildren(thing);
}

HRESULT STDMETHODCALLTYPE SelectedChildren::QueryInterface(REFIID id, void** ppObject)
{
    if (!ppObject) {
        return E_POINTER;
    }
    const bool fKnown = IsSameId(id, ID_UNKNOWN) || IsSameId(id, ID_ENUM_VARIANT);
    *ppObject = fKnown ? static_cast<IEnumVARIANT*>(this) : nullptr;
    if (fKnown) {
        AddRef();
    }
    return fKnown ? S_OK : E_NOINTERFACE;
}

ULONG STDMETHODCALLTYPE SelectedChildren::AddRef()
{
    return static_cast<ULONG>(++m_nReferences);
}

ULONG STDMETHODCALLTYPE SelectedChildren::Release()
{
    const LONG nLeft = --m_nReferences;
    if (!nLeft) {
        delete this;
    }
    return static_cast<ULONG>(nLeft);
}

bool SelectedChildren::Step()
{
    const UINT nNext = m_fEnd ? NO_INDEX : m_thing.NextSelected(m_nLast);
    m_fEnd = nNext == NO_INDEX;
    m_nLast = nNext;
    return !m_fEnd;
}

HRESULT STDMETHODCALLTYPE SelectedChildren::Next(ULONG nWanted, VARIANT* pChildren, ULONG* pnGot)
{
    if (pnGot) {
        *pnGot = 0;
    }
    if (!pChildren) {
        return E_POINTER;
    }
    if (const HRESULT hr = m_thing.Check(); hr != S_OK) {
        return hr;
    }
    ULONG nGot = 0;
    while (nGot < nWanted && Step()) {
        pChildren[nGot++] = Number(static_cast<LONG>(m_nLast) + 1);
    }
    if (pnGot) {
        *pnGot = nGot;
    }
    return nGot == nWanted ? S_OK : S_FALSE;
}

HRESULT STDMETHODCALLTYPE SelectedChildren::Skip(ULONG nCount)
{
    if (const HRESULT hr = m_thing.Check(); hr != S_OK) {
        return hr;
    }
    while (nCount && Step()) {
        --nCount;
    }
    return nCount ? S_FALSE : S_OK;
}

HRESULT STDMETHODCALLTYPE SelectedChildren::Reset()
{
    m_nLast = NO_INDEX;
    m_fEnd = false;
    return m_thing.Check();
}

HRESULT STDMETHODCALLTYPE SelectedChildren::Clone(IEnumVARIANT** ppEnum)
{
    if (!ppEnum) {
        return E_POINTER;
    }
    *ppEnum = nullptr;
    if (const HRESULT hr = m_thing.Check(); hr != S_OK) {
        return hr;
    }
    SelectedChildren* pClone = Make(m_thing);
    *ppEnum = pClone;
    if (!pClone) {
        return E_OUTOFMEMORY;
    }
    pClone->m_nLast = m_nLast;
    pClone->m_fEnd = m_fEnd;
    return S_OK;
}

} // namespace gesso
