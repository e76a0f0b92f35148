// A paragraph that is too long to be wrapped at once: what is deep in it shows before all in front of it is
// wrapped, and in the end it is wrapped as if it had been done from its start.

#include "../../edit/EditFixture.h"
#include "../../support/WithBehavior.h"
#include "../Faults.h"

#include <algorithm>
#include <random>

namespace {

using namespace test;
namespace desk = gesso::headless;

constexpr int COLUMNS = 40;
constexpr int ROWS = 5;
constexpr size_t LENGTH = 200000;
// Shaping a row takes one call or two; all of the text is more than 5000 rows.
constexpr int SHAPED_AT_ONCE = 1200;

class LongParagraphTest : public EditFixture
{
protected:
    LongParagraphTest() { Make(COLUMNS, ROWS, ES_MULTILINE | ES_AUTOVSCROLL); }

    static std::vector<wchar_t> Words(size_t nLength, unsigned seed)
    {
        std::minstd_rand random(seed);
        std::vector<wchar_t> text;
        while (text.size() < nLength) {
            text.insert(text.end(), 1 + random() % 12, static_cast<wchar_t>(L'a' + random() % 26));
            text.push_back(random() % 40 ? L' ' : L'\x4E2D');
        }
        text.resize(nLength);
        text.push_back(0);
        return text;
    }
    LRESULT Send(UINT uMsg, WPARAM wParam = 0, LPARAM lParam = 0)
    {
        return SendMessageW(edit, uMsg, wParam, lParam);
    }
    static std::vector<LRESULT> RowsOf(HWND hwnd)
    {
        std::vector<LRESULT> starts;
        for (LRESULT n = 0; n < SendMessageW(hwnd, EM_GETLINECOUNT, 0, 0); ++n) {
            starts.push_back(SendMessageW(hwnd, EM_LINEINDEX, static_cast<WPARAM>(n), 0));
        }
        return starts;
    }
    void Paint() { RedrawWindow(edit, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW); }
    // All slices come. Fewer than all would leave rows that are not those of FreshRows.
    static void Settle()
    {
        for (int i = 0; i < 100; ++i) {
            desk::Advance(100);
        }
    }
    std::vector<LRESULT> FreshRows()
    {
        std::vector<wchar_t> text(static_cast<size_t>(edit.GetTextLength()) + 1);
        GetWindowTextW(edit, text.data(), static_cast<int>(text.size()));
        RECT rc{};
        GetWindowRect(edit, &rc);
        ProbeEdit fresh;
        const HWND hwnd = fresh.Create(0, 0, rc.right - rc.left, rc.bottom - rc.top, host, ID + 1, L"",
                                       WS_CHILD | WS_VISIBLE | ES_MULTILINE | ES_AUTOVSCROLL, 0);
        fresh.SetFont(reinterpret_cast<HFONT>(Send(WM_GETFONT)));
        fresh.SetText(text.data());
        Settle();
        std::vector<LRESULT> rows = RowsOf(hwnd);
        DestroyWindow(hwnd);
        return rows;
    }
    // Whether so few rows were shaped since.
    class ShapingLimit
    {
    public:
        ShapingLimit() { desk::Fail("ScriptShape", 1, ERROR_NOT_ENOUGH_MEMORY, SHAPED_AT_ONCE); }
        ~ShapingLimit()
        {
            EXPECT_EQ(desk::PendingFaults().size(), 1U) << "more was wrapped at once";
            desk::ClearFaults();
        }
        ShapingLimit(const ShapingLimit&) = delete;
        ShapingLimit& operator=(const ShapingLimit&) = delete;
    };
    // What a person sees: the caret in view, in the row that its place is in, and full rows.
    void ExpectConsistent()
    {
        Paint();
        int nCaret = 0;
        edit.GetSel(nullptr, &nCaret);
        const LRESULT nTop = Send(EM_GETFIRSTVISIBLELINE);
        const LRESULT nRow = Send(EM_LINEFROMCHAR, static_cast<WPARAM>(nCaret));
        POINT pt{};
        GetCaretPos(&pt);
        EXPECT_EQ((pt.y + Row() / 2) / Row(), nRow - nTop);
        EXPECT_LT(nRow - nTop, ROWS);
        EXPECT_EQ(HIWORD(Send(EM_CHARFROMPOS, 0, MAKELPARAM(1, pt.y + 2))), static_cast<WORD>(nRow));
        ExpectFullRows();
    }
    void ExpectFullRows()
    {
        Paint();
        const LRESULT nTop = Send(EM_GETFIRSTVISIBLELINE);
        for (LRESULT n = nTop; n < nTop + ROWS && n + 1 < Send(EM_GETLINECOUNT); ++n) {
            const LRESULT nLength =
                Send(EM_LINEINDEX, static_cast<WPARAM>(n) + 1) - Send(EM_LINEINDEX, static_cast<WPARAM>(n));
            EXPECT_GT(nLength, COLUMNS - 14) << "row " << n;
            EXPECT_LE(nLength, COLUMNS + 1) << "row " << n;
        }
    }

    Modern modern;
};

TEST_F(LongParagraphTest, ItsEndShowsBeforeItIsWrapped)
{
    edit.SetText(Words(LENGTH, 1).data());
    {
        const ShapingLimit limit;
        Key(VK_END, {VK_CONTROL});
        ExpectConsistent();
    }
    const LRESULT nRows = Send(EM_GETLINECOUNT);
    {
        const ShapingLimit limit;
        Key(VK_UP);
        Key(VK_PRIOR);
        ExpectConsistent();
        Key(VK_HOME);
        Send(WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA));
        ExpectFullRows();
        Char(L'x');
        ExpectConsistent();
    }
    Settle();
    const std::vector<LRESULT> rows = RowsOf(edit);
    EXPECT_EQ(rows, FreshRows());
    EXPECT_GT(nRows, static_cast<LRESULT>(rows.size()) * 4 / 5) << "the bar is nearly true at once";
    EXPECT_LT(nRows, static_cast<LRESULT>(rows.size()) * 6 / 5);
    ExpectConsistent();
}

TEST_F(LongParagraphTest, DeepInItAnotherWidthShowsAtOnce)
{
    edit.SetText(Words(LENGTH, 2).data());
    Settle();
    Send(EM_SETSEL, LENGTH / 2, LENGTH / 2);
    Send(EM_SCROLLCARET);
    const LRESULT nFirst = Send(EM_LINEINDEX, static_cast<WPARAM>(Send(EM_GETFIRSTVISIBLELINE)));
    {
        // With the slice that begins.
        desk::Fail("ScriptShape", 1, ERROR_NOT_ENOUGH_MEMORY, 5000);
        Resize(COLUMNS - 3, 1, ROWS);
        Paint();
        EXPECT_EQ(desk::PendingFaults().size(), 1U);
        desk::ClearFaults();
    }
    EXPECT_NEAR(static_cast<double>(Send(EM_LINEINDEX, static_cast<WPARAM>(Send(EM_GETFIRSTVISIBLELINE)))),
                static_cast<double>(nFirst), COLUMNS);
    Settle();
    EXPECT_EQ(RowsOf(edit), FreshRows());
}

TEST_F(LongParagraphTest, WhatIsPressedAndChangedMeanwhileEndsAsWrappedAnew)
{
    constexpr int SHORT = static_cast<int>(LENGTH) / 6;
    for (unsigned seed = 1; seed < 5; ++seed) {
        std::minstd_rand random(seed);
        const auto below = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
        Resize(COLUMNS, 1, ROWS);
        edit.SetText(Words(LENGTH / 2, seed).data());
        for (int i = 0; i < 20; ++i) {
            const int nLength = edit.GetTextLength();
            const int nFrom = below(nLength + 1);
            switch (below(9)) {
            case 0: Key(VK_END, {VK_CONTROL}); break;
            case 1: Key(VK_PRIOR); break;
            case 2: Key(VK_UP); break;
            case 3: Resize(COLUMNS - below(9), 1, ROWS); break;
            case 4:
                Send(EM_SETSEL, static_cast<WPARAM>(nFrom), std::min(nLength, nFrom + below(SHORT)));
                edit.ReplaceSel(below(2) ? L"\r\n" : Words(SHORT, seed).data(), true);
                break;
            case 5:
                Send(EM_SETSEL, static_cast<WPARAM>(nFrom), nFrom);
                Send(EM_SCROLLCARET);
                break;
            case 6: Send(EM_UNDO); break;
            case 7: desk::Advance(20); break;
            default: Send(WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA)); break;
            }
            Paint();
        }
        Settle();
        ASSERT_EQ(RowsOf(edit), FreshRows()) << "with " << seed;
    }
}

} // namespace
