// A combo box without its list open: items, messages, selection and the text field.

#include "../support/AllowMisuse.h"
#include "../support/DialogTemplate.h"
#include "../support/Host.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

using namespace test;

constexpr DWORD CHILD = WS_CHILD | WS_VISIBLE | WS_TABSTOP;
constexpr UINT NONE = static_cast<UINT>(-1);

// WM_COMMAND reports of the control, whose id is 5.
const std::string SELCHANGE = "click 5 code 1";
const std::string CHANGE = "click 5 code 768";

LPARAM Text(LPCWSTR psz)
{
    return reinterpret_cast<LPARAM>(psz);
}

class GComboBoxTest : public testing::Test
{
protected:
    void Make(DWORD dwStyle, std::initializer_list<LPCWSTR> items = {})
    {
        ASSERT_TRUE(combo.Create(10, 10, 120, 24, host, 5, CHILD | dwStyle, 0));
        for (const LPCWSTR psz : items) {
            combo.InsertItem(NONE, 0, psz, 0, nullptr);
        }
        host.TakeReports();
    }

    LRESULT Send(UINT uMsg, WPARAM wParam = 0, LPARAM lParam = 0)
    {
        return SendMessageW(combo, uMsg, wParam, lParam);
    }
    void Type(std::string_view text)
    {
        for (const char c : text) {
            Send(WM_CHAR, static_cast<WPARAM>(c), 1);
        }
    }
    void Key(UINT uKey) { Send(WM_KEYDOWN, uKey, 1); }
    void Wheel(int nDelta) { Send(WM_MOUSEWHEEL, MAKEWPARAM(0, nDelta), 0); }

    std::string ItemTexts() const
    {
        std::string all;
        for (UINT n = 0; n < combo.GetItemCount(); ++n) {
            all += Narrow(combo.GetItemText(n)) + ".";
        }
        return all;
    }

    Host host;
    GComboBox combo;
};

TEST_F(GComboBoxTest, ItemsKeepTheirPlaceAndWhatTheHostGaveThem)
{
    int nData = 0;
    EXPECT_EQ(combo.InsertItem(NONE, 3, L"b", 7, &nData), 0u) << "before there is a window";
    Make(GCBS_DROPDOWNLIST);
    EXPECT_EQ(combo.InsertItem(0, 0, L"a", 0, nullptr), 0u);
    EXPECT_EQ(combo.InsertItem(99, 0, nullptr, 0, nullptr), 2u) << "no text is the empty text";
    EXPECT_EQ(ItemTexts(), "a.b..");
    EXPECT_EQ(combo.GetItemFlags(1), 3u);
    EXPECT_EQ(combo.GetItemImage(1), 7u);
    EXPECT_EQ(combo.GetItemCustomData(1), &nData);
    combo.SetItemFlags(1, 4);
    combo.SetItemImage(1, 8);
    combo.SetItemCustomData(1, this);
    combo.SetItemText(1, combo.GetItemText(0));
    combo.SetItemText(2, L"c");
    EXPECT_EQ(combo.GetItemFlags(1), 4u);
    EXPECT_EQ(combo.GetItemImage(1), 8u);
    EXPECT_EQ(combo.GetItemCustomData(1), this);
    EXPECT_EQ(ItemTexts(), "a.a.c.");
    EXPECT_EQ(combo.RemoveItem(0), 2u);
    EXPECT_EQ(combo.RemoveItem(2), NONE);
    EXPECT_EQ(ItemTexts(), "a.c.");
    combo.RemoveAllItems();
    EXPECT_EQ(combo.GetItemCount(), 0u);
    EXPECT_EQ(host.TakeReports(), Reports{});
}

TEST_F(GComboBoxTest, ABadIndexIsAnsweredWithNothing)
{
    Make(GCBS_PLAIN, {L"a"});
    const AllowMisuse allowed;
    for (const UINT nIndex : {1u, NONE}) {
        EXPECT_EQ(combo.GetItemFlags(nIndex), 0u);
        EXPECT_EQ(combo.GetItemText(nIndex), nullptr);
        EXPECT_EQ(combo.GetItemImage(nIndex), 0u);
        EXPECT_EQ(combo.GetItemCustomData(nIndex), nullptr);
        combo.SetItemFlags(nIndex, 1);
        combo.SetItemText(nIndex, L"x");
        combo.SetItemImage(nIndex, 1);
        combo.SetItemCustomData(nIndex, this);
    }
    EXPECT_EQ(ItemTexts(), "a.");
    EXPECT_EQ(combo.GetItemFlags(0), 0u);
}

TEST_F(GComboBoxTest, TheSelectedItemGivesTheText)
{
    Make(GCBS_DROPDOWN, {L"one", L"two"});
    EXPECT_EQ(combo.GetSelected(), NONE);
    EXPECT_EQ(combo.SetSelected(1), 1u);
    EXPECT_EQ(TextOf(combo), "two");
    EXPECT_EQ(Send(CB_GETEDITSEL), MAKELONG(0, 3)) << "selected whole, where the user can edit it";
    EXPECT_EQ(combo.SetSelected(2), NONE) << "the count is beyond the items";
    EXPECT_EQ(combo.GetSelected(), NONE);
    EXPECT_EQ(TextOf(combo), "");
    combo.SetSelected(1);
    combo.SetText(L"typed");
    EXPECT_EQ(combo.GetSelected(), 1u);
    combo.RemoveItem(0);
    EXPECT_EQ(combo.GetSelected(), 1u) << "past the end now";
    EXPECT_EQ(TextOf(combo), "typed");
    combo.Callback(1);
    EXPECT_EQ(TextOf(combo), "");
    combo.Callback(0);
    EXPECT_EQ(TextOf(combo), "two");
    combo.RemoveAllItems();
    EXPECT_EQ(combo.GetSelected(), NONE);
    EXPECT_EQ(host.TakeReports(), Reports{}) << "the program is not told what it does itself";
}

TEST_F(GComboBoxTest, DialogCodeFillsAndReadsItByMessages)
{
    Make(GCBS_DROPDOWNLIST);
    EXPECT_EQ(Send(CB_ADDSTRING, 0, Text(L"b")), 0);
    EXPECT_EQ(Send(CB_ADDSTRING, 0, Text(L"c")), 1);
    EXPECT_EQ(Send(CB_INSERTSTRING, 0, Text(L"a")), 0);
    EXPECT_EQ(Send(CB_INSERTSTRING, NONE, Text(L"d")), 3);
    EXPECT_EQ(Send(CB_GETCOUNT), 4);
    EXPECT_EQ(Send(CB_GETCURSEL), CB_ERR);
    EXPECT_EQ(Send(CB_SETCURSEL, 3), 3);
    EXPECT_EQ(Send(CB_GETCURSEL), 3);
    EXPECT_EQ(TextOf(combo), "d");
    EXPECT_EQ(Send(CB_SETCURSEL, static_cast<WPARAM>(-1)), CB_ERR);
    EXPECT_EQ(TextOf(combo), "");
    wchar_t buffer[8] = L"xxxxxx";
    EXPECT_EQ(Send(CB_GETLBTEXTLEN, 1), 1);
    EXPECT_EQ(Send(CB_GETLBTEXT, 1, Text(buffer)), 1);
    EXPECT_EQ(Narrow(buffer), "b");
    EXPECT_EQ(Send(CB_GETLBTEXT, 4, Text(buffer)), CB_ERR);
    EXPECT_EQ(Send(CB_GETLBTEXT, 1, 0), CB_ERR);
    EXPECT_EQ(Send(CB_GETLBTEXTLEN, static_cast<WPARAM>(-1)), CB_ERR);
    EXPECT_EQ(Send(CB_DELETESTRING, 1), 3);
    EXPECT_EQ(Send(CB_DELETESTRING, 3), CB_ERR);
    EXPECT_EQ(ItemTexts(), "a.c.d.");
    EXPECT_EQ(Send(CB_RESETCONTENT), 0);
    EXPECT_EQ(Send(CB_GETCOUNT), 0);
    EXPECT_EQ(Send(WM_GETDLGCODE), DLGC_WANTCHARS | DLGC_WANTARROWS);
    for (const UINT uMsg : std::initializer_list<UINT>{CB_DIR,
                                                       CB_SHOWDROPDOWN,
                                                       CB_GETITEMDATA,
                                                       CB_SETITEMDATA,
                                                       CB_GETDROPPEDCONTROLRECT,
                                                       CB_GETITEMHEIGHT,
                                                       CB_SETITEMHEIGHT,
                                                       CB_GETDROPPEDSTATE,
                                                       CB_INITSTORAGE,
                                                       CB_GETCOMBOBOXINFO,
                                                       CB_SETEXTENDEDUI,
                                                       CB_GETEXTENDEDUI,
                                                       CB_SETLOCALE,
                                                       CB_GETLOCALE,
                                                       CB_GETTOPINDEX,
                                                       CB_SETTOPINDEX,
                                                       CB_GETHORIZONTALEXTENT,
                                                       CB_SETHORIZONTALEXTENT,
                                                       CB_GETDROPPEDWIDTH,
                                                       CB_SETDROPPEDWIDTH})
    {
        EXPECT_EQ(Send(uMsg, 1, 0), CB_ERR) << uMsg;
    }
    EXPECT_EQ(host.TakeReports(), Reports{});
}

TEST_F(GComboBoxTest, AStringIsFoundByAnyOfItsLetters)
{
    Make(GCBS_DROPDOWNLIST, {L"apple", L"Banana", L"", L"cherry", L"blue"});
    const std::tuple<WPARAM, LPCWSTR, int> rows[] = {
        {static_cast<WPARAM>(-1), L"a", 0},
        {0, L"A", 0},
        {0, L"b", 1},
        {1, L"b", 1}, // the start item is looked at
        {2, L"b", 4},
        {static_cast<WPARAM>(-1), L"b", 1}, // from the first
        {5, L"b", 1},
        {4, L"apple", 0},
        {0, L"lunch box", 1}, // a letter of it stands first in an item
        {2, L"cx", 3},
        {0, L"x", CB_ERR},
        {0, L"", CB_ERR},
    };
    for (const auto& [wStart, pszSearch, nHit] : rows) {
        EXPECT_EQ(Send(CB_FINDSTRING, wStart, Text(pszSearch)), nHit)
            << static_cast<int>(wStart) << " " << Narrow(pszSearch);
    }
    EXPECT_EQ(Send(CB_SELECTSTRING, 2, Text(L"B")), 4);
    EXPECT_EQ(TextOf(combo), "blue");
    EXPECT_EQ(Send(CB_SELECTSTRING, 2, Text(L"x")), CB_ERR);
    EXPECT_EQ(combo.GetSelected(), 4u) << "no hit changes nothing";
}

TEST_F(GComboBoxTest, TheExactSearchFindsWhatIsNotTheText)
{
    Make(GCBS_DROPDOWNLIST, {L"one", L"ONE", L"two", L"one"});
    EXPECT_EQ(Send(CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), Text(L"One")), 2);
    EXPECT_EQ(Send(CB_FINDSTRINGEXACT, 3, Text(L"one")), 2) << "round by the first";
    EXPECT_EQ(Send(CB_FINDSTRINGEXACT, 2, Text(L"two")), 3);
    combo.RemoveItem(2);
    EXPECT_EQ(Send(CB_FINDSTRINGEXACT, 0, Text(L"ONE")), CB_ERR);
    combo.RemoveAllItems();
    EXPECT_EQ(Send(CB_FINDSTRINGEXACT, 0, Text(L"ONE")), CB_ERR);
    EXPECT_EQ(Send(CB_FINDSTRING, 0, Text(L"ONE")), CB_ERR);
}

TEST_F(GComboBoxTest, TheEditSelectionStaysWithinTheText)
{
    Make(GCBS_DROPDOWN);
    combo.SetText(L"hello");
    EXPECT_EQ(Send(CB_GETEDITSEL), MAKELONG(5, 5));
    EXPECT_EQ(Send(CB_SETEDITSEL, 0, MAKELPARAM(4, 1)), 1);
    DWORD dwStart = 0, dwEnd = 0;
    EXPECT_EQ(Send(CB_GETEDITSEL, reinterpret_cast<WPARAM>(&dwStart), reinterpret_cast<LPARAM>(&dwEnd)),
              MAKELONG(1, 4));
    EXPECT_EQ(dwStart, 1u);
    EXPECT_EQ(dwEnd, 4u);
    EXPECT_EQ(Send(CB_SETEDITSEL, 0, MAKELPARAM(0, -1)), 1);
    EXPECT_EQ(Send(CB_GETEDITSEL), MAKELONG(0, 5));
    combo.SetText(L"hi");
    EXPECT_EQ(Send(CB_GETEDITSEL), MAKELONG(2, 2));
    EXPECT_EQ(Send(CB_LIMITTEXT, 0), 1);
    EXPECT_EQ(Send(CB_LIMITTEXT, 1), 1);
    Type("!!");
    EXPECT_EQ(TextOf(combo), "hi!!") << "the limit is kept, and limits nothing";
    combo.SetStyle(CHILD | GCBS_PLAIN);
    EXPECT_EQ(Send(CB_SETEDITSEL, 0, MAKELPARAM(0, -1)), CB_ERR);
}

TEST_F(GComboBoxTest, KeysStepThroughTheItemsAndTell)
{
    for (const DWORD dwStyle : {GCBS_PLAIN, GCBS_DROPDOWNLIST, DWORD{0}}) {
        Make(dwStyle);
        Key(VK_DOWN);
        EXPECT_EQ(host.TakeReports(), Reports{}) << "nothing to step through";
        for (const LPCWSTR psz : {L"a", L"b", L"c", L"d"}) {
            combo.InsertItem(NONE, 0, psz, 0, nullptr);
        }
        const std::pair<UINT, UINT> rows[] = {{VK_DOWN, 0}, {VK_RIGHT, 1}, {VK_UP, 0},
                                              {VK_LEFT, 0}, {VK_END, 3},   {VK_DOWN, 3},
                                              {VK_HOME, 0}, {VK_NEXT, 3},  {VK_PRIOR, 0}};
        for (const auto& [uKey, nSelected] : rows) {
            Key(uKey);
            EXPECT_EQ(combo.GetSelected(), nSelected) << uKey;
            EXPECT_EQ(host.TakeReports(), Reports{SELCHANGE}) << "at the ends as well " << uKey;
        }
        Key('A');
        EXPECT_EQ(host.TakeReports(), Reports{});
        combo.SetSelected(NONE);
        Key(VK_UP);
        EXPECT_EQ(combo.GetSelected(), 0u);
        combo.RemoveAllItems();
        combo.Destroy();
    }
}

TEST_F(GComboBoxTest, TheWheelStepsThroughTheItems)
{
    Make(GCBS_DROPDOWN, {L"a", L"b", L"c", L"d"});
    const std::pair<int, UINT> rows[] = {{-120, 0}, {-240, 2}, {119, 2}, {120, 1}, {1200, 0}, {-32000, 3}};
    for (const auto& [nDelta, nSelected] : rows) {
        Wheel(nDelta);
        EXPECT_EQ(combo.GetSelected(), nSelected) << nDelta;
        EXPECT_EQ(host.TakeReports(), Reports{SELCHANGE});
    }
    EXPECT_EQ(TextOf(combo), "d");
    combo.RemoveAllItems();
    Wheel(-120);
    EXPECT_EQ(combo.GetSelected(), NONE);
    EXPECT_EQ(TextOf(combo), "");
    Wheel(120);
    EXPECT_EQ(combo.GetSelected(), 0u);
    EXPECT_EQ(TextOf(combo), "");
}

TEST_F(GComboBoxTest, ArrowKeysInTheFieldStepWithoutAWrap)
{
    Make(GCBS_DROPDOWN, {L"a", L"b"});
    Key(VK_UP);
    EXPECT_EQ(combo.GetSelected(), NONE);
    EXPECT_EQ(host.TakeReports(), Reports{});
    Key(VK_DOWN);
    Key(VK_DOWN);
    EXPECT_EQ(combo.GetSelected(), 1u);
    EXPECT_EQ(host.TakeReports(), (Reports{SELCHANGE, SELCHANGE}));
    Key(VK_DOWN);
    EXPECT_EQ(host.TakeReports(), Reports{});
    Key(VK_UP);
    EXPECT_EQ(TextOf(combo), "a");
    EXPECT_EQ(host.TakeReports(), Reports{SELCHANGE});
    Key(VK_UP);
    Key(VK_PRIOR);
    Key(VK_NEXT);
    EXPECT_EQ(host.TakeReports(), Reports{});
}

TEST_F(GComboBoxTest, TypingEditsTheFieldAndTells)
{
    Make(GCBS_DROPDOWN);
    const struct
    {
        LPCWSTR pszText;
        int nStart, nEnd; // of the selection
        UINT uKey;        // 0: the character
        char ch;
        const char* pszNow;
        bool fTold;
    } rows[] = {
        {L"", 0, 0, 0, 'a', "a", true},
        {L"ab", 1, 1, 0, '-', "a-b", true},
        {L"abc", 1, 3, 0, 'x', "ax", true},
        {L"abc", 2, 2, 0, '\b', "ac", true},
        {L"abc", 3, 1, 0, '\b', "a", true},
        {L"abc", 0, 0, 0, '\b', "abc", false},
        {L"abc", 1, 1, VK_DELETE, 0, "ac", true},
        {L"abc", 0, 2, VK_DELETE, 0, "c", true},
        {L"abc", 3, 3, VK_DELETE, 0, "abc", false},
    };
    for (const auto& row : rows) {
        combo.SetText(row.pszText);
        Send(CB_SETEDITSEL, 0, MAKELPARAM(row.nStart, row.nEnd));
        row.uKey ? Key(row.uKey) : Type({&row.ch, 1});
        EXPECT_EQ(TextOf(combo), row.pszNow) << &row - rows;
        EXPECT_EQ(host.TakeReports(), row.fTold ? Reports{CHANGE} : Reports{}) << &row - rows;
    }
    EXPECT_EQ(Send(WM_CHAR, '\n', 1), 1);
    EXPECT_EQ(Send(WM_CHAR, 27, 1), 1);
    EXPECT_EQ(Send(WM_CHAR, '\r', 1), 0);
    EXPECT_EQ(Send(WM_KEYUP, 'A', 1), 0);
    EXPECT_EQ(Send(WM_DEADCHAR, '^', 1), 0);
    EXPECT_EQ(TextOf(combo), "abc");
    EXPECT_EQ(host.TakeReports(), Reports{});
}

TEST_F(GComboBoxTest, TextBeyondTheBasicPlaneIsKept)
{
    Make(GCBS_DROPDOWN);
    for (const wchar_t c : {wchar_t{0xD83D}, wchar_t{0xDE00}, L'e', wchar_t{0x0301}}) {
        Send(WM_CHAR, c, 1);
    }
    EXPECT_EQ(TextOf(combo), "\xF0\x9F\x98\x80"
                             "e\xCC\x81");
    combo.InsertItem(NONE, 0, L"\xD83D\xDE00", 0, nullptr);
    combo.SetSelected(0);
    EXPECT_EQ(TextOf(combo), "\xF0\x9F\x98\x80");
}

TEST_F(GComboBoxTest, OnlyTheFieldTakesCharacters)
{
    Make(GCBS_DROPDOWNLIST, {L"a"});
    combo.SetSelected(0);
    EXPECT_EQ(Send(WM_CHAR, 27, 1), 0);
    Type("x\b");
    EXPECT_EQ(TextOf(combo), "a");
    EXPECT_EQ(host.TakeReports(), Reports{});
}

TEST_F(GComboBoxTest, TheParentHearsOfTheFocus)
{
    Make(GCBS_DROPDOWN);
    combo.SetText(L"hello");
    SetFocus(combo);
    EXPECT_EQ(Send(CB_GETEDITSEL), MAKELONG(0, 5));
    SetFocus(host);
    EXPECT_EQ(host.TakeReports(), (Reports{"setfocus 5", "killfocus 5"}));
}

// Each way of telling, and what the parent might do when told.
TEST_F(GComboBoxTest, TheParentMayDestroyTheControlWhenTold)
{
    const std::function<void(HWND)> tell[] = {
        [](HWND hwnd) { SendMessageW(hwnd, WM_KEYDOWN, VK_DOWN, 1); },
        [](HWND hwnd) { SendMessageW(hwnd, WM_MOUSEWHEEL, MAKEWPARAM(0, -120), 0); },
        [](HWND hwnd) { SendMessageW(hwnd, WM_CHAR, 'x', 1); },
        [](HWND hwnd) { SendMessageW(hwnd, WM_CHAR, '\b', 1); },
        [](HWND hwnd) { SendMessageW(hwnd, WM_KEYDOWN, VK_DELETE, 1); },
        [](HWND hwnd) { SetFocus(hwnd); },
        [](HWND hwnd) { SendMessageW(hwnd, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5)); },
    };
    for (const bool fDelete : {false, true}) {
        for (const auto& act : tell) {
            auto pCombo = std::make_unique<GComboBox>();
            const HWND hwnd = pCombo->Create(10, 10, 120, 24, host, 5, CHILD | GCBS_DROPDOWN, 0);
            pCombo->InsertItem(NONE, 0, L"item", 0, nullptr);
            pCombo->SetText(L"text");
            SendMessageW(hwnd, CB_SETEDITSEL, 0, MAKELPARAM(1, 2));
            SetFocus(host);
            host.TakeReports();
            host.onReport = [&](const std::string&) {
                host.onReport = nullptr;
                DestroyWindow(hwnd);
                if (fDelete) {
                    pCombo.reset();
                }
            };
            act(hwnd);
            EXPECT_FALSE(IsWindow(hwnd)) << &act - tell;
            EXPECT_FALSE(host.onReport) << &act - tell;
        }
    }
}

TEST_F(GComboBoxTest, ADialogMakesItByNameWithTextAndAListOfDialogUnits)
{
    DialogTemplate dialog(WS_POPUP, 200, 100);
    dialog.Add(L"GComboBox", 5, CHILD | GCBS_DROPDOWN, 10, 10, 80, 14, L"typed");
    const HWND hwndDialog = CreateDialogIndirectParamW(
        GetModuleHandleW(nullptr), dialog.Get(), host,
        [](HWND, UINT, WPARAM, LPARAM) -> INT_PTR { return FALSE; }, 0);
    ASSERT_TRUE(hwndDialog);
    const HWND hwnd = GetDlgItem(hwndDialog, 5);
    EXPECT_EQ(TextOf(hwnd), "typed");
    RECT rc{0, 0, 0, 150};
    MapDialogRect(hwndDialog, &rc);
    EXPECT_EQ(static_cast<GComboBox*>(GWnd::FromHwnd(hwnd))->GetDropdownHeight(),
              static_cast<UINT>(rc.bottom));
    DestroyWindow(hwndDialog);

    Make(GCBS_DROPDOWN);
    EXPECT_EQ(combo.GetDropdownHeight(), 150u) << "pixels, since the parent is no dialog";
    combo.Destroy();
    combo.SetDropdownHeight(77);
    Make(GCBS_DROPDOWN);
    EXPECT_EQ(combo.SetDropdownHeight(), 77u) << "set beforehand";
}

TEST_F(GComboBoxTest, ACopySharesTheWindowAndOwnsNothing)
{
    Make(GCBS_DROPDOWNLIST, {L"a", L"b"});
    combo.SetSelected(1);
    {
        GComboBox copy(combo);
        EXPECT_EQ(copy.GetHwnd(), combo.GetHwnd());
        EXPECT_EQ(copy.GetSelected(), 1u);
        EXPECT_EQ(Narrow(copy.GetItemText(0)), "a");
        GComboBox other;
        other.InsertItem(NONE, 0, L"own", 0, nullptr);
        other = copy;
        EXPECT_EQ(Narrow(other.GetItemText(1)), "b");
        other = copy;
        const GComboBox& self = other;
        other = self;
        EXPECT_EQ(Narrow(other.GetItemText(1)), "b");
    }
    EXPECT_EQ(ItemTexts(), "a.b.");
    EXPECT_EQ(TextOf(combo), "b");
}

} // namespace
