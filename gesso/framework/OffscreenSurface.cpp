#include <gesso/containers/Memory.h>
#include <gesso/framework/Direction.h>
#include <gesso/framework/LibraryWindows.h>
#include <gesso/framework/OffscreenSurface.h>

namespace gesso {
namespace {

// Larger ones are not kept, since they would hold more than 4 MB between paints.
constexpr int64_t MOST_PIXELS_KEPT = int64_t{1024} * 1024;
// How much larger than needed one may be, since it is blackened as a whole.
constexpr int64_t MOST_WASTE = 4;
// The bits of a pixel that serve a screen of any depth.
constexpr int FULL_DEPTH = 32;

constexpr int64_t PixelsOf(SIZE size)
{
    return int64_t{size.cx} * size.cy;
}

} // namespace

// Threads paint their own controls: whoever gets the pointer has the spare surface to itself.
constinit OffscreenSurface::Parts* OffscreenSurface::s_pSpare = nullptr;

OffscreenSurface::OffscreenSurface(HDC hdcLike, SIZE size)
{
    Parts* pSpare = TakeSpare();
    if (pSpare && Fits(*pSpare, hdcLike, size)) {
        m_parts = *pSpare;
        PatBlt(m_parts.hdc, 0, 0, m_parts.size.cx, m_parts.size.cy, BLACKNESS);
    } else {
        if (pSpare) {
            Release(*pSpare);
        }
        m_parts = Make(hdcLike, size);
    }
    Free(pSpare);
    m_nSaved = SaveDC(m_parts.hdc);
    TakeLayout(m_parts.hdc, hdcLike);
}

OffscreenSurface::~OffscreenSurface()
{
    // What a paint has set must not stay for the next one.
    const bool fRestored = RestoreDC(m_parts.hdc, m_nSaved);
    if (fRestored && m_parts.hdc && m_parts.hBitmap && m_parts.hFormer &&
        PixelsOf(m_parts.size) <= MOST_PIXELS_KEPT && HasLibraryWindows())
    {
        KeepSpare(m_parts);
    } else {
        Release(m_parts);
    }
}

OffscreenSurface::Parts OffscreenSurface::Make(HDC hdcLike, SIZE size)
{
    const HDC hdc = CreateCompatibleDC(hdcLike);
    const HBITMAP hBitmap = CreateCompatibleBitmap(hdcLike, size.cx, size.cy);
    return {hdc, hBitmap, SelectObject(hdc, hBitmap), size, GetDeviceCaps(hdcLike, BITSPIXEL)};
}

void OffscreenSurface::Release(const Parts& parts)
{
    SelectObject(parts.hdc, parts.hFormer);
    // A bitmap that a context still holds does not go.
    DeleteDC(parts.hdc);
    DeleteObject(parts.hBitmap);
}

// To ask for the depth may take as long as to draw a button, so that it is left out where it does not matter.
bool OffscreenSurface::Fits(const Parts& parts, HDC hdcLike, SIZE size)
{
    return parts.size.cx >= size.cx && parts.size.cy >= size.cy &&
           PixelsOf(parts.size) <= MOST_WASTE * PixelsOf(size) &&
           (parts.nBits == FULL_DEPTH || parts.nBits == GetDeviceCaps(hdcLike, BITSPIXEL));
}

OffscreenSurface::Parts* OffscreenSurface::TakeSpare()
{
    return static_cast<Parts*>(InterlockedExchangePointer(reinterpret_cast<void**>(&s_pSpare), nullptr));
}

void OffscreenSurface::KeepSpare(const Parts& parts)
{
    auto* pSpare = static_cast<Parts*>(Allocate(sizeof(Parts)));
    *pSpare = parts;
    auto* pFormer =
        static_cast<Parts*>(InterlockedExchangePointer(reinterpret_cast<void**>(&s_pSpare), pSpare));
    if (pFormer) {
        Release(*pFormer);
        Free(pFormer);
    }
}

void OffscreenSurface::ReleaseSpare()
{
    if (Parts* pSpare = TakeSpare()) {
        Release(*pSpare);
        Free(pSpare);
    }
}

} // namespace gesso
