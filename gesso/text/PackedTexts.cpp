#include <gesso/containers/Memory.h>
#include <gesso/text/PackedTexts.h>
#include <gesso/text/TextArrays.h>

#include <cstring>
#include <utility>

namespace gesso {
namespace {

constexpr UINT FIRST_ENTRIES = 64;
constexpr UINT MOST_ENTRIES = 4096;
constexpr size_t LONGEST_SHARED = 512;
constexpr size_t ALIGNMENT = 4; // of what the arrays hold

constexpr size_t Aligned(size_t cb)
{
    return (cb + ALIGNMENT - 1) / ALIGNMENT * ALIGNMENT;
}

// Those of the strictest alignment first.
template <class VISIT> void VisitArrays(stcDrawTextBuffer& buffer, const VISIT& visit)
{
    visit(buffer.pItems, buffer.nItems);
    visit(buffer.pRuns, buffer.nItems);
    visit(buffer.pBreaks, buffer.nBreaks + 1);
    visit(buffer.pAdvance, buffer.nGlyphs);
    visit(buffer.pOffset, buffer.nGlyphs);
    visit(buffer.pGlyphs, buffer.nGlyphs);
    visit(buffer.pLogClust, buffer.nChars);
    visit(buffer.pVisAttr, buffer.nGlyphs);
    visit(buffer.pLogAttr, buffer.nChars);
}
constexpr size_t ARRAYS = 9;
constexpr size_t GLYPHS = 5; // which of them are the glyphs: texts that have the same ones are the same
static_assert(ARRAYS - 1 == SharedArrays::KINDS);

// One array: where it is now, and where it is to be.
struct Array
{
    const void* pFrom = nullptr;
    size_t cb = 0;
    void* pShared = nullptr; // null for one that has a place of its own
};
using Arrays = std::array<Array, ARRAYS>;

Arrays ArraysOf(const stcDrawTextBuffer& text)
{
    Arrays arrays;
    stcDrawTextBuffer copy = text;
    size_t n = 0;
    VisitArrays(copy, [&](auto*& p, UINT nCount) { arrays[n++] = {p, nCount * sizeof(*p), nullptr}; });
    return arrays;
}

bool AreAlike(const Array& a, const Array& b)
{
    return a.cb == b.cb && a.cb != 0 && std::memcmp(a.pFrom, b.pFrom, a.cb) == 0;
}

void ShareArray(size_t n, Array& array, SharedArrays& shared)
{
    if (n != GLYPHS && array.cb != 0) {
        array.pShared = shared.Share(n < GLYPHS ? n : n - 1, array.pFrom, array.cb);
    }
}

// The header of a text whose arrays come to lie in the block from pNext on, in turn with those of the other.
class Packing
{
public:
    explicit Packing(std::byte* pNext) : m_pNext(pNext) {}

    void* Place(const Array& array)
    {
        if (array.pShared || array.cb == 0) {
            return array.pShared;
        }
        std::byte* const pHere = m_pNext;
        std::memcpy(pHere, array.pFrom, array.cb);
        m_pNext += array.cb;
        return pHere;
    }

private:
    std::byte* m_pNext;
};

void SetArrays(stcDrawTextBuffer& buffer, const std::array<void*, ARRAYS>& places)
{
    size_t n = 0;
    VisitArrays(buffer, [&]<class T>(T*& p, UINT) { p = static_cast<T*>(places[n++]); });
}

void SetHeader(stcDrawTextBuffer& buffer, const stcDrawTextBuffer& text, SCRIPT_CACHE cache)
{
    buffer = text;
    buffer.nItemsAlloc = text.nItems;
    buffer.nCharsAlloc = text.nChars;
    buffer.nGlyphsAlloc = text.nGlyphs;
    buffer.scriptCache = cache;
    buffer.fOneBlock = STANDS_IN_BLOCK | SHARED;
}

} // namespace

UINT HashOf(const void* pBytes, size_t cb)
{
    constexpr uint64_t FACTOR = 0x9E3779B97F4A7C15;
    const auto* p = static_cast<const std::byte*>(pBytes);
    uint64_t hash = cb * FACTOR;
    for (; cb >= sizeof(uint64_t); cb -= sizeof(uint64_t), p += sizeof(uint64_t)) {
        uint64_t word;
        std::memcpy(&word, p, sizeof(word));
        hash = (hash ^ word) * FACTOR;
        hash ^= hash >> 32;
    }
    uint64_t rest = 0;
    std::memcpy(&rest, p, cb);
    hash = (hash ^ rest) * FACTOR;
    return static_cast<UINT>(hash >> 32);
}

SharedArrays::~SharedArrays()
{
    for (std::byte* const pChunk : m_chunks) {
        Free(pChunk);
    }
    Free(m_pEntries);
}

// The entry of the bytes, or the free one that they would have.
SharedArrays::Entry* SharedArrays::Place(UINT hash, const void* pBytes, size_t cb) const
{
    UINT n = hash & (m_nEntries - 1);
    for (;; n = (n + 1) & (m_nEntries - 1)) {
        Entry& entry = m_pEntries[n];
        const bool fSame = entry.hash == hash && entry.cb == cb && std::memcmp(entry.pBytes, pBytes, cb) == 0;
        if (entry.cb == 0 || fSame) {
            return &entry;
        }
    }
}

// Half of the entries are free, so that a search is short. False where there is no more room.
bool SharedArrays::MakeRoom()
{
    if (m_nUsed < m_nEntries / 2) {
        return true;
    }
    const UINT nFormer = m_nEntries;
    const UINT nEntries = nFormer ? 4 * nFormer : FIRST_ENTRIES;
    auto* const pEntries = nEntries <= MOST_ENTRIES ? AllocateArray<Entry>(nEntries) : nullptr;
    if (!pEntries) {
        return false;
    }
    Entry* const pFormer = std::exchange(m_pEntries, pEntries);
    m_nEntries = nEntries;
    for (UINT n = 0; n < nFormer; ++n) {
        if (pFormer[n].cb != 0) {
            *Place(pFormer[n].hash, pFormer[n].pBytes, pFormer[n].cb) = pFormer[n];
        }
    }
    Free(pFormer);
    return true;
}

void* SharedArrays::Keep(const void* pBytes, size_t cb)
{
    const size_t cbRoom = Aligned(cb);
    if (cbRoom > m_cbLeft) {
        auto* const pChunk = m_nChunks < MOST_CHUNKS ? static_cast<std::byte*>(TryAllocate(CHUNK)) : nullptr;
        if (!pChunk) {
            return nullptr;
        }
        m_chunks[m_nChunks++] = pChunk;
        m_cbLeft = CHUNK;
    }
    void* const pHere = m_chunks[m_nChunks - 1] + (CHUNK - m_cbLeft);
    m_cbLeft -= cbRoom;
    return std::memcpy(pHere, pBytes, cb);
}

void* SharedArrays::Share(size_t kind, const void* pBytes, size_t cb)
{
    constexpr UINT FACTOR = 0x9E3779B1;
    const size_t n = kind * LENGTHS + (static_cast<UINT>(cb) * FACTOR >> LENGTH_SHIFT);
    if (m_lastSizes[n] == cb && std::memcmp(m_lasts[n], pBytes, cb) == 0) {
        return m_lasts[n];
    }
    void* const pShared = Find(pBytes, cb);
    if (pShared) {
        m_lasts[n] = pShared;
        m_lastSizes[n] = static_cast<WORD>(cb);
    }
    return pShared;
}

void* SharedArrays::Find(const void* pBytes, size_t cb)
{
    if (cb > LONGEST_SHARED || (m_nEntries == 0 && !MakeRoom())) {
        return nullptr;
    }
    const UINT hash = HashOf(pBytes, cb);
    Entry* pEntry = Place(hash, pBytes, cb);
    if (pEntry->cb != 0) {
        return pEntry->pBytes;
    }
    void* const pKept = MakeRoom() ? Keep(pBytes, cb) : nullptr;
    if (pKept) {
        *Place(hash, pBytes, cb) = {hash, static_cast<UINT>(cb), pKept};
        ++m_nUsed;
    }
    return pKept;
}

std::byte* PackTexts(BlockPool* pPool, size_t cbFront, const stcDrawTextBuffer& first,
                     SCRIPT_CACHE firstCache, const stcDrawTextBuffer& second, SCRIPT_CACHE secondCache,
                     SharedArrays& shared)
{
    Arrays a = ArraysOf(first);
    Arrays b = ArraysOf(second);
    std::array<bool, ARRAYS> alike{};
    size_t cb = cbFront + 2 * sizeof(stcDrawTextBuffer);
    for (size_t n = 0; n < ARRAYS; ++n) {
        ShareArray(n, a[n], shared);
        alike[n] = AreAlike(a[n], b[n]);
        if (!alike[n]) {
            ShareArray(n, b[n], shared);
        }
        cb += (a[n].pShared ? 0 : a[n].cb) + (b[n].pShared || alike[n] ? 0 : b[n].cb);
    }
    auto* const pBlock = static_cast<std::byte*>(BlockPool::TryAllocate(pPool, cb));
    if (!pBlock) {
        return nullptr;
    }
    auto* const pTexts = reinterpret_cast<stcDrawTextBuffer*>(pBlock + cbFront);
    SetHeader(pTexts[0], first, firstCache);
    SetHeader(pTexts[1], second, secondCache);
    Packing packing(reinterpret_cast<std::byte*>(pTexts + 2));
    std::array<void*, ARRAYS> placesA{};
    std::array<void*, ARRAYS> placesB{};
    for (size_t n = 0; n < ARRAYS; ++n) {
        placesA[n] = packing.Place(a[n]);
        placesB[n] = alike[n] ? placesA[n] : packing.Place(b[n]);
    }
    SetArrays(pTexts[0], placesA);
    SetArrays(pTexts[1], placesB);
    return pBlock;
}

} // namespace gesso
