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

} // namespace
