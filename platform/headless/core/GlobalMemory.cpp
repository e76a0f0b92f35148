#include "GlobalMemory.h"
#include "Accounting.h"
#include "Faults.h"
#include "TableLock.h"

#include <memory>
#include <unordered_map>

using namespace gesso::headless;

namespace {

struct Block
{
    std::unique_ptr<std::byte[]> memory;
    SIZE_T size;
    SIZE_T locks = 0;
};

std::unordered_map<HGLOBAL, Block>& Blocks()
{
    static std::unordered_map<HGLOBAL, Block> s_blocks;
    return s_blocks;
}

Block* FindBlock(HGLOBAL handle)
{
    const TableLock lock;
    const auto found = Blocks().find(handle);
    if (found == Blocks().end()) {
        SetLastError(ERROR_INVALID_HANDLE);
        return nullptr;
    }
    return &found->second;
}

// The handle of a movable block is no address, so that one who does not lock it is found out.
HGLOBAL NextHandle()
{
    static constinit uintptr_t s_last = 0x0C000000;
    s_last += 4;
    return reinterpret_cast<HGLOBAL>(s_last);
}

} // namespace

namespace gesso::headless {

void* BlockOf(HGLOBAL handle)
{
    const TableLock lock;
    const Block* block = FindBlock(handle);
    return block ? block->memory.get() : nullptr;
}

} // namespace gesso::headless

extern "C" {

HGLOBAL WINAPI GlobalAlloc(UINT flags, SIZE_T size)
{
    const TableLock lock;
    if (FaultFires("GlobalAlloc")) {
        return nullptr;
    }
    Block block{std::make_unique<std::byte[]>(size), size};
    const HGLOBAL handle = flags & GMEM_MOVEABLE ? NextHandle() : block.memory.get();
    Track(Kind::GlobalMemory, handle);
    Blocks().emplace(handle, std::move(block));
    return handle;
}

HGLOBAL WINAPI GlobalFree(HGLOBAL handle)
{
    if (FaultFires("GlobalFree")) {
        return handle;
    }
    const TableLock lock;
    if (!FindBlock(handle)) {
        return handle;
    }
    Untrack(Kind::GlobalMemory, handle);
    Blocks().erase(handle);
    return nullptr;
}

LPVOID WINAPI GlobalLock(HGLOBAL handle)
{
    const TableLock lock;
    Block* block = FaultFires("GlobalLock") ? nullptr : FindBlock(handle);
    if (!block) {
        return nullptr;
    }
    ++block->locks;
    return block->memory.get();
}

BOOL WINAPI GlobalUnlock(HGLOBAL handle)
{
    if (FaultFires("GlobalUnlock")) {
        return FALSE;
    }
    const TableLock lock;
    Block* block = FindBlock(handle);
    if (!block) {
        return FALSE;
    }
    if (block->locks == 0) {
        SetLastError(ERROR_NOT_LOCKED);
        return FALSE;
    }
    SetLastError(NO_ERROR);
    return --block->locks != 0;
}

SIZE_T WINAPI GlobalSize(HGLOBAL handle)
{
    if (FaultFires("GlobalSize")) {
        return 0;
    }
    const TableLock lock;
    const Block* block = FindBlock(handle);
    return block ? block->size : 0;
}
}
