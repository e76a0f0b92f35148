// Rows of wrapped text after edits, which are wrapped again from the row in front only.

#include "EditFixture.h"

#include "../support/WithBehavior.h"

#include <random>

namespace {

using namespace test;

class GEditWrapModernTest : public EditFixture
{
protected:
    LRESULT Send(UINT uMsg, WPARAM wParam = 0, LPARAM lParam = 0)
    {
        return SendMessageW(edit.GetHwnd(), uMsg, wParam, lParam);
    }

    std::vector<LRESULT> Rows()
    {
        std::vector<LRESULT> starts;
        for (LRESULT n = 0; n < Send(EM_GETLINECOUNT); ++n) {
            starts.push_back(Send(EM_LINEINDEX, static_cast<WPARAM>(n)));
        }
        return starts;
    }

    // The rows of the whole text, wrapped anew.
    std::vector<LRESULT> FreshRows()
    {
        Send(WM_SETFONT, static_cast<WPARAM>(Send(WM_GETFONT)));
        return Rows();
    }

    Modern modern;
};

TEST_F(GEditWrapModernTest, RowsAfterEditsAreThoseOfTheTextWrappedAnew)
{
    static constexpr LPCWSTR PARTS[] = {L"x",
                                        L" ",
                                        L"word ",
                                        L"\r\n",
                                        L"a-longer-word-than-a-row ",
                                        L"    ",
                                        L"\t",
                                        L"\x4E2D\x6587\x3002",
                                        L"e\x301",
                                        L"",
                                        L"\r\n\r\n",
                                        L"one two three four five "};
    Make(12, 4, ES_MULTILINE | ES_AUTOVSCROLL);
    std::minstd_rand random(7);
    const auto below = [&](size_t n) { return static_cast<int>(random() % n); };
    for (int i = 0; i < 400; ++i) {
        const int nLength = edit.GetTextLength();
        const int nFrom = below(static_cast<size_t>(nLength) + 1);
        const int nTo = below(3) ? nFrom : std::min(nLength, nFrom + below(nLength > 300 ? 200 : 12));
        Send(EM_SETSEL, static_cast<WPARAM>(nFrom), nTo);
        edit.ReplaceSel(PARTS[below(std::size(PARTS))], true);
        if (below(5) == 0) {
            Send(EM_UNDO);
        }
        const std::vector<LRESULT> rows = Rows();
        ASSERT_EQ(rows, FreshRows()) << "after edit " << i;
    }
}

TEST_F(GEditWrapModernTest, ARowThatHasLostItsWordIsGone)
{
    Make(5, 4, ES_MULTILINE | ES_AUTOVSCROLL);
    edit.SetText(L"aaaa bbbb");
    ASSERT_EQ(Send(EM_GETLINECOUNT), 2);
    edit.SetSel(5, 9);
    edit.ReplaceSel(L"", true);
    EXPECT_EQ(Send(EM_GETLINECOUNT), 1);
    edit.SetText(L"aaaa \r\nbbbb");
    edit.SetSel(7, 11);
    edit.ReplaceSel(L"", true);
    EXPECT_EQ(Send(EM_GETLINECOUNT), 2) << "a line end leads to one";
}

TEST_F(GEditWrapModernTest, ALineEndAtTheStartOfTheViewShows)
{
    Make(10, 3, ES_MULTILINE | ES_AUTOVSCROLL);
    edit.SetText(L"1\n2\n3\n4\n5\n6");
    SetFocus(edit.GetHwnd());
    Key(VK_HOME, {VK_CONTROL});
    Char(13);
    EXPECT_EQ(Send(EM_GETFIRSTVISIBLELINE), 0);
}

TEST_F(GEditWrapModernTest, WhatIsDeletedFromAWideLineStaysInView)
{
    Make(10, 3, ES_MULTILINE | ES_AUTOVSCROLL | ES_AUTOHSCROLL);
    SetFocus(edit.GetHwnd());
    Type(L"0123456789012345678901234567890123456789");
    for (int i = 0; i < 36; ++i) {
        Char(8);
    }
    EXPECT_GE(static_cast<short>(LOWORD(Send(EM_POSFROMCHAR, 3))), 0);
}

// As a minimized parent, or a layout that begins with nothing, has it.
TEST_F(GEditWrapModernTest, AFieldWithoutRoomKeepsItsRows)
{
    Make(10, 4);
    edit.SetText(L"aaaa bbbb cccc dddd eeee ffff");
    SendMessageW(edit.GetHwnd(), EM_LINESCROLL, 0, 1);
    ASSERT_EQ(Send(EM_GETLINECOUNT), 3);
    RECT rc{};
    GetClientRect(edit.GetHwnd(), &rc);
    MoveWindow(edit.GetHwnd(), 0, 0, 0, 0, TRUE);
    EXPECT_EQ(Send(EM_GETLINECOUNT), 3);
    MoveWindow(edit.GetHwnd(), 0, 0, rc.right, rc.bottom, TRUE);
    EXPECT_EQ(Send(EM_GETLINECOUNT), 3);
}

TEST_F(GEditWrapModernTest, SpacesBehindACentredRowHangOverAndDoNotMoveIt)
{
    Make(10, 4, ES_MULTILINE | ES_AUTOVSCROLL | ES_RIGHT);
    edit.SetText(L"aaaa bbbb    cccc");
    ASSERT_EQ(Send(EM_LINEINDEX, 1), 13);
    const int nRight = LOWORD(Send(EM_POSFROMCHAR, 9)); // where the row's last word ends
    edit.SetText(L"aaaa bbbb\r\ncccc");
    EXPECT_EQ(LOWORD(Send(EM_POSFROMCHAR, 9)), nRight);
}

TEST_F(GEditWrapModernTest, TheBarFollowsTheLongestLine)
{
    Make(10, 6, ES_MULTILINE | ES_AUTOVSCROLL | ES_AUTOHSCROLL | WS_HSCROLL);
    SetFocus(edit.GetHwnd());
    const auto columns = [&] {
        SCROLLINFO si{sizeof(si), SIF_RANGE, 0, 0, 0, 0, 0};
        edit.GetScrollInfo(SB_HORZ, &si);
        return si.nMax / Column();
    };
    edit.SetText(L"0123456789012345678901234567890123456789\n012345678901234567890123\nshort");
    ASSERT_EQ(columns(), 40);
    edit.SetSel(20, 20);
    Char(13);
    EXPECT_EQ(columns(), 24) << "the longest was parted";
    Key(VK_END, {VK_CONTROL});
    Key(VK_HOME);
    Char(8);
    EXPECT_EQ(columns(), 29) << "and another joined";
    edit.SetSel(44, 60);
    edit.ReplaceSel(L"", true);
    EXPECT_EQ(columns(), 20);
}

} // namespace
