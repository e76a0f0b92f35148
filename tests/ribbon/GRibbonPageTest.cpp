#include "../support/Interception.h"
#include "../support/Numbers.h"
#include "RibbonTestSupport.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <random>

using namespace test::ribbon;

using ItemInfo = GRibbonPage::ItemInfo;

namespace {

// Of groups or of items.
template <class RECORDS> std::vector<UINT> IdsOf(const RECORDS& records)
{
    std::vector<UINT> ids;
    for (const auto& record : records) {
        ids.push_back(record.nId);
    }
    return ids;
}

std::vector<UINT> ItemIds(OpenPage& page, UINT nGroup)
{
    return IdsOf(page.m_aGroups[nGroup].aItems);
}

ItemInfo InfoOf(UINT uType, UINT nId = 0)
{
    ItemInfo info{};
    info.uType = uType;
    info.nId = nId;
    return info;
}

// What an item of the group 1 tells to one who expects that type.
ItemInfo Told(OpenPage& page, UINT nId, UINT uType)
{
    ItemInfo info = InfoOf(uType);
    page.GetItemInfo(1, nId, &info);
    return info;
}

// What the visual style measures for a text in a push button or check box.
int TextWidth(OpenPage& page, int nPart, LPCWSTR psz)
{
    const HDC hdc = GetDC(nullptr);
    const HGDIOBJ hFormer = SelectObject(hdc, page.m_hItemFont);
    RECT rc{};
    const RECT rcBounds{0, 0, 32000, 32000};
    GetThemeTextExtent(page.m_hTheme, hdc, nPart, 1, psz, -1, 0, &rcBounds, &rc);
    SelectObject(hdc, hFormer);
    ReleaseDC(nullptr, hdc);
    return rc.right;
}

int WidthOf(const GRibbonPage::Item& item)
{
    return item.nRight - item.nLeft;
}

void InsertWithOptions(OpenPage& page, UINT nId, int nOptions, const std::vector<UINT>& options)
{
    ItemInfo info = InfoOf(RIT_BUTTON, nId);
    info.nOptions = nOptions;
    info.puOptions = options.data();
    info.nImage = -1;
    page.InsertItem(1, 0, &info);
}

// A ribbon with one page, which has the group 1.
class GRibbonPageTest : public testing::Test
{
protected:
    GRibbonPageTest()
    {
        ribbon.AddPage(&page, 0, nullptr);
        page.InsertGroup(0, 1, L"Group", 0);
    }
    ~GRibbonPageTest() override { ribbon.RemovePage(&page); }

    Host host;
    OpenRibbon ribbon;
    HWND hwnd = CreateRibbon(ribbon, host);
    OpenPage page{1, L"Page"};
};

// A ribbon with a page and a check box, which a host ends by and by.
struct RibbonToEnd
{
    RibbonToEnd()
    {
        ribbon->AddPage(pPage, 0, nullptr);
        pPage->InsertGroup(0, 1, L"Group", 0);
        InsertCheckBox(*pPage, 1, 10, false, L"Check");
    }
    ~RibbonToEnd() { DestroyWindow(hwnd); }
    void EndPage()
    {
        ribbon->RemovePage(pPage);
        delete pPage;
    }

    Host host;
    std::unique_ptr<GRibbon> ribbon = std::make_unique<GRibbon>();
    CountedPage* pPage = new CountedPage(1);
    HWND hwnd = CreateRibbon(*ribbon, host);
};

constexpr void (*ENDS[])(RibbonToEnd&) = {
    [](RibbonToEnd& made) {
        DestroyWindow(made.hwnd);
        made.ribbon.reset();
    },
    [](RibbonToEnd& made) { made.ribbon.reset(); },
    [](RibbonToEnd& made) { made.EndPage(); },
    [](RibbonToEnd& made) {
        made.pPage->RemoveGroup(1);
        made.EndPage();
        made.ribbon->AddPage(nullptr, 1, L"New");
        made.ribbon.reset();
    },
};

} // namespace

// --- Groups

TEST_F(GRibbonPageTest, GroupsGoBehindTheOneNamedOrInFrontOrToTheEnd)
{
    EXPECT_EQ(page.InsertGroup(1, 2, L"Behind 1", 0), 1);
    page.InsertGroup(0, 3, L"In front", 0);
    page.InsertGroup(77, 4, L"At the end", 0);
    page.InsertGroup(1, 5, nullptr, 100);
    EXPECT_EQ(IdsOf(page.m_aGroups), (std::vector<UINT>{3, 1, 5, 2, 4}));
    page.SetGroupName(5, L"Named");
    page.SetGroupName(77, L"Nobody");
    EXPECT_EQ(Narrow(page.m_aGroups[2].strTitle), "Named");
    EXPECT_EQ(Narrow(page.m_aGroups[0].strTitle), "In front");
}

TEST_F(GRibbonPageTest, GroupsFollowOneAnotherOnePixelApart)
{
    page.InsertGroup(1, 2, L"Fixed", 150);
    page.InsertGroup(2, 3, L"Last", 0);
    const auto edges = [&] {
        std::vector<int> x;
        for (const GRibbonPage::Group& group : page.m_aGroups) {
            x.insert(x.end(), {group.nLeft, group.nRight});
        }
        return x;
    };
    EXPECT_EQ(edges(), (std::vector{0, 40, 41, 191, 192, 232}));
    InsertButton(page, 1, 10, RIS_LARGE, L"Kept");
    GRibbonPage::Group measured = page.m_aGroups[0];
    measured.nRight = -7;
    measured.aItems[0].nLeft -= 7;
    measured.aItems[0].nRight -= 7;
    page.CalculateGroupSize(&measured);
    EXPECT_EQ(measured.nRight, page.m_aGroups[0].nRight);
    EXPECT_EQ(measured.aItems[0].nLeft, page.m_aGroups[0].aItems[0].nLeft);
    const ItemInfo info = Told(page, 10, RIT_BUTTON);
    EXPECT_EQ(edges(), (std::vector{0, 56, 57, 207, 208, 248}));
    // The groups behind one that goes stay where they are, until the next change.
    EXPECT_EQ(page.RemoveGroup(1), 1);
    EXPECT_EQ(page.RemoveGroup(1), 0);
    EXPECT_EQ(edges(), (std::vector{57, 207, 208, 248}));
    EXPECT_EQ(Narrow(info.pszText), "Kept") << "until the page goes";
    page.RecalcWidth();
    EXPECT_EQ(edges(), (std::vector{0, 150, 151, 191}));
}

// --- Items

TEST_F(GRibbonPageTest, OfSeveralSizesTheLastCountsAndASingleOneIsNotKept)
{
    const std::vector<UINT> sizes = {RIS_LARGE << 16 | 0xFFFF, RIS_MEDIUM << 16, RIS_SMALL << 16};
    const std::tuple<int, int, WORD> cases[] = {
        {0, 0, 0}, {1, 0, RIS_LARGE}, {-5, 0, RIS_LARGE}, {2, 2, RIS_MEDIUM}, {3, 3, RIS_SMALL}};
    UINT nId = 0;
    for (const auto& [nGiven, nStored, wSize] : cases) {
        InsertWithOptions(page, ++nId, nGiven, sizes);
        EXPECT_EQ(page.ItemAt(0, nId - 1).wSize, wSize) << nGiven;
        const ItemInfo info = Told(page, nId, RIT_BUTTON);
        EXPECT_EQ(info.nOptions, nStored) << nGiven;
        ASSERT_EQ(info.puOptions != nullptr, nStored > 0) << nGiven;
        EXPECT_TRUE(std::equal(sizes.begin(), sizes.begin() + nStored, info.puOptions)) << nGiven;
    }
    InsertWithOptions(page, ++nId, 3, {}); // options without a place
    EXPECT_EQ(page.ItemAt(0, nId - 1).wSize, 0);
}

TEST_F(GRibbonPageTest, ItemsTellWhatTheyWereToldUnlessTheTypeDiffers)
{
    InsertButton(page, 1, 10, RIS_MEDIUM, L"Cut", 3);
    InsertCheckBox(page, 1, 11, true, L"Ruler");
    ItemInfo info = Told(page, 10, RIT_BUTTON);
    EXPECT_EQ(info.nId, 10u);
    EXPECT_EQ(info.nImage, 3);
    EXPECT_EQ(Narrow(info.pszText), "Cut");

    // Asked as a button, a check box tells its type and no more.
    page.GetItemInfo(1, 11, &info);
    EXPECT_EQ(info.uType, RIT_CHECKBOX);
    EXPECT_EQ(info.nId, 11u);
    EXPECT_EQ(info.nImage, 3);
    info.nOptions = 0x7F00;
    page.GetItemInfo(1, 11, &info);
    EXPECT_EQ(info.bChecked, 1);
    EXPECT_EQ(info.nOptions, 0x7F01) << "one byte is written";
    InsertCheckBox(page, 1, 12, false, L"Grid");
    page.GetItemInfo(1, 12, &info);
    EXPECT_EQ(info.bChecked, 0);
    page.GetItemInfo(1, 11, &info);
    EXPECT_EQ(Narrow(info.pszCheckText), "Ruler");
    EXPECT_EQ(page.ItemAt(0, 1).nImage, -1);

    ItemInfo untouched = InfoOf(RIT_BUTTON, 4711);
    page.GetItemInfo(1, 99, &untouched);
    page.GetItemInfo(99, 10, &untouched);
    EXPECT_EQ(untouched.nId, 4711u);
}

TEST_F(GRibbonPageTest, SettingAnItemKeepsWhatIsNotGiven)
{
    InsertButton(page, 1, 10, RIS_MEDIUM, L"Cut", 3);
    InsertCheckBox(page, 1, 11, true, L"Ruler");
    ItemInfo info = InfoOf(RIT_BUTTON, 20);
    info.nImage = 5;
    page.SetItemInfo(1, 10, &info);
    const GRibbonPage::Item& button = page.ItemAt(0, 0);
    EXPECT_EQ(button.nId, 20u);
    EXPECT_EQ(button.wSize, RIS_MEDIUM);
    EXPECT_EQ(button.nImage, 5);
    EXPECT_EQ(Narrow(button.pszText), "Cut");
    // What was told by the item itself may be given back.
    page.GetItemInfo(1, 20, &info);
    page.SetItemInfo(1, 20, &info);
    EXPECT_EQ(Narrow(button.pszText), "Cut");
    page.SetItemInfo(1, 11, &info);
    EXPECT_EQ(page.ItemAt(0, 1).nId, 11u) << "a check box is not set by a button's info";

    ItemInfo check = InfoOf(RIT_CHECKBOX, 11);
    page.SetItemInfo(1, 11, &check);
    EXPECT_EQ(page.ItemAt(0, 1).uFlags & RIF_CHECKED, 0u);
    EXPECT_EQ(Narrow(page.ItemAt(0, 1).pszText), "Ruler");
    check.pszCheckText = L"Grid";
    check.bChecked = 1;
    page.SetItemInfo(1, 11, &check);
    EXPECT_NE(page.ItemAt(0, 1).uFlags & RIF_CHECKED, 0u);
    EXPECT_EQ(Narrow(page.ItemAt(0, 1).pszText), "Grid");
}

TEST_F(GRibbonPageTest, OptionsMayBeSetFromThoseThatTheItemHas)
{
    InsertWithOptions(page, 10, 3, {RIS_LARGE << 16, RIS_SMALL << 16, RIS_MEDIUM << 16});
    ItemInfo info = Told(page, 10, RIT_BUTTON);
    info.nOptions = 2;
    page.SetItemInfo(1, 10, &info);
    EXPECT_EQ(page.ItemAt(0, 0).wSize, RIS_SMALL);
    info = Told(page, 10, RIT_BUTTON);
    EXPECT_EQ(info.nOptions, 2);
    EXPECT_EQ(info.puOptions[0], UINT{RIS_LARGE << 16});
    info.nOptions = 1;
    page.SetItemInfo(1, 10, &info);
    EXPECT_EQ(page.ItemAt(0, 0).wSize, RIS_LARGE);
    EXPECT_EQ(page.ItemAt(0, 0).puOptions, nullptr);
}

TEST_F(GRibbonPageTest, ItemsGoBeforeTheOneNamedOrToTheEnd)
{
    page.AddWindow(1, hwnd); // its id is 0
    InsertButton(page, 1, 10, RIS_SMALL, nullptr, -1, 99);
    InsertButton(page, 1, 11, RIS_SMALL, nullptr, -1, 10);
    InsertButton(page, 1, 12, RIS_SMALL, nullptr, -1, 0);
    InsertButton(page, 99, 13, RIS_SMALL, nullptr);
    EXPECT_EQ(ItemIds(page, 0), (std::vector<UINT>{12, 0, 11, 10}));
    page.RemoveItem(1, 11);
    page.RemoveItem(1, 11);
    page.RemoveItem(99, 10);
    EXPECT_EQ(ItemIds(page, 0), (std::vector<UINT>{12, 0, 10}));
}

TEST_F(GRibbonPageTest, WhatIsNotThereIsLeftAlone)
{
    const AllowMisuse allowed;
    InsertButton(page, 1, 10, RIS_SMALL, L"Cut");
    ItemInfo info = InfoOf(RIT_BUTTON);
    info.pszText = L"Changed";
    page.SetItemInfo(1, 99, &info);
    page.SetItemInfo(99, 10, &info);
    page.SetItemInfo(1, 10, nullptr);
    page.InsertItem(1, 0, nullptr);
    page.GetItemInfo(1, 10, nullptr);
    page.AddWindow(99, hwnd);
    page.AddWindow(1, nullptr, 3);
    EXPECT_EQ(ItemIds(page, 0), std::vector<UINT>{10});
    EXPECT_EQ(Narrow(page.ItemAt(0, 0).pszText), "Cut");
}

TEST_F(GRibbonPageTest, AddedWindowsAreShownWhereTheyAre)
{
    HWND windows[2];
    for (HWND& hosted : windows) {
        hosted =
            CreateWindowExW(0, L"STATIC", nullptr, WS_CHILD, 30, 40, 20, 20, hwnd, nullptr, nullptr, nullptr);
    }
    page.InsertGroup(1, 2, L"Fixed", 90);
    page.AddWindow(2, windows, 2);
    EXPECT_EQ(ItemIds(page, 1), (std::vector<UINT>{0, 0}));
    for (const HWND hosted : windows) {
        EXPECT_TRUE(IsWindowVisible(hosted));
        POINT pt{};
        MapWindowPoints(hosted, hwnd, &pt, 1);
        EXPECT_EQ(test::Numbers(pt), "30,40");
    }
    EXPECT_EQ(page.m_aGroups[1].nRight - page.m_aGroups[1].nLeft, 90);
}

TEST_F(GRibbonPageTest, AnItemThatIsAWindowIsNeitherSetNorTold)
{
    page.AddWindow(1, hwnd);
    ItemInfo info = InfoOf(RIT_BUTTON, 7);
    page.GetItemInfo(1, 0, &info);
    EXPECT_EQ(info.uType, RIT_WINDOW);
    EXPECT_EQ(info.nId, 0u);
    info.nId = 7;
    page.GetItemInfo(1, 0, &info);
    EXPECT_EQ(info.nId, 7u);
    page.SetItemInfo(1, 0, &info);
    EXPECT_EQ(ItemIds(page, 0), std::vector<UINT>{0});
    EXPECT_EQ(page.ItemAt(0, 0).nTop, 26) << "it was placed all the same";
}

// --- Sizes

TEST_F(GRibbonPageTest, ItemsAreMeasuredByTheirTexts)
{
    InsertButton(page, 1, 1, RIS_SMALL, L"Not measured", 0);
    InsertButton(page, 1, 2, RIS_MEDIUM, L"Medium", 0);
    InsertButton(page, 1, 3, RIS_MEDIUM, L"Medium", -1);
    InsertButton(page, 1, 4, RIS_LARGE, L"i", 0);
    InsertButton(page, 1, 5, RIS_LARGE, L"Incomprehensibilities", 0);
    InsertButton(page, 1, 6, RIS_MEDIUM, nullptr, 0);
    InsertButton(page, 1, 7, RIS_MEDIUM, L"", 0);
    InsertCheckBox(page, 1, 8, false, L"Check");
    const int nMedium = TextWidth(page, BP_PUSHBUTTON, L"Medium");
    const int nWord = TextWidth(page, BP_PUSHBUTTON, L"Incomprehensibilities");
    SIZE box{};
    GetThemePartSize(page.m_hTheme, nullptr, BP_CHECKBOX, 0, nullptr, TS_TRUE, &box);
    const int nCheck = box.cx + TextWidth(page, BP_CHECKBOX, L"Check") + 11;
    ASSERT_GT(nMedium, 20);
    ASSERT_GT(nWord, 40);
    std::vector<std::pair<int, int>> sizes;
    for (const GRibbonPage::Item& item : page.m_aGroups[0].aItems) {
        sizes.emplace_back(WidthOf(item), item.nBottom - item.nTop);
    }
    EXPECT_EQ(sizes, (std::vector<std::pair<int, int>>{{22, 22},
                                                       {nMedium + 25, 22},
                                                       {nMedium + 6, 22},
                                                       {46, 66},
                                                       {nWord + 6, 66},
                                                       {25, 22},
                                                       {25, 22},
                                                       {nCheck, 22}}));
}

TEST_F(GRibbonPageTest, ALargeTextBreaksIntoTheTwoLinesThatAreNarrowest)
{
    const auto width = [&](LPCWSTR psz) { return TextWidth(page, BP_PUSHBUTTON, psz); };
    const auto buttonWidth = [&](LPCWSTR psz) {
        ItemInfo info = InfoOf(RIT_BUTTON, 1);
        info.pszText = psz;
        page.SetItemInfo(1, 1, &info);
        return WidthOf(page.ItemAt(0, 0)) - 6;
    };
    InsertButton(page, 1, 1, RIS_LARGE, L"");
    EXPECT_EQ(buttonWidth(L"Incomprehensibilities a"), width(L"Incomprehensibilities"));
    EXPECT_EQ(buttonWidth(L"a Incomprehensibilities"), width(L"Incomprehensibilities"));
    EXPECT_EQ(buttonWidth(L"Insert another table"),
              std::min(std::max(width(L"Insert"), width(L"another table")),
                       std::max(width(L"Insert another"), width(L"table"))));
    // A space in front is no place for a break.
    EXPECT_EQ(buttonWidth(L" Incomprehensibilities"), width(L" Incomprehensibilities"));
    EXPECT_EQ(buttonWidth(L"i i"), 40);
}

// --- Layout

TEST_F(GRibbonPageTest, ItemsStackInColumnsOfThreeRows)
{
    for (UINT nId = 1; nId <= 4; nId++) {
        InsertButton(page, 1, nId, RIS_SMALL, nullptr, 0);
    }
    InsertButton(page, 1, 5, RIS_LARGE, nullptr);
    InsertButton(page, 1, 6, RIS_SMALL, nullptr, 0);
    std::vector<std::pair<int, int>> places;
    for (const GRibbonPage::Item& item : page.m_aGroups[0].aItems) {
        places.emplace_back(item.nLeft, item.nTop);
    }
    EXPECT_EQ(places,
              (std::vector<std::pair<int, int>>{{0, 26}, {0, 48}, {0, 70}, {22, 26}, {44, 26}, {90, 26}}));
    EXPECT_EQ(page.m_aGroups[0].nRight, 90 + 22 + 10);
}

// Placing goes on from the first item that changed; that must not be told from placing all of them anew.
TEST_F(GRibbonPageTest, EditsOfEveryKindLeaveTheLayoutOfAFreshOne)
{
    std::mt19937 random(20240521);
    const auto pick = [&](UINT n) { return static_cast<UINT>(random() % n); };
    constexpr LPCWSTR TEXTS[] = {L"i", L"Paste", L"Format painter", L"A rather long text here", nullptr};
    UINT nNextId = 1;
    for (int nStep = 0; nStep < 600; nStep++) {
        auto& items = page.m_aGroups[0].aItems;
        const UINT nSome = items.GetLength() ? items[pick(items.GetLength())].nId : 0;
        switch (pick(items.GetLength() < 30 ? 5 : 8)) {
        case 0: InsertCheckBox(page, 1, nNextId++, false, TEXTS[pick(5)]); break;
        case 1:
        case 2:
            InsertButton(page, 1, nNextId++, static_cast<WORD>(pick(5)), TEXTS[pick(5)],
                         static_cast<int>(pick(3)) - 1, nSome);
            break;
        case 3: page.AddWindow(1, hwnd); break;
        case 4: {
            ItemInfo info = InfoOf(RIT_BUTTON, nSome);
            const UINT uSize = pick(4) << 16;
            info.nOptions = 1;
            info.puOptions = &uSize;
            info.pszText = TEXTS[pick(5)];
            if (nSome) {
                page.SetItemInfo(1, nSome, &info);
            }
            break;
        }
        default: page.RemoveItem(1, nSome); break;
        }
        // A window that was added is placed with the next change of an item.
        InsertButton(page, 1, nNextId, RIS_SMALL, nullptr);
        page.RemoveItem(1, nNextId);

        GRibbonPage::Group fresh = page.m_aGroups[0];
        page.CalculateGroupSize(&fresh);
        ASSERT_EQ(page.m_aGroups[0].nRight, fresh.nRight) << "step " << nStep;
        for (UINT i = 0; i < items.GetLength(); i++) {
            ASSERT_EQ(items[i].nLeft, fresh.aItems[i].nLeft) << "step " << nStep << " item " << i;
            ASSERT_EQ(items[i].nTop, fresh.aItems[i].nTop) << "step " << nStep << " item " << i;
        }
    }
}

TEST_F(GRibbonPageTest, ItemsAreHitFourPixelsRightOfAndBelowTheirPlaceEdgesIncluded)
{
    page.InsertGroup(1, 2, L"Second", 0);
    InsertButton(page, 1, 1, RIS_SMALL, nullptr);
    InsertButton(page, 2, 2, RIS_SMALL, nullptr);
    InsertButton(page, 2, 3, RIS_SMALL, nullptr);
    InsertButton(page, 2, 4, RIS_LARGE, nullptr);
    constexpr UINT NONE = RIBBON_NONE;
    const struct
    {
        SHORT x, y;
        UINT uGroup, uItem;
    } hits[] = {
        {4, 30, 0, 0},        {3, 30, 0, NONE},      {26, 52, 0, 0},        {27, 52, 0, NONE},
        {10, 29, 0, NONE},    {10, 53, 0, NONE},     {40, 40, 0, NONE},     {41, 40, 1, NONE},
        {45, 30, 1, 0x10000}, {67, 52, 1, 0x10000},  {67, 53, 1, 0x10001},  {45, 74, 1, 0x10001},
        {68, 96, 1, 0x10002}, {113, 96, 1, 0x10002}, {113, 97, 1, NONE},    {114, 60, 1, NONE},
        {119, 60, 1, NONE},   {120, 60, NONE, NONE}, {500, 60, NONE, NONE}, {-1, 60, 0, NONE},
    };
    for (const auto& hit : hits) {
        GRibbonPage::HitTestInfo info{{hit.x, hit.y}, 7, 7};
        page.HitTest(&info);
        EXPECT_EQ(info.group, hit.uGroup) << hit.x << ", " << hit.y;
        EXPECT_EQ(info.item, hit.uItem) << hit.x << ", " << hit.y;
    }
}

// --- Mouse

TEST_F(GRibbonPageTest, AClickOnAnItemSendsItsCommandAndNothingElseDoes)
{
    InsertButton(page, 1, 0x50010, RIS_LARGE, L"A", 0);
    InsertButton(page, 1, 11, RIS_LARGE, L"B", 0);
    const POINT ptA = MiddleOf(page, 0, 0);
    const POINT ptB = MiddleOf(page, 0, 1);
    Press(hwnd, ptA.x, ptA.y);
    EXPECT_EQ(GetCapture(), hwnd);
    EXPECT_NE(page.m_uState & GWS_PRESSED, 0u);
    EXPECT_EQ(host.TakeReports(), Reports{}) << "on the press";
    Release(hwnd, ptA.x, ptA.y);
    EXPECT_EQ(host.TakeReports(), Reports{"click 16"}) << "the id's low word";
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_EQ(page.m_uState & GWS_PRESSED, 0u);

    Press(hwnd, ptA.x, ptA.y);
    Release(hwnd, ptB.x, ptB.y);
    Click(hwnd, RIBBON_WIDTH - 1, 60); // behind the last group
    Click(hwnd, 30, 110);              // a group's title
    Press(hwnd, 30, 110);
    Release(hwnd, ptA.x, ptA.y);
    Release(hwnd, ptA.x, ptA.y); // without a press
    EXPECT_EQ(host.TakeReports(), Reports{});
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(GRibbonPageTest, ACheckBoxTogglesAndTellsItsNewState)
{
    InsertCheckBox(page, 1, 10, false, L"Check");
    const POINT pt = MiddleOf(page, 0, 0);
    Click(hwnd, pt);
    Click(hwnd, pt);
    EXPECT_EQ(host.TakeReports(), (Reports{"click 10 value 1", "click 10"}));
    EXPECT_EQ(page.ItemAt(0, 0).uFlags & RIF_CHECKED, 0u);
}

TEST_F(GRibbonPageTest, ItemsAreHitWhateverTheirStateAndGroup)
{
    InsertButton(page, 1, 10, RIS_SMALL, nullptr, 0);
    page.ItemAt(0, 0).uFlags |= RIF_DISABLED;
    page.InsertGroup(1, 2, L"Fixed", 80);
    InsertButton(page, 2, 11, RIS_SMALL, nullptr, 0);
    Click(hwnd, MiddleOf(page, 0, 0));
    const POINT pt = MiddleOf(page, 1, 0);
    Click(hwnd, pt);
    EXPECT_EQ(host.TakeReports(), (Reports{"click 10", "click 11"}));

    Press(hwnd, pt.x, pt.y);
    page.RemoveItem(2, 11);
    Release(hwnd, pt.x, pt.y);
    EXPECT_EQ(host.TakeReports(), Reports{}) << "it went between press and release";
}

TEST_F(GRibbonPageTest, TheHotItemFollowsTheMouseButStaysThePressedOneOverOthers)
{
    InsertButton(page, 1, 10, RIS_LARGE, L"A", 0);
    InsertButton(page, 1, 11, RIS_LARGE, L"B", 0);
    const POINT ptA = MiddleOf(page, 0, 0);
    const POINT ptB = MiddleOf(page, 0, 1);
    const auto moves = [&](POINT pt, UINT uHot, bool fRepaints) {
        TakeRepaint(hwnd);
        Move(hwnd, pt.x, pt.y);
        EXPECT_EQ(page.m_uHotItem, uHot);
        EXPECT_EQ(TakeRepaint(hwnd), fRepaints);
    };
    moves(ptA, 0, true);
    moves({ptA.x + 1, ptA.y}, 0, false);
    moves(ptB, 1, true);
    EXPECT_NE(page.m_uState & GWS_HOT, 0u);
    moves({ptB.x, 110}, RIBBON_NONE, true);
    EXPECT_EQ(page.m_uState & GWS_HOT, 0u);
    Press(hwnd, ptA.x, ptA.y);
    EXPECT_EQ(page.m_uHotItem, 0u);
    moves(ptB, 0, true);
    moves({ptB.x, 110}, RIBBON_NONE, true);
    moves(ptA, 0, true);
    Release(hwnd, ptB.x, ptB.y);
    EXPECT_EQ(page.m_uHotItem, 0u) << "until the next move";
    moves(ptB, 1, true);
    SendMessageW(hwnd, WM_MOUSELEAVE, 0, 0);
    EXPECT_EQ(page.m_hover.item, RIBBON_NONE);
    EXPECT_EQ(page.m_uState & (GWS_HOT | GWS_TRACKING), 0u);
    EXPECT_EQ(page.m_uHotItem, 1u) << "the last hot item stays drawn hot";
}

TEST_F(GRibbonPageTest, LosingTheCaptureEndsThePressAndNothingToPressTakesNone)
{
    InsertButton(page, 1, 10, RIS_LARGE, L"A", 0);
    const POINT pt = MiddleOf(page, 0, 0);
    Press(hwnd, pt.x, pt.y);
    SendMessageW(hwnd, WM_CAPTURECHANGED, 0, reinterpret_cast<LPARAM>(hwnd));
    EXPECT_NE(page.m_uState & GWS_PRESSED, 0u) << "captured again by itself";
    SetCapture(host);
    EXPECT_EQ(page.m_uState & GWS_PRESSED, 0u);
    Release(hwnd, pt.x, pt.y);
    EXPECT_EQ(GetCapture(), host);
    EXPECT_EQ(host.TakeReports(), Reports{});
    ReleaseCapture();

    page.RemoveGroup(1);
    Press(hwnd, 30, 60);
    EXPECT_EQ(GetCapture(), nullptr) << "a page without groups takes none";
}

TEST(GRibbonPage, TheParentMayEndEverythingInTheCommand)
{
    for (const auto end : ENDS) {
        RibbonToEnd made;
        made.host.onReport = [&](const std::string&) { end(made); };
        Click(made.hwnd, MiddleOf(*made.pPage, 0, 0));
        EXPECT_EQ(made.host.TakeReports(), Reports{"click 10 value 1"});
        EXPECT_EQ(CountedPage::s_nLive, 0);
    }
}

TEST(GRibbonPage, TheParentMayEndThePageWhileItDrawsBehindIt)
{
    const HDC hdc = CreateCompatibleDC(nullptr);
    for (const auto end : ENDS) {
        RibbonToEnd made;
        const test::Interception background(made.host, WM_ERASEBKGND, [&] { end(made); });
        made.pPage->Draw(hdc);
        EXPECT_TRUE(background.Happened());
        EXPECT_EQ(CountedPage::s_nLive, 0);
    }
    DeleteDC(hdc);
}

// --- Lives

TEST_F(GRibbonPageTest, ACopyHasItsOwnGroupsAndSharesTheTexts)
{
    InsertButton(page, 1, 10, RIS_MEDIUM, L"Shared");
    OpenPage assigned(2, L"Other");
    {
        OpenPage copy(page);
        assigned = copy;
        copy.SetGroupName(1, L"Copied");
        EXPECT_EQ(copy.ItemAt(0, 0).pszText, page.ItemAt(0, 0).pszText);
        copy.RemoveItem(1, 10);
        InsertButton(copy, 1, 11, RIS_MEDIUM, L"The copy's own");
    }
    EXPECT_EQ(Narrow(page.m_aGroups[0].strTitle), "Group");
    EXPECT_EQ(ItemIds(page, 0), std::vector<UINT>{10});
    EXPECT_EQ(Narrow(page.ItemAt(0, 0).pszText), "Shared");
    EXPECT_EQ(Narrow(assigned.ItemAt(0, 0).pszText), "Shared");
    assigned.SetTitle(L"New");
    ribbon.RenamePage(&page, L"Renamed");
}

TEST(GRibbonPage, APageMayBeFilledBeforeItIsAdded)
{
    Host host;
    GRibbon ribbon;
    auto* pPage = new OpenPage(1, L"Page");
    pPage->InsertGroup(0, 1, L"Group", 0);
    InsertButton(*pPage, 1, 10, RIS_MEDIUM, L"Before", -1);
    InsertCheckBox(*pPage, 1, 11, false, L"Before");
    EXPECT_GT(WidthOf(pPage->ItemAt(0, 0)), 6);
    ribbon.AddPage(pPage, 0, nullptr);
    const HWND hwnd = CreateRibbon(ribbon, host);
    Print(hwnd);
    Click(hwnd, MiddleOf(*pPage, 0, 0));
    EXPECT_EQ(host.TakeReports(), Reports{"click 10"});
    ribbon.Destroy();
}
