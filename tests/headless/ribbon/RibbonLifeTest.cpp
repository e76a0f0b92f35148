// What ribbons leave behind, in every order of life, and what they make of failures and templates.

#include "../../ribbon/RibbonTestSupport.h"
#include "../../support/RibbonTemplate.h"
#include "../controls/DrawFixture.h"

#include <memory>

namespace {

using namespace test::ribbon;
using desk::Kind;

// The fixture compares what lives before and after each test.
class RibbonLifeTest : public DrawFixture
{
protected:
    static void Fill(GRibbon& ribbon)
    {
        for (DWORD dwId = 1; dwId <= 3; dwId++) {
            auto* pPage = new CountedPage(dwId);
            ribbon.AddPage(pPage, 0, nullptr);
            pPage->InsertGroup(0, 1, L"Group", 0);
            InsertButton(*pPage, 1, 10, RIS_LARGE, L"Button", 0);
            InsertCheckBox(*pPage, 1, 11, true, L"Check");
        }
    }

    static void AddTemplate(LPCWSTR pszName, int nLarge, int nSmall)
    {
        const auto bytes = LayOutTemplate(Strip::Numbered(32 * nLarge, 32, 0xFF000000),
                                          Strip::Numbered(16 * nSmall, 16, 0xFF000000));
        desk::AddResource(desk::HostModule(), L"RT_DLG", pszName, std::as_bytes(std::span(bytes)));
    }

    void ExpectImages(OpenRibbon& ribbon, int nLarge, int nSmall)
    {
        ASSERT_TRUE(CreateRibbon(ribbon, Parent()));
        EXPECT_EQ(ImageList_GetImageCount(ribbon.m_hLargeImages), nLarge);
        EXPECT_EQ(ImageList_GetImageCount(ribbon.m_hSmallImages), nSmall);
        ribbon.Destroy();
    }
};

TEST_F(RibbonLifeTest, NothingIsLeftWhateverGoesFirst)
{
    const desk::Census before = desk::Live();
    { // pages before and after the window, the window first
        GRibbon ribbon;
        Fill(ribbon);
        const HWND hwnd = CreateRibbon(ribbon, Parent());
        Fill(ribbon);
        EXPECT_EQ(desk::Live()[Kind::Theme] - before[Kind::Theme], 6) << "one a page, also after two Creates";
        DestroyWindow(hwnd);
        EXPECT_EQ(desk::Live()[Kind::Theme], before[Kind::Theme]);
        EXPECT_EQ(desk::Live()[Kind::Font] - before[Kind::Font], 1) << "the tab font";
        EXPECT_EQ(desk::Live()[Kind::Pen], before[Kind::Pen]);
        EXPECT_EQ(desk::Live()[Kind::Brush], before[Kind::Brush]);
        EXPECT_EQ(desk::Live()[Kind::ImageList], before[Kind::ImageList]);
        EXPECT_EQ(CountedPage::s_nLive, 6) << "the pages are the object's";
        DestroyWindow(CreateRibbon(ribbon, Parent()));
    }
    EXPECT_EQ(desk::Live(), before);
    { // the object first, while its window lives on
        auto ribbon = std::make_unique<GRibbon>();
        const HWND hwnd = CreateRibbon(*ribbon, Parent());
        Fill(*ribbon);
        ribbon.reset();
        EXPECT_EQ(CountedPage::s_nLive, 0);
        Click(hwnd, 30, 60);
        Print(hwnd);
        DestroyWindow(hwnd);
    }
    EXPECT_EQ(desk::Live(), before);
    { // a second window while the first is there
        GRibbon ribbon;
        Fill(ribbon);
        const HWND hwndFormer = CreateRibbon(ribbon, Parent());
        const HWND hwnd = CreateRibbon(ribbon, Parent());
        DestroyWindow(hwndFormer);
        EXPECT_EQ(GWnd::FromHwnd(hwnd), &ribbon);
        DestroyWindow(hwnd);
    }
    EXPECT_EQ(desk::Live(), before);
    { // removed pages, with their theme open and after the ribbon
        auto ribbon = std::make_unique<GRibbon>();
        CreateRibbon(*ribbon, Parent());
        Fill(*ribbon);
        GRibbonPage* pFirst = ribbon->GetPage(1);
        GRibbonPage* pSecond = ribbon->GetPage(2);
        ribbon->RemovePage(pFirst);
        pFirst->Delete(pFirst);
        ribbon->RemovePage(pSecond);
        ribbon->Destroy();
        ribbon.reset();
        pSecond->Delete(pSecond);
    }
    EXPECT_EQ(desk::Live(), before);
    { // no window, and a page that is added twice
        const AllowMisuse allowed;
        GRibbon ribbon;
        Fill(ribbon);
        ribbon.AddPage(ribbon.GetPage(2), 0, nullptr);
    }
    EXPECT_EQ(desk::Live(), before);
    { // copies, before and after the original
        auto ribbon = std::make_unique<GRibbon>();
        CreateRibbon(*ribbon, Parent());
        Fill(*ribbon);
        {
            const GRibbon copy(*ribbon);
        }
        const auto late = std::make_unique<GRibbon>(*ribbon);
        ribbon->Destroy();
        ribbon.reset();
    }
    EXPECT_EQ(desk::Live(), before);
    EXPECT_EQ(CountedPage::s_nLive, 0);
}

TEST_F(RibbonLifeTest, RemovedGroupsAndItemsAreReleasedInTheEnd)
{
    GRibbon ribbon;
    Fill(ribbon);
    GRibbonPage& page = *ribbon.GetPage(1);
    page.RemoveItem(1, 10);
    page.RemoveGroup(1);
    page.InsertGroup(0, 1, L"Again", 0);
    const UINT sizes[] = {RIS_SMALL << 16, RIS_LARGE << 16};
    GRibbonPage::ItemInfo info{};
    info.uType = RIT_BUTTON;
    info.nId = 12;
    info.nOptions = 2;
    info.puOptions = sizes;
    info.pszText = L"Options";
    page.InsertItem(1, 0, &info);
    page.SetItemInfo(1, 12, &info);
    const GRibbonPage copy(page);
    page = copy;
}

TEST_F(RibbonLifeTest, AWindowThatCannotBeMadeLeavesNoImages)
{
    GRibbon ribbon;
    Fill(ribbon);
    const desk::Census before = desk::Live();
    desk::Fail("CreateWindowExW", 1, ERROR_ACCESS_DENIED);
    EXPECT_EQ(CreateRibbon(ribbon, Parent()), nullptr);
    EXPECT_EQ(desk::Live(), before);
}

TEST_F(RibbonLifeTest, ATemplateIsFoundByNumberAndByName)
{
    AddTemplate(MAKEINTRESOURCEW(120), 3, 5);
    AddTemplate(L"EDITOR", 2, 4);
    OpenRibbon byNumber(UINT{120});
    ExpectImages(byNumber, 3, 5);
    OpenRibbon byName(L"Editor");
    ExpectImages(byName, 2, 4);
    OpenRibbon missing(UINT{121});
    ExpectImages(missing, 0, 0);
    desk::RemoveResources(desk::HostModule());
}

TEST_F(RibbonLifeTest, ATemplateThatCannotBeLoadedGivesEmptyLists)
{
    AddTemplate(MAKEINTRESOURCEW(120), 3, 5);
    for (const char* pszOperation : {"FindResourceW", "LoadResource"}) {
        desk::Fail(pszOperation);
        OpenRibbon ribbon(UINT{120});
        ExpectImages(ribbon, 0, 0);
        EndFaults();
    }
    desk::Fail("CreateDIBSection");
    OpenRibbon half(UINT{120});
    ExpectImages(half, 0, 5);
    desk::Fail("ImageList_Create", 2);
    OpenRibbon none(UINT{120});
    ExpectImages(none, 0, 0);
    desk::RemoveResources(desk::HostModule());
}

TEST_F(RibbonLifeTest, AListThatThereIsStaysWhereTheOtherIsLacking)
{
    AddTemplate(MAKEINTRESOURCEW(120), 3, 5);
    OpenRibbon ribbon(UINT{120});
    desk::Fail("ImageList_Create", 1, ERROR_NOT_ENOUGH_MEMORY, 1);
    const HWND hwnd = CreateRibbon(ribbon, Parent());
    EndFaults();
    desk::RemoveResources(desk::HostModule()); // as where the template is another module's
    SendMessageW(hwnd, WM_THEMECHANGED, 0, 0);
    EXPECT_EQ(ImageList_GetImageCount(ribbon.m_hLargeImages), 3);
    EXPECT_TRUE(ribbon.m_hSmallImages);
    ribbon.Destroy();
}

} // namespace
