// Lists that are assigned one another: nothing is lost, and nothing goes twice.

#include "../../support/Host.h"
#include "../FreshDesktop.h"

#include <gtest/gtest.h>

namespace {

using namespace test;

class ListAssignTest : private FreshDesktop, public testing::Test
{
protected:
    void Fill(GList& list, LPCWSTR text)
    {
        list.Create(0, 0, 200, 100, m_host, 1, GLS_DETAILS, 0, WS_CHILD | WS_VISIBLE);
        list.InsertColumn(0, 0, 0, 100, 20, L"Column", 0, LCT_TEXT, nullptr, nullptr, nullptr, nullptr);
        list.InsertGroup(0, L"Group", 0, 0);
        list.InsertItem(0, 0, nullptr, 0, text, 0);
    }
    HWND Field(GList& list)
    {
        return CreateWindowExW(0, L"GLabel", nullptr, WS_CHILD | WS_VISIBLE, 0, 0, 50, 20, list, nullptr,
                               nullptr, nullptr);
    }

    Host m_host;
};

TEST_F(ListAssignTest, ListReleasesWhatItHadAndSharesTheOther)
{
    GList first, second;
    Fill(first, L"One");
    Fill(second, L"Two");
    const HWND hwndParted = second;
    second = first;
    EXPECT_EQ(Narrow(second.GetItemText(0, 0)), "One");
    EXPECT_EQ(second.GetHwnd(), first.GetHwnd());
    DestroyWindow(hwndParted);
    DestroyWindow(first);
}

TEST_F(ListAssignTest, ListThatTakesItsCopyBackStaysTheOwner)
{
    GList list;
    Fill(list, L"One");
    const GList copy(list);
    list.InsertItem(1, 0, nullptr, 0, L"Two", 0);
    list = copy;
    EXPECT_EQ(list.GetItemCount(), 1u);
    DestroyWindow(list);
}

TEST_F(ListAssignTest, CopyEndsTheEditOfItsOriginal)
{
    GList list;
    Fill(list, L"One");
    HWND field = Field(list);
    const LONG_PTR procedure = GetWindowLongPtrW(field, GWLP_WNDPROC);
    list.BeginEdit(1, &field);
    GList copy(list);
    GList late(list);
    copy.EndEdit();
    EXPECT_EQ(GetWindowLongPtrW(field, GWLP_WNDPROC), procedure);
    late.EndEdit(); // of an edit that is over
    list.BeginEdit(1, &field);
    EXPECT_NE(GetWindowLongPtrW(field, GWLP_WNDPROC), procedure);
    list.EndEdit();
    DestroyWindow(list);
}

TEST_F(ListAssignTest, AnEditLeavesAWindowAloneThatItCouldNotTake)
{
    GList list;
    Fill(list, L"One");
    HWND field = Field(list);
    const LONG_PTR procedure = GetWindowLongPtrW(field, GWLP_WNDPROC);
    desk::Fail("SetWindowLongPtrW");
    list.BeginEdit(1, &field);
    list.EndEdit();
    EXPECT_EQ(GetWindowLongPtrW(field, GWLP_WNDPROC), procedure);
    DestroyWindow(list);
}

} // namespace
