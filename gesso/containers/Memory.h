// The blocks that strings and arrays keep their contents in.
//
// They come from the C runtime's allocator (malloc, realloc, free), and always from the library's own
// runtime: the array template is compiled into hosts too, whose runtime may be another. Where no memory is
// left the program ends, since no caller is prepared for a null.
#pragma once

#include <gesso/api.h>

namespace gesso {

// A new block of `cb` bytes, which is 1 or more.
GESSO_API void* Allocate(size_t cb);
// The block `p` with its size changed to `cb` bytes, 1 or more; it may have moved.
GESSO_API void* Reallocate(void* p, size_t cb);
// Gives a block back; null is ignored.
GESSO_API void Free(void* p) noexcept;

// Ends the program: for a length that no block can have.
[[noreturn]] GESSO_API void OutOfMemory() noexcept;

} // namespace gesso
