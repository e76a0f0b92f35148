// What an edit field says of itself to those who do not see it, and what can be done with it.
#include "../support/Host.h"
#include "../support/WithBehavior.h"

#include <gesso/access/Find.h>

#include <gtest/gtest.h>

namespace {

using namespace test;
using gesso::AccessibleNode;
using gesso::AccessibleTree;
using gesso::Behavior;
using gesso::Role;

constexpr DWORD SHOWN = WS_CHILD | WS_VISIBLE;

class GEditAccess : public testing::TestWithParam<Behavior>
{
protected:
    GEditAccess() : m_behavior(GetParam()) { SetFocus(host); }

    AccessibleNode Make(LPCWSTR pszText, DWORD dwStyle = ES_AUTOHSCROLL)
    {
        edit.Destroy();
        edit.Create(0, 0, 200, 60, host, 7, pszText, SHOWN | dwStyle, 0);
        host.TakeReports();
        return gesso::FindAccessible(edit, Role::Text, nullptr);
    }
    static bool IsModern() { return GetParam() == Behavior::Modern; }
    // What typing tells.
    static Reports Edited()
    {
        return IsModern() ? Reports{"click 7 code 1024", "click 7 code 768"} : Reports{"click 7 code 768"};
    }

    WithBehavior m_behavior;
    Host host;
    GEdit edit;
};

INSTANTIATE_TEST_SUITE_P(Both, GEditAccess, testing::Values(Behavior::Classic, Behavior::Modern));

TEST_P(GEditAccess, ItIsNamedByTheLabelBeforeItAndHasItsTextAsValue)
{
    GLabel label;
    label.Create(0, 0, 80, 20, host, 1, L"&Name:", 0, SHOWN);
    Make(L"A & B");
    EXPECT_EQ(AccessibleTree(edit.GetHwnd()), "text \"Name\" = \"A & B\" [focusable]\n");
    SetFocus(edit.GetHwnd());
    edit.SetText(L"one\r\ntwo");
    EXPECT_EQ(AccessibleTree(edit.GetHwnd()),
              IsModern() ? "text \"Name\" = \"one two\" [focused, focusable]\n"
                         : "text \"Name\" = \"one\\r\\ntwo\" [focused, focusable]\n");
    Make(L"one\r\ntwo", ES_MULTILINE);
    EXPECT_EQ(AccessibleTree(edit.GetHwnd()), "text \"Name\" = \"one\\r\\ntwo\" [focusable]\n");
    edit.SetText(nullptr);
    EnableWindow(edit.GetHwnd(), FALSE);
    EXPECT_EQ(AccessibleTree(edit.GetHwnd()), "text \"Name\" [unavailable]\n");
}

TEST_P(GEditAccess, APasswordIsNotTold)
{
    const AccessibleNode field = Make(L"secret", ES_PASSWORD | ES_AUTOHSCROLL);
    EXPECT_EQ(AccessibleTree(edit.GetHwnd()), "text \"\" [focusable, protected]\n");
    EXPECT_EQ(field.GetValue(nullptr, 0), 0U);
    EXPECT_TRUE(field.SetValue(L"other"));
    EXPECT_EQ(TextOf(edit.GetHwnd()), "other");
    EXPECT_EQ(AccessibleTree(edit.GetHwnd()), "text \"\" [focusable, protected]\n");
}

TEST_P(GEditAccess, AValueIsTypedOverTheText)
{
    const AccessibleNode field = Make(L"Ada");
    EXPECT_TRUE(field.SetValue(L"Eve"));
    EXPECT_EQ(host.TakeReports(), Edited());
    EXPECT_EQ(TextOf(edit.GetHwnd()), "Eve");
    EXPECT_TRUE(edit.IsModified());
    int nStart = 0, nEnd = 0;
    edit.GetSel(&nStart, &nEnd);
    EXPECT_EQ(nStart, 3);
    EXPECT_EQ(nEnd, 3);
    EXPECT_TRUE(field.SetValue(nullptr));
    EXPECT_EQ(host.TakeReports(), Edited());
    EXPECT_EQ(TextOf(edit.GetHwnd()), "");
    EnableWindow(edit.GetHwnd(), FALSE);
    EXPECT_FALSE(field.SetValue(L"x"));
    EXPECT_EQ(host.TakeReports(), Reports());
    EXPECT_EQ(TextOf(edit.GetHwnd()), "");
}

TEST_P(GEditAccess, WhatMayNotBeTypedStaysOut)
{
    if (!IsModern()) {
        return; // which takes whatever is typed
    }
    const AccessibleNode number = Make(L"7", ES_NUMBER | ES_AUTOHSCROLL);
    EXPECT_FALSE(number.SetValue(L"4a2"));
    EXPECT_EQ(TextOf(edit.GetHwnd()), "42");
    SendMessageW(edit.GetHwnd(), EM_UNDO, 0, 0);
    EXPECT_EQ(TextOf(edit.GetHwnd()), "7");
    const AccessibleNode fixed = Make(L"fixed", ES_READONLY | ES_AUTOHSCROLL);
    EXPECT_EQ(AccessibleTree(edit.GetHwnd()), "text \"\" = \"fixed\" [read only, focusable]\n");
    EXPECT_FALSE(fixed.SetValue(L"x"));
    EXPECT_EQ(TextOf(edit.GetHwnd()), "fixed");
}

TEST_P(GEditAccess, TheFieldMayGoInWhatItTells)
{
    const AccessibleNode field = Make(L"Ada");
    host.onReport = [this](const std::string&) { edit.Destroy(); };
    field.SetValue(L"Eve");
    host.onReport = nullptr;
    EXPECT_EQ(field.role(), Role::None);
    EXPECT_FALSE(field.SetValue(L"x"));
}

} // namespace
