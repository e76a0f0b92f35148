#include "Objects.h"
#include "StandardAccessible.h"
#include "ThreadProxy.h"

#include "../core/Accounting.h"
#include "../core/Faults.h"
#include "../core/TableLock.h"

#include <algorithm>

namespace gesso::headless {
namespace {

// What a window answers WM_GETOBJECT with stands for an object until a client takes it, once.
struct Untaken
{
    LRESULT answer;
    IUnknown* object; // a reference
    std::shared_ptr<Desktop> desktop;
};

std::vector<Untaken>& AllUntaken()
{
    static std::vector<Untaken> s_untaken;
    return s_untaken;
}

const void* Counted(LRESULT answer)
{
    return reinterpret_cast<const void*>(answer);
}

void Let(IUnknown* object)
{
    const CallsBy program(Caller::Program);
    const TableUnlock unlock;
    object->Release();
}

LRESULT Keep(IUnknown* object)
{
    static LRESULT s_last = 0xC000; // no window answers with a number that no object had
    const LRESULT answer = ++s_last;
    AllUntaken().push_back({answer, object, TheDesktopRef()});
    Track(Kind::AccessibleObject, Counted(answer));
    return answer;
}

template <typename CONDITION> std::optional<Untaken> Take(CONDITION isIt)
{
    const auto found = std::find_if(AllUntaken().begin(), AllUntaken().end(), isIt);
    if (found == AllUntaken().end()) {
        return std::nullopt;
    }
    const Untaken taken = *found;
    Untrack(Kind::AccessibleObject, Counted(taken.answer));
    AllUntaken().erase(found);
    return taken;
}

template <typename CONDITION> void DropWhere(CONDITION isIt)
{
    while (const auto dropped = Take(isIt)) {
        Let(dropped->object);
    }
}

// A client of the object's own thread gets the object itself.
HRESULT Hand(const Untaken& taken, REFIID id, void** object)
{
    if (taken.desktop.get() != &TheDesktop()) {
        return GiveProxy(taken.object, taken.desktop, id, object);
    }
    const CallsBy program(Caller::Program);
    const TableUnlock unlock;
    const HRESULT result = taken.object->QueryInterface(id, object);
    taken.object->Release();
    return result;
}

VARIANT Self()
{
    VARIANT self{};
    V_VT(&self) = VT_I4;
    V_I4(&self) = CHILDID_SELF;
    return self;
}

IAccessible* AccessibleOf(IUnknown* object)
{
    void* found = nullptr;
    if (object) {
        object->QueryInterface(IID_IAccessible, &found);
    }
    return static_cast<IAccessible*>(found);
}

// Replaces a reference by one that leads on; false, with all as it was, where there is none.
bool StepTo(IAccessible*& at, IDispatch* next)
{
    IAccessible* found = AccessibleOf(next);
    if (next) {
        next->Release();
    }
    if (found) {
        at->Release();
        at = found;
    }
    return found != nullptr;
}

// From an object to the innermost one at a point of its place.
HRESULT Descend(IAccessible*& at, POINT point, VARIANT* child)
{
    for (;;) {
        const HRESULT result = at->accHitTest(point.x, point.y, child);
        if (result != S_OK) {
            V_VT(child) = VT_EMPTY;
            return FAILED(result) ? result : E_FAIL;
        }
        if (V_VT(child) != VT_DISPATCH) {
            return S_OK;
        }
        const bool stepped = StepTo(at, V_DISPATCH(child));
        *child = Self();
        if (!stepped) {
            return S_OK;
        }
    }
}

HRESULT EnumerateChildren(IEnumVARIANT& children, LONG first, LONG count, VARIANT* out, LONG* got)
{
    children.Reset();
    if (first > 0) {
        children.Skip(static_cast<ULONG>(first));
    }
    ULONG fetched = 0;
    const HRESULT result = children.Next(static_cast<ULONG>(count), out, &fetched);
    *got = static_cast<LONG>(fetched);
    return FAILED(result) ? result : *got == count ? S_OK : S_FALSE;
}

// A child that is no object is given by its id.
void GiveChild(IAccessible& parent, LONG id, VARIANT* out)
{
    V_VT(out) = VT_I4;
    V_I4(out) = id;
    IDispatch* child = nullptr;
    if (parent.get_accChild(*out, &child) == S_OK && child) {
        V_VT(out) = VT_DISPATCH;
        V_DISPATCH(out) = child;
    }
}

HRESULT CountChildren(IAccessible& parent, LONG first, LONG count, VARIANT* out, LONG* got)
{
    LONG all = 0;
    const HRESULT result = parent.get_accChildCount(&all);
    if (FAILED(result)) {
        return result;
    }
    *got = std::clamp(all - first, LONG{0}, count);
    for (LONG i = 0; i < *got; ++i) {
        GiveChild(parent, first + i + 1, &out[i]);
    }
    return *got == count ? S_OK : S_FALSE;
}

HRESULT FromWindow(HWND hwnd, DWORD object, IAccessible** out)
{
    const CallsBy platform(Caller::Platform);
    void* found = nullptr;
    const HRESULT result = AccessibleObjectFromWindow(hwnd, object, IID_IAccessible, &found);
    *out = static_cast<IAccessible*>(found);
    return result;
}

HWND TopLevelAt(POINT point)
{
    const CallsBy platform(Caller::Platform);
    const HWND top = GetAncestor(WindowFromPoint(point), GA_ROOT);
    return top ? top : GetDesktopWindow();
}

} // namespace

void DropUntaken(const Desktop& going)
{
    DropWhere([&](const Untaken& untaken) { return untaken.desktop.get() == &going; });
}

} // namespace gesso::headless

using namespace gesso::headless;

extern "C" {

LRESULT WINAPI LresultFromObject(REFIID, WPARAM, IUnknown* object)
{
    const TableLock lock;
    if (FaultFires("LresultFromObject")) {
        return FaultResult();
    }
    if (!object) {
        return E_INVALIDARG;
    }
    object->AddRef();
    return Keep(object);
}

HRESULT WINAPI ObjectFromLresult(LRESULT answer, REFIID id, WPARAM, void** object)
{
    const TableLock lock;
    *object = nullptr;
    if (FaultFires("ObjectFromLresult")) {
        return FaultResult();
    }
    const auto taken = Take([&](const Untaken& untaken) { return untaken.answer == answer; });
    return taken ? Hand(*taken, id, object) : E_FAIL;
}

HRESULT WINAPI CreateStdAccessibleObject(HWND hwnd, LONG object, REFIID id, void** out)
{
    *out = nullptr;
    if (FaultFires("CreateStdAccessibleObject")) {
        return FaultResult();
    }
    if (!IsWindow(hwnd)) {
        return E_INVALIDARG;
    }
    IAccessible* standard = MakeStandardAccessible(hwnd, object);
    if (!standard) {
        return E_NOTIMPL;
    }
    const HRESULT result = standard->QueryInterface(id, out);
    standard->Release();
    return result;
}

HRESULT WINAPI AccessibleObjectFromWindow(HWND hwnd, DWORD object, REFIID id, void** out)
{
    *out = nullptr;
    if (FaultFires("AccessibleObjectFromWindow")) {
        return FaultResult();
    }
    const CallsBy platform(Caller::Platform);
    if (!IsWindow(hwnd)) {
        return E_FAIL;
    }
    constexpr WPARAM ANY_CLIENT = 0xFFFFFFFF;
    const LRESULT answer = SendMessageW(hwnd, WM_GETOBJECT, ANY_CLIENT, static_cast<LPARAM>(object));
    const bool taken = answer != 0 && SUCCEEDED(ObjectFromLresult(answer, id, ANY_CLIENT, out));
    return taken ? S_OK : CreateStdAccessibleObject(hwnd, static_cast<LONG>(object), id, out);
}

// The innermost object there, and which of its children.
HRESULT WINAPI AccessibleObjectFromPoint(POINT point, IAccessible** out, VARIANT* child)
{
    V_VT(child) = VT_EMPTY;
    const HRESULT result = FromWindow(TopLevelAt(point), static_cast<DWORD>(OBJID_WINDOW), out);
    if (FAILED(result)) {
        return result;
    }
    const HRESULT hit = Descend(*out, point, child);
    if (FAILED(hit)) {
        (*out)->Release();
        *out = nullptr;
    }
    return hit;
}

HRESULT WINAPI AccessibleObjectFromEvent(HWND hwnd, DWORD object, DWORD childId, IAccessible** out,
                                         VARIANT* child)
{
    V_VT(child) = VT_EMPTY;
    const HRESULT result = FromWindow(hwnd, object, out);
    if (FAILED(result)) {
        return result;
    }
    *child = Self();
    if (childId != CHILDID_SELF) {
        GiveChild(**out, static_cast<LONG>(childId), child);
    }
    if (V_VT(child) == VT_DISPATCH) {
        StepTo(*out, V_DISPATCH(child));
        *child = Self();
    }
    return S_OK;
}

HRESULT WINAPI AccessibleChildren(IAccessible* container, LONG first, LONG count, VARIANT* children,
                                  LONG* got)
{
    *got = 0;
    if (FaultFires("AccessibleChildren")) {
        return FaultResult();
    }
    if (!container || first < 0 || count < 0) {
        return E_INVALIDARG;
    }
    const CallsBy program(Caller::Program);
    for (LONG i = 0; i < count; ++i) {
        VariantInit(&children[i]);
    }
    void* found = nullptr;
    if (FAILED(container->QueryInterface(IID_IEnumVARIANT, &found))) {
        return CountChildren(*container, first, count, children, got);
    }
    auto* enumeration = static_cast<IEnumVARIANT*>(found);
    const HRESULT result = EnumerateChildren(*enumeration, first, count, children, got);
    enumeration->Release();
    return result;
}

// An object that does not say so itself is in the window of the object that it is in.
HRESULT WINAPI WindowFromAccessibleObject(IAccessible* object, HWND* hwnd)
{
    *hwnd = nullptr;
    if (FaultFires("WindowFromAccessibleObject")) {
        return FaultResult();
    }
    if (!object) {
        return E_INVALIDARG;
    }
    object->AddRef();
    HRESULT result = E_FAIL;
    for (bool more = true; more;) {
        void* found = nullptr;
        IDispatch* parent = nullptr;
        if (SUCCEEDED(object->QueryInterface(IID_IOleWindow, &found))) {
            auto* window = static_cast<IOleWindow*>(found);
            result = window->GetWindow(hwnd);
            window->Release();
            more = false;
        } else {
            more = SUCCEEDED(object->get_accParent(&parent)) && StepTo(object, parent);
        }
    }
    object->Release();
    return result;
}

// What was given out and not taken, and what clients on other threads hold, is let go.
HRESULT WINAPI CoDisconnectObject(IUnknown* object, DWORD)
{
    const TableLock lock;
    if (FaultFires("CoDisconnectObject")) {
        return FaultResult();
    }
    DropWhere([&](const Untaken& untaken) { return untaken.object == object; });
    DisconnectProxies(object);
    return S_OK;
}

// There are no type libraries.
HRESULT WINAPI LoadRegTypeLib(REFGUID, WORD, WORD, LCID, ITypeLib** library)
{
    *library = nullptr;
    return FaultFires("LoadRegTypeLib") ? FaultResult() : TYPE_E_LIBNOTREGISTERED;
}
}
