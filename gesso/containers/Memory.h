// The blocks that strings and arrays keep their contents in.
//
// They come from the C runtime's allocator (malloc, realloc, free), and always from the library's own
// runtime: the array template is compiled into hosts too, whose runtime may be another.
//
// What a program's data makes large (a text, an array, a table, a step to take back) is asked for by
// TryAllocate, and an operation that gets none changes nothing and says so. What is small whatever the data
// is asked for by Allocate: where even that is not to be had no operation could go on, and the program ends
// with a message.
#pragma once

#include <gesso/api.h>

namespace gesso {

// A new block of `cb` bytes, which is 1 or more. Ends the program if there is no memory.
GESSO_API void* Allocate(size_t cb);
// The block `p` with its size changed to `cb` bytes, 1 or more; it may have moved. Ends the program if there
// is no memory.
GESSO_API void* Reallocate(void* p, size_t cb);
// The same, but null if there is no memory; the block `p` is then as it was.
[[nodiscard]] GESSO_API void* TryAllocate(size_t cb) noexcept;
[[nodiscard]] GESSO_API void* TryReallocate(void* p, size_t cb) noexcept;
// Gives a block back; null is ignored.
GESSO_API void Free(void* p) noexcept;

// Ends the program with a message on the standard error stream.
[[noreturn]] GESSO_API void OutOfMemory() noexcept;

} // namespace gesso
