#include "MemoryLimit.h"

#include <cstdint>
#include <new>
#include <utility>

namespace {
constinit thread_local size_t s_cbLargest = SIZE_MAX;
constinit thread_local size_t s_nGranted = 0;
constinit thread_local size_t s_nRefused = 0;

bool Refuses(size_t cb)
{
    const bool fLarge = cb > s_cbLargest;
    const bool fRefused = fLarge && s_nGranted == 0;
    s_nGranted -= fLarge && !fRefused;
    s_nRefused += fRefused;
    return fRefused;
}

} // namespace

// The linker leads each call of the allocator that stands in the library's or the tests' objects here.
extern "C" {

void* __real_malloc(size_t cb);
void* __real_realloc(void* p, size_t cb);
void* __real__Znwm(size_t cb);
void* __real__Znam(size_t cb);

void* __wrap_malloc(size_t cb)
{
    return Refuses(cb) ? nullptr : __real_malloc(cb);
}

void* __wrap_realloc(void* p, size_t cb)
{
    return Refuses(cb) ? nullptr : __real_realloc(p, cb);
}

void* __wrap__Znwm(size_t cb)
{
    return Refuses(cb) ? throw std::bad_alloc() : __real__Znwm(cb);
}

void* __wrap__Znam(size_t cb)
{
    return Refuses(cb) ? throw std::bad_alloc() : __real__Znam(cb);
}
}

namespace test {

MemoryLimit::MemoryLimit(size_t cbLargest, size_t nGranted)
    : m_cbFormer(std::exchange(s_cbLargest, cbLargest)),
      m_nFormerGranted(std::exchange(s_nGranted, nGranted)), m_nRefusedBefore(s_nRefused)
{}

MemoryLimit::~MemoryLimit()
{
    s_cbLargest = m_cbFormer;
    s_nGranted = m_nFormerGranted;
}

size_t MemoryLimit::Refused() const
{
    return s_nRefused - m_nRefusedBefore;
}

} // namespace test
