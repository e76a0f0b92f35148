// What a Gesso window asks the platform to draw in one paint, recorded on the way out of gesso.dll.
#pragma once

#include <platform/platform.h>

#include <functional>
#include <memory>
#include <vector>

namespace bench {

// One call that draws, or sets what the next ones draw with; all that it points to is its own.
using DrawCall = std::function<void(HDC)>;

struct DrawRecord
{
    std::vector<DrawCall> calls; // into the memory context that the paint copied to the window
    SIZE size{};                 // of what it copied
    std::vector<DWORD> picture;  // the copied pixels, top down
    int nCopies = 0;             // to the window; the record is that of the last
    // Brushes, pens and fonts of the paint, which the calls still use.
    std::vector<std::shared_ptr<void>> objects;
};

// Paints the whole client area once.
DrawRecord RecordPaint(HWND hwnd);

// A bitmap whose pixels can be read and set, in a context of its own.
class PixelBuffer
{
public:
    explicit PixelBuffer(SIZE size);
    ~PixelBuffer();
    PixelBuffer(const PixelBuffer&) = delete;
    PixelBuffer& operator=(const PixelBuffer&) = delete;

    // Without the byte of each that does not show.
    std::vector<DWORD> Read(HDC hdc) const;
    void Write(HDC hdc, const std::vector<DWORD>& pixels) const;

private:
    SIZE m_size;
    DWORD* m_pPixels;
    HDC m_hdc;
    HBITMAP m_hBitmap;
    HGDIOBJ m_hFormer;
};

} // namespace bench
