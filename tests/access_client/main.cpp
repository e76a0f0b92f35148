// A client of accessibility in a process of its own, as a screen reader is: finds things in another program's
// window by role and name, acts on them, and hears what it tells.
//
//   access_client TITLE tree                       every thing: its role's number, its name, its value
//   access_client TITLE do ROLE NAME [CHILD]       its default action; of an item by its name
//   access_client TITLE select ROLE NAME CHILD     an item alone
//   access_client TITLE type ROLE NAME TEXT        a field's value
//   access_client TITLE hold ROLE NAME             keeps an object until the program's window has gone, and
//   asks on access_client TITLE listen MILLISECONDS        the events meanwhile: number, role, name
//
// Prints a line an answer; ends with 0 where the thing was found and did what was asked.
#include <windows.h>

#include <initguid.h>
#include <oleacc.h>
#include <oleauto.h>

#include <cstdio>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

namespace {

std::string Narrow(const wchar_t* psz)
{
    char bytes[1024] = "";
    WideCharToMultiByte(CP_UTF8, 0, psz ? psz : L"", -1, bytes, sizeof(bytes) - 1, nullptr, nullptr);
    return bytes;
}

// A thing: an object, and a child of it or itself.
struct Thing
{
    IAccessible* pObject;
    LONG nChild;

    VARIANT Id() const
    {
        VARIANT id{};
        V_VT(&id) = VT_I4;
        V_I4(&id) = nChild;
        return id;
    }
    std::string Text(HRESULT (STDMETHODCALLTYPE IAccessible::*ask)(VARIANT, BSTR*)) const
    {
        BSTR text = nullptr;
        (pObject->*ask)(Id(), &text);
        const std::string narrow = Narrow(text);
        SysFreeString(text);
        return narrow;
    }
    std::string Name() const { return Text(&IAccessible::get_accName); }
    LONG Role() const
    {
        VARIANT role{};
        return pObject->get_accRole(Id(), &role) == S_OK && V_VT(&role) == VT_I4 ? V_I4(&role) : -1;
    }
    bool Is(LONG nRole, const std::string& name) const { return Role() == nRole && Name() == name; }
};

// Calls visit for an object, its items and the objects below it, until that answers true.
bool Visit(IAccessible* pObject, const std::function<bool(const Thing&)>& visit)
{
    if (visit({pObject, CHILDID_SELF})) {
        return true;
    }
    LONG nCount = 0;
    pObject->get_accChildCount(&nCount);
    for (LONG n = 1; n <= nCount && n <= 1000; ++n) {
        IDispatch* pDispatch = nullptr;
        const Thing item{pObject, n};
        const HRESULT hr = pObject->get_accChild(item.Id(), &pDispatch);
        bool fDone = false;
        IAccessible* pChild = nullptr;
        if (hr == S_OK && pDispatch &&
            pDispatch->QueryInterface(IID_IAccessible, reinterpret_cast<void**>(&pChild)) == S_OK)
        {
            fDone = Visit(pChild, visit);
            pChild->Release();
        } else {
            fDone = visit(item);
        }
        if (pDispatch) {
            pDispatch->Release();
        }
        if (fDone) {
            return true;
        }
    }
    return false;
}

bool VisitWindow(HWND hwnd, const std::function<bool(const Thing&)>& visit)
{
    IAccessible* pObject = nullptr;
    bool fDone = false;
    if (AccessibleObjectFromWindow(hwnd, static_cast<DWORD>(OBJID_CLIENT), IID_IAccessible,
                                   reinterpret_cast<void**>(&pObject)) == S_OK)
    {
        fDone = Visit(pObject, visit);
        pObject->Release();
    }
    for (HWND hwndChild = GetWindow(hwnd, GW_CHILD); hwndChild && !fDone;
         hwndChild = GetWindow(hwndChild, GW_HWNDNEXT))
    {
        fDone = VisitWindow(hwndChild, visit);
    }
    return fDone;
}

// Acts on the first thing of a role and a name; false where there is none, or it failed.
bool Act(HWND hwnd, LONG nRole, const std::string& name, const std::function<bool(const Thing&)>& act)
{
    bool fDid = false;
    VisitWindow(hwnd, [&](const Thing& thing) {
        if (!thing.Is(nRole, name)) {
            return false;
        }
        fDid = act(thing);
        return true;
    });
    return fDid;
}

// The same for an item of it.
bool ActOnItem(HWND hwnd, LONG nRole, const std::string& name, const std::string& item,
               const std::function<bool(const Thing&)>& act)
{
    return Act(hwnd, nRole, name, [&](const Thing& thing) {
        bool fDid = false;
        Visit(thing.pObject, [&](const Thing& below) {
            if (!below.nChild || below.Name() != item) {
                return false;
            }
            fDid = act(below);
            return true;
        });
        return fDid;
    });
}

bool Do(const Thing& thing)
{
    return thing.pObject->accDoDefaultAction(thing.Id()) == S_OK;
}

bool SelectIt(const Thing& thing)
{
    return thing.pObject->accSelect(SELFLAG_TAKEFOCUS | SELFLAG_TAKESELECTION, thing.Id()) == S_OK;
}

bool Type(const Thing& thing, const char* pszText)
{
    wchar_t szText[256] = L"";
    MultiByteToWideChar(CP_UTF8, 0, pszText, -1, szText, 255);
    BSTR text = SysAllocString(szText);
    const HRESULT hr = thing.pObject->put_accValue(thing.Id(), text);
    SysFreeString(text);
    return hr == S_OK;
}

// Until the window has gone; what is asked then is answered by an error.
bool Hold(HWND hwnd, const Thing& thing)
{
    std::printf("holds\n");
    std::fflush(stdout);
    while (IsWindow(hwnd)) {
        Sleep(10);
    }
    VARIANT role{};
    const HRESULT hr = thing.pObject->get_accRole(thing.Id(), &role);
    std::printf("%08lx\n", static_cast<unsigned long>(hr));
    return FAILED(hr);
}

DWORD ProcessOf(HWND hwnd)
{
    DWORD dwProcess = 0;
    GetWindowThreadProcessId(hwnd, &dwProcess);
    return dwProcess;
}

// Wine tells a hook for one other process nothing, so that the hook is for all.
DWORD g_dwHeardProcess = 0;

void CALLBACK Heard(HWINEVENTHOOK, DWORD dwEvent, HWND hwnd, LONG nObject, LONG nChild, DWORD, DWORD)
{
    IAccessible* pObject = nullptr;
    VARIANT child{};
    if (nObject == OBJID_CLIENT && ProcessOf(hwnd) == g_dwHeardProcess &&
        AccessibleObjectFromEvent(hwnd, static_cast<DWORD>(nObject), static_cast<DWORD>(nChild), &pObject,
                                  &child) == S_OK)
    {
        const Thing thing{pObject, V_I4(&child)};
        std::printf("%04lx %ld %s\n", static_cast<unsigned long>(dwEvent), thing.Role(),
                    thing.Name().c_str());
        std::fflush(stdout);
        pObject->Release();
    }
}

bool Listen(HWND hwnd, DWORD dwMilliseconds)
{
    g_dwHeardProcess = ProcessOf(hwnd);
    const HWINEVENTHOOK hHook = SetWinEventHook(EVENT_MIN, EVENT_MAX, nullptr, Heard, 0, 0,
                                                WINEVENT_OUTOFCONTEXT | WINEVENT_SKIPOWNPROCESS);
    std::printf("listens\n");
    std::fflush(stdout);
    SetTimer(nullptr, 0, dwMilliseconds, nullptr);
    MSG msg{};
    while (GetMessageW(&msg, nullptr, 0, 0) > 0 && msg.message != WM_TIMER) {
        DispatchMessageW(&msg);
    }
    UnhookWinEvent(hHook);
    return hHook != nullptr;
}

bool PrintTree(HWND hwnd)
{
    VisitWindow(hwnd, [](const Thing& thing) {
        std::printf("%ld %s = %s\n", thing.Role(), thing.Name().c_str(),
                    thing.Text(&IAccessible::get_accValue).c_str());
        return false;
    });
    return true;
}

bool Run(HWND hwnd, const std::vector<std::string>& words)
{
    const std::string& command = words[0];
    if (command == "tree") {
        return PrintTree(hwnd);
    }
    if (command == "listen" && words.size() == 2) {
        return Listen(hwnd, std::stoul(words[1]));
    }
    if (words.size() < 3) {
        return false;
    }
    const LONG nRole = std::stol(words[1]);
    if (words.size() == 3) {
        return Act(hwnd, nRole, words[2],
                   [&](const Thing& t) { return command == "hold" ? Hold(hwnd, t) : Do(t); });
    }
    if (command == "type") {
        return Act(hwnd, nRole, words[2], [&](const Thing& thing) { return Type(thing, words[3].c_str()); });
    }
    return ActOnItem(hwnd, nRole, words[2], words[3], command == "select" ? SelectIt : Do);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 3) {
        return 2;
    }
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    const HWND hwnd = FindWindowA(nullptr, argv[1]);
    const bool fDid = hwnd && Run(hwnd, {argv + 2, argv + argc});
    CoUninitialize();
    return fDid ? 0 : 1;
}
