#include <gesso/containers/Memory.h>
#include <gesso/framework/DrawScope.h>
#include <gesso/framework/ThemePartCache.h>

#include <algorithm>
#include <array>
#include <climits>
#include <cstring>

namespace gesso {
namespace {

constexpr UINT MOST_ENTRIES = 48;
constexpr size_t MOST_PIXELS = size_t{512} * 1024; // of all entries together: two megabytes
constexpr LONG LONGEST_SIDE = 4096;
constexpr BYTE DARKEST = 0; // of every channel
constexpr BYTE LIGHTEST = 0xFF;

enum class State
{
    Seen, // once; what is drawn a single time, as while a window is being sized, is not worth its pixels
    Uncacheable,
    Blank, // it draws nothing
    Cached,
};

// A part of a theme, in a state and a size.
struct Entry
{
    HTHEME hTheme; // null for a free place
    int nPart;
    int nState;
    SIZE size;
    State state; // Uncacheable: it is no image, or shows what lies below
    UINT uLastUse;
    DWORD* pPixels; // top down

    bool Is(HTHEME hOther, int nOtherPart, int nOtherState, SIZE other) const
    {
        return hTheme == hOther && nPart == nOtherPart && nState == nOtherState && size.cx == other.cx &&
               size.cy == other.cy;
    }
    // Pixels belong to what is cached, and to a theme.
    bool Check() const { return (state == State::Cached) == (pPixels != nullptr) && (!pPixels || hTheme); }
    size_t PixelCount() const { return static_cast<size_t>(size.cx) * static_cast<size_t>(size.cy); }
    size_t ByteCount() const { return PixelCount() * sizeof(DWORD); }
};

constinit std::array<Entry, MOST_ENTRIES> s_entries{};
constinit size_t s_pixelsCached = 0;
constinit UINT s_uUses = 0;

// Threads draw their own controls, and whoever finds the cache in use draws without it.
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
    explicit Canvas(SIZE size) : m_bitmap(MakeBitmap(size, &m_pPixels)), m_selection(m_context, m_bitmap) {}

    // Where it could not be selected, nothing would be drawn into it.
    bool HasBitmap() const { return m_bitmap && GetCurrentObject(m_context, OBJ_BITMAP) == m_bitmap; }

    // What the part makes of a background whose bytes are all the same; null where it cannot be drawn.
    const void* Draw(const Entry& entry, int nByte)
    {
        std::memset(m_pPixels, nByte, entry.ByteCount());
        const RECT rc{0, 0, entry.size.cx, entry.size.cy};
        const HRESULT hr =
            DrawThemeBackground(entry.hTheme, m_context, entry.nPart, entry.nState, &rc, nullptr);
        GdiFlush();
        return SUCCEEDED(hr) ? m_pPixels : nullptr;
    }

private:
    static HBITMAP MakeBitmap(SIZE size, void** ppPixels)
    {
        const BITMAPINFO info = InfoOf(size);
        return CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, ppPixels, nullptr, 0);
    }

    void* m_pPixels = nullptr;
    BitmapScope m_bitmap;
    MemoryContext m_context;
    SelectScope m_selection;
};

void Drop(Entry& entry)
{
    s_pixelsCached -= entry.pPixels ? entry.PixelCount() : 0;
    Free(entry.pPixels);
    entry = {};
}

// The place of what was not used for the longest time; free places come first.
Entry& Oldest()
{
    const auto age = [](const Entry& entry) { return entry.hTheme ? s_uUses - entry.uLastUse : UINT_MAX; };
    return *std::max_element(s_entries.begin(), s_entries.end(),
                             [&](const Entry& a, const Entry& b) { return age(a) < age(b); });
}

void MakeRoom(size_t pixels)
{
    while (s_pixelsCached + pixels > MOST_PIXELS) {
        Entry* pOldest = nullptr;
        for (Entry& entry : s_entries) {
            if (entry.pPixels && (!pOldest || s_uUses - entry.uLastUse > s_uUses - pOldest->uLastUse)) {
                pOldest = &entry;
            }
        }
        Drop(*pOldest);
    }
}

bool CheckEntries()
{
    size_t pixels = 0;
    for (const Entry& entry : s_entries) {
        const auto same = [&](const Entry& other) {
            return entry.hTheme && other.Is(entry.hTheme, entry.nPart, entry.nState, entry.size);
        };
        if (!entry.Check() || std::count_if(s_entries.begin(), s_entries.end(), same) > 1) {
            return false;
        }
        pixels += entry.pPixels ? entry.PixelCount() : 0;
    }
    return pixels == s_pixelsCached && pixels <= MOST_PIXELS;
}

bool HoldsOnly(const void* pPixels, const Entry& entry, BYTE byte)
{
    const auto* pBytes = static_cast<const BYTE*>(pPixels);
    return std::all_of(pBytes, pBytes + entry.ByteCount(), [byte](BYTE other) { return other == byte; });
}

// What a part makes of the darkest background and of the lightest is the same where it covers both, and is
// still those where it draws nothing. Without memory it is tried again the next time.
State ReadPixels(Entry& entry)
{
    int nKind = 0;
    if (FAILED(GetThemeEnumValue(entry.hTheme, entry.nPart, entry.nState, TMT_BGTYPE, &nKind)) ||
        nKind != BT_IMAGEFILE)
    {
        return State::Uncacheable;
    }
    Canvas canvas(entry.size);
    auto* pPixels = canvas.HasBitmap() ? static_cast<DWORD*>(TryAllocate(entry.ByteCount())) : nullptr;
    if (!pPixels) {
        return State::Seen;
    }
    const void* pOnDark = canvas.Draw(entry, DARKEST);
    if (!pOnDark) {
        Free(pPixels);
        return State::Uncacheable;
    }
    std::memcpy(pPixels, pOnDark, entry.ByteCount());
    const bool fDark = HoldsOnly(pOnDark, entry, DARKEST);
    const void* pOnLight = canvas.Draw(entry, LIGHTEST);
    if (!pOnLight || std::memcmp(pPixels, pOnLight, entry.ByteCount()) != 0) {
        Free(pPixels);
        return pOnLight && fDark && HoldsOnly(pOnLight, entry, LIGHTEST) ? State::Blank : State::Uncacheable;
    }
    MakeRoom(entry.PixelCount());
    s_pixelsCached += entry.PixelCount();
    entry.pPixels = pPixels;
    return State::Cached;
}

bool Copy(const Entry& entry, HDC hdc, const RECT& rc)
{
    const BITMAPINFO info = InfoOf(entry.size);
    const auto cx = static_cast<DWORD>(entry.size.cx);
    const auto cy = static_cast<DWORD>(entry.size.cy);
    return SetDIBitsToDevice(hdc, rc.left, rc.top, cx, cy, 0, 0, 0, cy, entry.pPixels, &info,
                             DIB_RGB_COLORS) != 0;
}

bool CopyOrAdd(HTHEME hTheme, HDC hdc, int nPart, int nState, const RECT& rc)
{
    const SIZE size{rc.right - rc.left, rc.bottom - rc.top};
    const auto found = std::find_if(s_entries.begin(), s_entries.end(), [&](const Entry& entry) {
        return entry.Is(hTheme, nPart, nState, size);
    });
    ++s_uUses;
    if (found == s_entries.end()) {
        Entry& entry = Oldest();
        Drop(entry);
        entry = {hTheme, nPart, nState, size, State::Seen, s_uUses, nullptr};
        return false;
    }
    found->uLastUse = s_uUses;
    if (found->state == State::Seen) {
        found->state = ReadPixels(*found);
    }
    return found->state == State::Blank || (found->state == State::Cached && Copy(*found, hdc, rc));
}

bool IsOfSize(const RECT& rc)
{
    const int64_t cx = int64_t{rc.right} - rc.left;
    const int64_t cy = int64_t{rc.bottom} - rc.top;
    return cx > 0 && cy > 0 && cx <= LONGEST_SIDE && cy <= LONGEST_SIDE &&
           cx * cy <= static_cast<int64_t>(MOST_PIXELS);
}

bool IsPlainMemoryContext(HDC hdc)
{
    return GetObjectType(hdc) == OBJ_MEMDC && GetMapMode(hdc) == MM_TEXT &&
           GetGraphicsMode(hdc) == GM_COMPATIBLE && GetLayout(hdc) == 0;
}

} // namespace

bool DrawCachedPart(HTHEME hTheme, HDC hdc, int nPart, int nState, const RECT& rc)
{
    if (!hTheme || !IsOfSize(rc) || !IsPlainMemoryContext(hdc) || !TryAcquireSRWLockExclusive(&s_lock)) {
        return false;
    }
    const bool fCopied = CopyOrAdd(hTheme, hdc, nPart, nState, rc);
    ReleaseSRWLockExclusive(&s_lock);
    return fCopied;
}

void DropCachedParts(HTHEME hTheme)
{
    AcquireSRWLockExclusive(&s_lock);
    for (Entry& entry : s_entries) {
        if (entry.hTheme && entry.hTheme == hTheme) {
            Drop(entry);
        }
    }
    ReleaseSRWLockExclusive(&s_lock);
}

bool CheckThemePartCache()
{
    AcquireSRWLockExclusive(&s_lock);
    const bool fSound = CheckEntries();
    ReleaseSRWLockExclusive(&s_lock);
    return fSound;
}

} // namespace gesso
