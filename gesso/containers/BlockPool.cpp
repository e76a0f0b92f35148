#include <gesso/containers/BlockPool.h>
#include <gesso/containers/Memory.h>

#include <algorithm>
#include <utility>

namespace gesso {
namespace {

constexpr size_t ALIGNMENT = 8;
constexpr size_t SMALLEST_CHUNK = size_t{2} << 10;
constexpr size_t LARGEST_CHUNK = size_t{64} << 10;
constexpr size_t LARGEST_POOLED = size_t{4} << 10; // of which little is saved, and much of a chunk is taken

// In front of each block stands its chunk, null for one that lies in none.
constexpr size_t FRONT = ALIGNMENT;

} // namespace

void BlockPool::Release(Chunk* pChunk) noexcept
{
    if (--pChunk->nHeld == 0) {
        gesso::Free(pChunk);
    }
}

void BlockPool::Close() noexcept
{
    if (m_pChunk) {
        Release(std::exchange(m_pChunk, nullptr));
    }
    m_cbLeft = 0;
    m_cbChunk = 0;
}

// Chunks grow with the pool.
bool BlockPool::Open(size_t cb) noexcept
{
    const size_t cbChunk =
        std::clamp(2 * m_cbChunk, std::max(SMALLEST_CHUNK, cb + sizeof(Chunk)), LARGEST_CHUNK);
    auto* const pChunk = static_cast<Chunk*>(gesso::TryAllocate(cbChunk));
    if (!pChunk) {
        return false;
    }
    if (m_pChunk) {
        Release(m_pChunk);
    }
    pChunk->nHeld = 1;
    m_pChunk = pChunk;
    m_pNext = reinterpret_cast<std::byte*>(pChunk + 1);
    m_cbLeft = cbChunk - sizeof(Chunk);
    m_cbChunk = cbChunk;
    return true;
}

void* BlockPool::TryAllocate(size_t cb) noexcept
{
    if (cb > LARGEST_POOLED) {
        return TryAllocate(nullptr, cb);
    }
    const size_t cbWhole = FRONT + (cb + ALIGNMENT - 1) / ALIGNMENT * ALIGNMENT;
    if (cbWhole > m_cbLeft && !Open(cbWhole)) {
        return nullptr;
    }
    std::byte* const pFront = m_pNext;
    m_pNext += cbWhole;
    m_cbLeft -= cbWhole;
    ++m_pChunk->nHeld;
    *reinterpret_cast<Chunk**>(pFront) = m_pChunk;
    return pFront + FRONT;
}

void* BlockPool::TryAllocate(BlockPool* pPool, size_t cb) noexcept
{
    if (pPool) {
        return pPool->TryAllocate(cb);
    }
    auto* const pFront = static_cast<std::byte*>(gesso::TryAllocate(FRONT + cb));
    if (!pFront) {
        return nullptr;
    }
    *reinterpret_cast<Chunk**>(pFront) = nullptr;
    return pFront + FRONT;
}

void BlockPool::Free(void* p) noexcept
{
    if (!p) {
        return;
    }
    std::byte* const pFront = static_cast<std::byte*>(p) - FRONT;
    Chunk* const pChunk = *reinterpret_cast<Chunk**>(pFront);
    pChunk ? Release(pChunk) : gesso::Free(pFront);
}

} // namespace gesso
