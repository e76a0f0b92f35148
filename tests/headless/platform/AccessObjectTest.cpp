// Accessible objects: those that windows give out, and what the platform says of windows that give none.
#include "AccessWindow.h"

using namespace gesso::headless;
using namespace gesso::headless::test;

namespace {

using AccessObjectTest = DesktopTest;

constexpr LONG FOCUSABLE = STATE_SYSTEM_FOCUSABLE;
constexpr auto CLIENT = static_cast<DWORD>(OBJID_CLIENT);

std::string Told(HWND hwnd)
{
    const Object object(hwnd);
    return object.Name() + "|" + object.Shortcut() + "|" + object.Action() + "|" + object.Value();
}

TEST_F(AccessObjectTest, TheStandardObjectsTellWhatThePlatformsControlsAre)
{
    const HWND top = MakeTop();
    const HWND label = MakeControl(L"STATIC", L"&Name:", top, {0, 0, 50, 20});
    const HWND field = MakeControl(L"EDIT", L"Ada", top, {50, 0, 150, 20}, WS_TABSTOP);
    const HWND secret = MakeControl(L"EDIT", L"1234", top, {50, 20, 150, 40}, WS_TABSTOP | ES_PASSWORD);
    const HWND save = MakeControl(L"BUTTON", L"Save && &close", top, {0, 40, 50, 60}, BS_DEFPUSHBUTTON);
    const HWND check = MakeControl(L"BUTTON", L"&All", top, {0, 60, 50, 80}, BS_AUTOCHECKBOX);
    const HWND radio =
        MakeControl(L"BUTTON", L"One", top, {0, 80, 50, 100}, BS_AUTORADIOBUTTON | WS_DISABLED);
    const HWND box = MakeControl(L"BUTTON", L"Box", top, {0, 100, 50, 120}, BS_GROUPBOX);

    EXPECT_EQ(Told(label), "Name:|Alt+N||");
    EXPECT_EQ(Told(field), "Name:|Alt+N||Ada");
    EXPECT_EQ(Told(secret), "|||") << "another field lies between it and the label";
    EXPECT_EQ(Told(save), "Save & close|Alt+c|Press|");
    EXPECT_EQ(Told(check), "All|Alt+A|Check|");
    SendMessageW(check, BM_SETCHECK, BST_CHECKED, 0);
    EXPECT_EQ(Told(check), "All|Alt+A|Uncheck|");
    EXPECT_EQ(Told(box), "Box|||");
    SetFocus(field);

    const struct
    {
        HWND hwnd;
        LONG role;
        LONG state;
    } rows[] = {
        {top, ROLE_SYSTEM_CLIENT, FOCUSABLE},
        {label, ROLE_SYSTEM_STATICTEXT, STATE_SYSTEM_READONLY},
        {field, ROLE_SYSTEM_TEXT, FOCUSABLE | STATE_SYSTEM_FOCUSED},
        {secret, ROLE_SYSTEM_TEXT, FOCUSABLE | STATE_SYSTEM_PROTECTED},
        {save, ROLE_SYSTEM_PUSHBUTTON, FOCUSABLE | STATE_SYSTEM_DEFAULT},
        {check, ROLE_SYSTEM_CHECKBUTTON, FOCUSABLE | STATE_SYSTEM_CHECKED},
        {radio, ROLE_SYSTEM_RADIOBUTTON, STATE_SYSTEM_UNAVAILABLE},
        {box, ROLE_SYSTEM_GROUPING, 0},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Object(row.hwnd).Role(), row.role) << Object(row.hwnd).Name();
        EXPECT_EQ(Object(row.hwnd).State(), row.state) << Object(row.hwnd).Name();
    }
    BSTR value = nullptr;
    EXPECT_EQ(Object(secret)->get_accValue(Id(), &value), E_ACCESSDENIED);
    ShowWindow(top, SW_HIDE);
    EXPECT_TRUE(Object(field).State() & STATE_SYSTEM_INVISIBLE);
}

TEST_F(AccessObjectTest, TheStandardObjectsDoWhatTheUserCould)
{
    std::vector<WORD> pressed;
    const HWND top = MakeTop({0, 0, 400, 300}, [&](HWND, UINT message, WPARAM wParam, LPARAM) {
        if (message == WM_COMMAND) {
            pressed.push_back(HIWORD(wParam));
        }
        return std::optional<LRESULT>();
    });
    const HWND button = MakeControl(L"BUTTON", L"Go", top, {0, 0, 50, 20});
    const HWND field = MakeControl(L"EDIT", L"", top, {0, 20, 50, 40});
    const HWND fixed = MakeControl(L"EDIT", L"stays", top, {0, 40, 50, 60}, ES_READONLY);

    EXPECT_EQ(Object(button)->accDoDefaultAction(Id()), S_OK);
    EXPECT_TRUE(pressed.empty()) << "posted, so that the client does not wait";
    Pump();
    EXPECT_EQ(pressed, std::vector<WORD>{BN_CLICKED});
    EnableWindow(button, FALSE);
    EXPECT_EQ(Object(button)->accDoDefaultAction(Id()), S_FALSE);
    Pump();
    EXPECT_EQ(pressed.size(), 1U);

    const BSTR text = MakeString("typed");
    EXPECT_EQ(Object(field)->put_accValue(Id(), text), S_OK);
    EXPECT_EQ(Object(fixed)->put_accValue(Id(), text), S_FALSE);
    SysFreeString(text);
    EXPECT_EQ(Object(field).Value() + " " + Object(fixed).Value(), "typed stays");
    EXPECT_EQ(Object(field)->accSelect(SELFLAG_TAKEFOCUS, Id()), S_OK);
    EXPECT_EQ(GetFocus(), field);
    EXPECT_EQ(Object(button)->accSelect(SELFLAG_TAKEFOCUS, Id()), S_FALSE);
}

TEST_F(AccessObjectTest, AWindowHasItsClientAndThatTheWindowsInIt)
{
    const HWND top = MakeTop({100, 100, 300, 300});
    const HWND back = MakeControl(L"BUTTON", L"Back", top, {0, 0, 50, 20});
    const HWND next = MakeControl(L"BUTTON", L"Next", top, {50, 0, 100, 20});
    const Object window(top, OBJID_WINDOW);
    EXPECT_EQ(window.Role(), ROLE_SYSTEM_WINDOW);

    VARIANT children[3];
    LONG got = 0;
    EXPECT_EQ(AccessibleChildren(window.Get(), 0, 3, children, &got), S_FALSE);
    ASSERT_EQ(got, 1);
    const Object client(V_DISPATCH(&children[0]));
    EXPECT_EQ(client.Role(), ROLE_SYSTEM_CLIENT);
    EXPECT_EQ(AccessibleChildren(client.Get(), 0, 2, children, &got), S_OK);
    ASSERT_EQ(got, 2);
    const Object first(V_DISPATCH(&children[0]));
    const Object second(V_DISPATCH(&children[1]));
    EXPECT_EQ(first.Window(), back);
    EXPECT_EQ(second.Window(), next);
    EXPECT_EQ(second.Role(), ROLE_SYSTEM_WINDOW);
    EXPECT_EQ(AccessibleChildren(client.Get(), 1, 2, children, &got), S_FALSE);
    ASSERT_EQ(got, 1);
    EXPECT_EQ(Object(V_DISPATCH(&children[0])).Window(), next);

    IDispatch* parent = nullptr;
    EXPECT_EQ(second->get_accParent(&parent), S_OK);
    EXPECT_EQ(Object(parent).Role(), ROLE_SYSTEM_CLIENT);
    SetFocus(next);
    VARIANT focus{};
    EXPECT_EQ(client->get_accFocus(&focus), S_OK);
    ASSERT_EQ(V_VT(&focus), VT_DISPATCH);
    EXPECT_EQ(Object(V_DISPATCH(&focus)).Window(), next);

    LONG x = 0, y = 0, cx = 0, cy = 0;
    EXPECT_EQ(Object(next)->accLocation(&x, &y, &cx, &cy, Id()), S_OK);
    EXPECT_EQ(std::vector({x, y, cx, cy}), (std::vector<LONG>{150, 100, 50, 20}));
    VARIANT hit{};
    EXPECT_EQ(client->accHitTest(299, 299, &hit), S_OK);
    EXPECT_EQ(V_VT(&hit), VT_I4);
    EXPECT_EQ(client->accHitTest(300, 299, &hit), S_FALSE);
    EXPECT_EQ(V_VT(&hit), VT_EMPTY);
}

TEST_F(AccessObjectTest, BarsAndTheCaretAreObjectsToo)
{
    const HWND top = MakeTop({0, 0, 200, 200});
    EXPECT_TRUE(Object(top, OBJID_VSCROLL).State() & STATE_SYSTEM_INVISIBLE);
    SCROLLINFO info{};
    info.cbSize = sizeof(info);
    info.fMask = SIF_ALL;
    info.nMax = 99;
    info.nPage = 20;
    info.nPos = 40;
    SetScrollInfo(top, SB_VERT, &info, TRUE);
    const Object bar(top, OBJID_VSCROLL);
    EXPECT_EQ(bar.Role(), ROLE_SYSTEM_SCROLLBAR);
    EXPECT_EQ(bar.Name() + " " + bar.Value(), "Vertical 50%");
    EXPECT_EQ(bar.State() & STATE_SYSTEM_INVISIBLE, 0);

    CreateCaret(top, nullptr, 2, 10);
    SetCaretPos(30, 40);
    EXPECT_EQ(Object(top, OBJID_CARET).State(), STATE_SYSTEM_INVISIBLE);
    ShowCaret(top);
    const Object caret(top, OBJID_CARET);
    LONG x = 0, y = 0, cx = 0, cy = 0;
    EXPECT_EQ(caret->accLocation(&x, &y, &cx, &cy, Id()), S_OK);
    EXPECT_EQ(std::vector({x, y, cx, cy, caret.State()}), (std::vector<LONG>{30, 40, 2, 10, 0}));
    EXPECT_EQ(Object(top, OBJID_TITLEBAR).Result(), E_NOTIMPL);
}

TEST_F(AccessObjectTest, AWindowThatIsGoneHasNothingToTell)
{
    const HWND top = MakeTop();
    const Object object(top);
    const Object window(top, OBJID_WINDOW);
    BSTR text = nullptr;
    EXPECT_EQ(object->get_accName(Id(7), &text), E_INVALIDARG) << "no child goes by a number";
    DestroyWindow(top);
    EXPECT_EQ(object.State(), STATE_SYSTEM_INVISIBLE);
    EXPECT_EQ(object->get_accName(Id(), &text), E_INVALIDARG);
    EXPECT_EQ(object->accDoDefaultAction(Id()), E_INVALIDARG);
    LONG count = -1;
    EXPECT_EQ(window->get_accChildCount(&count), S_OK);
    EXPECT_EQ(count, 0);
    EXPECT_EQ(Object(top).Result(), E_FAIL);
    EXPECT_EQ(Object(HWND{}).Result(), E_FAIL);
}

TEST_F(AccessObjectTest, WhatAWindowAnswersIsGoodOnce)
{
    Story story;
    const HWND hwnd = MakeTeller(story, MakeTop());
    auto* teller = new Teller(story);
    const LRESULT answer = LresultFromObject(IID_IAccessible, 0, teller);
    EXPECT_EQ(story.references, 2);
    void* taken = nullptr;
    EXPECT_EQ(ObjectFromLresult(answer, IID_IAccessible, 0, &taken), S_OK);
    EXPECT_EQ(taken, static_cast<IAccessible*>(teller)) << "in one thread it is the object itself";
    void* again = nullptr;
    EXPECT_EQ(ObjectFromLresult(answer, IID_IAccessible, 0, &again), E_FAIL);
    EXPECT_EQ(again, nullptr);
    EXPECT_EQ(story.references, 2);
    teller->Release();
    teller->Release();
    EXPECT_EQ(LresultFromObject(IID_IAccessible, 0, nullptr), E_INVALIDARG);

    EXPECT_EQ(Object(hwnd).Name(), "Shelf");
    EXPECT_EQ(Object(hwnd).Window(), hwnd) << "by its parent";
    EXPECT_EQ(Object(hwnd, OBJID_WINDOW).Role(), ROLE_SYSTEM_WINDOW);
    EXPECT_EQ(story.references, 0);
}

TEST_F(AccessObjectTest, WhatNobodyTakesIsCountedAndGoesWithTheDesktop)
{
    Story story;
    const HWND hwnd = MakeTeller(story, MakeTop());
    const int before = Live()[Kind::AccessibleObject];
    SendMessageW(hwnd, WM_GETOBJECT, 0, OBJID_CLIENT);
    EXPECT_EQ(Live()[Kind::AccessibleObject], before + 1);
    EXPECT_EQ(story.references, 1);
    Reset();
    EXPECT_EQ(Live()[Kind::AccessibleObject], before);
    EXPECT_EQ(story.references, 0);

    const Census census = Live();
    const HWND top = MakeTop();
    IAccessible* kept = nullptr;
    AccessibleObjectFromWindow(top, CLIENT, IID_IAccessible, reinterpret_cast<void**>(&kept));
    DestroyWindow(top);
    EXPECT_NE(Live(), census) << "a client that does not let go is found";
    kept->Release();
    EXPECT_EQ(Live(), census);
}

TEST_F(AccessObjectTest, PointsAndEventsLeadToTheChild)
{
    const HWND top = MakeTop({100, 100, 300, 300});
    Story story;
    story.items = {"one", "two"};
    const HWND hwnd = MakeTeller(story, top, {50, 50, 150, 150});

    IAccessible* found = nullptr;
    VARIANT child{};
    EXPECT_EQ(AccessibleObjectFromPoint({160, 165}, &found, &child), S_OK);
    EXPECT_EQ(V_I4(&child), 2);
    EXPECT_EQ(Object(found).Name(), "Shelf");
    EXPECT_EQ(AccessibleObjectFromPoint({101, 101}, &found, &child), S_OK);
    EXPECT_EQ(V_I4(&child), CHILDID_SELF);
    EXPECT_EQ(Object(found).Window(), top);
    EXPECT_EQ(AccessibleObjectFromEvent(hwnd, CLIENT, 2, &found, &child), S_OK);
    EXPECT_EQ(V_I4(&child), 2);
    EXPECT_EQ(Object(found).Name(), "Shelf");

    VARIANT children[3];
    LONG got = 0;
    const Object shelf(hwnd);
    EXPECT_EQ(AccessibleChildren(shelf.Get(), 1, 3, children, &got), S_FALSE);
    EXPECT_EQ(got, 1);
    EXPECT_EQ(V_I4(&children[0]), 2) << "without an enumeration they are counted";
    EXPECT_EQ(V_VT(&children[1]), VT_EMPTY);
}

TEST_F(AccessObjectTest, TextsAndValuesAreCountedWhereverTheyGo)
{
    const int before = Live()[Kind::BasicString];
    const BSTR text = SysAllocStringLen(L"a\0b", 3);
    EXPECT_EQ(SysStringLen(text), 3U);
    EXPECT_EQ(SysStringLen(nullptr), 0U);
    EXPECT_EQ(SysAllocString(nullptr), nullptr);
    VARIANT value{};
    V_VT(&value) = VT_BSTR;
    V_BSTR(&value) = text;
    VARIANT copy;
    VariantInit(&copy);
    EXPECT_EQ(VariantCopy(&copy, &value), S_OK);
    EXPECT_NE(V_BSTR(&copy), text);
    EXPECT_EQ(Live()[Kind::BasicString], before + 2);
    EXPECT_EQ(VariantClear(&value), S_OK);
    EXPECT_EQ(Taken(V_BSTR(&copy)), std::string("a\0b", 3));
    EXPECT_EQ(Live()[Kind::BasicString], before);

    Story story;
    auto* teller = new Teller(story);
    V_VT(&value) = VT_DISPATCH;
    V_DISPATCH(&value) = teller;
    VariantInit(&copy);
    VariantCopy(&copy, &value);
    EXPECT_EQ(story.references, 2);
    VariantClear(&copy);
    VariantClear(&value);
    EXPECT_EQ(story.references, 0);
    V_VT(&value) = VT_ARRAY | VT_I4;
    EXPECT_EQ(VariantClear(&value), DISP_E_BADVARTYPE);
}

TEST_F(AccessObjectTest, FaultsLeaveNothingBehind)
{
    Story story;
    const HWND hwnd = MakeTeller(story, MakeTop());
    Fail("AccessibleObjectFromWindow", 1, ERROR_ACCESS_DENIED);
    EXPECT_EQ(Object(hwnd).Result(), HRESULT_FROM_WIN32(ERROR_ACCESS_DENIED));
    Fail("LresultFromObject");
    EXPECT_EQ(Object(hwnd).Role(), ROLE_SYSTEM_CLIENT) << "the platform's own, where the window gives none";
    Fail("SysAllocStringLen");
    EXPECT_EQ(Object(hwnd).Name(), "");
    EXPECT_EQ(story.references, 0);
}

TEST_F(AccessObjectTest, TheOperationsAreFoundByName)
{
    const HMODULE module = LoadLibraryW(L"oleacc.dll");
    ASSERT_NE(module, nullptr);
    EXPECT_NE(GetProcAddress(module, "LresultFromObject"), nullptr);
    EXPECT_EQ(GetProcAddress(module, "NoSuchOperation"), nullptr);
    FreeLibrary(module);
    ITypeLib* library = nullptr;
    EXPECT_EQ(LoadRegTypeLib(LIBID_Accessibility, 1, 1, 0, &library), TYPE_E_LIBNOTREGISTERED);
}

} // namespace
