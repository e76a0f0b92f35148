// Whose memory the objects are that are made by `new`.
#pragma once

#include <gesso/containers/Memory.h>

#include <new>

namespace gesso {

// A base of classes with a virtual destructor: their objects are of the library's memory, whoever makes them.
// Whoever deletes them, their destructor may be the library's, and a host's memory may be another, as that of
// a debug build is. All forms of `new` go as they always do; what is thrown without memory is thrown by who
// asked. A derived class that is to be aligned to more than 16 bytes brings operators of its own.
class LibraryMemory
{
public:
    static void* operator new(size_t cb) { return Checked(TryAllocate(cb)); }
    static void* operator new[](size_t cb) { return Checked(TryAllocate(cb)); }
    static void* operator new(size_t cb, const std::nothrow_t&) noexcept { return TryAllocate(cb); }
    static void* operator new[](size_t cb, const std::nothrow_t&) noexcept { return TryAllocate(cb); }
    static void* operator new(size_t, void* p) noexcept { return p; }
    static void* operator new[](size_t, void* p) noexcept { return p; }
    // Of debug builds: where it was called comes with it, which is not kept.
    template <class... WHERE>
    requires(sizeof...(WHERE) > 1) static void* operator new(size_t cb, WHERE...)
    {
        return Checked(TryAllocate(cb));
    }
    template <class... WHERE>
    requires(sizeof...(WHERE) > 1) static void* operator new[](size_t cb, WHERE...)
    {
        return Checked(TryAllocate(cb));
    }

    static void operator delete(void* p) noexcept { Free(p); }
    static void operator delete[](void* p) noexcept { Free(p); }
    // Where a constructor throws.
    static void operator delete(void* p, const std::nothrow_t&) noexcept { Free(p); }
    static void operator delete[](void* p, const std::nothrow_t&) noexcept { Free(p); }
    static void operator delete(void*, void*) noexcept {}
    static void operator delete[](void*, void*) noexcept {}
    template <class... WHERE>
    requires(sizeof...(WHERE) > 1) static void operator delete(void* p, WHERE...) noexcept { Free(p); }
    template <class... WHERE>
    requires(sizeof...(WHERE) > 1) static void operator delete[](void* p, WHERE...) noexcept { Free(p); }

protected:
    LibraryMemory() = default;
    ~LibraryMemory() = default;
    LibraryMemory(const LibraryMemory&) = default;
    LibraryMemory& operator=(const LibraryMemory&) = default;

private:
    static void* Checked(void* p)
    {
        if (!p) {
            throw std::bad_alloc();
        }
        return p;
    }
};

} // namespace gesso
