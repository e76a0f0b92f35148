// Edit fields and combo boxes without memory for what is to come in: it stays out, and what is there stays.

#include "../../edit/EditFixture.h"
#include "../../support/WithBehavior.h"
#include "../edit/ComboFixture.h"
#include "../edit/LineModel.h"
#include "MemoryLimit.h"

#include <gesso/edit/TextMeasure.h>

#include <vector>

namespace {

using namespace test;
using gesso::Place;

constexpr size_t MANY = 100'000;

// So many times the text, and its end.
std::vector<wchar_t> Repeated(LPCWSTR psz, size_t nTimes)
{
    std::vector<wchar_t> text;
    for (size_t n = 0; n < nTimes; ++n) {
        text.insert(text.end(), psz, psz + wcslen(psz));
    }
    text.push_back(0);
    return text;
}

class EditMemoryTest : public EditFixture
{
protected:
    // What is there, and what was reported.
    std::string Now()
    {
        EXPECT_EQ(edit.Fault(), "");
        const std::vector<std::string> reports = host.TakeReports();
        return edit.Lines() + " " + edit.Caret() + (reports.empty() ? "" : " " + reports[0]);
    }
};

TEST_F(EditMemoryTest, ATextThatThereIsNoMemoryForLeavesTextAndSelection)
{
    const std::vector<wchar_t> many = Repeated(L"x", MANY);
    Make(10);
    edit.SetText(L"ab\ncd");
    edit.Select(0, 1, 1, 1);
    const std::string before = Now();
    SetClipboard(many.data());
    {
        const MemoryLimit limit;
        EXPECT_EQ(edit.SetText(many.data()), 0);
        EXPECT_EQ(SendMessageW(edit, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(many.data())), 0);
        Key('V', {VK_CONTROL});
        ProbeEdit other;
        EXPECT_FALSE(other.Create(0, 0, 10, 10, host, 9, many.data(), WS_CHILD, 0));
        EXPECT_GE(limit.Refused(), 4u);
    }
    EXPECT_EQ(Now(), before);
    Key('V', {VK_CONTROL});
    EXPECT_EQ(edit.GetTextLength(), static_cast<int>(MANY) + 2) << "with memory it comes in";
}

TEST_F(EditMemoryTest, KeysThatNeedMemoryDoNothingAndOthersGoOn)
{
    Make(1000, 5);
    edit.SetText(Repeated(L"x", MANY).data());
    edit.Select(0, 10, 0, 5);
    const std::string before = Now();
    {
        const MemoryLimit limit;
        Type(L"a\r\xD83D\xDE00");
        EXPECT_EQ(limit.Refused(), 4u);
    }
    EXPECT_EQ(Now(), before);
    const MemoryLimit limit;
    Key('X', {VK_CONTROL});
    EXPECT_EQ(edit.GetTextLength(), static_cast<int>(MANY) - 5);
    EXPECT_EQ(Clipboard(), "xxxxx");
    Key('A', {VK_CONTROL});
    Key(VK_DELETE);
    EXPECT_EQ(edit.GetTextLength(), 0);
}

TEST_F(EditMemoryTest, ACopyWithoutMemoryIsEmptyAndAnAssignedOneAsItWas)
{
    Make(1000, 5);
    edit.SetText(Repeated(L"x", MANY).data());
    ProbeEdit assigned;
    assigned.SetText(L"own");
    const MemoryLimit limit;
    ProbeEdit copy(edit);
    EXPECT_EQ(copy.GetTextLength(), 0);
    EXPECT_EQ(copy.Fault(), "");
    assigned = edit;
    EXPECT_EQ(assigned.Lines(), "own|");
    EXPECT_EQ(assigned.Fault(), "");
}

// In all three the table of lines, or what notes its changes, takes more than there is.
TEST(EditLinesMemory, LinesThatThereIsNoMemoryForAreNotWrapped)
{
    const std::vector<wchar_t> words = Repeated(L"a ", 20'000);
    const Columns columns(2);
    LineModel model(words.data());
    {
        const MemoryLimit limit;
        model.lines.WrapAll(columns, {});
        EXPECT_GT(limit.Refused(), 0u);
    }
    EXPECT_TRUE(model.lines.Check());
    EXPECT_GT(model.lines.Count(), 5'000u) << "as far as it goes";
    EXPECT_LT(model.lines.Count(), 20'000u);
    model.lines.Repair(columns, {model.lines.Count() - 1, 0});
    EXPECT_EQ(model.lines.Count(), 20'000u) << "the next edit goes on";
}

TEST(EditLinesMemory, ACharacterIsTakenBackAsFarAsItsChangesWereNoted)
{
    const std::vector<wchar_t> text = Repeated(L"x", 20'000);
    const Columns columns(2);
    LineModel model(text.data(), columns);
    ASSERT_TRUE(model.lines.Reserve(1, 1));
    const std::string before = model.Shown();
    const MemoryLimit limit;
    gesso::TypedChar typed(model.lines, {0, 1}, L'y');
    model.lines.Repair(columns, typed.Behind());
    EXPECT_GT(limit.Refused(), 0u);
    EXPECT_TRUE(model.lines.Check());
    wchar_t chRefused = 0;
    typed.TakeBack(&chRefused);
    EXPECT_EQ(model.Shown(), before);
}

TEST(EditLinesMemory, APasswordIsShownAsFarAsThereAreMarks)
{
    const std::vector<wchar_t> text = Repeated(L"x", MANY);
    const gesso::TextMeasure measure(nullptr, true);
    const MemoryLimit limit;
    EXPECT_EQ(measure.Shown(text.data(), 7).nCount, 7u);
    const gesso::TextMeasure::Piece shown = measure.Shown(text.data(), MANY);
    EXPECT_EQ(shown.nCount, 7u);
    EXPECT_EQ(shown.psz[6], gesso::PASSWORD_MARK);
}

class ComboMemoryTest : public ComboFixture
{};

TEST_F(ComboMemoryTest, WhatThereIsNoMemoryForIsRefused)
{
    const std::vector<wchar_t> many = Repeated(L"x", MANY);
    Make(GCBS_DROPDOWN, 2);
    Combo().InsertItem(1, 0, many.data(), 0, nullptr);
    Combo().SetSelected(0);
    SetFocus(Combo());
    TheHost().TakeReports();
    Type('A', {VK_CONTROL});
    SetClipboard(many.data());
    const MemoryLimit limit;
    EXPECT_EQ(Combo().InsertItem(0, 0, many.data(), 0, nullptr), NONE);
    EXPECT_EQ(SendMessageW(Combo(), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(many.data())), CB_ERR);
    Combo().SetItemText(0, many.data());
    EXPECT_EQ(Combo().SetText(many.data()), 0);
    EXPECT_EQ(Combo().SetSelected(1), NONE);
    Combo().Callback(1);
    Type(VK_DOWN);
    Type('V', {VK_CONTROL});
    EXPECT_GE(limit.Refused(), 8u);
    EXPECT_EQ(Combo().GetItemCount(), 3u);
    EXPECT_EQ(Narrow(Combo().GetItemText(0)), "item 0");
    EXPECT_EQ(Combo().GetSelected(), 0u);
    EXPECT_EQ(TextOf(Combo()), "item 0");
    EXPECT_EQ(Combo().AnchorIndex(), 0u) << "still selected";
    EXPECT_EQ(TheHost().TakeReports(), Reports{});
    EXPECT_TRUE(Combo().IsSound());
    EmptyTheClipboard();
}

TEST_F(ComboMemoryTest, ATableOfItemsThatCannotGrowKeepsThem)
{
    Make(GCBS_DROPDOWN);
    const MemoryLimit limit;
    UINT nCount = 0;
    while (Combo().InsertItem(0, 0, L"", 0, nullptr) == 0) {
        ++nCount;
    }
    EXPECT_GT(nCount, 7'000u);
    EXPECT_EQ(Combo().GetItemCount(), nCount);
    EXPECT_EQ(limit.Refused(), 1u);
}

TEST_F(ComboMemoryTest, AChoiceInTheListThatIsNotMadeIsGivenUp)
{
    const Modern modern;
    const std::vector<wchar_t> many = Repeated(L"x", MANY);
    Make(GCBS_DROPDOWNLIST, 1);
    Combo().InsertItem(NONE, 0, many.data(), 0, nullptr);
    Combo().SetSelected(0);
    SetFocus(Combo());
    SendMessageW(Combo(), CB_SHOWDROPDOWN, TRUE, 0);
    COMBOBOXINFO info{};
    info.cbSize = sizeof(info);
    SendMessageW(Combo(), CB_GETCOMBOBOXINFO, 0, reinterpret_cast<LPARAM>(&info));
    TheHost().TakeReports();
    {
        const MemoryLimit limit;
        constexpr LPARAM SECOND_ROW = MAKELPARAM(20, 33);
        SendMessageW(info.hwndList, WM_LBUTTONDOWN, MK_LBUTTON, SECOND_ROW);
        SendMessageW(info.hwndList, WM_LBUTTONUP, 0, SECOND_ROW);
        EXPECT_GE(limit.Refused(), 1u);
    }
    const Reports reports = TheHost().TakeReports();
    const std::string id = "click " + std::to_string(GetDlgCtrlID(Combo())) + " code ";
    EXPECT_EQ(reports, (Reports{id + "10", id + "8"}));
    EXPECT_EQ(Combo().GetSelected(), 0u);
}

// Wherever it runs out, selection, text and what is told go together.
TEST_F(ComboMemoryTest, InModernEachChangeIsWholeOrNotMade)
{
    const Modern modern;
    const std::vector<wchar_t> many = Repeated(L"x", 20'000);
    SetClipboard(Repeated(L"y", 3000).data());
    int nDone = 0;
    int nRefused = 0;
    for (size_t cbLargest = 4096; cbLargest < 150'000; cbLargest += cbLargest / 16) {
        SCOPED_TRACE(cbLargest);
        Make(GCBS_DROPDOWN, 1);
        Combo().InsertItem(NONE, 0, many.data(), 0, nullptr);
        Combo().SetSelected(0);
        ShowWindow(Combo(), SW_HIDE); // no record of its drawing takes memory
        TheHost().TakeReports();
        // What was done, and told, or neither; it leads from the first item to the second.
        const auto check = [&](bool fTold) {
            const bool fDone = Combo().GetSelected() == 1;
            EXPECT_EQ(Combo().GetTextLength(), fDone ? 20'000 : 6);
            EXPECT_EQ(!TheHost().TakeReports().empty(), fTold && fDone);
            ++(fDone ? nDone : nRefused);
            Combo().SetSelected(0);
        };
        const MemoryLimit limit(cbLargest);
        Combo().SetSelected(1);
        check(false);
        SendMessageW(Combo(), WM_KEYDOWN, VK_DOWN, 1);
        check(true);
        Combo().SetText(L"");
        for (int i = 0; i < 15; ++i) {
            const int nFormer = Combo().GetTextLength();
            SendMessageW(Combo(), WM_PASTE, 0, 0);
            const int nLength = Combo().GetTextLength();
            const bool fDone = nLength == nFormer + 3000;
            EXPECT_TRUE(fDone || nLength == nFormer);
            EXPECT_EQ(TheHost().TakeReports().size(), fDone ? 2U : 0U);
            DWORD nCaret = 0;
            SendMessageW(Combo(), CB_GETEDITSEL, 0, reinterpret_cast<LPARAM>(&nCaret));
            EXPECT_EQ(nCaret, static_cast<DWORD>(nLength)) << "the field has the same text";
            ++(fDone ? nDone : nRefused);
        }
        EXPECT_TRUE(Combo().IsSound());
        Combo().Destroy();
        Combo().RemoveAllItems();
    }
    EXPECT_GT(nDone, 0);
    EXPECT_GT(nRefused, 0);
    EmptyTheClipboard();
}

TEST_F(ComboMemoryTest, InModernAnEditThatTheTextHasNoRoomForGoes)
{
    const Modern modern;
    Make(GCBS_DROPDOWN);
    ShowWindow(Combo(), SW_HIDE);
    Combo().SetText(Repeated(L"x", 20'000).data());
    {
        const MemoryLimit limit(30'000); // of which the field itself needs none
        SendMessageW(Combo(), WM_CHAR, 'y', 1);
        EXPECT_EQ(limit.Refused(), 1U);
    }
    EXPECT_EQ(Combo().GetTextLength(), 20'000);
    EXPECT_EQ(TheHost().TakeReports(), Reports{});
    SendMessageW(Combo(), WM_CHAR, 'z', 1);
    EXPECT_EQ(TextOf(Combo()).substr(0, 2), "zx");
    EXPECT_EQ(Combo().GetTextLength(), 20'001);
    EXPECT_EQ(TheHost().TakeReports().size(), 2U);
}

} // namespace
