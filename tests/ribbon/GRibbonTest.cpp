#include "RibbonTestSupport.h"

#include <gtest/gtest.h>

#include <memory>

using namespace test::ribbon;

namespace {

constexpr POINTS At(int x, int y)
{
    return {static_cast<SHORT>(x), static_cast<SHORT>(y)};
}

// A ribbon with a window and pages 1, 2, 3, ...
struct RibbonWithPages
{
    explicit RibbonWithPages(int nPages)
    {
        constexpr LPCWSTR TITLES[] = {L"Home", L"Insert", L"Page layout", L"View"};
        hwnd = CreateRibbon(ribbon, host);
        for (int i = 0; i < nPages; i++) {
            ribbon.AddPage(nullptr, static_cast<DWORD>(i + 1), TITLES[i]);
        }
    }

    int TabWidth(UINT nIndex) { return 50 + static_cast<int>(ribbon.m_aTabs[nIndex].uTextWidth); }

    Host host;
    OpenRibbon ribbon;
    HWND hwnd;
};

} // namespace

// --- Tabs

TEST(GRibbon, TabsAreHitUpToTheirEndPixelAndTheGapIsNot)
{
    RibbonWithPages made(2);
    const int nEnd = made.TabWidth(0);
    const int nEnd2 = nEnd + 2 + made.TabWidth(1);
    ASSERT_GT(nEnd, 50);
    const std::tuple<int, int, UINT> hits[] = {{0, 0, 0},
                                               {nEnd, 25, 0},
                                               {nEnd + 1, 10, RIBBON_NONE},
                                               {nEnd + 2, 10, 1},
                                               {nEnd2, 10, 1},
                                               {10, -5, 0},
                                               {nEnd2 + 1, 10, RIBBON_NONE},
                                               {10, 26, RIBBON_NONE},
                                               {-1, 10, RIBBON_NONE}};
    for (const auto& [x, y, nTab] : hits) {
        EXPECT_EQ(made.ribbon.HitTest(At(x, y)), nTab) << x << ", " << y;
    }
}

TEST(GRibbon, HiddenTabsTakeNoRoom)
{
    RibbonWithPages made(3);
    made.ribbon.SetStatus(1, 0);
    const int nSecond = made.TabWidth(0) + 2;
    EXPECT_EQ(made.ribbon.HitTest(At(nSecond, 10)), 2u);
    made.ribbon.SetStatus(0, 0);
    EXPECT_EQ(made.ribbon.HitTest(At(0, 10)), 2u);
    made.ribbon.SetStatus(2, 0);
    EXPECT_EQ(made.ribbon.HitTest(At(0, 10)), RIBBON_NONE);
}

TEST(GRibbon, HidingTheActiveTabActivatesTheNextThenTheNearestBefore)
{
    RibbonWithPages made(4);
    made.ribbon.SetActive(1);
    made.ribbon.SetStatus(3, 0);
    EXPECT_EQ(made.ribbon.m_nActive, 1u) << "another tab was hidden";
    made.ribbon.SetStatus(1, RIBBON_TAB_VISIBLE);
    EXPECT_EQ(made.ribbon.m_nActive, 1u) << "nothing was hidden";
    made.ribbon.SetStatus(1, 0);
    EXPECT_EQ(made.ribbon.m_nActive, 2u);
    made.ribbon.SetStatus(2, 0);
    EXPECT_EQ(made.ribbon.m_nActive, 0u) << "tab 1 is hidden too";
    made.ribbon.SetStatus(0, 0);
    EXPECT_EQ(made.ribbon.m_nActive, 0u) << "taken without looking";
    // Only the bit for visibility counts.
    made.ribbon.SetStatus(2, 0xFFFFFFFE);
    EXPECT_EQ(made.ribbon.HitTest(At(0, 10)), RIBBON_NONE);
    EXPECT_EQ(made.ribbon.m_aTabs[2].uStatus, 0xFFFFFFFE);
}

TEST(GRibbon, AClickActivatesATabAndTellsNobody)
{
    RibbonWithPages made(2);
    const int nSecond = made.TabWidth(0) + 2;
    TakeRepaint(made.hwnd);
    Click(made.hwnd, 5, 10);
    EXPECT_FALSE(TakeRepaint(made.hwnd)) << "it was active already";
    Press(made.hwnd, nSecond, 10);
    EXPECT_EQ(made.ribbon.m_nActive, 1u) << "on the press";
    EXPECT_TRUE(TakeRepaint(made.hwnd));
    EXPECT_NE(GetCapture(), made.hwnd);
    Release(made.hwnd, nSecond, 10);
    EXPECT_EQ(made.host.TakeReports(), Reports{});
}

TEST(GRibbon, TheHotTabFollowsTheMouseAndIsNeverTheActiveOne)
{
    RibbonWithPages made(2);
    const int nSecond = made.TabWidth(0) + 2;
    Move(made.hwnd, nSecond, 10);
    EXPECT_EQ(made.ribbon.m_nHot, 1u);
    TakeRepaint(made.hwnd);
    Move(made.hwnd, nSecond + 1, 10);
    EXPECT_FALSE(TakeRepaint(made.hwnd)) << "still the same tab";
    Move(made.hwnd, 5, 10);
    EXPECT_EQ(made.ribbon.m_nHot, RIBBON_NONE);
    TakeRepaint(made.hwnd);
    Move(made.hwnd, 6, 10);
    EXPECT_TRUE(TakeRepaint(made.hwnd)) << "each move over the active tab repaints";
    Move(made.hwnd, nSecond, 10);
    SendMessageW(made.hwnd, WM_MOUSELEAVE, 0, 0);
    EXPECT_EQ(made.ribbon.m_nHot, RIBBON_NONE);
}

// --- Pages

TEST(GRibbon, AddPageTakesOverAPageAndItsTitleOrMakesOne)
{
    RibbonWithPages made(0);
    auto* pOwn = new OpenPage(7, L"W");
    EXPECT_EQ(made.ribbon.AddPage(pOwn, 0, nullptr), 0u);
    EXPECT_EQ(made.ribbon.GetPage(7), pOwn) << "an id of 0 keeps the page's";
    const UINT uNarrow = made.ribbon.m_aTabs[0].uTextWidth;
    // A title given with a page is measured only.
    auto* pOther = new OpenPage(7, L"W");
    EXPECT_EQ(made.ribbon.AddPage(pOther, 8, L"WWWW"), 1u);
    EXPECT_EQ(made.ribbon.GetPage(8), pOther);
    EXPECT_GT(made.ribbon.m_aTabs[1].uTextWidth, 3 * uNarrow);
    made.ribbon.RenamePage(pOther, L"W");
    EXPECT_EQ(made.ribbon.m_aTabs[1].uTextWidth, uNarrow);
    EXPECT_EQ(made.ribbon.AddPage(nullptr, 9, L"W"), 2u);
    EXPECT_EQ(made.ribbon.m_aTabs[2].uTextWidth, uNarrow);
    EXPECT_NE(made.ribbon.GetPage(9), nullptr);
    EXPECT_EQ(made.ribbon.GetPage(10), nullptr);
    EXPECT_EQ(made.ribbon.AddPage(nullptr, 10, nullptr), 3u);
    EXPECT_EQ(made.ribbon.m_aTabs[3].uTextWidth, 0u);
}

TEST(GRibbon, ASubclassSuppliesItsOwnPagesOrNone)
{
    struct CountingRibbon : OpenRibbon
    {
        GRibbonPage* MakePage(DWORD dwId, LPCWSTR) override { return dwId ? new CountedPage(dwId) : nullptr; }
    };
    {
        CountingRibbon ribbon;
        EXPECT_EQ(ribbon.AddPage(nullptr, 4, L"Title"), 0u);
        EXPECT_NE(dynamic_cast<CountedPage*>(ribbon.GetPage(4)), nullptr);
        EXPECT_EQ(ribbon.AddPage(nullptr, 0, L"None"), RIBBON_NONE);
        EXPECT_EQ(ribbon.m_aTabs.GetLength(), 1u);
    }
    EXPECT_EQ(CountedPage::s_nLive, 0);
}

TEST(GRibbon, RemovingAPageGivesItBackAndKeepsAnActiveTab)
{
    RibbonWithPages made(3);
    GRibbonPage* pages[] = {made.ribbon.GetPage(1), made.ribbon.GetPage(2), made.ribbon.GetPage(3)};
    made.ribbon.SetActive(2);
    made.ribbon.RemovePage(pages[2]);
    EXPECT_EQ(made.ribbon.m_nActive, 1u);
    made.ribbon.RemovePage(pages[0]);
    EXPECT_EQ(made.ribbon.m_nActive, 0u);
    TakeRepaint(made.hwnd);
    made.ribbon.RemovePage(pages[0]);
    made.ribbon.RemovePage(nullptr);
    EXPECT_EQ(made.ribbon.m_aTabs.GetLength(), 1u);
    EXPECT_FALSE(TakeRepaint(made.hwnd)) << "nothing was removed";
    made.ribbon.RemovePage(pages[1]);
    EXPECT_EQ(made.ribbon.m_nActive, RIBBON_NONE);
    EXPECT_TRUE(TakeRepaint(made.hwnd));
    // An empty ribbon ignores the mouse.
    Move(made.hwnd, 5, 10);
    Click(made.hwnd, 5, 10);
    Press(made.hwnd, 5, 60);
    EXPECT_EQ(made.ribbon.m_nHot, RIBBON_NONE);
    EXPECT_NE(GetCapture(), made.hwnd);
    EXPECT_EQ(made.host.TakeReports(), Reports{});
    Print(made.hwnd);
    for (GRibbonPage* pPage : pages) {
        pPage->Delete(pPage);
    }
}

TEST(GRibbon, BadIndicesAndPagesAreAnsweredSafely)
{
    const AllowMisuse allowed;
    RibbonWithPages made(1);
    made.ribbon.SetStatus(1, 0);
    made.ribbon.SetStatus(RIBBON_NONE, RIBBON_TAB_VISIBLE);
    // This one is no misuse: it shows no page.
    made.ribbon.SetActive(1000);
    Click(made.hwnd, 300, 60);
    Print(made.hwnd);
    EXPECT_EQ(made.ribbon.m_nActive, 1000u);

    OpenPage stranger(5, L"Old");
    made.ribbon.RenamePage(&stranger, L"New");
    EXPECT_EQ(made.ribbon.AddPage(new OpenPage(stranger), 0, nullptr), 1u);
    EXPECT_GT(made.ribbon.m_aTabs[1].uTextWidth, 0u);
    made.ribbon.RenamePage(nullptr, L"New");
    HPEN hPen = nullptr;
    made.ribbon.GetPageDrawInfo(nullptr, &hPen, nullptr);
    EXPECT_NE(hPen, nullptr);
}

// --- Messages

TEST(GRibbon, WhatHostedWindowsReportIsPassedOnUnchanged)
{
    RibbonWithPages made(1);
    EXPECT_EQ(SendMessageW(made.hwnd, WM_COMMAND, MAKEWPARAM(5, 7), 99), 0);
    NMHDR header{made.hwnd, 6, static_cast<UINT>(-5)};
    EXPECT_EQ(SendMessageW(made.hwnd, WM_NOTIFY, 6, reinterpret_cast<LPARAM>(&header)), 0);
    EXPECT_EQ(made.host.TakeReports(), (Reports{"click 5 code 7 value 99", "notify 6 code -5"}));
}

TEST(GRibbon, TheParentMayDestroyTheRibbonInWhatIsPassedOn)
{
    Host host;
    auto ribbon = std::make_unique<GRibbon>();
    const HWND hwnd = CreateRibbon(*ribbon, host);
    host.onReport = [&](const std::string&) {
        DestroyWindow(hwnd);
        ribbon.reset();
    };
    EXPECT_EQ(SendMessageW(hwnd, WM_COMMAND, 5, 0), 0);
    EXPECT_FALSE(IsWindow(hwnd));
}

TEST(GRibbon, ItsWindowIsAVisibleChildThatDoesNotErase)
{
    RibbonWithPages made(1);
    EXPECT_EQ(GetWindowLongW(made.hwnd, GWL_STYLE), LONG{WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN});
    EXPECT_EQ(GetDlgCtrlID(made.hwnd), 0);
    EXPECT_EQ(SendMessageW(made.hwnd, WM_ERASEBKGND, 0, 0), 1);
    EXPECT_EQ(GetParent(made.hwnd), made.host);
    EXPECT_EQ(made.ribbon.Destroy(), TRUE);
    EXPECT_FALSE(IsWindow(made.hwnd));
}

// --- Lives

TEST(GRibbon, ARibbonFromATemplateThatIsNotThereIsEmptyAndWorks)
{
    Host host;
    OpenRibbon byNumber(UINT{4711});
    OpenRibbon byName(L"NO_SUCH_TEMPLATE");
    for (OpenRibbon* pRibbon : {&byNumber, &byName}) {
        // Such a ribbon prepares neither font nor colours.
        pRibbon->AddPage(nullptr, 1, L"Before");
        const HWND hwnd = CreateRibbon(*pRibbon, host);
        ASSERT_TRUE(hwnd);
        pRibbon->AddPage(nullptr, 2, L"After");
        EXPECT_EQ(ImageList_GetImageCount(pRibbon->m_hLargeImages), 0);
        EXPECT_EQ(ImageList_GetImageCount(pRibbon->m_hSmallImages), 0);
        EXPECT_EQ(pRibbon->m_nHot, RIBBON_NONE);
        EXPECT_EQ(pRibbon->m_nActive, 0u);
        Print(hwnd);
        Click(hwnd, 200, 60);
        DestroyWindow(hwnd);
    }
}

TEST(GRibbon, AWindowMadeByNameOwnsItsRibbonAndItsPages)
{
    Host host;
    GRibbon::IsolationAwareRegisterClassW();
    const HWND hwnd = CreateWindowExW(0, L"GRibbon", nullptr, WS_CHILD | WS_VISIBLE, 0, 0, 300, 118, host,
                                      nullptr, GetModuleHandleW(nullptr), nullptr);
    ASSERT_TRUE(hwnd);
    auto* pRibbon = static_cast<GRibbon*>(GWnd::FromHwnd(hwnd));
    auto* pPage = new CountedPage(3);
    pRibbon->AddPage(pPage, 0, nullptr);
    pPage->InsertGroup(0, 1, L"Group", 0);
    InsertButton(*pPage, 1, 5, RIS_LARGE, L"Text", 0);
    Print(hwnd); // there are no image lists
    DestroyWindow(hwnd);
    EXPECT_EQ(CountedPage::s_nLive, 0);
}

TEST(GRibbon, ACopySharesThePagesAndOwnsNone)
{
    Host host;
    {
        OpenRibbon ribbon;
        CreateRibbon(ribbon, host);
        ribbon.AddPage(new CountedPage(1), 0, nullptr);
        {
            OpenRibbon copy(ribbon);
            OpenRibbon assigned;
            assigned = copy;
            EXPECT_EQ(assigned.GetPage(1), ribbon.GetPage(1));
            EXPECT_EQ(assigned.GetHwnd(), ribbon.GetHwnd());
            copy.AddPage(new CountedPage(2), 0, nullptr);
            EXPECT_EQ(ribbon.m_aTabs.GetLength(), 1u) << "the tabs are the copy's own";
        }
        EXPECT_EQ(CountedPage::s_nLive, 1) << "a page that was added to the copy is the copy's";
        Print(ribbon);
        ribbon.Destroy();
    }
    EXPECT_EQ(CountedPage::s_nLive, 0);
}

TEST(GRibbon, ARemovedPageOutlivesItsRibbon)
{
    Host host;
    OpenPage* pPage = new OpenPage(1, L"Page");
    {
        GRibbon ribbon;
        CreateRibbon(ribbon, host);
        ribbon.AddPage(pPage, 0, nullptr);
        pPage->InsertGroup(0, 1, L"Group", 0);
        ribbon.RemovePage(pPage);
        ribbon.Destroy();
    }
    InsertButton(*pPage, 1, 5, RIS_MEDIUM, L"Measured by the screen", -1);
    EXPECT_GT(pPage->ItemAt(0, 0).nRight, 6);
    const HDC hdc = CreateCompatibleDC(nullptr);
    pPage->Draw(hdc);
    DeleteDC(hdc);
    delete pPage;
}
