// Prepared texts with less around them: the headers and arrays of two of one text, in two fonts, lie in one
// block, and what many texts have in common is kept once.
#pragma once

#include <gesso/containers/BlockPool.h>
#include <gesso/text/CDrawText.h>

#include <array>
#include <cstddef>

namespace gesso {

// Short arrays that texts share. It holds so many and no more, which a column of words soon fills: what is
// often the same is there by then.
class SharedArrays
{
public:
    SharedArrays() = default;
    ~SharedArrays();
    SharedArrays(const SharedArrays&) = delete;
    SharedArrays& operator=(const SharedArrays&) = delete;

    static constexpr size_t KINDS = 8;

    // The array of the same bytes, which comes in if there is none. Null where there is no room, or no
    // memory. Arrays of a kind that are as long as one another are often the same, and found at once then.
    void* Share(size_t kind, const void* pBytes, size_t cb);

private:
    struct Entry
    {
        UINT hash;
        UINT cb; // 0 for none
        void* pBytes;
    };
    void* Find(const void* pBytes, size_t cb);
    bool MakeRoom();
    Entry* Place(UINT hash, const void* pBytes, size_t cb) const;
    void* Keep(const void* pBytes, size_t cb);

    static constexpr size_t CHUNK = 4096;
    static constexpr size_t MOST_CHUNKS = 16;

    static constexpr UINT LENGTH_SHIFT = 28;
    static constexpr size_t LENGTHS = 1U << (32 - LENGTH_SHIFT);

    std::array<void*, KINDS * LENGTHS> m_lasts{}; // found for a kind and length
    std::array<WORD, KINDS * LENGTHS> m_lastSizes{};
    Entry* m_pEntries = nullptr;
    UINT m_nEntries = 0;
    UINT m_nUsed = 0;
    std::array<std::byte*, MOST_CHUNKS> m_chunks{};
    size_t m_nChunks = 0;
    size_t m_cbLeft = 0; // in the last chunk
};

// Of some bytes, which equal ones have too.
UINT HashOf(const void* pBytes, size_t cb);

// A new block that begins with `cbFront` bytes, a multiple of 8, for the caller; behind them stand the two
// buffers, as PrepareInSpace has left them, with a cache each that is not theirs. It lies in a pool; null for
// none. BlockPool::Free gives it back. Null without memory.
std::byte* PackTexts(BlockPool* pPool, size_t cbFront, const stcDrawTextBuffer& first,
                     SCRIPT_CACHE firstCache, const stcDrawTextBuffer& second, SCRIPT_CACHE secondCache,
                     SharedArrays& shared);

} // namespace gesso
