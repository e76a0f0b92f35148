#include <gesso/access/AccessibleLink.h>
#include <gesso/access/AccessibleObject.h>
#include <gesso/access/OleApi.h>
#include <gesso/containers/StringOf.h>
#include <gesso/framework/Access.h>
#include <gesso/framework/LibraryWindows.h>
#include <gesso/framework/MakeOnce.h>

#include <algorithm>
#include <new>
#include <vector>

namespace gesso {
namespace {

// All links whose windows live, in the order of their handles, and the lock of these and of what any thread
// may change in one. Nothing that sends a message or takes another lock is done under it.
constinit SRWLOCK s_lock = SRWLOCK_INIT;
constinit std::vector<AccessibleLink*>* s_pLinks = nullptr;

auto PlaceOf(HWND hwnd)
{
    return std::ranges::lower_bound(*s_pLinks, hwnd, std::less<>(), &AccessibleLink::Window);
}

// Under the lock; null for none.
AccessibleLink* Find(HWND hwnd)
{
    if (!s_pLinks) {
        return nullptr;
    }
    const auto place = PlaceOf(hwnd);
    return place != s_pLinks->end() && (*place)->Window() == hwnd ? *place : nullptr;
}

// Under the lock; false without memory.
bool Keep(AccessibleLink* pLink)
{
    if (!s_pLinks) {
        s_pLinks = new (std::nothrow) std::vector<AccessibleLink*>;
    }
    if (!s_pLinks) {
        return false;
    }
    try {
        s_pLinks->insert(PlaceOf(pLink->Window()), pLink);
    } catch (const std::bad_alloc&) {
        return false;
    }
    return true;
}

// Under the lock.
void Drop(HWND hwnd)
{
    s_pLinks->erase(PlaceOf(hwnd));
    if (s_pLinks->empty()) {
        delete std::exchange(s_pLinks, nullptr);
    }
}

} // namespace

void AccessibleLink::AddRef()
{
    const ScopedLock lock(s_lock);
    ++m_nReferences;
}

void AccessibleLink::Release()
{
    bool fLast = false;
    {
        const ScopedLock lock(s_lock);
        fLast = --m_nReferences == 0;
    }
    if (fLast) {
        delete this;
    }
}

std::optional<AccessibleLink::Words> AccessibleLink::WordsOf() const
{
    const ScopedLock lock(s_lock);
    return m_words.Any() ? std::optional(m_words) : std::nullopt;
}

void AccessibleLink::Join(AccessibleObject& object)
{
    const ScopedLock lock(s_lock);
    object.m_pNext = std::exchange(m_pFirst, &object);
}

void AccessibleLink::Leave(AccessibleObject& object)
{
    const ScopedLock lock(s_lock);
    AccessibleObject** pp = &m_pFirst;
    while (*pp && *pp != &object) {
        pp = &(*pp)->m_pNext;
    }
    if (*pp) {
        *pp = object.m_pNext;
    }
}

void AccessibleLink::Disconnect()
{
    m_pWnd = nullptr;
    const OleApi* pApi = LoadedOleApi();
    if (!pApi) {
        return;
    }
    while (AccessibleObject* pObject = TakeObject()) {
        pApi->pfnDisconnect(static_cast<IAccessible*>(pObject), 0);
        pObject->Release();
    }
}

AccessibleObject* AccessibleLink::TakeObject()
{
    const ScopedLock lock(s_lock);
    while (AccessibleObject* pObject = m_pFirst) {
        m_pFirst = std::exchange(pObject->m_pNext, nullptr);
        if (pObject->Hold()) {
            return pObject;
        }
    }
    return nullptr;
}

AccessibleLink* AccessibleLinks::FindOrMake(HWND hwnd)
{
    if (AccessibleLink* pFound = Find(hwnd)) {
        return pFound;
    }
    auto* pLink = new (std::nothrow) AccessibleLink(hwnd);
    if (pLink && !Keep(pLink)) {
        delete std::exchange(pLink, nullptr);
    }
    return pLink;
}

LinkRef AccessibleLinks::Connect(GWnd& wnd, HWND hwnd)
{
    const ScopedLock lock(s_lock);
    AccessibleLink* pLink = FindOrMake(hwnd);
    if (!pLink) {
        return {};
    }
    pLink->m_pWnd = &wnd;
    pLink->m_dwThread = GetCurrentThreadId();
    ++pLink->m_nReferences;
    return LinkRef(pLink);
}

template <class CHANGE> bool AccessibleLinks::ChangeWords(HWND hwnd, const CHANGE& change)
{
    if (!KnownWindow(hwnd).hwnd) {
        return false;
    }
    const ScopedLock lock(s_lock);
    AccessibleLink* pLink = FindOrMake(hwnd);
    return pLink && change(pLink->m_words);
}

namespace {

// Whether it is another text than before, or there was none.
bool ChangeWord(AccessString& word, bool& fThere, AccessString& strNew, bool fNew)
{
    if (fThere == fNew && word == strNew) {
        return false;
    }
    std::swap(word, strNew);
    fThere = fNew;
    return true;
}

} // namespace

bool AccessibleLinks::SetName(HWND hwnd, LPCWSTR pszName)
{
    AccessString strName = StringOf(pszName);
    return ChangeWords(hwnd, [&](AccessibleLink::Words& words) {
        return ChangeWord(words.name, words.fName, strName, pszName != nullptr);
    });
}

bool AccessibleLinks::SetDescription(HWND hwnd, LPCWSTR pszDescription)
{
    AccessString strDescription = StringOf(pszDescription);
    return ChangeWords(hwnd, [&](AccessibleLink::Words& words) {
        return ChangeWord(words.description, words.fDescription, strDescription, pszDescription != nullptr);
    });
}

void AccessibleLinks::SetCallback(HWND hwnd, DescribeFunction pfnDescribe, void* pContext)
{
    ChangeWords(hwnd, [=](AccessibleLink::Words& words) {
        words.pfnDescribe = pfnDescribe;
        words.pContext = pContext;
        return true;
    });
}

void AccessibleLinks::End(HWND hwnd)
{
    LinkRef link;
    {
        const ScopedLock lock(s_lock);
        AccessibleLink* pLink = Find(hwnd);
        if (!pLink) {
            return;
        }
        Drop(hwnd);
        link = LinkRef(pLink); // what the list had
    }
    link->Disconnect();
}

void EndAccess(HWND hwnd)
{
    AccessibleLinks::End(hwnd);
}

void SetAccessibleName(HWND hwnd, LPCWSTR name)
{
    if (AccessibleLinks::SetName(hwnd, name)) {
        TellAccess(hwnd, EVENT_OBJECT_NAMECHANGE);
    }
}

void SetAccessibleDescription(HWND hwnd, LPCWSTR description)
{
    if (AccessibleLinks::SetDescription(hwnd, description)) {
        TellAccess(hwnd, EVENT_OBJECT_DESCRIPTIONCHANGE);
    }
}

void DescribeAccessible(HWND hwnd, DescribeFunction callback, void* context)
{
    AccessibleLinks::SetCallback(hwnd, callback, context);
}

} // namespace gesso
