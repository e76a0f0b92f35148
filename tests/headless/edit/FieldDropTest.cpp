// Selected text that is dragged: to other fields, and where memory runs out.

#include "../../edit/EditFixture.h"
#include "../../support/Keys.h"
#include "../../support/WithBehavior.h"
#include "../memory/MemoryLimit.h"

#include <platform/headless/headless.h>

namespace {

using namespace test;
namespace desk = gesso::headless;

class FieldDropTest : public EditFixture
{
protected:
    LRESULT Send(UINT uMsg, WPARAM wParam = 0, LPARAM lParam = 0)
    {
        return SendMessageW(edit, uMsg, wParam, lParam);
    }
    void PointAt(HWND hwnd, int x, int y)
    {
        POINT pt{x, y};
        ClientToScreen(hwnd, &pt);
        desk::MoveMouse(pt.x, pt.y);
        desk::Pump();
    }
    static LRESULT TopOf(HWND hwnd) { return SendMessageW(hwnd, EM_GETFIRSTVISIBLELINE, 0, 0); }

    Modern modern;
};

TEST_F(FieldDropTest, NearTheEdgeOfAnotherFieldThatOneScrolls)
{
    Make(20, 3);
    edit.SetText(L"drag me");
    Send(EM_SETSEL, 0, 4);
    GEdit other;
    const HWND hwndOther = other.Create(0, 5 * Row(), 20 * Column(), 4 * Row(), host, ID + 1, L"",
                                        WS_CHILD | WS_VISIBLE | MULTILINE, 0);
    other.SetText(L"1\n2\n3\n4\n5\n6\n7\n8\n9\n10\n11\n12");
    RECT rc{};
    SendMessageW(hwndOther, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&rc));
    PointAt(edit, Column(), Row() / 2);
    desk::PressButton();
    desk::Pump();
    PointAt(hwndOther, Column(), rc.bottom - 2);
    desk::Advance(1000);
    EXPECT_EQ(TopOf(hwndOther), 0) << "what comes in over the edge is on its way";
    PointAt(hwndOther, Column(), (rc.top + rc.bottom) / 2);
    PointAt(hwndOther, Column(), rc.bottom - 2);
    desk::Advance(200);
    const LRESULT nTop = TopOf(hwndOther);
    EXPECT_GT(nTop, 0);
    EXPECT_EQ(TopOf(edit), 0);
    SendMessageW(hwndOther, EM_SETREADONLY, TRUE, 0);
    desk::Advance(1000);
    EXPECT_LE(TopOf(hwndOther), nTop + 1) << "nothing can go there";
    SendMessageW(hwndOther, EM_SETREADONLY, FALSE, 0);
    desk::ReleaseButton();
    desk::Pump();
    EXPECT_NE(TextOf(hwndOther).find("drag"), std::string::npos);
    EXPECT_EQ(TextOf(edit), " me");
    const LRESULT nDropped = TopOf(hwndOther);
    desk::Advance(1000);
    EXPECT_EQ(TopOf(hwndOther), nDropped);
}

TEST_F(FieldDropTest, ACopyIsOneStepWithWhatWasSelectedBeforeAndAfter)
{
    Make(40, 3);
    edit.SetText(L"one two three");
    GEdit other;
    const HWND hwndOther = other.Create(0, 5 * Row(), 40 * Column(), 2 * Row(), host, ID + 1, L"",
                                        WS_CHILD | WS_VISIBLE | WS_TABSTOP, 0);
    other.SetText(L"12345");
    SendMessageW(hwndOther, EM_SETSEL, 1, 3);
    for (const HWND hwnd : {static_cast<HWND>(edit), hwndOther}) {
        Send(EM_SETSEL, 4, 7);
        desk::Advance(1000); // the next press is no double click
        const LRESULT lFormer = SendMessageW(hwnd, EM_GETSEL, 0, 0);
        const std::string former = TextOf(hwnd);
        PointAt(edit, 5 * Column(), Row() / 2);
        desk::PressButton();
        desk::Pump();
        HoldKeys({VK_CONTROL});
        PointAt(hwnd, Column() / 3, Row() / 2);
        desk::ReleaseButton();
        desk::Pump();
        HoldKeys({});
        EXPECT_EQ(TextOf(hwnd), "two" + former);
        EXPECT_EQ(SendMessageW(hwnd, EM_GETSEL, 0, 0), MAKELRESULT(0, 3));
        SendMessageW(hwnd, EM_UNDO, 0, 0);
        EXPECT_EQ(TextOf(hwnd), former);
        EXPECT_EQ(SendMessageW(hwnd, EM_GETSEL, 0, 0), lFormer);
        (hwnd == hwndOther ? other : edit).Redo();
        EXPECT_EQ(TextOf(hwnd), "two" + former);
        EXPECT_EQ(SendMessageW(hwnd, EM_GETSEL, 0, 0), MAKELRESULT(0, 3));
        SendMessageW(hwnd, EM_UNDO, 0, 0);
    }
}

TEST_F(FieldDropTest, WithoutMemoryItLeavesTheTextAndNoStep)
{
    constexpr size_t WIDTH = 30;
    Make(40, 8);
    std::vector<wchar_t> text;
    for (int n = 0; n < 600; ++n) {
        text.insert(text.end(), WIDTH, static_cast<wchar_t>(L'A' + n % 26));
        text.insert(text.end(), {L'\r', L'\n'});
    }
    text.push_back(0);
    int nMoved = 0;
    int nLeft = 0;
    for (size_t cbLargest = 30000; cbLargest < 60000; cbLargest += 1000) {
        edit.SetText(text.data());
        const std::string former = TextOf(edit);
        Send(EM_SETSEL, static_cast<WPARAM>(former.size()), 2 * (WIDTH + 2));
        Mouse(WM_LBUTTONDOWN, 2, 3);
        Mouse(WM_MOUSEMOVE, 0, 0, MK_LBUTTON);
        desk::ClearDrawing(edit);
        {
            const MemoryLimit limit(cbLargest);
            Mouse(WM_LBUTTONUP, 0, 0);
        }
        const bool fMoved = TextOf(edit) != former;
        (fMoved ? nMoved : nLeft) += 1;
        EXPECT_FALSE(edit.CanRedo()) << cbLargest;
        EXPECT_EQ(Send(EM_CANUNDO) != 0, fMoved) << cbLargest;
        EXPECT_EQ(Send(EM_GETMODIFY) != 0, fMoved) << cbLargest;
        EXPECT_EQ(TextOf(edit).size(), former.size()) << cbLargest;
        Send(EM_UNDO);
        EXPECT_EQ(TextOf(edit), former) << cbLargest;
    }
    EXPECT_GT(nMoved, 0);
    EXPECT_GT(nLeft, 0);
}

} // namespace
