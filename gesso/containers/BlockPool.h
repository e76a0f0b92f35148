// Blocks that are made by the thousand and mostly go together, as a list's are. They lie one behind the other
// in chunks, so that making one is an addition and giving it back a subtraction; a chunk goes with the last
// block in it. What is given back is not used again, so that a pool is for what is made in one go: what comes
// and goes one by one is better off alone.
#pragma once

#include <gesso/api.h>

#include <cstddef>

namespace gesso {

class BlockPool
{
public:
    BlockPool() = default;
    ~BlockPool() { Close(); }
    BlockPool(const BlockPool&) = delete;
    BlockPool& operator=(const BlockPool&) = delete;

    // A block of cb bytes for anything that 8 bytes align. Null without memory. It may outlive the pool.
    [[nodiscard]] void* TryAllocate(size_t cb) noexcept;
    // What is made from now on lies in other chunks.
    void Close() noexcept;

    // A block in the pool, or one by itself for no pool.
    [[nodiscard]] static void* TryAllocate(BlockPool* pPool, size_t cb) noexcept;
    // Gives back either kind; null is ignored. Blocks of one pool are given back by one thread at a time.
    static void Free(void* p) noexcept;

private:
    struct Chunk
    {
        size_t nHeld; // blocks, and the pool that still takes from it
    };
    static void Release(Chunk* pChunk) noexcept;
    bool Open(size_t cb) noexcept;

    Chunk* m_pChunk = nullptr;
    std::byte* m_pNext = nullptr;
    size_t m_cbLeft = 0;
    size_t m_cbChunk = 0;
};

} // namespace gesso
