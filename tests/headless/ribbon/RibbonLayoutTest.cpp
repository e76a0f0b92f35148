// The layout of a ribbon page, which needs no window, and its check.

#include "../../ribbon/RibbonTestSupport.h"
#include "../FreshDesktop.h"

#include <gesso/ribbon/RibbonLayout.h>

#include <random>

namespace {

using namespace test::ribbon;
using gesso::CheckGroups;

constexpr LPCWSTR TEXTS[] = {L"", L"Cut", L"Paste as picture", L"a rather long text of many words"};

// Does at random what changes groups and items.
class PageMonkey
{
public:
    explicit PageMonkey(OpenPage& page) : m_page(page) {}

    void Act()
    {
        const DWORD dwGroup = Id(), dwItem = Id();
        const auto wSize = static_cast<WORD>(Below(5)); // also none of the three
        switch (Below(8)) {
        case 0: m_page.InsertGroup(Id(), dwGroup, Text(), Below(4) ? 0 : 120); break;
        case 1: m_page.RemoveGroup(Below(3) ? 0 : dwGroup); break;
        case 2: m_page.RemoveItem(dwGroup, dwItem); break;
        case 3: InsertCheckBox(m_page, dwGroup, dwItem, Below(2), Text()); break;
        case 4: m_page.AddWindow(dwGroup, nullptr); break;
        case 5: Change(dwGroup, dwItem, UINT{wSize} << 16); break;
        default: InsertButton(m_page, dwGroup, dwItem, wSize, Text(), -1, Id()); break;
        }
    }

private:
    UINT Below(UINT n) { return static_cast<UINT>(m_random()) % n; }
    DWORD Id() { return Below(6); }
    LPCWSTR Text() { return TEXTS[Below(std::size(TEXTS))]; }

    void Change(DWORD dwGroup, DWORD dwItem, UINT uSize)
    {
        GRibbonPage::ItemInfo info{};
        info.uType = RIT_BUTTON;
        info.nId = dwItem;
        info.nOptions = 1;
        info.puOptions = &uSize;
        info.nImage = -1;
        info.pszText = Text();
        m_page.SetItemInfo(dwGroup, dwItem, &info);
    }

    OpenPage& m_page;
    std::mt19937 m_random{17};
};

TEST(RibbonLayout, WhatChangesStepByStepStandsAsIfPlacedAnew)
{
    const FreshDesktop desktop;
    const AllowMisuse allowed;
    OpenPage page(1, L"Page");
    PageMonkey monkey(page);
    for (int nStep = 0; nStep < 3000; nStep++) {
        monkey.Act();
        ASSERT_TRUE(CheckGroups(nullptr, page.m_aGroups)) << "step " << nStep;
    }
    EXPECT_GT(page.m_aGroups.GetLength(), 1u);
}

TEST(RibbonLayout, TheCheckFindsWhatStandsWrong)
{
    const FreshDesktop desktop;
    OpenPage page(1, L"Page");
    page.InsertGroup(0, 1, L"First", 0);
    page.InsertGroup(1, 2, L"Second", 0);
    for (UINT i = 0; i < 4; i++) {
        InsertButton(page, 1, i, RIS_MEDIUM, L"Text");
    }
    const auto breaks = [&](auto change) {
        auto groups = page.m_aGroups;
        change(groups);
        return CheckGroups(nullptr, page.m_aGroups) && !CheckGroups(nullptr, groups);
    };
    EXPECT_TRUE(breaks([](auto& groups) { groups[0].aItems[1].nTop++; }));
    EXPECT_TRUE(breaks([](auto& groups) { groups[0].aItems[3].nRight++; })) << "wider than the group knows";
    EXPECT_TRUE(breaks([](auto& groups) { groups[0].nPlacedItems++; }));
    EXPECT_TRUE(breaks([](auto& groups) { groups[1].nRight++; }));
    EXPECT_TRUE(breaks([](auto& groups) {
        groups[1].nLeft--;
        groups[1].nRight--;
    })) << "on the former group's line";
}

} // namespace

TEST(RibbonLayout, AHostsRecordMayHoldAnything)
{
    GRibbonPage::Group group{};
    GRibbonPage::Item item{};
    item.nLeft = item.nTop = INT_MIN;
    item.nRight = item.nBottom = INT_MAX;
    for (int i = 0; i < 3; i++) {
        group.aItems.Add(item);
    }
    gesso::PlaceItems(nullptr, group);
    EXPECT_EQ(group.nPlacedItems, 3u);
}
