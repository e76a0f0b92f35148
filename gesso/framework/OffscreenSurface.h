// What a paint draws into before anything shows: a context with a bitmap, black at first. Making both takes
// longer than drawing a small control, so that one of them is kept for the next paint as long as there are
// controls.
#pragma once

#include <gesso/api.h>

namespace gesso {

class OffscreenSurface
{
public:
    // As deep as the context's own surface, and of its layout; the size is in pixels. Where there is no
    // bitmap to be had, what is drawn goes nowhere.
    OffscreenSurface(HDC hdcLike, SIZE size);
    ~OffscreenSurface();
    OffscreenSurface(const OffscreenSurface&) = delete;
    OffscreenSurface& operator=(const OffscreenSurface&) = delete;

    HDC Context() const { return m_parts.hdc; }

    // What is kept goes with the library's last window.
    static void ReleaseSpare();

private:
    struct Parts
    {
        HDC hdc;
        HBITMAP hBitmap;
        HGDIOBJ hFormer; // the bitmap that the context was made with
        SIZE size;
        int nBits; // a pixel
    };

    static Parts Make(HDC hdcLike, SIZE size);
    static void Release(const Parts& parts);
    static Parts* TakeSpare();
    static void KeepSpare(const Parts& parts);
    static bool Fits(const Parts& parts, HDC hdcLike, SIZE size);

    Parts m_parts;
    int m_nSaved;

    static Parts* s_pSpare;
};

} // namespace gesso
