// A combo box that was made in Modern: what it finds, its list, its keys, its field, and what it tells.

#include "../support/Host.h"
#include "../support/User.h"
#include "../support/WithBehavior.h"

#include <gtest/gtest.h>

namespace {

using namespace test;

constexpr DWORD CHILD = WS_CHILD | WS_VISIBLE | WS_TABSTOP;
constexpr UINT NONE = static_cast<UINT>(-1);
constexpr int COMBO_X = 10, COMBO_Y = 10, COMBO_CX = 120, COMBO_CY = 24; // in the host's client area
constexpr int ROW = 22;

LPARAM Text(LPCWSTR psz)
{
    return reinterpret_cast<LPARAM>(psz);
}

class GComboBoxModernTest : public testing::Test
{
protected:
    void TearDown() override { combo.Destroy(); }

    void Make(DWORD dwStyle,
              std::initializer_list<LPCWSTR> items = {L"Alpha", L"beta", L"Beton", L"gamma", L"delta"})
    {
        combo.Destroy();
        combo.RemoveAllItems();
        ASSERT_TRUE(combo.Create(COMBO_X, COMBO_Y, COMBO_CX, COMBO_CY, host, 5, CHILD | dwStyle, 0));
        for (const LPCWSTR psz : items) {
            combo.InsertItem(NONE, 0, psz, 0, nullptr);
        }
        SetFocus(combo);
        user::Pump();
        host.TakeReports();
    }

    LRESULT Send(UINT uMsg, WPARAM wParam = 0, LPARAM lParam = 0)
    {
        return SendMessageW(combo, uMsg, wParam, lParam);
    }
    void Key(UINT uKey, std::initializer_list<UINT> held = {})
    {
        user::TypeKey(uKey, held);
        user::Pump();
    }
    void Type(std::string_view text)
    {
        user::TypeText(text);
        user::Pump();
    }
    void Open()
    {
        Send(CB_SHOWDROPDOWN, TRUE);
        user::Pump();
        host.TakeReports();
    }
    bool IsOpen() { return Send(CB_GETDROPPEDSTATE) != 0; }
    HWND List()
    {
        COMBOBOXINFO info{};
        info.cbSize = sizeof(info);
        Send(CB_GETCOMBOBOXINFO, 0, reinterpret_cast<LPARAM>(&info));
        return info.hwndList;
    }
    RECT ListRect()
    {
        RECT rc{};
        GetWindowRect(List(), &rc);
        return rc;
    }
    RECT ComboRect()
    {
        RECT rc{};
        GetWindowRect(combo, &rc);
        return rc;
    }
    // Of the open list's client area, on the screen.
    POINT RowPoint(int nRowInView)
    {
        POINT pt{20, nRowInView * ROW + ROW / 2};
        ClientToScreen(List(), &pt);
        return pt;
    }
    void ClickAt(POINT pt)
    {
        user::Click(pt.x, pt.y);
        user::Pump();
    }
    POINT ButtonPoint()
    {
        const RECT rc = ComboRect();
        return {rc.right - 5, rc.top + 10};
    }

    // The codes of WM_COMMAND that the parent was sent since the last call.
    std::string Codes()
    {
        const std::string start = "click 5 code ";
        std::string codes;
        for (const std::string& report : host.TakeReports()) {
            if (report.starts_with(start)) {
                codes += (codes.empty() ? "" : " ") + report.substr(start.size());
            }
        }
        return codes;
    }
    int Selected() const { return static_cast<int>(combo.GetSelected()); }

    Modern modern;
    Host host;
    GComboBox combo;
};

TEST_F(GComboBoxModernTest, TextsAreFoundFromBehindTheStartAndAroundTheEnd)
{
    Make(GCBS_DROPDOWNLIST, {L"Alpha", L"beta", L"", L"Beton", L"\x00C4gypten"});
    const struct
    {
        UINT uMsg;
        int nStart;
        LPCWSTR psz;
        int nHit;
    } rows[] = {
        {CB_FINDSTRING, -1, L"BE", 1},       {CB_FINDSTRING, 1, L"be", 3},
        {CB_FINDSTRING, 3, L"be", 1},        {CB_FINDSTRING, 99, L"be", 1},
        {CB_FINDSTRING, -1, L"beto", 3},     {CB_FINDSTRING, -1, L"betons", -1},
        {CB_FINDSTRING, -1, L"", -1},        {CB_FINDSTRING, 0, L"alpha", 0},
        {CB_FINDSTRING, 0, L"\x00E4g", 4},   {CB_FINDSTRINGEXACT, -1, L"be", -1},
        {CB_FINDSTRINGEXACT, 1, L"BETA", 1}, {CB_FINDSTRINGEXACT, 3, L"beton", 3},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Send(row.uMsg, static_cast<WPARAM>(row.nStart), Text(row.psz)), row.nHit) << &row - rows;
    }
    EXPECT_EQ(Send(CB_SELECTSTRING, 1, Text(L"BET")), 3);
    EXPECT_EQ(Send(CB_SELECTSTRING, 1, Text(L"x")), CB_ERR);
    EXPECT_EQ(Selected(), 3) << "no hit changes nothing";
    EXPECT_EQ(Codes(), "") << "the program's own selections are not told";
}

TEST_F(GComboBoxModernTest, AnswersThePlatformsMessages)
{
    Make(GCBS_DROPDOWNLIST);
    EXPECT_NE(Send(CB_SETITEMDATA, 2, 77), CB_ERR);
    EXPECT_EQ(Send(CB_GETITEMDATA, 2), 77);
    EXPECT_EQ(Send(CB_SETITEMDATA, 5, 77), CB_ERR);
    EXPECT_EQ(Send(CB_GETITEMDATA, NONE), CB_ERR);
    EXPECT_EQ(Send(CB_GETITEMHEIGHT, 0), ROW);
    EXPECT_NE(Send(CB_SETITEMHEIGHT, 0, 30), CB_ERR);
    EXPECT_EQ(Send(CB_GETITEMHEIGHT, 0), 30);
    for (const auto& [nIndex, nHeight] : {std::pair{0, 0}, {0, 256}, {1, 30}, {-2, 30}, {-1, 0}}) {
        EXPECT_EQ(Send(CB_SETITEMHEIGHT, static_cast<WPARAM>(nIndex), nHeight), CB_ERR) << nIndex;
    }
    const LRESULT nField = Send(CB_GETITEMHEIGHT, static_cast<WPARAM>(-1));
    EXPECT_NE(Send(CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), nField + 7), CB_ERR);
    EXPECT_EQ(Send(CB_GETITEMHEIGHT, static_cast<WPARAM>(-1)), nField + 7);
    EXPECT_EQ(ComboRect().bottom - ComboRect().top, COMBO_CY + 7);
    EXPECT_EQ(Send(CB_GETMINVISIBLE), 30);
    EXPECT_EQ(Send(CB_SETMINVISIBLE, 4), TRUE);
    EXPECT_EQ(Send(CB_SETMINVISIBLE, 0), FALSE);
    EXPECT_EQ(Send(CB_GETMINVISIBLE), 4);
    EXPECT_EQ(Send(CB_GETDROPPEDWIDTH), COMBO_CX);
    EXPECT_EQ(Send(CB_SETDROPPEDWIDTH, 300), 300);
    EXPECT_EQ(Send(CB_GETEXTENDEDUI), FALSE);
    wchar_t cue[5] = L"----";
    EXPECT_EQ(Send(CB_GETCUEBANNER, reinterpret_cast<WPARAM>(cue), 5), FALSE);
    EXPECT_EQ(Send(CB_SETCUEBANNER, 0, Text(L"Choose one")), TRUE);
    EXPECT_EQ(Send(CB_GETCUEBANNER, reinterpret_cast<WPARAM>(cue), 5), TRUE);
    EXPECT_EQ(Narrow(cue), "Choo");
    EXPECT_EQ(Send(CB_GETEDITSEL), CB_ERR) << "there is no field";
    EXPECT_EQ(Send(CB_SETEDITSEL), CB_ERR);
    EXPECT_EQ(Send(CB_DIR, 0, Text(L"*")), CB_ERR);
    COMBOBOXINFO info{};
    EXPECT_EQ(Send(CB_GETCOMBOBOXINFO, 0, reinterpret_cast<LPARAM>(&info)), FALSE) << "of no size";
    EXPECT_EQ(Codes(), "");
}

TEST_F(GComboBoxModernTest, SortsAsItFillsAndTheSelectionGoesWithItsItem)
{
    Make(GCBS_DROPDOWNLIST | GCBS_SORT, {});
    EXPECT_EQ(Send(CB_ADDSTRING, 0, Text(L"melon")), 0);
    EXPECT_EQ(Send(CB_SETCURSEL, 0), 0);
    EXPECT_EQ(Send(CB_ADDSTRING, 0, Text(L"Apple")), 0);
    EXPECT_EQ(Send(CB_ADDSTRING, 0, Text(L"zebra")), 2);
    EXPECT_EQ(Send(CB_ADDSTRING, 0, Text(L"MELON")), 2) << "behind its like";
    EXPECT_EQ(Selected(), 1);
    EXPECT_EQ(Send(CB_INSERTSTRING, 1, Text(L"told")), 1);
    EXPECT_EQ(Selected(), 2);
    EXPECT_EQ(TextOf(combo), "melon");
    EXPECT_EQ(Send(CB_DELETESTRING, 0), 4);
    EXPECT_EQ(Selected(), 1);
    EXPECT_EQ(Send(CB_DELETESTRING, 3), 3);
    EXPECT_EQ(Selected(), 1);
    EXPECT_EQ(Send(CB_DELETESTRING, 1), 2);
    EXPECT_EQ(Selected(), -1);
    Make(GCBS_DROPDOWN);
    combo.SetText(L"kept");
    EXPECT_EQ(Send(CB_DELETESTRING, 0), 4);
    EXPECT_EQ(TextOf(combo), "kept");
    EXPECT_EQ(Send(CB_RESETCONTENT), 0);
    EXPECT_EQ(TextOf(combo), "");
    EXPECT_EQ(Codes(), "");
}

TEST_F(GComboBoxModernTest, KeysOpenAndCloseEveryList)
{
    for (const DWORD dwKind : {GCBS_DROPDOWN, GCBS_DROPDOWNLIST}) {
        Make(dwKind);
        const std::pair<UINT, UINT> rows[] = {{VK_F4, 0}, {VK_DOWN, VK_MENU}, {VK_UP, VK_MENU}};
        for (const auto& [uKey, uHeld] : rows) {
            SCOPED_TRACE(uKey);
            const auto press = [&] { uHeld ? Key(uKey, {uHeld}) : Key(uKey); };
            press();
            EXPECT_TRUE(IsOpen());
            EXPECT_EQ(GetFocus(), combo.GetHwnd());
            EXPECT_EQ(Codes(), "7");
            press();
            EXPECT_FALSE(IsOpen());
            EXPECT_EQ(Codes(), "9 8");
        }
        EXPECT_EQ(Send(CB_SHOWDROPDOWN, TRUE), TRUE);
        EXPECT_EQ(Send(CB_SHOWDROPDOWN, TRUE), TRUE);
        EXPECT_EQ(Codes(), "7");
        EXPECT_EQ(Send(CB_SHOWDROPDOWN, FALSE), TRUE);
        EXPECT_EQ(Send(CB_SHOWDROPDOWN, FALSE), TRUE);
        EXPECT_EQ(Codes(), "10 8");
        EXPECT_EQ(Send(CB_SETEXTENDEDUI, TRUE), CB_OKAY);
        Key(VK_F4);
        EXPECT_FALSE(IsOpen());
        Key(VK_DOWN);
        EXPECT_TRUE(IsOpen());
        EXPECT_EQ(Selected(), -1);
    }
    Make(GCBS_PLAIN);
    Key(VK_F4);
    Key(VK_DOWN, {VK_MENU});
    EXPECT_EQ(Send(CB_SHOWDROPDOWN, TRUE), TRUE);
    EXPECT_FALSE(IsOpen()) << "this kind has no list";
    EXPECT_EQ(Send(CB_SETEXTENDEDUI, TRUE), CB_ERR);
    EXPECT_EQ(Codes(), "");
}

TEST_F(GComboBoxModernTest, StepsInTheOpenListAreTakenOrGivenBack)
{
    Make(GCBS_DROPDOWNLIST);
    combo.SetSelected(1);
    Open();
    Key(VK_DOWN);
    EXPECT_EQ(Selected(), 2);
    EXPECT_EQ(Codes(), "1") << "at once";
    Key(VK_END);
    Key(VK_DOWN);
    EXPECT_EQ(Codes(), "1") << "at the end there is nothing to tell";
    Key(VK_ESCAPE);
    EXPECT_EQ(Selected(), 1);
    EXPECT_EQ(TextOf(combo), "beta");
    EXPECT_EQ(Codes(), "10 8 1");
    Open();
    Key(VK_UP);
    Key(VK_RETURN);
    EXPECT_EQ(Selected(), 0);
    EXPECT_EQ(Codes(), "1 9 8");
    Open();
    Key(VK_ESCAPE);
    EXPECT_EQ(Codes(), "10 8") << "nothing had changed";
    Open();
    Key(VK_DOWN);
    combo.SetSelected(3);
    Key(VK_ESCAPE);
    EXPECT_EQ(Selected(), 3) << "the program's choice is no step";
    combo.RemoveAllItems();
    Open();
    Key(VK_DOWN);
    Key(VK_RETURN);
    EXPECT_EQ(Codes(), "9 8");
}

TEST_F(GComboBoxModernTest, EscGivesATypedTextBack)
{
    Make(GCBS_DROPDOWN);
    Type("be");
    EXPECT_EQ(Codes(), "6 5 6 5");
    EXPECT_EQ(Selected(), -1);
    Open();
    Key(VK_DOWN);
    EXPECT_EQ(TextOf(combo), "beta") << "the item that the text leads to";
    EXPECT_EQ(Codes(), "1");
    Key(VK_DOWN);
    Key(VK_ESCAPE);
    EXPECT_EQ(TextOf(combo), "be");
    EXPECT_EQ(Selected(), -1);
    EXPECT_EQ(Codes(), "1 10 8 1");
    Open();
    Key(VK_RETURN);
    EXPECT_EQ(TextOf(combo), "be") << "highlighted is not chosen";
    EXPECT_EQ(Codes(), "9 8");
    Open();
    Key(VK_DOWN);
    Type("x");
    EXPECT_EQ(Selected(), -1);
    Key(VK_ESCAPE);
    EXPECT_EQ(TextOf(combo), "x") << "what was typed is the text";
    EXPECT_EQ(Codes(), "1 6 5 10 8");
    Key(VK_UP);
    EXPECT_EQ(TextOf(combo), "Alpha");
    EXPECT_EQ(Codes(), "9 1");
}

TEST_F(GComboBoxModernTest, TheMouseChoosesInTheListOrClosesIt)
{
    Make(GCBS_DROPDOWNLIST);
    ClickAt(ButtonPoint());
    EXPECT_TRUE(IsOpen()) << "the press has returned";
    EXPECT_EQ(Codes(), "7");
    ClickAt(RowPoint(2));
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(TextOf(combo), "Beton");
    EXPECT_EQ(Codes(), "9 8 1");
    Open();
    ClickAt(RowPoint(2));
    EXPECT_EQ(Codes(), "9 8") << "the same item";
    Open();
    Key(VK_DOWN);
    ClickAt({HOST_X + 300, HOST_Y + 200});
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Selected(), 2);
    EXPECT_EQ(Codes(), "1 10 8 1");
    Open();
    ClickAt(ButtonPoint());
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Codes(), "10 8");
    const POINT pt = ButtonPoint();
    user::MoveMouse(pt.x, pt.y);
    user::PressButton();
    user::Pump();
    const POINT ptRow = RowPoint(0);
    user::MoveMouse(ptRow.x, ptRow.y);
    user::Pump();
    user::ReleaseButton();
    user::Pump();
    EXPECT_EQ(Selected(), 0) << "a press that is drawn to a row";
    EXPECT_EQ(Codes(), "7 9 8 1");
    Open();
    const POINT ptOver = RowPoint(3);
    user::MoveMouse(ptOver.x, ptOver.y);
    user::Pump();
    EXPECT_EQ(Selected(), 0);
    Key(VK_RETURN);
    EXPECT_EQ(Selected(), 3) << "Enter takes what is highlighted";
    EXPECT_EQ(Codes(), "9 8 1");
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(GComboBoxModernTest, TypedLettersChooseWithoutAField)
{
    for (const DWORD dwKind : {GCBS_PLAIN, GCBS_DROPDOWNLIST}) {
        Make(dwKind);
        Type("b");
        EXPECT_EQ(TextOf(combo), "beta");
        EXPECT_EQ(Codes(), "9 1");
        Type("ETO");
        EXPECT_EQ(TextOf(combo), "Beton");
        EXPECT_EQ(Codes(), "9 1");
        user::Wait(1100);
        Type("x");
        EXPECT_EQ(Codes(), "");
    }
    user::Wait(1100);
    Open();
    Type("g");
    EXPECT_EQ(TextOf(combo), "gamma");
    EXPECT_EQ(Codes(), "1") << "as a step in the open list";
    Key(VK_RETURN);
    EXPECT_EQ(Codes(), "9 8");
}

TEST_F(GComboBoxModernTest, KeysAndWheelStepThroughTheClosedList)
{
    Make(GCBS_DROPDOWNLIST);
    Key(VK_END);
    EXPECT_EQ(Codes(), "9 1");
    Key(VK_DOWN);
    EXPECT_EQ(Codes(), "") << "nothing has changed";
    Key(VK_HOME);
    Key(VK_RIGHT);
    EXPECT_EQ(Selected(), 1);
    EXPECT_EQ(Codes(), "9 1 9 1");
    const auto wheel = [&](int nDelta) { Send(WM_MOUSEWHEEL, MAKEWPARAM(0, nDelta), 0); };
    wheel(-60);
    EXPECT_EQ(Selected(), 1);
    wheel(-60);
    EXPECT_EQ(Selected(), 2) << "two halves are a notch";
    wheel(-1200);
    EXPECT_EQ(Selected(), 4);
    wheel(120);
    EXPECT_EQ(Selected(), 3);
}

TEST_F(GComboBoxModernTest, EnterAndEscAreTheOpenListsAndOtherwiseTheDialogs)
{
    for (const DWORD dwKind : {GCBS_DROPDOWN, GCBS_DROPDOWNLIST}) {
        Make(dwKind);
        const auto key = [&](UINT uKey) {
            user::TypeKey(uKey);
            user::Pump(host);
        };
        for (const UINT uKey : {VK_RETURN, VK_ESCAPE}) {
            Open();
            key(uKey);
            EXPECT_FALSE(IsOpen());
            EXPECT_EQ(host.TakeReports(),
                      (Reports{uKey == VK_RETURN ? "click 5 code 9" : "click 5 code 10", "click 5 code 8"}));
            key(uKey);
            EXPECT_EQ(host.TakeReports(), Reports{uKey == VK_RETURN ? "click 1" : "click 2"});
        }
        Open();
        key(VK_DOWN);
        EXPECT_EQ(Selected(), 0);
    }
}

TEST_F(GComboBoxModernTest, TheListGoesWithWhatItBelongsTo)
{
    const std::function<void()> acts[] = {
        [&] { SetFocus(host); },
        [&] { ShowWindow(combo, SW_HIDE); },
        [&] { EnableWindow(combo, FALSE); },
        [&] { Send(WM_CANCELMODE); },
        [&] { SetWindowPos(combo, nullptr, 20, 30, 0, 0, SWP_NOSIZE | SWP_NOZORDER); },
        [&] { combo.SetStyle(CHILD | GCBS_PLAIN); },
        [&] { SetCapture(host); },
        [&] {
            SetWindowPos(host, nullptr, 70, 80, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
            user::Wait(150);
        },
    };
    for (const auto& act : acts) {
        SCOPED_TRACE(&act - acts);
        Make(GCBS_DROPDOWNLIST);
        Open();
        Key(VK_DOWN);
        host.TakeReports();
        act();
        EXPECT_FALSE(IsOpen());
        EXPECT_EQ(Selected(), 0) << "with the choice that the parent knows";
        const std::string codes = Codes();
        EXPECT_EQ(codes.substr(0, 4), "10 8");
        EXPECT_EQ(codes.find(" 1"), std::string::npos) << codes;
        ReleaseCapture();
    }
    Make(GCBS_DROPDOWNLIST);
    Open();
    const HWND hwndList = List();
    combo.Destroy();
    EXPECT_FALSE(IsWindow(hwndList));
}

TEST_F(GComboBoxModernTest, WhatTheParentOpensWhenToldStandsInThePlaceOfTheFirst)
{
    Make(GCBS_DROPDOWNLIST);
    int nTold = 0;
    host.onReport = [&](const std::string& report) {
        if (report == "click 5 code 7" && ++nTold == 1) {
            Send(CB_SHOWDROPDOWN, FALSE);
            Send(CB_SHOWDROPDOWN, TRUE);
        }
    };
    Send(CB_SHOWDROPDOWN, TRUE);
    host.onReport = nullptr;
    EXPECT_TRUE(IsOpen());
    Key(VK_ESCAPE);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(GComboBoxModernTest, ItemsThatComeAndGoLeaveTheHighlightOnItsItem)
{
    Make(GCBS_DROPDOWNLIST);
    Open();
    Key(VK_DOWN);
    Key(VK_DOWN);
    const int nChosen = Selected();
    combo.InsertItem(0, 0, L"First of all", 0, nullptr);
    Key(VK_RETURN);
    EXPECT_EQ(Selected(), nChosen + 1) << "before the list is arranged anew";
}

TEST_F(GComboBoxModernTest, ADragInAFieldWithoutTheFocusSelects)
{
    Make(GCBS_DROPDOWN);
    SetFocus(host);
    combo.SetText(L"some words");
    Send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(8, 12));
    Send(WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(30, 12));
    Send(WM_LBUTTONUP, 0, MAKELPARAM(30, 12));
    DWORD nFrom = 0;
    DWORD nTo = 0;
    Send(CB_GETEDITSEL, reinterpret_cast<WPARAM>(&nFrom), reinterpret_cast<LPARAM>(&nTo));
    EXPECT_LT(nFrom, nTo);
    EXPECT_LT(nTo, 10U) << "not all of it";
    EXPECT_EQ(combo.GetTextLength(), 10);
}

TEST_F(GComboBoxModernTest, TheParentHearsOfTheFocusAfterTheList)
{
    Make(GCBS_DROPDOWN);
    SetFocus(host);
    EXPECT_EQ(host.TakeReports(), (Reports{"click 5 code 4", "killfocus 5"}));
    SetFocus(combo);
    EXPECT_EQ(host.TakeReports(), (Reports{"click 5 code 3", "setfocus 5"}));
    Open();
    SetFocus(host);
    EXPECT_EQ(Codes(), "10 8 4");
}

TEST_F(GComboBoxModernTest, TheListFitsItsItemsAndTheMonitor)
{
    Make(GCBS_DROPDOWNLIST);
    MONITORINFO monitor{};
    monitor.cbSize = sizeof(monitor);
    GetMonitorInfoW(MonitorFromWindow(combo, MONITOR_DEFAULTTONEAREST), &monitor);
    Open();
    const RECT rcFew = ListRect();
    EXPECT_EQ(rcFew.top, ComboRect().bottom);
    EXPECT_EQ(rcFew.right - rcFew.left, COMBO_CX);
    const int nFrame = static_cast<int>(rcFew.bottom - rcFew.top) - 5 * ROW;
    RECT rcDropped{};
    EXPECT_EQ(Send(CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(&rcDropped)), TRUE);
    EXPECT_EQ(rcDropped.top, ComboRect().top);
    EXPECT_EQ(rcDropped.bottom, rcFew.bottom);
    combo.InsertItem(NONE, 0, L"An item that is quite a bit wider than the control", 0, nullptr);
    user::Wait(50);
    EXPECT_GT(ListRect().right - ListRect().left, COMBO_CX) << "also while it is open";
    EXPECT_EQ(ListRect().bottom - ListRect().top, 6 * ROW + nFrame);
    Send(CB_SHOWDROPDOWN, FALSE);

    for (int i = 0; i < 60; ++i) {
        combo.InsertItem(NONE, 0, L"more", 0, nullptr);
    }
    Send(CB_SETITEMHEIGHT, 0, 10);
    Open();
    EXPECT_EQ(ListRect().bottom - ListRect().top, 30 * 10 + nFrame);
    Send(CB_SETMINVISIBLE, 7);
    EXPECT_EQ(ListRect().bottom - ListRect().top, 7 * 10 + nFrame);
    EXPECT_EQ(Send(CB_SETTOPINDEX, 20), CB_OKAY);
    EXPECT_EQ(Send(CB_GETTOPINDEX), 20);
    EXPECT_EQ(Send(CB_SETTOPINDEX, 66), CB_ERR);
    Send(CB_SHOWDROPDOWN, FALSE);
    combo.SetDropdownHeight(static_cast<UINT>(nFrame) + 45);
    Open();
    EXPECT_EQ(ListRect().bottom - ListRect().top, 4 * 10 + nFrame) << "full rows";
    Send(CB_SHOWDROPDOWN, FALSE);
    combo.SetDropdownHeight(0);

    SetWindowPos(host, nullptr, 0, static_cast<int>(monitor.rcWork.bottom) - 100, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    Send(CB_SETMINVISIBLE, 20);
    Open();
    EXPECT_EQ(ListRect().bottom, ComboRect().top) << "up";
    EXPECT_EQ(ListRect().bottom - ListRect().top, 20 * 10 + nFrame);
    Send(CB_SETMINVISIBLE, 1);
    EXPECT_EQ(ListRect().top, ComboRect().bottom) << "there is room for one row";
}

TEST_F(GComboBoxModernTest, TypingCompletesTheFirstItemThatBeginsSo)
{
    Make(GCBS_DROPDOWN);
    Type("b");
    EXPECT_EQ(TextOf(combo), "b") << "off at first";
    combo.SetText(L"");
    combo.SetAutoComplete(true);
    host.TakeReports();
    host.onReport = [&](const std::string&) { EXPECT_EQ(TextOf(combo), "Beta") << "whole when it is told"; };
    Type("B");
    host.onReport = nullptr;
    EXPECT_EQ(TextOf(combo), "Beta");
    EXPECT_EQ(Send(CB_GETEDITSEL), MAKELONG(1, 4));
    EXPECT_EQ(Codes(), "6 5") << "told once";
    EXPECT_EQ(Selected(), -1);
    Type("eto");
    EXPECT_EQ(TextOf(combo), "Beton");
    EXPECT_EQ(Send(CB_GETEDITSEL), MAKELONG(4, 5));
    host.TakeReports();
    Key(VK_BACK);
    EXPECT_EQ(TextOf(combo), "Beto") << "what was completed goes";
    EXPECT_EQ(Codes(), "6 5");
    Type("x");
    EXPECT_EQ(TextOf(combo), "Betox");
    combo.SetText(L"eta");
    Type("b");
    EXPECT_EQ(TextOf(combo), "beta") << "in front of a text nothing is completed";
    EXPECT_EQ(Send(CB_GETEDITSEL), MAKELONG(1, 1));
}

TEST_F(GComboBoxModernTest, TheFieldIsATextField)
{
    Make(GCBS_DROPDOWN);
    combo.SetText(L"one\r\ntwo");
    EXPECT_EQ(TextOf(combo), "one two");
    EXPECT_EQ(Send(CB_GETEDITSEL), MAKELONG(0, 0)) << "the caret is at the start";
    Send(WM_SETTEXT, 0, Text(L"hello"));
    EXPECT_EQ(Codes(), "") << "what the program does is not told";
    EXPECT_EQ(Send(CB_SETEDITSEL, 0, MAKELPARAM(1, 3)), 1);
    EXPECT_EQ(Send(CB_GETEDITSEL), MAKELONG(1, 3));
    EXPECT_EQ(Send(CB_SETEDITSEL, 0, MAKELPARAM(2, -1)), 1);
    EXPECT_EQ(Send(CB_GETEDITSEL), MAKELONG(2, 5));
    Type("y");
    EXPECT_EQ(TextOf(combo), "hey");
    EXPECT_EQ(Codes(), "6 5");
    SetFocus(host);
    SetFocus(combo);
    EXPECT_EQ(Send(CB_GETEDITSEL), MAKELONG(0, 3)) << "all, when the focus comes";
    combo.SetSelected(2);
    EXPECT_EQ(TextOf(combo), "Beton");
    EXPECT_EQ(Send(CB_GETEDITSEL), MAKELONG(0, 5));
    combo.Destroy();
    EXPECT_EQ(combo.GetTextLength(), 5) << "the text stays with the object";
}

// It may also fill, clear, close or open the list in what it is told.
TEST_F(GComboBoxModernTest, TheParentMayChangeTheListWhenTold)
{
    Make(GCBS_DROPDOWN, {});
    host.onReport = [&](const std::string& report) {
        if (report == "click 5 code 7") {
            combo.RemoveAllItems();
            combo.InsertItem(NONE, 0, L"late", 0, nullptr);
        }
    };
    Key(VK_F4);
    Key(VK_DOWN);
    EXPECT_EQ(TextOf(combo), "late");
    host.onReport = [&](const std::string& report) {
        if (report == "click 5 code 10" || report == "click 5 code 9") {
            Send(CB_SHOWDROPDOWN, FALSE);
            combo.RemoveAllItems();
        }
    };
    host.TakeReports();
    Key(VK_ESCAPE);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Codes(), "10 8 1");
    host.onReport = [&](const std::string& report) {
        if (report == "click 5 code 7") {
            Send(CB_SHOWDROPDOWN, FALSE);
        }
    };
    Key(VK_F4);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Codes(), "7 8");
    host.onReport = nullptr;
}

TEST_F(GComboBoxModernTest, WithoutAFieldTheTextIsTheSelectedItems)
{
    for (const DWORD dwKind : {GCBS_PLAIN, GCBS_DROPDOWNLIST}) {
        Make(dwKind);
        combo.SetSelected(2);
        EXPECT_EQ(Send(WM_SETTEXT, 0, Text(L"told")), CB_ERR);
        EXPECT_EQ(combo.SetText(L"told"), 0);
        EXPECT_EQ(TextOf(combo), "Beton");
        combo.SetItemText(2, L"Renamed");
        EXPECT_EQ(TextOf(combo), "Renamed");
        Send(CB_DELETESTRING, 2);
        EXPECT_EQ(TextOf(combo), "");
        combo.SetSelected(1);
        Send(CB_RESETCONTENT);
        EXPECT_EQ(TextOf(combo), "");
    }
    Make(GCBS_DROPDOWN);
    EXPECT_EQ(Send(WM_SETTEXT, 0, Text(L"told")), TRUE);
    combo.SetStyle(CHILD | GCBS_DROPDOWNLIST);
    EXPECT_EQ(TextOf(combo), "");
    EXPECT_EQ(Codes(), "");
}

TEST_F(GComboBoxModernTest, AChoiceThatChangesTheTextAloneIsTold)
{
    Make(GCBS_DROPDOWN);
    combo.SetSelected(1);
    combo.SetText(L"other");
    Open();
    ClickAt(RowPoint(1));
    EXPECT_EQ(TextOf(combo), "beta");
    EXPECT_EQ(Codes(), "9 8 1");
    combo.SetText(L"other");
    Open();
    Key(VK_DOWN);
    Key(VK_UP);
    EXPECT_EQ(TextOf(combo), "beta");
    Key(VK_ESCAPE);
    EXPECT_EQ(TextOf(combo), "other");
    EXPECT_EQ(Codes(), "1 1 10 8 1");
}

TEST_F(GComboBoxModernTest, ItemsThatComeLeaveTheViewAndTheHighlight)
{
    Make(GCBS_DROPDOWNLIST, {});
    for (int i = 0; i < 60; ++i) {
        combo.InsertItem(NONE, 0, L"item", 0, nullptr);
    }
    Send(CB_SETMINVISIBLE, 10);
    EXPECT_EQ(Send(CB_SETTOPINDEX, 20), CB_OKAY);
    EXPECT_EQ(Send(CB_GETTOPINDEX), 20) << "of a closed list too";
    Open();
    EXPECT_EQ(Send(CB_GETTOPINDEX), 20);
    const POINT pt = RowPoint(2);
    user::MoveMouse(pt.x, pt.y);
    user::Pump();
    combo.InsertItem(NONE, 0, L"late", 0, nullptr);
    user::Wait(50);
    EXPECT_EQ(Send(CB_GETTOPINDEX), 20);
    Key(VK_RETURN);
    EXPECT_EQ(Selected(), 22);
    EXPECT_EQ(Send(CB_GETTOPINDEX), 20);
    Send(CB_RESETCONTENT);
    EXPECT_EQ(Send(CB_GETTOPINDEX), 0);
}

TEST_F(GComboBoxModernTest, RowsFitTheFont)
{
    Make(GCBS_DROPDOWNLIST);
    Open();
    const auto height = [&] { return static_cast<int>(ListRect().bottom - ListRect().top); };
    const int nFrame = height() - 5 * ROW;
    const HFONT hFont = CreateFontW(-40, 0, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0, nullptr);
    Send(WM_SETFONT, reinterpret_cast<WPARAM>(hFont));
    const int nRow = static_cast<int>(Send(CB_GETITEMHEIGHT));
    EXPECT_GE(nRow, 40);
    EXPECT_EQ(height(), 5 * nRow + nFrame) << "while it is open";
    combo.SetFont(nullptr);
    EXPECT_LT(height(), 5 * nRow + nFrame);
    EXPECT_EQ(Send(CB_SETITEMHEIGHT, 0, 12), CB_OKAY);
    combo.SetFont(hFont);
    EXPECT_EQ(height(), 5 * 12 + nFrame) << "what the program says goes first";
    combo.Destroy();
    combo.SetFont(nullptr);
    DeleteObject(hFont);
}

TEST_F(GComboBoxModernTest, IndicesAndOffsetsBeyondTheEndsAreAnsweredAsThePlatformDoes)
{
    Make(GCBS_DROPDOWN | GCBS_SORT, {});
    combo.InsertItem(NONE, 0, L"melon", 0, nullptr);
    EXPECT_EQ(combo.InsertItem(NONE, 0, L"apple", 0, nullptr), 0U) << "the operation sorts too";
    EXPECT_EQ(combo.InsertItem(1, 0, L"zebra", 0, nullptr), 1U) << "but for a place that is given";
    EXPECT_EQ(Send(CB_INSERTSTRING, NONE, Text(L"aaa")), 3) << "the end";
    for (const int nIndex : {5, 99, -2}) {
        EXPECT_EQ(Send(CB_INSERTSTRING, static_cast<WPARAM>(nIndex), Text(L"x")), CB_ERR) << nIndex;
    }
    EXPECT_EQ(Send(CB_INSERTSTRING, 4, Text(L"x")), 4);
    EXPECT_EQ(Send(CB_GETCOUNT), 5);
    EXPECT_GE(Send(CB_INITSTORAGE, 100, 1000), 105);
    EXPECT_EQ(Send(CB_INITSTORAGE, 0x7FFFFFFF, 0), CB_ERRSPACE);
    const std::vector<wchar_t> text = [] {
        std::vector<wchar_t> characters(70'000, L'x');
        characters.push_back(0);
        return characters;
    }();
    combo.SetText(text.data());
    DWORD nFrom = 1;
    DWORD nTo = 0;
    EXPECT_EQ(Send(CB_SETEDITSEL, 0, MAKELPARAM(0, -1)), 1);
    EXPECT_EQ(Send(CB_GETEDITSEL, reinterpret_cast<WPARAM>(&nFrom), reinterpret_cast<LPARAM>(&nTo)), -1);
    EXPECT_EQ(nFrom, 0U);
    EXPECT_EQ(nTo, 70'000U);
}

TEST_F(GComboBoxModernTest, AWordThatWasCompletedIsTakenBackAsOne)
{
    Make(GCBS_DROPDOWN);
    combo.SetAutoComplete(true);
    Type("zz beto");
    Key(VK_HOME, {VK_SHIFT});
    Type("beto");
    EXPECT_EQ(TextOf(combo), "beton");
    Key('Z', {VK_CONTROL});
    EXPECT_EQ(TextOf(combo), "zz beto");
    Key('Y', {VK_CONTROL});
    EXPECT_EQ(TextOf(combo), "beton");
    EXPECT_EQ(Send(CB_GETEDITSEL), MAKELONG(4, 5));
    Type("x");
    EXPECT_EQ(TextOf(combo), "betox");
    Key(VK_BACK);
    Key('Z', {VK_CONTROL});
    EXPECT_EQ(TextOf(combo), "betox") << "removing is a step of its own";
}

TEST_F(GComboBoxModernTest, AStepAClickOrTheFocusBeginsANewWord)
{
    const std::function<void()> acts[] = {
        [&] { Key(VK_UP); },
        [&] {
            SetFocus(host);
            SetFocus(combo);
        },
        [&] {
            ClickAt(ButtonPoint());
            ClickAt(ButtonPoint());
        },
    };
    for (const auto& act : acts) {
        SCOPED_TRACE(&act - acts);
        Make(GCBS_DROPDOWNLIST);
        Type("g");
        EXPECT_EQ(TextOf(combo), "gamma");
        act();
        Type("a");
        EXPECT_EQ(TextOf(combo), "Alpha");
    }
}

TEST_F(GComboBoxModernTest, PagesInAClosedListAreOfTheRowsThatItWouldShow)
{
    for (const DWORD dwKind : {GCBS_PLAIN, GCBS_DROPDOWN, GCBS_DROPDOWNLIST}) {
        Make(dwKind, {});
        for (int i = 0; i < 60; ++i) {
            combo.InsertItem(NONE, 0, L"item", 0, nullptr);
        }
        Send(CB_SETMINVISIBLE, 7);
        combo.SetSelected(0);
        Key(VK_NEXT);
        EXPECT_EQ(Selected(), 6);
        Key(VK_NEXT);
        Key(VK_PRIOR);
        EXPECT_EQ(Selected(), 6);
        Key(VK_PRIOR);
        Key(VK_PRIOR);
        EXPECT_EQ(Selected(), 0);
    }
}

TEST_F(GComboBoxModernTest, ADragOfTextHasTheKeysAndEndsInTheText)
{
    Make(GCBS_DROPDOWN);
    const auto drag = [&] {
        combo.SetText(L"some words");
        Send(CB_SETEDITSEL, 0, MAKELPARAM(0, 4));
        Send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(8, 12));
        Send(WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(60, 12));
    };
    const auto wantsEscape = [&] {
        const MSG msg{combo, WM_KEYDOWN, VK_ESCAPE, 1, 0, {}};
        return (Send(WM_GETDLGCODE, VK_ESCAPE, reinterpret_cast<LPARAM>(&msg)) & DLGC_WANTALLKEYS) != 0;
    };
    drag();
    EXPECT_TRUE(wantsEscape()) << "or a dialog closes";
    Send(WM_KEYDOWN, VK_DOWN, 1);
    Send(WM_KEYDOWN, VK_F4, 1);
    EXPECT_FALSE(IsOpen());
    Send(WM_KEYDOWN, VK_ESCAPE, 1);
    EXPECT_FALSE(wantsEscape());
    Send(WM_LBUTTONUP, 0, MAKELPARAM(95, 12));
    EXPECT_EQ(TextOf(combo), "some words");
    drag();
    Send(WM_LBUTTONUP, 0, MAKELPARAM(COMBO_CX - 5, 12));
    EXPECT_EQ(TextOf(combo), "some words") << "on the button";
    drag();
    Send(WM_LBUTTONUP, 0, MAKELPARAM(95, 12));
    EXPECT_EQ(TextOf(combo), " wordssome");
    GEdit edit;
    edit.Create(COMBO_X, COMBO_Y + 40, COMBO_CX, COMBO_CY, host, 6, L"edit", CHILD | ES_AUTOHSCROLL, 0);
    edit.SetSel(0, 4);
    SetFocus(edit);
    edit.SetSel(0, 4);
    SendMessageW(edit, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(8, 12));
    SendMessageW(edit, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(60, 12));
    SendMessageW(edit, WM_LBUTTONUP, 0, MAKELPARAM(95, static_cast<WORD>(12 - 40)));
    EXPECT_EQ(TextOf(combo), " wordssomeedit");
    EXPECT_EQ(Send(CB_GETEDITSEL), MAKELONG(10, 14)) << "what was dropped";
    EXPECT_EQ(GetFocus(), combo.GetHwnd());
    edit.Destroy();
}

TEST_F(GComboBoxModernTest, TheSelectionIsKeptWhereTheFocusComesBackWithItsWindow)
{
    Make(GCBS_DROPDOWN);
    combo.SetText(L"some words");
    Send(CB_SETEDITSEL, 0, MAKELPARAM(1, 3));
    SetFocus(nullptr);
    SetFocus(combo);
    EXPECT_EQ(Send(CB_GETEDITSEL), MAKELONG(1, 3));
    SetFocus(nullptr);
    SetFocus(host);
    SetFocus(combo);
    EXPECT_EQ(Send(CB_GETEDITSEL), MAKELONG(0, 10)) << "where it was elsewhere in the window meanwhile";
    EXPECT_TRUE(Send(WM_GETDLGCODE) & DLGC_HASSETSEL);
    Send(EM_SETSEL, 2, 4);
    EXPECT_EQ(Send(CB_GETEDITSEL), MAKELONG(2, 4)) << "as a dialog selects";
    combo.SetStyle(CHILD | GCBS_DROPDOWNLIST);
    EXPECT_FALSE(Send(WM_GETDLGCODE) & DLGC_HASSETSEL);
    const auto hasCaret = [&] { return HideCaret(combo) && ShowCaret(combo); };
    EXPECT_FALSE(hasCaret()) << "a face has no caret";
    combo.SetStyle(CHILD | GCBS_DROPDOWN);
    EXPECT_TRUE(hasCaret());
}

TEST_F(GComboBoxModernTest, AnObjectThatIsAssignedItsOwnCopyShowsItsText)
{
    Make(GCBS_DROPDOWN);
    combo.SetText(L"old");
    const GComboBox copy(combo);
    combo.RemoveItem(0);
    Send(CB_SETEDITSEL, 0, MAKELPARAM(0, 3));
    Send(WM_CHAR, 'n', 1);
    const UINT nItems = combo.GetItemCount();
    static_cast<GComboBox&>(combo) = copy;
    EXPECT_EQ(combo.GetItemCount(), nItems) << "of those that the copy knows, one has gone";
    Send(CB_SETEDITSEL, 0, MAKELPARAM(3, 3));
    Send(WM_CHAR, '!', 1);
    EXPECT_EQ(TextOf(combo), "old!");
}

TEST_F(GComboBoxModernTest, APageGoesFirstToWhatTheTypedTextLeadsTo)
{
    for (const UINT uKey : {VK_NEXT, VK_PRIOR, VK_DOWN, VK_UP}) {
        Make(GCBS_DROPDOWN);
        combo.SetText(L"bet");
        Key(uKey);
        EXPECT_EQ(TextOf(combo), "beta") << uKey;
    }
}

TEST_F(GComboBoxModernTest, RowsInViewStayWhenOthersComeOrGoInFrontOfThem)
{
    Make(GCBS_DROPDOWNLIST, {});
    for (int i = 0; i < 60; ++i) {
        combo.InsertItem(NONE, 0, L"item", 0, nullptr);
    }
    Send(CB_SETMINVISIBLE, 10);
    Send(CB_SETTOPINDEX, 20);
    Open();
    combo.InsertItem(0, 0, L"first", 0, nullptr);
    EXPECT_EQ(Send(CB_GETTOPINDEX), 21) << "at once";
    user::Wait(50);
    EXPECT_EQ(Send(CB_GETTOPINDEX), 21);
    combo.RemoveItem(0);
    combo.RemoveItem(3);
    EXPECT_EQ(Send(CB_GETTOPINDEX), 19);
    combo.RemoveItem(40);
    combo.InsertItem(40, 0, L"late", 0, nullptr);
    user::Wait(50);
    EXPECT_EQ(Send(CB_GETTOPINDEX), 19) << "behind the view";
    Send(CB_SETTOPINDEX, 58);
    const LRESULT nLast = Send(CB_GETTOPINDEX);
    combo.InsertItem(0, 0, L"first", 0, nullptr);
    EXPECT_EQ(Send(CB_GETTOPINDEX), nLast + 1) << "beyond the former range";
}

TEST_F(GComboBoxModernTest, WhatThePointerIsOnIsTakenThoughItWasHighlightedBefore)
{
    Make(GCBS_DROPDOWN);
    combo.SetText(L"bet");
    Open();
    Key(VK_RETURN);
    EXPECT_EQ(TextOf(combo), "bet") << "the text leads to a row, and nobody has chosen it";
    user::MoveMouse(0, 0); // a test before may have left it where it is to come
    Open();
    const POINT pt = RowPoint(1);
    user::MoveMouse(pt.x, pt.y);
    user::Pump();
    Key(VK_RETURN);
    EXPECT_EQ(TextOf(combo), "beta");
}

TEST_F(GComboBoxModernTest, APressDrawnBeyondTheListScrollsIt)
{
    Make(GCBS_DROPDOWNLIST, {});
    for (int i = 0; i < 60; ++i) {
        combo.InsertItem(NONE, 0, L"item", 0, nullptr);
    }
    Send(CB_SETMINVISIBLE, 10);
    Open();
    const POINT ptIn = RowPoint(9);
    const POINT ptBelow{ptIn.x, ListRect().bottom + 20};
    user::MoveMouse(ptBelow.x, ptBelow.y);
    user::Wait(300);
    EXPECT_EQ(Send(CB_GETTOPINDEX), 0) << "without a press";
    user::MoveMouse(ptIn.x, ptIn.y);
    user::PressButton();
    user::Pump();
    user::MoveMouse(ptBelow.x, ptBelow.y);
    user::Wait(300);
    const LRESULT nTop = Send(CB_GETTOPINDEX);
    EXPECT_GE(nTop, 3);
    user::MoveMouse(ptIn.x, ptIn.y);
    user::Pump();
    const LRESULT nBack = Send(CB_GETTOPINDEX);
    user::Wait(200);
    EXPECT_EQ(Send(CB_GETTOPINDEX), nBack) << "back on the rows";
    user::ReleaseButton();
    user::Pump();
    EXPECT_EQ(Selected(), nBack + 9);
}

TEST_F(GComboBoxModernTest, ADragOfTextEndsWithItsText)
{
    Make(GCBS_DROPDOWN);
    combo.SetText(L"some words");
    Send(CB_SETEDITSEL, 0, MAKELPARAM(0, 4));
    Send(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(8, 12));
    Send(WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(60, 12));
    Send(WM_MOUSEWHEEL, MAKEWPARAM(0, -120), 0);
    EXPECT_EQ(TextOf(combo), "some words") << "the wheel is nobody's meanwhile";
    combo.SetText(L"other words");
    EXPECT_EQ(GetCapture(), nullptr);
    Send(WM_LBUTTONUP, 0, MAKELPARAM(95, 12));
    EXPECT_EQ(TextOf(combo), "other words");
}

TEST_F(GComboBoxModernTest, ASecondWindowHasWhatTheProgramSetAndNoMore)
{
    combo.Destroy();
    gesso::SetBehavior(gesso::Behavior::Classic);
    ASSERT_TRUE(combo.Create(COMBO_X, COMBO_Y, COMBO_CX, COMBO_CY, host, 5, CHILD | GCBS_DROPDOWN, 0));
    EXPECT_GT(combo.GetDropdownHeight(), 0U);
    gesso::SetBehavior(gesso::Behavior::Modern);
    Make(GCBS_DROPDOWN);
    EXPECT_EQ(combo.GetDropdownHeight(), 0U);
    combo.SetDropdownHeight(77);
    Send(CB_LIMITTEXT, 30'000);
    Make(GCBS_DROPDOWN);
    EXPECT_EQ(combo.GetDropdownHeight(), 77U);
    std::vector<wchar_t> text(30'000, L'x');
    text.back() = 0;
    combo.SetText(text.data());
    Send(CB_SETEDITSEL, 0, MAKELPARAM(-1, -1));
    Key(VK_END);
    Type("yz");
    EXPECT_EQ(combo.GetTextLength(), 30'000) << "one more than there was";
    Make(GCBS_PLAIN);
    RECT rc{};
    Send(CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(&rc));
    const RECT rcCombo = ComboRect();
    EXPECT_TRUE(EqualRect(&rc, &rcCombo)) << "this kind has no list";
}

TEST_F(GComboBoxModernTest, TheListActsAsItsControlDoes)
{
    Make(GCBS_DROPDOWNLIST);
    gesso::SetBehavior(gesso::Behavior::Classic);
    Open();
    EXPECT_EQ(gesso::BehaviorOf(List()), gesso::Behavior::Modern);
    gesso::SetBehavior(gesso::Behavior::Modern);
    Send(CB_SHOWDROPDOWN, FALSE);
}

TEST_F(GComboBoxModernTest, TheListIsAsWideAsItsItemsAreInTheFontsThatTheyNeed)
{
    const LPCWSTR psz = L"\x5D9\x5E8\x5D5\x5E9\x5DC\x5D9\x5DD abc \x5D9\x5E8\x5D5\x5E9\x5DC\x5D9\x5DD "
                        L"\x5D9\x5E8\x5D5\x5E9\x5DC\x5D9\x5DD \x5D9\x5E8\x5D5\x5E9\x5DC\x5D9\x5DD";
    Make(GCBS_DROPDOWNLIST, {psz});
    const HDC hdc = GetDC(combo);
    const HGDIOBJ hFormer = combo.GetFont() ? SelectObject(hdc, combo.GetFont()) : nullptr;
    RECT rcText{};
    CDrawText::DrawText_Prepare(hdc, psz, -1, &rcText, DT_SINGLELINE | DT_CALCRECT, 1, nullptr);
    if (hFormer) {
        SelectObject(hdc, hFormer);
    }
    ReleaseDC(combo, hdc);
    Open();
    RECT rcRow{};
    GetClientRect(List(), &rcRow);
    EXPECT_GT(rcText.right, COMBO_CX);
    EXPECT_GE(rcRow.right, rcText.right);
    EXPECT_LT(rcRow.right, rcText.right + 20);
}

} // namespace
