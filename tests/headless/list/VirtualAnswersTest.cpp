// What a host does in an answer while the list is about to paint shows with that paint.

#include "../../list/VirtualHost.h"
#include "../../support/AllowMisuse.h"
#include "../../support/WithBehavior.h"
#include "ListDesktop.h"

#include <algorithm>

namespace {

using namespace test;
using gesso::Behavior;

class VirtualAnswersTest : public ListDesktop, public testing::WithParamInterface<Behavior>
{
protected:
    void MakeVirtual(UINT count)
    {
        MakeList(GLS_DETAILS | GLS_HEADER);
        for (LPCWSTR caption : {L"A", L"B"}) {
            list.InsertColumn(END, LCF_TILELINE, DT_SINGLELINE, 100, 20, caption, 0, LCT_TEXT, nullptr,
                              nullptr, nullptr, VirtualHost::Get);
        }
        list.SetVirtualItems(count);
        desk::ClearDrawing(list);
        data.Take();
    }
    Lines PaintedNow()
    {
        desk::ClearDrawing(list);
        InvalidateRect(list, nullptr, FALSE);
        UpdateWindow(list);
        return desk::Drawing(list);
    }
    static void ExpectSame(const Lines& lines, const Lines& expected)
    {
        ASSERT_GE(lines.size(), expected.size());
        const auto tail = lines.end() - static_cast<std::ptrdiff_t>(expected.size());
        const auto [a, b] = std::mismatch(tail, lines.end(), expected.begin());
        EXPECT_EQ(a == lines.end() ? "the end" : *a, b == expected.end() ? "the end" : *b);
    }
    // What was painted last is what a paint shows now, which has nothing to ask for.
    void ExpectAllShows()
    {
        ASSERT_FALSE(GetUpdateRect(list, nullptr, FALSE));
        const Lines painted = desk::Drawing(list);
        data.Take();
        const Lines now = PaintedNow();
        EXPECT_EQ(data.Take().size(), 0U) << "was not known when it was painted";
        ExpectSame(painted, now);
    }
    size_t TextsShown()
    {
        const Lines lines = desk::Drawing(list);
        return static_cast<size_t>(std::count_if(lines.begin(), lines.end(), [](const std::string& line) {
            return line.find("ScriptTextOut") == 0;
        }));
    }

    const WithBehavior behavior{GetParam()};
    VirtualHost data;
};

INSTANTIATE_TEST_SUITE_P(Both, VirtualAnswersTest, testing::Values(Behavior::Classic, Behavior::Modern));

TEST_P(VirtualAnswersTest, WhatTheHostChangesInAnAnswerIsPainted)
{
    const std::vector<std::function<void(GList*)>> deeds{
        [](GList* pList) { pList->ItemsChanged(0, END); },
        [](GList* pList) { pList->ItemsChanged(3, 3); },
        [](GList* pList) { pList->ItemsInserted(1, 2); },
        [](GList* pList) { pList->ItemsRemoved(0, 3); },
        [](GList* pList) { pList->SetVirtualItems(2000); },
        [](GList* pList) { pList->RemoveColumn(0); },
        [](GList* pList) { pList->SetColumnText(0, L"C"); },
        [](GList* pList) { pList->SetColumnFormat(0, DT_SINGLELINE | DT_RIGHT); },
        [](GList* pList) { pList->SetColumnFktGet(1, nullptr); },
        [](GList* pList) {
            pList->SetLabelTextFont(CreateFontW(20, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, L"X"));
        },
        [](GList* pList) { pList->SetListStyle(GLS_ICONS); },
        [](GList* pList) { pList->SetListStyle(GLS_DETAILS); },
        [](GList* pList) { pList->SetItemHeight(10); },
        [](GList* pList) { pList->SetGroupItemCount(0, 5); },
        [](GList* pList) { pList->EnsureVisible(500); },
        [](GList* pList) { pList->SetScrollPos(SB_VERT, 3000, 1); },
        [](GList* pList) { SetWindowPos(*pList, nullptr, 0, 0, 200, 400, SWP_NOMOVE | SWP_NOZORDER); },
        [](GList* pList) { pList->FitColumn(0); },
        [](GList* pList) { UpdateWindow(*pList); },
        [](GList* pList) { pList->ItemsChanged(0, END), UpdateWindow(*pList); },
        [](GList* pList) { pList->GetItemText(50, 0); },
    };
    for (size_t deed = 0; deed < deeds.size(); ++deed) {
        SCOPED_TRACE("deed " + std::to_string(deed));
        MakeVirtual(1000);
        AddGroup(1);
        UINT left = 5;
        data.onQuestion = [&](GList* pList, const VirtualHost::Question&) {
            if (--left == 0) {
                data.onQuestion = nullptr;
                deeds[deed](pList);
            }
            return true;
        };
        desk::Pump();
        EXPECT_EQ(left, 0U);
        ExpectAllShows();
        DestroyWindow(list);
        Renew();
    }
    MakeVirtual(1);
}

TEST_P(VirtualAnswersTest, WhatTheHostPaintsInAnAnswerIsPaintedAgainWithIt)
{
    for (const bool fPaints : {true, false}) {
        MakeVirtual(1000);
        desk::Pump();
        list.ItemsChanged(4, 4);
        ValidateRect(list, nullptr);
        data.onQuestion = [&](GList* pList, const VirtualHost::Question&) {
            data.onQuestion = nullptr;
            InvalidateRect(*pList, nullptr, FALSE);
            UpdateWindow(*pList);
            return true;
        };
        fPaints ? void(InvalidateRect(list, nullptr, FALSE)) : void(list.GetItemText(4, 0));
        desk::Pump();
        ExpectAllShows();
        const Lines now = PaintedNow();
        list.ItemsChanged(0, END);
        ExpectSame(now, PaintedNow());
        DestroyWindow(list);
        Renew();
    }
    MakeVirtual(1);
}

// A paint that asks for another one would never come to an end.
TEST_P(VirtualAnswersTest, AHostThatChangesTheListInEachAnswerIsSeen)
{
    const AllowMisuse allowed;
    const std::vector<std::function<void(GList*)>> deeds{
        [](GList* pList) { pList->ItemsChanged(0, END); },
        [](GList* pList) { pList->ItemsInserted(0, 1); },
        [](GList* pList) { pList->ItemsInserted(0, 1), pList->ItemsChanged(0, END); },
        [](GList* pList) { pList->ItemsInserted(pList->GetItemCount(), 1); },
        [](GList* pList) { pList->SetVirtualItems(pList->GetItemCount() - 1); },
        [](GList* pList) { UpdateWindow(*pList); },
        [](GList* pList) { pList->FitColumn(0); },
    };
    for (size_t deed = 0; deed < deeds.size(); ++deed) {
        SCOPED_TRACE("deed " + std::to_string(deed));
        MakeVirtual(1000);
        data.onQuestion = [&](GList* pList, const VirtualHost::Question&) {
            deeds[deed](pList);
            return true;
        };
        desk::Pump();
        EXPECT_FALSE(GetUpdateRect(list, nullptr, FALSE));
        EXPECT_LT(data.Take().size(), 150U);
        EXPECT_GE(TextsShown(), 14U) << "two of each of seven rows";
        data.onQuestion = nullptr;
        DestroyWindow(list);
        Renew();
    }
    MakeVirtual(1);
}

} // namespace
