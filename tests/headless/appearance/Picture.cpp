#include "Picture.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace test {
namespace {

double Linear(int n)
{
    const double c = n / 255.0;
    return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
}

double Luminance(COLORREF cr)
{
    return 0.2126 * Linear(GetRValue(cr)) + 0.7152 * Linear(GetGValue(cr)) + 0.0722 * Linear(GetBValue(cr));
}

COLORREF ShadeOf(const std::string& text, size_t nAt)
{
    unsigned r = 0, g = 0, b = 0;
    return sscanf(text.c_str() + nAt, "%2x%2x%2x", &r, &g, &b) == 3 ? RGB(r, g, b) : UNPAINTED;
}

// Of a fill: "brush=RRGGBB", or "brush=sys5 RRGGBB".
COLORREF BrushOf(const std::string& line)
{
    const size_t nAt = line.find("brush=");
    if (nAt == std::string::npos) {
        return UNPAINTED;
    }
    const bool fSystem = line.compare(nAt + 6, 3, "sys") == 0;
    return ShadeOf(line, fSystem ? line.find(' ', nAt) + 1 : nAt + 6);
}

// What stands behind the quoted text, in which brackets may be.
std::string BehindText(const std::string& line)
{
    const size_t nFirst = line.find('"');
    size_t nEnd = nFirst + 1;
    while (nEnd < line.size() && line[nEnd] != '"') {
        nEnd += line[nEnd] == '\\' ? 2 : 1;
    }
    return nFirst == std::string::npos ? line : line.substr(std::min(nEnd + 1, line.size()));
}

bool ReadRect(const std::string& text, size_t nAt, RECT* prc)
{
    return nAt != std::string::npos &&
           sscanf(text.c_str() + nAt, "(%d,%d,%d,%d)", &prc->left, &prc->top, &prc->right, &prc->bottom) == 4;
}

// What of a rectangle shows: moved by the context's origin, and within each rectangle of its clipping.
std::vector<RECT> Shown(RECT rc, const std::string& line, POINT pt)
{
    const size_t nAt = line.find("origin=(");
    int dx = 0, dy = 0;
    if (nAt != std::string::npos) {
        sscanf(line.c_str() + nAt, "origin=(%d,%d)", &dx, &dy);
    }
    OffsetRect(&rc, pt.x + dx, pt.y + dy);
    const size_t nClip = line.find("clip=(");
    if (nClip == std::string::npos) {
        return {rc};
    }
    std::vector<RECT> shown;
    RECT rcClip{};
    for (size_t n = nClip + 5; n < line.size() && line[n] == '(' && ReadRect(line, n, &rcClip);
         n = line.find(')', n) + 1)
    {
        OffsetRect(&rcClip, pt.x, pt.y);
        RECT rcPart{};
        if (IntersectRect(&rcPart, &rc, &rcClip)) {
            shown.push_back(rcPart);
        }
    }
    return shown;
}

// Of a text's rectangle what the text takes, where it begins at the left: the simulated desktop's letters are
// half as wide as high.
RECT Taken(const std::string& line, RECT rc)
{
    const size_t nFirst = line.find('"');
    const std::string behind = BehindText(line);
    const size_t nFont = behind.find("font=\"");
    const size_t nSize = nFont == std::string::npos ? nFont : behind.find('"', nFont + 6);
    int nEm = 0;
    UINT uFormat = 0;
    const size_t nFormat = behind.find("0x");
    if (nSize == std::string::npos || sscanf(behind.c_str() + nSize, "\" %d", &nEm) != 1 ||
        nFormat == std::string::npos || sscanf(behind.c_str() + nFormat, "%x", &uFormat) != 1)
    {
        return rc;
    }
    const auto nLength = static_cast<int>(line.size() - behind.size() - nFirst - 2);
    if (!(uFormat & (DT_CENTER | DT_RIGHT))) {
        rc.right = std::min<LONG>(rc.right, rc.left + std::max(nLength * nEm / 2, 1));
    }
    if (!(uFormat & (DT_VCENTER | DT_BOTTOM))) {
        rc.bottom = std::min<LONG>(rc.bottom, rc.top + nEm * 5 / 4);
    }
    return rc;
}

// What is copied from the cache is drawn as it is the first time: the record does not tell its pixels.
void PaintUncached(HWND hwnd)
{
    constexpr int ALWAYS = 1'000'000;
    desk::Fail("GetGraphicsMode", ALWAYS); // only the cache asks for it
    RedrawWindow(hwnd, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME | RDW_ERASE);
    desk::Pump();
    desk::ClearFaults();
}

bool IsText(const std::string& line)
{
    return line.starts_with("DrawTextW") || line.starts_with("DrawThemeText") ||
           line.starts_with("ScriptTextOut") || line.starts_with("TextOutW");
}

} // namespace

double Contrast(COLORREF a, COLORREF b)
{
    const double dark = std::min(Luminance(a), Luminance(b));
    const double light = std::max(Luminance(a), Luminance(b));
    return (light + 0.05) / (dark + 0.05);
}

Picture::Picture(HWND hwnd)
{
    desk::Pump();
    RECT rcWindow{}, rcClient{};
    GetWindowRect(hwnd, &rcWindow);
    GetClientRect(hwnd, &rcClient);
    POINT ptClient{};
    ClientToScreen(hwnd, &ptClient);
    m_size = {rcWindow.right - rcWindow.left, rcWindow.bottom - rcWindow.top};
    m_pixels.assign(static_cast<size_t>(m_size.cx) * static_cast<size_t>(m_size.cy), UNPAINTED);
    desk::ClearDrawing(hwnd);
    PaintUncached(hwnd);
    // What is drawn off the screen stands before the copy that shows it, which tells whether it was the
    // frame.
    Lines pending;
    for (const std::string& line : desk::Drawing(hwnd)) {
        pending.push_back(line);
        if (line.starts_with("BitBlt (0,0,")) {
            const bool fFrame = line.ends_with("nonclient");
            Replay(pending, fFrame ? POINT{} : POINT{ptClient.x - rcWindow.left, ptClient.y - rcWindow.top});
            pending.clear();
        }
    }
}

Picture::Picture(SIZE size, const Lines& lines)
    : m_size(size), m_pixels(static_cast<size_t>(size.cx) * static_cast<size_t>(size.cy), UNPAINTED)
{
    Replay(lines, {});
}

COLORREF Picture::At(int x, int y) const
{
    const bool fInside = x >= 0 && y >= 0 && x < m_size.cx && y < m_size.cy;
    return fInside
               ? m_pixels[static_cast<size_t>(y) * static_cast<size_t>(m_size.cx) + static_cast<size_t>(x)]
               : UNPAINTED;
}

std::map<COLORREF, int> Picture::Shades(const RECT& rc) const
{
    std::map<COLORREF, int> shades;
    for (int y = std::max<int>(rc.top, 0); y < std::min<int>(rc.bottom, m_size.cy); ++y) {
        for (int x = std::max<int>(rc.left, 0); x < std::min<int>(rc.right, m_size.cx); ++x) {
            ++shades[At(x, y)];
        }
    }
    return shades;
}

void Picture::Replay(const Lines& lines, POINT ptOrigin)
{
    for (const std::string& line : lines) {
        if (line.starts_with("FillRect")) {
            Fill(line, ptOrigin);
        } else if (line.starts_with("LineTo")) {
            DrawLine(line, ptOrigin);
        } else if (IsText(line)) {
            Write(line, ptOrigin);
        }
    }
}

void Picture::Fill(const std::string& line, POINT ptOrigin)
{
    RECT rc{};
    if (!ReadRect(line, line.find('('), &rc)) {
        return;
    }
    for (const RECT& rcPart : Shown(rc, line, ptOrigin)) {
        FillPart(rcPart, BrushOf(line));
    }
}

void Picture::FillPart(const RECT& rc, COLORREF cr)
{
    for (int y = std::max<int>(rc.top, 0); y < std::min<int>(rc.bottom, m_size.cy); ++y) {
        for (int x = std::max<int>(rc.left, 0); x < std::min<int>(rc.right, m_size.cx); ++x) {
            m_pixels[static_cast<size_t>(y) * static_cast<size_t>(m_size.cx) + static_cast<size_t>(x)] = cr;
        }
    }
}

// Across or down, in a pen of one pixel.
void Picture::DrawLine(const std::string& line, POINT ptOrigin)
{
    RECT rc{};
    const size_t nPen = line.find("pen=solid 1 ");
    if (nPen == std::string::npos ||
        sscanf(line.c_str(), "LineTo (%d,%d) (%d,%d)", &rc.left, &rc.top, &rc.right, &rc.bottom) != 4)
    {
        return;
    }
    const RECT rcSorted{std::min(rc.left, rc.right), std::min(rc.top, rc.bottom),
                        std::max({rc.left + 1, rc.right, rc.left}),
                        std::max({rc.top + 1, rc.bottom, rc.top})};
    char text[96];
    snprintf(text, sizeof(text), "FillRect (%d,%d,%d,%d) brush=%s", rcSorted.left, rcSorted.top,
             rcSorted.right, rcSorted.bottom, line.substr(nPen + 12, 6).c_str());
    const size_t nState = line.find(" origin=");
    Fill(text + (nState == std::string::npos ? "" : line.substr(nState)), ptOrigin);
}

// A text that is drawn at a point stands on what is below its first line.
void Picture::Write(const std::string& line, POINT ptOrigin)
{
    constexpr int LINE_HEIGHT = 10, SOME_WIDTH = 12;
    const std::string behind = BehindText(line);
    const size_t nColor = behind.find("color=");
    RECT rc{};
    if (!ReadRect(behind, behind.find('('), &rc)) {
        if (sscanf(behind.c_str(), " (%d,%d)", &rc.left, &rc.top) != 2) {
            return;
        }
        rc.right = rc.left + SOME_WIDTH;
        rc.bottom = rc.top + LINE_HEIGHT;
    }
    std::map<COLORREF, int> shades;
    for (const RECT& rcPart : Shown(Taken(line, rc), line, ptOrigin)) {
        for (const auto& [cr, nPixels] : Shades(rcPart)) {
            shades[cr] += nPixels;
        }
    }
    if (nColor != std::string::npos && !shades.empty()) {
        m_texts.push_back({line, ShadeOf(behind, nColor + 6), shades});
    }
}

} // namespace test
