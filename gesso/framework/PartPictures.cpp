#include <gesso/containers/Memory.h>
#include <gesso/framework/PartPictures.h>

#include <algorithm>
#include <array>
#include <climits>
#include <cstring>

namespace gesso {
namespace {

constexpr UINT MOST_PARTS = 48;
constexpr size_t MOST_PIXELS = size_t{1024} * 1024; // of all pictures together
constexpr LONG LONGEST_SIDE = 4096;

enum class Known
{
    Seen, // once; what is drawn a single time, as while a window is being sized, is not worth a picture
    Drawn,
    Kept,
};

struct Part
{
    HTHEME hTheme; // null for a free place
    int nPart;
    int nState;
    SIZE size;
    Known known; // Drawn: it is no image, or shows what lies below
    UINT uLastUse;
    DWORD* pPixels; // top down

    bool Is(HTHEME hOther, int nOtherPart, int nOtherState, SIZE other) const
    {
        return hTheme == hOther && nPart == nOtherPart && nState == nOtherState && size.cx == other.cx &&
               size.cy == other.cy;
    }
    size_t PixelCount() const { return static_cast<size_t>(size.cx) * static_cast<size_t>(size.cy); }
    size_t ByteCount() const { return PixelCount() * sizeof(DWORD); }
};

constinit std::array<Part, MOST_PARTS> s_parts{};
constinit size_t s_pixelsKept = 0;
constinit UINT s_uUses = 0;

// Threads draw their own controls, and whoever finds the pictures in use draws without them.
constinit SRWLOCK s_lock = SRWLOCK_INIT;

// A bitmap that can be read, as the platform's own calls take it.
BITMAPINFO InfoOf(SIZE size)
{
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = size.cx;
    info.bmiHeader.biHeight = -size.cy;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    return info;
}

class Canvas
{
public:
    explicit Canvas(SIZE size) : m_hdc(CreateCompatibleDC(nullptr))
    {
        const BITMAPINFO info = InfoOf(size);
        m_hBitmap = CreateDIBSection(m_hdc, &info, DIB_RGB_COLORS, &m_pPixels, nullptr, 0);
        m_hFormer = SelectObject(m_hdc, m_hBitmap);
    }
    ~Canvas()
    {
        SelectObject(m_hdc, m_hFormer);
        DeleteObject(m_hBitmap);
        DeleteDC(m_hdc);
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    // What the part makes of a background whose bytes are all the same; null where it cannot be drawn.
    const void* Draw(const Part& part, int nByte)
    {
        if (!m_hBitmap) {
            return nullptr;
        }
        std::memset(m_pPixels, nByte, part.ByteCount());
        const RECT rc{0, 0, part.size.cx, part.size.cy};
        const HRESULT hr = DrawThemeBackground(part.hTheme, m_hdc, part.nPart, part.nState, &rc, nullptr);
        GdiFlush();
        return SUCCEEDED(hr) ? m_pPixels : nullptr;
    }

private:
    HDC m_hdc;
    HBITMAP m_hBitmap;
    HGDIOBJ m_hFormer;
    void* m_pPixels = nullptr;
};

void Drop(Part& part)
{
    s_pixelsKept -= part.pPixels ? part.PixelCount() : 0;
    Free(part.pPixels);
    part = {};
}

// The place of what was not used for the longest time; free places come first.
Part& Oldest()
{
    const auto age = [](const Part& part) { return part.hTheme ? s_uUses - part.uLastUse : UINT_MAX; };
    return *std::max_element(s_parts.begin(), s_parts.end(),
                             [&](const Part& a, const Part& b) { return age(a) < age(b); });
}

void MakeRoom(size_t pixels)
{
    while (s_pixelsKept + pixels > MOST_PIXELS) {
        Part* pOldest = nullptr;
        for (Part& part : s_parts) {
            if (part.pPixels && (!pOldest || s_uUses - part.uLastUse > s_uUses - pOldest->uLastUse)) {
                pOldest = &part;
            }
        }
        Drop(*pOldest);
    }
}

// What a part makes of the darkest background and of the lightest is the same where it covers both.
Known MakePicture(Part& part)
{
    int nKind = 0;
    if (FAILED(GetThemeEnumValue(part.hTheme, part.nPart, part.nState, TMT_BGTYPE, &nKind)) ||
        nKind != BT_IMAGEFILE)
    {
        return Known::Drawn;
    }
    Canvas canvas(part.size);
    const void* pOnDark = canvas.Draw(part, 0);
    if (!pOnDark) {
        return Known::Drawn;
    }
    auto* pPixels = static_cast<DWORD*>(Allocate(part.ByteCount()));
    std::memcpy(pPixels, pOnDark, part.ByteCount());
    const void* pOnLight = canvas.Draw(part, 0xFF);
    if (!pOnLight || std::memcmp(pPixels, pOnLight, part.ByteCount()) != 0) {
        Free(pPixels);
        return Known::Drawn;
    }
    MakeRoom(part.PixelCount());
    s_pixelsKept += part.PixelCount();
    part.pPixels = pPixels;
    return Known::Kept;
}

bool Copy(const Part& part, HDC hdc, const RECT& rc)
{
    const BITMAPINFO info = InfoOf(part.size);
    const auto cx = static_cast<DWORD>(part.size.cx);
    const auto cy = static_cast<DWORD>(part.size.cy);
    return SetDIBitsToDevice(hdc, rc.left, rc.top, cx, cy, 0, 0, 0, cy, part.pPixels, &info,
                             DIB_RGB_COLORS) != 0;
}

bool CopyOrNote(HTHEME hTheme, HDC hdc, int nPart, int nState, const RECT& rc)
{
    const SIZE size{rc.right - rc.left, rc.bottom - rc.top};
    const auto found = std::find_if(s_parts.begin(), s_parts.end(),
                                    [&](const Part& part) { return part.Is(hTheme, nPart, nState, size); });
    ++s_uUses;
    if (found == s_parts.end()) {
        Part& part = Oldest();
        Drop(part);
        part = {hTheme, nPart, nState, size, Known::Seen, s_uUses, nullptr};
        return false;
    }
    found->uLastUse = s_uUses;
    if (found->known == Known::Seen) {
        found->known = MakePicture(*found);
    }
    return found->known == Known::Kept && Copy(*found, hdc, rc);
}

bool IsOfSize(const RECT& rc)
{
    const int64_t cx = int64_t{rc.right} - rc.left;
    const int64_t cy = int64_t{rc.bottom} - rc.top;
    return cx > 0 && cy > 0 && cx <= LONGEST_SIDE && cy <= LONGEST_SIDE &&
           cx * cy <= static_cast<int64_t>(MOST_PIXELS);
}

bool IsPlain(HDC hdc)
{
    return GetObjectType(hdc) == OBJ_MEMDC && GetMapMode(hdc) == MM_TEXT &&
           GetGraphicsMode(hdc) == GM_COMPATIBLE && GetLayout(hdc) == 0;
}

} // namespace

bool DrawPartPicture(HTHEME hTheme, HDC hdc, int nPart, int nState, const RECT& rc)
{
    if (!hTheme || !IsOfSize(rc) || !IsPlain(hdc) || !TryAcquireSRWLockExclusive(&s_lock)) {
        return false;
    }
    const bool fCopied = CopyOrNote(hTheme, hdc, nPart, nState, rc);
    ReleaseSRWLockExclusive(&s_lock);
    return fCopied;
}

void ForgetPartPictures(HTHEME hTheme)
{
    AcquireSRWLockExclusive(&s_lock);
    for (Part& part : s_parts) {
        if (part.hTheme && part.hTheme == hTheme) {
            Drop(part);
        }
    }
    ReleaseSRWLockExclusive(&s_lock);
}

} // namespace gesso
