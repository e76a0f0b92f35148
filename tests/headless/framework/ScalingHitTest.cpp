// Every hit is where it is drawn, at any dots an inch.

#include "ScalingFixture.h"

#include "../../ribbon/RibbonTestSupport.h"
#include "../../support/WithBehavior.h"

#include <gesso/edit/GComboBoxList.h>
#include <gesso/ribbon/GRightClickMenu.h>

namespace {

using namespace test;
using gesso::Behavior;
using gesso::Scale;
using gesso::Scaling;

class HitScaled : public ScalingTest, public testing::WithParamInterface<int>
{
protected:
    HitScaled()
    {
        gesso::SetScaling(Scaling::PerMonitor);
        desk::SetWindowDpi(m_host, GetParam());
    }
    int At(int nPixels) const { return Scale(m_host, nPixels); }
};

// The same of a text that may be broken, on its first line.
void ClickOnBroken(HWND hwnd, const std::string& text)
{
    const std::regex drawn("\"" + text + "\" \\((-?\\d+),(-?\\d+),(-?\\d+),(-?\\d+)\\)");
    std::smatch match;
    for (const std::string& line : NextPaint(hwnd, "")) {
        if (std::regex_search(line, match, drawn)) {
            const RECT rc = RectIn(match, 1);
            PointAt(hwnd, (rc.left + rc.right) / 2, rc.top + 5);
            PressThere();
            ReleaseThere();
            return;
        }
    }
    ADD_FAILURE() << "not shown: " << text;
}

INSTANTIATE_TEST_SUITE_P(Dpi, HitScaled, testing::ValuesIn(ALL_DPI));

TEST_P(HitScaled, RowsOfTreesPanesAndLists)
{
    const WithBehavior modern(Behavior::Modern);
    GTree tree;
    GNavigationBar bar;
    GList list;
    const HWND hwndTree = tree.Create(0, 0, At(110), At(200), m_host, 1, 0, WS_CHILD);
    const HWND hwndBar = bar.Create(0, 0, At(110), At(200), m_host, 2, 0, WS_CHILD);
    const HWND hwndList =
        list.Create(0, 0, At(110), At(200), m_host, 3, GLS_DETAILS | GLS_HEADER, 0, WS_CHILD);
    void* hFirst = tree.InsertItem(nullptr, nullptr, L"First", 0, TIS_EXPANDED, nullptr);
    void* hBelow = tree.InsertItem(hFirst, nullptr, L"Below", 0, 0, nullptr);
    bar.InsertItem(bar.GetRootItem(), nullptr, L"Head", 0, NBIK_HEADER, nullptr);
    bar.InsertItem(bar.GetRootItem(), nullptr, L"Mail", 0, NBIK_ITEM, nullptr);
    void* hSub = bar.InsertItem(bar.GetRootItem(), nullptr, L"Sub", 0, NBIK_SUBITEM, nullptr);
    list.InsertColumn(END, 0, DT_SINGLELINE | DT_VCENTER, 80, 0, L"Name", 0, LCT_TEXT, nullptr, nullptr,
                      nullptr, nullptr);
    list.InsertItem(END, 0, nullptr, 0, L"One", 0);
    list.InsertItem(END, 0, nullptr, 0, L"Two", 0);
    const std::pair<HWND, std::string> clicks[] = {{hwndTree, "Below"}, {hwndBar, "Sub"}, {hwndList, "Two"}};
    for (const auto& [hwnd, text] : clicks) {
        ShowWindow(hwnd, SW_SHOW);
        ClickOn(hwnd, text);
        ShowWindow(hwnd, SW_HIDE);
    }
    EXPECT_EQ(tree.GetSelectedItem(), hBelow);
    EXPECT_EQ(bar.GetSelectedItem(), hSub);
    EXPECT_EQ(list.GetSelected(1), 1);
    EXPECT_EQ(list.GetSelectedCount(), 1U);
    list.Destroy();
    bar.Destroy();
    tree.Destroy();
}

TEST_P(HitScaled, TabsAndItemsOfARibbon)
{
    for (const Behavior behavior : {Behavior::Classic, Behavior::Modern}) {
        const WithBehavior with(behavior);
        ribbon::OpenRibbon ribbon;
        const HWND hwnd = ribbon::CreateRibbon(ribbon, m_host);
        auto* pPage = new ribbon::OpenPage(1, L"One");
        ribbon.AddPage(pPage, 0, nullptr);
        ribbon.AddPage(nullptr, 2, L"Other");
        pPage->InsertGroup(0, 1, L"Group", 0);
        ribbon::InsertButton(*pPage, 1, 11, 3, L"Large");
        ribbon::InsertButton(*pPage, 1, 12, 2, L"Upper");
        ribbon::InsertButton(*pPage, 1, 13, 2, L"Lower");
        ribbon::InsertCheckBox(*pPage, 1, 14, false, L"Check");
        ribbon.SetActive(0);
        MoveWindow(hwnd, 0, 0, At(ribbon::RIBBON_WIDTH), At(ribbon::RIBBON_HEIGHT), TRUE);
        const std::pair<std::string, int> items[] = {
            {"Large", 11}, {"Upper", 12}, {"Lower", 13}, {"Check", 14}};
        for (const auto& [text, nId] : items) {
            m_host.TakeReports();
            nId == 11 ? ClickOnBroken(hwnd, text) : ClickOn(hwnd, text);
            const Reports reports = m_host.TakeReports();
            const std::string value = nId == 14 ? " value 1" : "";
            EXPECT_EQ(reports, Reports{"click " + std::to_string(nId) + value}) << text;
        }
        ClickOn(hwnd, "Other");
        EXPECT_EQ(ribbon.m_nActive, 1U);
        ribbon.Destroy();
    }
}

TEST_P(HitScaled, RowsOfACombosList)
{
    for (const Behavior behavior : {Behavior::Classic, Behavior::Modern}) {
        const WithBehavior with(behavior);
        GComboBox combo;
        combo.Create(0, 0, At(100), At(24), m_host, 5, WS_CHILD | WS_VISIBLE | GCBS_DROPDOWNLIST, 0);
        for (const LPCWSTR psz : {L"First", L"Second", L"Third"}) {
            combo.InsertItem(END, 0, psz, 0, nullptr);
        }
        const auto choose = [] { TapOn(TopLevelOf("GComboBoxList"), "Third"); };
        if (behavior == Behavior::Classic) {
            desk::WhenIdle(choose); // in the list's loop
        }
        PointAt(combo, At(100) - 3, At(12));
        PressThere();
        ReleaseThere();
        if (behavior == Behavior::Modern) {
            choose();
            desk::Pump();
        }
        EXPECT_EQ(combo.GetSelected(), 2U);
        combo.Destroy();
    }
}

TEST_P(HitScaled, RowsOfAValueMenu)
{
    constexpr LPCWSTR VALUES[] = {L"Open", L"Rename", L"Delete"};
    desk::WhenIdle([] { ClickOn(TopLevelOf("GRightClickMenu"), "Rename"); });
    EXPECT_EQ(GRightClickMenu::Track(m_host, 200, 100, VALUES, 3, END), 1U);
}

} // namespace
