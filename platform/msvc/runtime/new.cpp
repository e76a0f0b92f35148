// Memory of a module's own. A program may bring any of these itself, and then that is what the others use.
#include <new>

#include <malloc.h>
#include <stdlib.h>

#define REPLACEABLE [[gnu::weak]]

namespace {

void* OrThrow(void* p)
{
    if (!p) {
        throw std::bad_alloc();
    }
    return p;
}

} // namespace

REPLACEABLE void* operator new(size_t cb)
{
    return OrThrow(malloc(cb ? cb : 1));
}

REPLACEABLE void* operator new(size_t cb, const std::nothrow_t&) noexcept
try {
    return operator new(cb);
} catch (...) {
    return nullptr;
}

REPLACEABLE void* operator new[](size_t cb)
{
    return operator new(cb);
}

REPLACEABLE void* operator new[](size_t cb, const std::nothrow_t&) noexcept
try {
    return operator new[](cb);
} catch (...) {
    return nullptr;
}

REPLACEABLE void operator delete(void* p) noexcept
{
    free(p);
}

REPLACEABLE void operator delete(void* p, size_t) noexcept
{
    operator delete(p);
}

REPLACEABLE void operator delete[](void* p) noexcept
{
    operator delete(p);
}

REPLACEABLE void operator delete[](void* p, size_t) noexcept
{
    operator delete[](p);
}

// Where a constructor throws.
REPLACEABLE void operator delete(void* p, const std::nothrow_t&) noexcept
{
    operator delete(p);
}

REPLACEABLE void operator delete[](void* p, const std::nothrow_t&) noexcept
{
    operator delete[](p);
}

// Of types that are aligned to more than 16 bytes; and of containers, compiled without optimization, whose
// memory the C++ library asks for in this form.
REPLACEABLE void* operator new(size_t cb, std::align_val_t alignment)
{
    return OrThrow(_aligned_malloc(cb ? cb : 1, static_cast<size_t>(alignment)));
}

REPLACEABLE void* operator new(size_t cb, std::align_val_t alignment, const std::nothrow_t&) noexcept
try {
    return operator new(cb, alignment);
} catch (...) {
    return nullptr;
}

REPLACEABLE void* operator new[](size_t cb, std::align_val_t alignment)
{
    return operator new(cb, alignment);
}

REPLACEABLE void* operator new[](size_t cb, std::align_val_t alignment, const std::nothrow_t&) noexcept
try {
    return operator new[](cb, alignment);
} catch (...) {
    return nullptr;
}

REPLACEABLE void operator delete(void* p, std::align_val_t) noexcept
{
    _aligned_free(p);
}

REPLACEABLE void operator delete(void* p, size_t, std::align_val_t alignment) noexcept
{
    operator delete(p, alignment);
}

REPLACEABLE void operator delete(void* p, std::align_val_t alignment, const std::nothrow_t&) noexcept
{
    operator delete(p, alignment);
}

REPLACEABLE void operator delete[](void* p, std::align_val_t alignment) noexcept
{
    operator delete(p, alignment);
}

REPLACEABLE void operator delete[](void* p, size_t, std::align_val_t alignment) noexcept
{
    operator delete[](p, alignment);
}

REPLACEABLE void operator delete[](void* p, std::align_val_t alignment, const std::nothrow_t&) noexcept
{
    operator delete[](p, alignment);
}
