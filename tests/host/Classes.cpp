// Each class made, overridden, recognised, copied, and destroyed from both sides.
#include "Checks.h"

#include <gesso/edit/GComboBoxList.h>

namespace {

// The host's own class over one of the library's. Its virtuals are called by the library's code, its objects
// are destroyed by it.
template <class BASE> class Hosts : public BASE
{
public:
    using BASE::BASE;
    Hosts() = default;
    Hosts(const Hosts&) = default;
    ~Hosts() override { ++s_nDestroyed; }
    void Invalidate(int bErase) override
    {
        ++nInvalidated;
        BASE::Invalidate(bErase);
    }
    HWND GetParent() const override
    {
        ++nAsked;
        return BASE::GetParent();
    }

    int nInvalidated = 0;
    mutable int nAsked = 0;
    static int s_nDestroyed;
};
template <class BASE> int Hosts<BASE>::s_nDestroyed = 0;

constexpr DWORD STYLE = WS_CHILD | WS_VISIBLE | WS_TABSTOP;
constexpr int ID = 77;

template <class C> HWND MakeWindow(C& control, HWND hwndParent)
{
    if constexpr (requires { control.Create(1, 2, 90, 30, hwndParent, ID, L"Text", 0, STYLE); }) {
        return control.Create(1, 2, 90, 30, hwndParent, ID, L"Text", 0, STYLE);
    } else {
        return control.Create(1, 2, 90, 30, hwndParent, ID, 0, STYLE);
    }
}
HWND MakeWindow(GEdit& edit, HWND hwndParent)
{
    return edit.Create(1, 2, 90, 30, hwndParent, ID, L"Text", STYLE, 0);
}
HWND MakeWindow(GComboBox& combo, HWND hwndParent)
{
    return combo.Create(1, 2, 90, 30, hwndParent, ID, STYLE, 0);
}
HWND MakeWindow(GCommandButton& button, HWND hwndParent)
{
    return button.Create(1, 2, 90, 30, hwndParent, ID, L"Text", L"Note", 0, STYLE);
}
HWND MakeWindow(GList& list, HWND hwndParent)
{
    return list.Create(1, 2, 90, 30, hwndParent, ID, GLS_DETAILS, 0, STYLE);
}
HWND MakeWindow(GRibbon& ribbon, HWND hwndParent)
{
    return ribbon.Create(1, 2, 90, 30, hwndParent, GetModuleHandleW(nullptr));
}

// What most classes answer by the virtuals that the host overrides.
void Provoke(HWND hwnd)
{
    SendMessageW(hwnd, WM_SETFONT, SendMessageW(hwnd, WM_GETFONT, 0, 0), 1);
    SendMessageW(hwnd, WM_ENABLE, TRUE, 0);
    SendMessageW(hwnd, WM_THEMECHANGED, 0, 0);
    SendMessageW(hwnd, WM_SETFOCUS, 0, 0);
    SendMessageW(hwnd, WM_KILLFOCUS, 0, 0);
}

// OTHER is a class that the object is not of.
template <class BASE, class OTHER> void CheckClass(const char* pszName)
{
    using MINE = Hosts<BASE>;
    Group(pszName);
    HostWindow host;
    MINE::s_nDestroyed = 0;

    auto* pMine = new MINE;
    BASE* pBase = pMine; // by the base's own table, if a virtual
    HWND hwnd = MakeWindow(*pBase, host.hwnd);
    Check(IsWindow(hwnd) && pMine->GetHwnd() == hwnd, "the window is made");
    GWnd* pFound = GWnd::FromHwnd(hwnd);
    Check(pFound == pMine, "the window finds the object");
    Check(dynamic_cast<MINE*>(pFound) == pMine, "the object is recognised as the host's class");
    Check(dynamic_cast<BASE*>(pFound) == pBase, "the object is recognised as the library's class");
    Check(!dynamic_cast<OTHER*>(pFound), "the object is not taken for another class");
    RECT rc{};
    Check(pBase->GetPos(&rc) && rc.right - rc.left == 90, "a virtual of the base answers");
    const int nBefore = pMine->nInvalidated + pMine->nAsked;
    Provoke(hwnd);
    Check(pMine->nInvalidated + pMine->nAsked > nBefore, "the library calls what the host overrides");

    {
        MINE copy(*pMine);
        Check(copy.GetHwnd() == hwnd, "a copy has the same window");
    }
    Check(MINE::s_nDestroyed == 1 && GWnd::FromHwnd(hwnd) == pMine, "the copy goes and the object stays");

    delete static_cast<GWnd*>(pMine);
    Same(MINE::s_nDestroyed, 2, "the host deletes by the base");
    Provoke(hwnd);
    Check(IsWindow(hwnd), "the window stays, without an object");
    DestroyWindow(hwnd);

    pBase = pMine = new MINE;
    hwnd = MakeWindow(*pBase, host.hwnd);
    DestroyWindow(hwnd);
    Check(MINE::s_nDestroyed == 2 && !IsWindow(hwnd), "the window goes first and the object stays");
    GWnd* pWnd = pMine;
    pWnd->Delete(pWnd);
    Same(MINE::s_nDestroyed, 3, "the library deletes the host's object");

    pBase = pMine = new MINE;
    hwnd = MakeWindow(*pBase, host.hwnd);
    gesso::OwnByWindow(pMine);
    DestroyWindow(hwnd);
    Same(MINE::s_nDestroyed, 4, "the window deletes the host's object");
}

// Of classes whose windows are no controls of a parent: objects alone.
template <class BASE, class OTHER, class... ARGS> void CheckObject(const char* pszName, ARGS... args)
{
    using MINE = Hosts<BASE>;
    Group(pszName);
    MINE::s_nDestroyed = 0;
    auto* pMine = new MINE(args...);
    GWnd* pWnd = pMine;
    Check(dynamic_cast<MINE*>(pWnd) == pMine && dynamic_cast<BASE*>(pWnd) == pMine,
          "the object is recognised");
    Check(!dynamic_cast<OTHER*>(pWnd), "the object is not taken for another class");
    pWnd->Invalidate(1);
    Same(pMine->nInvalidated, 1, "what the host overrides is called");
    Check(!pWnd->GetHwnd() && !pWnd->GetParent() && pMine->nAsked == 1, "there is no window");
    delete pWnd;
    Same(MINE::s_nDestroyed, 1, "the host deletes by the base");
    pWnd = new MINE(args...);
    pWnd->Delete(pWnd);
    Same(MINE::s_nDestroyed, 2, "the library deletes the host's object");
}

// What CreateControl makes is the library's from the start.
template <class CLASS> void CheckKind(int nKind, const char* pszName)
{
    Group(pszName);
    HostWindow host;
    auto* pControl = static_cast<CLASS*>(CreateControl(nKind));
    if (!Check(pControl != nullptr, "CreateControl makes it")) {
        return;
    }
    Check(dynamic_cast<CLASS*>(static_cast<GWnd*>(pControl)) == pControl,
          "what CreateControl makes is recognised");
    const HWND hwnd = MakeWindow(*pControl, host.hwnd);
    Check(GWnd::FromHwnd(hwnd) == pControl, "its window finds it");
    delete pControl; // made by the library, deleted by the host
    Provoke(hwnd);
    Check(IsWindow(hwnd), "the host deletes it: its window stays, without an object");
    pControl = static_cast<CLASS*>(CreateControl(nKind));
    const HWND hwndOther = MakeWindow(*pControl, host.hwnd);
    pControl->Delete(pControl);
    Provoke(hwndOther);
    Check(IsWindow(hwndOther), "the library deletes it: its window stays as well");
}

void CheckKinds()
{
    CheckKind<GLabel>(GCK_LABEL, "GLabel by kind");
    CheckKind<GButton>(GCK_BUTTON, "GButton by kind");
    CheckKind<GCheckBox>(GCK_CHECKBOX, "GCheckBox by kind");
    CheckKind<GRadioButton>(GCK_RADIOBUTTON, "GRadioButton by kind");
    CheckKind<GCommandButton>(GCK_COMMANDBUTTON, "GCommandButton by kind");
    CheckKind<GComboBox>(GCK_COMBOBOX, "GComboBox by kind");
    CheckKind<GProgressBar>(GCK_PROGRESSBAR, "GProgressBar by kind");
    CheckKind<GSeparator>(GCK_SEPARATOR, "GSeparator by kind");
    CheckKind<GList>(GCK_LIST, "GList by kind");
    CheckKind<GTree>(GCK_TREE, "GTree by kind");
    Group("CreateControl");
    Check(!CreateControl(0) && !CreateControl(11), "other numbers make nothing");
}

// The top-level window runs on an object of its own.
void CheckWindow()
{
    Group("GWindow2's window");
    GWindow2 window;
    const HWND hwnd = window.Create(60, 60, 300, 200, nullptr);
    Check(IsWindow(hwnd), "the window is made");
    GWnd* pInside = GWnd::FromHwnd(hwnd);
    Check(pInside && pInside != &window, "it runs on another object");
    Check(dynamic_cast<GWindow2*>(pInside) != nullptr, "which the host recognises");
    Check(!dynamic_cast<GButton*>(pInside), "and takes for no other");
    DestroyWindow(hwnd);
    pInside->Delete(pInside);
    MSG msg;
    while (PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE)) { // WM_QUIT among them
    }
}

class HostsPage : public GRibbonPage
{
public:
    using GRibbonPage::GRibbonPage;
    ~HostsPage() override { ++s_nDestroyed; }
    void Create(GRibbon* pRibbon) override
    {
        ++nCreated;
        GRibbonPage::Create(pRibbon);
    }
    int nCreated = 0;
    static int s_nDestroyed;
};
int HostsPage::s_nDestroyed = 0;

void CheckRibbonPages()
{
    Group("GRibbonPage");
    HostWindow host;
    auto* pRibbon = new GRibbon;
    GRibbon& ribbon = *pRibbon;
    ribbon.Create(0, 0, 400, 120, host.hwnd, GetModuleHandleW(nullptr));
    auto* pPage = new HostsPage(5, L"Page");
    ribbon.AddPage(pPage, 5, L"Page");
    Same(pPage->nCreated, 1, "the ribbon calls the host's page");
    Check(ribbon.GetPage(5) == pPage, "the ribbon finds it by its id");
    Check(dynamic_cast<HostsPage*>(ribbon.GetPage(5)) == pPage, "and it is recognised");
    Check(pPage->InsertGroup(0, 1, L"Group", 0) != 0, "a group is made");
    ribbon.RemovePage(pPage);
    Check(!ribbon.GetPage(5), "the page is removed");
    pPage->Delete(pPage);
    Same(HostsPage::s_nDestroyed, 1, "the page, the host's again, is deleted by the library");
    pPage = new HostsPage(7, L"Left");
    ribbon.AddPage(pPage, 7, nullptr);
    ribbon.AddPage(nullptr, 6, L"Made");
    Check(ribbon.GetPage(6) && !dynamic_cast<HostsPage*>(ribbon.GetPage(6)), "a page that the ribbon makes");
    GRibbonPage* pMade = ribbon.MakePage(8, L"Spare");
    Check(pMade != nullptr, "one that is the host's to delete");
    delete pMade;
    delete pRibbon;
    Same(HostsPage::s_nDestroyed, 2, "the ribbon deletes the pages that it has");
}

} // namespace

void CheckClasses()
{
    CheckClass<GLabel, GButton>("GLabel");
    CheckClass<GButton, GCheckBox>("GButton");
    CheckClass<GCheckBox, GRadioButton>("GCheckBox");
    CheckClass<GRadioButton, GCheckBox>("GRadioButton");
    CheckClass<GCommandButton, GButton>("GCommandButton");
    CheckClass<GNavigationButton, GButton>("GNavigationButton");
    CheckClass<GProgressBar, GLabel>("GProgressBar");
    CheckClass<GSeparator, GLabel>("GSeparator");
    CheckClass<GScrollbar, GWndScroll>("GScrollbar");
    CheckClass<GEdit, GComboBox>("GEdit");
    CheckClass<GComboBox, GEdit>("GComboBox");
    CheckClass<GList, GTree>("GList");
    CheckClass<GTree, GList>("GTree");
    CheckClass<GNavigationBar, GTree>("GNavigationBar");
    CheckClass<GRibbon, GWndScroll>("GRibbon");
    CheckObject<GWndScroll, GList>("GWndScroll");
    CheckObject<GComboBoxList, GComboBox>("GComboBoxList");
    CheckObject<GRightClickMenu, GWndScroll>("GRightClickMenu");
    CheckObject<GWizard, GTaskDialog>("GWizard");
    CheckObject<GWindow2, GButton>("GWindow2");
    CheckKinds();
    CheckWindow();
    CheckRibbonPages();
}
