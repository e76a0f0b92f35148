// Memory of a module's own.
#include <new>
#include <stdlib.h>

void* operator new(size_t cb)
{
    void* const p = malloc(cb ? cb : 1);
    if (!p) {
        throw std::bad_alloc();
    }
    return p;
}

void* operator new(size_t cb, const std::nothrow_t&) noexcept
{
    return malloc(cb ? cb : 1);
}

void* operator new[](size_t cb)
{
    return operator new(cb);
}

void* operator new[](size_t cb, const std::nothrow_t&) noexcept
{
    return malloc(cb ? cb : 1);
}

void operator delete(void* p) noexcept
{
    free(p);
}

void operator delete(void* p, size_t) noexcept
{
    free(p);
}

void operator delete[](void* p) noexcept
{
    free(p);
}

void operator delete[](void* p, size_t) noexcept
{
    free(p);
}

// Where a constructor throws.
void operator delete(void* p, const std::nothrow_t&) noexcept
{
    free(p);
}

void operator delete[](void* p, const std::nothrow_t&) noexcept
{
    free(p);
}
