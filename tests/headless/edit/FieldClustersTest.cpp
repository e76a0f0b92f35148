// What a reader sees as one character stays whole where rows end and where the order of the scripts turns.

#include "../../edit/EditFixture.h"
#include "../../support/WithBehavior.h"

#include <gesso/edit/PreparedLine.h>
#include <gesso/framework/DrawScope.h>
#include <gesso/text/TextBoundary.h>

namespace {

using namespace test;
using gesso::SplitText;

class FieldClustersTest : public EditFixture
{
protected:
    LRESULT Send(UINT uMsg, WPARAM wParam = 0, LPARAM lParam = 0)
    {
        return SendMessageW(edit.GetHwnd(), uMsg, wParam, lParam);
    }
    int CaretAfter(UINT uKey)
    {
        Key(uKey);
        int nFrom = 0;
        edit.GetSel(&nFrom, nullptr);
        return nFrom;
    }

    Modern modern;
};

TEST_F(FieldClustersTest, NoRowBeginsWithinACharacter)
{
    const std::u16string text = u"aaaa \u0301 \u200Dbbbb \u0301 \u0301cc";
    for (int nColumns = 1; nColumns < 16; ++nColumns) {
        Make(nColumns, 3, ES_MULTILINE | ES_AUTOVSCROLL);
        edit.SetText(reinterpret_cast<LPCWSTR>(text.c_str()));
        RedrawWindow(edit.GetHwnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
        const SplitText whole(reinterpret_cast<LPCWSTR>(text.c_str()), static_cast<UINT>(text.size()));
        for (LRESULT n = Send(EM_GETLINECOUNT) - 1; n > 0; --n) {
            const auto nStart = static_cast<UINT>(Send(EM_LINEINDEX, static_cast<WPARAM>(n)));
            EXPECT_TRUE(IsClusterBoundary(whole, nStart)) << nStart << " in " << nColumns << " columns";
        }
        DestroyWindow(edit.GetHwnd());
    }
}

// The mark is of a script from right to left, so that a run begins in front of it.
TEST_F(FieldClustersTest, ARunThatBeginsWithinACharacterIsPassedWithIt)
{
    Make(20, 3, ES_AUTOHSCROLL);
    SetFocus(edit.GetHwnd());
    edit.SetText(L"a \x08E4");
    EXPECT_EQ(CaretAfter(VK_RIGHT), 1);
    EXPECT_EQ(CaretAfter(VK_RIGHT), 3);
    EXPECT_EQ(CaretAfter(VK_RIGHT), 3);
    EXPECT_EQ(CaretAfter(VK_LEFT), 1);
    EXPECT_EQ(CaretAfter(VK_LEFT), 0);
}

// The run of the mark has no other character: its room is that of the letter.
TEST_F(FieldClustersTest, ACharacterIsAsWideAsAllItsRuns)
{
    Make(20, 3, ES_AUTOHSCROLL);
    const gesso::WindowContext hdc(edit.GetHwnd());
    constexpr wchar_t TEXT[] = L"ya\x08E4z";
    const gesso::LineStyle style;
    const gesso::LineSource source{hdc, SplitText(TEXT, 4), 0, style};
    gesso::PreparedLine line;
    line.Prepare(source, 4);
    const auto stretches = line.Stretches(source, {1, 3}, 0, line.Width());
    ASSERT_EQ(stretches.size(), 1U);
    EXPECT_EQ(stretches[0].nLeft, line.XOf(source, {1, false}));
    EXPECT_EQ(stretches[0].nRight, line.XOf(source, {3, false}));
    EXPECT_EQ(line.PlaceAt(source, stretches[0].nRight - 1).n, 3U);
    EXPECT_EQ(line.PlaceAt(source, (stretches[0].nLeft + stretches[0].nRight) / 2 - 1).n, 1U);
}

TEST_F(FieldClustersTest, HalvesOfFlagsAreJoinedTwoByTwo)
{
    Make(40, 3, ES_AUTOHSCROLL);
    SetFocus(edit.GetHwnd());
    edit.SetText(L"x\xD83C\xDDE9\xD83C\xDDEA\xD83C\xDDEB\xD83C\xDDF7\xD83C\xDDE9\xD83C\xDDEA\xD83C\xDDEBy");
    std::vector<int> places;
    for (int i = 0; i < 6; ++i) {
        places.push_back(CaretAfter(VK_RIGHT));
    }
    EXPECT_EQ(places, (std::vector<int>{1, 5, 9, 13, 15, 16}));
}

// A field keeps its behaviour; its lines are prepared as the process says.
TEST_F(FieldClustersTest, AFieldOfModernStaysWholeAfterTheProcessTurnsClassic)
{
    Make(20, 3, ES_AUTOHSCROLL);
    SetFocus(edit.GetHwnd());
    edit.SetText(L"ab \x5D0\x5D1 12");
    gesso::SetBehavior(gesso::Behavior::Classic);
    edit.SetText(L"ab \x5D0\x5D1 123");
    RedrawWindow(edit.GetHwnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    std::vector<int> places;
    for (int i = 0; i < 8; ++i) {
        places.push_back(CaretAfter(VK_RIGHT));
    }
    EXPECT_EQ(std::vector<int>(places.begin(), places.begin() + 3), (std::vector<int>{1, 2, 3}));
    Send(WM_CHAR, L'x');
    EXPECT_EQ(Send(WM_GETTEXTLENGTH), 10);
    EXPECT_EQ(Send(EM_UNDO), TRUE);
    EXPECT_EQ(Send(WM_GETTEXTLENGTH), 9);
    gesso::SetBehavior(gesso::Behavior::Modern);
}

// More of it than what shows on both sides of a composed text.
TEST_F(FieldClustersTest, TextIsComposedWithinAVeryLongCharacter)
{
    Make(20, 3, ES_MULTILINE | ES_AUTOHSCROLL);
    const HWND hwnd = edit.GetHwnd();
    SetFocus(hwnd);
    std::u16string text(3000, u'\u0301');
    text[0] = u'e';
    edit.SetText(reinterpret_cast<LPCWSTR>(text.c_str()));
    const HIMC himc = ImmGetContext(hwnd);
    wchar_t szComposed[] = L"x";
    ImmSetCompositionStringW(himc, SCS_SETSTR, szComposed, sizeof(wchar_t), nullptr, 0);
    for (const WPARAM wAt : {0, 500, 1500, 3000}) {
        Send(EM_SETSEL, wAt, static_cast<LPARAM>(wAt));
        RedrawWindow(hwnd, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    }
    Send(EM_SETSEL, 500, 500);
    ImmNotifyIME(himc, NI_COMPOSITIONSTR, CPS_COMPLETE, 0);
    ImmReleaseContext(hwnd, himc);
    EXPECT_EQ(edit.GetTextLength(), 3001);
    EXPECT_EQ(edit.Find(szComposed, 0, GEF_CASE), 500);
}

} // namespace
