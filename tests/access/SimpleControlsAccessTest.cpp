// What the simple controls say of themselves to those who do not see them, and what can be done with them.
#include "../support/Host.h"

#include <gesso/access/Find.h>

#include <gtest/gtest.h>

namespace {

using gesso::AccessibleTree;
using gesso::Role;
using test::Host;
using test::Reports;

constexpr DWORD SHOWN = WS_CHILD | WS_VISIBLE;

class SimpleControlsAccess : public testing::Test
{
protected:
    SimpleControlsAccess() { SetFocus(m_host); }

    Host m_host;
};

TEST_F(SimpleControlsAccess, AButtonIsNamedByItsTextAndTellsItsState)
{
    GButton button;
    const HWND hwnd = button.Create(0, 0, 80, 24, m_host, 7, L"&Save", 0, SHOWN | GBS_DEFAULT);
    EXPECT_EQ(AccessibleTree(hwnd), "push button \"Save\" [default, focusable]\n");
    button.SetText(L"Save && \"go\"\r\n\\");
    EnableWindow(hwnd, FALSE);
    EXPECT_EQ(AccessibleTree(hwnd), "push button \"Save & \\\"go\\\"\\r\\n\\\\\" [unavailable, default]\n");
    EnableWindow(hwnd, TRUE);
    ShowWindow(hwnd, SW_HIDE);
    EXPECT_EQ(AccessibleTree(hwnd),
              "push button \"Save & \\\"go\\\"\\r\\n\\\\\" [default, invisible, focusable]\n");
    button.Destroy();
    EXPECT_EQ(AccessibleTree(hwnd), "");
}

TEST_F(SimpleControlsAccess, EachKindHasItsRoleNameAndValue)
{
    GCommandButton link;
    GNavigationButton back;
    GCheckBox box;
    GRadioButton radio;
    GProgressBar bar;
    GSeparator grip;
    GLabel line;
    const HWND hwndLink = link.Create(0, 0, 80, 40, m_host, 1, L"&Open", L"A note", 0, SHOWN);
    const HWND hwndBack = back.Create(0, 0, 30, 30, m_host, 2, 0, SHOWN);
    const HWND hwndBox = box.Create(0, 0, 80, 20, m_host, 3, L"&Keep", 0, SHOWN);
    const HWND hwndRadio = radio.Create(0, 0, 80, 20, m_host, 4, L"&One", 0, SHOWN);
    const HWND hwndBar = bar.Create(0, 0, 80, 20, m_host, 5, 0, SHOWN);
    const HWND hwndGrip = grip.Create(0, 0, 8, 80, m_host, 6, 0, SHOWN);
    const HWND hwndLine = line.Create(0, 0, 80, 2, m_host, 7, L"", 0, SHOWN | GLS_ETCHEDHORZ);

    EXPECT_EQ(AccessibleTree(hwndLink), "push button \"Open\" description \"A note\" [focusable]\n");
    EXPECT_EQ(AccessibleTree(hwndBack), "push button \"Back\" [focusable]\n");
    box.SetCheck(BST_INDETERMINATE);
    EXPECT_EQ(AccessibleTree(hwndBox), "check button \"Keep\" [mixed, focusable]\n");
    box.SetCheck(BST_CHECKED);
    EXPECT_EQ(AccessibleTree(hwndBox), "check button \"Keep\" [checked, focusable]\n");
    EXPECT_EQ(AccessibleTree(hwndRadio), "radio button \"One\" [focusable]\n");
    bar.SetProgress(421);
    gesso::SetAccessibleName(hwndBar, L"Copied & sent");
    EXPECT_EQ(AccessibleTree(hwndBar), "progress bar \"Copied & sent\" = \"42%\" []\n");
    gesso::SetAccessibleName(hwndBar, nullptr);
    bar.SetProgress(4000);
    EXPECT_EQ(AccessibleTree(hwndBar), "progress bar \"\" = \"100%\" []\n");
    EXPECT_EQ(AccessibleTree(hwndGrip), "grip \"\" []\n");
    EXPECT_EQ(AccessibleTree(hwndLine), "separator \"\" [read only]\n");
}

TEST_F(SimpleControlsAccess, ALabelNamesTheControlBehindIt)
{
    GLabel label;
    GProgressBar bar, other;
    label.Create(0, 0, 80, 20, m_host, 1, L"&Done:", 0, SHOWN);
    const HWND hwndBar = bar.Create(0, 0, 80, 20, m_host, 2, 0, SHOWN);
    const HWND hwndOther = other.Create(0, 0, 80, 20, m_host, 3, 0, SHOWN);
    EXPECT_EQ(AccessibleTree(hwndBar), "progress bar \"Done\" = \"0%\" []\n");
    EXPECT_EQ(AccessibleTree(hwndOther), "progress bar \"\" = \"0%\" []\n");
    EXPECT_EQ(AccessibleTree(label.GetHwnd()), "static text \"Done:\" [read only]\n");
}

TEST_F(SimpleControlsAccess, APressIsTheUsers)
{
    GButton button;
    const HWND hwnd = button.Create(0, 0, 80, 24, m_host, 7, L"&Save", 0, SHOWN);
    const auto node = gesso::FindAccessible(m_host, Role::PushButton, L"Save");
    ASSERT_TRUE(node);
    m_host.TakeReports();
    EXPECT_TRUE(node.Press());
    EXPECT_EQ(m_host.TakeReports(), (Reports{"setfocus 7", "click 7"}));
    EXPECT_EQ(GetFocus(), hwnd);
    EnableWindow(hwnd, FALSE);
    m_host.TakeReports();
    EXPECT_FALSE(node.Press());
    EXPECT_FALSE(node.Expand());
    EXPECT_FALSE(node.SetValue(L"x"));
    EXPECT_EQ(m_host.TakeReports(), Reports());
    button.Destroy();
    EXPECT_TRUE(node);
    EXPECT_EQ(node.role(), Role::None);
    EXPECT_EQ(node.GetName(nullptr, 0), 0U);
    EXPECT_FALSE(node.Press());
}

TEST_F(SimpleControlsAccess, WhatIsThereTwiceOrNotIsNotFound)
{
    GButton one, two;
    one.Create(0, 0, 80, 24, m_host, 1, L"Save", 0, SHOWN);
    two.Create(0, 40, 80, 24, m_host, 2, L"Save", 0, SHOWN);
    EXPECT_FALSE(gesso::FindAccessible(m_host, Role::PushButton, L"Save"));
    EXPECT_FALSE(gesso::FindAccessible(m_host, Role::PushButton, L"Open"));
    EXPECT_FALSE(gesso::FindAccessible(nullptr, Role::PushButton, L"Save"));
    two.SetVisible(FALSE);
    EXPECT_TRUE(gesso::FindAccessible(m_host, Role::PushButton, L"Save"));
}

TEST_F(SimpleControlsAccess, AScrollBarHasFiveParts)
{
    GScrollbar bar;
    const HWND hwnd = bar.Create(0, 0, 20, 200, m_host, 9, 0, SHOWN);
    bar.InitScrollBar(1000);
    bar.ScrSetTotalHeight(1000);
    bar.SetScrollPos(400);
    EXPECT_EQ(AccessibleTree(hwnd), "scroll bar \"Vertical\" = \"50%\" []\n"
                                    "  push button \"line up\" []\n"
                                    "  push button \"page up\" []\n"
                                    "  indicator \"thumb\" []\n"
                                    "  push button \"page down\" []\n"
                                    "  push button \"line down\" []\n");
    m_host.TakeReports();
    EXPECT_TRUE(gesso::FindAccessible(hwnd, Role::PushButton, L"page down").Press());
    EXPECT_EQ(m_host.TakeReports(), Reports{"pagedown 9"});
    bar.UninitScrollBar();
}

bool CallItOther(HWND, int nChild, gesso::AccessibleText* text, void* context)
{
    text->name = L"Other";
    text->description = static_cast<LPCWSTR>(context);
    return nChild == 0 && text->role == Role::PushButton;
}

TEST_F(SimpleControlsAccess, AProgramHasItsOwnWords)
{
    GButton button;
    const HWND hwnd = button.Create(0, 0, 80, 24, m_host, 7, L"&Save", 0, SHOWN);
    gesso::SetAccessibleDescription(hwnd, L"Keeps it");
    EXPECT_EQ(AccessibleTree(hwnd), "push button \"Save\" description \"Keeps it\" [focusable]\n");
    wchar_t szContext[] = L"why";
    gesso::DescribeAccessible(hwnd, CallItOther, szContext);
    EXPECT_EQ(AccessibleTree(hwnd), "push button \"Other\" description \"why\" [focusable]\n");
    gesso::DescribeAccessible(hwnd, nullptr, nullptr);
    gesso::SetAccessibleDescription(hwnd, nullptr);
    EXPECT_EQ(AccessibleTree(hwnd), "push button \"Save\" [focusable]\n");
}

} // namespace
