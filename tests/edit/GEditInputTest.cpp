// Keys, characters, the mouse and the clipboard, and what the parent is told.

#include "EditFixture.h"

#include "../controls/Survival.h"
#include "../support/Interception.h"

namespace {

using namespace test;

const Reports CHANGED = {"click 7 code 768"}; // EN_CHANGE

class GEditInputTest : public EditFixture
{
protected:
    void Set(LPCWSTR pszText, UINT nLine, UINT nChar)
    {
        edit.SetText(pszText);
        edit.PutCaret(nLine, nChar);
        host.TakeReports();
    }
    // The lines and the caret.
    std::string Now()
    {
        EXPECT_EQ(edit.Fault(), "");
        return edit.Lines() + " " + edit.Caret();
    }
};

TEST_F(GEditInputTest, TypingInsertsReplacesAndTellsTheParent)
{
    Make(10);
    Type(L"ab");
    EXPECT_EQ(Now(), "ab| 0,2");
    EXPECT_EQ(host.TakeReports(), (Reports{CHANGED[0], CHANGED[0]}));
    edit.Select(0, 0, 0, 1);
    Char(L'X');
    EXPECT_EQ(Now(), "Xb| 0,1");
    Char(VK_RETURN);
    EXPECT_EQ(Now(), "X/|b| 1,0");
    EXPECT_EQ(Char(L'\n'), 1) << "Ctrl+Enter";
    EXPECT_EQ(Char(27), 1);
    host.TakeReports();
    const HeldKeys keys({VK_CONTROL});
    EXPECT_EQ(Char(L'q'), 0);
    EXPECT_EQ(Now(), "X/|b| 1,0");
    EXPECT_EQ(host.TakeReports(), Reports{});
}

TEST_F(GEditInputTest, ACharacterOfNothingTakesTheSelectionAlone)
{
    Make(20);
    edit.SetText(L"abc");
    edit.SetSel(0, 1);
    Char(L'\0');
    EXPECT_EQ(edit.Lines(), "bc|");
}

TEST_F(GEditInputTest, EditsWrapTheirParagraphAnew)
{
    Make(10);
    const struct
    {
        LPCWSTR pszText;
        UINT nLine, nChar;
        LPCWSTR pszTyped; // \b is Backspace, \x7F Delete
        const char* pszNow;
        const char* pszWhy;
    } rows[] = {
        {L"one two three four five six seven", 0, 3, L"xxx", "onexxx |two three |four five |six seven| 0,6",
         "words move on from line to line"},
        {L"one two three four five six seven", 0, 3, L"xxx\b\b\b",
         "one two |three |four five |six seven| 0,3", "and back again"},
        {L"one two thr", 1, 0, L"\b", "one twothr| 0,7", "the wrapped line's last character goes"},
        {L"aaaa bbbb cc\ndd ee\nff", 0, 5, L"\x7F\x7F\x7F\x7F\x7F", "aaaa cc/|dd ee/|ff| 0,5",
         "paragraphs do not run into one another"},
        {L"ab\ncd", 1, 0, L"\b", "abcd| 0,2", "Backspace joins lines"},
        {L"abc", 0, 1, L"\x7F", "ac| 0,1", "the next character"},
    };
    for (const auto& row : rows) {
        Set(row.pszText, row.nLine, row.nChar);
        for (LPCWSTR psz = row.pszTyped; *psz; ++psz) {
            *psz == 0x7F ? Key(VK_DELETE) : Char(*psz);
            EXPECT_EQ(host.TakeReports(), CHANGED);
        }
        EXPECT_EQ(Now(), row.pszNow) << row.pszWhy;
    }
}

TEST_F(GEditInputTest, SelectionGoesBeforeCharactersDo)
{
    Make(10);
    Set(L"aaaa bbbb ee\nd", 1, 0);
    edit.Select(1, 0, 1, 2);
    Char(VK_BACK);
    EXPECT_EQ(Now(), "aaaa bbbb /|d| 0,10");
    Set(L"ab\ncd\nef", 0, 1);
    edit.Select(0, 1, 1, 1);
    Key(VK_DELETE);
    EXPECT_EQ(Now(), "ad/|ef| 0,1");
}

TEST_F(GEditInputTest, BackspaceAtTheStartIsToldAndDeleteAtTheEndIsNot)
{
    Make(10);
    Set(L"ab", 0, 0);
    Char(VK_BACK);
    EXPECT_EQ(host.TakeReports(), CHANGED);
    Key(VK_END);
    Key(VK_DELETE);
    EXPECT_EQ(host.TakeReports(), Reports{});
    EXPECT_EQ(Now(), "ab| 0,2");
}

// The line end goes only where the line below is as long.
TEST_F(GEditInputTest, DeleteAtALineEndTakesTwoCharactersByTheNextLinesLength)
{
    Make(20);
    Set(L"ab\ncd\nef", 0, 2);
    Key(VK_DELETE);
    EXPECT_EQ(Now(), "abcd/|ef| 0,2");
    Set(L"ab\ncdefg\nhi", 0, 2);
    Key(VK_DELETE);
    EXPECT_EQ(TextOf(edit), "ab\rdefg\r\nhi") << "what ends at 5 is half the line end and a c";
    Set(L"\nx", 0, 0);
    Key(VK_DELETE);
    EXPECT_EQ(TextOf(edit), "\r\nx") << "an offset below 2 removes nothing";
    edit.SetText(L"sound\nagain");
    EXPECT_EQ(edit.Fault(), "");
}

TEST_F(GEditInputTest, ArrowsStepOverLineEndsAndThroughWraps)
{
    Make(10);
    Set(L"one two three\nx", 0, 7);
    ASSERT_EQ(edit.Lines(), "one two |three/|x|");
    const auto keys = [&](UINT uKey, int n) {
        while (n-- > 0) {
            Key(uKey);
        }
        return edit.Caret();
    };
    EXPECT_EQ(keys(VK_RIGHT, 1), "0,8") << "the wrapped line's end is a place of its own";
    EXPECT_EQ(keys(VK_RIGHT, 1), "1,1") << "and the same place as the start of the next";
    EXPECT_EQ(keys(VK_LEFT, 2), "0,7");
    EXPECT_EQ(keys(VK_RIGHT, 6), "1,5");
    EXPECT_EQ(keys(VK_RIGHT, 1), "2,0");
    EXPECT_EQ(keys(VK_LEFT, 1), "1,5");
    EXPECT_EQ(keys(VK_RIGHT, 5), "2,1") << "nothing at the very end";
    EXPECT_EQ(keys(VK_HOME, 1), "2,0");
    EXPECT_EQ(keys(VK_UP, 1), "1,0");
    EXPECT_EQ(keys(VK_END, 1), "1,5");
    EXPECT_EQ(keys(VK_UP, 1), "0,5");
    EXPECT_EQ(keys(VK_UP, 1), "0,5");
    EXPECT_EQ(host.TakeReports(), Reports{});
}

TEST_F(GEditInputTest, ShiftKeepsTheOtherEnd)
{
    Make(10);
    Set(L"abc\ndef", 0, 1);
    Key(VK_RIGHT, {VK_SHIFT});
    Key(VK_END, {VK_SHIFT});
    EXPECT_EQ(edit.Caret(), "0,1-0,3");
    Key(VK_RIGHT);
    EXPECT_EQ(edit.Caret(), "1,0");
    Set(L"abc", 0, 0);
    Key(VK_LEFT, {VK_SHIFT});
    EXPECT_EQ(edit.Caret(), "0,0");
}

TEST_F(GEditInputTest, AnArrowWithNowhereToGoLeavesTheCaretAndEndsTheSelection)
{
    Make(10);
    Set(L"abc\ndef", 0, 0);
    const struct
    {
        UINT uKey;
        UINT nAnchor[2], nCaret[2];
        const char* pszWithShift;
        const char* pszWithout;
    } rows[] = {
        {VK_LEFT, {0, 2}, {0, 0}, "0,2-0,0", "0,0"},
        {VK_UP, {1, 1}, {0, 2}, "1,1-0,2", "0,2"},
        {VK_RIGHT, {0, 1}, {1, 3}, "0,1-1,3", "1,3"},
        {VK_DOWN, {1, 3}, {1, 1}, "1,3-1,1", "1,1"},
    };
    for (const auto& row : rows) {
        edit.Select(row.nAnchor[0], row.nAnchor[1], row.nCaret[0], row.nCaret[1]);
        Key(row.uKey, {VK_SHIFT});
        EXPECT_EQ(edit.Caret(), row.pszWithShift);
        Key(row.uKey);
        EXPECT_EQ(edit.Caret(), row.pszWithout);
    }
    EXPECT_EQ(host.TakeReports(), Reports{});
}

TEST_F(GEditInputTest, FieldWithoutScrollingRefusesWhatDoesNotFit)
{
    Make(3, 1, 0);
    Type(L"abc");
    EXPECT_EQ(Now(), "abc| 0,3");
    host.TakeReports();
    Char(L'd');
    EXPECT_EQ(Now(), "abc| 0,3");
    EXPECT_EQ(host.TakeReports(), CHANGED) << "a refused character is told as well";
    Char(VK_RETURN);
    EXPECT_EQ(Now(), "abc| 0,3") << "no room for a second line";
    edit.Select(0, 0, 0, 3);
    Char(L'x');
    EXPECT_EQ(Now(), "x| 0,1");
    Set(L"abcd", 0, 3);
    Char(L'x');
    EXPECT_EQ(Now(), "abc|d| 0,3") << "the caret stays at a wrap";
}

TEST_F(GEditInputTest, LinesBeyondTheHeightAreRefusedWithoutVerticalScrolling)
{
    for (const DWORD dwStyle : {DWORD{ES_MULTILINE}, DWORD{ES_AUTOHSCROLL}}) {
        Make(5, 2, dwStyle);
        Type(L"aa bb cc dd");
        EXPECT_EQ(Now(), "aa |bb cc| 1,5");
        edit.PutCaret(0, 1);
        Char(L'x');
        EXPECT_EQ(Now(), "axa |bb cc| 0,2") << "there is room in this line";
        Char(L'y');
        Char(L'y');
        EXPECT_EQ(Now(), "axya |bb cc| 0,3");
        Char(VK_RETURN);
        EXPECT_EQ(Now(), "axya |bb cc| 0,3");
        Set(L"abcdefghij", 0, 2);
        Char(L'x');
        EXPECT_EQ(Now(), "abcde|fghij| 0,2") << "no line ends elsewhere than before";
        DestroyWindow(edit);
    }
    Make(5, 2, MULTILINE);
    Type(L"aa bb cc dd");
    EXPECT_EQ(Now(), "aa |bb |cc dd| 2,5");
}

TEST_F(GEditInputTest, CharactersOfTwoHalvesStayWhole)
{
    Make(4, 1, 0);
    Type(L"ab\xD83D\xDE00");
    EXPECT_EQ(TextOf(edit), "ab\xF0\x9F\x98\x80");
    Type(L"\xD83D\xDE00");
    EXPECT_EQ(TextOf(edit), "ab\xF0\x9F\x98\x80") << "neither half has room";
    DestroyWindow(edit);
    Make(3, 1, 0);
    Type(L"ab\xD83D\xDE00");
    EXPECT_EQ(TextOf(edit), "ab") << "only the first half has";
    Make(10);
    Type(L"e\x0301\xD83D\xDE00");
    edit.Select(0, 0, 0, 4);
    Key('C', {VK_CONTROL});
    Key(VK_END);
    Key('V', {VK_CONTROL});
    EXPECT_EQ(TextOf(edit), "e\xCC\x81\xF0\x9F\x98\x80"
                            "e\xCC\x81\xF0\x9F\x98\x80");
}

TEST_F(GEditInputTest, ClipboardTakesAndGivesPlainText)
{
    Make(10);
    Set(L"one\ntwo", 0, 0);
    SetClipboard(L"before");
    Key('C', {VK_CONTROL});
    EXPECT_EQ(Clipboard(), "before") << "no selection, no copy";
    Key('A', {VK_CONTROL});
    EXPECT_EQ(edit.Caret(), "0,0-1,3");
    EXPECT_EQ(host.TakeReports(), CHANGED) << "selecting all is told as a change";
    Key('C', {VK_CONTROL});
    EXPECT_EQ(Clipboard(), "one\r\ntwo");
    EXPECT_EQ(host.TakeReports(), Reports{});
    edit.Select(1, 1, 0, 2);
    Key('X', {VK_CONTROL});
    EXPECT_EQ(Now(), "onwo| 0,2");
    EXPECT_EQ(Clipboard(), "e\r\nt");
    EXPECT_EQ(host.TakeReports(), CHANGED);
    SetClipboard(L"1\n2\r3");
    edit.Select(0, 1, 0, 3);
    Key('V', {VK_CONTROL});
    EXPECT_EQ(Now(), "o1/|2/|3o| 2,1");
    EXPECT_EQ(host.TakeReports(), CHANGED);
    Key('Z', {VK_CONTROL});
    EXPECT_EQ(host.TakeReports(), Reports{}) << "no other letter does anything";
}

TEST_F(GEditInputTest, PasteWrapsAndMindsNeitherHeightNorWidth)
{
    Make(5, 1, 0);
    SetClipboard(L"aaa bbb\nccc ddd");
    Key('V', {VK_CONTROL});
    EXPECT_EQ(Now(), "aaa |bbb/|ccc |ddd| 3,3");
    Key('A', {VK_CONTROL});
    Key('V', {VK_CONTROL});
    EXPECT_EQ(Now(), "aaa |bbb/|ccc |ddd| 3,3");
    // Into the start of a wrapped line.
    edit.PutCaret(1, 0);
    SetClipboard(L"\n\nx");
    Key('V', {VK_CONTROL});
    EXPECT_EQ(TextOf(edit), "aaa \r\n\r\nxbbb\r\nccc ddd");
    EXPECT_EQ(Now(), "aaa /|/|xbbb/|ccc |ddd| 2,1");
}

TEST_F(GEditInputTest, PasswordIsCopiedAsItIs)
{
    Make(10, 1, ES_PASSWORD);
    Type(L"secret");
    Key('A', {VK_CONTROL});
    Key('C', {VK_CONTROL});
    EXPECT_EQ(Clipboard(), "secret");
}

TEST_F(GEditInputTest, TheMouseSetsTheCaretAndDragsASelection)
{
    Make(10);
    Set(L"abcdef\ngh", 0, 0);
    const auto caretAfter = [&](UINT uMsg, int nColumn, int nRow, WPARAM wKeys = 0) {
        Mouse(uMsg, nColumn, nRow, wKeys);
        return edit.Caret();
    };
    EXPECT_EQ(caretAfter(WM_LBUTTONDOWN, 2, 0), "0,2") << "in front of the character that the point touches";
    EXPECT_EQ(GetCapture(), edit.GetHwnd());
    TakeRepaint(edit);
    EXPECT_EQ(caretAfter(WM_MOUSEMOVE, 9, 1), "0,2-1,2") << "right of a line's end";
    EXPECT_TRUE(TakeRepaint(edit));
    EXPECT_EQ(caretAfter(WM_MOUSEMOVE, 4, 0), "0,2-0,4");
    EXPECT_EQ(caretAfter(WM_LBUTTONUP, 4, 0), "0,2-0,4");
    EXPECT_FALSE(edit.State() & GWS_PRESSED);
    EXPECT_EQ(caretAfter(WM_MOUSEMOVE, 1, 0), "0,2-0,4");
    EXPECT_EQ(caretAfter(WM_LBUTTONDOWN, 5, 0, MK_SHIFT), "0,2-0,5");
    SendMessageW(edit, WM_CAPTURECHANGED, 0, 0);
    EXPECT_FALSE(edit.State() & GWS_PRESSED);
    ReleaseCapture();
    EXPECT_EQ(caretAfter(WM_LBUTTONDBLCLK, 1, 0), "0,0-1,2");
    EXPECT_EQ(edit.HitAt(1, -40), "0,0") << "above the text";
    EXPECT_EQ(edit.HitAt(1, 900), "1,0") << "below the last line";
}

TEST_F(GEditInputTest, DialogCodesAndTab)
{
    Make(10, 1, ES_WANTRETURN);
    const auto code = [&](WPARAM vk) {
        MSG msg{edit, WM_KEYDOWN, vk, 0, 0, {}};
        return SendMessageW(edit, WM_GETDLGCODE, 0, reinterpret_cast<LPARAM>(&msg));
    };
    EXPECT_EQ(code(VK_RETURN), 0x85);
    EXPECT_EQ(code(VK_ESCAPE), 0x81);
    SetWindowLongW(edit, GWL_STYLE, WS_CHILD | WS_VISIBLE);
    EXPECT_EQ(code(VK_RETURN), 0x81);
    EXPECT_EQ(SendMessageW(edit, WM_GETDLGCODE, 0, 0), 0x81);
    Interception next(host, WM_NEXTDLGCTL, [] {});
    EXPECT_EQ(Char(L'\t'), 0);
    EXPECT_TRUE(next.Happened());
    EXPECT_EQ(edit.GetTextLength(), 0);
}

TEST_F(GEditInputTest, MessagesThatDoNothingAreAnsweredWith0)
{
    Make(10);
    for (const UINT uMsg :
         {UINT{WM_CONTEXTMENU}, UINT{WM_MOUSEWHEEL}, UINT{WM_KEYUP}, UINT{WM_DEADCHAR}, UINT{WM_HSCROLL},
          UINT{WM_COMMAND}, UINT{WM_NCACTIVATE}, UINT{WM_NOTIFY}, UINT{WM_MOUSEHWHEEL}, UINT{WM_APPCOMMAND}})
    {
        EXPECT_EQ(SendMessageW(edit, uMsg, 0, 0), 0) << uMsg;
    }
    TakeRepaint(edit);
    SendMessageW(edit, WM_VSCROLL, SB_LINEDOWN, 0);
    EXPECT_TRUE(TakeRepaint(edit)) << "but for a scrolled text, which is painted";
    EXPECT_EQ(SendMessageW(edit, WM_SETCURSOR, 0, 0), 1);
    EXPECT_EQ(GetCursor(), GEdit::s_hIbeam);
    EXPECT_EQ(SendMessageW(edit, WM_ERASEBKGND, 0, 0), 1);
    EXPECT_EQ(reinterpret_cast<HFONT>(SendMessageW(edit, WM_GETFONT, 0, 0)), edit.GetFont());
    RECT rc{};
    GetWindowRect(edit, &rc);
    EXPECT_EQ(SendMessageW(edit, WM_NCHITTEST, 0, MAKELPARAM(rc.right, rc.bottom)), HTCLIENT)
        << "edges included";
    for (const POINT pt : {POINT{rc.right + 1, rc.bottom},
                           {rc.right, rc.bottom + 1},
                           {rc.left - 1, rc.top},
                           {rc.left, rc.top - 1}})
    {
        EXPECT_EQ(SendMessageW(edit, WM_NCHITTEST, 0, MAKELPARAM(pt.x, pt.y)), HTBORDER)
            << pt.x << "," << pt.y;
    }
}

TEST_F(GEditInputTest, TheParentMayDestroyTheFieldInEveryReport)
{
    using Act = std::function<void(HWND)>;
    const auto send = [](UINT uMsg, WPARAM wParam) -> Act {
        return [=](HWND hwnd) { SendMessageW(hwnd, uMsg, wParam, 0); };
    };
    const auto withControl = [](WPARAM wKey) -> Act {
        return [=](HWND hwnd) {
            const HeldKeys keys({VK_CONTROL});
            SendMessageW(hwnd, WM_KEYDOWN, wKey, 0);
        };
    };
    const std::pair<std::string, Act> cases[] = {
        {CHANGED[0], send(WM_CHAR, 'x')},
        {CHANGED[0], send(WM_CHAR, VK_BACK)},
        {CHANGED[0], send(WM_CHAR, VK_RETURN)},
        {CHANGED[0], send(WM_KEYDOWN, VK_DELETE)},
        {CHANGED[0], withControl('A')},
        {CHANGED[0], withControl('V')},
        {"killfocus 7", [&](HWND) { SetFocus(host); }},
        {"setfocus 7", send(WM_LBUTTONDOWN, 0)},
    };
    SetClipboard(L"pasted");
    for (const auto& [report, act] : cases) {
        auto* pDoomed = new GEdit;
        pDoomed->Create(0, 0, 90, 90, host, ID, L"text", WS_CHILD | WS_VISIBLE | MULTILINE, 0);
        SetFocus(report == "setfocus 7" ? host.Window() : pDoomed->GetHwnd());
        ExpectSurvival(host, report, pDoomed, act);
    }
}

} // namespace
