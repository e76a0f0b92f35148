#include <gallery/Canvas.h>
#include <gallery/Fonts.h>
#include <gallery/Scale.h>
#include <gallery/WrapView.h>

#include <algorithm>
#include <cstdlib>

namespace gallery {
namespace {

constexpr int PADDING = 8;
constexpr int TEXT_LEFT = 78;
constexpr int LINE_HEIGHT = 21;
constexpr int PARAGRAPH_GAP = 8;
constexpr int FIRST_WIDTH = 250;
constexpr int LEAST_WIDTH = 30;
constexpr int EDGE_REACH = 6; // how near to the edge the pointer takes hold of it

} // namespace

WrapView::WrapView(HWND hwndParent, const RECT& rc) : PaintBox(hwndParent, rc)
{
    const HDC hdc = GetDC(Window());
    for (const TextSample& sample : TextSamples()) {
        m_paragraphs.push_back({sample.pszScript, sample.pszText, MakeSampleFont(hdc, sample), nullptr});
    }
    ReleaseDC(Window(), hdc);
    SetWidth(Scaled(FIRST_WIDTH));
}

WrapView::~WrapView()
{
    for (const Paragraph& paragraph : m_paragraphs) {
        DeleteObject(paragraph.hFont);
    }
}

// All texts are prepared anew for each width, however fast the edge is dragged.
void WrapView::SetWidth(int cx)
{
    cx = std::clamp<int>(cx, Scaled(LEAST_WIDTH), Size().cx - Scaled(TEXT_LEFT) - Scaled(PADDING));
    if (cx == m_cx) {
        return;
    }
    m_cx = cx;
    const HDC hdc = GetDC(Window());
    for (Paragraph& paragraph : m_paragraphs) {
        const HGDIOBJ hFormer = SelectObject(hdc, paragraph.hFont);
        paragraph.text = PrepareText(hdc, paragraph.pszText, {0, 0, cx, 1}, 0, Scaled(LINE_HEIGHT));
        SelectObject(hdc, hFormer);
    }
    ReleaseDC(Window(), hdc);
    InvalidateRect(Window(), nullptr, FALSE);
}

int WrapView::EdgeX() const
{
    return Scaled(TEXT_LEFT) + m_cx;
}

Part WrapView::Edge() const
{
    UINT nLines = 0;
    for (const Paragraph& paragraph : m_paragraphs) {
        nLines += paragraph.text ? paragraph.text->nBreaks + 1 : 0;
    }
    RECT rc{EdgeX(), 0, EdgeX() + 1, Size().cy};
    MapWindowPoints(Window(), nullptr, reinterpret_cast<POINT*>(&rc), 2);
    return {L"edge", nLines, L"", rc};
}

bool WrapView::IsOnEdge(int x) const
{
    return std::abs(x - EdgeX()) <= EDGE_REACH;
}

void WrapView::Draw(HDC hdc, const RECT& rc)
{
    int y = Scaled(PADDING);
    for (Paragraph& paragraph : m_paragraphs) {
        y += DrawParagraph(hdc, y, paragraph) + Scaled(PARAGRAPH_GAP);
    }
    DrawEdge(hdc, rc.bottom);
}

// Returns the paragraph's height.
int WrapView::DrawParagraph(HDC hdc, int y, Paragraph& paragraph) const
{
    SelectObject(hdc, CaptionFont());
    SetTextColor(hdc, ColorOf(Shade::Caption));
    CDrawText::DrawTextW(hdc, paragraph.pszScript, -1,
                         {Scaled(PADDING), y + 3, Scaled(TEXT_LEFT), y + Scaled(LINE_HEIGHT)}, DT_SINGLELINE,
                         Scaled(LINE_HEIGHT), nullptr);
    if (!paragraph.text) {
        return Scaled(LINE_HEIGHT);
    }
    const RECT rc = {Scaled(TEXT_LEFT), y, EdgeX(), y + Scaled(LINE_HEIGHT)};
    SelectObject(hdc, paragraph.hFont);
    SetTextColor(hdc, ColorOf(Shade::Text));
    DrawLineBoxes(hdc, rc, *paragraph.text);
    DrawLineByLine(hdc, rc, *paragraph.text);
    return std::max(static_cast<int>(paragraph.text->nBreaks + 1) * Scaled(LINE_HEIGHT),
                    paragraph.text->nFontHeight);
}

void WrapView::DrawEdge(HDC hdc, int cy) const
{
    const HBRUSH hbr = CreateSolidBrush(ColorOf(Shade::Edge));
    const RECT rcLine = {EdgeX(), 0, EdgeX() + 1, cy};
    const RECT rcGrip = {EdgeX() - 2, cy / 2 - 14, EdgeX() + 3, cy / 2 + 14};
    FillRect(hdc, &rcLine, hbr);
    FillRect(hdc, &rcGrip, hbr);
    DeleteObject(hbr);
}

LRESULT WrapView::OnMessage(UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    const int x = GET_X_LPARAM(lParam);
    switch (uMsg) {
    case WM_LBUTTONDOWN:
        if (IsOnEdge(x)) {
            m_fDragging = true;
            m_nGrip = x - EdgeX();
            SetCapture(Window());
        }
        return 0;
    case WM_MOUSEMOVE:
        if (m_fDragging) {
            SetWidth(x - m_nGrip - Scaled(TEXT_LEFT));
        }
        if (m_fDragging || IsOnEdge(x)) {
            SetCursor(LoadCursorW(nullptr, IDC_SIZEWE));
        }
        return 0;
    case WM_LBUTTONUP: ReleaseCapture(); return 0;
    case WM_CAPTURECHANGED: m_fDragging = false; return 0;
    case WM_SIZE:
        SetWidth(Scaled(FIRST_WIDTH));
        return 0; // it is made for 96 dots, and brought to the page's
    default: return PaintBox::OnMessage(uMsg, wParam, lParam);
    }
}

} // namespace gallery
