#include <gesso/containers/Memory.h>
#include <gesso/framework/CachedPicture.h>
#include <gesso/framework/Direction.h>
#include <gesso/framework/DrawScope.h>

#include <algorithm>
#include <array>
#include <functional>
#include <utility>

namespace gesso {
namespace {

constexpr DWORD SHADE = 0x00FFFFFF; // of a pixel, without its opacity
constexpr int OPACITY_SHIFT = 24;
constexpr DWORD OPAQUE_PIXEL = 0xFF;
// Around what is drawn: it shows whether anything is drawn beside its place.
constexpr LONG MARGIN = 2;

constexpr DWORD OpacityOf(DWORD dwPixel)
{
    return dwPixel >> OPACITY_SHIFT;
}

// A bitmap that can be read, as the platform's own calls take it.
BITMAPINFO InfoOf(LONG cx, LONG cy)
{
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = cx;
    info.bmiHeader.biHeight = -cy;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    return info;
}

HBITMAP MakeBitmap(LONG cx, LONG cy, DWORD** ppPixels)
{
    const BITMAPINFO info = InfoOf(cx, cy);
    void* pBits = nullptr;
    const HBITMAP hBitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &pBits, nullptr, 0);
    *ppPixels = static_cast<DWORD*>(pBits);
    return hBitmap;
}

constexpr size_t PixelsOf(SIZE size)
{
    return static_cast<size_t>(size.cx) * static_cast<size_t>(size.cy);
}

// Where a drawing is tried.
class Canvas
{
public:
    Canvas(SIZE size, bool fMirrored)
        : m_size{size.cx + 2 * MARGIN, size.cy + 2 * MARGIN}, m_rc{MARGIN, MARGIN, MARGIN + size.cx,
                                                                   MARGIN + size.cy},
          m_bitmap(MakeBitmap(m_size.cx, m_size.cy, &m_pPixels)), m_selection(m_context, m_bitmap)
    {
        if (fMirrored) {
            SetLayout(m_context, LAYOUT_RTL);
        }
    }

    // Where it could not be selected, nothing would be drawn into it.
    bool HasBitmap() const { return m_bitmap && GetCurrentObject(m_context, OBJ_BITMAP) == m_bitmap; }
    HDC Context() const { return m_context; }
    POINT Place() const { return {m_rc.left, m_rc.top}; }

    void FillEvenly(DWORD dwPixel) { std::fill_n(m_pPixels, PixelsOf(m_size), dwPixel); }
    // The same of all canvasses of a size.
    void FillWithNoise()
    {
        DWORD dwNoise = 1;
        for (size_t i = 0; i < PixelsOf(m_size); ++i) {
            dwNoise = dwNoise * 1664525 + 1013904223;
            m_pPixels[i] = dwNoise >> 8;
        }
    }
    bool Draw(const PictureSource& source) const
    {
        const bool fDrawn = source.Draw(m_context, m_rc);
        GdiFlush();
        return fDrawn;
    }
    DWORD At(LONG x, LONG y) const { return m_pPixels[(y + MARGIN) * m_size.cx + x + MARGIN]; }
    bool LooksLike(const Canvas& other) const
    {
        GdiFlush();
        return std::equal(m_pPixels, m_pPixels + PixelsOf(m_size), other.m_pPixels,
                          [](DWORD a, DWORD b) { return ((a ^ b) & SHADE) == 0; });
    }

private:
    SIZE m_size;
    RECT m_rc;
    DWORD* m_pPixels = nullptr;
    BitmapScope m_bitmap;
    MemoryContext m_context;
    SelectScope m_selection;
};

// What is drawn over the darkest background and over the lightest is the same where it covers both, and the
// further apart the more shows through it, which must be as much of each channel.
bool FindPixel(DWORD dwOnDark, DWORD dwOnLight, DWORD* pdwPixel)
{
    const auto channel = [](DWORD dw, int nShift) { return static_cast<int>(dw >> nShift & 0xFF); };
    const auto shows = [&](int nShift) { return channel(dwOnLight, nShift) - channel(dwOnDark, nShift); };
    const int nShows = shows(0);
    if (nShows < 0 || shows(8) != nShows || shows(16) != nShows) {
        return false;
    }
    *pdwPixel = (dwOnDark & SHADE) | (OPAQUE_PIXEL - static_cast<DWORD>(nShows)) << OPACITY_SHIFT;
    return true;
}

// What the pictures with something showing through are copied from, one at a time: to select a bitmap takes
// as long as to copy several small ones.
struct SourceContext
{
    HDC hdc;
    HGDIOBJ hFormer;
    HBITMAP hSelected;
};
constinit SourceContext s_source{};

bool SelectSource(HDC hdcLike, HBITMAP hBitmap)
{
    if (s_source.hSelected == hBitmap) {
        return true;
    }
    if (!s_source.hdc) {
        s_source.hdc = CreateCompatibleDC(hdcLike);
    }
    const HGDIOBJ hBefore = SelectObject(s_source.hdc, hBitmap);
    if (!hBefore) {
        return false;
    }
    if (!s_source.hSelected) {
        s_source.hFormer = hBefore;
    }
    s_source.hSelected = hBitmap;
    return true;
}

// A bitmap that a context still holds does not go.
void ReleaseSource()
{
    SelectObject(s_source.hdc, s_source.hFormer);
    DeleteDC(s_source.hdc);
    s_source = {};
}

} // namespace

// --- How a picture is cut up

class CachedPicture::Runs
{
public:
    // Cut along what is opaque and what is not, or into bands: of rows in which something shows through, all
    // is blended together. Or not at all.
    enum class Cut
    {
        Fine,
        Bands,
        Whole
    };

    Runs(const DWORD* pPixels, SIZE size, Cut cut)
    {
        for (LONG y = 0; y < size.cy && !m_fTooMany; ++y) {
            const DWORD* pRow = pPixels + y * size.cx;
            const bool fBand = cut == Cut::Bands
                                   ? std::any_of(pRow, pRow + size.cx, ShowsThrough)
                                   : cut == Cut::Whole && std::any_of(pRow, pRow + size.cx, IsSeen);
            fBand ? AddToBand(pRow, size.cx, y) : AddRow(pRow, size.cx, y);
        }
    }

    // About how long the copying takes, in pixels that are blended.
    int64_t Cost() const
    {
        constexpr int64_t COPY = 55, BLEND = 130;
        int64_t nCost = m_fTooMany ? INT64_MAX : 0;
        for (UINT i = 0; i < m_nCount && !m_fTooMany; ++i) {
            const Run& run = m_runs[i];
            nCost += run.fOpaque ? COPY : BLEND + int64_t{run.right - run.left} * (run.bottom - run.top);
        }
        return nCost;
    }
    // What shows through comes first: where it fails, nothing has been drawn yet.
    UINT Put(Run* pRuns) const
    {
        std::partition_copy(m_runs.begin(), m_runs.begin() + m_nCount, pRuns, pRuns + BlendCount(),
                            [](const Run& run) { return !run.fOpaque; });
        return m_nCount;
    }
    UINT Count() const { return m_nCount; }
    UINT BlendCount() const
    {
        return static_cast<UINT>(std::count_if(m_runs.begin(), m_runs.begin() + m_nCount,
                                               [](const Run& run) { return !run.fOpaque; }));
    }

private:
    static bool IsSeen(DWORD dwPixel) { return OpacityOf(dwPixel) != 0; }
    static bool ShowsThrough(DWORD dwPixel) { return IsSeen(dwPixel) && OpacityOf(dwPixel) != OPAQUE_PIXEL; }
    // A run of a row goes on in the next one where it is as wide.
    void Add(LONG y, LONG xFrom, LONG xTo, bool fOpaque)
    {
        const auto end = m_runs.begin() + m_nCount;
        const auto above = std::find_if(m_runs.begin(), end, [=](const Run& run) {
            return run.bottom == y && run.left == xFrom && run.right == xTo && run.fOpaque == fOpaque;
        });
        if (above != end) {
            above->bottom = y + 1;
        } else if (m_nCount < m_runs.size()) {
            m_runs[m_nCount++] = {xFrom, y, xTo, y + 1, fOpaque};
        } else {
            m_fTooMany = true;
        }
    }
    void AddRow(const DWORD* pRow, LONG cx, LONG y)
    {
        const auto kind = [=](LONG x) { return !IsSeen(pRow[x]) ? 0 : ShowsThrough(pRow[x]) ? 2 : 1; };
        LONG xFrom = 0;
        for (LONG x = 1; x <= cx; ++x) {
            if (x < cx && kind(x) == kind(xFrom)) {
                continue;
            }
            if (kind(xFrom) != 0) {
                Add(y, xFrom, x, kind(xFrom) == 1);
            }
            xFrom = x;
        }
    }
    void AddToBand(const DWORD* pRow, LONG cx, LONG y)
    {
        const auto xFrom = static_cast<LONG>(std::find_if(pRow, pRow + cx, IsSeen) - pRow);
        LONG xTo = cx;
        while (!IsSeen(pRow[xTo - 1])) {
            --xTo;
        }
        const auto end = m_runs.begin() + m_nCount;
        const auto above = std::find_if(m_runs.begin(), end,
                                        [=](const Run& run) { return run.bottom == y && !run.fOpaque; });
        if (above == end) {
            return Add(y, xFrom, xTo, false);
        }
        *above = {std::min(above->left, xFrom), above->top, std::max(above->right, xTo), y + 1, false};
    }

    std::array<Run, 24> m_runs{};
    UINT m_nCount = 0;
    bool m_fTooMany = false;
};

bool CachedPicture::TakeRuns()
{
    const Runs fine(m_pPixels, m_size, Runs::Cut::Fine);
    const Runs bands(m_pPixels, m_size, Runs::Cut::Bands);
    const Runs whole(m_pPixels, m_size, Runs::Cut::Whole);
    const Runs& runs = std::min({std::cref(fine), std::cref(bands), std::cref(whole)},
                                [](const Runs& a, const Runs& b) { return a.Cost() < b.Cost(); });
    if (runs.Count() == 0) {
        return true;
    }
    m_pRuns = static_cast<Run*>(TryAllocate(runs.Count() * sizeof(Run)));
    if (!m_pRuns) {
        return false;
    }
    m_nRuns = runs.Put(m_pRuns);
    return runs.BlendCount() == 0 || TakeBitmap();
}

// The bitmap has the pixels from now on.
bool CachedPicture::TakeBitmap()
{
    DWORD* pPixels = nullptr;
    m_hBitmap = MakeBitmap(m_size.cx, m_size.cy, &pPixels);
    if (!m_hBitmap) {
        return false;
    }
    std::copy_n(m_pPixels, PixelsOf(m_size), pPixels);
    Free(std::exchange(m_pPixels, pPixels));
    return true;
}

// --- Reading

class CachedPicture::Reader
{
public:
    Reader(CachedPicture& picture, const PictureSource& source, bool fMirrored)
        : m_picture(picture), m_source(source), m_first(picture.m_size, fMirrored),
          m_second(picture.m_size, fMirrored)
    {}

    Reading Read()
    {
        const size_t cb = PixelsOf(m_picture.m_size) * sizeof(DWORD);
        const bool fRoom = m_first.HasBitmap() && m_second.HasBitmap();
        m_picture.m_pPixels = fRoom ? static_cast<DWORD*>(TryAllocate(cb)) : nullptr;
        if (!m_picture.m_pPixels) {
            return Reading::NoMemory;
        }
        m_first.FillEvenly(0);
        m_second.FillEvenly(SHADE);
        if (!m_first.Draw(m_source) || !m_second.Draw(m_source) || !FindPixels()) {
            return Reading::Impossible;
        }
        return m_picture.TakeRuns() ? Try() : Reading::NoMemory;
    }

private:
    bool FindPixels()
    {
        DWORD* pPixel = m_picture.m_pPixels;
        for (LONG y = 0; y < m_picture.m_size.cy; ++y) {
            for (LONG x = 0; x < m_picture.m_size.cx; ++x) {
                if (!FindPixel(m_first.At(x, y), m_second.At(x, y), pPixel++)) {
                    return false;
                }
            }
        }
        return true;
    }
    Reading Try()
    {
        m_first.FillWithNoise();
        m_second.FillWithNoise();
        if (!m_first.Draw(m_source)) {
            return Reading::Impossible;
        }
        const bool fBlank = m_picture.m_nRuns == 0;
        if (!fBlank && !m_picture.Copy(m_second.Context(), m_second.Place())) {
            return Reading::NoMemory;
        }
        return !m_second.LooksLike(m_first) ? Reading::Impossible : fBlank ? Reading::Blank : Reading::Done;
    }

    CachedPicture& m_picture;
    const PictureSource& m_source;
    Canvas m_first, m_second;
};

CachedPicture::Reading CachedPicture::Read(const PictureSource& source, SIZE size, bool fMirrored)
{
    m_size = size;
    const Reading reading = Reader(*this, source, fMirrored).Read();
    if (reading != Reading::Done) {
        Release();
    }
    return reading;
}

void CachedPicture::Release()
{
    if (m_hBitmap && s_source.hSelected == m_hBitmap) {
        ReleaseSource();
    }
    if (m_hBitmap) {
        DeleteObject(m_hBitmap);
    } else {
        Free(m_pPixels);
    }
    Free(m_pRuns);
    *this = {};
}

void CachedPicture::ReleaseContext()
{
    if (s_source.hdc) {
        ReleaseSource();
    }
}

// --- Copying

bool CachedPicture::Copy(HDC hdc, POINT pt) const
{
    const UprightScope upright(hdc, pt.x, m_size.cx);
    const POINT ptUpright{upright.Left(), pt.y};
    return std::all_of(m_pRuns, m_pRuns + m_nRuns, [&](const Run& run) {
        return run.fOpaque ? CopyRun(hdc, ptUpright, run) : BlendRun(hdc, ptUpright, run);
    });
}

bool CachedPicture::CopyRun(HDC hdc, POINT pt, const Run& run) const
{
    const LONG cx = run.right - run.left, cy = run.bottom - run.top;
    const BITMAPINFO info = InfoOf(m_size.cx, cy);
    return SetDIBitsToDevice(hdc, pt.x + run.left, pt.y + run.top, static_cast<DWORD>(cx),
                             static_cast<DWORD>(cy), run.left, 0, 0, static_cast<UINT>(cy),
                             m_pPixels + run.top * m_size.cx, &info, DIB_RGB_COLORS) != 0;
}

bool CachedPicture::BlendRun(HDC hdc, POINT pt, const Run& run) const
{
    const int cx = run.right - run.left, cy = run.bottom - run.top;
    return SelectSource(hdc, m_hBitmap) &&
           GdiAlphaBlend(hdc, pt.x + run.left, pt.y + run.top, cx, cy, s_source.hdc, run.left, run.top, cx,
                         cy, {AC_SRC_OVER, 0, 0xFF, AC_SRC_ALPHA});
}

} // namespace gesso
