// A thing as IAccessible, the interface by which other programs ask.
//
// The object holds its control weakly: once that has gone every operation answers CO_E_OBJNOTCONNECTED, and
// whoever holds it from another program is let go. It serves its control's thread; on another one, which only
// a pointer that was handed over raw can lead to, it answers RPC_E_WRONG_THREAD. A thing that has gone from a
// control that is there, and a child id that is none, get E_INVALIDARG.
#pragma once

#include <gesso/access/AccessibleThing.h>
#include <gesso/containers/Index.h>

#include <atomic>

// The platform's interfaces have no virtual destructor: the last Release ends an object by its own class.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

namespace gesso {

class AccessibleObject final : public IAccessible, public IOleWindow, public IEnumVARIANT
{
public:
    // With one reference; null without memory.
    static AccessibleObject* Make(const AccessibleThing& thing);

    AccessibleObject(const AccessibleObject&) = delete;
    AccessibleObject& operator=(const AccessibleObject&) = delete;

    // IUnknown
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** ppObject) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;

    // IDispatch, by the type library of the interface where the system has it.
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* pnCount) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT nInfo, LCID lcid, ITypeInfo** ppInfo) override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID id, LPOLESTR* ppszNames, UINT nNames, LCID lcid,
                                            DISPID* pIds) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID nMember, REFIID id, LCID lcid, WORD wFlags, DISPPARAMS* pParams,
                                     VARIANT* pResult, EXCEPINFO* pException, UINT* pnWrong) override;

    // IAccessible
    HRESULT STDMETHODCALLTYPE get_accParent(IDispatch** ppParent) override;
    HRESULT STDMETHODCALLTYPE get_accChildCount(LONG* pnCount) override;
    HRESULT STDMETHODCALLTYPE get_accChild(VARIANT child, IDispatch** ppChild) override;
    HRESULT STDMETHODCALLTYPE get_accName(VARIANT child, BSTR* pName) override;
    HRESULT STDMETHODCALLTYPE get_accValue(VARIANT child, BSTR* pValue) override;
    HRESULT STDMETHODCALLTYPE get_accDescription(VARIANT child, BSTR* pDescription) override;
    HRESULT STDMETHODCALLTYPE get_accRole(VARIANT child, VARIANT* pRole) override;
    HRESULT STDMETHODCALLTYPE get_accState(VARIANT child, VARIANT* pState) override;
    HRESULT STDMETHODCALLTYPE get_accHelp(VARIANT child, BSTR* pHelp) override;
    HRESULT STDMETHODCALLTYPE get_accHelpTopic(BSTR* pFile, VARIANT child, LONG* pnTopic) override;
    HRESULT STDMETHODCALLTYPE get_accKeyboardShortcut(VARIANT child, BSTR* pShortcut) override;
    HRESULT STDMETHODCALLTYPE get_accFocus(VARIANT* pChild) override;
    HRESULT STDMETHODCALLTYPE get_accSelection(VARIANT* pChildren) override;
    HRESULT STDMETHODCALLTYPE get_accDefaultAction(VARIANT child, BSTR* pAction) override;
    HRESULT STDMETHODCALLTYPE accSelect(LONG nFlags, VARIANT child) override;
    HRESULT STDMETHODCALLTYPE accLocation(LONG* px, LONG* py, LONG* pcx, LONG* pcy, VARIANT child) override;
    HRESULT STDMETHODCALLTYPE accNavigate(LONG nDirection, VARIANT start, VARIANT* pEnd) override;
    HRESULT STDMETHODCALLTYPE accHitTest(LONG x, LONG y, VARIANT* pChild) override;
    HRESULT STDMETHODCALLTYPE accDoDefaultAction(VARIANT child) override;
    HRESULT STDMETHODCALLTYPE put_accName(VARIANT child, BSTR name) override;
    HRESULT STDMETHODCALLTYPE put_accValue(VARIANT child, BSTR value) override;

    // IOleWindow
    HRESULT STDMETHODCALLTYPE GetWindow(HWND* phwnd) override;
    HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL fEnter) override;

    // IEnumVARIANT, of the children
    HRESULT STDMETHODCALLTYPE Next(ULONG nWanted, VARIANT* pChildren, ULONG* pnGot) override;
    HRESULT STDMETHODCALLTYPE Skip(ULONG nCount) override;
    HRESULT STDMETHODCALLTYPE Reset() override;
    HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT** ppEnum) override;

private:
    friend class AccessibleLink;
    explicit AccessibleObject(const AccessibleThing& thing);
    ~AccessibleObject();

    // Takes one reference more, unless the last one is being let go.
    bool Hold();
    // The thing that a child id names: S_OK, or why there is none.
    HRESULT Find(const VARIANT& child, std::optional<AccessibleThing>& thing) const;
    // Whether a thing is this one or lies below it.
    bool IsWithin(const AccessibleThing& thing) const;
    // A child by its id where it has no object of its own, its object else.
    HRESULT Name(const AccessibleThing& thing, VARIANT* pChild) const;
    template <class TEXT> HRESULT GiveText(const VARIANT& child, BSTR* pText, const TEXT& textOf) const;
    HRESULT Step(LONG nDirection, const AccessibleThing& from, VARIANT* pEnd) const;

    AccessibleThing m_thing;
    std::atomic<LONG> m_nReferences = 1;
    ULONG m_nNext = 0; // the child that Next begins with
    AccessibleObject* m_pNext = nullptr;
};

// The selected children by their ids, found one by one as they are asked for.
class SelectedChildren final : public IEnumVARIANT
{
public:
    // With one reference; null without memory.
    static SelectedChildren* Make(const AccessibleThing& thing);

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** ppObject) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;
    HRESULT STDMETHODCALLTYPE Next(ULONG nWanted, VARIANT* pChildren, ULONG* pnGot) override;
    HRESULT STDMETHODCALLTYPE Skip(ULONG nCount) override;
    HRESULT STDMETHODCALLTYPE Reset() override;
    HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT** ppEnum) override;

private:
    explicit SelectedChildren(const AccessibleThing& thing) : m_thing(thing) {}
    ~SelectedChildren() = default;
    // Goes on to the next one; false at the end.
    bool Step();

    AccessibleThing m_thing;
    UINT m_nLast = NO_INDEX; // the child that was told last
    bool m_fEnd = false;
    std::atomic<LONG> m_nReferences = 1;
};

} // namespace gesso

#pragma GCC diagnostic pop
