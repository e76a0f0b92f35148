// What a ribbon does in Modern: the keyboard, the telling of tabs, and hosted windows that follow their page.

#include "../support/Interception.h"
#include "../support/Keys.h"
#include "../support/User.h"
#include "../support/WithBehavior.h"
#include "RibbonTestSupport.h"

#include <gtest/gtest.h>

#include <functional>

using namespace test::ribbon;

namespace {

constexpr int TAB_CHANGED = -700;
constexpr UINT CUT = 11, COPY = 12, PASTE = 13, RULER = 14;

// Beside an edit field: page 1 with two groups of items, page 2 that hosts a window, page 3 without items.
class RibbonModernTest : public testing::Test
{
protected:
    RibbonModernTest()
    {
        field.Create(0, 130, 100, 20, host, 5, L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 0);
        hwnd = CreateRibbon(ribbon, host);
        for (DWORD i = 1; i <= 3; i++) {
            ribbon.AddPage(new OpenPage(i, L"Page"), 0, nullptr);
            Page(i).InsertGroup(0, 1, L"Group", 0);
        }
        InsertButton(Page(1), 1, CUT, RIS_SMALL, L"Cut");
        InsertButton(Page(1), 1, COPY, RIS_SMALL, L"Copy");
        Page(1).InsertGroup(1, 2, L"Hidden", 60);
        InsertButton(Page(1), 2, PASTE, RIS_LARGE, L"Paste");
        Page(1).InsertGroup(2, 3, L"Second", 0);
        InsertCheckBox(Page(1), 3, RULER, false, L"Ruler");
        Page(2).InsertGroup(1, 4, L"Hosts", 200);
        host.onNotify = [this](const NMHDR& header) {
            if (static_cast<int>(header.code) == TAB_CHANGED) {
                told.push_back(reinterpret_cast<const GLISTNOTIFY&>(header).iItem);
                if (onTabChanged) {
                    onTabChanged();
                }
            }
        };
        host.TakeReports();
    }

    OpenPage& Page(DWORD nId) { return static_cast<OpenPage&>(*ribbon.GetPage(nId)); }
    HWND HostWindow(DWORD nPage, bool fVisible = true)
    {
        const HWND hwndHosted = CreateWindowExW(0, L"STATIC", nullptr, WS_CHILD | (fVisible ? WS_VISIBLE : 0),
                                                0, 30, 50, 20, hwnd, nullptr, nullptr, nullptr);
        Page(nPage).AddWindow(4, hwndHosted);
        return hwndHosted;
    }
    std::vector<int> TakeTold() { return std::exchange(told, {}); }
    Reports TakeCommands()
    {
        Reports reports = host.TakeReports();
        std::erase_if(reports, [](const std::string& report) { return !report.starts_with("click"); });
        return reports;
    }
    void Key(UINT vk, LPARAM lParam = 0) { SendMessageW(hwnd, WM_KEYDOWN, vk, lParam); }
    // Presses the item that the keyboard is on, and tells which one it is.
    Reports Pressed()
    {
        host.TakeReports();
        Key(VK_RETURN);
        return TakeCommands();
    }

    Modern modern;
    Host host;
    GEdit field;
    OpenRibbon ribbon;
    HWND hwnd = nullptr;
    std::vector<int> told;
    std::function<void()> onTabChanged;
};

bool IsSeen(HWND hwnd)
{
    return GetWindowLongW(hwnd, GWL_STYLE) & WS_VISIBLE;
}

} // namespace

TEST_F(RibbonModernTest, ArrowsGoOverTabsAndItemsAndStopAtTheEnds)
{
    SetFocus(field);
    SetFocus(hwnd);
    EXPECT_EQ(Pressed(), Reports{}) << "on a tab there is nothing to press";
    for (const UINT vk : {VK_LEFT, VK_RIGHT, VK_RIGHT, VK_RIGHT, VK_LEFT, VK_HOME, VK_END, VK_HOME}) {
        Key(vk);
    }
    EXPECT_EQ(TakeTold(), (std::vector{1, 2, 1, 0, 2, 0}));

    Key(VK_DOWN);
    EXPECT_EQ(Pressed(), Reports{"click 11"});
    Key(VK_LEFT);
    EXPECT_EQ(Pressed(), Reports{"click 11"}) << "the first";
    Key(VK_RIGHT);
    EXPECT_EQ(Pressed(), Reports{"click 12"});
    Key(VK_RIGHT);
    EXPECT_EQ(Pressed(), Reports{"click 14 value 1"}) << "what is not drawn is left out";
    Key(VK_RIGHT);
    Key(VK_DOWN);
    host.TakeReports();
    Key(VK_SPACE);
    EXPECT_EQ(TakeCommands(), Reports{"click 14"}) << "still the last, and now unchecked";
    Key(VK_RETURN, LPARAM{KF_REPEAT} << 16);
    EXPECT_EQ(TakeCommands(), Reports{}) << "a key that is held";
    Key(VK_HOME);
    EXPECT_EQ(Pressed(), Reports{"click 11"});
    Key(VK_UP);
    EXPECT_EQ(Pressed(), Reports{});
    Key(VK_RIGHT);
    EXPECT_EQ(TakeTold(), std::vector{1});
    EXPECT_EQ(GetFocus(), hwnd);
}

TEST_F(RibbonModernTest, CtrlAndThePageKeysChangeTheTabFromEverywhere)
{
    SetFocus(hwnd);
    Key(VK_DOWN);
    Key(VK_NEXT);
    EXPECT_EQ(TakeTold(), std::vector<int>{}) << "without Ctrl";
    {
        const HeldKeys ctrl{VK_CONTROL};
        Key(VK_NEXT);
        ribbon.SetStatus(0, 0);
        Key(VK_PRIOR);
    }
    EXPECT_EQ(TakeTold(), std::vector{1}) << "the first is hidden";
    ribbon.SetStatus(0, RIBBON_TAB_VISIBLE);
    ribbon.SetActive(0);
    EXPECT_EQ(Pressed(), Reports{}) << "on the tab again";
}

TEST_F(RibbonModernTest, TheKeyboardStaysOnItsItem)
{
    SetFocus(hwnd);
    Key(VK_DOWN);
    Key(VK_RIGHT);
    InsertButton(Page(1), 1, 20, RIS_SMALL, L"New", -1, CUT);
    Page(1).InsertGroup(0, 9, L"In front", 0);
    EXPECT_EQ(Pressed(), Reports{"click 12"});
    Page(1).RemoveItem(1, COPY);
    EXPECT_EQ(Pressed(), Reports{}) << "on the tab";
}

TEST_F(RibbonModernTest, ItIsOneTabStopAndEscGoesBack)
{
    SetFocus(field);
    user::TypeKey(VK_TAB);
    user::Pump(host);
    EXPECT_EQ(GetFocus(), hwnd);
    user::TypeKey(VK_DOWN);
    user::TypeKey(VK_RETURN);
    user::Pump(host);
    const Reports reported{"click 5 code 256", "click 5 code 512",
                           "click 11"}; // the field's focus, and the item
    EXPECT_EQ(TakeCommands(), reported) << "and no default button";
    user::TypeKey(VK_ESCAPE);
    user::Pump(host);
    EXPECT_EQ(GetFocus(), field.GetHwnd());
    EXPECT_EQ(TakeCommands(), Reports{"click 5 code 256"});
    user::TypeKey(VK_TAB);
    user::TypeKey(VK_TAB);
    user::Pump(host);
    EXPECT_EQ(GetFocus(), field.GetHwnd());
    HoldKeys({});

    Click(hwnd, MiddleOf(Page(1), 0, 0));
    EXPECT_EQ(GetFocus(), field.GetHwnd()) << "a click takes no focus";
}

TEST_F(RibbonModernTest, EscIsTheDialogsWhereThereIsNoWayBack)
{
    SetFocus(field);
    SetFocus(hwnd);
    MSG message{hwnd, WM_KEYDOWN, VK_ESCAPE, 0, 0, {}};
    const auto wants = [&] {
        return SendMessageW(hwnd, WM_GETDLGCODE, VK_ESCAPE, reinterpret_cast<LPARAM>(&message)) &
               DLGC_WANTMESSAGE;
    };
    EXPECT_TRUE(wants());
    EnableWindow(field, FALSE);
    EXPECT_FALSE(wants());
    Key(VK_ESCAPE);
    EXPECT_EQ(GetFocus(), hwnd);
}

TEST_F(RibbonModernTest, EachChangeOfTheTabIsToldOnce)
{
    ribbon.SetActive(0);
    EXPECT_EQ(TakeTold(), std::vector<int>{}) << "it was";
    ribbon.SetActive(2);
    ribbon.SetActive(2);
    EXPECT_EQ(TakeTold(), std::vector{2});
    ribbon.SetActive(3);
    ribbon.SetActive(RIBBON_NONE);
    EXPECT_EQ(TakeTold(), std::vector{-1}) << "none, twice";
    ribbon.SetActive(1);
    ribbon.SetStatus(1, 0);
    ribbon.SetStatus(0, 0);
    EXPECT_EQ(TakeTold(), (std::vector{1, 2}));
    ribbon.SetStatus(0, RIBBON_TAB_VISIBLE);
    Click(hwnd, 5, 10);
    EXPECT_EQ(TakeTold(), std::vector{0});
}

TEST_F(RibbonModernTest, TheActiveTabGoesWithItsPage)
{
    ribbon.SetActive(1);
    TakeTold();
    for (const DWORD nId : {1, 3}) {
        GRibbonPage* pPage = ribbon.GetPage(nId);
        ribbon.RemovePage(pPage);
        delete pPage;
    }
    EXPECT_EQ(ribbon.m_nActive, 0u);
    EXPECT_EQ(TakeTold(), std::vector<int>{}) << "the same page";
    GRibbonPage* pPage = ribbon.GetPage(2);
    ribbon.RemovePage(pPage);
    delete pPage;
    EXPECT_EQ(TakeTold(), std::vector{-1});
    ribbon.AddPage(nullptr, 7, L"New");
    EXPECT_EQ(ribbon.m_nActive, RIBBON_NONE);
}

TEST_F(RibbonModernTest, HostedWindowsShowWithTheirPage)
{
    const HWND first = HostWindow(2);
    const HWND second = HostWindow(2, false);
    EXPECT_FALSE(IsSeen(first)) << "another page is active";
    ribbon.SetActive(1);
    EXPECT_TRUE(IsSeen(first));
    EXPECT_TRUE(IsSeen(second));
    ShowWindow(second, SW_HIDE);
    ribbon.SetActive(0);
    EXPECT_FALSE(IsSeen(first));
    ribbon.SetActive(1);
    EXPECT_TRUE(IsSeen(first));
    EXPECT_FALSE(IsSeen(second)) << "the host has hidden it";

    GRibbonPage* pPage = ribbon.GetPage(2);
    ribbon.RemovePage(pPage);
    EXPECT_FALSE(IsSeen(first));
    ribbon.AddPage(pPage, 0, nullptr);
    EXPECT_FALSE(IsSeen(first));
    ribbon.SetActive(2);
    EXPECT_TRUE(IsSeen(first));
    const HWND third = HostWindow(2, false);
    EXPECT_TRUE(IsSeen(third));
    DestroyWindow(first);
    ribbon.SetActive(0);
    EXPECT_FALSE(IsSeen(third));
}

TEST_F(RibbonModernTest, EnterGoesIntoAHostedWindow)
{
    InsertButton(Page(2), 1, CUT, RIS_SMALL, L"Cut");
    HostWindow(2); // no stop
    const HWND hosted = HostWindow(2);
    SetWindowLongW(hosted, GWL_STYLE, GetWindowLongW(hosted, GWL_STYLE) | WS_TABSTOP);
    Page(2).InsertGroup(4, 5, L"Behind", 0);
    InsertButton(Page(2), 5, COPY, RIS_SMALL, L"Copy");
    SetFocus(field);
    SetFocus(hwnd);
    for (const UINT vk : {VK_RIGHT, VK_DOWN, VK_RIGHT}) {
        Key(vk);
    }
    EXPECT_EQ(GetFocus(), hwnd);
    EXPECT_EQ(Pressed(), Reports{});
    EXPECT_EQ(GetFocus(), hosted);
    SetFocus(hwnd);
    Key(VK_RIGHT);
    EXPECT_EQ(Pressed(), Reports{"click 12"}) << "it comes back to where it was";
    Key(VK_LEFT);
    ShowWindow(hosted, SW_HIDE);
    Key(VK_RIGHT);
    EXPECT_EQ(TakeTold(), (std::vector{1, 2})) << "with the item gone it is on the tabs";
    Key(VK_ESCAPE);
    EXPECT_EQ(GetFocus(), field.GetHwnd());
}

TEST_F(RibbonModernTest, ADialogThatAnItemOpensLeavesTheKeyboardWhereItIs)
{
    SetFocus(field);
    SetFocus(hwnd);
    Key(VK_DOWN);
    Key(VK_RIGHT);
    const HWND dialog = CreateWindowExW(0, L"STATIC", nullptr, WS_POPUP | WS_VISIBLE, 0, 0, 50, 50, host,
                                        nullptr, nullptr, nullptr);
    SetFocus(dialog);
    SetFocus(hwnd);
    SetFocus(host);
    SetFocus(hwnd);
    DestroyWindow(dialog);
    EXPECT_EQ(Pressed(), Reports{"click 12"});
    Key(VK_ESCAPE);
    EXPECT_EQ(GetFocus(), field.GetHwnd());
}

TEST_F(RibbonModernTest, AHostedWindowGetsTheParentsAnswer)
{
    struct Answering
    {
        static LRESULT CALLBACK Proc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
        {
            return uMsg == WM_NOTIFY ? 7 : DefWindowProcW(hwnd, uMsg, wParam, lParam);
        }
    };
    SetWindowLongPtrW(host, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Answering::Proc));
    NMHDR header{hwnd, 3, 5};
    EXPECT_EQ(SendMessageW(hwnd, WM_NOTIFY, 3, reinterpret_cast<LPARAM>(&header)), 7);
}

TEST_F(RibbonModernTest, ALostCaptureEndsThePressAndASecondWindowStartsAfresh)
{
    const POINT pt = MiddleOf(Page(1), 0, 0);
    Press(hwnd, pt.x, pt.y);
    ReleaseCapture();
    EXPECT_EQ(Page(1).m_press.item, RIBBON_NONE);
    SetFocus(field);
    SetFocus(hwnd);
    Key(VK_DOWN);
    Move(hwnd, ribbon.m_aTabs[0].uTextWidth + 60, 10);
    EXPECT_EQ(ribbon.m_nHot, 1u);
    ribbon.Destroy();
    ribbon.SetActive(9);
    EXPECT_EQ(ribbon.m_nActive, RIBBON_NONE) << "it is of Modern still";
    hwnd = CreateRibbon(ribbon, host);
    ribbon.SetActive(0);
    SetFocus(hwnd);
    EXPECT_EQ(ribbon.m_nHot, RIBBON_NONE);
    EXPECT_EQ(Pressed(), Reports{}) << "on the tabs";
}

TEST_F(RibbonModernTest, AChangeOfTheTabEndsAPress)
{
    const POINT pt = MiddleOf(Page(1), 0, 0);
    Press(hwnd, pt.x, pt.y);
    EXPECT_EQ(GetCapture(), hwnd);
    ribbon.SetActive(2);
    EXPECT_NE(GetCapture(), hwnd);
    ribbon.SetActive(0);
    Release(hwnd, pt.x, pt.y);
    EXPECT_EQ(TakeCommands(), Reports{});
}

TEST_F(RibbonModernTest, TheParentMayDoAnythingInAChangeOfTheTab)
{
    const std::function<void()> actions[] = {[&] { ribbon.SetActive(2); },
                                             [&] {
                                                 GRibbonPage* pPage = ribbon.GetPage(2);
                                                 ribbon.RemovePage(pPage);
                                                 delete pPage;
                                             },
                                             [&] { DestroyWindow(hwnd); }};
    const HWND hosted = HostWindow(2);
    for (const auto& action : actions) {
        ribbon.SetActive(0);
        onTabChanged = [&] {
            onTabChanged = nullptr;
            action();
        };
        ribbon.SetActive(1);
    }
    EXPECT_FALSE(IsWindow(hosted));
}

TEST_F(RibbonModernTest, WhoeverHearsOfAHostedWindowMayEndThePageOrTheRibbon)
{
    struct Witness
    {
        static LRESULT CALLBACK Proc(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
        {
            if (uMsg == WM_SHOWWINDOW) {
                std::exchange(
                    *reinterpret_cast<std::function<void()>*>(GetWindowLongPtrW(hwnd, GWLP_USERDATA)),
                    [] {})();
            }
            return DefWindowProcW(hwnd, uMsg, wParam, lParam);
        }
    };
    std::function<void()> action = [] {};
    const auto hostWitness = [&] {
        const HWND hwndHosted = HostWindow(2);
        SetWindowLongPtrW(hwndHosted, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&action));
        SetWindowLongPtrW(hwndHosted, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Witness::Proc));
        return hwndHosted;
    };
    const HWND first = hostWitness();
    hostWitness();
    action = [&] { ribbon.SetActive(2); };
    ribbon.SetActive(1);
    EXPECT_EQ(TakeTold(), std::vector{2}) << "of the last one alone";
    EXPECT_FALSE(IsSeen(first));
    action = [&] {
        GRibbonPage* pPage = ribbon.GetPage(2);
        ribbon.RemovePage(pPage);
        delete pPage;
    };
    ribbon.SetActive(1);
    EXPECT_EQ(ribbon.GetPage(2), nullptr);
    ribbon.AddPage(new OpenPage(2, L"Again"), 0, nullptr);
    Page(2).InsertGroup(0, 4, L"Hosts", 100);
    hostWitness();
    action = [&] { DestroyWindow(hwnd); };
    ribbon.SetActive(2);
    EXPECT_FALSE(IsWindow(hwnd));
}

TEST_F(RibbonModernTest, ACopyTellsNobodyAndOwnsNoImages)
{
    const HIMAGELIST hImages = ImageList_Create(32, 32, ILC_COLOR32, 1, 1);
    ribbon.SetImageLists(hImages, nullptr);
    {
        GRibbon copy(ribbon);
        copy.SetActive(2);
        EXPECT_EQ(TakeTold(), std::vector<int>{});
        GRibbon other;
        other = ribbon;
        other = GRibbon();
        ribbon.Destroy();
    }
    EXPECT_TRUE(ImageList_Destroy(hImages)) << "it is the host's";
}

TEST(RibbonClassic, TakesNoKeysAndLeavesHostedWindowsAlone)
{
    Host host;
    OpenRibbon ribbon;
    const HWND hwnd = CreateRibbon(ribbon, host);
    for (DWORD i = 1; i <= 3; i++) {
        ribbon.AddPage(nullptr, i, L"Page");
    }
    ribbon.GetPage(1)->InsertGroup(0, 1, L"Group", 100);
    const HWND hosted =
        CreateWindowExW(0, L"STATIC", nullptr, WS_CHILD, 0, 30, 50, 20, hwnd, nullptr, nullptr, nullptr);
    ribbon.GetPage(1)->AddWindow(1, hosted);
    SetFocus(hwnd);
    host.TakeReports();
    SendMessageW(hwnd, WM_KEYDOWN, VK_RIGHT, 0);
    EXPECT_EQ(ribbon.m_nActive, 0u);
    EXPECT_EQ(SendMessageW(hwnd, WM_GETDLGCODE, 0, 0), 0);
    EXPECT_FALSE(GetWindowLongW(hwnd, GWL_STYLE) & WS_TABSTOP);
    ribbon.SetActive(7);
    EXPECT_EQ(ribbon.m_nActive, 7u);
    EXPECT_TRUE(IsSeen(hosted));
    ribbon.SetActive(1);
    GRibbonPage* pPage = ribbon.GetPage(1);
    ribbon.RemovePage(pPage);
    delete pPage;
    EXPECT_EQ(ribbon.m_nActive, 1u) << "its number, of another page now";
    EXPECT_TRUE(IsSeen(hosted));
    EXPECT_EQ(host.TakeReports(), Reports{});
}
