// What the sources of CDrawText share: the arrays of a buffer, and arithmetic that any input may go through.
#pragma once

#include <gesso/containers/Memory.h>
#include <gesso/text/CDrawText.h>
#include <gesso/text/RunFonts.h>

#include <algorithm>
#include <array>
#include <optional>

namespace gesso {

// True unless the buffer is null or comes from the invalid handle.
inline bool IsBuffer(const stcDrawTextBuffer* pBuffer)
{
    return pBuffer && reinterpret_cast<intptr_t>(pBuffer) != -1;
}

// Sums and differences of 32 bits that wrap: advances and rectangles come from outside.
constexpr int WrapAdd(int a, int b)
{
    return static_cast<int>(static_cast<UINT>(a) + static_cast<UINT>(b));
}

constexpr int WrapSubtract(int a, int b)
{
    return static_cast<int>(static_cast<UINT>(a) - static_cast<UINT>(b));
}

// How much of an array can be read: none where a buffer was freed and kept its counts, and no more than the
// capacity, which a buffer built by hand may leave at zero.
constexpr UINT Usable(const void* pArray, UINT nCount, UINT nCapacity)
{
    return !pArray ? 0 : nCapacity != 0 ? std::min(nCount, nCapacity) : nCount;
}

// As a signed number, the count of items may be negative: there are none then.
inline UINT UsableItems(const stcDrawTextBuffer& buffer)
{
    return buffer.pRuns && static_cast<int>(buffer.nItems) > 0
               ? Usable(buffer.pItems, buffer.nItems, buffer.nItemsAlloc)
               : 0;
}

inline UINT UsableChars(const stcDrawTextBuffer& buffer)
{
    return buffer.pLogAttr ? Usable(buffer.pLogClust, buffer.nChars, buffer.nCharsAlloc) : 0;
}

inline UINT UsableGlyphs(const stcDrawTextBuffer& buffer)
{
    return buffer.pAdvance ? Usable(buffer.pGlyphs, buffer.nGlyphs, buffer.nGlyphsAlloc) : 0;
}

// How far an item moves the pen.
constexpr int RunWidth(const stcDrawTextRun& run)
{
    return WrapAdd(WrapAdd(run.abc.abcA, static_cast<int>(run.abc.abcB)), run.abc.abcC);
}

constexpr UINT RunEnd(const stcDrawTextRun& run)
{
    return run.nFirstGlyph + static_cast<UINT>(run.nGlyphs);
}

// What fOneBlock holds.
constexpr UINT ONE_BLOCK = 1; // the arrays but pBreaks lie in one block
// There are right-to-left items, or items of several fonts: each line is painted once, in the order in which
// it is read.
constexpr UINT PAINTED_AS_READ = 2;
// The buffer stands in a block with other things, with which it goes.
constexpr UINT STANDS_IN_BLOCK = 4;
constexpr UINT FONTS_OFFSET = ~7U; // where in the block the items' fonts begin; 0 if there are none
// Of a buffer that stands in a block, without ONE_BLOCK: arrays, lines and cache are those of other texts
// too. They are neither written nor freed through the buffer.
constexpr UINT SHARED = 8;

inline bool IsPaintedAsRead(const stcDrawTextBuffer& buffer)
{
    return buffer.fOneBlock & PAINTED_AS_READ;
}

inline bool IsShared(const stcDrawTextBuffer& buffer)
{
    constexpr UINT BITS = STANDS_IN_BLOCK | SHARED;
    return (buffer.fOneBlock & (ONE_BLOCK | BITS)) == BITS;
}

// The first item that ends at the glyph or behind it, so that an item's end counts as its own; the number of
// items if there is none.
UINT FindRun(const stcDrawTextBuffer& buffer, UINT nGlyph);

// The advances of the glyphs from nFirst up to nEnd.
int SumAdvances(const stcDrawTextBuffer& buffer, UINT nFirst, UINT nEnd);

void FreeCache(SCRIPT_CACHE& cache);

// A block of n zeros; null without memory. There is a block for none too: the platform refuses null arrays,
// however short.
template <class T> T* AllocateArray(UINT n)
{
    const size_t cb = std::max(n, 1U) * sizeof(T);
    void* const p = TryAllocate(cb);
    return p ? static_cast<T*>(std::memset(p, 0, cb)) : nullptr;
}

template <class T> void FreeArray(T*& p)
{
    Free(p);
    p = nullptr;
}

// Gives an array of nFormer elements room for n, the new ones being zero. False, with the array as it was,
// without memory.
template <class T> [[nodiscard]] bool GrowArray(T*& p, UINT nFormer, UINT n)
{
    void* const pGrown = TryReallocate(p, n * sizeof(T));
    if (!pGrown) {
        return false;
    }
    p = static_cast<T*>(pGrown);
    std::memset(p + nFormer, 0, (n - nFormer) * sizeof(T));
    return true;
}

// What a calculation fills has one block in a prepared text, which pItems begins: of the time that a list
// takes to prepare its texts, a block an array took almost a quarter.
//
// What is false without memory has then done nothing.

// Replaces the arrays with exact copies of those of another buffer, in one block. `fonts` has the font of
// each item, or nothing.
[[nodiscard]] bool CopyCalculated(stcDrawTextBuffer& buffer, const stcDrawTextBuffer& from,
                                  std::span<const RunFontRef> fonts);
// Gives a buffer the one block of another, in the place of what it has. The other one keeps nothing.
void MoveCalculated(stcDrawTextBuffer& buffer, stcDrawTextBuffer& from);
void FreeCalculated(stcDrawTextBuffer& buffer);
// How far the arrays reach in a block that the library made, up to the fonts; 0 where they do not lie in one,
// as those of a buffer that a program filled, behind which nothing may be read.
size_t BlockSize(const stcDrawTextBuffer& buffer);
// Gives each array an exact block of its own.
[[nodiscard]] bool PartCalculated(stcDrawTextBuffer& buffer);

// Gives a buffer that shares what it has arrays and lines of its own. There is nothing to be done for others.
[[nodiscard]] bool Unshare(stcDrawTextBuffer& buffer);
// Leaves a buffer that shares what it has without any of it. It keeps its counts.
void LeaveShared(stcDrawTextBuffer& buffer);

// What is kept of a font while texts are prepared in it one after another.
struct PassFont
{
    PassFont() = default;
    ~PassFont() { FreeCache(cache); }
    PassFont(const PassFont&) = delete;
    PassFont& operator=(const PassFont&) = delete;

    SCRIPT_CACHE cache = nullptr;
    bool fDefaultRead = false;
    std::optional<WORD> wDefault; // the glyph for what the font lacks
    bool fHeightRead = false;
    int nHeight = 0;
};

// The items that a text was found to have, which are the same in every font.
struct TextItems
{
    static constexpr UINT MOST = 15;

    UINT nItems = 0; // 0 where they are not known, or too many
    std::array<SCRIPT_ITEM, MOST + 1> items;
};

enum class Prepared
{
    Yes,
    NeedsContext, // of those that were tried without one
    No            // for DrawText_Prepare alone
};
// Prepares a text as DrawText_Prepare does with no rectangle, in working space. Without a context it gets
// through where the font is known well enough. It says No to what a font alone does not show in the order of
// the text, and where anything fails, so that the next one has nothing of that.
Prepared PrepareInSpace(HDC hdc, PassFont& font, LPCWSTR pszText, UINT nChars, UINT uFormat, int nLineHeight,
                        stcDrawTextBuffer& space, TextItems& items);
// The part of it that CDrawText::DrawText_Calculate_Optimized does.
Prepared CalculateInSpace(HDC hdc, PassFont& font, LPCWSTR pszText, UINT nChars, stcDrawTextBuffer& space,
                          TextItems& items);

// The operations of CDrawText by these names. False without memory, and then the buffer is as their header
// says.
[[nodiscard]] bool CalculateExactly(HDC hdc, LPCWSTR pszText, UINT nChars, stcDrawTextBuffer& buffer);
[[nodiscard]] bool BreakText(LPCWSTR pszText, UINT nChars, UINT cxMax, stcDrawTextBuffer& buffer);

} // namespace gesso
