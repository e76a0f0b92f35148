// The interface by which other programs ask, in the process itself: what each operation answers, and what it
// answers to a bad question.
#include "../support/Host.h"

#include <gtest/gtest.h>

#include <utility>

namespace {

using test::Host;

constexpr DWORD SHOWN = WS_CHILD | WS_VISIBLE;

VARIANT Child(LONG nChild)
{
    VARIANT child{};
    V_VT(&child) = VT_I4;
    V_I4(&child) = nChild;
    return child;
}

// A text that the platform made, as UTF-8; "-" for none.
std::string Taken(BSTR text)
{
    const std::string taken = text ? test::Narrow(text) : "-";
    SysFreeString(text);
    return taken;
}

// A reference to a window's object.
class Object
{
public:
    explicit Object(HWND hwnd, LONG nObject = OBJID_CLIENT)
    {
        // IAccessible's number; of the platform's libraries some have a jump in its place, and some lack it.
        constexpr GUID ID{0x618736E0, 0x3C3D, 0x11CF, {0x81, 0x0C, 0x00, 0xAA, 0x00, 0x38, 0x9B, 0x71}};
        AccessibleObjectFromWindow(hwnd, static_cast<DWORD>(nObject), ID,
                                   reinterpret_cast<void**>(&m_pObject));
    }
    ~Object()
    {
        if (m_pObject) {
            m_pObject->Release();
        }
    }
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;

    IAccessible* operator->() const { return m_pObject; }
    explicit operator bool() const { return m_pObject; }

    std::string Name(LONG nChild = 0) const
    {
        BSTR name = nullptr;
        m_pObject->get_accName(Child(nChild), &name);
        return Taken(name);
    }
    LONG Number(HRESULT (STDMETHODCALLTYPE IAccessible::*ask)(VARIANT, VARIANT*), LONG nChild = 0) const
    {
        VARIANT number{};
        EXPECT_EQ((m_pObject->*ask)(Child(nChild), &number), S_OK);
        return V_VT(&number) == VT_I4 ? V_I4(&number) : -1;
    }

private:
    IAccessible* m_pObject = nullptr;
};

class AccessibleObject : public testing::Test
{
protected:
#if defined(_WIN32) // where an object goes through the platform's marshalling even to its own thread
    AccessibleObject()
    {
        CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    }
    ~AccessibleObject() override
    {
        CoUninitialize();
    }
#endif

    Host m_host;
};

TEST_F(AccessibleObject, AButtonTellsAllThatItIs)
{
    GButton button;
    const HWND hwnd = button.Create(10, 20, 80, 24, m_host, 7, L"&Save", 0, SHOWN | GBS_DEFAULT);
    const Object object(hwnd);
    ASSERT_TRUE(object);
    EXPECT_EQ(object.Name(), "Save");
    EXPECT_EQ(object.Number(&IAccessible::get_accRole), ROLE_SYSTEM_PUSHBUTTON);
    EXPECT_EQ(object.Number(&IAccessible::get_accState), STATE_SYSTEM_DEFAULT | STATE_SYSTEM_FOCUSABLE);
    BSTR text = nullptr;
    EXPECT_EQ(object->get_accKeyboardShortcut(Child(0), &text), S_OK);
    EXPECT_EQ(Taken(text), "Alt+S");
    EXPECT_EQ(object->get_accDefaultAction(Child(0), &text), S_OK);
    EXPECT_EQ(Taken(text), "Press");
    EXPECT_EQ(object->get_accDescription(Child(0), &text), S_FALSE);
    EXPECT_EQ(object->get_accValue(Child(0), &text), DISP_E_MEMBERNOTFOUND);
    LONG x = 0, y = 0, cx = 0, cy = 0;
    EXPECT_EQ(object->accLocation(&x, &y, &cx, &cy, Child(0)), S_OK);
    RECT rc{};
    GetWindowRect(hwnd, &rc);
    EXPECT_TRUE(x == rc.left && y == rc.top && cx == 80 && cy == 24);
    LONG nCount = -1;
    EXPECT_EQ(object->get_accChildCount(&nCount), S_OK);
    EXPECT_EQ(nCount, 0);
    m_host.TakeReports();
    EXPECT_EQ(object->accDoDefaultAction(Child(0)), S_OK);
    EXPECT_EQ(m_host.TakeReports(), (test::Reports{"setfocus 7", "click 7"}));
    EnableWindow(hwnd, FALSE);
    EXPECT_EQ(object->accDoDefaultAction(Child(0)), S_FALSE);
}

TEST_F(AccessibleObject, BadQuestionsGetClearErrors)
{
    GScrollbar bar;
    const HWND hwnd = bar.Create(0, 0, 20, 200, m_host, 9, 0, SHOWN);
    const Object object(hwnd);
    ASSERT_TRUE(object);
    BSTR text = nullptr;
    VARIANT odd{};
    V_VT(&odd) = VT_BSTR;
    EXPECT_EQ(object->get_accName(Child(5), &text), S_OK);
    EXPECT_EQ(Taken(text), "line down");
    EXPECT_EQ(object->get_accName(Child(6), &text), E_INVALIDARG);
    EXPECT_EQ(object->get_accName(Child(-1), &text), E_INVALIDARG);
    EXPECT_EQ(object->get_accName(odd, &text), E_INVALIDARG);
    EXPECT_EQ(object->get_accName(Child(0), nullptr), E_POINTER);
    EXPECT_EQ(object->get_accChildCount(nullptr), E_POINTER);
    EXPECT_EQ(object->accSelect(0x100, Child(0)), E_INVALIDARG);
    EXPECT_EQ(object->put_accName(Child(0), nullptr), E_NOTIMPL);
    EXPECT_EQ(object->put_accValue(Child(1), nullptr), DISP_E_MEMBERNOTFOUND);
    VARIANT end{};
    EXPECT_EQ(object->accNavigate(NAVDIR_FIRSTCHILD, Child(0), &end), S_OK);
    ASSERT_EQ(V_VT(&end), VT_DISPATCH);
    VariantClear(&end);
    EXPECT_EQ(object->accNavigate(99, Child(0), &end), E_INVALIDARG);
}

TEST_F(AccessibleObject, AfterTheEndNothingIsConnected)
{
    GButton button;
    const HWND hwnd = button.Create(0, 0, 80, 24, m_host, 7, L"Save", 0, SHOWN);
    const Object object(hwnd);
    ASSERT_TRUE(object);
    button.Destroy();
    BSTR text = nullptr;
    VARIANT answer{};
    LONG n = 0;
    EXPECT_EQ(object->get_accName(Child(0), &text), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(object->get_accRole(Child(0), &answer), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(object->get_accFocus(&answer), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(object->get_accChildCount(&n), CO_E_OBJNOTCONNECTED);
    EXPECT_EQ(object->accDoDefaultAction(Child(0)), CO_E_OBJNOTCONNECTED);
    IDispatch* pParent = nullptr;
    EXPECT_EQ(object->get_accParent(&pParent), CO_E_OBJNOTCONNECTED);
}

TEST_F(AccessibleObject, AnObjectThatLeftItsWindowIsNotConnectedEither)
{
    HWND hwnd = nullptr;
    auto* pButton = new GButton;
    hwnd = pButton->Create(0, 0, 80, 24, m_host, 7, L"Save", 0, SHOWN);
    const Object object(hwnd);
    ASSERT_TRUE(object);
    pButton->Delete(pButton);
    ASSERT_TRUE(IsWindow(hwnd));
    BSTR text = nullptr;
    EXPECT_EQ(object->get_accName(Child(0), &text), CO_E_OBJNOTCONNECTED);
}

bool EndIt(HWND hwnd, int, gesso::AccessibleText* text, void*)
{
    text->name = L"Gone";
    DestroyWindow(hwnd);
    return true;
}

TEST_F(AccessibleObject, AHostMayEndTheControlThatItIsAskedOf)
{
    GButton button;
    const HWND hwnd = button.Create(0, 0, 80, 24, m_host, 7, L"Save", 0, SHOWN);
    const Object object(hwnd);
    ASSERT_TRUE(object);
    gesso::DescribeAccessible(hwnd, EndIt, nullptr);
    BSTR text = nullptr;
    EXPECT_EQ(object->get_accValue(Child(0), &text), DISP_E_MEMBERNOTFOUND);
    EXPECT_FALSE(IsWindow(hwnd));
    EXPECT_EQ(object->get_accName(Child(0), &text), CO_E_OBJNOTCONNECTED);
}

TEST_F(AccessibleObject, ABarOfAControlIsAnObjectBelowItsWindow)
{
    GList list;
    const HWND hwnd = list.Create(0, 0, 120, 100, m_host, 7, GLS_DETAILS, 0, SHOWN | WS_VSCROLL | WS_HSCROLL);
    list.InsertColumn(0, 0, 0, 80, 40, L"Name", 0, LCT_TEXT, nullptr, nullptr, nullptr, nullptr);
    for (int n = 0; n < 50; ++n) {
        list.InsertItem(UINT(-1), 0, nullptr, 0, L"Item", 0);
    }
    const Object bar(hwnd, OBJID_VSCROLL);
    ASSERT_TRUE(bar);
    EXPECT_EQ(bar.Name(), "Vertical");
    EXPECT_EQ(bar.Number(&IAccessible::get_accRole), ROLE_SYSTEM_SCROLLBAR);
    EXPECT_EQ(bar.Name(3), "thumb");
    LONG x = 0, y = 0, cx = 0, cy = 0;
    EXPECT_EQ(bar->accLocation(&x, &y, &cx, &cy, Child(1)), S_OK);
    EXPECT_GT(cx * cy, 0);
    VARIANT hit{};
    EXPECT_EQ(bar->accHitTest(x + cx / 2, y + cy / 2, &hit), S_OK);
    ASSERT_EQ(V_VT(&hit), VT_DISPATCH);
    VariantClear(&hit);
    SetFocus(hwnd);
    EXPECT_EQ(bar->get_accFocus(&hit), S_FALSE);
    list.Destroy();
}

// A listener may do anything, which on the simulated desktop it does while the control still tells.
GCheckBox* g_pToEnd = nullptr;
HWND g_hwndToEnd = nullptr;
void CALLBACK EndControl(HWINEVENTHOOK, DWORD, HWND hwnd, LONG, LONG, DWORD, DWORD)
{
    if (hwnd == g_hwndToEnd && g_pToEnd) {
        DestroyWindow(hwnd);
        delete std::exchange(g_pToEnd, nullptr);
    }
}

TEST_F(AccessibleObject, AListenerMayEndTheControlThatTells)
{
    const HWINEVENTHOOK hHook = SetWinEventHook(EVENT_OBJECT_STATECHANGE, EVENT_OBJECT_NAMECHANGE, nullptr,
                                                EndControl, GetCurrentProcessId(), 0, WINEVENT_OUTOFCONTEXT);
    ASSERT_TRUE(hHook);
    void (*const acts[])(GCheckBox&) = {
        [](GCheckBox& box) { box.SetCheck(BST_CHECKED); },
        [](GCheckBox& box) { box.SetText(L"Other"); },
        [](GCheckBox& box) { EnableWindow(box, FALSE); },
        [](GCheckBox& box) { gesso::SetAccessibleName(box, L"Other"); },
    };
    for (const auto act : acts) {
        g_pToEnd = new GCheckBox;
        g_hwndToEnd = g_pToEnd->Create(0, 0, 80, 24, m_host, 7, L"Keep", 0, SHOWN);
        act(*g_pToEnd);
        test::DispatchAll();
        EXPECT_FALSE(IsWindow(g_hwndToEnd));
        EXPECT_FALSE(g_pToEnd);
    }
    UnhookWinEvent(hHook);
}

} // namespace
