#include <gesso/containers/Memory.h>

#include <cstdio>
#include <cstdlib>

namespace gesso {
namespace {

void* Checked(void* p) noexcept
{
    if (!p) {
        OutOfMemory();
    }
    return p;
}

} // namespace

void* Allocate(size_t cb)
{
    return Checked(TryAllocate(cb));
}

void* Reallocate(void* p, size_t cb)
{
    return Checked(TryReallocate(p, cb));
}

void* TryAllocate(size_t cb) noexcept
{
    return std::malloc(cb);
}

void* TryReallocate(void* p, size_t cb) noexcept
{
    return std::realloc(p, cb);
}

void Free(void* p) noexcept
{
    std::free(p);
}

void OutOfMemory() noexcept
{
    std::fputs("gesso: out of memory\n", stderr);
    std::abort();
}

} // namespace gesso
