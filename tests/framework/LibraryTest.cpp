#include <gesso/gesso.h>

#include "../support/Host.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

TEST(Library, InitControlsMakesOneFontAndRegistersEachClassOnce)
{
    InitControls();
    const HFONT hFont = g_hDefaultFont;
    const ATOM aButton = GButton::s_aClass;
    const ATOM aLabel = GLabel::s_aClass;
    ASSERT_TRUE(hFont);
    EXPECT_TRUE(aButton);
    EXPECT_TRUE(aLabel);

    InitControls();
    EXPECT_EQ(g_hDefaultFont, hFont);
    EXPECT_EQ(GButton::s_aClass, aButton);
    EXPECT_EQ(GLabel::s_aClass, aLabel);

    LOGFONTW font{};
    ASSERT_GT(GetObjectW(hFont, sizeof(font), &font), 0);
    EXPECT_EQ(test::Narrow(font.lfFaceName), "Segoe UI");
    EXPECT_EQ(font.lfWeight, FW_NORMAL);
    EXPECT_EQ(font.lfHeight, -12) << "9 points at 96 dots an inch";
}

TEST(Library, ClassesHaveTheStatedStyleBackgroundAndExtraBytes)
{
    InitControls();
    for (const wchar_t* pszName : {L"GButton", L"GLabel"}) {
        WNDCLASSEXW record{};
        record.cbSize = sizeof(record);
        ASSERT_TRUE(GetClassInfoExW(GetModuleHandleW(nullptr), pszName, &record)) << test::Narrow(pszName);
        EXPECT_EQ(record.style, 0x4083u);
        EXPECT_EQ(reinterpret_cast<LONG_PTR>(record.hbrBackground), COLOR_WINDOW + 1);
        EXPECT_EQ(record.cbWndExtra, 12);
        EXPECT_TRUE(record.hCursor);
        EXPECT_FALSE(record.hIcon);
    }
}

TEST(Library, CreateControlMakesItsKindsAndNothingElse)
{
    for (const int nKind : {GCK_LABEL, GCK_BUTTON}) {
        auto* pWnd = static_cast<GWnd*>(CreateControl(nKind));
        ASSERT_TRUE(pWnd) << nKind;
        EXPECT_EQ(pWnd->GetHwnd(), nullptr);
        pWnd->Delete(pWnd);
    }
    for (const int nKind : {0, 11, -1, INT_MIN, INT_MAX}) {
        EXPECT_EQ(CreateControl(nKind), nullptr) << nKind;
    }
    auto* pLabel = static_cast<GWnd*>(CreateControl(GCK_LABEL));
    EXPECT_TRUE(dynamic_cast<GLabel*>(pLabel));
    pLabel->Delete(nullptr);
    pLabel->Delete(pLabel);
}

} // namespace
