#include <gallery/Alignments.h>
#include <gallery/Fonts.h>
#include <gallery/Glyphs.h>
#include <gallery/Pages.h>
#include <gallery/resource.h>

namespace gallery {
namespace {

constexpr SIZE CELL = {122, 38};
constexpr SIZE IMAGE_CELL = {122, 50};
constexpr DWORD CENTERED = GS_CENTER | GS_VCENTER;
constexpr DWORD PLAIN = CENTERED | WS_TABSTOP;

class ButtonsPage : public Page
{
public:
    void Build(Canvas& canvas) override
    {
        canvas.Title(L"Buttons", L"GButton: a text and, if wanted, an image beside it. Each click is one "
                                 L"WM_COMMAND.");
        const int nKinds = MakeAlignments(canvas, {LEFT_BLOCK, FIRST_BLOCK});
        const int nThreeWays = MakeImages(canvas, {RIGHT_BLOCK, FIRST_BLOCK});
        MakeKinds(canvas, {LEFT_BLOCK, nKinds});
        MakeThreeWays(canvas, {RIGHT_BLOCK, nThreeWays});
    }

private:
    static int MakeAlignments(Canvas& canvas, POINT pt)
    {
        Grid grid(canvas, pt, L"Alignment", 3, CELL);
        for (const Alignment& alignment : ALIGNMENTS) {
            grid.Add<GButton>(alignment.pszCaption, L"Button", alignment.dwStyle | WS_TABSTOP);
        }
        return grid.Bottom();
    }

    static int MakeImages(Canvas& canvas, POINT pt)
    {
        Grid grid(canvas, pt, L"Icons and bitmaps", 3, IMAGE_CELL);
        const auto icon = [&](LPCWSTR pszCaption, LPCWSTR pszText, HICON hIcon, DWORD dwStyle) {
            grid.Add<GButton>(pszCaption, pszText, GS_ICON | WS_TABSTOP | dwStyle).SetIcon(hIcon);
        };
        const auto bitmap = [&](LPCWSTR pszCaption, LPCWSTR pszText, HBITMAP hbm, DWORD dwStyle) {
            grid.Add<GButton>(pszCaption, pszText, GS_BITMAP | WS_TABSTOP | dwStyle).SetBitmap(hbm);
        };
        icon(L"icon, left", L"Add", IconOf(Glyph::Add, 16), CENTERED);
        icon(L"icon, right", L"Next", IconOf(Glyph::Add, 16), CENTERED | GBS_IMAGERIGHT);
        icon(L"icon, two lines", L"Add to the selection", IconOf(Glyph::Add, 16), CENTERED | GS_MULTILINE);
        icon(L"icon, top", L"Accept", IconOf(Glyph::Check, 16), CENTERED | GBS_IMAGETOP);
        // The image stands above the text in this place too, so the text is put at the bottom.
        icon(L"icon, bottom", L"Details", IconOf(Glyph::Info, 16), GS_CENTER | GS_BOTTOM | GBS_IMAGEBOTTOM);
        icon(L"icon, disabled", L"Not now", SketchIcon(16), CENTERED | GBS_IMAGETOP | WS_DISABLED);
        bitmap(L"bitmap, left", L"Picture", LandscapeBitmap(28, 20), CENTERED);
        bitmap(L"bitmap, top", L"Landscape", LandscapeBitmap(28, 20), CENTERED | GBS_IMAGETOP);
        bitmap(L"bitmap, disabled", L"Sketch", SketchBitmap(28, 20), CENTERED | GBS_IMAGETOP | WS_DISABLED);
        return grid.Bottom();
    }

    static void MakeKinds(Canvas& canvas, POINT pt)
    {
        Grid grid(canvas, pt, L"Kinds", 3, CELL);
        grid.Add<GButton>(L"plain", L"Plain", PLAIN);
        grid.Add<GButton>(L"default: Enter", L"Default", PLAIN | GBS_DEFAULT);
        grid.Add<GButton>(L"disabled", L"Disabled", PLAIN | WS_DISABLED);
        grid.Add<GButton>(L"with a mnemonic", L"&Apply now", PLAIN);
        grid.Add<GButton>(L"wrapped", L"A text that needs two lines", PLAIN | GS_MULTILINE);
        grid.Add<GButton>(L"in a font of the host's", L"Large", PLAIN).SetFont(TitleFont());
    }

    static void MakeThreeWays(Canvas& canvas, POINT pt)
    {
        Grid grid(canvas, pt, L"Made in three ways", 3, CELL);
        grid.Add<GButton>(L"GButton::Create", L"From its class", PLAIN);
        auto* pButton = static_cast<GButton*>(CreateControl(GCK_BUTTON));
        grid.Add(canvas.Own(std::unique_ptr<GButton>(pButton)), L"CreateControl", L"From its kind", PLAIN);
        grid.AddTemplate(L"dialog template", IDD_BUTTONS);
    }
};

} // namespace

std::unique_ptr<Page> MakeButtonsPage()
{
    return std::make_unique<ButtonsPage>();
}

} // namespace gallery
