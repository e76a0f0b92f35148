#include <gallery/Canvas.h>
#include <gallery/Fonts.h>
#include <gallery/Report.h>
#include <gallery/Scale.h>

#include <algorithm>

namespace gallery {
namespace {

constexpr int CONTENT_WIDTH = 804;

// The template's controls report to their dialog, which hands everything on to the page.
INT_PTR CALLBACK ForwardToPage(HWND hwnd, UINT uMsg, WPARAM wParam, LPARAM lParam)
{
    switch (uMsg) {
    case WM_CTLCOLORDLG: return reinterpret_cast<INT_PTR>(PageBrush());
    case WM_COMMAND:
    case WM_NOTIFY: SendMessageW(GetParent(hwnd), uMsg, wParam, lParam); return TRUE;
    default: return FALSE;
    }
}

// As the page counts.
RECT PlaceOf(HWND hwnd)
{
    RECT rc{};
    GetWindowRect(hwnd, &rc);
    MapWindowPoints(nullptr, GetParent(hwnd), reinterpret_cast<POINT*>(&rc), 2);
    return {Unscaled(rc.left), Unscaled(rc.top), Unscaled(rc.right), Unscaled(rc.bottom)};
}

template <class VISIT> void ForEachChild(HWND hwndParent, const VISIT& visit)
{
    for (HWND hwnd = GetWindow(hwndParent, GW_CHILD); hwnd; hwnd = GetWindow(hwnd, GW_HWNDNEXT)) {
        visit(hwnd, PlaceOf(hwnd));
    }
}

} // namespace

GLabel& Canvas::Text(const RECT& rc, LPCWSTR pszText, HFONT hFont, Shade shade, DWORD dwStyle)
{
    GLabel& label = Own(std::make_unique<GLabel>());
    label.Create(rc.left, rc.top, rc.right - rc.left, rc.bottom - rc.top, m_hwnd, 0, pszText, 0,
                 WS_CHILD | WS_VISIBLE | dwStyle);
    label.SetFont(hFont);
    if (shade != Shade::Text) {
        SetShade(label, shade);
    }
    return label;
}

void Canvas::SetShade(GLabel& label, Shade shade)
{
    label.SetTextColor(ColorOf(shade));
    m_shaded.emplace_back(&label, shade);
}

void Canvas::Finish()
{
    ScaleChildren(m_hwnd);
    TellDots(m_hwnd);
    m_fFinished = true;
}

void Canvas::Recolor()
{
    for (const auto& [pLabel, shade] : m_shaded) {
        pLabel->SetTextColor(ColorOf(shade));
    }
}

void Canvas::Place(GWnd& control, int x, int y, int cx, int cy) const
{
    const POINT ptShift = m_fStacked && x >= RIGHT_BLOCK ? m_ptStack : POINT{};
    RECT rc{x + ptShift.x, y + ptShift.y, x + ptShift.x + cx, y + ptShift.y + cy};
    rc = m_fFinished ? Scaled(rc) : rc;
    control.MoveWindow(rc.left - GetScrollPos(m_hwnd, SB_HORZ), rc.top - GetScrollPos(m_hwnd, SB_VERT),
                       rc.right - rc.left, rc.bottom - rc.top);
}

// By where it stands now; a frame is a pixel outside of its control.
bool Canvas::IsRight(const RECT& rc) const
{
    return m_fStacked ? rc.top >= FIRST_BLOCK + m_ptStack.y - 1 : rc.left >= RIGHT_BLOCK - 1;
}

LONG Canvas::LeftBottom() const
{
    LONG nBottom = 0;
    ForEachChild(m_hwnd, [&](HWND, const RECT& rc) {
        nBottom = IsRight(rc) ? nBottom : std::max(nBottom, rc.bottom);
    });
    return nBottom;
}

void Canvas::Stack(bool fStacked)
{
    if (fStacked == m_fStacked) {
        return;
    }
    if (fStacked) {
        m_ptStack = {LEFT_BLOCK - RIGHT_BLOCK, LeftBottom() + MARGIN - FIRST_BLOCK};
    }
    const POINT ptMove = fStacked ? m_ptStack : POINT{-m_ptStack.x, -m_ptStack.y};
    ForEachChild(m_hwnd, [&](HWND hwnd, const RECT& rc) {
        if (IsRight(rc)) {
            SetWindowPos(hwnd, nullptr, Scaled(rc.left + ptMove.x), Scaled(rc.top + ptMove.y), 0, 0,
                         SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
        }
    });
    for (RECT& rc : m_frames) {
        if (IsRight(rc)) {
            OffsetRect(&rc, ptMove.x, ptMove.y);
        }
    }
    m_fStacked = fStacked;
}

SIZE Canvas::Extent() const
{
    SIZE size{};
    ForEachChild(m_hwnd, [&](HWND, const RECT& rc) {
        size = {std::max(size.cx, rc.right), std::max(size.cy, rc.bottom)};
    });
    return size;
}

void Canvas::Title(LPCWSTR pszTitle, LPCWSTR pszAbout)
{
    Text({MARGIN, 14, MARGIN + CONTENT_WIDTH, 46}, pszTitle, TitleFont(), Shade::Text);
    Text({MARGIN, 48, MARGIN + CONTENT_WIDTH, 68}, pszAbout, g_hDefaultFont, Shade::Caption);
}

void Canvas::PaintFrames(HDC hdc) const
{
    const HBRUSH hbrFrame = CreateSolidBrush(ColorOf(Shade::Frame));
    for (const RECT& rcFrame : m_frames) {
        const RECT rc = Scaled(rcFrame);
        FrameRect(hdc, &rc, hbrFrame);
    }
    DeleteObject(hbrFrame);
}

Grid::Grid(Canvas& canvas, POINT ptOrigin, LPCWSTR pszHeading, int nColumns, SIZE cell)
    : m_canvas(canvas), m_ptOrigin(ptOrigin), m_nColumns(nColumns), m_cell(cell)
{
    const LONG cx = nColumns * (cell.cx + GAP) - GAP;
    canvas.Text({ptOrigin.x, ptOrigin.y, ptOrigin.x + cx, ptOrigin.y + HEADING_HEIGHT}, pszHeading,
                HeadingFont(), Shade::Text);
}

RECT Grid::NextCell(LPCWSTR pszCaption)
{
    const int nColumn = m_nCells % m_nColumns;
    const int nRow = m_nCells / m_nColumns;
    m_nCells++;
    const LONG x = m_ptOrigin.x + nColumn * (m_cell.cx + GAP);
    const LONG y = m_ptOrigin.y + HEADING_HEIGHT + nRow * (m_cell.cy + CAPTION_HEIGHT + GAP);
    const RECT rc{x, y, x + m_cell.cx, y + m_cell.cy};
    if (m_fFramed) {
        m_canvas.Frame({rc.left - 1, rc.top - 1, rc.right + 1, rc.bottom + 1});
    }
    m_pCaption = &m_canvas.Text({x, rc.bottom + 3, rc.right, rc.bottom + 3 + CAPTION_HEIGHT}, pszCaption,
                                CaptionFont(), Shade::Caption, GS_CENTER | GLS_NOPREFIX);
    return rc;
}

HWND Grid::AddTemplate(LPCWSTR pszCaption, int nTemplate)
{
    const RECT rc = NextCell(pszCaption);
    const HWND hwnd = CreateDialogParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(nTemplate),
                                         m_canvas.Window(), &ForwardToPage, 0);
    const HWND hwndControl = GetWindow(hwnd, GW_CHILD);
    // The platform made the template's font for the first screen's dots, and not for this window's. A command
    // link has the style's.
    if (gesso::GetScaling() != gesso::Scaling::None && ClassOf(hwndControl) != L"GCommandButton") {
        SendMessageW(hwndControl, WM_SETFONT, reinterpret_cast<WPARAM>(g_hDefaultFont), FALSE);
    }
    const int cx = rc.right - rc.left;
    const int cy = rc.bottom - rc.top;
    SetWindowPos(hwnd, nullptr, rc.left, rc.top, cx, cy, SWP_NOZORDER | SWP_NOACTIVATE);
    SetWindowPos(hwndControl, nullptr, 0, 0, cx, cy, SWP_NOZORDER | SWP_NOACTIVATE);
    return hwndControl;
}

int Grid::Bottom() const
{
    const int nRows = (m_nCells + m_nColumns - 1) / m_nColumns;
    return m_ptOrigin.y + HEADING_HEIGHT + nRows * (m_cell.cy + CAPTION_HEIGHT + GAP) + GAP;
}

} // namespace gallery
