#include <gesso/containers/Memory.h>

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
    return Checked(std::malloc(cb));
}

void* Reallocate(void* p, size_t cb)
{
    return Checked(std::realloc(p, cb));
}

void Free(void* p) noexcept
{
    std::free(p);
}

void OutOfMemory() noexcept
{
    std::abort();
}

} // namespace gesso
