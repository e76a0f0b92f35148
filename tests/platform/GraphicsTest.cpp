// The rules of graphics objects, device contexts and regions.
#include "../support/Numbers.h"

#include <gtest/gtest.h>

#include <climits>

using test::Numbers;

namespace {

class MemoryContext
{
public:
    MemoryContext() : m_hdc(CreateCompatibleDC(nullptr)) {}
    MemoryContext(const MemoryContext&) = delete;
    MemoryContext& operator=(const MemoryContext&) = delete;
    ~MemoryContext() { DeleteDC(m_hdc); }
    operator HDC() const { return m_hdc; }

private:
    HDC m_hdc;
};

} // namespace

TEST(Graphics, MulDivRoundsHalvesAwayFromZeroAndReportsWhatDoesNotFit)
{
    EXPECT_EQ(MulDiv(9, 96, 72), 12);
    EXPECT_EQ(MulDiv(31, 55, 31), 55);
    EXPECT_EQ(MulDiv(1, 1, 2), 1);
    EXPECT_EQ(MulDiv(-1, 1, 2), -1);
    EXPECT_EQ(MulDiv(1, -1, -2), 1);
    EXPECT_EQ(MulDiv(5, 1, 3), 2);
    EXPECT_EQ(MulDiv(4, 1, 3), 1);
    EXPECT_EQ(MulDiv(-4, 1, 3), -1);
    EXPECT_EQ(MulDiv(1, 1, 0), -1);
    EXPECT_EQ(MulDiv(0x7FFFFFFF, 2, 1), -1);
    EXPECT_EQ(MulDiv(0x7FFFFFFF, 2, 2), 0x7FFFFFFF);
}

TEST(Graphics, SelectingReturnsWhatWasSelectedBefore)
{
    const MemoryContext hdc;
    const HPEN pen = CreatePen(PS_SOLID, 1, RGB(1, 2, 3));
    const HFONT font = CreateFontW(-12, 0, 0, 0, 400, 0, 0, 0, 0, 0, 0, 0, 0, L"Segoe UI");
    const HGDIOBJ firstPen = SelectObject(hdc, pen);
    EXPECT_EQ(firstPen, GetStockObject(BLACK_PEN));
    EXPECT_EQ(SelectObject(hdc, font), GetStockObject(SYSTEM_FONT));
    EXPECT_EQ(GetCurrentObject(hdc, OBJ_FONT), font);
    EXPECT_EQ(SelectObject(hdc, firstPen), pen);
    EXPECT_EQ(SelectObject(hdc, GetStockObject(SYSTEM_FONT)), font);
    EXPECT_TRUE(DeleteObject(pen));
    EXPECT_TRUE(DeleteObject(font));
    EXPECT_EQ(SelectObject(hdc, nullptr), nullptr);
}

TEST(Graphics, ABitmapIsInOneContextAtATime)
{
    const MemoryContext first;
    const MemoryContext second;
    const HBITMAP bitmap = CreateBitmap(8, 4, 1, 32, nullptr);
    const HGDIOBJ original = SelectObject(first, bitmap);
    ASSERT_NE(original, nullptr);
    EXPECT_EQ(SelectObject(second, bitmap), nullptr);
    EXPECT_EQ(SelectObject(first, original), bitmap);
    EXPECT_NE(SelectObject(second, bitmap), nullptr);
    EXPECT_EQ(SelectObject(second, original), bitmap);
    EXPECT_TRUE(DeleteObject(bitmap));
}

TEST(Graphics, DeletedObjectsAreGoneAndStockObjectsStay)
{
    const HBRUSH brush = CreateSolidBrush(RGB(1, 2, 3));
    LOGBRUSH log{};
    EXPECT_EQ(GetObjectW(brush, sizeof(log), &log), static_cast<int>(sizeof(log)));
    EXPECT_EQ(log.lbColor, RGB(1, 2, 3));
    EXPECT_TRUE(DeleteObject(brush));
    EXPECT_FALSE(DeleteObject(brush));
    EXPECT_EQ(GetObjectW(brush, sizeof(log), &log), 0);
    EXPECT_TRUE(DeleteObject(GetStockObject(WHITE_BRUSH)));
    EXPECT_EQ(GetObjectW(GetStockObject(WHITE_BRUSH), sizeof(log), &log), static_cast<int>(sizeof(log)));
}

TEST(Graphics, AFontDeletedInAContextGoesWhenTheContextHasAnother)
{
    const MemoryContext hdc;
    LOGFONTW log{};
    log.lfHeight = -12;
    const HFONT font = CreateFontIndirectW(&log);
    const HGDIOBJ original = SelectObject(hdc, font);
    EXPECT_TRUE(DeleteObject(font));
    EXPECT_EQ(GetCurrentObject(hdc, OBJ_FONT), font);
    EXPECT_EQ(SelectObject(hdc, original), font);
    EXPECT_EQ(SelectObject(hdc, font), nullptr);
}

TEST(Graphics, ADibSectionHasBitsThatCanBeWritten)
{
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
    info.bmiHeader.biWidth = 5;
    info.bmiHeader.biHeight = 3;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    const HBITMAP bitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    ASSERT_NE(bits, nullptr);
    memset(bits, 0x5A, 60);
    BITMAP record{};
    EXPECT_EQ(GetObjectW(bitmap, sizeof(record), &record), static_cast<int>(sizeof(record)));
    EXPECT_EQ(record.bmWidth, 5);
    EXPECT_EQ(record.bmHeight, 3);
    EXPECT_EQ(record.bmBitsPixel, 32);
    EXPECT_EQ(record.bmBits, bits);
    EXPECT_TRUE(DeleteObject(bitmap));
}

TEST(Graphics, IconsTellTheirSizeThroughBitmapsOfTheCaller)
{
    const auto icon = static_cast<HICON>(LoadImageW(nullptr, MAKEINTRESOURCEW(32515), IMAGE_ICON, 16, 16, 0));
    ASSERT_NE(icon, nullptr);
    ICONINFO info{};
    ASSERT_TRUE(GetIconInfo(icon, &info));
    BITMAP color{};
    ASSERT_NE(GetObjectW(info.hbmColor, sizeof(color), &color), 0);
    EXPECT_EQ(color.bmWidth, 16);
    EXPECT_EQ(color.bmHeight, 16);
    EXPECT_TRUE(DeleteObject(info.hbmColor));
    EXPECT_TRUE(DeleteObject(info.hbmMask));
    EXPECT_TRUE(DestroyIcon(icon));
}

TEST(Graphics, RestoringAContextBringsBackAllThatWasSet)
{
    const MemoryContext hdc;
    SetTextColor(hdc, RGB(1, 2, 3));
    const int level = SaveDC(hdc);
    SetTextColor(hdc, RGB(9, 9, 9));
    SetBkMode(hdc, TRANSPARENT);
    SetWindowOrgEx(hdc, 5, 6, nullptr);
    SaveDC(hdc);
    EXPECT_TRUE(RestoreDC(hdc, level));
    EXPECT_EQ(GetTextColor(hdc), RGB(1, 2, 3));
    EXPECT_EQ(GetBkMode(hdc), OPAQUE);
    POINT point{};
    LPtoDP(hdc, &point, 1);
    EXPECT_EQ(Numbers(point), "0,0");
    EXPECT_FALSE(RestoreDC(hdc, -1)) << "the later state went with the earlier one";
}

TEST(Graphics, OriginsMoveLogicalCoordinates)
{
    const MemoryContext hdc;
    POINT former{};
    SetWindowOrgEx(hdc, 10, 20, nullptr);
    OffsetWindowOrgEx(hdc, 1, 2, &former);
    EXPECT_EQ(Numbers(former), "10,20");
    SetViewportOrgEx(hdc, 100, 200, nullptr);
    POINT point = {11, 22};
    LPtoDP(hdc, &point, 1);
    EXPECT_EQ(Numbers(point), "100,200");
    DPtoLP(hdc, &point, 1);
    EXPECT_EQ(Numbers(point), "11,22");
}

TEST(Graphics, RegionsCombine)
{
    const HRGN a = CreateRectRgn(0, 0, 10, 10);
    const HRGN b = CreateRectRgn(20, 10, 5, 0); // corners in any order
    const HRGN c = CreateRectRgn(0, 0, 0, 0);
    RECT box{};
    EXPECT_EQ(CombineRgn(c, a, b, RGN_AND), SIMPLEREGION);
    GetRgnBox(c, &box);
    EXPECT_EQ(Numbers(box), "5,0,10,10");
    EXPECT_EQ(CombineRgn(c, a, b, RGN_OR), SIMPLEREGION);
    EXPECT_EQ(CombineRgn(c, a, b, RGN_XOR), COMPLEXREGION);
    EXPECT_TRUE(PtInRegion(c, 4, 5));
    EXPECT_FALSE(PtInRegion(c, 5, 5));
    EXPECT_EQ(CombineRgn(c, a, a, RGN_DIFF), NULLREGION);
    EXPECT_EQ(CombineRgn(c, a, nullptr, RGN_COPY), SIMPLEREGION);
    EXPECT_TRUE(EqualRgn(a, c));
    OffsetRgn(c, 3, 0);
    EXPECT_FALSE(EqualRgn(a, c));
    GetRgnBox(c, &box);
    EXPECT_EQ(Numbers(box), "3,0,13,10");
    SetRectRgn(c, 0, 0, 10, 10);
    EXPECT_TRUE(EqualRgn(a, c));
    for (const HRGN region : {a, b, c}) {
        EXPECT_TRUE(DeleteObject(region));
    }
}

TEST(Graphics, ClippingNarrowsWhatAContextReaches)
{
    const MemoryContext hdc;
    const HBITMAP bitmap = CreateBitmap(100, 50, 1, 32, nullptr);
    const HGDIOBJ former = SelectObject(hdc, bitmap);
    RECT box{};
    EXPECT_EQ(GetClipBox(hdc, &box), SIMPLEREGION);
    EXPECT_EQ(Numbers(box), "0,0,100,50");
    EXPECT_EQ(IntersectClipRect(hdc, 10, 10, 200, 40), SIMPLEREGION);
    EXPECT_EQ(ExcludeClipRect(hdc, 20, 20, 30, 30), COMPLEXREGION);
    EXPECT_FALSE(PtVisible(hdc, 25, 25));
    SetWindowOrgEx(hdc, 10, 0, nullptr);
    GetClipBox(hdc, &box);
    EXPECT_EQ(Numbers(box), "20,10,110,40") << "the box is in logical coordinates";
    SetWindowOrgEx(hdc, 0, 0, nullptr);
    SelectClipRgn(hdc, nullptr);
    GetClipBox(hdc, &box);
    EXPECT_EQ(Numbers(box), "0,0,100,50");
    SelectObject(hdc, former);
    DeleteObject(bitmap);
}

TEST(Graphics, CoordinatesBeyondTheLastOneGoRound)
{
    RECT r = {0, 0, 10, 10};
    OffsetRect(&r, INT_MAX, INT_MIN);
    EXPECT_EQ(Numbers(r), "2147483647,-2147483648,-2147483639,-2147483638");
    r = {INT_MIN, INT_MIN, INT_MAX, INT_MAX};
    InflateRect(&r, 1, 1);
    EXPECT_EQ(Numbers(r), "2147483647,2147483647,-2147483648,-2147483648");
    r = {INT_MIN, INT_MIN, INT_MAX, INT_MAX};
    AdjustWindowRectEx(&r, WS_POPUP | WS_BORDER, FALSE, 0);
    EXPECT_EQ(Numbers(r), "2147483647,2147483647,-2147483648,-2147483648");

    const HRGN whole = CreateRectRgn(INT_MIN, INT_MIN, INT_MAX, INT_MAX);
    EXPECT_EQ(GetRgnBox(whole, &r), SIMPLEREGION);
    EXPECT_NE(OffsetRgn(whole, INT_MAX, INT_MAX), ERROR);
    DeleteObject(whole);
    const HDC hdc = CreateCompatibleDC(nullptr);
    POINT origin{};
    SetViewportOrgEx(hdc, INT_MAX, INT_MIN, nullptr);
    OffsetViewportOrgEx(hdc, 5, -5, nullptr);
    GetViewportOrgEx(hdc, &origin);
    EXPECT_EQ(Numbers(origin.x, origin.y), "-2147483644,2147483643");
    EXPECT_TRUE(PatBlt(hdc, INT_MAX, INT_MAX, INT_MAX, INT_MAX, PATCOPY));
    DeleteDC(hdc);
}

TEST(Graphics, RectanglesMeetJoinAndSubtract)
{
    const RECT a = {0, 0, 10, 10};
    RECT out{};
    const RECT right = {5, 0, 20, 10};
    EXPECT_TRUE(IntersectRect(&out, &a, &right));
    EXPECT_EQ(Numbers(out), "5,0,10,10");
    EXPECT_TRUE(UnionRect(&out, &a, &right));
    EXPECT_EQ(Numbers(out), "0,0,20,10");
    EXPECT_TRUE(SubtractRect(&out, &a, &right));
    EXPECT_EQ(Numbers(out), "0,0,5,10");
    const RECT middle = {3, 3, 5, 5};
    EXPECT_TRUE(SubtractRect(&out, &a, &middle));
    EXPECT_EQ(Numbers(out), Numbers(a)) << "what would not be a rectangle is left whole";
    EXPECT_FALSE(SubtractRect(&out, &middle, &a));
    const RECT beside = {10, 0, 20, 10};
    EXPECT_FALSE(IntersectRect(&out, &a, &beside));
    EXPECT_TRUE(IsRectEmpty(&out));
    EXPECT_FALSE(PtInRect(&a, {10, 5}));
    EXPECT_TRUE(PtInRect(&a, {0, 9}));
}
