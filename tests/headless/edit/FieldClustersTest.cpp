// What a reader sees as one character stays whole where rows end and where the order of the scripts turns.

#include "../../edit/EditFixture.h"
#include "../../support/WithBehavior.h"

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
