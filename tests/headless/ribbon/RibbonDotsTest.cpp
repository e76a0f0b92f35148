// A ribbon's items at dots an inch at which their rows do not come out even.
#include "../../ribbon/RibbonTestSupport.h"
#include "../FreshDesktop.h"

#include <gesso/access/Find.h>

#include <gtest/gtest.h>

namespace {

using namespace test::ribbon;

TEST(RibbonDots, AColumnHasItsThreeRowsAtAnyDotsAnInch)
{
    const test::FreshDesktop desktop;
    Host host;
    gesso::SetScaling(gesso::Scaling::PerMonitor);
    for (const int nDpi : {96, 120, 144, 168, 192, 216, 288}) {
        gesso::headless::SetWindowDpi(host, nDpi);
        OpenRibbon ribbon;
        const HWND hwnd = CreateRibbon(ribbon, host);
        ribbon.AddPage(nullptr, 1, L"Home");
        GRibbonPage& home = *ribbon.GetPage(1);
        home.InsertGroup(0, 1, L"Group", 0);
        InsertButton(home, 1, 11, RIS_MEDIUM, L"One");
        InsertButton(home, 1, 12, RIS_MEDIUM, L"Two");
        InsertButton(home, 1, 13, RIS_MEDIUM, L"Three");
        const auto left = [&](LPCWSTR pszName) {
            return gesso::FindAccessible(hwnd, gesso::Role::PushButton, pszName).GetRect().left;
        };
        EXPECT_EQ(left(L"Two"), left(L"One")) << nDpi;
        EXPECT_EQ(left(L"Three"), left(L"One")) << nDpi;
        ribbon.Destroy();
    }
    gesso::SetScaling(gesso::Scaling::None);
}

} // namespace
