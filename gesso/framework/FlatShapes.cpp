#include <gesso/framework/FlatShapes.h>
#include <gesso/framework/PictureCache.h>
#include <gesso/framework/Saturate.h>

#include <algorithm>

namespace gesso {
namespace {

// A pixel is looked at in so many places each way.
constexpr int SAMPLES = 4;
// Distances are counted in these parts of a pixel, so that the middles of the places are whole.
constexpr int UNITS = 2 * SAMPLES;

int64_t Square(int64_t n)
{
    return n * n;
}

// A box with round corners, from 0, 0, in units.
struct RoundBox
{
    int64_t cx, cy, nRadius;

    bool Has(int64_t x, int64_t y, int64_t nInset) const
    {
        if (x < nInset || y < nInset || x > cx - nInset || y > cy - nInset) {
            return false;
        }
        const int64_t dx = std::max({nRadius - x, x - (cx - nRadius), int64_t{0}});
        const int64_t dy = std::max({nRadius - y, y - (cy - nRadius), int64_t{0}});
        return dx == 0 || dy == 0 ||
               Square(dx) + Square(dy) <= Square(std::max<int64_t>(nRadius - nInset, 0));
    }
};

// How many places of a pixel are in the box, and how many within its edge.
struct Coverage
{
    int nBox = 0;
    int nFace = 0;
};

constexpr int ALL = SAMPLES * SAMPLES;

Coverage CoverageAt(const RoundBox& box, int nEdge, int x, int y)
{
    Coverage coverage;
    for (int j = 0; j < SAMPLES; ++j) {
        for (int i = 0; i < SAMPLES; ++i) {
            const int64_t xAt = int64_t{x} * UNITS + 2 * i + 1;
            const int64_t yAt = int64_t{y} * UNITS + 2 * j + 1;
            coverage.nBox += box.Has(xAt, yAt, 0);
            coverage.nFace += box.Has(xAt, yAt, int64_t{nEdge} * UNITS);
        }
    }
    return coverage;
}

// Whether all places of a pixel are within the edge: where those at its corners are, all between them are.
bool IsFace(const RoundBox& box, int nEdge, int x, int y)
{
    const int64_t nInset = int64_t{nEdge} * UNITS;
    const int64_t xFirst = int64_t{x} * UNITS + 1, xLast = xFirst + UNITS - 2;
    const int64_t yFirst = int64_t{y} * UNITS + 1, yLast = yFirst + UNITS - 2;
    return box.Has(xFirst, yFirst, nInset) && box.Has(xLast, yFirst, nInset) &&
           box.Has(xFirst, yLast, nInset) && box.Has(xLast, yLast, nInset);
}

// The pixels of a row, from one to another, that are all face: they lie at one end of a corner.
struct FaceRun
{
    FaceRun(const RoundBox& box, int nEdge, int y, int xFrom, int xTo) : xFirst(xFrom), xEnd(xTo)
    {
        const auto isFace = [&](int x) { return IsFace(box, nEdge, x, y); };
        const bool fAtStart = xFrom < xTo && isFace(xFrom);
        if (!fAtStart && (xFrom >= xTo || !isFace(xTo - 1))) {
            xEnd = xFirst;
            return;
        }
        int xLow = xFrom, xHigh = xTo;
        while (xLow < xHigh) {
            const int xMiddle = xLow + (xHigh - xLow) / 2;
            if (isFace(xMiddle) == fAtStart) {
                xLow = xMiddle + 1;
            } else {
                xHigh = xMiddle;
            }
        }
        (fAtStart ? xEnd : xFirst) = xLow;
    }
    bool Has(int x) const { return x >= xFirst && x < xEnd; }

    int xFirst;
    int xEnd;
};

BYTE Mix(BYTE around, BYTE edge, BYTE face, const Coverage& coverage)
{
    const int nSum =
        around * (ALL - coverage.nBox) + edge * (coverage.nBox - coverage.nFace) + face * coverage.nFace;
    return static_cast<BYTE>((nSum + ALL / 2) / ALL);
}

// What is around a box, by its corners.
struct Grounds
{
    COLORREF crLeftTop, crRightTop, crLeftBottom, crRightBottom;
};

COLORREF GroundAt(HDC hdc, LONG x, LONG y)
{
    const COLORREF cr = GetPixel(hdc, x, y);
    return cr == CLR_INVALID ? ColorOf(ColorRole::Panel) : cr;
}

// What a pixel at the rim is filled with; CLR_INVALID for nothing.
class Rim
{
public:
    // Of one corner; null where shades are not to be mixed.
    Rim(const BoxLook& look, const COLORREF* pcrAround) : m_look(look), m_pcrAround(pcrAround) {}

    COLORREF ColorOf(const Coverage& coverage) const
    {
        if (!m_pcrAround) { // one or the other
            return coverage.nFace * 2 >= ALL  ? m_look.crFace
                   : coverage.nBox * 2 >= ALL ? m_look.crEdge
                                              : CLR_INVALID;
        }
        if (coverage.nBox == 0) {
            return CLR_INVALID;
        }
        const COLORREF a = *m_pcrAround, e = m_look.crEdge, f = m_look.crFace;
        return RGB(Mix(GetRValue(a), GetRValue(e), GetRValue(f), coverage),
                   Mix(GetGValue(a), GetGValue(e), GetGValue(f), coverage),
                   Mix(GetBValue(a), GetBValue(e), GetBValue(f), coverage));
    }

private:
    const BoxLook& m_look;
    const COLORREF* m_pcrAround;
};

// The pixels of a row from one to another, as few rectangles as they have shades.
void DrawRimPixels(HDC hdc, const RECT& rc, const RoundBox& box, int nEdge, const Rim& rim, POINT from,
                   int xTo)
{
    const FaceRun face(box, nEdge, from.y, from.x, xTo);
    const auto coverage = [&](int x) {
        return face.Has(x) ? Coverage{ALL, ALL} : CoverageAt(box, nEdge, x, from.y);
    };
    int xStart = from.x;
    COLORREF crRun = CLR_INVALID;
    for (int x = from.x; x <= xTo; ++x) {
        const COLORREF cr = x < xTo ? rim.ColorOf(coverage(x)) : CLR_INVALID;
        if (cr == crRun && x < xTo) {
            continue;
        }
        if (crRun != CLR_INVALID) {
            FillColor(hdc, {rc.left + xStart, rc.top + from.y, rc.left + x, rc.top + from.y + 1}, crRun);
        }
        xStart = x;
        crRun = cr;
    }
}

void DrawBox(HDC hdc, const RECT& rc, const BoxLook& look, int nRadius2, const Grounds* pGrounds)
{
    const int cx = rc.right - rc.left, cy = rc.bottom - rc.top;
    if (cx <= 0 || cy <= 0) {
        return;
    }
    // The corners, of which two may share their middle row or column, and what lies between them.
    constexpr int MOST_RADIUS = 256; // what is larger is not worth its pixels
    const int nRadius = std::min({nRadius2, cx, cy, MOST_RADIUS});
    const int nCorner = (nRadius + 1) / 2;
    const RoundBox box{int64_t{cx} * UNITS, int64_t{cy} * UNITS, int64_t{nRadius} * UNITS / 2};
    const int xRight = std::max(cx - nCorner, nCorner);
    const int yBottom = std::max(cy - nCorner, nCorner);
    for (int y = 0; y < cy; y = y + 1 == nCorner ? std::max(yBottom, y + 1) : y + 1) {
        const bool fTop = y < nCorner;
        const COLORREF* pcrLeft = !pGrounds ? nullptr : fTop ? &pGrounds->crLeftTop : &pGrounds->crLeftBottom;
        const COLORREF* pcrRight = !pGrounds ? nullptr
                                   : fTop    ? &pGrounds->crRightTop
                                             : &pGrounds->crRightBottom;
        DrawRimPixels(hdc, rc, box, look.nEdge, Rim(look, pcrLeft), {0, y}, nCorner);
        DrawRimPixels(hdc, rc, box, look.nEdge, Rim(look, pcrRight), {xRight, y}, cx);
    }
    const RECT rcDown{rc.left + nCorner, rc.top, rc.left + xRight, rc.bottom};
    FillColor(hdc, {rcDown.left, rc.top, rcDown.right, rc.top + look.nEdge}, look.crEdge);
    FillColor(hdc, {rcDown.left, rc.bottom - look.nEdge, rcDown.right, rc.bottom}, look.crEdge);
    FillColor(hdc, {rcDown.left, rc.top + look.nEdge, rcDown.right, rc.bottom - look.nEdge}, look.crFace);
    const LONG yFrom = rc.top + nCorner, yTo = rc.top + yBottom;
    for (const LONG x : {rc.left, rc.left + xRight}) {
        const LONG xEdge = x == rc.left ? x : rc.right - look.nEdge;
        const LONG xFace = x == rc.left ? x + look.nEdge : x;
        FillColor(hdc, {xEdge, yFrom, xEdge + look.nEdge, yTo}, look.crEdge);
        FillColor(hdc, {xFace, yFrom, x == rc.left ? rcDown.left : xEdge, yTo}, look.crFace);
    }
}

// A short leg down and a long one up, a step a pixel.
void DrawTick(HDC hdc, const RECT& rc, COLORREF cr)
{
    const int nSide = std::min(rc.right - rc.left, rc.bottom - rc.top);
    const int nShort = std::max(nSide * 2 / 13, 1);
    const int nLong = std::max(nSide * 5 / 13 - 1, 2);
    const int nThick = std::max((nSide + 4) / 8, 2);
    const int xStart = rc.left + (nSide - nShort - nLong - 1) / 2;
    const int yStart = rc.top + (nSide - nThick) / 2 + (nLong - nShort) / 2;
    for (int i = 0; i <= nShort + nLong; ++i) {
        const int y = i <= nShort ? yStart + i : yStart + 2 * nShort - i;
        FillColor(hdc, {xStart + i, y, xStart + i + 1, y + nThick}, cr);
    }
}

// A round box with its sign, all of which is told by numbers.
class SignedBox final : public CacheableDrawing
{
public:
    SignedBox(const BoxLook& look, int nRadius2, const Grounds& grounds, BoxSign sign, COLORREF crSign)
        : m_look(look), m_nRadius2(nRadius2), m_grounds(grounds), m_sign(sign), m_crSign(crSign)
    {}

    PictureKey Key() const override
    {
        return {nullptr,
                {m_look.crFace, m_look.crEdge, static_cast<DWORD>(m_look.nEdge),
                 static_cast<DWORD>(m_nRadius2), m_grounds.crLeftTop, m_grounds.crRightTop,
                 m_grounds.crLeftBottom, m_grounds.crRightBottom, static_cast<DWORD>(m_sign), m_crSign}};
    }
    bool IsWorthwhile() const override { return true; }
    bool Draw(HDC hdc, const RECT& rc) const override
    {
        DrawBox(hdc, rc, m_look, m_nRadius2, &m_grounds);
        if (m_sign == BoxSign::Dot) {
            DrawDot(hdc, rc);
        } else {
            DrawBoxSign(hdc, rc, m_sign, m_crSign);
        }
        return true;
    }

private:
    void DrawDot(HDC hdc, const RECT& rc) const
    {
        const int nInset = (rc.right - rc.left + 1) / 3;
        const RECT rcDot = Deflated(rc, nInset, nInset);
        const COLORREF cr = m_look.crFace;
        const Grounds grounds{cr, cr, cr, cr};
        DrawBox(hdc, rcDot, {m_crSign, m_crSign}, rcDot.right - rcDot.left, &grounds);
    }

    BoxLook m_look;
    int m_nRadius2;
    Grounds m_grounds;
    BoxSign m_sign;
    COLORREF m_crSign;
};

POINT MiddleOf(const RECT& rc)
{
    return {static_cast<LONG>((int64_t{rc.left} + rc.right) / 2),
            static_cast<LONG>((int64_t{rc.top} + rc.bottom) / 2)};
}

// A rectangle of a glyph that points down, around its middle, turned to where it is to point.
void FillTurned(HDC hdc, POINT pt, Pointing pointing, const RECT& rc, COLORREF cr)
{
    RECT rcAt{};
    switch (pointing) {
    case Pointing::Down: rcAt = rc; break;
    case Pointing::Up: rcAt = {rc.left, -rc.bottom + 1, rc.right, -rc.top + 1}; break;
    case Pointing::Right: rcAt = {rc.top, rc.left, rc.bottom, rc.right}; break;
    case Pointing::Left: rcAt = {-rc.bottom + 1, rc.left, -rc.top + 1, rc.right}; break;
    }
    FillColor(hdc, {pt.x + rcAt.left, pt.y + rcAt.top, pt.x + rcAt.right, pt.y + rcAt.bottom}, cr);
}

enum class SignShape
{
    Chevron,
    Triangle,
    Arrow
};

// A sign around the pixel in the middle of a square, all of which is told by numbers.
class Sign final : public CacheableDrawing
{
public:
    Sign(SignShape shape, Pointing pointing, SignSize size, COLORREF cr)
        : m_shape(shape), m_pointing(pointing), m_size(size), m_cr(cr)
    {}

    PictureKey Key() const override
    {
        constexpr DWORD SIGNS = CLR_INVALID; // no face of a box
        return {nullptr,
                {SIGNS, static_cast<DWORD>(m_shape), static_cast<DWORD>(m_pointing),
                 static_cast<DWORD>(m_size.nReach), static_cast<DWORD>(m_size.nLine), m_cr}};
    }
    bool IsWorthwhile() const override { return true; }
    bool Draw(HDC hdc, const RECT& rc) const override
    {
        const POINT pt{rc.left + Half(), rc.top + Half()};
        switch (m_shape) {
        case SignShape::Chevron: DrawChevron(hdc, pt); break;
        case SignShape::Triangle: DrawTriangle(hdc, pt); break;
        case SignShape::Arrow: DrawArrow(hdc, pt); break;
        }
        return true;
    }
    RECT SquareAround(POINT pt) const
    {
        return {pt.x - Half(), pt.y - Half(), pt.x + Half() + 1, pt.y + Half() + 1};
    }

private:
    // What a sign reaches from the middle at most.
    int Half() const { return m_size.nReach + m_size.nLine + 2; }

    void DrawChevron(HDC hdc, POINT pt) const
    {
        const int nReach = m_size.nReach;
        const int nTop = -(nReach + 1) / 2;
        for (int i = -nReach; i <= nReach; ++i) {
            const int y = nTop + nReach - std::abs(i);
            FillTurned(hdc, pt, m_pointing, {i, y, i + 1, y + 1 + m_size.nLine}, m_cr);
        }
    }
    void DrawTriangle(HDC hdc, POINT pt) const
    {
        const int nReach = m_size.nReach;
        const int nTop = -nReach / 2;
        for (int i = 0; i <= nReach; ++i) {
            FillTurned(hdc, pt, m_pointing, {i - nReach, nTop + i, nReach - i + 1, nTop + i + 1}, m_cr);
        }
    }
    void DrawArrow(HDC hdc, POINT pt) const
    {
        const int nReach = m_size.nReach, nLine = m_size.nLine;
        const int nHead = (nReach + 1) / 2 + 1;
        FillTurned(hdc, pt, m_pointing, {-(nLine - 1) / 2, -nReach, nLine / 2 + 1, nReach + 1}, m_cr);
        for (int i = -nHead; i <= nHead; ++i) {
            const int y = nReach - std::abs(i);
            FillTurned(hdc, pt, m_pointing, {i, y - nLine, i + 1, y + 1}, m_cr);
        }
    }

    SignShape m_shape;
    Pointing m_pointing;
    SignSize m_size;
    COLORREF m_cr;
};

void DrawSign(HDC hdc, const RECT& rc, const Sign& sign)
{
    constexpr LONG FARTHEST = 0xFFFFFF; // nothing shows so far away
    const POINT pt = MiddleOf(rc);
    if (std::max(pt.x, pt.y) > FARTHEST || std::min(pt.x, pt.y) < -FARTHEST) {
        return;
    }
    const RECT rcSign = sign.SquareAround(pt);
    if (!DrawCached(sign, hdc, rcSign)) {
        sign.Draw(hdc, rcSign);
    }
}

} // namespace

void FillColor(HDC hdc, const RECT& rc, COLORREF cr)
{
    if (rc.left >= rc.right || rc.top >= rc.bottom) {
        return;
    }
    const COLORREF crFormer = SetDCBrushColor(hdc, cr);
    FillRect(hdc, &rc, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
    SetDCBrushColor(hdc, crFormer);
}

void FrameColor(HDC hdc, const RECT& rc, COLORREF cr, int nWidth)
{
    const RECT rcInside = Deflated(rc, nWidth, nWidth);
    if (rcInside.left >= rcInside.right || rcInside.top >= rcInside.bottom) {
        FillColor(hdc, rc, cr);
        return;
    }
    FillColor(hdc, {rc.left, rc.top, rc.right, rcInside.top}, cr);
    FillColor(hdc, {rc.left, rcInside.bottom, rc.right, rc.bottom}, cr);
    FillColor(hdc, {rc.left, rcInside.top, rcInside.left, rcInside.bottom}, cr);
    FillColor(hdc, {rcInside.right, rcInside.top, rc.right, rcInside.bottom}, cr);
}

void DashFrameColor(HDC hdc, const RECT& rc, COLORREF cr, int nWidth)
{
    constexpr int DASH = 3, STEP = 5, MOST_DASHES = 400;
    const auto step = [=](LONG nLength) { return std::max<LONG>(STEP * nWidth, nLength / MOST_DASHES); };
    for (LONG x = rc.left; x < rc.right; x += step(rc.right - rc.left)) {
        const LONG xEnd = std::min<LONG>(x + DASH * nWidth, rc.right);
        FillColor(hdc, {x, rc.top, xEnd, rc.top + nWidth}, cr);
        FillColor(hdc, {x, rc.bottom - nWidth, xEnd, rc.bottom}, cr);
    }
    for (LONG y = rc.top; y < rc.bottom; y += step(rc.bottom - rc.top)) {
        const LONG yEnd = std::min<LONG>(y + DASH * nWidth, rc.bottom);
        FillColor(hdc, {rc.left, y, rc.left + nWidth, yEnd}, cr);
        FillColor(hdc, {rc.right - nWidth, y, rc.right, yEnd}, cr);
    }
}

void DrawRoundBox(HDC hdc, const RECT& rc, const BoxLook& look, int nRadius2, COLORREF crAround, BoxSign sign,
                  COLORREF crSign)
{
    if (rc.left >= rc.right || rc.top >= rc.bottom) {
        return;
    }
    const auto ground = [=](LONG x, LONG y) {
        return crAround == CLR_DEFAULT ? GroundAt(hdc, x, y) : crAround;
    };
    const Grounds grounds{ground(rc.left, rc.top), ground(rc.right - 1, rc.top),
                          ground(rc.left, rc.bottom - 1), ground(rc.right - 1, rc.bottom - 1)};
    const SignedBox box(look, nRadius2, grounds, sign, crSign);
    if (!DrawCached(box, hdc, rc)) {
        box.Draw(hdc, rc);
    }
}

void DrawPlainDisc(HDC hdc, const RECT& rc, const BoxLook& look)
{
    DrawBox(hdc, rc, look, std::min(rc.right - rc.left, rc.bottom - rc.top), nullptr);
}

void DrawChevron(HDC hdc, const RECT& rc, Pointing pointing, SignSize size, COLORREF cr)
{
    DrawSign(hdc, rc, Sign(SignShape::Chevron, pointing, size, cr));
}

void DrawTriangle(HDC hdc, const RECT& rc, Pointing pointing, int nReach, COLORREF cr)
{
    DrawSign(hdc, rc, Sign(SignShape::Triangle, pointing, {nReach, 0}, cr));
}

void DrawArrow(HDC hdc, const RECT& rc, Pointing pointing, SignSize size, COLORREF cr)
{
    DrawSign(hdc, rc, Sign(SignShape::Arrow, pointing, size, cr));
}

void DrawBoxSign(HDC hdc, const RECT& rc, BoxSign sign, COLORREF cr)
{
    if (sign == BoxSign::Tick) {
        DrawTick(hdc, rc, cr);
    } else if (sign == BoxSign::Dash) {
        const int nSide = rc.right - rc.left;
        const int nInset = std::max(nSide / 4, 1);
        const int nThick = std::max(nSide / 6, 2);
        const LONG y = rc.top + (nSide - nThick) / 2;
        FillColor(hdc, {rc.left + nInset, y, rc.right - nInset, y + nThick}, cr);
    }
}

RECT Deflated(const RECT& rc, int cx, int cy)
{
    return {Saturated(int64_t{rc.left} + cx), Saturated(int64_t{rc.top} + cy),
            Saturated(int64_t{rc.right} - cx), Saturated(int64_t{rc.bottom} - cy)};
}

RECT SquareIn(const RECT& rc, int nSide)
{
    const int64_t cx = int64_t{rc.right} - rc.left, cy = int64_t{rc.bottom} - rc.top;
    const int64_t n = std::max<int64_t>(std::min({int64_t{nSide}, cx, cy}), 0);
    const auto x = static_cast<LONG>(rc.left + (cx - n) / 2);
    const auto y = static_cast<LONG>(rc.top + (cy - n) / 2);
    return {x, y, Saturated(x + n), Saturated(y + n)};
}

} // namespace gesso
