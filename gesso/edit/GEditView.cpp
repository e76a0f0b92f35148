// What a GEdit paints, and where points and the caret are in it.

#include <gesso/edit/FieldText.h>
#include <gesso/edit/GEditModern.h>
#include <gesso/edit/LineRows.h>
#include <gesso/edit/TextMeasure.h>
#include <gesso/framework/Colors.h>
#include <gesso/framework/DebugHooks.h>
#include <gesso/framework/Direction.h>
#include <gesso/framework/Frame.h>
#include <gesso/framework/Metrics.h>
#include <gesso/framework/ThemePart.h>

#include <algorithm>

using gesso::Color;
using gesso::ColorOf;
using gesso::Frame;
using gesso::LineRows;
using gesso::PlainPart;
using gesso::Saturated;
using gesso::ThemePart;

namespace {

constexpr int BACKGROUND_NORMAL = 1;
constexpr int BACKGROUND_DISABLED = 3;
constexpr int SCROLL_STEP = 10; // average characters

RECT ClientRect(HWND hwnd)
{
    RECT rc{};
    GetClientRect(hwnd, &rc);
    return rc;
}

// The number of steps that cover a distance.
LONGLONG StepsOver(LONGLONG nDistance, int nStep)
{
    return (nDistance + nStep - 1) / nStep;
}

} // namespace

bool GEdit::HasBorder() const
{
    return (Frame::Style(*this) & WS_BORDER) || (GetWindowLongW(m_hWnd, GWL_EXSTYLE) & WS_EX_CLIENTEDGE);
}

// The client area without its margin: all lines begin at its left edge, the first one at its top.
RECT GEdit::TextRect() const
{
    const RECT rcClient = ClientRect(m_hWnd);
    const LONGLONG nInset = LONGLONG{m_nMargin} + gesso::Pixels(m_hWnd, gesso::Metrics::EDIT_INSET);
    return {Saturated(nInset), Saturated(nInset), Saturated(rcClient.right - nInset),
            Saturated(rcClient.bottom - nInset)};
}

// --- Painting

void GEdit::Draw(HDC hdc)
{
    if (Modern* modern = AsModern()) {
        modern->Draw(hdc, ClientRect(m_hWnd));
        return;
    }
    const bool fDisabled = Frame::Style(*this) & WS_DISABLED;
    RECT rcClient{};
    if (!Frame::DrawParentBackground(*this, hdc, &rcClient)) {
        return;
    }
    const gesso::TransparentScope mode(hdc);
    ThemePart(m_hTheme, hdc, EP_BACKGROUND, fDisabled ? BACKGROUND_DISABLED : BACKGROUND_NORMAL,
              PlainPart::EditBackground)
        .DrawBackground(rcClient);
    POINT ptFormer{};
    OffsetViewportOrgEx(hdc, Saturated(-LONGLONG{GetScrollPos(SB_HORZ)}), 0, &ptFormer);
    {
        const gesso::SelectScope font(hdc, m_hFont);
        const gesso::TextColorScope color(hdc,
                                          ColorOf(fDisabled ? Color::FieldDisabledText : Color::FieldText));
        DrawLines(hdc, rcClient);
    }
    SetViewportOrgEx(hdc, ptFormer.x, ptFormer.y, nullptr);
}

// Lines below the client area are left out. Fixed behaviour: ES_CENTER and ES_RIGHT move no text; a field
// that has such a bit would look different.
void GEdit::DrawLines(HDC hdc, const RECT& rcClient) const
{
    const gesso::TextMeasure measure(hdc, IsMasked());
    const gesso::EditLines& lines = Own().lines;
    const RECT rcText = TextRect();
    const LineRows rows{static_cast<int>(rcText.top), measure.LineHeight()};
    const int nRight = Saturated(LONGLONG{rcText.right} + GetScrollPos(SB_HORZ));
    UINT nOffset = 0;
    for (UINT i = 0; i < m_aLines.GetLength() && rows.nHeight > 0 && rows.TopOf(i) < rcClient.bottom; ++i) {
        const RECT rcLine{rcText.left, rows.TopOf(i), nRight, rows.TopOf(i + 1)};
        gesso::LayoutOverlay::Add(hdc, {rcText.left, rcLine.top, rcText.right, rcLine.bottom});
        int nFrom = 0;
        int nTo = 0;
        CalcHighliteOfLine(nFrom, nTo, i);
        const UINT nLength = lines.LengthWithin(i, nOffset);
        const gesso::TextMeasure::Piece shown = measure.Shown(lines.TextAt(nOffset), nLength);
        gesso::DrawField(hdc, rcLine, shown.psz, shown.nCount,
                         std::min(static_cast<UINT>(nFrom), shown.nCount),
                         std::min(static_cast<UINT>(nTo), shown.nCount));
        nOffset += lines.LengthWithBreak(i, nOffset);
    }
}

int GEdit::FrameState() const
{
    if (Frame::Style(*this) & WS_DISABLED) {
        return EPSN_DISABLED;
    }
    return GetFocus() == m_hWnd ? EPSN_FOCUSED : EPSN_NORMAL;
}

// Both parts take the border's states.
void GEdit::NcDraw(HDC hdc, RECT rc)
{
    const int nState = FrameState();
    ThemePart(m_hTheme, hdc, EP_BACKGROUNDWITHBORDER, nState, PlainPart::EditBackground).DrawBackground(rc);
    ThemePart(m_hTheme, hdc, EP_EDITBORDER_NOSCROLL, nState, PlainPart::EditBorder)
        .In(m_hWnd)
        .DrawBackground(rc);
    DrawScrollBar(hdc, Frame::Style(*this));
}

LRESULT GEdit::OnNcPaint(WPARAM wRegion)
{
    return Frame::OnNcPaint(*this, wRegion);
}

LRESULT GEdit::OnPrintClient(HDC hdc, LPARAM lParam)
{
    return Frame::OnPrintWhole(*this, hdc, lParam);
}

LRESULT GEdit::OnNcCalcSize(BOOL fValidRects, NCCALCSIZE_PARAMS* pParams)
{
    const RECT rcWindow = pParams->rgrc[0];
    RECT& rcClient = pParams->rgrc[0];
    if (HasBorder()) {
        const ThemePart border(m_hTheme, nullptr, EP_EDITBORDER_NOSCROLL, EPSN_NORMAL, PlainPart::EditBorder);
        const int nWidth = (border.BorderSize() + 1) * gesso::Pixels(m_hWnd, gesso::Metrics::THIN_LINE);
        InflateRect(&rcClient, -nWidth, -nWidth);
    }
    NcCalcSizeScroll(&rcWindow, &rcClient);
    rcClient = gesso::ClientAsAsked(m_hWnd, fValidRects, rcWindow, rcClient);
    return 0;
}

LRESULT GEdit::OnNcHitTest(POINTS ptScreen) const
{
    POINT pt{ptScreen.x, ptScreen.y};
    ScreenToClient(m_hWnd, &pt);
    const RECT rc = ClientRect(m_hWnd);
    const bool fInside = pt.x >= 0 && pt.y >= 0 && pt.x <= rc.right && pt.y <= rc.bottom;
    return fInside ? HTCLIENT : HTBORDER;
}

// --- Points and the caret

// A point belongs to the character that it touches, whichever half of it that is. Passwords are hit by their
// true characters.
// Fixed behaviour: hits know of no margin, and follow the vertical position, which lines and caret do not; a
// derived class that has a margin or a vertical range would find other lines at its points.
void GEdit::HitTest(HitTestInfo* pInfo) const
{
    constexpr int TOP = 1;
    const gesso::WindowMeasure measure(m_hWnd, m_hFont, false);
    const LineRows rows{TOP, measure->LineHeight()};
    pInfo->nLine = rows.LineAt(LONGLONG{pInfo->pt.y} + GetScrollPos(SB_VERT), m_aLines.GetLength());
    const int nSlack = gesso::Pixels(m_hWnd, gesso::Metrics::EDIT_HIT_SLACK);
    const gesso::EditLines& lines = Own().lines;
    const UINT nOffset = lines.OffsetOfLine(pInfo->nLine);
    const UINT nLength = lines.LengthWithin(pInfo->nLine, nOffset);
    const LONGLONG nAcross = LONGLONG{pInfo->pt.x} + GetScrollPos(SB_HORZ);
    const LONGLONG nFromLeft =
        gesso::IsMirrored(m_hWnd) ? measure->Extent(lines.TextAt(nOffset), nLength).cx - nAcross : nAcross;
    pInfo->nChar = measure->CountBefore(lines.TextAt(nOffset), nLength, Saturated(nFromLeft + nSlack));
}

// The horizontal scroll position, in steps from the present one, at which the caret's x is to be seen.
int GEdit::PosThatShows(LONGLONG x, const RECT& rcText) const
{
    LONGLONG nPos = GetScrollPos(SB_HORZ);
    const LONGLONG nLeftOut = rcText.left + nPos - x;
    if (nLeftOut <= 0 && x - nPos <= rcText.right) {
        return static_cast<int>(nPos);
    }
    // The step is ten characters of the context's own font.
    const gesso::WindowMeasure measure(m_hWnd, nullptr, false);
    const int nStep = std::max(1, SCROLL_STEP * static_cast<int>(measure.FontMetric().tmAveCharWidth));
    if (nLeftOut > 0) {
        nPos = std::max<LONGLONG>(0, nPos - StepsOver(nLeftOut, nStep) * nStep);
    }
    const LONGLONG nRightOut = x - nPos - rcText.right;
    return Saturated(nRightOut > 0 ? nPos + StepsOver(nRightOut, nStep) * nStep : nPos);
}

// Fixed behaviour: the caret's rows are as high as the text in front of it, without the font's external
// leading, which the lines have; in a font that has some it would stand elsewhere.
void GEdit::UpdateCursorPos()
{
    if (!m_hWnd || AsModern()) {
        return;
    }
    const gesso::EditLines& lines = Own().lines;
    const gesso::Place caret = Field().Caret();
    const UINT nOffset = lines.OffsetOfLine(caret.nLine);
    const UINT nBefore = std::min(caret.nChar, lines.LengthWithin(caret.nLine, nOffset));
    const gesso::WindowMeasure measure(m_hWnd, m_hFont, IsMasked());
    const SIZE extent = measure->Extent(lines.TextAt(nOffset), nBefore);
    const RECT rcText = TextRect();
    const UINT nLength = lines.LengthWithin(caret.nLine, nOffset);
    const LONGLONG nAcross = gesso::IsMirrored(m_hWnd)
                                 ? measure->Extent(lines.TextAt(nOffset), nLength).cx - extent.cx
                                 : extent.cx;
    const LONGLONG x = rcText.left + nAcross;
    const int nPos = PosThatShows(x, rcText);
    if (nPos != GetScrollPos(SB_HORZ)) {
        Invalidate(0);
    }
    // Fixed behaviour: without a range from the host the position stays 0, and only the caret moves; the text
    // would move under a field that has no bar.
    if (m_siH.nMax > m_siH.nMin) {
        SetScrollPos(SB_HORZ, nPos, FALSE);
    }
    // Another window's caret stays where it is.
    if (Own().fCaret) {
        const LineRows rows{static_cast<int>(rcText.top), static_cast<int>(extent.cy)};
        SetCaretPos(Saturated(x - nPos), rows.TopOf(caret.nLine));
    }
}
