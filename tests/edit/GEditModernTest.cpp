// Edit fields made in Modern, driven by keys, mouse and messages.

#include "EditFixture.h"

#include "../support/Interception.h"
#include "../support/OnWine.h"
#include "../support/TestStrings.h"
#include "../support/User.h"
#include "../support/WithBehavior.h"

namespace {

using namespace test;

class GEditModernTest : public EditFixture
{
protected:
    static constexpr DWORD ONE_LINE = ES_AUTOHSCROLL;

    LRESULT Send(UINT uMsg, WPARAM wParam = 0, LPARAM lParam = 0)
    {
        return SendMessageW(edit.GetHwnd(), uMsg, wParam, lParam);
    }
    LRESULT SendText(UINT uMsg, WPARAM wParam, LPCWSTR psz)
    {
        return Send(uMsg, wParam, reinterpret_cast<LPARAM>(psz));
    }
    void Focus() { SetFocus(edit.GetHwnd()); }
    // The text with "|" for the caret, or "[" and "]" around the selection, and "/" for a line end.
    std::string Shown()
    {
        DWORD nFrom = 0;
        DWORD nTo = 0;
        Send(EM_GETSEL, reinterpret_cast<WPARAM>(&nFrom), reinterpret_cast<LPARAM>(&nTo));
        const int nLength = edit.GetTextLength();
        std::vector<wchar_t> text(static_cast<size_t>(nLength) + 1);
        int nCapacity = nLength + 1;
        edit.GetText(text.data(), &nCapacity);
        std::string shown;
        for (DWORD n = 0; n <= static_cast<DWORD>(nLength); ++n) {
            shown += n == nFrom && nFrom != nTo ? "[" : "";
            shown += n == nTo ? (nFrom == nTo ? "|" : "]") : "";
            const wchar_t ch = text[n];
            shown += ch == 0 || ch == L'\r' ? ""
                     : ch == L'\n'          ? "/"
                     : ch < 0x80            ? std::string(1, static_cast<char>(ch))
                                            : "?";
        }
        return shown;
    }
    std::string After(UINT uKey, std::initializer_list<int> held = {})
    {
        Key(uKey, held);
        return Shown();
    }
    void SetText(LPCWSTR psz) { SendText(WM_SETTEXT, 0, psz); }
    void Select(int nFrom, int nTo) { Send(EM_SETSEL, static_cast<WPARAM>(nFrom), nTo); }

    Modern modern;
};

TEST_F(GEditModernTest, TypingGoesInAtTheCaretAndIsTold)
{
    Make(20, 3, ONE_LINE);
    Focus();
    host.TakeReports();
    Type(L"ab c");
    EXPECT_EQ(Shown(), "ab c|");
    Select(1, 2);
    Char(L'x');
    EXPECT_EQ(Shown(), "ax| c");
    Char(8);
    EXPECT_EQ(Shown(), "a| c");
    EXPECT_EQ(After(VK_DELETE), "a|c");
    EXPECT_TRUE(edit.IsModified());
    edit.SetText(L"new\r\nline\ntoo");
    EXPECT_EQ(Shown(), "|new line too") << "line ends become spaces";
    EXPECT_FALSE(edit.IsModified());
}

TEST_F(GEditModernTest, WordsAreMovedAcrossSelectedAndRemoved)
{
    Make(30, 3, ONE_LINE);
    Focus();
    SetText(L"one two, (three)");
    EXPECT_EQ(After(VK_RIGHT, {VK_CONTROL}), "one |two, (three)");
    EXPECT_EQ(After(VK_RIGHT, {VK_CONTROL, VK_SHIFT}), "one [two], (three)");
    EXPECT_EQ(After(VK_RIGHT), "one two|, (three)");
    EXPECT_EQ(After(VK_DELETE, {VK_CONTROL}), "one two|(three)");
    EXPECT_EQ(After(VK_LEFT, {VK_CONTROL}), "one |two(three)");
    EXPECT_EQ(After(VK_BACK, {VK_CONTROL}), "|two(three)");
    EXPECT_EQ(After(VK_END), "two(three)|");
    EXPECT_EQ(After(VK_HOME, {VK_SHIFT}), "[two(three)]");
    EXPECT_EQ(After('Z', {VK_CONTROL}), "one |two(three)");
}

TEST_F(GEditModernTest, StepsAreTakenBackAndDoneAgain)
{
    Make(30, 3, ONE_LINE);
    Focus();
    Type(L"ab cd");
    SetClipboard(L"xy");
    Select(0, 2);
    Key('V', {VK_CONTROL});
    EXPECT_EQ(Shown(), "xy| cd");
    EXPECT_EQ(Send(EM_CANUNDO), TRUE);
    EXPECT_EQ(After('Z', {VK_CONTROL}), "[ab] cd");
    EXPECT_EQ(After('Z', {VK_CONTROL}), "ab |");
    EXPECT_EQ(After('Z', {VK_CONTROL}), "|");
    EXPECT_EQ(Send(EM_CANUNDO), FALSE);
    EXPECT_TRUE(edit.CanRedo());
    EXPECT_EQ(After('Y', {VK_CONTROL}), "ab |");
    EXPECT_EQ(After('Z', {VK_CONTROL, VK_SHIFT}), "ab cd|");
    EXPECT_TRUE(edit.Redo());
    EXPECT_EQ(Shown(), "xy| cd");
    EXPECT_FALSE(edit.Redo());
    edit.ReplaceSel(L"!", false);
    EXPECT_EQ(Shown(), "xy!| cd");
    EXPECT_EQ(Send(EM_CANUNDO), FALSE) << "emptied";
}

TEST_F(GEditModernTest, LinesWrapAtWordsAndTheCaretKeepsItsColumn)
{
    Make(10, 4, ES_MULTILINE | ES_AUTOVSCROLL);
    Focus();
    SetText(L"aaaa bbbb cccc\r\nd\r\neeeeee ff");
    EXPECT_EQ(Send(EM_GETLINECOUNT), 4);
    EXPECT_EQ(Send(EM_LINEINDEX, 1), 10);
    EXPECT_EQ(Send(EM_LINEINDEX, 2), 16);
    EXPECT_EQ(Send(EM_LINELENGTH, 16), 1);
    EXPECT_EQ(Send(EM_LINEFROMCHAR, 12), 1);
    EXPECT_EQ(Send(EM_LINEINDEX, 9), -1);
    Select(14, 14);
    Key(VK_DOWN);
    Key(VK_DOWN);
    EXPECT_EQ(Shown(), "aaaa bbbb cccc/d/eeee|ee ff");
    Resize(20, 1, 4);
    EXPECT_EQ(Send(EM_GETLINECOUNT), 3);
    Char(13);
    EXPECT_EQ(Shown(), "aaaa bbbb cccc/d/eeee/|ee ff");
    Char(8);
    EXPECT_EQ(Shown(), "aaaa bbbb cccc/d/eeee|ee ff") << "the line end and nothing else";
    Key(VK_UP);
    Key(VK_END);
    EXPECT_EQ(After(VK_DELETE), "aaaa bbbb cccc/d|eeeeee ff");
    wchar_t line[20] = {5};
    EXPECT_EQ(SendText(EM_GETLINE, 1, line), 5);
    EXPECT_EQ(std::string(line, line + 5), "deeee");
}

TEST_F(GEditModernTest, ALongTextScrollsUnderKeysAndWheel)
{
    Make(20, 5, ES_MULTILINE | ES_AUTOVSCROLL | ES_AUTOHSCROLL);
    Focus();
    SetText(L"0\n1\n2\n3\n4\n5\n6\n7\n8\n9\n10\n11");
    const LRESULT nView = 4; // rows, the whole ones
    EXPECT_EQ(Send(EM_GETFIRSTVISIBLELINE), 0);
    Key(VK_NEXT);
    EXPECT_EQ(Send(EM_GETFIRSTVISIBLELINE), nView - 1);
    Key(VK_END, {VK_CONTROL});
    EXPECT_EQ(Send(EM_GETFIRSTVISIBLELINE), 12 - nView);
    Key(VK_UP, {VK_CONTROL});
    EXPECT_EQ(Send(EM_GETFIRSTVISIBLELINE), 12 - nView - 1);
    Send(WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA), 0);
    EXPECT_EQ(Send(EM_GETFIRSTVISIBLELINE), 12 - nView - 4);
    Send(WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA / 2), 0);
    Send(WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA / 2), 0);
    EXPECT_EQ(Send(EM_GETFIRSTVISIBLELINE), 12 - nView - 7) << "halves of a notch count";
    Send(EM_LINESCROLL, 0, 3);
    EXPECT_EQ(Send(EM_GETFIRSTVISIBLELINE), 4);
    Send(EM_SCROLLCARET);
    EXPECT_EQ(Send(EM_GETFIRSTVISIBLELINE), 12 - nView);
}

TEST_F(GEditModernTest, StylesLimitWhatComesIn)
{
    Make(30, 3, ONE_LINE | ES_NUMBER);
    Focus();
    Type(L"1a2");
    EXPECT_EQ(Shown(), "12|");
    SetClipboard(L"x3y4");
    Key('V', {VK_CONTROL});
    EXPECT_EQ(Shown(), "1234|");
    Send(EM_LIMITTEXT, 5);
    Type(L"567");
    EXPECT_EQ(Shown(), "12345|");
    EXPECT_EQ(Send(EM_GETLIMITTEXT), 5);
    SetText(L"longer than that");
    EXPECT_EQ(edit.GetTextLength(), 16) << "the program may";
    Send(EM_SETREADONLY, TRUE);
    Type(L"8");
    Key(VK_DELETE);
    EXPECT_EQ(edit.GetTextLength(), 16);
    Select(0, 6);
    Send(WM_COPY);
    EXPECT_EQ(Clipboard(), "longer");
}

TEST_F(GEditModernTest, TheViewStaysWhereItIsUnlessTheCaretLeavesIt)
{
    Make(10, 5, ES_MULTILINE | ES_AUTOVSCROLL);
    std::vector<wchar_t> text;
    for (int i = 0; i < 40; ++i) {
        for (const wchar_t ch : {L'a', L'b', L'c', L' '}) {
            text.push_back(ch);
        }
    }
    text.push_back(0);
    SetText(text.data());
    const LRESULT nRows = Send(EM_GETLINECOUNT);
    EXPECT_EQ(nRows, 20) << "two words a row";
    Send(EM_LINESCROLL, 0, 8);
    const LRESULT nInView = Send(EM_LINEINDEX, 9);
    Select(static_cast<int>(nInView), static_cast<int>(nInView));
    Char(L'x');
    EXPECT_EQ(Send(EM_GETFIRSTVISIBLELINE), 8) << "the paragraph begins above";
    Send(EM_SETREADONLY, TRUE);
    EXPECT_EQ(Send(EM_GETFIRSTVISIBLELINE), 8);
    EXPECT_EQ(Send(EM_GETLINECOUNT), nRows);
    Key('A', {VK_CONTROL});
    EXPECT_EQ(Send(EM_GETFIRSTVISIBLELINE), 8) << "all is selected without scrolling";
    Mouse(WM_LBUTTONDOWN, 2, 1);
    Mouse(WM_LBUTTONUP, 2, 1);
    EXPECT_EQ(Send(EM_GETFIRSTVISIBLELINE), 8) << "a press on the selection";
}

TEST_F(GEditModernTest, ARowThatChangesOutOfViewChangesTheWidthToScroll)
{
    constexpr int WIDE = 300;
    Make(20, 5, ES_MULTILINE | ES_AUTOHSCROLL | WS_HSCROLL | WS_VSCROLL);
    const auto scrollWidth = [&] {
        Send(WM_HSCROLL, SB_BOTTOM);
        const int x = static_cast<short>(LOWORD(Send(EM_POSFROMCHAR, 0)));
        Send(WM_HSCROLL, SB_TOP);
        return -x;
    };
    const std::vector<wchar_t> wide(WIDE, L'x');
    std::vector<wchar_t> rows;
    for (int n = 0; n < 200; ++n) {
        rows.insert(rows.end(), {L'a', L'b', L'c', L'\n'});
    }
    rows.push_back(0);
    SetText(rows.data());
    const int nNarrow = scrollWidth();
    const auto changeFirst = [&](int nTo, LPCWSTR psz) {
        Send(EM_LINESCROLL, 0, 100);
        Select(0, nTo);
        SendText(EM_REPLACESEL, TRUE, psz);
    };
    std::vector<wchar_t> text = wide;
    text.push_back(0);
    changeFirst(0, text.data());
    EXPECT_GT(scrollWidth(), WIDE);
    changeFirst(WIDE, L"");
    EXPECT_EQ(scrollWidth(), nNarrow);
    Send(EM_UNDO);
    EXPECT_GT(scrollWidth(), WIDE);
    Select(WIDE / 2, WIDE / 2);
    Send(EM_LINESCROLL, 0, 100);
    SendText(EM_REPLACESEL, TRUE, L"\n");
    const int nHalf = scrollWidth();
    EXPECT_GT(nHalf, WIDE / 2);
    Send(EM_LINESCROLL, 0, 100);
    Send(EM_UNDO);
    EXPECT_GT(scrollWidth(), nHalf + WIDE / 4);
}

TEST_F(GEditModernTest, KeysWithControlAndAltTypeAndDoNothingElse)
{
    Make(20, 3, MULTILINE);
    SetClipboard(L"pasted");
    host.TakeReports();
    Key('V', {VK_CONTROL, VK_MENU});
    Key('A', {VK_CONTROL, VK_MENU});
    EXPECT_EQ(Shown(), "|");
    EXPECT_EQ(host.TakeReports(), Reports{});
    {
        const HeldKeys keys({VK_CONTROL, VK_MENU});
        Char(L'@');
    }
    Char(10);
    EXPECT_EQ(Shown(), "@/|") << "Ctrl+Enter";
}

TEST_F(GEditModernTest, KeysAreADialogsOnlyWhereItAsksForThem)
{
    Make(20, 4, MULTILINE);
    const auto ask = [&](UINT uKey) {
        MSG msg{edit.GetHwnd(), WM_KEYDOWN, uKey, 1, 0, {}};
        Send(WM_GETDLGCODE, uKey, reinterpret_cast<LPARAM>(&msg));
    };
    ask(VK_TAB); // of the Tab that has led here
    Key(VK_RETURN);
    Char(13);
    Key(VK_TAB);
    Char(9);
    EXPECT_EQ(Shown(), "/\t|");
    ask(VK_RETURN);
    Key(VK_RETURN);
    Char(13);
    ask(VK_TAB);
    Key(VK_TAB);
    Char(9);
    EXPECT_EQ(Shown(), "/\t|");
}

TEST_F(GEditModernTest, BarsFollowAStyleThatChangesWithTheWrapping)
{
    Make(10, 4, MULTILINE);
    SetText(L"a line that is wider than the field");
    const DWORD dwWrapped = static_cast<DWORD>(GetWindowLongW(edit.GetHwnd(), GWL_STYLE));
    RECT rcWrapped{};
    GetClientRect(edit.GetHwnd(), &rcWrapped);
    for (int i = 0; i < 2; ++i) {
        SetWindowLongW(edit.GetHwnd(), GWL_STYLE, static_cast<LONG>(dwWrapped | ES_AUTOHSCROLL | WS_HSCROLL));
        RECT rc{};
        GetClientRect(edit.GetHwnd(), &rc);
        EXPECT_LT(rc.bottom, rcWrapped.bottom) << i;
        SetWindowLongW(edit.GetHwnd(), GWL_STYLE, static_cast<LONG>(dwWrapped));
        GetClientRect(edit.GetHwnd(), &rc);
        EXPECT_EQ(rc.bottom, rcWrapped.bottom) << i;
    }
}

TEST_F(GEditModernTest, AProgramMayPutInWhatAUserMayNot)
{
    Make(20, 3, ONE_LINE | ES_NUMBER | ES_UPPERCASE);
    edit.ReplaceSel(L"-1,5x", true);
    EXPECT_EQ(Shown(), "-1,5X|");
    SetText(L"abc");
    EXPECT_EQ(Shown(), "|ABC");
}

TEST_F(GEditModernTest, MaskedTextIsNotGivenAway)
{
    Make(30, 3, ONE_LINE | ES_PASSWORD);
    Focus();
    EXPECT_EQ(Send(EM_GETPASSWORDCHAR), 0x25CF);
    SetClipboard(L"before");
    SetText(L"secret word");
    Select(0, -1);
    Send(WM_COPY);
    Key('X', {VK_CONTROL});
    EXPECT_EQ(Clipboard(), "before");
    EXPECT_EQ(Shown(), "[secret word]");
}

TEST_F(GEditModernTest, TheMouseSelectsByCharactersWordsAndParagraphs)
{
    Make(30, 4);
    SetText(L"one two three\r\nfour");
    Mouse(WM_LBUTTONDOWN, 1, 0);
    Mouse(WM_MOUSEMOVE, 3, 1, MK_LBUTTON);
    Mouse(WM_LBUTTONUP, 3, 1);
    EXPECT_EQ(Shown(), "o[ne two three/fou]r");
    Mouse(WM_LBUTTONDOWN, 20, 3);
    Mouse(WM_LBUTTONUP, 20, 3);
    EXPECT_EQ(Shown(), "one two three/four|");
    Mouse(WM_LBUTTONDBLCLK, 5, 0);
    EXPECT_EQ(Shown(), "one [two] three/four");
    Mouse(WM_MOUSEMOVE, 9, 0, MK_LBUTTON);
    EXPECT_EQ(Shown(), "one [two three]/four");
    Mouse(WM_MOUSEMOVE, 1, 0, MK_LBUTTON);
    EXPECT_EQ(Shown(), "[one two] three/four");
    Mouse(WM_LBUTTONUP, 1, 0);
    Mouse(WM_LBUTTONDBLCLK, 5, 0);
    Mouse(WM_LBUTTONUP, 5, 0);
    Mouse(WM_LBUTTONDOWN, 5, 0);
    EXPECT_EQ(Shown(), "[one two three]/four") << "the third press";
    Mouse(WM_LBUTTONUP, 5, 0);
}

TEST_F(GEditModernTest, SelectedTextIsDraggedAndDropped)
{
    Make(30, 4);
    SetText(L"one two three");
    Select(0, 4);
    Mouse(WM_LBUTTONDOWN, 1, 0);
    Mouse(WM_MOUSEMOVE, 8, 0, MK_LBUTTON);
    Mouse(WM_LBUTTONUP, 8, 0);
    EXPECT_EQ(Shown(), "two [one ]three");
    EXPECT_EQ(After('Z', {VK_CONTROL}), "[one ]two three") << "one step";
    HoldKeys({VK_CONTROL});
    Mouse(WM_LBUTTONDOWN, 1, 0);
    Mouse(WM_MOUSEMOVE, 8, 0, MK_LBUTTON);
    Mouse(WM_LBUTTONUP, 8, 0);
    HoldKeys({});
    EXPECT_EQ(Shown(), "one two [one ]three");
    Select(0, 4);
    Mouse(WM_LBUTTONDOWN, 1, 0);
    Mouse(WM_LBUTTONUP, 1, 0);
    EXPECT_EQ(Shown(), "o|ne two one three") << "a click";
}

TEST_F(GEditModernTest, TextThatIsDraggedToTheLastRowScrollsOn)
{
    Make(10, 4);
    SetText(L"one\n1\n2\n3\n4\n5\n6\n7");
    Select(0, 3);
    Mouse(WM_LBUTTONDOWN, 1, 0);
    Mouse(WM_MOUSEMOVE, 1, 2, MK_LBUTTON);
    RECT rc{};
    Send(EM_GETRECT, 0, reinterpret_cast<LPARAM>(&rc));
    POINT pt{rc.left + Column(), rc.top + 3 * Row() - 2};
    SendMessageW(edit.GetHwnd(), WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(pt.x, pt.y));
    ClientToScreen(edit.GetHwnd(), &pt);
    user::MoveMouse(pt.x, pt.y);
    const LRESULT nFormer = Send(EM_GETFIRSTVISIBLELINE);
    for (int i = 0; i < 3; ++i) {
        Send(WM_TIMER, 0x6501);
    }
    EXPECT_EQ(Send(EM_GETFIRSTVISIBLELINE), nFormer + 3);
    Key(VK_ESCAPE);
    EXPECT_EQ(Shown(), "[one]/1/2/3/4/5/6/7");
}

TEST_F(GEditModernTest, TextIsFoundByCaseWordAndDirection)
{
    for (const gesso::Behavior behavior : {gesso::Behavior::Classic, gesso::Behavior::Modern}) {
        const WithBehavior as(behavior);
        Make(30, 4);
        edit.SetText(L"Cat cat concat");
        EXPECT_EQ(edit.Find(L"CAT", 0, 0), 0);
        EXPECT_EQ(edit.Find(L"cat", 0, GEF_CASE), 4);
        EXPECT_EQ(edit.Find(L"cat", 5, GEF_WORD), -1);
        EXPECT_EQ(edit.Find(L"cat", 5, 0), 11);
        EXPECT_EQ(edit.Find(L"cat", 10, GEF_UP), 4);
        EXPECT_EQ(edit.Find(L"", 0, 0), -1);
        EXPECT_EQ(edit.Find(nullptr, 0, 0), -1);
        EXPECT_EQ(edit.Find(L"Cat", -5, 0), 0);
        int nStart = 0;
        int nEnd = 0;
        edit.SetSel(0, -1);
        edit.GetSel(&nStart, &nEnd);
        EXPECT_EQ(nStart, 0);
        EXPECT_EQ(nEnd, 14);
        edit.ReplaceSel(L"dog", true);
        EXPECT_EQ(edit.GetTextLength(), 3);
        EXPECT_TRUE(edit.IsModified());
        edit.SetModified(false);
        EXPECT_FALSE(edit.IsModified());
        edit.Destroy();
    }
}

TEST_F(GEditModernTest, CharactersOfSeveralCodePointsAreOne)
{
    Make(30, 4, ONE_LINE);
    Focus();
    SetText(L"e\x0301x\xD83D\xDC69\x200D\xD83D\xDC67!");
    DWORD n = 0;
    const auto caret = [&] {
        Send(EM_GETSEL, 0, reinterpret_cast<LPARAM>(&n));
        return n;
    };
    Key(VK_RIGHT);
    EXPECT_EQ(caret(), 2U);
    Key(VK_RIGHT);
    Key(VK_RIGHT);
    EXPECT_EQ(caret(), 8U) << "a family is one";
    Char(8);
    EXPECT_EQ(edit.GetTextLength(), 7) << "the last code point";
    Select(0, 0);
    Key(VK_DELETE);
    EXPECT_EQ(edit.GetTextLength(), 5) << "the whole";
}

} // namespace
