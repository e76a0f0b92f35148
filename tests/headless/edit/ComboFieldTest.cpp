// The combo box's text field under mouse and keys, its caret, and what is drawn.

#include "../../edit/EditFixture.h"
#include "ComboFixture.h"

namespace {

using namespace test;

const std::string CHANGE = "click 5 code 768";

constexpr int CHAR = 6;  // a character's width
constexpr int LINE = 15; // a line's height

class ComboFieldTest : public ComboFixture
{
protected:
    // With the focus and a text, the caret at its end.
    void MakeField(LPCWSTR pszText)
    {
        Make(GCBS_DROPDOWN);
        SetFocus(Combo());
        Combo().SetText(pszText);
        TheHost().TakeReports();
    }
    std::string Ends()
    {
        return std::to_string(Combo().AnchorIndex()) + "-" + std::to_string(Combo().CaretIndex());
    }
    // What is filled, less the parent's background.
    Lines Selections()
    {
        Lines lines = Draw(Combo(), "FillRect");
        std::erase_if(lines,
                      [](const std::string& line) { return line.find("ADD6FF") == std::string::npos; });
        return lines;
    }
    Lines Frames() { return NextPaintBehind(Combo(), "DrawThemeBackground COMBOBOX "); }
};

TEST_F(ComboFieldTest, TheCaretStandsInTheFieldWhileItHasTheFocus)
{
    desk::SetThemeInt("COMBOBOX", 0, 0, TMT_BORDERSIZE, 2);
    desk::SetThemeMargins("COMBOBOX", CP_READONLY, 0, TMT_CONTENTMARGINS, {3, 0, 4, 0});
    Make(GCBS_DROPDOWN);
    Combo().SetText(L"abcd");
    EXPECT_FALSE(desk::Caret().hwnd);
    SetFocus(Combo());
    ASSERT_EQ(desk::Caret().hwnd, Combo().GetHwnd());
    EXPECT_TRUE(desk::Caret().visible);
    EXPECT_EQ(desk::Caret().size.cy, LINE);
    EXPECT_EQ(Numbers(desk::Caret().position), Numbers(2 + 3 + 4 * CHAR, 2 + 4));
    Type(VK_HOME);
    EXPECT_EQ(desk::Caret().position.x, 2 + 3);
    SetFocus(Parent());
    EXPECT_FALSE(desk::Caret().hwnd);
    for (const DWORD dwStyle : {GCBS_PLAIN, GCBS_DROPDOWNLIST}) {
        Combo().SetStyle(WS_CHILD | WS_VISIBLE | dwStyle);
        SetFocus(Combo());
        EXPECT_FALSE(desk::Caret().hwnd) << dwStyle;
        SetFocus(Parent());
    }
}

TEST_F(ComboFieldTest, AnotherControlsCaretStaysWhereItIs)
{
    Make(GCBS_DROPDOWN);
    CreateCaret(Parent(), nullptr, 1, 10);
    SetCaretPos(77, 33);
    Combo().SetText(L"text");
    EXPECT_EQ(desk::Caret().position.x, 77);
}

TEST_F(ComboFieldTest, KeysMoveTheCaretAndShiftExtendsTheSelection)
{
    MakeField(L"abcd");
    const struct
    {
        UINT uKey;
        bool fShift;
        const char* pszEnds;
    } rows[] = {{VK_LEFT, false, "3-3"}, {VK_LEFT, true, "3-2"},   {VK_HOME, true, "3-0"},
                {VK_LEFT, false, "0-0"}, {VK_RIGHT, false, "1-1"}, {VK_END, true, "1-4"},
                {VK_RIGHT, true, "1-4"}, {VK_RIGHT, false, "4-4"}, {VK_HOME, false, "0-0"},
                {VK_RIGHT, true, "0-1"}};
    for (const auto& row : rows) {
        desk::ClearDrawing(Combo());
        if (row.fShift) {
            Type(row.uKey, {VK_SHIFT});
        } else {
            Type(row.uKey);
        }
        EXPECT_EQ(Ends(), row.pszEnds) << &row - rows;
        EXPECT_FALSE(desk::Drawing(Combo()).empty()) << &row - rows;
    }
    Type('A', {VK_CONTROL});
    EXPECT_EQ(Ends(), "0-4");
    EXPECT_EQ(TheHost().TakeReports(), Reports{}) << "no text has changed";
}

TEST_F(ComboFieldTest, ThePointerPutsTheCaretAndDragsASelection)
{
    MakeField(L"abcdef");
    const auto endsAfter = [&](const std::function<void()>& act) {
        act();
        desk::Pump();
        return Ends();
    };
    EXPECT_EQ(endsAfter([&] { ClickAt(Combo(), 2 * CHAR - 2, 10); }), "2-2");
    EXPECT_EQ(endsAfter([&] { ClickAt(Combo(), 2 * CHAR - 3, 10); }), "1-1")
        << "three pixels further starts the next character";
    MoveTo(Combo(), 13, 10);
    desk::PressButton();
    EXPECT_EQ(endsAfter([&] { MoveTo(Combo(), 32, 10); }), "2-5");
    EXPECT_EQ(endsAfter([&] { MoveTo(Combo(), 500, -90); }), "2-6") << "the press holds the pointer";
    MoveTo(Combo(), -50, 10);
    EXPECT_EQ(endsAfter([] { desk::ReleaseButton(); }), "2-0");
    EXPECT_FALSE(GetCapture());
    desk::PressKey(VK_SHIFT);
    EXPECT_EQ(endsAfter([&] { ClickAt(Combo(), 25, 10); }), "2-4");
    desk::ReleaseKey(VK_SHIFT);
    const POINT pt = OnScreen(Combo(), 20, 10);
    EXPECT_EQ(endsAfter([&] { desk::DoubleClick(pt.x, pt.y); }), "0-6");
    EXPECT_EQ(TheHost().TakeReports(), Reports{});
}

TEST_F(ComboFieldTest, TextGoesByTheClipboard)
{
    MakeField(L"abcd");
    desk::SetClipboardText("old");
    Type('C', {VK_CONTROL});
    Type('X', {VK_CONTROL});
    EXPECT_EQ(desk::ClipboardText(), "old") << "nothing is selected";
    SendMessageW(Combo(), CB_SETEDITSEL, 0, MAKELPARAM(3, 1));
    Type('C', {VK_CONTROL});
    EXPECT_EQ(desk::ClipboardText(), "bc");
    EXPECT_EQ(TheHost().TakeReports(), Reports{});
    Type('X', {VK_CONTROL});
    EXPECT_EQ(TextOf(Combo()), "ad");
    EXPECT_EQ(Ends(), "1-1");
    desk::SetClipboardText("1\r\n2\n3\r4");
    Type('V', {VK_CONTROL});
    EXPECT_EQ(TextOf(Combo()), "a1 2 34d");
    EXPECT_EQ(Ends(), "7-7");
    EXPECT_EQ(TheHost().TakeReports(), (Reports{CHANGE, CHANGE}));
    Type('A', {VK_CONTROL});
    desk::SetClipboardText("\xF0\x9F\x98\x80");
    Type('V', {VK_CONTROL});
    EXPECT_EQ(TextOf(Combo()), "\xF0\x9F\x98\x80");
    desk::SetClipboardText("");
}

TEST_F(ComboFieldTest, AClipboardThatCannotBeHadChangesNothing)
{
    MakeField(L"abcd");
    desk::SetClipboardText("old");
    Type('A', {VK_CONTROL});
    for (const char* pszOperation : {"OpenClipboard", "GetClipboardData", "GlobalLock"}) {
        desk::Fail(pszOperation);
        Type('V', {VK_CONTROL});
        EXPECT_EQ(TextOf(Combo()), "abcd") << pszOperation;
        EndFaults();
    }
    for (const char* pszOperation : {"OpenClipboard", "GlobalAlloc", "GlobalLock", "SetClipboardData"}) {
        desk::Fail(pszOperation);
        Type('X', {VK_CONTROL});
        EXPECT_EQ(TextOf(Combo()), "abcd") << pszOperation;
        EndFaults();
    }
    desk::SetClipboardText("");
    Type('V', {VK_CONTROL});
    EXPECT_EQ(TextOf(Combo()), "abcd") << "there is no text";
    EXPECT_EQ(TheHost().TakeReports(), Reports{});
}

TEST_F(ComboFieldTest, CtrlSwallowsCharactersAndTabLeaves)
{
    MakeField(L"a");
    desk::PressKey(VK_CONTROL);
    desk::Pump();
    SendMessageW(Combo(), WM_CHAR, 'x', 1);
    desk::ReleaseKey(VK_CONTROL);
    desk::Pump();
    EXPECT_EQ(TextOf(Combo()), "a");
    desk::StartTrace(Parent());
    Type(VK_TAB);
    Type(VK_TAB, {VK_SHIFT});
    std::vector<bool> backwards;
    for (const desk::Message& message : desk::StopTrace()) {
        if (message.message == WM_NEXTDLGCTL) {
            EXPECT_EQ(message.lParam, 0);
            backwards.push_back(message.wParam != 0);
        }
    }
    EXPECT_EQ(backwards, (std::vector<bool>{false, true}));
}

TEST_F(ComboFieldTest, TheIBeamShowsOverTheTextAlone)
{
    MakeField(L"a");
    const auto cursorAt = [&](int x) {
        MoveTo(Combo(), x, 10);
        desk::Pump();
        return GetCursor();
    };
    EXPECT_EQ(cursorAt(20), GComboBox::s_hIbeam);
    EXPECT_NE(cursorAt(COMBO_CX - 5), GComboBox::s_hIbeam);
    Combo().SetStyle(WS_CHILD | WS_VISIBLE | GCBS_PLAIN);
    EXPECT_NE(cursorAt(30), GComboBox::s_hIbeam);
    Combo().Destroy();
    Make(GCBS_DROPDOWN, 0, WS_EX_LEFTSCROLLBAR);
    EXPECT_NE(cursorAt(5), GComboBox::s_hIbeam) << "the button is at the left";
    EXPECT_EQ(cursorAt(30), GComboBox::s_hIbeam);
}

TEST_F(ComboFieldTest, PointsOutsideOfItAreInNoPart)
{
    MakeField(L"abcd");
    Type(VK_END);
    for (const POINT pt : {POINT{-1, 10}, {10, -1}, {COMBO_CX + 1, 10}, {10, COMBO_CY + 1}}) {
        for (const UINT uMsg : {WM_MOUSEMOVE, WM_LBUTTONDOWN}) {
            SendMessageW(Combo(), uMsg, 0, MAKELPARAM(pt.x, pt.y));
        }
        EXPECT_EQ(Ends(), "4-4") << pt.x << "," << pt.y;
        EXPECT_FALSE(List());
        SendMessageW(Combo(), WM_LBUTTONUP, 0, MAKELPARAM(pt.x, pt.y));
    }
    Combo().SetStyle(WS_CHILD | WS_VISIBLE | GCBS_DROPDOWNLIST);
    SendMessageW(Combo(), WM_LBUTTONDBLCLK, 0, MAKELPARAM(10, 10));
    EXPECT_EQ(Ends(), "4-4") << "and there is nothing to select without a field";
}

TEST_F(ComboFieldTest, EachKindHasItsParts)
{
    const std::string all = "(0,0,120,24)", right = "(103,0,120,24)", left = "(0,0,17,24)";
    const struct
    {
        DWORD dwStyle;
        DWORD dwExStyle;
        Lines lines;
    } rows[] = {
        {0, 0, {}},
        {GCBS_PLAIN, 0, {"4 1 " + all}},
        {GCBS_DROPDOWN, 0, {"4 1 " + all, "6 1 " + right}},
        {GCBS_DROPDOWN, WS_EX_LEFTSCROLLBAR, {"4 1 " + all, "7 1 " + left}},
        {GCBS_DROPDOWNLIST, 0, {"5 1 " + all, "6 1 " + right}},
        {GCBS_DROPDOWN | WS_DISABLED, 0, {"4 4 " + all, "6 4 " + right}},
        {GCBS_DROPDOWNLIST | WS_DISABLED, 0, {"5 4 " + all, "6 1 " + right}},
    };
    for (const auto& row : rows) {
        Make(row.dwStyle, 0, row.dwExStyle);
        EXPECT_EQ(Frames(), row.lines) << &row - rows;
        Combo().Destroy();
    }
}

TEST_F(ComboFieldTest, ThePointerAndThePressShowInTheParts)
{
    const auto states = [&] {
        std::string result;
        for (const std::string& line : Frames()) {
            result += line.substr(2, 1);
        }
        return result;
    };
    Make(GCBS_DROPDOWN);
    MoveTo(Combo(), 10, 10);
    EXPECT_EQ(states(), "21") << "over the text";
    TakeRepaint(Combo());
    SendMessageW(Combo(), WM_MOUSEMOVE, 0, MAKELPARAM(11, 10));
    EXPECT_FALSE(TakeRepaint(Combo())) << "still over the text";
    SendMessageW(Combo(), WM_MOUSEMOVE, 0, MAKELPARAM(110, 10));
    EXPECT_TRUE(TakeRepaint(Combo()));
    MoveTo(Combo(), 110, 10);
    EXPECT_EQ(states(), "22") << "over the button";
    desk::MoveMouse(0, 0);
    EXPECT_EQ(states(), "11");
    std::string open;
    WithList({[&] { open = states(); }, [] { desk::TypeKey(VK_ESCAPE); }});
    EXPECT_EQ(open, "33");
    MoveTo(Combo(), 10, 10);
    desk::PressButton();
    EXPECT_EQ(states(), "33");
    desk::ReleaseButton();
    EXPECT_EQ(states(), "21");
    Combo().SetState(GWS_KEYDOWN);
    EXPECT_EQ(states(), "33");
}

TEST_F(ComboFieldTest, TheSelectionIsFilledAndTheTextDrawnInThreePieces)
{
    MakeField(L"abcdef");
    EXPECT_EQ(Draw(Combo(), "DrawTextW").size(), 1u);
    SendMessageW(Combo(), CB_SETEDITSEL, 0, MAKELPARAM(2, 4));
    desk::Pump();
    const Lines text = Draw(Combo(), "DrawTextW");
    ASSERT_EQ(text.size(), 3u);
    EXPECT_TRUE(text[0].starts_with("DrawTextW \"ab\" (1,1,102,23) 0x0820")) << text[0];
    EXPECT_TRUE(text[1].starts_with("DrawTextW \"cd\" (13,1,102,23) 0x0820")) << text[1];
    EXPECT_TRUE(text[2].starts_with("DrawTextW \"ef\" (25,1,102,23) 0x0820")) << text[2];
    EXPECT_NE(text[1].find("color=000000"), std::string::npos) << text[1];
    EXPECT_EQ(Selections(), Lines{"FillRect (13,1,25,16) brush=ADD6FF"});
    SetFocus(Parent());
    EXPECT_EQ(Selections(), Lines{}) << "without the focus there is none";
    // Text wider than the field ends at the button.
    Combo().SetText(L"a text that is wider than its field has room for");
    SetFocus(Combo());
    EXPECT_EQ(Selections(), Lines{"FillRect (1,1,102,16) brush=ADD6FF"});
}

TEST_F(ComboFieldTest, TheFaceShowsTheSelectedItemAndTheFocus)
{
    Make(GCBS_DROPDOWNLIST, 3);
    EXPECT_EQ(Draw(Combo(), "DrawThemeText"), Lines{});
    Combo().SetSelected(2);
    const Lines face = Draw(Combo(), "DrawThemeText");
    ASSERT_EQ(face.size(), 1u);
    EXPECT_TRUE(face[0].starts_with("DrawThemeText COMBOBOX 5 1 \"item 2\" (1,1,102,23) 0x100020"))
        << face[0];
    SetFocus(Combo());
    EXPECT_EQ(Draw(Combo(), "DrawFocusRect"), Lines{}) << "hidden until the UI state shows it";
    SendMessageW(Combo(), WM_UPDATEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS), 0);
    EXPECT_EQ(Draw(Combo(), "DrawFocusRect"), Lines{"DrawFocusRect (1,1,102,23)"});
    Combo().RemoveItem(2);
    EXPECT_EQ(Draw(Combo(), "DrawThemeText"), Lines{}) << "the selection is past the end";
}

TEST_F(ComboFieldTest, CheckFindsItemsThatShareOrLackATextOfTheirOwn)
{
    Make(GCBS_DROPDOWN, 2);
    EXPECT_TRUE(gesso::CheckItems(Combo().Items()));
    ComboItem* const pSecond = std::exchange(Combo().Items()[1], Combo().Items()[0]);
    EXPECT_FALSE(gesso::CheckItems(Combo().Items()));
    Combo().Items()[1] = pSecond;
    const LPWSTR pszText = std::exchange(pSecond->pszText, Combo().Items()[0]->pszText);
    EXPECT_FALSE(gesso::CheckItems(Combo().Items()));
    pSecond->pszText = nullptr;
    EXPECT_FALSE(gesso::CheckItems(Combo().Items()));
    pSecond->pszText = pszText;
}

TEST_F(ComboFieldTest, WithoutAStyleItStaysUsable)
{
    desk::SetThemed(false);
    Make(GCBS_DROPDOWN, 3);
    Combo().SetSelected(1);
    EXPECT_EQ(Draw(Combo(), "DrawEdge").size(), 1u);
    EXPECT_EQ(Draw(Combo(), "DrawFrameControl").size(), 1u);
    EXPECT_EQ(Draw(Combo(), "DrawTextW \"item 1\"").size(), 1u);
    size_t nRows = 0;
    WithList({[&] { nRows = Draw(List(), "DrawTextW \"item").size(); }, [] { desk::TypeKey(VK_ESCAPE); }});
    EXPECT_EQ(nRows, 3u);
    EnableWindow(Combo(), FALSE);
    EXPECT_TRUE(AnyStartsWith(Draw(Combo(), "FillRect"), "FillRect (0,0,120,24) brush=sys15"));
}

} // namespace
