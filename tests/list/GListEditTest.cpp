#include "ListFixture.h"

#include <tests/support/AllowMisuse.h>

namespace {

using namespace test;

class GListEditTest : public ListFixture
{
protected:
    void SetUp() override
    {
        MakeFilledList(2, 3);
        for (HWND& edit : edits) {
            edit = CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE, 0, 0, 50, 20, list,
                                   reinterpret_cast<HMENU>(5), nullptr, nullptr);
            ASSERT_TRUE(edit);
        }
    }
    // What the host does when an edit window loses the focus.
    void WhenLeft(const std::function<void()>& act)
    {
        host.onNotify = [act](const Notified& notified) {
            if (notified.code == EDIT_LEFT) {
                act();
            }
        };
    }
    static LONG_PTR ProcOf(HWND hwnd) { return GetWindowLongPtrW(hwnd, GWLP_WNDPROC); }

    HWND edits[2]{};
};

TEST_F(GListEditTest, AnEditTellsWhenAWindowOfItLosesTheFocus)
{
    const LONG_PTR own = ProcOf(edits[0]);
    list.BeginEdit(2, edits);
    EXPECT_NE(ProcOf(edits[0]), own);
    EXPECT_EQ(list.editWindows[1], edits[1]);
    EXPECT_EQ(list.editWindows[2], nullptr);
    SetWindowTextW(edits[0], L"new name");
    EXPECT_EQ(TextOf(edits[0]), "new name") << "what the user types reaches the window's own procedure";

    SetFocus(list);
    host.Take();
    SetFocus(edits[0]);
    EXPECT_EQ(host.TakeCodes(), std::vector<int>{FOCUS_KILLED}) << "the focus stays inside";
    SetFocus(edits[1]);
    EXPECT_EQ(host.TakeCodes(), std::vector<int>{EDIT_LEFT});
    SetFocus(list);
    EXPECT_EQ(host.TakeCodes(), (std::vector<int>{EDIT_LEFT, FOCUS_SET}));
    SetFocus(host);
    EXPECT_EQ(host.TakeCodes(), (std::vector<int>{EDIT_LEFT, FOCUS_KILLED}));

    list.EndEdit();
    EXPECT_EQ(list.editWindows, nullptr);
    EXPECT_EQ(ProcOf(edits[0]), own);
    EXPECT_EQ(ProcOf(edits[1]), own);
}

TEST_F(GListEditTest, TheEditMayEndInItsNotification)
{
    const LONG_PTR own = ProcOf(edits[0]);
    list.BeginEdit(1, edits);
    SetFocus(edits[0]);
    WhenLeft([&] { list.EndEdit(); });
    SetFocus(host);
    EXPECT_EQ(ProcOf(edits[0]), own);

    list.BeginEdit(1, edits);
    SetFocus(edits[0]);
    WhenLeft([&] {
        list.EndEdit();
        DestroyWindow(edits[0]);
    });
    SetFocus(host);
    EXPECT_FALSE(IsWindow(edits[0]));
}

TEST_F(GListEditTest, BothWindowsMayGoInTheNotification)
{
    list.BeginEdit(1, edits);
    SetFocus(edits[0]);
    WhenLeft([&] { DestroyWindow(list); });
    SetFocus(host);
    EXPECT_FALSE(IsWindow(list));
    EXPECT_FALSE(IsWindow(edits[0]));
}

TEST_F(GListEditTest, AWindowThatWentInTheNotificationGetsNoMoreMessages)
{
    static int s_late;
    static WNDPROC s_pfnOwn;
    s_late = 0;
    constexpr WNDPROC COUNT = [](HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam) -> LRESULT {
        s_late += IsWindow(hwnd) ? 0 : 1;
        return CallWindowProcW(s_pfnOwn, hwnd, uMsg, wParam, lParam);
    };
    s_pfnOwn = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(edits[0], GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(COUNT)));
    list.BeginEdit(1, edits);
    SetFocus(edits[0]);
    host.onNotify = [&](const Notified&) { DestroyWindow(edits[0]); };
    SetFocus(host);
    EXPECT_FALSE(IsWindow(edits[0]));
    EXPECT_EQ(s_late, 0);
    list.EndEdit();
}

TEST_F(GListEditTest, WindowsThatCannotBeEditedInAreLeftAlone)
{
    const LONG_PTR own = ProcOf(edits[0]);
    HWND windows[] = {host, edits[0], edits[0], edits[1]};
    const AllowMisuse allowed;
    list.BeginEdit(4, windows);
    EXPECT_EQ(list.editWindows[0], edits[0]);
    EXPECT_EQ(list.editWindows[1], edits[1]);
    EXPECT_EQ(list.editWindows[2], nullptr);
    list.EndEdit();
    EXPECT_EQ(ProcOf(edits[0]), own) << "a window named twice gets its own procedure back";
}

TEST_F(GListEditTest, ASecondEditAndTheListsEndGiveTheWindowsBack)
{
    const LONG_PTR own = ProcOf(edits[0]);
    list.BeginEdit(1, edits);
    list.BeginEdit(1, edits + 1);
    EXPECT_EQ(ProcOf(edits[0]), own);
    list.BeginEdit(1, edits + 1);
    SetFocus(edits[1]);
    SetFocus(host);
    EXPECT_EQ(list.editWindows[0], edits[1]);
    Renew();
    EXPECT_EQ(ProcOf(edits[1]), own);
}

} // namespace
