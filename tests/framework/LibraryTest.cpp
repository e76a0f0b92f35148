#include <gesso/gesso.h>

#include "../support/Host.h"

#include <gtest/gtest.h>

#include <climits>
#include <typeinfo>

namespace {

using namespace test;

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
    EXPECT_EQ(Narrow(font.lfFaceName), "Segoe UI");
    EXPECT_EQ(font.lfWeight, FW_NORMAL);
    EXPECT_EQ(font.lfHeight, -12) << "9 points at 96 dots an inch";
}

TEST(Library, ClassesHaveTheStatedStyleBackgroundAndExtraBytes)
{
    InitControls();
    const std::pair<LPCWSTR, UINT> classes[] = {
        {L"GButton", 0x4083},        {L"GCheckBox", 0x4083},    {L"GComboBox", 0x408B},
        {L"GCommandButton", 0x4083}, {L"GEdit", 0x408B},        {L"GLabel", 0x4083},
        {L"GList", 0x400B},          {L"GProgressBar", 0x4083}, {L"GNavigationButton", 0x4083},
        {L"GRadioButton", 0x4083},   {L"GTree", 0x400B},
    };
    for (const auto& [pszName, uStyle] : classes) {
        WNDCLASSEXW record{};
        record.cbSize = sizeof(record);
        ASSERT_TRUE(GetClassInfoExW(GetModuleHandleW(nullptr), pszName, &record)) << Narrow(pszName);
        EXPECT_EQ(record.style, uStyle) << Narrow(pszName);
        EXPECT_EQ(reinterpret_cast<LONG_PTR>(record.hbrBackground), COLOR_WINDOW + 1);
        EXPECT_EQ(record.cbWndExtra, 12);
        EXPECT_TRUE(record.hCursor);
        EXPECT_FALSE(record.hIcon);
    }
}

template <class CONTROL> void ExpectKind(int nKind)
{
    auto* pWnd = static_cast<GWnd*>(CreateControl(nKind));
    ASSERT_TRUE(pWnd) << nKind;
    EXPECT_EQ(typeid(*pWnd), typeid(CONTROL)) << nKind;
    EXPECT_EQ(pWnd->GetHwnd(), nullptr);
    pWnd->Delete(nullptr);
    pWnd->Delete(pWnd);
}

TEST(Library, CreateControlMakesItsKindsAndNothingElse)
{
    ExpectKind<GLabel>(GCK_LABEL);
    ExpectKind<GButton>(GCK_BUTTON);
    ExpectKind<GCheckBox>(GCK_CHECKBOX);
    ExpectKind<GRadioButton>(GCK_RADIOBUTTON);
    ExpectKind<GCommandButton>(GCK_COMMANDBUTTON);
    ExpectKind<GComboBox>(GCK_COMBOBOX);
    ExpectKind<GProgressBar>(GCK_PROGRESSBAR);
    ExpectKind<GSeparator>(GCK_SEPARATOR);
    ExpectKind<GList>(GCK_LIST);
    ExpectKind<GTree>(GCK_TREE);
    for (const int nKind : {0, 11, -1, INT_MIN, INT_MAX}) {
        EXPECT_EQ(CreateControl(nKind), nullptr) << nKind;
    }
}

TEST(Library, ControlsThatStartUpDoesNotRegisterRegisterThemselves)
{
    GSeparator separator;
    GScrollbar scrollbar;
    const Host host;
    EXPECT_TRUE(separator.Create(0, 0, 5, 50, host, 1, 0, WS_CHILD));
    EXPECT_TRUE(scrollbar.Create(0, 0, 17, 50, host, 1, 0, WS_CHILD));
}

} // namespace
