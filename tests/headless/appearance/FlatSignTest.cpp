// The signs in parts that the library draws by itself, at more dots an inch.

#include "../controls/DrawFixture.h"
#include "Picture.h"
#include "Schemes.h"

#include <gesso/framework/ThemePart.h>

namespace {

using namespace test;
using gesso::PlainPart;
using gesso::ThemePart;

struct Sign
{
    PlainPart plain;
    int nPart, nState;
    int nSide; // of its place at 96
};

constexpr Sign SIGNS[] = {
    {PlainPart::CommandLinkGlyph, BP_COMMANDLINKGLYPH, CMDLGS_NORMAL, 30},
    {PlainPart::DropDownButton, CP_DROPDOWNBUTTONRIGHT, CBXSR_NORMAL, 32},
    {PlainPart::TreeGlyph, TVP_GLYPH, GLPS_CLOSED, 40},
    {PlainPart::SortArrow, HP_HEADERSORTARROW, HSAS_SORTEDUP, 12},
};

class FlatSignTest : public DrawFixture
{
protected:
    ~FlatSignTest() override
    {
        gesso::SetScaling(gesso::Scaling::None);
        gesso::SetColorScheme(gesso::ColorScheme::Light);
    }

    // Of what is drawn in a part's place.
    int WidthOf(const Sign& sign, int nTimes) const
    {
        desk::SetWindowDpi(Parent(), 96 * nTimes);
        const int nSide = sign.nSide * nTimes;
        const HDC hdc = GetDC(Parent());
        desk::ClearDrawing(Parent());
        ThemePart(nullptr, hdc, sign.nPart, sign.nState, sign.plain)
            .In(Parent())
            .DrawBackground({0, 0, nSide, nSide});
        ReleaseDC(Parent(), hdc);
        const Picture picture({nSide, nSide}, desk::Drawing(Parent()));
        int nFirst = nSide, nLast = -1;
        for (int x = 0; x < nSide; ++x) {
            for (int y = 0; y < nSide; ++y) {
                if (picture.At(x, y) != UNPAINTED) {
                    nFirst = std::min(nFirst, x);
                    nLast = x;
                }
            }
        }
        return nLast - nFirst + 1;
    }
};

} // namespace

TEST_F(FlatSignTest, TheyGrowWithTheirPlaces)
{
    GLabel label; // who listens to the system goes with the last of the library's windows
    label.Create(0, 0, 10, 10, Parent(), 1, L"", 0, WS_CHILD);
    gesso::SetColorScheme(gesso::ColorScheme::Dark);
    gesso::SetScaling(gesso::Scaling::PerMonitor);
    for (const Sign& sign : SIGNS) {
        const int nAtBase = WidthOf(sign, 1);
        EXPECT_GT(nAtBase, 3) << static_cast<int>(sign.plain);
        for (const int nTimes : {2, 3}) {
            EXPECT_NEAR(WidthOf(sign, nTimes), nTimes * nAtBase, 2 * nTimes) << static_cast<int>(sign.plain);
        }
    }
    label.Destroy();
}
