#include "Accounting.h"
#include "Faults.h"

// Movable and fixed blocks are the same here: the handle is the block's address.

namespace {

using namespace gesso::headless;

struct Header
{
    SIZE_T size;
    SIZE_T locks;
};

Header* HeaderOf(HGLOBAL block)
{
    if (!IsLive(Kind::GlobalMemory, block)) {
        SetLastError(ERROR_INVALID_HANDLE);
        return nullptr;
    }
    return static_cast<Header*>(block) - 1;
}

} // namespace

extern "C" {

HGLOBAL WINAPI GlobalAlloc(UINT, SIZE_T size)
{
    if (FaultFires("GlobalAlloc")) {
        return nullptr;
    }
    auto* header = static_cast<Header*>(std::calloc(1, sizeof(Header) + size));
    if (!header) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return nullptr;
    }
    header->size = size;
    Track(Kind::GlobalMemory, header + 1);
    return header + 1;
}

HGLOBAL WINAPI GlobalFree(HGLOBAL block)
{
    Header* header = HeaderOf(block);
    if (!header) {
        return block;
    }
    Untrack(Kind::GlobalMemory, block);
    std::free(header);
    return nullptr;
}

LPVOID WINAPI GlobalLock(HGLOBAL block)
{
    if (FaultFires("GlobalLock")) {
        return nullptr;
    }
    Header* header = HeaderOf(block);
    if (!header) {
        return nullptr;
    }
    ++header->locks;
    return block;
}

BOOL WINAPI GlobalUnlock(HGLOBAL block)
{
    Header* header = HeaderOf(block);
    if (!header) {
        return FALSE;
    }
    if (header->locks == 0) {
        SetLastError(ERROR_NOT_LOCKED);
        return FALSE;
    }
    SetLastError(NO_ERROR);
    return --header->locks != 0;
}

SIZE_T WINAPI GlobalSize(HGLOBAL block)
{
    const Header* header = HeaderOf(block);
    return header ? header->size : 0;
}
}
