#include <gesso/framework/Direction.h>
#include <gesso/framework/LibraryWindows.h>
#include <gesso/framework/MakeOnce.h>
#include <gesso/framework/PictureCache.h>

#include <algorithm>
#include <climits>

namespace gesso {
namespace {

constexpr UINT MOST_ENTRIES = 64;
constexpr size_t MOST_PIXELS = size_t{512} * 1024; // of all entries together: two megabytes
constexpr LONG LONGEST_SIDE = 4096;

enum class State
{
    Free, // a place without an entry
    Seen, // once; what is drawn a single time, as while a window is being sized, is not worth its pixels
    Uncacheable,
    Blank, // it draws nothing
    Cached,
};

// A drawing in a size, as it is in a mirrored context or in another one.
struct Entry
{
    State state;
    bool fMirrored;
    UINT uLastUse;
    SIZE size;
    PictureKey key;
    CachedPicture picture;

    bool Is(const PictureKey& other, SIZE otherSize, bool fOtherMirrored) const
    {
        return state != State::Free && size.cx == otherSize.cx && size.cy == otherSize.cy &&
               fMirrored == fOtherMirrored && key == other;
    }
    // Pixels belong to what is cached.
    bool Check() const { return (state == State::Cached) == picture.IsThere(); }
    size_t PixelCount() const
    {
        return picture.IsThere() ? static_cast<size_t>(size.cx) * static_cast<size_t>(size.cy) : 0;
    }
};

constinit std::array<Entry, MOST_ENTRIES> s_entries{};
constinit size_t s_pixelsCached = 0;
constinit UINT s_uUses = 0;

// Threads draw their own controls, and whoever finds the cache in use draws without it.
constinit SRWLOCK s_lock = SRWLOCK_INIT;

void Drop(Entry& entry)
{
    s_pixelsCached -= entry.PixelCount();
    entry.picture.Release();
    entry = {};
}

// The place of what was not used for the longest time; free places come first.
Entry& Oldest()
{
    const auto age = [](const Entry& entry) {
        return entry.state == State::Free ? UINT_MAX : s_uUses - entry.uLastUse;
    };
    return *std::max_element(s_entries.begin(), s_entries.end(),
                             [&](const Entry& a, const Entry& b) { return age(a) < age(b); });
}

// For a new picture, whose pixels are counted already.
void MakeRoom(const Entry& newest)
{
    while (s_pixelsCached > MOST_PIXELS) {
        Entry* pOldest = nullptr;
        for (Entry& entry : s_entries) {
            const bool fOlder = !pOldest || s_uUses - entry.uLastUse > s_uUses - pOldest->uLastUse;
            if (&entry != &newest && entry.picture.IsThere() && fOlder) {
                pOldest = &entry;
            }
        }
        if (!pOldest) {
            break;
        }
        Drop(*pOldest);
    }
}

bool CheckEntries()
{
    size_t pixels = 0;
    for (const Entry& entry : s_entries) {
        const auto same = [&](const Entry& other) {
            return other.Is(entry.key, entry.size, entry.fMirrored);
        };
        const bool fOnlyOne =
            entry.state == State::Free || std::count_if(s_entries.begin(), s_entries.end(), same) == 1;
        if (!entry.Check() || !fOnlyOne) {
            return false;
        }
        pixels += entry.PixelCount();
    }
    return pixels == s_pixelsCached && pixels <= MOST_PIXELS;
}

// Without memory it is tried again the next time.
State ReadPicture(Entry& entry, const CacheableDrawing& drawing)
{
    if (!drawing.IsWorthwhile()) {
        return State::Uncacheable;
    }
    switch (entry.picture.Read(drawing, entry.size, entry.fMirrored)) {
    case CachedPicture::Reading::Done: break;
    case CachedPicture::Reading::Blank: return State::Blank;
    case CachedPicture::Reading::Impossible: return State::Uncacheable;
    default: return State::Seen;
    }
    s_pixelsCached += entry.PixelCount();
    MakeRoom(entry);
    return State::Cached;
}

bool CopyOrAdd(const CacheableDrawing& drawing, HDC hdc, const RECT& rc, bool fMirrored)
{
    const SIZE size{rc.right - rc.left, rc.bottom - rc.top};
    const PictureKey key = drawing.Key();
    const auto found = std::find_if(s_entries.begin(), s_entries.end(),
                                    [&](const Entry& entry) { return entry.Is(key, size, fMirrored); });
    ++s_uUses;
    if (found == s_entries.end()) {
        Entry& entry = Oldest();
        Drop(entry);
        entry = {State::Seen, fMirrored, s_uUses, size, key, {}};
        return false;
    }
    found->uLastUse = s_uUses;
    if (found->state == State::Seen) {
        found->state = ReadPicture(*found, drawing);
    }
    return found->state == State::Blank ||
           (found->state == State::Cached && found->picture.Copy(hdc, {rc.left, rc.top}));
}

bool IsOfSize(const RECT& rc)
{
    const int64_t cx = int64_t{rc.right} - rc.left;
    const int64_t cy = int64_t{rc.bottom} - rc.top;
    return cx > 0 && cy > 0 && cx <= LONGEST_SIDE && cy <= LONGEST_SIDE &&
           cx * cy <= static_cast<int64_t>(MOST_PIXELS);
}

// A mirrored context has a scale, which is none as a rule, and keeps it where it counts from the left for a
// while.
bool IsToScale(HDC hdc, const RECT& rc)
{
    if (GetMapMode(hdc) == MM_TEXT) {
        return true;
    }
    POINT apt[] = {{rc.left, rc.top}, {rc.right, rc.bottom}};
    return LPtoDP(hdc, apt, 2) && std::abs(apt[1].x - apt[0].x) == rc.right - rc.left &&
           apt[1].y - apt[0].y == rc.bottom - rc.top;
}

bool IsOfPixels(HDC hdc, const RECT& rc, DWORD dwLayout)
{
    return GetObjectType(hdc) == OBJ_MEMDC && GetGraphicsMode(hdc) == GM_COMPATIBLE &&
           (dwLayout == 0 || dwLayout == LAYOUT_RTL) && IsToScale(hdc, rc);
}

} // namespace

// The windows are asked for under the lock, so that nothing comes in behind ReleasePictures.
bool DrawCached(const CacheableDrawing& drawing, HDC hdc, const RECT& rc)
{
    const DWORD dwLayout = GetLayout(hdc);
    if (!IsOfSize(rc) || !IsOfPixels(hdc, rc, dwLayout) || !TryAcquireSRWLockExclusive(&s_lock)) {
        return false;
    }
    const bool fCopied = HasLibraryWindows() && CopyOrAdd(drawing, hdc, rc, dwLayout == LAYOUT_RTL);
    ReleaseSRWLockExclusive(&s_lock);
    return fCopied;
}

void DropPictures(HTHEME hTheme)
{
    const ScopedLock lock(s_lock);
    for (Entry& entry : s_entries) {
        if (entry.state != State::Free && entry.key.hTheme == hTheme) {
            Drop(entry);
        }
    }
}

void ReleasePictures()
{
    const ScopedLock lock(s_lock);
    if (HasLibraryWindows()) {
        return;
    }
    for (Entry& entry : s_entries) {
        Drop(entry);
    }
    CachedPicture::ReleaseContext();
}

bool CheckPictureCache()
{
    const ScopedLock lock(s_lock);
    return CheckEntries();
}

} // namespace gesso
