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

// The sanitizers, and what the desktop still has at the end, tell whether each goes just once.
TEST_F(ListAssignTest, ListTakesBackWhatIsLeftOfItsCopysShare)
{
    for (const int nGone : {0, 1, 2, 3}) {
        struct : GList
        {
            using GList::OnSetFont;
        } list;
        Fill(list, L"One");
        GList copy(list);
        const HFONT lent = CreateFontW(-20, 0, 0, 0, 400, 0, 0, 0, 0, 0, 0, 0, 0, L"Segoe UI");
        nGone > 0 ? list.RemoveAllItems() : void();
        nGone > 1 ? list.RemoveAllColumns() : void();
        nGone > 2 ? list.RemoveAllGroups() : void();
        nGone > 2 ? void(list.OnSetFont(lent, 0)) : void();
        copy = list;
        GList& assigned = list;
        assigned = copy;
        assigned = static_cast<const GList&>(list);
        EXPECT_EQ(list.GetItemCount(), nGone == 0 ? 1u : 0u);
        DestroyWindow(list);
        EXPECT_TRUE(DeleteObject(lent));
    }
}

TEST_F(ListAssignTest, ListThatIsAssignedEndsItsEdit)
{
    GList list, other;
    Fill(list, L"One");
    Fill(other, L"Two");
    HWND field = Field(list);
    const LONG_PTR procedure = GetWindowLongPtrW(field, GWLP_WNDPROC);
    const HWND hwnd = list;
    list.BeginEdit(1, &field);
    {
        const GList copy(list);
        list = copy;
        EXPECT_NE(GetWindowLongPtrW(field, GWLP_WNDPROC), procedure) << "the copy's edit is its own";
    }
    list = other;
    EXPECT_EQ(GetWindowLongPtrW(field, GWLP_WNDPROC), procedure);
    DestroyWindow(hwnd);
    DestroyWindow(other);
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
