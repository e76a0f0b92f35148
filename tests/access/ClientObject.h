// What a client of Active Accessibility gets of a window or at a point, on both platforms.
#pragma once

#include "../support/Host.h"

#include <gesso/access/Find.h>

namespace test {

class ClientObject
{
public:
    explicit ClientObject(HWND hwnd)
    {
        static constexpr GUID ID{
            0x618736E0, 0x3C3D, 0x11CF, {0x81, 0x0C, 0x00, 0xAA, 0x00, 0x38, 0x9B, 0x71}};
        const auto pfn =
            Find<decltype(&::AccessibleObjectFromWindow)>(L"oleacc.dll", "AccessibleObjectFromWindow");
        pfn(hwnd, static_cast<DWORD>(OBJID_CLIENT), ID, reinterpret_cast<void**>(&m_pObject));
    }
    // The innermost one there.
    explicit ClientObject(POINT ptScreen)
    {
        const auto pfn =
            Find<decltype(&::AccessibleObjectFromPoint)>(L"oleacc.dll", "AccessibleObjectFromPoint");
        VARIANT child{};
        if (SUCCEEDED(pfn(ptScreen, &m_pObject, &child))) {
            m_nChild = V_I4(&child);
        }
    }
    ~ClientObject()
    {
        if (m_pObject) {
            m_pObject->Release();
        }
    }
    ClientObject(const ClientObject&) = delete;
    ClientObject& operator=(const ClientObject&) = delete;

    LONG CountChildren() const
    {
        LONG nCount = -1;
        m_pObject->get_accChildCount(&nCount);
        return nCount;
    }
    // Of a child, or of the one that was found at the point; "(none)" where there is none.
    std::string Name() const { return Name(m_nChild); }
    std::string Name(LONG nChild) const
    {
        VARIANT child{};
        V_VT(&child) = VT_I4;
        V_I4(&child) = nChild;
        BSTR text = nullptr;
        if (!m_pObject || m_pObject->get_accName(child, &text) != S_OK) {
            return "(none)";
        }
        const std::string name = Narrow(text);
        Find<decltype(&::SysFreeString)>(L"oleaut32.dll", "SysFreeString")(text);
        return name;
    }

private:
    // The library has both loaded, for good, once it has given out an object.
    template <class FUNCTION> static FUNCTION Find(LPCWSTR pszModule, const char* pszName)
    {
        HMODULE hModule = GetModuleHandleW(pszModule);
        hModule = hModule ? hModule : LoadLibraryW(pszModule);
        return reinterpret_cast<FUNCTION>(reinterpret_cast<void*>(GetProcAddress(hModule, pszName)));
    }

    IAccessible* m_pObject = nullptr;
    LONG m_nChild = CHILDID_SELF;
};

// The name of what is in the middle of a node.
inline std::string NameInMiddle(const gesso::AccessibleNode& node)
{
    const RECT rc = node.GetRect();
    return ClientObject(POINT{(rc.left + rc.right) / 2, (rc.top + rc.bottom) / 2}).Name();
}

inline std::string NameOf(const gesso::AccessibleNode& node)
{
    wchar_t szName[64]{};
    node.GetName(szName, 64);
    return gesso::ToUtf8(szName);
}

} // namespace test
