// The texts of items, prepared together: each is what it would be alone, whatever happens to those that are
// equal to it.
#include "../support/AllowMisuse.h"
#include "../support/TextCheck.h"
#include "ModernListFixture.h"

#include <gesso/framework/DrawScope.h>
#include <gesso/text/CDrawText.h>

#include <functional>
#include <memory>
#include <utility>

using namespace test;

namespace {

template <class T> std::vector<BYTE> Bytes(const T* array, UINT count)
{
    const auto* const bytes = reinterpret_cast<const BYTE*>(array);
    return array ? std::vector<BYTE>(bytes, bytes + count * sizeof(T)) : std::vector<BYTE>();
}

void ExpectSame(const stcDrawTextBuffer& a, const stcDrawTextBuffer& b)
{
    EXPECT_TRUE(EqualRect(&a.rcText, &b.rcText));
    EXPECT_EQ(a.nLineHeight, b.nLineHeight);
    EXPECT_EQ(a.uFormat, b.uFormat);
    EXPECT_EQ(a.nFontHeight, b.nFontHeight);
    ASSERT_EQ(a.nItems, b.nItems);
    ASSERT_EQ(a.nChars, b.nChars);
    ASSERT_EQ(a.nGlyphs, b.nGlyphs);
    ASSERT_EQ(a.nBreaks, b.nBreaks);
    EXPECT_EQ(Bytes(a.pItems, a.nItems), Bytes(b.pItems, b.nItems));
    EXPECT_EQ(Bytes(a.pRuns, a.nItems), Bytes(b.pRuns, b.nItems));
    EXPECT_EQ(Bytes(a.pLogClust, a.nChars), Bytes(b.pLogClust, b.nChars));
    EXPECT_EQ(Bytes(a.pLogAttr, a.nChars), Bytes(b.pLogAttr, b.nChars));
    EXPECT_EQ(Bytes(a.pGlyphs, a.nGlyphs), Bytes(b.pGlyphs, b.nGlyphs));
    EXPECT_EQ(Bytes(a.pVisAttr, a.nGlyphs), Bytes(b.pVisAttr, b.nGlyphs));
    EXPECT_EQ(Bytes(a.pAdvance, a.nGlyphs), Bytes(b.pAdvance, b.nGlyphs));
    EXPECT_EQ(Bytes(a.pOffset, a.nGlyphs), Bytes(b.pOffset, b.nGlyphs));
    EXPECT_EQ(Bytes(a.pBreaks, a.nBreaks + 1), Bytes(b.pBreaks, b.nBreaks + 1));
}

stcDrawTextBuffer& BufferOf(void* hText)
{
    return *static_cast<stcDrawTextBuffer*>(hText);
}

struct Close
{
    void operator()(void* hText) const { CDrawText::DrawText_CloseHandle(hText); }
};
using Handle = std::unique_ptr<void, Close>;

// Plain, of several items, empty, with what another font shows, from right to left, in lines, long.
const std::vector<LPCWSTR> TEXTS{L"Document", L"2024-03-17 10:25",    L"",     L"日本 and 語",
                                 L"a אב, גד", L"one\r\ntwo\r\nthree", L" KB ", L"0123456789"};

class ListTexts : public ModernListFixture
{
protected:
    static constexpr UINT ROWS = 3;

    // Rows of which each has all texts, in columns of such formats in turn.
    void MakeRows(bool fBulk, std::initializer_list<UINT> formats = {DT_SINGLELINE, 0U, DT_CENTER})
    {
        MakeList();
        const std::vector<UINT> turns(formats);
        for (UINT column = 0; column < TEXTS.size(); ++column) {
            AddColumn(L"Column");
            list.SetColumnFormat(column, turns[column % turns.size()]);
        }
        FillRows(fBulk);
    }
    void FillRows(bool fBulk)
    {
        fBulk ? list.BulkInsertOn() : void();
        for (UINT row = 0; row < ROWS; ++row) {
            list.InsertItem(END, 0, nullptr, 0, TEXTS[0], 0);
            for (UINT column = 1; column < TEXTS.size(); ++column) {
                list.SetSubItem(row, column, 0, TEXTS[column], 0);
            }
        }
        list.BulkInsertOff();
    }
    ListSubItem& At(UINT row, UINT column) { return *list.items[row]->SubItem(column); }
    Handle PrepareAlone(HFONT hFont, LPCWSTR text, UINT format)
    {
        const gesso::WindowContext context(list);
        const gesso::SelectScope font(context, hFont);
        return Handle(CDrawText::DrawText_Prepare(context, text, -1, nullptr, format,
                                                  BufferOf(list.columns[0]->prepared->first).nLineHeight,
                                                  nullptr));
    }
    void ExpectAsAlone(UINT row, UINT column)
    {
        SCOPED_TRACE("row " + std::to_string(row) + ", column " + std::to_string(column));
        const ListSubItem& sub = At(row, column);
        const UINT format = list.GetColumnFormat(column);
        ASSERT_TRUE(sub.prepared);
        ExpectSame(BufferOf(sub.prepared->first),
                   BufferOf(PrepareAlone(list.GetLabelTextFont(), sub.text, format).get()));
        ExpectSame(BufferOf(sub.prepared->second),
                   BufferOf(PrepareAlone(list.GetLabelTitleFont(), sub.text, format).get()));
        EXPECT_EQ(CheckText(BufferOf(sub.prepared->first)), "");
    }
    void ExpectAllAsAlone()
    {
        for (UINT row = 0; row < list.GetItemCount(); ++row) {
            for (UINT column = 0; column < list.GetColumnCount(); ++column) {
                ExpectAsAlone(row, column);
            }
        }
        InvalidateRect(list, nullptr, FALSE);
        UpdateWindow(list);
    }
};

} // namespace

TEST_F(ListTexts, EachIsPreparedAsItIsAlone)
{
    for (const bool fBulk : {true, false}) {
        MakeRows(fBulk);
        ExpectAllAsAlone();
        list.RemoveAllItems();
        FillRows(!fBulk);
        ExpectAllAsAlone();
        const std::vector<wchar_t> text = Wide(std::string(3000, 'x') + " " + std::string(70, 'y'));
        list.SetItemText(0, 1, text.data());
        list.SetItemText(1, 0, text.data());
        ExpectAllAsAlone();
        DestroyWindow(list);
        Renew();
    }
    MakeRows(true);
}

// One by one, since the next one finds what the former left.
TEST_F(ListTexts, EqualOnesGoTheirOwnWays)
{
    const std::function<void()> changes[] = {
        [&] { list.SetItemText(0, 0, L"Another"); },
        [&] { list.SetItemText(0, 1, TEXTS[0]); },
        [&] { list.RemoveItem(1); },
        [&] { list.SetColumnFormat(0, DT_RIGHT); },
        [&] { list.SetColumnFormat(7, DT_SINGLELINE | DT_RIGHT); },
        [&] { list.RemoveColumn(2); },
        [&] {
            list.InsertColumn(0, 0, DT_CENTER, 50, 10, L"New", 0, LCT_TEXT, nullptr, nullptr, nullptr,
                              nullptr);
            list.SetItemText(0, 0, TEXTS[1]);
            list.SetItemText(1, 0, TEXTS[1]);
        },
        [&] { list.SetListStyle(GLS_TILES); },
        [&] { list.Sort(0, true); },
        [&] { list.RemoveItem(0); },
    };
    for (const bool fBulk : {true, false}) {
        MakeRows(fBulk);
        for (const auto& change : changes) {
            change();
            ExpectAllAsAlone();
        }
        DestroyWindow(list);
        Renew();
    }
    MakeRows(true);
}

TEST_F(ListTexts, EqualOnesThatComeOneByOneAreOne)
{
    MakeFilledList(1, 2);
    for (int n = 0; n < 4; ++n) {
        list.InsertItem(END, 0, nullptr, 0, L"Document", 0);
    }
    EXPECT_EQ(At(4, 0).prepared, At(5, 0).prepared);
    ListTextPair* const shared = At(5, 0).prepared;
    list.SetColumnFormat(0, DT_RIGHT);
    list.InsertItem(END, 0, nullptr, 0, L"Document", 0);
    EXPECT_NE(At(6, 0).prepared, shared);
    ExpectAsAlone(6, 0);
    list.RemoveItem(5);
    list.RemoveItem(4);
    ExpectAsAlone(3, 0);
}

TEST_F(ListTexts, OthersFontsMakeOtherTexts)
{
    for (const bool fBulk : {true, false}) {
        MakeRows(fBulk);
        const UINT width = BufferOf(At(0, 0).prepared->first).pBreaks[0].nWidth;
        list.SetLabelTextFont(CreateFontW(-40, 0, 0, 0, 400, 0, 0, 0, 0, 0, 0, 0, 0, L"Segoe UI"));
        EXPECT_EQ(BufferOf(At(0, 0).prepared->first).pBreaks[0].nWidth, width) << "it stays as it is";
        list.SetItemText(0, 0, TEXTS[0]);
        EXPECT_GT(BufferOf(At(0, 0).prepared->first).pBreaks[0].nWidth, 2 * width);
        EXPECT_EQ(BufferOf(At(1, 0).prepared->first).pBreaks[0].nWidth, width);
        ExpectAsAlone(0, 0);
        list.RemoveAllItems();
        FillRows(fBulk);
        ExpectAllAsAlone();
        DestroyWindow(list);
        Renew();
    }
    MakeRows(true);
}

// A font that the host lends may go and come again under the same handle.
TEST_F(ListTexts, ALentFontIsWhatItIsNow)
{
    const auto make = [](int height) {
        return CreateFontW(height, 0, 0, 0, 400, 0, 0, 0, 0, 0, 0, 0, 0, L"Segoe UI");
    };
    MakeFilledList(1, 2);
    UINT widths[2];
    for (UINT n = 0; n < 2; ++n) {
        const HFONT hFont = make(n == 0 ? -12 : -36);
        list.OnSetFont(hFont, 0);
        list.SetItemText(n, 0, L"Document");
        widths[n] = BufferOf(At(n, 0).prepared->first).pBreaks[0].nWidth;
        DeleteObject(hFont);
    }
    EXPECT_GT(widths[1], 2 * widths[0]);
    list.SetLabelTextFont(make(-12));
}

// What a derived class may do with the handles that it sees: the text of the row is then what the operation
// makes of one that was prepared alone, and nothing is freed twice, or not at all.
TEST_F(ListTexts, PublicOperationsTakeTheHandles)
{
    using Operation = std::function<void(HDC, stcDrawTextBuffer*)>;
    const Operation operations[] = {
        [](HDC hdc, stcDrawTextBuffer* p) { CDrawText::DrawText_Calculate(hdc, L"more", 4, p); },
        [](HDC hdc, stcDrawTextBuffer* p) { CDrawText::DrawText_Calculate_Optimized(hdc, L"other", 5, p); },
        [](HDC, stcDrawTextBuffer* p) { CDrawText::DrawText_Break(TEXTS[1], p->nChars, 20, p); },
        [](HDC, stcDrawTextBuffer* p) { CDrawText::OptimizeBuffer(p); },
        [](HDC, stcDrawTextBuffer* p) { CDrawText::FreeBuffer(p); },
        [](HDC hdc, stcDrawTextBuffer* p) {
            CDrawText::FreeBuffer(p);
            CDrawText::PrepareBuffer(p, 3, 4, 4);
            CDrawText::DrawText_Calculate(hdc, L"abcd", 4, p);
            CDrawText::DrawText_Break(L"abcd", 4, 1000, p);
        },
        [](HDC hdc, stcDrawTextBuffer* p) {
            CDrawText::DrawText_Calculate_Optimized(hdc, L"ab cd", 5, p);
            CDrawText::DrawText_Break(L"ab cd", 5, 10, p);
            CDrawText::DrawText_Calculate(hdc, L"abcd", 4, p);
            CDrawText::FreeBuffer(p);
        },
    };
    for (const auto& operation : operations) {
        MakeRows(true);
        const gesso::WindowContext context(list);
        {
            const gesso::SelectScope font(context, list.GetLabelTextFont());
            const Handle alone = PrepareAlone(list.GetLabelTextFont(), TEXTS[1], list.GetColumnFormat(1));
            operation(context, &BufferOf(At(0, 1).prepared->first));
            operation(context, &BufferOf(alone.get()));
            const stcDrawTextBuffer& changed = BufferOf(At(0, 1).prepared->first);
            EXPECT_EQ(changed.nItems, BufferOf(alone.get()).nItems);
            EXPECT_EQ(changed.nGlyphs, BufferOf(alone.get()).nGlyphs);
            EXPECT_EQ(changed.nBreaks, BufferOf(alone.get()).nBreaks);
            EXPECT_EQ(!changed.pGlyphs, !BufferOf(alone.get()).pGlyphs);
            EXPECT_EQ(Bytes(changed.pGlyphs, changed.nGlyphs),
                      Bytes(BufferOf(alone.get()).pGlyphs, changed.nGlyphs));
        }
        ExpectAsAlone(0, 0);
        ExpectAsAlone(2, 7);
        InvalidateRect(list, nullptr, FALSE);
        UpdateWindow(list);
        list.SetItemText(0, 1, TEXTS[1]);
        ExpectAsAlone(0, 1);
        DestroyWindow(list);
        Renew();
    }
    MakeRows(true);
}

TEST_F(ListTexts, ADerivedClassMayHavePairsAndHandlesOfItsOwn)
{
    MakeRows(true);
    const gesso::WindowContext context(list);
    ListSubItem& own = At(0, 0);
    list.FreeText(
        std::exchange(own.prepared, list.PrepareText(context, LTM_ITEM, L"Own", nullptr, DT_RIGHT, 18)));
    ExpectAsAlone(1, 0);
    CDrawText::DrawText_CloseHandle(std::exchange(At(1, 7).prepared->first, nullptr));
    CDrawText::DrawText_CloseHandle(At(1, 6).prepared->second);
    At(1, 6).prepared->second = PrepareAlone(list.GetLabelTextFont(), L"Put in", 0).release();
    InvalidateRect(list, nullptr, FALSE);
    UpdateWindow(list);

    // Pairs that outlive their items.
    ListTextPair* const kept = std::exchange(At(2, 1).prepared, nullptr);
    const Handle alone = PrepareAlone(list.GetLabelTextFont(), TEXTS[1], list.GetColumnFormat(1));
    list.RemoveAllItems();
    ExpectSame(BufferOf(kept->first), BufferOf(alone.get()));
    list.TextOutW(context, LTM_ITEM, kept, {0, 0, 100, 20});
    list.FreeText(kept);
}

TEST_F(ListTexts, CopiesShareThemUntilTheLastOneGoes)
{
    MakeRows(true);
    {
        ProbeList copy(list);
        InvalidateRect(list, nullptr, FALSE);
        UpdateWindow(list);
        copy = list;
        EXPECT_EQ(copy.GetItemCount(), ROWS);
    }
    ExpectAllAsAlone();
    ProbeList other;
    other.InsertItem(END, 0, nullptr, 0, TEXTS[0], 0);
    other = list;
    ExpectAllAsAlone();
}

// More texts than are looked for, and more arrays than are kept once.
TEST_F(ListTexts, ManyDifferentOnesAreEachTheirOwn)
{
    constexpr UINT MANY = 3000;
    MakeList();
    AddColumns(2);
    list.BulkInsertOn();
    for (UINT row = 0; row < MANY; ++row) {
        const auto text = Wide(std::to_string(row * 7919) + std::string(row % 40, 'a'));
        list.InsertItem(END, 0, nullptr, 0, text.data(), 0);
        list.SetSubItem(row, 1, 0, Wide(std::to_string(row % 1500)).data(), 0);
    }
    list.BulkInsertOff();
    for (UINT row = 0; row < MANY; row += 101) {
        ExpectAsAlone(row, 0);
        ExpectAsAlone(row, 1);
    }
    for (UINT row = MANY; row-- > 0; row -= row % 3 ? 0 : std::min(row, 2U)) {
        list.RemoveItem(row);
        if (row % 500 == 0 && list.GetItemCount() > 0) {
            ExpectAsAlone(list.GetItemCount() - 1, 1);
        }
    }
}
