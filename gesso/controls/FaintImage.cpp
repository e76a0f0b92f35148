#include <gesso/controls/FaintImage.h>
#include <gesso/framework/DrawScope.h>

#include <algorithm>
#include <cstring>

namespace gesso {
namespace {

constexpr int MOST = 0xFF; // of a channel
constexpr int LEAST_KEPT = 168;

// From the highest byte of a pixel of 32 bits on: alpha, red, green, blue.
int ChannelOf(DWORD pixel, int nShift)
{
    return static_cast<int>(pixel >> nShift & MOST);
}

// Of a sum that may be a little more than the whole.
int Part(int n, int nOf)
{
    return std::min(n * nOf / MOST, MOST);
}

int Brightness(int nRed, int nGreen, int nBlue)
{
    return (nRed * 77 + nGreen * 151 + nBlue * 28) / 256;
}

DWORD FaintPixel(DWORD onBlack, DWORD onWhite, COLORREF cr, bool fLight)
{
    const int nRed = ChannelOf(onBlack, 16), nGreen = ChannelOf(onBlack, 8), nBlue = ChannelOf(onBlack, 0);
    // What shows of the ground is by how much the two differ.
    const int nCovers = std::clamp(MOST - (ChannelOf(onWhite, 8) - nGreen), 0, MOST);
    if (nCovers == 0) {
        return 0;
    }
    const int nBright = std::min(Brightness(nRed, nGreen, nBlue) * MOST / nCovers, MOST);
    const int nKept = LEAST_KEPT + Part(MOST - LEAST_KEPT, fLight ? nBright : MOST - nBright);
    const int nAlpha = Part(nCovers, nKept);
    const auto byte = [](int n, int nShift) { return static_cast<DWORD>(n) << nShift; };
    return byte(nAlpha, 24) | byte(Part(GetRValue(cr), nAlpha), 16) | byte(Part(GetGValue(cr), nAlpha), 8) |
           byte(Part(GetBValue(cr), nAlpha), 0);
}

// A bitmap whose pixels can be read and written.
class PixelCanvas
{
public:
    explicit PixelCanvas(SIZE size) : m_bitmap(Make(size, &m_pPixels)), m_selection(m_context, m_bitmap) {}

    // Where it could not be selected, nothing would be drawn into it.
    bool HasBitmap() const { return m_bitmap && GetCurrentObject(m_context, OBJ_BITMAP) == m_bitmap; }
    HDC Context() const { return m_context; }
    DWORD* Pixels() const { return static_cast<DWORD*>(m_pPixels); }

private:
    static HBITMAP Make(SIZE size, void** ppPixels)
    {
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof(info.bmiHeader);
        info.bmiHeader.biWidth = size.cx;
        info.bmiHeader.biHeight = -size.cy;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        return CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, ppPixels, nullptr, 0);
    }

    void* m_pPixels = nullptr;
    BitmapScope m_bitmap;
    MemoryContext m_context;
    SelectScope m_selection;
};

} // namespace

void MakeFaint(DWORD* pOnBlack, const DWORD* pOnWhite, size_t nPixels, COLORREF cr)
{
    const bool fLight = Brightness(GetRValue(cr), GetGValue(cr), GetBValue(cr)) > MOST / 2;
    for (size_t i = 0; i < nPixels; ++i) {
        pOnBlack[i] = FaintPixel(pOnBlack[i], pOnWhite[i], cr, fLight);
    }
}

bool DrawFaintly(HDC hdc, const RECT& rc, const ImageDrawing& image, COLORREF cr)
{
    const SIZE size{rc.right - rc.left, rc.bottom - rc.top};
    const PixelCanvas black(size), white(size);
    if (!black.HasBitmap() || !white.HasBitmap()) {
        return false;
    }
    const size_t nPixels = static_cast<size_t>(size.cx) * static_cast<size_t>(size.cy);
    std::memset(white.Pixels(), MOST, nPixels * sizeof(DWORD));
    image.DrawInto(black.Context());
    image.DrawInto(white.Context());
    GdiFlush();
    MakeFaint(black.Pixels(), white.Pixels(), nPixels, cr);
    GdiAlphaBlend(hdc, rc.left, rc.top, static_cast<int>(size.cx), static_cast<int>(size.cy), black.Context(),
                  0, 0, static_cast<int>(size.cx), static_cast<int>(size.cy),
                  {AC_SRC_OVER, 0, MOST, AC_SRC_ALPHA});
    return true;
}

} // namespace gesso
