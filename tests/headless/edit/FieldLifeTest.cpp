// What a field of Modern edits goes with the window that it was made for.

#include "../../support/Host.h"
#include "../../support/WithBehavior.h"

#include <gesso/gesso.h>
#include <platform/headless/headless.h>

namespace {

using namespace test;

class FieldLifeTest : public testing::Test
{
protected:
    HWND Make(GEdit& edit, LPCWSTR psz)
    {
        const HWND hwnd = edit.Create(0, 0, 100, 40, host, 1, psz, WS_CHILD | WS_VISIBLE, 0);
        RedrawWindow(hwnd, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
        return hwnd;
    }
    static std::string TextOf(const GEdit& edit)
    {
        wchar_t text[32];
        int nCapacity = 32;
        edit.GetText(text, &nCapacity);
        return std::string(text, text + nCapacity);
    }

    Host host;
    Modern modern;
};

TEST_F(FieldLifeTest, AnObjectWithASecondWindowHasTheTextOfThat)
{
    const gesso::headless::Census before = gesso::headless::Live();
    {
        GEdit edit;
        const HWND hwndFormer = Make(edit, L"first");
        Make(edit, L"second");
        EXPECT_EQ(TextOf(edit), "second");
        SendMessageW(hwndFormer, WM_CHAR, 'x', 1);
        EXPECT_EQ(TextOf(edit), "second");
        {
            const WithBehavior classic(gesso::Behavior::Classic);
            Make(edit, L"third");
        }
        EXPECT_EQ(TextOf(edit), "third");
        SendMessageW(edit, EM_SETSEL, 0, 1);
        EXPECT_FALSE(edit.CanRedo());
        for (HWND hwnd = GetWindow(host, GW_CHILD); hwnd; hwnd = GetWindow(host, GW_CHILD)) {
            DestroyWindow(hwnd);
        }
    }
    const auto nKind = static_cast<size_t>(gesso::headless::Kind::ScriptCache);
    EXPECT_EQ(gesso::headless::Live().counts[nKind], before.counts[nKind]);
}

TEST_F(FieldLifeTest, AnObjectThatIsAssignedHasTheTextOfTheOther)
{
    GEdit edit;
    Make(edit, L"own");
    GEdit other;
    Make(other, L"other");
    edit = other;
    EXPECT_EQ(TextOf(edit), "other");
    other.SetText(L"changed");
    EXPECT_EQ(TextOf(edit), "other");
}

// The window and what it edits go on, also where the parent does so while the field is at work.
TEST_F(FieldLifeTest, AnObjectThatIsAssignedItsOwnCopyEditsOn)
{
    GEdit edit;
    const HWND hwnd = Make(edit, L"own");
    GEdit copy(edit);
    SendMessageW(hwnd, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L"x"));
    edit = copy;
    EXPECT_EQ(TextOf(edit), "own");
    const std::string change = "click 1 code " + std::to_string(EN_CHANGE);
    host.onReport = [&](const std::string& report) {
        if (report.starts_with(change)) {
            edit = copy;
        }
    };
    SendMessageW(hwnd, WM_CHAR, 'y', 1);
    EXPECT_EQ(TextOf(edit), "own");
    host.onReport = nullptr;
    SendMessageW(hwnd, WM_CHAR, 'y', 1);
    EXPECT_EQ(TextOf(edit), "yown");
    EXPECT_EQ(SendMessageW(hwnd, EM_CANUNDO, 0, 0), TRUE);
}

} // namespace
