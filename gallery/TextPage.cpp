#include <gallery/Fonts.h>
#include <gallery/Pages.h>
#include <gallery/PaintBox.h>
#include <gallery/PreparedText.h>
#include <gallery/Scale.h>
#include <gallery/TextSamples.h>
#include <gallery/WrapView.h>

#include <deque>

namespace gallery {
namespace {

constexpr SIZE CELL = {122, 56};
constexpr int VIEW_HEIGHT = 472;

int LineHeight()
{
    return Scaled(18);
}

constexpr LPCWSTR WORDS = L"Some words on as many lines as they need here";

struct TextAlignment
{
    LPCWSTR pszCaption;
    UINT uFormat;
};

constexpr TextAlignment TEXT_ALIGNMENTS[] = {
    {L"left, top", 0},
    {L"DT_CENTER", DT_CENTER},
    {L"DT_RIGHT", DT_RIGHT},
    {L"DT_VCENTER", DT_VCENTER},
    {L"centre, middle", DT_CENTER | DT_VCENTER},
    {L"right, middle", DT_RIGHT | DT_VCENTER},
    {L"DT_BOTTOM", DT_BOTTOM},
    {L"centre, bottom", DT_CENTER | DT_BOTTOM},
    {L"right, bottom", DT_RIGHT | DT_BOTTOM},
};

void FrameMeasure(HDC hdc, const RECT& rc)
{
    const HBRUSH hbr = CreateSolidBrush(ColorOf(Shade::Measure));
    FrameRect(hdc, &rc, hbr);
    DeleteObject(hbr);
}

// A text with a frame around what DT_CALCRECT measures: the right side of one line, or the bottom of several.
void DrawMeasured(HDC hdc, RECT rc, LPCWSTR pszText, UINT uFormat)
{
    RECT rcMeasure = rc;
    CDrawText::DrawText_Prepare(hdc, pszText, -1, &rcMeasure, uFormat | DT_CALCRECT, LineHeight(), nullptr);
    CDrawText::DrawTextW(hdc, pszText, -1, rc, uFormat, LineHeight(), nullptr);
    FrameMeasure(hdc, rcMeasure);
}

class TextPage : public Page
{
public:
    void Build(Canvas& canvas) override
    {
        canvas.Title(L"Text",
                     L"CDrawText: text in any script, prepared once and painted any number of times.");
        MakeWrapView(canvas, {LEFT_BLOCK, FIRST_BLOCK});
        const int nBelow = MakeAlignments(canvas, {RIGHT_BLOCK, FIRST_BLOCK});
        MakeLines(canvas, {RIGHT_BLOCK, nBelow});
    }

    std::vector<Part> Parts() const override { return {m_view->Edge()}; }

private:
    void MakeWrapView(Canvas& canvas, POINT pt)
    {
        Grid grid(canvas, pt, L"Scripts, wrapped at an edge to drag", 1, {BLOCK_WIDTH, VIEW_HEIGHT});
        grid.SetFramed(true);
        m_view = std::make_unique<WrapView>(canvas.Window(),
                                            grid.NextCell(L"boxes show the widths that the lines record"));
    }

    int MakeAlignments(Canvas& canvas, POINT pt)
    {
        Grid grid(canvas, pt, L"Alignment", 3, CELL);
        grid.SetFramed(true);
        for (const TextAlignment& alignment : TEXT_ALIGNMENTS) {
            AddCell(canvas, grid, alignment.pszCaption, [=](HDC hdc, const RECT& rc) {
                CDrawText::DrawTextW(hdc, L"Two\r\nlines", -1, rc, alignment.uFormat, LineHeight(), nullptr);
            });
        }
        return grid.Bottom();
    }

    void MakeLines(Canvas& canvas, POINT pt)
    {
        Grid grid(canvas, pt, L"One line and many, with what DT_CALCRECT measures", 3, CELL);
        grid.SetFramed(true);
        AddCell(canvas, grid, L"one line: the right side",
                [](HDC hdc, const RECT& rc) { DrawMeasured(hdc, rc, L"One line", DT_SINGLELINE); });
        AddCell(canvas, grid, L"many: the bottom",
                [](HDC hdc, const RECT& rc) { DrawMeasured(hdc, rc, L"First\r\nsecond", 0); });
        AddCell(canvas, grid, L"one line, cut", [](HDC hdc, const RECT& rc) {
            CDrawText::DrawTextW(hdc, WORDS, -1, rc, DT_SINGLELINE, LineHeight(), nullptr);
        });
        AddCell(canvas, grid, L"wrapped, in one call", [](HDC hdc, const RECT& rc) {
            CDrawText::DrawTextW(hdc, WORDS, -1, rc, 0, LineHeight(), nullptr);
        });
        AddCell(canvas, grid, L"wrapped, line by line", [](HDC hdc, const RECT& rc) {
            const PreparedText text = PrepareText(hdc, WORDS, rc, 0, LineHeight());
            DrawLineByLine(hdc, rc, *text);
        });
        AddCell(canvas, grid, L"both directions", [](HDC hdc, const RECT& rc) {
            const TextSample hebrew = {nullptr, L"one שתיים three", {L"Segoe UI", L"DejaVu Sans"}};
            const HFONT hFont = MakeSampleFont(hdc, hebrew);
            const HGDIOBJ hFormer = SelectObject(hdc, hFont);
            CDrawText::DrawTextW(hdc, hebrew.pszText, -1, rc, DT_CENTER | DT_VCENTER, LineHeight(), nullptr);
            SelectObject(hdc, hFormer);
            DeleteObject(hFont);
        });
    }

    void AddCell(Canvas& canvas, Grid& grid, LPCWSTR pszCaption, PaintBox::Painter painter)
    {
        m_cells.emplace_back(canvas.Window(), grid.NextCell(pszCaption), std::move(painter));
    }

    std::unique_ptr<WrapView> m_view;
    std::deque<PaintBox> m_cells;
};

} // namespace

std::unique_ptr<Page> MakeTextPage()
{
    return std::make_unique<TextPage>();
}

} // namespace gallery
