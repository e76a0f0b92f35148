// What stands in for the parts of a style where there is none.

#include "../controls/DrawFixture.h"

#include <gesso/framework/ThemePart.h>

namespace {

using namespace test;
using gesso::PlainPart;

class PlainPartTest : public DrawFixture
{
protected:
    // What a part in a state draws, each line without the place.
    Lines Drawn(PlainPart plain, int nState)
    {
        const HDC hdc = GetDC(Parent());
        desk::ClearDrawing(Parent());
        gesso::ThemePart(nullptr, hdc, 1, nState, plain).DrawBackground({0, 0, 20, 10});
        ReleaseDC(Parent(), hdc);
        Lines lines = desk::Drawing(Parent());
        for (std::string& line : lines) {
            line.erase(line.find(" ("), line.find(')') + 1 - line.find(" ("));
        }
        return lines;
    }
};

TEST_F(PlainPartTest, ArrowsPointTheirWayInEveryState)
{
    for (UINT nDirection = 0; nDirection < 4; ++nDirection) {
        const auto first = static_cast<int>(ABS_UPNORMAL + 4 * nDirection);
        const Lines idle = Drawn(PlainPart::ScrollArrow, first);
        for (const int nState : {first + 1, first + 3, static_cast<int>(ABS_UPHOVER + nDirection)}) {
            EXPECT_EQ(Drawn(PlainPart::ScrollArrow, nState), idle) << nState;
        }
        EXPECT_NE(Drawn(PlainPart::ScrollArrow, first + 2), idle) << "pressed";
        for (UINT nOther = 0; nOther < nDirection; ++nOther) {
            EXPECT_NE(Drawn(PlainPart::ScrollArrow, static_cast<int>(ABS_UPNORMAL + 4 * nOther)), idle);
        }
    }
}

TEST_F(PlainPartTest, TheHostsShadeFillsThem)
{
    const COLORREF cr = RGB(0x12, 0x34, 0x56);
    gesso::SetColor(gesso::ColorRole::Window, cr);
    gesso::SetColor(gesso::ColorRole::Selection, cr);
    for (const PlainPart plain : {PlainPart::EntryField, PlainPart::OpenList, PlainPart::EditBackground,
                                  PlainPart::ItemView, PlainPart::DialogPanel, PlainPart::ProgressFill})
    {
        EXPECT_EQ(Drawn(plain, 1).at(0), "FillRect brush=123456") << static_cast<int>(plain);
    }
    gesso::SetColor(gesso::ColorRole::Window, CLR_DEFAULT);
    gesso::SetColor(gesso::ColorRole::Selection, CLR_DEFAULT);
    EXPECT_EQ(Drawn(PlainPart::DialogPanel, 1).at(0).rfind("FillRect brush=sys5 ", 0), 0U);
}

TEST_F(PlainPartTest, RowsAreFilledWhereTheyAreSelectedAndFramedUnderThePointer)
{
    const auto kinds = [&](int nState) {
        std::string all;
        for (const std::string& line : Drawn(PlainPart::Row, nState)) {
            all += line.substr(0, line.find(' ')) + " ";
        }
        return all;
    };
    EXPECT_EQ(kinds(LISS_NORMAL), "");
    EXPECT_EQ(kinds(LISS_DISABLED), "");
    EXPECT_EQ(kinds(LISS_HOT), "FrameRect ");
    EXPECT_EQ(kinds(LISS_SELECTED), "FillRect FrameRect ");
    EXPECT_EQ(kinds(LISS_HOTSELECTED), "FillRect FrameRect ");
    EXPECT_EQ(kinds(LISS_SELECTEDNOTFOCUS), "FillRect ");
}

} // namespace
