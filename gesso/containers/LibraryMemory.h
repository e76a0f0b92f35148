// Whose memory the objects are that are made by `new`.
#pragma once

#include <gesso/containers/Memory.h>

#include <cstdint>
#include <new>
#include <type_traits>

namespace gesso {

// A base of classes with a virtual destructor: their objects are of the library's memory, whoever makes them.
// Whoever deletes them, their destructor may be the library's, and a host's memory may be another, as that of
// a debug build is. All forms of `new` go as they always do, those of derived classes that are to be aligned
// to more than 16 bytes as well; what is thrown without memory is thrown by who asked, and without exceptions
// the program ends with a message.
class LibraryMemory
{
    // Of debug builds: where it was called comes with it, which is not kept.
    template <class FIRST, class... MORE>
    static constexpr bool IS_PLACE = sizeof...(MORE) > 0 && !std::is_same_v<FIRST, std::align_val_t>;

public:
    static void* operator new(size_t cb) { return Checked(TryAllocate(cb)); }
    static void* operator new[](size_t cb) { return Checked(TryAllocate(cb)); }
    static void* operator new(size_t cb, const std::nothrow_t&) noexcept { return TryAllocate(cb); }
    static void* operator new[](size_t cb, const std::nothrow_t&) noexcept { return TryAllocate(cb); }
    static void* operator new(size_t, void* p) noexcept { return p; }
    static void* operator new[](size_t, void* p) noexcept { return p; }
    template <class... WHERE>
    requires IS_PLACE<WHERE...>
    static void* operator new(size_t cb, WHERE...) { return Checked(TryAllocate(cb)); }
    template <class... WHERE>
    requires IS_PLACE<WHERE...>
    static void* operator new[](size_t cb, WHERE...) { return Checked(TryAllocate(cb)); }

    static void operator delete(void* p) noexcept { Free(p); }
    static void operator delete[](void* p) noexcept { Free(p); }
    // Where a constructor throws.
    static void operator delete(void* p, const std::nothrow_t&) noexcept { Free(p); }
    static void operator delete[](void* p, const std::nothrow_t&) noexcept { Free(p); }
    static void operator delete(void*, void*) noexcept {}
    static void operator delete[](void*, void*) noexcept {}
    template <class... WHERE>
    requires IS_PLACE<WHERE...>
    static void operator delete(void* p, WHERE...) noexcept { Free(p); }
    template <class... WHERE>
    requires IS_PLACE<WHERE...>
    static void operator delete[](void* p, WHERE...) noexcept { Free(p); }

    // The same of classes that are aligned to more; in a place of the host's such a class goes as any other.
    static void* operator new(size_t cb, std::align_val_t to) { return Checked(TryAligned(cb, to)); }
    static void* operator new[](size_t cb, std::align_val_t to) { return Checked(TryAligned(cb, to)); }
    static void* operator new(size_t cb, std::align_val_t to, const std::nothrow_t&) noexcept
    {
        return TryAligned(cb, to);
    }
    static void* operator new[](size_t cb, std::align_val_t to, const std::nothrow_t&) noexcept
    {
        return TryAligned(cb, to);
    }
    template <class... WHERE>
    requires IS_PLACE<WHERE...>
    static void* operator new(size_t cb, std::align_val_t to, WHERE...)
    {
        return Checked(TryAligned(cb, to));
    }
    template <class... WHERE>
    requires IS_PLACE<WHERE...>
    static void* operator new[](size_t cb, std::align_val_t to, WHERE...)
    {
        return Checked(TryAligned(cb, to));
    }

    static void operator delete(void* p, std::align_val_t) noexcept { FreeAligned(p); }
    static void operator delete[](void* p, std::align_val_t) noexcept { FreeAligned(p); }
    static void operator delete(void* p, std::align_val_t, const std::nothrow_t&) noexcept { FreeAligned(p); }
    static void operator delete[](void* p, std::align_val_t, const std::nothrow_t&) noexcept
    {
        FreeAligned(p);
    }
    template <class... WHERE>
    requires IS_PLACE<WHERE...>
    static void operator delete(void* p, std::align_val_t, WHERE...) noexcept { FreeAligned(p); }
    template <class... WHERE>
    requires IS_PLACE<WHERE...>
    static void operator delete[](void* p, std::align_val_t, WHERE...) noexcept { FreeAligned(p); }

protected:
    LibraryMemory() = default;
    ~LibraryMemory() = default;
    LibraryMemory(const LibraryMemory&) = default;
    LibraryMemory& operator=(const LibraryMemory&) = default;

private:
    static void* Checked(void* p)
    {
        if (!p) {
            GESSO_THROW(std::bad_alloc(), OutOfMemory());
        }
        return p;
    }

    // A part of a block, which stands in front of it.
    static void* TryAligned(size_t cb, std::align_val_t to) noexcept
    {
        const size_t cbMore = sizeof(void*) + static_cast<size_t>(to) - 1;
        void* pBlock = cb + cbMore < cb ? nullptr : TryAllocate(cb + cbMore);
        if (!pBlock) {
            return nullptr;
        }
        const uintptr_t uFirst = reinterpret_cast<uintptr_t>(pBlock) + cbMore;
        void** const ppObject = reinterpret_cast<void**>(uFirst & ~(static_cast<uintptr_t>(to) - 1));
        ppObject[-1] = pBlock;
        return ppObject;
    }
    static void FreeAligned(void* p) noexcept
    {
        if (p) {
            Free(static_cast<void**>(p)[-1]);
        }
    }
};

} // namespace gesso
