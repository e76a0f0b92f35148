// What an edit field draws, and where its caret stands. The font is 6 wide and 15 high.

#include "../../edit/ProbeEdit.h"
#include "../../support/WithBehavior.h"
#include "../controls/DrawFixture.h"

#include <climits>

namespace {

using namespace test;

class EditDrawTest : public DrawFixture
{
protected:
    HWND Make(DWORD dwStyle, LPCWSTR pszText, int cx = 120, int cy = 40)
    {
        edit.Create(10, 20, cx, cy, Parent(), 5, L"", WS_CHILD | WS_VISIBLE | dwStyle, 0);
        edit.SetText(pszText);
        return edit;
    }
    // The selection's fills of the next paint.
    Lines Fills()
    {
        Lines lines = Draw(edit, "FillRect");
        std::erase_if(lines,
                      [](const std::string& line) { return line.find("ADD6FF") == std::string::npos; });
        return lines;
    }
    void TearDown() override
    {
        edit.Destroy();
        DrawFixture::TearDown();
    }

    ProbeEdit edit;
};

TEST_F(EditDrawTest, LinesFollowOneAnotherUpToTheBottom)
{
    Make(ES_MULTILINE, L"one\n\nthree\nfour", 120, 46);
    const Lines lines = Draw(edit, "Draw");
    ASSERT_EQ(lines.size(), 4u);
    EXPECT_EQ(lines[0], "DrawThemeParentBackground (0,0,120,46)");
    EXPECT_EQ(lines[1], "DrawThemeBackground EDIT 3 1 (0,0,120,46)");
    EXPECT_EQ(lines[2], "DrawTextW \"one\" (1,1,119,16) 0x0820 font=\"Segoe UI\" 12 color=000000");
    EXPECT_EQ(lines[3], "DrawTextW \"three\" (1,31,119,46) 0x0820 font=\"Segoe UI\" 12 color=000000");
}

TEST_F(EditDrawTest, DisabledTextIsGreyOnADisabledBackground)
{
    Make(WS_DISABLED, L"off");
    const Lines lines = Draw(edit, "Draw");
    EXPECT_EQ(lines[1], "DrawThemeBackground EDIT 3 3 (0,0,120,40)");
    EXPECT_TRUE(lines[2].ends_with("color=6D6D6D")) << lines[2];
}

TEST_F(EditDrawTest, SelectionIsFilledBehindThreePieces)
{
    Make(ES_MULTILINE, L"abcdef\nxyz");
    edit.Select(0, 2, 0, 4);
    EXPECT_EQ(Fills(), Lines{"FillRect (13,1,25,16) brush=ADD6FF"});
    Lines lines = Draw(edit, "DrawTextW");
    for (std::string& line : lines) {
        line = line.substr(0, line.find(") 0x"));
    }
    EXPECT_EQ(lines, (Lines{"DrawTextW \"ab\" (1,1,119,16", "DrawTextW \"cd\" (13,1,119,16",
                            "DrawTextW \"ef\" (25,1,119,16", "DrawTextW \"xyz\" (1,16,119,31"}));
    // Over a line end, and with the caret first; the focus does not matter.
    edit.Select(1, 2, 0, 5);
    EXPECT_EQ(Fills(), (Lines{"FillRect (31,1,37,16) brush=ADD6FF", "FillRect (1,16,13,31) brush=ADD6FF"}));
}

TEST_F(EditDrawTest, InModernTheParentIsAskedOnlyForWhatShowsIt)
{
    const Modern modern;
    Make(0, L"a");
    EXPECT_EQ(Draw(edit, "DrawThemeParentBackground").size(), 1U);
    gesso::headless::SetThemeInt("EDIT", EP_BACKGROUND, 0, TMT_TRANSPARENT, FALSE);
    EXPECT_TRUE(Draw(edit, "DrawThemeParentBackground").empty());
    EXPECT_EQ(Draw(edit, "DrawThemeBackground").size(), 1U);
}

// A program may give the bars any range; with positions at the ends of the numbers all goes on.
TEST_F(EditDrawTest, APositionAtTheNumbersEndHasItsText)
{
    Make(ES_MULTILINE, L"one\ntwo");
    SetFocus(edit);
    const struct
    {
        int nBar, nMin, nMax, nPos;
        const char* pszHit;
    } rows[] = {{SB_HORZ, 0, INT_MAX, INT_MAX, "0,3"},
                {SB_HORZ, INT_MIN, 0, INT_MIN, "0,0"},
                {SB_VERT, 0, INT_MAX, INT_MAX, "1,1"},
                {SB_VERT, INT_MIN, 0, INT_MIN, "0,1"}};
    for (const auto& row : rows) {
        const SCROLLINFO si{sizeof(si), SIF_RANGE | SIF_PAGE | SIF_POS, row.nMin, row.nMax, 1, row.nPos, 0};
        EXPECT_EQ(edit.SetScrollInfo(row.nBar, &si, FALSE), row.nPos) << &row - rows;
        EXPECT_EQ(edit.HitAt(6, 5), row.pszHit) << &row - rows;
        EXPECT_FALSE(Draw(edit, "DrawThemeParentBackground").empty());
        for (const UINT uKey : {VK_DOWN, VK_END, VK_UP}) {
            SendMessageW(edit, WM_KEYDOWN, uKey, 1);
        }
        EXPECT_EQ(edit.Fault(), "");
        const SCROLLINFO none{sizeof(none), SIF_RANGE | SIF_PAGE | SIF_POS, 0, 0, 0, 0, 0};
        edit.SetScrollInfo(row.nBar, &none, FALSE);
    }
}

TEST_F(EditDrawTest, PasswordIsDrawnAndMeasuredAsMarks)
{
    Make(ES_PASSWORD, L"secret");
    const Lines lines = Draw(edit, "DrawTextW");
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0].find("secret"), std::string::npos) << lines[0];
    EXPECT_NE(lines[0].find("\a\a\a\a\a\a"), std::string::npos) << lines[0];
}

TEST_F(EditDrawTest, AlignmentMovesNothing)
{
    Make(ES_RIGHT, L"right");
    EXPECT_TRUE(Draw(edit, "DrawTextW")[0].starts_with("DrawTextW \"right\" (1,1,119,16) 0x0820"));
}

TEST_F(EditDrawTest, FrameShowsFocusAndDisabling)
{
    desk::SetThemeInt("EDIT", 6, 0, TMT_BORDERSIZE, 2);
    Make(WS_BORDER, L"x");
    EXPECT_EQ(Numbers(ClientSize(edit)), "114,34") << "less the border and one more on each side";
    const auto frame = [&] {
        desk::Pump();
        desk::ClearDrawing(edit);
        RedrawWindow(edit, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME);
        desk::Pump();
        Lines lines = desk::Drawing(edit);
        std::erase_if(lines, [](const std::string& line) {
            return !line.starts_with("DrawTheme") || line.find("(0,0,120,40)") == std::string::npos;
        });
        for (std::string& line : lines) {
            line = line.substr(0, line.find(" ("));
        }
        return lines;
    };
    EXPECT_EQ(frame(), (Lines{"DrawThemeBackground EDIT 5 1", "DrawThemeBackground EDIT 6 1"}));
    SetFocus(edit);
    EXPECT_EQ(frame(), (Lines{"DrawThemeBackground EDIT 5 3", "DrawThemeBackground EDIT 6 3"}));
    EnableWindow(edit, FALSE);
    EXPECT_EQ(frame(), (Lines{"DrawThemeBackground EDIT 5 4", "DrawThemeBackground EDIT 6 4"}));
}

TEST_F(EditDrawTest, WithoutAStyleItIsPlainButUsable)
{
    desk::SetThemed(false);
    Make(WS_BORDER, L"plain");
    EXPECT_EQ(Numbers(ClientSize(edit)), "116,36");
    EXPECT_FALSE(Draw(edit, "FillRect").empty());
    EXPECT_EQ(Draw(edit, "DrawTextW").size(), 1u);
}

TEST_F(EditDrawTest, CaretFollowsTheTextWhileTheFieldHasTheFocus)
{
    Make(ES_MULTILINE, L"ab\ncd");
    EXPECT_EQ(desk::Caret().hwnd, nullptr);
    SetFocus(edit);
    EXPECT_EQ(desk::Caret().hwnd, edit.GetHwnd());
    EXPECT_TRUE(desk::Caret().visible);
    EXPECT_EQ(desk::Caret().size.cy, 15);
    EXPECT_EQ(Numbers(desk::Caret().position), Numbers(1 + 2 * 6, 1 + 15));
    SendMessageW(edit, WM_KEYDOWN, VK_HOME, 0);
    EXPECT_EQ(desk::Caret().position.x, 1);
    // Another field's text moves no caret but its own.
    ProbeEdit other;
    other.Create(0, 0, 50, 30, Parent(), 6, L"", WS_CHILD, 0);
    other.SetText(L"long");
    EXPECT_EQ(desk::Caret().position.x, 1);
    other.Destroy();
    SetFocus(Parent());
    EXPECT_EQ(desk::Caret().hwnd, nullptr);
}

// The step is ten characters of the context's own font, which are 7 wide.
TEST_F(EditDrawTest, CaretBeyondTheRightScrollsByTenCharacters)
{
    Make(WS_POPUP | WS_HSCROLL, L"", 101, 40);
    SetWindowLongW(edit, GWL_STYLE, GetWindowLongW(edit, GWL_STYLE) | static_cast<LONG>(WS_POPUP));
    SetFocus(edit);
    edit.SetText(L"0123456789012345");
    EXPECT_EQ(desk::Caret().position.x, 97);
    EXPECT_EQ(edit.GetScrollPos(SB_HORZ), 0);
    edit.SetText(L"01234567890123456");
    EXPECT_EQ(desk::Caret().position.x, 103 - 70) << "the caret moves by the step";
    EXPECT_EQ(edit.GetScrollPos(SB_HORZ), 0) << "without a range there is no position";
    const SCROLLINFO si{sizeof(SCROLLINFO), SIF_RANGE | SIF_PAGE, 0, 500, 100, 0, 0};
    edit.SetScrollInfo(SB_HORZ, &si, FALSE);
    edit.SetScrollPos(SB_HORZ, 0, FALSE);
    edit.SetText(L"01234567890123456789012345");
    EXPECT_EQ(edit.GetScrollPos(SB_HORZ), 70);
    EXPECT_EQ(desk::Caret().position.x, 157 - 70);
    EXPECT_NE(Draw(edit, "DrawTextW")[0].find("origin=(-70,0)"), std::string::npos)
        << Draw(edit, "DrawTextW")[0];
    SendMessageW(edit, WM_KEYDOWN, VK_HOME, 0);
    EXPECT_EQ(edit.GetScrollPos(SB_HORZ), 0);
}

TEST_F(EditDrawTest, PrintsItsFrameAndItsContent)
{
    Make(WS_BORDER, L"printed");
    const HDC hdc = GetDC(Parent());
    const auto print = [&](LPARAM lFlags) {
        desk::ClearDrawing(Parent());
        SendMessageW(edit, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(hdc), lFlags);
        return desk::Drawing(Parent());
    };
    EXPECT_TRUE(print(0).empty());
    EXPECT_TRUE(AnyStartsWith(print(PRF_NONCLIENT), "DrawThemeBackground EDIT 6"));
    EXPECT_FALSE(AnyStartsWith(print(PRF_NONCLIENT), "DrawTextW"));
    EXPECT_TRUE(AnyStartsWith(print(PRF_CLIENT), "DrawTextW"));
    ReleaseDC(Parent(), hdc);
}

TEST_F(EditDrawTest, TextThatCannotBeMeasuredIsBrokenAllTheSame)
{
    Make(ES_MULTILINE, L"", 60);
    desk::Fail("GetTextExtentExPointW", INT_MAX);
    edit.SetText(L"several words that need more than one line");
    EXPECT_EQ(TextOf(edit), "several words that need more than one line");
    EXPECT_GT(edit.Lengths().size(), 1u);
}

TEST_F(EditDrawTest, CutKeepsWhatTheClipboardDoesNotTake)
{
    Make(0, L"keep");
    desk::SetClipboardText("before");
    edit.Select(0, 0, 0, 4);
    SetFocus(edit);
    desk::Fail("SetClipboardData");
    desk::TypeKey('X', {VK_CONTROL});
    desk::Pump();
    EXPECT_EQ(TextOf(edit), "keep");
    desk::Fail("GetClipboardData");
    desk::TypeKey('V', {VK_CONTROL});
    desk::Pump();
    EXPECT_EQ(TextOf(edit), "keep");
    EndFaults();
    desk::TypeKey('X', {VK_CONTROL});
    desk::Pump();
    EXPECT_EQ(TextOf(edit), "");
    EXPECT_EQ(desk::ClipboardText(), "keep");
    desk::SetClipboardText("");
}

} // namespace
