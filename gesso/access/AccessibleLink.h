// A control's window as those see it who hold on to things in it: a counted hold that does not keep the
// control, and knows when it went. There is one for each window that somebody has asked for or named.
#pragma once

#include <gesso/access/AccessibleSide.h>

#include <optional>
#include <utility>

namespace gesso {

class AccessibleObject;

class AccessibleLink
{
public:
    // What a program said of a window's names.
    struct Words
    {
        AccessString name, description;
        bool fName = false;
        bool fDescription = false;
        DescribeFunction pfnDescribe = nullptr;
        void* pContext = nullptr;

        bool Any() const { return fName || fDescription || pfnDescribe; }
    };

    AccessibleLink(const AccessibleLink&) = delete;
    AccessibleLink& operator=(const AccessibleLink&) = delete;

    void AddRef();
    void Release();

    HWND Window() const { return m_hwnd; }
    // The control, null once it has gone. Only on its own thread.
    GWnd* Control() const { return m_pWnd; }
    bool IsOfThisThread() const { return m_dwThread == GetCurrentThreadId(); }
    // A copy; none where the program said nothing.
    std::optional<Words> WordsOf() const;

    // The objects that were given out to other programs, which are told when the window goes.
    void Join(AccessibleObject& object);
    void Leave(AccessibleObject& object);

private:
    friend class AccessibleLinks;
    explicit AccessibleLink(HWND hwnd) : m_hwnd(hwnd) {}
    ~AccessibleLink() = default;
    void Disconnect();
    // Takes the next object off the list, with a reference more; null at the end.
    AccessibleObject* TakeObject();

    HWND m_hwnd;
    GWnd* m_pWnd = nullptr;
    DWORD m_dwThread = 0;
    LONG m_nReferences = 1;               // under the lock of AccessibleLinks
    Words m_words;                        // the same
    AccessibleObject* m_pFirst = nullptr; // under the lock
};

// A counted reference.
class LinkRef
{
public:
    LinkRef() = default;
    explicit LinkRef(AccessibleLink* pLink) : m_pLink(pLink) {} // takes it over
    LinkRef(const LinkRef& other) : m_pLink(other.m_pLink)
    {
        if (m_pLink) {
            m_pLink->AddRef();
        }
    }
    LinkRef& operator=(LinkRef other)
    {
        std::swap(m_pLink, other.m_pLink);
        return *this;
    }
    ~LinkRef()
    {
        if (m_pLink) {
            m_pLink->Release();
        }
    }
    AccessibleLink* operator->() const { return m_pLink; }
    AccessibleLink& operator*() const { return *m_pLink; }
    explicit operator bool() const { return m_pLink != nullptr; }

private:
    AccessibleLink* m_pLink = nullptr;
};

class AccessibleLinks
{
public:
    // The link of a control, on its thread; empty without memory.
    static LinkRef Connect(GWnd& wnd, HWND hwnd);
    // What a program says of a window, which nobody need have asked for yet. Nothing for a window that is not
    // the library's, or without memory. Any thread.
    // Both return whether that changed anything.
    static bool SetName(HWND hwnd, LPCWSTR pszName);
    static bool SetDescription(HWND hwnd, LPCWSTR pszDescription);
    static void SetCallback(HWND hwnd, DescribeFunction pfnDescribe, void* pContext);
    static void End(HWND hwnd);

private:
    static AccessibleLink* FindOrMake(HWND hwnd);
    template <class CHANGE> static bool ChangeWords(HWND hwnd, const CHANGE& change);
};

} // namespace gesso
