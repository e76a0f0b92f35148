// The pixels of a drawing: which of them it leaves as they are, which it covers, and which show through it,
// so that they look over any background as the drawing itself does.
#pragma once

#include <gesso/api.h>

namespace gesso {

// Draws something that looks the same wherever it is drawn.
class PictureSource
{
public:
    // False where it cannot be drawn.
    virtual bool Draw(HDC hdc, const RECT& rc) const = 0;

protected:
    ~PictureSource() = default;
};

// Its members are plain, so that a table of them needs no start: whoever has one releases it.
class CachedPicture
{
public:
    enum class Reading
    {
        NoMemory,   // nothing is known then
        Impossible, // the pixels alone do not tell how it looks everywhere
        Blank,      // it draws nothing
        Done
    };

    // Reads a drawing of a size, as it is in a mirrored context or in another one. Every picture is tried
    // beside the drawing, over a background of all shades, before it counts as one.
    Reading Read(const PictureSource& source, SIZE size, bool fMirrored);
    void Release();

    // Into a plain memory context of the layout that it was read for. False where the platform fails.
    bool Copy(HDC hdc, POINT pt) const;
    bool IsThere() const { return m_pPixels != nullptr; }
    SIZE Size() const { return m_size; }

    // What all pictures are copied from goes with the last of them.
    static void ReleaseContext();

private:
    struct Run // a rectangle of pixels that are copied or blended at once
    {
        LONG left, top, right, bottom;
        bool fOpaque;
    };
    class Runs;
    class Reader;

    bool TakeRuns();
    bool TakeBitmap();
    bool CopyRun(HDC hdc, POINT pt, const Run& run) const;
    bool BlendRun(HDC hdc, POINT pt, const Run& run) const;

    SIZE m_size{};
    DWORD* m_pPixels = nullptr;  // top down, each multiplied by its opacity, which stands in the high byte
    HBITMAP m_hBitmap = nullptr; // that has them, where any shows through
    Run* m_pRuns = nullptr;
    UINT m_nRuns = 0;
};

} // namespace gesso
