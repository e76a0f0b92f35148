#include <gallery/Alignments.h>
#include <gallery/Fonts.h>
#include <gallery/Glyphs.h>
#include <gallery/Pages.h>
#include <gallery/resource.h>

namespace gallery {
namespace {

constexpr SIZE CELL = {122, 38};
constexpr DWORD CENTERED = GS_CENTER | GS_VCENTER;

class LabelsPage : public Page
{
public:
    void Build(Canvas& canvas) override
    {
        canvas.Title(L"Labels", L"GLabel: a text, an icon, a bitmap or an etched line. It takes no focus and "
                                L"reports nothing.");
        const int nText = MakeAlignments(canvas, {LEFT_BLOCK, FIRST_BLOCK});
        const int nThreeWays = MakeImages(canvas, {RIGHT_BLOCK, FIRST_BLOCK});
        MakeTexts(canvas, {LEFT_BLOCK, nText});
        MakeThreeWays(canvas, {RIGHT_BLOCK, nThreeWays});
    }

private:
    static int MakeAlignments(Canvas& canvas, POINT pt)
    {
        Grid grid(canvas, pt, L"Alignment", 3, CELL);
        grid.SetFramed(true);
        for (const Alignment& alignment : ALIGNMENTS) {
            grid.Add<GLabel>(alignment.pszCaption, L"Label", alignment.dwStyle);
        }
        return grid.Bottom();
    }

    static int MakeImages(Canvas& canvas, POINT pt)
    {
        Grid grid(canvas, pt, L"Icons and bitmaps", 3, CELL);
        grid.SetFramed(true);
        const auto icon = [&](LPCWSTR pszCaption, HICON hIcon, DWORD dwStyle) {
            grid.Add<GLabel>(pszCaption, L"", GS_ICON | dwStyle).SetIcon(hIcon);
        };
        const auto bitmap = [&](LPCWSTR pszCaption, HBITMAP hbm, DWORD dwStyle) {
            grid.Add<GLabel>(pszCaption, L"", GS_BITMAP | dwStyle).SetBitmap(hbm);
        };
        icon(L"icon, left, top", IconOf(Glyph::Info, 16), 0);
        icon(L"icon, centre, middle", IconOf(Glyph::Check, 32), GS_CENTER | GS_VCENTER);
        icon(L"icon, right, bottom", IconOf(Glyph::Add, 16), GS_RIGHT | GS_BOTTOM);
        bitmap(L"bitmap, left, top", LandscapeBitmap(50, 38), 0);
        bitmap(L"bitmap, centre, top", LandscapeBitmap(50, 38), GS_CENTER);
        grid.Add<GLabel>(L"empty", L"Hidden", GLS_EMPTY);
        icon(L"icon, disabled", SketchIcon(32), GS_CENTER | WS_DISABLED);
        bitmap(L"bitmap, disabled", SketchBitmap(50, 38), GS_CENTER | WS_DISABLED);
        return grid.Bottom();
    }

    static void MakeTexts(Canvas& canvas, POINT pt)
    {
        Grid grid(canvas, pt, L"Text", 3, CELL);
        grid.SetFramed(true);
        grid.Add<GLabel>(L"wrapped", L"Words go on to the next line", GS_MULTILINE);
        grid.Add<GLabel>(L"inset by one pixel", L"Label", GLS_INSET);
        canvas.SetShade(grid.Add<GLabel>(L"in a colour", L"Label", CENTERED), Shade::Edge);
        grid.Add<GLabel>(L"in a font of the host's", L"Label", CENTERED).SetFont(TitleFont());
        grid.Add<GLabel>(L"with a mnemonic", L"&Save && close", CENTERED);
        grid.Add<GLabel>(L"without a prefix", L"Save & close", CENTERED | GLS_NOPREFIX);
        grid.SetFramed(false);
        grid.Add<GLabel>(L"etched, horizontal", L"", GLS_ETCHEDHORZ);
        grid.Add<GLabel>(L"etched, vertical", L"", GLS_ETCHEDVERT);
    }

    static void MakeThreeWays(Canvas& canvas, POINT pt)
    {
        Grid grid(canvas, pt, L"Made in three ways", 3, CELL);
        grid.SetFramed(true);
        grid.Add<GLabel>(L"GLabel::Create", L"From its class", CENTERED);
        auto* pLabel = static_cast<GLabel*>(CreateControl(GCK_LABEL));
        grid.Add(canvas.Own(std::unique_ptr<GLabel>(pLabel)), L"CreateControl", L"From its kind", CENTERED);
        grid.AddTemplate(L"dialog template", IDD_LABELS);
    }
};

} // namespace

std::unique_ptr<Page> MakeLabelsPage()
{
    return std::make_unique<LabelsPage>();
}

} // namespace gallery
