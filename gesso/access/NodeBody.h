// What an AccessibleNode refers to: a thing of the library's, or one of the platform's controls by its
// interface.
#pragma once

#include <gesso/access/AccessibleThing.h>
#include <gesso/access/Find.h>

namespace gesso {

class NodeBody
{
public:
    NodeBody() = default;
    NodeBody(const NodeBody&) = delete;
    NodeBody& operator=(const NodeBody&) = delete;

    void AddRef() { ++m_nReferences; }
    void Release()
    {
        if (!--m_nReferences) {
            delete this;
        }
    }

    // The window that it is of, gone or not.
    virtual HWND Window() const = 0;
    // Whether both are the same thing.
    virtual bool IsSame(const NodeBody& other) const = 0;
    // Whether it can be asked now; all that follows answers as little as can be where not.
    virtual bool IsThere() const = 0;
    virtual Role GetRole() const = 0;
    virtual AccessString Name() const = 0;
    virtual AccessString Value() const = 0;
    virtual AccessString Description() const = 0;
    virtual UINT State() const = 0;
    virtual RECT Rect() const = 0;
    virtual UINT Count() const = 0;
    virtual AccessibleNode Child(UINT nIndex) const = 0;
    virtual bool Act() const = 0;
    virtual bool Select() const = 0;
    virtual bool Open(bool fOpen) const = 0;
    virtual bool Show() const = 0;
    virtual bool SetValue(LPCWSTR pszValue) const = 0;

protected:
    virtual ~NodeBody() = default;

private:
    LONG m_nReferences = 1;
};

// Both empty without memory.
AccessibleNode NodeOf(const AccessibleThing& thing);
// The client area of a window that is not the library's, or not this thread's.
AccessibleNode NodeOfPlatform(HWND hwnd);
// Whichever of the two a window is.
AccessibleNode NodeOfWindow(HWND hwnd);

} // namespace gesso
